#pragma once

#include "CatalogoMinimo.h"
#include "support/BaseDatos.h"
#include "support/Doble.h"

#include "common/Error.h"
#include "platform/datos/Motores.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QTemporaryDir>
#include <QtTest>

#include <exception>
#include <functional>
#include <set>

using namespace Qt::StringLiterals;
using nv::Sentencia;
using nv::pruebas::filasDe;

/// The ways in to a database. Texto and Anfitrion go to SQLite through ODBC, by a connection text and over a database
/// that the host opened; Doble and DobleAnfitrion likewise to a stand-in for a server behind FreeTDS; the server is the
/// one that NVARTICULO_SQLSERVER names, a database for tests.
enum class Motor { Embebido, Texto, Anfitrion, Doble, DobleAnfitrion, Servidor };
Q_DECLARE_METATYPE(Motor)

/// Those that speak the suite's dialect, by the names of their rows.
inline std::vector<std::pair<const char *, Motor>> delDialecto()
{
    return {{"embedded", Motor::Embebido},
            {"FreeTDS", Motor::Doble},
            {"host's FreeTDS database", Motor::DobleAnfitrion},
            {"server", Motor::Servidor}};
}

inline qint32 numeroDeError(const std::function<void()> &operacion)
{
    try {
        operacion();
    } catch (const nv::Error &error) {
        return error.descripcion.isEmpty() ? -2 : error.numero;
    }
    return -1;
}

inline bool falla(const std::function<void()> &operacion)
{
    return numeroDeError(operacion) != -1;
}

/// What the tests of every way in share: each starts with a connection to an empty place.
class PruebaMotores : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        // Qt Test lets an escaped exception end the program without saying what it was.
        std::set_terminate([] {
            try {
                std::rethrow_exception(std::current_exception());
            } catch (const nv::Error &error) {
                qCritical("Error %d: %s", error.numero, qPrintable(error.descripcion));
            } catch (...) {}
            std::abort();
        });
        m_servidor = qEnvironmentVariable("NVARTICULO_SQLSERVER");
        if (m_servidor.isEmpty())
            qInfo("NVARTICULO_SQLSERVER is empty: nothing is proven over a server");
        for (const QString &nombre : {u"SQLite3"_s, u"libsqlite3odbc.so"_s}) {
            if (m_controlador.isEmpty() &&
                !falla([&] { nv::datos::abrirOdbc(u"DRIVER=%1;Database=:memory:"_s.arg(nombre)); }))
                m_controlador = nombre;
        }
        if (m_controlador.isEmpty())
            qInfo("No ODBC driver of SQLite: nothing is proven over it");
        if (!m_doble.hay())
            qInfo("No FreeTDS: nothing is proven over that driver");
        QVERIFY(m_carpetaCatalogo.isValid());
    }

    void cleanupTestCase()
    {
        if (m_conCatalogo.contains(Motor::Servidor))
            nv::pruebas::borrarEsquema(*nv::datos::abrirOdbc(m_servidor));
    }

    void init()
    {
        m_carpeta = std::make_unique<QTemporaryDir>();
        QVERIFY(m_carpeta->isValid());
    }

    void cleanup()
    {
        m_conexion.reset();
        const QStringList nombres = QSqlDatabase::connectionNames();
        for (const QString &nombre : nombres)
            QSqlDatabase::removeDatabase(nombre);
    }

