#include "guion/Reproductor.h"

#include "control/nvArticulo.h"
#include "guion/Objetos.h"
#include "guion/Teclado.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QMessageBox>
#include <QSocketNotifier>
#include <algorithm>
#include <unistd.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

constexpr int Latido = 4;       // ms
constexpr int Paciencia = 2000; // ms that a command waits for its target

} // namespace

Reproductor::Reproductor(Entorno entorno, QTextStream &salida)
    : m_entorno(std::move(entorno))
    , m_nombreArticulo(m_entorno.articulo->objectName())
    , m_salida(salida)
{
    m_entorno.conexion->escuchar(this);
    m_latido.setInterval(Latido);
    connect(&m_latido, &QTimer::timeout, this, &Reproductor::latir);
}

Reproductor::~Reproductor()
{
    m_entorno.conexion->dejarDeEscuchar(this);
}

int Reproductor::ejecutar(const QString &fichero)
{
    if (fichero == u"-") {
        m_aviso = std::make_unique<QSocketNotifier>(STDIN_FILENO, QSocketNotifier::Read);
        connect(m_aviso.get(), &QSocketNotifier::activated, this, &Reproductor::leerEntrada);
    } else {
        QFile guion(fichero);
        if (!guion.open(QIODevice::ReadOnly | QIODevice::Text)) {
            decir(u"no se puede leer el guion %1"_s.arg(fichero));
            return 2;
        }
        while (!guion.atEnd())
            leerLinea(guion.readLine());
        m_finEntrada = true;
    }
    m_latido.start();
    m_bucle.exec();
    m_latido.stop();
    return m_estado;
}

void Reproductor::leerLinea(const QByteArray &linea)
{
    if (const auto orden = guion::leida(QString::fromUtf8(linea), ++m_linea))
        m_ordenes.push_back(*orden);
}

void Reproductor::leerEntrada()
{
    char trozo[4096];
    const auto leidos = ::read(STDIN_FILENO, trozo, sizeof trozo);
    if (leidos > 0)
        m_resto.append(trozo, leidos);
    else
        m_finEntrada = true;
    if (m_finEntrada && !m_resto.isEmpty())
        m_resto.append('\n');
    for (qsizetype fin = m_resto.indexOf('\n'); fin >= 0; fin = m_resto.indexOf('\n')) {
        leerLinea(m_resto.first(fin));
        m_resto.remove(0, fin + 1);
    }
    if (m_finEntrada)
        m_aviso->setEnabled(false);
}

/// A command that has opened a modal window still runs in that window's loop: it counts as done once the window is up.
/// A window that paints itself before its rows are in lets timers through meanwhile, under the hourglass.
bool Reproductor::reposada() const
{
    if (QApplication::overrideCursor())
        return false;
    return m_enCurso.empty() || QApplication::activeModalWidget() != m_enCurso.back();
}

/// A timer does not fire again while its own slot runs, so the work is never done in it.
void Reproductor::latir()
{
    if (m_programada || !(m_acabando || reposada()))
        return;
    m_programada = true;
    QTimer::singleShot(0, this, &Reproductor::turno);
}

void Reproductor::turno()
{
    m_programada = false;
    if (m_acabando) {
        cerrarModal();
        if (m_enCurso.empty() && !QApplication::activeModalWidget())
            m_bucle.quit();
        return;
    }
    if (!reposada())
        return;
    anunciarVentana();
    if (m_pendiente) {
        empezar(*std::exchange(m_pendiente, std::nullopt));
    } else if (!m_ordenes.empty()) {
        const Orden orden = m_ordenes.front();
        m_ordenes.pop_front();
        decir(u"> "_s + orden.nombre + (orden.resto.isEmpty() ? QString() : u' ' + orden.resto));
        m_espera.start();
        empezar(orden);
    } else if (m_finEntrada) {
        acabar();
    }
}

void Reproductor::empezar(const Orden &orden)
{
    m_enCurso.emplace_back(QApplication::activeModalWidget());
    const Efecto efecto = hacer(orden);
    m_enCurso.pop_back();
    if (efecto == Efecto::Hecho || m_acabando)
        return;
    if (m_espera.hasExpired(Paciencia))
        fallar(u"línea %1: %2"_s.arg(orden.linea).arg(m_motivo));
    else
        m_pendiente = orden;
}

void Reproductor::acabar()
{
    if (QWidget *modal = QApplication::activeModalWidget())
        fallar(u"el guion acaba con una ventana abierta: %1"_s.arg(modal->windowTitle()));
    m_acabando = true;
}

void Reproductor::cerrarModal()
{
    QWidget *modal = QApplication::activeModalWidget();
    if (auto *dialogo = qobject_cast<QDialog *>(modal))
        dialogo->reject();
    else if (modal)
        modal->close();
}

/// A window is announced when it comes up, not again when one above it closes.
void Reproductor::anunciarVentana()
{
    QWidget *modal = QApplication::activeModalWidget();
    if (!modal) {
        m_anunciadas.clear();
        return;
    }
    const auto vista = std::find(m_anunciadas.begin(), m_anunciadas.end(), modal);
    if (vista != m_anunciadas.end()) {
        m_anunciadas.erase(vista + 1, m_anunciadas.end());
        return;
    }
    m_anunciadas.emplace_back(modal);
    const auto *caja = qobject_cast<QMessageBox *>(modal);
    if (!caja) {
        decir(u"ventana \"%1\""_s.arg(modal->windowTitle()));
        return;
    }
    QStringList botones;
    const QList<QAbstractButton *> todos = caja->buttons();
    for (const QAbstractButton *boton : todos)
        botones << boton->text().remove(u'&');
    decir(u"mensaje \"%1\" \"%2\" %3 [%4]"_s.arg(caja->windowTitle(), guion::enUnaLinea(caja->text()),
                                                 guion::nombreIcono(caja->icon()), botones.join(u", "_s)));
}

void Reproductor::fallar(const QString &motivo)
{
    decir(u"FALLO: "_s + motivo);
    if (m_estado == 0)
        m_estado = 1;
}

Reproductor::Efecto Reproductor::malGuion(const QString &motivo)
{
    decir(u"GUION MALO: "_s + motivo);
    m_estado = 2;
    m_acabando = true;
    return Efecto::Hecho;
}

void Reproductor::sentencia(const SucesoSentencia &suceso)
{
    if (!m_traza)
        return;
    decir(u"  sql "_s + suceso.texto);
    if (!suceso.error.isEmpty())
        decir(u"  error "_s + guion::enUnaLinea(suceso.error));
}

void Reproductor::decir(const QString &texto)
{
    m_salida << texto << Qt::endl;
}

} // namespace nv
