#include "platform/widgets/Botonera.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QPushButton>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace nv {

QHBoxLayout *botonera(QDialog *formulario, std::function<void()> aceptar, std::function<void()> cancelar)
{
    auto *botonAceptar = new QPushButton(u"&Aceptar"_s, formulario);
    botonAceptar->setObjectName(u"cmdAceptar"_s);
    auto *botonCancelar = new QPushButton(u"&Cancelar"_s, formulario);
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
    auto *f9 = new QShortcut(Qt::Key_F9, formulario);
    QObject::connect(f9, &QShortcut::activated, formulario, std::move(aceptar));
    auto *f12 = new QShortcut(Qt::Key_F12, formulario);
    QObject::connect(f12, &QShortcut::activated, formulario, std::move(cancelar));
}

} // namespace nv
