#include "Ventana.h"

#include "Base.h"
#include "PanelAjustes.h"
#include "PanelEstado.h"
#include "SelectorCliente.h"
#include "control/nvArticulo.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/Rejilla.h"
#include "platform/widgets/nvCheckBox.h"
#include "platform/widgets/nvTextBox.h"

#include <QComboBox>
#include <QDir>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollArea>
#include <QSplitter>
#include <QStatusBar>
#include <QTabWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace nv {

Ventana::Ventana(QWidget *padre)
    : QMainWindow(padre)
{
    setWindowTitle(u"Mostrador"_s);
    setObjectName(u"Mostrador"_s);
    auto *reparto = new QSplitter;
    reparto->setChildrenCollapsible(false);
    m_estado = new PanelEstado;
    m_ajustes = new PanelAjustes;
    reparto->addWidget(crearDocumento());
    reparto->addWidget(crearLateral());
    reparto->setStretchFactor(0, 1);
    reparto->setSizes({740, 440});
    setCentralWidget(reparto);
    crearMenu();
    connect(m_ajustes, &PanelAjustes::ArticuloCaducado, this, &Ventana::renovarArticulo);
    connect(m_ajustes, &PanelAjustes::ModoEscaner, this, [this](bool activo) {
        avisar(activo ? u"Modo escáner: cada artículo leído es una línea."_s : QString());
        siguienteArticulo();
    });
    actualizarTotal();
    resize(1180, 720);
    setBase(nullptr);
}

Ventana::~Ventana()
{
    // The box speaks to the panels while it goes.
    m_estado->setConexion(nullptr);
    retirar(std::exchange(m_articulo, nullptr));
}

QWidget *Ventana::crearDocumento()
{
    m_documento = new QWidget;
    auto *columna = new QVBoxLayout(m_documento);
    columna->setContentsMargins(12, 12, 6, 12);
    columna->setSpacing(10);
    columna->addWidget(crearCabecera());
    columna->addWidget(crearEntrada());
    m_lineas = new Rejilla;
    m_lineas->setObjectName(u"vsLineas"_s);
    m_lineas->setAccessibleName(u"Líneas del documento"_s);
    m_lineas->setColumnas({{u"Código"_s, 1000, Qt::AlignRight},
                           {u"Descripción"_s, 5400, Qt::AlignLeft},
                           {u"Unidades"_s, 1000, Qt::AlignRight},
                           {u"Precio"_s, 1100, Qt::AlignRight},
                           {u"Importe"_s, 1200, Qt::AlignRight}});
    m_lineas->alPulsar = [this](QKeyEvent *evento) {
        if (evento->key() != Qt::Key_Delete)
            return false;
        quitarLinea();
        return true;
    };
    columna->addWidget(m_lineas, 1);
    columna->addWidget(crearPie());
    return m_documento;
}

QWidget *Ventana::crearCabecera()
{
    auto *cabecera = new QWidget;
    auto *fila = new QHBoxLayout(cabecera);
    fila->setContentsMargins(0, 0, 0, 0);
    m_cliente = new SelectorCliente;
    m_cliente->setObjectName(u"txtCliente"_s);
    m_cliente->caja()->setAccessibleName(u"Cliente"_s);
    auto *tituloCliente = new QLabel(u"&Cliente:"_s);
    tituloCliente->setBuddy(m_cliente->caja());
    m_almacen = new QComboBox;
    m_almacen->setObjectName(u"cboAlmacen"_s);
    m_almacen->setAccessibleName(u"Almacén"_s);
    m_almacen->setMinimumContentsLength(22);
    auto *tituloAlmacen = new QLabel(u"Al&macén:"_s);
    tituloAlmacen->setBuddy(m_almacen);
    fila->addWidget(tituloCliente);
    fila->addWidget(m_cliente, 1);
    fila->addSpacing(8);
    fila->addWidget(tituloAlmacen);
    fila->addWidget(m_almacen);
    connect(m_cliente, &SelectorCodigo::Cambio, this, [this] {
        if (m_articulo)
            m_articulo->Cliente = m_cliente->Codigo();
    });
    connect(m_almacen, &QComboBox::currentIndexChanged, this, &Ventana::elegirAlmacen);
    return cabecera;
}

