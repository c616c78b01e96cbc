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

/// The rule of what counts as a similar supplier reference. Borrowed by the form that asks.
class ComprobadorReferencias
{
public:
    virtual ~ComprobadorReferencias() = default;
    /// A similar reference on another item than `articulo` (0: every item is another); nothing when it may be used.
    /// Throws Error.
    virtual std::optional<ReferenciaSimilar> buscar(Conexion &conexion, const ::cEmpresa &empresa, qint32 articulo,
                                                    qint32 proveedor, const QString &referencia) = 0;
};

/// Equal after removing blanks, dots, dashes and slashes and ignoring case, of any supplier. Reads `Articulos_Ref`,
/// `Articulos`, `Proveedores`.
class ComprobadorSencillo : public ComprobadorReferencias
{
public:
    std::optional<ReferenciaSimilar> buscar(Conexion &conexion, const ::cEmpresa &empresa, qint32 articulo,
                                            qint32 proveedor, const QString &referencia) override;
};

} // namespace nv
