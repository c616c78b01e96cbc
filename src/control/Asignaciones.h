#pragma once

#include "control/Dialogos.h"

#include <QPointer>
#include <QWidget>

namespace nv {

/// Attach what was not found to an item, after the user agreed. True when an item now carries it; the arguments then
/// hold the item code and what was attached. Errors are shown. No transaction: the delete and the insert of a transfer
/// are statements of their own, and a failure between them says what is already gone.
class Asignaciones
{
public:
    Asignaciones(Conexion &conexion, const Servicios &servicios, Dialogos &dialogos, QWidget *padre)
        : m_conexion(conexion)
        , m_servicios(servicios)
        , m_empresa(servicios.empresaExigida())
        , m_dialogos(dialogos)
        , m_padre(padre)
    {}

    /// `Articulos_Ref`; in the fashion edition a whole new item, which starts from `recordados` and leaves its values
    /// there. `proveedor` receives the supplier chosen in the dialog once it was accepted.
    bool referencia(qint32 &articulo, qint32 &proveedor, QString &referencia, ValoresCreacion &recordados);
    /// `Articulos_CBarras`.
    bool codigoBarras(qint32 &articulo, QString &codigoBarras);

private:
    bool atacharReferencia(qint32 articulo, qint32 proveedor, const QString &referencia);
    bool atacharCodigoBarras(qint32 articulo, const QString &codigoBarras);
    template <class Operacion>
    bool guardada(QWidget *padre, Operacion &&operacion);

    Conexion &m_conexion;
    const Servicios &m_servicios;
    ::cEmpresa &m_empresa;
    Dialogos &m_dialogos;
    QPointer<QWidget> m_padre;
    QString m_yaBorrado; ///< what a transfer has removed so far, in words
};

} // namespace nv
