#include "search/sql/Modelo0.h"

namespace nv::sql {

Sentencia modelo0(qint16 empresaArticulos, std::optional<qint32> limite, const CriteriosArticulo &criterios,
                  bool conNotas)
{
    Sentencia s(u"SELECT ");
    s << prefijoLimite(limite)
      << u" a.Codigo, a.Descripcion, a.Familia_1, a.Familia_2, a.Familia_3, ISNULL(b.Cod_Barras,'') AS Cod_Barras "
         u" FROM Articulos a "
         u" LEFT JOIN Articulos_CBarras b"
         u" ON a.Cod_Empresa=b.Cod_Empresa AND b.Cod_Articulo=a.Codigo AND b.Principal=1"
         u" WHERE a.Cod_Empresa ="
      << empresaArticulos << condicionDescripcion(criterios.descripcion, conNotas) << condicionCodigo(criterios.codigo)
      << condicionReferencia(criterios.proveedor, criterios.referencia) << condicionFamilias(criterios.familias)
      << u" ORDER BY a.Descripcion";
    return s;
}

} // namespace nv::sql
