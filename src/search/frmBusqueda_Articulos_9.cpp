#include "search/frmBusqueda_Articulos_9.h"

#include "nvArticulo/Registros.h"
#include "nvArticulo/cEmpresa.h"
#include "platform/widgets/nvTextBox.h"
#include "search/sql/Modelo8.h"

#include <utility>

using namespace Qt::StringLiterals;
using nv::Celda;

namespace {

enum Columna { Marcada, Familia, CodigoArticulo, DescripcionArticulo, MarcaArticulo, Stock, Ean, Pvp, Referencia };

constexpr nv::ColumnaBusqueda Columnas[] = {
    {{}, {}, Celda::Seleccion},
    {{{}, 2500}, u"F1Nombre"},
    {{u"Código", 1000, Qt::AlignCenter, true}, u"Codigo"},
    {{u"Descripción", 4400}, u"Descripcion"},
    {{u"Marca", 1500}, u"MarcaNombre"},
    {{u"Stock", 1000, Qt::AlignRight}, u"Stock", Celda::Numero},
    {{u"EAN", 1500, Qt::AlignCenter, true}, u"EAN"},
    {{u"Pvp", 1300, Qt::AlignRight}, u"Pvp", Celda::Agrupado},
    {{u"Referencia", 0, Qt::AlignLeft, true}, u"Referencia"},
};

constexpr int DiasDeVenta = 30;
/// Of each change of the form's width, in hundredths; the rest is the description's. The last one is the reference's, which
/// is hidden: the column before it has it.
struct Parte
{
    Columna columna;
    int centesimas;
};
constexpr std::array<Parte, 2> Partes{{{MarcaArticulo, 20}, {Pvp, 10}}};

} // namespace

frmBusqueda_Articulos_9::frmBusqueda_Articulos_9(QWidget *padre)
    : BusquedaTextoLibre(
          padre, {u"frmBusqueda_Articulos_9"_s, u"txtDescripcion"_s, Columnas, {CodigoArticulo, DescripcionArticulo}})
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
        rejilla()->setColumnWidth(columna,
                                  rejilla()->columnWidth(columna) + suya - std::exchange(m_repartido[i], suya));
    }
}
