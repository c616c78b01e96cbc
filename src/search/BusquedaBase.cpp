#include "search/BusquedaBase.h"

#include "nvArticulo/Conexion.h"
#include "nvArticulo/cEmpresa.h"
#include "nvArticulo/clsConfig.h"
#include "platform/widgets/Campos.h"
#include "platform/widgets/EtiquetaElidida.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/Rafaga.h"
#include "platform/widgets/Rejilla.h"
#include "platform/widgets/Teclas.h"
#include "search/piezas/FranjaMensaje.h"
#include "search/piezas/PunteroEspera.h"
#include "search/sql/Condiciones.h"
#include "search/sql/CopiaBusqueda.h"

#include <QAbstractItemModel>
#include <QAction>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPointer>
#include <QScreen>
#include <utility>

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
    connect(m_rejilla, &Rejilla::Intro, this, &BusquedaBase::alIntro);
    connect(m_rejilla, &Rejilla::FilaCambiada, this, [this](int fila) {
        if (fila > 1)
            m_trasIntro.invalidate();
        decirResultado();
    });
    m_rejilla->installEventFilter(this);
    auto *restaurar = new QAction(u"Volver al aspecto inicial"_s, this);
    restaurar->setShortcut(Qt::CTRL | Qt::Key_0);
    connect(restaurar, &QAction::triggered, this, [this] { restaurarAspecto(); });
    addAction(restaurar);
    m_rejilla->horizontalHeader()->addAction(restaurar);
    m_rejilla->horizontalHeader()->setContextMenuPolicy(Qt::ActionsContextMenu);
    // Rows that come while the list is walked.
    connect(m_rejilla->model(), &QAbstractItemModel::rowsInserted, this, &BusquedaBase::decirResultado);
}

void BusquedaBase::MostrarModal()
{
    if (!cEmpresa)
        throw errores::sinEmpresa();
    const QPointer<BusquedaBase> vivo(this);
    if (RecordarAspecto)
        m_aspecto = AspectoBusqueda(*cEmpresa, QString::fromLatin1(metaObject()->className()));
    trasIntro();
    alAbrir();
    if (!vivo)
        return;
    m_conIntro = false;
    m_aspecto.poner(*this, *m_rejilla, variante());
    ejecutar();
    if (vivo)
        m_aspecto.anotar(*this, *m_rejilla, variante());
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
    const bool conIntro = std::exchange(m_conIntro, false);
    const bool hecha = mensajes::guardar(this, tituloBusqueda(), [&] {
        const PunteroEspera espera;
        const FranjaMensaje::Aviso aviso(m_franja);
        // The strip lets waiting events run, and the window may go with one of them.
        if (!vivo)
            return;
        busqueda();
        if (!vivo)
            return;
        m_tope = limite();
        // Read here, where a failure is shown, for whoever says later how many rows there are.
        m_ajusteTope = m_tope == 0 ? cEmpresa->Valor(u"Articulos_BusquedaCantMax"_s) : QString();
    });
    if (!hecha || !vivo)
        return false;
    m_buscado = true;
    if (conIntro)
        m_trasIntro.start();
    else
        m_trasIntro.invalidate();
    decirResultado();
    return true;
}

/// In place of silence: an empty list, one that the company's limit has cut, and one that is sorted in part look like any
/// other.
void BusquedaBase::decirResultado()
{
    if (!m_buscado)
        return;
    const int filas = m_rejilla->filasDatos();
    const int actual = m_rejilla->filaActual();
    const bool cortada = m_tope && filas >= *m_tope;
    QString texto = u"No hay artículos así"_s;
    if (m_tope == 0)
        texto = u"Articulos_BusquedaCantMax («%1») no deja mostrar nada"_s.arg(m_ajusteTope);
    else if (filas > 0)
        texto = (actual > 0 ? u"%1 de %2"_s.arg(actual).arg(filas) : QString::number(filas)) +
                (cortada || siguenMas() ? u" mostrados"_s
                 : filas == 1           ? u" artículo"_s
                                        : u" artículos"_s);
    if (filas > 0 && (cortada || siguenMas()))
        texto += cortada ? u", hay más"_s : u", siguen más abajo"_s;
    if (filas > 0 && (cortada || siguenMas()) && ordenadas())
        texto += u" sin ordenar"_s;
    if (const int marcadas = cuantasMarcadas(); marcadas > 0)
        texto += marcadas == 1 ? u" · 1 marcado"_s : u" · %1 marcados"_s.arg(marcadas);
    m_resultado->setText(texto);
}

void BusquedaBase::showEvent(QShowEvent *evento)
{
    FormularioModal::showEvent(evento);
    if (m_trasIntro.isValid())
        m_trasIntro.start();
}

bool BusquedaBase::eventFilter(QObject *objeto, QEvent *evento)
{
    if (evento->type() == QEvent::KeyPress && objeto == m_rejilla &&
        !teclas::esIntro(*static_cast<QKeyEvent *>(evento)))
        m_trasIntro.invalidate();
    return FormularioModal::eventFilter(objeto, evento);
}

void BusquedaBase::alIntro()
{
    const bool segundo = m_trasIntro.isValid() && !m_trasIntro.hasExpired(Rafaga::Plazo);
    m_trasIntro.invalidate();
    if (!segundo)
        Aceptar();
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
