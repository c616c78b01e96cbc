#pragma once

#include <QString>
#include <optional>

class nvArticulo;

/// The item box by the names of its properties, and by "Modelo" and "Pendiente", which it has besides.
namespace mostrador::propiedades {

/// As text, "True" and "False" for Booleans; nothing when there is none of this name.
std::optional<QString> leida(nvArticulo &articulo, const QString &nombre);
/// False when there is none of this name that can be set. Throws Error.
bool poner(nvArticulo &articulo, const QString &nombre, const QString &valor);
/// Every stored property, but for what is in the box: a model set by hand goes with the former box.
void copiar(const nvArticulo &de, nvArticulo &a);

} // namespace mostrador::propiedades
