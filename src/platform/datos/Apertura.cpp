#include "platform/datos/Apertura.h"

#include "platform/datos/Catalogo.h"
#include "platform/datos/Cotejo.h"
#include "platform/datos/Dialecto.h"
#include "platform/datos/Sqlite.h"
#include "platform/datos/Trigramas.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>

#include <chrono>
#include <sqlite3.h>
#include <thread>

using namespace Qt::StringLiterals;

namespace nv::datos {

namespace {

constexpr int BitsCotejo = 16;
constexpr int VersionArchivo = (VersionFormato << BitsCotejo) | VersionCotejo;

QString leer(sqlite3 *base, const char *sql)
{
    const SentenciaSqlite sentencia = preparada(base, sql);
    const int codigo = sqlite3_step(sentencia.get());
    if (codigo != SQLITE_ROW && codigo != SQLITE_DONE)
        throw errorDe(base);
    return codigo == SQLITE_ROW
               ? QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(sentencia.get(), 0)))
               : QString();
}

/// Changing the journal needs the file for itself and does not wait by itself.
void diarioAdelantado(sqlite3 *base)
{
    constexpr int Paciencia = 2000;
    const QDeadlineTimer plazo(Paciencia);
    while (leer(base, "PRAGMA journal_mode") == u"delete") {
        try {
            leer(base, "PRAGMA journal_mode = WAL");
            return;
        } catch (const Error &error) {
            if ((error.numero & 0xFF) != SQLITE_BUSY || plazo.hasExpired())
                throw;
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
    }
}

void ajustar(sqlite3 *base)
{
    directa(base, u"PRAGMA temp_store = MEMORY"_s);
    directa(base, u"PRAGMA cache_size = -16384"_s);
    directa(base, u"PRAGMA mmap_size = 2147483648"_s);
    // A counter is issued from here: the last commits must outlive a power cut.
    directa(base, u"PRAGMA synchronous = FULL"_s);
}

bool estaVacia(sqlite3 *base)
{
    return leer(base, "SELECT COUNT(*) FROM sqlite_master") == u"0";
}

void anotarVersiones(sqlite3 *base)
{
    directa(base, u"PRAGMA application_id = %1"_s.arg(FirmaCatalogo));
    directa(base, u"PRAGMA user_version = %1"_s.arg(VersionArchivo));
}

class Cambio
{
public:
    explicit Cambio(sqlite3 *base)
        : m_base(base)
    {
        directa(base, u"BEGIN IMMEDIATE"_s);
    }
    Cambio(const Cambio &) = delete;
    Cambio &operator=(const Cambio &) = delete;
    ~Cambio()
    {
        if (!sqlite3_get_autocommit(m_base))
            sqlite3_exec(m_base, "ROLLBACK", nullptr, nullptr, nullptr);
    }
    void confirmar() { directa(m_base, u"COMMIT"_s); }

private:
    sqlite3 *m_base;
};

void ponerEsquema(sqlite3 *base)
{
    Cambio cambio(base);
    // Another program may have made it while this one waited.
    if (!estaVacia(base))
        return;
    const QStringList sentencias = sentenciasDe(Catalogo::unico().esquema());
    for (const QString &sentencia : sentencias)
        directa(base, adaptar(sentencia).sql);
    trigramas::crear(base);
    anotarVersiones(base);
    cambio.confirmar();
}

void comprobarVersiones(sqlite3 *base)
{
    if (leer(base, "PRAGMA application_id").toInt() != FirmaCatalogo)
        throw Error{SQLITE_NOTADB, u"El archivo es una base de datos, pero no un catálogo de artículos."_s, {}};
    const auto leerVersion = [&] { return leer(base, "PRAGMA user_version").toInt(); };
    int version = leerVersion();
    if (version >> BitsCotejo > VersionFormato)
        throw Error{SQLITE_MISMATCH, u"El catálogo es de una versión posterior a la de este programa."_s, {}};
    if (version == VersionArchivo)
        return;
    constexpr int SinTrigramas = 1;
    Cambio cambio(base);
    version = leerVersion();
    // Another program may have done it while this one waited.
    if (version == VersionArchivo)
        return;
    if (version >> BitsCotejo <= SinTrigramas)
        trigramas::crear(base);
    directa(base, u"REINDEX"_s);
    anotarVersiones(base);
    cambio.confirmar();
}

} // namespace

sqlite3 *abrirArchivo(const QString &ruta)
{
    const QFileInfo archivo(ruta);
    if (ruta != u":memory:") {
        if (ruta.trimmed().isEmpty() || archivo.isDir())
            throw Error{SQLITE_CANTOPEN, u"«%1» no es un archivo."_s.arg(QDir::toNativeSeparators(ruta)), {}};
        if (!archivo.absoluteDir().exists())
            throw Error{SQLITE_CANTOPEN,
                        u"No existe la carpeta «%1»."_s.arg(QDir::toNativeSeparators(archivo.absolutePath())),
                        {}};
    }
    sqlite3 *base = nullptr;
    constexpr int Opciones = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX;
    const int codigo = sqlite3_open_v2(ruta.toUtf8().constData(), &base, Opciones, nullptr);
    if (codigo != SQLITE_OK) {
        const Error error = errorDe(base);
        sqlite3_close_v2(base);
        throw Error{error.numero, error.descripcion + u" («%1»)"_s.arg(QDir::toNativeSeparators(ruta)), {}};
    }
    sqlite3_extended_result_codes(base, 1);
    return base;
}

void prepararCatalogo(sqlite3 *base, const QString &ruta)
{
    try {
        ajustar(base);
        if (ruta != u":memory:" && sqlite3_db_readonly(base, "main") == 0)
            diarioAdelantado(base);
        if (estaVacia(base))
            ponerEsquema(base);
        comprobarVersiones(base);
    } catch (const Error &error) {
        if (ruta == u":memory:")
            throw;
        throw Error{error.numero, error.descripcion + u" («%1»)"_s.arg(QDir::toNativeSeparators(ruta)), {}};
    }
}

} // namespace nv::datos
