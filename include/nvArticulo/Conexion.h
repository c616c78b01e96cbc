#pragma once

#include "nvArticulo/Registros.h"
#include "nvArticulo/Sentencia.h"

#include <vector>

namespace nv {

/// One statement as it went out.
struct SucesoSentencia
{
    QString texto;       ///< as written, before any adaptation by the engine
    qint64 nanosegundos; ///< until the engine answered
    qint64 filas;        ///< rows changed; -1 for a result or an error
    QString error;       ///< description; empty when it went well
};

class OyenteSentencias
{
public:
    virtual ~OyenteSentencias() = default;
    virtual void sentencia(const SucesoSentencia &suceso) = 0;
};

/// A database connection. Owned by the host program; the component and its dialogs borrow it.
/// Every operation throws Error with the engine's number and description, driver prefixes stripped.
class Conexion
{
public:
    Conexion() = default;
    Conexion(const Conexion &) = delete;
    Conexion &operator=(const Conexion &) = delete;
    /// Leaves the process-wide slot when it fills it.
    virtual ~Conexion();

    /// Runs a statement that returns rows. Other results of the connection stay readable.
    Registros Abrir(const Sentencia &sentencia);
    /// Runs a statement that returns none; the result is the number of rows changed.
    qint64 Ejecutar(const Sentencia &sentencia);

    /// Transactions do not nest: a second begin is an Error.
    void Comenzar();
    void Confirmar();
    void Deshacer();
    bool enTransaccion() const { return m_enTransaccion; }

    /// Borrowed; the listener takes itself off before it dies.
    void escuchar(OyenteSentencias *oyente);
    void dejarDeEscuchar(OyenteSentencias *oyente);

protected:
    virtual std::unique_ptr<FuenteRegistros> abrir(const Sentencia &sentencia) = 0;
    virtual qint64 ejecutar(const Sentencia &sentencia) = 0;
    virtual void comenzar() = 0;
    virtual void confirmar() = 0;
    virtual void deshacer() = 0;

    /// Tells the listeners what an engine did beside the statements that it was given.
    void anunciar(const SucesoSentencia &suceso);

private:
    template <class Operacion>
    auto anunciada(const QString &texto, Operacion &&operacion);

    std::vector<OyenteSentencias *> m_oyentes;
    bool m_enTransaccion = false;
};

/// A unit of work: begins on construction, rolls back on destruction unless confirmed. Inside a transaction that is
/// open already it joins that one, and then neither confirms nor rolls back. A failed rollback is ignored: the server
/// may have rolled back by itself.
class Transaccion
{
public:
    explicit Transaccion(Conexion &conexion)
        : m_conexion(conexion)
        , m_propia(!conexion.enTransaccion())
        , m_abierta(m_propia)
    {
        if (m_propia)
            m_conexion.Comenzar();
    }
    Transaccion(const Transaccion &) = delete;
    Transaccion &operator=(const Transaccion &) = delete;
    ~Transaccion();
    void confirmar();
    /// False when it has joined one of somebody else's.
    bool propia() const { return m_propia; }

private:
    Conexion &m_conexion;
    bool m_propia;
    bool m_abierta;
};

/// The process-wide slot: the first connection handed to any component serves every component and every dialog.
namespace ranura {

/// The connection held, or null.
Conexion *actual();
/// Fills the slot if it is empty; ignored while it is held.
void ofrecer(Conexion *conexion);
/// The connection held. Throws Error (91) when there is none.
Conexion &exigida();

} // namespace ranura

} // namespace nv
