#include "CatalogoMinimo.h"
#include "platform/datos/Dialecto.h"
#include "platform/datos/Lexico.h"

using namespace nv::datos;

/// What a statement means, whichever engine runs it: amounts, texts, dates, and the forms that only a server knows.
class PruebaDialecto : public PruebaConCatalogo
{
    Q_OBJECT

private Q_SLOTS:
    void amounts_are_exact()
    {
        ejecutar(u"INSERT INTO Articulos_Tarifas (Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp) VALUES (9, 1, 1, 0.1), "
                 u"(9, 1, 2, 0.2), (9, 1, 3, 0.3), (9, 2, 1, 10), (9, 3, 1, 0.00001), (9, 4, 1, NULL), "
                 u"(9, 5, 1, 900719925474.0991), (9, 6, 1, -2.5), (9, 6, 2, -2.5)"_s);
        const QString importes = u"1→SUM(Pvp)→0.6;1→SUM(CASE WHEN Cod_Tarifa < 3 THEN Pvp ELSE -Pvp END)→0;"
                                 u"1→Pvp + Pvp + Pvp→0.3,0.6,0.9;6→SUM(Pvp)→-5;4→SUM(Pvp)→NULL;99→SUM(Pvp)→NULL;"
                                 u"1→SUM(Cod_Tarifa)→6;2→CONVERT(VARCHAR, Pvp)→10.00;3→CONVERT(VARCHAR(20), Pvp)→0.00;"
                                 u"4→CONVERT(VARCHAR, ISNULL(Pvp, 0))→0.00;4→CONVERT(VARCHAR, Pvp)→NULL;"
                                 u"5→CONVERT(VARCHAR, Pvp)→900719925474.10;5→CONVERT(VARCHAR, Cod_Articulo)→5;"
                                 u"2→CONVERT(INT, '7')→7"_s;
        const QString consulta = u"SELECT %2 FROM Articulos_Tarifas WHERE Cod_Empresa =9 AND Cod_Articulo =%1"_s;
        responden(consulta, importes);
        responden(u"SELECT Cod_Articulo FROM Articulos_Tarifas WHERE Cod_Empresa =9 %1"_s,
                  u"GROUP BY Cod_Articulo HAVING SUM(Pvp) = 0.6→1"_s);
    }

    void literals_are_the_statement_s_own()
    {
        ejecutar(u"INSERT INTO Parametros_App (Clave, Valor) VALUES ('a', '1'), ('b', '01'), ('c', 'x''y'),"
                 u" ('12', 'doce')"_s);
        responden(u"SELECT Clave FROM Parametros_App WHERE %1 ORDER BY Clave"_s,
                  u"Valor ='1'→a;Valor ='01'→b;Valor =N'x''y'→c;Valor =''→;Clave LIKE '1%'→12;Clave LIKE '%2'→12;"
                  u"Clave LIKE '_'→a,b,c;Clave LIKE ''→;[Clave] IN ('a', 'C', 'zz')→a,c;"
                  u"LEN(Valor) = 1e0 AND 1.50 = 1.5 AND .5 = 50e-2 AND 1E+1 = 10→a;"
                  u"Clave = 'a' /* ' */ AND 7 - -1 = 8 AND 8 / 2 = 4 -- it's the end\n→a"_s);
        // A column's ordinal is no value.
        responden(u"SELECT %1"_s,
                  u"TOP 2 Clave, Valor FROM Parametros_App ORDER BY 2, 1→b|01,a|1;DISTINCT TOP (2) Clave FROM"
                  u" Parametros_App ORDER BY 1→12,a; TOP 1 Clave FROM Parametros_App WHERE Clave IN"
                  u" (SELECT TOP 2 Clave FROM Parametros_App ORDER BY Clave DESC) ORDER BY Clave→b"_s);
    }

