#pragma once

#include "platform/widgets/CajaTexto.h"

/// The suite's text box. Enter moves the focus on along the tab order unless a handler of `Intro` says it was dealt
/// with; it never presses a default button.
class nvTextBox : public nv::CajaTexto
{
    Q_OBJECT
    Q_PROPERTY(bool mayusculas READ mayusculas WRITE setMayusculas)
    Q_PROPERTY(bool numerico READ numerico WRITE setNumerico)
    Q_PROPERTY(int decimales READ decimales WRITE setDecimales)
    Q_PROPERTY(bool seleccionarAlEntrar READ seleccionarAlEntrar WRITE setSeleccionarAlEntrar)

public:
    explicit nvTextBox(QWidget *padre = nullptr);

    /// Upper-cases what is typed and pasted, character by character (ß stays ß).
    bool mayusculas() const { return m_mayusculas; }
    void setMayusculas(bool valor) { m_mayusculas = valor; }
    /// Takes only a sign, digits and, with `decimales` > 0, one decimal comma (a typed point becomes the comma).
    bool numerico() const { return m_numerico; }
    void setNumerico(bool valor);
    /// Whether a numeric box takes a sign in front.
    bool conSigno() const { return m_conSigno; }
    void setConSigno(bool valor) { m_conSigno = valor; }
    int decimales() const { return m_decimales; }
    void setDecimales(int valor);
    bool seleccionarAlEntrar() const { return m_seleccionarAlEntrar; }
    void setSeleccionarAlEntrar(bool valor) { m_seleccionarAlEntrar = valor; }

Q_SIGNALS:
    /// Enter was pressed; set `tratada` to keep the focus where it is.
    void Intro(bool &tratada);
    void Entrada(); ///< received the focus from another widget of the window
    void Salida();  ///< lost the focus to another widget of the window (not to a popup, not by hiding)

protected:
    void keyPressEvent(QKeyEvent *evento) override;
    void focusInEvent(QFocusEvent *evento) override;
    void focusOutEvent(QFocusEvent *evento) override;

    bool seleccionaAlEntrar() const override { return m_seleccionarAlEntrar; }
    QString admitido(const QString &insertado) const override;
    bool vale(const QString &texto, const QString &anterior) const override;

private:
    bool m_mayusculas = false;
    bool m_numerico = false;
    bool m_conSigno = true;
    int m_decimales = 0;
    bool m_seleccionarAlEntrar = true;
};
