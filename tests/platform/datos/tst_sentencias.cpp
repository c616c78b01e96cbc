#include "tst_odbcMotores.h"

/// Every form of statement of the component, as it goes out, over a small catalogue and every way in that speaks its
/// dialect.
class PruebaSentencias : public PruebaMotores
{
    Q_OBJECT

private Q_SLOTS:
    void query_answers_data();
    void query_answers();
    void write_changes_data();
    void write_changes();
    void ranking_runs_twice_over_its_temporary_table_data() { motoresConDialecto(); }
    void ranking_runs_twice_over_its_temporary_table();
    void company_of_a_subquery_stays_its_own_data() { motoresConDialecto(); }
    void company_of_a_subquery_stays_its_own();
    void search_copy_takes_the_rows_of_the_search_data() { motoresConDialecto(); }
    void search_copy_takes_the_rows_of_the_search();
};

namespace {

void caso(const char *nombre, const QString &sentencia, const QStringList &filas)
{
    for (const auto &[via, motor] : delDialecto())
        QTest::addRow("%s: %s", via, nombre) << motor << sentencia << filas;
}

const QString Modelo0 =
    u"SELECT  TOP 150 a.Codigo, a.Descripcion, a.Familia_1, a.Familia_2, a.Familia_3, ISNULL(b.Cod_Barras,'') AS "
    u"Cod_Barras  FROM Articulos a  LEFT JOIN Articulos_CBarras b ON a.Cod_Empresa=b.Cod_Empresa AND "
    u"b.Cod_Articulo=a.Codigo AND b.Principal=1 WHERE a.Cod_Empresa =1%1 ORDER BY a.Descripcion"_s;

const QString Modelo2 =
    u"SELECT  TOP 150 a.Codigo, a.Descripcion, a.TipoImpuesto, a.TipoImpuesto2, ISNULL(ar.Ref, '') AS Referencia, "
    u"ISNULL(acb.Cod_Barras, '') AS EAN, ISNULl(aa.Stock_Actual + aa.Stock_MiniCompra, 0) AS Stock, ISNULL(at.Pvp, 0) "
    u"AS Pvp, ISNULL(t.Decimales, 2) AS Decimales FROM Articulos a LEFT JOIN Articulos_Ref ar ON ar.Cod_Empresa = "
    u"a.Cod_Empresa AND ar.Cod_Articulo=a.Codigo AND ar.Principal=1 LEFT JOIN Almacen_Articulos aa ON aa.Cod_Empresa "
    u"=2 AND aa.Cod_Almacen =1 AND aa.Cod_Articulo = a.Codigo LEFT JOIN Articulos_Tarifas at ON at.Cod_Empresa = "
    u"a.Cod_Empresa AND at.Cod_Tarifa =1 AND at.Cod_Articulo = a.Codigo LEFT JOIN Tarifas t ON t.Cod_Empresa = "
    u"a.Cod_Empresa AND t.Cod_Tarifa =1 LEFT JOIN  Articulos_CBarras acb ON acb.Cod_Empresa = a.Cod_Empresa AND "
    u"acb.Cod_Articulo=a.Codigo AND acb.Principal=1 WHERE a.Cod_Empresa =1 %1 ORDER BY a.Descripcion"_s;

const QString Modelo1 =
    u"SELECT  a.Codigo, MIN(a.Descripcion) AS Descripcion, MIN(a.Familia_1) AS Familia_1, MIN(a.Familia_2) AS "
    u"Familia_2, MIN(a.Familia_3) AS Familia_3, ISNULL(MIN(b.Cod_Barras),'') AS Cod_Barras,  ISNULL(MIN(c.Ref),'') AS "
    u"Ref, REPLACE(CONVERT(VARCHAR,ISNULL(MIN(d.Pvp),0)),'.',',') AS Pvp1, "
    u"REPLACE(CONVERT(VARCHAR,ISNULL(MIN(e.Pvp),0)),'.',',') AS Pvp2, "
    u"REPLACE(CONVERT(VARCHAR,ISNULL(MIN(f.Pvp),0)),'.',',') AS Pvp3,  ISNULL(MIN(d.Pvp),0) AS Pvp1_Num, "
    u"ISNULL(MIN(e.Pvp),0) AS Pvp2_Num, ISNULL(MIN(f.Pvp),0) AS Pvp3_Num,  ISNULL(SUM(aa.Stock_Actual),0) AS "
    u"Stock_Actual, ISNULL(SUM(aa.Stock_Actual),0) AS Stock_Actual_Num  FROM Articulos a  LEFT JOIN Articulos_CBarras "
    u"b ON a.Cod_Empresa=b.Cod_Empresa  AND b.Cod_Articulo=a.Codigo AND b.Principal=1  LEFT JOIN Articulos_Ref c ON "
    u"a.Cod_Empresa=c.Cod_Empresa  AND c.Cod_Articulo=a.Codigo AND c.Principal=1  LEFT JOIN Articulos_Tarifas d ON "
    u"a.Cod_Empresa=d.Cod_Empresa  AND d.Cod_Articulo=a.Codigo AND d.Cod_Tarifa=1 LEFT JOIN Articulos_Tarifas e ON "
    u"a.Cod_Empresa=e.Cod_Empresa  AND e.Cod_Articulo=a.Codigo AND e.Cod_Tarifa=2 LEFT JOIN Articulos_Tarifas f ON "
    u"a.Cod_Empresa=f.Cod_Empresa  AND f.Cod_Articulo=a.Codigo AND f.Cod_Tarifa=0 LEFT JOIN Almacen_Articulos aa ON "
    u"aa.Cod_Empresa=2 AND aa.Cod_Almacen IN (1,2,3) AND aa.Cod_Articulo=a.Codigo  WHERE a.Cod_Empresa =1%1 GROUP BY "
    u"a.Codigo  ORDER BY a.Codigo"_s;

QString modelo5(const QString &condicion)
{
    QString sentencia =
        u"SELECT  TOP 150 a.Codigo, ISNULL(ar.Ref, '') AS Referencia, ISNULl(aa1.Stock_Actual + aa1.Stock_MiniCompra, "
        u"0) AS Stock1, ISNULl(aa11.Stock_Actual + aa11.Stock_MiniCompra, 0) AS Stock11, ISNULL(at.Pvp, 0) AS Pvp, "
        u"ISNULL(atp.Pvp, 0) AS PvpP, ISNULL(atnm.Pvp, 0) AS PvpNM, ISNULL(tp.BackColor, 0) AS BackColor, "
        u"ISNULL(tnm.BackColor, 0) AS BackColorNM, a.Largo, a.Ancho, a.Altura, a.BajoPedido, a.MotivoBaja, a.Bloqueado"
        u" FROM Articulos a LEFT JOIN  Articulos_Ref ar ON ar.Cod_Empresa = a.Cod_Empresa AND "
        u"ar.Cod_Articulo=a.Codigo AND ar.Principal=1"_s;
    for (const int almacen : {1, 2, 3, 4, 5, 10, 11})
        sentencia += u" LEFT JOIN Almacen_Articulos aa%1 ON aa%1.Cod_Empresa =2 AND aa%1.Cod_Almacen = %1 AND "
                     u"aa%1.Cod_Articulo = a.Codigo"_s.arg(almacen);
    return sentencia +
           u" LEFT JOIN Articulos_Tarifas at ON at.Cod_Empresa = a.Cod_Empresa AND at.Cod_Tarifa = 1 AND "
           u"at.Cod_Articulo = a.Codigo LEFT JOIN Articulos_Tarifas atp ON atp.Cod_Empresa = a.Cod_Empresa AND "
           u"atp.Cod_Tarifa = 2 AND atp.Cod_Articulo = a.Codigo LEFT JOIN Articulos_Tarifas atnm ON atnm.Cod_Empresa = "
           u"a.Cod_Empresa AND atnm.Cod_Tarifa = 3 AND atnm.Cod_Articulo = a.Codigo LEFT JOIN Tarifas tp ON "
           u"tp.Cod_Empresa = a.Cod_Empresa AND tp.Cod_Tarifa = 2 LEFT JOIN Tarifas tnm ON tnm.Cod_Empresa = "
           u"a.Cod_Empresa AND tnm.Cod_Tarifa = 3 LEFT JOIN  Articulos_CBarras acb ON acb.Cod_Empresa = a.Cod_Empresa "
           u"AND acb.Cod_Articulo=a.Codigo AND acb.Principal=1 WHERE a.Cod_Empresa =1"_s +
           condicion + u" ORDER BY a.Descripcion"_s;
}

const QString Modelo8 =
    u"SELECT  TOP 150 a.Codigo, a.Descripcion, ISNULL(ar.Ref, '') AS Referencia,ISNULL(acb.Cod_Barras, '') AS EAN, "
    u"ISNULl(aa.Stock_Actual + aa.Stock_MiniCompra, 0) AS Stock, ISNULL(aa.Bloqueo, 0) AS Bloqueo, a.Bloqueado, "
    u"ISNULL(at.Pvp, 0) AS Pvp, ISNULL(m.Nombre, '') AS MarcaNombre, a.MotivoBaja, ISNULL(f1.Nombre, '') AS F1Nombre "
    u"FROM Articulos a INNER JOIN Almacen_Articulos aa ON aa.Cod_Empresa = 2 AND aa.Cod_Almacen = 1 AND "
    u"aa.Cod_Articulo = a.Codigo INNER JOIN Articulos_Tarifas at ON at.Cod_Empresa = a.Cod_Empresa AND at.Cod_Tarifa = "
    u"1 AND at.Cod_Articulo = a.Codigo LEFT JOIN Articulos_Ref ar ON ar.Cod_Empresa = a.Cod_Empresa AND "
    u"ar.Cod_Articulo = a.Codigo AND ar.Principal=1 LEFT JOIN  Articulos_CBarras acb ON acb.Cod_Empresa = "
    u"a.Cod_Empresa AND acb.Cod_Articulo = a.Codigo AND acb.Principal=1 LEFT JOIN Marcas m ON m.Codigo = a.Marca LEFT "
    u"JOIN Familias_1 f1 ON a.Cod_Empresa = f1.Cod_Empresa AND a.Familia_1 = f1.Codigo WHERE a.Cod_Empresa = 1 AND "
    u"a.MotivoBaja = 0 AND aa.Bloqueo = 0 AND aa.FUlt_Venta > '%1' AND at.Pvp > 0%2 ORDER BY a.Familia_1, a.Familia_2, "
    u"a.Familia_3, a.Descripcion"_s;

/// A server takes the rows of a copy without the order that it refuses.
QStringList copiadas(Motor motor, QStringList filas)
{
    if (motor != Motor::Embebido)
        filas.sort();
    return filas;
}

QString soloCodigos(const QString &sentencia)
{
    const qsizetype desde = sentencia.indexOf(u"FROM"_s);
    return u"SELECT a.Codigo "_s + sentencia.sliced(desde);
}

void casosBusquedas()
{
    const QString ref = u" AND a.Codigo IN (SELECT Cod_Articulo FROM Articulos_Ref aref WHERE "
                        u" aref.Cod_empresa=a.Cod_Empresa%1)"_s;
    const auto codigos0 = [](const QString &condicion) { return soloCodigos(Modelo0.arg(condicion)); };
    caso("model 0, all, in the order of the description", codigos0({}),
         {u"4"_s, u"5"_s, u"3"_s, u"2"_s, u"1"_s, u"841"_s});
    caso("model 0, columns", Modelo0.arg(u" AND a.Descripcion LIKE 'torn%' AND a.Familia_1=1 AND a.Familia_2=1"_s),
         {u"1|TORNILLO PLANO|1|1|0|8412345678905"_s});
    caso("model 0, TOP 0", u"SELECT  TOP 0 a.Codigo FROM Articulos a WHERE a.Cod_Empresa =1 ORDER BY a.Descripcion"_s,
         {});
    caso("model 0, notes", codigos0(u" AND (a.Descripcion LIKE 'TORN%' OR a.Desc_Memo LIKE 'TORN%')"_s),
         {u"5"_s, u"2"_s, u"1"_s});
    caso("model 0, code pattern", codigos0(u" AND a.Codigo LIKE '84%'"_s), {u"841"_s});
    caso("model 0, supplier and reference", codigos0(ref.arg(u" AND aref.Cod_Prov=7 AND aref.Ref LIKE 'R%'"_s)),
         {u"1"_s});
    caso("model 0, supplier", codigos0(ref.arg(u" AND aref.Cod_Prov=7"_s)), {u"4"_s, u"2"_s, u"1"_s});
    caso("model 0, reference inside", codigos0(ref.arg(u" AND aref.Ref LIKE '12%34%'"_s)), {u"2"_s});
    caso("model 6, assortment, head office",
         codigos0(u" AND a.MotivoBaja = 0 AND a.Codigo IN (SELECT DISTINCT Cod_Articulo FROM Almacen_Articulos WHERE "
                  u"Cod_Empresa =2 AND Bloqueo = 0)"_s),
         {u"4"_s, u"1"_s});
    caso("model 3, brand", codigos0(u" AND a.Marca = 2"_s), {u"4"_s});
    caso("model 4, warehouse and rotation",
         u"SELECT  TOP 150 a.Codigo, ISNULL(b.Cod_Barras,'') AS Cod_Barras, ISNULL(c.Rotacion, 0) AS Rotacion FROM "
         u"Articulos a  LEFT JOIN Articulos_CBarras b ON a.Cod_Empresa=b.Cod_Empresa AND b.Cod_Articulo=a.Codigo AND "
         u"b.Principal=1 LEFT JOIN Almacen_Articulos c ON c.Cod_Empresa =2 AND c.Cod_Almacen =1 AND a.Codigo = "
         u"c.Cod_Articulo WHERE a.Cod_Empresa =1 AND a.Codigo IN (SELECT Cod_Articulo FROM Almacen_Articulos WHERE  "
         u"Cod_Empresa=2 AND Cod_Almacen=1 AND Bloqueo=0) ORDER BY a.Descripcion"_s,
         {u"4|98100019|0"_s, u"1|8412345678905|1.5"_s});
    caso("model 1, prices as text and exact stock", Modelo1.arg(u" AND a.Descripcion LIKE 'TORNILLO%'"_s),
         {u"1|TORNILLO PLANO|1|1|0|8412345678905|R-1|10,50|9,00|0,00|10.5|9|0|0.6|0.6"_s,
          u"2|Tornillo grande rojo|1|2|0||r-1|1234,57|0,00|0,00|1234.5678|0|0|5|5"_s});
    caso("model 1, alternative values",
         soloCodigos(Modelo1.arg(u" AND (Alternativo1 LIKE '%,3,%' OR Alternativo1 LIKE '%,9,%')"_s)), {u"4"_s});
    caso("model 2, stock summed",
         Modelo2.arg(u" AND (ISNULL(a.Descripcion,'') LIKE '%TORN%') AND (ISNULL(a.Descripcion,'') LIKE '%plano%')"_s),
         {u"1|TORNILLO PLANO|0|0|R-1|8412345678905|0.3|10.5|2"_s});
    caso("model 2, a number",
         soloCodigos(
             Modelo2.arg(u" AND ( (ISNULL(a.Descripcion,'') LIKE '%841%') OR (ISNULL(ar.Ref,'') LIKE '%841%') OR "
                         u"(ISNULL(acb.Cod_Barras,'') LIKE '%841%') OR (ISNULL(a.Codigo,0) LIKE '%841%'))"_s)),
         {u"1"_s, u"841"_s});
    caso("model 2, doubled quote",
         soloCodigos(Modelo2.arg(
             u" AND ( (ISNULL(a.Descripcion,'') LIKE '%L''ORÉAL%') OR (ISNULL(ar.Ref,'') LIKE '%L''ORÉAL%'))"_s)),
         {u"841"_s});
    caso(
        "model 5, size",
        modelo5(
            u"  AND ( (ISNULL(a.Descripcion,'') LIKE '%BAÑERA%')) AND (a.Largo=40.5 OR a.Ancho=40.5 OR a.Altura=40.5)"_s),
        {u"4|BÑ|12.5|0|100|0|0|255|0|120|0|40.5|1|0|0"_s});
    caso("model 5, offers", soloCodigos(modelo5(u" AND (atp.Pvp > 0 OR atnm.Pvp > 0) "_s)), {u"1"_s});
    caso(
        "model 7, brand name",
        u"SELECT  TOP 150 a.Codigo, ISNULL(aa.Bloqueo, 0) AS Bloqueo, a.Bloqueado, ISNULL(m.Nombre, '') AS MarcaNombre "
        u"FROM Articulos a LEFT JOIN Almacen_Articulos aa ON aa.Cod_Empresa =2 AND aa.Cod_Almacen =1 AND "
        u"aa.Cod_Articulo = a.Codigo LEFT JOIN Marcas m ON m.Codigo = a.Marca WHERE a.Cod_Empresa =1  AND ( "
        u"(ISNULL(a.Descripcion,'') LIKE '%%')) AND ISNULL(m.Nombre, '') LIKE '%ROCA%' ORDER BY a.Descripcion"_s,
        {u"4|0|0|Roca"_s});
    caso("model 8, sold in the last days", soloCodigos(Modelo8.arg(u"23/10/2026"_s, QString())), {u"1"_s});
    caso("model 8, by family",
         Modelo8.arg(u"22/10/2026"_s, u" AND ( (a.Descripcion LIKE '%%') OR (ISNULL(m.Nombre, '') LIKE '%%%%'))"_s),
         {u"1|TORNILLO PLANO|R-1|8412345678905|0.3|0|0|10.5|Acme|0|Ferretería"_s,
          u"4|BAÑERA BLANCA|BÑ|98100019|12.5|0|0|100|Roca|0|Baño"_s});
}

void casosDetalle()
{
    caso("picture directory", u"SELECT DirImagenArt FROM Empresas WHERE Codigo =2"_s, {u"C:\\Fotos\\"_s});
    caso("notes", u"SELECT Desc_Memo FROM Articulos WHERE Cod_Empresa=1 AND Codigo =1"_s, {u"NULL"_s});
    caso(
        "stock",
        u"SELECT Stock_Actual, Pend_Servir, Pend_Recibir FROM Almacen_Articulos WHERE Cod_Empresa=2 AND Cod_Almacen =1 AND Cod_Articulo =1"_s,
        {u"0.1|3|0"_s});
    caso("customer price, blank before the date",
         u" SELECT Pvp FROM Clientes_Art_PVP WHERE Cod_Empresa =2 AND Cod_Cliente =50 AND Cod_Articulo =1 AND "
         u"Fecha_Inicial <=' 22/11/2026' AND Fecha_Final >=' 22/11/2026'"_s,
         {u"8.25"_s});
    caso("customer price not yet valid",
         u" SELECT Pvp FROM Clientes_Art_PVP WHERE Cod_Empresa =2 AND Cod_Cliente =50 AND Cod_Articulo =2 AND "
         u"Fecha_Inicial <=' 22/11/2026' AND Fecha_Final >=' 22/11/2026'"_s,
         {});
    caso("tariff price above 0",
         u"SELECT Pvp FROM Articulos_Tarifas WHERE Cod_Empresa =1 AND Cod_Articulo =4 AND Cod_Tarifa =2 AND Pvp > 0"_s,
         {});
    caso("tariffs of a warehouse",
         u"SELECT a.Cod_Tarifa,b.Decimales FROM Almacen_Tarifas a  INNER JOIN Tarifas b ON b.Cod_Empresa=2 AND "
         u"b.Cod_Tarifa=a.Cod_Tarifa  WHERE a.Cod_Empresa=2 AND a.Cod_Almacen=1 ORDER BY a.Cod_Tarifa"_s,
         {u"1|2"_s, u"2|3"_s});
    const QString surtido =
        u"SELECT aa.Stock_Actual, ISNULL(c.Obligatorio, 2) AS Obligatorio, ISNULL(b.Cod_Surtido, 0) AS Cod_Surtido, "
        u"aa.Bloqueo, aa.BloqueoVenta FROM Almacen_Articulos aa LEFT JOIN Surtidos_Almacen b ON aa.Cod_Empresa = "
        u"b.Cod_Empresa AND aa.Cod_Almacen = b.Cod_Almacen LEFT JOIN Surtidos_Articulo_Todos c ON aa.Cod_Empresa = "
        u"c.Cod_Empresa AND c.Cod_Surtido = b.Cod_Surtido AND c.Cod_Articulo = aa.Cod_Articulo WHERE aa.Cod_Empresa=2 "
        u"AND aa.Cod_Almacen =1 AND aa.Cod_Articulo =%1"_s;
    caso("assortment, mandatory", surtido.arg(1), {u"0.1|1|3|0|0"_s});
    caso("assortment, not in it", surtido.arg(2), {u"5|2|3|1|0"_s});
    caso("alternative list field",
         u"SELECT TOP 1 Alternativo FROM Alternativos_Valores WHERE Tabla=0 AND Alternativo=0"_s, {u"0"_s});
    caso("alternative values", u"SELECT * FROM Alternativos_Valores WHERE Tabla=0 AND Alternativo=0 ORDER BY Valor"_s,
         {u"0|0|7|AZUL"_s, u"0|0|3|ROJO"_s});
    caso("warehouses", u"SELECT Codigo, Tarifa, TarifaProm, Abrev FROM Almacenes WHERE Cod_Empresa =2"_s,
         {u"1|1|2|CEN"_s, u"2|1|0|TDA"_s});
}

void casosCodigos()
{
    caso("reference count ignores case",
         u"SELECT ISNULL(COUNT(Cod_Articulo), 0) AS Cantidad FROM Articulos_Ref WHERE Cod_Empresa =1 AND Ref ='R-1'"_s,
         {u"2"_s});
    caso("reference of a supplier",
         u"SELECT Cod_Articulo FROM Articulos_Ref WHERE Cod_Empresa =1 AND Ref ='R-1' AND Cod_Prov =8"_s, {u"2"_s});
    caso("customer reference",
         u"SELECT Cod_Articulo FROM Articulos_RefCli WHERE Cod_Empresa =1 AND Cod_Cli =50 And Ref ='c1 '"_s, {u"1"_s});
    caso("PLU count",
         u"SELECT ISNULL(COUNT(Cod_Articulo), 0) AS Cantidad FROM Balanzas_Articulos WHERE Cod_Empresa =1 AND Plu =5"_s,
         {u"1"_s});
    caso("PLU choice",
         u"SELECT b.Codigo, b.Descripcion, c.Nombre FROM Balanzas_Articulos a INNER JOIN Articulos b ON b.Cod_Empresa "
         u"=1 "
         u"AND a.Cod_Articulo = b.Codigo INNER JOIN Balanzas_Dptos c ON a.Cod_Empresa = c.Cod_Empresa AND a.Dpto = "
         u"c.Codigo WHERE a.Cod_Empresa =2 AND a.Plu =5"_s,
         {u"3|ÑORA MOLIDA|Carne"_s, u"5|NUEZ|Fruta"_s});
    caso(
        "reference matches",
        u"SELECT b.Codigo, b.Descripcion,Prov.Codigo AS Cod_Prove,Prov.Nombre FROM Articulos_Ref a INNER JOIN "
        u"Articulos "
        u"b ON a.Cod_Empresa = b.Cod_Empresa AND a.Cod_Articulo = b.Codigo INNER JOIN Proveedores Prov ON "
        u"Prov.Cod_Empresa =3 AND Prov.Codigo = a.Cod_Prov WHERE a.Cod_Empresa =1 AND a.Ref ='R-1' AND a.Cod_Prov =7"_s,
        {u"1|TORNILLO PLANO|7|Suministros Peña"_s});
    caso("qualities",
         u"SELECT cd1.Nombre AS Nomb_CualidadX, cd2.Nombre AS Nomb_CualidadY FROM Articulos a  INNER JOIN "
         u"Cualidades_Des cd1 ON a.Cod_Empresa=cd1.Cod_Empresa AND a.CualidadX=cd1.Cod_Cualidad AND cd1.Codigo=2 INNER "
         u"JOIN Cualidades_Des cd2 ON a.Cod_Empresa=cd2.Cod_Empresa AND a.CualidadY=cd2.Cod_Cualidad AND cd2.Codigo=3 "
         u"WHERE a.Codigo=4 AND a.Cod_Empresa=1"_s,
         {u"L|ROJO"_s});
    caso("permission",
         u"SELECT Permiso FROM SGD_Controles_Grupos WHERE Cod_Formulario = 1 AND Cod_Control = 8 AND Permiso > 0"_s,
         {u"1"_s});
    const QString unico =
        u" SELECT Cualidades_Des.Codigo  FROM Cualidades_Des  JOIN ( SELECT Cod_Cualidad, count(*) Contador  "
        u"FROM Cualidades_Des  WHERE Cod_Cualidad =  %1 GROUP BY Cod_Empresa, Cod_Cualidad) AS aux ON "
        u"aux.Cod_Cualidad = Cualidades_Des.Cod_Cualidad  WHERE Contador = 1"_s;
    caso("single quality value", unico.arg(11), {u"3"_s});
    caso("several quality values", unico.arg(10), {});
    caso("next code", u"SELECT IsNull(Max(Codigo), 0) As Codigo FROM Articulos WHERE Cod_Empresa = 1"_s, {u"841"_s});
    caso("next code, no items", u"SELECT IsNull(Max(Codigo), 0) As Codigo FROM Articulos WHERE Cod_Empresa = 9"_s,
         {u"0"_s});
    caso("company settings",
         u"SELECT FamiliaObligada, DirImagenArt, MargenReal_FArt_sUltimoPUC, MaxCodigoArt, CualidadX_PorDefecto, "
         u"CualidadY_PorDefecto, Series_Automaticas  FROM Empresas WHERE Codigo=2"_s,
         {u"0|C:\\Fotos\\|0|0|0|0|0"_s});
    caso("layouts", u"SELECT * FROM Formacion_Desc WHERE Desc_Larga=1 ORDER BY Orden"_s, {u"1|1|1|3"_s, u"1|2|0|1"_s});
    caso(
        "barcodes, main first",
        u" SELECT Cod_Barras, Unidades, Principal, Automatico FROM Articulos_CBarras  WHERE Cod_Articulo = 1 and Cod_Empresa = 1 ORDER BY Principal DESC"_s,
        {u"8412345678905|1|1|0"_s, u"ABC|1|0|0"_s});
    const QString paso =
        u" SELECT Cod_Barras From Articulos_CBarras  WHERE Cod_Empresa=1 and Cod_Articulo = (%1) ORDER BY Principal DESC"_s;
    caso(
        "barcodes, next item",
        paso.arg(
            u"SELECT TOP 1 Cod_Articulo FROM Articulos_CBarras  WHERE Cod_Empresa =1 AND Cod_Articulo  > 1 ORDER BY Cod_Articulo ASC"_s),
        {u"123456789012"_s});
    caso(
        "barcodes, previous item",
        paso.arg(
            u"SELECT TOP 1 Cod_Articulo FROM Articulos_CBarras  WHERE Cod_Empresa =1 AND Cod_Articulo  < 4 ORDER BY Cod_Articulo DESC"_s),
        {u"123456789012"_s});
    caso("barcodes, first item",
         paso.arg(u"SELECT ISNULL(MIN(Cod_Articulo), '') FROM Articulos_CBarras  WHERE Cod_Empresa =1"_s),
         {u"8412345678905"_s, u"ABC"_s});
    caso("barcodes, last item",
         paso.arg(u"SELECT ISNULL(MAX(Cod_Articulo), 0) FROM Articulos_CBarras  WHERE Cod_Empresa =1"_s),
         {u"98100019"_s});
    caso(
        "barcode's owner",
        u" SELECT a.Cod_Articulo, a.Unidades, ISNULL(b.Descripcion,'') AS Nombre ,a.Principal  FROM Articulos_CBarras "
        u"a "
        u"LEFT JOIN Articulos b ON ( b.Cod_Empresa = a.Cod_Empresa and b.Codigo = a.Cod_Articulo) WHERE a.Cod_Barras = "
        u"'abc' and a.Cod_Empresa = 1"_s,
        {u"1|1|TORNILLO PLANO|0"_s});
    caso("barcodes without check digit",
         u"SELECT LTRIM(RTRIM(Cod_Barras)) AS Cod_Barras FROM Articulos_CBarras WHERE Cod_Empresa =1 AND Cod_Articulo "
         u"BETWEEN 1 AND 9 AND (LEN(Cod_Barras) = 12 OR LEN(Cod_Barras) = 7)"_s,
         {u"123456789012"_s});
    caso("duplicate reference, code as typed",
         u"SELECT Ref FROM Articulos_Ref WHERE Cod_Empresa =1 AND Cod_Prov =7 And Ref ='r-1' AND Cod_Articulo<>00002"_s,
         {u"R-1"_s});
}

} // namespace

