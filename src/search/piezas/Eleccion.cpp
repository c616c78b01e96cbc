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

Eleccion eleccionMarcada(const Rejilla &rejilla, ColumnasEleccion columnas, int columnaMarca, QStringView marca)
{
    Eleccion lista;
    for (int fila = 1; fila < rejilla.filas(); ++fila) {
        if (rejilla.texto(fila, columnaMarca) != marca)
            continue;
        lista.codigo += u'|' + rejilla.texto(fila, columnas.codigo);
        lista.descripcion += u'|' + rejilla.texto(fila, columnas.descripcion);
    }
    return lista;
}

} // namespace nv
