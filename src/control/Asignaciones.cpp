#include "control/Asignaciones.h"

#include "common/Valores.h"
#include "nvArticulo/Conexion.h"
#include "nvArticulo/Error.h"
#include "nvArticulo/cEmpresa.h"
#include "platform/widgets/Mensajes.h"

using namespace Qt::StringLiterals;

namespace nv {

namespace {

/// What the user left in an item box without confirming it must read as the code that Enter would have made of it. A
/// text that Enter reads otherwise ("+12" is a PLU) is refused: it would attach to another item.
qint32 codigoDe(const QString &texto)
{
    const QString limpio = recortado(texto);
    if (!esNumerico(limpio) || limpio.startsWith(u'+') || limpio.startsWith(u'-'))
        throw Error{errores::NoCoinciden, u"«%1» no es un código de artículo."_s.arg(texto.left(60)), {}};
    return ValEntero32(QString(limpio).remove(u'.').remove(u','));
}

bool hayFila(Conexion &conexion, const Sentencia &sentencia)
{
    return conexion.Abrir(sentencia).siguiente();
}

bool traspasar(QWidget *padre, const QString &pregunta)
{
    return mensajes::preguntar(padre, u"Confirmar"_s, pregunta) == mensajes::Respuesta::Si;
}

} // namespace

template <class Operacion>
bool Asignaciones::guardada(Operacion &&operacion)
{
    try {
        return operacion();
    } catch (const Error &error) {
        const QString texto = m_yaBorrado.isEmpty() ? error.descripcion : error.descripcion + u'\n' + m_yaBorrado;
        mensajes::mostrar(m_padre, u"¡ Error inesperado !"_s, texto, mensajes::Icono::Critico);
        return false;
    }
}

bool Asignaciones::referencia(qint32 &articulo, qint32 &proveedor, QString &referencia, ValoresCreacion &recordados)
{
    return guardada([&] {
        if (m_empresa.ValorBooleano(u"EsUlvaro"_s)) {
            DatosCreacion datos{recordados, articulo, proveedor, referencia};
            if (!m_dialogos.crearArticulo(m_padre, m_empresa, m_conexion, datos))
                return false;
            articulo = datos.Codigo;
            proveedor = datos.Proveedor;
            referencia = datos.Ref;
            recordados = datos;
            return true;
        }
        DatosReferencia datos{QString::number(articulo), proveedor, referencia};
        if (!m_dialogos.pedirReferencia(m_padre, m_servicios, datos))
            return false;
        articulo = codigoDe(datos.Articulo);
        proveedor = datos.Proveedor;
        referencia = datos.Referencia;
        return atacharReferencia(articulo, proveedor, referencia);
    });
}

bool Asignaciones::atacharReferencia(qint32 articulo, qint32 proveedor, const QString &referencia)
{
    const qint16 empresa = m_empresa.CodigoArticulos();
    Sentencia otros(u" FROM Articulos_Ref WHERE Cod_Empresa =");
    otros << empresa << u" AND Cod_Articulo <> " << articulo << u" AND Cod_Prov =" << proveedor;
    Sentencia busca(u"SELECT Ref");
    busca << otros << u" And Ref ='" << ComoEscrito(referencia) << u"'";
    if (hayFila(m_conexion, busca)) {
        if (!traspasar(m_padre, u"La referencia especificada ya existe en otro artículo. ¿Desea traspasarlo?"_s))
            return false;
        Sentencia borra(u"DELETE");
        borra << otros << u" AND Ref ='" << ComoEscrito(referencia) << u"'";
        m_conexion.Ejecutar(borra);
        m_yaBorrado = u"La referencia %1 ya se ha quitado de los demás artículos del proveedor %2."_s.arg(
            referencia, QString::number(proveedor));
    }
    Sentencia principal(u"SELECT Cod_Articulo FROM Articulos_Ref WHERE Cod_Empresa =");
    principal << empresa << u" AND Cod_Articulo =" << articulo << u" AND Principal = 1";
    const bool tienePrincipal = hayFila(m_conexion, principal);
    Sentencia inserta(u"INSERT INTO Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref, Principal) VALUES (");
    inserta << empresa << u", " << articulo << u", " << proveedor << u", '" << ComoEscrito(referencia) << u"', "
            << (tienePrincipal ? 0 : 1) << u")";
    m_conexion.Ejecutar(inserta);
    return true;
}

bool Asignaciones::codigoBarras(qint32 &articulo, QString &codigoBarras)
{
    return guardada([&] {
        DatosCodigoBarras datos{QString::number(articulo), codigoBarras};
        if (!m_dialogos.pedirCodigoBarras(m_padre, m_servicios, datos))
            return false;
        articulo = codigoDe(datos.Articulo);
        codigoBarras = datos.CodBarras;
        return atacharCodigoBarras(articulo, codigoBarras);
    });
}

bool Asignaciones::atacharCodigoBarras(qint32 articulo, const QString &codigoBarras)
{
    const qint16 empresa = m_empresa.CodigoArticulos();
    Sentencia busca(u"SELECT Cod_Articulo, Cod_Barras FROM Articulos_CBarras WHERE Cod_Empresa =");
    busca << empresa << u" AND Cod_Articulo <> " << articulo << u" AND Cod_Barras ='" << ComoEscrito(codigoBarras)
          << u"'";
    QString otro;
    {
        Registros registros = m_conexion.Abrir(busca);
        if (registros.siguiente())
            otro = registros.texto(u"Cod_Articulo");
    }
    if (!otro.isEmpty()) {
        if (!traspasar(m_padre, u"El código de barras especificado ya existe en el artículo: "_s + otro +
                                    u" ¿Desea traspasarlo?"_s))
            return false;
        Sentencia borra(u"DELETE FROM Articulos_CBarras WHERE Cod_Empresa =");
        borra << empresa << u" And Cod_Barras ='" << ComoEscrito(codigoBarras) << u"'";
        m_conexion.Ejecutar(borra);
        m_yaBorrado = u"El código de barras %1 ya se ha quitado del artículo %2."_s.arg(codigoBarras, otro);
    }
    Sentencia principal(u"SELECT Cod_Articulo FROM Articulos_CBarras WHERE Cod_Empresa =");
    principal << empresa << u" AND Cod_Articulo =" << articulo << u" AND Principal = 1";
    const bool tienePrincipal = hayFila(m_conexion, principal);
    Sentencia inserta(u"INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal, Fecha)"
                      u" VALUES (");
    inserta << empresa << u", " << articulo << u", '" << ComoEscrito(codigoBarras) << u"', " << (tienePrincipal ? 0 : 1)
            << u", '" << m_empresa.Hoy() << u"')";
    m_conexion.Ejecutar(inserta);
    return true;
}

} // namespace nv
