#include "creation/frmArticulos_Creacion.h"

#include "platform/pickers/nvFamilia.h"
#include "platform/pickers/nvMarca.h"
#include "platform/pickers/nvProveedor.h"
#include "platform/pickers/nvTemporada.h"
#include "platform/widgets/Twips.h"
#include "platform/widgets/nvCheckBox.h"
#include "platform/widgets/nvTextBox.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;
using nv::twips::aPixeles;

namespace {

// In twips.
constexpr int AnchoCodigo = 1700;
constexpr int AnchoImpuesto = 900; // as the box of a picker
constexpr int AnchoReferencia = 3000;
constexpr int AnchoLista = 2600;
constexpr int AnchoDescripcion = 7600;

template <class Control>
Control *nuevo(QWidget *padre, const QString &nombre, const QString &accesible)
{
    auto *control = new Control(padre);
    control->setObjectName(nombre);
    control->setAccessibleName(accesible);
    return control;
}

QLabel *rotulo(QWidget *padre, const QString &nombre, const QString &texto)
{
    auto *etiqueta = new QLabel(texto, padre);
    etiqueta->setObjectName(nombre);
    etiqueta->setTextFormat(Qt::PlainText);
    etiqueta->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return etiqueta;
}

nvCheckBox *casilla(QWidget *padre, const QString &nombre, const QString &texto)
{
    auto *control = new nvCheckBox(texto, padre);
    control->setObjectName(nombre);
    control->setInitValue(0);
    return control;
}

QPushButton *boton(QWidget *padre, const QString &nombre, const QString &texto)
{
    auto *control = new QPushButton(texto, padre);
    control->setObjectName(nombre);
    control->setAutoDefault(false);
    return control;
}

QHBoxLayout *enFila(std::initializer_list<QWidget *> widgets)
{
    auto *fila = new QHBoxLayout;
    for (QWidget *widget : widgets)
        fila->addWidget(widget);
    fila->addStretch();
    return fila;
}

} // namespace

void frmArticulos_Creacion::crearCampos()
{
    m_codigo = nuevo<nvTextBox>(this, u"txtCodigo"_s, u"Código"_s);
    m_ayudaCodigo = rotulo(this, u"lblAyudaCodigo"_s, u"F6 - Asigna código automático"_s);
    m_proveedor = nuevo<nvProveedor>(this, u"txtProv"_s, u"Proveedor"_s);
    m_referencia = nuevo<nvTextBox>(this, u"txtRef"_s, u"Referencia"_s);
    m_marca = nuevo<nvMarca>(this, u"txtMarca"_s, u"Marca"_s);
    m_temporada = nuevo<nvTemporada>(this, u"txtTemporada"_s, u"Temporada"_s);
    m_impuesto = nuevo<nvTextBox>(this, u"txtImpuesto"_s, u"Igic"_s);
    m_impuesto->setNumerico(true);
    m_impuesto->setConSigno(false);
    m_impuesto->setDecimales(2);
    m_porcentaje = rotulo(this, u"lblPIgic"_s, {});
    const std::array familias{u"Familia:"_s, u"SubFamilia:"_s, u"Linea:"_s};
    for (std::size_t i = 0; i < familias.size(); ++i) {
        const QString nivel = QString::number(i + 1);
        m_rotulosFamilia[i] = rotulo(this, u"lblTFamilia_"_s + nivel, familias[i]);
        m_familias[i] = nuevo<nvFamilia>(this, u"txtFamilia_"_s + nivel, familias[i].chopped(1));
        m_rotulosFamilia[i]->hide();
        m_familias[i]->hide();
    }
    m_rotulosCualidad = {rotulo(this, u"lblCualidades_1"_s, u"Talla:"_s),
                         rotulo(this, u"lblCualidades_2"_s, u"Color:"_s)};
    m_cualidadX = nuevo<QComboBox>(this, u"cboCualX"_s, u"Talla"_s);
    m_cualidadY = nuevo<QComboBox>(this, u"cboCualY"_s, u"Color"_s);
    m_sinSerieEan = casilla(this, u"chkNoGenerarSerieEAN"_s, u"No generar serie EAN"_s);
    m_unidadesDecimales = casilla(this, u"chkUnidadesDecimales"_s, u"Unidades decimales"_s);
    m_barras = nuevo<nvTextBox>(this, u"txtCodBarras"_s, u"Código de barras"_s);
    m_descripcion = nuevo<nvTextBox>(this, u"txtDescripcion"_s, u"Descripción"_s);
    m_ticket = nuevo<nvTextBox>(this, u"txtDesc_Ticket"_s, u"Descripción para el ticket"_s);
    m_aceptar = boton(this, u"cmdAceptar"_s, u"F9 - &Aceptar"_s);
    m_cancelar = boton(this, u"cmdCancelar"_s, u"F12 - &Cancelar"_s);
    m_cerrar = boton(this, u"cmdCerrar"_s, u"&Salir"_s);
}

