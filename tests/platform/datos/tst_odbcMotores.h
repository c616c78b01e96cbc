#pragma once

#include "support/BaseDatos.h"

#include "common/Error.h"
#include "platform/datos/Motores.h"

#include <QProcess>
#include <QSqlDatabase>
#include <QSqlError>
#include <QTemporaryDir>
#include <QtTest>

#include <exception>
#include <functional>

using namespace Qt::StringLiterals;
using nv::Sentencia;
using nv::pruebas::filasDe;

/// The ways in to a database. Texto and Anfitrion go to SQLite through ODBC; Doble is a stand-in for a server behind
/// FreeTDS; the server is the one that NVARTICULO_SQLSERVER names, a database for tests.
enum class Motor { Embebido, Texto, Anfitrion, Doble, Servidor };
Q_DECLARE_METATYPE(Motor)

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
        arrancarDoble();
        if (m_doble.isEmpty())
            qInfo("No FreeTDS or no python3: nothing is proven over that driver");
    }

    void cleanupTestCase()
    {
        m_proceso.closeWriteChannel();
        m_proceso.waitForFinished(5000);
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
        QTest::newRow("server") << Motor::Servidor;
    }

    bool empezar(Motor motor)
    {
        m_motor = motor;
        const bool hay = motor == Motor::Embebido   ? true
                         : motor == Motor::Doble    ? !m_doble.isEmpty()
                         : motor == Motor::Servidor ? !m_servidor.isEmpty()
                                                    : !m_controlador.isEmpty();
        if (!hay)
            return false;
        m_conexion = conectar(motor);
        return true;
    }

    std::unique_ptr<nv::Conexion> conectar(Motor motor) const
    {
        switch (motor) {
        case Motor::Embebido:
            return nv::datos::abrirEmbebida(m_carpeta->filePath(u"base.db"_s));
        case Motor::Texto:
            return nv::datos::abrirOdbc(textoSqlite());
        case Motor::Anfitrion: {
            QSqlDatabase base = QSqlDatabase::addDatabase(u"QODBC"_s, QUuid::createUuid().toString());
            base.setDatabaseName(textoSqlite());
            if (!base.open())
                throw nv::Error{0, base.lastError().text(), {}};
            return nv::datos::sobreOdbc(base);
        }
        case Motor::Doble:
            return nv::datos::abrirOdbc(m_doble);
        case Motor::Servidor:
            break;
        }
        return nv::datos::abrirOdbc(m_servidor);
    }

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
    void arrancarDoble()
    {
        QVERIFY(m_carpetaDoble.isValid());
        m_proceso.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_proceso.start(u"python3"_s, {QStringLiteral(NV_RAIZ "/tests/platform/datos/tst_odbcDoble.py"),
                                       m_carpetaDoble.filePath(u"doble.db"_s)});
        if (!m_proceso.waitForStarted() || !m_proceso.waitForReadyRead(20000))
            return;
        const QString texto =
            u"DRIVER=FreeTDS;SERVER=127.0.0.1;PORT=%1;UID=u;PWD=p;TDS_Version=7.4;ClientCharset=UTF-8"_s.arg(
                QString::fromLatin1(m_proceso.readLine().trimmed()));
        if (!falla([&] { nv::datos::abrirOdbc(texto); }))
            m_doble = texto;
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
    QString m_doble; // connection text; empty when there is none
    QTemporaryDir m_carpetaDoble;
    QProcess m_proceso;
    std::unique_ptr<QTemporaryDir> m_carpeta;
    std::unique_ptr<nv::Conexion> m_conexion;
};

// Skips aloud, from the test function itself.
#define EMPEZAR(motor)                                                                                                 \
    if (!empezar(motor))                                                                                               \
        QSKIP("there is no such driver or server here");
