#include "search/sql/Modelo8.h"

namespace nv::sql {

namespace {

Sentencia condicion(const TextoLibre &texto)
{
    Sentencia s;
    if (texto.unTermino) {
        // The brand's pattern is open at both ends even where the text has its own wildcards.
        s << u" AND ("
             u" (a.Descripcion LIKE '"
          << Doblado(texto.patron) << u"') OR (ISNULL(ar.Ref,'') LIKE '" << Doblado(texto.patron)
          << u"') OR (ISNULL(m.Nombre, '') LIKE '%" << Doblado(texto.patron) << u"%')" << alternativasNumericas(texto)
          << u")";
    }
    for (const QString &palabra : texto.palabras)
        s << u" AND (a.Descripcion LIKE '%" << Doblado(palabra) << u"%')";
    return s;
}

} // namespace

Sentencia modelo8(const EntornoTextoLibre &entorno, const QString &texto, QDate ventasDesde)
{
    Sentencia s(u"SELECT ");
    s << prefijoLimite(entorno.limite)
      << u" a.Codigo, a.Descripcion, ISNULL(ar.Ref, '') AS Referencia,ISNULL(acb.Cod_Barras, '') AS EAN,"
         u" ISNULl(aa.Stock_Actual + aa.Stock_MiniCompra, 0) AS Stock, ISNULL(aa.Bloqueo, 0) AS Bloqueo, a.Bloqueado,"
         u" ISNULL(at.Pvp, 0) AS Pvp, ISNULL(m.Nombre, '') AS MarcaNombre, a.MotivoBaja, ISNULL(f1.Nombre, '') AS "
         u"F1Nombre"
         u" FROM Articulos a"
         u" INNER JOIN Almacen_Articulos aa"
         u" ON aa.Cod_Empresa = "
      << entorno.empresa << u" AND aa.Cod_Almacen = " << entorno.almacen
      << u" AND aa.Cod_Articulo = a.Codigo"
         u" INNER JOIN Articulos_Tarifas at"
         u" ON at.Cod_Empresa = a.Cod_Empresa AND at.Cod_Tarifa = "
      << entorno.tarifa
      << u" AND at.Cod_Articulo = a.Codigo"
         u" LEFT JOIN Articulos_Ref ar"
         u" ON ar.Cod_Empresa = a.Cod_Empresa AND ar.Cod_Articulo = a.Codigo";
    if (entorno.soloRefPrincipal)
        s << u" AND ar.Principal=1";
    s << u" LEFT JOIN  Articulos_CBarras acb"
         u" ON acb.Cod_Empresa = a.Cod_Empresa AND acb.Cod_Articulo = a.Codigo AND acb.Principal=1"
         u" LEFT JOIN Marcas m"
         u" ON m.Codigo = a.Marca"
         u" LEFT JOIN Familias_1 f1"
         u" ON a.Cod_Empresa = f1.Cod_Empresa AND a.Familia_1 = f1.Codigo"
         u" WHERE a.Cod_Empresa = "
      << entorno.empresaArticulos
      << u" AND a.MotivoBaja = 0"
         u" AND aa.Bloqueo = 0"
         u" AND aa.FUlt_Venta > '"
      << ventasDesde
      << u"'"
         u" AND at.Pvp > 0"
      << condicion(leerTextoLibre(texto, Asterisco::Comodin))
      << Orden(u" ORDER BY a.Familia_1, a.Familia_2, a.Familia_3, a.Descripcion");
    return s;
}

} // namespace nv::sql
