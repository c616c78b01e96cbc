#include "control/Disposicion.h"

#include "platform/widgets/Twips.h"

#include <QLayout>
#include <QLineEdit>
#include <QScreen>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace nv::disposicion {

namespace {

// Twips.
constexpr int AnchoCaja = 1380;
constexpr int AnchoNombre = 4000;
constexpr int AnchoMinimo = 930;
constexpr int AltoMinimo = 195;
constexpr int AnchoConTexto = 1785;

/// Larger letters have more room: an item's code is never cut.
int anchoCaja(const QWidget &caja)
{
    constexpr int margenes = 180;
    return std::max(twips::aPixeles(AnchoCaja, &caja),
                    caja.fontMetrics().horizontalAdvance(u"000000000"_s) + twips::aPixeles(margenes, &caja));
}

QString corchetesPara(const QWidget &articulo, int twipsDescontados)
{
    twipsDescontados += twips::dePixeles(anchoCaja(articulo), &articulo) - AnchoCaja;
    const int blanco = twips::dePixeles(articulo.fontMetrics().horizontalAdvance(u' '), &articulo);
    const int libres = blanco > 0 ? (twips::dePixeles(articulo.width(), &articulo) - twipsDescontados) / blanco - 2 : 0;
    return libres >= 1 ? u'[' + QString(libres, u' ') + u']' : QString();
}

} // namespace

QSize preferida(const QLineEdit &caja)
{
    const int nombre = std::min(twips::conLetra(AnchoNombre, &caja), caja.screen()->availableSize().width() * 2 / 5);
    return {anchoCaja(caja) + nombre, caja.sizeHint().height()};
}

QSize minima(const QLineEdit &caja)
{
    return {anchoCaja(caja), caja.minimumSizeHint().height()};
}

void colocar(QWidget &articulo, QWidget &caja, QWidget &nombre)
{
    const auto pixeles = [&](int valor) { return twips::aPixeles(valor, &articulo); };
    if (articulo.height() < pixeles(AltoMinimo))
        return;
    const QWidget *padre = articulo.parentWidget();
    if (articulo.width() >= pixeles(AnchoCaja)) {
        const int ancho = std::min(anchoCaja(caja), articulo.width());
        const int alto = twips::dePixeles(articulo.height(), &articulo);
        caja.setGeometry(0, 0, ancho, articulo.height());
        // Its first line stands beside the code, whose letters it shares.
        const int linea = std::max(AltoMinimo, twips::dePixeles(nombre.fontMetrics().height(), &articulo));
        nombre.setGeometry(ancho, pixeles(std::max(0, (alto - linea) / 2)), articulo.width() - ancho,
                           pixeles(alto - 90));
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
