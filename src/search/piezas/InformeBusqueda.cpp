#include "search/piezas/InformeBusqueda.h"

#include "search/piezas/OrdenRejilla.h"

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

QString celda(const Registros &registros, int columna, const QString &campo)
{
    if (registros.esNulo(columna))
        return {};
    if (campo.endsWith(u"_Num"))
        return registros.moneda(columna).textoSql();
    return campo == u"Stock_Actual" ? registros.textoNumero(columna) : registros.texto(columna);
}

MenorFila menor(const DatosInforme &datos, const QString &campo, Qt::SortOrder sentido)
{
    const qsizetype lugar = datos.campos.indexOf(campo);
    std::vector<QString> textos;
    for (const QStringList &fila : datos.filas)
        textos.push_back(fila[lugar]);
    if (campo != u"Codigo" && !campo.endsWith(u"_Num"))
        return menorPorTexto(textos, sentido);
    std::vector<Moneda> importes;
    for (const QString &texto : textos)
        importes.push_back(texto.isEmpty() ? Moneda() : Moneda::deTexto(texto));
    return menorPorImporte(std::move(importes), sentido);
}

} // namespace

DatosInforme datosDeInforme(Registros registros, const QString &campoDeOrden, Qt::SortOrder sentido)
{
    DatosInforme leidos;
    for (int i = 0; i < registros.columnas(); ++i)
        leidos.campos.append(registros.nombre(i));
    while (registros.siguiente()) {
        QStringList fila;
        for (int i = 0; i < leidos.campos.size(); ++i)
            fila.append(celda(registros, i, leidos.campos[i]));
        leidos.filas.push_back(std::move(fila));
    }
    std::vector<int> orden(leidos.filas.size());
    std::iota(orden.begin(), orden.end(), 0);
    std::stable_sort(orden.begin(), orden.end(), menor(leidos, campoDeOrden, sentido));
    DatosInforme ordenados{leidos.campos, {}};
    for (const int fila : orden)
        ordenados.filas.push_back(std::move(leidos.filas[static_cast<std::size_t>(fila)]));
    return ordenados;
}

} // namespace nv
