#include "search/sql/Modelo0.h"
#include "search/sql/Modelo1.h"
#include "search/sql/Modelo2.h"
#include "search/sql/Modelo3.h"
#include "search/sql/Modelo4.h"
#include "search/sql/Modelo5.h"
#include "search/sql/Modelo6.h"
#include "search/sql/Modelo7.h"
#include "search/sql/Modelo8.h"
#include "support/BaseDatos.h"
#include "support/Programa.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace nv::sql;
using nv::Moneda;
using nv::Sentencia;

namespace {

const EntornoTextoLibre Entorno{1, 2, 6, 4, true, 150};
const QDate Dia(2026, 10, 23);

void caso(const char *nombre, const Sentencia &sentencia, const QString &esperada)
{
    QTest::newRow(nombre) << sentencia.texto() << esperada;
}

/// What stands between the item company and the order.
QString condiciones(const Sentencia &sentencia)
{
    const QString texto = sentencia.texto();
    const qsizetype desde = texto.lastIndexOf(u"a.Cod_Empresa =2"_s) + 16;
    return texto.sliced(desde, texto.lastIndexOf(u" ORDER BY"_s) - desde);
}

QString termino(const QString &patron, bool numerico = false)
{
    QString c = u" AND ( (ISNULL(a.Descripcion,'') LIKE '%1') OR (ISNULL(ar.Ref,'') LIKE '%1')"_s;
    if (numerico)
        c += u" OR (ISNULL(acb.Cod_Barras,'') LIKE '%1') OR (ISNULL(a.Codigo,0) LIKE '%1')"_s;
    return c.replace(u"%1"_s, patron) + u')';
}

QString palabras(const QString &textos)
{
    QString c;
    for (const QString &texto : textos.split(u'|', Qt::SkipEmptyParts))
        c += u" AND (ISNULL(a.Descripcion,'') LIKE '%"_s + texto + u"%')"_s;
    return c;
}

} // namespace

/// The statements as the server gets them, letter for letter: what they answer is seen in the tests of the data layer.
class tst_Consultas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whole_statements_data();
    void whole_statements() { comparar(); }
    void criteria_become_conditions_data();
    void criteria_become_conditions() { comparar(); }
    void typed_text_becomes_a_condition_data();
    void typed_text_becomes_a_condition();
    void quotes_and_nul_characters_are_refused();
    void row_limit_is_an_integer_from_zero_up();

private:
    static void columnas()
    {
        QTest::addColumn<QString>("hay");
        QTest::addColumn<QString>("esperada");
    }
    static void comparar()
    {
        QFETCH(const QString, hay);
        QTEST(hay, "esperada");
    }
};

