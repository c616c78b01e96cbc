#include "control/Asignaciones.h"

#include "common/Valores.h"
#include "nvArticulo/Conexion.h"
#include "nvArticulo/Error.h"
#include "nvArticulo/cEmpresa.h"
#include "platform/widgets/Mensajes.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

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
bool Asignaciones::guardada(QWidget *padre, Operacion &&operacion)
{
    const QPointer<QWidget> anterior = std::exchange(m_padre, QPointer<QWidget>(padre));
    bool hecha = true;
    try {
        operacion();
    } catch (const Error &error) {
        const QString texto = m_yaBorrado.isEmpty() ? error.descripcion : error.descripcion + u'\n' + m_yaBorrado;
        mensajes::mostrar(m_padre, u"¡ Error inesperado !"_s, texto, mensajes::Icono::Critico);
        hecha = false;
    }
    m_padre = anterior;
    return hecha;
}

bool Asignaciones::referencia(qint32 &articulo, qint32 &proveedor, QString &referencia, ValoresCreacion &recordados)
{
    bool atachada = false;
    guardada(m_padre, [&] {
        if (m_empresa.ValorBooleano(u"EsUlvaro"_s)) {
            DatosCreacion datos{recordados, articulo, proveedor, referencia};
            if (!m_dialogos.crearArticulo(m_padre, m_empresa, m_conexion, datos))
                return;
            articulo = datos.Codigo;
            proveedor = datos.Proveedor;
            referencia = datos.Ref;
            recordados = datos;
            atachada = true;
            return;
        }
        const DatosReferencia pedida{QString::number(articulo), proveedor, referencia};
        m_dialogos.pedirReferencia(m_padre, m_servicios, pedida, [&](QWidget *forma, const DatosReferencia &datos) {
            return guardada(forma, [&] {
                const qint32 codigo = ValEntero32(datos.Articulo);
                proveedor = datos.Proveedor;
                atachada = atacharReferencia(codigo, proveedor, datos.Referencia);
                articulo = atachada ? codigo : articulo;
                referencia = atachada ? datos.Referencia : referencia;
            });
        });
    });
    return atachada;
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
    Sentencia mia(u"SELECT Ref FROM Articulos_Ref WHERE Cod_Empresa =");
    mia << empresa << u" AND Cod_Articulo =" << articulo << u" AND Cod_Prov =" << proveedor << u" AND Ref ='"
        << ComoEscrito(referencia) << u"'";
    if (hayFila(m_conexion, mia))
        return true;
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
    bool atachado = false;
    guardada(m_padre, [&] {
        m_dialogos.pedirCodigoBarras(m_padre, m_servicios, {QString::number(articulo), codigoBarras},
                                     [&](QWidget *forma, const DatosCodigoBarras &datos) {
                                         return guardada(forma, [&] {
                                             const qint32 codigo = ValEntero32(datos.Articulo);
                                             atachado = atacharCodigoBarras(codigo, datos.CodBarras);
                                             articulo = atachado ? codigo : articulo;
                                             codigoBarras = atachado ? datos.CodBarras : codigoBarras;
                                         });
                                     });
    });
    return atachado;
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
        Sentencia suyo(u"SELECT Cod_Articulo FROM Articulos_CBarras WHERE Cod_Empresa =");
        suyo << empresa << u" AND Cod_Barras ='" << ComoEscrito(codigoBarras) << u"' AND Principal = 1";
        const QString pierde = hayFila(m_conexion, suyo)
                                   ? u"\nEs su código de barras principal: ese artículo se quedará sin él."_s
                                   : QString();
        if (!traspasar(m_padre, u"El código de barras especificado ya existe en el artículo: "_s + otro +
                                    u" ¿Desea traspasarlo?"_s + pierde))
            return false;
        Sentencia borra(u"DELETE FROM Articulos_CBarras WHERE Cod_Empresa =");
        borra << empresa << u" And Cod_Barras ='" << ComoEscrito(codigoBarras) << u"'";
        m_conexion.Ejecutar(borra);
        m_yaBorrado = u"El código de barras %1 ya se ha quitado del artículo %2."_s.arg(codigoBarras, otro);
    }
    Sentencia mio(u"SELECT Cod_Articulo FROM Articulos_CBarras WHERE Cod_Empresa =");
    mio << empresa << u" AND Cod_Articulo =" << articulo << u" AND Cod_Barras ='" << ComoEscrito(codigoBarras) << u"'";
    if (hayFila(m_conexion, mio))
        return true;
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
