#include "search/piezas/ColumnasBusqueda.h"

#include "nvArticulo/Registros.h"

using namespace Qt::StringLiterals;

namespace nv {

void ponerColumnas(Rejilla &rejilla, TablaColumnas tabla, ColumnasEleccion eleccion)
{
    std::vector<ColumnaRejilla> vistas;
    for (const ColumnaBusqueda &columna : tabla)
        vistas.push_back(columna.vista);
    rejilla.setColumnas(vistas);
    rejilla.setElastica(eleccion.descripcion);
    for (std::size_t i = 0; i < tabla.size(); ++i)
        if (tabla[i].campo == u"Cod_Barras" || tabla[i].campo == u"EAN")
            rejilla.ensanchar(static_cast<int>(i), u"0000000000000"_s);
}

LectorFila lectorDeFilas(TablaColumnas tabla, const Registros &registros, std::function<QString()> seleccion,
                         CeldasPropias propias)
{
    std::vector<int> lugares;
    for (const ColumnaBusqueda &columna : tabla)
        lugares.push_back(columna.campo.isEmpty() ? -1 : registros.columna(columna.campo));
    return [=, lugares = std::move(lugares)](const Registros &r) {
        FilaRejilla fila(tabla.size());
        for (std::size_t i = 0; i < tabla.size(); ++i) {
            switch (tabla[i].celda) {
            case Celda::Seleccion:
                fila[i] = seleccion();
                break;
            case Celda::Texto:
                fila[i] = r.textoO(lugares[i]);
                break;
            case Celda::Numero:
                fila[i] = r.textoNumero(lugares[i]);
                break;
            case Celda::Agrupado:
                fila[i] = r.moneda(lugares[i]).textoAgrupado();
                break;
            case Celda::Propia:
                break;
            }
        }
        if (propias)
            propias(r, fila);
        return fila;
    };
}

} // namespace nv
