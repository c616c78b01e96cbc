#include "search/piezas/PanelSurtido.h"

#include "nvArticulo/Registros.h"
#include "nvArticulo/cEmpresa.h"
#include "platform/widgets/Colores.h"
#include "platform/widgets/nvCheckBox.h"
#include "search/sql/Modelo6.h"

#include <QGridLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

constexpr qint16 Obligatorio = 1;
constexpr qint16 FueraDelSurtido = 2;

} // namespace

PanelSurtido::PanelSurtido(QWidget *padre)
    : PanelDetalles(padre)
    , m_bloqueado(casilla(u"Bloqueado"_s, u"chkSurtBloqueado"_s))
    , m_bloqueadoVenta(casilla(u"Bloqueado para la venta"_s, u"chkSurtBloqueadoVta"_s))
    , m_bloqueadoGeneral(aviso(u"Bloqueado General"_s, u"lblSurtBloqGeneral"_s))
    , m_obligatorio(aviso(u"Obligatorio"_s, u"lblSurtObligatorio"_s))
{
    auto *surtido = new QGridLayout;
    surtido->setColumnStretch(1, 1);
    surtido->addWidget(m_bloqueado, 0, 0);
    surtido->addWidget(m_bloqueadoVenta, 1, 0);
    // One place for both: an item is never mandatory and outside at once.
    surtido->addWidget(m_bloqueadoGeneral, 0, 1, Qt::AlignRight);
    surtido->addWidget(m_obligatorio, 0, 1, Qt::AlignRight);
    cuerpo()->addLayout(surtido);
}

void PanelSurtido::limpiar()
{
    PanelDetalles::limpiar();
    m_bloqueado->setValue(0);
    m_bloqueadoVenta->setValue(0);
    m_bloqueadoGeneral->hide();
    m_obligatorio->hide();
}

nvCheckBox *PanelSurtido::casilla(const QString &texto, const QString &nombre)
{
    auto *nueva = new nvCheckBox(texto, this);
    nueva->setObjectName(nombre);
    nueva->setSoloLectura(true);
    nueva->setFocusPolicy(Qt::NoFocus);
    return nueva;
}

QLabel *PanelSurtido::aviso(const QString &texto, const QString &nombre)
{
    auto *nuevo = new QLabel(texto, this);
    nuevo->setObjectName(nombre);
    QFont negrita = font();
    negrita.setBold(true);
    nuevo->setFont(negrita);
    QPalette rojo;
    rojo.setColor(QPalette::WindowText, colores::legible(QColor(192, 0, 0), rojo.color(QPalette::Window)));
    nuevo->setPalette(rojo);
    nuevo->hide();
    return nuevo;
}

Sentencia PanelSurtido::consultaExistencias(qint32 articulo) const
{
    return sql::existenciasSurtido(empresa().Codigo(), empresa().ValorEntero16(u"Almacen_PD"_s), articulo);
}

void PanelSurtido::mostrarExistencias(const Registros &registros)
{
    PanelDetalles::mostrarExistencias(registros);
    const bool bloqueado = registros.booleanoO(u"Bloqueo");
    const bool conSurtido = registros.entero16(u"Cod_Surtido") > 0;
    const qint16 estado = registros.entero16(u"Obligatorio");
    const bool obligatorio = conSurtido && estado == Obligatorio;
    const bool fuera = conSurtido && estado == FueraDelSurtido;
    m_bloqueadoGeneral->setVisible(fuera);
    m_obligatorio->setVisible(obligatorio);
    m_bloqueado->setValue(obligatorio ? 2 : int{bloqueado || fuera});
    m_bloqueadoVenta->setValue(registros.booleanoO(u"BloqueoVenta"));
}

} // namespace nv
