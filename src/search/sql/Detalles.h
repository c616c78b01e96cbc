#pragma once

#include "nvArticulo/Sentencia.h"

/// What the details panel asks about one item.
namespace nv::sql {

Sentencia directorioImagenes(qint16 empresa);
Sentencia notas(qint16 empresaArticulos, qint32 articulo);
Sentencia existencias(qint16 empresa, qint16 almacen, qint32 articulo);

Sentencia precioCliente(qint16 empresa, qint32 cliente, qint32 articulo, QDate hoy);
Sentencia tarifasCliente(qint16 empresaClientes, qint32 cliente);
Sentencia tarifasAlmacen(qint16 empresa, qint16 almacen);
Sentencia precioTarifa(qint16 empresaArticulos, qint32 articulo, qint16 tarifa);

} // namespace nv::sql
