#include "platform/datos/Trigramas.h"

#include "platform/datos/Cotejo.h"
#include "platform/datos/PatronLike.h"
#include "platform/datos/Sqlite.h"

#include <QStringList>

#include <algorithm>
#include <memory>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace nv::datos {

namespace {

constexpr int Largo = 3;
constexpr char ClaseCandidatos[] = "nv.Candidatos";

// An item is known by one number: company * 2^32 + code, codes from -2^31 on.
constexpr qint64 PorEmpresa = qint64{1} << 32;
constexpr qint64 Medio = qint64{1} << 31;

/// Notes the items of a table's rows when one of `columnas` changes. `articulo` is the item's code in them.
QStringList avisos(const QString &tabla, const QString &articulo, const QString &columnas)
{
    const auto anota = [&](const QString &fila) {
        return u"INSERT OR IGNORE INTO nv_Pendientes VALUES (%1.Cod_Empresa * 4294967296 + %1.%2); "_s.arg(fila,
                                                                                                           articulo);
    };
    const QString crear = u"CREATE TRIGGER nv_%1_%2 AFTER %3 ON %1 BEGIN %4END"_s;
    return {crear.arg(tabla, u"alta"_s, u"INSERT"_s, anota(u"new"_s)),
            crear.arg(tabla, u"baja"_s, u"DELETE"_s, anota(u"old"_s)),
            crear.arg(tabla, u"cambio"_s, u"UPDATE OF Cod_Empresa, %1, %2"_s.arg(articulo, columnas),
                      anota(u"old"_s) + anota(u"new"_s))};
}

QStringList avisosMarcas()
{
    const auto anota = [&](const QString &fila) {
        return u"INSERT OR IGNORE INTO nv_Pendientes SELECT Cod_Empresa * 4294967296 + Codigo FROM Articulos"
               u" WHERE Marca = %1.Codigo; "_s.arg(fila);
    };
    const QString crear = u"CREATE TRIGGER nv_Marcas_%1 AFTER %2 ON Marcas BEGIN %3END"_s;
    return {crear.arg(u"alta"_s, u"INSERT"_s, anota(u"new"_s)), crear.arg(u"baja"_s, u"DELETE"_s, anota(u"old"_s)),
            crear.arg(u"cambio"_s, u"UPDATE OF Codigo, Nombre"_s, anota(u"old"_s) + anota(u"new"_s))};
}

void indexarPendientes(sqlite3 *base)
{
    // The index keeps no texts: to forget one it has to be told it again.
    directa(base, u"INSERT INTO nv_Trigramas (nv_Trigramas, rowid, Texto)"
                  u" SELECT 'delete', Id, Texto FROM nv_Textos WHERE Id IN (SELECT Id FROM nv_Pendientes)"_s);
    directa(base, u"DELETE FROM nv_Textos WHERE Id IN (SELECT Id FROM nv_Pendientes)"_s);
    directa(base, u"INSERT INTO nv_Textos"
                  u" SELECT p.Id, a.Codigo || char(10) || ifnull(a.Descripcion, '')"
                  u" || ifnull(char(10) || (SELECT group_concat(r.Ref, char(10)) FROM Articulos_Ref r"
                  u" WHERE r.Cod_Empresa = a.Cod_Empresa AND r.Cod_Articulo = a.Codigo), '')"
                  u" || ifnull(char(10) || (SELECT group_concat(b.Cod_Barras, char(10)) FROM Articulos_CBarras b"
                  u" WHERE b.Cod_Empresa = a.Cod_Empresa AND b.Cod_Articulo = a.Codigo), '')"
                  u" || ifnull(char(10) || (SELECT m.Nombre FROM Marcas m WHERE m.Codigo = a.Marca), '')"
                  u" FROM nv_Pendientes p CROSS JOIN Articulos a"
                  u" ON a.Cod_Empresa = (p.Id + 2147483648) >> 32"
                  u" AND a.Codigo = p.Id - ((p.Id + 2147483648) >> 32) * 4294967296"_s);
    directa(base, u"INSERT INTO nv_Trigramas (rowid, Texto)"
                  u" SELECT Id, Texto FROM nv_Textos WHERE Id IN (SELECT Id FROM nv_Pendientes)"_s);
    directa(base, u"DELETE FROM nv_Pendientes"_s);
}

/// What the index must hold of a pattern, in its query language; empty when the pattern says too little.
QString consultaDe(const QString &patron)
{
    constexpr qsizetype Bastantes = 32;
    QStringList trigramas;
    for (const std::string &tramo : PatronLike(patron.toStdString()).textos()) {
        QString ventana;
        for (std::string_view resto = tramo; !resto.empty() && trigramas.size() < Bastantes;) {
            const char32_t caracter = extraer(resto);
            // Beyond these letters the index and LIKE do not agree on upper and lower case.
            const bool conocido = caracter >= 0x20 && caracter < 0x100 && (caracter < 0x7F || caracter > 0xA0);
            ventana = conocido ? ventana.right(Largo - 1) + QChar(static_cast<char16_t>(caracter)) : QString();
            if (ventana.size() == Largo)
                trigramas.push_back(u'"' + QString(ventana).replace(u'"', u"\"\""_s) + u'"');
        }
    }
    trigramas.removeDuplicates();
    return trigramas.join(u" AND "_s);
}

QString consultaDe(const CondicionesCribables &condiciones, const Parametrizada &parametrizada)
{
    QStringList todas;
    for (const std::vector<std::size_t> &grupo : condiciones.grupos) {
        QStringList una;
        for (const std::size_t literal : grupo)
            una.push_back(consultaDe(parametrizada.literales[static_cast<qsizetype>(literal)].texto()));
        una.removeDuplicates();
        if (!una.contains(QString()))
            todas.push_back(u"(("_s + una.join(u") OR ("_s) + u"))"_s);
    }
    todas.removeDuplicates();
    return todas.join(u" AND "_s);
}

void funcionCandidato(sqlite3_context *contexto, int, sqlite3_value **argumentos)
{
    const auto *candidatos = static_cast<const Candidatos *>(sqlite3_value_pointer(argumentos[0], ClaseCandidatos));
    sqlite3_result_int(contexto, !candidatos || candidatos->contiene(sqlite3_value_int64(argumentos[1])) ? 1 : 0);
}

} // namespace

