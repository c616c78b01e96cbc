#include "search/sql/TextoLibre.h"

#include "common/Valores.h"
#include "nvArticulo/Error.h"

using namespace Qt::StringLiterals;

namespace nv::sql {

TextoLibre leerTextoLibre(const QString &texto, Asterisco asterisco)
{
    TextoLibre leido;
    QString buscado = texto;
    if (buscado.contains(u'*')) {
        if (asterisco == Asterisco::Comodin) {
            leido.patron = buscado.replace(u'*', u'%');
            return leido;
        }
        buscado.replace(u'*', u' ');
    }
    if (!buscado.contains(u' ')) {
        leido.patron = u'%' + buscado + u'%';
        leido.numerico = esNumerico(buscado);
        return leido;
    }
    leido.unTermino = false;
    leido.palabras = buscado.split(u' ', Qt::SkipEmptyParts);
    if (leido.palabras.size() > PalabrasMaximas)
        throw Error{
            0,
            u"Son %1 palabras; se puede buscar por %2 como mucho."_s.arg(leido.palabras.size()).arg(PalabrasMaximas),
            {}};
    return leido;
}

Sentencia condicionTexto(const TextoLibre &texto)
{
    Sentencia s;
    if (texto.unTermino) {
        s << u" AND ("
             u" (ISNULL(a.Descripcion,'') LIKE '"
          << Doblado(texto.patron) << u"') OR (ISNULL(ar.Ref,'') LIKE '" << Doblado(texto.patron) << u"')"
          << alternativasNumericas(texto) << u")";
    }
    for (const QString &palabra : texto.palabras)
        s << u" AND (ISNULL(a.Descripcion,'') LIKE '%" << Doblado(palabra) << u"%')";
    return s;
}

Sentencia alternativasNumericas(const TextoLibre &texto)
{
    Sentencia s;
    if (texto.numerico)
        s << u" OR (ISNULL(acb.Cod_Barras,'') LIKE '" << Doblado(texto.patron) << u"') OR (ISNULL(a.Codigo,0) LIKE '"
          << Doblado(texto.patron) << u"')";
    return s;
}

Sentencia unionReferencias(const EntornoTextoLibre &entorno)
{
    Sentencia s(u" ON ar.Cod_Empresa = a.Cod_Empresa AND ar.Cod_Articulo=a.Codigo");
    if (entorno.soloRefPrincipal)
        s << u" AND ar.Principal=1";
    return s;
}

Sentencia unionExistencias(const EntornoTextoLibre &entorno)
{
    Sentencia s(u" ON aa.Cod_Empresa =");
    return s << entorno.empresa << u" AND aa.Cod_Almacen =" << entorno.almacen << u" AND aa.Cod_Articulo = a.Codigo";
}

Sentencia unionPrecios(const EntornoTextoLibre &entorno)
{
    Sentencia s(u" ON at.Cod_Empresa = a.Cod_Empresa AND at.Cod_Tarifa =");
    return s << entorno.tarifa << u" AND at.Cod_Articulo = a.Codigo";
}

Sentencia unionBarras()
{
    return Sentencia(u" LEFT JOIN  Articulos_CBarras acb"
                     u" ON acb.Cod_Empresa = a.Cod_Empresa AND acb.Cod_Articulo=a.Codigo AND acb.Principal=1");
}

Sentencia tarifaAlmacen(qint16 empresa, qint16 almacen)
{
    Sentencia s(u"SELECT Tarifa FROM Almacenes WHERE Cod_Empresa =");
    return s << empresa << u" AND Codigo =" << almacen;
}

} // namespace nv::sql
