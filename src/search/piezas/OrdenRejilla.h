#pragma once

#include "nvArticulo/Moneda.h"

#include <QObject>
#include <functional>
#include <map>
#include <vector>

namespace nv {

class Rejilla;

/// Order of rows, numbered from 0, by one value of each.
using MenorFila = std::function<bool(int filaA, int filaB)>;
/// As texts in Spanish, without regard to case: "10" before "9".
MenorFila menorPorTexto(const std::vector<QString> &textos, Qt::SortOrder sentido);
MenorFila menorPorImporte(std::vector<Moneda> importes, Qt::SortOrder sentido);

/// Sorts a grid by the heading that is clicked: ascending at first, the other way round with each further click on the
/// same one. Rows that come later stay at the end.
class OrdenRejilla : public QObject
{
    Q_OBJECT

public:
    /// The columns from `primerNumero` on are compared as numbers.
    OrdenRejilla(Rejilla *rejilla, int primerNumero);

    /// The rows came anew: they are sorted by no column.
    void olvidar();
    /// -1 while the rows stand as they came.
    int columna() const { return m_columna; }
    /// Ascending without a column.
    Qt::SortOrder sentido() const;

Q_SIGNALS:
    void Ordenada(); ///< by hand, just now

private:
    void ordenarPor(int columna);
    MenorFila menor(int columna, Qt::SortOrder sentido) const;

    Rejilla *m_rejilla;
    int m_primerNumero;
    int m_columna = -1;
    std::map<int, Qt::SortOrder> m_sentidos;
};

} // namespace nv
