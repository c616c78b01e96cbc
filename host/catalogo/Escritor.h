#pragma once

#include "nvArticulo/Sentencia.h"

#include <initializer_list>
#include <map>
#include <variant>

namespace nv {
class Conexion;
}

namespace mostrador {

using namespace nv;

struct Tabla
{
    Fragmento nombre;
    Fragmento columnas;
};

/// Writes rows, a few of a table at a time: an INSERT per row spends more on the statement than on the row.
class Escritor
{
public:
    /// A null text and an invalid date are NULL.
    using Valor = std::variant<qint64, Moneda, QString, QDate>;

    explicit Escritor(Conexion &conexion)
        : m_conexion(conexion)
    {}

    /// The table must outlive the writer. Throws Error.
    void fila(const Tabla &tabla, std::initializer_list<Valor> valores);
    /// Sends what is left. Throws Error.
    void cerrar();

private:
    struct Lote
    {
        Sentencia sentencia;
        int filas = 0;
    };

    Conexion &m_conexion;
    std::map<const Tabla *, Lote> m_lotes;
};

} // namespace mostrador
