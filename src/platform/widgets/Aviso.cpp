#include "platform/widgets/Aviso.h"

#include "platform/widgets/Rafaga.h"
#include "platform/widgets/Teclas.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QToolTip>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

bool esSoloModificador(const QKeyEvent &tecla)
{
    return tecla.key() == Qt::Key_Shift || tecla.key() == Qt::Key_Control || tecla.key() == Qt::Key_Alt ||
           tecla.key() == Qt::Key_AltGr || tecla.key() == Qt::Key_Meta;
}

} // namespace

Aviso::Aviso(QWidget *ventana)
    : QLabel(ventana)
{
    setObjectName(u"lblAviso"_s);
    setTextFormat(Qt::PlainText);
    setPalette(QToolTip::palette());
    setForegroundRole(QPalette::ToolTipText);
    setBackgroundRole(QPalette::ToolTipBase);
    setAutoFillBackground(true);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setMargin(3);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void Aviso::mostrar(QWidget *campo, const QString &texto)
{
    QWidget *ventana = campo->window();
    auto *aviso = ventana->findChild<Aviso *>(u"lblAviso"_s, Qt::FindDirectChildrenOnly);
    if (!aviso)
        aviso = new Aviso(ventana);
    aviso->setFont(campo->font());
    aviso->setText(texto);
    aviso->adjustSize();
    aviso->colocar(*campo);
    aviso->m_dicho.start();
    aviso->show();
    aviso->raise();
    qApp->installEventFilter(aviso);
    QAccessibleEvent alerta(aviso, QAccessible::Alert);
    QAccessible::updateAccessibility(&alerta);
}

void Aviso::colocar(const QWidget &campo)
{
    const QWidget *ventana = window();
    const QPoint arriba = campo.mapTo(ventana, QPoint(0, 0));
    int y = arriba.y() + campo.height() + 1;
    if (y + height() > ventana->height())
        y = std::max(0, arriba.y() - height() - 1);
    move(std::max(0, std::min(arriba.x(), ventana->width() - width())), y);
}

bool Aviso::eventFilter(QObject *objeto, QEvent *evento)
{
    const auto *pulsada = evento->type() == QEvent::KeyPress ? static_cast<QKeyEvent *>(evento) : nullptr;
    // The second Enter of a scanner that sends two is no answer.
    const bool eco = pulsada && teclas::esIntro(*pulsada) && !m_dicho.hasExpired(Rafaga::Plazo);
    const bool tecla = pulsada && !eco && !esSoloModificador(*pulsada);
    if (tecla || evento->type() == QEvent::MouseButtonPress) {
        qApp->removeEventFilter(this);
        hide();
    }
    return QLabel::eventFilter(objeto, evento);
}

} // namespace nv
