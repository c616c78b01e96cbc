#pragma once

#include <functional>

class QDialog;
class QHBoxLayout;

namespace nv {

/// The row of buttons at the foot of a form: "&Aceptar" (`cmdAceptar`) and "&Cancelar" (`cmdCancelar`), none of them a
/// default button, so that no Enter presses one by accident.
QHBoxLayout *botonera(QDialog *formulario, std::function<void()> aceptar, std::function<void()> cancelar);

/// F9 and F12 for the whole form, whichever field has the focus; keys of popups stay theirs.
void atajosAceptarCancelar(QDialog *formulario, std::function<void()> aceptar, std::function<void()> cancelar);

} // namespace nv
