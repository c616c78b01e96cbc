#pragma once

#include <QString>

class QWidget;

namespace nv::guion {

/// The window that the user is working in: the modal one on top, else `principal`.
QWidget *ventanaActiva(QWidget *principal);
/// Who gets the next key.
QWidget *conFoco(QWidget *principal);

/// Key by name ("Enter", "Shift+Tab", "Ctrl+A", "F3", "PageDown"…) to the widget with the focus, shortcuts first, as the
/// window system does. False for an unknown name.
bool pulsar(QWidget *principal, const QString &tecla);
void teclear(QWidget *principal, const QString &texto);

} // namespace nv::guion
