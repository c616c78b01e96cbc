#include "control/CajaCodigo.h"

#include "platform/widgets/Aviso.h"
#include "platform/widgets/Rafaga.h"
#include "platform/widgets/Teclas.h"
#include "platform/widgets/Twips.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPalette>
#include <QPointer>
#include <utility>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

constexpr QColor ConFoco(192, 255, 255);
constexpr QColor Deshabilitada(224, 224, 224);
constexpr QColor Letra(0, 0, 0);

bool pasajero(Qt::FocusReason motivo)
{
    return motivo == Qt::PopupFocusReason || motivo == Qt::MenuBarFocusReason;
}

} // namespace

CajaCodigo::CajaCodigo(QWidget *padre)
    : CajaTexto(padre)
{
    setMaxLength(21);
    connect(this, &QLineEdit::textEdited, this, [this] { m_recuperable.clear(); });
}

void CajaCodigo::pintarEstado(bool habilitada)
{
    m_habilitada = habilitada;
    const QPalette comun = parentWidget()->palette();
    QPalette paleta;
    if (!habilitada || hasFocus()) {
        paleta = palette();
        paleta.setColor(QPalette::Base, habilitada ? ConFoco : Deshabilitada);
        paleta.setColor(QPalette::Text, Letra);
    } else if (isReadOnly()) {
        // What is only to be read lies flat on its form.
        paleta = palette();
        paleta.setColor(QPalette::Base, comun.color(QPalette::Window));
        paleta.setColor(QPalette::Text, comun.color(QPalette::WindowText));
    }
    const bool propia = !habilitada || hasFocus() || isReadOnly();
    setPalette(paleta);
    // A host's style sheet would have its own colours instead.
    if (testAttribute(Qt::WA_StyleSheet) || !styleSheet().isEmpty()) {
        const QString hoja = propia ? u"background-color: %1; color: %2"_s.arg(paleta.color(QPalette::Base).name(),
                                                                               paleta.color(QPalette::Text).name())
                                    : QString();
        if (styleSheet() != hoja)
            setStyleSheet(hoja);
    }
}

void CajaCodigo::changeEvent(QEvent *evento)
{
    CajaTexto::changeEvent(evento);
    if (evento->type() == QEvent::StyleChange)
        pintarEstado(m_habilitada);
}

void CajaCodigo::decirNoEncontrado(const QString &escrito)
{
    m_recuperable = escrito;
    m_noEncontrado.start();
    Aviso::mostrar(this, u"«%1» no existe (Ctrl+Z lo recupera)"_s.arg(escrito));
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
    return CajaTexto::event(evento);
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
        // Some scanners send two: the second must not leave the box that the first has emptied.
        if (text().isEmpty() && m_noEncontrado.isValid() && !m_noEncontrado.hasExpired(Rafaga::Plazo))
            return;
        Q_EMIT intro();
        return;
    }
    if (evento->matches(QKeySequence::Undo) && text().isEmpty() && !m_recuperable.isEmpty() && !isReadOnly()) {
        evento->accept();
        teclear(std::exchange(m_recuperable, {}));
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
        CajaTexto::keyPressEvent(evento);
        return;
    }
    const auto tecleado = static_cast<qint16>(texto.front().unicode());
    qint16 ascii = tecleado;
    Q_EMIT caracter(ascii);
    if (!vivo || ascii == 0) {
        evento->accept();
    } else if (ascii == tecleado) {
        CajaTexto::keyPressEvent(evento);
    } else {
        evento->accept();
        if (!isReadOnly())
            teclear(QString(QChar(static_cast<char16_t>(ascii))));
    }
}

void CajaCodigo::keyReleaseEvent(QKeyEvent *evento)
{
    qint16 codigo = teclas::codigo(*evento);
    qint16 estado = teclas::estado(evento->modifiers());
    const QPointer<CajaCodigo> vivo(this);
    Q_EMIT teclaArriba(codigo, estado);
    if (vivo)
        CajaTexto::keyReleaseEvent(evento);
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
    CajaTexto::inputMethodEvent(&filtrado);
}

void CajaCodigo::focusInEvent(QFocusEvent *evento)
{
    CajaTexto::focusInEvent(evento);
    if (pasajero(evento->reason()))
        return;
    // Coming back from another program must not lay a selection over what is half typed.
    if (evento->reason() != Qt::ActiveWindowFocusReason)
        selectAll();
    Q_EMIT enfocada();
}

void CajaCodigo::focusOutEvent(QFocusEvent *evento)
{
    CajaTexto::focusOutEvent(evento);
    if (!pasajero(evento->reason()))
        Q_EMIT desenfocada();
}

void CajaCodigo::avisarRaton(SenalRaton senal, const QMouseEvent &evento, Qt::MouseButtons botones)
{
    qint16 boton = teclas::boton(botones);
    qint16 estado = teclas::estado(evento.modifiers());
    auto x = static_cast<float>(twips::dePixeles(qRound(evento.position().x()), this));
    auto y = static_cast<float>(twips::dePixeles(qRound(evento.position().y()), this));
    Q_EMIT(this->*senal)(boton, estado, x, y);
}

void CajaCodigo::mousePressEvent(QMouseEvent *evento)
{
    const QPointer<CajaCodigo> vivo(this);
    avisarRaton(&CajaCodigo::ratonAbajo, *evento, evento->button());
    if (vivo)
        CajaTexto::mousePressEvent(evento);
}

void CajaCodigo::mouseMoveEvent(QMouseEvent *evento)
{
    const QPointer<CajaCodigo> vivo(this);
    avisarRaton(&CajaCodigo::ratonMovido, *evento, evento->buttons());
    if (vivo)
        CajaTexto::mouseMoveEvent(evento);
}

void CajaCodigo::mouseReleaseEvent(QMouseEvent *evento)
{
    const QPointer<CajaCodigo> vivo(this);
    const bool dentro = evento->button() == Qt::LeftButton && rect().contains(evento->position().toPoint());
    CajaTexto::mouseReleaseEvent(evento);
    const bool segundo = std::exchange(m_trasDobleClic, false);
    avisarRaton(&CajaCodigo::ratonArriba, *evento, evento->button());
    if (vivo && dentro && !segundo)
        Q_EMIT clic();
}

void CajaCodigo::mouseDoubleClickEvent(QMouseEvent *evento)
{
    const QPointer<CajaCodigo> vivo(this);
    CajaTexto::mouseDoubleClickEvent(evento);
    m_trasDobleClic = true;
    avisarRaton(&CajaCodigo::ratonAbajo, *evento, evento->button());
    if (vivo)
        Q_EMIT dobleClic();
}

} // namespace nv
