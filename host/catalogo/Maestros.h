#pragma once

#include <QDate>
#include <QString>

namespace nv {
class Conexion;
}

namespace mostrador {

using namespace nv;

inline constexpr int NumeroProveedores = 60;
inline constexpr int NumeroClientes = 240;
/// Sizes of clothes and of shoes, and colours, as qualities.
inline constexpr qint16 CualidadTalla = 1;
inline constexpr qint16 CualidadColor = 2;
inline constexpr qint16 CualidadNumero = 3;

/// Seasons: the four around the day, in order.
QString temporada(QDate dia, int indice);

/// Everything that items refer to: company, settings, families, brands, suppliers, customers, warehouses, tariffs…
void escribirMaestros(Conexion &conexion, QDate dia, const QString &dirImagenes);

} // namespace mostrador
