#include "common/Error.h"
#include "common/Valores.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_Valores : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numeric_reads_spanish_signs_data();
    void numeric_reads_spanish_signs();
    void numeric_agrees_with_independent_vectors();
    void val_takes_the_leading_number_data();
    void val_takes_the_leading_number();
    void sizes_are_guarded();
    void booleans_read_settings();
};

void tst_Valores::numeric_reads_spanish_signs_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<bool>("numerico");
    QTest::newRow("digits") << u"00012"_s << true;
    QTest::newRow("blanks around") << u"  12  "_s << true;
    QTest::newRow("grouped") << u"1.234.567"_s << true;
    QTest::newRow("points anywhere before the comma") << u"1.2.3"_s << true;
    QTest::newRow("decimal comma") << u"1.234,5"_s << true;
    QTest::newRow("point after the comma") << u"1,234.5"_s << false;
    QTest::newRow("two commas") << u"1,2,3"_s << false;
    QTest::newRow("sign") << u"-7"_s << true;
    QTest::newRow("two signs") << u"--7"_s << false;
    QTest::newRow("sign behind") << u"7-"_s << false;
    QTest::newRow("exponent E") << u"1E5"_s << true;
    QTest::newRow("exponent D with sign") << u"1d-5"_s << true;
    QTest::newRow("exponent without digits") << u"1E"_s << false;
    QTest::newRow("only an exponent") << u"E5"_s << false;
    QTest::newRow("only separators") << u".,"_s << false;
    QTest::newRow("blank inside") << u"1 2"_s << false;
    QTest::newRow("hexadecimal") << u"&H10"_s << false;
    QTest::newRow("currency") << u"5€"_s << false;
    QTest::newRow("digits of another script") << u"١٢٣"_s << false;
    QTest::newRow("full-width digits") << u"１２"_s << false;
    QTest::newRow("tab") << u"\t1"_s << false;
    QTest::newRow("empty") << QString() << false;
}

void tst_Valores::numeric_reads_spanish_signs()
{
    QFETCH(QString, texto);
    QFETCH(bool, numerico);
    QCOMPARE(nv::esNumerico(texto), numerico);
}

void tst_Valores::numeric_agrees_with_independent_vectors()
{
    QFile fichero(QStringLiteral(NV_RAIZ "/../shared/data/numericos.csv"));
    if (!fichero.open(QIODevice::ReadOnly | QIODevice::Text))
        QSKIP("shared/data/numericos.csv is not here");
    int comparados = 0;
    fichero.readLine();
    while (!fichero.atEnd()) {
        const QString linea = QString::fromUtf8(fichero.readLine()).chopped(1);
        const bool comillas = linea.startsWith(u'"');
        const qsizetype fin = comillas ? linea.indexOf(u"\","_s) + 1 : linea.indexOf(u',');
        const QString texto = comillas ? linea.sliced(1, fin - 2) : linea.first(fin);
        const QStringList resto = linea.sliced(fin + 1).split(u',');
        // Hexadecimal, currency and the decimal point belong to other settings than these.
        const QString condicion = resto.value(1);
        if (condicion != u"any" && !condicion.contains(u"also true in es"))
            continue;
        if (texto.startsWith(u'&'))
            continue;
        ++comparados;
        QVERIFY2(nv::esNumerico(texto) == (resto.value(0) == u"1"), qPrintable(linea));
    }
    QVERIFY(comparados >= 15);
}

void tst_Valores::val_takes_the_leading_number_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("esperado");
    QTest::newRow("leading zeros and blanks") << u"  00123 "_s << u"123"_s;
    QTest::newRow("no number") << u"ABC"_s << u"0"_s;
    QTest::newRow("number then letters") << u"12AB"_s << u"12"_s;
    QTest::newRow("blanks inside") << u"1 2 3"_s << u"123"_s;
    QTest::newRow("decimal point") << u"12.50"_s << u"12.5"_s;
    QTest::newRow("comma ends it") << u"12,5"_s << u"12"_s;
    QTest::newRow("twenty-one digits stay whole") << u"123456789012345678901"_s << u"123456789012345678901"_s;
    QTest::newRow("exponent") << u"1E3"_s << u"1000"_s;
    QTest::newRow("negative exponent") << u"25D-3"_s << u"0.025"_s;
    QTest::newRow("minus nothing") << u"-0"_s << u"0"_s;
    QTest::newRow("negative") << u"-007"_s << u"-7"_s;
    QTest::newRow("empty") << QString() << u"0"_s;
}

void tst_Valores::val_takes_the_leading_number()
{
    QFETCH(QString, texto);
    QFETCH(QString, esperado);
    QCOMPARE(nv::ValTexto(texto), esperado);
    QCOMPARE(nv::Val(texto), esperado.toDouble());
}

void tst_Valores::sizes_are_guarded()
{
    QCOMPARE(nv::ValEntero16(u"32767"), qint16(32767));
    QVERIFY_THROWS_EXCEPTION(nv::Error, nv::ValEntero16(u"32768"));
    QCOMPARE(nv::ValEntero32(u"-2147483648"), std::numeric_limits<qint32>::min());
    QVERIFY_THROWS_EXCEPTION(nv::Error, nv::ValEntero32(u"8412345678905"));
    QCOMPARE(nv::ValEntero32(u"2.5"), 3);
    QCOMPARE(nv::ValEntero32(u"-2.5"), -3);
    QVERIFY_THROWS_EXCEPTION(nv::Error, nv::ValTexto(u"1E400"));
    QVERIFY_THROWS_EXCEPTION(nv::Error, nv::Val(u"9E99999999999"));
}

void tst_Valores::booleans_read_settings()
{
    for (const QString &si : {u"1"_s, u"-1"_s, u"True"_s, u"verdadero"_s, u"SÍ"_s, u" 2 "_s})
        QVERIFY2(nv::comoBooleano(si), qPrintable(si));
    for (const QString &no : {u"0"_s, u""_s, u"False"_s, u"no"_s, u"abc"_s})
        QVERIFY2(!nv::comoBooleano(no), qPrintable(no));
}

QTEST_APPLESS_MAIN(tst_Valores)
#include "tst_valores.moc"
