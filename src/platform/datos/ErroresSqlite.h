#pragma once

#include "nvArticulo/Error.h"

struct sqlite3;

namespace nv::datos {

/// The connection's last failure: number of the engine, and words for users where the engine's own are not.
Error errorDe(sqlite3 *base);
/// A result code in words for users; `propio` (the engine's words) where there are none.
Error errorDe(int codigo, const QString &propio);

} // namespace nv::datos
