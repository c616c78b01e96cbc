#pragma once

#include "platform/pickers/SelectorCodigo.h"

/// Brand picker: `Marcas`, common to all companies.
class nvMarca : public nv::SelectorCodigo
{
    Q_OBJECT

public:
    using SelectorCodigo::SelectorCodigo;

protected:
    nv::Sentencia consultaNombre(const QString &codigo) const override;
    nv::Sentencia consultaLista() const override;
    QString titulo() const override;
};
