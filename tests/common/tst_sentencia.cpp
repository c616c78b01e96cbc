#include "common/Error.h"
#include "common/Moneda.h"
#include "common/sql/Patron.h"
#include "common/sql/Sentencia.h"

#include <QTest>

using namespace Qt::StringLiterals;
using nv::Moneda;
using nv::Sentencia;

template <class T>
concept EntraEnSentencia = requires(Sentencia s, T valor)
{
    s << valor;
};
static_assert(EntraEnSentencia<int> && EntraEnSentencia<qint16>);
static_assert(!EntraEnSentencia<QString> && !EntraEnSentencia<const char16_t *> && !EntraEnSentencia<bool>,
              "typed text must not slip into a statement");

class tst_Sentencia : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void quotes_refuse_or_double();
    void typed_numbers_must_be_numbers_data();
    void typed_numbers_must_be_numbers();
    void copy_starts_at_the_first_from();
    void wildcards_data();
    void wildcards();
    void amounts_are_exact();
    void amounts_read_any_decimal_text_data();
    void amounts_read_any_decimal_text();
};

void tst_Sentencia::quotes_refuse_or_double()
{
    Sentencia escrito(u"WHERE Ref ='");
    escrito << nv::ComoEscrito(u"O'R") << u"'";
    QVERIFY(!escrito.defecto().isEmpty());

    Sentencia dentro(u"SELECT 1 ");
    dentro << escrito;
    QVERIFY2(!dentro.defecto().isEmpty(), "a piece that cannot be sent spoils the whole");
    QVERIFY(!dentro.desdeFrom().defecto().isEmpty());

    Sentencia doblado(u"WHERE Ref ='");
    doblado << nv::Doblado(u"L'ORÉAL") << u"'";
    QCOMPARE(doblado.texto(), u"WHERE Ref ='L''ORÉAL'"_s);
    QVERIFY(doblado.defecto().isEmpty());

    Sentencia nulo(u"'");
    nulo << nv::Doblado(QString(QChar::Null));
    QVERIFY(!nulo.defecto().isEmpty());
}

void tst_Sentencia::typed_numbers_must_be_numbers_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<bool>("bien");
    QTest::newRow("digits") << u"00123"_s << true;
    QTest::newRow("decimal point") << u"-1.5"_s << true;
    QTest::newRow("injection") << u"1 OR 1=1"_s << false;
    QTest::newRow("comment") << u"1--"_s << false;
    QTest::newRow("empty") << QString() << false;
    QTest::newRow("only a point") << u"."_s << false;
    QTest::newRow("other digits") << u"１"_s << false;
}

void tst_Sentencia::typed_numbers_must_be_numbers()
{
    QFETCH(QString, texto);
    QFETCH(bool, bien);
    Sentencia sentencia(u"=");
    sentencia << nv::NumeroEscrito(texto);
    QCOMPARE(sentencia.defecto().isEmpty(), bien);
}

void tst_Sentencia::copy_starts_at_the_first_from()
{
    Sentencia sentencia(u"SELECT  TOP 150 a.From_, x FROM Articulos a WHERE a.Codigo IN (SELECT c FROM t)");
    QCOMPARE(sentencia.desdeFrom().texto(), u"FROM Articulos a WHERE a.Codigo IN (SELECT c FROM t)"_s);
    QVERIFY(Sentencia(u"select 1 from t").desdeFrom().vacia());
}

void tst_Sentencia::wildcards_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("patron");
    QTest::newRow("plain") << u"ABC"_s << u"ABC%"_s;
    QTest::newRow("ends in one") << u"ABC*"_s << u"ABC%"_s;
    QTest::newRow("inside") << u"A*B"_s << u"A%B%"_s;
    QTest::newRow("in front") << u"*TORN"_s << u"%TORN%"_s;
    QTest::newRow("per cent as typed") << u"50%"_s << u"50%%"_s;
}

void tst_Sentencia::wildcards()
{
    QFETCH(QString, texto);
    QTEST(nv::patronDesdeComodines(texto), "patron");
}

void tst_Sentencia::amounts_are_exact()
{
    QCOMPARE(Moneda::deTexto(u"0.1") + Moneda::deTexto(u"0.2") + Moneda::deTexto(u"0.3"), Moneda::deTexto(u"0.6"));
    QCOMPARE(Moneda::deTexto(u"2.675").texto(2), u"2,68"_s);
    QCOMPARE(Moneda::deTexto(u"-2.675").texto(2), u"-2,68"_s);
    QCOMPARE(Moneda().texto(2), u"0,00"_s);
    QCOMPARE(Moneda::deTexto(u"1234567.5").textoAgrupado(), u"1.234.567,50"_s);
    QCOMPARE(Moneda::deTexto(u"-123.4567").textoAgrupado(), u"-123,4567"_s);
    QCOMPARE(Moneda::deTexto(u"12.5000").textoCorto(), u"12,5"_s);
    QCOMPARE(Moneda::deTexto(u"100").textoCorto(), u"100"_s);
    QCOMPARE(Moneda::deTexto(u"2.5").textoSql(), u"2.5"_s);
    // 9.99 × 21 % = 2.0979, rounded to cents before it is added to anything.
    QCOMPARE(Moneda::deTexto(u"9.99").porcentaje(Moneda::deUnidades(21), 2), Moneda::deTexto(u"2.10"));
    QCOMPARE(Moneda::deTexto(u"0.5").porcentaje(Moneda::deTexto(u"1"), 2), Moneda::deTexto(u"0.01"));
}

void tst_Sentencia::amounts_read_any_decimal_text_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<qint64>("diezmilesimas");
    QTest::newRow("driver's four decimals") << u"10.5000"_s << qint64(105000);
    QTest::newRow("fifth decimal rounds away from zero") << u"-0.00005"_s << qint64(-1);
    QTest::newRow("sixth decimal does not") << u"0.000049"_s << qint64(0);
    QTest::newRow("no digit before the point") << u".5"_s << qint64(5000);
    QTest::newRow("exponent") << u"1.5e2"_s << qint64(1500000);
}

void tst_Sentencia::amounts_read_any_decimal_text()
{
    QFETCH(QString, texto);
    QFETCH(qint64, diezmilesimas);
    QCOMPARE(Moneda::deTexto(texto).diezmilesimas(), diezmilesimas);
    QVERIFY_THROWS_EXCEPTION(nv::Error, Moneda::deTexto(u"1,5"));
    QVERIFY_THROWS_EXCEPTION(nv::Error, Moneda::deTexto(u"99999999999999999999"));
}

QTEST_APPLESS_MAIN(tst_Sentencia)
#include "tst_sentencia.moc"
