#pragma once

#include <QString>
#include <optional>

class cEmpresa;

namespace nv {

class Conexion;

/// Where a similar supplier reference was found.
struct ReferenciaSimilar
{
    qint32 articulo = 0;
    QString nombreArticulo;
    qint32 proveedor = 0;
    QString nombreProveedor;
};

/// The rule of what counts as a similar supplier reference. The host may hand in its own; borrowed.
class ComprobadorReferencias
{
public:
    virtual ~ComprobadorReferencias() = default;
    /// A similar reference on another item than `articulo` (0: every item is another); nothing when it may be used.
    /// Throws Error.
    virtual std::optional<ReferenciaSimilar> buscar(Conexion &conexion, const ::cEmpresa &empresa, qint32 articulo,
                                                    qint32 proveedor, const QString &referencia) = 0;
};

} // namespace nv
