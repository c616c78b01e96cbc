#pragma once

#include "nvArticulo/clsConfig.h"

namespace nv {
class Conexion;
}

namespace mostrador {

using namespace nv;

/// Parameters over two tables: `Parametros_App`, and `Parametros_Usuario` by the company setting "UsuarioActual".
/// The connection is borrowed.
class ParametrosBD : public NVUTConfig::clsConfig
{
public:
    explicit ParametrosBD(Conexion &conexion)
        : m_conexion(conexion)
    {}
    void setcEmpresa(const ::cEmpresa *empresa) override { m_empresa = empresa; }
    QVariant GetParametro_App(const QString &clave, const QVariant &defecto) const override;
    QVariant GetParametro_Usuario(const QString &clave, const QVariant &defecto) const override;

private:
    Conexion &m_conexion;
    const ::cEmpresa *m_empresa = nullptr;
};

} // namespace mostrador
