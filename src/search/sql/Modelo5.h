#pragma once

#include "search/sql/TextoLibre.h"

#include <array>

namespace nv::sql {

struct CriteriosModelo5
{
    QString texto;
    Moneda medida; ///< length, width or height; 0 or less: any
    bool oferta = false;
    bool noMovidos = false; ///< with `oferta`: items with a price in either tariff
};

/// The warehouses whose stock is shown, one column each.
inline constexpr std::array<qint16, 7> AlmacenesModelo5{1, 2, 3, 4, 5, 10, 11};

/// Items by free text with their size, stock of the seven warehouses (`Stock1` … `Stock11`), price in tariffs 1, 2 and
/// 3 (`Pvp`, `PvpP`, `PvpNM`), colours of the last two and what blocks them, ordered by description.
/// Of `entorno`, warehouse and tariff play no part.
Sentencia modelo5(const EntornoTextoLibre &entorno, const CriteriosModelo5 &criterios);

/// `Codigo` and `Abrev` of every warehouse.
Sentencia almacenes(qint16 empresa);

} // namespace nv::sql
