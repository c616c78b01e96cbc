#include "search/sql/Detalles.h"

namespace nv::sql {

Sentencia directorioImagenes(qint16 empresa)
{
    Sentencia s(u"SELECT DirImagenArt FROM Empresas WHERE Codigo =");
    return s << empresa;
}

Sentencia notas(qint16 empresaArticulos, qint32 articulo)
{
    Sentencia s(u"SELECT Desc_Memo FROM Articulos WHERE Cod_Empresa=");
    return s << empresaArticulos << u" AND Codigo =" << articulo;
}

Sentencia existencias(qint16 empresa, qint16 almacen, qint32 articulo)
{
    Sentencia s(u"SELECT Stock_Actual, Pend_Servir, Pend_Recibir"
                u" FROM Almacen_Articulos WHERE Cod_Empresa=");
    return s << empresa << u" AND Cod_Almacen =" << almacen << u" AND Cod_Articulo =" << articulo;
}

Sentencia precioCliente(qint16 empresa, qint32 cliente, qint32 articulo, QDate hoy)
{
    Sentencia s(u" SELECT Pvp FROM Clientes_Art_PVP"
                u" WHERE Cod_Empresa =");
    return s << empresa << u" AND Cod_Cliente =" << cliente << u" AND Cod_Articulo =" << articulo
             << u" AND Fecha_Inicial <=' " << hoy << u"'" << u" AND Fecha_Final >=' " << hoy << u"'";
}

Sentencia tarifasCliente(qint16 empresaClientes, qint32 cliente)
{
    Sentencia s(u"SELECT Tarifa_Pvp, Tarifa_Promoc FROM Clientes WHERE Cod_Empresa =");
    return s << empresaClientes << u" AND Codigo =" << cliente;
}

Sentencia tarifasAlmacen(qint16 empresa, qint16 almacen)
{
    Sentencia s(u"SELECT Tarifa, TarifaProm FROM Almacenes WHERE Cod_Empresa =");
    return s << empresa << u" AND Codigo =" << almacen;
}

Sentencia precioTarifa(qint16 empresaArticulos, qint32 articulo, qint16 tarifa)
{
    Sentencia s(u"SELECT Pvp FROM Articulos_Tarifas"
                u" WHERE Cod_Empresa =");
    return s << empresaArticulos << u" AND Cod_Articulo =" << articulo << u" AND Cod_Tarifa =" << tarifa
             << u" AND Pvp > 0";
}

} // namespace nv::sql
