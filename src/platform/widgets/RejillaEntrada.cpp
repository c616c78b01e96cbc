#include "platform/widgets/Rejilla.h"
#include "platform/widgets/Teclas.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPointer>
#include <QScrollBar>

namespace nv {

void Rejilla::keyPressEvent(QKeyEvent *evento)
{
    if (alPulsar && alPulsar(evento)) {
        evento->accept();
        return;
    }
    evento->accept();
    const int paso = horizontalScrollBar()->singleStep();
    switch (evento->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        // A held Enter repeats into a list that it has filled itself.
        if (!evento->isAutoRepeat())
            Q_EMIT Intro();
        return;
    case Qt::Key_Home:
        setFilaActual(1);
        return;
    case Qt::Key_End:
        setFilaActual(filasDatos());
        return;
    case Qt::Key_Left:
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - paso);
        return;
    case Qt::Key_Right:
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() + paso);
        return;
    default:
        break;
    }
    if (teclas::esTexto(*evento)) {
        if (evento->key() == Qt::Key_Space)
            Q_EMIT Espacio();
        else
            Q_EMIT Caracter(evento->text());
        return;
    }
    QTableView::keyPressEvent(evento);
}

void Rejilla::mousePressEvent(QMouseEvent *evento)
{
    const QModelIndex celda = indexAt(evento->pos());
    if (!celda.isValid())
        return;
    const int fila = celda.row() + 1;
    const int columna = celda.column();
    const QPointer<Rejilla> viva(this);
    QTableView::mousePressEvent(evento);
    if (viva && evento->button() == Qt::LeftButton)
        Q_EMIT Clic(fila, columna);
}

void Rejilla::mouseDoubleClickEvent(QMouseEvent *evento)
{
    const QModelIndex celda = indexAt(evento->pos());
    if (!celda.isValid() || evento->button() != Qt::LeftButton)
        return;
    const QPointer<Rejilla> viva(this);
    const int fila = celda.row() + 1;
    const int columna = celda.column();
    setFilaActual(fila);
    if (viva)
        Q_EMIT DobleClic(fila, columna);
}

void Rejilla::focusInEvent(QFocusEvent *evento)
{
    // The item view's own handler makes row 1 current when none is.
    QAbstractScrollArea::focusInEvent(evento);
    mostrarFoco();
}

void Rejilla::focusOutEvent(QFocusEvent *evento)
{
    QTableView::focusOutEvent(evento);
    mostrarFoco();
}

void Rejilla::mostrarFoco()
{
    viewport()->update();
    horizontalHeader()->viewport()->update();
}

} // namespace nv
