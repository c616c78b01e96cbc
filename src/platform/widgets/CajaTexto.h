#pragma once

#include <QElapsedTimer>
#include <QLineEdit>

namespace nv {

/// What every one-line box of the component does with what arrives. Pasted, dropped and programs' texts become one clean
/// line. What is longer than the box holds is refused whole and said, never cut. The click that brings the focus selects
/// all, so that the next scan replaces what stands there.
class CajaTexto : public QLineEdit
{
    Q_OBJECT

public:
    explicit CajaTexto(QWidget *padre);

    /// In place of the base's limit, which cuts. A program's text that is longer is cut all the same.
    void setMaxLength(int caracteres) { m_maximo = caracteres; }
    int maxLength() const { return m_maximo; }
    /// Whether some of the characters typed last found no room: then what stands in the box is not what was scanned.
    /// Says so and selects the text. To be asked before Enter is obeyed.
    bool rechazaIncompleto();
    /// Says that a text is too long for the box, and selects what stands there.
    void avisarLargo(qsizetype caracteres);

protected:
    bool event(QEvent *evento) override;
    void keyPressEvent(QKeyEvent *evento) override;
    void inputMethodEvent(QInputMethodEvent *evento) override;
    void focusInEvent(QFocusEvent *evento) override;
    void mousePressEvent(QMouseEvent *evento) override;
    void mouseMoveEvent(QMouseEvent *evento) override;
    void mouseReleaseEvent(QMouseEvent *evento) override;

    /// As if it came from the keyboard.
    void teclear(const QString &texto);
    virtual bool seleccionaAlEntrar() const { return true; }
    /// What the box makes of what the user puts in.
    virtual QString admitido(const QString &insertado) const { return insertado; }
    /// Whether the user may change `anterior` to this text.
    virtual bool vale(const QString & /*texto*/, const QString & /*anterior*/) const { return true; }

private:
    class Filtro;

    template <class Accion>
    void tecleando(Accion &&accion);
    void atenderRechazo();
    void anotarLugar();

    int m_maximo = 32767;
    qsizetype m_desde = 0; ///< where a text goes in, and how many characters give way to it
    qsizetype m_seleccionados = 0;
    QElapsedTimer m_vuelta; ///< since the window came back with the focus here
    bool m_tecleando = false;
    qsizetype m_rechazado = 0; ///< length of the text that was too long just now
    bool m_rechazoTecleado = false;
    bool m_incompleto = false;  ///< since the last change, characters found no room
    bool m_clicDelFoco = false; ///< the mouse button is down that brought the focus
};

} // namespace nv
