#include "guion/Teclado.h"

#include <QApplication>
#include <QHash>
#include <QKeyEvent>
#include <QKeySequence>
#include <QPointer>
#include <QWidget>

// Exported by the toolkit for drivers of programs: offers a key to shortcuts as the window system does.
Q_GUI_EXPORT bool qt_sendShortcutOverrideEvent(QObject *o, ulong timestamp, int k, Qt::KeyboardModifiers mods,
                                               const QString &text = QString(), bool autorep = false, ushort count = 1);

using namespace Qt::StringLiterals;

namespace nv::guion {

namespace {

void enviar(QWidget *principal, int tecla, Qt::KeyboardModifiers modificadores, const QString &texto)
{
    const QPointer<QWidget> destino = conFoco(principal);
    if (qt_sendShortcutOverrideEvent(destino, 0, tecla, modificadores, texto) || !destino)
        return;
    QKeyEvent abajo(QEvent::KeyPress, tecla, modificadores, texto);
    QApplication::sendEvent(destino, &abajo);
    const QPointer<QWidget> despues = conFoco(principal);
    if (!despues)
        return;
    QKeyEvent arriba(QEvent::KeyRelease, tecla, modificadores, texto);
    QApplication::sendEvent(despues, &arriba);
}

QString textoDe(int tecla, Qt::KeyboardModifiers modificadores)
{
    if (modificadores & (Qt::ControlModifier | Qt::AltModifier))
        return {};
    switch (tecla) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return u"\r"_s;
    case Qt::Key_Escape:
        return u"\x1b"_s;
    case Qt::Key_Backspace:
        return u"\b"_s;
    case Qt::Key_Tab:
        return u"\t"_s;
    default:
        break;
    }
    if (tecla < 0x20 || tecla > 0xff)
        return {};
    const QChar caracter(tecla);
    return modificadores & Qt::ShiftModifier ? QString(caracter) : QString(caracter.toLower());
}

} // namespace

QWidget *ventanaActiva(QWidget *principal)
{
    QWidget *modal = QApplication::activeModalWidget();
    return modal ? modal : principal;
}

QWidget *conFoco(QWidget *principal)
{
    QWidget *ventana = QApplication::activePopupWidget();
    if (!ventana)
        ventana = ventanaActiva(principal);
    QWidget *foco = ventana->focusWidget();
    return foco ? foco : ventana;
}

bool pulsar(QWidget *principal, const QString &nombre)
{
    static const QHash<QString, QString> otros{{u"PageDown"_s, u"PgDown"_s},
                                               {u"PageUp"_s, u"PgUp"_s},
                                               {u"Delete"_s, u"Del"_s},
                                               {u"Insert"_s, u"Ins"_s},
                                               {u"Enter"_s, u"Return"_s}};
    QStringList partes = nombre.split(u'+');
    partes.last() = otros.value(partes.last(), partes.last());
    const QKeySequence secuencia = QKeySequence::fromString(partes.join(u'+'), QKeySequence::PortableText);
    if (secuencia.count() != 1 || secuencia[0].key() == Qt::Key_unknown)
        return false;
    int tecla = secuencia[0].key();
    const Qt::KeyboardModifiers modificadores = secuencia[0].keyboardModifiers();
    if (tecla == Qt::Key_Tab && (modificadores & Qt::ShiftModifier))
        tecla = Qt::Key_Backtab;
    enviar(principal, tecla, modificadores, textoDe(tecla, modificadores));
    return true;
}

void teclear(QWidget *principal, const QString &texto)
{
    // By character, not by code unit: one outside the basic plane comes as one key.
    const QList<uint> caracteres = texto.toUcs4();
    for (const char32_t c : caracteres) {
        const auto mayuscula = static_cast<int>(QChar::toUpper(c));
        enviar(principal, mayuscula, QChar::isUpper(c) ? Qt::ShiftModifier : Qt::NoModifier, QString::fromUcs4(&c, 1));
    }
}

} // namespace nv::guion
