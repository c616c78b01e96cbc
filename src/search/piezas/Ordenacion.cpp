#include "search/piezas/Ordenacion.h"

#include <QCollator>
#include <memory>

namespace nv {

namespace {

template <class Claves>
MenorFila menor(Claves claves, Qt::SortOrder sentido)
{
    auto comunes = std::make_shared<const Claves>(std::move(claves));
    return [comunes, sentido](int filaA, int filaB) {
        const auto &a = (*comunes)[static_cast<std::size_t>(filaA)];
        const auto &b = (*comunes)[static_cast<std::size_t>(filaB)];
        return sentido == Qt::AscendingOrder ? a < b : b < a;
    };
}

} // namespace

Qt::SortOrder Ordenacion::pulsar(int columna)
{
    m_columna = columna;
    const auto [sentido, primera] = m_sentidos.try_emplace(columna, Qt::AscendingOrder);
    if (!primera)
        sentido->second = sentido->second == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
    return sentido->second;
}

Qt::SortOrder Ordenacion::sentido() const
{
    const auto hallado = m_sentidos.find(m_columna);
    return hallado == m_sentidos.end() ? Qt::AscendingOrder : hallado->second;
}

MenorFila menorPorTexto(const std::vector<QString> &textos, Qt::SortOrder sentido)
{
    QCollator cotejo(QLocale(QLocale::Spanish, QLocale::Spain));
    cotejo.setCaseSensitivity(Qt::CaseInsensitive);
    std::vector<QCollatorSortKey> claves;
    claves.reserve(textos.size());
    for (const QString &texto : textos)
        claves.push_back(cotejo.sortKey(texto));
    return menor(std::move(claves), sentido);
}

MenorFila menorPorImporte(std::vector<Moneda> importes, Qt::SortOrder sentido)
{
    return menor(std::move(importes), sentido);
}

} // namespace nv
