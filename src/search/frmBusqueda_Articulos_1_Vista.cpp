#include "common/Error.h"
#include "platform/pickers/nvFamilia.h"
#include "platform/pickers/nvProveedor.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/Rejilla.h"
#include "platform/widgets/Twips.h"
#include "platform/widgets/nvTextBox.h"
#include "search/frmBusqueda_Articulos_1.h"
#include "search/piezas/CargaIncremental.h"
#include "search/piezas/CascadaFamilias.h"
#include "search/piezas/PanelDetalles.h"

#include <QFrame>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace {

enum Columna { CodigoArticulo, DescripcionArticulo, Familia1, Familia2, Familia3, CodigoBarras };

/// Places in twips.
struct Vista
{
    int anchoRejilla;
    int ancho;
    int aceptar;
    int cancelar;
};
constexpr Vista VistaExtendida{5670, 11655, 3375, 4560};
constexpr Vista VistaSencilla{6885, 7140, 4590, 5775};

struct Banda
{
    int arriba;
    int alto;
};
constexpr Banda RejillaBajoCriterios{2160, 3660};
constexpr Banda RejillaEntera{90, 5730};

constexpr int Margen = 75;
constexpr int Alto = 6345;
constexpr int Filtro = 1995;
constexpr Banda Botones{5910, 360};
constexpr int AnchoBoton = 1140;

nv::CargaIncremental::Lector lectorFilas(const nv::Registros &registros)
{
    const int codigo = registros.columna(u"Codigo");
    const int descripcion = registros.columna(u"Descripcion");
    const int familia1 = registros.columna(u"Familia_1");
    const int familia2 = registros.columna(u"Familia_2");
    const int familia3 = registros.columna(u"Familia_3");
    const int barras = registros.columna(u"Cod_Barras");
    return [=](const nv::Registros &r) {
        return nv::FilaRejilla{r.texto(codigo),    r.textoO(descripcion), r.textoO(familia1),
                               r.textoO(familia2), r.textoO(familia3),    r.textoO(barras)};
    };
}

QLabel *rotulo(const QString &texto, QWidget *campo, QWidget *padre)
{
    auto *etiqueta = new QLabel(texto, padre);
    etiqueta->setBuddy(campo);
    campo->setAccessibleName(texto.chopped(1));
    return etiqueta;
}

QPushButton *boton(const QString &texto, const QString &nombre, QWidget *padre)
{
    auto *nuevo = new QPushButton(texto, padre);
    nuevo->setObjectName(nombre);
    nuevo->setAutoDefault(false);
    return nuevo;
}

} // namespace

frmBusqueda_Articulos_1::frmBusqueda_Articulos_1(QWidget *padre)
    : frmBusqueda_Articulos_1(padre, [](QWidget *dialogo) { return new nv::PanelDetalles(dialogo); })
{}

frmBusqueda_Articulos_1::frmBusqueda_Articulos_1(QWidget *padre, FabricaPanel crearPanel)
    : BusquedaBase(padre)
    , m_fraFiltro(new QFrame(this))
    , m_filtro(new QGridLayout(m_fraFiltro))
    , m_nombre(new nvTextBox(m_fraFiltro))
    , m_codigo(new nvTextBox(m_fraFiltro))
    , m_proveedor(new nvProveedor(m_fraFiltro))
    , m_referencia(new nvTextBox(m_fraFiltro))
    , m_familias(new nv::CascadaFamilias(m_fraFiltro))
    , m_aceptar(boton(u"&Aceptar"_s, u"cmdAceptar"_s, this))
    , m_cancelar(boton(u"&Cancelar"_s, u"cmdCancelar"_s, this))
    , m_divisor(new QFrame(this))
    , m_panel(crearPanel(this))
    , m_carga(new nv::CargaIncremental(rejilla(), lectorFilas))
{
    montarCriterios();
    montarRejilla();
    m_divisor->setObjectName(u"fraDivisor"_s);
    m_divisor->setFrameStyle(QFrame::VLine | QFrame::Sunken);
    auto *teclas = new QLabel(u"F9 - Buscar / F6 - Propiedades"_s, this);
    teclas->setObjectName(u"lblTeclas"_s);
    teclas->setForegroundRole(QPalette::PlaceholderText);
    const auto px = [this](int twips) { return nv::twips::aPixeles(twips, this); };
    teclas->setGeometry(px(Margen), px(Botones.arriba), px(VistaExtendida.aceptar - 2 * Margen), px(Botones.alto));
    conectar();
    ordenarTabulacion(false);
    aplicarVista();
}

