#include "platform/pickers/nvFamilia.h"
#include "platform/pickers/nvMarca.h"
#include "platform/pickers/nvProveedor.h"
#include "platform/widgets/Foco.h"
#include "platform/widgets/Twips.h"
#include "platform/widgets/nvTextBox.h"
#include "search/frmBusqueda_Articulos_4.h"
#include "search/piezas/CascadaFamilias.h"
#include "search/piezas/MarcasX.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// Twips.
constexpr int Margen = 75;
constexpr int MargenesCelda = 180;
constexpr int PorDefecto = 960; ///< a column without a width
constexpr int Alto = 7200;

QPushButton *boton(const QString &texto, const QString &nombre, QWidget *padre)
{
    auto *nuevo = new QPushButton(texto, padre);
    nuevo->setObjectName(nombre);
    nuevo->setAutoDefault(false);
    return nuevo;
}

std::vector<nv::ColumnaRejilla> columnas()
{
    return {{{}, 300, Qt::AlignCenter},
            {u"Código"_s, 1000, Qt::AlignCenter},
            {u"Descripción"_s, 5800},
            {u"Cód. Barras"_s, 300, Qt::AlignCenter}};
}

/// Wide enough for a whole EAN also where letters are large.
void ensanchar(nv::ColumnaRejilla &columna, const nv::Rejilla *rejilla)
{
    const int ean = rejilla->fontMetrics().horizontalAdvance(QString(13, u'0'));
    columna.twips = std::max(columna.twips, nv::twips::dePixeles(ean, rejilla) + MargenesCelda);
}

/// In pixels, with all columns on screen.
int anchura(const std::vector<nv::ColumnaRejilla> &columnas, const nv::Rejilla *rejilla)
{
    int suma = rejilla->verticalScrollBar()->sizeHint().width() + 2 * rejilla->frameWidth() +
               2 * nv::twips::aPixeles(Margen, rejilla);
    for (const nv::ColumnaRejilla &columna : columnas)
        suma += nv::twips::aPixeles(columna.twips > 0 ? columna.twips : PorDefecto, rejilla);
    return suma;
}

} // namespace

frmBusqueda_Articulos_4::frmBusqueda_Articulos_4(QWidget *padre)
    : frmBusqueda_Articulos_4(padre, columnas())
{}

frmBusqueda_Articulos_4::frmBusqueda_Articulos_4(QWidget *padre, std::vector<nv::ColumnaRejilla> columnas)
    : BusquedaBase(padre)
    , m_filtro(new QGridLayout)
    , m_nombre(new nvTextBox(this))
    , m_proveedor(new nvProveedor(this))
    , m_familias(new nv::CascadaFamilias(this))
    , m_marca(new nvMarca(this))
    , m_marcas(new nv::MarcasX(rejilla(), Marca))
    , m_marcarTodos(boton(u"Marcar Todos"_s, u"cmdMarcar"_s, this))
    , m_desmarcarTodos(boton(u"Desmarcar Todos"_s, u"cmdDesmarcar"_s, this))
    , m_aceptar(boton(u"&Aceptar"_s, u"cmdAceptar"_s, this))
    , m_cancelar(boton(u"&Cancelar"_s, u"cmdCancelar"_s, this))
{
    setWindowTitle(u"Busqueda de Artículos"_s);
    rejilla()->setObjectName(u"vsArt"_s);
    ensanchar(columnas[CodigoBarras], rejilla());
    rejilla()->setColumnas(columnas);
    montarCriterios();
    auto *todo = new QVBoxLayout(this);
    const int margen = nv::twips::aPixeles(Margen, this);
    todo->setContentsMargins(margen, margen, margen, margen);
    todo->setSpacing(margen);
    todo->addLayout(m_filtro);
    todo->addWidget(rejilla(), 1);
    todo->addLayout(botones());
    conectar();
    ordenarTabulacion(false);
    const QSize natural(anchura(columnas, rejilla()), nv::twips::aPixeles(Alto, this));
    resize(natural.boundedTo(screen()->availableGeometry().size()));
}

