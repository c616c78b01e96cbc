#pragma once

#include "nvArticulo/Conexion.h"

/// The engines behind a connection.
namespace nv::datos {

/// Opens the embedded catalogue in the file `ruta` (":memory:" for one that lives as long as the connection). A file
/// that does not exist, or is empty, is made with the whole schema. Throws Error in words for users: a folder that is
/// missing, a file that is locked, damaged or no database, a catalogue of a newer version.
std::unique_ptr<Conexion> abrirEmbebida(const QString &ruta);

/// How long an ODBC connection waits, in seconds; 0 is for ever.
struct EsperasOdbc
{
    int conectar = 30;
    int consulta = 30; ///< for a statement's answer; then it is cancelled, with an Error
};

/// Connects to a database of the server with an ODBC connection text ("DRIVER=…;SERVER=…;DATABASE=…;UID=…;PWD=…") or the
/// name of a data source; the connection is closed with the object. When the link breaks, a statement says so and the
/// next one opens it again, unless it needs a transaction or a #table that went with it. Throws Error with the driver's
/// own reason.
std::unique_ptr<Conexion> abrirOdbc(const QString &textoConexion, const EsperasOdbc &esperas = {});

/// A connection over the connection handle (SQLHDBC) of a host program. The host closes it, after the object is gone,
/// and has no transaction nor unread result of its own on it while the component works. The session is left with
/// day-month-year dates. A link that breaks is the host's to open again. Throws Error.
std::unique_ptr<Conexion> sobreOdbc(void *enlace, const EsperasOdbc &esperas = {});

/// Makes every table and index of the suite in an empty database of the server, in one transaction: all or none. The
/// embedded engine makes its own on opening. Throws Error, also when a table is there already.
void crearEsquema(Conexion &conexion);

} // namespace nv::datos