void Candidatos::anadir(qint64 codigo)
{
    m_codigos.push_back(codigo);
    m_paginas[codigo >> BitsPagina].set(static_cast<std::size_t>(codigo & ((1 << BitsPagina) - 1)));
}

bool Candidatos::contiene(qint64 codigo) const
{
    const auto pagina = m_paginas.constFind(codigo >> BitsPagina);
    return pagina != m_paginas.constEnd() && pagina->test(static_cast<std::size_t>(codigo & ((1 << BitsPagina) - 1)));
}

Criba Candidatos::criba() const
{
    constexpr std::size_t Pocos = 400;
    return m_codigos.size() <= Pocos ? Criba::Lista : Criba::Mapa;
}

QByteArray Candidatos::lista() const
{
    QByteArray texto = "[";
    for (const qint64 codigo : m_codigos)
        texto += (texto.size() > 1 ? "," : "") + QByteArray::number(codigo);
    return texto + ']';
}

namespace trigramas {

void crear(sqlite3 *base)
{
    QStringList sentencias{u"CREATE TABLE nv_Pendientes (Id INTEGER PRIMARY KEY)"_s,
                           u"CREATE TABLE nv_Textos (Id INTEGER PRIMARY KEY, Texto TEXT NOT NULL)"_s,
                           u"CREATE VIRTUAL TABLE nv_Trigramas USING fts5"
                           u"(Texto, content = '', columnsize = 0, detail = none, tokenize = 'trigram')"_s};
    sentencias += avisos(u"Articulos"_s, u"Codigo"_s, u"Descripcion, Marca"_s);
    sentencias += avisos(u"Articulos_Ref"_s, u"Cod_Articulo"_s, u"Ref"_s);
    sentencias += avisos(u"Articulos_CBarras"_s, u"Cod_Articulo"_s, u"Cod_Barras"_s);
    sentencias += avisosMarcas();
    sentencias += u"INSERT INTO nv_Pendientes SELECT Cod_Empresa * 4294967296 + Codigo FROM Articulos"_s;
    for (const QString &sentencia : std::as_const(sentencias))
        directa(base, sentencia);
    indexarPendientes(base);
}

void ponerAlDia(sqlite3 *base)
{
    // Every commit adds a piece to the index, and pieces cost: a few items wait for more.
    constexpr int LoteMinimo = 32;
    const bool dentro = sqlite3_get_autocommit(base) == 0;
    try {
        const SentenciaSqlite cuenta = preparada(base, "SELECT COUNT(*) FROM (SELECT 1 FROM nv_Pendientes LIMIT 32)");
        if (sqlite3_step(cuenta.get()) != SQLITE_ROW || sqlite3_column_int(cuenta.get(), 0) < LoteMinimo)
            return;
        sqlite3_reset(cuenta.get());
        directa(base, u"SAVEPOINT nv_indice"_s);
        try {
            indexarPendientes(base);
        } catch (const Error &) {
            directa(base, u"ROLLBACK TO nv_indice"_s);
        }
        directa(base, u"RELEASE nv_indice"_s);
    } catch (const Error &) {
        // They stay noted; no transaction of this function's own may.
        if (!dentro && sqlite3_get_autocommit(base) == 0)
            sqlite3_exec(base, "ROLLBACK", nullptr, nullptr, nullptr);
    }
}

std::optional<Candidatos> buscar(sqlite3 *base, const CondicionesCribables &condiciones,
                                 const Parametrizada &parametrizada)
{
    const auto literal = [&](std::size_t cual) { return parametrizada.literales[static_cast<qsizetype>(cual)]; };
    const auto larga = [&](std::size_t cual) { return literal(cual).escrito.size() >= Largo; };
    bool entera = false;
    const qint64 empresa = literal(condiciones.empresa).escrito.toShort(&entera);
    if (!entera || std::any_of(condiciones.omisiones.begin(), condiciones.omisiones.end(), larga))
        return {};
    const QString consulta = consultaDe(condiciones, parametrizada);
    if (consulta.isEmpty())
        return {};
    const SentenciaSqlite sentencia =
        preparada(base, "SELECT rowid FROM nv_Trigramas WHERE nv_Trigramas MATCH ?1 AND rowid BETWEEN ?2 AND ?3"
                        " UNION ALL SELECT Id FROM nv_Pendientes WHERE Id BETWEEN ?2 AND ?3");
    const QByteArray texto = consulta.toUtf8();
    sqlite3_bind_text64(sentencia.get(), 1, texto.constData(), static_cast<sqlite3_uint64>(texto.size()), SQLITE_STATIC,
                        SQLITE_UTF8);
    sqlite3_bind_int64(sentencia.get(), 2, empresa * PorEmpresa - Medio);
    sqlite3_bind_int64(sentencia.get(), 3, empresa * PorEmpresa + Medio - 1);
    Candidatos candidatos;
    int codigo = sqlite3_step(sentencia.get());
    for (; codigo == SQLITE_ROW; codigo = sqlite3_step(sentencia.get()))
        candidatos.anadir(sqlite3_column_int64(sentencia.get(), 0) - empresa * PorEmpresa);
    if (codigo != SQLITE_DONE)
        throw errorDe(base);
    return candidatos;
}

int registrarFuncion(sqlite3 *base)
{
    return sqlite3_create_function_v2(base, "NV_CANDIDATO", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS,
                                      nullptr, funcionCandidato, nullptr, nullptr, nullptr);
}

void vincular(sqlite3_stmt *sentencia, int lugar, Candidatos candidatos)
{
    auto propios = std::make_unique<Candidatos>(std::move(candidatos));
    sqlite3_bind_pointer(sentencia, lugar, propios.release(), ClaseCandidatos,
                         [](void *viejos) { std::unique_ptr<Candidatos>(static_cast<Candidatos *>(viejos)); });
}

} // namespace trigramas

} // namespace nv::datos
