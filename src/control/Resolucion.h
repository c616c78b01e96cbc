#pragma once

#include "control/Busqueda.h"

#include <QPointer>
#include <QWidget>

namespace nv {

class Consultas;

/// The quality values that a code carried, and their names.
struct Cualidades
{
    bool hay = false;
    qint16 x = 0;
    qint16 y = 0;
    QString nombreX;
    QString nombreY;

    bool operator==(const Cualidades &) const = default;
};

/// Everything that an item box holds. A resolution works on a copy of it and gives that back.
struct EstadoCaja
{
    QString texto;  ///< of the box
    QString nombre; ///< on the label
    bool existe = false;
    bool pendiente = true; ///< the text changed since it was last resolved
    qint16 modelo = 0;     ///< search model; 0: not yet known
    qint32 proveedor = 0;
    Cualidades cualidades;
    QString multiCodigo;
    QString multiDescripcion;
    CriteriosBusqueda criterios;
    ValoresCreacion creacion;                    ///< of the last item created from here
    std::optional<bool> permisoReferencias = {}; ///< to create what is missing, once it has been asked for
    std::optional<bool> permisoBarras = {};
};

/// How the host has set the box.
struct AjustesCaja
{
    bool vital = true;
    bool inicial = true;
    bool dejarEnBlanco = false;
    bool avanzaConIntro = true;
    PeticionBusqueda busqueda; ///< its model is the state's
};

/// What Enter found, to be applied in one go.
struct Resolucion
{
    EstadoCaja estado;
    bool tragada = false;      ///< the host gets character 0
    bool avanza = false;       ///< the focus moves on once the host has had its `KeyPress`
    bool enfoca = false;       ///< the box gets the focus
    bool noEncontrado = false; ///< the text named nothing, nobody was asked about it, and it is gone from the box
};

/// What was chosen in a search opened by F3: a code not yet confirmed, or a list beside the box's own text.
void tomarEleccion(EstadoCaja &estado, const ResultadoBusqueda &resultado, bool varios);

/// Search model of the company setting "BusquedaArticulos", unless one is known. Throws Error.
qint16 modeloDeBusqueda(qint16 conocido, const ::cEmpresa &empresa);

/// Loads the description of the code in `estado.texto` (`Articulos`), cleaned of points and commas; true when the item
/// exists. Throws Error labelled with the title under which it is shown.
bool cargarDescripcion(EstadoCaja &estado, Consultas &consultas, bool vital);

/// Decides what was typed, finds the item, asks what there is to ask. Touches no box: it may be gone when a dialog comes
/// back, and an error leaves nothing to undo. Lives as long as one resolution; borrows the services.
class Resolutor
{
public:
    Resolutor(const Servicios &servicios, std::shared_ptr<Dialogos> dialogos, QWidget *ventana,
              const AjustesCaja &ajustes, EstadoCaja estado);

    /// Once. Throws Error.
    Resolucion resolver();

private:
    enum class Paso { Detenido, Final };

    Paso repartir(const QString &entrada);
    Paso porReferenciaProveedor(const QString &referencia);
    Paso porLista(qint32 encontrado);
    Paso porCodigoBarras(const QString &codigoBarras);
    Paso porNumeroLargo(const QString &entrada);
    Paso porDescripcion(const QString &entrada);
    void pasoFinal();
    Paso encontrado(qint32 articulo);
    Paso rechazado(bool conFoco);
    bool ofrecerCrear(std::optional<bool> &permiso, int control, const QString &pregunta);
    Consultas consultas();

    Servicios m_servicios;
    std::shared_ptr<Dialogos> m_dialogos;
    QPointer<QWidget> m_ventana;
    AjustesCaja m_ajustes;
    Resolucion m_hecho;
    bool m_atendido = false; ///< the user has seen in a box or dialog that nothing came of it
};

} // namespace nv