void PruebaSentencias::query_answers_data()
{
    QTest::addColumn<Motor>("motor");
    QTest::addColumn<QString>("sentencia");
    QTest::addColumn<QStringList>("filas");
    casosBusquedas();
    casosDetalle();
    casosCodigos();
}

void PruebaSentencias::query_answers()
{
    QFETCH(Motor, motor);
    QFETCH(QString, sentencia);
    QFETCH(QStringList, filas);
    EMPEZAR_CON_CATALOGO(motor)
    try {
        QCOMPARE(this->filas(sentencia), filas);
        QCOMPARE(this->filas(sentencia), filas); // and from the cache
    } catch (const nv::Error &error) {
        QFAIL(qPrintable(error.descripcion));
    }
}

void PruebaSentencias::write_changes_data()
{
    QTest::addColumn<Motor>("motor");
    QTest::addColumn<QStringList>("sentencias");
    QTest::addColumn<qint64>("filas");
    QTest::addColumn<QString>("consulta");
    QTest::addColumn<QStringList>("quedan");
    const auto escritura = [](const char *nombre, const QStringList &sentencias, qint64 filas, const QString &consulta,
                              const QStringList &quedan) {
        for (const auto &[via, motor] : delDialecto())
            QTest::addRow("%s: %s", via, nombre) << motor << sentencias << filas << consulta << quedan;
    };
    const QString barras =
        u"SELECT Cod_Articulo, Cod_Barras, Principal FROM Articulos_CBarras WHERE Cod_Articulo = 1 ORDER BY Cod_Barras"_s;
    escritura(
        "quick item",
        {u"INSERT INTO Articulos (Cod_Empresa, Codigo, FAlta, Mod_Ficha) VALUES (1, 900, '22/11/2026', 0)"_s}, 1,
        u"SELECT Descripcion, Familia_1, Bloqueado, MotivoBaja, Largo FROM Articulos WHERE Codigo = 900 AND FAlta = '22/11/2026'"_s,
        {u"|0|0|0|0"_s});
    escritura(
        "stock rows of every warehouse",
        {u"INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo) SELECT 2, Codigo, 900 FROM Almacenes WHERE Cod_Empresa =2"_s},
        2, u"SELECT Cod_Almacen, Stock_Actual, Bloqueo FROM Almacen_Articulos WHERE Cod_Articulo = 900"_s,
        {u"1|0|0"_s, u"2|0|0"_s});
    escritura(
        "item saved",
        {u"UPDATE Articulos SET Descripcion ='L''ORÉAL 5', Desc_Ticket ='L', Familia_1 =1, Familia_2 =0, Familia_3 =0, "
         u"Marca =1, TipoImpuesto =2, CualidadX =3, CualidadY =4, NoGenerarSerieEAN = 1, UnidadesDecimales = 0, "
         u"Temporada ='V26', Mod_Ficha = 1 WHERE Cod_Empresa =1 AND Codigo =5"_s},
        1, u"SELECT Descripcion, TipoImpuesto, Temporada FROM Articulos WHERE Codigo = 5"_s, {u"L'ORÉAL 5|2|V26"_s});
    escritura(
        "reference with date",
        {u"INSERT INTO Articulos_Ref (Cod_Empresa,Cod_Articulo,Ref,Principal,Fecha,Cod_Prov) Values (1,5,'N1',1,'22/11/2026',7)"_s},
        1, u"SELECT Cod_Prov, Principal FROM Articulos_Ref WHERE Ref = 'n1'"_s, {u"7|1"_s});
    escritura(
        "references of other items removed",
        {u"DELETE FROM Articulos_Ref WHERE Cod_Empresa =1 AND Cod_Articulo <> 1 AND Cod_Prov =8 AND Ref ='R-1'"_s}, 1,
        u"SELECT Cod_Articulo FROM Articulos_Ref WHERE Ref = 'R-1'"_s, {u"1"_s});
    escritura(
        "another barcode becomes main and the old one goes",
        {u" UPDATE Articulos_CBarras  SET Principal= 1 FROM (SELECT Top 1 * FROM Articulos_CBarras WHERE Principal = 0 "
         u"and Cod_Empresa =1 and  Cod_Articulo =1) as a  Where a.Cod_Barras = Articulos_CBarras.Cod_Barras "_s,
         u"DELETE FROM Articulos_CBarras WHERE Cod_Empresa = 1 and Cod_Articulo = 1 and Cod_Barras = '8412345678905'"_s},
        1, barras, {u"1|ABC|1"_s});
    escritura(
        "no other barcode to become main",
        {u" UPDATE Articulos_CBarras  SET Principal= 1 FROM (SELECT Top 1 * FROM Articulos_CBarras WHERE Principal = 0 "
         u"and Cod_Empresa =1 and  Cod_Articulo =4) as a  Where a.Cod_Barras = Articulos_CBarras.Cod_Barras "_s},
        0, barras, {u"1|8412345678905|1"_s, u"1|ABC|0"_s});
    escritura("main barcode inserted",
              {u"UPDATE Articulos_CBarras SET Principal =0 WHERE Cod_Empresa =1 AND Cod_Articulo =1 AND Principal =1"_s,
               u"INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal, Fecha, Unidades, "
               u"Automatico) "
               u"VALUES (1, 1, '0012', 1, '22/11/2026', 6, 0)"_s},
              1, barras, {u"1|0012|1"_s, u"1|8412345678905|0"_s, u"1|ABC|0"_s});
    escritura(
        "barcode rewritten",
        {u"UPDATE Articulos_CBarras SET Cod_Barras ='XYZ', Unidades =2, Principal =0 WHERE Cod_Empresa =1 AND Cod_Articulo =1 AND Cod_Barras ='abc'"_s},
        1, barras, {u"1|8412345678905|1"_s, u"1|XYZ|0"_s});
    escritura(
        "nothing to change",
        {u"UPDATE Articulos_CBarras SET Cod_Barras ='1' WHERE Cod_Empresa =1 AND Cod_Articulo =77 AND Principal = 1"_s},
        0, barras, {u"1|8412345678905|1"_s, u"1|ABC|0"_s});
}

