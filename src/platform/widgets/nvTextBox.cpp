#include "platform/widgets/nvTextBox.h"

#include "common/Valores.h"
#include "platform/widgets/Foco.h"
#include "platform/widgets/Teclas.h"

#include <QKeyEvent>
#include <QPointer>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString enMayusculas(QString texto)
{
    // Character by character: a whole-text conversion turns ß into SS and moves the caret.
    for (QChar &c : texto)
        c = c.toUpper();
    return texto;
}

bool esNumeroParcial(QStringView texto, bool signo, int decimales)
{
    if (!texto.isEmpty() && (texto.front() == u'-' || texto.front() == u'+')) {
        if (!signo)
            return false;
        texto = texto.mid(1);
    }
    const qsizetype coma = texto.indexOf(u',');
    const QStringView enteros = coma < 0 ? texto : texto.left(coma);
    const QStringView resto = coma < 0 ? QStringView() : texto.mid(coma + 1);
    return (coma < 0 || decimales > 0) && resto.size() <= decimales &&
           std::all_of(enteros.begin(), enteros.end(), nv::esDigito) &&
           std::all_of(resto.begin(), resto.end(), nv::esDigito);
}

/// A typed point is the decimal comma; in a pasted amount that has both signs the points only group.
QString numeroPegado(const QString &insertado)
{
    QString limpio = insertado.trimmed();
    if (limpio.contains(u','))
        limpio.remove(u'.');
    else if (limpio.count(u'.') == 1)
        limpio.replace(u'.', u',');
    return limpio;
}

} // namespace

nvTextBox::nvTextBox(QWidget *padre)
    : CajaTexto(padre)
{}

QString nvTextBox::admitido(const QString &insertado) const
{
    const QString numero = m_numerico ? numeroPegado(insertado) : insertado;
    return m_mayusculas ? enMayusculas(numero) : numero;
}

/// What a program put there may be no number: the user must be able to correct it.
bool nvTextBox::vale(const QString &texto, const QString &anterior) const
{
    return !m_numerico || esNumeroParcial(texto, m_conSigno, m_decimales) ||
           !esNumeroParcial(anterior, m_conSigno, m_decimales);
}

void nvTextBox::setNumerico(bool valor)
{
    m_numerico = valor;
    setAlignment((valor ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
}

void nvTextBox::setDecimales(int valor)
{
    m_decimales = std::max(0, valor);
}

void nvTextBox::keyPressEvent(QKeyEvent *evento)
{
    if (nv::teclas::esIntro(*evento)) {
        evento->accept();
        if (rechazaIncompleto())
            return;
        const QPointer<nvTextBox> vivo(this);
        bool tratada = false;
        Q_EMIT Intro(tratada);
        if (vivo && !tratada)
            nv::foco::adelante(this);
        return;
    }
    if (evento->key() == Qt::Key_Up && nv::teclas::sinModificar(*evento)) {
        evento->accept();
        nv::foco::atras(this);
        return;
    }
    const QString texto = m_mayusculas ? enMayusculas(evento->text()) : evento->text();
    if (texto == evento->text()) {
        CajaTexto::keyPressEvent(evento);
        return;
    }
    // Already in capitals when it arrives, so that the box keeps its undo history.
    QKeyEvent mayuscula(evento->type(), evento->key(), evento->modifiers(), texto, evento->isAutoRepeat(),
                        static_cast<quint16>(evento->count()));
    CajaTexto::keyPressEvent(&mayuscula);
    evento->setAccepted(mayuscula.isAccepted());
}

namespace {

/// Whether the focus goes between two widgets of one window.
bool entreCampos(const QFocusEvent &evento)
{
    switch (evento.reason()) {
    case Qt::ActiveWindowFocusReason:
    case Qt::PopupFocusReason:
    case Qt::MenuBarFocusReason:
    case Qt::NoFocusReason:
        return false;
    case Qt::MouseFocusReason:
    case Qt::TabFocusReason:
    case Qt::BacktabFocusReason:
    case Qt::ShortcutFocusReason:
    case Qt::OtherFocusReason:
        return true;
    }
    return false;
}

} // namespace

void nvTextBox::focusInEvent(QFocusEvent *evento)
{
    const int cursor = cursorPosition();
    CajaTexto::focusInEvent(evento);
    if (!entreCampos(*evento))
        return;
    if (m_seleccionarAlEntrar) {
        selectAll();
    } else {
        deselect();
        setCursorPosition(cursor);
    }
    Q_EMIT Entrada();
}

void nvTextBox::focusOutEvent(QFocusEvent *evento)
{
    CajaTexto::focusOutEvent(evento);
    if (entreCampos(*evento) && isVisible() && isEnabled())
        Q_EMIT Salida();
}
