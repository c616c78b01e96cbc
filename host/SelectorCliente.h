#pragma once

#include "platform/pickers/SelectorCodigo.h"

namespace nv {

/// Customer picker of the document: `Clientes` of the customer company.
class SelectorCliente : public SelectorCodigo
{
    Q_OBJECT

public:
    using SelectorCodigo::SelectorCodigo;

protected:
    Sentencia consultaNombre(const QString &codigo) const override;
    Sentencia consultaLista() const override;
    QString titulo() const override;
};

} // namespace nv
