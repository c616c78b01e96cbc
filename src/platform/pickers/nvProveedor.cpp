#include "platform/pickers/nvProveedor.h"

#include "common/cEmpresa.h"

using namespace Qt::StringLiterals;

nv::Sentencia nvProveedor::consultaNombre(const QString &codigo) const
{
    nv::Sentencia s(u"SELECT Nombre FROM Proveedores WHERE Cod_Empresa =");
    return s << empresaExigida().CodigoProveedores() << u" AND Codigo =" << nv::NumeroEscrito(codigo);
}

nv::Sentencia nvProveedor::consultaLista() const
{
    nv::Sentencia s(u"SELECT Codigo, Nombre FROM Proveedores WHERE Cod_Empresa =");
    return s << empresaExigida().CodigoProveedores() << u" ORDER BY Nombre, Codigo";
}

QString nvProveedor::titulo() const
{
    return u"Proveedores"_s;
}
