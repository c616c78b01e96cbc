#pragma once

#include "nvArticulo/ComprobadorReferencias.h"

namespace nv {

/// Equal after removing blanks, dots, dashes and slashes and ignoring case, of any supplier. Reads `Articulos_Ref`,
/// `Articulos`, `Proveedores`.
class ComprobadorSencillo : public ComprobadorReferencias
{
public:
    std::optional<ReferenciaSimilar> buscar(Conexion &conexion, const ::cEmpresa &empresa, qint32 articulo,
                                            qint32 proveedor, const QString &referencia) override;
};

} // namespace nv
