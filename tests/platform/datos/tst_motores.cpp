#include "tst_odbcMotores.h"

/// What a statement means, whichever engine runs it: amounts, texts, dates and what no engine takes.
class PruebaDialecto : public PruebaMotores
{
    Q_OBJECT

private Q_SLOTS:
    void amounts_are_exact_data() { motoresConDialecto(); }
    void amounts_are_exact();
    void literals_are_the_statement_s_own_data() { motoresConDialecto(); }
    void literals_are_the_statement_s_own();
    void a_changed_table_is_read_anew_data() { motoresConDialecto(); }
    void a_changed_table_is_read_anew();
    void notes_come_whole_data() { motoresConDialecto(); }
    void notes_come_whole();
    void texts_compare_in_Spanish_data() { motoresConDialecto(); }
    void texts_compare_in_Spanish();
    void dates_are_day_month_year_data() { motoresConDialecto(); }
    void dates_are_day_month_year();
    void statements_that_no_engine_takes_data() { motoresConDialecto(); }
    void statements_that_no_engine_takes();
};

void PruebaDialecto::amounts_are_exact()
{
    QFETCH(Motor, motor);
    EMPEZAR_CON_CATALOGO(motor)
    const nv::Transaccion transaccion(conexion());
    ejecutar(u"DELETE FROM Articulos_Tarifas"_s);
    ejecutar(u"INSERT INTO Articulos_Tarifas (Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp) VALUES (1, 1, 1, 0.1), "
             u"(1, 1, 2, 0.2), (1, 1, 3, 0.3), (1, 2, 1, 10), (1, 3, 1, 0.00001), (1, 4, 1, NULL), "
             u"(1, 5, 1, 900719925474.0991)"_s);
    const auto uno = [&](const QString &expresion, int articulo) {
        return filas(u"SELECT %1 FROM Articulos_Tarifas WHERE Cod_Articulo =%2"_s.arg(expresion).arg(articulo))
            .value(0);
    };
    QCOMPARE(uno(u"SUM(Pvp)"_s, 1), u"0.6"_s);
    QCOMPARE(
        filas(
            u"SELECT Cod_Articulo FROM Articulos_Tarifas WHERE Cod_Empresa =1 GROUP BY Cod_Articulo HAVING SUM(Pvp) = 0.6"_s),
        QStringList{u"1"_s});
    QCOMPARE(uno(u"SUM(CASE WHEN Cod_Tarifa < 3 THEN Pvp ELSE -Pvp END)"_s, 1), u"0"_s);
    QCOMPARE(uno(u"Pvp + Pvp + Pvp"_s, 1), u"0.3"_s);
    QCOMPARE(uno(u"SUM(Pvp)"_s, 99), u"NULL"_s);
    QCOMPARE(uno(u"SUM(Cod_Tarifa)"_s, 1), u"6"_s);
    QCOMPARE(uno(u"CONVERT(VARCHAR, Pvp)"_s, 2), u"10.00"_s);
    QCOMPARE(uno(u"CONVERT(VARCHAR(20), Pvp)"_s, 3), u"0.00"_s);
    QCOMPARE(uno(u"CONVERT(VARCHAR, ISNULL(Pvp, 0))"_s, 4), u"0.00"_s);
    QCOMPARE(uno(u"CONVERT(VARCHAR, Pvp)"_s, 5), u"900719925474.10"_s);
    QCOMPARE(uno(u"CONVERT(VARCHAR, Cod_Articulo)"_s, 5), u"5"_s);
    nv::Registros registros = abrir(u"SELECT Pvp FROM Articulos_Tarifas WHERE Cod_Articulo =5"_s);
    QVERIFY(registros.siguiente());
    QCOMPARE(registros.moneda(0).diezmilesimas(), 9007199254740991);
}

