#pragma once

#include "nvArticulo/Registros.h"
#include "search/piezas/ColumnasBusqueda.h"

#include <QObject>

namespace nv {

/// How many rows come when.
struct Bloques
{
    int primero = 0; ///< at once; 0: all
    int pagina = 0;  ///< more on Page Down
    /// Page Down brings them on the rows that are so many from the end; the last one is 1 from it.
    int lejos = 0;
    int cerca = 1;
};

/// Fills a grid from an open result: a first block, one row more for each downward scroll step, a block more on Page
/// Down. Holds the result until its end, the next search or its own end.
class ListaIncremental : public QObject
{
    Q_OBJECT

public:
    explicit ListaIncremental(Rejilla *rejilla, Bloques bloques = {});

    void setBloques(Bloques bloques) { m_bloques = bloques; }
    /// Shows the first block in the place of what the grid holds. Throws Error; grid and former result are then as
    /// they were.
    void mostrar(Registros registros, LectorFila lector);
    /// Gives the open result up; the rows shown stay, no more come.
    /// To be told of Page Down before the grid moves.
    void alPaginar();
    /// Whether rows are still to come.
    bool quedan() const { return m_registros.abierto(); }

Q_SIGNALS:
    /// Reading further rows failed; the rows already shown stay, no more come.
    void Fallo(const QString &descripcion);

private:
    void anadir(int maximo);

    Rejilla *m_rejilla;
    Bloques m_bloques;
    Registros m_registros;
    LectorFila m_lector;
    bool m_anadiendo = false;
};

} // namespace nv
