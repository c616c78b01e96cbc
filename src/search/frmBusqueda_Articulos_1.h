#pragma once

#include "search/BusquedaCriterios.h"

namespace nv {
class PanelDetalles;
}

/// Search model 0: items by description, code, supplier, reference and family, with the details of the current one.
/// The extended view (F6) shows the details and searches the notes too; F9 searches, or brings the criteria back.
class frmBusqueda_Articulos_1 : public nv::BusquedaCriterios
{
    Q_OBJECT

public:
    explicit frmBusqueda_Articulos_1(QWidget *padre);

protected:
    using FabricaPanel = nv::PanelDetalles *(*)(QWidget *padre);
    /// For a dialog with a richer details panel.
    frmBusqueda_Articulos_1(QWidget *padre, FabricaPanel crearPanel);

    void alAbrir() override;
    nv::Sentencia consulta(const nv::sql::CriteriosArticulo &criterios) override;
    void cargarPropios(nv::mensajes::Fallos &fallos) override;
    void trasBuscar() override;
    bool extendida() const { return m_extendida; }
    QString variante() const override { return m_extendida ? QStringLiteral("Detalles") : QString(); }
    void restaurarAspecto() override;

private:
    void montarDetalles();
    void refrescarDetalles();
    void alternarDetalles();
    void extender(bool extendida);
    void centrar(int y);
    int alturaInicial() const;

    QWidget *m_lado;
    nv::PanelDetalles *m_panel;
    bool m_extendida = false;
    int m_ganado = 0; ///< width that the details have brought, as far as the screen goes
};
