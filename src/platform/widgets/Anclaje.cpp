#include "platform/widgets/Anclaje.h"

#include <QEvent>
#include <algorithm>

namespace {

struct Tramo
{
    int inicio;
    int longitud;
};

Tramo anclado(Tramo tramo, bool alPrincipio, bool alFinal, int crecimiento)
{
    if (alPrincipio && alFinal)
        return {tramo.inicio, std::max(0, tramo.longitud + crecimiento)};
    return {alFinal ? tramo.inicio + crecimiento : tramo.inicio, tramo.longitud};
}

} // namespace

Anclaje::Anclaje(QWidget *formulario)
    : QObject(formulario)
    , m_formulario(formulario)
{
    m_formulario->installEventFilter(this);
}

void Anclaje::registrar(QWidget *widget, Qt::Edges bordes)
{
    std::erase_if(m_anclados, [widget](const Anclado &a) { return a.widget == widget || a.widget.isNull(); });
    m_anclados.push_back({widget, bordes, widget->geometry(), m_formulario->size()});
}

bool Anclaje::eventFilter(QObject *objeto, QEvent *evento)
{
    if (objeto == m_formulario && evento->type() == QEvent::Resize)
        colocar();
    return QObject::eventFilter(objeto, evento);
}

void Anclaje::colocar()
{
    for (const Anclado &a : m_anclados) {
        if (!a.widget)
            continue;
        const QSize crecimiento = m_formulario->size() - a.formulario;
        const Tramo h = anclado({a.lugar.x(), a.lugar.width()}, a.bordes & Qt::LeftEdge, a.bordes & Qt::RightEdge,
                                crecimiento.width());
        const Tramo v = anclado({a.lugar.y(), a.lugar.height()}, a.bordes & Qt::TopEdge, a.bordes & Qt::BottomEdge,
                                crecimiento.height());
        a.widget->setGeometry(h.inicio, v.inicio, h.longitud, v.longitud);
    }
}
