#include "nvArticulo/nvArticulo.h"

#include "common/Valores.h"
#include "control/CajaCodigo.h"
#include "control/Consultas.h"
#include "control/Resolucion.h"
#include "nvArticulo/Conexion.h"
#include "nvArticulo/cEmpresa.h"
#include "platform/widgets/Foco.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/Teclas.h"
#include "platform/widgets/Twips.h"

#include <QEvent>
#include <QLabel>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace {

constexpr int AnchoCaja = 1380;
constexpr int AnchoMinimo = 930;
constexpr int AltoMinimo = 195;

bool enDisposicion(const QWidget *widget)
{
    const QWidget *padre = widget->parentWidget();
    return padre && padre->layout();
}

/// What "forget the criteria" leaves: the code reads "0".
nv::CriteriosBusqueda criteriosOlvidados()
{
    nv::CriteriosBusqueda criterios;
    criterios.Busqueda_Codigo = u"0"_s;
    return criterios;
}

} // namespace

/// Marks the box as resolving or searching for as long as it lives, with a nested loop of a dialog inside. The box may
/// die first: this is the one place that says whether it has.
class nvArticulo::Ocupada
{
public:
    explicit Ocupada(nvArticulo *articulo)
        : m_articulo(articulo)
    {
        m_articulo->m_ocupada = true;
    }
    Ocupada(const Ocupada &) = delete;
    Ocupada &operator=(const Ocupada &) = delete;
    ~Ocupada()
    {
        if (m_articulo)
            m_articulo->m_ocupada = false;
    }
    bool viva() const { return !m_articulo.isNull(); }

private:
    QPointer<nvArticulo> m_articulo;
};

nvArticulo::nvArticulo(QWidget *padre)
    : QWidget(padre)
    , m_caja(new nv::CajaCodigo(this))
    , m_nombre(new QLabel(this))
    , m_servicios(std::make_unique<nv::Servicios>())
    , m_dialogos(nv::crearDialogos())
    , m_estado(std::make_unique<nv::EstadoCaja>())
    , m_keyFichaArt(nv::teclas::F4)
{
    m_caja->setObjectName(u"txtCodigo"_s);
    m_caja->setAccessibleName(u"Código de artículo"_s);
    m_nombre->setObjectName(u"lblNombre"_s);
    m_nombre->setTextFormat(Qt::PlainText);
    // Off the edge of the box; an indent would push the text down too.
    m_nombre->setContentsMargins(nv::twips::aPixeles(90, this), 0, 0, 0);
    m_nombre->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setFocusProxy(m_caja);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    conectarCaja();
    InitProperties();
}

/// The box still loses its focus while it is taken down: it must not tell what is half gone.
nvArticulo::~nvArticulo()
{
    m_caja->disconnect(this);
}

void nvArticulo::conectarCaja()
{
    using nv::CajaCodigo;
    connect(m_caja, &CajaCodigo::textChanged, this, &nvArticulo::alCambiar);
    connect(m_caja, &CajaCodigo::teclaAbajo, this, &nvArticulo::alTeclaAbajo);
    connect(m_caja, &CajaCodigo::teclaArriba, this, &nvArticulo::KeyUp);
    connect(m_caja, &CajaCodigo::caracter, this, &nvArticulo::KeyPress);
    connect(m_caja, &CajaCodigo::intro, this, &nvArticulo::alIntro);
    // Leaving the box resolves nothing: what was typed stays, and stays pending.
    connect(m_caja, &CajaCodigo::enfocada, this, &nvArticulo::pintarSegunEstado);
    connect(m_caja, &CajaCodigo::desenfocada, this, &nvArticulo::pintarSegunEstado);
    connect(m_caja, &CajaCodigo::clic, this, &nvArticulo::Click);
    connect(m_caja, &CajaCodigo::dobleClic, this, &nvArticulo::DblClick);
    connect(m_caja, &CajaCodigo::ratonAbajo, this,
            [this](qint16 b, qint16 e, QPointF p) { reenviarRaton(&nvArticulo::MouseDown, b, e, p); });
    connect(m_caja, &CajaCodigo::ratonMovido, this,
            [this](qint16 b, qint16 e, QPointF p) { reenviarRaton(&nvArticulo::MouseMove, b, e, p); });
    connect(m_caja, &CajaCodigo::ratonArriba, this,
            [this](qint16 b, qint16 e, QPointF p) { reenviarRaton(&nvArticulo::MouseUp, b, e, p); });
}

bool nvArticulo::Refrescar_Datos()
{
    const nv::EstadoCaja partida = estado();
    nv::EstadoCaja cargado = partida;
    const QPointer<nvArticulo> vivo(this);
    bool encontrado = false;
    nv::mensajes::guardar(window(), u"nvArticulos::Cargar"_s, [&] {
        nv::Consultas consultas(nv::ranura::exigida(), m_servicios->empresaExigida(), *m_dialogos, window());
        encontrado = nv::cargarDescripcion(cargado, consultas, m_vital);
    });
    if (vivo)
        aplicar(partida, cargado);
    return encontrado;
}

