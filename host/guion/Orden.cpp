#include "guion/Orden.h"

using namespace Qt::StringLiterals;

namespace nv::guion {

QStringList Orden::palabras() const
{
    QStringList palabras;
    QString actual;
    bool comillas = false;
    bool hay = false;
    for (qsizetype i = 0; i < resto.size(); ++i) {
        const QChar c = resto[i];
        if (comillas && c == u'\\' && i + 1 < resto.size()) {
            const QChar siguiente = resto[++i];
            actual += siguiente == u'n' ? QChar(u'\n') : siguiente;
        } else if (c == u'"') {
            comillas = !comillas;
            hay = true;
        } else if (c == u' ' && !comillas) {
            if (hay)
                palabras << actual;
            actual.clear();
            hay = false;
        } else {
            actual += c;
            hay = true;
        }
    }
    if (hay)
        palabras << actual;
    return palabras;
}

std::optional<Orden> leida(const QString &linea, int numero)
{
    const QString limpia = linea.trimmed();
    if (limpia.isEmpty() || limpia.startsWith(u'#'))
        return std::nullopt;
    const qsizetype blanco = limpia.indexOf(u' ');
    if (blanco < 0)
        return Orden{numero, limpia, {}};
    return Orden{numero, limpia.first(blanco), limpia.sliced(blanco + 1).trimmed()};
}

std::optional<Comparacion> comparacion(const QString &resto)
{
    QString entero = resto;
    if (entero.endsWith(u" ="_s))
        entero += u' ';
    const qsizetype igual = entero.indexOf(u" = "_s);
    if (igual < 0)
        return std::nullopt;
    QString texto = entero.sliced(igual + 3);
    if (texto.size() >= 2 && texto.startsWith(u'"') && texto.endsWith(u'"'))
        texto = texto.sliced(1, texto.size() - 2);
    return Comparacion{entero.first(igual).trimmed(), texto};
}

QString enUnaLinea(QString texto)
{
    return texto.remove(u'\r').replace(u'\n', u"\\n"_s);
}

} // namespace nv::guion
