#include "platform/datos/Criba.h"

#include <QHash>
#include <algorithm>
#include <iterator>
#include <span>

namespace nv::datos {

namespace {

using Tipo = Lexema::Tipo;

/// A token that is no blank, and where it stands.
struct Simbolo
{
    const Lexema *lexema;
    std::size_t lugar;

    bool es(QStringView palabra) const { return lexema->es(palabra); }
    bool esSigno(char16_t signo) const { return lexema->esSigno(signo); }
    bool esPalabra() const { return lexema->tipo == Tipo::Palabra; }
    bool esHueco() const { return lexema->tipo == Tipo::Hueco; }
};

using Simbolos = std::span<const Simbolo>;

/// Cuts at a word outside brackets.
std::vector<Simbolos> cortar(Simbolos simbolos, QStringView palabra)
{
    std::vector<Simbolos> partes;
    int nivel = 0;
    std::size_t inicio = 0;
    for (std::size_t i = 0; i < simbolos.size(); ++i) {
        nivel += simbolos[i].esSigno(u'(') ? 1 : (simbolos[i].esSigno(u')') ? -1 : 0);
        if (nivel == 0 && simbolos[i].es(palabra)) {
            partes.push_back(simbolos.subspan(inicio, i - inicio));
            inicio = i + 1;
        }
    }
    partes.push_back(simbolos.subspan(inicio));
    return partes;
}

Simbolos sinParentesis(Simbolos simbolos)
{
    while (simbolos.size() > 2 && simbolos.front().esSigno(u'(')) {
        int nivel = 0;
        std::size_t i = 0;
        do
            nivel += simbolos[i].esSigno(u'(') ? 1 : (simbolos[i].esSigno(u')') ? -1 : 0);
        while (nivel > 0 && ++i < simbolos.size());
        if (i + 1 != simbolos.size())
            break;
        simbolos = simbolos.subspan(1, simbolos.size() - 2);
    }
    return simbolos;
}

/// Position of a word outside brackets, or the end.
std::size_t posicion(Simbolos simbolos, QStringView palabra, std::size_t desde)
{
    int nivel = 0;
    for (std::size_t i = desde; i < simbolos.size(); ++i) {
        nivel += simbolos[i].esSigno(u'(') ? 1 : (simbolos[i].esSigno(u')') ? -1 : 0);
        if (nivel == 0 && simbolos[i].es(palabra))
            return i;
    }
    return simbolos.size();
}

/// Whether "a.columna = b.otra" is among the conditions, whichever stands first.
bool iguala(Simbolos simbolos, QStringView a, QStringView columna, QStringView b, QStringView otra)
{
    for (const Simbolos parte : cortar(simbolos, u"AND")) {
        if (parte.size() != 7 || !parte[1].esSigno(u'.') || !parte[3].esSigno(u'=') || !parte[5].esSigno(u'.'))
            continue;
        const bool derecho = parte[0].es(a) && parte[2].es(columna) && parte[4].es(b) && parte[6].es(otra);
        const bool reves = parte[0].es(b) && parte[2].es(otra) && parte[4].es(a) && parte[6].es(columna);
        if (derecho || reves)
            return true;
    }
    return false;
}

/// Tables of a FROM whose texts are in the index as the item's own, by the name that the statement gives them.
class Tablas
{
public:
    explicit Tablas(Simbolos desde)
    {
        std::size_t i = 0;
        while (i < desde.size()) {
            const std::size_t fin = posicion(desde, u"JOIN", i);
            leer(desde.subspan(i, fin - i));
            i = fin + 1;
        }
    }

    const QString &articulos() const { return m_articulos; }

    bool esIndexada(QStringView alias, QStringView columna) const
    {
        const auto esta = [&](QStringView tabla, QStringView nombre) {
            return m_tablas.value(alias.toString().toLower()).compare(tabla, Qt::CaseInsensitive) == 0 &&
                   columna.compare(nombre, Qt::CaseInsensitive) == 0;
        };
        return esta(u"Articulos", u"Descripcion") || esta(u"Articulos", u"Codigo") || esta(u"Articulos_Ref", u"Ref") ||
               esta(u"Articulos_CBarras", u"Cod_Barras") || esta(u"Marcas", u"Nombre");
    }

private:
    /// "Tabla alias ON …", with the next join's LEFT or INNER at its end.
    void leer(Simbolos parte)
    {
        if (parte.size() < 2 || !parte[0].esPalabra() || !parte[1].esPalabra())
            return;
        const QStringView alias = parte[1].lexema->texto;
        const QString clave = alias.toString().toLower();
        if (parte[0].es(u"Articulos")) {
            ++m_veces;
            m_articulos = m_veces == 1 ? alias.toString() : QString();
            m_tablas.insert(clave, parte[0].lexema->texto.toString());
            return;
        }
        if (m_articulos.isEmpty() || parte.size() < 3 || !parte[2].es(u"ON"))
            return;
        while (parte.back().es(u"LEFT") || parte.back().es(u"INNER") || parte.back().es(u"OUTER"))
            parte = parte.first(parte.size() - 1);
        const Simbolos union_ = parte.subspan(3);
        const bool propia = iguala(union_, alias, u"Cod_Articulo", m_articulos, u"Codigo") &&
                            iguala(union_, alias, u"Cod_Empresa", m_articulos, u"Cod_Empresa");
        const bool deMarca = parte[0].es(u"Marcas") && iguala(union_, alias, u"Codigo", m_articulos, u"Marca");
        if (propia || deMarca)
            m_tablas.insert(clave, parte[0].lexema->texto.toString());
    }

