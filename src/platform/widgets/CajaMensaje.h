#pragma once

#include "platform/widgets/Rafaga.h"

#include <QMessageBox>
#include <QPointer>
#include <QTimer>

namespace nv::mensajes {

/// A message box that keys typed before it appeared do not answer, nor a scanner: the keyboard events that the window
/// system still holds are dropped when it shows itself, and characters that come in a burst are swallowed with the Enter
/// that ends them. A letter or Space on its own answers once a tenth of a second has passed without another key.
class CajaMensaje : public QMessageBox
{
    Q_OBJECT

public:
    CajaMensaje(Icon icono, const QString &titulo, const QString &texto, QWidget *padre);

protected:
    void showEvent(QShowEvent *evento) override;
    bool eventFilter(QObject *objeto, QEvent *evento) override;

private:
    bool tragada(const QKeyEvent &evento);
    void aplicarPendiente();
    void desplazarTextoLargo();

    Rafaga m_rafaga;
    QTimer m_quietud;
    QPointer<QAbstractButton> m_pendiente;
};

} // namespace nv::mensajes
