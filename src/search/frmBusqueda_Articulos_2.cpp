#include "search/frmBusqueda_Articulos_2.h"

#include "common/Conexion.h"
#include "common/Error.h"
#include "common/Valores.h"
#include "common/cEmpresa.h"
#include "common/clsConfig.h"
#include "dialogs/frmAlternativos_Eleccion.h"
#include "platform/pickers/nvAlmacenCons.h"
#include "platform/pickers/nvProveedor.h"
#include "platform/widgets/DialogoPropio.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/Rejilla.h"
#include "platform/widgets/nvTextBox.h"
#include "search/frmBusqueda_Articulos_2_Listado.h"
#include "search/piezas/CascadaFamilias.h"
#include "search/piezas/FranjaMensaje.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QEvent>
#include <QLabel>
#include <QScreen>
#include <QTabWidget>
#include <limits>

using namespace Qt::StringLiterals;
using nv::ListadoPrecios;
using nv::mensajes::guardar;

namespace {

/// What the component remembers of a family is 16 bits wide; a larger number names none.
qint16 recordado(qint32 codigo)
{
    return codigo > 0 && codigo <= std::numeric_limits<qint16>::max() ? static_cast<qint16>(codigo) : qint16{0};
}

} // namespace

void frmBusqueda_Articulos_2::cargar()
{
    const QRect pantalla = screen()->availableGeometry();
    move(pantalla.center() - rect().center());
    rejilla()->setColumnaOculta(ListadoPrecios::Marca, !MultiResultado);
    m_todos->setVisible(MultiResultado);
    m_todos->setChecked(SeleccionarTodo);
    colocar();
    m_nombre->setFocus();
    bool buscar = false;
    const bool cargado = guardar(parentWidget(), tituloBusqueda(), [&] {
        if (AlmacenStock == 0)
            AlmacenStock = cEmpresa->ValorEntero16(u"Almacen_PD"_s);
        m_usados = {AlmacenStock};
        prepararSelectores();
        NVUTConfig::clsConfig parametros;
        parametros.setcEmpresa(cEmpresa);
        const QString clave = QString::fromUtf16(NVUTConfig::Biblioteca) + u".BuscadorM2.MaxCargaFilas"_s;
        m_listado->setMaximo(nv::sql::limiteFilas(parametros.GetParametro_App(clave, 0).toString()));
        leerTarifas();
        prepararAlternativo();
        buscar = ponerRecordados();
        m_almacenes->Cargar();
    });
    titularStock();
    m_nombre->selectAll();
    if (cargado && buscar)
        EjecutarBusqueda();
}

void frmBusqueda_Articulos_2::prepararSelectores()
{
    nv::Conexion *conexion = nv::ranura::actual();
    m_proveedor->setConexion(conexion);
    m_proveedor->setcEmpresa(cEmpresa);
    m_familias->preparar(cEmpresa, conexion);
    m_almacenes->setConexion(conexion);
    m_almacenes->setcEmpresa(cEmpresa);
    m_almacenes->setUsuario(cEmpresa->Valor(u"UsuarioActual"_s));
}

void frmBusqueda_Articulos_2::leerTarifas()
{
    nv::Registros registros = nv::ranura::exigida().Abrir(
        nv::sql::tarifasDeAlmacen(cEmpresa->Codigo(), cEmpresa->ValorEntero16(u"Almacen_PD"_s)));
    ListadoPrecios::Tarifas tarifas;
    for (ListadoPrecios::Tarifa &tarifa : tarifas) {
        if (!registros.siguiente())
            break;
        tarifa.codigo = registros.entero16(u"Cod_Tarifa");
        const int decimales = registros.columna(u"Decimales");
        if (!registros.esNulo(decimales))
            tarifa.decimales = registros.entero16(decimales);
    }
    m_listado->setTarifas(tarifas);
}

void frmBusqueda_Articulos_2::prepararAlternativo()
{
    m_conLista = nv::ranura::exigida().Abrir(nv::sql::hayAlternativos()).siguiente();
    const QString nombre = cEmpresa->NombreAlternativo1();
    if (!nombre.isEmpty()) {
        m_rotuloAlternativo->setText(nombre + u':');
        m_alternativo->setAccessibleName(nombre);
    }
    m_alternativo->setReadOnly(m_conLista);
    m_alternativo->setPlaceholderText(m_conLista ? u"F3 - Elegir valores"_s : QString());
    // A company that neither names the field nor gives it values does not use it.
    const bool usado = m_conLista || !nombre.isEmpty();
    m_rotuloAlternativo->setVisible(usado);
    m_alternativo->setVisible(usado);
}

bool frmBusqueda_Articulos_2::ponerRecordados()
{
    m_nombre->setText(Busqueda_Descripcion);
    // "0" is what the component's "start from blank" leaves.
    m_codigo->setText(Busqueda_Codigo == u"0" ? QString() : Busqueda_Codigo);
    m_referencia->setText(Busqueda_Referencia);
    m_proveedor->setCodigo(std::max(Busqueda_Proveedor, 0));
    if (Familia_1 > 0)
        m_familias->fijar({Familia_1, Familia_2, Familia_3});
    else
        m_familias->poner({Busqueda_Familia_1, Busqueda_Familia_2, Busqueda_Familia_3});
    m_proveedor->Cargar();
    return !m_nombre->text().isEmpty() || !m_codigo->text().isEmpty() || !m_referencia->text().isEmpty() ||
           Busqueda_Proveedor > 0 || Busqueda_Familia_1 > 0 || Busqueda_Familia_2 > 0 || Busqueda_Familia_3 > 0;
}

