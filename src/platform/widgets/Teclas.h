#pragma once

#include <Qt>

class QKeyEvent;

/// Key codes, shift states and mouse buttons in the numbers that hosts know (F3 = 114, Up = 38, Enter = 13).
namespace nv::teclas {

inline constexpr qint16 Intro = 13;
inline constexpr qint16 Arriba = 38;
inline constexpr qint16 F3 = 114;
inline constexpr qint16 F4 = 115;
inline constexpr qint16 F6 = 117;
inline constexpr qint16 F7 = 118;
inline constexpr qint16 F9 = 120;
inline constexpr qint16 F12 = 123;

/// Virtual key code of a key event; 0 when the key has none.
qint16 codigo(const QKeyEvent &evento);
/// 1 Shift, 2 Ctrl, 4 Alt, added.
qint16 estado(Qt::KeyboardModifiers modificadores);
/// 1 left, 2 right, 4 middle.
qint16 boton(Qt::MouseButtons botones);

} // namespace nv::teclas
