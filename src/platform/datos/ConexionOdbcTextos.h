#pragma once

#include <QVariant>

class QSqlQuery;

namespace nv::datos {

/// A text of the current row: Qt's driver takes one for null that has more octets than its column has letters (with
/// accents they are soon more), or more than a few hundred where no length is declared. Read once per row, after the
/// columns in front of it and before those behind. Throws Error.
QVariant textoEntero(const QSqlQuery &consulta, int columna);

} // namespace nv::datos
