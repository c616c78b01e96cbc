#include "search/sql/Modelo2.h"
#include "search/sql/Modelo5.h"
#include "search/sql/Modelo7.h"
#include "search/sql/Modelo8.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace nv::sql;

namespace {

EntornoTextoLibre entorno(bool soloRefPrincipal, std::optional<qint32> limite)
{
    return {1, 2, 6, 4, soloRefPrincipal, limite};
}

QString condicion(const QString &patron, bool numerica)
{
    QString c = u" AND ( (ISNULL(a.Descripcion,'') LIKE '%1') OR (ISNULL(ar.Ref,'') LIKE '%1')"_s;
    if (numerica)
        c += u" OR (ISNULL(acb.Cod_Barras,'') LIKE '%1') OR (ISNULL(a.Codigo,0) LIKE '%1')"_s;
    return c.replace(u"%1"_s, patron) + u')';
}

QString palabra(const QString &texto)
{
    return u" AND (ISNULL(a.Descripcion,'') LIKE '%"_s + texto + u"%')"_s;
}

} // namespace

class tst_TextoLibre_Sql : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typed_text_gives_the_condition_data();
    void typed_text_gives_the_condition();
    void asterisk_separates_words_in_model_5_data();
    void asterisk_separates_words_in_model_5();
    void whole_statements_data();
    void whole_statements();
    void nul_characters_are_refused();
};

void tst_TextoLibre_Sql::typed_text_gives_the_condition_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("esperada");
    QTest::newRow("one word") << u"ROJO"_s << condicion(u"%ROJO%"_s, false);
    QTest::newRow("words") << u"ROJO GRANDE"_s << palabra(u"ROJO"_s) + palabra(u"GRANDE"_s);
    QTest::newRow("blanks between and around") << u"  ROJO   A "_s << palabra(u"ROJO"_s) + palabra(u"A"_s);
    QTest::newRow("a word and a blank are words") << u"ROCA "_s << palabra(u"ROCA"_s);
    QTest::newRow("blanks only are no condition") << u"  "_s << u""_s;
    QTest::newRow("nothing matches everything") << u""_s << condicion(u"%%"_s, false);
    QTest::newRow("asterisk is anchored") << u"TOR*7"_s << condicion(u"TOR%7"_s, false);
    QTest::newRow("asterisk before blanks") << u"*ROJO GR*"_s << condicion(u"%ROJO GR%"_s, false);
    QTest::newRow("number") << u"841"_s << condicion(u"%841%"_s, true);
    QTest::newRow("number with Spanish signs") << u"-1.234,5"_s << condicion(u"%-1.234,5%"_s, true);
    QTest::newRow("number and asterisk") << u"84*"_s << condicion(u"84%"_s, false);
    QTest::newRow("number and blank") << u"841 "_s << palabra(u"841"_s);
    QTest::newRow("hexadecimal is a word") << u"&H1F"_s << condicion(u"%&H1F%"_s, false);
    QTest::newRow("tab and hard blank separate nothing") << u"A\tB\u00a0C"_s << condicion(u"%A\tB\u00a0C%"_s, false);
    QTest::newRow("quote") << u"L'ORÉAL"_s << condicion(u"%L''ORÉAL%"_s, false);
    QTest::newRow("quote in a word") << u"L'ORÉAL '"_s << palabra(u"L''ORÉAL"_s) + palabra(u"''"_s);
    QTest::newRow("wildcards of the server as typed") << u"10%_["_s << condicion(u"%10%_[%"_s, false);
}

void tst_TextoLibre_Sql::typed_text_gives_the_condition()
{
    QFETCH(const QString, texto);
    QTEST(condicionTexto(leerTextoLibre(texto, Asterisco::Comodin)).texto(), "esperada");
}

void tst_TextoLibre_Sql::asterisk_separates_words_in_model_5_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("esperada");
    QTest::newRow("between") << u"A*B"_s << palabra(u"A"_s) + palabra(u"B"_s);
    QTest::newRow("at the end") << u"TORN*"_s << palabra(u"TORN"_s);
    QTest::newRow("a number is not searched as a code") << u"84*"_s << palabra(u"84"_s);
    QTest::newRow("alone") << u"*"_s << u""_s;
    QTest::newRow("none") << u"841"_s << condicion(u"%841%"_s, true);
}

void tst_TextoLibre_Sql::asterisk_separates_words_in_model_5()
{
    QFETCH(const QString, texto);
    QTEST(condicionTexto(leerTextoLibre(texto, Asterisco::Blanco)).texto(), "esperada");
}

