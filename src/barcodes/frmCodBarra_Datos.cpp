#include "barcodes/frmCodBarra_Datos.h"

#include "common/Conexion.h"
#include "common/Error.h"
#include "common/Valores.h"
#include "control/nvArticulo.h"
#include "platform/widgets/Botonera.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/Twips.h"
#include "platform/widgets/nvTextBox.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace {

QLabel *etiqueta(const QString &texto, const QString &nombre, QWidget *campo, QWidget *padre)
{
    auto *label = new QLabel(texto, padre);
    label->setObjectName(nombre);
    campo->setAccessibleName(texto.chopped(1));
    return label;
}

} // namespace

frmCodBarra_Datos::frmCodBarra_Datos(QWidget *padre)
    : QDialog(padre)
    , m_articulo(new nvArticulo(this))
    , m_codBarras(new nvTextBox(this))
    , m_unidades(new nvTextBox(this))
{
    setWindowTitle(u"Códigos de Barras"_s);
    m_articulo->setObjectName(u"txtArticulo"_s);
    m_articulo->setMinimumWidth(nv::twips::aPixeles(6500, this));
    m_codBarras->setObjectName(u"txtCB"_s);
    m_codBarras->setMaximumWidth(nv::twips::aPixeles(2600, this));
    m_unidades->setObjectName(u"txtUnidades"_s);
    m_unidades->setNumerico(true);
    m_unidades->setConSigno(false);
    m_unidades->setMaxLength(9);
    m_unidades->setAlignment(Qt::AlignRight);
    m_unidades->setMaximumWidth(nv::twips::aPixeles(1380, this));

    auto *campos = new QFormLayout;
    campos->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    campos->addRow(etiqueta(u"Artículo:"_s, u"lblArticulo"_s, m_articulo, this), m_articulo);
    campos->addRow(etiqueta(u"C. Barra:"_s, u"lblCb"_s, m_codBarras, this), m_codBarras);
    campos->addRow(etiqueta(u"Unidades:"_s, u"lblUnidades"_s, m_unidades, this), m_unidades);
    auto *todo = new QVBoxLayout(this);
    todo->addLayout(campos);
    todo->addLayout(nv::botonera(
        this, [this] { aceptar(); }, [this] { reject(); }));
    todo->setSizeConstraint(QLayout::SetFixedSize);
    nv::atajosAceptarCancelar(
        this, [this] { aceptar(); }, [this] { reject(); });
}

void frmCodBarra_Datos::MostrarModal()
{
    m_articulo->setcEmpresa(cEmpresa);
    m_articulo->setConexion(nv::ranura::actual());
    m_articulo->setText(Articulo);
    const QPointer<frmCodBarra_Datos> vivo(this);
    if (!Articulo.isEmpty())
        m_articulo->Refrescar_Datos();
    if (!vivo)
        return;
    m_codBarras->setText(CodBarras);
    m_articulo->setFocus();
    exec();
}

void frmCodBarra_Datos::aceptar()
{
    const QString atencion = u"¡ Atención !"_s;
    if (m_codBarras->text().isEmpty() || CodBarras.isEmpty()) {
        nv::mensajes::mostrar(this, atencion, u"Debe especificar datos validos."_s, nv::mensajes::Icono::Exclamacion);
        return;
    }
    qint16 unidades = 0;
    try {
        unidades = nv::ValEntero16(m_unidades->text());
    } catch (const nv::Error &) {
        const QPointer<nvTextBox> campo(m_unidades);
        nv::mensajes::mostrar(this, atencion, u"Las unidades no pueden pasar de 32767."_s,
                              nv::mensajes::Icono::Exclamacion);
        if (campo)
            campo->setFocus();
        return;
    }
    CodBarras = m_codBarras->text();
    Articulo = m_articulo->Text();
    Unidades = unidades < 1 ? qint16(1) : unidades;
    Aceptado = true;
    hide();
}

void frmCodBarra_Datos::reject()
{
    Aceptado = false;
    QDialog::reject();
}
