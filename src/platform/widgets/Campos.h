#pragma once

#include <QString>
#include <QWidget>

class QLabel;
class QPushButton;

/// What every form makes again and again.
namespace nv {

/// A label that leads to its field, and names it for those who do not see it.
QLabel *nuevoRotulo(const QString &texto, QWidget *campo, QWidget *padre, const QString &nombre = {});
/// The field's name to a screen reader, from its label: without mnemonic and colon.
void nombrar(QWidget *campo, const QString &rotulo);
/// What a field is called: by its accessible name, by the label that leads to it, or else so; without any markup.
QString nombreDe(const QWidget &campo, const QString &otro);
/// A button that no Enter presses by accident.
QPushButton *nuevoBoton(const QString &texto, const QString &nombre, QWidget *padre);
/// Gives each label of a field, and each button, that has none a letter of its own for Alt.
void ponerMnemonicos(QWidget &forma);
/// Tab goes along this list.
void tabular(const QWidgetList &orden);

} // namespace nv
