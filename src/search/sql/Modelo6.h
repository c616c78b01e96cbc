#pragma once

#include "search/sql/Condiciones.h"

namespace nv::sql {

/// Active items that are not blocked in the warehouse, or without one in at least one warehouse of the company.
Sentencia condicionSurtido(qint16 empresa, std::optional<qint16> almacen);

/// As model 0, with the assortment condition (may be empty) after the families.
Sentencia modelo6(qint16 empresaArticulos, std::optional<qint32> limite, const CriteriosArticulo &criterios,
                  bool conNotas, const Sentencia &surtido);

/// The stock row of an item with how it stands in the warehouse's assortment: `Obligatorio` is 1 for a mandatory item
/// and 2 for one that is not in it, `Cod_Surtido` 0 where the warehouse has none.
Sentencia existenciasSurtido(qint16 empresa, qint16 almacen, qint32 articulo);

} // namespace nv::sql
