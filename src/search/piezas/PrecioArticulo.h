#pragma once

#include "nvArticulo/Moneda.h"

class cEmpresa;

namespace nv {

class Conexion;
class Registros;

/// Price of an item for a customer (0 = none): the customer's own, then that of the promotion tariff, then that of the
/// sale tariff, each asked only while the price is still 0. The tariff pair is looked up once in this object's life.
/// Reads `Clientes_Art_PVP`, `Clientes`, `Almacenes`, `Articulos_Tarifas`. Borrows the company.
class PrecioArticulo
{
public:
    PrecioArticulo(const ::cEmpresa &empresa, qint32 cliente)
        : m_empresa(empresa)
        , m_cliente(cliente)
    {}

    /// 0 when no price is found. Throws Error.
    Moneda precio(Conexion &conexion, qint32 articulo);

private:
    void resolverTarifas(Conexion &conexion);
    void leerTarifas(Registros registros);
    Moneda precioEn(Conexion &conexion, qint32 articulo, qint16 tarifa) const;

    const ::cEmpresa &m_empresa;
    qint32 m_cliente;
    qint16 m_tarifa = 0;
    qint16 m_promocion = 0;
    bool m_resueltas = false;
};

} // namespace nv
