#pragma once

#include "nvArticulo/Error.h"
#include "platform/widgets/FormularioModal.h"
#include "platform/widgets/Rafaga.h"
#include "platform/widgets/Rejilla.h"

class nvTextBox;

namespace nv {

/// Modal list of the items that share what was typed: the text on top, a grid, Accept and Cancel. For one use; `Codigo`
/// is the item chosen, -1 after any kind of cancelling.
class ListaEleccion : public FormularioModal
{
    Q_OBJECT

public:
    /// Fills the list, shows it, returns once it has hidden itself.
    void MostrarModal();

    qint32 Codigo = -1;

public Q_SLOTS:
    void reject() override;

protected:
    /// `etiqueta` stands beside the text on top; the chosen code is read from `columnaCodigo`.
    ListaEleccion(QWidget *padre, const QString &etiqueta, const std::vector<ColumnaRejilla> &columnas,
                  int columnaCodigo);

    virtual QString textoBuscado() const = 0;
    virtual void llenar() = 0;
    /// Names the list in its error title.
    virtual QString nombreCarga() const = 0;

    Rejilla *rejilla() const { return m_rejilla; }

    void aceptar() override;

private:
    nvTextBox *m_buscado;
    Rejilla *m_rejilla;
    int m_columnaCodigo;
    Rafaga m_rafaga;
};

} // namespace nv
