#include "platform/widgets/DelegadoRejilla.h"

#include "platform/widgets/Colores.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace nv {

void DelegadoRejilla::paint(QPainter *pintor, const QStyleOptionViewItem &opcion, const QModelIndex &indice) const
{
    QStyleOptionViewItem celda = opcion;
    celda.state &= ~QStyle::State_HasFocus;
    const QVariant senal = indice.data(Qt::CheckStateRole);
    if (!senal.isValid()) {
        QStyledItemDelegate::paint(pintor, celda, indice);
        return;
    }
    initStyleOption(&celda, indice);
    celda.features &= ~QStyleOptionViewItem::HasCheckIndicator;
    const QStyle *estilo = celda.widget ? celda.widget->style() : QApplication::style();
    estilo->drawControl(QStyle::CE_ItemViewItem, &celda, pintor, celda.widget);
    const QSize lado(estilo->pixelMetric(QStyle::PM_IndicatorWidth, &celda, celda.widget),
                     estilo->pixelMetric(QStyle::PM_IndicatorHeight, &celda, celda.widget));
    celda.rect = QStyle::alignedRect(celda.direction, Qt::AlignCenter, lado.boundedTo(opcion.rect.size()), opcion.rect);
    celda.state &= ~(QStyle::State_On | QStyle::State_Off | QStyle::State_NoChange);
    celda.state |= senal.value<Qt::CheckState>() == Qt::Checked ? QStyle::State_On : QStyle::State_Off;
    estilo->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &celda, pintor, celda.widget);
}

void DelegadoRejilla::initStyleOption(QStyleOptionViewItem *opcion, const QModelIndex &indice) const
{
    QStyledItemDelegate::initStyleOption(opcion, indice);
    const QVariant propio = indice.data(Qt::BackgroundRole);
    if (!propio.isValid() && !indice.data(Qt::ForegroundRole).isValid())
        return;
    const QColor fondo = propio.isValid() ? propio.value<QBrush>().color() : opcion->palette.color(QPalette::Base);
    opcion->palette.setColor(QPalette::Text, colores::legible(opcion->palette.color(QPalette::Text), fondo));
}

bool DelegadoRejilla::helpEvent(QHelpEvent *evento, QAbstractItemView *vista, const QStyleOptionViewItem &opcion,
                                const QModelIndex &indice)
{
    const QString texto = indice.data().toString();
    if (evento->type() != QEvent::ToolTip || texto.isEmpty() ||
        sizeHint(opcion, indice).width() <= vista->visualRect(indice).width()) {
        QToolTip::hideText();
        return false;
    }
    QToolTip::showText(evento->globalPos(), u"<p>%1</p>"_s.arg(texto.toHtmlEscaped()), vista);
    return true;
}

QString DelegadoRejilla::displayText(const QVariant &valor, const QLocale &configuracion) const
{
    QString texto = QStyledItemDelegate::displayText(valor, configuracion);
    for (QChar &c : texto)
        if (c == u'\n' || c == u'\r' || c == QChar::LineSeparator)
            c = u' ';
    return texto;
}

} // namespace nv
