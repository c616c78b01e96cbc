#pragma once

#include "search/BusquedaTextoLibre.h"

/// Search model 2: items by free text with stock, price and up to two prices with tax.
class frmBusqueda_Articulos_3 : public nv::BusquedaTextoLibre
{
    Q_OBJECT

public:
    explicit frmBusqueda_Articulos_3(QWidget *padre);

protected:
    nv::Sentencia consulta(const QString &texto) const override;
    nv::CeldasPropias celdasPropias(const nv::Registros &registros) override;
    void leerAjustes() override;
};
