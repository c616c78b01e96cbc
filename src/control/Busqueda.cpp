#include "control/Busqueda.h"

namespace nv {

void copiarSiete(CriteriosBusqueda &destino, const CriteriosBusqueda &origen)
{
    const auto marca = destino.Busqueda_Marca;
    const auto nombre = destino.Busqueda_MarcaNombre;
    const auto medida = destino.Busqueda_Medida;
    destino = origen;
    destino.Busqueda_Marca = marca;
    destino.Busqueda_MarcaNombre = nombre;
    destino.Busqueda_Medida = medida;
}

std::optional<ResultadoBusqueda> mostrarBusqueda(Dialogos &dialogos, const Servicios &servicios, QWidget *padre,
                                                 const PeticionBusqueda &peticion, const CriteriosBusqueda &criterios)
{
    const DialogoPropio<ContratoBusqueda> dialogo = dialogos.crearBusqueda(peticion.modelo, padre);
    static_cast<CriteriosBusqueda &>(*dialogo) = criterios;
    dialogo->MultiResultado = peticion.multiResultado;
    dialogo->SeleccionarTodo = peticion.seleccionarTodo;
    dialogo->cEmpresa = &servicios.empresaExigida();
    dialogo->Parametros = servicios.parametros;
    dialogo->AlmacenStock = peticion.almacenStock;
    dialogo->Cliente = peticion.cliente;
    dialogo->GuardarBusqueda = peticion.guardarBusqueda;
    dialogo->RecordarAspecto = peticion.recordarAspecto;
    if (peticion.familia[0] != 0) {
        dialogo->Familia_1 = dialogo->Busqueda_Familia_1 = peticion.familia[0];
        dialogo->Familia_2 = dialogo->Busqueda_Familia_2 = peticion.familia[1];
        dialogo->Familia_3 = dialogo->Busqueda_Familia_3 = peticion.familia[2];
    }
    dialogo->MostrarModal();
    if (!dialogo.vivo())
        return std::nullopt;
    return ResultadoBusqueda{dialogo->Codigo, dialogo->Descripcion, dialogo->MultiResultado, *dialogo};
}

} // namespace nv
