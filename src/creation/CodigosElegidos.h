#pragma once

#include "creation/CamposCreacion.h"

#include <vector>

/// Before an item is saved: the codes of supplier, brand, season and families that were chosen for it. Each says what is
/// wrong and takes the focus there; false then, or when the form has gone meanwhile.
namespace nv {

/// Whether each is one that there can be.
bool cabeLoElegido(QWidget &formulario, const std::vector<CamposCreacion::Existente> &elegidos);
/// Asks about each code that there is not; false when the user goes back to one.
bool existeLoElegido(QWidget &formulario, const std::vector<CamposCreacion::Existente> &elegidos);

} // namespace nv
