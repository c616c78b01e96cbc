#pragma once

#include <QString>

namespace nv {

/// What a user typed into the code box, told from its first character and then from its content.
enum class ClaseEntrada {
    ReferenciaProveedor, ///< "." + reference
    ReferenciaCliente,   ///< "*" + reference
    Plu,                 ///< "+" + scale PLU
    CodigoBarras,        ///< "/" or "-" + barcode
    NumeroLargo,         ///< a number over seven characters: tried as a barcode first
    NumeroCorto,         ///< an item code
    Descripcion,         ///< over two characters, no number
    Nada,
};

/// `entrada` without outer blanks. Separators count for the length.
ClaseEntrada clasificada(QStringView entrada);

/// A code of the fashion edition: item code in characters 1-8, two quality values in 9-10 and 11-12. Missing characters
/// count as 0.
struct CodigoConCualidades
{
    qint32 articulo = 0;
    qint16 cualidadX = 0;
    qint16 cualidadY = 0;
};

/// `xPrimero`: characters 9-10 are X and 11-12 are Y; otherwise the other way round.
CodigoConCualidades codigoConCualidades(QStringView entrada, bool xPrimero);

/// Whether a number begins as an in-store barcode does (20 to 29).
bool esCodigoDeTienda(QStringView entrada);
/// Item code inside an in-store barcode: characters 3 to 7 without leading zeros.
QString articuloDeTienda(QStringView entrada);

} // namespace nv
