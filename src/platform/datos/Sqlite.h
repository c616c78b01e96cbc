#pragma once

#include "nvArticulo/Error.h"

#include <memory>
#include <sqlite3.h>

namespace nv::datos {

/// The connection's last failure: number of the engine, and words for users where the engine's own are not.
Error errorDe(sqlite3 *base);
/// A result code in words for users; `propio` (the engine's words) where there are none.
Error errorDe(int codigo, const QString &propio);

/// Runs a statement of our own, without a result. Throws Error.
void directa(sqlite3 *base, const QString &sql);

using SentenciaSqlite = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;

/// Throws Error.
SentenciaSqlite preparada(sqlite3 *base, const char *sql);

} // namespace nv::datos
