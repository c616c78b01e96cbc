#pragma once

#include "common/ContratoBusqueda.h"
#include "common/DatosCreacion.h"
#include "platform/widgets/DialogoPropio.h"

#include <functional>
#include <memory>

namespace nv {

class ComprobadorReferencias;
class Conexion;

/// What the host hands in besides the connection. Borrowed.
struct Servicios
{
    ::cEmpresa *empresa = nullptr;
    NVUTConfig::clsConfig *parametros = nullptr;   ///< none: every parameter has its default
    ComprobadorReferencias *comprobador = nullptr; ///< none: the simple rule

    /// Throws Error (91) without one.
    ::cEmpresa &empresaExigida() const;
};

/// What the user confirmed about a barcode to attach.
struct DatosCodigoBarras
{
    QString Articulo; ///< as text, as the dialog's box holds it
    QString CodBarras;
};

/// What the user confirmed about a supplier reference to attach.
struct DatosReferencia
{
    QString Articulo;
    qint32 Proveedor = 0;
    QString Referencia;
};

/// What the component asks of the forms. It includes none of them: the one implementation stands above both.
/// `padre` is the box's window; results are item codes (> 0), 0 none, -1 cancelled.
class Dialogos
{
public:
    virtual ~Dialogos() = default;

    /// The search dialog of a model, not yet shown. Throws Error for a model without a dialog.
    virtual DialogoPropio<ContratoBusqueda> crearBusqueda(qint16 modelo, QWidget *padre) = 0;

    /// Reference matches list. `refProveedor` True: supplier references, of `proveedor` unless 0.
    virtual qint32 elegirReferencia(QWidget *padre, ::cEmpresa &empresa, const QString &referencia, qint32 proveedor,
                                    bool refProveedor) = 0;

    /// PLU choice list.
    virtual qint32 elegirPlu(QWidget *padre, ::cEmpresa &empresa, qint32 plu) = 0;

    /// What accepting does, before the form `padre` goes: false when it failed, which was shown; then the form stays
    /// with what was typed.
    template <class Datos>
    using AlAceptar = std::function<bool(QWidget *padre, const Datos &datos)>;
    /// Barcode data dialog, and supplier reference edit. `datos.Articulo` comes out as the code of an existing item.
    virtual void pedirCodigoBarras(QWidget *padre, const Servicios &servicios, const DatosCodigoBarras &datos,
                                   const AlAceptar<DatosCodigoBarras> &alAceptar) = 0;
    virtual void pedirReferencia(QWidget *padre, const Servicios &servicios, const DatosReferencia &datos,
                                 const AlAceptar<DatosReferencia> &alAceptar) = 0;

    /// Quick creation form; the item is complete in the database when the result is true.
    virtual bool crearArticulo(QWidget *padre, ::cEmpresa &empresa, Conexion &conexion, DatosCreacion &datos) = 0;
};

/// Defined by the wiring layer.
std::unique_ptr<Dialogos> crearDialogos();

} // namespace nv
