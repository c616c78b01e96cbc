#pragma once

#include "common/DatosCreacion.h"
#include "creation/ComposicionDescripcion.h"
#include "nvArticulo/Sentencia.h"

#include <array>
#include <optional>

class cEmpresa;

namespace nv {

class Conexion;

/// The tax that a number ("1.5") names, without its decimals, which the column does not hold either. Throws Error (6).
qint16 tipoImpuesto(const QString &escrito);

/// What the fields say of the item that is being created.
struct FichaAlta
{
    QString codigo; ///< as typed
    qint32 proveedor = 0;
    QString referencia;
    qint32 marca = 0;
    QString temporada;
    QString impuesto; ///< a number
    std::array<qint32, 3> familias{};
    std::array<bool, 3> familiaEscrita{};
    std::array<std::optional<qint16>, 2> cualidades; ///< nothing: not chosen
    bool sinSerieEan = false;
    bool unidadesDecimales = false;
    QString descripcion;
    QString ticket;
    QString barras;

    /// As the host keeps it, True as -1. Throws Error (6) for a code that does not fit.
    DatosCreacion datos() const;
};

/// The fields that can be missing.
enum class CampoCreacion { Codigo, Proveedor, Referencia, Familia1, Familia2, Familia3, CualidadX, CualidadY };

struct FaltaCreacion
{
    CampoCreacion campo;
    QString texto;
};

/// The rows of one new item: `Articulos` and `Articulos_Ref`, `Articulos_CBarras` under the item-master company,
/// `Almacen_Articulos` under the company itself. The row exists from `abrir`; `guardar` completes it, `deshacer` deletes
/// it. Only the row that was made here is ever deleted. Every operation throws Error.
class AltaArticulo
{
public:
    /// Borrowed.
    AltaArticulo(::cEmpresa &empresa, Conexion &conexion);

    /// From `Empresas`.
    struct Ajustes
    {
        bool familiaObligada = false;
        qint32 maxCodigo = 0; ///< 0 or less: no limit
        std::array<qint16, 2> cualidades{};
        bool seriesAutomaticas = false;
    };
    const Ajustes &leerAjustes();
    FormatoDescripcion leerFormato(bool larga);

    /// One more than the highest code; nothing when the codes are no numbers.
    std::optional<qint64> siguienteCodigo();
    bool Existe(qint32 codigo);
    qint32 mayorCodigo() const;
    /// An item 0 would read as "none" everywhere else.
    bool cabe(qint32 codigo) const;
    /// Makes the item's row and one per warehouse.
    void abrir(qint32 codigo);
    bool abierta() const { return m_abierta.has_value(); }

    /// The first field that is missing.
    std::optional<FaltaCreacion> falta(const FichaAlta &ficha) const;
    /// Whether another item of the supplier has the reference.
    bool referenciaRepetida(const FichaAlta &ficha);
    /// While `abierta`. All or nothing, in one transaction. One that the host has open is joined, and then neither committed
    /// nor rolled back: what was written goes, so that it can be tried again or undone whole.
    DatosCreacion guardar(const FichaAlta &ficha);
    /// Deletes what `abrir` has made, if anything and not completed.
    void deshacer();

private:
    void Guardar_Articulo(const FichaAlta &ficha, const std::array<qint16, 2> &valoresUnicos);
    Sentencia completa(const FichaAlta &ficha) const;
    void insertarBarras(const FichaAlta &ficha, const std::array<qint16, 2> &valoresUnicos);
    void quitarLoEscrito();
    bool barrasAutomaticas();
    qint16 Valor_Unico_Cualidad(qint16 eje);

    ::cEmpresa &m_empresa;
    Conexion &m_conexion;
    Ajustes m_ajustes;
    std::optional<qint32> m_abierta; ///< code of the row made here that is not complete yet
};

} // namespace nv
