#include "platform/datos/Funciones.h"

#include "nvArticulo/Error.h"
#include "nvArticulo/Moneda.h"
#include "platform/datos/ConTipos.h"
#include "platform/datos/Cotejo.h"
#include "platform/datos/PatronLike.h"
#include "platform/datos/Trigramas.h"

#include <cmath>
#include <memory>
#include <sqlite3.h>

namespace nv::datos {

namespace {

std::string_view textoDe(sqlite3_value *valor)
{
    const auto *texto = reinterpret_cast<const char *>(sqlite3_value_text(valor));
    return texto ? std::string_view(texto, static_cast<std::size_t>(sqlite3_value_bytes(valor))) : std::string_view();
}

bool esNulo(sqlite3_value *valor)
{
    return sqlite3_value_type(valor) == SQLITE_NULL;
}

std::string_view vista(int largo, const void *texto)
{
    return {static_cast<const char *>(texto), static_cast<std::size_t>(largo)};
}

int cotejoTexto(void *, int largoA, const void *a, int largoB, const void *b)
{
    return cotejarTexto(vista(largoA, a), vista(largoB, b));
}

int cotejoFecha(void *, int largoA, const void *a, int largoB, const void *b)
{
    return cotejarFecha(vista(largoA, a), vista(largoB, b));
}

/// `valor LIKE patron` arrives as like(patron, valor). The engine keeps the compiled pattern while it is constant.
void funcionLike(sqlite3_context *contexto, int, sqlite3_value **argumentos)
{
    if (esNulo(argumentos[0]) || esNulo(argumentos[1]))
        return;
    auto *patron = static_cast<PatronLike *>(sqlite3_get_auxdata(contexto, 0));
    if (patron) {
        sqlite3_result_int(contexto, patron->casa(textoDe(argumentos[1])) ? 1 : 0);
        return;
    }
    auto nuevo = std::make_unique<PatronLike>(textoDe(argumentos[0]));
    sqlite3_result_int(contexto, nuevo->casa(textoDe(argumentos[1])) ? 1 : 0);
    sqlite3_set_auxdata(contexto, 0, nuevo.release(),
                        [](void *viejo) { std::unique_ptr<PatronLike>(static_cast<PatronLike *>(viejo)); });
}

/// Characters without the trailing blanks.
void funcionLen(sqlite3_context *contexto, int, sqlite3_value **argumentos)
{
    if (esNulo(argumentos[0]))
        return;
    std::string_view texto = textoDe(argumentos[0]);
    const std::size_t ultimo = texto.find_last_not_of(' ');
    texto = texto.substr(0, ultimo == std::string_view::npos ? 0 : ultimo + 1);
    int caracteres = 0;
    for (; !texto.empty(); ++caracteres)
        extraer(texto);
    sqlite3_result_int(contexto, caracteres);
}

void dosDecimales(sqlite3_context *contexto, double valor)
{
    try {
        QByteArray texto = Moneda::deReal(valor).texto(2).toLatin1();
        texto.replace(',', '.');
        sqlite3_result_text(contexto, texto.constData(), static_cast<int>(texto.size()), SQLITE_TRANSIENT);
    } catch (const Error &error) {
        sqlite3_result_error(contexto, error.descripcion.toUtf8().constData(), -1);
    }
}

/// CONVERT(VARCHAR, amount): two decimals, even where the value is a whole number.
void funcionImporteTexto(sqlite3_context *contexto, int, sqlite3_value **argumentos)
{
    const int tipo = sqlite3_value_numeric_type(argumentos[0]);
    if (tipo == SQLITE_INTEGER || tipo == SQLITE_FLOAT)
        dosDecimales(contexto, sqlite3_value_double(argumentos[0]));
    else if (tipo != SQLITE_NULL)
        sqlite3_result_value(contexto, argumentos[0]);
}

/// CONVERT(VARCHAR, x) of anything else.
void funcionTexto(sqlite3_context *contexto, int, sqlite3_value **argumentos)
{
    if (sqlite3_value_type(argumentos[0]) == SQLITE_FLOAT) {
        dosDecimales(contexto, sqlite3_value_double(argumentos[0]));
    } else if (!esNulo(argumentos[0])) {
        const std::string_view texto = textoDe(argumentos[0]);
        sqlite3_result_text(contexto, texto.data(), static_cast<int>(texto.size()), SQLITE_TRANSIENT);
    }
}

__extension__ using Entero128 = __int128;

/// Amounts are stored as floating point; their sum is formed in whole ten-thousandths. The engine gives the memory,
/// aligned for 64 bits.
struct Suma
{
    qint64 enteros;
    qint64 diezmilesimas;
    bool conDecimales;
    bool conFilas;
    bool desbordada;
};

void pasoSuma(sqlite3_context *contexto, int, sqlite3_value **argumentos)
{
    const int tipo = sqlite3_value_numeric_type(argumentos[0]);
    auto *suma = static_cast<Suma *>(sqlite3_aggregate_context(contexto, sizeof(Suma)));
    if (!suma || tipo == SQLITE_NULL)
        return;
    suma->conFilas = true;
    bool desborda = false;
    if (tipo == SQLITE_INTEGER) {
        const auto valor = static_cast<qint64>(sqlite3_value_int64(argumentos[0]));
        desborda = __builtin_add_overflow(suma->enteros, valor, &suma->enteros);
    } else {
        constexpr double Limite = 9.2e18;
        const double escalado = std::round(sqlite3_value_double(argumentos[0]) * static_cast<double>(Moneda::Escala));
        suma->conDecimales = true;
        desborda = !(std::abs(escalado) < Limite) ||
                   __builtin_add_overflow(suma->diezmilesimas, static_cast<qint64>(escalado), &suma->diezmilesimas);
    }
    suma->desbordada = suma->desbordada || desborda;
}

void finSuma(sqlite3_context *contexto)
{
    const auto *suma = static_cast<const Suma *>(sqlite3_aggregate_context(contexto, 0));
    if (!suma || !suma->conFilas)
        return;
    qint64 total = suma->diezmilesimas;
    qint64 enteros = 0;
    if (suma->desbordada)
        sqlite3_result_error(contexto, "La suma se sale de lo que cabe.", -1);
    else if (!suma->conDecimales)
        sqlite3_result_int64(contexto, suma->enteros);
    else if (__builtin_mul_overflow(suma->enteros, Moneda::Escala, &enteros) ||
             __builtin_add_overflow(total, enteros, &total))
        sqlite3_result_error(contexto, "La suma se sale de lo que cabe.", -1);
    else
        sqlite3_result_double(contexto, static_cast<double>(total) / static_cast<double>(Moneda::Escala));
}

} // namespace

int registrarFunciones(sqlite3 *base)
{
    constexpr int Opciones = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    const auto funcion = [&](const char *nombre, int argumentos,
                             void (*cuerpo)(sqlite3_context *, int, sqlite3_value **)) {
        return sqlite3_create_function_v2(base, nombre, argumentos, Opciones, nullptr, cuerpo, nullptr, nullptr,
                                          nullptr);
    };
    int codigo = sqlite3_create_collation_v2(base, NombreCotejoTexto, SQLITE_UTF8, nullptr, cotejoTexto, nullptr);
    if (codigo == SQLITE_OK)
        codigo = sqlite3_create_collation_v2(base, NombreCotejoFecha, SQLITE_UTF8, nullptr, cotejoFecha, nullptr);
    if (codigo == SQLITE_OK)
        codigo = funcion("like", 2, funcionLike);
    if (codigo == SQLITE_OK)
        codigo = funcion("LEN", 1, funcionLen);
    if (codigo == SQLITE_OK)
        codigo = funcion("NV_IMPORTE_TEXTO", 1, funcionImporteTexto);
    if (codigo == SQLITE_OK)
        codigo = funcion("NV_VALOR_TEXTO", 1, funcionTexto);
    if (codigo == SQLITE_OK)
        codigo = trigramas::registrarFuncion(base);
    if (codigo == SQLITE_OK)
        codigo = registrarTipos(base);
    if (codigo == SQLITE_OK)
        codigo = sqlite3_create_function_v2(base, "SUM", 1, Opciones, nullptr, nullptr, pasoSuma, finSuma, nullptr);
    return codigo;
}

} // namespace nv::datos
