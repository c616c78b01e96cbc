#pragma once

#include "search/BusquedaTextoLibre.h"

class QCheckBox;

/// Search model 5: items by free text with size, stock in seven warehouses and colours for blocked items and for prices
/// in the tariffs of offers (2) and of slow stock (3), to which the list can be narrowed.
class frmBusqueda_Articulos_6 : public nv::BusquedaTextoLibre
{
    Q_OBJECT

public:
    explicit frmBusqueda_Articulos_6(QWidget *padre);

protected:
    nv::Sentencia consulta(const QString &texto) const override;
    nv::CeldasPropias celdasPropias(const nv::Registros &registros) override;
    void leerAjustes() override;
    void mostrarRecordados() override;
    void recordarEscritos() override;
    void alLlenar() override;

private:
    /// What a row's colours depend on, by rows as read.
    struct Estado
    {
        bool baja;
        bool bajoPedido;
        QColor oferta;
        QColor noMovido;
        quint8 conStock; ///< one bit per stock column
    };
    void pintar(int fila, const Estado &estado);

    nvTextBox *m_medida;
    QCheckBox *m_oferta;
    QCheckBox *m_noMovidos;
    std::vector<Estado> m_estados;
};
