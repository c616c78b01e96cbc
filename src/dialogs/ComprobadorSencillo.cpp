#include "dialogs/ComprobadorSencillo.h"

#include "nvArticulo/Conexion.h"
#include "nvArticulo/cEmpresa.h"

namespace nv {

namespace {

/// The reference without its separators, its own wildcards made literal: compared with LIKE, which ignores case.
QString patronSinSeparadores(const QString &referencia)
{
    QString patron;
    for (const QChar c : referencia) {
        if (c == u' ' || c == u'.' || c == u'-' || c == u'/')
            continue;
        if (c == u'%' || c == u'_' || c == u'[')
            patron += QStringLiteral("[%1]").arg(c);
        else
            patron += c;
    }
    return patron;
}

} // namespace

std::optional<ReferenciaSimilar> ComprobadorSencillo::buscar(Conexion &conexion, const ::cEmpresa &empresa,
                                                             qint32 articulo, qint32 /*proveedor*/,
                                                             const QString &referencia)
{
    const QString patron = patronSinSeparadores(referencia);
    if (patron.isEmpty())
        return std::nullopt;
    Sentencia sentencia(u"SELECT TOP 1 r.Cod_Articulo, ISNULL(a.Descripcion,'') AS NombreArticulo, r.Cod_Prov,"
                        u" ISNULL(p.Nombre,'') AS NombreProveedor FROM Articulos_Ref r"
                        u" LEFT JOIN Articulos a ON a.Cod_Empresa = r.Cod_Empresa AND a.Codigo = r.Cod_Articulo"
                        u" LEFT JOIN Proveedores p ON p.Cod_Empresa =");
    sentencia << empresa.CodigoProveedores() << u" AND p.Codigo = r.Cod_Prov WHERE r.Cod_Empresa ="
              << empresa.CodigoArticulos() << u" AND r.Cod_Articulo <>" << articulo
              << u" AND REPLACE(REPLACE(REPLACE(REPLACE(r.Ref,' ',''),'.',''),'-',''),'/','') LIKE '" << Doblado(patron)
              << u"'";
    Registros registros = conexion.Abrir(sentencia);
    if (!registros.siguiente())
        return std::nullopt;
    return ReferenciaSimilar{registros.entero32(u"Cod_Articulo"), registros.texto(u"NombreArticulo"),
                             registros.entero32(u"Cod_Prov"), registros.texto(u"NombreProveedor")};
}

} // namespace nv
