#pragma once

#include <QString>

class QWidget;

namespace nv {

/// Attach what was not found to an item, after the user agreed. True when an item now carries it; the arguments then
/// hold the item code and what was attached. Errors are shown.
bool asignarReferencia(QWidget *padre, qint32 &articulo, qint32 &proveedor, QString &referencia);
bool asignarCodigoBarras(QWidget *padre, qint32 &articulo, QString &codigoBarras);

} // namespace nv
