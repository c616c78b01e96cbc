#include "control/ClaseEntrada.h"
#include "support/Programa.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;
using nv::ClaseEntrada;
Q_DECLARE_METATYPE(nv::ClaseEntrada)

class tst_ClaseEntrada : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void kind_is_told_by_first_character_then_content_data();
    void kind_is_told_by_first_character_then_content();
    void code_with_qualities_is_cut_by_position();
    void in_store_codes_agree_with_independent_sources();
};

void tst_ClaseEntrada::kind_is_told_by_first_character_then_content_data()
{
    QTest::addColumn<QString>("entrada");
    QTest::addColumn<ClaseEntrada>("clase");
    QTest::newRow("supplier reference") << u".ABC"_s << ClaseEntrada::ReferenciaProveedor;
    QTest::newRow("a number that begins with a point") << u".45"_s << ClaseEntrada::ReferenciaProveedor;
    QTest::newRow("customer reference") << u"*X"_s << ClaseEntrada::ReferenciaCliente;
    QTest::newRow("PLU") << u"+12"_s << ClaseEntrada::Plu;
    QTest::newRow("barcode") << u"/84"_s << ClaseEntrada::CodigoBarras;
    QTest::newRow("a negative number") << u"-84"_s << ClaseEntrada::CodigoBarras;
    QTest::newRow("seven digits") << u"1234567"_s << ClaseEntrada::NumeroCorto;
    QTest::newRow("eight digits") << u"12345678"_s << ClaseEntrada::NumeroLargo;
    QTest::newRow("separators count for the length") << u"1.234,56"_s << ClaseEntrada::NumeroLargo;
    QTest::newRow("three letters") << u"ABC"_s << ClaseEntrada::Descripcion;
    QTest::newRow("two letters") << u"AB"_s << ClaseEntrada::Nada;
    QTest::newRow("other digits") << u"١٢٣٤"_s << ClaseEntrada::Descripcion;
    QTest::newRow("empty") << QString() << ClaseEntrada::Nada;
}

void tst_ClaseEntrada::kind_is_told_by_first_character_then_content()
{
    QFETCH(QString, entrada);
    QFETCH(ClaseEntrada, clase);
    QCOMPARE(nv::clasificada(entrada), clase);
}

void tst_ClaseEntrada::code_with_qualities_is_cut_by_position()
{
    const auto normal = nv::codigoConCualidades(u"000012340507", false);
    QCOMPARE(normal.articulo, 1234);
    QCOMPARE(normal.cualidadY, qint16(5));
    QCOMPARE(normal.cualidadX, qint16(7));
    const auto invertido = nv::codigoConCualidades(u"000012340507", true);
    QCOMPARE(invertido.cualidadX, qint16(5));
    QCOMPARE(invertido.cualidadY, qint16(7));
    const auto corto = nv::codigoConCualidades(u"000012340", false);
    QCOMPARE(corto.cualidadY, qint16(0));
    QCOMPARE(corto.cualidadX, qint16(0));
}

void tst_ClaseEntrada::in_store_codes_agree_with_independent_sources()
{
    QCOMPARE(nv::articuloDeTienda(u"21234567"), u"23456"_s);
    QVERIFY(!nv::esCodigoDeTienda(u"19999999"));
    QVERIFY(!nv::esCodigoDeTienda(u"30000000"));
    QCOMPARE(nv::articuloDeTienda(u"2900007"), u"7"_s);

    QFile fichero(QStringLiteral(NV_RAIZ "/../shared/data/codigos_tienda.csv"));
    if (!fichero.open(QIODevice::ReadOnly | QIODevice::Text))
        QSKIP("shared/data/codigos_tienda.csv is not here");
    fichero.readLine();
    int comparados = 0;
    while (!fichero.atEnd()) {
        const QStringList campos = QString::fromUtf8(fichero.readLine()).split(u',');
        ++comparados;
        QVERIFY2(nv::esCodigoDeTienda(campos[0]), qPrintable(campos[0]));
        QCOMPARE(nv::articuloDeTienda(campos[0]).toInt(), campos.value(4).toInt());
    }
    QVERIFY(comparados > 25);
}

NV_PRUEBA(tst_ClaseEntrada)
#include "tst_claseentrada.moc"
