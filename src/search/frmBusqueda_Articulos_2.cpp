#include "search/frmBusqueda_Articulos_2.h"

#include "nvArticulo/Conexion.h"
#include "nvArticulo/cEmpresa.h"
#include "platform/informe/Destino.h"
#include "platform/pickers/CascadaFamilias.h"
#include "platform/pickers/nvAlmacenCons.h"
#include "platform/pickers/nvProveedor.h"
#include "platform/widgets/Aviso.h"
#include "platform/widgets/Twips.h"
#include "platform/widgets/nvTextBox.h"
#include "search/piezas/CampoAlternativo.h"
#include "search/piezas/InformeBusqueda.h"
#include "search/piezas/OrdenRejilla.h"
#include "search/piezas/PunteroEspera.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPointer>
#include <QScreen>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

enum Columna {
    Marcada,
    CodigoArticulo,
    DescripcionArticulo,
    Familia1,
    Familia2,
    Familia3,
    CodigoBarras,
    Referencia,
    Pvp1,
    Pvp2,
    Pvp3,
    Stock
};

constexpr nv::ColumnaRejilla Oculta{{}, 0, Qt::AlignLeft, true};
constexpr nv::ColumnaRejilla Precio{u"Tarifa", 1000, Qt::AlignRight};
constexpr nv::ColumnaBusqueda Columnas[] = {
    {{{}, 300, Qt::AlignCenter}, {}, nv::Celda::Seleccion},
    {{u"Código", 800}, u"Codigo"},
    {{u"Descripción", 2000}, u"Descripcion"},
    {Oculta, u"Familia_1"},
    {Oculta, u"Familia_2"},
    {Oculta, u"Familia_3"},
    {{u"Cód. Barras", 1400}, u"Cod_Barras"},
    {{u"Ref. Princip.", 1500}, u"Ref"},
    // Not from the texts of the result: as a text an amount has two decimals, a tariff may have more.
    {Precio, u"Pvp1_Num", nv::Celda::Propia},
    {Precio, u"Pvp2_Num", nv::Celda::Propia},
    {Precio, u"Pvp3_Num", nv::Celda::Propia},
    {{u"Stock", 800, Qt::AlignRight}, u"Stock_Actual", nv::Celda::Numero},
};

/// The field that a column of the grid is printed in the order of.
QString campoDeOrden(int columna)
{
    if (columna == Stock)
        return u"Stock_Actual_Num"_s;
    const bool deTexto = columna == DescripcionArticulo || columna == CodigoBarras || columna == Referencia;
    const bool dePrecio = columna >= Pvp1 && columna <= Pvp3;
    return deTexto || dePrecio ? Columnas[columna].campo.toString() : u"Codigo"_s;
}

nv::ConfiguracionCriterios configuracion()
{
    nv::ConfiguracionCriterios c{Columnas, {CodigoArticulo, DescripcionArticulo}};
    c.marcadas = nv::FilasMarcadas::Signo::Casilla;
    c.conservaMarcas = true;
    c.teclas = u"F9 - Buscar / F11 - Imprimir Búsqueda"_s;
    return c;
}

} // namespace

frmBusqueda_Articulos_2::frmBusqueda_Articulos_2(QWidget *padre)
    : BusquedaCriterios(padre, configuracion())
    , m_pestanas(new QTabWidget(this))
    , m_alternativo(new nv::CampoAlternativo(panel()))
    , m_almacenes(new nvAlmacenCons(this))
    , m_todos(new QCheckBox(u"Seleccionar todos"_s, this))
    , m_orden(new nv::OrdenRejilla(rejilla(), Pvp1))
{
    montarPestanas();
    setLayout(columna());
    m_todos->setObjectName(u"chkCheck"_s);
    pie()->insertWidget(0, m_todos);
    dimensionar(11400, 7500);

    nv::Rejilla *lista = rejilla();
    lista->ensanchar(Stock, u"Stock Alm 88"_s);
    connect(lista, &nv::Rejilla::Clic, this, [this](int fila, int columna) {
        if (columna == Marcada)
            marcadas()->alternar(fila);
    });
    connect(m_todos, &QCheckBox::toggled, this, [this](bool todas) { marcadas()->marcarTodas(todas, true); });
    connect(m_pestanas, &QTabWidget::currentChanged, this, &frmBusqueda_Articulos_2::alCambiarPestana);
    panel()->buscarConIntro(m_alternativo->caja());
    atajo(Qt::Key_F11, [this] { Imprimir_Busqueda(); });
    tabularAntes(m_alternativo->caja());
    tabularAntes(m_almacenes);
    ponerFranja();
    connect(m_almacenes, &nvAlmacenCons::Cambio, this, [this] {
        QVariantList elegidos;
        for (const qint16 codigo : m_almacenes->Almacenes())
            elegidos << codigo;
        aspecto().guardar(u"Almacenes"_s, elegidos);
    });
    connect(m_orden, &nv::OrdenRejilla::Ordenada, this, &frmBusqueda_Articulos_2::decirResultado);
}

