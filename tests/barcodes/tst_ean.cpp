#include "barcodes/Ean.h"
#include "support/Programa.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;
using nv::ean::digitoControl;
using nv::ean::esValido;

class tst_Ean : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void check_digits()
    {
        QCOMPARE(digitoControl(u"400638133393"), qint16(1));
        QCOMPARE(digitoControl(u"4006381333939999"), qint16(1)); // only twelve count
        QCOMPARE(digitoControl(u"40063813330٤"), digitoControl(u"400638133300"));
        QCOMPARE(digitoControl(u"9810001"), qint16(9));
        QCOMPARE(digitoControl(u""), qint16(0));
        QCOMPARE(digitoControl(u"12345678"), qint16(2));
        QCOMPARE(digitoControl(u"123456780"), qint16(4)); // over eight characters the other positions weigh three
        for (const QStringView bien : {u"ABC123456", u"12345", u"123456", u"4006381333931", u"98100019", u"0000000"})
            QVERIFY2(esValido(bien), qPrintable(bien.toString()));
        for (const QStringView mal : {u"4006381333932", u"98100018", u"0000001"})
            QVERIFY2(!esValido(mal), qPrintable(mal.toString()));
    }

    /// Real ones, on the market.
    void agrees_with_other_programs_and_products()
    {
        QFile digitos(QStringLiteral(NV_RAIZ "/../shared/data/digitos_control.csv"));
        QFile productos(QStringLiteral(NV_RAIZ "/../shared/data/productos_reales.csv"));
        if (!digitos.open(QIODevice::ReadOnly) || !productos.open(QIODevice::ReadOnly))
            QSKIP("shared/data is not here");
        int comparados = 0;
        for (digitos.readLine(); !digitos.atEnd();) {
            const QStringList campos = QString::fromUtf8(digitos.readLine()).split(u',');
            QCOMPARE(QString::number(digitoControl(QStringView(campos[0]).chopped(1))), campos[4]);
            if (campos[1] != u"8" && campos[1] != u"13")
                continue;
            ++comparados;
            QVERIFY2(esValido(campos[0]) == (campos[2] == u"1"), qPrintable(campos[0]));
        }
        QVERIFY(comparados > 50);
        for (productos.readLine(); !productos.atEnd();) {
            const QString linea = QString::fromUtf8(productos.readLine()).trimmed();
            QVERIFY2(esValido(linea.section(u',', 0, 0)) == linea.endsWith(u",1"), qPrintable(linea));
        }
    }
};

NV_PRUEBA(tst_Ean)
#include "tst_ean.moc"
