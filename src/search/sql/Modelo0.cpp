#include "search/sql/Modelo0.h"

namespace nv::sql {

Sentencia condicionesModelo0(const CriteriosArticulo &criterios, bool conNotas)
{
    Sentencia s = condicionDescripcion(criterios.descripcion, conNotas);
    return s << condicionCodigo(criterios.codigo) << condicionReferencia(criterios.proveedor, criterios.referencia)
             << condicionFamilias(criterios.familias);
}

Sentencia modelo0(qint16 empresaArticulos, std::optional<qint32> limite, const CriteriosArticulo &criterios,
                  bool conNotas)
{
    return articulosConBarras(empresaArticulos, limite, u" FROM Articulos a ", condicionesModelo0(criterios, conNotas));
}

} // namespace nv::sql
