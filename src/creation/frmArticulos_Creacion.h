#pragma once

#include "creation/CamposCreacion.h"
#include "platform/widgets/FormularioModal.h"
#include "platform/widgets/Mensajes.h"

#include <memory>

class QPushButton;

namespace nv {
class ComprobacionBarras;
}

/// Creates an item without leaving the document: code, supplier, reference, brand, families, qualities, barcode and the
/// descriptions composed from them.
///
/// The item's row exists from the moment its code is confirmed: an accept completes it, cancelling or closing deletes it.
///
/// For one use: members set, shown modally, members read while hidden. Company and connection are borrowed.
class frmArticulos_Creacion : public nv::FormularioModal, public nv::DatosCreacion
{
    Q_OBJECT

public:
    explicit frmArticulos_Creacion(QWidget *padre);
    ~frmArticulos_Creacion() override;

    /// Loads the form, shows it, returns once it has hidden itself.
    void MostrarModal();

    ::cEmpresa *cEmpresa = nullptr;
    nv::Conexion *Conexion = nullptr;

    /// Composes both descriptions anew, over whatever their boxes hold.
    void Formar_Descripciones();
    /// Shows the first thing that is missing and moves the focus to it. Throws nv::Error.
    bool Validar_Articulo();
    /// Whether the item-master company has an item `Codigo`. Throws nv::Error.
    bool Existe();
    /// Deletes the unsaved item that this form has made and its per-warehouse rows, whatever `Codigo` holds; nothing
    /// when there is none. Always true. Throws nv::Error.
    bool EliminarF6();

public Q_SLOTS:
    /// Esc: cancels the item that is open, else closes.
    void reject() override;

protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override;
    void keyPressEvent(QKeyEvent *evento) override;
    void closeEvent(QCloseEvent *evento) override;

private:
    void conectarDescripciones();
    /// Composes the descriptions that nobody has written by hand.
    void recomponer();

    nv::AltaArticulo &alta();
    void llenar(nv::mensajes::Fallos &fallos);

    void alPulsarF6();
    void confirmarCodigo();
    void rechazarCodigo(const QString &motivo);
    void permitirAceptar(bool valor);

    void aceptar() override;
    void cancelar() override { cancelada(); }
    bool cancelada();
    void cerrar();
    void marcharseSiInsiste();
    void volverAEmpezar();

    nv::CamposCreacion m_campos;
    nv::ComprobacionBarras *m_barras;
    QPushButton *m_aceptar;
    QPushButton *m_cancelar;
    std::unique_ptr<nv::AltaArticulo> m_alta;
    nv::FormatoDescripcion m_formatoTicket;
    nv::FormatoDescripcion m_formatoLargo;
    bool m_llenando = false; ///< what the handlers of the fields do is left out
    bool m_cierreFallido = false;
};