void frmBusqueda_Articulos_2::montarPestanas()
{
    m_pestanas->setObjectName(u"SSTab"_s);
    m_almacenes->setObjectName(u"txtAlmacenes"_s);
    panel()->filtro()->addWidget(m_alternativo->rotulo(), 2, 2);
    panel()->filtro()->addWidget(m_alternativo->caja(), 2, 3);
    delete columna()->replaceWidget(panel(), m_pestanas);
    const std::pair<QString, QWidget *> paginas[] = {{u"Búsqueda"_s, panel()}, {u"Almacenes"_s, m_almacenes}};
    for (const auto &[titulo, contenido] : paginas) {
        auto *pagina = new QWidget(this);
        auto *dentro = new QVBoxLayout(pagina);
        dentro->addWidget(contenido);
        m_pestanas->addTab(pagina, titulo);
    }
}

void frmBusqueda_Articulos_2::alAbrir()
{
    move(screen()->availableGeometry().center() - rect().center());
    m_todos->setVisible(MultiResultado);
    m_todos->setChecked(SeleccionarTodo);
    BusquedaCriterios::alAbrir();
}

void frmBusqueda_Articulos_2::cargarPropios(nv::mensajes::Fallos &fallos)
{
    m_usados = {AlmacenStock};
    titularStock();
    fallos.paso([this] {
        const qint32 maximo = nv::sql::limiteFilas(parametroApp(u".BuscadorM2.MaxCargaFilas", 0).toString());
        lista()->setBloques({maximo, maximo, maximo, 1});
    });
    fallos.paso([this] { leerTarifas(); });
    fallos.paso([this] { m_alternativo->preparar(*cEmpresa); });
    fallos.paso([this] {
        m_almacenes->setConexion(nv::ranura::actual());
        m_almacenes->setcEmpresa(cEmpresa);
        m_almacenes->setUsuario(cEmpresa->Valor(u"UsuarioActual"_s));
        m_almacenes->Cargar();
        std::vector<qint16> elegidos;
        for (const QVariant &codigo : aspecto().valor(u"Almacenes"_s).toList())
            elegidos.push_back(static_cast<qint16>(codigo.toInt()));
        const QSignalBlocker sinGuardar(m_almacenes);
        m_almacenes->setAlmacenes(elegidos);
        m_usados = almacenes();
        titularStock();
    });
}

void frmBusqueda_Articulos_2::leerTarifas()
{
    nv::Registros registros = nv::ranura::exigida().Abrir(
        nv::sql::tarifasDeAlmacen(cEmpresa->Codigo(), cEmpresa->ValorEntero16(u"Almacen_PD"_s)));
    for (std::size_t i = 0; i < m_tarifas.size(); ++i) {
        Tarifa &tarifa = m_tarifas[i];
        if (registros.siguiente()) {
            tarifa.codigo = registros.entero16(u"Cod_Tarifa");
            if (!registros.esNulo(u"Decimales"))
                tarifa.decimales = registros.entero16(u"Decimales");
        }
        rejilla()->setTitulo(Pvp1 + static_cast<int>(i), u"Tarifa "_s + QString::number(tarifa.codigo));
    }
}

nv::Sentencia frmBusqueda_Articulos_2::consulta(const nv::sql::CriteriosArticulo &criterios)
{
    nv::sql::CriteriosModelo1 todos{criterios, {}, {}};
    m_alternativo->anadirA(todos);
    m_preguntados = almacenes();
    return nv::sql::modelo1(cEmpresa->Codigo(), cEmpresa->CodigoArticulos(), limite(),
                            {m_tarifas[0].codigo, m_tarifas[1].codigo, m_tarifas[2].codigo}, m_preguntados, todos);
}

