#include "search/sql/Modelo2.h"

namespace nv::sql {

Sentencia modelo2(const EntornoTextoLibre &entorno, const QString &texto)
{
    Sentencia s(u"SELECT ");
    s << prefijoLimite(entorno.limite)
      << u" a.Codigo, a.Descripcion, a.TipoImpuesto, a.TipoImpuesto2, ISNULL(ar.Ref, '') AS Referencia,"
         u" ISNULL(acb.Cod_Barras, '') AS EAN,"
         u" ISNULl(aa.Stock_Actual + aa.Stock_MiniCompra, 0) AS Stock,"
         u" ISNULL(at.Pvp, 0) AS Pvp, ISNULL(t.Decimales, 2) AS Decimales"
         u" FROM Articulos a"
         u" LEFT JOIN Articulos_Ref ar"
      << unionReferencias(entorno) << u" LEFT JOIN Almacen_Articulos aa" << unionExistencias(entorno)
      << u" LEFT JOIN Articulos_Tarifas at" << unionPrecios(entorno)
      << u" LEFT JOIN Tarifas t"
         u" ON t.Cod_Empresa = a.Cod_Empresa AND t.Cod_Tarifa ="
      << entorno.tarifa << unionBarras() << u" WHERE a.Cod_Empresa =" << entorno.empresaArticulos << u" "
      << condicionTexto(leerTextoLibre(texto, Asterisco::Comodin)) << Orden(u" ORDER BY a.Descripcion");
    return s;
}

} // namespace nv::sql
