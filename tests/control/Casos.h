#pragma once

#include <QString>
#include <QStringList>
#include <array>
#include <vector>

namespace nv::pruebas {

/// A table of N columns written in one text: a row a line, "→" between the cells, "·" for a blank at the edge of one.
template <std::size_t N>
std::vector<std::array<QString, N>> casos(const QString &texto)
{
    std::vector<std::array<QString, N>> filas;
    for (const QString &linea : texto.split(u'\n', Qt::SkipEmptyParts)) {
        const QStringList celdas = linea.split(u'→');
        if (celdas.size() != N)
            qFatal("%s", qPrintable(linea));
        auto &fila = filas.emplace_back();
        for (std::size_t i = 0; i < N; ++i)
            fila[i] = celdas.value(int(i)).trimmed().replace(u'·', u' ');
    }
    return filas;
}

} // namespace nv::pruebas
