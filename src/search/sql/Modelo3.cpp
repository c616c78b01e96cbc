#include "search/sql/Modelo3.h"

namespace nv::sql {

Sentencia condicionesModelo3(const CriteriosModelo3 &criterios)
{
    Sentencia s = condicionDescripcion(criterios.descripcion, false);
    s << condicionReferencia(criterios.proveedor, {}) << condicionFamilias(criterios.familias);
    if (criterios.marca >= 1)
        s << u" AND a.Marca = " << criterios.marca;
    return s;
}

Sentencia modelo3(qint16 empresaArticulos, std::optional<qint32> limite, const CriteriosModelo3 &criterios)
{
    Sentencia s(u"SELECT ");
    s << prefijoLimite(limite)
      << u" a.Codigo, a.Descripcion, a.Familia_1, a.Familia_2, a.Familia_3, ISNULL(b.Cod_Barras,'') AS Cod_Barras "
         u" FROM Articulos a "
         u" LEFT JOIN Articulos_CBarras b"
         u" ON a.Cod_Empresa=b.Cod_Empresa AND b.Cod_Articulo=a.Codigo AND b.Principal=1"
         u" WHERE a.Cod_Empresa ="
      << empresaArticulos << condicionesModelo3(criterios) << u" ORDER BY a.Descripcion";
    return s;
}

} // namespace nv::sql
