#pragma once

#include "nvArticulo/Sentencia.h"

#include <array>
#include <optional>

/// The statements of the search dialogs, composed from plain values: no widget and no connection here.
namespace nv::sql {

/// What a criteria panel asks for; texts as typed, with "*" as the wildcard.
struct CriteriosArticulo
{
    QString descripcion = {};
    QString codigo = {};
    qint64 proveedor = 0; ///< of codes 0 is any; one beyond 32 bits finds nothing
    QString referencia = {};
    std::array<qint64, 3> familias = {};
    qint64 marca = 0; ///< models 3 and 4
};

/// The row limit that a company setting holds: an integer from 0 up whatever its text is.
qint32 limiteFilas(QStringView ajuste);

/// " TOP n"; empty without a limit.
Sentencia prefijoLimite(std::optional<qint32> limite);

// Conditions over `Articulos a`, each with its leading " AND"; empty for an empty criterion.
Sentencia condicionDescripcion(QStringView descripcion, bool conNotas);
Sentencia condicionCodigo(QStringView codigo);
Sentencia condicionReferencia(qint64 proveedor, QStringView referencia);
/// A level counts only when the one above it counted.
Sentencia condicionFamilias(const std::array<qint64, 3> &familias);

/// Items with their main barcode: `Codigo`, `Descripcion`, `Familia_1` to `Familia_3`, `Cod_Barras`, ordered by
/// description. `desde` is the FROM as each model writes it.
Sentencia articulosConBarras(qint16 empresaArticulos, std::optional<qint32> limite, Fragmento desde,
                             const Sentencia &condiciones);

} // namespace nv::sql
