#include "common/Valores.h"
#include "support/BaseDatos.h"
#include "support/Programa.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace nv::pruebas;

class tst_Valores : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numeric_reads_spanish_signs()
    {
        // Points stand anywhere before the comma, one at a time.
        for (const QStringView si : {u"00012", u"  12  ", u"1.234.567", u"1.2.3", u"1.234,5", u",5", u"5,", u".5",
                                     u"5.", u"-7", u"+7", u"-,5", u"1E5", u"1d-5", u"1e+5", u"1,5D2"})
            QVERIFY2(nv::esNumerico(si), qPrintable(si.toString()));
        for (const QStringView no :
             {u"1,234.5", u"1,2,3", u"1..2", u"--7", u"7-",  u"1E",   u"1E-", u"E5", u"1E5x", u".,",
              u"-",       u"1 2",   u"&H10", u"5€",  u"١٢٣", u"１２", u"\t1", u"1/", u"1:",   u""})
            QVERIFY2(!nv::esNumerico(no), qPrintable(no.toString()));
    }

    void val_takes_the_leading_number()
    {
        for (const QStringList &caso : tabla(
                 u"  00123 →123;ABC→0;12AB→12;1\t2\n3 4→1234;12.50→12.5;1.2.3→1.2;12,5→12;1E3→1000;1e+3→1000;1E→1;"
                 u"123456789012345678901→123456789012345678901;25D-3→0.025;12.5e1→125;1.25E1→12.5;100→100;0.5→0.5;-0→0;"
                 u"-007→-7;+5→5;1E-400→0;→0"_s)) {
            QCOMPARE(nv::ValTexto(caso[0]), caso[1]);
            QCOMPARE(nv::Val(caso[0]), caso[1].toDouble());
        }
    }

    void sizes_are_guarded()
    {
        QVERIFY(nv::ValEntero16(u"32767") == 32767 &&
                nv::ValEntero32(u"-2147483648") == std::numeric_limits<int>::min());
        QCOMPARE(nv::ValEntero32(u"2.5") + nv::ValEntero32(u"-3.5"), 3 - 4);
        QCOMPARE(nv::ValTexto(u"1E308"), u'1' + QString(308, u'0'));
        for (const auto &operacion : std::initializer_list<std::function<void()>>{
                 [] { nv::ValEntero16(u"32768"); }, [] { nv::ValEntero16(u"-32769"); }, [] { nv::Val(u"9E999999999"); },
                 [] { nv::ValEntero32(u"8412345678905"); }, [] { nv::ValTexto(u"1E309"); },
                 [] { nv::estrecho<qint16>(40000); }, [] { nv::estrecho<qint16>(-40000); }})
            QCOMPARE(numeroDeError(operacion), nv::errores::Desbordamiento);
    }

    /// As other programs may have written them.
    void settings_and_results_are_read()
    {
        for (const QStringView si : {u"1", u"-1", u"True", u"verdadero", u"SÍ", u"si", u" 2 "})
            QVERIFY2(nv::comoBooleano(si), qPrintable(si.toString()));
        for (const QStringView no : {u"0", u"", u"False", u"no", u"abc", u"1x"})
            QVERIFY2(!nv::comoBooleano(no), qPrintable(no.toString()));
        BaseDatos base;
        nv::Registros fila =
            base.conexion().Abrir(nv::Sentencia(u"SELECT '05/11/2026', ' 5/11/2026 9:30', '2026-11-05T09:30', "
                                                u"'2026-11-05 00:00:00.000', 'x', '', NULL, '99999'"));
        QVERIFY(fila.siguiente());
        for (int i = 0; i < 8; ++i)
            QCOMPARE(fila.fechaO(i), i < 4 ? QDate(2026, 11, 5) : QDate());
        QCOMPARE(numeroDeError([&] { fila.entero16(7); }), nv::errores::Desbordamiento);
        QVERIFY(fila.entero32(7) == 99999 && fila.booleano(7) && fila.booleanoO(7));
        QVERIFY(fila.entero32O(6) == 0 && fila.entero16O(6) == 0 && !fila.booleanoO(6) && fila.monedaO(6).esCero());
    }
};

NV_PRUEBA(tst_Valores)
#include "tst_valores.moc"
