#pragma once

#include "search/frmBusqueda_Articulos_1.h"

class QCheckBox;

/// Search model 6: as model 0, on demand only the active items of the assortment, and with the assortment state of the
/// current item in its details.
class frmBusqueda_Articulos_7 : public frmBusqueda_Articulos_1
{
    Q_OBJECT

public:
    explicit frmBusqueda_Articulos_7(QWidget *padre);

protected:
    nv::Sentencia consulta(const nv::sql::CriteriosArticulo &criterios) override;

private:
    QCheckBox *m_surtido;
};
