#pragma once

#include "platform/pickers/SelectorCodigo.h"

/// Season picker: `Temporadas`, whose codes are texts.
class nvTemporada : public nv::SelectorCodigo
{
    Q_OBJECT

public:
    explicit nvTemporada(QWidget *padre = nullptr)
        : SelectorCodigo({u" FROM Temporadas", De::Todas, Por::Codigo, u"Temporadas", false}, padre)
    {}
};
