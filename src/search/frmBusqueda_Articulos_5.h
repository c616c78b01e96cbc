#pragma once

#include "search/frmBusqueda_Articulos_4.h"
#include "search/sql/Modelo4.h"

class nvAlmacen;

/// Search model 4: as model 3, with the items of a warehouse, their rotation there, and on demand its best sellers of
/// the current and the previous month. It neither takes nor gives remembered criteria.
class frmBusqueda_Articulos_5 : public frmBusqueda_Articulos_4
{
    Q_OBJECT

public:
    explicit frmBusqueda_Articulos_5(QWidget *padre);

protected:
    nv::Sentencia consulta(const nv::sql::CriteriosArticulo &criterios) override;
    nv::CeldasPropias celdasPropias(const nv::Registros &registros) override;
    void cargarPropios(nv::mensajes::Fallos &fallos) override;

private:
    void crearRanking(const nv::sql::CriteriosModelo4 &criterios) const;

    nvAlmacen *m_almacen;
    nvTextBox *m_ranking;
};
