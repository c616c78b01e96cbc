#include "platform/pickers/CascadaFamilias.h"

#include "nvArticulo/cEmpresa.h"
#include "platform/pickers/nvFamilia.h"
#include "platform/widgets/Campos.h"
#include "platform/widgets/nvTextBox.h"

#include <QLabel>
#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

/// A code that no family can have has no children.
qint16 comoPadre(qint64 codigo)
{
    return codigo <= std::numeric_limits<qint16>::max() ? static_cast<qint16>(codigo) : qint16{-1};
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
        QLabel *etiqueta = nuevoRotulo(rotulos[i], selector, padre, u"lblTFamilia_%1"_s.arg(numero));
        etiqueta->hide();
        selector->hide();
        m_niveles[i] = {etiqueta, selector, false};
        connect(selector, &SelectorCodigo::Cambio, this, [this, i] { alCambiar(i); });
        connect(selector, &SelectorCodigo::Intro, this, [this, i](bool &tratada) { alPulsarIntro(i, tratada); });
    }
}

void CascadaFamilias::conectar(::cEmpresa *empresa, Conexion *conexion)
{
    for (const Nivel &nivel : m_niveles) {
        nivel.selector->setcEmpresa(empresa);
        nivel.selector->setConexion(conexion);
    }
}

void CascadaFamilias::nombrarNiveles(const ::cEmpresa &empresa)
{
    for (std::size_t i = 0; i < m_niveles.size(); ++i) {
        Nivel &nivel = m_niveles[i];
        const QString nombre = empresa.NombreFamilia(static_cast<int>(i));
        nivel.usado = !nombre.isEmpty();
        if (nivel.usado) {
            nivel.etiqueta->setText(nombre + u':');
            nivel.selector->setAccessibleName(nombre);
            nivel.selector->caja()->setAccessibleName(nombre);
        }
        nivel.etiqueta->setVisible(nivel.usado);
        nivel.selector->setVisible(nivel.usado);
    }
}

void CascadaFamilias::poner(const Codigos &codigos)
{
    // From the top: each one empties those below it.
    for (std::size_t i = 0; i < m_niveles.size(); ++i)
        m_niveles[i].selector->setCodigo(std::max(codigos[i], 0));
}

void CascadaFamilias::fijar(const Codigos &codigos)
{
    m_fijas = true;
    for (const Nivel &nivel : m_niveles)
        nivel.selector->setEnabled(false);
    poner(codigos);
}

void CascadaFamilias::Cargar()
{
    for (const Nivel &nivel : m_niveles)
        nivel.selector->Cargar();
}

void CascadaFamilias::Limpiar()
{
    for (const Nivel &nivel : m_niveles)
        nivel.selector->Limpiar();
}

CascadaFamilias::Codigos CascadaFamilias::codigos() const
{
    return {m_niveles[0].selector->Codigo(), m_niveles[1].selector->Codigo(), m_niveles[2].selector->Codigo()};
}

std::array<qint64, 3> CascadaFamilias::buscados() const
{
    return {m_niveles[0].selector->CodigoBuscado(), m_niveles[1].selector->CodigoBuscado(),
            m_niveles[2].selector->CodigoBuscado()};
}

void CascadaFamilias::alCambiar(std::size_t nivel)
{
    const qint16 codigo = comoPadre(m_niveles[nivel].selector->CodigoBuscado());
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
    Q_EMIT Fin();
}

} // namespace nv
