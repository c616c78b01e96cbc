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
/// turn of the event loop of its own; a modal window that a command opens does not hold up the next one.
using guion::Orden;

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
    enum class Efecto { Hecho, Esperar };
    struct EnCurso
    {
        QPointer<QWidget> modalAlEmpezar;
    };

    void latir();
    void anunciarVentana();
    bool reposada() const;
    void empezar(const Orden &orden);
    void acabar();
    void cerrarModales();
    void fallar(const QString &motivo);
    void malGuion(const Orden &orden, const QString &motivo);
    void leerEntrada();
    void decir(const QString &texto);

    Efecto hacer(const Orden &orden);
    Efecto hacerEntrada(const Orden &orden);
    Efecto hacerConsulta(const Orden &orden);
    Efecto clic(const Orden &orden, bool doble);
    Efecto responder(const QString &boton);
    Efecto poner(const Orden &orden);
    Efecto consultar(const QString &sentencia);
    Efecto mostrarRejilla(const Orden &orden);
    Efecto comprobar(const Orden &orden);
    Efecto comprobarMensaje(const QStringList &palabras);
    Efecto igual(const QString &que, const QString &hay, const QString &esperado);
    Efecto capturar(const QString &nombre);
    Efecto reiniciar(const Orden &orden);
    /// Nothing yet: the command is tried again until its time is up.
    Efecto aunNo(const QString &motivo);

    QWidget *objeto(const QString &nombre) const;
    std::optional<QString> valor(const QString &nombre) const;

    Entorno m_entorno;
    QTextStream &m_salida;
    QEventLoop m_bucle;
    QTimer m_latido;
    std::deque<Orden> m_ordenes;
    std::vector<EnCurso> m_enCurso;
    std::optional<Orden> m_pendiente; ///< a command that waits for its target
    QElapsedTimer m_espera;
    QString m_motivo;
    QPointer<QWidget> m_anunciada;
    std::unique_ptr<QSocketNotifier> m_aviso;
    QByteArray m_resto;
    int m_linea = 0;
    int m_estado = 0;
    bool m_finEntrada = false;
    bool m_acabando = false;
    bool m_traza = false;
};

} // namespace nv
