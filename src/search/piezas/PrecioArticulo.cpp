#include "search/piezas/PrecioArticulo.h"

#include "nvArticulo/Conexion.h"
#include "nvArticulo/cEmpresa.h"
#include "search/sql/Detalles.h"

using namespace Qt::StringLiterals;

namespace nv {

namespace {

Moneda primerPrecio(Registros registros)
{
    return registros.siguiente() ? registros.monedaO(u"Pvp") : Moneda();
}

} // namespace

Moneda PrecioArticulo::precio(Conexion &conexion, qint32 articulo)
{
    Moneda precio;
    if (m_cliente > 0)
        precio =
            primerPrecio(conexion.Abrir(sql::precioCliente(m_empresa.Codigo(), m_cliente, articulo, m_empresa.Hoy())));
    if (!precio.esCero())
        return precio;
    resolverTarifas(conexion);
    precio = precioEn(conexion, articulo, m_promocion);
    return precio.esCero() ? precioEn(conexion, articulo, m_tarifa) : precio;
}

void PrecioArticulo::resolverTarifas(Conexion &conexion)
{
    if (m_resueltas)
        return;
    if (m_cliente > 0)
        leerTarifas(conexion.Abrir(sql::tarifasCliente(m_empresa.CodigoClientes(), m_cliente)));
    if (m_tarifa <= 0)
        leerTarifas(conexion.Abrir(sql::tarifasAlmacen(m_empresa.Codigo(), m_empresa.ValorEntero16(u"Almacen_PD"_s))));
    m_resueltas = true;
}

void PrecioArticulo::leerTarifas(Registros registros)
{
    if (!registros.siguiente())
        return;
    // By position: sale tariff first, promotion tariff second, under different names in each table.
    m_tarifa = registros.entero16O(0);
    m_promocion = registros.entero16O(1);
}

Moneda PrecioArticulo::precioEn(Conexion &conexion, qint32 articulo, qint16 tarifa) const
{
    if (tarifa <= 0)
        return {};
    return primerPrecio(conexion.Abrir(sql::precioTarifa(m_empresa.CodigoArticulos(), articulo, tarifa)));
}

} // namespace nv
