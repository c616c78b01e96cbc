#pragma once

#include <QString>
#include <array>
#include <vector>

namespace nv {

/// One piece of a description, as `Formacion_Desc` gives it.
struct EntradaDescripcion
{
    qint16 Cod_Campo = 0; ///< 0 blanks, 1 brand, 2 reference, 3 season, 4 to 6 family of levels 1 to 3
    qint16 Longitud = 0;  ///< characters taken at most; of 0, the number of blanks
};

using FormatoDescripcion = std::vector<EntradaDescripcion>;

struct CamposDescripcion
{
    struct Familia
    {
        qint32 codigo = 0;
        QString nombre;
    };
    QString marca;
    QString referencia;
    QString temporada;
    std::array<Familia, 3> familias;
};

/// The description that a layout makes of the fields: nothing between the pieces, short ones not filled up, a family
/// without a code left out with its blanks.
QString componerDescripcion(const FormatoDescripcion &formato, const CamposDescripcion &campos);

} // namespace nv
