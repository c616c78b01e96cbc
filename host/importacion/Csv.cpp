#include "importacion/Csv.h"

#include "common/Error.h"

#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace nv {

LectorCsv::LectorCsv(const QByteArray &texto)
{
    QStringDecoder decodificador(QStringDecoder::Utf8);
    m_texto = decodificador(texto);
    if (decodificador.hasError())
        throw Error{0, u"El archivo no está en UTF-8."_s, u"LectorCsv"_s};
}

void LectorCsv::fallar(const QString &motivo) const
{
    throw Error{0, u"Línea %1: %2"_s.arg(m_lineaRegistro).arg(motivo), u"LectorCsv"_s};
}

std::optional<QStringList> LectorCsv::siguiente()
{
    while (m_lugar < m_texto.size() && (m_texto[m_lugar] == u'\n' || m_texto[m_lugar] == u'\r')) {
        if (m_texto[m_lugar] == u'\n')
            ++m_linea;
        ++m_lugar;
    }
    if (m_lugar >= m_texto.size())
        return std::nullopt;
    m_lineaRegistro = m_linea;
    QStringList campos;
    for (bool ultimo = false; !ultimo;)
        campos.push_back(campo(ultimo));
    return campos;
}

QString LectorCsv::campo(bool &ultimo)
{
    QString valor;
    const bool entrecomillado = m_lugar < m_texto.size() && m_texto[m_lugar] == u'"';
    if (entrecomillado) {
        for (++m_lugar;; ++m_lugar) {
            if (m_lugar >= m_texto.size())
                fallar(u"hay unas comillas sin cerrar."_s);
            const QChar c = m_texto[m_lugar];
            if (c == u'"') {
                if (m_lugar + 1 >= m_texto.size() || m_texto[m_lugar + 1] != u'"')
                    break;
                ++m_lugar;
            }
            if (c == u'\n')
                ++m_linea;
            valor += c;
        }
        ++m_lugar;
    }
    while (m_lugar < m_texto.size() && m_texto[m_lugar] != u',' && m_texto[m_lugar] != u'\n') {
        const QChar c = m_texto[m_lugar++];
        const bool finDeLinea = c == u'\r' && (m_lugar >= m_texto.size() || m_texto[m_lugar] == u'\n');
        if (finDeLinea)
            break;
        if (entrecomillado || c == u'"')
            fallar(u"hay unas comillas fuera de sitio."_s);
        valor += c;
    }
    ultimo = m_lugar >= m_texto.size() || m_texto[m_lugar] == u'\n';
    if (!ultimo)
        ++m_lugar;
    return valor;
}

} // namespace nv
