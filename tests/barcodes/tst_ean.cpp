#include "barcodes/Ean.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_Ean : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void documented_examples();
    void agrees_with_independent_libraries();
    void real_products_check();
};

void tst_Ean::documented_examples()
{
    QCOMPARE(nv::ean::digitoControl(u"400638133393"), qint16(1));
    QCOMPARE(nv::ean::digitoControl(u"9810001"), qint16(9));
    QCOMPARE(nv::ean::digitoControl(u""), qint16(0));
    QVERIFY2(nv::ean::digitoControl(u"12345678") != nv::ean::digitoControl(u"123456780"),
             "over eight characters the other positions weigh three");
    QCOMPARE(nv::ean::digitoControl(u"4006381333939999"), qint16(1));
    QCOMPARE(nv::ean::digitoControl(u"4٣06381333٤3"), nv::ean::digitoControl(u"400638133303"));
    QVERIFY(nv::ean::esValido(u"ABC123456"));
    QVERIFY(nv::ean::esValido(u"12345"));
    QVERIFY(nv::ean::esValido(u"4006381333931"));
    QVERIFY(!nv::ean::esValido(u"4006381333932"));
}

void tst_Ean::agrees_with_independent_libraries()
{
    QFile fichero(QStringLiteral(NV_RAIZ "/../shared/data/digitos_control.csv"));
    if (!fichero.open(QIODevice::ReadOnly | QIODevice::Text))
        QSKIP("shared/data/digitos_control.csv is not here");
    fichero.readLine();
    int comparados = 0;
    while (!fichero.atEnd()) {
        const QStringList campos = QString::fromUtf8(fichero.readLine()).split(u',');
        const QString codigo = campos[0];
        QVERIFY2(QString::number(nv::ean::digitoControl(QStringView(codigo).chopped(1))) == campos[4],
                 qPrintable(codigo));
        if (campos[1] != u"8" && campos[1] != u"13")
            continue;
        ++comparados;
        QVERIFY2(nv::ean::esValido(codigo) == (campos[2] == u"1"), qPrintable(codigo));
    }
    QVERIFY(comparados > 50);
}

void tst_Ean::real_products_check()
{
    QFile fichero(QStringLiteral(NV_RAIZ "/../shared/data/productos_reales.csv"));
    if (!fichero.open(QIODevice::ReadOnly | QIODevice::Text))
        QSKIP("shared/data/productos_reales.csv is not here");
    fichero.readLine();
    int malos = 0;
    while (!fichero.atEnd()) {
        const QString linea = QString::fromUtf8(fichero.readLine()).trimmed();
        const QString codigo = linea.section(u',', 0, 0);
        const bool bien = linea.endsWith(u",1");
        QVERIFY2(nv::ean::esValido(codigo) == bien, qPrintable(linea));
        malos += bien ? 0 : 1;
    }
    QCOMPARE(malos, 4);
}

QTEST_APPLESS_MAIN(tst_Ean)
#include "tst_ean.moc"
