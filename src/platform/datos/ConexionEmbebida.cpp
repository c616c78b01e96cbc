#include "platform/datos/ConexionEmbebida.h"

#include "nvArticulo/Motores.h"
#include "platform/datos/Apertura.h"
#include "platform/datos/Catalogo.h"
#include "platform/datos/Funciones.h"
#include "platform/datos/Sqlite.h"

#include <QVariant>

#include <chrono>
#include <cmath>
#include <sqlite3.h>
#include <thread>

using namespace Qt::StringLiterals;

namespace nv::datos {

namespace {

/// Amounts have four decimals: what floating-point arithmetic adds beyond them is not part of the value.
double sinRuido(double valor)
{
    constexpr double Limite = 1e11;
    constexpr double Escala = static_cast<double>(Moneda::Escala);
    return std::abs(valor) < Limite ? std::round(valor * Escala) / Escala : valor;
}

class CursorSqlite final : public Cursor
{
public:
    /// Runs to the first row, so that what fails fails here.
    CursorSqlite(sqlite3 *base, std::shared_ptr<Preparada> preparada)
        : m_base(base)
        , m_preparada(std::move(preparada))
    {
        adelantar();
        m_nombres = m_preparada->nombres();
    }
    CursorSqlite(const CursorSqlite &) = delete;
    CursorSqlite &operator=(const CursorSqlite &) = delete;
    ~CursorSqlite() override { sqlite3_reset(m_preparada->sentencia()); }

    int columnas() const override { return static_cast<int>(m_nombres.size()); }
    QString nombre(int columna) const override { return m_nombres.at(columna); }

    QVariant valor(int columna) const override
    {
        sqlite3_stmt *sentencia = m_preparada->sentencia();
        switch (sqlite3_column_type(sentencia, columna)) {
        case SQLITE_INTEGER:
            return QVariant(static_cast<qlonglong>(sqlite3_column_int64(sentencia, columna)));
        case SQLITE_FLOAT:
            return QVariant(sinRuido(sqlite3_column_double(sentencia, columna)));
        case SQLITE_NULL:
            return {};
        default: {
            const auto *texto = reinterpret_cast<const char *>(sqlite3_column_text(sentencia, columna));
            return QVariant(QString::fromUtf8(texto, sqlite3_column_bytes(sentencia, columna)));
        }
        }
    }

private:
    bool paso() override
    {
        const int codigo = sqlite3_step(m_preparada->sentencia());
        if (codigo == SQLITE_ROW)
            return true;
        if (codigo != SQLITE_DONE) {
            const Error error = errorDe(m_base);
            sqlite3_reset(m_preparada->sentencia());
            throw error;
        }
        // The lock goes with the last row, not when the reader gets round to closing.
        sqlite3_reset(m_preparada->sentencia());
        return false;
    }