void PruebaDialecto::literals_are_the_statement_s_own()
{
    QFETCH(Motor, motor);
    EMPEZAR_CON_CATALOGO(motor)
    const nv::Transaccion transaccion(conexion());
    ejecutar(
        u"INSERT INTO Parametros_App (Clave, Valor) VALUES ('a', '1'), ('b', '01'), ('c', 'x''y'), ('12', 'doce')"_s);
    const auto clave = [&](const QString &condicion) {
        return filas(u"SELECT Clave FROM Parametros_App WHERE "_s + condicion + u" ORDER BY Clave"_s).join(u',');
    };
    QCOMPARE(clave(u"Valor ='1'"_s), u"a"_s);
    QCOMPARE(clave(u"Valor ='01'"_s), u"b"_s);
    QCOMPARE(clave(u"Valor ='x''y'"_s), u"c"_s);
    QCOMPARE(clave(u"Valor =''"_s), QString());
    QCOMPARE(clave(u"Clave ='12'"_s), u"12"_s);
    QCOMPARE(clave(u"Clave LIKE '1%'"_s), u"12"_s);
    QCOMPARE(clave(u"Clave LIKE '%2'"_s), u"12"_s);
    QCOMPARE(clave(u"Clave LIKE '_'"_s), u"a,b,c"_s);
    QCOMPARE(clave(u"Clave LIKE ''"_s), QString());
    QCOMPARE(clave(u"Clave IN ('a', 'C', 'zz')"_s), u"a,c"_s);
    // A column's ordinal is no value.
    QCOMPARE(filas(u"SELECT TOP 2 Clave, Valor FROM Parametros_App ORDER BY 2, 1"_s),
             (QStringList{u"b|01"_s, u"a|1"_s}));
    QCOMPARE(filas(u"SELECT TOP 2 Clave, Valor FROM Parametros_App ORDER BY 1, 2"_s),
             (QStringList{u"12|doce"_s, u"a|1"_s}));
    QCOMPARE(
        filas(
            u"SELECT  TOP 1 Clave FROM Parametros_App WHERE Clave IN (SELECT TOP 1 Clave FROM Parametros_App ORDER BY Clave DESC)"_s),
        QStringList{u"c"_s});
}

void PruebaDialecto::a_changed_table_is_read_anew()
{
    QFETCH(Motor, motor);
    EMPEZAR_CON_CATALOGO(motor)
    const QString consulta = u"SELECT * FROM #t WHERE Codigo =1"_s;
    ejecutar(u"SELECT Codigo INTO #t FROM Marcas WHERE Codigo =1"_s);
    QCOMPARE(filas(consulta), QStringList{u"1"_s});
    ejecutar(u"DROP TABLE #t"_s);
    ejecutar(u"SELECT Nombre, Codigo INTO #t FROM Marcas WHERE Codigo =1"_s);
    nv::Registros registros = abrir(consulta);
    QVERIFY(registros.siguiente());
    QCOMPARE(registros.texto(u"nombre"), u"Acme"_s);
    QCOMPARE(registros.entero16(u"CODIGO"), 1);
}

void PruebaDialecto::notes_come_whole()
{
    QFETCH(Motor, motor);
    EMPEZAR_CON_CATALOGO(motor)
    const nv::Transaccion transaccion(conexion());
    const QString nota = u"Línea de notas: ñÑ, á, ü, 12 €.\r\n"_s.repeated(700);
    ejecutar(u"UPDATE Articulos SET Desc_Memo = '%1' WHERE Codigo = 1"_s.arg(nota));
    ejecutar(u"UPDATE Articulos SET Desc_Memo = '' WHERE Codigo = 2"_s);
    ejecutar(u"UPDATE Articulos SET Desc_Memo = NULL WHERE Codigo = 3"_s);
    nv::Registros registros =
        abrir(u"SELECT Codigo, Desc_Memo, Descripcion FROM Articulos WHERE Codigo < 4 ORDER BY Codigo"_s);
    QVERIFY(registros.siguiente());
    QCOMPARE(registros.texto(u"Descripcion"), u"TORNILLO PLANO"_s); // behind the notes, read before them
    QCOMPARE(registros.texto(u"Desc_Memo"), nota);
    QVERIFY(registros.siguiente());
    QVERIFY(!registros.esNulo(u"Desc_Memo") && registros.texto(u"Desc_Memo").isEmpty());
    QVERIFY(registros.siguiente());
    QVERIFY(registros.esNulo(u"Desc_Memo"));
}

