#include "control/Consultas.h"

#include "control/Dialogos.h"
#include "nvArticulo/Conexion.h"
#include "nvArticulo/cEmpresa.h"

namespace nv {

namespace {

/// `Cod_Articulo` of the first row, else 0.
qint32 primerArticulo(Conexion &conexion, const Sentencia &sentencia)
{
    Registros registros = conexion.Abrir(sentencia);
    return registros.siguiente() ? registros.entero32(u"Cod_Articulo") : 0;
}

/// The one item that `desde` (a table and its condition) finds, or what the user chooses of several; 0 for none.
template <class Elegir>
qint32 unoOLista(Conexion &conexion, const Sentencia &desde, Elegir &&elegir)
{
    Sentencia cuenta(u"SELECT ISNULL(COUNT(Cod_Articulo), 0) AS Cantidad");
    Registros cantidad = conexion.Abrir(cuenta << desde);
    const qint32 coincidencias = cantidad.siguiente() ? cantidad.entero32(u"Cantidad") : 0;
    cantidad.cerrar();
    if (coincidencias == 0)
        return 0;
    Sentencia articulo(u"SELECT Cod_Articulo");
    return coincidencias == 1 ? primerArticulo(conexion, articulo << desde) : elegir();
}

} // namespace

qint32 Consultas::referenciaProveedor(const QString &referencia, qint32 proveedor)
{
    Sentencia desde(u" FROM Articulos_Ref WHERE Cod_Empresa =");
    desde << m_empresa.CodigoArticulos() << u" AND Ref ='" << ComoEscrito(referencia) << u"'";
    if (proveedor != 0)
        desde << u" AND Cod_Prov =" << proveedor;
    return unoOLista(m_conexion, desde,
                     [&] { return m_dialogos.elegirReferencia(m_padre, m_empresa, referencia, proveedor, true); });
}

qint32 Consultas::referenciaCliente(const QString &referencia, qint32 cliente)
{
    if (cliente != 0) {
        Sentencia sentencia(u"SELECT Cod_Articulo FROM Articulos_RefCli WHERE Cod_Empresa =");
        sentencia << m_empresa.CodigoArticulos() << u" AND Cod_Cli =" << cliente << u" And Ref ='"
                  << ComoEscrito(referencia) << u"'";
        return primerArticulo(m_conexion, sentencia);
    }
    Sentencia desde(u" FROM Articulos_RefCli WHERE Cod_Empresa =");
    desde << m_empresa.CodigoArticulos() << u" AND Ref ='" << ComoEscrito(referencia) << u"'";
    return unoOLista(m_conexion, desde,
                     [&] { return m_dialogos.elegirReferencia(m_padre, m_empresa, referencia, 0, false); });
}

qint32 Consultas::codigoBarras(const QString &codigoBarras)
{
    Sentencia sentencia(u"SELECT Cod_Articulo FROM Articulos_CBarras WHERE Cod_Empresa =");
    sentencia << m_empresa.CodigoArticulos() << u" AND Cod_Barras ='" << ComoEscrito(codigoBarras) << u"'";
    return primerArticulo(m_conexion, sentencia);
}

qint32 Consultas::plu(qint32 plu)
{
    Sentencia desde(u" FROM Balanzas_Articulos WHERE Cod_Empresa =");
    desde << m_empresa.CodigoArticulos() << u" AND Plu =" << plu;
    return unoOLista(m_conexion, desde, [&] { return m_dialogos.elegirPlu(m_padre, m_empresa, plu); });
}

std::optional<QString> Consultas::descripcion(const QString &codigo)
{
    Sentencia sentencia(u"SELECT Descripcion FROM Articulos WHERE Cod_Empresa =");
    sentencia << m_empresa.CodigoArticulos() << u" AND Codigo =" << NumeroEscrito(codigo);
    Registros registros = m_conexion.Abrir(sentencia);
    if (!registros.siguiente())
        return std::nullopt;
    return registros.texto(u"Descripcion");
}

std::optional<Consultas::NombresCualidades> Consultas::cualidades(qint32 articulo, qint16 x, qint16 y)
{
    Sentencia sentencia(u"SELECT cd1.Nombre AS Nomb_CualidadX, cd2.Nombre AS Nomb_CualidadY FROM Articulos a ");
    sentencia << u" INNER JOIN Cualidades_Des cd1 ON a.Cod_Empresa=cd1.Cod_Empresa AND a.CualidadX=cd1.Cod_Cualidad"
                 u" AND cd1.Codigo="
              << x
              << u" INNER JOIN Cualidades_Des cd2 ON a.Cod_Empresa=cd2.Cod_Empresa AND a.CualidadY=cd2.Cod_Cualidad"
                 u" AND cd2.Codigo="
              << y << u" WHERE a.Codigo=" << articulo << u" AND a.Cod_Empresa=" << m_empresa.CodigoArticulos();
    Registros registros = m_conexion.Abrir(sentencia);
    if (!registros.siguiente())
        return std::nullopt;
    return NombresCualidades{registros.texto(u"Nomb_CualidadX"), registros.texto(u"Nomb_CualidadY")};
}

bool Consultas::permisoCrear(int control)
{
    Sentencia empresa(u"SELECT NoProcesarPermisosControles FROM Empresas WHERE Codigo =");
    empresa << m_empresa.Codigo();
    Registros fila = m_conexion.Abrir(empresa);
    const bool sinPermisos = fila.siguiente() && fila.booleano(u"NoProcesarPermisosControles");

    Sentencia denegado(u"SELECT Permiso FROM SGD_Controles_Grupos WHERE Cod_Formulario = 1 AND Cod_Control = ");
    denegado << control << u" AND Permiso > 0";
    const bool hayFila = m_conexion.Abrir(denegado).siguiente();
    return sinPermisos || !hayFila;
}

} // namespace nv
