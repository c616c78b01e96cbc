#include "importacion/Csv.h"

#include "nvArticulo/Error.h"

#include <QRegularExpression>
#include <QStringDecoder>

using namespace Qt::StringLiterals;
using namespace nv;

namespace mostrador {

std::vector<RegistroCsv> leerCsv(const QByteArray &octetos)
{
    QStringDecoder decodificador(QStringDecoder::Utf8);
    const QString texto = decodificador(octetos);
    if (decodificador.hasError())
        throw Error{0, u"El archivo no está en UTF-8."_s, u"leerCsv"_s};
    // A field, between quotes or not, and what ends it.
    static const QRegularExpression patron(uR"re((?:"((?:[^"]|"")*+)"|([^,"\n]*?))(,|\r?\n|\r?\z))re"_s);
    // The text is sound: to look through all of it at every field would be most of the work.
    constexpr auto Opciones =
        QRegularExpression::AnchorAtOffsetMatchOption | QRegularExpression::DontCheckSubjectStringMatchOption;
    std::vector<RegistroCsv> registros;
    int linea = 1;
    for (qsizetype lugar = 0; lugar < texto.size();) {
        RegistroCsv registro{linea, {}};
        const qsizetype principio = lugar;
        QRegularExpressionMatch campo;
        do {
            campo = patron.match(texto, lugar, QRegularExpression::NormalMatch, Opciones);
            if (!campo.hasMatch()) {
                const bool abiertas = QStringView(texto).sliced(lugar).count(u'"') % 2 != 0;
                throw Error{0,
                            u"Línea %1: hay unas comillas %2."_s.arg(registro.linea)
                                .arg(abiertas ? u"sin cerrar"_s : u"fuera de sitio"_s),
                            u"leerCsv"_s};
            }
            registro.campos << (campo.captured(1).replace(u"\"\""_s, u"\""_s) + campo.captured(2));
            linea += static_cast<int>(campo.capturedView(0).count(u'\n'));
            lugar = campo.capturedEnd();
        } while (campo.capturedView(3) == u",");
        if (campo.capturedStart(3) > principio)
            registros.push_back(std::move(registro));
    }
    return registros;
}

} // namespace mostrador
