#include "Lector.h"

#include "platform/widgets/Rafaga.h"
#include "platform/widgets/Teclas.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <utility>

using namespace nv;

namespace mostrador {

/// Characters in a burst that no hand types.
constexpr qsizetype Lectura = 3;
constexpr qsizetype LecturaEnCampo = 4; ///< of figures, which a field might want

Lector::Lector(QWidget *ventana)
    : QObject(ventana)
    , m_ventana(ventana)
{
    qApp->installEventFilter(this);
}

bool Lector::eventFilter(QObject *objeto, QEvent *evento)
{
    if (evento->type() != QEvent::KeyPress || !objeto->isWidgetType())
        return false;
    auto &widget = static_cast<QWidget &>(*objeto);
    const auto &tecla = static_cast<const QKeyEvent &>(*evento);
    // Nor is the line feed an answer to what the scan has opened.
    if (QApplication::activeModalWidget())
        return teclas::esIntro(tecla) && m_acabada && sigue(tecla);
    if (!m_caja || !m_caja->isEnabled() || !esDeLaVentana(widget))
        return false;
    if (teclas::esTexto(tecla))
        return caracter(widget, tecla);
    const bool acaba = teclas::esIntro(tecla) || tecla.key() == Qt::Key_Tab;
    return acaba && tecla.timestamp() != 0 && fin(widget, tecla);
}

/// The one that the key is meant for: its parents are offered what it does not take.
bool Lector::esDeLaVentana(const QWidget &widget) const
{
    if (const QWidget *desplegable = QApplication::activePopupWidget())
        return &widget == (desplegable->focusWidget() ? desplegable->focusWidget() : desplegable);
    const QWidget *foco = m_ventana->focusWidget();
    return &widget == (foco ? foco : m_ventana);
}

/// Only the window system stamps its keys: what the program itself sends is no burst.
bool Lector::sigue(const QKeyEvent &tecla) const
{
    return tecla.timestamp() != 0 && tecla.timestamp() - m_ultima <= Rafaga::Plazo;
}

bool Lector::caracter(QWidget &widget, const QKeyEvent &tecla)
{
    const auto *campo = qobject_cast<QLineEdit *>(&widget);
    const bool esCampo = campo && !campo->isReadOnly();
    if (!sigue(tecla) || m_donde != &widget || m_acabada) {
        m_rafaga.clear();
        m_donde = &widget;
        m_antes = campo ? campo->text() : QString();
    }
    m_acabada = false;
    m_rafaga += tecla.text();
    m_ultima = tecla.timestamp();
    const bool desplegado = QApplication::activePopupWidget() != nullptr;
    // A letter chooses in a list or a menu, a blank presses a button.
    const bool enLista = desplegado || qobject_cast<QMenuBar *>(&widget);
    if (esCampo || (enLista && m_rafaga.size() < Lectura) || m_rafaga == u" ")
        return false;
    if (QWidget *desplegable = QApplication::activePopupWidget())
        desplegable->close();
    m_donde = m_caja;
    Q_EMIT Empezada(m_rafaga);
    return true;
}

bool Lector::fin(QWidget &widget, const QKeyEvent &tecla)
{
    const bool seguida = sigue(tecla);
    const QString rafaga = seguida && m_donde == &widget ? std::exchange(m_rafaga, {}) : QString();
    const bool sobra = seguida && m_acabada;
    m_acabada = rafaga.size() >= Lectura;
    m_ultima = tecla.timestamp();
    if (sobra)
        return true;
    if (&widget == m_caja) {
        Q_EMIT Acabada(rafaga);
        if (tecla.key() != Qt::Key_Tab || rafaga.size() < Lectura)
            return false;
        QKeyEvent intro(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
        QCoreApplication::sendEvent(m_caja, &intro);
        return true;
    }
    auto *campo = qobject_cast<QLineEdit *>(&widget);
    const bool conSigno = !rafaga.isEmpty() && !rafaga.front().isLetterOrNumber();
    if (!campo || rafaga.size() < (conSigno ? Lectura : LecturaEnCampo))
        return false;
    campo->setText(m_antes);
    Q_EMIT Leido(rafaga);
    return true;
}

} // namespace mostrador
