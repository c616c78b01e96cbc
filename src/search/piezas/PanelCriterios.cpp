#include "search/piezas/PanelCriterios.h"

#include "common/ContratoBusqueda.h"
#include "platform/pickers/CascadaFamilias.h"
#include "platform/pickers/nvFamilia.h"
#include "platform/pickers/nvMarca.h"
#include "platform/pickers/nvProveedor.h"
#include "platform/widgets/Campos.h"
#include "platform/widgets/Foco.h"
#include "platform/widgets/Twips.h"
#include "platform/widgets/nvTextBox.h"

#include <QGridLayout>
#include <QLabel>
#include <limits>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

/// What the component remembers may be narrower than the box.
template <class Entero>
Entero recordado(qint64 codigo)
{
    return codigo > 0 && codigo <= std::numeric_limits<Entero>::max() ? static_cast<Entero>(codigo) : Entero{0};
}

} // namespace

PanelCriterios::PanelCriterios(QWidget *padre, bool conMarca)
    : QFrame(padre)
    , m_filtro(new QGridLayout(this))
    , m_nombre(new nvTextBox(this))
    , m_proveedor(new nvProveedor(this))
    , m_familias(new CascadaFamilias(this))
{
    setObjectName(u"fraFiltro"_s);
    m_nombre->setObjectName(u"txtNombre"_s);
    m_nombre->setPlaceholderText(u"Principio o *parte"_s);
    m_proveedor->setObjectName(u"txtProveedor"_s);
    m_filtro->setContentsMargins(0, 0, 0, 0);
    m_filtro->setHorizontalSpacing(twips::aPixeles(90, this));
    m_filtro->setVerticalSpacing(twips::aPixeles(45, this));
    m_filtro->setColumnStretch(1, 2);
    anadir(u"Descripción:"_s, u"lblNombre"_s, m_nombre);
    if (!conMarca)
        m_codigo = alLado(u"Código:"_s, u"txtCodigo"_s);
    anadir(u"Proveedor:"_s, u"lblProveedor"_s, m_proveedor);
    if (!conMarca) {
        m_referencia = alLado(u"Ref.:"_s, u"txtReferencia"_s);
        nombrar(m_referencia, u"Referencia"_s);
        m_filtro->setColumnStretch(3, 1);
    }
    for (std::size_t i = 0; i < 3; ++i, ++m_fila) {
        m_filtro->addWidget(m_familias->etiqueta(i), m_fila, 0);
        m_filtro->addWidget(m_familias->selector(i), m_fila, 1);
        m_campos.append(m_familias->selector(i));
    }
    if (conMarca) {
        m_marca = new nvMarca(this);
        m_marca->setObjectName(u"txtMarca"_s);
        anadir(u"Marca:"_s, u"lblMarca"_s, m_marca);
    }
    // Levels that the company does not use leave their place at the foot.
    m_filtro->setRowStretch(99, 1);
    conectarIntro();
}

void PanelCriterios::anadir(const QString &rotulo, const QString &nombreRotulo, QWidget *campo, QWidget *nota)
{
    m_filtro->addWidget(nuevoRotulo(rotulo, campo, this, nombreRotulo), m_fila, 0);
    auto *linea = new QHBoxLayout;
    linea->addWidget(campo, nota ? 0 : 1);
    if (nota)
        linea->addWidget(nota, 1);
    m_filtro->addLayout(linea, m_fila++, 1);
    m_campos.append(campo);
}

/// A box on the line of the criterion before it.
nvTextBox *PanelCriterios::alLado(const QString &texto, const QString &nombreCaja)
{
    auto *caja = new nvTextBox(this);
    caja->setObjectName(nombreCaja);
    m_filtro->addWidget(nuevoRotulo(texto, caja, this), m_fila - 1, 2);
    m_filtro->addWidget(caja, m_fila - 1, 3);
    m_campos.append(caja);
    return caja;
}

void PanelCriterios::conectarIntro()
{
    if (!m_marca) {
        buscarConIntro(m_referencia);
        connect(m_familias, &CascadaFamilias::Fin, this, &PanelCriterios::Buscar);
        return;
    }
    connect(m_proveedor, &SelectorCodigo::Intro, this, [this](bool &tratada) {
        tratada = true;
        Q_EMIT Buscar();
    });
    connect(m_familias, &CascadaFamilias::Fin, this, [this] {
        if (QWidget *actual = window()->focusWidget())
            foco::adelante(actual);
    });
}

