#include "search/frmBusqueda_Articulos_8.h"

#include "common/Valores.h"
#include "common/cEmpresa.h"
#include "platform/widgets/Twips.h"
#include "platform/widgets/nvTextBox.h"
#include "search/BusquedaTextoLibre_Lectura.h"
#include "search/sql/Modelo7.h"

#include <QHBoxLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

enum Columna { Marca, CodigoArticulo, DescripcionArticulo, MarcaArticulo, Bloqueado, Stock, Ean, Pvp, Referencia };

nv::ConfiguracionTextoLibre configuracion()
{
    nv::ConfiguracionTextoLibre c;
    c.caja = u"txtDescripcion"_s;
    c.parametroReferencia = u".BuscadorM3.SoloRefPrincipal"_s;
    c.tituloAceptar = u"frmBusqueda_Articulos_8:cmdAceptar_Click"_s;
    c.eleccion = {CodigoArticulo, DescripcionArticulo};
    c.columnas = {{},
                  {u"Código"_s, 1000, Qt::AlignCenter},
                  {u"Descripción"_s, 4000},
                  {u"Marca"_s, 1500},
                  {u"Blq"_s, 400, Qt::AlignCenter},
                  {u"Stock"_s, 1000, Qt::AlignRight},
                  {u"EAN"_s, 1500, Qt::AlignCenter},
                  {u"Pvp"_s, 0, Qt::AlignRight},
                  {u"Referencia"_s, 0}};
    return c;
}

} // namespace

frmBusqueda_Articulos_8::frmBusqueda_Articulos_8(QWidget *padre)
    : BusquedaTextoLibre(padre, configuracion())
    , m_marca(nuevaCaja(u"txtMarca"_s, u"Marca"_s))
{
    rejilla()->setColumnaCasilla(Bloqueado);
    auto *etiqueta = new QLabel(u"Marca:"_s, this);
    etiqueta->setObjectName(u"lblMarca"_s);
    etiqueta->setBuddy(m_marca);
    m_marca->setFixedWidth(nv::twips::aPixeles(2700, this));
    criterios()->addWidget(etiqueta);
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

nv::BusquedaTextoLibre::Lector frmBusqueda_Articulos_8::lector(const nv::Registros &registros)
{
    const int codigo = registros.columna(u"Codigo");
    const int descripcion = registros.columna(u"Descripcion");
    const int referencia = registros.columna(u"Referencia");
    const int ean = registros.columna(u"EAN");
    const int stock = registros.columna(u"Stock");
    const int bloqueo = registros.columna(u"Bloqueo");
    const int bloqueado = registros.columna(u"Bloqueado");
    const int motivoBaja = registros.columna(u"MotivoBaja");
    const int pvp = registros.columna(u"Pvp");
    const int marca = registros.columna(u"MarcaNombre");
    const bool central = cEmpresa->ValorBooleano(u"OficinaCentral"_s);
    return [=](const nv::Registros &r) {
        namespace lectura = nv::lectura;
        const bool marcado =
            central ? lectura::entero16(r, motivoBaja) > 0 : lectura::si(r, bloqueo) || lectura::si(r, bloqueado);
        return nv::FilaRejilla{u"0"_s,
                               r.texto(codigo),
                               r.textoO(descripcion),
                               r.texto(marca),
                               marcado ? u"1"_s : u"0"_s,
                               r.textoNumero(stock),
                               r.texto(ean),
                               r.moneda(pvp).textoAgrupado(),
                               r.texto(referencia)};
    };
}
