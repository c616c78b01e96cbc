#pragma once

#include <QString>
#include <QVariant>

#include <optional>
#include <vector>

namespace nv::doble {

/// A type as the server declares it.
struct TipoSql
{
    enum class Clase { Entero, Bit, Importe, Decimal, Real, Fecha, Fijo, Texto, Memo };
    Clase clase = Clase::Texto;
    int largo = 8000; ///< bytes of a number, characters of a text
    int escala = 0;   ///< decimals of a decimal

    static TipoSql entero(int bytes) { return {Clase::Entero, bytes, 0}; }
    static TipoSql importe() { return {Clase::Importe, 8, 0}; }
    /// "varchar", "20": as in a CREATE TABLE or a CONVERT. Empty for a name that is no type.
    static std::optional<TipoSql> declarado(QStringView nombre, const QStringList &medidas);

    bool admite(const QVariant &valor) const;
};

struct Columna
{
    QString nombre;
    TipoSql tipo;
};

using Fila = std::vector<QVariant>;

/// What an expression without a declared type is, by the values that it gave.
TipoSql tipoPorValores(const std::vector<Fila> &filas, std::size_t columna);

/// A date as the embedded engine keeps it: dd/mm/yyyy as written, or ISO. Invalid for anything else.
QDate fechaGuardada(const QString &texto);

} // namespace nv::doble