    void texts_compare_in_Spanish()
    {
        ejecutar(u"DELETE FROM Marcas"_s);
        ejecutar(u"INSERT INTO Marcas (Codigo, Nombre) VALUES (1, 'Ñora'), (2, 'nuez'), (3, 'OCA'), (4, 'Nácar'),"
                 u" (5, 'nacar'), (6, '100%'), (7, 'a_b')"_s);
        responden(u"SELECT Codigo FROM Marcas WHERE Nombre %1 ORDER BY Codigo"_s,
                  u"= 'ÑORA'→1;= 'nora'→;= 'NACAR   '→5;= 'nácar'→4;LIKE 'n%'→2,4,5;LIKE '%Á%'→4;LIKE '[no]%a'→3;"
                  u"LIKE '%[%]'→6;LIKE 'a[_]b'→7;NOT LIKE '%a%'→2,6"_s);
        QCOMPARE(responde(u"SELECT Codigo FROM Marcas WHERE Codigo < 4 ORDER BY Nombre"_s), u"2,1,3"_s);
        // Functions keep the order of their column.
        ejecutar(
            u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion, FAlta) VALUES (9, 1, ' Ñora ', '5/11/2026')"_s);
        responden(u"SELECT Codigo FROM Articulos WHERE Cod_Empresa = 9 AND %1"_s,
                  u"ISNULL(Descripcion,'') = ' ÑORA'→1;LTRIM(RTRIM(Descripcion)) = 'ñora'→1;UPPER(Descripcion) = '"
                  u" ñORA'→1;LOWER(Descripcion) = ' Ñora'→1;LEN(Descripcion) = 5→1;SUBSTRING(Descripcion, 2, 2) ="
                  u" 'ñO'→1;CONVERT(VARCHAR(40), Descripcion) = ' ÑORA'→1;REPLACE(Descripcion, 'Ñ', 'n') = ' NORA'→1;"
                  u"ISNULL(FAlta,'') = '05/11/2026'→1;ISNULL(FAlta,'') > '30/10/2026'→1"_s);
    }

    void dates_are_day_month_year()
    {
        ejecutar(u"DELETE FROM Articulos_CBarras"_s);
        ejecutar(u"INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Fecha) VALUES (1, 1, 'A',"
                 u" '02/03/2026'), (1, 1, 'B', '01/12/2025'), (1, 1, 'C', ' 31/01/2026'), (1, 1, 'D', NULL)"_s);
        responden(u"SELECT Cod_Barras FROM Articulos_CBarras WHERE %1 ORDER BY Fecha"_s,
                  u"Fecha IS NOT NULL→B,C,A;Fecha > '01/02/2026'→A;Fecha <=' 31/01/2026'→B,C;Fecha = '2/3/2026'→A"_s);
        QCOMPARE(responde(u"SELECT TOP 1 Fecha FROM Articulos_CBarras ORDER BY Fecha DESC"_s), u"02/03/2026"_s);
    }

    void copies_keep_types_and_orders()
    {
        const QString copia =
            u"SELECT a.Descripcion, a.Codigo, b.Fecha, c.Pvp, c.Pvp + 1 AS Mas INTO #Copia FROM Articulos a"
            u" INNER JOIN Articulos_CBarras b ON b.Cod_Articulo = a.Codigo AND b.Principal = 1"
            u" LEFT JOIN Articulos_Tarifas c ON c.Cod_Articulo = a.Codigo AND c.Cod_Tarifa = 1"_s;
        QCOMPARE(ejecutar(copia), 2);
        responden(u"SELECT Codigo, CONVERT(VARCHAR, Pvp), Mas FROM #Copia WHERE %1"_s,
                  u"Descripcion = 'bañera BLANCA' AND Fecha = '01/02/2026'→4|100.00|101"_s);
        QVERIFY(numeroDeError([&] { ejecutar(copia); }) > 0);
        QVERIFY(numeroDeError([&] { ejecutar(u"SELECT NoEsta INTO #Otra FROM Marcas"_s); }) > 0);
        ejecutar(u"DROP TABLE #Copia"_s);
        QVERIFY(numeroDeError([&] { filas(u"SELECT * FROM #Otra"_s); }) > 0); // nothing half made stays
    }

    void company_of_a_subquery_stays_its_own()
    {
        const QString desde = u"SELECT a.Codigo FROM Articulos a WHERE a.Cod_Empresa =2"_s;
        const QString casos =
            u"% AND a.Codigo IN (SELECT a.Cod_Articulo FROM Almacen_Articulos a WHERE a.Cod_Empresa =1) ORDER BY"
            u" 1→1,2,4;% + 1 AND EXISTS (SELECT 1 FROM Marcas WHERE a.Cod_Empresa =2)→;% AND a.Codigo =1 OR EXISTS"
            u" (SELECT 1 FROM Marcas WHERE a.Cod_Empresa =7)→1;SELECT a.Codigo FROM Almacenes a WHERE (a.Codigo =2)"
            u" AND a.Cod_Empresa =1 AND EXISTS (SELECT 1 FROM Almacen_Tarifas b WHERE b.Cod_Empresa"
            u" =a.Cod_Empresa)→2;SELECT a.Codigo FROM Almacenes a LEFT JOIN Marcas m ON a.Cod_Empresa =7 AND"
            u" m.Codigo = 1 WHERE EXISTS (SELECT 1 FROM Tarifas b WHERE a.Cod_Empresa =1) ORDER BY a.Codigo→1,2"_s;
        responden(u"%1"_s, QString(casos).replace(u"%"_s, desde));
        const QString fija = u" AND EXISTS (SELECT 1 FROM Marcas b WHERE b.Codigo = a.Cod_Empresa)"_s;
        QVERIFY(!adaptar(parametrizar(desde + fija).forma).sql.contains(u"b.Codigo = a."_s));
    }

