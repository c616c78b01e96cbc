#include "platform/widgets/Twips.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace nv::twips {

namespace {

constexpr int PorPulgada = 1440;

int resolucion(const QWidget *widget)
{
    if (widget)
        return widget->logicalDpiX();
    const QScreen *pantalla = QGuiApplication::primaryScreen();
    return pantalla ? qRound(pantalla->logicalDotsPerInchX()) : 96;
}

int proporcion(int valor, int numerador, int denominador)
{
    const qint64 doble = 2 * qint64{valor} * numerador;
    const qint64 mitad = doble < 0 ? -denominador : denominador;
    return static_cast<int>((doble + mitad) / (2 * qint64{denominador}));
}

} // namespace

int aPixeles(int twips, const QWidget *widget)
{
    return proporcion(twips, resolucion(widget), PorPulgada);
}

int dePixeles(int pixeles, const QWidget *widget)
{
    return proporcion(pixeles, PorPulgada, resolucion(widget));
}

int conLetra(int twips, const QWidget *widget)
{
    // A digit of the letter that the forms were drawn with.
    constexpr int digito = 90;
    const int normal = aPixeles(digito, widget);
    return proporcion(aPixeles(twips, widget), std::max(normal, widget->fontMetrics().horizontalAdvance(u'0')), normal);
}

} // namespace nv::twips
