#include "common/Error.h"
#include "control/CajaCodigo.h"
#include "control/Dialogos.h"
#include "control/Ocupada.h"
#include "control/nvArticulo.h"

using namespace Qt::StringLiterals;

namespace {

/// What "forget the criteria" leaves: the code reads "0".
nv::CriteriosBusqueda criteriosOlvidados()
{
    nv::CriteriosBusqueda criterios;
    criterios.Busqueda_Codigo = u"0"_s;
    return criterios;
}

void ponerFamilia(nv::ContratoBusqueda &dialogo, qint16 familia1, qint16 familia2, qint16 familia3)
{
    dialogo.Familia_1 = familia1;
    dialogo.Familia_2 = familia2;
    dialogo.Familia_3 = familia3;
    dialogo.Busqueda_Familia_1 = familia1;
    dialogo.Busqueda_Familia_2 = familia2;
    dialogo.Busqueda_Familia_3 = familia3;
}

/// The seven criteria that a search from typed words hands over and takes back: brand and size stay out of it.
void copiarSiete(nv::CriteriosBusqueda &destino, const nv::CriteriosBusqueda &origen)
{
    destino.Busqueda_Descripcion = origen.Busqueda_Descripcion;
    destino.Busqueda_Codigo = origen.Busqueda_Codigo;
    destino.Busqueda_Proveedor = origen.Busqueda_Proveedor;
    destino.Busqueda_Referencia = origen.Busqueda_Referencia;
    destino.Busqueda_Familia_1 = origen.Busqueda_Familia_1;
    destino.Busqueda_Familia_2 = origen.Busqueda_Familia_2;
    destino.Busqueda_Familia_3 = origen.Busqueda_Familia_3;
}

} // namespace

void nvArticulo::lanzarBusqueda()
{
    if (m_ocupada)
        return;
    const Ocupada ocupada(this);
    const qint16 modelo = Modelo();
    const nv::DialogoPropio<nv::ContratoBusqueda> dialogo = dialogos().crearBusqueda(modelo, window());
    if (modelo != 0)
        dialogo->MultiResultado = MultiResultado;
    if (modelo == 1)
        dialogo->SeleccionarTodo = SeleccionarTodo;
    dialogo->cEmpresa = &empresaExigida();
    dialogo->AlmacenStock = AlmacenStock;
    dialogo->Cliente = Cliente;
    dialogo->GuardarBusqueda = GuardarBusqueda;
    if (Familia_1 == -1) {
        Familia_1 = 0;
        m_criterios = criteriosOlvidados();
    } else {
        static_cast<nv::CriteriosBusqueda &>(*dialogo) = m_criterios;
    }
    if (Familia_1 > 0)
        ponerFamilia(*dialogo, Familia_1, Familia_2, Familia_3);
    dialogo->MostrarModal();
    if (ocupada.viva() && dialogo.vivo())
        recibirBusqueda(*dialogo);
}

void nvArticulo::recibirBusqueda(const nv::ContratoBusqueda &dialogo)
{
    if (dialogo.Codigo.isEmpty()) {
        m_multiCodigo.clear();
        m_multiDescripcion.clear();
        return;
    }
    if (MultiResultado) {
        m_multiCodigo = dialogo.Codigo;
        m_multiDescripcion = dialogo.Descripcion;
    } else {
        ponerCaja(dialogo.Codigo);
        ponerNombre(dialogo.Descripcion);
        m_existe = false;
        m_pendiente = true;
        m_caja->selectAll();
    }
    m_criterios = dialogo;
}

nvArticulo::Paso nvArticulo::porDescripcion(const QString &entrada)
{
    const Ocupada ocupada(this);
    m_criterios.Busqueda_Descripcion = entrada;
    const qint16 modelo = Modelo();
    const nv::DialogoPropio<nv::ContratoBusqueda> dialogo = dialogos().crearBusqueda(modelo, window());
    if (modelo >= 2)
        dialogo->MultiResultado = MultiResultado;
    dialogo->cEmpresa = &empresaExigida();
    dialogo->AlmacenStock = AlmacenStock;
    dialogo->Cliente = Cliente;
    dialogo->GuardarBusqueda = GuardarBusqueda;
    copiarSiete(*dialogo, m_criterios);
    if (Familia_1 != 0)
        ponerFamilia(*dialogo, Familia_1, Familia_2, Familia_3);
    dialogo->MostrarModal();
    if (!ocupada.viva() || !dialogo.vivo())
        return Paso::Muerta;

    const bool varios = dialogo->MultiResultado;
    if (varios) {
        m_multiCodigo = dialogo->Codigo;
        m_multiDescripcion = dialogo->Descripcion;
    } else if (!dialogo->Codigo.isEmpty()) {
        ponerCaja(dialogo->Codigo);
        ponerNombre(dialogo->Descripcion);
        copiarSiete(m_criterios, *dialogo);
    }
    if (m_caja->text().isEmpty())
        return Paso::Detenida;
    if (!varios)
        return Paso::Final;
    m_pendiente = false;
    return Paso::Detenida;
}
