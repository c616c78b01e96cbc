#pragma once

#include "common/Conexion.h"
#include "guion/Orden.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QObject>
#include <QPointer>
#include <QTextStream>
#include <QTimer>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QSocketNotifier;
class QWidget;
class nvArticulo;

namespace nv {

/// What a script works on. Everything is borrowed.
struct Entorno
{
    QWidget *ventana = nullptr;
    /// The item box; another one of its name takes its place where `reinicia` makes it anew.
    nvArticulo *articulo = nullptr;
    Conexion *conexion = nullptr;
    /// Writes a company setting.
    std::function<void(const QString &clave, const QString &valor)> ponEmpresa;
    /// Puts box and company back to their start, with a search model where one is given.
    std::function<void(std::optional<int> modelo)> reinicia;
    /// Folder of the pictures; empty: none are taken.
    QString capturas;
};

/// Drives the program by keystrokes from a script, one command per line (see docs/guiones.md). Each command runs from a
/// turn of the event loop of its own; a modal window that a command opens does not hold up the next one, which runs
/// inside the window's own loop.
class Reproductor : public QObject, public OyenteSentencias
{
    Q_OBJECT

public:
    /// `salida` takes the transcript.
    Reproductor(Entorno entorno, QTextStream &salida);
    ~Reproductor() override;

    /// Runs the whole of a file, or standard input for "-". 0 every check held, 1 one did not, 2 a bad script.
    int ejecutar(const QString &fichero);

    void sentencia(const SucesoSentencia &suceso) override;

private:
    using Orden = guion::Orden;
    enum class Efecto { Hecho, Esperar };

    void latir();
    void turno();
    void anunciarVentana();
    bool reposada() const;
    void empezar(const Orden &orden);
    void acabar();
    void cerrarModal();
    void fallar(const QString &motivo);
    Efecto malGuion(const QString &motivo);
    void leerEntrada();
    void leerLinea(const QByteArray &linea);
    void decir(const QString &texto);

    Efecto hacer(const Orden &orden);
    Efecto enfocar(const Orden &orden);
    Efecto pulsarTecla(const Orden &orden);
    Efecto teclear(const Orden &orden);
    Efecto clic(const Orden &orden);
    Efecto responder(const Orden &orden);
    Efecto poner(const Orden &orden);
    Efecto reiniciar(const Orden &orden);
    Efecto consultar(const Orden &orden);
    Efecto mostrar(const Orden &orden);
    Efecto mostrarRejilla(const Orden &orden);
    Efecto capturar(const Orden &orden);
    Efecto trazar(const Orden &orden);
    Efecto comprobar(const Orden &orden);
    Efecto comprobarMensaje(const QStringList &palabras);
    Efecto comprobarFoco(const QString &nombre);
    Efecto igual(const QString &que, const QString &hay, const QString &esperado);
    /// Not yet: the command is tried again until its time is up.
    Efecto aunNo(const QString &motivo);

    nvArticulo &articulo() const;
    QWidget *objeto(const QString &nombre) const;
    std::optional<QString> valor(const QString &nombre) const;

    Entorno m_entorno;
    QString m_nombreArticulo;
    QTextStream &m_salida;
    QEventLoop m_bucle;
    QTimer m_latido;
    std::deque<Orden> m_ordenes;
    /// The modal window that was up when each unfinished command began, the outermost command first.
    std::vector<QPointer<QWidget>> m_enCurso;
    std::vector<QPointer<QWidget>> m_anunciadas; ///< modal windows on screen, the lowest first
    std::optional<Orden> m_pendiente;            ///< a command that waits for its target
    QElapsedTimer m_espera;
    QString m_motivo;
    std::unique_ptr<QSocketNotifier> m_aviso;
    QByteArray m_resto;
    int m_linea = 0;
    int m_estado = 0;
    bool m_programada = false; ///< a turn is on its way
    bool m_finEntrada = false;
    bool m_acabando = false;
    bool m_traza = false;
};

} // namespace nv
