#pragma once

#include "platform/widgets/Rejilla.h"

#include <QAbstractTableModel>
#include <functional>
#include <set>

namespace nv {

/// The rows of a grid; numbers of rows here begin with 0, the first data row. Colours are kept with the rows that have any.
class ModeloRejilla : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex &padre = {}) const override;
    int columnCount(const QModelIndex &padre = {}) const override;
    QVariant data(const QModelIndex &indice, int papel) const override;
    QVariant headerData(int seccion, Qt::Orientation orientacion, int papel) const override;

    /// Leaves the grid without rows.
    void setColumnas(const std::vector<ColumnaRejilla> &columnas);
    const ColumnaRejilla &columna(int columna) const { return m_columnas[static_cast<std::size_t>(columna)]; }
    void setTitulo(int columna, const QString &titulo);
    void setCasilla(int columna);

    QString texto(int fila, int columna) const;
    void setTexto(int fila, int columna, const QString &texto);
    void setTextoColumna(int columna, const QString &texto);
    enum class Capa { Texto, Fondo };
    void setColor(int fila, int columna, Capa capa, const QColor &color);
    void setNota(int fila, const QString &nota);

    void vaciar();
    void anadir(std::vector<FilaRejilla> filas);
    void ordenar(const std::function<bool(int filaA, int filaB)> &menor);

private:
    struct Colores
    {
        int columna;
        QColor texto;
        QColor fondo;
    };
    struct Fila
    {
        FilaRejilla textos;
        std::vector<Colores> colores;
        QString nota;
    };
    bool hayCelda(int fila, int columna) const;
    Fila &fila(int numero) { return m_filas[static_cast<std::size_t>(numero)]; }
    const Fila &fila(int numero) const { return m_filas[static_cast<std::size_t>(numero)]; }
    void asignar(Fila &fila, int columna, const QString &texto);
    QVariant color(const Fila &fila, int columna, QColor Colores::*capa) const;

    std::vector<ColumnaRejilla> m_columnas;
    std::vector<QString> m_titulos;
    std::vector<Fila> m_filas;
    std::set<int> m_casillas;
};

} // namespace nv
