#pragma once

#include "common/ContratoBusqueda.h"
#include "platform/widgets/DialogoPropio.h"

namespace nv {

/// The dialog of a search model (0 to 8), child of `padre`, not yet shown. Throws Error for a model without one.
DialogoPropio<ContratoBusqueda> crearDialogoBusqueda(qint16 modelo, QWidget *padre);

} // namespace nv
