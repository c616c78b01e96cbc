#include "platform/datos/Cotejo.h"

#include <array>
#include <optional>

namespace nv::datos {

namespace {

constexpr std::size_t Latinos = 256;
constexpr char32_t PrimarioBlanco = 1;
constexpr char32_t PrimeroDeLosDemas = 0x400;

struct Familia
{
    char32_t base;               // upper case; lower case is 32 further on
    std::u32string_view acentos; // upper case, in their order
};

constexpr std::array Familias = {
    Familia{U'A', U"ÁÀÂÄÃÅ"}, Familia{U'Æ', U""},       Familia{U'B', U""},     Familia{U'C', U"Ç"},
    Familia{U'D', U""},       Familia{U'Ð', U""},       Familia{U'E', U"ÉÈÊË"}, Familia{U'F', U""},
    Familia{U'G', U""},       Familia{U'H', U""},       Familia{U'I', U"ÍÌÎÏ"}, Familia{U'J', U""},
    Familia{U'K', U""},       Familia{U'L', U""},       Familia{U'M', U""},     Familia{U'N', U""},
    Familia{U'Ñ', U""},       Familia{U'O', U"ÓÒÔÖÕØ"}, Familia{U'P', U""},     Familia{U'Q', U""},
    Familia{U'R', U""},       Familia{U'S', U""},       Familia{U'ß', U""},     Familia{U'T', U""},
    Familia{U'Þ', U""},       Familia{U'U', U"ÚÙÛÜ"},   Familia{U'V', U""},     Familia{U'W', U""},
    Familia{U'X', U""},       Familia{U'Y', U"Ý"},      Familia{U'Z', U""},
};

/// The order of the first 256 characters, and of the letters that the server's code page has beyond them.
struct Orden
{
    std::array<Peso, Latinos> tabla{};
    Peso oe{}; // a letter of its own after o
};

constexpr Orden construirOrden()
{
    Orden orden;
    auto &tabla = orden.tabla;
    char32_t turno = PrimarioBlanco;
    tabla[U' '] = {turno++, 0};
    const auto poner = [&](char32_t mayuscula, int secundario) {
        tabla[mayuscula] = {turno, secundario};
        if (mayuscula != U'ß')
            tabla[mayuscula + 32] = {turno, secundario};
    };
    constexpr char32_t LetrasAltas = 0xC0;
    for (char32_t c = 0; c < Latinos; ++c) {
        const bool letra = (c >= U'A' && c <= U'Z') || (c >= U'a' && c <= U'z') ||
                           (c >= LetrasAltas && c != U'×' && c != U'÷' && c != U'ÿ');
        const bool digito = c >= U'0' && c <= U'9';
        if (c != U' ' && !letra && !digito && c != U'ÿ')
            tabla[c] = {turno++, 0};
    }
    for (char32_t c = U'0'; c <= U'9'; ++c)
        tabla[c] = {turno++, 0};
    for (const Familia &familia : Familias) {
        poner(familia.base, 0);
        int acento = 1;
        for (const char32_t acentuada : familia.acentos)
            poner(acentuada, acento++);
        if (familia.base == U'Y')
            tabla[U'ÿ'] = {turno, acento};
        ++turno;
        if (familia.base == U'O')
            orden.oe = {turno++, 0};
    }
    return orden;
}

constexpr Orden OrdenEspanol = construirOrden();
constexpr auto &Pesos = OrdenEspanol.tabla;

constexpr Peso acentuada(char32_t base)
{
    return {Pesos[base].primario, 1};
}

int signo(std::int64_t diferencia)
{
    return diferencia < 0 ? -1 : (diferencia > 0 ? 1 : 0);
}

bool soloBlancos(std::string_view texto)
{
    return texto.find_first_not_of(' ') == std::string_view::npos;
}

/// A number of at most `cifras` digits from the front; nothing when there is none.
std::optional<int> numero(std::string_view &texto, std::size_t cifras)
{
    int valor = 0;
    std::size_t i = 0;
    for (; i < cifras && i < texto.size() && texto[i] >= '0' && texto[i] <= '9'; ++i)
        valor = valor * 10 + (texto[i] - '0');
    if (i == 0)
        return std::nullopt;
    texto.remove_prefix(i);
    return valor;
}

bool quitar(std::string_view &texto, std::string_view uno)
{
    if (texto.empty() || uno.find(texto.front()) == std::string_view::npos)
        return false;
    texto.remove_prefix(1);
    return true;
}

std::optional<std::int64_t> segundos(std::string_view texto)
{
    std::array<int, 3> partes{};
    for (int &parte : partes) {
        const std::optional<int> leida = numero(texto, 2);
        if (!leida)
            return std::nullopt;
        parte = *leida;
        if (!quitar(texto, ":"))
            break;
    }
    if (quitar(texto, "."))
        numero(texto, 9);
    if (!soloBlancos(texto))
        return std::nullopt;
    return (static_cast<std::int64_t>(partes[0]) * 60 + partes[1]) * 60 + partes[2];
}

struct Momento
{
    int ano;
    int mes;
    int dia;
    std::int64_t segundos; // of the day
};

std::optional<Momento> momento(std::string_view texto)
{
    const std::size_t inicio = texto.find_first_not_of(' ');
    if (inicio == std::string_view::npos)
        return std::nullopt;
    texto.remove_prefix(inicio);
    const std::size_t antes = texto.size();
    const std::optional<int> primero = numero(texto, 4);
    const bool iso = antes - texto.size() == 4;
    if (!primero || !quitar(texto, "/-."))
        return std::nullopt;
    const std::optional<int> mes = numero(texto, 2);
    if (!mes || !quitar(texto, "/-."))
        return std::nullopt;
    const std::optional<int> ultimo = numero(texto, 4);
    if (!ultimo)
        return std::nullopt;
    const int dia = iso ? *ultimo : *primero;
    const int ano = iso ? *primero : *ultimo;
    if (dia < 1 || dia > 31 || *mes < 1 || *mes > 12)
        return std::nullopt;
    std::int64_t hora = 0;
    if (!soloBlancos(texto)) {
        if (!quitar(texto, " T"))
            return std::nullopt;
        const std::optional<std::int64_t> leida = segundos(texto);
        if (!leida)
            return std::nullopt;
        hora = *leida;
    }
    return Momento{ano, *mes, dia, hora};
}

/// Seconds on a scale that only has to grow with the date.
std::optional<std::int64_t> instante(std::string_view texto)
{
    constexpr std::int64_t SegundosPorDia = 86400;
    const std::optional<Momento> m = momento(texto);
    if (!m)
        return std::nullopt;
    return ((static_cast<std::int64_t>(m->ano) * 12 + m->mes) * 31 + m->dia) * SegundosPorDia + m->segundos;
}

} // namespace

Peso peso(char32_t caracter)
{
    if (caracter < Latinos)
        return Pesos[caracter];
    switch (caracter) {
    case U'Š':
    case U'š':
        return acentuada(U'S');
    case U'Ž':
    case U'ž':
        return acentuada(U'Z');
    case U'Œ':
    case U'œ':
        return OrdenEspanol.oe;
    case U'Ÿ':
        return Pesos[U'ÿ'];
    default:
        return {PrimeroDeLosDemas + caracter, 0};
    }
}

char32_t extraer(std::string_view &texto)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(texto[i]); };
    const unsigned char cabeza = byte(0);
    std::size_t largo = 1;
    if (cabeza >= 0xC0)
        largo = cabeza < 0xE0 ? 2 : (cabeza < 0xF0 ? 3 : 4);
    char32_t caracter = cabeza;
    if (largo > 1) {
        caracter = cabeza & (0xFFU >> (largo + 1));
        for (std::size_t i = 1; i < largo; ++i) {
            if (i >= texto.size() || (byte(i) & 0xC0U) != 0x80U) {
                texto.remove_prefix(1);
                return cabeza;
            }
            caracter = (caracter << 6U) | (byte(i) & 0x3FU);
        }
    }
    texto.remove_prefix(largo);
    return caracter;
}

