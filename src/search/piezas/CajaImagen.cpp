#include "search/piezas/CajaImagen.h"

#include <QImageReader>
#include <QPainter>
#include <QStyle>

namespace nv {

CajaImagen::CajaImagen(QWidget *padre)
    : QWidget(padre)
{}

bool CajaImagen::cargar(const QString &fichero)
{
    QImageReader lector(fichero);
    lector.setDecideFormatFromContent(true);
    lector.setAutoTransform(true);
    // Decoded at the size of the place: a camera's picture is not unpacked whole for a panel of a few hundred pixels.
    const QSize entera = lector.size();
    QSize sitio = size() * devicePixelRatioF();
    if (lector.transformation().testFlag(QImageIOHandler::TransformationRotate90))
        sitio.transpose();
    if (entera.isValid() && (entera.width() > sitio.width() || entera.height() > sitio.height()))
        lector.setScaledSize(entera.scaled(sitio, Qt::KeepAspectRatio).expandedTo({1, 1}));
    m_imagen = lector.read();
    m_imagen.setDevicePixelRatio(devicePixelRatioF());
    update();
    return !m_imagen.isNull();
}

void CajaImagen::limpiar()
{
    m_imagen = {};
    update();
}

void CajaImagen::paintEvent(QPaintEvent *)
{
    QPainter pintor(this);
    const QRect marco = rect().adjusted(0, 0, -1, -1);
    pintor.fillRect(marco, palette().base());
    pintor.setPen(palette().color(QPalette::Mid));
    pintor.drawRect(marco);
    if (m_imagen.isNull())
        return;
    QSize tamano = m_imagen.deviceIndependentSize().toSize();
    const QRect sitio = marco.adjusted(2, 2, -1, -1);
    if (tamano.width() > sitio.width() || tamano.height() > sitio.height())
        tamano.scale(sitio.size(), Qt::KeepAspectRatio);
    pintor.setRenderHint(QPainter::SmoothPixmapTransform);
    pintor.drawImage(QStyle::alignedRect(layoutDirection(), Qt::AlignCenter, tamano, sitio), m_imagen);
}

} // namespace nv
