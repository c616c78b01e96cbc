#pragma once

#include <QSize>
#include <QString>

class QLineEdit;
class QWidget;

/// Where the two halves of an item box stand, in twips of its screen.
namespace nv::disposicion {

QSize preferida(const QLineEdit &caja);
QSize minima(const QLineEdit &caja);
/// The code box at the left, as high as the whole, and the label in the width that is left. Too narrow for the box it
/// becomes narrower still, unless a layout owns its width.
void colocar(QWidget &articulo, QWidget &caja, QWidget &nombre);
/// "[", blanks and "]" for the width that the code box leaves free, in blanks of the component's font; empty when there
/// is no room.
QString corchetes(const QWidget &articulo);
/// The same for what a program's text leaves free, which reckons with a wider box.
QString corchetesDeTexto(const QWidget &articulo);

} // namespace nv::disposicion