nv::CeldasPropias frmBusqueda_Articulos_2::celdasPropias(const nv::Registros &registros)
{
    std::array<int, 3> lugares{};
    for (std::size_t i = 0; i < lugares.size(); ++i)
        lugares[i] = registros.columna(Columnas[Pvp1 + i].campo);
    return [lugares, tarifas = m_tarifas](const nv::Registros &r, nv::FilaRejilla &fila) {
        for (std::size_t i = 0; i < lugares.size(); ++i)
            fila[Pvp1 + i] = r.moneda(lugares[i]).texto(tarifas[i].decimales);
    };
}

void frmBusqueda_Articulos_2::alLlenar()
{
    m_usados = m_preguntados;
    m_orden->olvidar();
    titularStock();
}

std::vector<qint16> frmBusqueda_Articulos_2::almacenes() const
{
    const std::vector<qint16> elegidos = m_almacenes->Almacenes();
    return elegidos.empty() ? std::vector<qint16>{AlmacenStock} : elegidos;
}

void frmBusqueda_Articulos_2::titularStock()
{
    rejilla()->setTitulo(Stock,
                         m_usados.size() == 1 ? u"Stock Alm "_s + QString::number(m_usados.front()) : u"Stock"_s);
}

/// What the list shows must be the stock of the warehouses on screen.
void frmBusqueda_Articulos_2::alCambiarPestana()
{
    const QWidget *anterior = m_pestanas->widget(std::exchange(m_pestana, m_pestanas->currentIndex()));
    if (!anterior->isAncestorOf(m_almacenes) || rejilla()->filasDatos() == 0 || almacenes() == m_usados)
        return;
    const QPointer<frmBusqueda_Articulos_2> vivo(this);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    if (vivo)
        EjecutarBusqueda();
}

void frmBusqueda_Articulos_2::volverACriterios()
{
    m_pestanas->setCurrentIndex(0);
    BusquedaCriterios::volverACriterios();
}

nv::Fragmento frmBusqueda_Articulos_2::listaCopia() const
{
    return u", a.Codigo, MIN(a.Descripcion) AS Descripcion ";
}

QString frmBusqueda_Articulos_2::DevCriterio() const
{
    QStringList piezas{u"Desc: "_s + panel()->nombre()->text(), u"Código: "_s + panel()->codigo()->text(),
                       u"Prov: "_s + panel()->proveedor()->Texto(), u"Ref: "_s + panel()->referencia()->text()};
    for (int nivel = 0; nivel < 3; ++nivel) {
        const QString nombreNivel = cEmpresa->NombreFamilia(nivel);
        const qint32 codigoNivel = panel()->familias()->codigos()[static_cast<std::size_t>(nivel)];
        piezas.append(nombreNivel.isEmpty() ? QString() : nombreNivel + u": "_s + QString::number(codigoNivel));
    }
    return piezas.join(u"  "_s);
}

void frmBusqueda_Articulos_2::Imprimir_Busqueda()
{
    if (ultima().vacia()) {
        nv::Aviso::mostrar(panel()->nombre(), u"Busque antes lo que quiere imprimir"_s);
        return;
    }
    try {
        imprimir();
    } catch (const nv::Error &error) {
        nv::mensajes::mostrar(this, tituloBusqueda(), u"Error en Imprimir_Busqueda: "_s + error.descripcion,
                              nv::mensajes::Icono::Critico);
    }
}

void frmBusqueda_Articulos_2::imprimir()
{
    nv::Informe informe(cEmpresa->DirectorioInformes(), u"\\Rpt\\Articulos Busqueda 2.rpt"_s);
    nv::DestinoInforme destino(this, u"Articulos Busqueda 2"_s);
    if (!destino.elegido())
        return;
    const nv::PunteroEspera espera;
    informe.setParametro(1, DevCriterio());
    informe.setParametro(5, QString::number(AlmacenStock));
    for (std::size_t i = 0; i < m_tarifas.size(); ++i) {
        informe.setParametro(2 + static_cast<int>(i), QString::number(m_tarifas[i].codigo));
        informe.setParametro(6 + static_cast<int>(i), QString::number(m_tarifas[i].decimales));
    }
    informe.setDatos(nv::datosDeInforme(nv::ranura::exigida().Abrir(ultima()), campoDeOrden(m_orden->columna()),
                                        m_orden->sentido()));
    destino.imprimir(informe, this);
}
