#pragma once

#include <QRegularExpression>
#include <QStringList>
#include <array>
#include <vector>

namespace nv::pruebas {

/// A table of N columns in one text: a row a line ("¬" goes on with the last), "→" between the cells, "·" for a blank.
template <std::size_t N>
std::vector<std::array<QString, N>> casos(QString texto)
{
    static const QRegularExpression sigue(QStringLiteral("\\n\\s*¬"));
    std::vector<std::array<QString, N>> filas;
    for (const QString &linea : texto.remove(sigue).split(u'\n', Qt::SkipEmptyParts)) {
        const QStringList celdas = linea.split(u'→');
        if (celdas.size() != N)
            qFatal("%s", qPrintable(linea));
        filas.emplace_back();
        for (std::size_t i = 0; i < N; ++i)
            filas.back()[i] = celdas[int(i)].trimmed().replace(u'·', u' ');
    }
    return filas;
}

} // namespace nv::pruebas
