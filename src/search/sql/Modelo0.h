#pragma once

#include "search/sql/Condiciones.h"

namespace nv::sql {

/// Items by description, code, supplier, reference and family, with their main barcode: `Codigo`, `Descripcion`,
/// `Familia_1` to `Familia_3`, `Cod_Barras`, ordered by description.
/// `conNotas`: the description criterion also finds notes that begin with it.
Sentencia modelo0(qint16 empresaArticulos, std::optional<qint32> limite, const CriteriosArticulo &criterios,
                  bool conNotas);

} // namespace nv::sql
