#pragma once

#include "search/sql/Condiciones.h"

namespace nv::sql {

struct CriteriosModelo3
{
    QString descripcion; ///< as typed, with "*" as the wildcard
    std::optional<qint32> proveedor;
    std::array<qint32, 3> familias{};
    qint32 marca = 0; ///< below 1: any brand
};

/// Description, supplier, families and brand, over `Articulos a`.
Sentencia condicionesModelo3(const CriteriosModelo3 &criterios);

/// Items by description, supplier, family and brand, with their main barcode: `Codigo`, `Descripcion`, `Familia_1` to
/// `Familia_3`, `Cod_Barras`, ordered by description.
Sentencia modelo3(qint16 empresaArticulos, std::optional<qint32> limite, const CriteriosModelo3 &criterios);

} // namespace nv::sql
