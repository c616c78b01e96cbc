#include "platform/widgets/EtiquetaElidida.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>
#include <utility>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

constexpr qreal Atenuacion = 0.55; // black on white is still read at 4.7 to 1

} // namespace

EtiquetaElidida::EtiquetaElidida(QWidget *padre)
    : QLabel(padre)
{
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

QSize EtiquetaElidida::minimumSizeHint() const
{
    return {0, QLabel::minimumSizeHint().height()};
}

void EtiquetaElidida::setAtenuada(bool valor)
{
    if (std::exchange(m_atenuada, valor) != valor)
        update();
}

void EtiquetaElidida::paintEvent(QPaintEvent *)
{
    QPainter pintor(this);
    pintor.setOpacity(m_atenuada ? Atenuacion : 1);
    drawFrame(&pintor);
    const QRect lugar = contentsRect().adjusted(margin(), 0, -margin(), 0);
    const QString visible =
        fontMetrics().elidedText(QString(text()).replace(u'\n', u' '), Qt::ElideRight, lugar.width());
    style()->drawItemText(&pintor, lugar, static_cast<int>(alignment() | Qt::TextSingleLine), palette(), isEnabled(),
                          visible, foregroundRole());
}

bool EtiquetaElidida::event(QEvent *evento)
{
    if (evento->type() != QEvent::ToolTip)
        return QLabel::event(evento);
    if (fontMetrics().horizontalAdvance(text()) > contentsRect().width() - 2 * margin())
        QToolTip::showText(static_cast<QHelpEvent *>(evento)->globalPos(), u"<p>%1</p>"_s.arg(text().toHtmlEscaped()),
                           this);
    else
        QToolTip::hideText();
    return true;
}

} // namespace nv
