#include "search/BusquedaCriterios.h"

#include "nvArticulo/Conexion.h"
#include "nvArticulo/cEmpresa.h"
#include "platform/pickers/CascadaFamilias.h"
#include "platform/pickers/SelectorCodigo.h"
#include "platform/widgets/EtiquetaElidida.h"
#include "platform/widgets/Twips.h"
#include "platform/widgets/nvTextBox.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace nv {

BusquedaCriterios::BusquedaCriterios(QWidget *padre, const ConfiguracionCriterios &configuracion)
    : BusquedaBase(padre)
    , m_configuracion(configuracion)
    , m_panel(new PanelCriterios(this, configuracion.conMarca))
    , m_columna(new QVBoxLayout)
    , m_pie(new QHBoxLayout)
    , m_contiene(boton(u"F8 - Con * delante"_s, u"cmdContiene"_s, [this] { buscarEnCualquierParte(); }))
    , m_lista(new ListaIncremental(rejilla(), configuracion.bloques))
{
    ponerColumnas(*rejilla(), configuracion.columnas, configuracion.eleccion);
    if (configuracion.marcadas)
        m_marcadas = new FilasMarcadas(rejilla(), 0, *configuracion.marcadas);
    if (configuracion.conservaMarcas)
        m_marcadas->conservar(configuracion.eleccion);
    if (m_marcadas)
        connect(m_marcadas, &FilasMarcadas::Cambiadas, this, &BusquedaCriterios::decirResultado);
    for (QWidget *campo : m_panel->campos())
        tabularAntes(campo);
    montarColumna();
    m_contiene->setToolTip(u"Busca lo mismo en cualquier parte del texto, no sólo al principio"_s);
    m_contiene->setFocusPolicy(Qt::NoFocus);
    m_contiene->hide();
    connect(m_panel, &PanelCriterios::Buscar, this, [this] {
        trasIntro();
        EjecutarBusqueda();
    });
    atajo(Qt::Key_F8, [this] { buscarEnCualquierParte(); });
    atajo(Qt::Key_F9, [this] {
        if (m_panel->isVisibleTo(m_panel->parentWidget()))
            EjecutarBusqueda();
        else
            volverACriterios();
    });
    conectarRejilla();
}

void BusquedaCriterios::anadirCriterio(const QString &rotulo, const QString &nombreRotulo, QWidget *campo,
                                       QWidget *nota)
{
    m_panel->anadir(rotulo, nombreRotulo, campo, nota);
    tabularAntes(campo);
}

void BusquedaCriterios::montarColumna()
{
    auto *teclas = new EtiquetaElidida(this);
    teclas->setText(m_configuracion.teclas);
    teclas->setObjectName(u"lblTeclas"_s);
    teclas->setForegroundRole(QPalette::PlaceholderText);
    m_pie->setSpacing(twips::aPixeles(45, this));
    m_pie->addWidget(teclas, 1);
    m_pie->addWidget(m_contiene);
    m_pie->addWidget(resultado());
    m_pie->addLayout(botonera());
    for (auto *pulsador : {findChild<QPushButton *>(u"cmdAceptar"_s), findChild<QPushButton *>(u"cmdCancelar"_s)}) {
        pulsador->setMinimumHeight(twips::aPixeles(360, this));
        tabularDespues(pulsador);
    }
    const int margen = twips::aPixeles(75, this);
    m_columna->setContentsMargins(margen, twips::aPixeles(90, this), margen, margen);
    m_columna->setSpacing(margen);
    m_pie->setContentsMargins(0, twips::aPixeles(15, this), 0, 0);
    m_columna->addWidget(m_panel);
    m_columna->addWidget(rejilla(), 1);
    m_columna->addLayout(m_pie);
}

void BusquedaCriterios::conectarRejilla()
{
    rejilla()->alPulsar = [this](QKeyEvent *evento) {
        if (evento->key() == Qt::Key_PageDown)
            m_lista->alPaginar();
        if (evento->key() != Qt::Key_Up || rejilla()->filaActual() > 1)
            return false;
        volverACriterios();
        return true;
    };
    connect(rejilla(), &Rejilla::DobleClic, this, &BusquedaCriterios::alDobleClic);
    connect(rejilla(), &Rejilla::Caracter, this, &BusquedaCriterios::escribirNombre);
    connect(rejilla(), &Rejilla::Espacio, this, [this] {
        if (m_marcadas && MultiResultado)
            m_marcadas->alternar(rejilla()->filaActual());
    });
    // Queued: it is found out while the grid scrolls, no time for a box.
    connect(
        m_lista, &ListaIncremental::Fallo, this,
        [this](const QString &descripcion) {
            mensajes::mostrar(this, tituloBusqueda(), descripcion, mensajes::Icono::Critico);
        },
        Qt::QueuedConnection);
}

/// Marks where several may be marked, else it accepts.
void BusquedaCriterios::alDobleClic(int fila, int columna)
{
    if (fila < 1)
        return;
    const bool equis = m_configuracion.marcadas == FilasMarcadas::Signo::Equis;
    if (!m_marcadas || (!equis && !MultiResultado))
        Aceptar();
    // On a box itself its first click has done it.
    else if (equis || columna != m_marcadas->columna())
        m_marcadas->alternar(fila);
}

