#include "search/frmBusqueda_Articulos_5.h"

#include "nvArticulo/Conexion.h"
#include "nvArticulo/cEmpresa.h"
#include "platform/pickers/nvAlmacen.h"
#include "platform/widgets/Twips.h"
#include "platform/widgets/nvTextBox.h"

#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

enum { Rotacion = 4 };

constexpr nv::ColumnaBusqueda Columnas[] = {
    {{{}, 300, Qt::AlignCenter}, {}, nv::Celda::Seleccion},
    {{u"Código", 1000, Qt::AlignCenter}, u"Codigo"},
    {{u"Descripción", 5700}, u"Descripcion"},
    {{u"Cód. Barras", 1500, Qt::AlignCenter}, u"Cod_Barras"},
    {{u"Rotación", 0, Qt::AlignRight}, u"Rotacion", nv::Celda::Propia},
};

nv::ConfiguracionCriterios sinRecuerdo(nv::ConfiguracionCriterios c)
{
    c.recuerda = false;
    return c;
}

} // namespace

frmBusqueda_Articulos_5::frmBusqueda_Articulos_5(QWidget *padre)
    : frmBusqueda_Articulos_4(padre, sinRecuerdo(configuracion(Columnas)), u"frmBusqueda_Articulos_5"_s)
    , m_almacen(new nvAlmacen(this))
    , m_ranking(new nvTextBox(this))
{
    m_almacen->setObjectName(u"txtAlmacen"_s);
    m_ranking->setObjectName(u"txtRanking"_s);
    m_ranking->setNumerico(true);
    m_ranking->setConSigno(false);
    m_ranking->setMaxLength(9);
    m_ranking->setFixedWidth(nv::twips::aPixeles(900, this));
    auto *nota = new QLabel(u"(Mayor Unidades Venta)"_s, this);
    nota->setObjectName(u"lblMayorUndventa"_s);
    anadirCriterio(u"Almacén:"_s, u"lblAlmSurt"_s, m_almacen);
    anadirCriterio(u"Ranking:"_s, u"lblRanking"_s, m_ranking, nota);
    m_ranking->setAccessibleDescription(nota->text());
}

void frmBusqueda_Articulos_5::cargarPropios(nv::mensajes::Fallos &)
{
    m_almacen->setConexion(nv::ranura::actual());
    m_almacen->setcEmpresa(cEmpresa);
}

void frmBusqueda_Articulos_5::crearRanking(const nv::sql::CriteriosModelo4 &criterios) const
{
    nv::Conexion &conexion = nv::ranura::exigida();
    const nv::Sentencia crear =
        nv::sql::crearRanking(cEmpresa->Codigo(), cEmpresa->CodigoArticulos(), criterios, cEmpresa->Hoy());
    try {
        // One that is refused unsent must not cost the list on screen its ranking.
        if (crear.defecto().isEmpty())
            conexion.Ejecutar(nv::sql::borrarRanking());
    } catch (const nv::Error &) {
        // There was none yet.
    }
    conexion.Ejecutar(crear);
}

nv::Sentencia frmBusqueda_Articulos_5::consulta(const nv::sql::CriteriosArticulo &criterios)
{
    const nv::sql::CriteriosModelo4 todos{criterios, m_almacen->CodigoBuscado(),
                                          nv::sql::limiteFilas(m_ranking->text())};
    if (todos.porRanking())
        crearRanking(todos);
    return nv::sql::modelo4(cEmpresa->Codigo(), cEmpresa->CodigoArticulos(), limite(), todos);
}

nv::CeldasPropias frmBusqueda_Articulos_5::celdasPropias(const nv::Registros &registros)
{
    return [lugar = registros.columna(u"Rotacion")](const nv::Registros &r, nv::FilaRejilla &fila) {
        fila[Rotacion] = r.moneda(lugar).texto(2);
    };
}
