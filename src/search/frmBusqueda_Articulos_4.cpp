#include "search/frmBusqueda_Articulos_4.h"

#include "nvArticulo/cEmpresa.h"
#include "platform/widgets/Twips.h"
#include "search/sql/Modelo3.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

constexpr nv::ColumnaBusqueda Columnas[] = {
    {{{}, 300, Qt::AlignCenter}, {}, nv::Celda::Seleccion},
    {{u"Código", 1000, Qt::AlignCenter}, u"Codigo"},
    {{u"Descripción", 5800}, u"Descripcion"},
    {{u"Cód. Barras", 300, Qt::AlignCenter}, u"Cod_Barras"},
};

} // namespace

nv::ConfiguracionCriterios frmBusqueda_Articulos_4::configuracion(nv::TablaColumnas columnas)
{
    nv::ConfiguracionCriterios c{columnas, {CodigoArticulo, DescripcionArticulo}};
    c.conMarca = true;
    c.marcadas = nv::FilasMarcadas::Signo::Equis;
    c.teclas = u"F9 - Buscar"_s;
    return c;
}

frmBusqueda_Articulos_4::frmBusqueda_Articulos_4(QWidget *padre)
    : frmBusqueda_Articulos_4(padre, configuracion(Columnas), u"frmBusqueda_Articulos_4"_s)
{}

frmBusqueda_Articulos_4::frmBusqueda_Articulos_4(QWidget *padre, nv::ConfiguracionCriterios configuracion,
                                                 const QString &formulario)
    : BusquedaCriterios(padre, configuracion)
    , m_formulario(formulario)
{
    setWindowTitle(u"Busqueda de Artículos"_s);
    rejilla()->setObjectName(u"vsArt"_s);
    setLayout(columna());
    int lugar = 0;
    for (const bool marcar : {true, false}) {
        QPushButton *todos =
            boton(marcar ? u"Marcar Todos"_s : u"Desmarcar Todos"_s, marcar ? u"cmdMarcar"_s : u"cmdDesmarcar"_s,
                  [this, marcar] { marcadas()->marcarTodas(marcar); });
        pie()->insertWidget(lugar++, todos);
        tabularDespues(todos);
    }
    ajustarAncho(static_cast<int>(configuracion.columnas.size()));
}

/// As wide as its columns.
void frmBusqueda_Articulos_4::ajustarAncho(int columnas)
{
    const nv::Rejilla *lista = rejilla();
    int ancho =
        lista->verticalScrollBar()->sizeHint().width() + 2 * lista->frameWidth() + nv::twips::aPixeles(150, this);
    for (int c = 0; c < columnas; ++c)
        ancho += lista->columnWidth(c);
    ajustarTamano({ancho, nv::twips::conLetra(7200, this)});
}

nv::Sentencia frmBusqueda_Articulos_4::consulta(const nv::sql::CriteriosArticulo &criterios)
{
    return nv::sql::modelo3(cEmpresa->CodigoArticulos(), limite(), criterios);
}
