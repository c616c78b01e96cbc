#include "barcodes/Ean.h"
#include "support/Programa.h"

#include <QFile>

using namespace Qt::StringLiterals;
using nv::ean::digitoControl;
using nv::ean::esValido;

class tst_Ean : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void check_digits()
    {
        QCOMPARE(digitoControl(u"40063813330٤"), digitoControl(u"400638133300"));
        // Only twelve count; over eight characters the other positions weigh three.
        const std::pair<QStringView, int> casos[] = {{u"400638133393", 1}, {u"4006381333939999", 1},
                                                     {u"9810001", 9},      {u"", 0},
                                                     {u"12345678", 2},     {u"123456780", 4}};
        for (const auto &[codigo, digito] : casos)
            QCOMPARE(int(digitoControl(codigo)), digito);
        for (const QStringView bien : {u"ABC123456", u"12345", u"123456", u"4006381333931", u"98100019", u"0000000"})
            QVERIFY2(esValido(bien), qPrintable(bien.toString()));
        for (const QStringView mal : {u"4006381333932", u"98100018", u"0000001"})
            QVERIFY2(!esValido(mal), qPrintable(mal.toString()));
    }

    void agrees_with_other_programs()
    {
        QFile digitos(QStringLiteral(NV_RAIZ "/../shared/data/digitos_control.csv"));
        if (!digitos.open(QIODevice::ReadOnly))
            QSKIP("shared/data is not here");
        int comparados = 0;
        for (digitos.readLine(); !digitos.atEnd();) {
            const QStringList campos = QString::fromUtf8(digitos.readLine()).split(u',');
            QCOMPARE(QString::number(digitoControl(QStringView(campos[0]).chopped(1))), campos[4]);
            const bool deArticulo = campos[1] == u"8" || campos[1] == u"13";
            comparados += deArticulo;
            QVERIFY2(!deArticulo || esValido(campos[0]) == (campos[2] == u"1"), qPrintable(campos[0]));
        }
        QVERIFY(comparados > 50);
    }
};

NV_PRUEBA(tst_Ean)
#include "tst_ean.moc"
