#include "platform/datos/ConexionOdbcErrores.h"
#include "platform/datos/ConexionOdbcValores.h"
#include "platform/datos/DialectoServidor.h"

#include <QDateTime>
#include <QSqlError>
#include <QSqlField>
#include <QtTest>

using namespace Qt::StringLiterals;
using namespace nv::datos;

/// What the connection to a server does to statements, messages and values, without a server.
class PruebaAdaptacion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void order_outside_the_list_goes_data();
    void order_outside_the_list_goes();
    void messages_lose_the_names_of_the_drivers_data();
    void messages_lose_the_names_of_the_drivers();
    void values_of_a_server_data();
    void values_of_a_server();
};

void PruebaAdaptacion::order_outside_the_list_goes_data()
{
    QTest::addColumn<QString>("sentencia");
    QTest::addColumn<QString>("queda"); // of the order
    const QString copia =
        u"INSERT INTO Articulos_Buscar(Terminal, Cod_Empresa, Cod_Articulo, Descripcion) SELECT DISTINCT 'CAJA1', 1, "_s;
    const QString propia = copia + u"a.Codigo, a.Descripcion FROM Articulos a WHERE a.Codigo > 0 "_s;
    const auto caso = [](const char *nombre, const QString &principio, const QString &orden, bool se_va) {
        QTest::newRow(nombre) << principio + orden << (se_va ? QString() : orden);
    };
    caso("in the list", propia, u"ORDER BY a.Descripcion"_s, false);
    caso("in the list, another case and way", propia, u"order by A.descripcion DESC, a . Codigo asc"_s, false);
    caso("its column without the table", propia, u"ORDER BY Descripcion"_s, false);
    caso("by ordinal", propia, u"ORDER BY 4"_s, false);
    caso("a column of another table", propia, u"ORDER BY #TempBA.Ventas_Unidades DESC"_s, true);
    caso("families before the description", propia, u"ORDER BY a.Familia_1, a.Familia_2, a.Familia_3, a.Descripcion"_s,
         true);
    caso("an expression", propia, u"ORDER BY ISNULL(a.Descripcion, a.Codigo)"_s, true);
    const QString agrupada = copia +
                             u"a.Codigo, MIN(a.Descripcion) AS Descripcion FROM Articulos a WHERE a.Codigo IN (SELECT "
                             u"Cod_Articulo FROM #TempBA) GROUP BY a.Codigo "_s;
    caso("grouped", agrupada, u"ORDER BY a.Codigo"_s, false);
    caso("an alias", agrupada, u"ORDER BY Descripcion"_s, false);
    caso("what an alias stands for", agrupada, u"ORDER BY MIN(a.Descripcion)"_s, false);
    caso("the column inside an aggregate", agrupada, u"ORDER BY a.Descripcion"_s, true);
    caso("words inside a text",
         copia + u"a.Codigo, 'ORDER BY x' FROM Articulos a WHERE a.Descripcion = ') ORDER BY '"_s, QString(), false);
    caso("an order inside brackets only",
         copia +
             u"a.Codigo, '' FROM Articulos a WHERE a.Codigo IN (SELECT TOP 5 Codigo FROM Articulos ORDER BY FAlta)"_s,
         QString(), false);
    caso("a limit counts in its order",
         u"INSERT INTO Articulos_Buscar(Cod_Articulo) SELECT DISTINCT TOP 10 a.Codigo FROM Articulos a "_s,
         u"ORDER BY a.FAlta"_s, false);
    caso("a search", u"SELECT DISTINCT a.Codigo FROM Articulos a "_s, u"ORDER BY a.Familia_1"_s, false);
    caso("a copy that is not distinct", u"INSERT INTO T (A) SELECT a.Codigo FROM Articulos a "_s,
         u"ORDER BY a.Familia_1"_s, false);
}

void PruebaAdaptacion::order_outside_the_list_goes()
{
    QFETCH(QString, sentencia);
    QFETCH(QString, queda);
    const QString adaptada = adaptarAlServidor(sentencia);
    const qsizetype orden = sentencia.lastIndexOf(u"ORDER BY "_s, -1, Qt::CaseInsensitive);
    if (queda.isEmpty() && sentencia.endsWith(sentencia.sliced(orden)) && adaptada != sentencia)
        QCOMPARE(adaptada, sentencia.first(orden).trimmed());
    else
        QCOMPARE(adaptada, sentencia);
}

