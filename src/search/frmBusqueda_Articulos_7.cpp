#include "search/frmBusqueda_Articulos_7.h"

#include "common/Registros.h"
#include "common/cEmpresa.h"
#include "platform/pickers/nvFamilia.h"
#include "platform/widgets/nvCheckBox.h"
#include "search/piezas/PanelDetalles.h"
#include "search/sql/Modelo6.h"

#include <QGridLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

constexpr qint16 Obligatorio = 1;
constexpr qint16 FueraDelSurtido = 2;

/// The details with how the item stands in the assortment of the default warehouse.
class PanelSurtido : public nv::PanelDetalles
{
public:
    explicit PanelSurtido(QWidget *padre);
    void limpiar() override;

protected:
    nv::Sentencia consultaExistencias(qint32 articulo) const override;
    void mostrarExistencias(const nv::Registros &registros) override;

private:
    nvCheckBox *casilla(const QString &texto, const QString &nombre);
    QLabel *aviso(const QString &texto, const QString &nombre);

    nvCheckBox *m_bloqueado;
    nvCheckBox *m_bloqueadoVenta;
    QLabel *m_bloqueadoGeneral;
    QLabel *m_obligatorio;
};

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
    rojo.setColor(QPalette::WindowText, QColor(192, 0, 0));
    nuevo->setPalette(rojo);
    nuevo->hide();
    return nuevo;
}

nv::Sentencia PanelSurtido::consultaExistencias(qint32 articulo) const
{
    return nv::sql::existenciasSurtido(empresa().Codigo(), empresa().ValorEntero16(u"Almacen_PD"_s), articulo);
}

void PanelSurtido::mostrarExistencias(const nv::Registros &registros)
{
    PanelDetalles::mostrarExistencias(registros);
    const auto puesto = [&registros](QStringView columna) {
        return !registros.esNulo(columna) && registros.booleano(columna);
    };
    const bool bloqueado = puesto(u"Bloqueo");
    const bool conSurtido = registros.entero16(u"Cod_Surtido") > 0;
    const qint16 estado = registros.entero16(u"Obligatorio");
    const bool obligatorio = conSurtido && estado == Obligatorio;
    const bool fuera = conSurtido && estado == FueraDelSurtido;
    m_bloqueadoGeneral->setVisible(fuera);
    m_obligatorio->setVisible(obligatorio);
    m_bloqueado->setValue(obligatorio ? 2 : int{bloqueado || fuera});
    m_bloqueadoVenta->setValue(puesto(u"BloqueoVenta"));
}

} // namespace

frmBusqueda_Articulos_7::frmBusqueda_Articulos_7(QWidget *padre)
    : frmBusqueda_Articulos_1(padre, [](QWidget *dialogo) -> nv::PanelDetalles * { return new PanelSurtido(dialogo); })
    , m_surtido(new QCheckBox(u"Sólo mostrar artículos en Surtido"_s, filtro()->parentWidget()))
{
    m_surtido->setObjectName(u"chkSurtido"_s);
    filtro()->addWidget(m_surtido, 5, 1, 1, 3);
}

nv::Sentencia frmBusqueda_Articulos_7::consulta(const nv::sql::CriteriosArticulo &criterios) const
{
    nv::Sentencia surtido;
    if (m_surtido->isChecked()) {
        std::optional<qint16> almacen;
        if (!cEmpresa->ValorBooleano(u"OficinaCentral"_s))
            almacen = cEmpresa->ValorEntero16(u"Almacen_PD"_s);
        surtido = nv::sql::condicionSurtido(cEmpresa->Codigo(), almacen);
    }
    return nv::sql::modelo6(cEmpresa->CodigoArticulos(), limite(), criterios, extendida(), surtido);
}

bool frmBusqueda_Articulos_7::focusNextPrevChild(bool siguiente)
{
    // The criteria are put in order anew with each search: the box keeps its place after the families.
    setTabOrder(findChild<QWidget *>(u"txtFamilia_3"_s), m_surtido);
    return frmBusqueda_Articulos_1::focusNextPrevChild(siguiente);
}
