#include "creation/ComposicionDescripcion.h"

#include <algorithm>

namespace nv {

namespace {

enum Campo : qint16 { Blancos, Marca, Referencia, Temporada, Familia1, Familia2, Familia3 };

QString pieza(EntradaDescripcion entrada, const CamposDescripcion &campos)
{
    const int longitud = std::max<int>(0, entrada.Longitud);
    switch (entrada.Cod_Campo) {
    case Blancos:
        return QString(longitud, u' ');
    case Marca:
        return campos.marca.left(longitud);
    case Referencia:
        return campos.referencia.left(longitud);
    case Temporada:
        return campos.temporada.left(longitud);
    case Familia1:
    case Familia2:
    case Familia3: {
        const auto &familia = campos.familias[static_cast<std::size_t>(entrada.Cod_Campo - Familia1)];
        return familia.codigo > 0 ? familia.nombre.left(longitud) : QString();
    }
    default:
        return {};
    }
}

} // namespace

QString componerDescripcion(const FormatoDescripcion &formato, const CamposDescripcion &campos)
{
    QString descripcion;
    for (const EntradaDescripcion entrada : formato)
        descripcion += pieza(entrada, campos);
    return descripcion;
}

} // namespace nv
