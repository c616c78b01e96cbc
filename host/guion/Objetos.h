#pragma once

#include <QMessageBox>
#include <QPoint>
#include <QString>
#include <utility>

class QWidget;

namespace nv {
class Rejilla;
}

namespace nv::guion {

/// Of this objectName in one window: one on screen rather than a hidden one. Null when there is none.
QWidget *buscado(QWidget *ventana, const QString &nombre);

/// What a user would read in a widget: its text, a box's "0", "1" or "2", a grid's current row.
QString textoDe(QWidget *widget);

/// Where a cell is drawn, scrolled into view; row 0 is the heading.
std::pair<QWidget *, QPoint> celda(Rejilla &rejilla, int fila, int columna);

/// Press and release, and once more for a double click.
void pulsarRaton(QWidget *widget, QPoint lugar, bool doble);

/// "critico", "exclamacion", "informacion", "pregunta" or "sin icono".
QString nombreIcono(QMessageBox::Icon icono);

} // namespace nv::guion
