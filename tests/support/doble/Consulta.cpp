#include "support/doble/Consulta.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace nv::doble {

namespace {

using Tipo = datos::Lexema::Tipo;

bool algunaDe(const Pieza &pieza, std::initializer_list<QStringView> palabras)
{
    return std::any_of(palabras.begin(), palabras.end(), [&](QStringView palabra) { return pieza.es(palabra); });
}

/// Past the bracket that the piece at `i` opens.
std::size_t trasParentesis(const Piezas &piezas, std::size_t i)
{
    const int nivel = piezas[i].nivel;
    for (++i; i < piezas.size() && piezas[i].nivel > nivel;)
        ++i;
    return std::min(i + 1, piezas.size());
}

Consulta::Elemento elemento(Piezas piezas)
{
    Consulta::Elemento uno;
    const std::size_t total = piezas.size();
    const bool calificado = total > 1 && piezas[total - 2].esSigno(u'.');
    if (total > 2 && piezas[total - 2].es(u"AS")) {
        uno.nombre = piezas.back().lexema.texto.toString();
        piezas.resize(total - 2);
    } else if (total > 1 && piezas.back().esPalabra() && !calificado && !piezas.back().es(u"END")) {
        uno.nombre = piezas.back().lexema.texto.toString();
        piezas.resize(total - 1);
    } else if ((total == 1 || (total == 3 && calificado)) && piezas.back().esPalabra()) {
        uno.nombre = piezas.back().lexema.texto.toString();
    }
    if (uno.nombre.startsWith(u'['))
        uno.nombre = uno.nombre.sliced(1).chopped(1);
    uno.expresion = std::move(piezas);
    return uno;
}

class Lector
{
public:
    Lector(const Piezas &piezas, Consulta &consulta)
        : m_piezas(piezas)
        , m_consulta(consulta)
    {}

    void leer()
    {
        while (m_i < m_piezas.size() && !esAqui({u"SELECT"}))
            ++m_i;
        if (m_i == m_piezas.size())
            return;
        m_consulta.hay = true;
        ++m_i;
        if (esAqui({u"DISTINCT", u"ALL"}))
            m_consulta.distinta = m_piezas[m_i++].es(u"DISTINCT");
        if (esAqui({u"TOP"})) {
            ++m_i;
            m_i = m_i < m_piezas.size() && m_piezas[m_i].esSigno(u'(') ? trasParentesis(m_piezas, m_i) : m_i + 1;
        }
        for (Piezas &una : porComas(hasta({u"INTO", u"FROM", u"WHERE", u"GROUP", u"ORDER", u"UNION"}), 0))
            m_consulta.lista.push_back(elemento(std::move(una)));
        if (esAqui({u"INTO"}) && m_i + 1 < m_piezas.size()) {
            m_consulta.destino = nombreDe(m_piezas[m_i + 1]);
            m_i += 2;
        }
        if (esAqui({u"FROM"}))
            leerOrigenes(hasta({u"WHERE", u"GROUP", u"ORDER", u"UNION"}));
        hasta({u"ORDER"});
        if (m_i + 2 < m_piezas.size())
            leerOrden({m_piezas.begin() + static_cast<std::ptrdiff_t>(m_i) + 2, m_piezas.end()});
    }

private:
    bool esAqui(std::initializer_list<QStringView> palabras) const
    {
        return m_i < m_piezas.size() && m_piezas[m_i].nivel == 0 && algunaDe(m_piezas[m_i], palabras);
    }

    Piezas hasta(std::initializer_list<QStringView> palabras)
    {
        Piezas leidas;
        while (m_i < m_piezas.size() && !esAqui(palabras))
            leidas.push_back(m_piezas[m_i++]);
        return leidas;
    }

    void leerOrigenes(const Piezas &desde)
    {
        bool esperaTabla = true; // at the FROM itself
        for (std::size_t i = 1; i < desde.size(); ++i) {
            if (desde[i].nivel > 0)
                continue;
            if (desde[i].es(u"JOIN") || desde[i].esSigno(u',')) {
                esperaTabla = true;
            } else if (esperaTabla && (desde[i].esPalabra() || desde[i].esSigno(u'('))) {
                esperaTabla = false;
                const bool subconsulta = desde[i].esSigno(u'(');
                const QString tabla = subconsulta ? QString() : nombreDe(desde[i]);
                std::size_t j = subconsulta ? trasParentesis(desde, i) : i + 1;
                if (j < desde.size() && desde[j].es(u"AS"))
                    ++j;
                const bool conAlias = j < desde.size() && desde[j].esPalabra() &&
                                      !algunaDe(desde[j], {u"ON", u"LEFT", u"RIGHT", u"INNER", u"FULL", u"CROSS",
                                                           u"OUTER", u"JOIN", u"WITH"});
                m_consulta.origenes.emplace_back(conAlias ? nombreDe(desde[j]) : tabla, tabla);
            }
        }
    }

