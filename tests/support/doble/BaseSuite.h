#pragma once

#include "support/doble/Tipos.h"

#include "common/Conexion.h"

#include <QHash>
#include <QStringList>

#include <map>
#include <memory>
#include <mutex>

namespace nv::doble {

/// Declared columns by table. For all sessions at once.
class Tablas
{
public:
    void anotar(const QString &tabla, const std::vector<Columna> &columnas);
    std::vector<Columna> de(const QString &tabla) const;

private:
    mutable std::mutex m_cerrojo;
    QHash<QString, std::vector<Columna>> m_columnas;
};

/// A database of the stand-in, as new as CREATE DATABASE leaves it: a file of the embedded engine without any table.
class BaseSuite
{
public:
    /// Throws Error.
    explicit BaseSuite(const QString &ruta);

    /// One connection per session: locks and #tables are the session's. Throws Error.
    std::unique_ptr<Conexion> conectar() const;
    /// After a CREATE TABLE: what the embedded engine hangs on a table of that name. Throws Error.
    void completar(Conexion &conexion, const QString &tabla) const;
    Tablas &tablas() { return m_tablas; }

private:
    QString m_ruta;
    Tablas m_tablas;
    QHash<QString, QStringList> m_disparadores;
};

} // namespace nv::doble