qint32 nvArticulo::Buscar()
{
    if (m_ocupada)
        return 0;
    const QPointer<nvArticulo> vivo(this);
    m_caja->clear();
    qint16 codigo = nv::teclas::F3;
    qint16 mayusculas = 0;
    if (vivo)
        alTeclaAbajo(codigo, mayusculas);
    try {
        return vivo ? nv::ValEntero32(m_caja->text()) : 0;
    } catch (const nv::Error &) {
        return 0;
    }
}

QVariant nvArticulo::Emular_Enter(const QString &strCodigo)
{
    const QVariant nada = QVariant::fromValue(qint16(0));
    if (m_ocupada)
        return nada;
    const QPointer<nvArticulo> vivo(this);
    m_caja->setText(strCodigo);
    if (vivo)
        alIntro();
    return vivo && Existe() ? QVariant(Codigo()) : nada;
}

void nvArticulo::alTeclaAbajo(qint16 &codigo, qint16 &mayusculas)
{
    const QPointer<nvArticulo> vivo(this);
    const bool arriba = codigo == nv::teclas::Arriba && m_keyUpChangeFocus;
    if (codigo == nv::teclas::F3 &&
        !nv::mensajes::guardar(window(), nv::mensajes::atencion(), [this] { lanzarBusqueda(); }))
        return;
    if (vivo)
        Q_EMIT KeyDown(codigo, mayusculas);
    if (vivo && arriba)
        nv::foco::atras(m_caja);
}

/// Resolves what was typed, shows what came of it, tells the host, moves on. An error is one message, and everything is
/// what it was before.
void nvArticulo::alIntro()
{
    qint16 ascii = nv::teclas::Intro;
    bool avanza = false;
    if (!m_ocupada) {
        const Ocupada ocupada(this);
        try {
            const nv::EstadoCaja partida = estado();
            nv::Resolutor resolutor(*m_servicios, m_dialogos, window(), ajustes(), partida);
            const nv::Resolucion hecho = resolutor.resolver();
            if (ocupada.viva())
                aplicar(partida, hecho.estado);
            if (ocupada.viva() && hecho.enfoca && m_caja->isEnabled() && m_caja->isVisible())
                m_caja->setFocus();
            ascii = hecho.tragada ? qint16{0} : ascii;
            avanza = hecho.avanza;
        } catch (const nv::Error &error) {
            const QString carga = u"nvArticulos::Cargar"_s;
            if (ocupada.viva())
                nv::mensajes::mostrar(window(), error.origen == carga ? carga : nv::mensajes::atencion(),
                                      error.descripcion, nv::mensajes::Icono::Critico);
            // The next scan must replace what failed, not go on behind it.
            if (ocupada.viva())
                m_caja->selectAll();
            return;
        }
        if (!ocupada.viva())
            return;
    }
    const QPointer<nvArticulo> vivo(this);
    Q_EMIT KeyPress(ascii);
    if (vivo && avanza)
        nv::foco::adelante(m_caja);
}

void nvArticulo::lanzarBusqueda()
{
    if (m_ocupada)
        return;
    const Ocupada ocupada(this);
    nv::PeticionBusqueda pedida = peticion();
    pedida.modelo = Modelo();
    pedida.multiResultado = MultiResultado && pedida.modelo != 0;
    pedida.seleccionarTodo = SeleccionarTodo && pedida.modelo == 1;
    nv::CriteriosBusqueda criterios = m_estado->criterios;
    if (Familia_1 == -1) {
        Familia_1 = 0;
        m_estado->criterios = criteriosOlvidados();
        criterios = {};
    }
    pedida.familia[0] = std::max(Familia_1, qint16{0});
    const auto resultado = nv::mostrarBusqueda(*m_dialogos, *m_servicios, window(), pedida, criterios);
    if (!resultado || !ocupada.viva())
        return;
    const nv::EstadoCaja partida = estado();
    nv::EstadoCaja nuevo = partida;
    const bool varios = MultiResultado || resultado->codigo.isEmpty();
    if (varios) {
        nuevo.multiCodigo = resultado->codigo;
        nuevo.multiDescripcion = resultado->codigo.isEmpty() ? QString() : resultado->descripcion;
    } else {
        nuevo.texto = resultado->codigo;
        nuevo.nombre = resultado->descripcion;
        nuevo.existe = false;
        nuevo.pendiente = true;
    }
    if (!resultado->codigo.isEmpty())
        nuevo.criterios = resultado->criterios;
    aplicar(partida, nuevo);
    if (ocupada.viva() && !varios)
        m_caja->selectAll();
}

nv::EstadoCaja nvArticulo::estado() const
{
    nv::EstadoCaja copia = *m_estado;
    copia.texto = m_caja->text();
    copia.nombre = m_nombre->text();
    return copia;
}

