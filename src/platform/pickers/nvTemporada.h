#pragma once

#include "platform/pickers/SelectorCodigo.h"

/// Season picker: `Temporadas`, whose codes are texts.
class nvTemporada : public nv::SelectorCodigo
{
    Q_OBJECT

public:
    using SelectorCodigo::SelectorCodigo;

protected:
    nv::Sentencia consultaNombre(const QString &codigo) const override;
    nv::Sentencia consultaLista() const override;
    QString titulo() const override;
    bool codigosNumericos() const override { return false; }
};
