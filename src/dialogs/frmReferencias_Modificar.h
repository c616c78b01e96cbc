#pragma once

#include "dialogs/ComprobacionReferencias.h"

#include <QDialog>
#include <QPointer>
#include <memory>

class nvArticulo;
class nvProveedor;
class nvTextBox;

/// Attaches a supplier reference to an existing item: asks for item, supplier and reference, and applies the company's
/// rule on duplicate references. Writes nothing. For one use: members set, shown modally, read while hidden.
class frmReferencias_Modificar : public QDialog
{
    Q_OBJECT

public:
    explicit frmReferencias_Modificar(QWidget *padre);
    ~frmReferencias_Modificar() override;

    /// Fills the fields, shows the dialog, returns once it has hidden itself.
    void MostrarModal();
    /// Shows the first message that applies and moves the focus.
    bool Validar_Datos();
    /// Replaces the rule of what counts as similar.
    void setComprobador(std::unique_ptr<nv::ComprobadorReferencias> comprobador);

    ::cEmpresa *cEmpresa = nullptr;
    QString Articulo; ///< item code as decimal text; "0" = none
    qint32 Proveedor = 0;
    QString Referencia;
    bool Aceptado = false;

public Q_SLOTS:
    void reject() override;

private:
    struct Falta
    {
        QString mensaje;
        QPointer<QWidget> campo;
    };
    void aceptar();
    bool validar();
    Falta campoQueFalta();
    bool admiteDuplicada();

    nvArticulo *m_articulo;
    nvProveedor *m_proveedor;
    nvTextBox *m_referencia;
    std::unique_ptr<nv::ComprobadorReferencias> m_comprobador;
};
