#pragma once

#include <QLabel>

namespace nv {

/// A one-line plain text that ends in an ellipsis where its place is too narrow; the tool tip then has the whole.
class EtiquetaElidida : public QLabel
{
    Q_OBJECT

public:
    explicit EtiquetaElidida(QWidget *padre = nullptr);

    QSize minimumSizeHint() const override;
    /// Painted paler, whatever palette or style sheet says: what it shows does not hold at present.
    void setAtenuada(bool valor);

protected:
    void paintEvent(QPaintEvent *evento) override;
    bool event(QEvent *evento) override;

private:
    bool m_atenuada = false;
};

} // namespace nv
