#include "platform/datos/Sqlite.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace nv::datos {

namespace {

QString tras(const QString &propio, QStringView cabecera)
{
    return propio.startsWith(cabecera) ? propio.sliced(cabecera.size()).trimmed() : propio;
}

QString restriccion(int codigo, const QString &propio)
{
    switch (codigo) {
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
        return u"Ya existe una fila con la misma clave (%1)."_s.arg(tras(propio, u"UNIQUE constraint failed:"));
    case SQLITE_CONSTRAINT_NOTNULL:
        return u"Falta un valor obligatorio (%1)."_s.arg(tras(propio, u"NOT NULL constraint failed:"));
    default:
        return propio;
    }
}

/// Of the engine's words those that a damaged or foreign catalogue brings up; the others are for a statement's author.
QString traducido(const QString &propio)
{
    static constexpr std::pair<QStringView, QStringView> palabras[] = {
        {u"no such table: ", u"no existe la tabla "},
        {u"no such column: ", u"no existe la columna "},
        {u"no such function: ", u"no existe la función "}};
    for (const auto &[suya, nuestra] : palabras)
        if (propio.startsWith(suya))
            return nuestra.toString() + propio.sliced(suya.size());
    return propio;
}

QString descripcion(int codigo, const QString &propio)
{
    constexpr int Basico = 0xFF;
    switch (codigo & Basico) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return u"La base de datos está ocupada por otro programa. Inténtelo de nuevo."_s;
    case SQLITE_READONLY:
        return u"La base de datos es de sólo lectura."_s;
    case SQLITE_CORRUPT:
        return u"La base de datos está dañada."_s;
    case SQLITE_NOTADB:
        return u"El archivo no es una base de datos."_s;
    case SQLITE_FULL:
        return u"No queda espacio en el disco."_s;
    case SQLITE_IOERR:
        return u"No se puede leer o escribir el archivo de la base de datos."_s;
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
        return u"No se puede abrir el archivo de la base de datos."_s;
    case SQLITE_NOMEM:
        return u"No queda memoria."_s;
    case SQLITE_CONSTRAINT:
        return restriccion(codigo, propio);
    default:
        // Our functions speak in sentences, the engine in English.
        return propio.endsWith(u'.') ? propio : u"La base de datos no ha podido hacerlo (%1)."_s.arg(traducido(propio));
    }
}

} // namespace

Error errorDe(sqlite3 *base)
{
    return errorDe(sqlite3_extended_errcode(base), QString::fromUtf8(sqlite3_errmsg(base)));
}

Error errorDe(int codigo, const QString &propio)
{
    return {codigo, descripcion(codigo, propio), {}};
}

void directa(sqlite3 *base, const QString &sql)
{
    if (sqlite3_exec(base, sql.toUtf8().constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw errorDe(base);
}

SentenciaSqlite preparada(sqlite3 *base, const char *sql)
{
    sqlite3_stmt *cruda = nullptr;
    if (sqlite3_prepare_v2(base, sql, -1, &cruda, nullptr) != SQLITE_OK)
        throw errorDe(base);
    return {cruda, &sqlite3_finalize};
}

} // namespace nv::datos
