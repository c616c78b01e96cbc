#include "catalogo/Catalogo.h"

#include "catalogo/EscritorArticulos.h"
#include "catalogo/Maestros.h"
#include "catalogo/Muestrario.h"
#include "common/Conexion.h"
#include "common/Error.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace nv {

bool tieneEmpresa(Conexion &conexion)
{
    return conexion.Abrir(Sentencia(u"SELECT TOP 1 Codigo FROM Empresas")).siguiente();
}

bool generarCatalogo(Conexion &conexion, const OpcionesCatalogo &opciones)
{
    if (tieneEmpresa(conexion))
        throw Error{0, u"El catálogo ya tiene datos: no se genera otro encima."_s, u"generarCatalogo"_s};
    QString dirImagenes = opciones.dirImagenes;
    if (!dirImagenes.isEmpty()) {
        if (!QDir().mkpath(dirImagenes))
            throw Error{0, u"No se puede crear la carpeta de imágenes «%1»."_s.arg(dirImagenes), u"generarCatalogo"_s};
        // The setting carries its own separator: file names are joined to it as they are.
        if (!dirImagenes.endsWith(u'/'))
            dirImagenes += u'/';
    }
    Transaccion transaccion(conexion);
    escribirMaestros(conexion, opciones.dia, dirImagenes);
    EscritorArticulos escritor(conexion, opciones.dia, dirImagenes);
    for (int codigo = 1; codigo <= opciones.articulos; ++codigo) {
        escritor.escribir(codigo);
        if (codigo % 250 == 0 && opciones.progreso && !opciones.progreso(codigo, opciones.articulos))
            return false;
    }
    escritor.cerrar();
    transaccion.confirmar();
    return true;
}

} // namespace nv
