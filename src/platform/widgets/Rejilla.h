#pragma once

#include <QColor>
#include <QTableView>
#include <functional>
#include <map>
#include <vector>

namespace nv {

class ModeloRejilla;

/// A column of a grid as a dialog's table gives it; headings that are not known there are set afterwards.
struct ColumnaRejilla
{
    QStringView titulo = {};
    int twips = 0; ///< 0: the grid's default width
    Qt::AlignmentFlag alineacion = Qt::AlignLeft;
    bool oculta = false;
};

using FilaRejilla = std::vector<QString>;

/// Result grid, in letters of any size: one fixed heading row (row 0) and one row per item (1 and up). Rows are in the model, appended in
/// blocks; nothing is sorted or fetched by itself. Column positions are the dialog's own enums.
///
/// Keys are offered to the dialog before the view moves (`alPulsar`); Enter gives `Intro` and presses no button; Space
/// gives `Espacio`; the view's own keyboard search is off; Home and End go to the first and the last row.
class Rejilla : public QTableView
{
    Q_OBJECT

public:
    explicit Rejilla(QWidget *padre = nullptr);

    void setColumnas(const std::vector<ColumnaRejilla> &columnas);
    void setTitulo(int columna, const QString &titulo);
    void setColumnaOculta(int columna, bool oculta);
    /// The column is at least as wide as this text needs, also where letters are large.
    void ensanchar(int columna, const QString &texto);
    /// Cells "1"/"0" drawn as ticked and empty boxes.
    void setColumnaCasilla(int columna);
    /// The column that takes the width that is left, and gives some of its own where that is not enough. -1, as at first,
    /// is the last visible one, which never gives.
    void setElastica(int columna);
    int elastica() const { return m_estirada; }

    /// Rows including the heading: 1 when there are no data.
    int filas() const;
    int filasDatos() const { return filas() - 1; }
    /// 0 = the heading.
    int filaActual() const;
    /// Shows the row; beyond the last is the last, 0 makes the heading current.
    void setFilaActual(int fila);
    /// Top visible data row (1 and up); 0 when empty.
    int filaSuperior() const;

    /// Cell text; row 0 gives the heading.
    QString texto(int fila, int columna) const;
    void setTexto(int fila, int columna, const QString &texto);
    /// Sets a whole column of the data rows in one go.
    void setTextoColumna(int columna, const QString &texto);
    /// Of data rows; an invalid colour gives the cell its own back.
    void setColorTexto(int fila, int columna, const QColor &color);
    void setColorFondo(int fila, int columna, const QColor &color);
    /// What the colours of a data row say, for those who do not see them: tool tip and accessible text of its cells.
    void setNota(int fila, const QString &nota);

    /// Down to the heading.
    void vaciar();
    void anadir(FilaRejilla fila);
    void anadir(std::vector<FilaRejilla> filas);
    /// Redrawing off and on around a block. Calls nest.
    void setRedibujo(bool activo);
    /// Stable reorder of the data rows; the current row stays the current item.
    void ordenar(const std::function<bool(int filaA, int filaB)> &menor);

    /// Offered every key before the view acts on it; true when it was dealt with.
    std::function<bool(QKeyEvent *)> alPulsar;

Q_SIGNALS:
    void FilaCambiada(int fila);
    /// The top row changed by scrolling, in rows.
    void Desplazada(int antes, int ahora);
    void Intro();
    void Espacio();
    /// A printable character with no meaning for the grid.
    void Caracter(const QString &texto);
    void Clic(int fila, int columna);
    void DobleClic(int fila, int columna);
    void TituloPulsado(int columna);

protected:
    void keyPressEvent(QKeyEvent *evento) override;
    void keyboardSearch(const QString &) override {}
    void mousePressEvent(QMouseEvent *evento) override;
    void mouseDoubleClickEvent(QMouseEvent *evento) override;
    void focusInEvent(QFocusEvent *evento) override;
    void focusOutEvent(QFocusEvent *evento) override;
    void currentChanged(const QModelIndex &actual, const QModelIndex &anterior) override;
    void scrollContentsBy(int dx, int dy) override;
    void updateGeometries() override;
    void changeEvent(QEvent *evento) override;

private:
    void mostrarFoco();
    int anchoPrevisto(int columna) const;
    int minimoElastica() const;
    int primeraVisible() const;
    void ajustarElastica();
    void ajustarAlto();
    void olvidarFilas(int actual);

    ModeloRejilla *m_modelo;
    int m_superior = 0;
    int m_sinRedibujo = 0;
    int m_elastica = -1;
    int m_estirada = -1;          ///< the elastic column now
    std::map<int, int> m_minimos; ///< of single columns, in pixels
    bool m_ajustando = false;
    bool m_sinAvisos = false;
};

} // namespace nv
