#include "search/sql/Modelo1.h"

#include "common/sql/Patron.h"

#include <utility>

namespace nv::sql {

namespace {

/// Spelt with "Cod_Empresa" where a supplier is asked for: the statement goes out as the suite's other programs know it.
Sentencia condicionProveedor(const CriteriosModelo1 &criterios)
{
    if (criterios.proveedor == 0)
        return condicionReferencia(0, criterios.referencia);
    Sentencia s(u" AND a.Codigo IN (SELECT Cod_Articulo FROM Articulos_Ref aref WHERE "
                u" aref.Cod_Empresa=a.Cod_Empresa AND aref.Cod_Prov=");
    s << criterios.proveedor;
    if (!criterios.referencia.isEmpty())
        s << u" AND aref.Ref LIKE '" << ComoEscrito(patronDesdeComodines(criterios.referencia)) << u"'";
    return s << u")";
}

Sentencia condicionAlternativo(const CriteriosModelo1 &criterios)
{
    Sentencia s;
    if (!criterios.alternativo.isEmpty())
        return s << u" AND Alternativo1='" << ComoEscrito(criterios.alternativo) << u"'";
    if (criterios.alternativos.empty())
        return s;
    bool primero = true;
    s << u" AND (";
    for (const qint32 valor : criterios.alternativos) {
        if (!std::exchange(primero, false))
            s << u" OR ";
        s << u"Alternativo1 LIKE '%," << valor << u",%'";
    }
    return s << u")";
}

Sentencia lista(const std::vector<qint16> &codigos)
{
    Sentencia s;
    for (const qint16 codigo : codigos) {
        if (!s.vacia())
            s << u",";
        s << codigo;
    }
    return s;
}

} // namespace

Sentencia tarifasDeAlmacen(qint16 empresa, qint16 almacen)
{
    Sentencia s(u"SELECT a.Cod_Tarifa,b.Decimales FROM Almacen_Tarifas a "
                u" INNER JOIN Tarifas b ON b.Cod_Empresa=");
    return s << empresa << u" AND b.Cod_Tarifa=a.Cod_Tarifa " << u" WHERE a.Cod_Empresa=" << empresa
             << u" AND a.Cod_Almacen=" << almacen << u" ORDER BY a.Cod_Tarifa";
}

Sentencia hayAlternativos()
{
    return Sentencia(u"SELECT TOP 1 Alternativo FROM Alternativos_Valores WHERE Tabla=0 AND Alternativo=0");
}

Sentencia modelo1(qint16 empresa, qint16 empresaArticulos, std::optional<qint32> limite,
                  const std::array<qint16, 3> &tarifas, const std::vector<qint16> &almacenes,
                  const CriteriosModelo1 &criterios)
{
    Sentencia s(u"SELECT ");
    s << prefijoLimite(limite)
      << u" a.Codigo, MIN(a.Descripcion) AS Descripcion, MIN(a.Familia_1) AS Familia_1,"
         u" MIN(a.Familia_2) AS Familia_2, MIN(a.Familia_3) AS Familia_3, ISNULL(MIN(b.Cod_Barras),'') AS Cod_Barras, "
         u" ISNULL(MIN(c.Ref),'') AS Ref, REPLACE(CONVERT(VARCHAR,ISNULL(MIN(d.Pvp),0)),'.',',') AS Pvp1,"
         u" REPLACE(CONVERT(VARCHAR,ISNULL(MIN(e.Pvp),0)),'.',',') AS Pvp2,"
         u" REPLACE(CONVERT(VARCHAR,ISNULL(MIN(f.Pvp),0)),'.',',') AS Pvp3, "
         u" ISNULL(MIN(d.Pvp),0) AS Pvp1_Num, ISNULL(MIN(e.Pvp),0) AS Pvp2_Num, ISNULL(MIN(f.Pvp),0) AS Pvp3_Num, "
         u" ISNULL(SUM(aa.Stock_Actual),0) AS Stock_Actual, ISNULL(SUM(aa.Stock_Actual),0) AS Stock_Actual_Num "
         u" FROM Articulos a "
         u" LEFT JOIN Articulos_CBarras b ON a.Cod_Empresa=b.Cod_Empresa "
         u" AND b.Cod_Articulo=a.Codigo AND b.Principal=1 "
         u" LEFT JOIN Articulos_Ref c ON a.Cod_Empresa=c.Cod_Empresa "
         u" AND c.Cod_Articulo=a.Codigo AND c.Principal=1 "
         u" LEFT JOIN Articulos_Tarifas d ON a.Cod_Empresa=d.Cod_Empresa "
         u" AND d.Cod_Articulo=a.Codigo AND d.Cod_Tarifa="
      << tarifas[0]
      << u" LEFT JOIN Articulos_Tarifas e ON a.Cod_Empresa=e.Cod_Empresa "
         u" AND e.Cod_Articulo=a.Codigo AND e.Cod_Tarifa="
      << tarifas[1]
      << u" LEFT JOIN Articulos_Tarifas f ON a.Cod_Empresa=f.Cod_Empresa "
         u" AND f.Cod_Articulo=a.Codigo AND f.Cod_Tarifa="
      << tarifas[2] << u" LEFT JOIN Almacen_Articulos aa ON aa.Cod_Empresa=" << empresa << u" AND aa.Cod_Almacen IN ("
      << lista(almacenes) << u") AND aa.Cod_Articulo=a.Codigo " << u" WHERE a.Cod_Empresa =" << empresaArticulos
      << condicionDescripcion(criterios.descripcion, false) << condicionCodigo(criterios.codigo)
      << condicionProveedor(criterios) << condicionFamilias(criterios.familias) << condicionAlternativo(criterios)
      << u" GROUP BY a.Codigo " << Orden(u" ORDER BY a.Codigo");
    return s;
}

} // namespace nv::sql
