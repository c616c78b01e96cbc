#include "search/sql/Modelo0.h"

#include <QTest>

using namespace Qt::StringLiterals;
using nv::sql::CriteriosArticulo;

Q_DECLARE_METATYPE(CriteriosArticulo)

class tst_Modelo0 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void criteria_give_the_whole_statement_data();
    void criteria_give_the_whole_statement();
    void a_quote_in_a_criterion_is_refused();
    void row_limit_is_an_integer_from_zero_up_data();
    void row_limit_is_an_integer_from_zero_up();
};

void tst_Modelo0::criteria_give_the_whole_statement_data()
{
    QTest::addColumn<CriteriosArticulo>("criterios");
    QTest::addColumn<int>("limite");
    QTest::addColumn<bool>("conNotas");
    QTest::addColumn<QString>("condiciones");

    QTest::newRow("nothing asked") << CriteriosArticulo{} << 150 << false << u""_s;
    QTest::newRow("no limit") << CriteriosArticulo{} << -1 << true << u""_s;
    QTest::newRow("description") << CriteriosArticulo{.descripcion = u"ABC"_s} << 0 << false
                                 << u" AND a.Descripcion LIKE 'ABC%'"_s;
    QTest::newRow("wildcards inside and at the end")
        << CriteriosArticulo{.descripcion = u"*A*B*"_s} << 150 << false << u" AND a.Descripcion LIKE '%A%B%'"_s;
    QTest::newRow("description and notes") << CriteriosArticulo{.descripcion = u"A*B"_s} << 150 << true
                                           << u" AND (a.Descripcion LIKE 'A%B%' OR a.Desc_Memo LIKE 'A%B%')"_s;
    QTest::newRow("code") << CriteriosArticulo{.codigo = u"12"_s} << 150 << true << u" AND a.Codigo LIKE '12%'"_s;
    QTest::newRow("supplier") << CriteriosArticulo{.proveedor = 7} << 150 << false
                              << u" AND a.Codigo IN (SELECT Cod_Articulo FROM Articulos_Ref aref WHERE "
                                 u" aref.Cod_empresa=a.Cod_Empresa AND aref.Cod_Prov=7)"_s;
    QTest::newRow("reference") << CriteriosArticulo{.referencia = u"12*34"_s} << 150 << false
                               << u" AND a.Codigo IN (SELECT Cod_Articulo FROM Articulos_Ref aref WHERE "
                                  u" aref.Cod_empresa=a.Cod_Empresa AND aref.Ref LIKE '12%34%')"_s;
    QTest::newRow("family without the one above") << CriteriosArticulo{.familias = {0, 3, 4}} << 150 << false << u""_s;
    QTest::newRow("family with a gap") << CriteriosArticulo{.familias = {2, -1, 4}} << 150 << false
                                       << u" AND a.Familia_1=2"_s;
    QTest::newRow("all") << CriteriosArticulo{u"T"_s, u"1"_s, 7, u"R"_s, {1, 2, 3}} << 150 << true
                         << u" AND (a.Descripcion LIKE 'T%' OR a.Desc_Memo LIKE 'T%') AND a.Codigo LIKE '1%'"
                            u" AND a.Codigo IN (SELECT Cod_Articulo FROM Articulos_Ref aref WHERE "
                            u" aref.Cod_empresa=a.Cod_Empresa AND aref.Cod_Prov=7 AND aref.Ref LIKE 'R%')"
                            u" AND a.Familia_1=1 AND a.Familia_2=2 AND a.Familia_3=3"_s;
}

void tst_Modelo0::criteria_give_the_whole_statement()
{
    QFETCH(const CriteriosArticulo, criterios);
    QFETCH(const int, limite);
    QFETCH(const bool, conNotas);
    QFETCH(const QString, condiciones);
    const std::optional<qint32> tope = limite < 0 ? std::nullopt : std::optional<qint32>(limite);
    const QString texto = nv::sql::modelo0(2, tope, criterios, conNotas).texto();
    const QString prefijo = limite < 0 ? QString() : u" TOP %1"_s.arg(limite);
    QCOMPARE(texto, u"SELECT "_s + prefijo +
                        u" a.Codigo, a.Descripcion, a.Familia_1, a.Familia_2, a.Familia_3,"
                        u" ISNULL(b.Cod_Barras,'') AS Cod_Barras  FROM Articulos a  LEFT JOIN Articulos_CBarras b"
                        u" ON a.Cod_Empresa=b.Cod_Empresa AND b.Cod_Articulo=a.Codigo AND b.Principal=1"
                        u" WHERE a.Cod_Empresa =2"_s +
                        condiciones + u" ORDER BY a.Descripcion"_s);
}

void tst_Modelo0::a_quote_in_a_criterion_is_refused()
{
    for (const CriteriosArticulo &criterios :
         {CriteriosArticulo{.descripcion = u"L'OREAL"_s}, CriteriosArticulo{.codigo = u"1' OR 'a'='a"_s},
          CriteriosArticulo{.referencia = u"'"_s}}) {
        QVERIFY(!nv::sql::modelo0(2, 150, criterios, true).defecto().isEmpty());
    }
}

void tst_Modelo0::row_limit_is_an_integer_from_zero_up_data()
{
    QTest::addColumn<QString>("ajuste");
    QTest::addColumn<qint32>("limite");
    QTest::newRow("plain") << u"150"_s << 150;
    QTest::newRow("empty") << QString() << 0;
    QTest::newRow("words") << u"todos"_s << 0;
    QTest::newRow("negative") << u"-5"_s << 0;
    QTest::newRow("decimals") << u"99.9"_s << 99;
    QTest::newRow("beyond 32 bits") << u"99999999999"_s << 2147483647;
    QTest::newRow("beyond a double") << u"1E999"_s << 2147483647;
}

void tst_Modelo0::row_limit_is_an_integer_from_zero_up()
{
    QFETCH(const QString, ajuste);
    QTEST(nv::sql::limiteFilas(ajuste), "limite");
}

QTEST_GUILESS_MAIN(tst_Modelo0)
#include "tst_modelo0.moc"