void tst_Consultas::whole_statements_data()
{
    columnas();
    const CriteriosArticulo todo{u"*T"_s, u"1"_s, 7, u"R*"_s, {1, 2, 3}, 5};
    const QString lista = u" a.Codigo, a.Descripcion, a.Familia_1, a.Familia_2, a.Familia_3,"
                          u" ISNULL(b.Cod_Barras,'') AS Cod_Barras"_s;
    const QString barras = u" LEFT JOIN Articulos_CBarras b ON a.Cod_Empresa=b.Cod_Empresa AND b.Cod_Articulo=a.Codigo"
                           u" AND b.Principal=1"_s;
    const QString referencia = u" AND a.Codigo IN (SELECT Cod_Articulo FROM Articulos_Ref aref WHERE "
                               u" aref.Cod_empresa=a.Cod_Empresa AND aref.Cod_Prov=7"_s;
    const QString familias = u" AND a.Familia_1=1 AND a.Familia_2=2 AND a.Familia_3=3"_s;
    const QString deCero = u" AND a.Codigo LIKE '1%'"_s + referencia + u" AND aref.Ref LIKE 'R%')"_s + familias;
    const QString porDescripcion = u" ORDER BY a.Descripcion"_s;
    caso("model 0", modelo0(2, 150, todo, true),
         u"SELECT  TOP 150"_s + lista + u"  FROM Articulos a "_s + barras +
             u" WHERE a.Cod_Empresa =2 AND (a.Descripcion LIKE '%T%' OR a.Desc_Memo LIKE '%T%')"_s + deCero +
             porDescripcion);
    CriteriosModelo1 uno;
    static_cast<CriteriosArticulo &>(uno) = todo;
    uno.alternativos = {3, 7};
    caso("model 1", modelo1(1, 2, 150, {4, 6, 0}, {1, 10}, uno),
         u"SELECT  TOP 150 a.Codigo, MIN(a.Descripcion) AS Descripcion, MIN(a.Familia_1) AS Familia_1,"
         u" MIN(a.Familia_2) AS Familia_2, MIN(a.Familia_3) AS Familia_3, ISNULL(MIN(b.Cod_Barras),'') AS Cod_Barras, "
         u" ISNULL(MIN(c.Ref),'') AS Ref, REPLACE(CONVERT(VARCHAR,ISNULL(MIN(d.Pvp),0)),'.',',') AS Pvp1,"
         u" REPLACE(CONVERT(VARCHAR,ISNULL(MIN(e.Pvp),0)),'.',',') AS Pvp2,"
         u" REPLACE(CONVERT(VARCHAR,ISNULL(MIN(f.Pvp),0)),'.',',') AS Pvp3,  ISNULL(MIN(d.Pvp),0) AS Pvp1_Num,"
         u" ISNULL(MIN(e.Pvp),0) AS Pvp2_Num, ISNULL(MIN(f.Pvp),0) AS Pvp3_Num, "
         u" ISNULL(SUM(aa.Stock_Actual),0) AS Stock_Actual, ISNULL(SUM(aa.Stock_Actual),0) AS Stock_Actual_Num "
         u" FROM Articulos a "_s +
             QString(barras).replace(u" AND b.Cod"_s, u"  AND b.Cod"_s) +
             u"  LEFT JOIN Articulos_Ref c ON a.Cod_Empresa=c.Cod_Empresa  AND c.Cod_Articulo=a.Codigo AND"
             u" c.Principal=1  LEFT JOIN Articulos_Tarifas d ON a.Cod_Empresa=d.Cod_Empresa "
             u" AND d.Cod_Articulo=a.Codigo AND d.Cod_Tarifa=4 LEFT JOIN Articulos_Tarifas e ON"
             u" a.Cod_Empresa=e.Cod_Empresa  AND e.Cod_Articulo=a.Codigo AND e.Cod_Tarifa=6 LEFT JOIN"
             u" Articulos_Tarifas f ON a.Cod_Empresa=f.Cod_Empresa  AND f.Cod_Articulo=a.Codigo AND"
             u" f.Cod_Tarifa=0 LEFT JOIN Almacen_Articulos aa ON aa.Cod_Empresa=1 AND aa.Cod_Almacen IN (1,10)"
             u" AND aa.Cod_Articulo=a.Codigo  WHERE a.Cod_Empresa =2 AND a.Descripcion LIKE '%T%'"_s +
             QString(deCero).replace(u"Cod_empresa"_s, u"Cod_Empresa"_s) +
             u" AND (Alternativo1 LIKE '%,3,%' OR Alternativo1 LIKE '%,7,%') GROUP BY a.Codigo  ORDER BY a.Codigo"_s);
    const QString deTres = referencia + u')' + familias + u" AND a.Marca = 5"_s;
    caso("model 3", modelo3(2, {}, todo),
         u"SELECT "_s + lista + u"  FROM Articulos a "_s + barras +
             u" WHERE a.Cod_Empresa =2 AND a.Descripcion LIKE '%T%'"_s + deTres + porDescripcion);
    const QString enAlmacen = u" AND a.Codigo IN (SELECT Cod_Articulo FROM Almacen_Articulos WHERE "
                              u" Cod_Empresa=1 AND Cod_Almacen=6 AND Bloqueo=0)"_s;
    caso("model 4", modelo4(1, 2, 150, {todo, 6, 10}),
         u"SELECT  TOP 150"_s + lista +
             u", ISNULL(c.Rotacion, 0) AS Rotacion FROM Articulos a "
             u" INNER JOIN #TempBA ON a.Codigo = #TempBA.Cod_Articulo"_s +
             barras +
             u" LEFT JOIN Almacen_Articulos c ON c.Cod_Empresa =1 AND c.Cod_Almacen =6 AND a.Codigo ="
             u" c.Cod_Articulo WHERE a.Cod_Empresa =2 AND a.Descripcion LIKE '%T%'"_s +
             deTres + enAlmacen + u" ORDER BY #TempBA.Ventas_Unidades DESC"_s);
    const auto ranking = [&](QDate hoy, const QString &periodo) {
        caso(qPrintable(u"best sellers up to "_s + hoy.toString(Qt::ISODate)), crearRanking(1, 2, {todo, 6, 10}, hoy),
             u"SELECT TOP 10 b.Cod_Articulo, SUM(b.Ventas_Unidades) AS  Ventas_Unidades INTO #TempBA FROM"
             u" Almacen_Acumulados b INNER JOIN Articulos a ON a.Cod_Empresa =2 AND a.Codigo = b.Cod_Articulo WHERE"
             u" b.Cod_Empresa =1 AND b.Cod_Almacen =6"_s +
                 periodo + u" AND a.Descripcion LIKE '%T%'"_s + deTres + enAlmacen +
                 u" GROUP BY b.Cod_Articulo ORDER BY SUM(b.Ventas_Unidades) DESC"_s);
    };
    ranking({2027, 1, 31}, u" AND ((b.Cod_Ejercicio =2027 AND b.Mes = 1) OR (b.Cod_Ejercicio =2026 AND b.Mes = 12))"_s);
    ranking({2026, 2, 1}, u" AND b.Cod_Ejercicio =2026 AND b.Mes BETWEEN 1 AND 2"_s);
    ranking({2026, 12, 31}, u" AND b.Cod_Ejercicio =2026 AND b.Mes BETWEEN 11 AND 12"_s);
    caso("model 6", modelo6(2, 150, todo, false, condicionSurtido(1, qint16{4})),
         u"SELECT  TOP 150"_s + lista + u"  FROM Articulos a"_s + barras +
             u" WHERE a.Cod_Empresa =2 AND a.Descripcion LIKE '%T%'"_s + deCero +
             u" AND a.MotivoBaja = 0 AND a.Codigo IN (SELECT DISTINCT Cod_Articulo FROM Almacen_Articulos WHERE"
             u" Cod_Empresa =1 AND Cod_Almacen =4 AND Bloqueo = 0)"_s +
             porDescripcion);
    caso("assortment state", existenciasSurtido(1, 4, 24),
         u"SELECT aa.Stock_Actual, aa.Pend_Servir, aa.Pend_Recibir, ISNULL(c.Obligatorio, 2) AS Obligatorio,"
         u" ISNULL(b.Cod_Surtido, 0) AS Cod_Surtido, aa.Bloqueo, aa.BloqueoVenta FROM Almacen_Articulos aa"
         u" LEFT JOIN Surtidos_Almacen b ON aa.Cod_Empresa = b.Cod_Empresa AND aa.Cod_Almacen = b.Cod_Almacen"
         u" LEFT JOIN Surtidos_Articulo_Todos c ON aa.Cod_Empresa = c.Cod_Empresa AND"
         u" c.Cod_Surtido = b.Cod_Surtido AND c.Cod_Articulo = aa.Cod_Articulo"
         u" WHERE aa.Cod_Empresa=1 AND aa.Cod_Almacen =4 AND aa.Cod_Articulo =24"_s);

    const QString ean = u" LEFT JOIN  Articulos_CBarras acb ON acb.Cod_Empresa = a.Cod_Empresa AND"
                        u" acb.Cod_Articulo=a.Codigo AND acb.Principal=1"_s;
    const QString existencias = u"Almacen_Articulos aa ON aa.Cod_Empresa =1 AND aa.Cod_Almacen =6 AND aa.Cod_Articulo ="
                                u" a.Codigo"_s;
    const QString precios = u"Articulos_Tarifas at ON at.Cod_Empresa = a.Cod_Empresa AND at.Cod_Tarifa =4 AND"
                            u" at.Cod_Articulo = a.Codigo"_s;
    const QString union_ = u"Articulos_Ref ar ON ar.Cod_Empresa = a.Cod_Empresa AND ar.Cod_Articulo=a.Codigo AND"
                           u" ar.Principal=1"_s;
    caso("model 2", modelo2(Entorno, u"ROJO"_s),
         u"SELECT  TOP 150 a.Codigo, a.Descripcion, a.TipoImpuesto, a.TipoImpuesto2, ISNULL(ar.Ref, '') AS Referencia,"
         u" ISNULL(acb.Cod_Barras, '') AS EAN, ISNULl(aa.Stock_Actual + aa.Stock_MiniCompra, 0) AS Stock,"
         u" ISNULL(at.Pvp, 0) AS Pvp, ISNULL(t.Decimales, 2) AS Decimales FROM Articulos a LEFT JOIN "_s +
             union_ + u" LEFT JOIN "_s + existencias + u" LEFT JOIN "_s + precios +
             u" LEFT JOIN Tarifas t ON t.Cod_Empresa = a.Cod_Empresa AND t.Cod_Tarifa =4"_s + ean +
             u" WHERE a.Cod_Empresa =2 "_s + termino(u"%ROJO%"_s) + porDescripcion);
    QString columnasStock;
    QString unionesStock;
    for (const char16_t *n : {u"1", u"2", u"3", u"4", u"5", u"10", u"11"}) {
        columnasStock += u" ISNULl(aa%1.Stock_Actual + aa%1.Stock_MiniCompra, 0) AS Stock%1,"_s.arg(QStringView(n));
        unionesStock += u" LEFT JOIN Almacen_Articulos aa%1 ON aa%1.Cod_Empresa =1 AND aa%1.Cod_Almacen = %1 AND"
                        u" aa%1.Cod_Articulo = a.Codigo"_s.arg(QStringView(n));
    }
    QString unionesTarifa;
    for (const auto &[alias, tarifa] : {std::pair(u"at", u"1"), {u"atp", u"2"}, {u"atnm", u"3"}})
        unionesTarifa += u" LEFT JOIN Articulos_Tarifas %1 ON %1.Cod_Empresa = a.Cod_Empresa AND %1.Cod_Tarifa = %2 AND"
                         u" %1.Cod_Articulo = a.Codigo"_s.arg(QStringView(alias), QStringView(tarifa));
    caso("model 5", modelo5(Entorno, {u"ROJO"_s, Moneda::deTexto(u"2.5"), true, true}),
         u"SELECT  TOP 150 a.Codigo, a.Descripcion, ISNULL(ar.Ref, '') AS Referencia,"_s + columnasStock +
             u" ISNULL(at.Pvp, 0) AS Pvp, ISNULL(atp.Pvp, 0) AS PvpP, ISNULL(atnm.Pvp, 0) AS PvpNM,"
             u" ISNULL(tp.BackColor, 0) AS BackColor, ISNULL(tnm.BackColor, 0) AS BackColorNM, a.Largo, a.Ancho,"
             u" a.Altura, a.BajoPedido, a.MotivoBaja, a.Bloqueado FROM Articulos a LEFT JOIN  "_s +
             union_ + unionesStock + unionesTarifa +
             u" LEFT JOIN Tarifas tp ON tp.Cod_Empresa = a.Cod_Empresa AND tp.Cod_Tarifa = 2"
             u" LEFT JOIN Tarifas tnm ON tnm.Cod_Empresa = a.Cod_Empresa AND tnm.Cod_Tarifa = 3"_s +
             ean + u" WHERE a.Cod_Empresa =2 AND (atp.Pvp > 0 OR atnm.Pvp > 0) "_s + termino(u"%ROJO%"_s) +
             u" AND (a.Largo=2.5 OR a.Ancho=2.5 OR a.Altura=2.5)"_s + porDescripcion);
    const QString comunes = u"SELECT  TOP 150 a.Codigo, a.Descripcion, ISNULL(ar.Ref, '') AS Referencia,"
                            u"ISNULL(acb.Cod_Barras, '') AS EAN, ISNULl(aa.Stock_Actual + aa.Stock_MiniCompra, 0) AS"
                            u" Stock, ISNULL(aa.Bloqueo, 0) AS Bloqueo, a.Bloqueado, ISNULL(at.Pvp, 0) AS Pvp,"
                            u" ISNULL(m.Nombre, '') AS MarcaNombre, a.MotivoBaja"_s;
    caso("model 7", modelo7(Entorno, QString(), u"L'OR*"_s),
         comunes + u" FROM Articulos a LEFT JOIN  "_s + union_ + u" LEFT JOIN "_s + existencias + u" LEFT JOIN "_s +
             precios + ean + u" LEFT JOIN Marcas m ON m.Codigo = a.Marca WHERE a.Cod_Empresa =2 "_s + termino(u"%%"_s) +
             u" AND ISNULL(m.Nombre, '') LIKE '%L''OR*%'"_s + porDescripcion);
    caso(
        "model 8", modelo8(Entorno, u"8*'"_s, Dia),
        comunes +
            u", ISNULL(f1.Nombre, '') AS F1Nombre FROM Articulos a INNER JOIN Almacen_Articulos aa ON aa.Cod_Empresa ="
            u" 1 AND aa.Cod_Almacen = 6 AND aa.Cod_Articulo = a.Codigo INNER JOIN Articulos_Tarifas at ON"
            u" at.Cod_Empresa = a.Cod_Empresa AND at.Cod_Tarifa = 4 AND at.Cod_Articulo = a.Codigo LEFT JOIN"
            u" Articulos_Ref ar ON ar.Cod_Empresa = a.Cod_Empresa AND ar.Cod_Articulo = a.Codigo AND ar.Principal=1"
            u" LEFT JOIN  Articulos_CBarras acb ON acb.Cod_Empresa = a.Cod_Empresa AND acb.Cod_Articulo = a.Codigo AND"
            u" acb.Principal=1"
            u" LEFT JOIN Marcas m ON m.Codigo = a.Marca LEFT JOIN Familias_1 f1 ON a.Cod_Empresa = f1.Cod_Empresa AND"
            u" a.Familia_1 = f1.Codigo WHERE a.Cod_Empresa = 2 AND a.MotivoBaja = 0 AND aa.Bloqueo = 0 AND"
            u" aa.FUlt_Venta > '23/10/2026' AND at.Pvp > 0 AND ( (a.Descripcion LIKE '8%''') OR (ISNULL(ar.Ref,'') LIKE"
            u" '8%''') OR (ISNULL(m.Nombre, '') LIKE '%8%''%')) ORDER BY a.Familia_1, a.Familia_2, a.Familia_3,"
            u" a.Descripcion"_s);
}

