#pragma once

#include "search/sql/Modelo3.h"

#include <QDate>

namespace nv::sql {

struct CriteriosModelo4 : CriteriosArticulo
{
    qint64 almacen = 0;
    qint32 ranking = 0; ///< how many best sellers; counts only with a warehouse

    bool porRanking() const { return almacen != 0 && ranking > 0; }
};

/// The temporary table of the best sellers is the connection's own: it stays until the next ranking.
Sentencia borrarRanking();
/// The items most sold in the warehouse in the month of `hoy` and the one before it, into `#TempBA`.
Sentencia crearRanking(qint16 empresa, qint16 empresaArticulos, const CriteriosModelo4 &criterios, QDate hoy);

/// As model 3, kept to the items not blocked in the warehouse and with their `Rotacion` there; by ranking, those of
/// `#TempBA` in its order.
Sentencia modelo4(qint16 empresa, qint16 empresaArticulos, std::optional<qint32> limite,
                  const CriteriosModelo4 &criterios);

} // namespace nv::sql
