#include "platform/widgets/Foco.h"

#include <QWidget>

namespace nv::foco {

namespace {

/// Opens the protected virtual, so that a host's own override of it is obeyed.
struct Acceso : QWidget
{
    using QWidget::focusNextPrevChild;
};

QWidget *apoderado(QWidget *widget)
{
    while (widget->focusProxy())
        widget = widget->focusProxy();
    return widget;
}

bool alcanzable(QWidget *candidato, QWidget *desde, bool adelante)
{
    QWidget *final = apoderado(candidato);
    if (final == desde || (final->focusPolicy() & Qt::TabFocus) == 0)
        return false;
    // A compound and the child that it hands the focus to count once, at the child's place in the order.
    if (final != candidato && (adelante ? final->isAncestorOf(candidato) : candidato->isAncestorOf(final)))
        return false;
    return !candidato->isWindow() && candidato->isVisibleTo(candidato->window()) && candidato->isEnabled();
}

void recorrer(QWidget *desde, bool adelante)
{
    const auto siguiente = [adelante](QWidget *w) {
        return adelante ? w->nextInFocusChain() : w->previousInFocusChain();
    };
    for (QWidget *w = siguiente(desde); w && w != desde; w = siguiente(w)) {
        if (alcanzable(w, desde, adelante)) {
            w->setFocus(adelante ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return;
        }
    }
}

void mover(QWidget *desde, bool adelante)
{
    QWidget *origen = apoderado(desde);
    // The toolkit starts at the window's focus widget: only right while that is where we start.
    if (origen->window()->focusWidget() == origen)
        (origen->*(&Acceso::focusNextPrevChild))(adelante);
    else
        recorrer(origen, adelante);
}

} // namespace

void adelante(QWidget *desde)
{
    mover(desde, true);
}

void atras(QWidget *desde)
{
    mover(desde, false);
}

} // namespace nv::foco
