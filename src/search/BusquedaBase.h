#pragma once

#include "common/ContratoBusqueda.h"
#include "common/sql/Sentencia.h"
#include "search/piezas/Eleccion.h"

#include <QDialog>
#include <functional>
#include <optional>

namespace nv {

class Rejilla;

/// What the item search dialogs share: the contract with their opener, Accept with its copy of the search, Cancel, and
/// the guards under which they search. For one use; hides itself and is destroyed by its opener.
class BusquedaBase : public QDialog, public ContratoBusqueda
{
    Q_OBJECT

public:
    /// Loads the form from the properties, once, and shows it. Throws Error (91) without a company.
    void MostrarModal() override;

public Q_SLOTS:
    /// Nothing while it may not accept. Otherwise collects the choice, copies the search if asked to, and hides; a
    /// failure is shown and leaves the dialog open.
    void Aceptar();
    /// Cancel, however it is asked for: the button, Esc, the window's cross.
    void reject() override;

protected:
    explicit BusquedaBase(QWidget *padre);

    /// Fills the form from the properties; every failure is the dialog's own to show.
    virtual void cargar() = 0;
    /// Whether Accept has anything to do: an item row is current.
    virtual bool puedeAceptar() const;
    /// The choice that Accept returns.
    virtual Eleccion eleccion() const;
    virtual ColumnasEleccion columnasEleccion() const = 0;
    /// The search is copied, the dialog about to hide.
    virtual void alAceptar() {}
    /// Title of a failing Accept.
    virtual QString tituloAceptar() const;
    /// Title of a failing search.
    virtual QString tituloBusqueda() const;
    /// Select list of the copy into `Articulos_Buscar`.
    virtual Fragmento listaCopia() const;

    void keyPressEvent(QKeyEvent *evento) override;

    Rejilla *rejilla() const { return m_rejilla; }
    /// The row limit of a search: the company's, none when the caller takes many items.
    std::optional<qint32> limite() const;
    /// Runs `busqueda` under the wait pointer; an Error is shown once the pointer is back. False when one was shown.
    bool buscar(const std::function<void()> &busqueda);
    /// To be called when the rows of a search are in the grid: the statement whose whole result may be copied.
    void recordar(const Sentencia &sentencia) { m_ultima = sentencia; }

private:
    void copiar();

    Rejilla *m_rejilla;
    Sentencia m_ultima;
};

} // namespace nv
