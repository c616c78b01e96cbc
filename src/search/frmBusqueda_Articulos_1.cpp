#include "search/frmBusqueda_Articulos_1.h"

#include "common/Conexion.h"
#include "common/cEmpresa.h"
#include "platform/pickers/nvFamilia.h"
#include "platform/pickers/nvProveedor.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/Rejilla.h"
#include "platform/widgets/nvTextBox.h"
#include "search/piezas/CargaIncremental.h"
#include "search/piezas/CascadaFamilias.h"
#include "search/piezas/PanelDetalles.h"
#include "search/sql/Modelo0.h"

#include <QEvent>
#include <QPointer>
#include <QScopedValueRollback>
#include <limits>

using namespace Qt::StringLiterals;
using nv::mensajes::guardar;

namespace {

/// What the component remembers of a family is 16 bits wide; a larger number names no family.
qint16 recordada(qint32 familia)
{
    return familia > 0 && familia <= std::numeric_limits<qint16>::max() ? static_cast<qint16>(familia) : qint16{0};
}

} // namespace

void frmBusqueda_Articulos_1::cargar()
{
    m_extendida = Cliente > 0;
    aplicarVista();
    centrar(alturaInicial());
    m_nombre->setFocus();
    bool buscar = false;
    const QPointer<frmBusqueda_Articulos_1> vivo(this);
    // What cannot be read is said once; a fixed family holds and the dialog works whatever failed.
    const auto paso = [&](auto operacion) {
        if (vivo)
            guardar(parentWidget(), tituloBusqueda(), operacion);
    };
    paso([&] { m_panel->preparar(*cEmpresa, Cliente); });
    paso([&] {
        m_proveedor->setConexion(nv::ranura::actual());
        m_proveedor->setcEmpresa(cEmpresa);
        m_familias->preparar(cEmpresa, nv::ranura::actual());
        buscar = ponerRecordados();
    });
    paso([&] {
        if (AlmacenStock == 0)
            AlmacenStock = cEmpresa->ValorEntero16(u"Almacen_PD"_s);
    });
    if (!vivo || !buscar)
        return;
    EjecutarBusqueda();
    if (vivo)
        mostrarCriterios(true);
}

/// Fills the criteria with what the component remembers; whether there is any.
bool frmBusqueda_Articulos_1::ponerRecordados()
{
    m_nombre->setText(Busqueda_Descripcion);
    m_nombre->selectAll();
    // "0" is what the component's "start from blank" leaves.
    m_codigo->setText(Busqueda_Codigo == u"0" ? QString() : Busqueda_Codigo);
    m_referencia->setText(Busqueda_Referencia);
    m_proveedor->setCodigo(std::max(Busqueda_Proveedor, 0));
    const bool fija = Familia_1 > 0;
    if (fija)
        m_familias->fijar({Familia_1, Familia_2, Familia_3});
    else
        m_familias->poner({Busqueda_Familia_1, Busqueda_Familia_2, Busqueda_Familia_3});
    m_proveedor->Cargar();
    return !m_nombre->text().isEmpty() || !m_codigo->text().isEmpty() || !m_referencia->text().isEmpty() ||
           Busqueda_Proveedor > 0 || Busqueda_Familia_1 > 0 || Busqueda_Familia_2 > 0 || Busqueda_Familia_3 > 0;
}

nv::sql::CriteriosArticulo frmBusqueda_Articulos_1::criteriosEscritos() const
{
    nv::sql::CriteriosArticulo criterios;
    criterios.descripcion = m_nombre->text();
    criterios.codigo = m_codigo->text();
    if (!m_proveedor->Texto().isEmpty())
        criterios.proveedor = m_proveedor->Codigo();
    criterios.referencia = m_referencia->text();
    criterios.familias = m_familias->codigos();
    return criterios;
}

void frmBusqueda_Articulos_1::recordarCriterios(const nv::sql::CriteriosArticulo &criterios)
{
    Busqueda_Descripcion = criterios.descripcion;
    Busqueda_Codigo = criterios.codigo;
    Busqueda_Proveedor = criterios.proveedor.value_or(0);
    Busqueda_Referencia = criterios.referencia;
    Busqueda_Familia_1 = recordada(criterios.familias[0]);
    Busqueda_Familia_2 = recordada(criterios.familias[1]);
    Busqueda_Familia_3 = recordada(criterios.familias[2]);
}

nv::Sentencia frmBusqueda_Articulos_1::consulta(const nv::sql::CriteriosArticulo &criterios) const
{
    return nv::sql::modelo0(cEmpresa->CodigoArticulos(), limite(), criterios, m_extendida);
}

void frmBusqueda_Articulos_1::EjecutarBusqueda()
{
    const QPointer<frmBusqueda_Articulos_1> vivo(this);
    const bool hecha = buscar([this] {
        const QScopedValueRollback<bool> llenando(m_llenando, true);
        const nv::sql::CriteriosArticulo criterios = criteriosEscritos();
        const nv::Sentencia sentencia = consulta(criterios);
        // What still has to be read of the former list would be read first. One that is refused unsent keeps it.
        if (sentencia.defecto().isEmpty())
            m_carga->cerrar();
        m_carga->mostrar(nv::ranura::exigida().Abrir(sentencia));
        recordar(sentencia);
        recordarCriterios(criterios);
        rejilla()->setFilaActual(1);
    });
    if (!hecha)
        return;
    if (rejilla()->filasDatos() == 0) {
        m_panel->limpiar();
        return;
    }
    ordenarTabulacion(true);
    refrescarDetalles();
    // A box may have been up, and the window gone with it.
    if (!vivo)
        return;
    rejilla()->setFocus();
    // A picker that loses the focus loads its name, and may have said that it could not.
    if (vivo)
        mostrarCriterios(false);
}

void frmBusqueda_Articulos_1::refrescarDetalles()
{
    const int fila = rejilla()->filaActual();
    if (m_llenando || !m_extendida || fila < 1)
        return;
    guardar(this, u"::DevPropiedades"_s,
            [&] { m_panel->DevPropiedades(rejilla()->texto(fila, columnasEleccion().codigo)); });
}

void frmBusqueda_Articulos_1::volverACriterios()
{
    mostrarCriterios(true);
    m_nombre->setFocus();
}

void frmBusqueda_Articulos_1::alPulsarF6()
{
    m_extendida = !m_extendida;
    aplicarVista();
    centrar(y());
    refrescarDetalles();
}

void frmBusqueda_Articulos_1::alPulsarF9()
{
    if (m_criteriosVisibles)
        EjecutarBusqueda();
    else
        volverACriterios();
}

bool frmBusqueda_Articulos_1::event(QEvent *evento)
{
    if (evento->type() == QEvent::WindowActivate) {
        try {
            m_familias->recargarFijas();
        } catch (const nv::Error &) {
            // Not shown: the box would activate this dialog again as it closes, without end.
        }
    }
    return BusquedaBase::event(evento);
}
