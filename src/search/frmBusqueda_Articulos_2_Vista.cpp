#include "platform/pickers/nvAlmacenCons.h"
#include "platform/pickers/nvFamilia.h"
#include "platform/pickers/nvProveedor.h"
#include "platform/widgets/Anclaje.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/Rejilla.h"
#include "platform/widgets/Twips.h"
#include "platform/widgets/nvTextBox.h"
#include "search/frmBusqueda_Articulos_2.h"
#include "search/frmBusqueda_Articulos_2_Listado.h"
#include "search/piezas/CascadaFamilias.h"
#include "search/piezas/FranjaMensaje.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// Twips.
constexpr int Ancho = 11400;
constexpr int Alto = 7500;
constexpr int Margen = 75;
constexpr int AltoPestanas = 2550;
constexpr int AnchoBoton = 1140;
constexpr int AltoBoton = 360;
constexpr int AnchoTodos = 1900;

QPushButton *boton(const QString &texto, const QString &nombre, QWidget *padre)
{
    auto *nuevo = new QPushButton(texto, padre);
    nuevo->setObjectName(nombre);
    nuevo->setAutoDefault(false);
    return nuevo;
}

QLabel *rotulo(const QString &texto, QWidget *campo, QWidget *padre)
{
    auto *etiqueta = new QLabel(texto, padre);
    etiqueta->setBuddy(campo);
    campo->setAccessibleName(texto.chopped(1));
    return etiqueta;
}

} // namespace

frmBusqueda_Articulos_2::frmBusqueda_Articulos_2(QWidget *padre)
    : BusquedaBase(padre)
    , m_pestanas(new QTabWidget(this))
    , m_todos(new QCheckBox(u"Seleccionar todos"_s, this))
    , m_teclas(new QLabel(u"F9 - Buscar / F11 - Imprimir Búsqueda"_s, this))
    , m_aceptar(boton(u"&Aceptar"_s, u"cmdAceptar"_s, this))
    , m_cancelar(boton(u"&Cancelar"_s, u"cmdCancelar"_s, this))
    , m_listado(new nv::ListadoPrecios(rejilla()))
    , m_franja(new nv::FranjaMensaje(rejilla()))
{
    m_pestanas->setObjectName(u"SSTab"_s);
    m_pestanas->addTab(montarCriterios(), u"Búsqueda"_s);
    m_pestanas->addTab(montarAlmacenes(), u"Almacenes"_s);
    m_todos->setObjectName(u"chkCheck"_s);
    m_teclas->setObjectName(u"lblTeclas"_s);
    m_teclas->setForegroundRole(QPalette::PlaceholderText);
    setSizeGripEnabled(true);
    const auto px = [this](int twips) { return nv::twips::aPixeles(twips, this); };
    resize(px(Ancho), px(Alto));
    setMinimumSize(px(Ancho), px(AltoPestanas + 2500));
    colocar();
    conectar();
    conectarCriterios();
    conectarRejilla();
    ordenarTabulacion(false);
}

QWidget *frmBusqueda_Articulos_2::montarCriterios()
{
    auto *pagina = new QWidget(this);
    m_nombre = new nvTextBox(pagina);
    m_codigo = new nvTextBox(pagina);
    m_proveedor = new nvProveedor(pagina);
    m_referencia = new nvTextBox(pagina);
    m_familias = new nv::CascadaFamilias(pagina);
    m_alternativo = new nvTextBox(pagina);
    m_nombre->setObjectName(u"txtNombre"_s);
    m_codigo->setObjectName(u"txtCodigo"_s);
    m_proveedor->setObjectName(u"txtProveedor"_s);
    m_referencia->setObjectName(u"txtReferencia"_s);
    m_alternativo->setObjectName(u"txtAlternativo1"_s);
    m_rotuloAlternativo = rotulo(u"Alternativo:"_s, m_alternativo, pagina);
    m_rotuloAlternativo->setObjectName(u"lblAlternativo1"_s);
    m_rotuloAlternativo->setTextFormat(Qt::PlainText);

    auto *campos = new QGridLayout(pagina);
    campos->setHorizontalSpacing(nv::twips::aPixeles(90, this));
    campos->setVerticalSpacing(nv::twips::aPixeles(45, this));
    campos->setColumnStretch(1, 2);
    campos->setColumnStretch(3, 1);
    campos->addWidget(rotulo(u"Descripción:"_s, m_nombre, pagina), 0, 0);
    campos->addWidget(m_nombre, 0, 1);
    campos->addWidget(rotulo(u"Código:"_s, m_codigo, pagina), 0, 2);
    campos->addWidget(m_codigo, 0, 3);
    campos->addWidget(rotulo(u"Proveedor:"_s, m_proveedor, pagina), 1, 0);
    campos->addWidget(m_proveedor, 1, 1);
    campos->addWidget(rotulo(u"Ref.:"_s, m_referencia, pagina), 1, 2);
    m_referencia->setAccessibleName(u"Referencia"_s);
    campos->addWidget(m_referencia, 1, 3);
    for (int i = 0; i < 3; ++i) {
        campos->addWidget(m_familias->etiqueta(static_cast<std::size_t>(i)), 2 + i, 0);
        campos->addWidget(m_familias->selector(static_cast<std::size_t>(i)), 2 + i, 1);
    }
    campos->addWidget(m_rotuloAlternativo, 2, 2);
    campos->addWidget(m_alternativo, 2, 3);
    // Levels that the company does not use leave their place at the foot.
    campos->setRowStretch(9, 1);
    return pagina;
}

