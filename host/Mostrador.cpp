#include "Mostrador.h"

#include "Documento.h"
#include "Lector.h"
#include "PanelAjustes.h"
#include "PanelEstado.h"
#include "guion/Reproductor.h"
#include "importacion/Importacion.h"
#include "nvArticulo/Error.h"
#include "nvArticulo/nvArticulo.h"
#include "platform/widgets/Mensajes.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QStatusBar>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <utility>

using namespace Qt::StringLiterals;

namespace mostrador {

const QString Titulo = u"Mostrador"_s;

Mostrador::Mostrador(const Opciones &opciones)
    : m_opciones(opciones)
    , m_documento(new Documento)
    , m_estado(new PanelEstado)
    , m_ajustes(new PanelAjustes)
    , m_rotuloBase(new QLabel)
{
    setWindowTitle(Titulo);
    auto *reparto = new QSplitter;
    reparto->setChildrenCollapsible(false);
    reparto->addWidget(m_documento);
    reparto->addWidget(crearLateral());
    reparto->setStretchFactor(0, 1);
    reparto->setSizes({800, 380});
    // Large letters want more than some screens have.
    auto *vista = new QScrollArea;
    vista->setWidget(reparto);
    vista->setWidgetResizable(true);
    vista->setFrameShape(QFrame::NoFrame);
    setCentralWidget(vista);
    QMenu *archivo = menuBar()->addMenu(u"&Archivo"_s);
    archivo->addAction(u"&Abrir catálogo…"_s, QKeySequence::Open, this, &Mostrador::elegirBase);
    archivo->addAction(u"Abrir base del ser&vidor…"_s, this, &Mostrador::elegirServidor);
    archivo->addAction(u"&Nuevo catálogo temporal"_s, this, [this] {
        if (m_documento->puedeDejarse())
            ponerTemporal();
    });
    archivo->addSeparator();
    archivo->addAction(u"&Salir"_s, QKeySequence(u"Ctrl+Q"_s), this, &QWidget::close);
    // Stays; what happens meanwhile is written over it for a while.
    m_rotuloBase->setObjectName(u"lblBase"_s);
    statusBar()->addPermanentWidget(m_rotuloBase);
    connect(m_ajustes, &PanelAjustes::ArticuloCaducado, m_documento, &Documento::renovarArticulo);
    connect(m_documento, &Documento::Cambio, m_estado, &PanelEstado::actualizar);
    connect(m_documento, &Documento::Aviso, this,
            [this](const QString &texto) { statusBar()->showMessage(texto, 8000); });
    connect(m_documento, &Documento::ArticuloNuevo, m_estado, &PanelEstado::setArticulo);
    connect(m_documento, &Documento::ArticuloNuevo, m_ajustes, &PanelAjustes::setArticulo);
    auto *lector = new Lector(this);
    connect(m_documento, &Documento::ArticuloNuevo, lector,
            [lector](nvArticulo *articulo) { lector->setCaja(qobject_cast<QLineEdit *>(articulo->focusProxy())); });
    connect(lector, &Lector::Empezada, m_documento, &Documento::empezar);
    connect(lector, &Lector::Leido, m_documento, &Documento::leer);
    connect(lector, &Lector::Acabada, m_documento, &Documento::setRafaga);
    const QSize habitual(1180, 720); // at the toolkit's usual letters
    const QSize deseado = (habitual * (font().pointSizeF() / 9)).expandedTo(habitual);
    resize(deseado.boundedTo(screen()->availableSize()));
    poner(nullptr);
}

Mostrador::~Mostrador()
{
    poner(nullptr);
}

QWidget *Mostrador::crearLateral()
{
    auto *vista = new QScrollArea;
    vista->setWidget(m_ajustes);
    vista->setWidgetResizable(true);
    vista->setFrameShape(QFrame::NoFrame);
    vista->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    vista->setMinimumWidth(m_ajustes->minimumSizeHint().width() + vista->verticalScrollBar()->sizeHint().width());
    auto *pestanas = new QTabWidget;
    pestanas->addTab(m_estado, u"Es&tado"_s);
    pestanas->addTab(vista, u"A&justes"_s);
    auto *caja = new QWidget;
    auto *columna = new QVBoxLayout(caja);
    columna->setContentsMargins(6, 12, 12, 12);
    columna->addWidget(pestanas);
    return caja;
}

/// The former one goes first: its connection, handed to an item box, serves all of them for as long as it lives.
void Mostrador::poner(std::unique_ptr<Base> base)
{
    m_estado->setConexion(nullptr);
    m_ajustes->setBase(nullptr);
    m_documento->setBase(nullptr);
    m_ajustesDelGuion.clear();
    m_base = std::move(base);
    if (m_base) {
        m_ajustes->setBase(m_base.get());
        m_documento->setBase(m_base.get());
        m_estado->setConexion(&m_base->conexion());
    }
    reiniciar();
    m_rotuloBase->setText(!m_base              ? u"Sin catálogo: elija uno en el menú Archivo"_s
                          : m_base->temporal() ? u"Catálogo temporal: se borra al salir"_s
                                               : QDir::toNativeSeparators(m_base->ruta()));
}

bool Mostrador::ponerTemporal()
{
    return mensajes::guardar(this, Titulo, [this] { poner(Base::enTemporal(m_opciones.articulos(), this)); });
}

void Mostrador::abrir()
{
    const int articulos = m_opciones.articulos();
    if (m_opciones.hay(u"odbc"_s))
        poner(Base::enServidor(m_opciones.texto(u"odbc"_s), m_opciones.hay(u"crear"_s), articulos, this));
    else if (m_opciones.hay(u"temporal"_s))
        poner(Base::enTemporal(articulos, this));
    else if (m_opciones.hay(u"base"_s))
        poner(Base::abrirExistente(m_opciones.texto(u"base"_s)));
    else
        poner(Base::abrir(Base::rutaHabitual(), articulos, this));
}

QString Mostrador::aplicarOpciones()
{
    QString importado;
    if (m_opciones.hay(u"importar"_s)) {
        QFile archivo(m_opciones.texto(u"importar"_s));
        if (!archivo.open(QIODevice::ReadOnly))
            throw Error{0, u"No se puede leer «%1»: %2"_s.arg(archivo.fileName(), archivo.errorString())};
        const auto resultado = importarCsv(m_base->conexion(), archivo.readAll(), QDate::currentDate());
        importado = resultado.resumen();
        QTextStream(stderr) << (resultado.avisos + QStringList(importado)).join(u'\n') << Qt::endl;
    }
    // The company's from then on.
    if (m_opciones.hay(u"ulvaro"_s))
        m_base->empresa().PonerValor(u"EsUlvaro"_s, u"1"_s);
    reiniciar(m_opciones.modelo());
    return importado;
}

int Mostrador::ejecutar()
{
    if (m_opciones.hay(u"guion"_s))
        return conGuion();
    show();
    // Once the window is on screen: what there is to ask is asked on top of it.
    QTimer::singleShot(0, this, &Mostrador::empezar);
    return QApplication::exec();
}

void Mostrador::empezar()
{
    if (!mensajes::guardar(this, Titulo, [this] { abrir(); })) {
        const auto respuesta =
            mensajes::preguntar(this, Titulo, u"¿Desea trabajar con un catálogo temporal nuevo? Se borra al salir."_s);
        if (respuesta == mensajes::Respuesta::No || !ponerTemporal())
            return;
    }
    QString importado;
    mensajes::guardar(this, Titulo, [&] { importado = aplicarOpciones(); });
    if (!importado.isEmpty())
        mensajes::mostrar(this, u"Importar"_s, importado, mensajes::Icono::Informacion);
}

void Mostrador::closeEvent(QCloseEvent *evento)
{
    evento->setAccepted(m_documento->puedeDejarse());
}

void Mostrador::elegirBase()
{
    if (!m_documento->puedeDejarse())
        return;
    const QString ruta = QFileDialog::getOpenFileName(this, u"Abrir catálogo"_s, m_base ? m_base->ruta() : QString(),
                                                      u"Catálogos (*.nv);;Todos los archivos (*)"_s);
    if (!ruta.isEmpty())
        mensajes::guardar(this, Titulo, [&] { poner(Base::abrirExistente(ruta)); });
}

void Mostrador::elegirServidor()
{
    if (!m_documento->puedeDejarse())
        return;
    const QString texto = QInputDialog::getText(
        this, u"Abrir base del servidor"_s, u"Texto de conexión ODBC:"_s, QLineEdit::Normal,
        u"DRIVER=FreeTDS;SERVER=;PORT=1433;DATABASE=;UID=;PWD=;TDS_Version=7.4;ClientCharset=UTF-8"_s);
    if (!texto.isEmpty())
        mensajes::guardar(this, Titulo, [&] { poner(Base::enServidor(texto, false, 0, this)); });
}

int Mostrador::conGuion()
{
    abrir();
    aplicarOpciones();
    show();
    activateWindow();
    const guion::Entorno entorno{
        this,
        &m_base->conexion(),
        [this]() -> nvArticulo & { return *m_documento->articulo(); },
        [this](const QString &clave, const QString &valor) { ponerAjuste(clave, valor); },
        [this](std::optional<int> modelo) { reiniciar(modelo); },
        m_opciones.texto(u"capturas"_s),
    };
    QTextStream salida(stdout);
    return guion::Reproductor(entorno, salida).ejecutar(m_opciones.texto(u"guion"_s));
}

void Mostrador::ponerAjuste(const QString &clave, const QString &valor)
{
    EmpresaBD &empresa = m_base->empresa();
    if (!m_ajustesDelGuion.contains(clave))
        m_ajustesDelGuion.insert(clave, empresa.Valor(clave));
    empresa.PonerValor(clave, valor);
    m_ajustes->releer();
}

void Mostrador::reiniciar(std::optional<int> modelo)
{
    const QHash<QString, QString> antes = std::exchange(m_ajustesDelGuion, {});
    for (auto ajuste = antes.constBegin(); ajuste != antes.constEnd(); ++ajuste)
        m_base->empresa().PonerValor(ajuste.key(), ajuste.value());
    if (modelo)
        m_base->empresa().PonerValor(u"BusquedaArticulos"_s, QString::number(*modelo));
    if (m_base)
        m_base->empresa().Recargar();
    m_documento->reiniciar();
    m_ajustes->releer();
    m_estado->limpiarSentencias();
    statusBar()->clearMessage();
}

} // namespace mostrador
