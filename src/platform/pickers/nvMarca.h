#pragma once

#include "platform/pickers/SelectorCodigo.h"

/// Brand picker: `Marcas`, common to all companies.
class nvMarca : public nv::SelectorCodigo
{
    Q_OBJECT

public:
    explicit nvMarca(QWidget *padre = nullptr)
        : SelectorCodigo({u" FROM Marcas", De::Todas, Por::Nombre, u"Marcas"}, padre)
    {}
};
