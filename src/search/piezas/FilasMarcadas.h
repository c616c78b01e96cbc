#pragma once

#include "search/piezas/Eleccion.h"

#include <QObject>
#include <utility>
#include <vector>

class QCheckBox;

namespace nv {

class Rejilla;

/// The rows that the user marks in a column of a grid, where the caller takes several items.
class FilasMarcadas : public QObject
{
    Q_OBJECT

public:
    enum class Signo {
        Casilla, ///< "1" and "0", drawn as boxes
        Equis,   ///< "X" and nothing
    };

    FilasMarcadas(Rejilla *rejilla, int columna, Signo signo);

    int columna() const { return m_columna; }
    void setVisible(bool visible);
    int cuantas() const;
    void alternar(int fila);
    /// From now on what was marked by hand outlives the list: it is shown again wherever it comes, and returned with what
    /// is marked there.
    void conservar(ColumnasEleccion columnas);
    /// Every row, and with `tambienNuevas` those that are loaded later.
    void marcarTodas(bool marcadas, bool tambienNuevas = false);
    /// The cell of a row that is being loaded.
    QString celdaNueva() const { return texto(m_marcarNuevas); }
    /// The marked rows in their order, as a list; empty without any.
    Eleccion eleccion(ColumnasEleccion columnas) const;

Q_SIGNALS:
    void Cambiadas(); ///< rows were marked or unmarked by hand

private:
    QString texto(bool marcada) const;
    bool marcada(int fila) const;
    void guardar();
    void reponer(int desde);

    Rejilla *m_rejilla;
    int m_columna;
    Signo m_signo;
    bool m_marcarNuevas = false;
    ColumnasEleccion m_columnas{};
    std::vector<std::pair<QString, QString>>
        m_conservadas; ///< code and description of what is marked and not in the list
};

/// The box over the heading of the marked rows' column that marks all of them (`chkSelAll`).
class CasillaTodas : public QObject
{
    Q_OBJECT

public:
    CasillaTodas(Rejilla *rejilla, FilasMarcadas *marcadas);

    QCheckBox *casilla() const { return m_casilla; }
    /// Width that the column needs, in twips.
    int anchoColumna() const;
    void setVisible(bool visible);
    /// For new rows, none of them marked.
    void reiniciar() { poner(false); }

protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override;

private:
    void alMarcar();
    void poner(bool marcada);
    void colocar();

    Rejilla *m_rejilla;
    FilasMarcadas *m_marcadas;
    QCheckBox *m_casilla;
};

} // namespace nv
