#include "platform/widgets/Botonera.h"

#include <QCoreApplication>
#include <QDialog>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

/// Takes Enter while it has the focus itself, although it is no default button.
class BotonDelPie : public QPushButton
{
public:
    using QPushButton::QPushButton;

protected:
    void keyPressEvent(QKeyEvent *evento) override
    {
        const bool intro = evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter;
        if (intro && !evento->isAutoRepeat())
            click();
        else
            QPushButton::keyPressEvent(evento);
    }
};

/// Sees the keys of a form before its fields do. Popups are windows of their own and keep theirs.
class TeclasDelFormulario : public QObject
{
public:
    TeclasDelFormulario(QDialog *formulario, std::function<void()> aceptar, std::function<void()> cancelar)
        : QObject(formulario)
        , m_formulario(formulario)
        , m_aceptar(std::move(aceptar))
        , m_cancelar(std::move(cancelar))
    {
        QCoreApplication::instance()->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override
    {
        if (evento->type() != QEvent::KeyPress && evento->type() != QEvent::ShortcutOverride)
            return false;
        const auto *widget = qobject_cast<QWidget *>(objeto);
        const auto *tecla = static_cast<QKeyEvent *>(evento);
        const bool nuestra =
            (tecla->key() == Qt::Key_F9 || tecla->key() == Qt::Key_F12) && widget && widget->window() == m_formulario;
        if (!nuestra)
            return false;
        evento->accept();
        if (evento->type() == QEvent::KeyPress && !tecla->isAutoRepeat())
            (tecla->key() == Qt::Key_F9 ? m_aceptar : m_cancelar)();
        return true;
    }

private:
    QDialog *m_formulario;
    std::function<void()> m_aceptar;
    std::function<void()> m_cancelar;
};

} // namespace

QHBoxLayout *botonera(QDialog *formulario, std::function<void()> aceptar, std::function<void()> cancelar)
{
    auto *botonAceptar = new BotonDelPie(u"&Aceptar"_s, formulario);
    botonAceptar->setObjectName(u"cmdAceptar"_s);
    auto *botonCancelar = new BotonDelPie(u"&Cancelar"_s, formulario);
    botonCancelar->setObjectName(u"cmdCancelar"_s);
    auto *fila = new QHBoxLayout;
    fila->addStretch();
    for (QPushButton *boton : {botonAceptar, botonCancelar}) {
        boton->setAutoDefault(false);
        fila->addWidget(boton);
    }
    QObject::connect(botonAceptar, &QPushButton::clicked, formulario, std::move(aceptar));
    QObject::connect(botonCancelar, &QPushButton::clicked, formulario, std::move(cancelar));
    return fila;
}

void atajosAceptarCancelar(QDialog *formulario, std::function<void()> aceptar, std::function<void()> cancelar)
{
    new TeclasDelFormulario(formulario, std::move(aceptar), std::move(cancelar));
}

} // namespace nv
