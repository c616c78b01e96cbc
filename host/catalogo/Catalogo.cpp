#include "catalogo/Catalogo.h"

#include "catalogo/Articulos.h"
#include "catalogo/Maestros.h"
#include "nvArticulo/Conexion.h"
#include "nvArticulo/Error.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace mostrador {

bool tieneEmpresa(Conexion &conexion)
{
    return conexion.Abrir(Sentencia(u"SELECT TOP 1 Codigo FROM Empresas")).siguiente();
}

bool generarCatalogo(Conexion &conexion, OpcionesCatalogo opciones)
{
    if (tieneEmpresa(conexion))
        throw Error{0, u"El catálogo ya tiene datos: no se genera otro encima."_s, u"generarCatalogo"_s};
    QString &dirImagenes = opciones.dirImagenes;
    if (!dirImagenes.isEmpty() && !QDir().mkpath(dirImagenes))
        throw Error{0, u"No se puede crear la carpeta de imágenes «%1»."_s.arg(dirImagenes), u"generarCatalogo"_s};
    // The setting carries its own separator: file names are joined to it as they are.
    if (!dirImagenes.isEmpty() && !dirImagenes.endsWith(u'/'))
        dirImagenes += u'/';
    Transaccion transaccion(conexion);
    escribirMaestros(conexion, opciones.dia, dirImagenes);
    if (!escribirArticulos(conexion, opciones))
        return false;
    transaccion.confirmar();
    return true;
}

} // namespace mostrador
