#pragma once

#include "common/Conexion.h"

#include <QStringList>

namespace nv::pruebas {

/// A catalogue in memory with the whole schema, as empty as a new one.
class BaseDatos
{
public:
    BaseDatos();

    Conexion &conexion() { return *m_conexion; }
    /// Runs each statement in turn; an Error leaves it.
    void ejecutar(const QStringList &sentencias);
    qint64 ejecutar(const QString &sentencia);
    /// The rows of a query, cells joined by "|", a null as "NULL".
    QStringList filas(const QString &sentencia);

private:
    std::unique_ptr<Conexion> m_conexion;
};

/// The rest of a result, as above.
QStringList filasDe(Registros &registros);
QStringList filasDe(Conexion &conexion, const QString &sentencia);

/// Drops every table of the suite.
void borrarEsquema(Conexion &conexion);

} // namespace nv::pruebas
