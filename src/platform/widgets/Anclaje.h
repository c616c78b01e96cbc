#pragma once

#include <QObject>
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
    struct Anclado
    {
        QWidget *widget;
        Qt::Edges bordes;
        QRect lugar;
    };
    QWidget *m_formulario;
    QSize m_tamano;
    std::vector<Anclado> m_anclados;
};
