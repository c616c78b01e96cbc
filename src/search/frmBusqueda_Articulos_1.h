#pragma once

#include "search/BusquedaBase.h"
#include "search/sql/Condiciones.h"

class QFrame;
class QGridLayout;
class QPushButton;
class nvProveedor;
class nvTextBox;

namespace nv {
class CargaIncremental;
class CascadaFamilias;
class PanelDetalles;
} // namespace nv

/// Search model 0: items by description, code, supplier, reference and family, with the details of the current one.
/// The extended view (F6) shows the details and searches the notes too; F9 searches, or brings the criteria back.
class frmBusqueda_Articulos_1 : public nv::BusquedaBase
{
    Q_OBJECT

public:
    explicit frmBusqueda_Articulos_1(QWidget *padre);

    /// Runs the search of the criteria on screen. A failure is shown and leaves everything as it was.
    void EjecutarBusqueda();

protected:
    using FabricaPanel = nv::PanelDetalles *(*)(QWidget *padre);
    /// For a dialog with a richer details panel.
    frmBusqueda_Articulos_1(QWidget *padre, FabricaPanel crearPanel);

    void cargar() override;
    nv::ColumnasEleccion columnasEleccion() const override;
    virtual nv::Sentencia consulta(const nv::sql::CriteriosArticulo &criterios) const;
    bool extendida() const { return m_extendida; }
    /// Rows of the criteria, four columns: label, field, label, field.
    QGridLayout *filtro() const { return m_filtro; }

    bool event(QEvent *evento) override;

private:
    void montarCriterios();
    void montarRejilla();
    void conectar();
    void ordenarTabulacion(bool rejillaPrimero);
    void aplicarVista();
    void mostrarCriterios(bool visibles);
    void centrar(int y);
    int alturaInicial() const;

    bool ponerRecordados();
    nv::sql::CriteriosArticulo criteriosEscritos() const;
    void recordarCriterios(const nv::sql::CriteriosArticulo &criterios);
    void refrescarDetalles();
    void volverACriterios();
    void alPulsarF6();
    void alPulsarF9();

    QFrame *m_fraFiltro;
    QGridLayout *m_filtro;
    nvTextBox *m_nombre;
    nvTextBox *m_codigo;
    nvProveedor *m_proveedor;
    nvTextBox *m_referencia;
    nv::CascadaFamilias *m_familias;
    QPushButton *m_aceptar;
    QPushButton *m_cancelar;
    QFrame *m_divisor;
    nv::PanelDetalles *m_panel;
    nv::CargaIncremental *m_carga;
    bool m_extendida = false;
    bool m_criteriosVisibles = true;
    bool m_llenando = false; ///< the rows of a search are going in
};
