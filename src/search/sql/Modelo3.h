#pragma once

#include "search/sql/Condiciones.h"

namespace nv::sql {

/// Description, supplier, families and brand, over `Articulos a`.
Sentencia condicionesModelo3(const CriteriosArticulo &criterios);

/// Items by description, supplier, family and brand; see `articulosConBarras`.
Sentencia modelo3(qint16 empresaArticulos, std::optional<qint32> limite, const CriteriosArticulo &criterios);

} // namespace nv::sql
