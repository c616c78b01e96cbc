#pragma once

/// How many characters the columns take that a person types into: the boxes in front of them take no more.
namespace nv::largos {

inline constexpr int CodigoBarras = 30;
inline constexpr int Descripcion = 150;
inline constexpr int DescripcionTicket = 60;
inline constexpr int Referencia = 50;
inline constexpr int Temporada = 20;
// The digits of the largest number.
inline constexpr int Entero16 = 5;
inline constexpr int Entero32 = 10;

} // namespace nv::largos
