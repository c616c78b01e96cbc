#include "platform/widgets/Mensajes.h"

#include "platform/widgets/CajaMensaje.h"
#include "platform/widgets/DialogoPropio.h"

#include <QApplication>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace nv::mensajes {

namespace {

/// The wait pointer is put aside while a box is up.
class PunteroNormal
{
public:
    PunteroNormal()
        : m_puesto(QGuiApplication::overrideCursor() != nullptr)
    {
        if (m_puesto)
            QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    }
    PunteroNormal(const PunteroNormal &) = delete;
    PunteroNormal &operator=(const PunteroNormal &) = delete;
    ~PunteroNormal()
    {
        if (m_puesto)
            QGuiApplication::restoreOverrideCursor();
    }

private:
    bool m_puesto;
};

/// The window that the box belongs to: the modal one on top, whoever asked.
QWidget *ventana(QWidget *padre)
{
    if (QWidget *modal = QApplication::activeModalWidget())
        return modal;
    for (QWidget *w = padre ? padre->window() : nullptr; w;
         w = w->parentWidget() ? w->parentWidget()->window() : nullptr)
        if (w->isVisible())
            return w;
    return QApplication::activeWindow();
}

QMessageBox::Icon icono(Icono valor)
{
    switch (valor) {
    case Icono::Critico:
        return QMessageBox::Critical;
    case Icono::Exclamacion:
        return QMessageBox::Warning;
    case Icono::Informacion:
        return QMessageBox::Information;
    case Icono::Pregunta:
        return QMessageBox::Question;
    }
    return QMessageBox::NoIcon;
}

void cerrarDesplegables()
{
    while (QWidget *desplegable = QApplication::activePopupWidget())
        if (!desplegable->close())
            break;
}

/// Shows the box and waits; the button pressed, or null when the window took the box along.
QAbstractButton *presentar(const DialogoPropio<CajaMensaje> &caja)
{
    const PunteroNormal puntero;
    caja->exec();
    return caja.vivo() ? caja->clickedButton() : nullptr;
}

} // namespace

void mostrar(QWidget *padre, const QString &titulo, const QString &texto, Icono valor)
{
    cerrarDesplegables();
    const DialogoPropio<CajaMensaje> caja(new CajaMensaje(icono(valor), titulo, texto, ventana(padre)));
    QPushButton *aceptar = caja->addButton(u"Aceptar"_s, QMessageBox::AcceptRole);
    caja->setDefaultButton(aceptar);
    caja->setEscapeButton(aceptar);
    presentar(caja);
}

Respuesta preguntar(QWidget *padre, const QString &titulo, const QString &texto, Respuesta porDefecto)
{
    cerrarDesplegables();
    const DialogoPropio<CajaMensaje> caja(new CajaMensaje(QMessageBox::Question, titulo, texto, ventana(padre)));
    QPushButton *si = caja->addButton(u"&Sí"_s, QMessageBox::YesRole);
    QPushButton *no = caja->addButton(u"&No"_s, QMessageBox::NoRole);
    caja->setDefaultButton(porDefecto == Respuesta::Si ? si : no);
    caja->setEscapeButton(no);
    return presentar(caja) == si ? Respuesta::Si : Respuesta::No;
}

bool Fallos::mostrar(QWidget *formulario, const QString &titulo) const
{
    const QPointer<QWidget> vivo(formulario);
    for (const QString &texto : m_textos) {
        if (vivo)
            mensajes::mostrar(vivo, titulo, texto, Icono::Critico);
    }
    return !vivo.isNull();
}

} // namespace nv::mensajes
