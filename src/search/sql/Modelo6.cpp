#include "search/sql/Modelo6.h"

#include "search/sql/Modelo0.h"

namespace nv::sql {

Sentencia condicionSurtido(qint16 empresa, std::optional<qint16> almacen)
{
    Sentencia s(u" AND a.MotivoBaja = 0 AND a.Codigo IN (SELECT DISTINCT Cod_Articulo FROM Almacen_Articulos"
                u" WHERE Cod_Empresa =");
    s << empresa;
    if (almacen)
        s << u" AND Cod_Almacen =" << *almacen;
    return s << u" AND Bloqueo = 0)";
}

Sentencia modelo6(qint16 empresaArticulos, std::optional<qint32> limite, const CriteriosArticulo &criterios,
                  bool conNotas, const Sentencia &surtido)
{
    Sentencia condiciones = condicionesModelo0(criterios, conNotas);
    return articulosConBarras(empresaArticulos, limite, u" FROM Articulos a", condiciones << surtido);
}

Sentencia existenciasSurtido(qint16 empresa, qint16 almacen, qint32 articulo)
{
    Sentencia s(u"SELECT aa.Stock_Actual, aa.Pend_Servir, aa.Pend_Recibir,"
                u" ISNULL(c.Obligatorio, 2) AS Obligatorio, ISNULL(b.Cod_Surtido, 0) AS Cod_Surtido,"
                u" aa.Bloqueo, aa.BloqueoVenta"
                u" FROM Almacen_Articulos aa"
                u" LEFT JOIN Surtidos_Almacen b ON aa.Cod_Empresa = b.Cod_Empresa AND aa.Cod_Almacen = b.Cod_Almacen"
                u" LEFT JOIN Surtidos_Articulo_Todos c ON aa.Cod_Empresa = c.Cod_Empresa"
                u" AND c.Cod_Surtido = b.Cod_Surtido AND c.Cod_Articulo = aa.Cod_Articulo"
                u" WHERE aa.Cod_Empresa=");
    return s << empresa << u" AND aa.Cod_Almacen =" << almacen << u" AND aa.Cod_Articulo =" << articulo;
}

} // namespace nv::sql
