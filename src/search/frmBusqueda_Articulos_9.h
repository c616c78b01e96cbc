#pragma once

#include "search/BusquedaTextoLibre.h"

#include <array>

/// Search model 8: items that can be sold now, by free text over description, reference and brand, grouped by family.
class frmBusqueda_Articulos_9 : public nv::BusquedaTextoLibre
{
    Q_OBJECT

public:
    explicit frmBusqueda_Articulos_9(QWidget *padre);

protected:
    nv::Sentencia consulta(const QString &texto) const override;
    void leerAjustes() override;
    void resizeEvent(QResizeEvent *evento) override;
    void showEvent(QShowEvent *evento) override;

private:
    void repartirAncho();

    int m_anchoInicial = 0;           ///< of the form as it was first shown; 0 before
    std::array<int, 2> m_repartido{}; ///< pixels that each sharing column has been given since
};
