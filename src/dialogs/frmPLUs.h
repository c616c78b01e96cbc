#pragma once

#include "dialogs/ListaEleccion.h"

class cEmpresa;

/// Items that carry a PLU on several scale departments. Reads `Balanzas_Articulos` and `Balanzas_Dptos` under the
/// company, `Articulos` under the item-master company.
class frmPLUs : public nv::ListaEleccion
{
    Q_OBJECT

public:
    explicit frmPLUs(QWidget *padre);

    ::cEmpresa *cEmpresa = nullptr;
    qint32 Plu = 0;

protected:
    QString textoBuscado() const override { return QString::number(Plu); }
    void llenar() override;
    QString nombreCarga() const override;
};
