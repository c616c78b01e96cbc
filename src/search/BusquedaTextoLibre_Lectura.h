#pragma once

#include "common/Registros.h"

/// Cells of items that other programs wrote: a null is 0 and False.
namespace nv::lectura {

inline bool si(const Registros &registros, int columna)
{
    return !registros.esNulo(columna) && registros.booleano(columna);
}

inline Moneda importe(const Registros &registros, int columna)
{
    return registros.esNulo(columna) ? Moneda() : registros.moneda(columna);
}

inline qint16 entero16(const Registros &registros, int columna)
{
    return registros.esNulo(columna) ? qint16{0} : registros.entero16(columna);
}

} // namespace nv::lectura
