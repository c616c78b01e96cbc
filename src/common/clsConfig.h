#pragma once

#include "common/cEmpresa.h"

#include <QVariant>

namespace NVUTConfig {

/// The file name of the component library without extension: the first part of every parameter key.
inline constexpr char16_t Biblioteca[] = u"nvArticulo";

/// Parameters service: application-wide values (`Parametros_App`) and values of the current user
/// (`Parametros_Usuario`, user = company setting "UsuarioActual"). Reads through the shared connection.
class clsConfig
{
public:
    void setcEmpresa(const ::cEmpresa *empresa) { m_empresa = empresa; }
    /// The parameter's value, or `defecto` when there is no row. Throw nv::Error.
    QVariant GetParametro_App(const QString &clave, const QVariant &defecto) const;
    QVariant GetParametro_Usuario(const QString &clave, const QVariant &defecto) const;

private:
    const ::cEmpresa *m_empresa = nullptr;
};

} // namespace NVUTConfig
