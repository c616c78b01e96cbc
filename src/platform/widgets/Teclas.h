#pragma once

#include <Qt>

class QKeyEvent;

/// Key codes, shift states and mouse buttons in the numbers that hosts know (F3 = 114, Up = 38, Enter = 13).
namespace nv::teclas {

inline constexpr qint16 Intro = 13;
inline constexpr qint16 Arriba = 38;
inline constexpr qint16 F3 = 114;
inline constexpr qint16 F4 = 115;
inline constexpr qint16 F7 = 118;

/// Virtual key code of a key event; 0 when the key has none.
qint16 codigo(const QKeyEvent &evento);
/// 1 Shift, 2 Ctrl, 4 Alt, added.
qint16 estado(Qt::KeyboardModifiers modificadores);
/// 1 left, 2 right, 4 middle.
qint16 boton(Qt::MouseButtons botones);

/// Return, or Enter of the keypad.
bool esIntro(const QKeyEvent &evento);
/// What a person types as text: no control keys, but AltGr (Ctrl+Alt to some window systems) counts as typing.
bool esTexto(const QKeyEvent &evento);
/// Without Shift, Ctrl, Alt; on the keypad or not.
bool sinModificar(const QKeyEvent &evento);

} // namespace nv::teclas
