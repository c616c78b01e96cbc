#pragma once

#include "platform/widgets/CajaTexto.h"

#include <QElapsedTimer>

namespace nv {

/// The code box inside the item component: hands every key, character and mouse move to its owner first, by reference,
/// and inserts the character that is left.
class CajaCodigo : public CajaTexto
{
    Q_OBJECT

public:
    explicit CajaCodigo(QWidget *padre);

    /// Light cyan with the focus, light grey while its owner is disabled, dark letters on both, whatever the theme or a
    /// style sheet says; else flat when it is only to be read, and the theme's own colours.
    void pintarEstado(bool habilitada);

    /// Says at the box that nothing has this code; Ctrl+Z in the emptied box brings it back.
    void decirNoEncontrado(const QString &escrito);

Q_SIGNALS:
    void teclaAbajo(qint16 &codigo, qint16 &estado);
    void teclaArriba(qint16 &codigo, qint16 &estado);
    /// Every character but Enter; 0 inserts nothing.
    void caracter(qint16 &ascii);
    void intro();
    void clic();
    void dobleClic();
    /// In twips from the box's corner.
    void ratonAbajo(qint16 &boton, qint16 &estado, float &x, float &y);
    void ratonMovido(qint16 &boton, qint16 &estado, float &x, float &y);
    void ratonArriba(qint16 &boton, qint16 &estado, float &x, float &y);
    void enfocada();
    void desenfocada();

protected:
    bool event(QEvent *evento) override;
    void keyPressEvent(QKeyEvent *evento) override;
    void keyReleaseEvent(QKeyEvent *evento) override;
    void inputMethodEvent(QInputMethodEvent *evento) override;
    void changeEvent(QEvent *evento) override;
    void focusInEvent(QFocusEvent *evento) override;
    void focusOutEvent(QFocusEvent *evento) override;
    void mousePressEvent(QMouseEvent *evento) override;
    void mouseMoveEvent(QMouseEvent *evento) override;
    void mouseReleaseEvent(QMouseEvent *evento) override;
    void mouseDoubleClickEvent(QMouseEvent *evento) override;

private:
    void escribir(QKeyEvent *evento);
    using SenalRaton = void (CajaCodigo::*)(qint16 &, qint16 &, float &, float &);
    void avisarRaton(SenalRaton senal, const QMouseEvent &evento, Qt::MouseButtons botones);

    bool m_habilitada = true;
    QElapsedTimer m_noEncontrado; ///< since nothing was found
    QString m_recuperable;        ///< what was not found last
    bool m_trasDobleClic = false; ///< the release that ends a double click is no click
};

} // namespace nv