void tst_TextoLibre_Sql::whole_statements_data()
{
    QTest::addColumn<QString>("sentencia");
    QTest::addColumn<QString>("esperada");

    const QString dos =
        u" a.Codigo, a.Descripcion, a.TipoImpuesto, a.TipoImpuesto2, ISNULL(ar.Ref, '') AS Referencia, "
        u"ISNULL(acb.Cod_Barras, '') AS EAN, ISNULl(aa.Stock_Actual + aa.Stock_MiniCompra, 0) AS Stock, "
        u"ISNULL(at.Pvp, 0) AS Pvp, ISNULL(t.Decimales, 2) AS Decimales FROM Articulos a LEFT JOIN Articulos_Ref ar ON "
        u"ar.Cod_Empresa = a.Cod_Empresa AND ar.Cod_Articulo=a.Codigo%1 LEFT JOIN Almacen_Articulos aa ON "
        u"aa.Cod_Empresa =1 AND aa.Cod_Almacen =6 AND aa.Cod_Articulo = a.Codigo LEFT JOIN Articulos_Tarifas at ON "
        u"at.Cod_Empresa = a.Cod_Empresa AND at.Cod_Tarifa =4 AND at.Cod_Articulo = a.Codigo LEFT JOIN Tarifas t ON "
        u"t.Cod_Empresa = a.Cod_Empresa AND t.Cod_Tarifa =4 LEFT JOIN  Articulos_CBarras acb ON acb.Cod_Empresa = "
        u"a.Cod_Empresa AND acb.Cod_Articulo=a.Codigo AND acb.Principal=1 WHERE a.Cod_Empresa =2 %2 ORDER BY "
        u"a.Descripcion"_s;
    const QString rojo = condicion(u"%ROJO%"_s, false);
    QTest::newRow("model 2") << modelo2(entorno(true, 150), u"ROJO"_s).texto()
                             << u"SELECT  TOP 150"_s + dos.arg(u" AND ar.Principal=1"_s, rojo);
    QTest::newRow("model 2, all references, no limit")
        << modelo2(entorno(false, std::nullopt), u" "_s).texto() << u"SELECT "_s + dos.arg(u""_s, u""_s);

    const QString cinco =
        u" a.Codigo, a.Descripcion, ISNULL(ar.Ref, '') AS Referencia,"
        u" ISNULl(aa1.Stock_Actual + aa1.Stock_MiniCompra, 0) AS Stock1,"
        u" ISNULl(aa2.Stock_Actual + aa2.Stock_MiniCompra, 0) AS Stock2,"
        u" ISNULl(aa3.Stock_Actual + aa3.Stock_MiniCompra, 0) AS Stock3,"
        u" ISNULl(aa4.Stock_Actual + aa4.Stock_MiniCompra, 0) AS Stock4,"
        u" ISNULl(aa5.Stock_Actual + aa5.Stock_MiniCompra, 0) AS Stock5,"
        u" ISNULl(aa10.Stock_Actual + aa10.Stock_MiniCompra, 0) AS Stock10,"
        u" ISNULl(aa11.Stock_Actual + aa11.Stock_MiniCompra, 0) AS Stock11, ISNULL(at.Pvp, 0) AS Pvp, "
        u"ISNULL(atp.Pvp, 0) AS PvpP, ISNULL(atnm.Pvp, 0) AS PvpNM, ISNULL(tp.BackColor, 0) AS BackColor, "
        u"ISNULL(tnm.BackColor, 0) AS BackColorNM, a.Largo, a.Ancho, a.Altura, a.BajoPedido, a.MotivoBaja, "
        u"a.Bloqueado FROM Articulos a LEFT JOIN  Articulos_Ref ar ON ar.Cod_Empresa = a.Cod_Empresa AND "
        u"ar.Cod_Articulo=a.Codigo%1"
        u" LEFT JOIN Almacen_Articulos aa1 ON aa1.Cod_Empresa =1 AND aa1.Cod_Almacen = 1 AND aa1.Cod_Articulo = "
        u"a.Codigo LEFT JOIN Almacen_Articulos aa2 ON aa2.Cod_Empresa =1 AND aa2.Cod_Almacen = 2 AND "
        u"aa2.Cod_Articulo = a.Codigo LEFT JOIN Almacen_Articulos aa3 ON aa3.Cod_Empresa =1 AND aa3.Cod_Almacen = 3 "
        u"AND aa3.Cod_Articulo = a.Codigo LEFT JOIN Almacen_Articulos aa4 ON aa4.Cod_Empresa =1 AND aa4.Cod_Almacen "
        u"= 4 AND aa4.Cod_Articulo = a.Codigo LEFT JOIN Almacen_Articulos aa5 ON aa5.Cod_Empresa =1 AND "
        u"aa5.Cod_Almacen = 5 AND aa5.Cod_Articulo = a.Codigo LEFT JOIN Almacen_Articulos aa10 ON aa10.Cod_Empresa "
        u"=1 AND aa10.Cod_Almacen = 10 AND aa10.Cod_Articulo = a.Codigo LEFT JOIN Almacen_Articulos aa11 ON "
        u"aa11.Cod_Empresa =1 AND aa11.Cod_Almacen = 11 AND aa11.Cod_Articulo = a.Codigo LEFT JOIN Articulos_Tarifas "
        u"at ON at.Cod_Empresa = a.Cod_Empresa AND at.Cod_Tarifa = 1 AND at.Cod_Articulo = a.Codigo LEFT JOIN "
        u"Articulos_Tarifas atp ON atp.Cod_Empresa = a.Cod_Empresa AND atp.Cod_Tarifa = 2 AND atp.Cod_Articulo = "
        u"a.Codigo LEFT JOIN Articulos_Tarifas atnm ON atnm.Cod_Empresa = a.Cod_Empresa AND atnm.Cod_Tarifa = 3 AND "
        u"atnm.Cod_Articulo = a.Codigo LEFT JOIN Tarifas tp ON tp.Cod_Empresa = a.Cod_Empresa AND tp.Cod_Tarifa = 2 "
        u"LEFT JOIN Tarifas tnm ON tnm.Cod_Empresa = a.Cod_Empresa AND tnm.Cod_Tarifa = 3 LEFT JOIN  "
        u"Articulos_CBarras acb ON acb.Cod_Empresa = a.Cod_Empresa AND acb.Cod_Articulo=a.Codigo AND acb.Principal=1 "
        u"WHERE a.Cod_Empresa =2%2 %3 ORDER BY a.Descripcion"_s;
    const QString principal = u" AND ar.Principal=1"_s;
    QTest::newRow("model 5") << modelo5(entorno(true, 0), {u"ROJO"_s, {}, false, false}).texto()
                             << u"SELECT  TOP 0"_s + cinco.arg(principal, u""_s, rojo);
    QTest::newRow("model 5, offers of a size")
        << modelo5(entorno(false, std::nullopt), {u"ROJO"_s, nv::Moneda::deTexto(u"2.5"), true, false}).texto()
        << u"SELECT "_s +
               cinco.arg(u""_s, u" AND atp.Pvp > 0"_s, rojo + u" AND (a.Largo=2.5 OR a.Ancho=2.5 OR a.Altura=2.5)"_s);
    QTest::newRow("model 5, slow stock, size below 0")
        << modelo5(entorno(true, 9), {u"*"_s, nv::Moneda::deUnidades(-1), false, true}).texto()
        << u"SELECT  TOP 9"_s + cinco.arg(principal, u" AND atnm.Pvp > 0"_s, u""_s);
    QTest::newRow("model 5, either tariff")
        << modelo5(entorno(true, 9), {u"*"_s, nv::Moneda::deUnidades(3), true, true}).texto()
        << u"SELECT  TOP 9"_s + cinco.arg(principal, u" AND (atp.Pvp > 0 OR atnm.Pvp > 0)"_s,
                                          u" AND (a.Largo=3 OR a.Ancho=3 OR a.Altura=3)"_s);

    const QString siete =
        u" a.Codigo, a.Descripcion, ISNULL(ar.Ref, '') AS Referencia,ISNULL(acb.Cod_Barras, '') AS EAN, "
        u"ISNULl(aa.Stock_Actual + aa.Stock_MiniCompra, 0) AS Stock, ISNULL(aa.Bloqueo, 0) AS Bloqueo, a.Bloqueado, "
        u"ISNULL(at.Pvp, 0) AS Pvp, ISNULL(m.Nombre, '') AS MarcaNombre, a.MotivoBaja FROM Articulos a LEFT JOIN  "
        u"Articulos_Ref ar ON ar.Cod_Empresa = a.Cod_Empresa AND ar.Cod_Articulo=a.Codigo%1 LEFT JOIN "
        u"Almacen_Articulos aa ON aa.Cod_Empresa =1 AND aa.Cod_Almacen =6 AND aa.Cod_Articulo = a.Codigo LEFT JOIN "
        u"Articulos_Tarifas at ON at.Cod_Empresa = a.Cod_Empresa AND at.Cod_Tarifa =4 AND at.Cod_Articulo = a.Codigo "
        u"LEFT JOIN  Articulos_CBarras acb ON acb.Cod_Empresa = a.Cod_Empresa AND acb.Cod_Articulo=a.Codigo AND "
        u"acb.Principal=1 LEFT JOIN Marcas m ON m.Codigo = a.Marca WHERE a.Cod_Empresa =2 %2 ORDER BY a.Descripcion"_s;
    QTest::newRow("model 7") << modelo7(entorno(true, 150), u"ROJO"_s, u""_s).texto()
                             << u"SELECT  TOP 150"_s + siete.arg(principal, rojo);
    QTest::newRow("model 7, brand alone")
        << modelo7(entorno(false, std::nullopt), u""_s, u"L'OR*"_s).texto()
        << u"SELECT "_s + siete.arg(u""_s, condicion(u"%%"_s, false) + u" AND ISNULL(m.Nombre, '') LIKE '%L''OR*%'"_s);

    const QString ocho =
        u" a.Codigo, a.Descripcion, ISNULL(ar.Ref, '') AS Referencia,ISNULL(acb.Cod_Barras, '') AS EAN, "
        u"ISNULl(aa.Stock_Actual + aa.Stock_MiniCompra, 0) AS Stock, ISNULL(aa.Bloqueo, 0) AS Bloqueo, a.Bloqueado, "
        u"ISNULL(at.Pvp, 0) AS Pvp, ISNULL(m.Nombre, '') AS MarcaNombre, a.MotivoBaja, ISNULL(f1.Nombre, '') AS "
        u"F1Nombre FROM Articulos a INNER JOIN Almacen_Articulos aa ON aa.Cod_Empresa = 1 AND aa.Cod_Almacen = 6 AND "
        u"aa.Cod_Articulo = a.Codigo INNER JOIN Articulos_Tarifas at ON at.Cod_Empresa = a.Cod_Empresa AND "
        u"at.Cod_Tarifa = 4 AND at.Cod_Articulo = a.Codigo LEFT JOIN Articulos_Ref ar ON ar.Cod_Empresa = "
        u"a.Cod_Empresa AND ar.Cod_Articulo = a.Codigo%1 LEFT JOIN  Articulos_CBarras acb ON acb.Cod_Empresa = "
        u"a.Cod_Empresa AND acb.Cod_Articulo = a.Codigo AND acb.Principal=1 LEFT JOIN Marcas m ON m.Codigo = a.Marca "
        u"LEFT JOIN Familias_1 f1 ON a.Cod_Empresa = f1.Cod_Empresa AND a.Familia_1 = f1.Codigo WHERE a.Cod_Empresa = "
        u"2 AND a.MotivoBaja = 0 AND aa.Bloqueo = 0 AND aa.FUlt_Venta > '23/10/2026' AND at.Pvp > 0%2 ORDER BY "
        u"a.Familia_1, a.Familia_2, a.Familia_3, a.Descripcion"_s;
    const QDate dia(2026, 10, 23);
    QTest::newRow("model 8") << modelo8(entorno(true, 150), u"8*'"_s, dia).texto()
                             << u"SELECT  TOP 150"_s +
                                    ocho.arg(principal, u" AND ( (a.Descripcion LIKE '8%''') OR (ISNULL(ar.Ref,'') "
                                                        u"LIKE '8%''') OR (ISNULL(m.Nombre, '') LIKE '%8%''%'))"_s);
    QTest::newRow("model 8, number, all references")
        << modelo8(entorno(false, std::nullopt), u"841"_s, dia).texto()
        << u"SELECT "_s + ocho.arg(u""_s, u" AND ( (a.Descripcion LIKE '%841%') OR (ISNULL(ar.Ref,'') LIKE '%841%') "
                                          u"OR (ISNULL(m.Nombre, '') LIKE '%%841%%') OR (ISNULL(acb.Cod_Barras,'') "
                                          u"LIKE '%841%') OR (ISNULL(a.Codigo,0) LIKE '%841%'))"_s);
    QTest::newRow("model 8, words") << modelo8(entorno(true, 7), u"ROJO A"_s, dia).texto()
                                    << u"SELECT  TOP 7"_s + ocho.arg(principal,
                                                                     u" AND (a.Descripcion LIKE '%ROJO%') AND "
                                                                     u"(a.Descripcion LIKE '%A%')"_s);
}

void tst_TextoLibre_Sql::whole_statements()
{
    QFETCH(const QString, sentencia);
    QTEST(sentencia, "esperada");
}

void tst_TextoLibre_Sql::nul_characters_are_refused()
{
    QVERIFY(!modelo2(entorno(true, 1), u"A"_s + QChar(0)).defecto().isEmpty());
}

QTEST_GUILESS_MAIN(tst_TextoLibre_Sql)
#include "tst_textolibre_sql.moc"
