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

} // namespace nv
