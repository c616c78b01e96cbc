#include "search/sql/Condiciones.h"

#include "common/Valores.h"
#include "common/sql/Patron.h"
#include "nvArticulo/Error.h"

#include <algorithm>
#include <limits>

namespace nv::sql {

qint32 limiteFilas(QStringView ajuste)
{
    constexpr qint32 maximo = std::numeric_limits<qint32>::max();
    try {
        const double valor = Val(ajuste);
        return valor >= maximo ? maximo : static_cast<qint32>(std::max(valor, 0.0));
    } catch (const Error &) {
        return ajuste.trimmed().startsWith(u'-') ? 0 : maximo;
    }
}

Sentencia prefijoLimite(std::optional<qint32> limite)
{
    Sentencia s;
    if (limite)
        s << u" TOP " << *limite;
    return s;
}

Sentencia condicionDescripcion(QStringView descripcion, bool conNotas)
{
    Sentencia s;
    if (descripcion.isEmpty())
        return s;
    const QString patron = patronDesdeComodines(descripcion);
    if (!conNotas)
        return s << u" AND a.Descripcion LIKE '" << ComoEscrito(patron) << u"'";
    return s << u" AND (a.Descripcion LIKE '" << ComoEscrito(patron) << u"'" << u" OR a.Desc_Memo LIKE '"
             << ComoEscrito(patron) << u"')";
}

Sentencia condicionCodigo(QStringView codigo)
{
    Sentencia s;
    if (!codigo.isEmpty())
        s << u" AND a.Codigo LIKE '" << ComoEscrito(patronDesdeComodines(codigo)) << u"'";
    return s;
}

Sentencia condicionReferencia(qint64 proveedor, QStringView referencia)
{
    Sentencia s;
    if (proveedor == 0 && referencia.isEmpty())
        return s;
    s << u" AND a.Codigo IN (SELECT Cod_Articulo FROM Articulos_Ref aref WHERE "
         u" aref.Cod_empresa=a.Cod_Empresa";
    if (proveedor != 0)
        s << u" AND aref.Cod_Prov=" << proveedor;
    if (!referencia.isEmpty())
        s << u" AND aref.Ref LIKE '" << ComoEscrito(patronDesdeComodines(referencia)) << u"'";
    return s << u")";
}

Sentencia condicionFamilias(const std::array<qint64, 3> &familias)
{
    Sentencia s;
    for (std::size_t nivel = 0; nivel < familias.size() && familias[nivel] > 0; ++nivel)
        s << u" AND a.Familia_" << nivel + 1 << u"=" << familias[nivel];
    return s;
}

Sentencia articulosConBarras(qint16 empresaArticulos, std::optional<qint32> limite, Fragmento desde,
                             const Sentencia &condiciones)
{
    Sentencia s(u"SELECT ");
    s << prefijoLimite(limite)
      << u" a.Codigo, a.Descripcion, a.Familia_1, a.Familia_2, a.Familia_3, ISNULL(b.Cod_Barras,'') AS Cod_Barras "
      << desde
      << u" LEFT JOIN Articulos_CBarras b"
         u" ON a.Cod_Empresa=b.Cod_Empresa AND b.Cod_Articulo=a.Codigo AND b.Principal=1"
         u" WHERE a.Cod_Empresa ="
      << empresaArticulos << condiciones << Orden(u" ORDER BY a.Descripcion");
    return s;
}

} // namespace nv::sql
