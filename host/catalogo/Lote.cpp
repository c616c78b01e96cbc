#include "catalogo/Lote.h"

#include "common/Conexion.h"

namespace nv {

namespace {
constexpr int FilasPorSentencia = 40;
}

void Lote::fila(const Sentencia &valores)
{
    if (m_filas == 0)
        m_sentencia = Sentencia(m_cabecera);
    m_sentencia << (m_filas == 0 ? Fragmento(u"(") : Fragmento(u", (")) << valores << u")";
    if (++m_filas == FilasPorSentencia)
        cerrar();
}

void Lote::cerrar()
{
    if (m_filas == 0)
        return;
    m_filas = 0;
    m_conexion.Ejecutar(m_sentencia);
}

} // namespace nv
