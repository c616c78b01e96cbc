#include "platform/datos/CursorOdbc.h"
#include "support/BaseDatos.h"
#include "support/Puente.h"

#include <QSqlDatabase>
#include <QSqlDriver>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
using SinFugas = __lsan::ScopedDisabler;
#else
struct SinFugas
{};
#endif

using namespace Qt::StringLiterals;
using namespace nv::pruebas;
using namespace nv::datos;
using nv::Sentencia;

/// What the server's engine does to connection texts, messages and values, and what only a server shows.
class PruebaOdbc : public QObject, public nv::OyenteSentencias
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        const bool conServidor = QByteArray(QTest::currentTestFunction()).startsWith("server_");
        m_lugar = std::make_unique<Lugar>(conServidor ? Via::Servidor : Via::Odbc);
        if (!m_lugar->falta().isEmpty())
            QSKIP(qPrintable(m_lugar->falta()));
        if (conServidor)
            m_puente = std::make_unique<Puente>(m_lugar->texto());
    }
    void cleanup()
    {
        m_conexion.reset();
        m_puente.reset();
    }

    void messages_lose_the_names_of_the_drivers()
    {
        for (const QStringList &caso :
             tabla(u"01000 3621 [F][S]Terminated.|23000 2627 [F][S]Violation of KEY→2627 Terminated. Violation of KEY;"
                   u"42S22 207 [A][Driver 18 for B][B]Column [a] or [b]?→207 Column [a] or [b]?;01000 2 [D] EOF |01000 "
                   u"7 EOF"
                   u"→2 EOF;HY000 0 [D]uno|HY000 1205 [D]dos→1205 uno. dos;HY000 1 [Driver sin cerrar→1 [Driver sin "
                   u"cerrar;"
                   u"HY000 0 [D][S]→0 La base de datos no responde."_s)) {
            QList<MensajeOdbc> mensajes;
            for (const QString &uno : caso[0].split(u'|'))
                mensajes.push_back({uno.first(5), uno.section(u' ', 1, 1).toInt(), uno.section(u' ', 2)});
            const DichoOdbc dicho = resumidos(mensajes);
            QCOMPARE(QString::number(dicho.numero) + u' ' + dicho.texto, caso[1]);
        }
    }

    void amounts_of_a_server()
    {
        QVERIFY(importeOdbc(u"10.5000"_s) == QVariant(10.5) && importeOdbc(u"-.0001"_s) == QVariant(-0.0001));
        QCOMPARE(importeOdbc(u"0.66666666"_s), QVariant(0.6667)); // more decimals than an amount has
        QCOMPARE(importeOdbc(u"922337203685477.5807"_s).typeId(), int(QMetaType::QString)); // no double holds it
    }

    void texts_that_connect()
    {
        const QTemporaryDir carpeta;
        QFile origenes(carpeta.filePath(u"odbc.ini"_s));
        QVERIFY(origenes.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        origenes.write("[suite]\n" + m_lugar->texto().toUtf8().replace(';', '\n') + '\n');
        qputenv("ODBCINI", origenes.fileName().toUtf8());
        [[maybe_unused]] const SinFugas ajenas; // the driver manager keeps what it reads of its files
        for (const QString &texto : {m_lugar->texto(), u" suite "_s, u"DSN=suite"_s, u"dsn=suite;"_s})
            QCOMPARE(filasDe(*abrirOdbc(texto), u"SELECT 1"_s), QStringList{u"1"_s});
        // This driver knows neither varchar(max) nor half the schema: nothing of it stays.
        const auto conexion = m_lugar->conectar();
        QVERIFY(falla([&] { crearEsquema(*conexion); }) && !conexion->enTransaccion());
        QCOMPARE(filasDe(*conexion, u"SELECT name FROM sqlite_master"_s), QStringList());
    }

    void connections_that_cannot_be_made()
    {
        const auto mensaje = [](const QString &texto) { return errorDe([&] { abrirOdbc(texto); }).descripcion; };
        QVERIFY(mensaje(u" "_s).startsWith(u"Falta el texto"_s));
        for (const QString &texto : {u"DRIVER=NoHayTal;SERVER=x;PWD=secreto"_s, u"no es un texto de conexión"_s}) {
            const QString visto = mensaje(texto);
            QVERIFY2(visto.startsWith(u"No se puede conectar con la base de datos: "_s), qPrintable(visto));
            QVERIFY2(visto.size() > 50 && !visto.contains(u'[') && !visto.contains(u"secreto"_s), qPrintable(visto));
        }
        int ajeno = 0;
        for (void *enlace : {static_cast<void *>(nullptr), static_cast<void *>(&ajeno)})
            QCOMPARE(numeroDeError([&] { sobreOdbc(enlace); }), nv::errores::ConexionCerrada);
    }

    /// Of the driver, too, what the connection does for it: where it did that alone, other tests would prove nothing.
    void server_and_its_driver()
    {
        conectar();
        ejecutar(u"CREATE TABLE #Clave (Codigo int NOT NULL PRIMARY KEY)"_s);
        ejecutar(u"INSERT INTO #Clave (Codigo) VALUES (1), (2), (3), (4)"_s);
        const QString repetida = u"INSERT INTO #Clave (Codigo) VALUES (1)"_s;
        QCOMPARE(numeroDeError([&] { ejecutar(u"DELETE FROM #Clave WHERE 1 = 2; SELECT 1; "_s + repetida); }),
                 2627); // its own, not that of the remark behind it
        ejecutar(u"SET XACT_ABORT ON"_s);
        m_conexion->Comenzar();
        ejecutar(u"DELETE FROM #Clave WHERE Codigo = 2"_s);
        QVERIFY(falla([&] { ejecutar(repetida); })); // the server rolls back by itself
        m_conexion->Deshacer();
        QCOMPARE(filas(u"SELECT Codigo FROM #Clave"_s).size(), 4);
        const QString rota = u"SELECT 6 / (3 - Codigo) FROM #Clave ORDER BY Codigo"_s;
        QCOMPARE(numeroDeError([&] { filas(rota); }), 8134); // behind the first rows, which are no whole list

        // Without ClientCharset, and with the name at the end, as a password may be.
        QStringList partes = QString(m_lugar->texto()).remove(u"ClientCharset=UTF-8"_s).split(u';', Qt::SkipEmptyParts);
        const QString nombre = partes.filter(u"DATABASE="_s).value(0);
        std::stable_partition(partes.begin(), partes.end(), [&](const QString &parte) { return parte != nombre; });
        const auto otra = abrirOdbc(partes.join(u';'));
        QCOMPARE(filasDe(*otra, u"SELECT DB_NAME() + '¡Ñandú! €'"_s),
                 QStringList{nombre.section(u'=', 1) + u"¡Ñandú! €"_s});
    }

    /// Which asks for another version of ODBC than we do.
    void server_over_a_handle_of_qt()
    {
        QSqlDatabase base = QSqlDatabase::addDatabase(u"QODBC"_s, u"anfitrion"_s);
        base.setDatabaseName(m_lugar->texto() + u';');
        if (!base.open())
            QSKIP("no ODBC driver of Qt");
        m_conexion = sobreOdbc(base.driver()->handle().value<void *>());
        llenar();
        const QString fila =
            u"SELECT CAST('CAÑERÍAS' AS varchar(8)), CAST('€€' AS char(2)), CAST('02/11/2026' AS datetime)"_s;
        QCOMPARE(filas(fila).last(), u"CAÑERÍAS|€€|02/11/2026"_s); // with as many letters as a column has room for
        QCOMPARE(filas(u"SELECT Codigo FROM #Lista"_s).size(), 32768);
        m_conexion.reset();
    }

    void server_is_asked_once()
    {
        conectar();
        const auto viajes = [this](const QString &consulta, int filas) {
            m_puente->viajes();
            nv::Registros registros = m_conexion->Abrir(Sentencia::deConsola(u"SELECT "_s + consulta));
            while (filas-- > 0 && registros.siguiente()) {}
            registros.cerrar();
            return m_puente->viajes();
        };
        QCOMPARE(viajes(u"Codigo FROM #Lista WHERE Codigo = 7"_s, 1), 1);
        QCOMPARE(viajes(u"Nota, Codigo FROM #Lista WHERE Codigo <= 100"_s, 1), 1); // a text of any length
        QCOMPARE(viajes(u"Codigo FROM #Lista"_s, 40000), 1);
        QCOMPARE(viajes(u"Codigo FROM #Lista"_s, 1), 2); // told to stop, which is less than reading them all
    }

    void server_that_is_lost()
    {
        conectar();
        m_puente->cortar();
        QVERIFY(dice(u"SELECT 1"_s).startsWith(Perdida + u" ("_s));
        QVERIFY(dice(u"DELETE FROM #Lista"_s).startsWith(Perdida)); // it went with its session
        QCOMPARE(m_oido.filter(u"de nuevo"_s).size(), 1);
        QVERIFY(!dice(u"SELECT '#Lista' FROM NoEsta"_s).startsWith(Perdida));
        llenar();
        nv::Registros lista = m_conexion->Abrir(Sentencia(u"SELECT Codigo, CAST(Nota AS varchar(60)) FROM #Lista"));
        QVERIFY(lista.siguiente());
        m_puente->cortar();
        QVERIFY2(falla([&] { filasDe(lista); }), "half a list");
        for (const auto corte : {Puente::AntesDePedir, Puente::TrasResponder}) {
            QCOMPARE(filas(u"SELECT 1"_s), QStringList{u"1"_s});
            m_puente->cortarAl(u"SELECT 2"_s, corte);
            QVERIFY(dice(u"SELECT 2"_s).startsWith(Perdida));
        }
        m_conexion = abrirOdbc(m_puente->texto(), {5, 1});
        m_puente->cortarAl(u"SELECT 2"_s, Puente::Callado);
        QCOMPARE(dice(u"SELECT 2"_s), u"La consulta ha tardado más de 1 segundos y se ha cancelado."_s);
    }

    void server_that_is_lost_in_a_transaction()
    {
        const auto otra = m_lugar->conectar();
        otra->Ejecutar(Sentencia(u"CREATE TABLE Guardados (Codigo int)"));
        const auto quitar = qScopeGuard([&] { otra->Ejecutar(Sentencia(u"DROP TABLE Guardados")); });
        const auto guardados = [&] { return filasDe(*otra, u"SELECT Codigo FROM Guardados"_s).join(u','); };
        const QString guardar = u"INSERT INTO Guardados VALUES (4)"_s;
        conectar();
        const std::pair<Puente::Corte, QString> casos[] = {{Puente::AntesDePedir, u""_s},
                                                           {Puente::TrasResponder, u"4"_s}};
        for (const auto &[corte, quedan] : casos) {
            QCOMPARE(guardados(), QString());
            nv::Transaccion transaccion(*m_conexion);
            ejecutar(guardar);
            m_puente->cortarAl(u"COMMIT"_s, corte);
            QVERIFY(errorDe([&] { transaccion.confirmar(); }).descripcion.startsWith(u"No se sabe si se guardó"_s));
            QVERIFY2(dice(guardar).startsWith(u"No se sabe"_s), "nor does who asks again");
            QTRY_COMPARE(guardados(), quedan);
        }
        m_conexion->Comenzar();
        ejecutar(guardar);
        m_puente->cortar();
        QVERIFY(dice(guardar).startsWith(Perdida));
        QVERIFY(dice(guardar).contains(u"y con ella la transacción"_s) && falla([&] { m_conexion->Confirmar(); }));
        m_conexion->Deshacer();
    }

private:
    void sentencia(const nv::SucesoSentencia &suceso) override { m_oido << suceso.texto; }
    void conectar()
    {
        m_conexion = abrirOdbc(m_puente->texto());
        m_conexion->escuchar(this);
        llenar();
    }
    void ejecutar(const QString &sentencia) { m_conexion->Ejecutar(Sentencia::deConsola(sentencia)); }
    QStringList filas(const QString &sentencia) { return filasDe(*m_conexion, sentencia); }
    QString dice(const QString &sentencia)
    {
        return errorDe([&] { ejecutar(sentencia); }).descripcion;
    }
    /// More than 30,000 rows.
    void llenar()
    {
        ejecutar(u"CREATE TABLE #Lista (Codigo int, Nota varchar(max))"_s);
        ejecutar(u"INSERT INTO #Lista VALUES (1, 'Nota de un artículo, más larga que su código')"_s);
        for (int i = 1; i <= 16384; i *= 2)
            ejecutar(u"INSERT INTO #Lista SELECT Codigo + %1, Nota FROM #Lista"_s.arg(i));
    }

    const QString Perdida = u"Se ha perdido la conexión con la base de datos."_s;
    std::unique_ptr<Lugar> m_lugar;
    std::unique_ptr<Puente> m_puente;
    std::unique_ptr<nv::Conexion> m_conexion;
    QStringList m_oido;
};

NV_PRUEBA(PruebaOdbc)
#include "tst_odbc.moc"
