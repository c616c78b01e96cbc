#include "nvArticulo/cEmpresa.h"

#include "common/Valores.h"

#include <QSysInfo>

QString cEmpresa::Terminal() const
{
    return QSysInfo::machineHostName();
}

QDate cEmpresa::Hoy() const
{
    return QDate::currentDate();
}

bool cEmpresa::ValorBooleano(const QString &clave) const
{
    return nv::comoBooleano(Valor(clave));
}

qint16 cEmpresa::ValorEntero16(const QString &clave) const
{
    return nv::nombrado(clave, [&] { return nv::ValEntero16(Valor(clave)); });
}

qint32 cEmpresa::ValorEntero32(const QString &clave) const
{
    return nv::nombrado(clave, [&] { return nv::ValEntero32(Valor(clave)); });
}
