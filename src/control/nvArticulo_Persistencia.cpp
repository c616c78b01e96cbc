#include "control/CajaCodigo.h"
#include "control/nvArticulo.h"
#include "platform/widgets/BolsaPropiedades.h"
#include "platform/widgets/Teclas.h"

#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

/// The container's ambient font.
QFont fuenteAmbiente(const QWidget *widget)
{
    return widget->parentWidget() ? widget->parentWidget()->font() : widget->font();
}

} // namespace

void nvArticulo::InitProperties()
{
    QWidget::setEnabled(true);
    DejarEnBlanco = false;
    m_keyFichaArt = nv::teclas::F4;
    m_tipoFicha = FichaArticulos;
}

void nvArticulo::ReadProperties(const nv::BolsaPropiedades &bolsa)
{
    m_caja->setEnabled(bolsa.leer(u"Enabled"_s, true).toBool());
    m_caja->setFont(bolsa.leer(u"Font"_s, fuenteAmbiente(this)).value<QFont>());
    m_nombre->setFont(bolsa.leer(u"Font"_s, fuenteAmbiente(this)).value<QFont>());
    QWidget::setFont(m_caja->font());
    m_causesValidation = bolsa.leer(u"CausesValidation"_s, true).toBool();
    m_caja->setReadOnly(bolsa.leer(u"Locked"_s, false).toBool());
    ponerCaja(bolsa.leer(u"Text"_s, QString()).toString());
    m_toolTipText = bolsa.leer(u"ToolTipText"_s, QString()).toString();
    m_caja->setToolTip(m_toolTipText.isEmpty() ? QString()
                                               : u"<span>"_s + m_toolTipText.toHtmlEscaped() + u"</span>"_s);
    m_caja->setMaxLength(21);
    m_vital = bolsa.leer(u"Vital"_s, true).toBool();
    m_inicial = bolsa.leer(u"Inicial"_s, true).toBool();
    m_keyUpChangeFocus = bolsa.leer(u"KeyUpChangeFocus"_s, true).toBool();
    m_keyEnterChangeFocus = bolsa.leer(u"KeyEnterChangeFocus"_s, true).toBool();
    DejarEnBlanco = bolsa.leer(u"DejarEnBlanco"_s, false).toBool();
    m_keyFichaArt = bolsa.leer(u"KeyFichaArt"_s, nv::teclas::F7).toInt();
    m_tipoFicha = static_cast<eFormsFichas>(bolsa.leer(u"TipoFicha"_s, 0).toInt());
    m_appearance = bolsa.leer(u"Appearance"_s, 1).toInt();
    m_caja->setFrame(m_appearance == 1);
}

void nvArticulo::WriteProperties(nv::BolsaPropiedades &bolsa) const
{
    bolsa.escribir(u"Enabled"_s, m_caja->isEnabledTo(this), true);
    bolsa.escribir(u"Font"_s, m_caja->font(), fuenteAmbiente(this));
    bolsa.escribir(u"CausesValidation"_s, m_causesValidation, true);
    bolsa.escribir(u"Locked"_s, m_caja->isReadOnly(), false);
    bolsa.escribir(u"Text"_s, m_caja->text(), QString());
    bolsa.escribir(u"ToolTipText"_s, m_toolTipText, QString());
    bolsa.escribir(u"Vital"_s, m_vital, true);
    bolsa.escribir(u"Inicial"_s, m_inicial, true);
    bolsa.escribir(u"KeyUpChangeFocus"_s, m_keyUpChangeFocus, true);
    bolsa.escribir(u"KeyEnterChangeFocus"_s, m_keyEnterChangeFocus, true);
    bolsa.escribir(u"DejarEnBlanco"_s, DejarEnBlanco, false);
    bolsa.escribir(u"KeyFichaArt"_s, m_keyFichaArt, int(nv::teclas::F7));
    bolsa.escribir(u"TipoFicha"_s, int(m_tipoFicha), 0);
    bolsa.escribir(u"Appearance"_s, m_appearance, 1);
}
