#pragma once

class cEmpresa;

namespace nv {
class Conexion;
}

namespace nv::medidas {

/// The first screen of search models 1 to 8 and the ranking, each beside its statements alone.
void modelos(Conexion &conexion, ::cEmpresa &empresa);

} // namespace nv::medidas
