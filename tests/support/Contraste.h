#pragma once

#include "platform/widgets/Colores.h"

#include <QApplication>
#include <QHash>
#include <QImage>
#include <QPalette>
#include <QScopeGuard>
#include <QWidget>
#include <algorithm>

namespace nv::pruebas {

/// Light on dark for the whole program until the result goes.
[[nodiscard]] inline auto enOscuro()
{
    const QPalette antes = QApplication::palette();
    QApplication::setPalette(
        QPalette(Qt::white, QColor(45, 45, 45), Qt::gray, Qt::black, Qt::gray, Qt::white, QColor(30, 30, 30)));
    return qScopeGuard([antes] { QApplication::setPalette(antes); });
}

/// Of the letters inside the widget with what they stand on, as they are on the screen.
inline double contrasteVisto(QWidget &widget)
{
    const QImage imagen = widget.grab(widget.rect().adjusted(4, 4, -4, -4)).toImage();
    QHash<QRgb, int> veces;
    for (int i = 0; i < imagen.width() * imagen.height(); ++i)
        ++veces[imagen.pixel(i % imagen.width(), i / imagen.width())];
    const QRgb fondo = std::max_element(veces.cbegin(), veces.cend()).key();
    double mejor = 1;
    for (auto color = veces.keyBegin(); color != veces.keyEnd(); ++color)
        mejor = std::max(mejor, colores::contraste(QColor(*color), QColor(fondo)));
    return mejor;
}

} // namespace nv::pruebas
