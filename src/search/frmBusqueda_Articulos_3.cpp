#include "search/frmBusqueda_Articulos_3.h"

#include "common/cEmpresa.h"
#include "search/BusquedaTextoLibre_Lectura.h"
#include "search/sql/Modelo2.h"

using namespace Qt::StringLiterals;

namespace {

enum Columna { Marca, CodigoArticulo, DescripcionArticulo, Stock, Ean, Pvp, PvpIgic, PvpIva, Referencia };

nv::ConfiguracionTextoLibre configuracion()
{
    nv::ConfiguracionTextoLibre c;
    c.caja = u"txtBusqueda"_s;
    c.mayusculas = true;
    c.parametroReferencia = u".BuscadorM3.SoloRefPrincipal"_s;
    c.tituloAceptar = u"frmBusqueda_Articulos_3:cmdAceptar_Click"_s;
    c.eleccion = {CodigoArticulo, DescripcionArticulo};
    c.columnas = {{},
                  {u"Código"_s, 1000, Qt::AlignCenter},
                  {u"Descripción"_s, 4200},
                  {u"Stock"_s, 1000, Qt::AlignRight},
                  {u"EAN"_s, 1500, Qt::AlignCenter},
                  {u"Pvp"_s, 1000, Qt::AlignRight},
                  {u"Pvp +Igic"_s, 1000, Qt::AlignRight},
                  {u"Pvp +Iva"_s, 1000, Qt::AlignRight},
                  {u"Referencia"_s, 1500}};
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

nv::BusquedaTextoLibre::Lector frmBusqueda_Articulos_3::lector(const nv::Registros &registros)
{
    const int codigo = registros.columna(u"Codigo");
    const int descripcion = registros.columna(u"Descripcion");
    const int impuesto = registros.columna(u"TipoImpuesto");
    const int impuesto2 = registros.columna(u"TipoImpuesto2");
    const int referencia = registros.columna(u"Referencia");
    const int ean = registros.columna(u"EAN");
    const int stock = registros.columna(u"Stock");
    const int pvp = registros.columna(u"Pvp");
    const int decimales = registros.columna(u"Decimales");
    return [=, empresa = cEmpresa](const nv::Registros &r) {
        const nv::Moneda precio = r.moneda(pvp);
        const int n = r.entero16(decimales);
        const nv::Moneda igic = empresa->PorcentajeImpuesto(nv::lectura::entero16(r, impuesto));
        const nv::Moneda iva = empresa->PorcentajeImpuesto2(nv::lectura::entero16(r, impuesto2));
        return nv::FilaRejilla{u"0"_s,
                               r.texto(codigo),
                               r.textoO(descripcion),
                               r.textoNumero(stock),
                               r.texto(ean),
                               precio.texto(n),
                               conImpuesto(precio, igic).texto(n),
                               conImpuesto(precio, iva).texto(n),
                               r.texto(referencia)};
    };
}
