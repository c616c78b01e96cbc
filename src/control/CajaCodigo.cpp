#include "control/CajaCodigo.h"

#include "platform/widgets/Teclas.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPalette>
#include <QPointer>
#include <utility>

namespace nv {

namespace {

bool pasajero(Qt::FocusReason motivo)
{
    return motivo == Qt::PopupFocusReason || motivo == Qt::MenuBarFocusReason;
}

} // namespace

CajaCodigo::CajaCodigo(QWidget *padre)
    : QLineEdit(padre)
{
    setMaxLength(21);
}

void CajaCodigo::pintarFondo(const QColor &color)
{
    QPalette paleta = palette();
    paleta.setColor(QPalette::Base, color);
    setPalette(paleta);
}

void CajaCodigo::restaurarFondo()
{
    setPalette(QPalette());
}

bool CajaCodigo::event(QEvent *evento)
{
    if (evento->type() == QEvent::ShortcutOverride) {
        const auto *tecla = static_cast<QKeyEvent *>(evento);
        if (tecla->key() == Qt::Key_F3 || tecla->key() == Qt::Key_Up) {
            evento->accept();
            return true;
        }
    }
    return QLineEdit::event(evento);
}

void CajaCodigo::keyPressEvent(QKeyEvent *evento)
{
    const QPointer<CajaCodigo> vivo(this);
    // Many characters have no key code of their own: only a code that the host took away cancels the key.
    const qint16 original = teclas::codigo(*evento);
    qint16 codigo = original;
    qint16 estado = teclas::estado(evento->modifiers());
    const bool sinEfectoPropio = codigo == teclas::F3 || codigo == teclas::Arriba;
    Q_EMIT teclaAbajo(codigo, estado);
    if (!vivo || (original != 0 && codigo == 0) || sinEfectoPropio) {
        evento->accept();
        return;
    }
    if (teclas::esIntro(*evento)) {
        evento->accept();
        Q_EMIT intro();
        return;
    }
    escribir(evento);
}

void CajaCodigo::escribir(QKeyEvent *evento)
{
    const QPointer<CajaCodigo> vivo(this);
    const QString texto = evento->key() == Qt::Key_Backspace ? QString(QChar(8)) : evento->text();
    // Delete is no character although it comes with one.
    if (texto.size() != 1 || evento->key() == Qt::Key_Delete) {
        QLineEdit::keyPressEvent(evento);
        return;
    }
    const auto tecleado = static_cast<qint16>(texto.front().unicode());
    qint16 ascii = tecleado;
    Q_EMIT caracter(ascii);
    if (!vivo || ascii == 0) {
        evento->accept();
    } else if (ascii == tecleado) {
        QLineEdit::keyPressEvent(evento);
    } else {
        evento->accept();
        if (!isReadOnly())
            insert(QString(QChar(static_cast<char16_t>(ascii))));
    }
}

void CajaCodigo::keyReleaseEvent(QKeyEvent *evento)
{
    qint16 codigo = teclas::codigo(*evento);
    qint16 estado = teclas::estado(evento->modifiers());
    const QPointer<CajaCodigo> vivo(this);
    Q_EMIT teclaArriba(codigo, estado);
    if (vivo)
        QLineEdit::keyReleaseEvent(evento);
}

void CajaCodigo::inputMethodEvent(QInputMethodEvent *evento)
{
    const QPointer<CajaCodigo> vivo(this);
    QString quedan;
    const QString escrito = evento->commitString();
    for (const QChar c : escrito) {
        auto ascii = static_cast<qint16>(c.unicode());
        Q_EMIT caracter(ascii);
        if (!vivo)
            return;
        if (ascii != 0)
            quedan += QChar(static_cast<char16_t>(ascii));
    }
    QInputMethodEvent filtrado(evento->preeditString(), evento->attributes());
    filtrado.setCommitString(quedan, evento->replacementStart(), evento->replacementLength());
    QLineEdit::inputMethodEvent(&filtrado);
}

void CajaCodigo::focusInEvent(QFocusEvent *evento)
{
    QLineEdit::focusInEvent(evento);
    if (pasajero(evento->reason()))
        return;
    // Coming back from another program must not lay a selection over what is half typed.
    if (evento->reason() != Qt::ActiveWindowFocusReason)
        selectAll();
    Q_EMIT enfocada();
}

void CajaCodigo::focusOutEvent(QFocusEvent *evento)
{
    QLineEdit::focusOutEvent(evento);
    if (!pasajero(evento->reason()))
        Q_EMIT desenfocada();
}

void CajaCodigo::mousePressEvent(QMouseEvent *evento)
{
    const QPointer<CajaCodigo> vivo(this);
    Q_EMIT ratonAbajo(teclas::boton(evento->button()), teclas::estado(evento->modifiers()), evento->position());
    if (vivo)
        QLineEdit::mousePressEvent(evento);
}

void CajaCodigo::mouseMoveEvent(QMouseEvent *evento)
{
    const QPointer<CajaCodigo> vivo(this);
    Q_EMIT ratonMovido(teclas::boton(evento->buttons()), teclas::estado(evento->modifiers()), evento->position());
    if (vivo)
        QLineEdit::mouseMoveEvent(evento);
}

void CajaCodigo::mouseReleaseEvent(QMouseEvent *evento)
{
    const QPointer<CajaCodigo> vivo(this);
    const bool dentro = evento->button() == Qt::LeftButton && rect().contains(evento->position().toPoint());
    QLineEdit::mouseReleaseEvent(evento);
    const bool segundo = std::exchange(m_trasDobleClic, false);
    Q_EMIT ratonArriba(teclas::boton(evento->button()), teclas::estado(evento->modifiers()), evento->position());
    if (vivo && dentro && !segundo)
        Q_EMIT clic();
}

void CajaCodigo::mouseDoubleClickEvent(QMouseEvent *evento)
{
    const QPointer<CajaCodigo> vivo(this);
    QLineEdit::mouseDoubleClickEvent(evento);
    m_trasDobleClic = true;
    Q_EMIT ratonAbajo(teclas::boton(evento->button()), teclas::estado(evento->modifiers()), evento->position());
    if (vivo)
        Q_EMIT dobleClic();
}

} // namespace nv
