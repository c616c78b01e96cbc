#pragma once

#include <QString>

namespace nv::datos {

/// Whether the statement makes a table with a list of columns.
bool esDefinicionDeTabla(QStringView sentencia);

/// A CREATE TABLE in the server's types for the embedded engine: texts and dates get their order, amounts a floating
/// affinity, and a table with a compound key is clustered on it.
QString adaptarTabla(const QString &sentencia);

} // namespace nv::datos
