#pragma once

#include <QLineEdit>

namespace nv {

/// The code box inside the item component: hands every key, character and mouse move to its owner first, by reference,
/// and inserts the character that is left.
class CajaCodigo : public QLineEdit
{
    Q_OBJECT

public:
    explicit CajaCodigo(QWidget *padre);

    /// Background of the box, and the theme's own again: the owner decides by its own state.
    void pintarFondo(const QColor &color);
    void restaurarFondo();

Q_SIGNALS:
    void teclaAbajo(qint16 &codigo, qint16 &estado);
    void teclaArriba(qint16 &codigo, qint16 &estado);
    /// Every character but Enter; 0 inserts nothing.
    void caracter(qint16 &ascii);
    void intro();
    void clic();
    void dobleClic();
    void ratonAbajo(qint16 boton, qint16 estado, QPointF lugar);
    void ratonMovido(qint16 boton, qint16 estado, QPointF lugar);
    void ratonArriba(qint16 boton, qint16 estado, QPointF lugar);
    void enfocada();
    void desenfocada();

protected:
    bool event(QEvent *evento) override;
    void keyPressEvent(QKeyEvent *evento) override;
    void keyReleaseEvent(QKeyEvent *evento) override;
    void inputMethodEvent(QInputMethodEvent *evento) override;
    void focusInEvent(QFocusEvent *evento) override;
    void focusOutEvent(QFocusEvent *evento) override;
    void mousePressEvent(QMouseEvent *evento) override;
    void mouseMoveEvent(QMouseEvent *evento) override;
    void mouseReleaseEvent(QMouseEvent *evento) override;
    void mouseDoubleClickEvent(QMouseEvent *evento) override;

private:
    void escribir(QKeyEvent *evento);

    bool m_trasDobleClic = false; ///< the release that ends a double click is no click
};

} // namespace nv
