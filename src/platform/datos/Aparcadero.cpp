#include "platform/datos/Aparcadero.h"

#include "nvArticulo/Error.h"

#include <algorithm>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace nv::datos {

bool Cursor::avanzar()
{
    if (m_terminado || std::exchange(m_pendiente, false))
        return !m_terminado;
    m_terminado = true;
    m_terminado = !paso();
    return !m_terminado;
}

/// What a reader holds. Serves from the engine's cursor while it may live, then from memory.
class ResultadoAparcable final : public FuenteRegistros
{
public:
    ResultadoAparcable(ConexionAparcadora &conexion, std::unique_ptr<FuenteRegistros> cursor)
        : m_conexion(&conexion)
        , m_cursor(std::move(cursor))
    {
        conexion.m_vivos.push_back(this);
    }

    ~ResultadoAparcable() override { darDeBaja(); }

    bool avanzar() override
    {
        if (m_cursor) {
            m_enFila = m_cursor->avanzar();
            return m_enFila;
        }
        m_enFila = m_ancho > 0 && m_siguiente + m_ancho <= m_valores.size();
        if (m_enFila)
            m_actual = std::exchange(m_siguiente, m_siguiente + m_ancho);
        if (!m_enFila && m_pendiente) {
            const Error error = *m_pendiente;
            m_pendiente.reset();
            throw error;
        }
        return m_enFila;
    }

    int columnas() const override { return m_cursor ? m_cursor->columnas() : static_cast<int>(m_ancho); }

    QString nombre(int columna) const override
    {
        return m_cursor ? m_cursor->nombre(columna) : m_nombres.at(static_cast<std::size_t>(columna));
    }

    QVariant valor(int columna) const override
    {
        return m_cursor ? m_cursor->valor(columna) : m_valores.at(m_actual + static_cast<std::size_t>(columna));
    }

    void aparcar()
    {
        conservarFila();
        try {
            while (m_cursor->avanzar())
                copiarFila();
        } catch (const Error &error) {
            m_pendiente = error;
        }
        desprender();
    }

    void soltar()
    {
        conservarFila();
        m_pendiente = errores::conexionCerrada();
        desprender();
    }

private:
    void conservarFila()
    {
        m_ancho = static_cast<std::size_t>(m_cursor->columnas());
        for (int i = 0; i < m_cursor->columnas(); ++i)
            m_nombres.push_back(m_cursor->nombre(i));
        if (m_enFila) {
            copiarFila();
            m_siguiente = m_ancho;
        }
    }

    void copiarFila()
    {
        for (int i = 0; i < m_cursor->columnas(); ++i)
            m_valores.push_back(m_cursor->valor(i));
    }

    void desprender()
    {
        m_cursor.reset();
        m_conexion = nullptr;
    }

    void darDeBaja()
    {
        m_cursor.reset();
        if (m_conexion)
            std::erase(m_conexion->m_vivos, this);
    }

    ConexionAparcadora *m_conexion;
    std::unique_ptr<FuenteRegistros> m_cursor;
    bool m_enFila = false;
    std::size_t m_ancho = 0;
    std::size_t m_actual = 0; // index in m_valores of the current row's first value
    std::size_t m_siguiente = 0;
    std::vector<QString> m_nombres;
    std::vector<QVariant> m_valores;
    std::optional<Error> m_pendiente; // met while reading ahead; its reader gets it in its own turn
};

ConexionAparcadora::~ConexionAparcadora()
{
    soltarResultados();
}

void ConexionAparcadora::soltarResultados()
{
    const auto vivos = std::exchange(m_vivos, {});
    for (ResultadoAparcable *resultado : vivos)
        resultado->soltar();
}

void ConexionAparcadora::aparcar()
{
    if (m_vivos.empty())
        return;
    const auto vivos = std::exchange(m_vivos, {});
    for (ResultadoAparcable *resultado : vivos)
        resultado->aparcar();
}

std::unique_ptr<FuenteRegistros> ConexionAparcadora::abrir(const Sentencia &sentencia)
{
    aparcar();
    return std::make_unique<ResultadoAparcable>(*this, abrirCursor(sentencia));
}

qint64 ConexionAparcadora::ejecutar(const Sentencia &sentencia)
{
    aparcar();
    return ejecutarSolo(sentencia);
}

void ConexionAparcadora::comenzar()
{
    aparcar();
    comenzarSolo();
}

void ConexionAparcadora::confirmar()
{
    aparcar();
    confirmarSolo();
}

void ConexionAparcadora::deshacer()
{
    aparcar();
    deshacerSolo();
}

} // namespace nv::datos
