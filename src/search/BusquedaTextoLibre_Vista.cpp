#include "platform/widgets/Botonera.h"
#include "platform/widgets/Twips.h"
#include "platform/widgets/nvTextBox.h"
#include "search/BusquedaTextoLibre.h"
#include "search/piezas/FranjaMensaje.h"
#include "search/piezas/Marcas.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

// In twips.
constexpr int Margen = 120;
constexpr int Alto = 7200;
constexpr int AnchoMinimo = 6000;
constexpr int AltoMinimo = 3000;

/// The widths of these lists are made for a small letter: one in which a whole EAN fits its column.
QFont letraDeLista(const QWidget *lista)
{
    constexpr int anchoEan = 1500; // twips
    constexpr qreal minima = 7;
    QFont letra = lista->font();
    const int margenes = 2 * (lista->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, lista) + 1);
    const int sitio = twips::aPixeles(anchoEan, lista) - margenes - 1;
    while (letra.pointSizeF() > minima && QFontMetrics(letra).horizontalAdvance(u"0000000000000"_s) > sitio)
        letra.setPointSizeF(letra.pointSizeF() - 0.5);
    return letra;
}

bool sinModificar(const QKeyEvent &tecla)
{
    return (tecla.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

} // namespace

BusquedaTextoLibre::BusquedaTextoLibre(QWidget *padre, ConfiguracionTextoLibre configuracion)
    : BusquedaBase(padre)
    , m_configuracion(std::move(configuracion))
    , m_caja(nuevaCaja(m_configuracion.caja, u"Descripción"_s))
    , m_criterios(new QHBoxLayout)
    , m_marcas(new Marcas(rejilla(), 0))
    , m_franja(new FranjaMensaje(rejilla()))
{
    rejilla()->setFont(letraDeLista(rejilla()));
    m_configuracion.columnas.front().twips = m_marcas->anchoColumna();
    ponerColumnas();
    m_marcas->setVisibles(false);
    montar();
    conectarRejilla();
}

/// Hidden one by one afterwards: a last column that is hidden while widths are given out keeps its place on screen.
void BusquedaTextoLibre::ponerColumnas()
{
    std::vector<ColumnaRejilla> visibles = m_configuracion.columnas;
    for (ColumnaRejilla &columna : visibles)
        columna.oculta = false;
    rejilla()->setColumnas(visibles);
    for (std::size_t c = 0; c < visibles.size(); ++c)
        if (m_configuracion.columnas[c].oculta)
            rejilla()->setColumnaOculta(static_cast<int>(c), true);
}

void BusquedaTextoLibre::montar()
{
    m_criterios->setSpacing(twips::aPixeles(90, this));
    m_criterios->addWidget(m_caja, 1);
    auto *columna = new QVBoxLayout(this);
    const int margen = twips::aPixeles(Margen, this);
    columna->setContentsMargins(margen, margen, margen, margen);
    columna->setSpacing(margen);
    columna->addLayout(m_criterios);
    columna->addWidget(rejilla(), 1);
    columna->addLayout(botonera(
        this, [this] { Aceptar(); }, [this] { reject(); }));
    setMinimumSize(twips::aPixeles(AnchoMinimo, this), twips::aPixeles(AltoMinimo, this));
    setSizeGripEnabled(true);
}

void BusquedaTextoLibre::conectarRejilla()
{
    connect(rejilla(), &Rejilla::DobleClic, this, &BusquedaTextoLibre::Aceptar);
    connect(rejilla(), &Rejilla::Caracter, this, &BusquedaTextoLibre::escribirEnCaja);
    connect(rejilla(), &Rejilla::Espacio, this, [this] {
        if (MultiResultado)
            m_marcas->alternar(rejilla()->filaActual());
        else
            escribirEnCaja(u" "_s);
    });
    connect(rejilla(), &Rejilla::Clic, this, [this](int fila, int columna) {
        if (MultiResultado && columna == 0)
            m_marcas->alternar(fila);
    });
    rejilla()->alPulsar = [this](QKeyEvent *tecla) {
        // On the heading, where Down from the box stops, Up goes back too.
        if (tecla->key() != Qt::Key_Up || !sinModificar(*tecla) || rejilla()->filaActual() > 1)
            return false;
        volverACaja();
        return true;
    };
}

nvTextBox *BusquedaTextoLibre::nuevaCaja(const QString &nombre, const QString &accesible)
{
    auto *nueva = new nvTextBox(this);
    nueva->setObjectName(nombre);
    nueva->setAccessibleName(accesible);
    nueva->setMayusculas(m_configuracion.mayusculas);
    nueva->installEventFilter(this);
    ordenar(nueva);
    return nueva;
}

void BusquedaTextoLibre::buscarConIntro(const nvTextBox *caja)
{
    connect(caja, &nvTextBox::Intro, this, [this](bool &tratada) {
        tratada = true;
        buscarEscrito();
    });
}

bool BusquedaTextoLibre::eventFilter(QObject *objeto, QEvent *evento)
{
    if (evento->type() == QEvent::KeyPress && qobject_cast<nvTextBox *>(objeto)) {
        const auto *tecla = static_cast<QKeyEvent *>(evento);
        if (tecla->key() == Qt::Key_Down && sinModificar(*tecla)) {
            rejilla()->setFilaActual(0);
            rejilla()->setFocus();
            return true;
        }
    }
    return BusquedaBase::eventFilter(objeto, evento);
}

void BusquedaTextoLibre::volverACaja()
{
    m_caja->setFocus();
    m_caja->selectAll();
}

void BusquedaTextoLibre::escribirEnCaja(const QString &texto)
{
    QString mayusculas = texto;
    for (QChar &c : mayusculas)
        c = c.toUpper();
    // Focus first: entering the box selects what it holds.
    m_caja->setFocus();
    m_caja->setText(mayusculas);
}

void BusquedaTextoLibre::ordenarTabulacion(bool rejillaPrimero)
{
    const QWidgetList lista{rejilla(), m_marcas->todas()};
    const QWidgetList botones{findChild<QPushButton *>(u"cmdAceptar"_s), findChild<QPushButton *>(u"cmdCancelar"_s)};
    const QWidgetList orden = (rejillaPrimero ? lista + m_campos : m_campos + lista) + botones;
    for (qsizetype i = 1; i < orden.size(); ++i)
        setTabOrder(orden[i - 1], orden[i]);
}

/// As wide as the columns, within the screen, and in its middle.
void BusquedaTextoLibre::dimensionar()
{
    ordenarTabulacion(false);
    const QRect pantalla = screen()->availableGeometry();
    const int bordes = rejilla()->verticalScrollBar()->sizeHint().width() + 2 * rejilla()->frameWidth() +
                       2 * twips::aPixeles(Margen, this);
    const QSize natural(rejilla()->horizontalHeader()->length() + bordes, twips::aPixeles(Alto, this));
    // The whole width before a column is cut; the height leaves room for the title bar.
    const QSize sitio(pantalla.width(), pantalla.height() * 95 / 100);
    resize(natural.boundedTo(sitio).expandedTo(minimumSize()));
    move(pantalla.center() - rect().center());
}

} // namespace nv
