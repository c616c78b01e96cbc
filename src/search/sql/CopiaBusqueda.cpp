#include "search/sql/CopiaBusqueda.h"

namespace nv::sql {

Sentencia borrarCopia(const QString &terminal)
{
    Sentencia s(u"DELETE FROM Articulos_Buscar WHERE Terminal = '");
    return s << ComoEscrito(terminal) << u"'";
}

Sentencia insertarCopia(const QString &terminal, qint16 empresaArticulos, Fragmento lista, const Sentencia &busqueda)
{
    Sentencia s(u"INSERT INTO Articulos_Buscar(Terminal, Cod_Empresa, Cod_Articulo, Descripcion) "
                u"SELECT DISTINCT '");
    s << ComoEscrito(terminal) << u"', " << empresaArticulos << lista << busqueda.desdeFrom();
    s.hacerOrdenPrescindible();
    return s;
}

} // namespace nv::sql
