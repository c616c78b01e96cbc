#pragma once

#include <QString>

#include <string>
#include <variant>

namespace nv::datos {

struct Literal;

/// A value as the engine keeps it.
using ValorGuardado = std::variant<std::monostate, qint64, double, std::string>;

/// What a column takes, by its type in the server's words: the engine's own types forbid nothing.
class TipoServidor
{
public:
    TipoServidor() = default;
    /// "varchar(150)", "smallint", "datetime text"; a type that is not known takes anything. `columna` names it in errors.
    TipoServidor(const QString &tipo, const QString &columna);

    bool libre() const { return m_clase == Clase::Libre; }
    /// Whether the literal goes in as it stands: the common case, without a copy.
    bool cabe(const Literal &literal) const;
    /// The value as the server keeps it: without decimals, without the blanks that are too many. Throws Error for what it
    /// refuses.
    ValorGuardado admitir(ValorGuardado valor) const;

private:
    enum class Clase { Libre, Texto, Entero, Bit, Importe, Fecha };

    ValorGuardado comoTexto(std::string texto) const;
    ValorGuardado comoEntero(const ValorGuardado &valor) const;
    ValorGuardado comoBit(const ValorGuardado &valor) const;
    ValorGuardado comoImporte(const ValorGuardado &valor) const;
    ValorGuardado comoFecha(const ValorGuardado &valor) const;
    [[noreturn]] void rechazar(const QString &motivo) const;
    [[noreturn]] void noCabe(const ValorGuardado &valor) const;
    [[noreturn]] void noEs(const ValorGuardado &valor, QStringView que) const;

    Clase m_clase = Clase::Libre;
    qint64 m_minimo = 0; ///< of whole numbers; of dates, the first year
    qint64 m_maximo = 0; ///< the same; of texts, how many characters
    QString m_columna;
};

} // namespace nv::datos
