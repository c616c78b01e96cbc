#pragma once

#include "platform/widgets/Rejilla.h"
#include "search/piezas/Eleccion.h"

#include <functional>
#include <span>

namespace nv {

class Registros;

/// How a cell comes from its field.
enum class Celda {
    Seleccion, ///< the box or the "X" of the marked rows
    Texto,     ///< null: empty
    Numero,    ///< shortest text with a decimal comma
    Agrupado,  ///< ###,###,##0.00## in Spanish signs
    Propia,    ///< the dialog fills it in
};

/// A column of a search: what is seen of it, and where its cells come from.
struct ColumnaBusqueda
{
    ColumnaRejilla vista = {};
    QStringView campo = {};
    Celda celda = Celda::Texto;
};

using TablaColumnas = std::span<const ColumnaBusqueda>;
using LectorFila = std::function<FilaRejilla(const Registros &)>;
/// Fills in the cells of a row that are the dialog's own.
using CeldasPropias = std::function<void(const Registros &, FilaRejilla &)>;

/// The width that is left is the description's, and a barcode is never cut.
void ponerColumnas(Rejilla &rejilla, TablaColumnas tabla, ColumnasEleccion eleccion);

/// Looks up the fields of a result, once, and gives the reader of its rows. `seleccion` gives the first text of a cell of
/// the marked rows. Throws Error for a field that is not there.
LectorFila lectorDeFilas(TablaColumnas tabla, const Registros &registros, std::function<QString()> seleccion = {},
                         CeldasPropias propias = {});

} // namespace nv
