#pragma once

#include "common/Moneda.h"

#include <QString>
#include <functional>
#include <map>
#include <vector>

namespace nv {

/// The sort state of a grid's columns: each remembers its direction, ascending at first and reversed by each further
/// click on it.
class Ordenacion
{
public:
    /// A click on a heading; the direction to sort in.
    Qt::SortOrder pulsar(int columna);
    /// The rows came anew: they are sorted by no column.
    void olvidarColumna() { m_columna = -1; }

    /// -1 while the rows stand as they came.
    int columna() const { return m_columna; }
    /// Ascending without a column.
    Qt::SortOrder sentido() const;

private:
    int m_columna = -1;
    std::map<int, Qt::SortOrder> m_sentidos;
};

/// Order of rows, numbered from 0, by one value of each.
using MenorFila = std::function<bool(int filaA, int filaB)>;
/// As texts in Spanish, without regard to case: "10" before "9".
MenorFila menorPorTexto(const std::vector<QString> &textos, Qt::SortOrder sentido);
MenorFila menorPorImporte(std::vector<Moneda> importes, Qt::SortOrder sentido);

} // namespace nv