QWidget *frmBusqueda_Articulos_2::montarAlmacenes()
{
    auto *pagina = new QWidget(this);
    m_almacenes = new nvAlmacenCons(pagina);
    m_almacenes->setObjectName(u"txtAlmacenes"_s);
    auto *columna = new QVBoxLayout(pagina);
    columna->addWidget(m_almacenes);
    return pagina;
}

/// Called once more at load, when it is known whether rows are ticked: the hint then makes room for the box.
void frmBusqueda_Articulos_2::colocar()
{
    const auto px = [this](int twips) { return nv::twips::aPixeles(twips, this); };
    const int pie = Alto - Margen - AltoBoton;
    const int rejillaArriba = Margen + AltoPestanas + Margen;
    const int util = Ancho - 2 * Margen;
    m_pestanas->setGeometry(px(Margen), px(Margen), px(util), px(AltoPestanas));
    rejilla()->setGeometry(px(Margen), px(rejillaArriba), px(util), px(pie - Margen - rejillaArriba));
    m_todos->setGeometry(px(Margen), px(pie), px(AnchoTodos), px(AltoBoton));
    const int teclas = m_todos->isVisibleTo(this) ? 2 * Margen + AnchoTodos : Margen;
    // Leaves the corner to the size grip.
    const int cancelar = Ancho - AnchoBoton - 4 * Margen;
    const int aceptar = cancelar - AnchoBoton - Margen;
    m_teclas->setGeometry(px(teclas), px(pie), px(aceptar - teclas - Margen), px(AltoBoton));
    m_aceptar->setGeometry(px(aceptar), px(pie), px(AnchoBoton), px(AltoBoton));
    m_cancelar->setGeometry(px(cancelar), px(pie), px(AnchoBoton), px(AltoBoton));

    auto *anclaje = findChild<Anclaje *>();
    if (!anclaje)
        anclaje = new Anclaje(this);
    anclaje->registrar(m_pestanas, Qt::LeftEdge | Qt::TopEdge | Qt::RightEdge);
    anclaje->registrar(rejilla(), Qt::LeftEdge | Qt::TopEdge | Qt::RightEdge | Qt::BottomEdge);
    anclaje->registrar(m_todos, Qt::LeftEdge | Qt::BottomEdge);
    anclaje->registrar(m_teclas, Qt::LeftEdge | Qt::RightEdge | Qt::BottomEdge);
    anclaje->registrar(m_aceptar, Qt::RightEdge | Qt::BottomEdge);
    anclaje->registrar(m_cancelar, Qt::RightEdge | Qt::BottomEdge);
}

