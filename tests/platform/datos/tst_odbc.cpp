#include "platform/datos/ConexionOdbcErrores.h"
#include "platform/datos/ConexionOdbcValores.h"
#include "support/BaseDatos.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlField>
#include <QSqlQuery>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

using namespace Qt::StringLiterals;
using namespace nv::pruebas;
using namespace nv::datos;
using nv::Sentencia;

/// What the server's engine does to connection texts, messages and values, and what only a server shows.
class PruebaOdbc : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void messages_lose_the_names_of_the_drivers()
    {
        const QString casos[][3] = {
            {u"[FreeTDS][SQL Server]Invalid object name 'Nada'."_s, u"208"_s, u"208 Invalid object name 'Nada'."_s},
            {u"[FreeTDS][SQL Server]Violation of KEY. [FreeTDS][SQL Server]The statement has been terminated."_s,
             u"2627;3621"_s, u"2627 Violation of KEY. The statement has been terminated."_s},
            {u"[A][Driver 18 for B][B]Column [a] or [b]?"_s, u"207"_s, u"207 Column [a] or [b]?"_s},
            {u"  Se ha cortado la conexión "_s, {}, u"0 Se ha cortado la conexión"_s},
            {u"[D]uno [D]dos [D]uno"_s, u"0;1205"_s, u"1205 uno. dos"_s},
            {u"[D][S]"_s, {}, u"0 Unable to execute statement"_s},
            {u"[Driver sin cerrar"_s, u"1"_s, u"1 [Driver sin cerrar"_s},
        };
        for (const auto &[mensaje, codigo, visto] : casos) {
            const QSqlError crudo(u"Unable to execute statement"_s, mensaje, QSqlError::StatementError, codigo);
            QCOMPARE(QString::number(errorOdbc(crudo).numero) + u' ' + errorOdbc(crudo).descripcion, visto);
        }
        QVERIFY(!errorOdbc(QSqlError()).descripcion.isEmpty());
    }

    void values_of_a_server()
    {
        using Tipo = QMetaType;
        constexpr int Char = 1, Varchar = 12, WChar = -8;
        const std::tuple<QMetaType::Type, int, QVariant, QVariant> casos[] = {
            {Tipo::Double, 3, u"10.5000"_s, 10.5},
            {Tipo::Double, 3, u"-.0001"_s, -0.0001},
            {Tipo::Double, 3, u"0.66666666"_s, 0.6667},                              // more decimals than an amount has
            {Tipo::Double, 3, u"922337203685477.5807"_s, u"922337203685477.5807"_s}, // no double holds it
            {Tipo::Double, 8, 0.1 + 0.2, 0.3},
            {Tipo::Double, 3, QVariant(Tipo::fromType<QString>()), {}},
            {Tipo::Bool, -7, true, qlonglong{1}},
            {Tipo::UInt, -6, 255U, qlonglong{255}},
            {Tipo::QString, Char, u" AB    "_s, u" AB"_s},
            {Tipo::QString, WChar, u"   "_s, QString(u""_s)},
            {Tipo::QString, Varchar, u"AB  "_s, u"AB  "_s},
        };
        for (const auto &[tipo, tipoSql, crudo, valor] : casos) {
            QSqlField campo(u"c"_s, QMetaType(tipo));
            campo.setSqlType(tipoSql);
            const QVariant visto = valorOdbc(crudo, claseOdbc(campo));
            QVERIFY(visto == valor && visto.typeId() == valor.typeId() && visto.isNull() == valor.isNull());
        }
    }

    void texts_that_connect()
    {
        Lugar lugar(Via::Odbc);
        if (!lugar.falta().isEmpty())
            QSKIP(qPrintable(lugar.falta()));
        const QTemporaryDir carpeta;
        QFile origenes(carpeta.filePath(u"odbc.ini"_s));
        QVERIFY(origenes.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        origenes.write("[suite]\n" + lugar.texto().toUtf8().replace(';', '\n') + '\n');
        qputenv("ODBCINI", origenes.fileName().toUtf8());
#ifdef __SANITIZE_ADDRESS__
        const __lsan::ScopedDisabler ajenas; // the driver manager keeps what it reads of its files
#endif
        for (const QString &texto : {lugar.texto(), u" suite "_s, u"DSN=suite"_s, u"dsn=suite;"_s})
            QCOMPARE(filasDe(*abrirOdbc(texto), u"SELECT 1"_s), QStringList{u"1"_s});
        // This driver knows neither varchar(max) nor half the schema: nothing of it stays.
        const auto conexion = lugar.conectar();
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
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
        QVERIFY2(falla([] { sobreOdbc(QSqlDatabase()); }), "no ODBC");
        const auto cerrada = [] { sobreOdbc(QSqlDatabase::addDatabase(u"QODBC"_s, u"cerrada"_s)); };
        QCOMPARE(numeroDeError(cerrada), nv::errores::ConexionCerrada);
        QSqlDatabase::removeDatabase(u"cerrada"_s);
    }

    /// Of the driver, too, what the connection does for it: where it did that alone, other tests would prove nothing.
    void only_a_server_shows()
    {
        Lugar lugar(Via::Servidor);
        if (!lugar.falta().isEmpty())
            QSKIP(qPrintable(lugar.falta()));
        const auto conexion = lugar.conectar();
        const auto ejecutar = [&](const QString &sentencia) { conexion->Ejecutar(Sentencia::deConsola(sentencia)); };
        ejecutar(u"CREATE TABLE #Lista (Codigo int NOT NULL PRIMARY KEY)"_s);
        ejecutar(u"INSERT INTO #Lista (Codigo) VALUES (1), (2)"_s);
        const QString repetida = u"INSERT INTO #Lista (Codigo) VALUES (1)"_s;
        QCOMPARE(numeroDeError([&] { ejecutar(repetida); }), 2627); // its own, not that of the remark behind it
        ejecutar(u"SET XACT_ABORT ON"_s);
        conexion->Comenzar();
        ejecutar(u"DELETE FROM #Lista WHERE Codigo = 2"_s);
        QVERIFY(falla([&] { ejecutar(repetida); })); // the server rolls back by itself
        conexion->Deshacer();
        QCOMPARE(filasDe(*conexion, u"SELECT Codigo FROM #Lista"_s).size(), 2);

        // As for a password at the end of the text: the driver must not see more of it than there is.
        QStringList partes = lugar.texto().split(u';', Qt::SkipEmptyParts);
        const QString nombre = partes.filter(u"DATABASE="_s).value(0);
        std::stable_partition(partes.begin(), partes.end(), [&](const QString &parte) { return parte != nombre; });
        QCOMPARE(filasDe(*abrirOdbc(partes.join(u';')), u"SELECT DB_NAME()"_s), QStringList{nombre.section(u'=', 1)});

        QSqlDatabase base = QSqlDatabase::addDatabase(u"QODBC"_s, u"anfitrion"_s);
        base.setDatabaseName(lugar.texto() + u';');
        QVERIFY(base.open());
        QCOMPARE(filasDe(*sobreOdbc(base), u"SELECT 1"_s), QStringList{u"1"_s});
        QSqlQuery una(base);
        una.setForwardOnly(true);
        QVERIFY(una.exec(u"SELECT 1 UNION SELECT 2"_s) && una.next());
        QVERIFY2(!QSqlQuery(base).exec(u"SELECT 1"_s), "this driver has more than one live result");
    }
};

NV_PRUEBA(PruebaOdbc)
#include "tst_odbc.moc"