/// State last: writing the box tells the host of a change. What the host has set meanwhile, then or while a dialog was
/// up, stays; where it has put another text into the box, nothing of what was found holds any more.
void nvArticulo::aplicar(const nv::EstadoCaja &partida, const nv::EstadoCaja &nuevo)
{
    using nv::EstadoCaja;
    const QPointer<nvArticulo> vivo(this);
    m_caja->setText(nuevo.texto);
    if (!vivo)
        return;
    const auto escribir = [&](auto EstadoCaja::*campo) {
        if ((*m_estado).*campo == partida.*campo)
            (*m_estado).*campo = nuevo.*campo;
    };
    escribir(&EstadoCaja::modelo);
    escribir(&EstadoCaja::proveedor);
    escribir(&EstadoCaja::criterios);
    escribir(&EstadoCaja::creacion);
    escribir(&EstadoCaja::permisoReferencias);
    escribir(&EstadoCaja::permisoBarras);
    if (m_caja->text() != nuevo.texto)
        return;
    ponerNombre(nuevo.nombre);
    m_estado->existe = nuevo.existe;
    m_estado->pendiente = nuevo.pendiente;
    m_estado->cualidades = nuevo.cualidades;
    m_estado->multiCodigo = nuevo.multiCodigo;
    m_estado->multiDescripcion = nuevo.multiDescripcion;
}

/// The host hears of the change first and still sees the former state.
void nvArticulo::alCambiar()
{
    const QPointer<nvArticulo> vivo(this);
    Q_EMIT Change();
    if (!vivo)
        return;
    m_estado->existe = false;
    m_estado->pendiente = true;
}

void nvArticulo::reenviarRaton(void (nvArticulo::*senal)(qint16 &, qint16 &, float &, float &), qint16 boton,
                               qint16 mayusculas, QPointF lugar)
{
    auto x = static_cast<float>(nv::twips::dePixeles(qRound(lugar.x()), this));
    auto y = static_cast<float>(nv::twips::dePixeles(qRound(lugar.y()), this));
    Q_EMIT(this->*senal)(boton, mayusculas, x, y);
}

QSize nvArticulo::sizeHint() const
{
    return {nv::twips::aPixeles(AnchoCaja + 4000, this), m_caja->sizeHint().height()};
}

QSize nvArticulo::minimumSizeHint() const
{
    return {nv::twips::aPixeles(AnchoCaja, this), m_caja->minimumSizeHint().height()};
}

void nvArticulo::resizeEvent(QResizeEvent *evento)
{
    QWidget::resizeEvent(evento);
    disponer();
}

void nvArticulo::changeEvent(QEvent *evento)
{
    QWidget::changeEvent(evento);
    if (evento->type() == QEvent::EnabledChange)
        pintarSegunEstado();
}

/// Text-field colour while the component itself is enabled, light grey while not, whatever its form's state.
void nvArticulo::pintarSegunEstado()
{
    if (!Enabled())
        m_caja->pintarFondo(QColor(224, 224, 224));
    else if (m_caja->hasFocus())
        m_caja->pintarFondo(QColor(192, 255, 255));
    else
        m_caja->restaurarFondo();
}

void nvArticulo::disponer()
{
    using nv::twips::aPixeles;
    if (height() < aPixeles(AltoMinimo, this))
        return;
    const int caja = aPixeles(AnchoCaja, this);
    if (width() >= caja) {
        const int alto = nv::twips::dePixeles(height(), this);
        m_caja->setGeometry(0, 0, caja, height());
        m_nombre->setGeometry(caja, aPixeles((alto - AltoMinimo) / 2, this), width() - caja, aPixeles(alto - 90, this));
    } else if (!enDisposicion(this)) {
        // A layout has the last word on the width of its widgets.
        resize(aPixeles(AnchoMinimo, this), height());
    }
    const QString hueco = corchetes(AnchoCaja);
    if (!hueco.isEmpty() && m_nombre->text().isEmpty())
        ponerNombre(hueco);
}

/// "[", blanks and "]" for the free width in blanks of the component's font; empty when there is no room.
QString nvArticulo::corchetes(int twipsDescontados) const
{
    const int blanco = nv::twips::dePixeles(fontMetrics().horizontalAdvance(u' '), this);
    const int libres = blanco > 0 ? (nv::twips::dePixeles(width(), this) - twipsDescontados) / blanco - 2 : 0;
    return libres >= 1 ? u'[' + QString(libres, u' ') + u']' : QString();
}

void nvArticulo::ponerNombre(const QString &nombre)
{
    m_nombre->setText(nombre);
    m_caja->setAccessibleDescription(nombre.startsWith(u'[') ? QString() : nombre);
    const bool cabe = m_nombre->fontMetrics().horizontalAdvance(nombre) <= m_nombre->width();
    m_nombre->setToolTip(cabe ? QString() : u"<span>"_s + nombre.toHtmlEscaped() + u"</span>"_s);
}
