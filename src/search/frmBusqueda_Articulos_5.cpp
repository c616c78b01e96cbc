#include "search/frmBusqueda_Articulos_5.h"

#include "common/Conexion.h"
#include "common/Error.h"
#include "common/Valores.h"
#include "common/cEmpresa.h"
#include "platform/pickers/nvAlmacen.h"
#include "platform/widgets/Twips.h"
#include "platform/widgets/nvTextBox.h"

#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

std::vector<nv::ColumnaRejilla> columnas()
{
    return {{{}, 300, Qt::AlignCenter},
            {u"Código"_s, 1000, Qt::AlignCenter},
            {u"Descripción"_s, 5700},
            {u"Cód. Barras"_s, 1500, Qt::AlignCenter},
            {u"Rotación"_s, 0, Qt::AlignRight}};
}

} // namespace

frmBusqueda_Articulos_5::frmBusqueda_Articulos_5(QWidget *padre)
    : frmBusqueda_Articulos_4(padre, columnas())
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
    anadirCriterio(u"lblAlmSurt"_s, u"Almacén:"_s, m_almacen);
    anadirCriterio(u"lblRanking"_s, u"Ranking:"_s, m_ranking, nota);
    m_ranking->setAccessibleDescription(nota->text());
}

QString frmBusqueda_Articulos_5::tituloAceptar() const
{
    return u"frmBusqueda_Articulos_5:cmdAceptar_Click"_s;
}

QString frmBusqueda_Articulos_5::tituloBusqueda() const
{
    return u"frmBusqueda_Articulos_5:Cargar"_s;
}

void frmBusqueda_Articulos_5::preparar()
{
    frmBusqueda_Articulos_4::preparar();
    m_almacen->setConexion(nv::ranura::actual());
    m_almacen->setcEmpresa(cEmpresa);
}

bool frmBusqueda_Articulos_5::ponerRecordados()
{
    return false;
}

nv::sql::CriteriosModelo4 frmBusqueda_Articulos_5::criteriosConAlmacen() const
{
    nv::sql::CriteriosModelo4 criterios{criteriosEscritos(), {}, nv::sql::limiteFilas(m_ranking->text())};
    if (nv::ValTexto(m_almacen->Texto()) != u"0"_s)
        criterios.almacen = m_almacen->Codigo();
    return criterios;
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

nv::Sentencia frmBusqueda_Articulos_5::consulta()
{
    const nv::sql::CriteriosModelo4 criterios = criteriosConAlmacen();
    if (criterios.porRanking())
        crearRanking(criterios);
    return nv::sql::modelo4(cEmpresa->Codigo(), cEmpresa->CodigoArticulos(), limite(), criterios);
}

frmBusqueda_Articulos_5::Lector frmBusqueda_Articulos_5::lector(const nv::Registros &registros) const
{
    const Lector comun = frmBusqueda_Articulos_4::lector(registros);
    const int rotacion = registros.columna(u"Rotacion");
    return [=](const nv::Registros &r) {
        nv::FilaRejilla fila = comun(r);
        fila.push_back(r.moneda(rotacion).texto(2));
        return fila;
    };
}
