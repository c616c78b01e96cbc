#pragma once

#include "search/BusquedaTextoLibre.h"

/// Search model 7: items by free text and brand name, with a mark on blocked ones (at the head office, on discontinued
/// ones).
class frmBusqueda_Articulos_8 : public nv::BusquedaTextoLibre
{
    Q_OBJECT

public:
    explicit frmBusqueda_Articulos_8(QWidget *padre);

protected:
    nv::Sentencia consulta(const QString &texto) const override;
    nv::CeldasPropias celdasPropias(const nv::Registros &registros) override;
    void mostrarRecordados() override;
    void recordarEscritos() override;
    bool hayCriterios() const override;

private:
    nvTextBox *m_marca;
};