void PanelCriterios::buscarConIntro(nvTextBox *caja)
{
    connect(caja, &nvTextBox::Intro, this, [this](bool &tratada) {
        if (!m_familias->fijas() && (m_familias->usado(0) || m_familias->usado(1) || m_familias->usado(2)))
            return;
        tratada = true;
        Q_EMIT Buscar();
    });
}

void PanelCriterios::conectar(::cEmpresa *empresa, Conexion *conexion)
{
    m_proveedor->setConexion(conexion);
    m_proveedor->setcEmpresa(empresa);
    m_familias->conectar(empresa, conexion);
    if (!m_marca)
        return;
    m_marca->setConexion(conexion);
    m_marca->setcEmpresa(empresa);
}

bool PanelCriterios::poner(const CriteriosBusqueda &recordado)
{
    m_nombre->setText(recordado.Busqueda_Descripcion);
    m_proveedor->setCodigo(std::max(recordado.Busqueda_Proveedor, 0));
    if (!m_familias->fijas())
        m_familias->poner({recordado.Busqueda_Familia_1, recordado.Busqueda_Familia_2, recordado.Busqueda_Familia_3});
    const bool comunes = !recordado.Busqueda_Descripcion.isEmpty() || recordado.Busqueda_Proveedor > 0 ||
                         recordado.Busqueda_Familia_1 > 0 || recordado.Busqueda_Familia_2 > 0 ||
                         recordado.Busqueda_Familia_3 > 0;
    if (m_marca) {
        m_marca->setCodigo(std::max(recordado.Busqueda_Marca, qint16{0}));
        return comunes || recordado.Busqueda_Marca > 0;
    }
    // "0" is what the component's "start from blank" leaves.
    m_codigo->setText(recordado.Busqueda_Codigo == u"0" ? QString() : recordado.Busqueda_Codigo);
    m_referencia->setText(recordado.Busqueda_Referencia);
    return comunes || !m_codigo->text().isEmpty() || !recordado.Busqueda_Referencia.isEmpty();
}

void PanelCriterios::cargarNombres(mensajes::Fallos &fallos)
{
    fallos.paso([this] { m_familias->Cargar(); });
    fallos.paso([this] { m_proveedor->Cargar(); });
    if (m_marca)
        fallos.paso([this] { m_marca->Cargar(); });
}

sql::CriteriosArticulo PanelCriterios::escritos() const
{
    sql::CriteriosArticulo criterios;
    criterios.descripcion = m_nombre->text();
    criterios.proveedor = m_proveedor->CodigoBuscado();
    criterios.familias = m_familias->buscados();
    if (m_marca) {
        criterios.marca = m_marca->CodigoBuscado();
    } else {
        criterios.codigo = m_codigo->text();
        criterios.referencia = m_referencia->text();
    }
    return criterios;
}

QList<nvTextBox *> PanelCriterios::patrones() const
{
    QList<nvTextBox *> cajas{m_nombre, m_codigo, m_referencia};
    cajas.removeIf(
        [](const nvTextBox *caja) { return !caja || caja->text().isEmpty() || caja->text().startsWith(u'*'); });
    return cajas;
}

bool PanelCriterios::sinAsterisco() const
{
    return !patrones().isEmpty();
}

void PanelCriterios::anteponerAsterisco()
{
    for (nvTextBox *caja : patrones())
        caja->setText(u'*' + caja->text());
}

void PanelCriterios::recordar(const sql::CriteriosArticulo &criterios, CriteriosBusqueda &memoria) const
{
    memoria.Busqueda_Descripcion = criterios.descripcion;
    memoria.Busqueda_Proveedor = recordado<qint32>(criterios.proveedor);
    memoria.Busqueda_Familia_1 = recordado<qint16>(criterios.familias[0]);
    memoria.Busqueda_Familia_2 = recordado<qint16>(criterios.familias[1]);
    memoria.Busqueda_Familia_3 = recordado<qint16>(criterios.familias[2]);
    if (m_marca) {
        memoria.Busqueda_Marca = recordado<qint16>(criterios.marca);
    } else {
        memoria.Busqueda_Codigo = criterios.codigo;
        memoria.Busqueda_Referencia = criterios.referencia;
    }
}

} // namespace nv
