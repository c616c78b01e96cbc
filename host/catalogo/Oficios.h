#pragma once

#include <QStringList>
#include <vector>

namespace nv {

/// What the names of a section of the shop are made of. Sections are families of level 2, their lines those of level 3.
struct Seccion
{
    qint16 familia1;
    qint16 familia2;
    QString nombre;
    QStringList lineas;
    QStringList productos;
    QStringList calidades;
    QStringList medidas;
    std::vector<qint16> marcas;
    int precioMinimo; ///< cents
    int precioMaximo;
    qint16 impuesto;
    bool conTallas = false; ///< items have a size and a colour
    bool porPeso = false;   ///< sold on the scales
};

const QStringList &nombresFamilias1();
const QStringList &nombresMarcas(); ///< code of a brand = position + 1
const std::vector<Seccion> &secciones();

} // namespace nv
