#pragma once

#include <QObject>
#include <QPointer>
#include <QRect>
#include <QWidget>
#include <vector>

/// Keeps registered widgets attached to their form's edges while it is resized.
class Anclaje : public QObject
{
    Q_OBJECT

public:
    explicit Anclaje(QWidget *formulario);

    /// Edges that the widget keeps its distance to; left and right together stretch it. Registered at its place of now.
    void registrar(QWidget *widget, Qt::Edges bordes);

protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override;

private:
    void colocar();

    struct Anclado
    {
        QPointer<QWidget> widget;
        Qt::Edges bordes;
        QRect lugar;
        QSize formulario; ///< the form's size at that time
    };
    QWidget *m_formulario;
    std::vector<Anclado> m_anclados;
};
