#include "control/Resolucion.h"

#include "common/Valores.h"
#include "control/Asignaciones.h"
#include "control/ClaseEntrada.h"
#include "control/Consultas.h"
#include "nvArticulo/Conexion.h"
#include "nvArticulo/cEmpresa.h"
#include "platform/widgets/Mensajes.h"

using namespace Qt::StringLiterals;

namespace nv {

namespace {

constexpr int ControlReferencias = 19;
constexpr int ControlBarras = 8;
constexpr double PluMayor = 99999;

/// A number beyond any PLU, or beyond any number, is one that does not exist.
bool cabeComoPlu(const QString &texto)
{
    try {
        return Val(texto) <= PluMayor;
    } catch (const Error &) {
        return false;
    }
}

} // namespace

void tomarEleccion(EstadoCaja &estado, const ResultadoBusqueda &resultado, bool varios)
{
    if (varios) {
        estado.multiCodigo = resultado.codigo;
        estado.multiDescripcion = resultado.codigo.isEmpty() ? QString() : resultado.descripcion;
    } else {
        estado.texto = resultado.codigo;
        estado.nombre = resultado.descripcion;
        estado.existe = false;
        estado.pendiente = true;
    }
    if (!resultado.codigo.isEmpty())
        estado.criterios = resultado.criterios;
}

qint16 modeloDeBusqueda(qint16 conocido, const ::cEmpresa &empresa)
{
    if (conocido != 0)
        return conocido;
    const QString ajuste = recortado(empresa.Valor(u"BusquedaArticulos"_s));
    if (!ajuste.isEmpty() && !esNumerico(ajuste))
        throw errores::sinModelo(ajuste);
    return ValEntero16(ajuste);
}

bool cargarDescripcion(EstadoCaja &estado, Consultas &consultas, bool vital)
{
    return etiquetado(u"nvArticulos::Cargar"_s, [&] {
        estado.existe = false;
        estado.texto.remove(u'.').remove(u',');
        const std::optional<QString> descripcion = consultas.descripcion(ValTexto(estado.texto));
        if (!descripcion && vital)
            estado.texto.clear();
        if (descripcion || vital)
            estado.nombre = descripcion.value_or(QString());
        estado.existe = descripcion.has_value();
        estado.pendiente = false;
        estado.multiCodigo.clear();
        estado.multiDescripcion.clear();
        return estado.existe;
    });
}

Resolutor::Resolutor(const Servicios &servicios, std::shared_ptr<Dialogos> dialogos, QWidget *ventana,
                     const AjustesCaja &ajustes, EstadoCaja estado)
    : m_servicios(servicios)
    , m_dialogos(std::move(dialogos))
    , m_ventana(ventana)
    , m_ajustes(ajustes)
    , m_hecho{std::move(estado)}
{}

Consultas Resolutor::consultas()
{
    return Consultas(ranura::exigida(), m_servicios.empresaExigida(), *m_dialogos, m_ventana);
}

Resolucion Resolutor::resolver()
{
    const QString entrada = recortado(m_hecho.estado.texto);
    m_hecho.estado.cualidades.hay = false;
    if (repartir(entrada) == Paso::Final)
        pasoFinal();
    return std::move(m_hecho);
}

Resolutor::Paso Resolutor::repartir(const QString &entrada)
{
    const QString resto = entrada.mid(1);
    switch (clasificada(entrada)) {
    case ClaseEntrada::ReferenciaProveedor:
        return porReferenciaProveedor(recortado(resto));
    case ClaseEntrada::ReferenciaCliente:
        return porLista(consultas().referenciaCliente(resto, m_ajustes.busqueda.cliente));
    case ClaseEntrada::Plu:
        return porLista(cabeComoPlu(resto) ? consultas().plu(ValEntero32(resto)) : 0);
    case ClaseEntrada::CodigoBarras:
        return porCodigoBarras(resto);
    case ClaseEntrada::NumeroLargo:
        return porNumeroLargo(entrada);
    case ClaseEntrada::Descripcion:
        return porDescripcion(entrada);
    case ClaseEntrada::NumeroCorto:
    case ClaseEntrada::Nada:
        break;
    }
    return Paso::Final;
}

Resolutor::Paso Resolutor::porReferenciaProveedor(const QString &referencia)
{
    EstadoCaja &estado = m_hecho.estado;
    const bool algo = estado.proveedor > 0 || !referencia.isEmpty();
    qint32 articulo = algo ? consultas().referenciaProveedor(referencia, estado.proveedor) : -1;
    if (articulo == -1) {
        m_atendido = true; // in the list, or there was nothing to look for
        return rechazado(false);
    }
    if (articulo != 0)
        return encontrado(articulo);
    QString asignada = referencia;
    const bool creada = ofrecerCrear(estado.permisoReferencias, ControlReferencias,
                                     u"La referencia especificada no existe. ¿Desea crearla?"_s) &&
                        Asignaciones(ranura::exigida(), m_servicios, *m_dialogos, m_ventana)
                            .referencia(articulo, estado.proveedor, asignada, estado.creacion);
    return creada ? encontrado(articulo) : rechazado(true);
}

/// End of the branches whose final step runs even when nothing was found.
Resolutor::Paso Resolutor::porLista(qint32 hallado)
{
    if (hallado > 0)
        return encontrado(hallado);
    m_atendido = hallado < 0;
    rechazado(false);
    return hallado == 0 ? Paso::Final : Paso::Detenido;
}

Resolutor::Paso Resolutor::porCodigoBarras(const QString &codigoBarras)
{
    qint32 articulo = consultas().codigoBarras(codigoBarras);
    if (articulo != 0)
        return encontrado(articulo);
    if (codigoBarras.isEmpty()) // nothing that could be attached
        return rechazado(false);
    QString asignado = codigoBarras;
    const bool creado =
        ofrecerCrear(m_hecho.estado.permisoBarras, ControlBarras,
                     u"El código de barras especificado no existe. ¿Desea crearlo?"_s) &&
        Asignaciones(ranura::exigida(), m_servicios, *m_dialogos, m_ventana).codigoBarras(articulo, asignado);
    return creado ? encontrado(articulo) : rechazado(true);
}

Resolutor::Paso Resolutor::porNumeroLargo(const QString &entrada)
{
    Consultas buscadas = consultas();
    const qint32 articulo = buscadas.codigoBarras(entrada);
    encontrado(articulo);
    if (articulo != 0)
        return Paso::Final;
    const ::cEmpresa &empresa = m_servicios.empresaExigida();
    if (empresa.ValorBooleano(u"EsUlvaro"_s)) {
        Cualidades &cualidades = m_hecho.estado.cualidades;
        const CodigoConCualidades codigo = codigoConCualidades(entrada, empresa.OrdenCualidades());
        cualidades.x = codigo.cualidadX;
        cualidades.y = codigo.cualidadY;
        const auto nombres = buscadas.cualidades(codigo.articulo, cualidades.x, cualidades.y);
        if (nombres) {
            cualidades = {true, cualidades.x, cualidades.y, nombres->x, nombres->y};
            encontrado(codigo.articulo);
        } else {
            m_hecho.estado.texto = entrada;
        }
    } else if (esCodigoDeTienda(entrada)) {
        m_hecho.estado.texto = articuloDeTienda(entrada);
    }
    return Paso::Final;
}

Resolutor::Paso Resolutor::porDescripcion(const QString &entrada)
{
    EstadoCaja &estado = m_hecho.estado;
    estado.criterios.Busqueda_Descripcion = entrada;
    PeticionBusqueda peticion = m_ajustes.busqueda;
    estado.modelo = modeloDeBusqueda(estado.modelo, m_servicios.empresaExigida());
    peticion.modelo = estado.modelo;
    peticion.multiResultado = peticion.multiResultado && peticion.modelo >= 2;
    peticion.seleccionarTodo = false;
    CriteriosBusqueda siete;
    copiarSiete(siete, estado.criterios);
    const auto resultado = mostrarBusqueda(*m_dialogos, m_servicios, m_ventana, peticion, siete);
    if (!resultado)
        return Paso::Detenido;
    if (resultado->varios) {
        estado.multiCodigo = resultado->codigo;
        estado.multiDescripcion = resultado->descripcion;
        estado.pendiente = false;
        return Paso::Detenido;
    }
    if (!resultado->codigo.isEmpty()) {
        estado.texto = resultado->codigo;
        estado.nombre = resultado->descripcion;
        copiarSiete(estado.criterios, resultado->criterios);
    }
    m_atendido = true;
    return Paso::Final;
}

void Resolutor::pasoFinal()
{
    EstadoCaja &estado = m_hecho.estado;
    estado.existe = false;
    const bool numero = esNumerico(estado.texto);
    if (numero) {
        Consultas buscadas = consultas();
        if (!cargarDescripcion(estado, buscadas, m_ajustes.vital)) {
            m_hecho.noEncontrado = m_ajustes.vital;
            if (m_ajustes.vital)
                return;
            estado.nombre = u"ARTICULO INEXISTENTE"_s;
        }
    }
    estado.pendiente = false;
    if (!numero && m_ajustes.vital) {
        rechazado(false);
        return;
    }
    if (!numero && !m_ajustes.dejarEnBlanco) {
        estado.texto = m_ajustes.inicial ? u"0000000"_s : u"9999999"_s;
        estado.nombre = m_ajustes.inicial ? u"ARTICULO INICIAL"_s : u"ARTICULO FINAL"_s;
    }
    m_hecho.avanza = m_ajustes.avanzaConIntro;
}

Resolutor::Paso Resolutor::encontrado(qint32 articulo)
{
    m_hecho.estado.texto = QString::number(articulo);
    return Paso::Final;
}

/// Box and label emptied, key swallowed; `conFoco` gives the box the focus back.
Resolutor::Paso Resolutor::rechazado(bool conFoco)
{
    m_hecho.estado.texto.clear();
    m_hecho.estado.nombre.clear();
    m_hecho.tragada = true;
    m_hecho.enfoca = conFoco;
    m_hecho.noEncontrado = !m_atendido;
    return Paso::Detenido;
}

/// Asks only whom the company lets create: the permission is read once per box and control.
bool Resolutor::ofrecerCrear(std::optional<bool> &permiso, int control, const QString &pregunta)
{
    if (!permiso)
        permiso = consultas().permisoCrear(control);
    if (!m_servicios.empresaExigida().ValorBooleano(u"OficinaCentral"_s) || !*permiso)
        return false;
    m_atendido = true;
    return mensajes::preguntar(m_ventana, mensajes::atencion(), pregunta) != mensajes::Respuesta::No;
}

} // namespace nv
