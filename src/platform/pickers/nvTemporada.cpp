#include "platform/pickers/nvTemporada.h"

using namespace Qt::StringLiterals;

nv::Sentencia nvTemporada::consultaNombre(const QString &codigo) const
{
    nv::Sentencia s(u"SELECT Nombre FROM Temporadas WHERE Codigo ='");
    return s << nv::Doblado(codigo) << u"'";
}

nv::Sentencia nvTemporada::consultaLista() const
{
    return nv::Sentencia(u"SELECT Codigo, Nombre FROM Temporadas ORDER BY Codigo");
}

QString nvTemporada::titulo() const
{
    return u"Temporadas"_s;
}
