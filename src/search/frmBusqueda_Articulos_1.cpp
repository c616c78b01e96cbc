#include "search/frmBusqueda_Articulos_1.h"

#include "nvArticulo/cEmpresa.h"
#include "platform/widgets/Twips.h"
#include "search/piezas/PanelDetalles.h"
#include "search/sql/Modelo0.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QPointer>
#include <QScreen>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

enum Columna { CodigoArticulo, DescripcionArticulo, Familia1, Familia2, Familia3, CodigoBarras };

constexpr nv::ColumnaRejilla Oculta{{}, 0, Qt::AlignLeft, true};
constexpr nv::ColumnaBusqueda Columnas[] = {
    {{u"Código", 800}, u"Codigo"}, {{u"Descripción", 4100}, u"Descripcion"},
    {Oculta, u"Familia_1"},        {Oculta, u"Familia_2"},
    {Oculta, u"Familia_3"},        {{u"Cód. Barras", 300}, u"Cod_Barras"},
};

// Twips.
constexpr int Ancho = 7140;
constexpr int AnchoExtendida = 11655;
constexpr int Alto = 6345;
constexpr int AltoFiltro = 1995;
constexpr int AnchoDetalles = 5535;

nv::ConfiguracionCriterios configuracion()
{
    nv::ConfiguracionCriterios c{Columnas, {CodigoArticulo, DescripcionArticulo}};
    c.ocultaPanel = true;
    // Page Down brings more on the row before the last.
    c.bloques = {500, 50, 2, 2};
    c.teclas = u"F9 - Buscar / F6 - Propiedades"_s;
    return c;
}

} // namespace

frmBusqueda_Articulos_1::frmBusqueda_Articulos_1(QWidget *padre)
    : frmBusqueda_Articulos_1(padre, [](QWidget *dialogo) { return new nv::PanelDetalles(dialogo); })
{}

frmBusqueda_Articulos_1::frmBusqueda_Articulos_1(QWidget *padre, FabricaPanel crearPanel)
    : BusquedaCriterios(padre, configuracion())
    , m_lado(new QWidget(this))
    , m_panel(crearPanel(m_lado))
{
    const auto px = [this](int twips) { return nv::twips::aPixeles(twips, this); };
    const auto conLetra = [this](int twips) { return nv::twips::conLetra(twips, this); };
    panel()->setMinimumHeight(conLetra(AltoFiltro));
    pie()->setContentsMargins(0, px(15), px(45), 0);
    montarDetalles();
    auto *todo = new QHBoxLayout(this);
    todo->setContentsMargins(0, 0, 0, 0);
    todo->setSpacing(0);
    todo->addLayout(columna(), 1);
    todo->addWidget(m_lado);
    dimensionar(Ancho, Alto);
    extender(false);
    connect(rejilla(), &nv::Rejilla::FilaCambiada, this, &frmBusqueda_Articulos_1::refrescarDetalles);
    atajo(Qt::Key_F6, [this] { alternarDetalles(); });
}

void frmBusqueda_Articulos_1::montarDetalles()
{
    const auto px = [this](int twips) { return nv::twips::aPixeles(twips, this); };
    auto *divisor = new QFrame(m_lado);
    divisor->setObjectName(u"fraDivisor"_s);
    divisor->setFrameStyle(QFrame::VLine | QFrame::Sunken);
    divisor->setFixedWidth(px(30));
    // As wide as that and no wider: what is left is the list's.
    // On a small screen it takes what its figures need.
    m_panel->setMinimumWidth(
        std::max(std::min(nv::twips::conLetra(AnchoDetalles, this), screen()->availableSize().width() * 45 / 100),
                 m_panel->minimumSizeHint().width()));
    m_panel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto *lado = new QHBoxLayout(m_lado);
    lado->setContentsMargins(0, px(90), px(150), px(75));
    lado->setSpacing(px(120));
    lado->addWidget(divisor);
    lado->addWidget(m_panel, 1);
    tabularDespues(m_panel->findChild<QWidget *>(u"txtObserv"_s));
}

void frmBusqueda_Articulos_1::alAbrir()
{
    extender(Cliente > 0 || aspecto().valor(u"Detalles"_s).toBool());
    centrar(alturaInicial());
    BusquedaCriterios::alAbrir();
}

void frmBusqueda_Articulos_1::alternarDetalles()
{
    extender(!m_extendida);
    centrar(y());
    // For a customer they are shown whatever was wanted last.
    if (Cliente <= 0)
        aspecto().guardar(u"Detalles"_s, m_extendida);
    refrescarDetalles(); // last: it may show a box, and the window go with it
}

void frmBusqueda_Articulos_1::restaurarAspecto()
{
    const QPointer<frmBusqueda_Articulos_1> vivo(this);
    if (m_extendida != (Cliente > 0))
        alternarDetalles();
    if (vivo)
        BusquedaCriterios::restaurarAspecto();
}

void frmBusqueda_Articulos_1::cargarPropios(nv::mensajes::Fallos &fallos)
{
    fallos.paso([this] { m_panel->preparar(*cEmpresa, Cliente); });
}

nv::Sentencia frmBusqueda_Articulos_1::consulta(const nv::sql::CriteriosArticulo &criterios)
{
    return nv::sql::modelo0(cEmpresa->CodigoArticulos(), limite(), criterios, m_extendida);
}

void frmBusqueda_Articulos_1::trasBuscar()
{
    if (rejilla()->filasDatos() == 0)
        m_panel->limpiar();
    else
        refrescarDetalles();
}

void frmBusqueda_Articulos_1::refrescarDetalles()
{
    const int fila = rejilla()->filaActual();
    if (llenando() || !m_extendida || fila < 1)
        return;
    nv::mensajes::guardar(this, u"::DevPropiedades"_s,
                          [&] { m_panel->DevPropiedades(rejilla()->texto(fila, CodigoArticulo)); });
}

/// The form grows by the details and gives their room back; what the user has drawn it to stays beside that.
void frmBusqueda_Articulos_1::extender(bool extendida)
{
    const auto px = [this](int twips) { return nv::twips::aPixeles(twips, this); };
    const int cambio = nv::twips::conLetra(AnchoExtendida - Ancho, this);
    const int antes = width() - std::exchange(m_ganado, 0);
    m_extendida = extendida;
    m_lado->setVisible(extendida);
    QMargins margenes = columna()->contentsMargins();
    margenes.setRight(px(extendida ? 75 : 180));
    columna()->setContentsMargins(margenes);
    rejilla()->setColumnaOculta(CodigoBarras, extendida);
    layout()->activate(); // it would hold the form at the width that it needed before
    if (extendida)
        m_ganado = std::max(0, std::min(cambio, screen()->availableSize().width() - antes));
    resize(antes + m_ganado, height());
}

/// Centred between the sides of the screen.
void frmBusqueda_Articulos_1::centrar(int y)
{
    const QRect pantalla = screen()->availableGeometry();
    move(std::max(pantalla.left(), pantalla.left() + (pantalla.width() - frameGeometry().width()) / 2), y);
}

/// In the middle of the opener's window.
int frmBusqueda_Articulos_1::alturaInicial() const
{
    const QRect pantalla = screen()->availableGeometry();
    const QRect abridor = parentWidget() ? parentWidget()->window()->frameGeometry() : pantalla;
    return std::clamp(abridor.center().y() - height() / 2, pantalla.top(),
                      std::max(pantalla.top(), pantalla.bottom() - height()));
}