void tst_Consultas::criteria_become_conditions_data()
{
    columnas();
    const auto fila = [](const char *nombre, const Sentencia &sentencia, const QString &esperadas) {
        QTest::newRow(nombre) << condiciones(sentencia) << esperadas;
    };
    const auto cero = [](const CriteriosArticulo &c, bool conNotas = false) { return modelo0(2, {}, c, conNotas); };
    fila("nothing", cero({}, true), {});
    fila("beginning", cero({.descripcion = u"ABC"_s}), u" AND a.Descripcion LIKE 'ABC%'"_s);
    fila("wildcards", cero({.descripcion = u"*A*B*"_s}), u" AND a.Descripcion LIKE '%A%B%'"_s);
    fila("reference", cero({.referencia = u"12*34"_s}),
         u" AND a.Codigo IN (SELECT Cod_Articulo FROM Articulos_Ref aref WHERE  aref.Cod_empresa=a.Cod_Empresa AND"
         u" aref.Ref LIKE '12%34%')"_s);
    fila("family without the one above", cero({.familias = {0, 3, 4}}), {});
    fila("family with a gap", cero({.familias = {2, -1, 4}}), u" AND a.Familia_1=2"_s);
    fila("assortment of any warehouse", modelo6(2, {}, {}, true, condicionSurtido(1, {})),
         u" AND a.MotivoBaja = 0 AND a.Codigo IN (SELECT DISTINCT Cod_Articulo FROM Almacen_Articulos WHERE"
         u" Cod_Empresa =1 AND Bloqueo = 0)"_s);
    const QString sinAlmacen = modelo4(1, 2, {}, {{}, 0, 10}).texto();
    QTest::newRow("best sellers without a warehouse are none")
        << sinAlmacen.sliced(sinAlmacen.indexOf(u"WHERE"_s)) << u"WHERE a.Cod_Empresa =2 ORDER BY a.Descripcion"_s;
    fila("alternative text", modelo1(1, 2, {}, {}, {1}, {{}, u"A"_s, {}}),
         u" AND Alternativo1='A' GROUP BY a.Codigo "_s);
    const auto cinco = [](Moneda medida, bool oferta, bool noMovidos) {
        return modelo5(Entorno, {u"*"_s, medida, oferta, noMovidos});
    };
    fila("offers", cinco({}, true, false), u" AND atp.Pvp > 0 "_s);
    fila("slow stock, size below 0", cinco(Moneda::deUnidades(-1), false, true), u" AND atnm.Pvp > 0 "_s);
    EntornoTextoLibre todas = Entorno;
    todas.soloRefPrincipal = false;
    QTest::newRow("all references") << QString::number(modelo2(todas, {}).texto().contains(u"ar.Principal"_s))
                                    << u"0"_s;
    const auto ocho = [](const QString &texto) {
        const QString entera = modelo8(Entorno, texto, Dia).texto();
        return entera.sliced(entera.indexOf(u"at.Pvp > 0"_s) + 10).section(u" ORDER"_s, 0, 0);
    };
    QTest::newRow("model 8, number")
        << ocho(u"841"_s)
        << u" AND ( (a.Descripcion LIKE '%841%') OR (ISNULL(ar.Ref,'') LIKE '%841%') OR (ISNULL(m.Nombre, '') LIKE"
           u" '%%841%%') OR (ISNULL(acb.Cod_Barras,'') LIKE '%841%') OR (ISNULL(a.Codigo,0) LIKE '%841%'))"_s;
    QTest::newRow("model 8, words") << ocho(u"ROJO A"_s)
                                    << u" AND (a.Descripcion LIKE '%ROJO%') AND (a.Descripcion LIKE '%A%')"_s;
}

