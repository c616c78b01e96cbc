#pragma once

#include "common/sql/Sentencia.h"

namespace nv {

class Conexion;

/// Rows of one table, sent a few dozen at a time: an INSERT per row spends more on the statement than on the row.
class Lote
{
public:
    /// `cabecera`: "INSERT INTO Tabla (Columnas) VALUES ".
    Lote(Conexion &conexion, Fragmento cabecera)
        : m_conexion(conexion)
        , m_cabecera(cabecera)
    {}

    /// Values without the parentheses. Throws Error.
    void fila(const Sentencia &valores);
    /// Sends what is left. Throws Error.
    void cerrar();

private:
    Conexion &m_conexion;
    Fragmento m_cabecera;
    Sentencia m_sentencia;
    int m_filas = 0;
};

} // namespace nv
