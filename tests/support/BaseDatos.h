#pragma once

#include "nvArticulo/Conexion.h"
#include "nvArticulo/Error.h"

#include <QStringList>
#include <QTemporaryDir>

#include <functional>
#include <map>

namespace nv::pruebas {

/// The rest of a result, cells joined by "|", a null as "NULL".
QStringList filasDe(Registros &registros);
QStringList filasDe(Conexion &conexion, const QString &sentencia);
/// A table written in one text: ";" ends a row, "→" a cell.
QList<QStringList> tabla(const QString &filas);
/// The Error that the operation throws; its number is -1 when it throws none, -2 when it has no words.
Error errorDe(const std::function<void()> &operacion);
inline qint32 numeroDeError(const std::function<void()> &operacion)
{
    return errorDe(operacion).numero;
}
inline bool falla(const std::function<void()> &operacion)
{
    return numeroDeError(operacion) != -1;
}

/// A catalogue in memory with the whole schema, as empty as a new one.
class BaseDatos
{
public:
    BaseDatos();

    Conexion &conexion() { return *m_conexion; }
    /// Runs each statement in turn; an Error leaves it.
    void ejecutar(const QStringList &sentencias);
    qint64 ejecutar(const QString &sentencia) { return conexion().Ejecutar(Sentencia::deConsola(sentencia)); }
    QStringList filas(const QString &sentencia) { return filasDe(conexion(), sentencia); }

private:
    std::unique_ptr<Conexion> m_conexion;
};

/// The ways in to a database.
enum class Via {
    Embebida,
    Odbc,      ///< SQLite behind an ODBC driver: the server's engine, but not its dialect
    Anfitrion, ///< the same, over a database that its host has opened
    Servidor,  ///< the empty database for tests that NVARTICULO_SQLSERVER names
};

/// A database behind a way in for as long as the object lives, which is longer than that of its connections.
class Lugar
{
public:
    explicit Lugar(Via via);
    ~Lugar();

    /// What the machine lacks for it; empty when nothing.
    QString falta() const;
    std::unique_ptr<Conexion> conectar();
    /// What another process hands to `conectarA`.
    const QString &texto() const { return m_texto; }
    static std::unique_ptr<Conexion> conectarA(const QString &texto);
    /// The suite's tables, empty. They go with the object.
    void hacerEsquema(Conexion &conexion);
    /// Ends the session of the last connection from outside; false where that cannot be done.
    bool cortar(Conexion &conexion);

private:
    Via m_via;
    QTemporaryDir m_carpeta;
    QString m_texto;            // file of the embedded engine, else connection text
    QStringList m_delAnfitrion; // names of the host's databases
    bool m_conEsquema = false;
};

/// Runs each test of a class over every way in that the machine has. What is missing is said by a skipped test.
class PruebaVias : public QObject
{
    Q_OBJECT

protected:
    enum class Sobre {
        Nada,     ///< every way in; tables are the test's own ("#x", written so everywhere)
        Esquema,  ///< those that speak the suite's dialect, with its tables and what `llenar` puts in them
        Catalogo, ///< the same, filled once: every test leaves it as it was
    };
    virtual Sobre sobre() const { return Sobre::Nada; }
    virtual void llenar() {}

    Via via() const { return m_via; }
    Lugar &lugar() { return m_lugares.at(m_via); }
    Conexion &conexion() { return *m_conexiones[m_via]; }
    void soltar() { m_conexiones.erase(m_via); }
    void reconectar() { m_conexiones[m_via] = lugar().conectar(); }
    qint64 ejecutar(const QString &sentencia) { return conexion().Ejecutar(escrita(sentencia)); }
    Registros abrir(const QString &sentencia) { return conexion().Abrir(escrita(sentencia)); }
    QStringList filas(const QString &sentencia) { return filas(escrita(sentencia)); }
    QStringList filas(const Sentencia &sentencia);

private Q_SLOTS:
    void initTestCase_data();
    void missing_ways_in();
    void init();
    void cleanup();

private:
    Sentencia escrita(QString sentencia) const;

    Via m_via = Via::Embebida;
    QStringList m_faltan;
    std::map<Via, Lugar> m_lugares;
    std::map<Via, std::unique_ptr<Conexion>> m_conexiones; // kept where the tables stay: a server is slow to let one in
};

} // namespace nv::pruebas

Q_DECLARE_METATYPE(nv::pruebas::Via)
