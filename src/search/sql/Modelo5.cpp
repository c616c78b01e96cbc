#include "search/sql/Modelo5.h"

namespace nv::sql {

namespace {

Sentencia existencias()
{
    Sentencia s;
    for (const qint16 n : AlmacenesModelo5)
        s << u" ISNULl(aa" << n << u".Stock_Actual + aa" << n << u".Stock_MiniCompra, 0) AS Stock" << n << u",";
    return s;
}

Sentencia unionesExistencias(qint16 empresa)
{
    Sentencia s;
    for (const qint16 n : AlmacenesModelo5)
        s << u" LEFT JOIN Almacen_Articulos aa" << n << u" ON aa" << n << u".Cod_Empresa =" << empresa << u" AND aa"
          << n << u".Cod_Almacen = " << n << u" AND aa" << n << u".Cod_Articulo = a.Codigo";
    return s;
}

Sentencia filtroPrecios(const CriteriosModelo5 &criterios)
{
    if (criterios.oferta && criterios.noMovidos)
        return Sentencia(u" AND (atp.Pvp > 0 OR atnm.Pvp > 0)");
    if (criterios.oferta)
        return Sentencia(u" AND atp.Pvp > 0");
    if (criterios.noMovidos)
        return Sentencia(u" AND atnm.Pvp > 0");
    return {};
}

Sentencia filtroMedida(Moneda medida)
{
    Sentencia s;
    if (medida > Moneda())
        s << u" AND (a.Largo=" << medida << u" OR a.Ancho=" << medida << u" OR a.Altura=" << medida << u")";
    return s;
}

} // namespace

Sentencia modelo5(const EntornoTextoLibre &entorno, const CriteriosModelo5 &criterios)
{
    Sentencia s(u"SELECT ");
    s << prefijoLimite(entorno.limite) << u" a.Codigo, a.Descripcion, ISNULL(ar.Ref, '') AS Referencia,"
      << existencias()
      << u" ISNULL(at.Pvp, 0) AS Pvp, ISNULL(atp.Pvp, 0) AS PvpP, ISNULL(atnm.Pvp, 0) AS PvpNM,"
         u" ISNULL(tp.BackColor, 0) AS BackColor, ISNULL(tnm.BackColor, 0) AS BackColorNM,"
         u" a.Largo, a.Ancho, a.Altura, a.BajoPedido, a.MotivoBaja, a.Bloqueado"
         u" FROM Articulos a"
         u" LEFT JOIN  Articulos_Ref ar"
      << unionReferencias(entorno) << unionesExistencias(entorno.empresa)
      << u" LEFT JOIN Articulos_Tarifas at"
         u" ON at.Cod_Empresa = a.Cod_Empresa AND at.Cod_Tarifa = 1 AND at.Cod_Articulo = a.Codigo"
         u" LEFT JOIN Articulos_Tarifas atp"
         u" ON atp.Cod_Empresa = a.Cod_Empresa AND atp.Cod_Tarifa = 2 AND atp.Cod_Articulo = a.Codigo"
         u" LEFT JOIN Articulos_Tarifas atnm"
         u" ON atnm.Cod_Empresa = a.Cod_Empresa AND atnm.Cod_Tarifa = 3 AND atnm.Cod_Articulo = a.Codigo"
         u" LEFT JOIN Tarifas tp"
         u" ON tp.Cod_Empresa = a.Cod_Empresa AND tp.Cod_Tarifa = 2"
         u" LEFT JOIN Tarifas tnm"
         u" ON tnm.Cod_Empresa = a.Cod_Empresa AND tnm.Cod_Tarifa = 3"
      << unionBarras() << u" WHERE a.Cod_Empresa =" << entorno.empresaArticulos << filtroPrecios(criterios) << u" "
      << condicionTexto(leerTextoLibre(criterios.texto, Asterisco::Blanco)) << filtroMedida(criterios.medida)
      << Orden(u" ORDER BY a.Descripcion");
    return s;
}

Sentencia almacenes(qint16 empresa)
{
    Sentencia s(u"SELECT Codigo, Tarifa, TarifaProm, Abrev FROM Almacenes WHERE Cod_Empresa =");
    return s << empresa;
}

} // namespace nv::sql
