#include "search/sql/Modelo4.h"

namespace nv::sql {

namespace {

Sentencia condicionAlmacen(qint16 empresa, qint64 almacen)
{
    Sentencia s;
    if (almacen != 0)
        s << u" AND a.Codigo IN (SELECT Cod_Articulo FROM Almacen_Articulos WHERE "
             u" Cod_Empresa="
          << empresa << u" AND Cod_Almacen=" << almacen << u" AND Bloqueo=0)";
    return s;
}

Sentencia condicionPeriodo(QDate hoy)
{
    Sentencia s;
    if (hoy.month() == 1)
        return s << u" AND ((b.Cod_Ejercicio =" << hoy.year() << u" AND b.Mes = " << hoy.month()
                 << u") OR (b.Cod_Ejercicio =" << hoy.year() - 1 << u" AND b.Mes = 12))";
    return s << u" AND b.Cod_Ejercicio =" << hoy.year() << u" AND b.Mes BETWEEN " << hoy.month() - 1 << u" AND "
             << hoy.month();
}

} // namespace

Sentencia borrarRanking()
{
    return Sentencia(u"DROP TABLE #TempBA");
}

Sentencia crearRanking(qint16 empresa, qint16 empresaArticulos, const CriteriosModelo4 &criterios, QDate hoy)
{
    Sentencia s(u"SELECT TOP ");
    s << criterios.ranking
      << u" b.Cod_Articulo, SUM(b.Ventas_Unidades) AS  Ventas_Unidades"
         u" INTO #TempBA FROM Almacen_Acumulados b"
         u" INNER JOIN Articulos a"
         u" ON a.Cod_Empresa ="
      << empresaArticulos << u" AND a.Codigo = b.Cod_Articulo" << u" WHERE b.Cod_Empresa =" << empresa
      << u" AND b.Cod_Almacen =" << criterios.almacen << condicionPeriodo(hoy) << condicionesModelo3(criterios)
      << condicionAlmacen(empresa, criterios.almacen)
      << u" GROUP BY b.Cod_Articulo"
         u" ORDER BY SUM(b.Ventas_Unidades) DESC";
    return s;
}

Sentencia modelo4(qint16 empresa, qint16 empresaArticulos, std::optional<qint32> limite,
                  const CriteriosModelo4 &criterios)
{
    Sentencia s(u"SELECT ");
    s << prefijoLimite(limite)
      << u" a.Codigo, a.Descripcion, a.Familia_1, a.Familia_2, a.Familia_3, ISNULL(b.Cod_Barras,'') AS Cod_Barras,"
         u" ISNULL(c.Rotacion, 0) AS Rotacion"
         u" FROM Articulos a ";
    if (criterios.porRanking())
        s << u" INNER JOIN #TempBA"
             u" ON a.Codigo = #TempBA.Cod_Articulo";
    s << u" LEFT JOIN Articulos_CBarras b"
         u" ON a.Cod_Empresa=b.Cod_Empresa AND b.Cod_Articulo=a.Codigo AND b.Principal=1"
         u" LEFT JOIN Almacen_Articulos c"
         u" ON c.Cod_Empresa ="
      << empresa << u" AND c.Cod_Almacen =" << criterios.almacen << u" AND a.Codigo = c.Cod_Articulo"
      << u" WHERE a.Cod_Empresa =" << empresaArticulos << condicionesModelo3(criterios)
      << condicionAlmacen(empresa, criterios.almacen);
    if (criterios.porRanking())
        return s << Orden(u" ORDER BY #TempBA.Ventas_Unidades DESC");
    return s << Orden(u" ORDER BY a.Descripcion");
}

} // namespace nv::sql
