#include "catalogo/Imagenes.h"

#include <QDir>
#include <QFont>
#include <QImage>
#include <QPainter>
#include <QPainterPath>

using namespace Qt::StringLiterals;

namespace mostrador {

namespace {

/// A silhouette per trade.
QPainterPath silueta(int familia)
{
    QPainterPath camino;
    QPolygon contorno;
    switch (familia % 4) {
    case 0:
        camino.addRoundedRect(130, 60, 60, 150, 18, 18);
        camino.addRoundedRect(146, 30, 28, 34, 6, 6);
        break;
    case 1:
        camino.addRect(100, 40, 120, 34);
        contorno.setPoints(5, 146, 74, 174, 74, 166, 200, 160, 214, 154, 200);
        break;
    case 2:
        camino.addEllipse(80, 80, 130, 130);
        camino.addRoundedRect(206, 132, 70, 24, 10, 10);
        break;
    default:
        contorno.setPoints(10, 110, 50, 210, 50, 250, 100, 222, 120, 204, 102, 204, 212, 116, 212, 116, 102, 98, 120,
                           70, 100);
    }
    camino.addPolygon(contorno);
    camino.closeSubpath();
    return camino;
}

} // namespace

bool dibujarImagen(const QString &dir, int codigo, const QString &descripcion, int familia)
{
    QImage imagen(320, 280, QImage::Format_RGB32);
    imagen.fill(QColor(250, 250, 247));
    QPainter pintor(&imagen);
    pintor.setRenderHint(QPainter::Antialiasing);
    const QColor base = QColor::fromHsv((codigo * 47 + familia * 40) % 360, 120, 190);
    QLinearGradient relleno(80, 30, 240, 210);
    relleno.setColorAt(0, base.lighter(125));
    relleno.setColorAt(1, base.darker(125));
    pintor.setPen(QPen(base.darker(170), 2));
    pintor.setBrush(relleno);
    pintor.drawPath(silueta(familia));
    pintor.setPen(QColor(70, 70, 70));
    QFont fuente;
    fuente.setPixelSize(14);
    pintor.setFont(fuente);
    pintor.drawText(QRect(10, 222, 300, 50), Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, descripcion);
    pintor.end();
    return imagen.save(QDir(dir).filePath(u"%1.jpg"_s.arg(codigo)), "JPEG", 85);
}

} // namespace mostrador
