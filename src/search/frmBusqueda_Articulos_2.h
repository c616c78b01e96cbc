#pragma once

#include "search/BusquedaCriterios.h"
#include "search/piezas/OrdenRejilla.h"
#include "search/sql/Modelo1.h"

class QCheckBox;
class QTabWidget;
class nvAlmacenCons;

namespace nv {
class CampoAlternativo;
} // namespace nv

/// Search model 1: items with their main barcode and reference, the prices of the default warehouse's first three
/// tariffs and the stock summed over a set of warehouses. Sorts by any column, prints the whole search, and with several
/// results returns the ticked rows.
class frmBusqueda_Articulos_2 : public nv::BusquedaCriterios
{
    Q_OBJECT

public:
    explicit frmBusqueda_Articulos_2(QWidget *padre);

    /// The criteria on screen as one line of text.
    QString DevCriterio() const;
    /// Prints every row of the last search in the order of the grid; nothing before the first search.
    void Imprimir_Busqueda();

protected:
    void alAbrir() override;
    nv::Sentencia consulta(const nv::sql::CriteriosArticulo &criterios) override;
    nv::CeldasPropias celdasPropias(const nv::Registros &registros) override;
    void cargarPropios(nv::mensajes::Fallos &fallos) override;
    void alLlenar() override;
    void volverACriterios() override;
    nv::Fragmento listaCopia() const override;
    bool ordenadas() const override { return m_orden->columna() >= 0; }

private:
    struct Tarifa
    {
        qint16 codigo = 0; ///< 0: the warehouse has none in this place
        int decimales = 2;
    };

    void montarPestanas();
    void leerTarifas();
    std::vector<qint16> almacenes() const;
    void titularStock();
    void alCambiarPestana();
    void imprimir();

    QTabWidget *m_pestanas;
    nv::CampoAlternativo *m_alternativo;
    nvAlmacenCons *m_almacenes;
    QCheckBox *m_todos;
    nv::OrdenRejilla *m_orden;
    std::array<Tarifa, 3> m_tarifas;
    int m_pestana = 0;                 ///< the tab in front before the last change
    std::vector<qint16> m_preguntados; ///< warehouses of the statement that is on its way
    std::vector<qint16> m_usados;      ///< warehouses of the last search
};
