#pragma once

#include "guion/Ordenes.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QPointer>
#include <QSocketNotifier>
#include <QTextStream>
#include <QTimer>
#include <deque>
#include <vector>

namespace mostrador::guion {

/// What a script comes to: every check held, one did not (or the program stood still), it cannot be followed.
enum Estado { EstadoBien = 0, EstadoFallo = 1, EstadoGuionMalo = 2 };

/// Drives the program by keystrokes from a script, one command per line (see docs/guiones.md). Each command runs from a
/// turn of the event loop of its own; a modal window that a command opens does not hold up the next one, which runs
/// inside the window's own loop.
class Reproductor : public QObject
{
    Q_OBJECT

public:
    /// `salida` takes the transcript.
    Reproductor(const Entorno &entorno, QTextStream &salida);

    /// Runs the whole of a file, or standard input for "-".
    Estado ejecutar(const QString &fichero);

private:
    void leerEntrada();
    void tragar(const QByteArray &trozo, bool ultimo);
    void latir();
    bool reposada() const;
    void turno();
    void empezar();
    void anunciarVentana();
    void cerrarTodo();
    void fallar(const QString &motivo);
    void decir(const QString &texto);

    QTextStream &m_salida;
    Ordenes m_mandos;
    QEventLoop m_bucle;
    QTimer m_latido;
    QSocketNotifier m_aviso;
    QByteArray m_resto; ///< of standard input, the line not yet ended
    std::deque<Instruccion> m_ordenes;
    Instruccion m_orden;      ///< in hand
    bool m_pendiente = false; ///< … and waiting for its target
    QElapsedTimer m_espera;
    /// The modal window that was up when each unfinished command began, the outermost command first.
    std::vector<QPointer<QWidget>> m_enCurso;
    std::vector<QPointer<QWidget>> m_anunciadas; ///< modal windows on screen, the lowest first
    int m_linea = 0;
    int m_parada = 0; ///< beats without a turn
    int m_cierres = 0;
    Estado m_estado = EstadoBien;
    bool m_programada = false; ///< a turn is on its way
    bool m_finEntrada = false;
    bool m_acabando = false;
};

} // namespace mostrador::guion
