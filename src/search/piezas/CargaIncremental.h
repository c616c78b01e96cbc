#pragma once

#include "common/Registros.h"
#include "platform/widgets/Rejilla.h"

#include <QObject>

namespace nv {

/// Fills a grid from an open result: a first block, one row more for each downward scroll step, a block more on Page
/// Down. Holds the result until its end, the next search or its own end.
class CargaIncremental : public QObject
{
    Q_OBJECT

public:
    static constexpr int PrimerBloque = 500;
    static constexpr int BloquePagina = 50;

    using Lector = std::function<FilaRejilla(const Registros &)>;
    /// Looks up the columns of a result, once, and gives the reader of its rows.
    using Preparador = std::function<Lector(const Registros &)>;

    CargaIncremental(Rejilla *rejilla, Preparador preparador);

    /// Shows the first block in the place of what the grid holds. Throws Error; grid and former result are then as
    /// they were.
    void mostrar(Registros registros);
    /// Gives the open result up; the rows shown stay, no more come.
    void cerrar() { m_registros.cerrar(); }
    /// To be told of Page Down before the grid moves: a block more on the row before the last.
    void alPaginar();

Q_SIGNALS:
    /// Reading further rows failed; the rows already shown stay, no more come.
    void Fallo(const QString &descripcion);

private:
    static std::vector<FilaRejilla> leer(Registros &registros, const Lector &lector, int maximo);
    void anadir(int maximo);

    Rejilla *m_rejilla;
    Preparador m_preparador;
    Registros m_registros;
    Lector m_lector;
    bool m_anadiendo = false;
};

} // namespace nv