void PruebaSentencias::write_changes()
{
    QFETCH(Motor, motor);
    QFETCH(QStringList, sentencias);
    QFETCH(qint64, filas);
    QFETCH(QString, consulta);
    QFETCH(QStringList, quedan);
    EMPEZAR_CON_CATALOGO(motor)
    try {
        const nv::Transaccion transaccion(conexion()); // rolled back: the catalogue is for all cases
        qint64 ultimas = 0;
        for (const QString &sentencia : std::as_const(sentencias))
            ultimas = ejecutar(sentencia);
        QCOMPARE(ultimas, filas);
        QCOMPARE(this->filas(consulta), quedan);
    } catch (const nv::Error &error) {
        QFAIL(qPrintable(error.descripcion));
    }
}

void PruebaSentencias::ranking_runs_twice_over_its_temporary_table()
{
    QFETCH(Motor, motor);
    EMPEZAR_CON_CATALOGO(motor)
    const QString ranking =
        u"SELECT TOP 2 b.Cod_Articulo, SUM(b.Ventas_Unidades) AS  Ventas_Unidades INTO #TempBA FROM Almacen_Acumulados "
        u"b "
        u"INNER JOIN Articulos a ON a.Cod_Empresa =1 AND a.Codigo = b.Cod_Articulo WHERE b.Cod_Empresa =2 AND "
        u"b.Cod_Almacen =1 AND b.Cod_Ejercicio =2026 AND b.Mes BETWEEN 10 AND 11 AND a.Codigo IN (SELECT Cod_Articulo "
        u"FROM Almacen_Articulos WHERE  Cod_Empresa=2 AND Cod_Almacen=1 AND Bloqueo=0) GROUP BY b.Cod_Articulo ORDER "
        u"BY "
        u"SUM(b.Ventas_Unidades) DESC"_s;
    const QString lista =
        u"SELECT  TOP 150 a.Codigo, ISNULL(c.Rotacion, 0) AS Rotacion, #TempBA.Ventas_Unidades FROM Articulos a  INNER "
        u"JOIN #TempBA ON a.Codigo = "
        u"#TempBA.Cod_Articulo LEFT JOIN Almacen_Articulos c ON c.Cod_Empresa =2 AND c.Cod_Almacen =1 AND a.Codigo = "
        u"c.Cod_Articulo WHERE a.Cod_Empresa =1 ORDER BY #TempBA.Ventas_Unidades DESC"_s;
    const QStringList esperadas{u"4|0|0.5"_s, u"1|1.5|0.3"_s};
    QVERIFY_EXCEPTION_THROWN(ejecutar(u"DROP TABLE #TempBA"_s), nv::Error);
    QCOMPARE(ejecutar(ranking), 2);
    nv::Registros abierto = abrir(lista);
    QVERIFY(abierto.siguiente());
    ejecutar(u"DROP TABLE #TempBA"_s);
    QCOMPARE(ejecutar(ranking), 2);
    QCOMPARE(filas(lista), esperadas);
    QCOMPARE(abierto.texto(u"Codigo"), u"4"_s);
    QVERIFY(abierto.siguiente());
    QCOMPARE(abierto.texto(u"Codigo"), u"1"_s);
    QVERIFY_EXCEPTION_THROWN(ejecutar(ranking), nv::Error); // it stands already
    ejecutar(
        u"INSERT INTO Articulos_Buscar(Terminal, Cod_Empresa, Cod_Articulo, Descripcion) SELECT DISTINCT 'CAJA1', 1, "
        u"a.Codigo, a.Descripcion "_s +
        lista.sliced(lista.indexOf(u"FROM"_s)));
    QCOMPARE(copiadas(motor, filas(u"SELECT Cod_Articulo FROM Articulos_Buscar"_s)), copiadas(motor, {u"4"_s, u"1"_s}));
    ejecutar(u"DELETE FROM Articulos_Buscar"_s);
    // Copies keep how their texts compare and what kind their values are.
    ejecutar(
        u"SELECT a.Descripcion, a.Codigo, b.Fecha, c.Pvp INTO #Copia FROM Articulos a LEFT JOIN Articulos_CBarras b ON "
        u"b.Cod_Articulo = a.Codigo LEFT JOIN Articulos_Tarifas c ON c.Cod_Articulo = a.Codigo AND c.Cod_Tarifa = 1"_s);
    QCOMPARE(
        filas(
            u"SELECT DISTINCT Codigo, CONVERT(VARCHAR, Pvp) FROM #Copia WHERE Descripcion = 'bañera BLANCA' AND Fecha = '01/02/2026'"_s),
        QStringList{u"4|100.00"_s});
}

