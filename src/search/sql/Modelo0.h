#pragma once

#include "search/sql/Condiciones.h"

namespace nv::sql {

/// Description, code, supplier, reference and families, over `Articulos a`.
Sentencia condicionesModelo0(const CriteriosArticulo &criterios, bool conNotas);

/// Items by description, code, supplier, reference and family; see `articulosConBarras`.
/// `conNotas`: the description criterion also finds notes that begin with it.
Sentencia modelo0(qint16 empresaArticulos, std::optional<qint32> limite, const CriteriosArticulo &criterios,
                  bool conNotas);

} // namespace nv::sql
