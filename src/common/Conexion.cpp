#include "nvArticulo/Conexion.h"

#include "nvArticulo/Error.h"

#include <QElapsedTimer>
#include <algorithm>
#include <type_traits>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

Conexion *&ocupante()
{
    static Conexion *conexion = nullptr;
    return conexion;
}

} // namespace

Conexion::~Conexion()
{
    if (ocupante() == this)
        ocupante() = nullptr;
}

void Conexion::anunciar(const SucesoSentencia &suceso)
{
    const std::vector<OyenteSentencias *> oyentes = m_oyentes;
    for (OyenteSentencias *oyente : oyentes)
        oyente->sentencia(suceso);
}

template <class Operacion>
auto Conexion::anunciada(const QString &texto, Operacion &&operacion)
{
    if (m_oyentes.empty())
        return operacion();
    QElapsedTimer reloj;
    reloj.start();
    const auto avisar = [&](qint64 filas, const QString &error) {
        anunciar({texto, reloj.nsecsElapsed(), filas, error});
    };
    try {
        auto resultado = operacion();
        if constexpr (std::is_same_v<decltype(resultado), qint64>)
            avisar(resultado, {});
        else
            avisar(-1, {});
        return resultado;
    } catch (const Error &error) {
        avisar(-1, error.descripcion);
        throw;
    }
}

Registros Conexion::Abrir(const Sentencia &sentencia)
{
    return Registros(anunciada(sentencia.texto(), [&] {
        sentencia.exigirEnviable();
        return abrir(sentencia);
    }));
}

qint64 Conexion::Ejecutar(const Sentencia &sentencia)
{
    return anunciada(sentencia.texto(), [&] {
        sentencia.exigirEnviable();
        return ejecutar(sentencia);
    });
}

void Conexion::Comenzar()
{
    if (m_enTransaccion)
        throw Error{0, u"Ya hay una transacción abierta en esta conexión."_s, {}};
    comenzar();
    m_enTransaccion = true;
}

void Conexion::Confirmar()
{
    confirmar();
    m_enTransaccion = false;
}

void Conexion::Deshacer()
{
    m_enTransaccion = false;
    deshacer();
}

void Conexion::escuchar(OyenteSentencias *oyente)
{
    m_oyentes.push_back(oyente);
}

void Conexion::dejarDeEscuchar(OyenteSentencias *oyente)
{
    std::erase(m_oyentes, oyente);
}

Transaccion::~Transaccion()
{
    if (!m_abierta)
        return;
    try {
        m_conexion.Deshacer();
    } catch (const Error &) {}
}

void Transaccion::confirmar()
{
    if (m_propia)
        m_conexion.Confirmar();
    m_abierta = false;
}

namespace ranura {

Conexion *actual()
{
    return ocupante();
}

void ofrecer(Conexion *conexion)
{
    if (!ocupante())
        ocupante() = conexion;
}

Conexion &exigida()
{
    if (!ocupante())
        throw errores::sinConexion();
    return *ocupante();
}

} // namespace ranura

} // namespace nv
