#include "barcodes/frmCodBarra_Datos.h"

#include "common/Largos.h"
#include "common/Valores.h"
#include "nvArticulo/Conexion.h"
#include "nvArticulo/Error.h"
#include "nvArticulo/nvArticulo.h"
#include "platform/widgets/Aviso.h"
#include "platform/widgets/Campos.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/Twips.h"
#include "platform/widgets/nvTextBox.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QScreen>
#include <algorithm>

using namespace Qt::StringLiterals;

frmCodBarra_Datos::frmCodBarra_Datos(QWidget *padre)
    : FormularioModal(padre)
    , m_articulo(new nvArticulo(this))
    , m_codBarras(new nvTextBox(this))
    , m_unidades(new nvTextBox(this))
{
    setWindowTitle(u"Códigos de Barras"_s);
    m_articulo->setObjectName(u"txtArticulo"_s);
    m_articulo->setMinimumWidth(std::min(nv::twips::conLetra(6500, this), screen()->availableSize().width() * 3 / 5));
    m_codBarras->setObjectName(u"txtCB"_s);
    m_codBarras->setMaxLength(nv::largos::CodigoBarras);
    m_codBarras->setMaximumWidth(nv::twips::conLetra(2600, this));
    m_unidades->setObjectName(u"txtUnidades"_s);
    m_unidades->setNumerico(true);
    m_unidades->setConSigno(false);
    m_unidades->setMaxLength(nv::largos::Entero16);
    m_unidades->setAlignment(Qt::AlignRight);
    m_unidades->setMaximumWidth(nv::twips::conLetra(1380, this));

    auto *campos = new QFormLayout;
    campos->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    campos->addRow(nv::nuevoRotulo(u"Artículo:"_s, m_articulo, this, u"lblArticulo"_s), m_articulo);
    campos->addRow(nv::nuevoRotulo(u"C. Barra:"_s, m_codBarras, this, u"lblCb"_s), m_codBarras);
    campos->addRow(nv::nuevoRotulo(u"Unidades:"_s, m_unidades, this, u"lblUnidades"_s), m_unidades);
    auto *todo = new QVBoxLayout(this);
    todo->addLayout(campos);
    todo->addLayout(botonera());
    todo->setSizeConstraint(QLayout::SetFixedSize);
    connect(m_articulo, &nvArticulo::Change, m_articulo, &nvArticulo::OlvidarNombre);
    atajosAceptarCancelar();
}

void frmCodBarra_Datos::MostrarModal()
{
    m_articulo->setcEmpresa(cEmpresa);
    m_articulo->setParametros(Parametros);
    m_articulo->setComprobador(Comprobador);
    m_articulo->setConexion(nv::ranura::actual());
    m_articulo->setText(Articulo);
    const QPointer<frmCodBarra_Datos> vivo(this);
    if (!Articulo.isEmpty())
        m_articulo->Refrescar_Datos();
    if (!vivo)
        return;
    m_codBarras->setText(CodBarras);
    m_articulo->setFocus();
    ejecutar();
}

void frmCodBarra_Datos::aceptar()
{
    if (m_codBarras->text().isEmpty() || CodBarras.isEmpty()) {
        nv::mensajes::mostrar(this, nv::mensajes::atencion(), u"Debe especificar datos validos."_s,
                              nv::mensajes::Icono::Exclamacion);
        return;
    }
    qint16 unidades = 0;
    try {
        unidades = nv::ValEntero16(m_unidades->text());
    } catch (const nv::Error &) {
        const QPointer<nvTextBox> campo(m_unidades);
        nv::mensajes::mostrar(this, nv::mensajes::atencion(), u"Las unidades no pueden pasar de 32767."_s,
                              nv::mensajes::Icono::Exclamacion);
        if (campo)
            campo->setFocus();
        return;
    }
    const QPointer<frmCodBarra_Datos> vivo(this);
    const nvArticulo::eConfirmacion articulo = m_articulo->Confirmar();
    if (!vivo || articulo == nvArticulo::eConfirmacion::Fallo)
        return;
    if (articulo == nvArticulo::eConfirmacion::NoExiste) {
        m_articulo->setFocus();
        nv::Aviso::mostrar(m_articulo,
                           m_articulo->Text().isEmpty() ? u"Falta el artículo"_s : u"Ese artículo no existe"_s);
        return;
    }
    const QString pedido = std::exchange(CodBarras, m_codBarras->text());
    Articulo = m_articulo->Text();
    Unidades = unidades < 1 ? qint16(1) : unidades;
    const bool hecho = !AlAceptar || AlAceptar(*this);
    if (!vivo)
        return;
    Aceptado = hecho;
    if (hecho) {
        hide();
    } else {
        CodBarras = pedido;
        m_codBarras->setFocus();
    }
}
