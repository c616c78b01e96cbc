#pragma once

#include "search/piezas/PanelDetalles.h"

class nvCheckBox;

namespace nv {

/// The details with how the item stands in the assortment of the default warehouse.
class PanelSurtido : public PanelDetalles
{
public:
    explicit PanelSurtido(QWidget *padre);
    void limpiar() override;

protected:
    Sentencia consultaExistencias(qint32 articulo) const override;
    void mostrarExistencias(const Registros &registros) override;

private:
    nvCheckBox *casilla(const QString &texto, const QString &nombre);
    QLabel *aviso(const QString &texto, const QString &nombre);

    nvCheckBox *m_bloqueado;
    nvCheckBox *m_bloqueadoVenta;
    QLabel *m_bloqueadoGeneral;
    QLabel *m_obligatorio;
};

} // namespace nv
