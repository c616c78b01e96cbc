#pragma once

namespace nv {
class Conexion;
}

namespace mostrador {

using namespace nv;

struct OpcionesCatalogo;

/// Writes the items with all that hangs from them. False when `progreso` gave up. Throws Error.
bool escribirArticulos(Conexion &conexion, const OpcionesCatalogo &opciones);

} // namespace mostrador
