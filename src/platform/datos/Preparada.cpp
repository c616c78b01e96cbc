#include "platform/datos/Preparada.h"

#include "platform/datos/Cotejo.h"
#include "platform/datos/Dialecto.h"
#include "platform/datos/Sqlite.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace nv::datos {

namespace {

void vincularTexto(sqlite3_stmt *sentencia, int lugar, const QByteArray &texto)
{
    sqlite3_bind_text64(sentencia, lugar, texto.constData(), static_cast<sqlite3_uint64>(texto.size()),
                        SQLITE_TRANSIENT, SQLITE_UTF8);
}

void vincularLiteral(sqlite3_stmt *sentencia, int lugar, const Literal &literal)
{
    if (literal.esTexto) {
        vincularTexto(sentencia, lugar, literal.comillasDobladas ? literal.texto().toUtf8() : literal.escrito.toUtf8());
        return;
    }
    bool entero = false;
    const qlonglong valor = literal.escrito.toLongLong(&entero);
    if (entero)
        sqlite3_bind_int64(sentencia, lugar, valor);
    else
        sqlite3_bind_double(sentencia, lugar, literal.escrito.toDouble());
}

/// What the column makes of a literal that does not go in as it stands.
void vincularTipada(sqlite3_stmt *sentencia, int lugar, const Literal &literal, const TipoServidor &tipo)
{
    bool esEntero = false;
    const qlonglong numero = literal.escrito.toLongLong(&esEntero);
    const ValorGuardado escrito = literal.esTexto ? ValorGuardado(literal.texto().toStdString())
                                  : esEntero      ? ValorGuardado(qint64{numero})
                                                  : ValorGuardado(literal.escrito.toDouble());
    const ValorGuardado valor = tipo.admitir(escrito);
    if (const auto *entero = std::get_if<qint64>(&valor))
        sqlite3_bind_int64(sentencia, lugar, *entero);
    else if (const auto *real = std::get_if<double>(&valor))
        sqlite3_bind_double(sentencia, lugar, *real);
    else if (const auto *texto = std::get_if<std::string>(&valor))
        vincularTexto(sentencia, lugar, QByteArray::fromStdString(*texto));
}

} // namespace

sqlite3_stmt *preparar(sqlite3 *base, const QString &sql, bool duradera)
{
    const QByteArray texto = sql.toUtf8();
    sqlite3_stmt *sentencia = nullptr;
    const char *resto = nullptr;
    const int codigo = sqlite3_prepare_v3(base, texto.constData(), static_cast<int>(texto.size()) + 1,
                                          duradera ? SQLITE_PREPARE_PERSISTENT : 0, &sentencia, &resto);
    if (codigo != SQLITE_OK)
        throw errorDe(base);
    for (; resto && *resto; ++resto) {
        if (*resto != ';' && *resto != ' ' && *resto != '\n' && *resto != '\r' && *resto != '\t') {
            sqlite3_finalize(sentencia);
            throw Error{SentenciaMalEscrita, u"Sólo se admite una sentencia cada vez."_s, {}};
        }
    }
    if (!sentencia)
        throw Error{SentenciaMalEscrita, u"La sentencia está vacía."_s, {}};
    return sentencia;
}

Preparada::Preparada(sqlite3 *base, TablasTipadas &tablas, const QString &forma, Criba criba)
    : m_criba(criba)
{
    Adaptada adaptada = adaptar(forma, criba);
    m_tipada = conTipos(base, tablas, adaptada.sql);
    m_sentencia = preparar(base, m_tipada.sql, true);
    m_tipada.sql.clear();
    m_adaptada = std::move(adaptada.sql);
    m_tablaNueva = std::move(adaptada.tablaNueva);
    m_rangos = std::move(adaptada.rangos);
    m_cribables = std::move(adaptada.cribables);
}

Preparada::~Preparada()
{
    sqlite3_finalize(m_sentencia);
}

void Preparada::vincular(const Parametrizada &parametrizada) const
{
    vincular(parametrizada, m_sentencia);
}

void Preparada::vincular(const Parametrizada &parametrizada, Candidatos candidatos) const
{
    const int lugar = vincular(parametrizada, m_sentencia) + 1;
    if (m_criba == Criba::Lista)
        vincularTexto(m_sentencia, lugar, candidatos.lista());
    else
        trigramas::vincular(m_sentencia, lugar, std::move(candidatos));
}

int Preparada::vincular(const Parametrizada &parametrizada, sqlite3_stmt *otra) const
{
    const int ultimo = sqlite3_bind_parameter_count(otra);
    int lugar = 0;
    for (const Literal &literal : parametrizada.literales) {
        if (++lugar > ultimo)
            continue;
        const auto indice = static_cast<std::size_t>(lugar - 1);
        const TipoServidor *tipo = indice < m_tipada.deParametros.size() ? m_tipada.deParametros[indice] : nullptr;
        if (!tipo || tipo->cabe(literal))
            vincularLiteral(otra, lugar, literal);
        else
            vincularTipada(otra, lugar, literal, *tipo);
    }
    for (const std::size_t cual : m_rangos) {
        const QString prefijo = prefijoPatron(parametrizada.literales[static_cast<qsizetype>(cual)].texto());
        vincularTexto(otra, ++lugar, prefijo.toUtf8());
        vincularTexto(otra, ++lugar, prefijo.toUtf8() + "\xF4\x8F\xBF\xBF");
    }
    return lugar;
}

const QStringList &Preparada::nombres()
{
    const int preparaciones = sqlite3_stmt_status(m_sentencia, SQLITE_STMTSTATUS_REPREPARE, 0);
    if (preparaciones != m_nombresDe) {
        m_nombresDe = preparaciones;
        m_nombres.clear();
        const int columnas = sqlite3_column_count(m_sentencia);
        for (int i = 0; i < columnas; ++i)
            m_nombres.push_back(QString::fromUtf8(sqlite3_column_name(m_sentencia, i)));
    }
    return m_nombres;
}

std::shared_ptr<Preparada> CachePreparadas::obtener(sqlite3 *base, const Parametrizada &parametrizada, Criba criba)
{
    const QString clave =
        criba == Criba::Ninguna ? parametrizada.forma : parametrizada.forma + QChar(static_cast<char16_t>(criba));
    const auto lugar = m_indice.constFind(clave);
    if (lugar != m_indice.constEnd()) {
        m_entradas.splice(m_entradas.begin(), m_entradas, *lugar);
        return m_entradas.front().preparada;
    }
    auto preparada = std::make_shared<Preparada>(base, m_tablas, parametrizada.forma, criba);
    // Statements without lifted literals are the schema's, seldom run twice.
    if (parametrizada.literales.isEmpty() || parametrizada.forma.size() > FormaMaxima)
        return preparada;
    if (m_indice.size() >= Capacidad) {
        m_indice.remove(m_entradas.back().forma);
        m_entradas.pop_back();
    }
    m_entradas.push_front({clave, preparada});
    m_indice.insert(clave, m_entradas.begin());
    return preparada;
}

void CachePreparadas::vaciar()
{
    m_indice.clear();
    m_entradas.clear();
    m_tablas.clear();
}

} // namespace nv::datos
