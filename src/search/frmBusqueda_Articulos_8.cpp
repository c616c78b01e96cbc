#include "search/frmBusqueda_Articulos_8.h"

#include "common/Valores.h"
#include "nvArticulo/Registros.h"
#include "nvArticulo/cEmpresa.h"
#include "platform/widgets/Campos.h"
#include "platform/widgets/Twips.h"
#include "platform/widgets/nvTextBox.h"
#include "search/sql/Modelo7.h"

#include <QHBoxLayout>
#include <QLabel>

using namespace Qt::StringLiterals;
using nv::Celda;

namespace {

enum Columna { Marcada, CodigoArticulo, DescripcionArticulo, MarcaArticulo, Bloqueado, Stock, Ean, Pvp, Referencia };

constexpr nv::ColumnaBusqueda Columnas[] = {
    {{}, {}, Celda::Seleccion},
    {{u"Código", 1000, Qt::AlignCenter}, u"Codigo"},
    {{u"Descripción", 4000}, u"Descripcion"},
    {{u"Marca", 1500}, u"MarcaNombre"},
    {{u"Blq", 400, Qt::AlignCenter}, {}, Celda::Propia},
    {{u"Stock", 1000, Qt::AlignRight}, u"Stock", Celda::Numero},
    {{u"EAN", 1500, Qt::AlignCenter}, u"EAN"},
    {{u"Pvp", 0, Qt::AlignRight}, u"Pvp", Celda::Agrupado},
    {{u"Referencia"}, u"Referencia"},
};

} // namespace

frmBusqueda_Articulos_8::frmBusqueda_Articulos_8(QWidget *padre)
    : BusquedaTextoLibre(padre, {u"frmBusqueda_Articulos_8"_s, u"txtDescripcion"_s, Columnas})
    , m_marca(nuevaCaja(u"txtMarca"_s, u"Marca"_s))
{
    rejilla()->setColumnaCasilla(Bloqueado);
    m_marca->setFixedWidth(nv::twips::aPixeles(2700, this));
    criterios()->addWidget(nv::nuevoRotulo(u"Marca:"_s, m_marca, this, u"lblMarca"_s));
    criterios()->addWidget(m_marca);
    buscarConIntro(m_marca);
}

void frmBusqueda_Articulos_8::mostrarRecordados()
{
    BusquedaTextoLibre::mostrarRecordados();
    m_marca->setText(Busqueda_MarcaNombre);
}

void frmBusqueda_Articulos_8::recordarEscritos()
{
    BusquedaTextoLibre::recordarEscritos();
    Busqueda_MarcaNombre = m_marca->text();
}

bool frmBusqueda_Articulos_8::hayCriterios() const
{
    return hayTexto() || !nv::recortado(m_marca->text()).isEmpty();
}

nv::Sentencia frmBusqueda_Articulos_8::consulta(const QString &texto) const
{
    return nv::sql::modelo7(entorno(), texto, Busqueda_MarcaNombre);
}

nv::CeldasPropias frmBusqueda_Articulos_8::celdasPropias(const nv::Registros &registros)
{
    const int bloqueo = registros.columna(u"Bloqueo");
    const int bloqueado = registros.columna(u"Bloqueado");
    const int motivoBaja = registros.columna(u"MotivoBaja");
    const bool central = cEmpresa->ValorBooleano(u"OficinaCentral"_s);
    return [=](const nv::Registros &r, nv::FilaRejilla &fila) {
        const bool marcado = central ? r.entero16O(motivoBaja) > 0 : r.booleanoO(bloqueo) || r.booleanoO(bloqueado);
        fila[Bloqueado] = marcado ? u"1"_s : u"0"_s;
    };
}