void PruebaDialecto::texts_compare_in_Spanish()
{
    QFETCH(Motor, motor);
    EMPEZAR_CON_CATALOGO(motor)
    const nv::Transaccion transaccion(conexion());
    ejecutar(u"DELETE FROM Marcas"_s);
    ejecutar(u"INSERT INTO Marcas (Codigo, Nombre) VALUES (1, 'Ñora'), (2, 'nuez'), (3, 'OCA'), (4, 'Nácar'), (5, "
             u"'nacar'), (6, '100%'), (7, 'a_b')"_s);
    const auto codigos = [&](const QString &condicion) {
        return filas(u"SELECT Codigo FROM Marcas WHERE Nombre "_s + condicion + u" ORDER BY Codigo"_s).join(u',');
    };
    QCOMPARE(codigos(u"= 'ÑORA'"_s), u"1"_s);
    QCOMPARE(codigos(u"= 'nora'"_s), QString());
    QCOMPARE(codigos(u"= 'NACAR   '"_s), u"5"_s);
    QCOMPARE(codigos(u"= 'nácar'"_s), u"4"_s);
    QCOMPARE(codigos(u"LIKE 'n%'"_s), u"2,4,5"_s);
    QCOMPARE(codigos(u"LIKE '%Á%'"_s), u"4"_s);
    QCOMPARE(codigos(u"LIKE '[no]%a'"_s), u"3"_s);
    QCOMPARE(codigos(u"LIKE '%[%]'"_s), u"6"_s);
    QCOMPARE(codigos(u"LIKE 'a[_]b'"_s), u"7"_s);
    QCOMPARE(filas(u"SELECT Codigo FROM Marcas WHERE Codigo < 4 ORDER BY Nombre"_s),
             (QStringList{u"2"_s, u"1"_s, u"3"_s}));
    QCOMPARE(filas(u"SELECT LEN(Nombre) FROM Marcas WHERE Codigo = 4"_s), QStringList{u"5"_s});
}

void PruebaDialecto::dates_are_day_month_year()
{
    QFETCH(Motor, motor);
    EMPEZAR_CON_CATALOGO(motor)
    const nv::Transaccion transaccion(conexion());
    ejecutar(u"DELETE FROM Articulos_CBarras"_s);
    ejecutar(u"INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Fecha) VALUES (1, 1, 'A', "
             u"'02/03/2026'), (1, 1, 'B', '01/12/2025'), (1, 1, 'C', ' 31/01/2026'), (1, 1, 'D', NULL)"_s);
    const auto barras = [&](const QString &condicion) {
        return filas(u"SELECT Cod_Barras FROM Articulos_CBarras WHERE "_s + condicion).join(u',');
    };
    QCOMPARE(barras(u"Fecha IS NOT NULL ORDER BY Fecha"_s), u"B,C,A"_s);
    QCOMPARE(barras(u"Fecha > '01/02/2026'"_s), u"A"_s);
    QCOMPARE(barras(u"Fecha <=' 31/01/2026' ORDER BY Fecha"_s), u"B,C"_s);
    QCOMPARE(barras(u"Fecha = '2/3/2026'"_s), u"A"_s);
    nv::Registros registros = abrir(u"SELECT Fecha FROM Articulos_CBarras WHERE Cod_Barras <> 'D' ORDER BY Fecha"_s);
    QVERIFY(registros.siguiente());
    QCOMPARE(registros.fechaO(u"Fecha"), QDate(2025, 12, 1));
    QVERIFY(registros.siguiente() && registros.siguiente());
    QCOMPARE(registros.fechaO(u"Fecha"), QDate(2026, 3, 2));
}

void PruebaDialecto::statements_that_no_engine_takes()
{
    QFETCH(Motor, motor);
    EMPEZAR_CON_CATALOGO(motor)
    for (const QString &sentencia :
         {u"SELECT Codigo FROM Marcas WHERE Codigo =1AND Nombre ='Acme'"_s, u"SELECT 'sin cerrar"_s,
          u"SELECT Codigo FROM Marcas WHERE Nombre ="_s, u"SELECT Codigo FROM NoEsta"_s, u"SELECT NoEsta FROM Marcas"_s,
          u"INSERT INTO Marcas (Codigo, Nombre) VALUES (1, 'otra')"_s, u"INSERT INTO Proveedores (Codigo) VALUES (1)"_s,
          u"DROP TABLE #NoEsta"_s}) {
        QVERIFY2(numeroDeError([&] { filas(sentencia); }) > 0, qPrintable(sentencia));
        QVERIFY2(numeroDeError([&] { ejecutar(sentencia); }) > 0, qPrintable(sentencia));
    }
    QCOMPARE(filas(u"SELECT Nombre FROM Marcas WHERE Nombre <> '; DELETE FROM Marcas --' ORDER BY Codigo"_s),
             (QStringList{u"Acme"_s, u"Roca"_s}));
    QCOMPARE(filas(u"SELECT COUNT(*) /* ' */ FROM Marcas -- it's the end"_s), QStringList{u"2"_s});
}

QTEST_GUILESS_MAIN(PruebaDialecto)
#include "moc_tst_odbcMotores.cpp"
#include "tst_motores.moc"
