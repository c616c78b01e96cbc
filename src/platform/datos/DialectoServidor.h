#pragma once

#include <QString>

namespace nv::datos {

/// A statement as the server takes it. One form is changed: an INSERT … SELECT DISTINCT ordered by something outside
/// its list, which the server refuses (145); the order goes, the rows are the same. All else comes back as it is.
QString adaptarAlServidor(const QString &sentencia);

} // namespace nv::datos
