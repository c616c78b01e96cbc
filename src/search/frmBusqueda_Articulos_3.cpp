#include "search/frmBusqueda_Articulos_3.h"

#include "nvArticulo/Registros.h"
#include "nvArticulo/cEmpresa.h"
#include "search/sql/Modelo2.h"

using namespace Qt::StringLiterals;
using nv::Celda;

namespace {

enum Columna { Marcada, CodigoArticulo, DescripcionArticulo, Stock, Ean, Pvp, PvpIgic, PvpIva, Referencia };

constexpr nv::ColumnaBusqueda Columnas[] = {
    {{}, {}, Celda::Seleccion},
    {{u"Código", 1000, Qt::AlignCenter}, u"Codigo"},
    {{u"Descripción", 4200}, u"Descripcion"},
    {{u"Stock", 1000, Qt::AlignRight}, u"Stock", Celda::Numero},
    {{u"EAN", 1500, Qt::AlignCenter}, u"EAN"},
    {{u"Pvp", 1000, Qt::AlignRight}, u"Pvp", Celda::Propia},
    {{u"Pvp +Igic", 1000, Qt::AlignRight}, {}, Celda::Propia},
    {{u"Pvp +Iva", 1000, Qt::AlignRight}, {}, Celda::Propia},
    {{u"Referencia", 1500}, u"Referencia"},
};

nv::ConfiguracionTextoLibre configuracion()
{
    nv::ConfiguracionTextoLibre c{u"frmBusqueda_Articulos_3"_s, u"txtBusqueda"_s, Columnas};
    c.mayusculas = true;
    return c;
}

/// Only the tax is rounded, the sum keeps the price's decimals.
nv::Moneda conImpuesto(nv::Moneda precio, nv::Moneda porcentaje)
{
    return precio + precio.porcentaje(porcentaje, 2);
}

} // namespace

frmBusqueda_Articulos_3::frmBusqueda_Articulos_3(QWidget *padre)
    : BusquedaTextoLibre(padre, configuracion())
{
    buscarConIntro(caja());
}

void frmBusqueda_Articulos_3::leerAjustes()
{
    BusquedaTextoLibre::leerAjustes();
    const bool declaraIgic = cEmpresa->ValorBooleano(u"DeclaraIgic"_s);
    rejilla()->setColumnaOculta(PvpIgic, declaraIgic || !cEmpresa->ValorBooleano(u"Articulos_FichaVerPvpConIgic"_s));
    rejilla()->setColumnaOculta(PvpIva, declaraIgic || !cEmpresa->ValorBooleano(u"Articulos_FichaVerPvpConIva"_s));
}

nv::Sentencia frmBusqueda_Articulos_3::consulta(const QString &texto) const
{
    return nv::sql::modelo2(entorno(), texto);
}

nv::CeldasPropias frmBusqueda_Articulos_3::celdasPropias(const nv::Registros &registros)
{
    const int impuesto = registros.columna(u"TipoImpuesto");
    const int impuesto2 = registros.columna(u"TipoImpuesto2");
    const int pvp = registros.columna(u"Pvp");
    const int decimales = registros.columna(u"Decimales");
    return [=, empresa = cEmpresa](const nv::Registros &r, nv::FilaRejilla &fila) {
        const nv::Moneda precio = r.moneda(pvp);
        const int n = r.entero16(decimales);
        fila[Pvp] = precio.texto(n);
        fila[PvpIgic] = conImpuesto(precio, empresa->PorcentajeImpuesto(r.entero16O(impuesto))).texto(n);
        fila[PvpIva] = conImpuesto(precio, empresa->PorcentajeImpuesto2(r.entero16O(impuesto2))).texto(n);
    };
}
