#pragma once

#include "nvArticulo/ComprobadorReferencias.h"
#include "platform/widgets/FormularioModal.h"

#include <QPointer>
#include <functional>

class nvArticulo;
class nvProveedor;
class nvTextBox;

namespace NVUTConfig {
class clsConfig;
}

/// Attaches a supplier reference to an existing item: asks for item, supplier and reference, and applies the company's
/// rule on duplicate references. Writes nothing. For one use: members set, shown modally, read while hidden.
class frmReferencias_Modificar : public nv::FormularioModal
{
    Q_OBJECT

public:
    explicit frmReferencias_Modificar(QWidget *padre);

    /// Fills the fields, shows the dialog, returns once it has hidden itself.
    void MostrarModal();
    /// Shows the first message that applies and moves the focus.
    bool Validar_Datos();

    ::cEmpresa *cEmpresa = nullptr;
    NVUTConfig::clsConfig *Parametros = nullptr;
    nv::ComprobadorReferencias *Comprobador = nullptr; ///< what counts as similar; none: the simple rule
    QString Articulo;                                  ///< item code as decimal text; "0" = none
    qint32 Proveedor = 0;
    QString Referencia;
    /// What accepting does while the form is up; false keeps it there.
    std::function<bool(frmReferencias_Modificar &)> AlAceptar;

protected:
    void aceptar() override;

private:
    struct Falta
    {
        QString mensaje;
        QPointer<QWidget> campo;
    };
    bool validar();
    Falta campoQueFalta();
    bool admiteDuplicada();

    nvArticulo *m_articulo;
    nvProveedor *m_proveedor;
    nvTextBox *m_referencia;
};
