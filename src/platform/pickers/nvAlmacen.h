#pragma once

#include "platform/pickers/SelectorCodigo.h"

/// Warehouse picker: `Almacenes` of the company.
class nvAlmacen : public nv::SelectorCodigo
{
    Q_OBJECT

public:
    explicit nvAlmacen(QWidget *padre = nullptr)
        : SelectorCodigo({u" FROM Almacenes", De::Empresa, Por::Codigo, u"Almacenes"}, padre)
    {}
};