protected:
    static void motores()
    {
        QTest::addColumn<Motor>("motor");
        QTest::newRow("embedded") << Motor::Embebido;
        QTest::newRow("ODBC text") << Motor::Texto;
        QTest::newRow("host's ODBC database") << Motor::Anfitrion;
        QTest::newRow("FreeTDS") << Motor::Doble;
        QTest::newRow("host's FreeTDS database") << Motor::DobleAnfitrion;
        QTest::newRow("server") << Motor::Servidor;
    }

    static void motoresConDialecto()
    {
        QTest::addColumn<Motor>("motor");
        for (const auto &[nombre, motor] : delDialecto())
            QTest::newRow(nombre) << motor;
    }

    bool empezar(Motor motor)
    {
        m_motor = motor;
        if (!hay(motor))
            return false;
        m_conexion = conectar(motor);
        return true;
    }

    /// With the schema and a small catalogue, one for all cases of a way in: a case that changes it rolls back.
    bool empezarConCatalogo(Motor motor)
    {
        m_motor = motor;
        if (!hay(motor))
            return false;
        m_conexion = conectarAlCatalogo(motor);
        if (m_conCatalogo.insert(motor).second) {
            if (motor != Motor::Embebido)
                nv::datos::crearEsquema(*m_conexion);
            for (const QString &sentencia : catalogoMinimo())
                ejecutar(sentencia);
        }
        return true;
    }

    std::unique_ptr<nv::Conexion> conectar(Motor motor) const
    {
        switch (motor) {
        case Motor::Embebido:
            return nv::datos::abrirEmbebida(m_carpeta->filePath(u"base.db"_s));
        case Motor::Texto:
            return nv::datos::abrirOdbc(textoSqlite());
        case Motor::Anfitrion:
            return sobreAnfitrion(textoSqlite());
        case Motor::Doble:
            return nv::datos::abrirOdbc(textoDoble());
        case Motor::DobleAnfitrion:
            return sobreAnfitrion(textoDoble());
        case Motor::Servidor:
            break;
        }
        return nv::datos::abrirOdbc(m_servidor);
    }

    QString textoDoble() const { return m_doble.texto(u"vacia"_s); }
    nv::Conexion &conexion() { return *m_conexion; }
    void soltar() { m_conexion.reset(); }
    qint64 ejecutar(const QString &sentencia) { return conexion().Ejecutar(Sentencia::deConsola(escrita(sentencia))); }
    nv::Registros abrir(const QString &sentencia) { return conexion().Abrir(Sentencia::deConsola(escrita(sentencia))); }
    QStringList filas(const QString &sentencia) { return filasDe(conexion(), escrita(sentencia)); }

    void diezFilas()
    {
        ejecutar(u"CREATE TABLE #Lista (Codigo int NOT NULL PRIMARY KEY, Nombre varchar(60))"_s);
        for (int i = 1; i <= 10; ++i)
            ejecutar(u"INSERT INTO #Lista (Codigo, Nombre) VALUES (%1, 'Artículo %1')"_s.arg(i));
    }

private:
    bool hay(Motor motor)
    {
        switch (motor) {
        case Motor::Embebido:
            return true;
        case Motor::Texto:
        case Motor::Anfitrion:
            return !m_controlador.isEmpty();
        case Motor::Doble:
        case Motor::DobleAnfitrion:
            return m_doble.hay();
        case Motor::Servidor:
            break;
        }
        return !m_servidor.isEmpty();
    }

    static std::unique_ptr<nv::Conexion> sobreAnfitrion(const QString &texto)
    {
        QSqlDatabase base = QSqlDatabase::addDatabase(u"QODBC"_s, QUuid::createUuid().toString());
        base.setDatabaseName(texto);
        if (!base.open())
            throw nv::Error{0, base.lastError().text(), {}};
        return nv::datos::sobreOdbc(base);
    }

    std::unique_ptr<nv::Conexion> conectarAlCatalogo(Motor motor) const
    {
        if (motor == Motor::Embebido)
            return nv::datos::abrirEmbebida(m_carpetaCatalogo.filePath(u"catalogo.db"_s));
        if (motor == Motor::Doble)
            return nv::datos::abrirOdbc(m_doble.texto(u"catalogo"_s));
        return motor == Motor::DobleAnfitrion ? sobreAnfitrion(m_doble.texto(u"anfitrion"_s)) : conectar(motor);
    }

    QString textoSqlite() const
    {
        return u"DRIVER=%1;Database=%2;Timeout=20000"_s.arg(m_controlador, m_carpeta->filePath(u"base.db"_s));
    }

    /// Tables of these tests: of the connection where the engine knows such tables.
    QString escrita(QString sentencia) const
    {
        if (m_motor == Motor::Texto || m_motor == Motor::Anfitrion)
            sentencia.remove(u'#');
        return sentencia;
    }

    Motor m_motor = Motor::Embebido;
    QString m_controlador; // of SQLite through ODBC; empty when there is none
    QString m_servidor;
    nv::pruebas::Doble m_doble;
    QTemporaryDir m_carpetaCatalogo;
    std::set<Motor> m_conCatalogo;
    std::unique_ptr<QTemporaryDir> m_carpeta;
    std::unique_ptr<nv::Conexion> m_conexion;
};

// Skips aloud, from the test function itself.
#define EMPEZAR(motor)                                                                                                 \
    if (!empezar(motor))                                                                                               \
        QSKIP("there is no such driver or server here");

#define EMPEZAR_CON_CATALOGO(motor)                                                                                    \
    if (!empezarConCatalogo(motor))                                                                                    \
        QSKIP("there is no such driver or server here");
