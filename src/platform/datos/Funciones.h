#pragma once

struct sqlite3;

namespace nv::datos {

/// Gives a connection the server's orders, LIKE, LEN, an exact SUM and the conversions to text that the dialect uses.
/// Returns the engine's result code.
int registrarFunciones(sqlite3 *base);

} // namespace nv::datos
