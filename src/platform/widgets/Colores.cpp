#include "platform/widgets/Colores.h"

#include <algorithm>
#include <cmath>

namespace nv::colores {

namespace {

double luminancia(const QColor &color)
{
    const auto lineal = [](double valor) {
        return valor <= 0.04045 ? valor / 12.92 : std::pow((valor + 0.055) / 1.055, 2.4);
    };
    const QColor rgb = color.toRgb();
    return 0.2126 * lineal(rgb.redF()) + 0.7152 * lineal(rgb.greenF()) + 0.0722 * lineal(rgb.blueF());
}

} // namespace

double contraste(const QColor &uno, const QColor &otro)
{
    const double una = luminancia(uno);
    const double otra = luminancia(otro);
    return (std::max(una, otra) + 0.05) / (std::min(una, otra) + 0.05);
}

QColor opuesto(const QColor &fondo)
{
    return contraste(Qt::white, fondo) > contraste(Qt::black, fondo) ? Qt::white : Qt::black;
}

QColor legible(QColor letra, const QColor &fondo)
{
    const int meta = opuesto(fondo).red();
    const auto paso = [meta](int valor) { return valor + (meta - valor) / 8 + (meta > valor) - (meta < valor); };
    while (contraste(letra, fondo) < Legible && letra != QColor(meta, meta, meta))
        letra.setRgb(std::clamp(paso(letra.red()), 0, 255), std::clamp(paso(letra.green()), 0, 255),
                     std::clamp(paso(letra.blue()), 0, 255));
    return letra;
}

} // namespace nv::colores
