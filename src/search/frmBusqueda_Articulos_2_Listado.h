#pragma once

#include "common/Registros.h"
#include "platform/widgets/Rejilla.h"
#include "search/piezas/Ordenacion.h"

#include <QHash>
#include <QObject>
#include <array>

namespace nv {

/// The rows of search model 1 in their grid: loaded in blocks from the open result, ticked, and sorted by a click on a
/// heading (rows loaded later stay at the end).
class ListadoPrecios : public QObject
{
    Q_OBJECT

public:
    enum Columna {
        Marca,
        Codigo,
        Descripcion,
        Familia1,
        Familia2,
        Familia3,
        CodigoBarras,
        Referencia,
        Pvp1,
        Pvp2,
        Pvp3,
        Stock
    };
    struct Tarifa
    {
        qint16 codigo = 0; ///< 0: the warehouse has none in this place
        int decimales = 2;
    };
    using Tarifas = std::array<Tarifa, 3>;
    static constexpr QStringView Marcada = u"1";

    /// The grid gets its columns and is listened to.
    explicit ListadoPrecios(Rejilla *rejilla);

    /// Also heads their columns.
    void setTarifas(const Tarifas &tarifas);
    const Tarifas &tarifas() const { return m_tarifas; }
    /// Rows of a block; 0: all at once.
    void setMaximo(int maximo) { m_maximo = maximo; }

    /// No more rows of the last search: before the next one, whose statement would first fetch them all.
    void cerrarResultado() { m_registros.cerrar(); }
    /// Shows the first block in the place of what the grid holds. Throws Error; the grid is then as it was.
    void mostrar(Registros registros);
    /// To be told of Page Down before the grid moves: a block more on one of the last rows.
    void alPaginar();
    void alternarMarca(int fila);
    /// Every row, and those loaded later.
    void marcarTodas(bool marcadas);

    const Ordenacion &orden() const { return m_orden; }

Q_SIGNALS:
    /// Reading further rows failed; the rows already shown stay, no more come.
    void Fallo(const QString &descripcion);

private:
    using Importes = std::array<Moneda, 4>; ///< the three prices and the stock
    struct Fila
    {
        FilaRejilla celdas;
        Importes importes;
    };
    struct Lugares
    {
        std::array<int, Referencia + 1> textos;
        std::array<int, 3> pvp;
        int stock;
        int stockNumero;
    };

    static Lugares lugares(const Registros &registros);
    Fila leida(const Registros &registros, const Lugares &lugares) const;
    std::vector<Fila> leer(Registros &registros, const Lugares &lugares, int maximo) const;
    void CargarFilas(int maximo);
    void anadir(std::vector<Fila> filas);
    void ordenarPor(int columna);

    Rejilla *m_rejilla;
    Tarifas m_tarifas;
    int m_maximo = 0;
    bool m_marcarNuevas = false;
    bool m_anadiendo = false;
    Registros m_registros;
    Lugares m_lugares{};
    QHash<QString, Importes> m_importes; ///< by item code, for the order by number
    Ordenacion m_orden;
};

} // namespace nv
