#include "platform/pickers/nvAlmacen.h"

#include "common/cEmpresa.h"

using namespace Qt::StringLiterals;

nv::Sentencia nvAlmacen::consultaNombre(const QString &codigo) const
{
    nv::Sentencia s(u"SELECT Nombre FROM Almacenes WHERE Cod_Empresa =");
    return s << empresaExigida().Codigo() << u" AND Codigo =" << nv::NumeroEscrito(codigo);
}

nv::Sentencia nvAlmacen::consultaLista() const
{
    nv::Sentencia s(u"SELECT Codigo, Nombre FROM Almacenes WHERE Cod_Empresa =");
    return s << empresaExigida().Codigo() << u" ORDER BY Codigo";
}

QString nvAlmacen::titulo() const
{
    return u"Almacenes"_s;
}
