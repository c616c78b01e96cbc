#include "creation/frmArticulos_Creacion.h"

#include "common/Valores.h"
#include "common/cEmpresa.h"
#include "platform/pickers/nvFamilia.h"
#include "platform/pickers/nvMarca.h"
#include "platform/pickers/nvTemporada.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/nvTextBox.h"

#include <QComboBox>
#include <QLabel>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// A parent beyond the range of the codes has no children.
qint16 padre(const nvFamilia &familia)
{
    const qint32 codigo = familia.Codigo();
    return codigo > std::numeric_limits<qint16>::max() ? qint16(-1) : static_cast<qint16>(codigo);
}

} // namespace

void frmArticulos_Creacion::Formar_Descripciones()
{
    nv::CamposDescripcion campos;
    campos.marca = m_marca->Nombre();
    campos.referencia = m_referencia->text();
    campos.temporada = m_temporada->Texto();
    for (std::size_t i = 0; i < m_familias.size(); ++i)
        campos.familias[i] = {m_familias[i]->Codigo(), m_familias[i]->Nombre()};
    m_ticket->setText(nv::componerDescripcion(m_formatoTicket, campos));
    m_descripcion->setText(nv::componerDescripcion(m_formatoLargo, campos));
}

void frmArticulos_Creacion::alEntrarFamilia(int nivel)
{
    m_familiaGuardada = m_familias[0]->Codigo();
    ponerPadres(nivel);
}

void frmArticulos_Creacion::ponerPadres(int nivel)
{
    if (nivel == 1)
        return;
    nvFamilia &familia = *m_familias[static_cast<std::size_t>(nivel - 1)];
    familia.setNivel(nivel);
    familia.setCodigoPadre1(padre(*m_familias[0]));
    if (nivel == 3)
        familia.setCodigoPadre2(padre(*m_familias[1]));
}

void frmArticulos_Creacion::alCambiarFamilia(int nivel)
{
    if (m_suspendido)
        return;
    {
        const Suspension suspension(*this);
        for (std::size_t i = static_cast<std::size_t>(nivel); i < m_familias.size(); ++i)
            m_familias[i]->Limpiar();
    }
    Formar_Descripciones();
}

void frmArticulos_Creacion::alSalirFamilia(int nivel)
{
    if (m_suspendido)
        return;
    // Whichever level is left, it is the first one that says whether the others still hold.
    if (m_familias[0]->Codigo() != m_familiaGuardada) {
        const Suspension suspension(*this);
        for (std::size_t i = static_cast<std::size_t>(nivel); i < m_familias.size(); ++i)
            m_familias[i]->Limpiar();
    }
    Formar_Descripciones();
}

void frmArticulos_Creacion::trasFamilia(int nivel)
{
    for (std::size_t i = static_cast<std::size_t>(nivel); i < m_familias.size(); ++i) {
        if (!m_familias[i]->isHidden()) {
            m_familias[i]->setFocus();
            return;
        }
    }
    m_cualidadX->setFocus();
}

/// The box's number with a decimal point.
QString frmArticulos_Creacion::textoImpuesto() const
{
    return nv::ValTexto(m_impuesto->text().replace(u',', u'.'));
}

void frmArticulos_Creacion::mostrarPorcentaje()
{
    m_porcentaje->setText(cEmpresa->PorcentajeImpuesto(nv::ValEntero16(textoImpuesto())).textoCorto() + u" %"_s);
}

/// F9 in a picker whose code was just typed, or chosen from its list: its name is part of the descriptions.
void frmArticulos_Creacion::asentarSelector()
{
    const std::array<nv::SelectorCodigo *, 4> selectores{m_marca, m_familias[0], m_familias[1], m_familias[2]};
    for (nv::SelectorCodigo *selector : selectores) {
        if (!selector->isAncestorOf(focusWidget()) || selector->Texto().isEmpty())
            continue;
        if (selector->Existe() || selector->Cargar())
            Formar_Descripciones();
    }
}
