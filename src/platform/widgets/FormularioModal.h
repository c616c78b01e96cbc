#pragma once

#include <QDialog>
#include <functional>

class QHBoxLayout;
class QPushButton;

namespace nv {

/// Base of the dialogs and lists. For one use: filled, shown modally, read while hidden, destroyed by its opener. It hides
/// itself and never closes; the host's window may take it along while it is up. No button is a default one: Enter belongs
/// to the fields, and presses a button only when that has the focus.
class FormularioModal : public QDialog
{
    Q_OBJECT

public:
    bool Aceptado = false; ///< result of the forms that are accepted or not

public Q_SLOTS:
    void reject() override;

protected:
    explicit FormularioModal(QWidget *padre);

    /// Shows the form, returns once it has hidden itself, or is gone: no member may be read any more without a look.
    void ejecutar();
    /// A key that the form sees before its fields do, whichever has the focus, once however long it is held. Keys of
    /// popups and of boxes on top stay theirs.
    void atajo(Qt::Key tecla, std::function<void()> accion);
    /// In twips, for the standard letter; grows with a larger one, as far as the screen goes.
    void dimensionar(int ancho, int alto);
    /// In pixels: nothing of the form is cut unless the screen is too small.
    void ajustarTamano(QSize pixeles);
    /// F9 and F12.
    void atajosAceptarCancelar();
    QPushButton *boton(const QString &texto, const QString &nombre, std::function<void()> accion);
    /// The row at the foot: `cmdAceptar` and `cmdCancelar`.
    QHBoxLayout *botonera(const QString &aceptar = QStringLiteral("&Aceptar"),
                          const QString &cancelar = QStringLiteral("&Cancelar"));
    /// What Accept does; hides the form unless something is missing.
    virtual void aceptar() = 0;
    virtual void cancelar() { reject(); }

    /// Whether every box holds what was typed in it; else says which one does not, and goes there. What found no room must
    /// neither be stored nor sought as if it were what was scanned.
    bool completo();
    void keyPressEvent(QKeyEvent *evento) override;

private:
    class Atajos;
    void aceptarCompleto();

    Atajos *m_atajos;
};

} // namespace nv