    void leerOrden(Piezas orden)
    {
        while (!orden.empty() && orden.back().esSigno(u';'))
            orden.pop_back();
        m_consulta.orden = porComas(orden, 0);
        for (Piezas &criterio : m_consulta.orden) {
            if (criterio.size() > 1 && algunaDe(criterio.back(), {u"ASC", u"DESC"}))
                criterio.pop_back();
        }
    }

    const Piezas &m_piezas;
    Consulta &m_consulta;
    std::size_t m_i = 0;
};

/// The declared types of expressions.
class Tipador
{
public:
    Tipador(const Consulta &consulta, const Declaradas &declaradas)
    {
        for (const auto &[nombre, tabla] : consulta.origenes)
            m_origenes.emplace_back(nombre, tabla.isEmpty() ? std::vector<Columna>() : declaradas(tabla));
    }

    std::optional<TipoSql> tipo(const Piezas &expresion) const
    {
        if (expresion.empty())
            return std::nullopt;
        if (expresion.size() == 1 && expresion[0].esPalabra())
            return columna({}, nombreDe(expresion[0]));
        if (expresion.size() == 3 && expresion[1].esSigno(u'.'))
            return columna(nombreDe(expresion[0]), nombreDe(expresion[2]));
        const bool esFuncion = expresion.size() > 3 && expresion[0].esPalabra() && expresion[1].esSigno(u'(') &&
                               trasParentesis(expresion, 1) == expresion.size();
        return esFuncion ? funcion(expresion) : cuenta(expresion);
    }

    /// The columns that "*" or "x.*" stands for; empty when that is not known.
    std::vector<Columna> todas(const QString &origen) const
    {
        std::vector<Columna> lista;
        for (const auto &[nombre, columnas] : m_origenes) {
            if (!origen.isEmpty() && nombre != origen)
                continue;
            if (columnas.empty())
                return {};
            lista.insert(lista.end(), columnas.begin(), columnas.end());
        }
        return lista;
    }

private:
    std::optional<TipoSql> columna(const QString &origen, const QString &nombre) const
    {
        for (const auto &[suyo, columnas] : m_origenes) {
            if (!origen.isEmpty() && suyo != origen)
                continue;
            for (const Columna &columna : columnas) {
                if (columna.nombre.compare(nombre, Qt::CaseInsensitive) == 0)
                    return columna.tipo;
            }
        }
        return std::nullopt;
    }

    std::optional<TipoSql> funcion(const Piezas &expresion) const
    {
        const Pieza &nombre = expresion[0];
        const std::vector<Piezas> partes =
            porComas({expresion.begin() + 2, expresion.end() - 1}, expresion[1].nivel + 1);
        if (algunaDe(nombre, {u"COUNT", u"LEN"}))
            return TipoSql::entero(4);
        if (algunaDe(nombre, {u"REPLACE", u"LTRIM", u"RTRIM", u"UPPER", u"LOWER", u"SUBSTRING"}))
            return TipoSql();
        if (nombre.es(u"CONVERT")) {
            QStringList medidas;
            for (std::size_t i = 2; i + 1 < partes[0].size(); ++i)
                medidas.push_back(partes[0][i].lexema.texto.toString());
            return TipoSql::declarado(partes[0][0].lexema.texto, medidas);
        }
        if (!algunaDe(nombre, {u"ISNULL", u"MIN", u"MAX", u"SUM"}))
            return std::nullopt;
        std::optional<TipoSql> suyo = tipo(partes[0]);
        const bool pequeno = suyo && (suyo->clase == TipoSql::Clase::Bit || suyo->clase == TipoSql::Clase::Entero);
        return nombre.es(u"SUM") && pequeno ? TipoSql::entero(4) : suyo;
    }