void BusquedaCriterios::alAbrir()
{
    if (m_marcadas)
        m_marcadas->setVisible(MultiResultado);
    ordenarTabulacion(false);
    m_panel->conectar(cEmpresa, ranura::actual());
    if (Familia_1 > 0)
        m_panel->familias()->fijar({Familia_1, Familia_2, Familia_3});
    const bool hay = m_configuracion.recuerda && m_panel->poner(*this);
    mensajes::Fallos fallos;
    fallos.paso([this] { m_panel->familias()->nombrarNiveles(*cEmpresa); });
    m_panel->cargarNombres(fallos);
    fallos.paso([this] { completarAlmacen(); });
    cargarPropios(fallos);
    m_panel->nombre()->setFocus();
    m_panel->nombre()->selectAll();
    if (!fallos.mostrar(this, tituloBusqueda()) || !hay)
        return;
    const QPointer<BusquedaCriterios> vivo(this);
    EjecutarBusqueda();
    if (vivo)
        mostrarCriterios(true);
}

/// Throws Error; the grid is then as it was.
void BusquedaCriterios::llenar()
{
    const QScopedValueRollback<bool> guarda(m_llenando, true);
    const sql::CriteriosArticulo criterios = m_panel->escritos();
    const Sentencia sentencia = consulta(criterios);
    // What is refused unsent would be refused again each time that the component hands it back.
    if (!sentencia.defecto().isEmpty() && m_configuracion.recuerda)
        olvidarApostrofos();
    Registros registros = ranura::exigida().Abrir(sentencia);
    const LectorFila lector = lectorDeFilas(
        m_configuracion.columnas, registros, [this] { return m_marcadas->celdaNueva(); }, celdasPropias(registros));
    m_lista->mostrar(std::move(registros), lector);
    recordar(sentencia);
    if (m_configuracion.recuerda)
        m_panel->recordar(criterios, *this);
    alLlenar();
    rejilla()->setFilaActual(1);
}

void BusquedaCriterios::olvidarApostrofos()
{
    for (QString *texto : {&Busqueda_Descripcion, &Busqueda_Codigo, &Busqueda_Referencia})
        if (texto->contains(u'\''))
            texto->clear();
}

void BusquedaCriterios::EjecutarBusqueda()
{
    const QPointer<BusquedaCriterios> vivo(this);
    if (!completo())
        return;
    // A code that was typed just now shows what it is before its search does.
    for (QWidget *campo : m_panel->campos()) {
        auto *selector = qobject_cast<SelectorCodigo *>(campo);
        if (selector && selector->isAncestorOf(focusWidget()) && (!selector->Asentar() || !vivo))
            return;
    }
    if (!buscar([this] { llenar(); }))
        return;
    const bool hay = rejilla()->filasDatos() > 0;
    ofrecerAsterisco();
    if (hay)
        ordenarTabulacion(true);
    trasBuscar();
    // A box may have been up, and the window gone with it; a picker that loses the focus may put up another.
    if (vivo && hay)
        rejilla()->setFocus();
    if (vivo && hay && m_configuracion.ocultaPanel)
        mostrarCriterios(false);
}

void BusquedaCriterios::mostrarCriterios(bool visibles)
{
    m_panel->setVisible(visibles);
    m_columna->activate();
}

void BusquedaCriterios::volverACriterios()
{
    mostrarCriterios(true);
    m_panel->nombre()->setFocus(Qt::BacktabFocusReason);
}

/// A letter typed in the list begins another description.
void BusquedaCriterios::escribirNombre(const QString &texto)
{
    volverACriterios();
    m_panel->nombre()->setText(texto);
}

int BusquedaCriterios::cuantasMarcadas() const
{
    return m_marcadas && MultiResultado ? m_marcadas->cuantas() : 0;
}

/// A criterion is sought at the beginning: what stands elsewhere is one key away.
void BusquedaCriterios::ofrecerAsterisco()
{
    m_contiene->setVisible(rejilla()->filasDatos() == 0 && m_panel->sinAsterisco());
}

void BusquedaCriterios::buscarEnCualquierParte()
{
    if (!m_contiene->isVisible())
        return;
    m_panel->anteponerAsterisco();
    EjecutarBusqueda();
}

bool BusquedaCriterios::puedeAceptar() const
{
    // An "X" counts wherever the current row is; none of them is no choice.
    return (m_configuracion.marcadas == FilasMarcadas::Signo::Equis && MultiResultado) || BusquedaBase::puedeAceptar();
}

Eleccion BusquedaCriterios::eleccion() const
{
    if (!m_marcadas || !MultiResultado)
        return BusquedaBase::eleccion();
    const Eleccion marcados = m_marcadas->eleccion(columnasEleccion());
    const bool actual = marcados.codigo.isEmpty() && m_configuracion.marcadas == FilasMarcadas::Signo::Casilla;
    return actual ? BusquedaBase::eleccion() : marcados;
}

bool BusquedaCriterios::event(QEvent *evento)
{
    if (evento->type() == QEvent::WindowActivate && m_panel->familias()->fijas()) {
        try {
            m_panel->familias()->Cargar();
        } catch (const Error &) {
            // Not shown: the box would activate this dialog again as it closes, without end.
        }
    }
    return BusquedaBase::event(evento);
}

} // namespace nv
