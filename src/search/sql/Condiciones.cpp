#include "search/sql/Condiciones.h"

#include "common/Error.h"
#include "common/Valores.h"
#include "common/sql/Patron.h"

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

Sentencia condicionReferencia(std::optional<qint32> proveedor, QStringView referencia)
{
    Sentencia s;
    if (!proveedor && referencia.isEmpty())
        return s;
    s << u" AND a.Codigo IN (SELECT Cod_Articulo FROM Articulos_Ref aref WHERE "
         u" aref.Cod_empresa=a.Cod_Empresa";
    if (proveedor)
        s << u" AND aref.Cod_Prov=" << *proveedor;
    if (!referencia.isEmpty())
        s << u" AND aref.Ref LIKE '" << ComoEscrito(patronDesdeComodines(referencia)) << u"'";
    return s << u")";
}

Sentencia condicionFamilias(const std::array<qint32, 3> &familias)
{
    Sentencia s;
    for (std::size_t nivel = 0; nivel < familias.size() && familias[nivel] > 0; ++nivel)
        s << u" AND a.Familia_" << nivel + 1 << u"=" << familias[nivel];
    return s;
}

} // namespace nv::sql
