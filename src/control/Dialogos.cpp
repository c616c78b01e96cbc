#include "control/Dialogos.h"

#include "nvArticulo/Error.h"

namespace nv {

::cEmpresa &Servicios::empresaExigida() const
{
    if (!empresa)
        throw errores::sinEmpresa();
    return *empresa;
}

} // namespace nv
