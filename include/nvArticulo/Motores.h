#pragma once

#include "nvArticulo/Conexion.h"

class QSqlDatabase;

/// The engines behind a connection.
namespace nv::datos {

/// Opens the embedded catalogue in the file `ruta` (":memory:" for one that lives as long as the connection). A file
/// that does not exist, or is empty, is made with the whole schema. Throws Error in words for users: a folder that is
/// missing, a file that is locked, damaged or no database, a catalogue of a newer version.
std::unique_ptr<Conexion> abrirEmbebida(const QString &ruta);

/// Connects to a database of the server with an ODBC connection text ("DRIVER=…;SERVER=…;DATABASE=…;UID=…;PWD=…"); the
/// connection is closed with the object. Throws Error with the driver's own reason.
std::unique_ptr<Conexion> abrirOdbc(const QString &textoConexion);

/// A connection over a database that the host program has opened with Qt's ODBC driver. The host closes it, after the
/// object is gone, and has no transaction nor unread result of its own on it while the component works. The session is
/// left with day-month-year dates. Throws Error.
std::unique_ptr<Conexion> sobreOdbc(const QSqlDatabase &base);

/// Makes every table and index of the suite in an empty database of the server, in one transaction: all or none. The
/// embedded engine makes its own on opening. Throws Error, also when a table is there already.
void crearEsquema(Conexion &conexion);

} // namespace nv::datos
