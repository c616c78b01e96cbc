#include "guion/Persona.h"

#include "guion/Instruccion.h"
#include "nvArticulo/Error.h"
#include "platform/widgets/Rejilla.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QHash>
#include <QHeaderView>
#include <QKeySequence>
#include <QPointer>
#include <QTest>

using namespace Qt::StringLiterals;

/// The window system's door, declared here because its header is not among the public ones.
class QWindowSystemInterface
{
public:
    struct AsynchronousDelivery
    {};
    template <typename Entrega>
    static bool handleKeyEvent(QWindow *ventana, QEvent::Type tipo, int tecla, Qt::KeyboardModifiers modificadores,
                               const QString &texto, bool repetida, ushort veces);
};

namespace mostrador::guion {

namespace {

/// The key goes up where the focus is by then.
template <class... Tecla>
void enviar(QWidget *principal, const Tecla &...tecla)
{
    QWidget *destino = conFoco(principal);
    if (!destino)
        throw Error{0, u"nadie tiene el foco: lo tecleado se pierde"_s};
    QTest::sendKeyEvent(QTest::Press, destino, tecla...);
    if (QWidget *despues = conFoco(principal))
        QTest::sendKeyEvent(QTest::Release, despues, tecla...);
}

} // namespace

QWidget *ventanaActiva(QWidget *principal)
{
    QWidget *modal = QApplication::activeModalWidget();
    return modal ? modal : principal;
}

QWidget *conFoco(QWidget *principal)
{
    QWidget *desplegable = QApplication::activePopupWidget();
    QWidget *ventana = desplegable ? desplegable : ventanaActiva(principal);
    QWidget *foco = ventana->focusWidget();
    if (!foco)
        return ventana;
    return foco->isVisible() && foco->isEnabled() ? foco : nullptr;
}

QWidget *buscado(QWidget *ventana, const QString &nombre)
{
    if (ventana->objectName() == nombre)
        return ventana;
    QWidget *mejor = nullptr;
    for (QWidget *candidato : ventana->findChildren<QWidget *>(nombre)) {
        if (candidato->window() == ventana && (!mejor || (candidato->isVisible() && !mejor->isVisible())))
            mejor = candidato;
    }
    return mejor;
}

QString textoDe(QWidget *widget)
{
    if (const auto *casilla = qobject_cast<QCheckBox *>(widget))
        return QString::number(casilla->checkState() == Qt::PartiallyChecked ? 2 : casilla->isChecked());
    if (const auto *rejilla = qobject_cast<Rejilla *>(widget))
        return QString::number(rejilla->filaActual());
    // The item box, pickers, notes, lists, and whatever else shows a text.
    for (const char *propiedad : {"Text", "Texto", "plainText", "currentText", "text"}) {
        const QVariant texto = widget->property(propiedad);
        if (texto.isValid())
            return qobject_cast<QAbstractButton *>(widget) ? texto.toString().remove(u'&') : texto.toString();
    }
    return {};
}

QString textoDeFila(const Rejilla &rejilla, int fila)
{
    QStringList celdas;
    for (int columna = 0; columna < rejilla.model()->columnCount(); ++columna) {
        if (!rejilla.isColumnHidden(columna))
            celdas << enUnaLinea(rejilla.texto(fila, columna));
    }
    return celdas.join(u" | "_s);
}

std::pair<QWidget *, QPoint> celda(Rejilla &rejilla, int fila, int columna)
{
    if (fila == 0) {
        QHeaderView *titulos = rejilla.horizontalHeader();
        return {titulos->viewport(),
                {titulos->sectionViewportPosition(columna) + titulos->sectionSize(columna) / 2, titulos->height() / 2}};
    }
    const QModelIndex indice = rejilla.model()->index(fila - 1, columna);
    rejilla.scrollTo(indice);
    return {rejilla.viewport(), rejilla.visualRect(indice).center()};
}

QStringList leido(const QMessageBox &caja)
{
    static const QHash<QMessageBox::Icon, QString> iconos{{QMessageBox::Critical, u"critico"_s},
                                                          {QMessageBox::Warning, u"exclamacion"_s},
                                                          {QMessageBox::Information, u"informacion"_s},
                                                          {QMessageBox::Question, u"pregunta"_s}};
    return {caja.windowTitle(), caja.text(), iconos.value(caja.icon(), u"sin icono"_s)};
}

void pulsar(QWidget *principal, const QString &nombre)
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
        throw GuionMalo{u"no hay tecla %1"_s.arg(nombre)};
    const Qt::KeyboardModifiers modificadores = secuencia[0].keyboardModifiers();
    const bool atras = secuencia[0].key() == Qt::Key_Tab && (modificadores & Qt::ShiftModifier);
    const Qt::Key tecla = atras ? Qt::Key_Backtab : secuencia[0].key();
    // A hand does not take a row within a tenth of a second of the list's coming; a scanner would.
    if (tecla == Qt::Key_Return && qobject_cast<Rejilla *>(conFoco(principal)))
        QTest::qSleep(120);
    enviar(principal, tecla, QTest::keyToAscii(tecla), modificadores);
}

void teclear(QWidget *principal, const QString &texto)
{
    // By character, not by code unit: one outside the basic plane comes as one key.
    const QList<uint> caracteres = texto.toUcs4();
    for (const char32_t c : caracteres)
        enviar(principal, static_cast<Qt::Key>(QChar::toUpper(c)), QString::fromUcs4(&c, 1),
               QChar::isUpper(c) ? Qt::ShiftModifier : Qt::NoModifier);
}

void leer(QWidget *principal, const QString &texto)
{
    using Sistema = QWindowSystemInterface;
    // To whichever window has the focus by then; under an unfolded list that is still the one below.
    QWindow *ventana = QApplication::activePopupWidget() ? principal->windowHandle() : nullptr;
    for (const QChar c : texto) {
        const bool fin = c == u'\r' || c == u'\n';
        const int tecla = fin ? int(Qt::Key_Return) : c == u'\t' ? int(Qt::Key_Tab) : int(c.toUpper().unicode());
        for (const QEvent::Type tipo : {QEvent::KeyPress, QEvent::KeyRelease})
            Sistema::handleKeyEvent<Sistema::AsynchronousDelivery>(ventana, tipo, tecla, Qt::NoModifier, QString(c),
                                                                   false, 1);
    }
}

void pulsarRaton(QWidget *widget, QPoint lugar, bool doble)
{
    const QPointer<QWidget> vivo(widget);
    QTest::mouseClick(widget, Qt::LeftButton, {}, lugar);
    if (doble && vivo)
        QTest::mouseDClick(widget, Qt::LeftButton, {}, lugar);
    if (doble && vivo)
        QTest::mouseRelease(widget, Qt::LeftButton, {}, lugar);
}

void cerrar(QWidget *ventana)
{
    if (auto *dialogo = qobject_cast<QDialog *>(ventana))
        dialogo->reject();
    else
        ventana->close();
}

} // namespace mostrador::guion
