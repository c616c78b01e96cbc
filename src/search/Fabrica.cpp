#include "search/Fabrica.h"

#include "common/Error.h"
#include "search/frmBusqueda_Articulos_1.h"

using namespace Qt::StringLiterals;

namespace nv {

namespace {

constexpr qint16 UltimoModelo = 8;

} // namespace

DialogoPropio<ContratoBusqueda> crearDialogoBusqueda(qint16 modelo, QWidget *padre)
{
    if (modelo == 0)
        return DialogoPropio<ContratoBusqueda>(new frmBusqueda_Articulos_1(padre));
    if (modelo > 0 && modelo <= UltimoModelo)
        throw Error{0, u"El modelo de búsqueda %1 todavía no está disponible."_s.arg(modelo), {}};
    throw Error{
        0,
        u"El modelo de búsqueda %1 no existe. Revise el parámetro BusquedaArticulos de la empresa."_s.arg(modelo),
        {}};
}

} // namespace nv
