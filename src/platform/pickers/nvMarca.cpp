#include "platform/pickers/nvMarca.h"

using namespace Qt::StringLiterals;

nv::Sentencia nvMarca::consultaNombre(const QString &codigo) const
{
    nv::Sentencia s(u"SELECT Nombre FROM Marcas WHERE Codigo =");
    return s << nv::NumeroEscrito(codigo);
}

nv::Sentencia nvMarca::consultaLista() const
{
    return nv::Sentencia(u"SELECT Codigo, Nombre FROM Marcas ORDER BY Nombre, Codigo");
}

QString nvMarca::titulo() const
{
    return u"Marcas"_s;
}
