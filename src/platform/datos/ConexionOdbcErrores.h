#pragma once

#include "nvArticulo/Error.h"

class QSqlError;
class QSqlQuery;

namespace nv::datos {

/// A function of the driver manager, already in memory with Qt's driver; null when it is not to be had.
QFunctionPointer funcionOdbc(const char *nombre);

/// What the driver or the server reports, with the server's own number and without the names of the drivers that the
/// message came through.
Error errorOdbc(const QSqlError &error);
/// Of a statement that has just failed and is not finished yet.
Error errorOdbc(const QSqlQuery &consulta);

/// "[Driver][Server]Text" → "Text", for every message of a joined list.
QString sinPrefijos(const QString &mensaje);

/// Whether a rollback failed because there was nothing left to roll back: some errors make the server do it by itself.
bool sinTransaccion(const Error &error);

} // namespace nv::datos