void tst_Consultas::typed_text_becomes_a_condition_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("comodin");
    QTest::addColumn<QString>("blanco"); // where the asterisk separates
    const auto fila = [](const char *nombre, const QString &texto, const QString &comodin,
                         const QString &blanco = u"="_s) {
        QTest::newRow(nombre) << texto << comodin << (blanco == u"=" ? comodin : blanco);
    };
    fila("one word", u"ROJO"_s, termino(u"%ROJO%"_s));
    fila("words, blanks around", u"  ROJO   A "_s, palabras(u"ROJO|A"_s));
    fila("a word and a blank", u"ROCA "_s, palabras(u"ROCA"_s));
    fila("blanks only", u"  "_s, {});
    fila("nothing", {}, termino(u"%%"_s));
    fila("asterisk inside", u"TOR*7"_s, termino(u"TOR%7"_s), palabras(u"TOR|7"_s));
    fila("asterisk and blanks", u"*ROJO GR*"_s, termino(u"%ROJO GR%"_s), palabras(u"ROJO|GR"_s));
    fila("asterisk alone", u"*"_s, termino(u"%"_s), QString());
    fila("number", u"841"_s, termino(u"%841%"_s, true));
    fila("number with Spanish signs", u"-1.234,5"_s, termino(u"%-1.234,5%"_s, true));
    fila("number and asterisk", u"84*"_s, termino(u"84%"_s), palabras(u"84"_s));
    fila("number and blank", u"841 "_s, palabras(u"841"_s));
    fila("hexadecimal is a word", u"&H1F"_s, termino(u"%&H1F%"_s));
    fila("tab and hard blank separate nothing", u"A\tB\u00a0C"_s, termino(u"%A\tB\u00a0C%"_s));
    fila("quotes", u"L'ORÉAL '"_s, palabras(u"L''ORÉAL|''"_s));
    fila("wildcards of the server as typed", u"10%_["_s, termino(u"%10%_[%"_s));
}

