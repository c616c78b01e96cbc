#include "common/Conexion.h"
#include "common/Error.h"
#include "common/Valores.h"
#include "common/cEmpresa.h"
#include "control/Asignaciones.h"
#include "control/CajaCodigo.h"
#include "control/ClaseEntrada.h"
#include "control/Consultas.h"
#include "control/Dialogos.h"
#include "control/Ocupada.h"
#include "control/nvArticulo.h"
#include "platform/widgets/Mensajes.h"

#include <QLabel>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace {

constexpr int ControlReferencias = 19;
constexpr int ControlBarras = 8;
constexpr double PluMayor = 99999;

/// A number beyond any PLU, or beyond any number, is one that does not exist.
bool cabeComoPlu(const QString &texto)
{
    try {
        return nv::Val(texto) <= PluMayor;
    } catch (const nv::Error &) {
        return false;
    }
}

} // namespace

/// The whole routine under its guard. An error is one message, and everything is what it was before Enter.
nvArticulo::Resultado nvArticulo::resolver(qint16 &ascii, bool confirmada)
{
    if (ascii <= 0 || m_ocupada)
        return {};
    const QPointer<nvArticulo> vivo(this);
    const Estado antes = estado();
    Resultado resultado;
    try {
        const QString entrada = Text();
        m_tieneCualidad = false;
        const Paso paso = repartir(entrada, ascii);
        if (vivo && paso == Paso::Final)
            resultado.avanza = pasoFinal(ascii, confirmada);
    } catch (const nv::Error &error) {
        resultado = {true, false};
        if (!vivo)
            return resultado;
        reponer(antes);
        const QString carga = u"nvArticulos::Cargar"_s;
        nv::mensajes::mostrar(window(), error.origen == carga ? carga : u"¡ Atención !"_s, error.descripcion,
                              nv::mensajes::Icono::Critico);
        // The next scan must replace what failed, not go on behind it.
        if (vivo)
            m_caja->selectAll();
    }
    return resultado;
}

nvArticulo::Paso nvArticulo::repartir(const QString &entrada, qint16 &ascii)
{
    const nv::ClaseEntrada clase = nv::clasificada(entrada);
    if (clase == nv::ClaseEntrada::Nada || clase == nv::ClaseEntrada::NumeroCorto)
        return Paso::Final;
    if (clase == nv::ClaseEntrada::Descripcion)
        return porDescripcion(entrada);

    const Ocupada ocupada(this);
    nv::Consultas consultas(nv::ranura::exigida(), empresaExigida(), dialogos(), window());
    const QString resto = entrada.sliced(1);
    switch (clase) {
    case nv::ClaseEntrada::ReferenciaProveedor:
        return porReferenciaProveedor(consultas, nv::recortado(resto), ascii);
    case nv::ClaseEntrada::ReferenciaCliente: {
        const qint32 encontrado = consultas.referenciaCliente(resto, Cliente);
        return ocupada.viva() ? porLista(encontrado, ascii) : Paso::Muerta;
    }
    case nv::ClaseEntrada::Plu: {
        const qint32 encontrado = cabeComoPlu(resto) ? consultas.plu(nv::ValEntero32(resto)) : 0;
        return ocupada.viva() ? porLista(encontrado, ascii) : Paso::Muerta;
    }
    case nv::ClaseEntrada::CodigoBarras:
        return porCodigoBarras(consultas, resto, ascii);
    case nv::ClaseEntrada::NumeroLargo:
        return porNumeroLargo(consultas, entrada);
    case nv::ClaseEntrada::NumeroCorto:
    case nv::ClaseEntrada::Descripcion:
    case nv::ClaseEntrada::Nada:
        break;
    }
    return Paso::Final;
}

nvArticulo::Paso nvArticulo::porReferenciaProveedor(nv::Consultas &consultas, const QString &referencia, qint16 &ascii)
{
    const QPointer<nvArticulo> vivo(this);
    const bool algo = m_proveedor > 0 || !referencia.isEmpty();
    qint32 articulo = algo ? consultas.referenciaProveedor(referencia, m_proveedor) : -1;
    if (!vivo)
        return Paso::Muerta;
    if (articulo == -1)
        return rechazada(ascii, false);
    if (articulo == 0) {
        const bool crear =
            ofrecerCrear(consultas, ControlReferencias, u"La referencia especificada no existe. ¿Desea crearla?"_s);
        if (!vivo)
            return Paso::Muerta;
        if (!crear)
            return rechazada(ascii, true);
        qint32 proveedor = m_proveedor;
        QString asignada = referencia;
        nv::Asignaciones asignaciones(nv::ranura::exigida(), empresaExigida(), dialogos(), window());
        nv::ValoresCreacion recordados = *m_creacion;
        const bool hecho = asignaciones.referencia(articulo, proveedor, asignada, recordados);
        if (!vivo)
            return Paso::Muerta;
        *m_creacion = recordados;
        m_proveedor = proveedor;
        if (!hecho)
            return rechazada(ascii, true);
    }
    ponerCaja(QString::number(articulo));
    return Paso::Final;
}