void frmBusqueda_Articulos_1::montarCriterios()
{
    m_fraFiltro->setObjectName(u"fraFiltro"_s);
    m_nombre->setObjectName(u"txtNombre"_s);
    m_codigo->setObjectName(u"txtCodigo"_s);
    m_proveedor->setObjectName(u"txtProveedor"_s);
    m_referencia->setObjectName(u"txtReferencia"_s);

    m_filtro->setContentsMargins(0, 0, 0, 0);
    m_filtro->setHorizontalSpacing(nv::twips::aPixeles(90, this));
    m_filtro->setVerticalSpacing(nv::twips::aPixeles(45, this));
    m_filtro->setColumnStretch(1, 2);
    m_filtro->setColumnStretch(3, 1);
    m_filtro->addWidget(rotulo(u"Descripción:"_s, m_nombre, m_fraFiltro), 0, 0);
    m_filtro->addWidget(m_nombre, 0, 1);
    m_filtro->addWidget(rotulo(u"Código:"_s, m_codigo, m_fraFiltro), 0, 2);
    m_filtro->addWidget(m_codigo, 0, 3);
    m_filtro->addWidget(rotulo(u"Proveedor:"_s, m_proveedor, m_fraFiltro), 1, 0);
    m_filtro->addWidget(m_proveedor, 1, 1);
    m_filtro->addWidget(rotulo(u"Ref.:"_s, m_referencia, m_fraFiltro), 1, 2);
    m_referencia->setAccessibleName(u"Referencia"_s);
    m_filtro->addWidget(m_referencia, 1, 3);
    for (int i = 0; i < 3; ++i) {
        m_filtro->addWidget(m_familias->etiqueta(static_cast<std::size_t>(i)), 2 + i, 0);
        m_filtro->addWidget(m_familias->selector(static_cast<std::size_t>(i)), 2 + i, 1, 1, 3);
    }
    // Levels that the company does not use leave their place at the foot.
    m_filtro->setRowStretch(9, 1);
}

void frmBusqueda_Articulos_1::montarRejilla()
{
    const nv::ColumnaRejilla oculta{{}, 0, Qt::AlignLeft, true};
    rejilla()->setColumnas(
        {{u"Código"_s, 800}, {u"Descripción"_s, 4100}, oculta, oculta, oculta, {u"Cód. Barras"_s, 300}});
    rejilla()->alPulsar = [this](QKeyEvent *evento) {
        if (evento->key() == Qt::Key_PageDown)
            m_carga->alPaginar();
        if (evento->key() != Qt::Key_Up || rejilla()->filaActual() > 1)
            return false;
        volverACriterios();
        return true;
    };
}

void frmBusqueda_Articulos_1::conectar()
{
    connect(m_aceptar, &QPushButton::clicked, this, &frmBusqueda_Articulos_1::Aceptar);
    connect(m_cancelar, &QPushButton::clicked, this, &frmBusqueda_Articulos_1::reject);
    connect(rejilla(), &nv::Rejilla::DobleClic, this, [this](int fila, int) {
        if (fila > 0)
            Aceptar();
    });
    connect(rejilla(), &nv::Rejilla::FilaCambiada, this, &frmBusqueda_Articulos_1::refrescarDetalles);
    connect(m_familias, &nv::CascadaFamilias::Buscar, this, &frmBusqueda_Articulos_1::EjecutarBusqueda);
    connect(m_referencia, &nvTextBox::Intro, this, [this](bool &tratada) {
        // Without family levels there is no later field whose Enter would search.
        if (!m_familias->fijas() && m_familias->hayNiveles())
            return;
        tratada = true;
        EjecutarBusqueda();
    });
    // Queued: it is found out while the grid scrolls, no time for a box.
    connect(
        m_carga, &nv::CargaIncremental::Fallo, this,
        [this](const QString &descripcion) {
            nv::mensajes::mostrar(this, tituloBusqueda(), descripcion, nv::mensajes::Icono::Critico);
        },
        Qt::QueuedConnection);
    const auto atajo = [this](Qt::Key tecla, void (frmBusqueda_Articulos_1::*accion)()) {
        auto *nuevo = new QShortcut(tecla, this);
        nuevo->setAutoRepeat(false);
        connect(nuevo, &QShortcut::activated, this, accion);
    };
    atajo(Qt::Key_F6, &frmBusqueda_Articulos_1::alPulsarF6);
    atajo(Qt::Key_F9, &frmBusqueda_Articulos_1::alPulsarF9);
}

