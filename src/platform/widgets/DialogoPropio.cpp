#include "platform/widgets/DialogoPropio.h"

#include <QEvent>
#include <QGuiApplication>
#include <QWindow>

namespace nv {

namespace {

class Devolucion : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override
    {
        if (evento->type() != QEvent::Hide || evento->spontaneous())
            return false;
        const auto *formulario = static_cast<QWidget *>(objeto);
        QWidget *padre = formulario->parentWidget();
        // By now the toolkit has no active window any more, but the window system still knows who it was.
        if (padre && formulario->windowHandle() && formulario->windowHandle() == QGuiApplication::focusWindow())
            padre->window()->activateWindow();
        return false;
    }
};

} // namespace

void devolverActivacion(QWidget *formulario)
{
    formulario->installEventFilter(new Devolucion(formulario));
}

} // namespace nv
