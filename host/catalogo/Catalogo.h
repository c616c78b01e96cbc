#pragma once

#include <QDate>
#include <QString>
#include <functional>

namespace nv {
class Conexion;
}

namespace mostrador {

using namespace nv;

/// Codes that the demonstration catalogue is made with.
inline constexpr qint16 EmpresaDemostracion = 1;

struct OpcionesCatalogo
{
    int articulos = 20000;
    QDate dia;           ///< sales, offers and dates of entry lie before it
    QString dirImagenes; ///< folder for the pictures, made if missing; none are drawn when empty
    /// Called now and then with what is done so far; false gives up with everything rolled back.
    std::function<bool(int hechos, int total)> progreso;
};

/// Whether the catalogue holds a company.
bool tieneEmpresa(Conexion &conexion);

/// Fills an empty catalogue in one transaction: the same options give the same rows, and an item does not depend on how
/// many there are. False when `progreso` gave up. Throws Error, with everything rolled back.
bool generarCatalogo(Conexion &conexion, OpcionesCatalogo opciones);

} // namespace mostrador
