#pragma once

#include <QVariant>

class cEmpresa;

namespace NVUTConfig {

/// The file name of the component library without extension: the first part of every parameter key.
inline constexpr QStringView Biblioteca = u"nvArticulo";

/// Parameters service that the host may hand in, as it hands in the company. Borrowed. Without one every parameter has
/// its default.
class clsConfig
{
public:
    virtual ~clsConfig() = default;
    /// The company whose parameters are asked for; set before every question.
    virtual void setcEmpresa(const ::cEmpresa *empresa) = 0;
    /// Application-wide parameter, or `defecto` when it is not set. Throws nv::Error.
    virtual QVariant GetParametro_App(const QString &clave, const QVariant &defecto) const = 0;
    /// Parameter of the current user, or `defecto` when it is not set. Throws nv::Error.
    virtual QVariant GetParametro_Usuario(const QString &clave, const QVariant &defecto) const = 0;
};

} // namespace NVUTConfig