void PruebaAdaptacion::messages_lose_the_names_of_the_drivers_data()
{
    QTest::addColumn<QString>("mensaje");
    QTest::addColumn<QString>("codigo");
    QTest::addColumn<QString>("visto");
    QTest::newRow("one") << u"[FreeTDS][SQL Server]Invalid object name 'Nada'."_s << u"208"_s
                         << u"208 Invalid object name 'Nada'."_s;
    QTest::newRow("two records")
        << u"[FreeTDS][SQL Server]Violation of PRIMARY KEY. [FreeTDS][SQL Server]The statement has been terminated."_s
        << u"2627;3621"_s << u"2627 Violation of PRIMARY KEY. The statement has been terminated."_s;
    QTest::newRow("brackets of its own")
        << u"[Microsoft][ODBC Driver 18 for SQL Server][SQL Server]Column [a] or [b]?"_s << u"207"_s
        << u"207 Column [a] or [b]?"_s;
    QTest::newRow("no prefix, no number")
        << u"  Se ha cortado la conexión "_s << QString() << u"0 Se ha cortado la conexión"_s;
    QTest::newRow("the first record has no number") << u"[D]uno [D]dos"_s << u"0;1205"_s << u"1205 uno. dos"_s;
    QTest::newRow("only a prefix") << u"[D][S]"_s << QString() << u"0 Unable to execute statement"_s;
    QTest::newRow("a bracket left open") << u"[Driver sin cerrar"_s << u"1"_s << u"1 [Driver sin cerrar"_s;
}

void PruebaAdaptacion::messages_lose_the_names_of_the_drivers()
{
    QFETCH(QString, mensaje);
    QFETCH(QString, codigo);
    QFETCH(QString, visto);
    const nv::Error error =
        errorOdbc(QSqlError(u"Unable to execute statement"_s, mensaje, QSqlError::StatementError, codigo));
    QCOMPARE(u"%1 %2"_s.arg(error.numero).arg(error.descripcion), visto);
}

void PruebaAdaptacion::values_of_a_server_data()
{
    QTest::addColumn<int>("tipo");
    QTest::addColumn<int>("tipoSql");
    QTest::addColumn<QVariant>("crudo");
    QTest::addColumn<QVariant>("valor");
    constexpr int Char = 1;
    constexpr int Varchar = 12;
    constexpr int WChar = -8;
    const auto caso = [](const char *nombre, int tipo, int tipoSql, const QVariant &crudo, const QVariant &valor) {
        QTest::newRow(nombre) << tipo << tipoSql << crudo << valor;
    };
    caso("money as text", QMetaType::Double, 3, u"10.5000"_s, 10.5);
    caso("money without its zero", QMetaType::Double, 3, u"-.0001"_s, -0.0001);
    caso("more decimals than an amount has", QMetaType::Double, 3, u"0.66666666"_s, 0.6667);
    caso("an amount that no double holds", QMetaType::Double, 3, u"922337203685477.5807"_s, u"922337203685477.5807"_s);
    caso("a float", QMetaType::Double, 8, 0.1 + 0.2, 0.3);
    caso("null money", QMetaType::Double, 3, QVariant(QMetaType::fromType<QString>()), {});
    caso("bit", QMetaType::Bool, -7, true, qlonglong{1});
    caso("tinyint", QMetaType::UInt, -6, 255U, qlonglong{255});
    caso("smallint", QMetaType::Int, 5, -7, qlonglong{-7});
    caso("null int", QMetaType::Int, 4, QVariant(QMetaType::fromType<int>()), {});
    caso("char", QMetaType::QString, Char, u" AB    "_s, u" AB"_s);
    caso("nchar", QMetaType::QString, WChar, u"Ñ  "_s, u"Ñ"_s);
    caso("char of blanks", QMetaType::QString, Char, u"   "_s, QString(u""_s));
    caso("varchar", QMetaType::QString, Varchar, u"AB  "_s, u"AB  "_s);
    caso("datetime", QMetaType::QDateTime, 93, QDateTime(QDate(2026, 11, 22), QTime(13, 5)),
         QDateTime(QDate(2026, 11, 22), QTime(13, 5)));
}

void PruebaAdaptacion::values_of_a_server()
{
    QFETCH(int, tipo);
    QFETCH(int, tipoSql);
    QFETCH(QVariant, crudo);
    QFETCH(QVariant, valor);
    QSqlField campo(u"c"_s, QMetaType(tipo));
    campo.setSqlType(tipoSql);
    const QVariant visto = valorOdbc(crudo, claseOdbc(campo));
    QCOMPARE(visto.typeId(), valor.typeId());
    QCOMPARE(visto.isNull(), valor.isNull());
    QCOMPARE(visto, valor);
}

QTEST_GUILESS_MAIN(PruebaAdaptacion)
#include "tst_odbcAdaptacion.moc"