void tst_Consultas::typed_text_becomes_a_condition()
{
    QFETCH(const QString, texto);
    QTEST(condicionTexto(leerTextoLibre(texto, Asterisco::Comodin)).texto(), "comodin");
    QTEST(condicionTexto(leerTextoLibre(texto, Asterisco::Blanco)).texto(), "blanco");
}

void tst_Consultas::quotes_and_nul_characters_are_refused()
{
    for (const CriteriosArticulo &criterios :
         {CriteriosArticulo{.descripcion = u"L'OREAL"_s}, {.codigo = u"1' OR 'a'='a"_s}, {.referencia = u"'"_s}})
        QVERIFY(!modelo0(2, 150, criterios, true).defecto().isEmpty());
    QVERIFY(!modelo2(Entorno, u"A"_s + QChar(0)).defecto().isEmpty());
}

void tst_Consultas::row_limit_is_an_integer_from_zero_up()
{
    QString limites;
    for (const QString &ajuste :
         {u"150"_s, QString(), u"todos"_s, u"-5"_s, u"99.9"_s, u"99999999999"_s, u"1E999"_s, u"-1E999"_s})
        limites += QString::number(limiteFilas(ajuste)) + u' ';
    QCOMPARE(limites, u"150 0 0 0 99 2147483647 2147483647 0 "_s);
}

NV_PRUEBA(tst_Consultas)
#include "tst_consultas.moc"
