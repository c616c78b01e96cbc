#pragma once

#include <QHash>
#include <QRegularExpression>
#include <QStringList>
#include <QtEndian>

namespace nv::pruebas {

using namespace Qt::StringLiterals;

/// The text of a PDF as this toolkit writes it: packed page contents that paint glyph numbers, and one table for each
/// font of what they stand for.
class LectorPdf
{
public:
    explicit LectorPdf(const QByteArray &pdf)
        : m_pdf(pdf)
    {}

    int paginas() const { return static_cast<int>(m_pdf.count("/Type /Page\n")); }
    /// Each piece of text in the order of painting; a tab, which shares its glyph with the blank, is a blank.
    QStringList textos() const;

private:
    using Tabla = QHash<int, QChar>;

    QByteArray objeto(const QByteArray &numero) const;
    static QByteArray contenido(const QByteArray &objeto);
    Tabla tabla(const QByteArray &fuente) const;

    QByteArray m_pdf;
};

inline QByteArray LectorPdf::objeto(const QByteArray &numero) const
{
    const qsizetype desde = m_pdf.indexOf('\n' + numero + " 0 obj\n");
    return desde < 0 ? QByteArray() : m_pdf.mid(desde, m_pdf.indexOf("endobj", desde) - desde);
}

inline QByteArray LectorPdf::contenido(const QByteArray &objeto)
{
    const qsizetype desde = objeto.indexOf("stream\n") + 7;
    const QByteArray datos = objeto.mid(desde, objeto.lastIndexOf("endstream") - desde);
    if (!objeto.first(desde).contains("/FlateDecode"))
        return datos;
    QByteArray conLongitud(4, '\0');
    qToBigEndian(static_cast<quint32>(datos.size() * 8), conLongitud.data());
    return qUncompress(conLongitud + datos);
}

inline LectorPdf::Tabla LectorPdf::tabla(const QByteArray &fuente) const
{
    static const QRegularExpression enlace(u"/ToUnicode (\\d+) 0 R"_s);
    static const QRegularExpression tramo(u"<(\\w{4})> <(\\w{4})> (<\\w{4}>|\\[[^\\]]*\\])"_s);
    const QByteArray numero = enlace.match(QString::fromLatin1(objeto(fuente))).captured(1).toLatin1();
    Tabla tabla;
    auto tramos = tramo.globalMatch(QString::fromLatin1(contenido(objeto(numero))));
    while (tramos.hasNext()) {
        const QRegularExpressionMatch uno = tramos.next();
        const int primero = uno.captured(1).toInt(nullptr, 16);
        const int ultimo = uno.captured(2).toInt(nullptr, 16);
        QString valores = uno.captured(3);
        const bool lista = valores.startsWith(u'[');
        valores.remove(u'[').remove(u']').remove(u'<');
        const QStringList letras = valores.split(u'>', Qt::SkipEmptyParts);
        for (int i = primero; i <= ultimo; ++i) {
            const int letra = letras.value(lista ? i - primero : 0).trimmed().toInt(nullptr, 16);
            tabla.insert(i, QChar(lista ? letra : letra + i - primero));
        }
    }
    return tabla;
}

inline QStringList LectorPdf::textos() const
{
    static const QRegularExpression pagina(u"/Type /Page\n.*?/Contents (\\d+) 0 R"_s,
                                           QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression orden(u"/F(\\d+) |<(\\w+)>|\\b(ET)\\b"_s);
    QHash<QString, Tabla> tablas;
    QStringList textos;
    auto paginas = pagina.globalMatch(QString::fromLatin1(m_pdf));
    while (paginas.hasNext()) {
        const QByteArray pintado = contenido(objeto(paginas.next().captured(1).toLatin1()));
        QString fuente;
        QString texto;
        auto ordenes = orden.globalMatch(QString::fromLatin1(pintado));
        while (ordenes.hasNext()) {
            const QRegularExpressionMatch una = ordenes.next();
            if (una.hasCaptured(1)) {
                fuente = una.captured(1);
                if (!tablas.contains(fuente))
                    tablas.insert(fuente, tabla(fuente.toLatin1()));
            } else if (una.hasCaptured(2)) {
                for (qsizetype i = 0; i + 4 <= una.captured(2).size(); i += 4)
                    texto += tablas[fuente].value(una.captured(2).mid(i, 4).toInt(nullptr, 16), u'?');
            } else if (!texto.trimmed().isEmpty()) {
                textos.append(texto.simplified());
                texto.clear();
            }
        }
    }
    return textos;
}

} // namespace nv::pruebas
