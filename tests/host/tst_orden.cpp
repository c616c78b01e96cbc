#include "guion/Orden.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace nv::guion;

class tst_Orden : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lines_are_commands_or_nothing();
    void words_keep_quoted_blanks();
    void comparisons_split_at_the_first_sign();
};

void tst_Orden::lines_are_commands_or_nothing()
{
    QVERIFY(!leida(u"   "_s, 1) && !leida(u"  # nota"_s, 2));
    const auto orden = leida(u"  teclea  #84 7 "_s, 3);
    QVERIFY(orden);
    QCOMPARE(orden->nombre, u"teclea"_s);
    QCOMPARE(orden->resto, u"#84 7"_s);
    QCOMPARE(leida(u"reinicia"_s, 4)->resto, QString());
}

void tst_Orden::words_keep_quoted_blanks()
{
    const Orden orden{1, u"comprueba"_s, u"mensaje \"¡ Atención !\" \"dice \\\"no\\\"\\ny más\" \"\" critico"_s};
    QCOMPARE(orden.palabras(),
             (QStringList{u"mensaje"_s, u"¡ Atención !"_s, u"dice \"no\"\ny más"_s, QString(), u"critico"_s}));
}

void tst_Orden::comparisons_split_at_the_first_sign()
{
    const auto simple = comparacion(u"lblNombre = A = B"_s);
    QVERIFY(simple);
    QCOMPARE(simple->objeto, u"lblNombre"_s);
    QCOMPARE(simple->texto, u"A = B"_s);
    QCOMPARE(comparacion(u"txtCodigo ="_s)->texto, QString());
    QCOMPARE(comparacion(u"x = \" a \""_s)->texto, u" a "_s);
    QVERIFY(!comparacion(u"x=1"_s));
}

QTEST_APPLESS_MAIN(tst_Orden)
#include "tst_orden.moc"
