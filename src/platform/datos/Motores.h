#pragma once

#include "common/Conexion.h"

/// The engines behind a connection.
namespace nv::datos {

/// Opens the embedded catalogue in the file `ruta` (":memory:" for one that lives as long as the connection). A file
/// that does not exist, or is empty, is made with the whole schema. Throws Error in words for users: a folder that is
/// missing, a file that is locked, damaged or no database, a catalogue of a newer version.
std::unique_ptr<Conexion> abrirEmbebida(const QString &ruta);

} // namespace nv::datos
