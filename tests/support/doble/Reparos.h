#pragma once

#include "support/doble/Consulta.h"

namespace nv::doble {

/// What the server answers instead of running a statement.
struct Fallo
{
    int numero;
    QString texto;
};

inline constexpr int FechaImposible = 242;

enum class OrdenFecha { MesDiaAno, DiaMesAno };

/// Throws Fallo for what the embedded engine takes and a server refuses: an ORDER BY outside the list of a SELECT
/// DISTINCT, and the embedded engine's own words.
void exigirDelServidor(const Piezas &piezas);

/// The statement with its literals that read as dates in the one form that the embedded engine takes. Throws Fallo for
/// a date that does not exist in the session's order.
QString conFechas(const QString &sentencia, OrdenFecha orden);

} // namespace nv::doble
