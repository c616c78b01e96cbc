#pragma once

#include "nvArticulo/Registros.h"
#include "platform/informe/Plantilla.h"

namespace nv {

/// The rows of a search for its report, sorted by one of their fields: `Codigo` and the fields whose names end in "_Num"
/// as numbers, the others as texts in Spanish. Numbers have a decimal point, `Stock_Actual` reads as on screen.
DatosInforme datosDeInforme(Registros registros, const QString &campoDeOrden, Qt::SortOrder sentido);

} // namespace nv
