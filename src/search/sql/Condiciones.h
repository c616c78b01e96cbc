#pragma once

#include "common/sql/Sentencia.h"

#include <array>
#include <optional>

/// The statements of the search dialogs, composed from plain values: no widget and no connection here.
namespace nv::sql {

/// What a criteria panel asks for; texts as typed, with "*" as the wildcard.
struct CriteriosArticulo
{
    QString descripcion = {};
    QString codigo = {};
    std::optional<qint32> proveedor = {}; ///< none: any supplier
    QString referencia = {};
    std::array<qint32, 3> familias = {}; ///< 0 or less: the level is free
};

/// The row limit that a company setting holds: an integer from 0 up whatever its text is.
qint32 limiteFilas(QStringView ajuste);

/// " TOP n"; empty without a limit.
Sentencia prefijoLimite(std::optional<qint32> limite);

// Conditions over `Articulos a`, each with its leading " AND"; empty for an empty criterion.
Sentencia condicionDescripcion(QStringView descripcion, bool conNotas);
Sentencia condicionCodigo(QStringView codigo);
Sentencia condicionReferencia(std::optional<qint32> proveedor, QStringView referencia);
/// A level counts only when the one above it counted.
Sentencia condicionFamilias(const std::array<qint32, 3> &familias);

} // namespace nv::sql
