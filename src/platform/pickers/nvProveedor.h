#pragma once

#include "platform/pickers/SelectorCodigo.h"

/// Supplier picker: `Proveedores` of the supplier-master company.
class nvProveedor : public nv::SelectorCodigo
{
    Q_OBJECT

public:
    explicit nvProveedor(QWidget *padre = nullptr)
        : SelectorCodigo({u" FROM Proveedores", De::Proveedores, Por::Nombre, u"Proveedores"}, padre)
    {}
};
