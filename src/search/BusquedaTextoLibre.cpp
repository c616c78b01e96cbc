#include "search/BusquedaTextoLibre.h"

#include "common/Valores.h"
#include "nvArticulo/Conexion.h"
#include "nvArticulo/cEmpresa.h"
#include "platform/widgets/Aviso.h"
#include "platform/widgets/EtiquetaElidida.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/Teclas.h"
#include "platform/widgets/Twips.h"
#include "platform/widgets/nvTextBox.h"
#include "search/piezas/FilasMarcadas.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QScreen>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

// In twips.
constexpr int Margen = 120;
constexpr int Alto = 7200;
constexpr int AnchoMinimo = 6000;
constexpr int AltoMinimo = 3000;

} // namespace

BusquedaTextoLibre::BusquedaTextoLibre(QWidget *padre, const ConfiguracionTextoLibre &configuracion)
    : BusquedaBase(padre)
    , m_configuracion(configuracion)
    , m_caja(nuevaCaja(configuracion.caja, u"Descripción"_s))
    , m_criterios(new QHBoxLayout)
{
    ponerColumnas(*rejilla(), configuracion.columnas, configuracion.eleccion);
    m_marcadas = new FilasMarcadas(rejilla(), 0, FilasMarcadas::Signo::Casilla);
    m_todas = new CasillaTodas(rejilla(), m_marcadas);
    rejilla()->setColumnWidth(0, twips::aPixeles(m_todas->anchoColumna(), this));
    m_marcadas->setVisible(false);
    montar();
    conectarRejilla();
    ponerFranja();
    connect(m_marcadas, &FilasMarcadas::Cambiadas, this, &BusquedaTextoLibre::decirResultado);
}

void BusquedaTextoLibre::montar()
{
    m_criterios->setSpacing(twips::aPixeles(90, this));
    m_caja->setPlaceholderText(u"Palabras, en cualquier orden"_s);
    m_criterios->addWidget(m_caja, 1);
    auto *columna = new QVBoxLayout(this);
    const int margen = twips::aPixeles(Margen, this);
    columna->setContentsMargins(margen, margen, margen, margen);
    columna->setSpacing(margen);
    columna->addLayout(m_criterios);
    columna->addWidget(rejilla(), 1);
    QHBoxLayout *pie = botonera();
    pie->insertWidget(0, resultado());
    columna->addLayout(pie);
    tabularDespues(m_todas->casilla());
    for (const QString &nombre : {u"cmdAceptar"_s, u"cmdCancelar"_s})
        tabularDespues(findChild<QPushButton *>(nombre));
    setMinimumSize(twips::aPixeles(AnchoMinimo, this), twips::aPixeles(AltoMinimo, this));
}

void BusquedaTextoLibre::conectarRejilla()
{
    connect(rejilla(), &Rejilla::DobleClic, this, &BusquedaTextoLibre::Aceptar);
    connect(rejilla(), &Rejilla::Caracter, this, &BusquedaTextoLibre::escribirEnCaja);
    connect(rejilla(), &Rejilla::Espacio, this, [this] {
        if (MultiResultado)
            m_marcadas->alternar(rejilla()->filaActual());
        else
            escribirEnCaja(u" "_s);
    });
    connect(rejilla(), &Rejilla::Clic, this, [this](int fila, int columna) {
        if (MultiResultado && columna == 0)
            m_marcadas->alternar(fila);
    });
    rejilla()->alPulsar = [this](QKeyEvent *tecla) { return alPulsar(*tecla); };
}

/// Up on the first row, or on the heading, where Down from the box stops, goes back to the box.
bool BusquedaTextoLibre::alPulsar(const QKeyEvent &tecla)
{
    if (tecla.key() != Qt::Key_Up || !teclas::sinModificar(tecla) || rejilla()->filaActual() > 1)
        return false;
    m_caja->setFocus();
    m_caja->selectAll();
    return true;
}

