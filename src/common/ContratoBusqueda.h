#pragma once

#include "nvArticulo/Moneda.h"

#include <QString>

class cEmpresa;

namespace NVUTConfig {
class clsConfig;
}

namespace nv {

/// The criteria that the component remembers between two searches.
struct CriteriosBusqueda
{
    QString Busqueda_Descripcion;
    QString Busqueda_Codigo;
    qint32 Busqueda_Proveedor = 0;
    QString Busqueda_Referencia;
    qint16 Busqueda_Familia_1 = 0;
    qint16 Busqueda_Familia_2 = 0;
    qint16 Busqueda_Familia_3 = 0;
    qint16 Busqueda_Marca = 0;
    QString Busqueda_MarcaNombre;
    Moneda Busqueda_Medida;

    bool operator==(const CriteriosBusqueda &) const = default;
};

/// What a search dialog and its opener say to each other. The opener creates the dialog, sets these members, shows it
/// modally, reads the result members after it has hidden itself, and destroys it.
class ContratoBusqueda : public CriteriosBusqueda
{
public:
    virtual ~ContratoBusqueda() = default;
    /// Returns once the dialog has hidden itself.
    virtual void MostrarModal() = 0;

    ::cEmpresa *cEmpresa = nullptr;
    NVUTConfig::clsConfig *Parametros = nullptr; ///< none: every parameter has its default
    QString Codigo;                              ///< result; empty after Cancel; "|A|B" for several
    QString Descripcion;                         ///< result
    qint32 Cliente = 0;
    qint16 Familia_1 = 0; ///< fixed family; 0 or less = free
    qint16 Familia_2 = 0;
    qint16 Familia_3 = 0;
    bool MultiResultado = false;
    qint16 AlmacenStock = 0; ///< 0 = the company's default warehouse
    bool GuardarBusqueda = false;
    bool SeleccionarTodo = false; ///< search model 1 only
    bool RecordarAspecto = true;  ///< sizes and widths that the user has drawn, for the next opening
};

} // namespace nv