void PruebaSentencias::company_of_a_subquery_stays_its_own()
{
    QFETCH(Motor, motor);
    EMPEZAR_CON_CATALOGO(motor)
    const QString desde = u"SELECT a.Codigo FROM Articulos a WHERE a.Cod_Empresa =1"_s;
    QCOMPARE(
        filas(
            desde +
            u" AND a.Codigo IN (SELECT a.Cod_Articulo FROM Almacen_Articulos a WHERE a.Cod_Empresa =2 AND a.Cod_Almacen =1) ORDER BY a.Codigo"_s),
        (QStringList{u"1"_s, u"2"_s, u"4"_s}));
    QCOMPARE(filas(desde + u" + 1 AND EXISTS (SELECT 1 FROM Marcas WHERE a.Cod_Empresa =2)"_s), QStringList());
    QCOMPARE(
        filas(
            u"SELECT a.Codigo FROM Almacenes a WHERE (a.Codigo =2) AND a.Cod_Empresa =2 AND EXISTS (SELECT 1 FROM Almacen_Tarifas b WHERE b.Cod_Empresa =a.Cod_Empresa)"_s),
        QStringList{u"2"_s});
    QCOMPARE(filas(desde + u" AND a.Codigo =1 OR EXISTS (SELECT 1 FROM Marcas WHERE a.Cod_Empresa =2)"_s),
             QStringList{u"1"_s});
}

