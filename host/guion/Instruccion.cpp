#include "guion/Instruccion.h"

using namespace Qt::StringLiterals;

namespace mostrador::guion {

QStringList Instruccion::palabras() const
{
    QStringList palabras;
    QString actual; // null between words
    bool comillas = false;
    for (qsizetype i = 0; i < resto.size(); ++i) {
        const QChar c = resto[i];
        if (c == u' ' && !comillas) {
            if (!actual.isNull())
                palabras << std::exchange(actual, QString());
        } else if (c == u'"') {
            comillas = !comillas;
            actual += u""_s;
        } else if (comillas && c == u'\\' && i + 1 < resto.size()) {
            const QChar siguiente = resto[++i];
            actual += siguiente == u'n' ? QChar(u'\n') : siguiente;
        } else {
            actual += c;
        }
    }
    if (!actual.isNull())
        palabras << actual;
    return palabras;
}

std::vector<Instruccion> Instruccion::leidas(const QString &linea, int numero)
{
    const QString limpia = linea.trimmed();
    if (limpia.isEmpty() || limpia.startsWith(u'#'))
        return {};
    const Instruccion una{numero, limpia.section(u' ', 0, 0), limpia.section(u' ', 1).trimmed()};
    if (una.nombre == u"confirma")
        return {{numero, u"escribe"_s, una.resto}, {numero, u"pulsa"_s, u"Enter"_s}};
    if (una.nombre != u"pulsa" || !una.resto.contains(u' '))
        return {una};
    std::vector<Instruccion> teclas;
    for (const QString &tecla : una.resto.split(u' ', Qt::SkipEmptyParts))
        teclas.push_back({numero, una.nombre, tecla});
    return teclas;
}

std::optional<std::pair<QString, QString>> Instruccion::comparacion() const
{
    const QString entero = resto.endsWith(u" ="_s) ? resto + u' ' : resto;
    const qsizetype igual = entero.indexOf(u" = "_s);
    if (igual < 0)
        return std::nullopt;
    return std::pair(entero.first(igual).trimmed(), sinComillas(entero.sliced(igual + 3)));
}

QString Instruccion::leido() const
{
    QString texto = resto;
    texto.replace(u"\\t"_s, u"\t"_s).replace(u"\\r"_s, u"\r"_s).replace(u"\\n"_s, u"\n"_s);
    return !texto.isEmpty() && texto.back().isPrint() ? texto + u'\r' : texto;
}

QString sinComillas(const QString &texto)
{
    const bool puestas = texto.size() >= 2 && texto.startsWith(u'"') && texto.endsWith(u'"');
    return puestas ? texto.sliced(1, texto.size() - 2) : texto;
}

QString enUnaLinea(QString texto)
{
    return texto.remove(u'\r').replace(u'\n', u"\\n"_s);
}

} // namespace mostrador::guion
