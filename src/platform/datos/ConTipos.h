#pragma once

#include "platform/datos/Tipos.h"

#include <QHash>

#include <memory>
#include <vector>

struct sqlite3;

namespace nv::datos {

/// The columns of one table, in their order.
struct ColumnaTipada
{
    QString nombre;
    QString declarado;
    TipoServidor tipo;
};
using TablaTipada = std::vector<ColumnaTipada>;

/// Tables as they were found; to be emptied when one is made or changed.
using TablasTipadas = QHash<QString, std::shared_ptr<const TablaTipada>>;

/// A statement of which each value that goes into a column is held to the column's type: literals when they are bound,
/// anything else by NV_TIPO.
struct ConTipos
{
    QString sql;
    std::vector<const TipoServidor *> deParametros; ///< in their order; none, or beyond them: they take anything
    std::shared_ptr<const TablaTipada> tabla;       ///< keeps them
};

/// `sql` in the engine's own words. Only INSERT and UPDATE of the catalogue's tables change.
ConTipos conTipos(sqlite3 *base, TablasTipadas &tablas, const QString &sql);

int registrarTipos(sqlite3 *base);

} // namespace nv::datos
