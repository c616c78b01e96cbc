#pragma once

#include <QString>

namespace nv {

/// What the component remembers between two creations of an item, handed to the next one.
struct ValoresCreacion
{
    qint16 Marca = 0;
    qint16 TipoImpuesto = 0; ///< as its column has it: without the decimals typed
    qint16 Familia_1 = 0;
    qint16 Familia_2 = 0;
    qint16 Familia_3 = 0;
    qint16 CualidadX = 0; ///< the company's defaults when both are 0
    qint16 CualidadY = 0;
    QString Temporada;
    qint16 NoGenerarSerieEAN = 0; ///< in: ticked only by 1; out: True is -1
    qint16 UnidadesDecimales = 0; ///< likewise

    bool operator==(const ValoresCreacion &) const = default;
};

/// What the creation form takes and gives.
struct DatosCreacion : ValoresCreacion
{
    qint32 Codigo = 0; ///< result: the item's code; before it, the last code confirmed, also one that was taken
    qint32 Proveedor = 0;
    QString Ref;
};

} // namespace nv
