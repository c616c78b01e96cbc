#pragma once

#include <QMessageBox>
#include <QPoint>
#include <QString>
#include <utility>

namespace nv {
class Rejilla;
}

/// What the person in front of the program sees, and what the window system brings of her keys and mouse.
namespace mostrador::guion {

using namespace nv;

/// The window to work in: the modal one on top, else `principal`.
QWidget *ventanaActiva(QWidget *principal);
/// Who gets the next key; null when it would be lost.
QWidget *conFoco(QWidget *principal);
/// Of this objectName in one window: one on screen rather than a hidden one. Null when there is none.
QWidget *buscado(QWidget *ventana, const QString &nombre);

/// What a user would read in a widget: its text, a box's "0", "1" or "2", a grid's current row.
QString textoDe(QWidget *widget);
/// Visible cells of a grid's row, 0 the heading.
QString textoDeFila(const Rejilla &rejilla, int fila);
/// Where a cell is drawn, scrolled into view; row 0 is the heading.
std::pair<QWidget *, QPoint> celda(Rejilla &rejilla, int fila, int columna);

/// Title, text and icon as a script writes them: "critico", "exclamacion", "informacion", "pregunta" or "sin icono".
QStringList leido(const QMessageBox &caja);

/// Key by name ("Enter", "Shift+Tab", "Ctrl+A", "F3", "PageDown"…), shortcuts first. Throws Error when nobody has the
/// focus to take it, and GuionMalo for an unknown name.
void pulsar(QWidget *principal, const QString &tecla);
/// Each character to whoever has the focus by then. Throws Error when that is nobody.
void teclear(QWidget *principal, const QString &texto);
/// A scanner's burst, queued as the window system brings it: nothing is delivered before the event loop turns.
void leer(QWidget *principal, const QString &texto);
void pulsarRaton(QWidget *widget, QPoint lugar, bool doble);
/// As Esc or the cross in its title does.
void cerrar(QWidget *ventana);

} // namespace mostrador::guion
