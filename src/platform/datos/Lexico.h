#pragma once

#include <QString>
#include <QVarLengthArray>

#include <vector>

namespace nv::datos {

/// Stands in a form where a literal stood. Statements that differ only in their literals have one form; whether a
/// LIKE pattern has a fixed beginning decides the plan, so it is part of the form.
namespace marca {
inline constexpr char16_t Numero = 1;
inline constexpr char16_t Texto = 2;
inline constexpr char16_t PatronConPrefijo = 3;
} // namespace marca

/// A literal lifted out of a statement; views the statement's own text.
struct Literal
{
    bool esTexto;
    bool comillasDobladas;
    QStringView escrito; ///< without its quotes

    QString texto() const;
};

struct Plantilla
{
    QString forma;
    QVarLengthArray<Literal, 8> literales;
};

/// Lifts the literals of a SELECT, INSERT, UPDATE or DELETE; any other statement comes back as it is.
/// Throws Error (102) for a control character outside quotes.
Plantilla plantilla(QStringView sentencia);

struct Lexema
{
    enum class Tipo { Blanco, Palabra, Numero, Texto, Marca, Signo };
    Tipo tipo;
    QStringView texto;

    bool es(QStringView palabra) const
    {
        return tipo == Tipo::Palabra && texto.compare(palabra, Qt::CaseInsensitive) == 0;
    }
    bool esSigno(char16_t signo) const { return tipo == Tipo::Signo && texto == QChar(signo); }
};

/// The tokens of a form or a statement, whole: joined they give it back. Comments count as blanks.
std::vector<Lexema> lexemas(QStringView forma);

} // namespace nv::datos
