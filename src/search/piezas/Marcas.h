#pragma once

#include <QObject>

class QCheckBox;

namespace nv {

class Rejilla;

/// The mark column of a grid, cells "1" and "0", and the box over its heading that marks all rows (`chkSelAll`).
class Marcas : public QObject
{
    Q_OBJECT

public:
    Marcas(Rejilla *rejilla, int columna);

    QCheckBox *todas() const { return m_todas; }
    /// Width that the column needs, in twips.
    int anchoColumna() const;
    /// To be called once the grid has its columns.
    void setVisibles(bool visibles);

    int cuantas() const { return m_cuantas; }
    void alternar(int fila);
    /// For new rows, none of them marked.
    void reiniciar();

private:
    void marcarTodas(bool marcadas);
    void ponerTodas(bool marcadas);
    void colocar();

    Rejilla *m_rejilla;
    int m_columna;
    QCheckBox *m_todas;
    int m_cuantas = 0;
    bool m_poniendo = false; ///< the box is being changed from here, not by the user
};

} // namespace nv
