#pragma once

#include "platform/widgets/Rejilla.h"
#include "search/BusquedaBase.h"
#include "search/sql/TextoLibre.h"

class QHBoxLayout;
class nvTextBox;

namespace nv {

class FranjaMensaje;
class Marcas;
class Registros;

/// In what the free-text dialogs differ besides their statement.
struct ConfiguracionTextoLibre
{
    QString caja; ///< name of the search box
    bool mayusculas = false;
    QString parametroReferencia; ///< user parameter: search main references only
    QString tituloAceptar;
    bool errorNumerado = true;   ///< a failing search is shown with "0 - " in front
    bool enfocarRejilla = false; ///< after a search that found items; else the focus stays
    ColumnasEleccion eleccion{1, 2};
    std::vector<ColumnaRejilla> columnas; ///< the first is the marks'
};

/// A search by one line of free text: all its rows at once, of which the caller may take one or, when it accepts many,
/// the marked ones. Reads what the dialogs' statements read, `Almacenes` and the user's parameter.
class BusquedaTextoLibre : public BusquedaBase
{
    Q_OBJECT

public:
    /// Searches for `texto` and shows the rows in the place of the former ones. A failure is shown, and false: the rows
    /// that came before it stay.
    bool Recuperar_Registros(const QString &texto);

protected:
    using Lector = std::function<FilaRejilla(const Registros &)>;

    BusquedaTextoLibre(QWidget *padre, ConfiguracionTextoLibre configuracion);

    virtual Sentencia consulta(const QString &texto) const = 0;
    /// Looks up the columns of a result, once, and gives the reader of its rows; the first cell is "0".
    virtual Lector lector(const Registros &registros) = 0;
    /// What the dialog needs of the company before its first search. Throws Error.
    virtual void leerAjustes();
    /// The rows of a search are in the grid.
    virtual void alLlenar() {}
    /// The criteria that the component remembers, to the boxes and back.
    virtual void mostrarRecordados();
    virtual void recordarEscritos();
    virtual bool hayCriterios() const;

    void cargar() override;
    bool puedeAceptar() const override;
    /// The marked rows whatever row is current, else the current row.
    Eleccion eleccion() const override;
    /// Leaves in `MultiResultado` whether several rows are returned.
    void alAceptar() override;
    ColumnasEleccion columnasEleccion() const override { return m_configuracion.eleccion; }
    QString tituloAceptar() const override { return m_configuracion.tituloAceptar; }
    QString tituloBusqueda() const override;
    bool eventFilter(QObject *objeto, QEvent *evento) override;

    nvTextBox *caja() const { return m_caja; }
    /// The row of boxes above the grid; the search box is its first.
    QHBoxLayout *criterios() const { return m_criterios; }
    /// A further box: Down goes to the grid.
    nvTextBox *nuevaCaja(const QString &nombre, const QString &accesible);
    /// Places a widget in the tab order, after the boxes and widgets that came before.
    void ordenar(QWidget *campo) { m_campos.append(campo); }
    /// Enter in this box remembers the criteria and searches; the focus stays.
    void buscarConIntro(const nvTextBox *caja);
    bool hayTexto() const;
    sql::EntornoTextoLibre entorno() const;

private:
    void ponerColumnas();
    void montar();
    void conectarRejilla();
    void ajustar();
    int marcadas() const;
    void buscarEscrito();
    void recuperar(const QString &texto);
    void volverACaja();
    void escribirEnCaja(const QString &texto);
    void ordenarTabulacion(bool rejillaPrimero);
    void dimensionar();

    ConfiguracionTextoLibre m_configuracion;
    QWidgetList m_campos; ///< before the boxes: each takes its place here as it is made
    nvTextBox *m_caja;
    QHBoxLayout *m_criterios;
    Marcas *m_marcas;
    FranjaMensaje *m_franja;
    qint16 m_tarifa = 0;
    bool m_soloRefPrincipal = true;
    bool m_ajustada = false;
    bool m_buscando = false;
};

} // namespace nv
