#pragma once

#include "nvArticulo/Conexion.h"
#include "nvArticulo/Error.h"
#include "nvArticulo/Motores.h"
#include "support/Programa.h"

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

/// A catalogue with the whole schema, as empty as a new one: in memory, or, while NVARTICULO_FORMAS names a database of the
/// server, there. One at a time then.
std::unique_ptr<Conexion> catalogoVacio();

/// Such a catalogue.
class BaseDatos
{
public:
    Conexion &conexion() { return *m_conexion; }
    /// Runs each statement in turn; an Error leaves it.
    void ejecutar(const QStringList &sentencias)
    {
        for (const QString &sentencia : sentencias)
            ejecutar(sentencia);
    }
    qint64 ejecutar(const QString &sentencia) { return conexion().Ejecutar(Sentencia::deConsola(sentencia)); }
    QStringList filas(const QString &sentencia) { return filasDe(conexion(), sentencia); }

private:
    std::unique_ptr<Conexion> m_conexion = catalogoVacio();
};

/// The ways in to a database.
enum class Via {
    Embebida,
    Odbc,      ///< SQLite behind an ODBC driver: the server's engine, but not its dialect
    Anfitrion, ///< the same, over a database that its host has opened with Qt's own driver
    Servidor,  ///< the empty database for tests that NVARTICULO_SQLSERVER names
};

/// A database behind a way in for as long as the object lives, which is longer than that of its connections.
class Lugar
{
public:
    explicit Lugar(Via via);
    ~Lugar();

    /// What the machine lacks for it; empty when nothing.
    QString falta() const
    {
        const char *que = m_via == Via::Servidor    ? "NVARTICULO_SQLSERVER is empty"
                          : m_via == Via::Anfitrion ? "no ODBC driver of Qt, or of SQLite"
                                                    : "no ODBC driver of SQLite";
        return m_texto.isEmpty() ? QString::fromLatin1(que) : QString();
    }
    std::unique_ptr<Conexion> conectar();
    /// What another process hands to `conectarA`.
    const QString &texto() const { return m_texto; }
    static std::unique_ptr<Conexion> conectarA(const QString &texto)
    {
        return texto.contains(u'=') ? datos::abrirOdbc(texto) : datos::abrirEmbebida(texto);
    }
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
    /// Over the suite's tables, empty, where their dialect is spoken; else over every way in, with tables of the test's
    /// own ("#x", written so everywhere).
    virtual bool conEsquema() const { return false; }
    /// Before each test.
    virtual void llenar() {}

    Via via() const { return m_via; }
    bool conSqlite() const { return m_via == Via::Odbc || m_via == Via::Anfitrion; }
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
    /// The tables that an ODBC driver of SQLite makes have ordinary names.
    Sentencia escrita(QString sentencia) const
    {
        return Sentencia::deConsola(conSqlite() ? sentencia.remove(u'#') : sentencia);
    }

    Via m_via = Via::Embebida;
    QStringList m_faltan;
    std::map<Via, Lugar> m_lugares;
    std::map<Via, std::unique_ptr<Conexion>> m_conexiones; // kept where the tables stay: a server is slow to let one in
};

} // namespace nv::pruebas

Q_DECLARE_METATYPE(nv::pruebas::Via)
