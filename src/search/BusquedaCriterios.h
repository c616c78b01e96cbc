#pragma once

#include "platform/widgets/Mensajes.h"
#include "search/BusquedaBase.h"
#include "search/piezas/FilasMarcadas.h"
#include "search/piezas/ListaIncremental.h"
#include "search/piezas/PanelCriterios.h"
#include "search/sql/Condiciones.h"

class QHBoxLayout;
class QPushButton;
class QVBoxLayout;

namespace nv {

/// In what the dialogs with a panel of criteria differ besides their statement.
struct ConfiguracionCriterios
{
    TablaColumnas columnas;
    ColumnasEleccion eleccion;
    bool conMarca = false;                             ///< a brand in place of code and reference
    bool recuerda = true;                              ///< takes and gives the criteria that the component remembers
    bool ocultaPanel = false;                          ///< the panel makes room for a list that has rows
    std::optional<FilasMarcadas::Signo> marcadas = {}; ///< with several results; in column 0
    bool conservaMarcas = false;                       ///< what was marked by hand stays so through further searches
    Bloques bloques = {};
    QString teclas = {}; ///< the hint at the foot
};

/// A search by the criteria of a panel. Loads in steps of their own, so that what cannot be read is said and costs no more
/// than itself; a fixed family holds whatever fails.
class BusquedaCriterios : public BusquedaBase
{
    Q_OBJECT

public:
    /// Runs the search of the criteria on screen. A failure is shown and leaves everything as it was.
    void EjecutarBusqueda();

protected:
    BusquedaCriterios(QWidget *padre, const ConfiguracionCriterios &configuracion);

    /// The statement of these criteria, ready to be opened. Throws Error.
    virtual Sentencia consulta(const sql::CriteriosArticulo &criterios) = 0;
    /// The cells that the column table leaves to the dialog; looks up its fields, once.
    virtual CeldasPropias celdasPropias(const Registros &) { return {}; }
    /// Steps of its own while the form loads.
    virtual void cargarPropios(mensajes::Fallos &) {}
    /// The rows of a search are in the grid, none of them current yet.
    virtual void alLlenar() {}
    /// A search went well, with or without rows, and its first row is current. The last thing done before the focus moves.
    virtual void trasBuscar() {}
    /// Back to the description.
    virtual void volverACriterios();

    void alAbrir() override;
    bool puedeAceptar() const override;
    Eleccion eleccion() const override;
    ColumnasEleccion columnasEleccion() const override { return m_configuracion.eleccion; }
    bool event(QEvent *evento) override;

    /// A row more at the foot of the criteria; a note follows its field on the line.
    void anadirCriterio(const QString &rotulo, const QString &nombreRotulo, QWidget *campo, QWidget *nota = nullptr);
    /// The panel of criteria, and the grid in its place.
    void mostrarCriterios(bool visibles);
    /// While rows go in, the current one is nobody's choice.
    bool llenando() const { return m_llenando; }

    PanelCriterios *panel() const { return m_panel; }
    QVBoxLayout *columna() const { return m_columna; }
    QHBoxLayout *pie() const { return m_pie; }
    ListaIncremental *lista() const { return m_lista; }
    FilasMarcadas *marcadas() const { return m_marcadas; }

private:
    void montarColumna();
    void conectarRejilla();
    void llenar();
    void olvidarApostrofos();
    void alDobleClic(int fila, int columna);
    void escribirNombre(const QString &texto);
    bool siguenMas() const override { return m_lista->quedan(); }
    int cuantasMarcadas() const override;
    void ofrecerAsterisco();
    void buscarEnCualquierParte();

    ConfiguracionCriterios m_configuracion;
    PanelCriterios *m_panel;
    QVBoxLayout *m_columna;
    QHBoxLayout *m_pie;
    QPushButton *m_contiene;
    ListaIncremental *m_lista;
    FilasMarcadas *m_marcadas = nullptr;
    bool m_llenando = false;
};

} // namespace nv
