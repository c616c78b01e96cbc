#pragma once

#include <QString>

#include <vector>

namespace nv::datos {

/// A form in the embedded engine's own words. Parameter ?i is the i-th literal of the form; behind them come, per
/// entry of `rangos`, the two ends of the range that a LIKE pattern implies.
struct Adaptada
{
    QString sql;
    QString tablaNueva;              ///< of a SELECT … INTO, which the engine makes and fills from `sql`
    std::vector<std::size_t> rangos; ///< index of the literal that holds the pattern
};

/// Adapts a form (see Lexico.h), or a whole statement without lifted literals, from the server's dialect. What it does
/// not know goes through unchanged.
Adaptada adaptar(const QString &forma);

} // namespace nv::datos
