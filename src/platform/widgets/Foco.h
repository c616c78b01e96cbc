#pragma once

class QWidget;

/// Focus moves along the host's own tab order, as if Tab or Shift+Tab had been pressed in `desde`. Done at once, before
/// any key that is still queued: a scanner's next characters land where the focus goes.
namespace nv::foco {

void adelante(QWidget *desde);
void atras(QWidget *desde);

} // namespace nv::foco
