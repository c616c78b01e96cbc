#pragma once

#include <QImage>
#include <QWidget>

namespace nv {

/// A picture scaled into its place, its proportions kept; never larger than it is.
class CajaImagen : public QWidget
{
    Q_OBJECT

public:
    explicit CajaImagen(QWidget *padre);

    /// False, and empty, when the file holds no picture.
    bool cargar(const QString &fichero);
    void limpiar();
    bool vacia() const { return m_imagen.isNull(); }

protected:
    void paintEvent(QPaintEvent *evento) override;

private:
    QImage m_imagen;
};

} // namespace nv