void PruebaSentencias::search_copy_takes_the_rows_of_the_search()
{
    QFETCH(Motor, motor);
    EMPEZAR_CON_CATALOGO(motor)
    const auto copia = [&](const QString &campos, const QString &busqueda) {
        ejecutar(u"DELETE FROM Articulos_Buscar WHERE Terminal = 'CAJA1'"_s);
        ejecutar(
            u"INSERT INTO Articulos_Buscar(Terminal, Cod_Empresa, Cod_Articulo, Descripcion) SELECT DISTINCT 'CAJA1', 1"_s +
            campos + busqueda.sliced(busqueda.indexOf(u"FROM"_s)));
        return copiadas(motor,
                        filas(u"SELECT Cod_Articulo, Descripcion FROM Articulos_Buscar WHERE Terminal = 'caja1'"_s));
    };
    const QString propios = u", a.Codigo, a.Descripcion "_s;
    QCOMPARE(copia(propios, Modelo0.arg(u" AND a.Descripcion LIKE '%TORN%'"_s)),
             copiadas(motor, {u"2|Tornillo grande rojo"_s, u"1|TORNILLO PLANO"_s}));
    QCOMPARE(copia(u", a.Codigo, MIN(a.Descripcion) AS Descripcion "_s, Modelo1.arg(u" AND a.Familia_1=1"_s)).size(),
             2);
    QCOMPARE(copia(propios, Modelo8.arg(u"22/10/2026"_s, QString())),
             copiadas(motor, {u"1|TORNILLO PLANO"_s, u"4|BAÑERA BLANCA"_s}));
    ejecutar(u"DELETE FROM Articulos_Buscar"_s);
}

QTEST_GUILESS_MAIN(PruebaSentencias)
#include "moc_tst_odbcMotores.cpp"
#include "tst_sentencias.moc"