QWidget *Ventana::crearEntrada()
{
    auto *marco = new QFrame;
    marco->setFrameShape(QFrame::StyledPanel);
    auto *rejilla = new QGridLayout(marco);
    m_tituloArticulo = new QLabel(u"A&rtículo:"_s);
    m_lugarArticulo = new QHBoxLayout;
    m_unidades = new nvTextBox;
    m_unidades->setObjectName(u"txtUnidades"_s);
    m_unidades->setAccessibleName(u"Unidades"_s);
    m_unidades->setNumerico(true);
    m_unidades->setDecimales(3);
    m_unidades->setMaxLength(9);
    m_unidades->setFixedWidth(90);
    m_unidades->setText(u"1"_s);
    auto *tituloUnidades = new QLabel(u"&Unidades:"_s);
    tituloUnidades->setBuddy(m_unidades);
    m_precio = new QLabel;
    m_precio->setObjectName(u"lblPrecio"_s);
    m_precio->setMinimumWidth(110);
    m_anadir = new QPushButton(u"Aña&dir"_s);
    m_anadir->setObjectName(u"cmdAnadir"_s);
    auto *ayuda = new QLabel(u"F3 busca · .referencia · *ref. cliente · +PLU · /barras"_s);
    ayuda->setForegroundRole(QPalette::PlaceholderText);

    rejilla->addWidget(m_tituloArticulo, 0, 0);
    rejilla->addLayout(m_lugarArticulo, 0, 1, 1, 5);
    rejilla->addWidget(tituloUnidades, 1, 0);
    rejilla->addWidget(m_unidades, 1, 1);
    rejilla->addWidget(m_precio, 1, 2);
    rejilla->addWidget(m_ajustes->casillaEscaner(), 1, 3);
    rejilla->addWidget(ayuda, 1, 4, Qt::AlignRight);
    rejilla->addWidget(m_anadir, 1, 5);
    rejilla->setColumnStretch(3, 1);
    connect(m_unidades, &nvTextBox::Intro, this, [this](bool &tratada) {
        tratada = true;
        anadirActual();
    });
    connect(m_anadir, &QPushButton::clicked, this, &Ventana::anadirActual);
    return marco;
}

QWidget *Ventana::crearPie()
{
    auto *pie = new QWidget;
    auto *fila = new QHBoxLayout(pie);
    fila->setContentsMargins(0, 0, 0, 0);
    auto *quitar = new QPushButton(u"&Quitar línea"_s);
    quitar->setObjectName(u"cmdQuitar"_s);
    auto *limpiar = new QPushButton(u"&Vaciar"_s);
    limpiar->setObjectName(u"cmdVaciar"_s);
    m_contador = new QLabel;
    m_contador->setObjectName(u"lblLineas"_s);
    auto *titulo = new QLabel(u"TOTAL"_s);
    m_totalRotulo = new QLabel;
    m_totalRotulo->setObjectName(u"lblTotal"_s);
    QFont grande = m_totalRotulo->font();
    grande.setPointSizeF(grande.pointSizeF() * 1.9);
    grande.setBold(true);
    m_totalRotulo->setFont(grande);
    fila->addWidget(quitar);
    fila->addWidget(limpiar);
    fila->addSpacing(12);
    fila->addWidget(m_contador);
    fila->addStretch();
    fila->addWidget(titulo);
    fila->addSpacing(8);
    fila->addWidget(m_totalRotulo);
    connect(quitar, &QPushButton::clicked, this, &Ventana::quitarLinea);
    connect(limpiar, &QPushButton::clicked, this, &Ventana::vaciar);
    return pie;
}

