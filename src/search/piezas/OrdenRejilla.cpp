#include "search/piezas/OrdenRejilla.h"

#include "platform/widgets/Rejilla.h"
#include "search/piezas/PunteroEspera.h"

#include <QCollator>
#include <QHeaderView>
#include <memory>

namespace nv {

namespace {

template <class Claves>
MenorFila menorPorClave(Claves claves, Qt::SortOrder sentido)
{
    auto comunes = std::make_shared<const Claves>(std::move(claves));
    return [comunes, sentido](int filaA, int filaB) {
        const auto &a = (*comunes)[static_cast<std::size_t>(filaA)];
        const auto &b = (*comunes)[static_cast<std::size_t>(filaB)];
        return sentido == Qt::AscendingOrder ? a < b : b < a;
    };
}

} // namespace

MenorFila menorPorTexto(const std::vector<QString> &textos, Qt::SortOrder sentido)
{
    QCollator cotejo(QLocale(QLocale::Spanish, QLocale::Spain));
    cotejo.setCaseSensitivity(Qt::CaseInsensitive);
    std::vector<QCollatorSortKey> claves;
    claves.reserve(textos.size());
    for (const QString &texto : textos)
        claves.push_back(cotejo.sortKey(texto));
    return menorPorClave(std::move(claves), sentido);
}

MenorFila menorPorImporte(std::vector<Moneda> importes, Qt::SortOrder sentido)
{
    return menorPorClave(std::move(importes), sentido);
}

OrdenRejilla::OrdenRejilla(Rejilla *rejilla, int primerNumero)
    : QObject(rejilla)
    , m_rejilla(rejilla)
    , m_primerNumero(primerNumero)
{
    connect(rejilla, &Rejilla::TituloPulsado, this, &OrdenRejilla::ordenarPor);
}

void OrdenRejilla::olvidar()
{
    m_columna = -1;
    m_rejilla->horizontalHeader()->setSortIndicatorShown(false);
}

Qt::SortOrder OrdenRejilla::sentido() const
{
    const auto hallado = m_sentidos.find(m_columna);
    return hallado == m_sentidos.end() ? Qt::AscendingOrder : hallado->second;
}

void OrdenRejilla::ordenarPor(int columna)
{
    const PunteroEspera espera;
    m_columna = columna;
    const auto [anotado, primera] = m_sentidos.try_emplace(columna, Qt::AscendingOrder);
    if (!primera)
        anotado->second = anotado->second == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
    m_rejilla->ordenar(
        [orden = menor(columna, anotado->second)](int filaA, int filaB) { return orden(filaA - 1, filaB - 1); });
    m_rejilla->horizontalHeader()->setSortIndicator(columna, anotado->second);
    m_rejilla->horizontalHeader()->setSortIndicatorShown(true);
    Q_EMIT Ordenada();
}

MenorFila OrdenRejilla::menor(int columna, Qt::SortOrder sentido) const
{
    std::vector<QString> textos;
    for (int fila = 1; fila < m_rejilla->filas(); ++fila)
        textos.push_back(m_rejilla->texto(fila, columna));
    if (columna < m_primerNumero)
        return menorPorTexto(textos, sentido);
    std::vector<Moneda> importes;
    for (QString &texto : textos)
        importes.push_back(texto.isEmpty() ? Moneda() : Moneda::deTexto(texto.replace(u',', u'.')));
    return menorPorImporte(std::move(importes), sentido);
}

} // namespace nv
