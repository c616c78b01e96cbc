#include "search/frmBusqueda_Articulos_4.h"

#include "common/Conexion.h"
#include "common/Error.h"
#include "common/Valores.h"
#include "common/cEmpresa.h"
#include "platform/pickers/nvMarca.h"
#include "platform/pickers/nvProveedor.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/nvTextBox.h"
#include "search/piezas/CascadaFamilias.h"
#include "search/piezas/MarcasX.h"

#include <QEvent>
#include <QPointer>
#include <QPushButton>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// What the component remembers of a family or a brand is 16 bits wide; a larger number names none.
qint16 recordado(qint32 codigo)
{
    return codigo > 0 && codigo <= std::numeric_limits<qint16>::max() ? static_cast<qint16>(codigo) : qint16{0};
}

} // namespace

void frmBusqueda_Articulos_4::cargar()
{
    rejilla()->setColumnaOculta(Marca, !MultiResultado);
    m_nombre->setFocus();
    bool buscar = false;
    const QPointer<frmBusqueda_Articulos_4> vivo(this);
    // What cannot be read is said once; a fixed family holds and the dialog works whatever failed.
    const auto paso = [&](auto operacion) {
        if (vivo)
            nv::mensajes::guardar(parentWidget(), tituloBusqueda(), operacion);
    };
    paso([this] { preparar(); });
    paso([&] {
        if (Familia_1 > 0)
            m_familias->fijar({Familia_1, Familia_2, Familia_3});
    });
    paso([&] { buscar = ponerRecordados(); });
    paso([this] {
        if (AlmacenStock == 0)
            AlmacenStock = cEmpresa->ValorEntero16(u"Almacen_PD"_s);
    });
    if (!vivo)
        return;
    m_nombre->selectAll();
    if (buscar)
        Cargar();
}

void frmBusqueda_Articulos_4::preparar()
{
    nv::Conexion *conexion = nv::ranura::actual();
    for (nv::SelectorCodigo *selector :
         {static_cast<nv::SelectorCodigo *>(m_proveedor), static_cast<nv::SelectorCodigo *>(m_marca)}) {
        selector->setConexion(conexion);
        selector->setcEmpresa(cEmpresa);
    }
    m_familias->preparar(cEmpresa, conexion);
}

bool frmBusqueda_Articulos_4::ponerRecordados()
{
    m_nombre->setText(Busqueda_Descripcion);
    m_proveedor->setCodigo(std::max(Busqueda_Proveedor, 0));
    m_marca->setCodigo(std::max(Busqueda_Marca, qint16{0}));
    if (Familia_1 <= 0)
        m_familias->poner({Busqueda_Familia_1, Busqueda_Familia_2, Busqueda_Familia_3});
    m_proveedor->Cargar();
    m_marca->Cargar();
    return !Busqueda_Descripcion.isEmpty() || Busqueda_Proveedor > 0 || Busqueda_Familia_1 > 0 ||
           Busqueda_Familia_2 > 0 || Busqueda_Familia_3 > 0 || Busqueda_Marca > 0;
}

nv::sql::CriteriosModelo3 frmBusqueda_Articulos_4::criteriosEscritos() const
{
    nv::sql::CriteriosModelo3 criterios;
    criterios.descripcion = m_nombre->text();
    // A code that fits nothing must find nothing: only an empty box and a 0 ask for any supplier.
    if (nv::ValTexto(m_proveedor->Texto()) != u"0"_s)
        criterios.proveedor = m_proveedor->Codigo();
    criterios.familias = m_familias->codigos();
    criterios.marca = m_marca->Codigo();
    return criterios;
}

void frmBusqueda_Articulos_4::recordarCriterios()
{
    const nv::sql::CriteriosModelo3 criterios = criteriosEscritos();
    Busqueda_Descripcion = criterios.descripcion;
    Busqueda_Proveedor = criterios.proveedor.value_or(0);
    Busqueda_Familia_1 = recordado(criterios.familias[0]);
    Busqueda_Familia_2 = recordado(criterios.familias[1]);
    Busqueda_Familia_3 = recordado(criterios.familias[2]);
    Busqueda_Marca = recordado(criterios.marca);
}

nv::Sentencia frmBusqueda_Articulos_4::consulta()
{
    return nv::sql::modelo3(cEmpresa->CodigoArticulos(), limite(), criteriosEscritos());
}

frmBusqueda_Articulos_4::Lector frmBusqueda_Articulos_4::lector(const nv::Registros &registros) const
{
    const int codigo = registros.columna(u"Codigo");
    const int descripcion = registros.columna(u"Descripcion");
    const int barras = registros.columna(u"Cod_Barras");
    return [=](const nv::Registros &r) {
        return nv::FilaRejilla{QString(), r.texto(codigo), r.textoO(descripcion), r.textoO(barras)};
    };
}

void frmBusqueda_Articulos_4::Cargar()
{
    const bool hecha = buscar([this] {
        const nv::Sentencia sentencia = consulta();
        nv::Registros registros = nv::ranura::exigida().Abrir(sentencia);
        const Lector leer = lector(registros);
        std::vector<nv::FilaRejilla> filas;
        while (registros.siguiente())
            filas.push_back(leer(registros));
        rejilla()->setRedibujo(false);
        rejilla()->vaciar();
        rejilla()->anadir(std::move(filas));
        rejilla()->setRedibujo(true);
        recordar(sentencia);
        recordarCriterios();
    });
    if (!hecha || rejilla()->filasDatos() == 0)
        return;
    ordenarTabulacion(true);
    rejilla()->setFilaActual(1);
    rejilla()->setFocus();
}

nv::Eleccion frmBusqueda_Articulos_4::eleccion() const
{
    if (!MultiResultado)
        return BusquedaBase::eleccion();
    return nv::eleccionMarcada(*rejilla(), columnasEleccion(), Marca, nv::MarcasX::Marca);
}

nv::ColumnasEleccion frmBusqueda_Articulos_4::columnasEleccion() const
{
    return {CodigoArticulo, DescripcionArticulo};
}

QString frmBusqueda_Articulos_4::tituloAceptar() const
{
    return u"frmBusqueda_Articulos_4:cmdAceptar_Click"_s;
}

QString frmBusqueda_Articulos_4::tituloBusqueda() const
{
    return u"frmBusqueda_Articulos_4:Cargar"_s;
}

bool frmBusqueda_Articulos_4::event(QEvent *evento)
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
