#include "platform/pickers/nvFamilia.h"

#include "nvArticulo/cEmpresa.h"

#include <utility>

using namespace Qt::StringLiterals;

void nvFamilia::setNivel(int nivel)
{
    if (nivel < 1 || nivel > 3 || nivel == m_nivel)
        return;
    m_nivel = nivel;
    setDesde(nivel == 1   ? nv::Fragmento(u" FROM Familias_1")
             : nivel == 2 ? nv::Fragmento(u" FROM Familias_2")
                          : nv::Fragmento(u" FROM Familias_3"));
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
    nv::Sentencia s = SelectorCodigo::desde();
    if (m_nivel > 1)
        s << u" AND Familia_1 =" << m_padre1;
    if (m_nivel > 2)
        s << u" AND Familia_2 =" << m_padre2;
    return s;
}

QString nvFamilia::titulo() const
{
    const QString nombre = empresa() ? empresa()->NombreFamilia(m_nivel - 1) : QString();
    return nombre.isEmpty() ? SelectorCodigo::titulo() : nombre;
}
