#include "platform/widgets/DescarteTeclas.h"

#include "platform/widgets/Rafaga.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QTimer>

namespace nv {

namespace {

constexpr int EnCola = Rafaga::Plazo; // ms; a scanner's line feed comes up to that much after what it opened

} // namespace

DescarteTeclas::DescarteTeclas(QObject *duenno)
    : QObject(duenno)
{
    QCoreApplication::instance()->installEventFilter(this);
    // Timers may come before the window system's queue within one turn of the event loop: one more turn.
    QTimer::singleShot(EnCola, this, [this] { QTimer::singleShot(0, this, &QObject::deleteLater); });
}

bool DescarteTeclas::eventFilter(QObject *, QEvent *evento)
{
    const QEvent::Type tipo = evento->type();
    if (tipo != QEvent::KeyPress && tipo != QEvent::KeyRelease && tipo != QEvent::ShortcutOverride)
        return false;
    // Only the window system stamps its events: what the program itself sends is meant for whom it is sent to.
    if (static_cast<QKeyEvent *>(evento)->timestamp() == 0)
        return false;
    evento->setAccepted(tipo == QEvent::ShortcutOverride);
    return true;
}

} // namespace nv
