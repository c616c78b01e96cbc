#pragma once

#include "platform/pickers/SelectorCodigo.h"

/// Supplier picker: `Proveedores` of the supplier-master company.
class nvProveedor : public nv::SelectorCodigo
{
    Q_OBJECT

public:
    using SelectorCodigo::SelectorCodigo;

protected:
    nv::Sentencia consultaNombre(const QString &codigo) const override;
    nv::Sentencia consultaLista() const override;
    QString titulo() const override;
};
