#include "control/Disposicion.h"

#include "platform/widgets/Twips.h"

#include <QLayout>
#include <QLineEdit>

namespace nv::disposicion {

namespace {

// Twips.
constexpr int AnchoCaja = 1380;
constexpr int AnchoNombre = 4000;
constexpr int AnchoMinimo = 930;
constexpr int AltoMinimo = 195;
constexpr int AnchoConTexto = 1785;

QString corchetesPara(const QWidget &articulo, int twipsDescontados)
{
    const int blanco = twips::dePixeles(articulo.fontMetrics().horizontalAdvance(u' '), &articulo);
    const int libres = blanco > 0 ? (twips::dePixeles(articulo.width(), &articulo) - twipsDescontados) / blanco - 2 : 0;
    return libres >= 1 ? u'[' + QString(libres, u' ') + u']' : QString();
}

} // namespace

QSize preferida(const QLineEdit &caja)
{
    return {twips::aPixeles(AnchoCaja + AnchoNombre, &caja), caja.sizeHint().height()};
}

QSize minima(const QLineEdit &caja)
{
    return {twips::aPixeles(AnchoCaja, &caja), caja.minimumSizeHint().height()};
}

void colocar(QWidget &articulo, QWidget &caja, QWidget &nombre)
{
    const auto pixeles = [&](int valor) { return twips::aPixeles(valor, &articulo); };
    if (articulo.height() < pixeles(AltoMinimo))
        return;
    const int ancho = pixeles(AnchoCaja);
    const QWidget *padre = articulo.parentWidget();
    if (articulo.width() >= ancho) {
        const int alto = twips::dePixeles(articulo.height(), &articulo);
        caja.setGeometry(0, 0, ancho, articulo.height());
        nombre.setGeometry(ancho, pixeles((alto - AltoMinimo) / 2), articulo.width() - ancho, pixeles(alto - 90));
    } else if (!padre || !padre->layout()) {
        articulo.resize(pixeles(AnchoMinimo), articulo.height());
    }
}

QString corchetes(const QWidget &articulo)
{
    return corchetesPara(articulo, AnchoCaja);
}

QString corchetesDeTexto(const QWidget &articulo)
{
    return corchetesPara(articulo, AnchoConTexto);
}

} // namespace nv::disposicion
