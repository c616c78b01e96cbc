#include "creation/frmArticulos_Creacion.h"

#include "platform/pickers/nvFamilia.h"
#include "platform/pickers/nvProveedor.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/nvCheckBox.h"
#include "platform/widgets/nvTextBox.h"

#include <QComboBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>

using namespace Qt::StringLiterals;

// Brand and season stay for the next item; the boxes inside the pickers are the pickers' own.
void frmArticulos_Creacion::Limpiar_Controles()
{
    const QList<QWidget *> controles = findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget *control : controles) {
        if (auto *casilla = qobject_cast<nvCheckBox *>(control)) {
            if (casilla->InitValue().isValid())
                casilla->setValue(casilla->InitValue().toInt());
        } else if (auto *caja = qobject_cast<QLineEdit *>(control)) {
            caja->clear();
        } else if (auto *lista = qobject_cast<QComboBox *>(control)) {
            // A tag whose fourth character is "2" keeps what is chosen.
            if (lista->property("Tag").toString().mid(3, 1) != u"2")
                lista->setCurrentIndex(0);
        }
    }
    m_porcentaje->clear();
    m_proveedor->Limpiar();
    for (nvFamilia *familia : m_familias)
        familia->Limpiar();
    m_descripcion->clear();
    m_ticket->clear();
}

void frmArticulos_Creacion::entradaDeCodigo()
{
    m_codigo->clear();
    m_codigo->setEnabled(true);
    m_codigo->setFocus();
    m_aceptar->setEnabled(false);
    m_cancelar->setEnabled(false);
}

void frmArticulos_Creacion::cancelar()
{
    m_barrasPendientes = false;
    m_esperaRaton.stop();
    nv::mensajes::guardar(this, u"¡ Atención !"_s, [this] {
        const Suspension suspension(*this);
        if (!m_codigo->isEnabled())
            EliminarF6();
        Limpiar_Controles();
        entradaDeCodigo();
        m_cierreFallido = false;
    });
}

void frmArticulos_Creacion::cerrar()
{
    m_barrasPendientes = false;
    m_esperaRaton.stop();
    const QPointer<frmArticulos_Creacion> vivo(this);
    const bool borrado = nv::mensajes::guardar(this, u"¡ Atención !"_s, [this] {
        if (!m_codigo->isEnabled())
            EliminarF6();
    });
    // With the connection gone for good nobody must be locked in: the second time the form closes all the same.
    if (!vivo)
        return;
    if (borrado || std::exchange(m_cierreFallido, true))
        hide();
}