void frmBusqueda_Articulos_2::conectar()
{
    connect(m_aceptar, &QPushButton::clicked, this, &frmBusqueda_Articulos_2::Aceptar);
    connect(m_cancelar, &QPushButton::clicked, this, &frmBusqueda_Articulos_2::reject);
    connect(m_todos, &QCheckBox::toggled, m_listado, &nv::ListadoPrecios::marcarTodas);
    connect(m_pestanas, &QTabWidget::currentChanged, this, &frmBusqueda_Articulos_2::alCambiarPestana);
    // Queued: it is found out while the grid scrolls, no time for a box.
    connect(
        m_listado, &nv::ListadoPrecios::Fallo, this,
        [this](const QString &descripcion) {
            nv::mensajes::mostrar(this, tituloBusqueda(), descripcion, nv::mensajes::Icono::Critico);
        },
        Qt::QueuedConnection);
    const auto atajo = [this](Qt::Key tecla, void (frmBusqueda_Articulos_2::*accion)()) {
        auto *nuevo = new QShortcut(tecla, this);
        nuevo->setAutoRepeat(false);
        connect(nuevo, &QShortcut::activated, this, accion);
    };
    atajo(Qt::Key_F9, &frmBusqueda_Articulos_2::EjecutarBusqueda);
    atajo(Qt::Key_F11, &frmBusqueda_Articulos_2::Imprimir_Busqueda);
}

void frmBusqueda_Articulos_2::conectarCriterios()
{
    connect(m_familias, &nv::CascadaFamilias::Buscar, this, &frmBusqueda_Articulos_2::EjecutarBusqueda);
    for (nvTextBox *caja : {m_referencia, m_alternativo})
        connect(caja, &nvTextBox::Intro, this, [this](bool &tratada) {
            if (!m_familias->fijas())
                return;
            tratada = true;
            EjecutarBusqueda();
        });
    m_alternativo->installEventFilter(this);
}

/// The alternative field as a list: F3 chooses, Delete and Backspace clear, nothing else changes it.
bool frmBusqueda_Articulos_2::eventFilter(QObject *objeto, QEvent *evento)
{
    const bool deTecla = evento->type() == QEvent::ShortcutOverride || evento->type() == QEvent::KeyPress;
    if (objeto != m_alternativo || !m_conLista || !deTecla)
        return BusquedaBase::eventFilter(objeto, evento);
    auto *tecla = static_cast<QKeyEvent *>(evento);
    const bool elige = tecla->key() == Qt::Key_F3;
    if (!elige && tecla->key() != Qt::Key_Delete && tecla->key() != Qt::Key_Backspace)
        return false;
    evento->accept();
    if (evento->type() == QEvent::ShortcutOverride || tecla->isAutoRepeat())
        return true;
    if (elige)
        elegirAlternativos();
    else
        ponerAlternativos({}, {});
    return true;
}

void frmBusqueda_Articulos_2::conectarRejilla()
{
    rejilla()->alPulsar = [this](QKeyEvent *evento) {
        if (evento->key() == Qt::Key_PageDown)
            m_listado->alPaginar();
        if (evento->key() != Qt::Key_Up || rejilla()->filaActual() != 1)
            return false;
        m_pestanas->setCurrentIndex(0);
        m_nombre->setFocus(Qt::BacktabFocusReason);
        return true;
    };
    connect(rejilla(), &nv::Rejilla::Clic, this, [this](int fila, int columna) {
        if (columna == nv::ListadoPrecios::Marca)
            m_listado->alternarMarca(fila);
    });
    connect(rejilla(), &nv::Rejilla::Espacio, this, [this] {
        if (MultiResultado)
            m_listado->alternarMarca(rejilla()->filaActual());
    });
    connect(rejilla(), &nv::Rejilla::DobleClic, this, [this](int fila, int columna) {
        if (fila < 1)
            return;
        if (!MultiResultado)
            Aceptar();
        // On the tick itself its first click has done it.
        else if (columna != nv::ListadoPrecios::Marca)
            m_listado->alternarMarca(fila);
    });
}

void frmBusqueda_Articulos_2::ordenarTabulacion(bool rejillaPrimero)
{
    QWidgetList orden{m_nombre, m_codigo, m_proveedor, m_referencia};
    for (std::size_t i = 0; i < 3; ++i)
        orden.append(m_familias->selector(i));
    orden.append({m_alternativo, m_almacenes});
    orden.insert(rejillaPrimero ? 0 : orden.size(), rejilla());
    orden.append({m_todos, m_aceptar, m_cancelar, m_pestanas->tabBar()});
    for (qsizetype i = 1; i < orden.size(); ++i)
        setTabOrder(orden[i - 1], orden[i]);
}
