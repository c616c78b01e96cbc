#include "search/sql/Modelo7.h"

namespace nv::sql {

Sentencia modelo7(const EntornoTextoLibre &entorno, const QString &texto, const QString &marca)
{
    Sentencia s(u"SELECT ");
    s << prefijoLimite(entorno.limite)
      << u" a.Codigo, a.Descripcion, ISNULL(ar.Ref, '') AS Referencia,ISNULL(acb.Cod_Barras, '') AS EAN,"
         u" ISNULl(aa.Stock_Actual + aa.Stock_MiniCompra, 0) AS Stock, ISNULL(aa.Bloqueo, 0) AS Bloqueo, a.Bloqueado,"
         u" ISNULL(at.Pvp, 0) AS Pvp, ISNULL(m.Nombre, '') AS MarcaNombre, a.MotivoBaja"
         u" FROM Articulos a"
         u" LEFT JOIN  Articulos_Ref ar"
      << unionReferencias(entorno) << u" LEFT JOIN Almacen_Articulos aa" << unionExistencias(entorno)
      << u" LEFT JOIN Articulos_Tarifas at" << unionPrecios(entorno) << unionBarras()
      << u" LEFT JOIN Marcas m"
         u" ON m.Codigo = a.Marca"
         u" WHERE a.Cod_Empresa ="
      << entorno.empresaArticulos << u" " << condicionTexto(leerTextoLibre(texto, Asterisco::Comodin));
    if (!marca.isEmpty())
        s << u" AND ISNULL(m.Nombre, '') LIKE '%" << Doblado(marca) << u"%'";
    return s << Orden(u" ORDER BY a.Descripcion");
}

} // namespace nv::sql
