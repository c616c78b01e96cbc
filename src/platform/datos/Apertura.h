#pragma once

#include <QString>

struct sqlite3;

namespace nv::datos {

/// The handle of the file, without having read it yet. Throws Error.
sqlite3 *abrirArchivo(const QString &ruta);

/// Settings, schema and versions of a connection that already has its functions: makes the schema in an empty file,
/// rebuilds the indices written under another order. Throws Error.
void prepararCatalogo(sqlite3 *base, const QString &ruta);

/// Stands in a file's header: whose it is.
inline constexpr int FirmaCatalogo = 0x6E764131;
/// Version of the schema, in the upper half of the file's user version; the version of the order is in the lower.
inline constexpr int VersionFormato = 2;

} // namespace nv::datos
