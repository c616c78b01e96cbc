#include "catalogo/Escritor.h"

#include "nvArticulo/Conexion.h"

#include <utility>

namespace mostrador {

namespace {

constexpr int FilasPorSentencia = 8;

void escribir(Sentencia &sentencia, const Escritor::Valor &valor)
{
    const auto *texto = std::get_if<QString>(&valor);
    const auto *fecha = std::get_if<QDate>(&valor);
    if ((texto && texto->isNull()) || (fecha && fecha->isNull()))
        sentencia << u"NULL";
    else if (texto)
        sentencia << u"'" << Doblado(*texto) << u"'";
    else if (fecha)
        sentencia << u"'" << *fecha << u"'";
    else if (const auto *importe = std::get_if<Moneda>(&valor))
        sentencia << *importe;
    else
        sentencia << std::get<qint64>(valor);
}

} // namespace

void Escritor::fila(const Tabla &tabla, std::initializer_list<Valor> valores)
{
    auto &[sentencia, filas] = m_lotes[&tabla];
    if (filas == 0)
        sentencia = Sentencia(u"INSERT INTO ") << tabla.nombre << u" (" << tabla.columnas << u") VALUES ";
    Fragmento separador = filas == 0 ? Fragmento(u"(") : Fragmento(u", (");
    for (const Valor &valor : valores) {
        sentencia << std::exchange(separador, Fragmento(u", "));
        escribir(sentencia, valor);
    }
    sentencia << u")";
    if (++filas == FilasPorSentencia)
        m_conexion.Ejecutar(m_lotes.extract(&tabla).mapped().sentencia);
}

void Escritor::cerrar()
{
    for (const auto &[tabla, lote] : std::exchange(m_lotes, {}))
        m_conexion.Ejecutar(lote.sentencia);
}

} // namespace mostrador