void frmBusqueda_Articulos_4::montarCriterios()
{
    m_nombre->setObjectName(u"txtNombre"_s);
    m_proveedor->setObjectName(u"txtProveedor"_s);
    m_marca->setObjectName(u"txtMarca"_s);
    m_filtro->setHorizontalSpacing(nv::twips::aPixeles(90, this));
    m_filtro->setVerticalSpacing(nv::twips::aPixeles(45, this));
    m_filtro->setColumnStretch(2, 1);
    anadirCriterio(u"lblNombre"_s, u"Descripción:"_s, m_nombre);
    anadirCriterio(u"lblProveedor"_s, u"Proveedor:"_s, m_proveedor);
    for (std::size_t i = 0; i < 3; ++i) {
        const int fila = m_filtro->rowCount();
        m_filtro->addWidget(m_familias->etiqueta(i), fila, 0);
        m_filtro->addWidget(m_familias->selector(i), fila, 1, 1, 2);
    }
    anadirCriterio(u"lblMarca"_s, u"Marca:"_s, m_marca);
}

void frmBusqueda_Articulos_4::anadirCriterio(const QString &nombreRotulo, const QString &rotulo, QWidget *campo,
                                             QWidget *nota)
{
    auto *etiqueta = new QLabel(rotulo, this);
    etiqueta->setObjectName(nombreRotulo);
    etiqueta->setBuddy(campo);
    campo->setAccessibleName(rotulo.chopped(1));
    const int fila = m_filtro->rowCount();
    m_filtro->addWidget(etiqueta, fila, 0);
    m_filtro->addWidget(campo, fila, 1, 1, nota ? 1 : 2);
    if (nota)
        m_filtro->addWidget(nota, fila, 2);
    ordenarTabulacion(false);
}

QHBoxLayout *frmBusqueda_Articulos_4::botones()
{
    auto *fila = new QHBoxLayout;
    auto *teclas = new QLabel(u"F9 - Buscar"_s, this);
    teclas->setObjectName(u"lblTeclas"_s);
    teclas->setForegroundRole(QPalette::PlaceholderText);
    fila->addWidget(m_marcarTodos);
    fila->addWidget(m_desmarcarTodos);
    fila->addWidget(teclas);
    fila->addStretch();
    fila->addWidget(m_aceptar);
    fila->addWidget(m_cancelar);
    return fila;
}

void frmBusqueda_Articulos_4::conectar()
{
    connect(m_marcarTodos, &QPushButton::clicked, m_marcas, &nv::MarcasX::marcarTodos);
    connect(m_desmarcarTodos, &QPushButton::clicked, m_marcas, &nv::MarcasX::desmarcarTodos);
    connect(m_aceptar, &QPushButton::clicked, this, &frmBusqueda_Articulos_4::Aceptar);
    connect(m_cancelar, &QPushButton::clicked, this, &frmBusqueda_Articulos_4::reject);
    connect(m_proveedor, &nv::SelectorCodigo::Intro, this, [this](bool &tratada) {
        tratada = true;
        Cargar();
    });
    // Here the last family moves on, too.
    connect(m_familias, &nv::CascadaFamilias::Buscar, this, [this] {
        if (QWidget *actual = focusWidget())
            nv::foco::adelante(actual);
    });
    rejilla()->alPulsar = [this](QKeyEvent *evento) {
        if (evento->key() != Qt::Key_Up || rejilla()->filaActual() != 1)
            return false;
        m_nombre->setFocus(Qt::BacktabFocusReason);
        return true;
    };
    auto *buscar = new QShortcut(Qt::Key_F9, this);
    buscar->setAutoRepeat(false);
    connect(buscar, &QShortcut::activated, this, &frmBusqueda_Articulos_4::Cargar);
}

void frmBusqueda_Articulos_4::ordenarTabulacion(bool rejillaPrimero)
{
    QWidgetList orden;
    for (int fila = 0; fila < m_filtro->rowCount(); ++fila)
        if (const QLayoutItem *campo = m_filtro->itemAtPosition(fila, 1))
            orden.append(campo->widget());
    orden.insert(rejillaPrimero ? 0 : orden.size(), rejilla());
    orden.append({m_marcarTodos, m_desmarcarTodos, m_aceptar, m_cancelar});
    for (qsizetype i = 1; i < orden.size(); ++i)
        setTabOrder(orden[i - 1], orden[i]);
}