// Everything stands directly on the form, which looks through its own children when it empties the fields. The order
// of making is the tab order: what the descriptions are composed from comes before them.
void frmArticulos_Creacion::colocarCampos()
{
    m_codigo->setFixedWidth(aPixeles(AnchoCodigo, this));
    m_impuesto->setMaxLength(5);
    m_impuesto->setFixedWidth(aPixeles(AnchoImpuesto, this));
    m_porcentaje->setMinimumWidth(aPixeles(AnchoImpuesto, this));
    m_porcentaje->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_referencia->setFixedWidth(aPixeles(AnchoReferencia, this));
    m_barras->setFixedWidth(aPixeles(AnchoReferencia, this));
    m_descripcion->setMinimumWidth(aPixeles(AnchoDescripcion, this));
    for (QComboBox *lista : {m_cualidadX, m_cualidadY}) {
        lista->setFixedWidth(aPixeles(AnchoLista, this));
        lista->setFocusPolicy(Qt::StrongFocus);
    }
    m_ayudaCodigo->setForegroundRole(QPalette::PlaceholderText);

    auto *rejilla = new QGridLayout(this);
    rejilla->setColumnStretch(1, 1);
    int linea = 0;
    const auto conRotulo = [&](QLabel *etiqueta, auto *campo) {
        rejilla->addWidget(etiqueta, linea, 0);
        if constexpr (std::is_base_of_v<QLayout, std::remove_pointer_t<decltype(campo)>>)
            rejilla->addLayout(campo, linea++, 1);
        else
            rejilla->addWidget(campo, linea++, 1);
    };
    const auto con = [&](const QString &texto, auto *campo) { conRotulo(rotulo(this, {}, texto), campo); };
    con(u"Código:"_s, enFila({m_codigo, m_ayudaCodigo}));
    con(u"Proveedor:"_s, m_proveedor);
    con(u"Referencia:"_s, enFila({m_referencia}));
    con(u"Marca:"_s, m_marca);
    con(u"Temporada:"_s, m_temporada);
    con(u"Igic:"_s, enFila({m_impuesto, m_porcentaje}));
    for (std::size_t i = 0; i < m_familias.size(); ++i)
        conRotulo(m_rotulosFamilia[i], m_familias[i]);
    auto *cualidades = enFila({m_cualidadX, m_rotulosCualidad[1], m_cualidadY});
    cualidades->insertSpacing(1, aPixeles(180, this));
    conRotulo(m_rotulosCualidad[0], cualidades);
    auto *casillas = enFila({m_sinSerieEan, m_unidadesDecimales});
    casillas->insertSpacing(1, aPixeles(240, this));
    rejilla->addLayout(casillas, linea++, 1);
    con(u"C. Barras:"_s, enFila({m_barras}));
    con(u"Descripción:"_s, m_descripcion);
    con(u"D. Ticket:"_s, m_ticket);
    auto *botones = new QHBoxLayout;
    botones->addStretch();
    for (QPushButton *b : {m_aceptar, m_cancelar, m_cerrar})
        botones->addWidget(b);
    rejilla->setRowMinimumHeight(linea++, aPixeles(90, this));
    rejilla->addLayout(botones, linea, 0, 1, 2);
    rejilla->setSizeConstraint(QLayout::SetFixedSize);
}
