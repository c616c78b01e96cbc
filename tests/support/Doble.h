#pragma once

#include "common/Conexion.h"

#include <QProcess>
#include <QString>

namespace nv::pruebas {

/// The stand-in for a server, for as long as the object lives. Reached through FreeTDS.
class Doble
{
public:
    ~Doble();

    /// Without that driver, or without the program, there is nothing to be proven.
    bool hay();
    /// Connection text of one of its databases; a name that is new is an empty database.
    QString texto(const QString &base) const;

private:
    QProcess m_proceso;
    bool m_probado = false;
    int m_puerto = 0;
};

/// A database behind ODBC with the schema and nothing else: a new one of the stand-in, or that of NVARTICULO_SQLSERVER,
/// whose tables go with the object.
class BaseOdbc
{
public:
    BaseOdbc(Doble &doble, bool enServidor);
    BaseOdbc(const BaseOdbc &) = delete;
    BaseOdbc &operator=(const BaseOdbc &) = delete;
    ~BaseOdbc();

    /// False without the driver or the server.
    bool hay() const { return !m_texto.isEmpty(); }
    /// From any thread.
    std::unique_ptr<Conexion> conectar() const;

private:
    QString m_texto;
    bool m_enServidor;
};

} // namespace nv::pruebas
