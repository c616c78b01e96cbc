#pragma once

#include "search/sql/TextoLibre.h"

namespace nv::sql {

/// Items by free text and brand name, with stock, price, brand name and what blocks them: `Codigo`, `Descripcion`,
/// `Referencia`, `EAN`, `Stock`, `Bloqueo`, `Bloqueado`, `Pvp`, `MarcaNombre`, `MotivoBaja`, ordered by description.
/// An empty `marca` is any brand, none too.
Sentencia modelo7(const EntornoTextoLibre &entorno, const QString &texto, const QString &marca);

} // namespace nv::sql
