#pragma once

#include "platform/widgets/FormularioModal.h"

class QListWidget;
class cEmpresa;

namespace nv {
class Conexion;
}

/// Multiple choice among the values of one alternative attribute. For one use: members set, shown modally, read while
/// hidden. Reads `Alternativos_Valores`.
class frmAlternativos_Eleccion : public nv::FormularioModal
{
    Q_OBJECT

public:
    explicit frmAlternativos_Eleccion(QWidget *padre);

    /// Fills the list, shows the dialog, returns once it has hidden itself.
    void MostrarModal();

    ::cEmpresa *cEmpresa = nullptr;
    nv::Conexion *Conexion = nullptr;
    qint16 Tabla = 0;
    qint16 Alternativo = 0;
    QString Ids;     ///< in and out: ",7,3,"; "," for none
    QString Valores; ///< out: the texts joined by ","

protected:
    void aceptar() override;

private:
    void llenar();

    QListWidget *m_lista;
};