    /// What is reckoned with an amount is an amount.
    std::optional<TipoSql> cuenta(const Piezas &expresion) const
    {
        for (std::size_t i = 0; i < expresion.size(); ++i) {
            if (algunaDe(expresion[i], {u"CASE", u"SELECT", u"CONVERT", u"COUNT", u"LEN"}))
                return std::nullopt;
            const bool conTabla = i > 1 && expresion[i - 1].esSigno(u'.');
            const auto suyo = expresion[i].esPalabra()
                                  ? columna(conTabla ? nombreDe(expresion[i - 2]) : QString(), nombreDe(expresion[i]))
                                  : std::nullopt;
            if (suyo && suyo->clase == TipoSql::Clase::Importe)
                return suyo;
        }
        return std::nullopt;
    }

    std::vector<std::pair<QString, std::vector<Columna>>> m_origenes;
};

} // namespace

Piezas piezasDe(QStringView sentencia)
{
    Piezas lista;
    int nivel = 0;
    for (const datos::Lexema &lexema : datos::lexemas(sentencia)) {
        nivel -= lexema.esSigno(u')') ? 1 : 0;
        if (lexema.tipo != Tipo::Blanco)
            lista.push_back({lexema, nivel});
        nivel += lexema.esSigno(u'(') ? 1 : 0;
    }
    return lista;
}

QString nombreDe(const Pieza &pieza)
{
    const QString nombre = pieza.lexema.texto.toString().toLower();
    return nombre.startsWith(u'[') ? nombre.sliced(1).chopped(1) : nombre;
}

std::vector<Piezas> porComas(const Piezas &piezas, int nivel)
{
    std::vector<Piezas> trozos(1);
    for (const Pieza &pieza : piezas) {
        if (pieza.nivel == nivel && pieza.esSigno(u','))
            trozos.emplace_back();
        else
            trozos.back().push_back(pieza);
    }
    return trozos;
}

Consulta::Consulta(const Piezas &piezas)
{
    Lector(piezas, *this).leer();
}

std::vector<Columna> columnasDe(const Consulta &consulta, const std::vector<Fila> &filas, const Declaradas &declaradas)
{
    const Tipador tipador(consulta, declaradas);
    std::vector<std::pair<QString, std::optional<TipoSql>>> previstas;
    for (const Consulta::Elemento &elemento : consulta.lista) {
        if (elemento.expresion.empty() || !elemento.expresion.back().esSigno(u'*')) {
            previstas.emplace_back(elemento.nombre, tipador.tipo(elemento.expresion));
            continue;
        }
        const bool deUna = elemento.expresion.size() == 3;
        const std::vector<Columna> todas = tipador.todas(deUna ? nombreDe(elemento.expresion[0]) : QString());
        if (todas.empty())
            return {};
        for (const Columna &columna : todas)
            previstas.emplace_back(columna.nombre, columna.tipo);
    }
    if (!filas.empty() && filas.front().size() != previstas.size())
        return {};
    std::vector<Columna> columnas;
    for (const auto &[nombre, tipo] : previstas) {
        const std::size_t lugar = columnas.size();
        const bool vale = tipo && std::all_of(filas.begin(), filas.end(),
                                              [&](const Fila &fila) { return tipo->admite(fila[lugar]); });
        columnas.push_back({nombre, vale ? *tipo : tipoPorValores(filas, lugar)});
    }
    return columnas;
}

std::pair<QString, std::vector<Columna>> tablaDeclarada(const Piezas &piezas)
{
    std::vector<Columna> columnas;
    if (piezas.size() < 5)
        return {};
    const Piezas dentro(piezas.begin() + 4, piezas.end());
    for (const Piezas &una : porComas(dentro, 1)) {
        if (una.size() < 2 || algunaDe(una[0], {u"PRIMARY", u"UNIQUE", u"CONSTRAINT", u"CHECK", u"FOREIGN"}))
            continue;
        QStringList medidas;
        for (std::size_t i = 3; una.size() > 2 && una[2].esSigno(u'(') && i < una.size() && una[i].nivel > 1; ++i) {
            if (!una[i].esSigno(u','))
                medidas.push_back(una[i].lexema.texto.toString());
        }
        const QString nombre = una[0].lexema.texto.toString();
        columnas.push_back({nombre, TipoSql::declarado(una[1].lexema.texto, medidas).value_or(TipoSql())});
    }
    return {nombreDe(piezas[2]), columnas};
}

} // namespace nv::doble
