#include "platform/widgets/DescarteTeclas.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QTimer>

namespace nv {

namespace {

constexpr int Plazo = 20; // ms

} // namespace

DescarteTeclas::DescarteTeclas(QObject *duenno)
    : QObject(duenno)
{
    QCoreApplication::instance()->installEventFilter(this);
    QTimer::singleShot(Plazo, this, &QObject::deleteLater);
}

bool DescarteTeclas::eventFilter(QObject *, QEvent *evento)
{
    if (evento->type() != QEvent::KeyPress && evento->type() != QEvent::KeyRelease)
        return false;
    // Only the window system stamps its events: what the program itself sends is meant for the list.
    return static_cast<QKeyEvent *>(evento)->timestamp() != 0;
}

} // namespace nv
