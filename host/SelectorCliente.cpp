#include "SelectorCliente.h"

#include "common/cEmpresa.h"

using namespace Qt::StringLiterals;

namespace nv {

Sentencia SelectorCliente::consultaNombre(const QString &codigo) const
{
    Sentencia s(u"SELECT Nombre FROM Clientes WHERE Cod_Empresa =");
    return s << empresaExigida().CodigoClientes() << u" AND Codigo =" << NumeroEscrito(codigo);
}

Sentencia SelectorCliente::consultaLista() const
{
    Sentencia s(u"SELECT Codigo, Nombre FROM Clientes WHERE Cod_Empresa =");
    return s << empresaExigida().CodigoClientes() << u" ORDER BY Nombre, Codigo";
}

QString SelectorCliente::titulo() const
{
    return u"Clientes"_s;
}

} // namespace nv
