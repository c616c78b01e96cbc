#include "search/BusquedaBase.h"

#include "nvArticulo/Conexion.h"
#include "nvArticulo/cEmpresa.h"
#include "nvArticulo/clsConfig.h"
#include "platform/widgets/Campos.h"
#include "platform/widgets/EtiquetaElidida.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/Rejilla.h"
#include "search/piezas/FranjaMensaje.h"
#include "search/piezas/PunteroEspera.h"
#include "search/sql/Condiciones.h"
#include "search/sql/CopiaBusqueda.h"

#include <QAbstractItemModel>
#include <QPointer>
#include <QScreen>

using namespace Qt::StringLiterals;

namespace nv {

BusquedaBase::BusquedaBase(QWidget *padre)
    : FormularioModal(padre)
    , m_rejilla(new Rejilla(this))
    , m_resultado(new EtiquetaElidida(this))
{
    m_resultado->setObjectName(u"lblResultado"_s);
    m_resultado->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Preferred); // whole, before any other label
    setSizeGripEnabled(true);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setWindowTitle(u"Búsqueda de Artículos"_s);
    m_rejilla->setObjectName(u"vsListado"_s);
    m_rejilla->setAccessibleName(u"Artículos encontrados"_s);
    connect(m_rejilla, &Rejilla::Intro, this, &BusquedaBase::Aceptar);
}

void BusquedaBase::MostrarModal()
{
    if (!cEmpresa)
        throw errores::sinEmpresa();
    const QPointer<BusquedaBase> vivo(this);
    alAbrir();
    if (vivo)
        ejecutar();
}

void BusquedaBase::dimensionar(int ancho, int alto)
{
    // The height leaves room for the title bar.
    const QSize pantalla = screen()->availableGeometry().size();
    const QSize sitio(pantalla.width(), pantalla.height() * 95 / 100);
    resize(QSize(ancho, alto).expandedTo(minimumSizeHint()).boundedTo(sitio));
}

void BusquedaBase::Aceptar()
{
    if (!puedeAceptar())
        return;
    mensajes::guardar(this, tituloAceptar(), [this] {
        const Eleccion elegido = eleccion();
        Codigo = elegido.codigo;
        Descripcion = elegido.descripcion;
        if (GuardarBusqueda)
            copiar();
        alAceptar();
        hide();
    });
}

void BusquedaBase::reject()
{
    Codigo.clear();
    FormularioModal::reject();
}

bool BusquedaBase::puedeAceptar() const
{
    return m_rejilla->filaActual() >= 1;
}

Eleccion BusquedaBase::eleccion() const
{
    return eleccionActual(*m_rejilla, columnasEleccion());
}

QString BusquedaBase::tituloAceptar() const
{
    return u"Error"_s;
}

QString BusquedaBase::tituloBusqueda() const
{
    return u"Búsqueda de Artículos"_s;
}

Fragmento BusquedaBase::listaCopia() const
{
    return u", a.Codigo, a.Descripcion ";
}

void BusquedaBase::ponerFranja()
{
    m_franja = new FranjaMensaje(m_rejilla);
}

void BusquedaBase::ordenarTabulacion(bool rejillaPrimero)
{
    QWidgetList orden = m_antes;
    orden.insert(rejillaPrimero ? 0 : orden.size(), m_rejilla);
    tabular(orden + m_despues);
}

bool BusquedaBase::buscar(const std::function<void()> &busqueda)
{
    const QPointer<BusquedaBase> vivo(this);
    const bool hecha = mensajes::guardar(this, tituloBusqueda(), [&] {
        const PunteroEspera espera;
        const FranjaMensaje::Aviso aviso(m_franja);
        // The strip lets waiting events run, and the window may go with one of them.
        if (!vivo)
            return;
        busqueda();
        if (vivo)
            m_tope = limite().value_or(0);
    });
    if (!hecha || !vivo)
        return false;
    decirResultado();
    // Rows that come while the list is walked.
    connect(m_rejilla->model(), &QAbstractItemModel::rowsInserted, this, &BusquedaBase::decirResultado,
            Qt::UniqueConnection);
    return true;
}

/// In place of silence: an empty list, and one that the company's limit has cut, look like any other.
void BusquedaBase::decirResultado()
{
    const int filas = m_rejilla->filasDatos();
    const QString mas = masRegistros();
    QString texto = filas == 1 ? u"%1 artículo"_s : u"%1 artículos"_s;
    if (filas == 0)
        texto = u"No hay artículos así"_s;
    else if (m_tope > 0 && filas >= m_tope)
        texto = u"%1 mostrados, hay más"_s;
    else if (!mas.isEmpty())
        texto = mas;
    m_resultado->setText(filas == 0 ? texto : texto.arg(filas));
}

std::optional<qint32> BusquedaBase::limite() const
{
    if (MultiResultado)
        return std::nullopt;
    return sql::limiteFilas(cEmpresa->Valor(u"Articulos_BusquedaCantMax"_s));
}

void BusquedaBase::completarAlmacen()
{
    if (AlmacenStock == 0)
        AlmacenStock = cEmpresa->ValorEntero16(u"Almacen_PD"_s);
}

QVariant BusquedaBase::parametroApp(QStringView sufijo, const QVariant &defecto) const
{
    if (!Parametros)
        return defecto;
    Parametros->setcEmpresa(cEmpresa);
    return Parametros->GetParametro_App(NVUTConfig::Biblioteca.toString() + sufijo.toString(), defecto);
}

QVariant BusquedaBase::parametroUsuario(QStringView sufijo, const QVariant &defecto) const
{
    if (!Parametros)
        return defecto;
    Parametros->setcEmpresa(cEmpresa);
    return Parametros->GetParametro_Usuario(NVUTConfig::Biblioteca.toString() + sufijo.toString(), defecto);
}

void BusquedaBase::copiar()
{
    if (m_ultima.vacia())
        return;
    const QString terminal = cEmpresa->Terminal();
    Conexion &conexion = ranura::exigida();
    conexion.Ejecutar(sql::borrarCopia(terminal));
    conexion.Ejecutar(sql::insertarCopia(terminal, cEmpresa->CodigoArticulos(), listaCopia(), m_ultima));
}

} // namespace nv
