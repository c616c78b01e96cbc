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

namespace {

bool conFoco(const QStyleOptionViewItem &opcion)
{
    return opcion.widget && opcion.widget->hasFocus();
}

/// Two fifths of the second.
QColor mezcla(const QColor &uno, const QColor &otro)
{
    const auto parte = [](int a, int b) { return (3 * a + 2 * b) / 5; };
    return QColor(parte(uno.red(), otro.red()), parte(uno.green(), otro.green()), parte(uno.blue(), otro.blue()));
}

} // namespace

void DelegadoRejilla::paint(QPainter *pintor, const QStyleOptionViewItem &opcion, const QModelIndex &indice) const
{
    pintarCelda(pintor, opcion, indice);
    if (!opcion.state.testFlag(QStyle::State_Selected))
        return;
    const QRect &lugar = opcion.rect;
    const int grosor = std::max(3, lugar.height() / 5);
    if (const QVariant propio = indice.data(Qt::BackgroundRole); propio.isValid())
        pintor->fillRect(lugar.adjusted(0, lugar.height() - grosor, 0, 0), propio.value<QBrush>());
    if (!conFoco(opcion))
        return;
    pintor->save();
    pintor->setPen(opcion.palette.color(QPalette::Text));
    pintor->drawLine(lugar.topLeft(), lugar.topRight());
    pintor->drawLine(lugar.bottomLeft(), lugar.bottomRight());
    pintor->restore();
}

void DelegadoRejilla::pintarCelda(QPainter *pintor, const QStyleOptionViewItem &opcion, const QModelIndex &indice) const
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
    QPalette &paleta = opcion->palette;
    const QVariant fondo = indice.data(Qt::BackgroundRole);
    const QVariant letra = indice.data(Qt::ForegroundRole);
    const QColor debajo = fondo.isValid() ? fondo.value<QBrush>().color() : paleta.color(QPalette::Base);
    if (letra.isValid())
        paleta.setColor(QPalette::Text, colores::legible(paleta.color(QPalette::Text), debajo));
    else if (fondo.isValid() && colores::contraste(paleta.color(QPalette::Text), debajo) < colores::Legible)
        paleta.setColor(QPalette::Text, colores::opuesto(debajo));
    // Red letters are not to be told from others on a strong blue.
    if (conFoco(*opcion) && !letra.isValid())
        return;
    const QColor actual = mezcla(paleta.color(QPalette::Base), paleta.color(QPalette::Highlight));
    const QColor propia = letra.isValid()  ? letra.value<QBrush>().color()
                          : opcion->widget ? opcion->widget->palette().color(QPalette::Text)
                                           : QColor(Qt::black);
    paleta.setColor(QPalette::Highlight, actual);
    paleta.setColor(QPalette::HighlightedText, colores::legible(propia, actual));
}

bool DelegadoRejilla::helpEvent(QHelpEvent *evento, QAbstractItemView *vista, const QStyleOptionViewItem &opcion,
                                const QModelIndex &indice)
{
    QStringList parrafos;
    if (sizeHint(opcion, indice).width() > vista->visualRect(indice).width())
        parrafos << indice.data().toString();
    parrafos << indice.data(Qt::ToolTipRole).toString();
    parrafos.removeAll(QString());
    if (evento->type() != QEvent::ToolTip || parrafos.isEmpty()) {
        QToolTip::hideText();
        return false;
    }
    QToolTip::showText(evento->globalPos(),
                       u"<p>%1</p>"_s.arg(parrafos.join(u'\n').toHtmlEscaped().replace(u'\n', u"<br>"_s)), vista);
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
