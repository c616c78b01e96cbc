#include "search/sql/Modelo3.h"

namespace nv::sql {

Sentencia condicionesModelo3(const CriteriosArticulo &criterios)
{
    Sentencia s = condicionDescripcion(criterios.descripcion, false);
    s << condicionReferencia(criterios.proveedor, {}) << condicionFamilias(criterios.familias);
    if (criterios.marca >= 1)
        s << u" AND a.Marca = " << criterios.marca;
    return s;
}

Sentencia modelo3(qint16 empresaArticulos, std::optional<qint32> limite, const CriteriosArticulo &criterios)
{
    return articulosConBarras(empresaArticulos, limite, u" FROM Articulos a ", condicionesModelo3(criterios));
}

} // namespace nv::sql
