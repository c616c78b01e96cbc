#pragma once

#include "search/sql/TextoLibre.h"

namespace nv::sql {

/// Items that can be sold now from the warehouse (not discontinued, stock row not blocked and with a sale after
/// `ventasDesde`, a price in the tariff) by free text over description, supplier reference and brand name: what model 7
/// gives and `F1Nombre`, ordered by families and description.
Sentencia modelo8(const EntornoTextoLibre &entorno, const QString &texto, QDate ventasDesde);

} // namespace nv::sql