    sqlite3 *m_base;
    std::shared_ptr<Preparada> m_preparada;
    QStringList m_nombres;
};

class CursorVacio final : public FuenteRegistros
{
public:
    bool avanzar() override { return false; }
    int columnas() const override { return 0; }
    QString nombre(int) const override { return {}; }
    QVariant valor(int) const override { return {}; }
};

enum class Clase { Consulta, Filas, Esquema };

Clase claseDe(QStringView forma)
{
    const Lexema primero = primerLexema(forma);
    if (primero.es(u"INSERT") || primero.es(u"UPDATE") || primero.es(u"DELETE"))
        return Clase::Filas;
    return primero.es(u"CREATE") || primero.es(u"ALTER") || primero.es(u"DROP") ? Clase::Esquema : Clase::Consulta;
}

QString entreCorchetes(const QString &nombre)
{
    const QString limpio = nombre.startsWith(u'[') ? nombre.sliced(1).chopped(1) : nombre;
    return (limpio.startsWith(u'#') ? u"temp.["_s : u"["_s) + limpio + u']';
}

/// Types come as the dialect declared them; a computed column has none, and the text order harms no number.
QString definicion(sqlite3_stmt *consulta, int columna)
{
    QString texto = u'"' + QString::fromUtf8(sqlite3_column_name(consulta, columna)).replace(u'"', u"\"\""_s) + u'"';
    const QString tipo = QString::fromUtf8(sqlite3_column_decltype(consulta, columna));
    const qsizetype fin = tipo.indexOf(u'(');
    const QString nombre = (fin < 0 ? tipo : tipo.first(fin)).section(u' ', 0, 0);
    const bool fecha = claseDeTipo(nombre) == ClaseColumna::Tipo::Fecha;
    return texto + u' ' + tipo + (fecha ? u" COLLATE NV_FECHA"_s : u" COLLATE NV_TEXTO"_s);
}

} // namespace

void ConexionEmbebida::Cierre::operator()(sqlite3 *base) const
{
    sqlite3_close_v2(base);
}

ConexionEmbebida::ConexionEmbebida(const QString &ruta)
    : m_base(abrirArchivo(ruta))
    , m_azar(std::random_device{}())
{
    sqlite3_busy_handler(m_base.get(), &ConexionEmbebida::esperar, this);
    if (registrarFunciones(m_base.get()) != SQLITE_OK)
        throw errorDe(m_base.get());
    prepararCatalogo(m_base.get(), ruta);
    constexpr qint64 PacienciaAlTrabajar = 5'000'000;
    m_paciencia = PacienciaAlTrabajar;
}

ConexionEmbebida::~ConexionEmbebida()
{
    soltarResultados();
    m_cache.vaciar();
}

/// The engine's own handler waits ever longer and starves a process; short waits of random length do not.
int ConexionEmbebida::esperar(void *conexion, int veces)
{
    auto *esta = static_cast<ConexionEmbebida *>(conexion);
    if (veces == 0)
        esta->m_esperado = 0;
    const qint64 pausa = std::uniform_int_distribution<qint64>(100, 1200)(esta->m_azar);
    if (esta->m_esperado + pausa > esta->m_paciencia)
        return 0;
    esta->m_esperado += pausa;
    std::this_thread::sleep_for(std::chrono::microseconds(pausa));
    return 1;
}

std::shared_ptr<Preparada> ConexionEmbebida::vinculada(const Parametrizada &parametrizada)
{
    std::shared_ptr<Preparada> preparada = m_cache.obtener(m_base.get(), parametrizada);
    if (preparada->tablaNueva().isEmpty() && preparada->cribables()) {
        std::optional<Candidatos> candidatos = trigramas::buscar(m_base.get(), *preparada->cribables(), parametrizada);
        if (candidatos) {
            preparada = m_cache.obtener(m_base.get(), parametrizada, candidatos->criba());
            preparada->vincular(parametrizada, std::move(*candidatos));
            return preparada;
        }
    }
    preparada->vincular(parametrizada);
    return preparada;
}

std::unique_ptr<FuenteRegistros> ConexionEmbebida::abrirCursor(const Sentencia &sentencia)
{
    const Parametrizada parametrizada = datos::parametrizar(sentencia.texto());
    std::shared_ptr<Preparada> preparada = vinculada(parametrizada);
    if (!preparada->tablaNueva().isEmpty()) {
        crearDesde(*preparada, parametrizada);
        return std::make_unique<CursorVacio>();
    }
    return std::make_unique<CursorSqlite>(m_base.get(), std::move(preparada));
}

qint64 ConexionEmbebida::ejecutarSolo(const Sentencia &sentencia)
{
    const Parametrizada parametrizada = datos::parametrizar(sentencia.texto());
    const std::shared_ptr<Preparada> preparada = vinculada(parametrizada);
    if (!preparada->tablaNueva().isEmpty())
        return crearDesde(*preparada, parametrizada);
    return ejecutar(*preparada, parametrizada);
}

qint64 ConexionEmbebida::ejecutar(Preparada &preparada, const Parametrizada &parametrizada)
{
    sqlite3_stmt *sentencia = preparada.sentencia();
    int codigo = SQLITE_ROW;
    while (codigo == SQLITE_ROW)
        codigo = sqlite3_step(sentencia);
    if (codigo != SQLITE_DONE) {
        const Error error = errorDe(m_base.get());
        sqlite3_reset(sentencia);
        throw error;
    }
    const Clase clase = claseDe(parametrizada.forma);
    const qint64 filas = clase == Clase::Filas ? sqlite3_changes64(m_base.get()) : 0;
    sqlite3_reset(sentencia);
    // A search that makes its #table changes none of the catalogue's.
    if (clase == Clase::Esquema && !parametrizada.forma.contains(u'#'))
        m_cache.vaciar();
    if (filas > 0 && sqlite3_get_autocommit(m_base.get()) != 0)
        trigramas::ponerAlDia(m_base.get());
    return filas;
}

qint64 ConexionEmbebida::crearDesde(Preparada &preparada, const Parametrizada &parametrizada)
{
    sqlite3_stmt *consulta = preparada.sentencia();
    const QString tabla = entreCorchetes(preparada.tablaNueva());
    QStringList columnas;
    for (int i = 0; i < sqlite3_column_count(consulta); ++i)
        columnas.push_back(definicion(consulta, i));
    const auto correr = [&](const QString &sql, bool conValores) {
        const std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)> sentencia(preparar(m_base.get(), sql, false),
                                                                                   &sqlite3_finalize);
        if (conValores)
            preparada.vincular(parametrizada, sentencia.get());
        if (sqlite3_step(sentencia.get()) != SQLITE_DONE)
            throw errorDe(m_base.get());
    };
    correr(u"CREATE TABLE "_s + tabla + u" ("_s + columnas.join(u", "_s) + u')', false);
    try {
        correr(u"INSERT INTO "_s + tabla + u' ' + preparada.adaptada(), true);
    } catch (const Error &) {
        directa(m_base.get(), u"DROP TABLE "_s + tabla);
        throw;
    }
    return sqlite3_changes64(m_base.get());
}

void ConexionEmbebida::comenzarSolo()
{
    // A transaction that begins by reading cannot wait for the lock when it comes to write: it takes it at once.
    directa(m_base.get(), u"BEGIN IMMEDIATE"_s);
}

void ConexionEmbebida::confirmarSolo()
{
    trigramas::ponerAlDia(m_base.get());
    directa(m_base.get(), u"COMMIT"_s);
}

void ConexionEmbebida::deshacerSolo()
{
    // Some failures (a full disk) roll back by themselves.
    if (!sqlite3_get_autocommit(m_base.get()))
        directa(m_base.get(), u"ROLLBACK"_s);
}

std::unique_ptr<Conexion> abrirEmbebida(const QString &ruta)
{
    return std::make_unique<ConexionEmbebida>(ruta);
}

} // namespace nv::datos
