#pragma once

#include "platform/widgets/FormularioModal.h"

#include <functional>

class cEmpresa;
class nvArticulo;
class nvTextBox;

namespace nv {
class ComprobadorReferencias;
}

namespace NVUTConfig {
class clsConfig;
}

/// Confirms a new barcode for an item: which item, which barcode, how many units one scan stands for. Writes nothing.
/// For one use: members set, shown modally, read while hidden.
class frmCodBarra_Datos : public nv::FormularioModal
{
    Q_OBJECT

public:
    explicit frmCodBarra_Datos(QWidget *padre);

    /// Fills the fields, shows the dialog, returns once it has hidden itself.
    void MostrarModal();

    ::cEmpresa *cEmpresa = nullptr;
    NVUTConfig::clsConfig *Parametros = nullptr;
    nv::ComprobadorReferencias *Comprobador = nullptr; ///< for the item box
    QString Articulo;                                  ///< item code as text
    QString CodBarras;
    qint16 Unidades = 1; ///< result: units per scan, at least 1
    /// What accepting does while the form is up; false keeps it there.
    std::function<bool(frmCodBarra_Datos &)> AlAceptar;

protected:
    void aceptar() override;

private:
    nvArticulo *m_articulo;
    nvTextBox *m_codBarras;
    nvTextBox *m_unidades;
};
