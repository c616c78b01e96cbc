#pragma once

#include <QString>
#include <QVarLengthArray>

#include <utility>
#include <vector>

namespace nv::datos {

/// Stands in a form where a literal stood. Statements that differ only in their literals have one form; whether a
/// LIKE pattern has a fixed beginning decides the plan, so it is part of the form.
namespace hueco {
inline constexpr char16_t Numero = 1;
inline constexpr char16_t Texto = 2;
inline constexpr char16_t PatronConPrefijo = 3;
} // namespace hueco

/// The server's number for a statement that cannot be read.
inline constexpr qint32 SentenciaMalEscrita = 102;

/// A literal lifted out of a statement; views the statement's own text.
struct Literal
{
    bool esTexto;
    bool comillasDobladas;
    QStringView escrito; ///< without its quotes

    QString texto() const;
};

struct Parametrizada
{
    QString forma;
    QVarLengthArray<Literal, 8> literales;
};

/// Lifts the literals of a SELECT, INSERT, UPDATE or DELETE; any other statement comes back as it is.
/// Throws Error (102) for a control character outside quotes.
Parametrizada parametrizar(QStringView sentencia);

struct Lexema
{
    enum class Tipo { Blanco, Palabra, Numero, Texto, Hueco, Signo };
    Tipo tipo;
    QStringView texto;

    bool es(QStringView palabra) const
    {
        return tipo == Tipo::Palabra && texto.compare(palabra, Qt::CaseInsensitive) == 0;
    }
    bool esSigno(char16_t signo) const { return tipo == Tipo::Signo && texto == QChar(signo); }
};

/// The first token that is no blank: what a statement does.
Lexema primerLexema(QStringView sentencia);

/// The tokens of a form or a statement, whole: joined they give it back. Comments count as blanks. A view: the text must
/// outlive it.
class Lexemas : public std::vector<Lexema>
{
public:
    explicit Lexemas(QStringView forma);

    /// The first at or after `i` that is no blank.
    std::size_t salto(std::size_t i) const;
    bool abre(std::size_t i) const { return i < size() && (*this)[i].esSigno(u'('); }
    /// The bracket that closes the one at `i`, or `hasta`.
    std::size_t cierre(std::size_t i, std::size_t hasta) const;
    /// The arguments between two brackets, as [from, to).
    std::vector<std::pair<std::size_t, std::size_t>> argumentos(std::size_t abierto, std::size_t cerrado) const;
};

} // namespace nv::datos
