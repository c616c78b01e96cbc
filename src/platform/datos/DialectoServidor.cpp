#include "platform/datos/DialectoServidor.h"

#include "platform/datos/Lexico.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace nv::datos {

namespace {

using Tipo = Lexema::Tipo;

/// A token of the statement's own level with its place in the text; `nivel` counts open brackets.
struct Pieza
{
    Lexema lexema;
    qsizetype lugar;
    int nivel;
};

std::vector<Pieza> piezas(const QString &sentencia)
{
    std::vector<Pieza> lista;
    qsizetype lugar = 0;
    int nivel = 0;
    for (const Lexema &lexema : lexemas(sentencia)) {
        if (lexema.esSigno(u')'))
            --nivel;
        if (lexema.tipo != Tipo::Blanco)
            lista.push_back({lexema, lugar, nivel});
        if (lexema.esSigno(u'('))
            ++nivel;
        lugar += lexema.texto.size();
    }
    return lista;
}

using Rango = std::pair<std::size_t, std::size_t>; // [first, last)

/// The pieces between commas of the own level.
std::vector<Rango> porComas(const std::vector<Pieza> &lista, Rango rango)
{
    std::vector<Rango> trozos;
    std::size_t inicio = rango.first;
    for (std::size_t i = rango.first; i <= rango.second; ++i) {
        if (i == rango.second || (lista[i].nivel == 0 && lista[i].lexema.esSigno(u','))) {
            trozos.emplace_back(inicio, i);
            inicio = i + 1;
        }
    }
    return trozos;
}

QString escrito(const std::vector<Pieza> &lista, Rango rango)
{
    QString texto;
    for (std::size_t i = rango.first; i < rango.second; ++i)
        texto += lista[i].lexema.tipo == Tipo::Texto ? lista[i].lexema.texto.toString()
                                                     : lista[i].lexema.texto.toString().toLower() + u' ';
    return texto;
}

bool es(const Pieza &pieza, QStringView palabra)
{
    return pieza.nivel == 0 && pieza.lexema.es(palabra);
}

/// What an ORDER BY may name of one item of the list: the expression, its alias, its column without the table.
QStringList nombresDe(const std::vector<Pieza> &lista, Rango elemento)
{
    QStringList nombres{escrito(lista, elemento)};
    const auto [inicio, fin] = elemento;
    if (fin - inicio < 2)
        return nombres;
    const Pieza &ultima = lista[fin - 1];
    const Pieza &penultima = lista[fin - 2];
    if (ultima.nivel != 0 || ultima.lexema.tipo != Tipo::Palabra)
        return nombres;
    if (penultima.lexema.esSigno(u'.') || es(penultima, u"AS") || penultima.lexema.tipo == Tipo::Palabra ||
        penultima.lexema.esSigno(u')'))
        nombres.push_back(escrito(lista, {fin - 1, fin}));
    if (es(penultima, u"AS"))
        nombres.push_back(escrito(lista, {inicio, fin - 2}));
    return nombres;
}

class CopiaOrdenada
{
public:
    explicit CopiaOrdenada(const QString &sentencia)
        : m_lista(piezas(sentencia))
    {
        const std::size_t total = m_lista.size();
        const std::size_t select = buscar(u"SELECT", 0);
        if (total == 0 || !es(m_lista[0], u"INSERT") || select + 1 >= total || !es(m_lista[select + 1], u"DISTINCT"))
            return;
        const std::size_t from = buscar(u"FROM", select);
        const std::size_t orden = buscar(u"ORDER", from);
        // A limit counts in that order: without it other rows would be copied.
        if (orden + 2 >= total || es(m_lista[select + 2], u"TOP") || !es(m_lista[orden + 1], u"BY"))
            return;
        m_orden = orden;
        for (const Rango &elemento : porComas(m_lista, {select + 2, from}))
            m_nombres += nombresDe(m_lista, elemento);
    }

    /// Where the order begins that has to go; -1 when there is none.
    qsizetype sobra() const
    {
        if (m_orden == 0)
            return -1;
        std::size_t fin = m_lista.size();
        while (fin > m_orden && m_lista[fin - 1].lexema.esSigno(u';'))
            --fin;
        for (Rango criterio : porComas(m_lista, {m_orden + 2, fin})) {
            if (criterio.second > criterio.first &&
                (es(m_lista[criterio.second - 1], u"ASC") || es(m_lista[criterio.second - 1], u"DESC")))
                --criterio.second;
            if (!enLista(criterio))
                return m_lista[m_orden].lugar;
        }
        return -1;
    }

private:
    std::size_t buscar(QStringView palabra, std::size_t desde) const
    {
        while (desde < m_lista.size() && !es(m_lista[desde], palabra))
            ++desde;
        return desde;
    }

    bool enLista(Rango criterio) const
    {
        const bool ordinal =
            criterio.second - criterio.first == 1 && m_lista[criterio.first].lexema.tipo == Tipo::Numero;
        return ordinal || m_nombres.contains(escrito(m_lista, criterio));
    }

    std::vector<Pieza> m_lista;
    std::size_t m_orden = 0;
    QStringList m_nombres;
};

} // namespace

QString adaptarAlServidor(const QString &sentencia)
{
    if (!QStringView(sentencia).trimmed().startsWith(u"INSERT", Qt::CaseInsensitive) ||
        !sentencia.contains(u"DISTINCT"_s, Qt::CaseInsensitive))
        return sentencia;
    const qsizetype sobra = CopiaOrdenada(sentencia).sobra();
    return sobra < 0 ? sentencia : sentencia.first(sobra).trimmed();
}

} // namespace nv::datos
