#pragma once

#include <QStyledItemDelegate>

namespace nv {

/// Paints a grid's cells: ticks in the middle of their column, line breaks as blanks, and a tool tip with the whole text
/// where the column cuts it, and with what the row's colours say. The current row is strong and framed while the grid has
/// the focus, pale otherwise; what its cells have of colour stays, as letters and as a strip.
class DelegadoRejilla : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *pintor, const QStyleOptionViewItem &opcion, const QModelIndex &indice) const override;
    bool helpEvent(QHelpEvent *evento, QAbstractItemView *vista, const QStyleOptionViewItem &opcion,
                   const QModelIndex &indice) override;
    QString displayText(const QVariant &valor, const QLocale &configuracion) const override;

protected:
    /// Letters on a cell's own background, and those in a colour of their own, can be read in every theme.
    void initStyleOption(QStyleOptionViewItem *opcion, const QModelIndex &indice) const override;

private:
    void pintarCelda(QPainter *pintor, const QStyleOptionViewItem &opcion, const QModelIndex &indice) const;
};

} // namespace nv
