#pragma once

#include <QColor>

namespace nv::colores {

/// Least contrast between letters and their background at which everybody reads them.
inline constexpr double Legible = 4.5;

/// From 1 (the same) to 21 (black on white), by relative luminance.
double contraste(const QColor &uno, const QColor &otro);
/// Black or white, whichever stands out more.
QColor opuesto(const QColor &fondo);
/// `letra`, made lighter or darker until it can be read on `fondo`.
QColor legible(QColor letra, const QColor &fondo);

} // namespace nv::colores
