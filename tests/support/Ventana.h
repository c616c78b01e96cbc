#pragma once

#include "support/BaseDatos.h"
#include "support/Conductor.h"
#include "support/EmpresaPrueba.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QSignalSpy>
#include <QToolTip>
#include <QVBoxLayout>
#include <memory>

namespace nv::pruebas {

/// The window of a test, its widgets one under another.
class Ventana : public QWidget
{
public:
    explicit Ventana(const QWidgetList &campos = {})
    {
        auto *columna = new QVBoxLayout(this);
        for (QWidget *campo : campos)
            columna->addWidget(campo);
    }
    /// Without a window manager nobody else makes it the active one.
    bool abrir()
    {
        show();
        activateWindow();
        return QTest::qWaitForWindowActive(this);
    }
};

/// A test of what is on the screen: what stands behind it, and its window.
class PruebaVentana : public QObject
{
protected:
    bool abrir(const QWidgetList &campos = {})
    {
        m_ventana = std::make_unique<Ventana>(campos);
        return m_ventana->abrir();
    }
    /// The catalogue of the process, empty but for these rows: "Marcas (Codigo) VALUES (3);…".
    void llenar(const QString &filas)
    {
        m_base = std::make_unique<BaseDatos>();
        ranura::ofrecer(&m_base->conexion());
        for (const QString &fila : filas.split(QChar(u';')))
            m_base->ejecutar(QStringLiteral("INSERT INTO ") + fila);
        m_empresa = {};
    }

    std::unique_ptr<BaseDatos> m_base;
    EmpresaPrueba m_empresa;
    std::unique_ptr<Ventana> m_ventana;
};

/// Keys by their names: "Down Num+Enter Ctrl+V". Each goes to whoever has the focus by then.
inline void pulsar(QWidget *ventana, const QString &teclas)
{
    for (const QString &tecla : teclas.split(QChar(u' ')))
        QTest::keySequence(ventana->window()->focusWidget(), QKeySequence(tecla));
}

/// A key that the keyboard repeats while it is held.
inline void repetir(QWidget *widget, Qt::Key tecla, const QString &texto = {})
{
    QKeyEvent repetida(QEvent::KeyPress, tecla, Qt::NoModifier, texto, true);
    QCoreApplication::sendEvent(widget, &repetida);
}

/// What the mouse that rests over that place reads; empty when nothing comes up.
inline QString ayuda(QWidget *widget, const QPoint &donde)
{
    QHelpEvent reposo(QEvent::ToolTip, donde, widget->mapToGlobal(donde));
    QCoreApplication::sendEvent(widget, &reposo);
    const QString texto = QToolTip::isVisible() ? QToolTip::text() : QString();
    QToolTip::hideText(); // not at once
    return QTest::qWaitFor([] { return !QToolTip::isVisible(); }) ? texto : QStringLiteral("stays");
}

} // namespace nv::pruebas
