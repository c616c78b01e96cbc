#pragma once

#include <QVariant>

class QSqlQuery;

namespace nv::datos {

/// A text of the current row whose column declares no length: Qt's driver reads a few hundred letters of it and takes
/// a longer one for null. Read once per row, after the columns in front of it and before those behind. Throws Error.
QVariant textoLargo(const QSqlQuery &consulta, int columna);

} // namespace nv::datos
