#pragma once

#include "dialogs/ListaEleccion.h"

/// Items that share a supplier reference or a customer reference. Reads `Articulos_Ref` or `Articulos_RefCli`,
/// `Articulos`, `Proveedores`.
class frmReferencia_Articulos : public nv::ListaEleccion
{
    Q_OBJECT

public:
    explicit frmReferencia_Articulos(QWidget *padre);

    QString Referencia;
    qint32 Proveedor = 0; ///< 0 = any supplier
    qint16 EmpresaArticulos = 0;
    qint16 EmpresaProveedores = 0;
    bool RefProveedor = true; ///< False: customer references, of every customer

    /// Fills the grid. Throws nv::Error.
    void Cargar_Articulos();

protected:
    QString textoBuscado() const override { return Referencia; }
    void llenar() override { Cargar_Articulos(); }
    QString nombreCarga() const override;
};
