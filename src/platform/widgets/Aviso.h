#pragma once

#include <QElapsedTimer>
#include <QLabel>
#include <QPointer>

namespace nv {

/// A word in place of silence: a short text at a field (`lblAviso`), gone at the next key or click. It takes neither focus
/// nor keys nor clicks, so that no scan can answer it.
class Aviso : public QLabel
{
    Q_OBJECT

public:
    /// Below the field, above it where there is no room; in place of what the field's window says already.
    static void mostrar(QWidget *campo, const QString &texto);

protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override;

private:
    explicit Aviso(QWidget *ventana);
    void colocar(const QWidget &campo);

    QElapsedTimer m_dicho;
};

} // namespace nv
