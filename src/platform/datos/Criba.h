#pragma once

#include "platform/datos/Lexico.h"

#include <optional>
#include <vector>

namespace nv::datos {

/// How a statement's rows are sieved before its LIKE conditions are tried.
enum class Criba {
    Ninguna,
    Lista, ///< few candidates: the statement seeks each of them
    Mapa,  ///< many: the statement goes its own way and asks for each item whether it is one
};

/// Conditions of a query over `Articulos` whose LIKE patterns the trigram index can answer. What they let through is
/// among the candidates, so a condition may be added beside them; they themselves stay.
struct CondicionesCribables
{
    std::size_t lugar = 0;        ///< token before which the added condition goes, followed by AND
    std::size_t lugarEmpresa = 0; ///< token that begins the condition on the company
    QString articulos;            ///< the name that the statement gives to the items, with its point
    std::size_t empresa = 0;      ///< literal that holds the company of the items
    /// Per condition the literals with its patterns: one of them must fit, of each condition.
    std::vector<std::vector<std::size_t>> grupos;
    std::vector<std::size_t> omisiones; ///< literals that stand in for a missing value, and may fit where nothing does
};

/// `literal` is the number of literals before each token. Nothing is found in what is only partly understood.
std::optional<CondicionesCribables> buscarCribables(const std::vector<Lexema> &lista,
                                                    const std::vector<std::size_t> &literal);

} // namespace nv::datos