/// End of the branches whose final step runs even when nothing was found.
nvArticulo::Paso nvArticulo::porLista(qint32 encontrado, qint16 &ascii)
{
    if (encontrado > 0) {
        ponerCaja(QString::number(encontrado));
        return Paso::Final;
    }
    rechazada(ascii, false);
    return encontrado == 0 ? Paso::Final : Paso::Detenida;
}

nvArticulo::Paso nvArticulo::porCodigoBarras(nv::Consultas &consultas, const QString &codigoBarras, qint16 &ascii)
{
    const QPointer<nvArticulo> vivo(this);
    qint32 articulo = consultas.codigoBarras(codigoBarras);
    if (articulo == 0) {
        const bool crear =
            ofrecerCrear(consultas, ControlBarras, u"El código de barras especificado no existe. ¿Desea crearlo?"_s);
        if (!vivo)
            return Paso::Muerta;
        if (!crear)
            return rechazada(ascii, true);
        QString asignado = codigoBarras;
        nv::Asignaciones asignaciones(nv::ranura::exigida(), empresaExigida(), dialogos(), window());
        const bool hecho = asignaciones.codigoBarras(articulo, asignado);
        if (!vivo)
            return Paso::Muerta;
        if (!hecho)
            return rechazada(ascii, true);
    }
    ponerCaja(QString::number(articulo));
    return Paso::Final;
}

nvArticulo::Paso nvArticulo::porNumeroLargo(nv::Consultas &consultas, const QString &entrada)
{
    const qint32 articulo = consultas.codigoBarras(entrada);
    ponerCaja(QString::number(articulo));
    if (articulo != 0)
        return Paso::Final;
    if (empresaExigida().ValorBooleano(u"EsUlvaro"_s)) {
        const auto codigo = nv::codigoConCualidades(entrada, empresaExigida().OrdenCualidades());
        m_valorX = codigo.cualidadX;
        m_valorY = codigo.cualidadY;
        if (const auto nombres = consultas.cualidades(codigo.articulo, m_valorX, m_valorY)) {
            m_nombreX = nombres->x;
            m_nombreY = nombres->y;
            m_tieneCualidad = true;
            ponerCaja(QString::number(codigo.articulo));
        } else {
            ponerCaja(entrada);
        }
    } else if (nv::esCodigoDeTienda(entrada)) {
        ponerCaja(nv::articuloDeTienda(entrada));
    }
    return Paso::Final;
}

/// Whether the focus moves on after it.
bool nvArticulo::pasoFinal(qint16 &ascii, bool confirmada)
{
    m_existe = false;
    const bool avanza = confirmada && m_keyEnterChangeFocus;
    if (nv::esNumerico(m_caja->text())) {
        if (!cargarDescripcion()) {
            if (m_vital)
                return false;
            ponerNombre(u"ARTICULO INEXISTENTE"_s);
        }
        m_pendiente = false;
        return avanza;
    }
    if (m_vital) {
        rechazada(ascii, false);
        m_pendiente = false;
        return false;
    }
    if (!DejarEnBlanco) {
        ponerCaja(m_inicial ? u"0000000"_s : u"9999999"_s);
        ponerNombre(m_inicial ? u"ARTICULO INICIAL"_s : u"ARTICULO FINAL"_s);
    }
    m_pendiente = false;
    return avanza;
}

/// Box and label emptied, key swallowed; `conFoco` gives the box the focus back.
nvArticulo::Paso nvArticulo::rechazada(qint16 &ascii, bool conFoco)
{
    ponerCaja({});
    ponerNombre({});
    ascii = 0;
    if (conFoco && m_caja->isEnabled() && m_caja->isVisible())
        m_caja->setFocus();
    return Paso::Detenida;
}

/// Asks only whom the company lets create: the permission is read once per instance and control.
bool nvArticulo::ofrecerCrear(nv::Consultas &consultas, int control, const QString &pregunta)
{
    std::optional<bool> &permiso = m_permisos[control == ControlReferencias ? 0 : 1];
    if (!permiso)
        permiso = consultas.permisoCrear(control);
    if (!empresaExigida().ValorBooleano(u"OficinaCentral"_s) || !*permiso)
        return false;
    return nv::mensajes::preguntar(window(), u"¡ Atención !"_s, pregunta) != nv::mensajes::Respuesta::No;
}

nvArticulo::Estado nvArticulo::estado() const
{
    return {m_caja->text(), m_nombre->text(), m_existe,    m_pendiente,   m_tieneCualidad,    m_valorX,   m_valorY,
            m_nombreX,      m_nombreY,        m_proveedor, m_multiCodigo, m_multiDescripcion, m_criterios};
}

/// State last: writing the box tells the host of a change.
void nvArticulo::reponer(const Estado &estado)
{
    ponerCaja(estado.texto);
    ponerNombre(estado.nombre);
    m_existe = estado.existe;
    m_pendiente = estado.pendiente;
    m_tieneCualidad = estado.tieneCualidad;
    m_valorX = estado.valorX;
    m_valorY = estado.valorY;
    m_nombreX = estado.nombreX;
    m_nombreY = estado.nombreY;
    m_proveedor = estado.proveedor;
    m_multiCodigo = estado.multiCodigo;
    m_multiDescripcion = estado.multiDescripcion;
    m_criterios = estado.criterios;
}