nvTextBox *BusquedaTextoLibre::nuevaCaja(const QString &nombre, const QString &accesible)
{
    auto *nueva = new nvTextBox(this);
    nueva->setObjectName(nombre);
    nueva->setAccessibleName(accesible);
    nueva->setMayusculas(m_configuracion.mayusculas);
    nueva->installEventFilter(this);
    tabularAntes(nueva);
    m_cajas.append(nueva);
    return nueva;
}

void BusquedaTextoLibre::buscarConIntro(const nvTextBox *caja)
{
    connect(caja, &nvTextBox::Intro, this, [this](bool &tratada) {
        tratada = true;
        trasIntro();
        buscarEscrito();
    });
}

bool BusquedaTextoLibre::eventFilter(QObject *objeto, QEvent *evento)
{
    if (evento->type() == QEvent::KeyPress && qobject_cast<nvTextBox *>(objeto)) {
        const auto *tecla = static_cast<QKeyEvent *>(evento);
        if (tecla->key() == Qt::Key_Down && teclas::sinModificar(*tecla)) {
            rejilla()->setFilaActual(0);
            rejilla()->setFocus();
            return true;
        }
    }
    return BusquedaBase::eventFilter(objeto, evento);
}

void BusquedaTextoLibre::escribirEnCaja(const QString &texto)
{
    QString mayusculas = texto;
    for (QChar &c : mayusculas)
        c = c.toUpper();
    // Focus first: entering the box selects what it holds.
    m_caja->setFocus();
    m_caja->setText(mayusculas);
}

/// As wide as the columns, within the screen, and in its middle.
void BusquedaTextoLibre::encajar()
{
    const QRect pantalla = screen()->availableGeometry();
    const int bordes = rejilla()->verticalScrollBar()->sizeHint().width() + 2 * rejilla()->frameWidth() +
                       2 * twips::aPixeles(Margen, this);
    ajustarTamano({rejilla()->horizontalHeader()->length() + bordes, twips::conLetra(Alto, this)});
    move(pantalla.center() - rect().center());
}

void BusquedaTextoLibre::alAbrir()
{
    mostrarRecordados();
    m_buscado = escrito();
    m_marcadas->setVisible(MultiResultado);
    m_todas->setVisible(MultiResultado);
    mensajes::Fallos fallos;
    const bool busca = !Busqueda_Descripcion.isEmpty();
    mensajes::Fallos deBusqueda; // which reads again what has failed, and says so if it still does
    (busca ? deBusqueda : fallos).paso([this] { ajustar(); });
    fallos.paso([this] { leerParametro(); });
    ordenarTabulacion(false);
    encajar();
    m_caja->setFocus();
    m_caja->selectAll();
    if (!fallos.mostrar(this, windowTitle()) || !busca)
        return;
    // The grid is then the first in the tab order of a form that is about to appear.
    if (Recuperar_Registros(Busqueda_Descripcion) && rejilla()->filasDatos() > 0)
        rejilla()->setFocus();
}

/// What a statement cannot do without; once. A search tries again what failed at load.
void BusquedaTextoLibre::ajustar()
{
    completarAlmacen();
    if (!m_ajustada)
        leerAjustes();
    m_ajustada = true;
}

void BusquedaTextoLibre::leerParametro()
{
    m_soloRefPrincipal = comoBooleano(parametroUsuario(m_configuracion.parametroReferencia, 1).toString());
}

void BusquedaTextoLibre::leerAjustes()
{
    const qint16 almacen = cEmpresa->ValorEntero16(u"Almacen_PD"_s);
    Registros registros = ranura::exigida().Abrir(sql::tarifaAlmacen(cEmpresa->Codigo(), almacen));
    m_tarifa = registros.siguiente() ? registros.entero16O(u"Tarifa") : qint16{0};
}

void BusquedaTextoLibre::mostrarRecordados()
{
    m_caja->setText(Busqueda_Descripcion);
}

void BusquedaTextoLibre::recordarEscritos()
{
    Busqueda_Descripcion = m_caja->text();
}

