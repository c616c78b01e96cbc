#pragma once

#include "search/BusquedaBase.h"
#include "search/sql/Modelo1.h"

class QCheckBox;
class QLabel;
class QPushButton;
class QTabWidget;
class nvAlmacenCons;
class nvProveedor;
class nvTextBox;

namespace nv {
class CascadaFamilias;
class FranjaMensaje;
class ListadoPrecios;
struct DatosInforme;
} // namespace nv

/// Search model 1: items with their main barcode and reference, the prices of the default warehouse's first three
/// tariffs and the stock summed over a set of warehouses. Sorts by any column, prints the whole search, and with several
/// results returns the ticked rows.
class frmBusqueda_Articulos_2 : public nv::BusquedaBase
{
    Q_OBJECT

public:
    explicit frmBusqueda_Articulos_2(QWidget *padre);

    /// Runs the search of the criteria on screen. A failure is shown and leaves the list as it was.
    void EjecutarBusqueda();
    /// The criteria on screen as one line of text.
    QString DevCriterio() const;
    /// Prints every row of the last search in the order of the grid; nothing before the first search.
    void Imprimir_Busqueda();

protected:
    void cargar() override;
    nv::Eleccion eleccion() const override;
    nv::ColumnasEleccion columnasEleccion() const override;
    nv::Fragmento listaCopia() const override;
    bool event(QEvent *evento) override;
    bool eventFilter(QObject *objeto, QEvent *evento) override;

private:
    QWidget *montarCriterios();
    QWidget *montarAlmacenes();
    void colocar();
    void conectar();
    void conectarCriterios();
    void conectarRejilla();
    void ordenarTabulacion(bool rejillaPrimero);

    void prepararSelectores();
    void leerTarifas();
    void prepararAlternativo();
    bool ponerRecordados();

    nv::sql::CriteriosModelo1 criteriosEscritos() const;
    void recordarCriterios(const nv::sql::CriteriosModelo1 &criterios);
    std::vector<qint16> almacenes() const;
    void titularStock();
    void alCambiarPestana();
    void elegirAlternativos();
    void ponerAlternativos(const QString &ids, const QString &textos);
    nv::DatosInforme datosInforme() const;
    void imprimir();

    QTabWidget *m_pestanas;
    nvTextBox *m_nombre;
    nvTextBox *m_codigo;
    nvProveedor *m_proveedor;
    nvTextBox *m_referencia;
    nv::CascadaFamilias *m_familias;
    QLabel *m_rotuloAlternativo;
    nvTextBox *m_alternativo;
    nvAlmacenCons *m_almacenes;
    QCheckBox *m_todos;
    QLabel *m_teclas;
    QPushButton *m_aceptar;
    QPushButton *m_cancelar;
    nv::ListadoPrecios *m_listado;
    nv::FranjaMensaje *m_franja;
    bool m_conLista = false;      ///< the alternative field takes its values from a list
    QString m_idsAlternativo;     ///< ",7,3,"
    int m_pestana = 0;            ///< the tab in front before the last change
    std::vector<qint16> m_usados; ///< warehouses of the last search
    nv::Sentencia m_ultima;
};
