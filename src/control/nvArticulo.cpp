#include "nvArticulo/nvArticulo.h"

#include "common/Valores.h"
#include "control/CajaCodigo.h"
#include "control/Consultas.h"
#include "control/Disposicion.h"
#include "control/Resolucion.h"
#include "nvArticulo/Conexion.h"
#include "nvArticulo/cEmpresa.h"
#include "platform/widgets/Campos.h"
#include "platform/widgets/EtiquetaElidida.h"
#include "platform/widgets/Foco.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/Teclas.h"
#include "platform/widgets/Twips.h"

#include <QEvent>
#include <QPointer>

using namespace Qt::StringLiterals;

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
    , m_nombre(new nv::EtiquetaElidida(this))
    , m_servicios(std::make_unique<nv::Servicios>())
    , m_dialogos(nv::crearDialogos())
    , m_estado(std::make_unique<nv::EstadoCaja>())
    , m_keyFichaArt(nv::teclas::F4)
{
    m_caja->setObjectName(u"txtCodigo"_s);
    m_nombre->setObjectName(u"lblNombre"_s);
    // Off the edge of the box; an indent would push the text down too.
    m_nombre->setContentsMargins(nv::twips::aPixeles(90, this), 0, 0, 0);
    m_nombre->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setFocusProxy(m_caja);
    setFocusPolicy(Qt::StrongFocus); // a label's mnemonic asks the component, not the box inside
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
    connect(m_caja, &CajaCodigo::ratonAbajo, this, &nvArticulo::MouseDown);
    connect(m_caja, &CajaCodigo::ratonMovido, this, &nvArticulo::MouseMove);
    connect(m_caja, &CajaCodigo::ratonArriba, this, &nvArticulo::MouseUp);
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
    const QString linea = nv::lineaLimpia(strCodigo);
    if (linea.size() > m_caja->maxLength()) {
        m_caja->avisarLargo(linea.size());
        return nada;
    }
    const QPointer<nvArticulo> vivo(this);
    m_caja->setText(linea);
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

/// Nothing when it failed: one message, and everything is what it was before.
std::optional<nv::Resolucion> nvArticulo::resuelta(const nv::EstadoCaja &partida, const Ocupada &ocupada)
{
    try {
        nv::Resolutor resolutor(*m_servicios, m_dialogos, window(), ajustes(), partida);
        return resolutor.resolver();
    } catch (const nv::Error &error) {
        const QString carga = u"nvArticulos::Cargar"_s;
        if (ocupada.viva())
            nv::mensajes::mostrar(window(), error.origen == carga ? carga : nv::mensajes::atencion(), error.descripcion,
                                  nv::mensajes::Icono::Critico);
        // The next scan must replace what failed, not go on behind it.
        if (ocupada.viva())
            m_caja->selectAll();
        return {};
    }
}

/// Resolves what was typed, shows what came of it, tells the host, moves on.
void nvArticulo::alIntro()
{
    if (m_caja->rechazaIncompleto())
        return;
    qint16 ascii = nv::teclas::Intro;
    bool avanza = false;
    if (!m_ocupada) {
        const Ocupada ocupada(this);
        const nv::EstadoCaja partida = estado();
        const std::optional<nv::Resolucion> hecho = resuelta(partida, ocupada);
        if (!hecho || !ocupada.viva())
            return;
        aplicar(partida, hecho->estado);
        if (ocupada.viva() && hecho->enfoca && m_caja->isEnabled() && m_caja->isVisible())
            m_caja->setFocus();
        if (!ocupada.viva())
            return;
        ascii = hecho->tragada ? qint16{0} : ascii;
        avanza = hecho->avanza;
        if (hecho->noEncontrado && !partida.texto.trimmed().isEmpty()) {
            if (AvisarNoEncontrado)
                m_caja->decirNoEncontrado(partida.texto);
            Q_EMIT NoEncontrado(partida.texto);
            if (!ocupada.viva())
                return;
        }
    }
    const QPointer<nvArticulo> vivo(this);
    const QPointer<QWidget> antes = window()->focusWidget();
    Q_EMIT KeyPress(ascii);
    // A host that has sent the focus somewhere wants it there.
    if (vivo && avanza && window()->focusWidget() == antes)
        nv::foco::adelante(m_caja);
}

nvArticulo::eConfirmacion nvArticulo::Confirmar()
{
    if (m_ocupada)
        return eConfirmacion::Fallo;
    if (!Pendiente())
        return Existe() ? eConfirmacion::Existe : eConfirmacion::NoExiste;
    const Ocupada ocupada(this);
    const nv::EstadoCaja partida = estado();
    const std::optional<nv::Resolucion> hecho = resuelta(partida, ocupada);
    if (!hecho || !ocupada.viva())
        return eConfirmacion::Fallo;
    if (hecho->estado.existe) {
        aplicar(partida, hecho->estado);
        return ocupada.viva() ? eConfirmacion::Existe : eConfirmacion::Fallo;
    }
    m_caja->setFocus();
    m_caja->selectAll();
    return eConfirmacion::NoExiste;
}

void nvArticulo::OlvidarNombre()
{
    ponerNombre({});
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
        m_estado->criterios = {};
        m_estado->criterios.Busqueda_Codigo = u"0"_s; // as the component starts
        criterios = {};
    }
    pedida.familia[0] = std::max(Familia_1, qint16{0});
    const auto resultado = nv::mostrarBusqueda(*m_dialogos, *m_servicios, window(), pedida, criterios);
    if (!resultado || !ocupada.viva())
        return;
    const nv::EstadoCaja partida = estado();
    nv::EstadoCaja nuevo = partida;
    const bool varios = MultiResultado || resultado->codigo.isEmpty();
    nv::tomarEleccion(nuevo, *resultado, varios);
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
    m_nombre->setAtenuada(m_estado->pendiente);
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
    m_nombre->setAtenuada(true);
}

QSize nvArticulo::sizeHint() const
{
    return nv::disposicion::preferida(*m_caja);
}

QSize nvArticulo::minimumSizeHint() const
{
    return nv::disposicion::minima(*m_caja);
}

void nvArticulo::resizeEvent(QResizeEvent *evento)
{
    QWidget::resizeEvent(evento);
    nv::disposicion::colocar(*this, *m_caja, *m_nombre);
    const QString hueco = nv::disposicion::corchetes(*this);
    if (!hueco.isEmpty() && m_nombre->text().isEmpty())
        ponerNombre(hueco);
}

void nvArticulo::changeEvent(QEvent *evento)
{
    QWidget::changeEvent(evento);
    if (evento->type() == QEvent::EnabledChange)
        pintarSegunEstado();
}

void nvArticulo::showEvent(QShowEvent *evento)
{
    QWidget::showEvent(evento);
    m_caja->setAccessibleName(nv::nombreDe(*this, u"Código de artículo"_s));
}

/// Whatever its form's state, the component's own decides.
void nvArticulo::pintarSegunEstado()
{
    m_caja->pintarEstado(Enabled());
}

void nvArticulo::ponerNombre(const QString &nombre)
{
    m_nombre->setText(nombre);
    describirCaja();
}

/// Without a description of its own a box is described by its tool tip, which is marked up.
void nvArticulo::describirCaja()
{
    const QString nombre = m_nombre->text();
    m_caja->setAccessibleDescription(nombre.isEmpty() || nombre.startsWith(u'[') ? m_toolTipText : nombre);
}
