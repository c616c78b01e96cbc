#pragma once

#include <QDate>
#include <QString>

#include <string_view>

/// The orders of the server, over UTF-8.
namespace nv::datos {

/// Raised whenever an order below changes: files written under another version have their indices rebuilt.
inline constexpr int VersionCotejo = 2;

inline constexpr char NombreCotejoTexto[] = "NV_TEXTO";
inline constexpr char NombreCotejoFecha[] = "NV_FECHA";

/// Place of a character in the Spanish order: letters without case and accent first (ñ after n), accents second.
struct Peso
{
    char32_t primario;
    int secundario;
};
Peso peso(char32_t caracter);

/// One character from the front of `texto`, which must not be empty. Malformed bytes count as one character each.
char32_t extraer(std::string_view &texto);

/// Negative, 0 or positive. Trailing blanks do not count.
int cotejarTexto(std::string_view a, std::string_view b);
/// Compares dd/mm/yyyy and ISO texts (with or without a time) as dates, leading blanks allowed; texts that are no date
/// come first, among themselves as texts.
int cotejarFecha(std::string_view a, std::string_view b);
/// The date that such a text writes; invalid when it writes none.
QDate fechaDe(std::string_view texto);

/// What every text that fits a LIKE pattern begins with, without its accents so that nothing that fits sorts before
/// it; empty when the pattern begins with a wildcard.
QString prefijoPatron(QStringView patron);

} // namespace nv::datos
