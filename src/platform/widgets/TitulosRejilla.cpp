#include "platform/widgets/TitulosRejilla.h"

#include "platform/widgets/Rejilla.h"

#include <QPainter>
#include <algorithm>

namespace nv {

TitulosRejilla::TitulosRejilla(Rejilla *rejilla)
    : QHeaderView(Qt::Horizontal, rejilla)
    , m_rejilla(rejilla)
{}

void TitulosRejilla::paintSection(QPainter *pintor, const QRect &lugar, int columna) const
{
    pintor->save(); // the style leaves its clip behind
    QHeaderView::paintSection(pintor, lugar, columna);
    pintor->restore();
    if (!m_rejilla->hasFocus() || m_rejilla->filaActual() != 0)
        return;
    const int grosor = std::max(2, lugar.height() / 6);
    pintor->fillRect(lugar.adjusted(0, lugar.height() - grosor, 0, 0), palette().highlight());
}

} // namespace nv
