#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

class QKeyEvent;
class QLineEdit;
class QWidget;

namespace mostrador {

/// A scanner is a keyboard, and nobody looks where the focus is before he scans: what it sends belongs to the item box.
/// - Text at a widget that takes none (lines, buttons, lists) begins in the box.
/// - In another field, or over a list that is unfolded, a burst is a scan: the field gets back what stood there.
/// - A Tab that ends a burst is its Enter; the line feed behind its Enter is nothing.
/// Dialogs see to themselves.
class Lector : public QObject
{
    Q_OBJECT

public:
    explicit Lector(QWidget *ventana);

    void setCaja(QLineEdit *caja) { m_caja = caja; }

Q_SIGNALS:
    /// Characters for the box; the rest of them comes by itself.
    void Empezada(const QString &caracteres);
    /// A whole scan, its Enter included.
    void Leido(const QString &codigo);
    /// A burst in the box comes to its Enter.
    void Acabada(const QString &rafaga);

protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override;

private:
    bool esDeLaVentana(const QWidget &widget) const;
    bool sigue(const QKeyEvent &tecla) const;
    bool caracter(QWidget &widget, const QKeyEvent &tecla);
    bool fin(QWidget &widget, const QKeyEvent &tecla);

    QWidget *m_ventana;
    QPointer<QLineEdit> m_caja;
    QPointer<QWidget> m_donde; ///< where the burst goes
    QString m_rafaga;
    QString m_antes; ///< the field's text before it
    quint64 m_ultima = 0;
    bool m_acabada = false; ///< by the key before this one
};

} // namespace mostrador
