#pragma once

#include <QVariant>

class QSqlField;

namespace nv::datos {

/// How the values of a column come out of the driver, and so what has to be done to them.
enum class ClaseOdbc { Entero, Decimal, TextoFijo, Texto, Otro };

inline bool esTexto(ClaseOdbc clase)
{
    return clase == ClaseOdbc::TextoFijo || clase == ClaseOdbc::Texto;
}

ClaseOdbc claseOdbc(const QSqlField &campo);

/// A value as every engine gives it: integers and bits as qlonglong, amounts as double (as text where a double would
/// not hold them), fixed-width texts without the blanks that fill them, dates as the driver has them.
QVariant valorOdbc(const QVariant &crudo, ClaseOdbc clase);

} // namespace nv::datos
