#pragma once

#include "search/sql/Condiciones.h"

#include <vector>

namespace nv::sql {

struct CriteriosModelo1 : CriteriosArticulo
{
    QString alternativo;              ///< free text: the whole value of the first alternative field
    std::vector<qint32> alternativos; ///< identifiers chosen from its list, any of them
};

/// The tariffs of a warehouse in their order: `Cod_Tarifa`, `Decimales`.
Sentencia tarifasDeAlmacen(qint16 empresa, qint16 almacen);
/// A row when the first alternative field has a list of values.
Sentencia hayAlternativos();

/// Items with main barcode, main reference, three prices and the stock summed over `almacenes`, ordered by code:
/// `Codigo`, `Descripcion`, `Familia_1` to `Familia_3`, `Cod_Barras`, `Ref`, `Pvp1` to `Pvp3` (texts with a decimal
/// comma), `Pvp1_Num` to `Pvp3_Num`, `Stock_Actual`, `Stock_Actual_Num`. A tariff 0 has no prices.
Sentencia modelo1(qint16 empresa, qint16 empresaArticulos, std::optional<qint32> limite,
                  const std::array<qint16, 3> &tarifas, const std::vector<qint16> &almacenes,
                  const CriteriosModelo1 &criterios);

} // namespace nv::sql
