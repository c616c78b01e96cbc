#include "support/doble/Reparos.h"

#include <QDate>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace nv::doble {

namespace {

QString escrito(const Piezas &piezas)
{
    QStringList textos;
    for (const Pieza &pieza : piezas)
        textos.push_back(pieza.lexema.texto.toString().toLower());
    return textos.join(u' ');
}

/// By its text, by its name, or by its place.
bool enLista(const Consulta &consulta, const Piezas &criterio)
{
    const bool porLugar = criterio.size() == 1 && criterio[0].lexema.tipo == datos::Lexema::Tipo::Numero;
    return porLugar || std::any_of(consulta.lista.begin(), consulta.lista.end(), [&](const auto &elemento) {
               return escrito(elemento.expresion) == escrito(criterio) ||
                      (criterio.size() == 1 && nombreDe(criterio[0]) == elemento.nombre.toLower());
           });
}

QDate leida(const QRegularExpressionMatch &visto, OrdenFecha orden)
{
    const int a = visto.captured(1).toInt();
    const int b = visto.captured(2).toInt();
    const int c = visto.captured(3).toInt();
    // A year in front does not change the order of the other two.
    const bool conAnoDelante = visto.captured(1).size() == 4;
    const int ano = conAnoDelante ? a : c;
    const int uno = conAnoDelante ? b : a;
    const int otro = conAnoDelante ? c : b;
    return orden == OrdenFecha::DiaMesAno ? QDate(ano, otro, uno) : QDate(ano, uno, otro);
}

} // namespace

void exigirDelServidor(const Piezas &piezas)
{
    static const QStringList ajenas{u"limit"_s, u"pragma"_s, u"ifnull"_s, u"glob"_s, u"rowid"_s, u"sqlite_master"_s};
    for (std::size_t i = 0; i < piezas.size(); ++i) {
        const bool barras = i > 0 && piezas[i].esSigno(u'|') && piezas[i - 1].esSigno(u'|');
        if (barras || (piezas[i].esPalabra() && ajenas.contains(nombreDe(piezas[i]))))
            throw Fallo{102, u"Incorrect syntax near '%1'."_s.arg(piezas[i].lexema.texto)};
    }
    const Consulta consulta(piezas);
    if (consulta.distinta && !std::all_of(consulta.orden.begin(), consulta.orden.end(),
                                          [&](const Piezas &criterio) { return enLista(consulta, criterio); }))
        throw Fallo{145, u"ORDER BY items must appear in the select list if SELECT DISTINCT is specified."_s};
}

QString conFechas(const QString &sentencia, OrdenFecha orden)
{
    static const QRegularExpression fecha(u"^'\\s*(\\d{1,2}|\\d{4})[-/](\\d{1,2})[-/](\\d{1,2}|\\d{4})'$"_s);
    QString salida;
    for (const datos::Lexema &lexema : datos::lexemas(sentencia)) {
        const bool esTexto = lexema.tipo == datos::Lexema::Tipo::Texto;
        const QRegularExpressionMatch visto =
            esTexto ? fecha.match(lexema.texto.toString()) : QRegularExpressionMatch();
        if (!visto.hasMatch() || visto.capturedLength(1) + visto.capturedLength(3) < 5) {
            salida += lexema.texto;
            continue;
        }
        const QDate dia = leida(visto, orden);
        if (!dia.isValid())
            throw Fallo{
                FechaImposible,
                u"The conversion of a varchar data type to a datetime data type resulted in an out-of-range value."_s};
        salida += u'\'' + dia.toString(u"dd/MM/yyyy"_s) + u'\'';
    }
    return salida;
}

} // namespace nv::doble
