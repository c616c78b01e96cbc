#pragma once

#include "platform/pickers/SelectorCodigo.h"

#include <QHBoxLayout>
#include <QLabel>
#include <algorithm>
#include <initializer_list>
#include <limits>

/// What every form of the host is put together with.
namespace mostrador::formas {

/// A widget under the name by which scripts find it.
template <class Widget, class... Argumentos>
Widget *nombrado(const QString &nombre, Argumentos &&...argumentos)
{
    auto *widget = new Widget(std::forward<Argumentos>(argumentos)...);
    widget->setObjectName(nombre);
    return widget;
}

/// The caption of a field, with the mnemonic that leads there.
inline QLabel *rotulo(const QString &texto, QWidget *de)
{
    auto *nuevo = new QLabel(texto);
    nuevo->setBuddy(de);
    return nuevo;
}

/// 0 for any; a number that no code can be is one that nothing has.
inline qint32 codigoDe(const nv::SelectorCodigo &selector)
{
    return static_cast<qint32>(std::min<qint64>(selector.CodigoBuscado(), std::numeric_limits<qint32>::max()));
}

/// One beside the other; a null takes the room that is left.
inline QHBoxLayout *enFila(std::initializer_list<QWidget *> widgets)
{
    auto *fila = new QHBoxLayout;
    for (QWidget *widget : widgets) {
        if (widget)
            fila->addWidget(widget, widget->sizePolicy().expandingDirections() & Qt::Horizontal ? 1 : 0);
        else
            fila->addStretch();
    }
    return fila;
}

} // namespace mostrador::formas