    void statements_that_no_engine_takes()
    {
        for (const QStringList &caso : tabla(
                 u"SELECT Codigo FROM Marcas WHERE Codigo =1AND Nombre ='Acme';SELECT 'sin cerrar;SELECT TOP;"
                 u"SELECT Codigo FROM Marcas WHERE Nombre =;SELECT Codigo FROM Marcas WHERE Nombre LIKE;SELECT 1.2.3;"
                 u"SELECT Codigo FROM NoEsta;SELECT NoEsta FROM Marcas;SELECT Codigo FROM Marcas WHERE Codigo = 1x;"
                 u"INSERT INTO Marcas (Codigo, Nombre) VALUES (1, 'otra');INSERT INTO Proveedores (Codigo) VALUES (1);"
                 u"CREATE TABLE #t (a varchar(2;DROP TABLE #NoEsta"_s)) {
            QVERIFY2(numeroDeError([&] { filas(caso[0]); }) > 0, qPrintable(caso[0]));
            QVERIFY2(numeroDeError([&] { ejecutar(caso[0]); }) > 0, qPrintable(caso[0]));
        }
        QCOMPARE(responde(u"SELECT Nombre FROM Marcas WHERE Nombre <> '; DELETE FROM Marcas --' ORDER BY Codigo"_s),
                 u"Acme,Roca"_s);
    }

    void literals_are_lifted_out_of_the_form()
    {
        const auto literales = [](QStringView sentencia) {
            QStringList textos;
            for (const Literal &literal : parametrizar(sentencia).literales)
                textos << literal.texto();
            return textos.join(u' ');
        };
        QCOMPARE(
            literales(u"SELECT TOP 5 CONVERT(DECIMAL(9, 2), 1), CONVERT(VARCHAR(20), (x + 2)), 'a''b', n'c' FROM t4"
                      u" WHERE a = -1.5 AND b IN (.5e-2, 1E+3) AND c LIKE 'x%' GROUP BY 7, LEN(6) HAVING z > 3"
                      u" ORDER BY 2, (SELECT 8)"),
            u"5 1 2 a'b c 1.5 .5e-2 1E+3 x% 6 3 8"_s);
        QCOMPARE(literales(u"insert into t values (1) ") + literales(u" UPDATE t SET a = 2 "), u"12"_s);
        QCOMPARE(literales(u"DELETE FROM t WHERE a = 1x AND b = 1.2.3 AND c = 'sin cerrar") + literales(u"DROP t 3"),
                 u""_s);
        const auto forma = [](const QString &patron) {
            return parametrizar(u"SELECT 1 WHERE a LIKE '"_s + patron + u'\'').forma;
        };
        QVERIFY(forma(u"x%"_s) == forma(u"y"_s) && forma(u"%x"_s) == forma(u"[y]"_s) && forma({}) == forma(u"_"_s));
        QVERIFY2(forma(u"x%"_s) != forma(u"%x"_s), "a fixed beginning decides the plan");
    }

    void statements_cut_short_are_read_to_their_end()
    {
        const QString entera = u"SELECT DISTINCT TOP (3) [a b].x, ISNULL(a.Ref, N'it''s') -- y\n FROM t /* z */ a"
                               u" WHERE a.Nombre LIKE 'A%' AND CONVERT(VARCHAR(3), Pvp) = -1.5e+3 AND \"q\" >= .5"_s;
        for (qsizetype largo = 0; largo <= entera.size(); ++largo) {
            QString unida;
            for (const Lexema &lexema : Lexemas(QStringView(entera).first(largo)))
                unida += lexema.texto;
            QCOMPARE(unida, entera.first(largo));
            (void)adaptar(parametrizar(unida).forma);
            (void)adaptar(u"CREATE TABLE "_s + unida);
        }
    }
};

NV_PRUEBA(PruebaDialecto)
#include "tst_dialecto.moc"
