#include "platform/widgets/ModeloRejilla.h"

#include <algorithm>
#include <iterator>
#include <numeric>

using namespace Qt::StringLiterals;

namespace nv {

int ModeloRejilla::rowCount(const QModelIndex &padre) const
{
    return padre.isValid() ? 0 : static_cast<int>(m_filas.size());
}

int ModeloRejilla::columnCount(const QModelIndex &padre) const
{
    return padre.isValid() ? 0 : static_cast<int>(m_columnas.size());
}

bool ModeloRejilla::hayCelda(int fila, int columna) const
{
    return fila >= 0 && fila < rowCount() && columna >= 0 && columna < columnCount();
}

QVariant ModeloRejilla::data(const QModelIndex &indice, int papel) const
{
    if (!indice.isValid())
        return {};
    const int col = indice.column();
    switch (papel) {
    case Qt::DisplayRole:
        return m_casillas.contains(col) ? QVariant() : QVariant(texto(indice.row(), col));
    case Qt::CheckStateRole:
        if (!m_casillas.contains(col))
            return {};
        return texto(indice.row(), col) == u"1"_s ? Qt::Checked : Qt::Unchecked;
    case Qt::ToolTipRole:
        return fila(indice.row()).nota;
    case Qt::AccessibleTextRole: {
        const QString &nota = fila(indice.row()).nota;
        return nota.isEmpty() ? QVariant() : QVariant(texto(indice.row(), col) + u", "_s + nota);
    }
    case Qt::TextAlignmentRole:
        return static_cast<int>(columna(col).alineacion | Qt::AlignVCenter);
    case Qt::ForegroundRole:
        return color(fila(indice.row()), col, &Colores::texto);
    case Qt::BackgroundRole:
        return color(fila(indice.row()), col, &Colores::fondo);
    default:
        return {};
    }
}

QVariant ModeloRejilla::headerData(int seccion, Qt::Orientation orientacion, int papel) const
{
    if (orientacion != Qt::Horizontal || papel != Qt::DisplayRole || seccion < 0 || seccion >= columnCount())
        return {};
    return m_titulos[static_cast<std::size_t>(seccion)];
}

void ModeloRejilla::setColumnas(const std::vector<ColumnaRejilla> &columnas)
{
    beginResetModel();
    m_columnas = columnas;
    m_titulos.clear();
    for (const ColumnaRejilla &columna : columnas)
        m_titulos.push_back(columna.titulo.toString());
    m_filas.clear();
    m_casillas.clear();
    endResetModel();
}

void ModeloRejilla::setTitulo(int columna, const QString &titulo)
{
    if (columna < 0 || columna >= columnCount())
        return;
    m_titulos[static_cast<std::size_t>(columna)] = titulo;
    Q_EMIT headerDataChanged(Qt::Horizontal, columna, columna);
}

void ModeloRejilla::setCasilla(int columna)
{
    m_casillas.insert(columna);
}

QString ModeloRejilla::texto(int numero, int columna) const
{
    if (!hayCelda(numero, columna))
        return {};
    const FilaRejilla &textos = fila(numero).textos;
    return static_cast<std::size_t>(columna) < textos.size() ? textos[static_cast<std::size_t>(columna)] : QString();
}

void ModeloRejilla::asignar(Fila &destino, int columna, const QString &texto)
{
    const auto posicion = static_cast<std::size_t>(columna);
    if (destino.textos.size() <= posicion)
        destino.textos.resize(posicion + 1);
    destino.textos[posicion] = texto;
}

void ModeloRejilla::setTexto(int numero, int columna, const QString &texto)
{
    if (!hayCelda(numero, columna))
        return;
    asignar(fila(numero), columna, texto);
    Q_EMIT dataChanged(index(numero, columna), index(numero, columna));
}

void ModeloRejilla::setTextoColumna(int columna, const QString &texto)
{
    if (!hayCelda(0, columna))
        return;
    for (Fila &f : m_filas)
        asignar(f, columna, texto);
    Q_EMIT dataChanged(index(0, columna), index(rowCount() - 1, columna));
}

QVariant ModeloRejilla::color(const Fila &fila, int columna, QColor Colores::*capa) const
{
    for (const Colores &c : fila.colores)
        if (c.columna == columna && (c.*capa).isValid())
            return c.*capa;
    return {};
}

void ModeloRejilla::setColor(int numero, int columna, Capa capa, const QColor &color)
{
    if (!hayCelda(numero, columna))
        return;
    std::vector<Colores> &colores = fila(numero).colores;
    auto celda =
        std::find_if(colores.begin(), colores.end(), [columna](const Colores &c) { return c.columna == columna; });
    if (celda == colores.end())
        celda = colores.insert(celda, Colores{columna, {}, {}});
    (capa == Capa::Texto ? celda->texto : celda->fondo) = color;
    Q_EMIT dataChanged(index(numero, columna), index(numero, columna));
}

void ModeloRejilla::setNota(int numero, const QString &nota)
{
    if (hayCelda(numero, 0))
        fila(numero).nota = nota;
}

void ModeloRejilla::vaciar()
{
    beginResetModel();
    m_filas.clear();
    endResetModel();
}

void ModeloRejilla::anadir(std::vector<FilaRejilla> filas)
{
    if (filas.empty())
        return;
    beginInsertRows({}, rowCount(), rowCount() + static_cast<int>(filas.size()) - 1);
    for (FilaRejilla &textos : filas)
        m_filas.push_back({std::move(textos), {}, {}});
    endInsertRows();
}

void ModeloRejilla::ordenar(const std::function<bool(int, int)> &menor)
{
    std::vector<int> orden(m_filas.size());
    std::iota(orden.begin(), orden.end(), 0);
    std::stable_sort(orden.begin(), orden.end(), menor);

    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    std::vector<Fila> ordenadas;
    ordenadas.reserve(m_filas.size());
    std::vector<int> destino(m_filas.size());
    for (const int antes : orden) {
        destino[static_cast<std::size_t>(antes)] = static_cast<int>(ordenadas.size());
        ordenadas.push_back(std::move(fila(antes)));
    }
    m_filas = std::move(ordenadas);
    const QModelIndexList antiguos = persistentIndexList();
    QModelIndexList nuevos;
    nuevos.reserve(antiguos.size());
    for (const QModelIndex &i : antiguos)
        nuevos.append(index(destino[static_cast<std::size_t>(i.row())], i.column()));
    changePersistentIndexList(antiguos, nuevos);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

} // namespace nv
