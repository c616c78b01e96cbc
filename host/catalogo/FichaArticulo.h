#pragma once

#include "catalogo/Azar.h"
#include "common/Moneda.h"

#include <QString>

namespace nv {

struct Seccion;

/// An item of the demonstration catalogue as its code alone decides it.
struct FichaArticulo
{
    int codigo = 0;
    const Seccion *seccion = nullptr;
    QString descripcion;
    QString ticket;
    QString notas;
    qint16 familia3 = 0;
    qint16 marca = 0;
    int proveedor = 0;
    Moneda pvp;
    QString barras; ///< main barcode; empty for some of the items sold by weight
    bool muestra = false;
};

/// `azar`: the item's own stream, from its start.
FichaArticulo fichaArticulo(int codigo, Azar &azar);

/// A barcode of 13 digits that no other item has. `serie` 0 to 9: several of one item.
QString barrasDe(int codigo, int serie);

} // namespace nv
