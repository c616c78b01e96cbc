#include "search/piezas/CampoAlternativo.h"

#include "common/Valores.h"
#include "dialogs/frmAlternativos_Eleccion.h"
#include "nvArticulo/Conexion.h"
#include "nvArticulo/cEmpresa.h"
#include "platform/widgets/Campos.h"
#include "platform/widgets/DialogoPropio.h"
#include "platform/widgets/nvTextBox.h"
#include "search/sql/Modelo1.h"

#include <QKeyEvent>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace nv {

CampoAlternativo::CampoAlternativo(QWidget *padre)
    : QObject(padre)
    , m_caja(new nvTextBox(padre))
    , m_rotulo(nuevoRotulo(u"Alternativo:"_s, m_caja, padre, u"lblAlternativo1"_s))
{
    m_caja->setObjectName(u"txtAlternativo1"_s);
    m_caja->installEventFilter(this);
}

void CampoAlternativo::preparar(::cEmpresa &empresa)
{
    m_empresa = &empresa;
    m_conLista = ranura::exigida().Abrir(sql::hayAlternativos()).siguiente();
    const QString nombre = empresa.NombreAlternativo1();
    if (!nombre.isEmpty()) {
        m_rotulo->setText(nombre + u':');
        m_caja->setAccessibleName(nombre);
    }
    m_caja->setReadOnly(m_conLista);
    m_caja->setPlaceholderText(m_conLista ? u"F3 - Elegir valores"_s : QString());
    // A company that neither names the field nor gives it values does not use it.
    const bool usado = m_conLista || !nombre.isEmpty();
    m_rotulo->setVisible(usado);
    m_caja->setVisible(usado);
}

void CampoAlternativo::anadirA(sql::CriteriosModelo1 &criterios) const
{
    if (!m_conLista)
        criterios.alternativo = m_caja->text();
    else if (!m_caja->text().isEmpty())
        for (const QString &id : m_ids.split(u',', Qt::SkipEmptyParts))
            criterios.alternativos.push_back(ValEntero32(id));
}

bool CampoAlternativo::eventFilter(QObject *objeto, QEvent *evento)
{
    const bool deTecla = evento->type() == QEvent::ShortcutOverride || evento->type() == QEvent::KeyPress;
    if (!m_conLista || !deTecla)
        return QObject::eventFilter(objeto, evento);
    const auto *tecla = static_cast<QKeyEvent *>(evento);
    const bool elige = tecla->key() == Qt::Key_F3;
    if (!elige && tecla->key() != Qt::Key_Delete && tecla->key() != Qt::Key_Backspace)
        return false;
    evento->accept();
    if (evento->type() == QEvent::ShortcutOverride || tecla->isAutoRepeat())
        return true;
    if (elige)
        elegir();
    else
        poner({}, {});
    return true;
}

void CampoAlternativo::elegir()
{
    const DialogoPropio<frmAlternativos_Eleccion> lista(new frmAlternativos_Eleccion(m_caja->window()));
    lista->cEmpresa = m_empresa;
    lista->Conexion = ranura::actual();
    lista->Ids = m_ids;
    lista->MostrarModal();
    if (lista.vivo() && lista->Aceptado)
        poner(lista->Ids, lista->Valores);
}

void CampoAlternativo::poner(const QString &ids, const QString &textos)
{
    m_ids = ids;
    m_caja->setText(textos);
}

} // namespace nv
