#pragma once

#include "nvArticulo/Sentencia.h"

namespace nv::sql {

/// The two statements that leave a whole search in `Articulos_Buscar` for a workstation.
Sentencia borrarCopia(const QString &terminal);
/// `lista` is the select list that stands in the place of the search's own, `busqueda` the search as written: it gives
/// everything from its first FROM, without its row limit.
Sentencia insertarCopia(const QString &terminal, qint16 empresaArticulos, Fragmento lista, const Sentencia &busqueda);

} // namespace nv::sql
