#pragma once

#include <QString>

namespace nv {

class Rejilla;

/// What a dialog returns: one item, or a list with "|" before each.
struct Eleccion
{
    QString codigo;
    QString descripcion;
};

struct ColumnasEleccion
{
    int codigo;
    int descripcion;
};

/// The current row; empty when it is the heading.
Eleccion eleccionActual(const Rejilla &rejilla, ColumnasEleccion columnas);
/// Every data row whose cell in `columnaMarca` reads `marca`, in row order, as a list; empty without any.
Eleccion eleccionMarcada(const Rejilla &rejilla, ColumnasEleccion columnas, int columnaMarca, QStringView marca);

} // namespace nv
