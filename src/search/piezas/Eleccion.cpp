#include "search/piezas/Eleccion.h"

#include "platform/widgets/Rejilla.h"

namespace nv {

Eleccion eleccionActual(const Rejilla &rejilla, ColumnasEleccion columnas)
{
    const int fila = rejilla.filaActual();
    if (fila < 1)
        return {};
    return {rejilla.texto(fila, columnas.codigo), rejilla.texto(fila, columnas.descripcion)};
}

} // namespace nv
