#include "creation/frmArticulos_Creacion.h"

#include "platform/pickers/nvFamilia.h"
#include "platform/pickers/nvMarca.h"
#include "platform/pickers/nvTemporada.h"
#include "platform/widgets/Botonera.h"
#include "platform/widgets/Foco.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/nvCheckBox.h"
#include "platform/widgets/nvTextBox.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>
#include <QScreen>

using namespace Qt::StringLiterals;
using nv::SelectorCodigo;

namespace {

constexpr int EsperaRaton = 20; // milliseconds

bool esIntro(const QKeyEvent &tecla)
{
    return tecla.key() == Qt::Key_Return || tecla.key() == Qt::Key_Enter;
}

} // namespace

frmArticulos_Creacion::frmArticulos_Creacion(QWidget *padre)
    : QDialog(padre)
{
    setWindowTitle(u"Creación de Artículos"_s);
    crearCampos();
    colocarCampos();
    conectarCampos();
    m_aceptar->setEnabled(false);
    m_cancelar->setEnabled(false);
    m_esperaRaton.setInterval(EsperaRaton);
}

void frmArticulos_Creacion::conectarCampos()
{
    connect(m_codigo, &nvTextBox::Intro, this, [this](bool &tratada) {
        tratada = true;
        nv::mensajes::guardar(this, u"¡ Atención !"_s, [this] { confirmarCodigo(); });
    });
    m_codigo->installEventFilter(this);
    for (QWidget *widget : {static_cast<QWidget *>(m_cualidadX), static_cast<QWidget *>(m_cualidadY),
                            static_cast<QWidget *>(m_sinSerieEan), static_cast<QWidget *>(m_unidadesDecimales)})
        widget->installEventFilter(this);

    const auto recomponer = [this] {
        if (!m_suspendido)
            Formar_Descripciones();
    };
    for (SelectorCodigo *selector :
         {static_cast<SelectorCodigo *>(m_marca), static_cast<SelectorCodigo *>(m_temporada)}) {
        connect(selector, &SelectorCodigo::Cambio, this, recomponer);
        connect(selector, &SelectorCodigo::Salida, this, recomponer);
    }
    connect(m_referencia, &QLineEdit::textChanged, this, recomponer);
    connect(m_referencia, &nvTextBox::Salida, this, recomponer);
    for (int nivel = 1; nivel <= 3; ++nivel) {
        const nvFamilia *familia = m_familias[static_cast<std::size_t>(nivel - 1)];
        connect(familia, &SelectorCodigo::Entrada, this, [this, nivel] { alEntrarFamilia(nivel); });
        connect(familia, &SelectorCodigo::Cambio, this, [this, nivel] { alCambiarFamilia(nivel); });
        connect(familia, &SelectorCodigo::Salida, this, [this, nivel] { alSalirFamilia(nivel); });
        connect(familia, &SelectorCodigo::Intro, this, [this, nivel](bool &tratada) {
            tratada = true;
            trasFamilia(nivel);
        });
    }
    connect(m_impuesto, &nvTextBox::Salida, this, [this] {
        if (!m_suspendido)
            nv::mensajes::guardar(this, u"¡ Atención !"_s, [this] { mostrarPorcentaje(); });
    });
    connect(m_barras, &QLineEdit::textChanged, this, [this] { m_barrasComprobadas = false; });
    connect(m_barras, &nvTextBox::Salida, this, &frmArticulos_Creacion::alSalirBarras);
    connect(&m_esperaRaton, &QTimer::timeout, this, [this] {
        if (m_barrasPendientes && QGuiApplication::mouseButtons() == Qt::NoButton)
            comprobarBarras();
    });

    connect(m_aceptar, &QPushButton::clicked, this, &frmArticulos_Creacion::aceptar);
    connect(m_cancelar, &QPushButton::clicked, this, &frmArticulos_Creacion::cancelar);
    connect(m_cerrar, &QPushButton::clicked, this, &frmArticulos_Creacion::cerrar);
    nv::atajosAceptarCancelar(
        this,
        [this] {
            if (m_aceptar->isEnabled())
                aceptar();
        },
        [this] {
            if (m_cancelar->isEnabled())
                cancelar();
        });
}

void frmArticulos_Creacion::MostrarModal()
{
    Aceptado = false;
    m_formatoTicket.clear();
    m_formatoLargo.clear();
    const QPointer<frmArticulos_Creacion> vivo(this);
    const QString titulo = u"¡ Atención !"_s;
    QStringList fallos;
    // Half loaded it would know no limits and no qualities: an item begun in it could not be completed.
    const bool cargado = nv::mensajes::guardar(this, titulo, [&] { Cargar(fallos); });
    if (!vivo || !cargado || !cEmpresa || !Conexion)
        return;
    for (const QString &fallo : std::as_const(fallos)) {
        nv::mensajes::mostrar(this, titulo, fallo, nv::mensajes::Icono::Critico);
        if (!vivo)
            return;
    }
    centrar();
    m_codigo->setFocus();
    exec();
}

void frmArticulos_Creacion::centrar()
{
    adjustSize();
    const QScreen *pantalla = parentWidget() ? parentWidget()->screen() : screen();
    QRect marco(QPoint(), size());
    marco.moveCenter(pantalla->availableGeometry().center());
    move(marco.topLeft());
}

bool frmArticulos_Creacion::eventFilter(QObject *objeto, QEvent *evento)
{
    if (evento->type() == QEvent::Wheel && qobject_cast<QComboBox *>(objeto) &&
        !static_cast<QWidget *>(objeto)->hasFocus()) {
        // Scrolling past a list must not choose from it.
        evento->ignore();
        return true;
    }
    const bool deTecla = evento->type() == QEvent::ShortcutOverride || evento->type() == QEvent::KeyPress;
    if (!deTecla)
        return QDialog::eventFilter(objeto, evento);
    const auto *tecla = static_cast<QKeyEvent *>(evento);
    const bool pulsada = evento->type() == QEvent::KeyPress && !tecla->isAutoRepeat();
    if (objeto == m_codigo) {
        if (tecla->key() != Qt::Key_F6)
            return false;
        evento->accept();
        if (pulsada)
            alPulsarF6();
        return true;
    }
    if (evento->type() != QEvent::KeyPress || !esIntro(*tecla))
        return false;
    nv::foco::adelante(static_cast<QWidget *>(objeto));
    return true;
}

void frmArticulos_Creacion::keyPressEvent(QKeyEvent *evento)
{
    auto *boton = qobject_cast<QPushButton *>(focusWidget());
    // A key held down must not cancel first and close next.
    if (evento->key() == Qt::Key_Escape && evento->isAutoRepeat())
        evento->accept();
    else if (esIntro(*evento) && boton && !evento->isAutoRepeat())
        boton->click();
    else
        QDialog::keyPressEvent(evento);
}

void frmArticulos_Creacion::reject()
{
    if (m_cancelar->isEnabled())
        cancelar();
    else
        cerrar();
}

void frmArticulos_Creacion::closeEvent(QCloseEvent *evento)
{
    cerrar();
    evento->setAccepted(!isVisible());
}