int cotejarTexto(std::string_view a, std::string_view b)
{
    int acento = 0;
    while (!a.empty() && !b.empty()) {
        const char ca = a.front();
        if (ca == b.front() && static_cast<unsigned char>(ca) < 0x80) {
            a.remove_prefix(1);
            b.remove_prefix(1);
            continue;
        }
        const Peso pa = peso(extraer(a));
        const Peso pb = peso(extraer(b));
        if (pa.primario != pb.primario)
            return pa.primario < pb.primario ? -1 : 1;
        if (acento == 0)
            acento = pa.secundario - pb.secundario;
    }
    if (!soloBlancos(a))
        return 1;
    if (!soloBlancos(b))
        return -1;
    return signo(acento);
}

int cotejarFecha(std::string_view a, std::string_view b)
{
    const std::optional<std::int64_t> ia = instante(a);
    const std::optional<std::int64_t> ib = instante(b);
    if (ia && ib)
        return signo(*ia - *ib);
    if (ia || ib)
        return ia ? 1 : -1;
    return cotejarTexto(a, b);
}

QDate fechaDe(std::string_view texto)
{
    const std::optional<Momento> m = momento(texto);
    return m ? QDate(m->ano, m->mes, m->dia) : QDate();
}

QString prefijoPatron(QStringView patron)
{
    QString prefijo;
    for (const QChar c : patron) {
        if (c == u'%' || c == u'_' || c == u'[')
            break;
        const Peso este = peso(c.unicode());
        char16_t base = c.unicode();
        if (este.secundario != 0) {
            for (const Familia &familia : Familias) {
                if (Pesos[familia.base].primario == este.primario)
                    base = static_cast<char16_t>(familia.base);
            }
        }
        prefijo += QChar(base);
    }
    return prefijo;
}

} // namespace nv::datos
