#pragma once

#include <QString>

class nvArticulo;

namespace mostrador {

class Base;

/// What Enter would find in an item box, without a window and without a question: he who scans looks at the goods.
struct LecturaCallada
{
    enum class eHallazgo { Articulo, Nada, Varios };

    eHallazgo hallazgo = eHallazgo::Nada;
    QString codigo;
    QString descripcion; ///< with its qualities
    QString error;       ///< why nothing could be found out

    static LecturaCallada de(const QString &leido, const nvArticulo &articulo, Base &base);
};

/// An item's description as a line shows it.
QString descripcionConCualidades(const QString &descripcion, bool hay, const QString &x, const QString &y);

} // namespace mostrador
