#include "platform/pickers/nvFamilia.h"

#include "common/cEmpresa.h"

#include <utility>

using namespace Qt::StringLiterals;

void nvFamilia::setNivel(int nivel)
{
    if (nivel < 1 || nivel > 3 || nivel == m_nivel)
        return;
    m_nivel = nivel;
    olvidarNombre();
}

void nvFamilia::setCodigoPadre1(qint16 codigo)
{
    if (codigo != std::exchange(m_padre1, codigo) && m_nivel > 1)
        olvidarNombre();
}

void nvFamilia::setCodigoPadre2(qint16 codigo)
{
    if (codigo != std::exchange(m_padre2, codigo) && m_nivel > 2)
        olvidarNombre();
}

nv::Sentencia nvFamilia::desde() const
{
    nv::Sentencia s(u" FROM Familias_");
    s << m_nivel << u" WHERE Cod_Empresa =" << empresaExigida().CodigoArticulos();
    if (m_nivel > 1)
        s << u" AND Familia_1 =" << m_padre1;
    if (m_nivel > 2)
        s << u" AND Familia_2 =" << m_padre2;
    return s;
}

nv::Sentencia nvFamilia::consultaNombre(const QString &codigo) const
{
    nv::Sentencia s(u"SELECT Nombre");
    return s << desde() << u" AND Codigo =" << nv::NumeroEscrito(codigo);
}

nv::Sentencia nvFamilia::consultaLista() const
{
    nv::Sentencia s(u"SELECT Codigo, Nombre");
    return s << desde() << u" ORDER BY Nombre, Codigo";
}

QString nvFamilia::titulo() const
{
    const QString nombre = empresa() ? empresa()->NombreFamilia(m_nivel - 1) : QString();
    return nombre.isEmpty() ? u"Familia"_s : nombre;
}
