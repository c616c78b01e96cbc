#pragma once

#include <QString>

namespace mostrador {

/// Draws a picture of an item and writes it as "<codigo>.jpg" into the folder. False when it could not be written.
bool dibujarImagen(const QString &dir, int codigo, const QString &descripcion, int familia);

} // namespace mostrador
