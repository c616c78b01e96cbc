#include "search/frmBusqueda_Articulos_9.h"

#include "common/Registros.h"
#include "common/cEmpresa.h"
#include "platform/widgets/nvTextBox.h"
#include "search/sql/Modelo8.h"

using namespace Qt::StringLiterals;

namespace {

enum Columna { Marca, Familia, CodigoArticulo, DescripcionArticulo, MarcaArticulo, Stock, Ean, Pvp, Referencia };

constexpr int DiasDeVenta = 30;

/// Of each change of the form's width, in hundredths.
struct Parte
{
    Columna columna;
    int centesimas;
};
constexpr std::array<Parte, 3> Partes{{{DescripcionArticulo, 70}, {MarcaArticulo, 20}, {Referencia, 10}}};

nv::ConfiguracionTextoLibre configuracion()
{
    nv::ConfiguracionTextoLibre c;
    c.caja = u"txtDescripcion"_s;
    c.parametroReferencia = u".BuscadorM3.SoloRefPrincipal"_s;
    c.tituloAceptar = u"frmBusqueda_Articulos_9:cmdAceptar_Click"_s;
    c.eleccion = {CodigoArticulo, DescripcionArticulo};
    c.columnas = {{},
                  {{}, 2500},
                  {u"Código"_s, 1000, Qt::AlignCenter, true},
                  {u"Descripción"_s, 4400},
                  {u"Marca"_s, 1500},
                  {u"Stock"_s, 1000, Qt::AlignRight},
                  {u"EAN"_s, 1500, Qt::AlignCenter, true},
                  {u"Pvp"_s, 1300, Qt::AlignRight},
                  {u"Referencia"_s, 0, Qt::AlignLeft, true}};
    return c;
}

} // namespace

frmBusqueda_Articulos_9::frmBusqueda_Articulos_9(QWidget *padre)
    : BusquedaTextoLibre(padre, configuracion())
{
    buscarConIntro(caja());
}

void frmBusqueda_Articulos_9::leerAjustes()
{
    BusquedaTextoLibre::leerAjustes();
    rejilla()->setTitulo(Familia, cEmpresa->NombreFamilia(0));
}

nv::Sentencia frmBusqueda_Articulos_9::consulta(const QString &texto) const
{
    return nv::sql::modelo8(entorno(), texto, cEmpresa->Hoy().addDays(-DiasDeVenta));
}

nv::BusquedaTextoLibre::Lector frmBusqueda_Articulos_9::lector(const nv::Registros &registros)
{
    const int codigo = registros.columna(u"Codigo");
    const int descripcion = registros.columna(u"Descripcion");
    const int referencia = registros.columna(u"Referencia");
    const int ean = registros.columna(u"EAN");
    const int stock = registros.columna(u"Stock");
    const int pvp = registros.columna(u"Pvp");
    const int marca = registros.columna(u"MarcaNombre");
    const int familia = registros.columna(u"F1Nombre");
    return [=](const nv::Registros &r) {
        return nv::FilaRejilla{u"0"_s,
                               r.texto(familia),
                               r.texto(codigo),
                               r.textoO(descripcion),
                               r.texto(marca),
                               r.textoNumero(stock),
                               r.texto(ean),
                               r.moneda(pvp).textoAgrupado(),
                               r.texto(referencia)};
    };
}

void frmBusqueda_Articulos_9::resizeEvent(QResizeEvent *evento)
{
    BusquedaTextoLibre::resizeEvent(evento);
    if (m_anchoInicial > 0)
        repartirAncho();
}

void frmBusqueda_Articulos_9::showEvent(QShowEvent *evento)
{
    BusquedaTextoLibre::showEvent(evento);
    if (m_anchoInicial == 0)
        m_anchoInicial = width();
}

/// Each share of the whole change, so that nothing is lost to rounding; a column that the user drew keeps its change.
void frmBusqueda_Articulos_9::repartirAncho()
{
    const int cambio = width() - m_anchoInicial;
    for (std::size_t i = 0; i < Partes.size(); ++i) {
        const int suya = cambio * Partes[i].centesimas / 100;
        const int columna = Partes[i].columna;
        if (!rejilla()->isColumnHidden(columna))
            rejilla()->setColumnWidth(columna, rejilla()->columnWidth(columna) + suya - m_repartido[i]);
        m_repartido[i] = suya;
    }
}