bool BusquedaTextoLibre::hayTexto() const
{
    return !recortado(m_caja->text()).isEmpty();
}

sql::EntornoTextoLibre BusquedaTextoLibre::entorno() const
{
    return {cEmpresa->Codigo(), cEmpresa->CodigoArticulos(), AlmacenStock, m_tarifa, m_soloRefPrincipal, limite()};
}

QString BusquedaTextoLibre::tituloAceptar() const
{
    return m_configuracion.formulario + u":cmdAceptar_Click"_s;
}

QString BusquedaTextoLibre::tituloBusqueda() const
{
    return u"Recuperar_Registros"_s;
}

QStringList BusquedaTextoLibre::escrito() const
{
    QStringList textos;
    for (const nvTextBox *caja : m_cajas)
        textos << caja->text();
    return textos;
}

void BusquedaTextoLibre::buscarEscrito()
{
    if (!completo())
        return;
    if (!hayCriterios()) {
        Aviso::mostrar(m_caja, u"Escriba lo que busca"_s);
        return;
    }
    if (!mensajes::guardar(this, tituloBusqueda(), [this] { recordarEscritos(); }))
        return;
    m_buscado = escrito();
    Recuperar_Registros(m_caja->text());
}

bool BusquedaTextoLibre::Recuperar_Registros(const QString &texto)
{
    if (m_buscando)
        return false;
    const bool hecha = buscar([&] {
        const QScopedValueRollback<bool> buscando(m_buscando, true);
        try {
            llenar(texto);
        } catch (Error &error) {
            if (m_configuracion.errorNumerado)
                error.descripcion.prepend(u"0 - ");
            throw;
        }
    });
    if (!hecha || rejilla()->filasDatos() == 0)
        return hecha;
    ordenarTabulacion(true);
    rejilla()->setFilaActual(1);
    if (m_configuracion.enfocarRejilla)
        rejilla()->setFocus();
    return true;
}

void BusquedaTextoLibre::llenar(const QString &texto)
{
    ajustar();
    const Sentencia sentencia = consulta(texto);
    // Refused, it leaves the former list as it was.
    Registros registros = ranura::exigida().Abrir(sentencia);
    m_buscado[0] = texto;
    rejilla()->vaciar();
    m_todas->reiniciar();
    std::vector<FilaRejilla> filas;
    const auto mostrar = qScopeGuard([&] {
        rejilla()->anadir(std::move(filas));
        alLlenar();
    });
    // Before the rows: where reading them fails, those that came before stay and can be accepted.
    recordar(sentencia);
    const LectorFila leer = lectorDeFilas(
        m_configuracion.columnas, registros, [this] { return m_marcadas->celdaNueva(); }, celdasPropias(registros));
    while (registros.siguiente())
        filas.push_back(leer(registros));
}

int BusquedaTextoLibre::cuantasMarcadas() const
{
    return MultiResultado ? m_marcadas->cuantas() : 0;
}

void BusquedaTextoLibre::aceptar()
{
    if (hayCriterios() && escrito() != m_buscado)
        buscarEscrito();
    else
        BusquedaBase::aceptar();
}

/// A list without items is accepted too, and gives no code.
bool BusquedaTextoLibre::puedeAceptar() const
{
    return rejilla()->filasDatos() == 0 || cuantasMarcadas() > 0 || BusquedaBase::puedeAceptar();
}

Eleccion BusquedaTextoLibre::eleccion() const
{
    if (cuantasMarcadas() == 0)
        return BusquedaBase::eleccion();
    Eleccion lista = m_marcadas->eleccion(columnasEleccion());
    if (cuantasMarcadas() == 1) {
        lista.codigo.remove(0, 1);
        lista.descripcion.remove(0, 1);
    }
    return lista;
}

void BusquedaTextoLibre::alAceptar()
{
    MultiResultado = cuantasMarcadas() > 1;
}

} // namespace nv
