#pragma once

#include "control/Dialogos.h"

#include <array>
#include <optional>

namespace nv {

/// What a box hands to a search dialog.
struct PeticionBusqueda
{
    qint16 modelo = 0;
    bool multiResultado = false;
    bool seleccionarTodo = false;
    qint16 almacenStock = 0;
    qint32 cliente = 0;
    bool guardarBusqueda = false;
    bool recordarAspecto = true;
    std::array<qint16, 3> familia{}; ///< fixed; 0 in the first: free
};

struct ResultadoBusqueda
{
    QString codigo; ///< empty: nothing was chosen
    QString descripcion;
    bool varios = false; ///< the dialog returned a list
    CriteriosBusqueda criterios;
};

/// The seven criteria that a search from typed words hands over and takes back: brand and size stay out of it.
void copiarSiete(CriteriosBusqueda &destino, const CriteriosBusqueda &origen);

/// Shows the search dialog of the model until it has hidden itself; nothing when its window went meanwhile. Throws Error.
std::optional<ResultadoBusqueda> mostrarBusqueda(Dialogos &dialogos, const Servicios &servicios, QWidget *padre,
                                                 const PeticionBusqueda &peticion, const CriteriosBusqueda &criterios);

} // namespace nv