    QString m_articulos;
    int m_veces = 0; // of the items: only once are they surely the ones meant
    QHash<QString, QString> m_tablas;
};

/// The pattern of "a.columna LIKE pattern" or "ISNULL(a.columna, x) LIKE pattern" over an indexed column.
const Simbolo *patronDe(Simbolos simbolos, const Tablas &tablas, const Simbolo *&omision)
{
    omision = nullptr;
    simbolos = sinParentesis(simbolos);
    if (simbolos.size() < 5 || !simbolos[simbolos.size() - 2].es(u"LIKE") || !simbolos.back().esHueco())
        return nullptr;
    Simbolos operando = simbolos.first(simbolos.size() - 2);
    if (operando.size() == 8 && operando[0].es(u"ISNULL") && operando[1].esSigno(u'(') && operando[5].esSigno(u',') &&
        operando[6].esHueco()) {
        omision = &operando[6];
        operando = operando.subspan(2, 3);
    }
    const bool columna = operando.size() == 3 && operando[1].esSigno(u'.') &&
                         tablas.esIndexada(operando[0].lexema->texto, operando[2].lexema->texto);
    return columna ? &simbolos.back() : nullptr;
}

} // namespace

std::optional<CondicionesCribables> buscarCribables(const std::vector<Lexema> &lista,
                                                    const std::vector<std::size_t> &literal)
{
    std::vector<Simbolo> todas;
    for (std::size_t i = 0; i < lista.size(); ++i) {
        if (lista[i].tipo != Tipo::Blanco)
            todas.push_back({&lista[i], i});
    }
    const Simbolos simbolos = todas;
    const std::size_t desde = posicion(simbolos, u"FROM", 0);
    const std::size_t donde = posicion(simbolos, u"WHERE", desde);
    if (donde >= simbolos.size() || posicion(simbolos, u"UNION", 0) < simbolos.size())
        return {};
    const std::size_t fin = std::min(posicion(simbolos, u"ORDER", donde), posicion(simbolos, u"GROUP", donde));
    const Tablas tablas(simbolos.subspan(desde + 1, donde - desde - 1));
    const Simbolos condicion = simbolos.subspan(donde + 1, fin - donde - 1);
    if (tablas.articulos().isEmpty() || posicion(condicion, u"OR", 0) < condicion.size() ||
        posicion(condicion, u"NOT", 0) < condicion.size())
        return {};

    CondicionesCribables salida;
    salida.articulos = tablas.articulos() + u'.';
    bool conEmpresa = false;
    for (const Simbolos parte : cortar(condicion, u"AND")) {
        if (parte.size() == 5 && parte[0].es(tablas.articulos()) && parte[1].esSigno(u'.') &&
            parte[2].es(u"Cod_Empresa") && parte[3].esSigno(u'=') && parte[4].lexema->texto == QChar(hueco::Numero)) {
            salida.empresa = literal[parte[4].lugar];
            salida.lugarEmpresa = parte[0].lugar;
            conEmpresa = true;
            continue;
        }
        std::vector<std::size_t> grupo;
        std::vector<std::size_t> omisiones;
        const std::vector<Simbolos> alternativas = cortar(sinParentesis(parte), u"OR");
        for (const Simbolos alternativa : alternativas) {
            const Simbolo *omision = nullptr;
            const Simbolo *patron = patronDe(alternativa, tablas, omision);
            // A fixed beginning already has a range of its index, which is faster.
            const bool rango = alternativas.size() == 1 && !parte[0].es(u"ISNULL") && patron &&
                               patron->lexema->texto == QChar(hueco::PatronConPrefijo);
            if (!patron || rango)
                break;
            grupo.push_back(literal[patron->lugar]);
            if (omision)
                omisiones.push_back(literal[omision->lugar]);
        }
        if (grupo.size() != alternativas.size())
            continue;
        if (salida.grupos.empty())
            salida.lugar = parte[0].lugar;
        salida.grupos.push_back(std::move(grupo));
        salida.omisiones.insert(salida.omisiones.end(), omisiones.begin(), omisiones.end());
    }
    if (!conEmpresa || salida.grupos.empty())
        return {};
    return salida;
}

} // namespace nv::datos
