#include "platform/widgets/CajaMensaje.h"

#include "platform/widgets/DescarteTeclas.h"
#include "platform/widgets/Teclas.h"
#include "platform/widgets/Twips.h"

#include <QAbstractButton>
#include <QApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollArea>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace nv::mensajes {

CajaMensaje::CajaMensaje(Icon icono, const QString &titulo, const QString &texto, QWidget *padre)
    : QMessageBox(padre)
{
    setObjectName(u"mensaje"_s);
    setWindowTitle(titulo);
    setTextFormat(Qt::PlainText);
    setIcon(icono);
    setText(texto);
    m_quietud.setSingleShot(true);
    m_quietud.setInterval(Rafaga::Plazo);
    connect(&m_quietud, &QTimer::timeout, this, &CajaMensaje::aplicarPendiente);
}

void CajaMensaje::showEvent(QShowEvent *evento)
{
    QCoreApplication::instance()->installEventFilter(this);
    new DescarteTeclas(this);
    desplazarTextoLargo();
    QMessageBox::showEvent(evento);
}

bool CajaMensaje::eventFilter(QObject *objeto, QEvent *evento)
{
    const QEvent::Type tipo = evento->type();
    const auto *widget = qobject_cast<QWidget *>(objeto);
    if ((tipo != QEvent::KeyPress && tipo != QEvent::KeyRelease) || !widget || widget->window() != this)
        return false;
    const auto &tecla = *static_cast<QKeyEvent *>(evento);
    return tipo == QEvent::KeyPress ? tragada(tecla) : tecla.key() == Qt::Key_Space;
}

bool CajaMensaje::tragada(const QKeyEvent &evento)
{
    const bool enRafaga = m_rafaga.enCurso();
    // A held Enter repeats into a box that it has opened itself.
    if (teclas::esIntro(evento)) {
        m_quietud.stop();
        return enRafaga || evento.isAutoRepeat();
    }
    if (!teclas::esTexto(evento))
        return false;
    m_rafaga.caracter();
    m_quietud.stop();
    m_pendiente = nullptr;
    if (enRafaga || evento.isAutoRepeat())
        return true;
    const QList<QAbstractButton *> botones = buttons();
    for (QAbstractButton *boton : botones) {
        const QString nemonico = boton->shortcut().toString(QKeySequence::PortableText).section(u'+', -1);
        if (evento.key() == Qt::Key_Space ? boton->hasFocus()
                                          : nemonico.compare(evento.text(), Qt::CaseInsensitive) == 0)
            m_pendiente = boton;
    }
    if (m_pendiente)
        m_quietud.start();
    return true;
}

void CajaMensaje::aplicarPendiente()
{
    if (m_pendiente)
        m_pendiente->click();
}

void CajaMensaje::desplazarTextoLargo()
{
    auto *etiqueta = findChild<QLabel *>(u"qt_msgbox_label"_s);
    auto *rejilla = qobject_cast<QGridLayout *>(layout());
    if (!etiqueta || !rejilla || rejilla->indexOf(etiqueta) < 0)
        return;
    const QSize hueco(twips::aPixeles(8400, this), twips::aPixeles(5400, this));
    const QRect ocupado = etiqueta->fontMetrics().boundingRect(QRect(QPoint(), QSize(hueco.width(), 1 << 20)),
                                                               Qt::TextWordWrap | Qt::AlignLeft, etiqueta->text());
    if (ocupado.height() <= hueco.height() && ocupado.width() <= hueco.width())
        return;
    int fila = 0;
    int columna = 0;
    int filas = 1;
    int columnas = 1;
    rejilla->getItemPosition(rejilla->indexOf(etiqueta), &fila, &columna, &filas, &columnas);
    rejilla->removeWidget(etiqueta);
    etiqueta->setWordWrap(true);
    auto *vista = new QScrollArea(this);
    vista->setWidgetResizable(true);
    vista->setFrameShape(QFrame::NoFrame);
    vista->setMinimumSize(hueco.width(), std::min(ocupado.height() + 2 * fontMetrics().height(), hueco.height()));
    vista->setWidget(etiqueta);
    rejilla->addWidget(vista, fila, columna, filas, columnas);
}

} // namespace nv::mensajes
