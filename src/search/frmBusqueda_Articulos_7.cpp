#include "search/frmBusqueda_Articulos_7.h"

#include "nvArticulo/cEmpresa.h"
#include "search/piezas/PanelSurtido.h"
#include "search/sql/Modelo6.h"

#include <QCheckBox>
#include <QFrame>
#include <QGridLayout>

using namespace Qt::StringLiterals;

frmBusqueda_Articulos_7::frmBusqueda_Articulos_7(QWidget *padre)
    : frmBusqueda_Articulos_1(padre,
                              [](QWidget *dialogo) -> nv::PanelDetalles * { return new nv::PanelSurtido(dialogo); })
    , m_surtido(new QCheckBox(u"Sólo mostrar artículos en Surtido"_s, panel()))
{
    m_surtido->setObjectName(u"chkSurtido"_s);
    panel()->filtro()->addWidget(m_surtido, 5, 1, 1, 3);
    tabularAntes(m_surtido);
}

nv::Sentencia frmBusqueda_Articulos_7::consulta(const nv::sql::CriteriosArticulo &criterios)
{
    nv::Sentencia surtido;
    if (m_surtido->isChecked()) {
        std::optional<qint16> almacen;
        if (!cEmpresa->ValorBooleano(u"OficinaCentral"_s))
            almacen = cEmpresa->ValorEntero16(u"Almacen_PD"_s);
        surtido = nv::sql::condicionSurtido(cEmpresa->Codigo(), almacen);
    }
    return nv::sql::modelo6(cEmpresa->CodigoArticulos(), limite(), criterios, extendida(), surtido);
}
