#pragma once

#include "search/sql/TextoLibre.h"

namespace nv::sql {

/// Items by free text with stock of one warehouse and price in one tariff: `Codigo`, `Descripcion`, `TipoImpuesto`,
/// `TipoImpuesto2`, `Referencia`, `EAN`, `Stock`, `Pvp`, `Decimales`, ordered by description.
Sentencia modelo2(const EntornoTextoLibre &entorno, const QString &texto);

} // namespace nv::sql
