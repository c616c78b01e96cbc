#include "search/Fabrica.h"

#include "nvArticulo/Error.h"
#include "search/frmBusqueda_Articulos_1.h"
#include "search/frmBusqueda_Articulos_2.h"
#include "search/frmBusqueda_Articulos_3.h"
#include "search/frmBusqueda_Articulos_4.h"
#include "search/frmBusqueda_Articulos_5.h"
#include "search/frmBusqueda_Articulos_6.h"
#include "search/frmBusqueda_Articulos_7.h"
#include "search/frmBusqueda_Articulos_8.h"
#include "search/frmBusqueda_Articulos_9.h"

using namespace Qt::StringLiterals;

namespace nv {

DialogoPropio<ContratoBusqueda> crearDialogoBusqueda(qint16 modelo, QWidget *padre)
{
    using Dialogo = DialogoPropio<ContratoBusqueda>;
    switch (modelo) {
    case 0:
        return Dialogo(new frmBusqueda_Articulos_1(padre));
    case 1:
        return Dialogo(new frmBusqueda_Articulos_2(padre));
    case 2:
        return Dialogo(new frmBusqueda_Articulos_3(padre));
    case 3:
        return Dialogo(new frmBusqueda_Articulos_4(padre));
    case 4:
        return Dialogo(new frmBusqueda_Articulos_5(padre));
    case 5:
        return Dialogo(new frmBusqueda_Articulos_6(padre));
    case 6:
        return Dialogo(new frmBusqueda_Articulos_7(padre));
    case 7:
        return Dialogo(new frmBusqueda_Articulos_8(padre));
    case 8:
        return Dialogo(new frmBusqueda_Articulos_9(padre));
    default:
        throw errores::sinModelo(QString::number(modelo));
    }
}

} // namespace nv
