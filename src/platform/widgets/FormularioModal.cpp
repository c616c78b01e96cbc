#include "platform/widgets/FormularioModal.h"

#include "platform/widgets/CajaTexto.h"
#include "platform/widgets/Campos.h"
#include "platform/widgets/Teclas.h"
#include "platform/widgets/Twips.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <map>

using namespace Qt::StringLiterals;

namespace nv {

/// Sees the keys of the program before anybody else, and takes those of its form.
class FormularioModal::Atajos : public QObject
{
public:
    explicit Atajos(QWidget *formulario)
        : QObject(formulario)
        , m_formulario(formulario)
    {}

    void poner(int tecla, std::function<void()> accion)
    {
        if (m_acciones.empty())
            QCoreApplication::instance()->installEventFilter(this);
        m_acciones[tecla] = std::move(accion);
    }

protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override
    {
        const bool deTecla = evento->type() == QEvent::KeyPress || evento->type() == QEvent::ShortcutOverride;
        const auto *widget = deTecla ? qobject_cast<QWidget *>(objeto) : nullptr;
        if (!widget || widget->window() != m_formulario)
            return false;
        const auto *tecla = static_cast<QKeyEvent *>(evento);
        const auto hallada = m_acciones.find(tecla->key());
        if (hallada == m_acciones.end())
            return false;
        evento->accept();
        // A copy: what it does may end the form.
        if (evento->type() == QEvent::KeyPress && !tecla->isAutoRepeat())
            std::function<void()>(hallada->second)();
        return true;
    }

private:
    QWidget *m_formulario;
    std::map<int, std::function<void()>> m_acciones;
};

FormularioModal::FormularioModal(QWidget *padre)
    : QDialog(padre)
    , m_atajos(new Atajos(this))
{
    // Letter and colours of the form that it belongs to, which need not be the program's.
    setAttribute(Qt::WA_WindowPropagation);
}

void FormularioModal::ejecutar()
{
    ponerMnemonicos(*this);
    // Large letters on a small screen: the room between the fields goes before any of them.
    if (sizeHint().height() > screen()->availableSize().height() * 95 / 100) {
        for (QLayout *reparto : findChildren<QLayout *>())
            reparto->setSpacing(std::min(reparto->spacing(), 1));
        adjustSize();
    }
    exec();
}

void FormularioModal::atajo(Qt::Key tecla, std::function<void()> accion)
{
    m_atajos->poner(tecla, std::move(accion));
}

void FormularioModal::dimensionar(int ancho, int alto)
{
    ajustarTamano({twips::conLetra(ancho, this), twips::conLetra(alto, this)});
}

void FormularioModal::ajustarTamano(QSize pixeles)
{
    // The height leaves room for the title bar.
    const QSize pantalla = screen()->availableSize();
    resize(pixeles.expandedTo(minimumSizeHint()).boundedTo({pantalla.width(), pantalla.height() * 95 / 100}));
}

void FormularioModal::atajosAceptarCancelar()
{
    atajo(Qt::Key_F9, [this] { aceptarCompleto(); });
    atajo(Qt::Key_F12, [this] { cancelar(); });
}

QPushButton *FormularioModal::boton(const QString &texto, const QString &nombre, std::function<void()> accion)
{
    QPushButton *nuevo = nuevoBoton(texto, nombre, this);
    connect(nuevo, &QPushButton::clicked, this, std::move(accion));
    return nuevo;
}

QHBoxLayout *FormularioModal::botonera(const QString &aceptar, const QString &cancelar)
{
    auto *fila = new QHBoxLayout;
    fila->addStretch();
    fila->addWidget(boton(aceptar, u"cmdAceptar"_s, [this] { aceptarCompleto(); }));
    fila->addWidget(boton(cancelar, u"cmdCancelar"_s, [this] { this->cancelar(); }));
    return fila;
}

bool FormularioModal::completo()
{
    for (CajaTexto *caja : findChildren<CajaTexto *>()) {
        if (caja->isVisible() && caja->rechazaIncompleto()) {
            caja->setFocus();
            return false;
        }
    }
    return true;
}

void FormularioModal::aceptarCompleto()
{
    if (completo())
        aceptar();
}

void FormularioModal::reject()
{
    Aceptado = false;
    QDialog::reject();
}

void FormularioModal::keyPressEvent(QKeyEvent *evento)
{
    const bool intro = teclas::esIntro(*evento);
    auto *boton = qobject_cast<QAbstractButton *>(focusWidget());
    // Without default buttons the toolkit leaves Enter on a focused one, or on a box to tick, without effect.
    if (intro && boton && !evento->isAutoRepeat())
        boton->click();
    else
        QDialog::keyPressEvent(evento);
}

} // namespace nv
