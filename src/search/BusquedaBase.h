#pragma once

#include "common/ContratoBusqueda.h"
#include "nvArticulo/Sentencia.h"
#include "platform/widgets/FormularioModal.h"
#include "search/piezas/AspectoBusqueda.h"
#include "search/piezas/Eleccion.h"

#include <QElapsedTimer>
#include <QVariant>
#include <functional>
#include <optional>

namespace nv {

class FranjaMensaje;
class EtiquetaElidida;
class Rejilla;

/// What the item search dialogs share: the contract with their opener, Accept with its copy of the search, Cancel, the
/// tab order, and the guard under which they search. For one use; hides itself and is destroyed by its opener.
class BusquedaBase : public FormularioModal, public ContratoBusqueda
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

    /// Fills the form from the properties and runs the search of a remembered criterion; failures are shown here.
    virtual void alAbrir() = 0;
    /// Whether Accept has anything to do: an item row is current.
    virtual bool puedeAceptar() const;
    /// The choice that Accept returns.
    virtual Eleccion eleccion() const;
    virtual ColumnasEleccion columnasEleccion() const = 0;
    /// The search is copied, the dialog about to hide.
    virtual void alAceptar() {}
    virtual QString tituloAceptar() const;
    virtual QString tituloBusqueda() const;
    /// Select list of the copy into `Articulos_Buscar`.
    virtual Fragmento listaCopia() const;
    void aceptar() override { Aceptar(); }
    bool eventFilter(QObject *objeto, QEvent *evento) override;
    void showEvent(QShowEvent *evento) override;

    Rejilla *rejilla() const { return m_rejilla; }
    /// How many there are, for the foot of the form (`lblResultado`).
    EtiquetaElidida *resultado() const { return m_resultado; }
    /// Whether rows of the search are still to be read.
    virtual bool siguenMas() const { return false; }
    /// Whether the user has sorted the rows on screen.
    virtual bool ordenadas() const { return false; }
    /// How many rows the user has marked, on screen or in a list before it.
    virtual int cuantasMarcadas() const { return 0; }
    /// To be told when one of these changes.
    void decirResultado();
    /// A search was begun by Enter, here or in the component: a second one that follows the list at once, as some scanners
    /// send it, must not take the first row.
    void trasIntro() { m_conIntro = true; }
    /// The strip that says that a search is running, for the dialogs that have it.
    void ponerFranja();
    /// The next widget of the tab order: before the grid, and after it.
    void tabularAntes(QWidget *campo) { m_antes.append(campo); }
    void tabularDespues(QWidget *campo) { m_despues.append(campo); }
    /// Once a search has found rows the grid is the first.
    void ordenarTabulacion(bool rejillaPrimero);

    /// Runs `busqueda` under the wait pointer, with the strip where there is one; an Error is shown once they are gone.
    /// False when one was shown, or when the dialog is gone: no member may be used then.
    bool buscar(const std::function<void()> &busqueda);
    /// To be called when the rows of a search are in the grid: the statement whose whole result may be copied.
    void recordar(const Sentencia &sentencia) { m_ultima = sentencia; }
    const Sentencia &ultima() const { return m_ultima; }
    /// The row limit of a search: the company's, none when the caller takes many items.
    std::optional<qint32> limite() const;
    /// 0 becomes the company's default warehouse. Throws Error.
    void completarAlmacen();
    /// What the user has made of the form. `variante` tells apart the forms that it has.
    const AspectoBusqueda &aspecto() const { return m_aspecto; }
    virtual QString variante() const { return {}; }
    /// The user wants the form as it was made.
    virtual void restaurarAspecto() { m_aspecto.restaurar(*this, *m_rejilla); }
    /// Parameters of the component's library, by the end of their key. Throw Error.
    QVariant parametroApp(QStringView sufijo, const QVariant &defecto) const;
    QVariant parametroUsuario(QStringView sufijo, const QVariant &defecto) const;

private:
    void copiar();
    void alIntro();

    Rejilla *m_rejilla;
    EtiquetaElidida *m_resultado;
    std::optional<qint32> m_tope; ///< row limit of the last search
    QString m_ajusteTope;         ///< how the setting reads that lets no row through
    bool m_buscado = false;
    bool m_conIntro = false; ///< the search that comes was begun by Enter
    AspectoBusqueda m_aspecto;
    QElapsedTimer m_trasIntro; ///< since such a one
    FranjaMensaje *m_franja = nullptr;
    Sentencia m_ultima;
    QWidgetList m_antes;
    QWidgetList m_despues;
};

} // namespace nv
