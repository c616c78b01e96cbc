#pragma once

#include <optional>

namespace mostrador {

/// The program's letters and colours in place of the desktop's; before the first window.
void ponerAspecto(std::optional<int> letra, bool oscuro);

} // namespace mostrador