QWidget *Ventana::crearLateral()
{
    auto *pestanas = new QTabWidget;
    pestanas->setObjectName(u"pestanas"_s);
    auto *vista = new QScrollArea;
    vista->setWidget(m_ajustes);
    vista->setWidgetResizable(true);
    vista->setFrameShape(QFrame::NoFrame);
    pestanas->addTab(m_estado, u"Es&tado"_s);
    pestanas->addTab(vista, u"A&justes"_s);
    auto *caja = new QWidget;
    auto *columna = new QVBoxLayout(caja);
    columna->setContentsMargins(6, 12, 12, 12);
    columna->addWidget(pestanas);
    return caja;
}

void Ventana::crearMenu()
{
    QMenu *archivo = menuBar()->addMenu(u"&Archivo"_s);
    archivo->addAction(u"&Abrir catálogo…"_s, QKeySequence::Open, this, &Ventana::AbrirPedido);
    archivo->addAction(u"&Nuevo catálogo temporal"_s, this, &Ventana::TemporalPedida);
    archivo->addSeparator();
    archivo->addAction(u"&Salir"_s, QKeySequence(u"Ctrl+Q"_s), this, &QWidget::close);
}

void Ventana::setBase(Base *base)
{
    m_estado->setConexion(nullptr);
    m_base = base && base->abierta() ? base : nullptr;
    Conexion *conexion = m_base ? &m_base->conexion() : nullptr;
    EmpresaBD *empresa = m_base ? &m_base->empresa() : nullptr;
    m_cliente->setConexion(conexion);
    m_cliente->setcEmpresa(empresa);
    m_cliente->Limpiar();
    m_ajustes->setOrigen(conexion, empresa);
    cargarAlmacenes();
    retirar(std::exchange(m_articulo, nullptr));
    crearArticulo();
    releerAjustes();
    m_estado->limpiarSentencias();
    m_estado->setConexion(conexion);
    m_documento->setEnabled(m_base != nullptr);
    if (m_base)
        vaciar();
    // Stays; what happens meanwhile is written over it for a while.
    statusBar()->clearMessage();
    const QString donde = !m_base            ? u"Sin catálogo: elija uno en el menú Archivo"_s
                          : base->temporal() ? u"Catálogo temporal: se borra al salir"_s
                                             : QDir::toNativeSeparators(base->ruta());
    if (auto *rotulo = statusBar()->findChild<QLabel *>(u"lblBase"_s)) {
        rotulo->setText(donde);
    } else {
        rotulo = new QLabel(donde);
        rotulo->setObjectName(u"lblBase"_s);
        statusBar()->addPermanentWidget(rotulo);
    }
}

void Ventana::cargarAlmacenes()
{
    const QSignalBlocker callado(m_almacen);
    m_almacen->clear();
    if (!m_base)
        return;
    mensajes::guardar(this, u"Mostrador"_s, [this] {
        Sentencia s(u"SELECT Codigo, Nombre, Tarifa FROM Almacenes WHERE Cod_Empresa =");
        s << m_base->empresa().Codigo() << u" ORDER BY Codigo";
        Registros registros = m_base->conexion().Abrir(s);
        while (registros.siguiente()) {
            m_almacen->addItem(u"%1 - %2"_s.arg(registros.entero16(u"Codigo")).arg(registros.textoO(u"Nombre")),
                               registros.entero16(u"Codigo"));
            m_almacen->setItemData(m_almacen->count() - 1, registros.entero16(u"Tarifa"), Qt::UserRole + 1);
        }
    });
    elegirAlmacen();
}

void Ventana::elegirAlmacen()
{
    m_tarifa = static_cast<qint16>(m_almacen->currentData(Qt::UserRole + 1).toInt());
    if (m_articulo)
        m_articulo->AlmacenStock = static_cast<qint16>(m_almacen->currentData().toInt());
}

} // namespace nv
