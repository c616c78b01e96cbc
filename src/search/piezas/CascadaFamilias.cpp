#include "search/piezas/CascadaFamilias.h"

#include "common/cEmpresa.h"
#include "platform/pickers/nvFamilia.h"
#include "platform/widgets/nvTextBox.h"

#include <QLabel>
#include <limits>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

/// A code that no family can have is no parent.
qint16 comoPadre(qint32 codigo)
{
    return codigo > 0 && codigo <= std::numeric_limits<qint16>::max() ? static_cast<qint16>(codigo) : qint16{0};
}

} // namespace

CascadaFamilias::CascadaFamilias(QWidget *padre)
    : QObject(padre)
{
    const std::array rotulos{u"Familia:"_s, u"SubFamilia:"_s, u"Linea:"_s};
    for (std::size_t i = 0; i < m_niveles.size(); ++i) {
        const int numero = static_cast<int>(i) + 1;
        auto *selector = new nvFamilia(padre);
        selector->setObjectName(u"txtFamilia_%1"_s.arg(numero));
        selector->setNivel(numero);
        auto *etiqueta = new QLabel(rotulos[i], padre);
        etiqueta->setObjectName(u"lblTFamilia_%1"_s.arg(numero));
        etiqueta->setTextFormat(Qt::PlainText);
        etiqueta->setBuddy(selector);
        m_niveles[i] = {etiqueta, selector, true};
        connect(selector, &SelectorCodigo::Cambio, this, [this, i] { alCambiar(i); });
        connect(selector, &SelectorCodigo::Intro, this, [this, i](bool &tratada) { alPulsarIntro(i, tratada); });
    }
}

void CascadaFamilias::preparar(::cEmpresa *empresa, Conexion *conexion)
{
    for (std::size_t i = 0; i < m_niveles.size(); ++i) {
        Nivel &nivel = m_niveles[i];
        const QString nombre = empresa->NombreFamilia(static_cast<int>(i));
        nivel.usado = !nombre.isEmpty();
        if (nivel.usado) {
            nivel.etiqueta->setText(nombre + u':');
            nivel.selector->setAccessibleName(nombre);
            nivel.selector->caja()->setAccessibleName(nombre);
        }
        nivel.etiqueta->setVisible(nivel.usado);
        nivel.selector->setVisible(nivel.usado);
        nivel.selector->setcEmpresa(empresa);
        nivel.selector->setConexion(conexion);
    }
}

void CascadaFamilias::poner(const Codigos &codigos)
{
    // From the top: each one empties those below it.
    for (std::size_t i = 0; i < m_niveles.size(); ++i)
        m_niveles[i].selector->setCodigo(std::max(codigos[i], 0));
    for (const Nivel &nivel : m_niveles)
        nivel.selector->Cargar();
}

void CascadaFamilias::fijar(const Codigos &codigos)
{
    m_fijas = true;
    for (const Nivel &nivel : m_niveles)
        nivel.selector->setEnabled(false);
    poner(codigos);
}

void CascadaFamilias::recargarFijas()
{
    for (const Nivel &nivel : m_niveles)
        if (!nivel.selector->isEnabled() && nivel.selector->Codigo() > 0)
            nivel.selector->Cargar();
}

CascadaFamilias::Codigos CascadaFamilias::codigos() const
{
    return {m_niveles[0].selector->Codigo(), m_niveles[1].selector->Codigo(), m_niveles[2].selector->Codigo()};
}

void CascadaFamilias::alCambiar(std::size_t nivel)
{
    const qint16 codigo = comoPadre(m_niveles[nivel].selector->Codigo());
    for (std::size_t i = nivel + 1; i < m_niveles.size(); ++i) {
        nvFamilia *inferior = m_niveles[i].selector;
        if (nivel == 0)
            inferior->setCodigoPadre1(codigo);
        else
            inferior->setCodigoPadre2(codigo);
        inferior->Limpiar();
    }
}

void CascadaFamilias::alPulsarIntro(std::size_t nivel, bool &tratada)
{
    tratada = true;
    for (std::size_t i = nivel + 1; i < m_niveles.size(); ++i) {
        if (m_niveles[i].usado) {
            m_niveles[i].selector->setFocus(Qt::TabFocusReason);
            return;
        }
    }
    Q_EMIT Buscar();
}

bool CascadaFamilias::hayNiveles() const
{
    return std::any_of(m_niveles.begin(), m_niveles.end(), [](const Nivel &nivel) { return nivel.usado; });
}

} // namespace nv
