#pragma once

#include "platform/datos/Criba.h"

#include <QString>

namespace nv::datos {

/// A form in the embedded engine's own words. Parameter ?i is the i-th literal of the form; behind them come, per
/// entry of `rangos`, the two ends of the range that a LIKE pattern implies, and last the candidates of a sieve.
struct Adaptada
{
    QString sql;
    QString tablaNueva;              ///< of a SELECT … INTO, which the engine makes and fills from `sql`
    std::vector<std::size_t> rangos; ///< index of the literal that holds the pattern
    std::optional<CondicionesCribables> cribables;
};

/// Adapts a form (see Lexico.h), or a whole statement without lifted literals, from the server's dialect. What it does
/// not know goes through unchanged; a sieve is set only where `cribables` come back.
Adaptada adaptar(const QString &forma, Criba criba = Criba::Ninguna);

} // namespace nv::datos
