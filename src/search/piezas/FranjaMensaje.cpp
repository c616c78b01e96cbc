#include "search/piezas/FranjaMensaje.h"

#include "platform/widgets/Rejilla.h"
#include "platform/widgets/Twips.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace nv {

FranjaMensaje::FranjaMensaje(Rejilla *sobre)
    : QFrame(sobre->parentWidget())
    , m_rejilla(sobre)
{
    setObjectName(u"pctMsg"_s);
    setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    setAutoFillBackground(true);
    auto *texto = new QLabel(u"Buscando  Artículos, espere por favor..."_s, this);
    texto->setTextFormat(Qt::PlainText);
    texto->setAlignment(Qt::AlignCenter);
    auto *fila = new QHBoxLayout(this);
    const int margen = twips::aPixeles(240, this);
    fila->setContentsMargins(2 * margen, margen, 2 * margen, margen);
    fila->addWidget(texto);
    hide();
}

void FranjaMensaje::aparecer()
{
    adjustSize();
    QRect lugar = rect();
    lugar.moveCenter(m_rejilla->geometry().center());
    setGeometry(lugar);
    show();
    raise();
    if (!window()->isVisible())
        return;
    window()->repaint();
    // Keys and clicks wait for the end of the search, and so do timers: nobody may act on a grid that is half filled.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers |
                                    QEventLoop::X11ExcludeTimers);
}

FranjaMensaje::Aviso::Aviso(FranjaMensaje *franja)
    : m_franja(franja)
{
    if (m_franja)
        m_franja->aparecer();
    if (m_franja)
        m_franja->m_rejilla->setRedibujo(false);
}

FranjaMensaje::Aviso::~Aviso()
{
    if (!m_franja)
        return;
    m_franja->m_rejilla->setRedibujo(true);
    m_franja->hide();
}

} // namespace nv
