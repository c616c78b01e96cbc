#include "dialogs/frmReferencias_Modificar.h"

#include "common/Largos.h"
#include "common/Valores.h"
#include "dialogs/ComprobadorSencillo.h"
#include "nvArticulo/Conexion.h"
#include "nvArticulo/Error.h"
#include "nvArticulo/cEmpresa.h"
#include "nvArticulo/nvArticulo.h"
#include "platform/pickers/nvProveedor.h"
#include "platform/widgets/Campos.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/Twips.h"
#include "platform/widgets/nvTextBox.h"

#include <QFormLayout>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

using namespace Qt::StringLiterals;
using nv::mensajes::Icono;
using nv::mensajes::Respuesta;

frmReferencias_Modificar::frmReferencias_Modificar(QWidget *padre)
    : FormularioModal(padre)
    , m_articulo(new nvArticulo(this))
    , m_proveedor(new nvProveedor(this))
    , m_referencia(new nvTextBox(this))
{
    setWindowTitle(u"Referencias"_s);
    m_articulo->setObjectName(u"txtArticulo"_s);
    m_articulo->setMinimumWidth(std::min(nv::twips::conLetra(6500, this), screen()->availableSize().width() * 3 / 5));
    m_proveedor->setObjectName(u"txtProv"_s);
    m_referencia->setObjectName(u"txtReferencia"_s);
    m_referencia->setMaxLength(nv::largos::Referencia);
    m_referencia->setMaximumWidth(nv::twips::conLetra(3500, this));

    auto *campos = new QFormLayout;
    campos->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    campos->addRow(nv::nuevoRotulo(u"Artículo:"_s, m_articulo, this), m_articulo);
    campos->addRow(nv::nuevoRotulo(u"Proveedor:"_s, m_proveedor, this), m_proveedor);
    campos->addRow(nv::nuevoRotulo(u"Referencia:"_s, m_referencia, this), m_referencia);
    auto *todo = new QVBoxLayout(this);
    todo->addLayout(campos);
    todo->addLayout(botonera());
    todo->setSizeConstraint(QLayout::SetFixedSize);
    connect(m_articulo, &nvArticulo::Change, m_articulo, &nvArticulo::OlvidarNombre);
    atajosAceptarCancelar();
}

void frmReferencias_Modificar::MostrarModal()
{
    const QPointer<frmReferencias_Modificar> vivo(this);
    m_proveedor->setConexion(nv::ranura::actual());
    m_proveedor->setcEmpresa(cEmpresa);
    if (Proveedor != 0) {
        m_proveedor->setCodigo(Proveedor);
        nv::mensajes::guardar(parentWidget(), nv::mensajes::atencion(), [this] { m_proveedor->Cargar(); });
        if (!vivo)
            return;
    }
    m_referencia->setText(Referencia);
    m_articulo->setcEmpresa(cEmpresa);
    m_articulo->setParametros(Parametros);
    m_articulo->setComprobador(Comprobador);
    m_articulo->setConexion(nv::ranura::actual());
    if (nv::Val(Articulo) != 0) {
        m_articulo->setText(Articulo);
        m_articulo->Refrescar_Datos();
        if (!vivo)
            return;
    }
    m_articulo->setFocus();
    ejecutar();
}

bool frmReferencias_Modificar::Validar_Datos()
{
    bool valido = false;
    nv::mensajes::guardar(this, nv::mensajes::atencion(), [&] { valido = validar(); });
    return valido;
}

bool frmReferencias_Modificar::validar()
{
    const QPointer<frmReferencias_Modificar> vivo(this);
    Falta falta = campoQueFalta();
    if (falta.mensaje.isEmpty() && !m_proveedor->Cargar())
        falta = {u"El proveedor especificado no existe."_s, m_proveedor};
    if (falta.mensaje.isEmpty()) {
        const auto articulo = m_articulo->Confirmar();
        if (!vivo || articulo == nvArticulo::eConfirmacion::Fallo)
            return false;
        // Read again: it may be gone since it was confirmed.
        if (articulo == nvArticulo::eConfirmacion::NoExiste || !m_articulo->Refrescar_Datos())
            falta = {u"El artículo especificado no existe."_s, vivo ? m_articulo : nullptr};
    }
    if (!vivo)
        return false;
    if (!admiteDuplicada()) {
        if (vivo)
            m_referencia->setFocus();
        return false;
    }
    if (falta.mensaje.isEmpty())
        return true;
    nv::mensajes::mostrar(this, nv::mensajes::atencion(), falta.mensaje, Icono::Exclamacion);
    if (falta.campo)
        falta.campo->setFocus();
    return false;
}

/// The last field that is missing is the one that is named.
frmReferencias_Modificar::Falta frmReferencias_Modificar::campoQueFalta()
{
    Falta falta;
    if (nv::recortado(m_referencia->text()).isEmpty())
        falta = {u"Debe especificar la referencia del artículo"_s, m_referencia};
    if (m_articulo->Text().isEmpty())
        falta = {u"Debe especificar el código del artículo"_s, m_articulo};
    if (m_proveedor->CodigoBuscado() == 0)
        falta = {u"Debe especificar el proveedor del artículo"_s, m_proveedor};
    return falta;
}

/// The company's rule on duplicate references. False when it forbids this one or the user steps back.
bool frmReferencias_Modificar::admiteDuplicada()
{
    const qint32 proveedor = m_proveedor->Codigo();
    const QString referencia = m_referencia->text();
    if (proveedor <= 0 || referencia.isEmpty())
        return true;
    nv::ComprobadorSencillo sencillo;
    nv::ComprobadorReferencias &regla = Comprobador ? *Comprobador : sencillo;
    const qint32 articulo = nv::nombrado(u"Artículo", [this] { return nv::ValEntero32(m_articulo->Codigo()); });
    const auto similar = regla.buscar(nv::ranura::exigida(), *cEmpresa, articulo, proveedor, referencia);
    if (!similar)
        return true;
    const auto texto = [&](const QString &cierre) {
        return u"Se ha encontrado una referencia de proveedor similar en:\r\n\r\n"_s + u"Artículo: "_s +
               QString::number(similar->articulo) + u" - "_s + similar->nombreArticulo + u"\r\n"_s + u"Proveedor: "_s +
               QString::number(similar->proveedor) + u" - "_s + similar->nombreProveedor + u"\r\n"_s +
               u"Referencia: "_s + referencia + u"\r\n\r\n"_s + cierre;
    };
    switch (cEmpresa->ValorEntero32(u"Articulos_CheckRefProv"_s)) {
    case 1:
    case 3:
        return nv::mensajes::preguntar(this, u"Confirmar operación..."_s, texto(u"¿Desea continuar?"_s),
                                       Respuesta::No) == Respuesta::Si;
    case 2:
    case 4:
        nv::mensajes::mostrar(this, nv::mensajes::atencion(),
                              texto(u"NO SE PERMITE DUPLICAR UNA REFERENCIA DE PROVEEDOR."_s), Icono::Exclamacion);
        return false;
    default:
        return true;
    }
}

void frmReferencias_Modificar::aceptar()
{
    if (!Validar_Datos())
        return;
    Proveedor = m_proveedor->Codigo();
    Referencia = m_referencia->text();
    Articulo = m_articulo->Value();
    const QPointer<frmReferencias_Modificar> vivo(this);
    const bool hecho = !AlAceptar || AlAceptar(*this);
    if (!vivo)
        return;
    Aceptado = hecho;
    if (hecho)
        hide();
    else
        m_referencia->setFocus();
}
