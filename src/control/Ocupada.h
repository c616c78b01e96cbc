#pragma once

#include "control/nvArticulo.h"

#include <QPointer>

/// Marks the box as having a dialog open for as long as it lives; the box may die first.
class nvArticulo::Ocupada
{
public:
    explicit Ocupada(nvArticulo *articulo)
        : m_articulo(articulo)
    {
        m_articulo->m_ocupada = true;
    }
    Ocupada(const Ocupada &) = delete;
    Ocupada &operator=(const Ocupada &) = delete;
    ~Ocupada()
    {
        if (m_articulo)
            m_articulo->m_ocupada = false;
    }
    bool viva() const { return !m_articulo.isNull(); }

private:
    QPointer<nvArticulo> m_articulo;
};