nv::ColumnasEleccion frmBusqueda_Articulos_1::columnasEleccion() const
{
    return {CodigoArticulo, DescripcionArticulo};
}

void frmBusqueda_Articulos_1::ordenarTabulacion(bool rejillaPrimero)
{
    QWidgetList orden{m_nombre, m_codigo, m_proveedor, m_referencia};
    for (std::size_t i = 0; i < 3; ++i)
        orden.append(m_familias->selector(i));
    orden.insert(rejillaPrimero ? 0 : orden.size(), rejilla());
    orden.append({m_aceptar, m_cancelar, m_panel->findChild<QWidget *>(u"txtObserv"_s)});
    for (qsizetype i = 1; i < orden.size(); ++i)
        setTabOrder(orden[i - 1], orden[i]);
}

void frmBusqueda_Articulos_1::aplicarVista()
{
    const Vista &vista = m_extendida ? VistaExtendida : VistaSencilla;
    const auto px = [this](int twips) { return nv::twips::aPixeles(twips, this); };
    setFixedSize(px(vista.ancho), px(Alto));
    m_fraFiltro->setGeometry(px(Margen), px(RejillaEntera.arriba), px(vista.anchoRejilla), px(Filtro));
    m_aceptar->setGeometry(px(vista.aceptar), px(Botones.arriba), px(AnchoBoton), px(Botones.alto));
    m_cancelar->setGeometry(px(vista.cancelar), px(Botones.arriba), px(AnchoBoton), px(Botones.alto));
    const int linea = 2 * Margen + vista.anchoRejilla;
    const int panel = linea + 2 * Margen;
    const int altoPanel = Alto - RejillaEntera.arriba - Margen;
    m_divisor->setGeometry(px(linea), px(RejillaEntera.arriba), px(30), px(altoPanel));
    if (m_extendida)
        m_panel->setGeometry(px(panel), px(RejillaEntera.arriba), px(vista.ancho - panel - 2 * Margen), px(altoPanel));
    m_divisor->setVisible(m_extendida);
    m_panel->setVisible(m_extendida);
    rejilla()->setColumnaOculta(CodigoBarras, m_extendida);
    mostrarCriterios(m_criteriosVisibles);
}

void frmBusqueda_Articulos_1::mostrarCriterios(bool visibles)
{
    m_criteriosVisibles = visibles;
    m_fraFiltro->setVisible(visibles);
    const Banda &banda = visibles ? RejillaBajoCriterios : RejillaEntera;
    const auto px = [this](int twips) { return nv::twips::aPixeles(twips, this); };
    rejilla()->setGeometry(px(Margen), px(banda.arriba),
                           px((m_extendida ? VistaExtendida : VistaSencilla).anchoRejilla), px(banda.alto));
}

/// Centred between the sides of the screen.
void frmBusqueda_Articulos_1::centrar(int y)
{
    const QRect pantalla = screen()->availableGeometry();
    move(pantalla.left() + (pantalla.width() - frameGeometry().width()) / 2, y);
}

/// In the middle of the opener's window.
int frmBusqueda_Articulos_1::alturaInicial() const
{
    const QRect pantalla = screen()->availableGeometry();
    const QRect abridor = parentWidget() ? parentWidget()->window()->frameGeometry() : pantalla;
    return std::clamp(abridor.center().y() - height() / 2, pantalla.top(),
                      std::max(pantalla.top(), pantalla.bottom() - height()));
}
