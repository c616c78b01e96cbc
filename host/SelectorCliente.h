#pragma once

#include "platform/pickers/SelectorCodigo.h"

namespace mostrador {

using namespace nv;

/// Customer picker of the document: `Clientes` of the customer company.
class SelectorCliente : public SelectorCodigo
{
    Q_OBJECT

public:
    explicit SelectorCliente(QWidget *padre = nullptr)
        : SelectorCodigo({u" FROM Clientes", De::Clientes, Por::Nombre, u"Clientes"}, padre)
    {}
};

} // namespace mostrador
