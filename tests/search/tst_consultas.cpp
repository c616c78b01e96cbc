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

#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace nv::sql;
using nv::Moneda;
using nv::Sentencia;

/// The statements as the server gets them, letter for letter: what they answer is seen in the tests of the data layer.
class tst_Consultas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whole_statements()
    {
        const CriteriosArticulo todo{u"*T"_s, u"1"_s, 7, u"R*"_s, {1, 2, 3}, 5};
        // What the names between angles stand for below, where a line break is a blank.
        const QList<QStringList> piezas =
            nv::pruebas::tabla(uR"(<de0>→AND a.Codigo LIKE '1%' AND <proveedor> AND aref.Ref LIKE 'R%') AND <familias>;
            <de3>→AND a.Descripcion LIKE '%T%' AND <proveedor>) AND <familias> AND a.Marca = 5;
            <lista>→a.Codigo, a.Descripcion, <familia 1>, <familia 2>, <familia 3>, ISNULL(b.Cod_Barras,'') AS
            Cod_Barras;
            <barras>→LEFT JOIN Articulos_CBarras b ON a.Cod_Empresa=b.Cod_Empresa AND b.Cod_Articulo=a.Codigo AND
            b.Principal=1;
            <proveedor>→a.Codigo IN (SELECT Cod_Articulo FROM Articulos_Ref aref WHERE  aref.Cod_empresa=a.Cod_Empresa
            AND aref.Cod_Prov=7;
            <familias>→<familia 1>=1 AND <familia 2>=2 AND <familia 3>=3;
            <familia (.)>→a.Familia_\1;
            <sinBloqueo>→AND a.Codigo IN (SELECT Cod_Articulo FROM Almacen_Articulos WHERE  Cod_Empresa=1 AND
            Cod_Almacen=6 AND Bloqueo=0);
            <pvp (.)>→REPLACE(CONVERT(VARCHAR,ISNULL(MIN(\1.Pvp),0)),'.',',') AS;
            <tarifa (.)>→LEFT JOIN Articulos_Tarifas \1 ON a.Cod_Empresa=\1.Cod_Empresa  AND \1.Cod_Articulo=a.Codigo
            AND \1.Cod_Tarifa;
            <ref>→Articulos_Ref ar ON ar.Cod_Empresa = a.Cod_Empresa AND ar.Cod_Articulo=a.Codigo AND ar.Principal=1;
            <stock (\d*)>→ISNULl(aa\1.Stock_Actual + aa\1.Stock_MiniCompra, 0) AS Stock\1;
            <almacen (\d*)(=.*?)>→LEFT JOIN Almacen_Articulos aa\1 ON aa\1.Cod_Empresa =1 AND aa\1.Cod_Almacen \2 AND
            aa\1.Cod_Articulo = a.Codigo;
            <precio (\w+)(=.*?)>→LEFT JOIN Articulos_Tarifas \1 ON \1.Cod_Empresa = a.Cod_Empresa AND \1.Cod_Tarifa \2
            AND \1.Cod_Articulo = a.Codigo;
            <color (\w+)(=.*?)>→LEFT JOIN Tarifas \1 ON \1.Cod_Empresa = a.Cod_Empresa AND \1.Cod_Tarifa \2;
            <ean>→LEFT JOIN  Articulos_CBarras acb ON acb.Cod_Empresa = a.Cod_Empresa AND acb.Cod_Articulo=a.Codigo AND
            acb.Principal=1;
            <texto>→ AND ( (ISNULL(a.Descripcion,'') LIKE 'RO%') OR (ISNULL(ar.Ref,'') LIKE 'RO%'));
            <de7>→a.Codigo, a.Descripcion, ISNULL(ar.Ref, '') AS Referencia,ISNULL(acb.Cod_Barras, '') AS EAN,
            ISNULl(aa.Stock_Actual + aa.Stock_MiniCompra, 0) AS Stock, ISNULL(aa.Bloqueo, 0) AS Bloqueo, a.Bloqueado,
            ISNULL(at.Pvp, 0) AS Pvp, ISNULL(m.Nombre, '') AS MarcaNombre, a.MotivoBaja)"_s);
        const std::pair<Sentencia, QString> casos[] = {
            {modelo0(2, 150, todo, true),
             uR"(SELECT  TOP 150 <lista>  FROM Articulos a  <barras> WHERE a.Cod_Empresa =2 AND (a.Descripcion LIKE
             '%T%' OR a.Desc_Memo LIKE '%T%') <de0> ORDER BY a.Descripcion)"_s},
            {modelo1(1, 2, 150, {4, 6, 0}, {1, 10}, {todo, {}, {3, 7}}),
             uR"(SELECT  TOP 150 a.Codigo, MIN(a.Descripcion) AS Descripcion, MIN(a.Familia_1) AS Familia_1,
             MIN(a.Familia_2) AS Familia_2, MIN(a.Familia_3) AS Familia_3, ISNULL(MIN(b.Cod_Barras),'') AS
             Cod_Barras,  ISNULL(MIN(c.Ref),'') AS Ref, <pvp d> Pvp1, <pvp e> Pvp2, <pvp f> Pvp3,  ISNULL(MIN(d.Pvp),0)
             AS Pvp1_Num, ISNULL(MIN(e.Pvp),0) AS Pvp2_Num, ISNULL(MIN(f.Pvp),0) AS
             Pvp3_Num,  ISNULL(SUM(aa.Stock_Actual),0) AS Stock_Actual, ISNULL(SUM(aa.Stock_Actual),0) AS
             Stock_Actual_Num  FROM Articulos a  LEFT JOIN Articulos_CBarras b ON a.Cod_Empresa=b.Cod_Empresa  AND
             b.Cod_Articulo=a.Codigo AND b.Principal=1  LEFT JOIN Articulos_Ref c ON a.Cod_Empresa=c.Cod_Empresa  AND
             c.Cod_Articulo=a.Codigo AND c.Principal=1  <tarifa d>=4 <tarifa e>=6 <tarifa f>=0 LEFT JOIN
             Almacen_Articulos aa ON aa.Cod_Empresa=1 AND aa.Cod_Almacen IN (1,10) AND aa.Cod_Articulo=a.Codigo  WHERE
             a.Cod_Empresa =2 AND a.Descripcion LIKE '%T%' AND a.Codigo LIKE '1%' AND a.Codigo IN (SELECT Cod_Articulo
             FROM Articulos_Ref aref WHERE  aref.Cod_Empresa=a.Cod_Empresa AND aref.Cod_Prov=7 AND aref.Ref LIKE 'R%')
             AND <familias> AND (Alternativo1 LIKE '%,3,%' OR Alternativo1 LIKE '%,7,%') GROUP BY a.Codigo  ORDER BY
             a.Codigo)"_s},
            {modelo3(2, {}, todo),
             u"SELECT  <lista>  FROM Articulos a  <barras> WHERE a.Cod_Empresa =2 <de3> ORDER BY a.Descripcion"_s},
            {modelo4(1, 2, 150, {todo, 6, 10}),
             uR"(SELECT  TOP 150 <lista>, ISNULL(c.Rotacion, 0) AS Rotacion FROM Articulos a  INNER JOIN #TempBA ON
             a.Codigo = #TempBA.Cod_Articulo <barras> LEFT JOIN Almacen_Articulos c ON c.Cod_Empresa =1 AND
             c.Cod_Almacen =6 AND a.Codigo = c.Cod_Articulo WHERE a.Cod_Empresa =2 <de3> <sinBloqueo> ORDER BY
             #TempBA.Ventas_Unidades DESC)"_s},
            {modelo6(2, 150, todo, false, condicionSurtido(1, qint16{4})),
             uR"(SELECT  TOP 150 <lista>  FROM Articulos a <barras> WHERE a.Cod_Empresa =2 AND a.Descripcion LIKE '%T%'
             <de0> AND a.MotivoBaja = 0 AND a.Codigo IN (SELECT DISTINCT Cod_Articulo FROM Almacen_Articulos WHERE
             Cod_Empresa =1 AND Cod_Almacen =4 AND Bloqueo = 0) ORDER BY a.Descripcion)"_s},
            {modelo2(Entorno, u"RO*"_s),
             uR"(SELECT  TOP 150 a.Codigo, a.Descripcion, a.TipoImpuesto, a.TipoImpuesto2, ISNULL(ar.Ref, '') AS
             Referencia, ISNULL(acb.Cod_Barras, '') AS EAN, <stock >, ISNULL(at.Pvp, 0) AS Pvp, ISNULL(t.Decimales, 2)
             AS Decimales FROM Articulos a LEFT JOIN <ref> <almacen =6> <precio at=4> <color t=4> <ean> WHERE
             a.Cod_Empresa =2 <texto> ORDER BY a.Descripcion)"_s},
            {modelo5(Entorno, {u"RO*"_s, Moneda::deTexto(u"2.5"), true, true}),
             uR"(SELECT  TOP 150 a.Codigo, a.Descripcion, ISNULL(ar.Ref, '') AS Referencia, <stock 1>, <stock 2>,
             <stock 3>, <stock 4>, <stock 5>, <stock 10>, <stock 11>, ISNULL(at.Pvp, 0) AS Pvp, ISNULL(atp.Pvp, 0) AS
             PvpP, ISNULL(atnm.Pvp, 0) AS PvpNM, ISNULL(tp.BackColor, 0) AS BackColor, ISNULL(tnm.BackColor, 0) AS
             BackColorNM, a.Largo, a.Ancho, a.Altura, a.BajoPedido, a.MotivoBaja, a.Bloqueado FROM Articulos a LEFT
             JOIN  <ref> <almacen 1= 1> <almacen 2= 2> <almacen 3= 3> <almacen 4= 4> <almacen 5= 5> <almacen 10= 10>
             <almacen 11= 11> <precio at= 1> <precio atp= 2> <precio atnm= 3> <color tp= 2> <color tnm= 3> <ean> WHERE
             a.Cod_Empresa =2 AND (atp.Pvp > 0 OR atnm.Pvp > 0)  AND (ISNULL(a.Descripcion,'') LIKE '%RO%') AND
             (a.Largo=2.5 OR a.Ancho=2.5 OR a.Altura=2.5) ORDER BY a.Descripcion)"_s},
            {modelo7(Entorno, u"RO*"_s, u"L'OR*"_s),
             uR"(SELECT  TOP 150 <de7> FROM Articulos a LEFT JOIN  <ref> <almacen =6> <precio at=4> <ean> LEFT JOIN
             Marcas m ON m.Codigo = a.Marca WHERE a.Cod_Empresa =2 <texto> AND ISNULL(m.Nombre, '') LIKE '%L''OR*%'
             ORDER BY a.Descripcion)"_s},
            {modelo8(Entorno, u"8*'"_s, Dia),
             uR"(SELECT  TOP 150 <de7>, ISNULL(f1.Nombre, '') AS F1Nombre FROM Articulos a INNER JOIN Almacen_Articulos
             aa ON aa.Cod_Empresa = 1 AND aa.Cod_Almacen = 6 AND aa.Cod_Articulo = a.Codigo INNER JOIN Articulos_Tarifas
             at ON at.Cod_Empresa = a.Cod_Empresa AND at.Cod_Tarifa = 4 AND at.Cod_Articulo = a.Codigo LEFT JOIN
             Articulos_Ref ar ON ar.Cod_Empresa = a.Cod_Empresa AND ar.Cod_Articulo = a.Codigo AND ar.Principal=1 LEFT
             JOIN  Articulos_CBarras acb ON acb.Cod_Empresa = a.Cod_Empresa AND acb.Cod_Articulo = a.Codigo AND
             acb.Principal=1 LEFT JOIN Marcas m ON m.Codigo = a.Marca LEFT JOIN Familias_1 f1 ON a.Cod_Empresa =
             f1.Cod_Empresa AND a.Familia_1 = f1.Codigo WHERE a.Cod_Empresa = 2 AND a.MotivoBaja = 0 AND aa.Bloqueo = 0
             AND aa.FUlt_Venta > '23/10/2026' AND at.Pvp > 0 AND ( (a.Descripcion LIKE '8%''') OR (ISNULL(ar.Ref,'')
             LIKE '8%''') OR (ISNULL(m.Nombre, '') LIKE '%8%''%')) ORDER BY a.Familia_1, a.Familia_2, a.Familia_3,
             a.Descripcion)"_s},
        };
        for (const auto &[sentencia, escrita] : casos) {
            QString esperada = escrita;
            for (const QStringList &pieza : piezas)
                esperada.replace(QRegularExpression(pieza[0].trimmed()), pieza[1]);
            QCOMPARE(sentencia.texto(), esperada.replace(QRegularExpression(u"\n +"_s), u" "_s));
        }
    }

    void conditions_and_what_is_refused()
    {
        const QString numero = u"(ISNULL(acb.Cod_Barras,'') LIKE '%84%') OR (ISNULL(a.Codigo,0) LIKE '%84%')) ORDER"_s;
        const std::pair<Sentencia, QString> casos[] = {
            {modelo0(2, {}, {.familias = {2, -1, 4}}, true), u"a.Cod_Empresa =2 AND a.Familia_1=2 ORDER"_s},
            {crearRanking(1, 2, {}, {2027, 1, 31}),
             u"((b.Cod_Ejercicio =2027 AND b.Mes = 1) OR (b.Cod_Ejercicio =2026 AND b.Mes = 12)) GROUP"_s},
            {crearRanking(1, 2, {}, {2026, 2, 1}), u"b.Cod_Ejercicio =2026 AND b.Mes BETWEEN 1 AND 2 "_s},
            {modelo2(Entorno, u"L'OR '"_s), u"LIKE '%L''OR%') AND (ISNULL(a.Descripcion,'') LIKE '%''%') ORDER"_s},
            {modelo8(Entorno, u"A B"_s, Dia), u"(a.Descripcion LIKE '%A%') AND (a.Descripcion LIKE '%B%') ORDER"_s},
            {modelo7(Entorno, u"84"_s, {}), u"(ISNULL(ar.Ref,'') LIKE '%84%') OR "_s + numero},
            {modelo8(Entorno, u"84"_s, Dia), u"LIKE '%%84%%') OR "_s + numero},
        };
        for (const auto &[sentencia, parte] : casos)
            QVERIFY2(sentencia.texto().contains(parte), qPrintable(parte + u" in "_s + sentencia.texto()));
        for (const CriteriosArticulo &criterios :
             {CriteriosArticulo{.descripcion = u"L'OREAL"_s}, {.codigo = u"1' OR 'a'='a"_s}, {.referencia = u"'"_s}})
            QVERIFY(!modelo0(2, 150, criterios, true).defecto().isEmpty());
    }

    void typed_text_is_a_pattern_or_words()
    {
        const auto leido = [](const QString &texto, Asterisco asterisco) {
            const TextoLibre t = leerTextoLibre(texto, asterisco);
            return t.unTermino ? t.patron + (t.numerico ? u" number"_s : QString())
                               : u"words "_s + t.palabras.join(u'|');
        };
        // The text, where the asterisk is a wildcard and where it separates words.
        const std::tuple<QString, QString, QString> casos[] = {
            {u"  ROJO   A "_s, u"words ROJO|A"_s, u"words ROJO|A"_s},
            {u"ROCA "_s, u"words ROCA"_s, u"words ROCA"_s},
            {{}, u"%%"_s, u"%%"_s},
            {u"*ROJO GR*"_s, u"%ROJO GR%"_s, u"words ROJO|GR"_s},
            {u"*"_s, u"%"_s, u"words "_s},
            {u"841"_s, u"%841% number"_s, u"%841% number"_s},
            {u"84*"_s, u"84%"_s, u"words 84"_s},
            {u"A\tB\u00a0C"_s, u"%A\tB\u00a0C%"_s, u"%A\tB\u00a0C%"_s},
            {u"10%_['"_s, u"%10%_['%"_s, u"%10%_['%"_s},
        };
        for (const auto &[texto, comodin, blanco] : casos) {
            QCOMPARE(leido(texto, Asterisco::Comodin), comodin);
            QCOMPARE(leido(texto, Asterisco::Blanco), blanco);
        }
    }

    void row_limit_is_an_integer_from_zero_up()
    {
        QString limites;
        for (const QString &ajuste : u"150  todos -5 99.9 99999999999 1E999 -1E999"_s.split(u' '))
            limites += QString::number(limiteFilas(ajuste)) + u' ';
        QCOMPARE(limites, u"150 0 0 0 99 2147483647 2147483647 0 "_s);
    }

private:
    inline static const EntornoTextoLibre Entorno{1, 2, 6, 4, true, 150};
    inline static const QDate Dia{2026, 10, 23};
};

NV_PRUEBA(tst_Consultas)
#include "tst_consultas.moc"
