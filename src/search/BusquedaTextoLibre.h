#pragma once

#include "platform/widgets/Rejilla.h"
#include "search/BusquedaBase.h"
#include "search/piezas/ColumnasBusqueda.h"
#include "search/sql/TextoLibre.h"

class QHBoxLayout;
class nvTextBox;

namespace nv {

class CasillaTodas;
class FilasMarcadas;

/// In what the free-text dialogs differ besides their statement.
struct ConfiguracionTextoLibre
{
    QString formulario;     ///< names it in its errors
    QString caja;           ///< name of the search box
    TablaColumnas columnas; ///< the first is the marked rows'
    ColumnasEleccion eleccion{1, 2};
    QStringView parametroReferencia = u".BuscadorM3.SoloRefPrincipal"; ///< user parameter: main references only
    bool mayusculas = false;
    bool errorNumerado = true;   ///< a failing search is shown with "0 - " in front
    bool enfocarRejilla = false; ///< after a search that found items; else the focus stays
};

/// A search by one line of free text: all its rows at once, of which the caller may take one or, when it accepts many,
/// the marked ones. Reads what the dialogs' statements read, and `Almacenes`.
class BusquedaTextoLibre : public BusquedaBase
{
    Q_OBJECT

public:
    /// Searches for `texto` and shows the rows in the place of the former ones. A failure is shown, and false: the rows
    /// that came before it stay.
    bool Recuperar_Registros(const QString &texto);

protected:
    BusquedaTextoLibre(QWidget *padre, const ConfiguracionTextoLibre &configuracion);

    virtual Sentencia consulta(const QString &texto) const = 0;
    /// The cells that the column table leaves to the dialog; looks up its fields, once.
    virtual CeldasPropias celdasPropias(const Registros &) { return {}; }
    /// What the dialog needs of the company before its first search. Throws Error.
    virtual void leerAjustes();
    /// The rows of a search are in the grid.
    virtual void alLlenar() {}
    /// The criteria that the component remembers, to the boxes and back.
    virtual void mostrarRecordados();
    virtual void recordarEscritos();
    virtual bool hayCriterios() const { return hayTexto(); }

    void alAbrir() override;
    /// A text that was typed and not yet searched for is searched first.
    void aceptar() override;
    bool puedeAceptar() const override;
    /// The marked rows whatever row is current, else the current row.
    Eleccion eleccion() const override;
    /// Leaves in `MultiResultado` whether several rows are returned.
    void alAceptar() override;
    ColumnasEleccion columnasEleccion() const override { return m_configuracion.eleccion; }
    QString tituloAceptar() const override;
    QString tituloBusqueda() const override;
    bool eventFilter(QObject *objeto, QEvent *evento) override;

    nvTextBox *caja() const { return m_caja; }
    /// The row of boxes above the grid; the search box is its first.
    QHBoxLayout *criterios() const { return m_criterios; }
    /// A further box, next in the tab order: Down goes to the grid.
    nvTextBox *nuevaCaja(const QString &nombre, const QString &accesible);
    /// Enter in this box remembers the criteria and searches; the focus stays.
    void buscarConIntro(const nvTextBox *caja);
    bool hayTexto() const;
    sql::EntornoTextoLibre entorno() const;

private:
    void montar();
    void conectarRejilla();
    void ajustar();
    void leerParametro();
    int cuantasMarcadas() const override;
    void buscarEscrito();
    void llenar(const QString &texto);
    QStringList escrito() const;
    bool alPulsar(const QKeyEvent &tecla);
    void escribirEnCaja(const QString &texto);
    void encajar();

    ConfiguracionTextoLibre m_configuracion;
    QList<nvTextBox *> m_cajas; ///< the search box, and those that a dialog has beside it
    nvTextBox *m_caja;
    QHBoxLayout *m_criterios;
    FilasMarcadas *m_marcadas;
    CasillaTodas *m_todas;
    qint16 m_tarifa = 0;
    bool m_soloRefPrincipal = true;
    bool m_ajustada = false;
    bool m_buscando = false;
    QStringList m_buscado; ///< texts of the boxes when the list on screen was sought
};

} // namespace nv