nv::sql::CriteriosModelo1 frmBusqueda_Articulos_2::criteriosEscritos() const
{
    nv::sql::CriteriosModelo1 criterios;
    criterios.descripcion = m_nombre->text();
    criterios.codigo = m_codigo->text();
    // A code that fits nothing must find nothing: only an empty box and a 0 ask for any supplier.
    if (nv::ValTexto(m_proveedor->Texto()) != u"0"_s)
        criterios.proveedor = m_proveedor->Codigo();
    criterios.referencia = m_referencia->text();
    criterios.familias = m_familias->codigos();
    const QString alternativo = m_alternativo->text();
    if (!m_conLista)
        criterios.alternativo = alternativo;
    else if (!alternativo.isEmpty())
        for (const QString &id : m_idsAlternativo.split(u',', Qt::SkipEmptyParts))
            criterios.alternativos.push_back(nv::ValEntero32(id));
    return criterios;
}

void frmBusqueda_Articulos_2::recordarCriterios(const nv::sql::CriteriosModelo1 &criterios)
{
    Busqueda_Descripcion = criterios.descripcion;
    Busqueda_Codigo = criterios.codigo;
    Busqueda_Proveedor = criterios.proveedor.value_or(0);
    Busqueda_Referencia = criterios.referencia;
    Busqueda_Familia_1 = recordado(criterios.familias[0]);
    Busqueda_Familia_2 = recordado(criterios.familias[1]);
    Busqueda_Familia_3 = recordado(criterios.familias[2]);
}

std::vector<qint16> frmBusqueda_Articulos_2::almacenes() const
{
    const std::vector<qint16> elegidos = m_almacenes->Almacenes();
    return elegidos.empty() ? std::vector<qint16>{AlmacenStock} : elegidos;
}

void frmBusqueda_Articulos_2::titularStock()
{
    rejilla()->setTitulo(ListadoPrecios::Stock,
                         m_usados.size() == 1 ? u"Stock Alm "_s + QString::number(m_usados.front()) : u"Stock"_s);
}

void frmBusqueda_Articulos_2::EjecutarBusqueda()
{
    const bool hecha = buscar([this] {
        const nv::FranjaMensaje::Aviso aviso(*m_franja);
        const nv::sql::CriteriosModelo1 criterios = criteriosEscritos();
        const std::vector<qint16> usados = almacenes();
        const ListadoPrecios::Tarifas &tarifas = m_listado->tarifas();
        const nv::Sentencia sentencia =
            nv::sql::modelo1(cEmpresa->Codigo(), cEmpresa->CodigoArticulos(), limite(),
                             {tarifas[0].codigo, tarifas[1].codigo, tarifas[2].codigo}, usados, criterios);
        // One that is refused unsent leaves also the rows still to come.
        if (sentencia.defecto().isEmpty())
            m_listado->cerrarResultado();
        m_listado->mostrar(nv::ranura::exigida().Abrir(sentencia));
        m_usados = usados;
        m_ultima = sentencia;
        recordar(sentencia);
        recordarCriterios(criterios);
        titularStock();
    });
    if (!hecha || rejilla()->filasDatos() == 0)
        return;
    ordenarTabulacion(true);
    rejilla()->setFilaActual(1);
    rejilla()->setFocus();
}

/// What the list shows must be the stock of the warehouses on screen.
void frmBusqueda_Articulos_2::alCambiarPestana()
{
    const QWidget *anterior = m_pestanas->widget(std::exchange(m_pestana, m_pestanas->currentIndex()));
    if (!anterior->isAncestorOf(m_almacenes) || rejilla()->filasDatos() == 0 || almacenes() == m_usados)
        return;
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    EjecutarBusqueda();
}

void frmBusqueda_Articulos_2::elegirAlternativos()
{
    const nv::DialogoPropio<frmAlternativos_Eleccion> lista(new frmAlternativos_Eleccion(this));
    lista->cEmpresa = cEmpresa;
    lista->Conexion = nv::ranura::actual();
    lista->Ids = m_idsAlternativo;
    lista->MostrarModal();
    if (lista.vivo() && lista->Aceptado)
        ponerAlternativos(lista->Ids, lista->Valores);
}

void frmBusqueda_Articulos_2::ponerAlternativos(const QString &ids, const QString &textos)
{
    m_idsAlternativo = ids;
    m_alternativo->setText(textos);
}

nv::Eleccion frmBusqueda_Articulos_2::eleccion() const
{
    nv::Eleccion marcados;
    if (MultiResultado)
        marcados = nv::eleccionMarcada(*rejilla(), columnasEleccion(), ListadoPrecios::Marca, ListadoPrecios::Marcada);
    return marcados.codigo.isEmpty() ? BusquedaBase::eleccion() : marcados;
}

nv::ColumnasEleccion frmBusqueda_Articulos_2::columnasEleccion() const
{
    return {ListadoPrecios::Codigo, ListadoPrecios::Descripcion};
}

nv::Fragmento frmBusqueda_Articulos_2::listaCopia() const
{
    return u", a.Codigo, MIN(a.Descripcion) AS Descripcion ";
}

bool frmBusqueda_Articulos_2::event(QEvent *evento)
{
    if (evento->type() == QEvent::WindowActivate) {
        try {
            m_familias->recargarFijas();
        } catch (const nv::Error &) {
            // Not shown: the box would activate this dialog again as it closes, without end.
        }
    }
    return BusquedaBase::event(evento);
}
