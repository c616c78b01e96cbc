#include "guion/Reproductor.h"

#include "guion/Persona.h"
#include "nvArticulo/Error.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <algorithm>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace mostrador::guion {

constexpr int Latido = 4;       // ms
constexpr int Paciencia = 2000; // ms that a command waits for its target
/// An idle program lets all beats through, a busy one few: these are a little less than two seconds of nothing.
constexpr int LatidosParada = 450;
/// Attempts to close what is open as a person does.
constexpr int CierresCorteses = 80;

Reproductor::Reproductor(const Entorno &entorno, QTextStream &salida)
    : m_salida(salida)
    , m_mandos(entorno, [this](const QString &texto) { decir(texto); })
    , m_aviso(STDIN_FILENO, QSocketNotifier::Read)
{
    m_aviso.setEnabled(false);
    connect(&m_aviso, &QSocketNotifier::activated, this, &Reproductor::leerEntrada);
    m_latido.setInterval(Latido);
    connect(&m_latido, &QTimer::timeout, this, &Reproductor::latir);
}

Estado Reproductor::ejecutar(const QString &fichero)
{
    if (fichero == u"-") {
        m_aviso.setEnabled(true);
    } else {
        QFile guion(fichero);
        if (!guion.open(QIODevice::ReadOnly | QIODevice::Text)) {
            decir(u"no se puede leer el guion %1"_s.arg(fichero));
            return EstadoGuionMalo;
        }
        tragar(guion.readAll(), true);
    }
    m_latido.start();
    m_bucle.exec();
    m_latido.stop();
    return m_estado;
}

void Reproductor::leerEntrada()
{
    char trozo[4096];
    const auto leidos = ::read(STDIN_FILENO, trozo, sizeof trozo);
    tragar(QByteArray(trozo, std::max<qsizetype>(leidos, 0)), leidos <= 0);
    m_aviso.setEnabled(!m_finEntrada);
}

void Reproductor::tragar(const QByteArray &trozo, bool ultimo)
{
    m_finEntrada = ultimo;
    QList<QByteArray> lineas = (m_resto + trozo).split('\n');
    m_resto = ultimo ? QByteArray() : lineas.takeLast();
    for (const QByteArray &linea : lineas) {
        for (Instruccion &orden : Instruccion::leidas(QString::fromUtf8(linea), ++m_linea))
            m_ordenes.push_back(std::move(orden));
    }
}

/// A command that has opened a modal window still runs in that window's loop: it counts as done once the window is up.
/// A window that paints itself before its rows are in lets timers through meanwhile, under the hourglass.
bool Reproductor::reposada() const
{
    const QCursor *puntero = QApplication::overrideCursor();
    if (puntero && puntero->shape() == Qt::WaitCursor)
        return false;
    return m_enCurso.empty() || QApplication::activeModalWidget() != m_enCurso.back();
}

/// A timer does not fire again while its own slot runs, so the work is never done in it.
void Reproductor::latir()
{
    if (m_programada)
        return;
    if (!m_acabando && !reposada()) {
        if (++m_parada < LatidosParada)
            return;
        const QWidget *modal = QApplication::activeModalWidget();
        fallar(u"línea %1: %2 no acaba; abierto: %3"_s.arg(m_orden.linea)
                   .arg(m_orden.texto(), modal ? modal->windowTitle() : u"nada"_s));
        m_acabando = true;
    }
    m_parada = 0;
    m_programada = true;
    QTimer::singleShot(0, this, &Reproductor::turno);
}

void Reproductor::turno()
{
    m_programada = false;
    if (m_acabando)
        return cerrarTodo();
    if (!reposada())
        return;
    anunciarVentana();
    if (m_pendiente) {
        empezar();
    } else if (!m_ordenes.empty()) {
        m_orden = m_ordenes.front();
        m_ordenes.pop_front();
        decir(u"> "_s + m_orden.texto());
        m_espera.start();
        empezar();
    } else if (m_finEntrada) {
        if (const QWidget *modal = QApplication::activeModalWidget())
            fallar(u"el guion acaba con una ventana abierta: "_s + modal->windowTitle());
        m_acabando = true;
    }
}

void Reproductor::empezar()
{
    // Others may be begun and done before this one returns.
    const Instruccion orden = m_orden;
    m_pendiente = false;
    m_enCurso.emplace_back(QApplication::activeModalWidget());
    try {
        m_mandos.hacer(orden);
    } catch (const AunNo &aunNo) {
        m_pendiente = !m_acabando && !m_espera.hasExpired(Paciencia);
        m_orden = orden;
        if (!m_pendiente)
            fallar(u"línea %1: %2"_s.arg(orden.linea).arg(aunNo.motivo));
    } catch (const Error &error) {
        fallar(u"línea %1: %2"_s.arg(orden.linea).arg(error.descripcion));
    } catch (const GuionMalo &malo) {
        decir(u"GUION MALO: línea %1: %2"_s.arg(orden.linea).arg(malo.motivo));
        m_estado = EstadoGuionMalo;
        m_acabando = true;
    }
    m_enCurso.pop_back();
}

/// A form may refuse to close, a loop may have no window at all: in the end every loop is left.
void Reproductor::cerrarTodo()
{
    QWidget *modal = QApplication::activeModalWidget();
    if (m_enCurso.empty() && !modal)
        m_bucle.quit();
    else if (++m_cierres > CierresCorteses)
        QCoreApplication::exit();
    else if (QWidget *desplegable = QApplication::activePopupWidget())
        desplegable->close();
    else if (modal)
        cerrar(modal);
}

/// A window is announced when it comes up, not again when one above it closes.
void Reproductor::anunciarVentana()
{
    QWidget *modal = QApplication::activeModalWidget();
    const auto vista = std::find(m_anunciadas.begin(), m_anunciadas.end(), modal);
    if (!modal || vista != m_anunciadas.end()) {
        m_anunciadas.erase(modal ? vista + 1 : m_anunciadas.begin(), m_anunciadas.end());
        return;
    }
    m_anunciadas.emplace_back(modal);
    const auto *caja = qobject_cast<QMessageBox *>(modal);
    if (!caja)
        return decir(u"ventana \"%1\""_s.arg(modal->windowTitle()));
    QStringList botones;
    for (QAbstractButton *boton : caja->buttons())
        botones << textoDe(boton);
    const QStringList partes = leido(*caja);
    decir(u"mensaje \"%1\" \"%2\" %3 [%4]"_s.arg(partes[0], enUnaLinea(partes[1]), partes[2], botones.join(u", "_s)));
}

void Reproductor::fallar(const QString &motivo)
{
    decir(u"FALLO: "_s + motivo);
    m_estado = std::max(m_estado, EstadoFallo);
}

void Reproductor::decir(const QString &texto)
{
    m_salida << texto << Qt::endl;
}

} // namespace mostrador::guion
