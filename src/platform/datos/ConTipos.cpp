#include "platform/datos/ConTipos.h"

#include "platform/datos/Lexico.h"
#include "platform/datos/Sqlite.h"

using namespace Qt::StringLiterals;

namespace nv::datos {

namespace {

std::shared_ptr<const TablaTipada> leerTabla(sqlite3 *base, const QString &nombre)
{
    const SentenciaSqlite consulta = preparada(base, "SELECT name, type FROM pragma_table_info(?1, 'main')");
    const QByteArray utf8 = nombre.toUtf8();
    sqlite3_bind_text(consulta.get(), 1, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_STATIC);
    const auto celda = [&](int i) {
        return QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(consulta.get(), i)));
    };
    auto tabla = std::make_shared<TablaTipada>();
    while (sqlite3_step(consulta.get()) == SQLITE_ROW)
        tabla->push_back({celda(0), celda(1), TipoServidor(celda(1), nombre + u'.' + celda(0))});
    return tabla;
}

/// Reads one INSERT or UPDATE. Ranges are [desde, hasta) over the tokens.
class Tipador
{
public:
    Tipador(sqlite3 *base, TablasTipadas &tablas, const QString &sql)
        : m_sql(sql)
        , m_lexemas(m_sql)
    {
        std::size_t i = m_lexemas.salto(0);
        const bool insercion = es(i, u"INSERT");
        i = m_lexemas.salto(i + 1);
        if (insercion && es(i, u"INTO"))
            i = m_lexemas.salto(i + 1);
        m_nombre = nombre(i);
        std::shared_ptr<const TablaTipada> &tabla = tablas[m_nombre];
        if (!tabla)
            tabla = leerTabla(base, m_nombre);
        m_salida.tabla = tabla;
        if (!tabla->empty())
            insercion ? insertar(m_lexemas.salto(i + 1)) : cambiar(m_lexemas.salto(i + 1));
    }

    ConTipos tipada()
    {
        m_salida.sql = m_prefijo;
        qsizetype escrito = 0;
        for (const Cambio &cambio : m_cambios) {
            m_salida.sql += QStringView(m_sql).sliced(escrito, cambio.lugar - escrito);
            m_salida.sql += cambio.texto;
            escrito = cambio.lugar;
        }
        m_salida.sql += QStringView(m_sql).sliced(escrito);
        return std::move(m_salida);
    }

private:
    using Rango = std::pair<std::size_t, std::size_t>;
    /// What comes in at a place of the text.
    struct Cambio
    {
        qsizetype lugar;
        QString texto;
    };

    bool es(std::size_t i, QStringView palabra) const { return i < m_lexemas.size() && m_lexemas[i].es(palabra); }
    /// Where a token begins in the text; the end behind the last one.
    qsizetype lugar(std::size_t i) const
    {
        return i < m_lexemas.size() ? m_lexemas[i].texto.data() - m_sql.constData() : m_sql.size();
    }

    /// Of a table or a column, which may stand in brackets.
    QString nombre(std::size_t i) const
    {
        return i < m_lexemas.size() ? m_lexemas[i].texto.toString().remove(u'[').remove(u']') : QString();
    }

    const ColumnaTipada *columna(std::size_t i) const
    {
        const QString buscado = nombre(i);
        for (const ColumnaTipada &una : *m_salida.tabla) {
            if (una.nombre.compare(buscado, Qt::CaseInsensitive) == 0)
                return &una;
        }
        return nullptr;
    }

    QString cierre(const ColumnaTipada &para) const
    {
        return u",'%1','%2.%3')"_s.arg(para.declarado, m_nombre, para.nombre);
    }

    /// A literal is held to the type when it is bound.
    void valor(Rango rango, const ColumnaTipada *para)
    {
        if (!para || para->tipo.libre())
            return;
        const std::size_t primero = m_lexemas.salto(rango.first);
        std::size_t fin = rango.second;
        while (fin > primero && m_lexemas[fin - 1].tipo == Lexema::Tipo::Blanco)
            --fin;
        if (fin == primero + 2 && m_lexemas[primero].esSigno(u'?')) {
            const auto numero = static_cast<std::size_t>(m_lexemas[primero + 1].texto.toInt());
            if (m_salida.deParametros.size() < numero)
                m_salida.deParametros.resize(numero, nullptr);
            m_salida.deParametros[numero - 1] = &para->tipo;
        } else if (fin > primero && !(fin == primero + 1 && es(primero, u"NULL"))) {
            m_cambios.push_back({lugar(primero), u"NV_TIPO("_s});
            m_cambios.push_back({lugar(fin), cierre(*para)});
        }
    }

    void insertar(std::size_t i)
    {
        std::vector<const ColumnaTipada *> destino;
        if (m_lexemas.abre(i)) {
            const std::size_t cerrado = m_lexemas.cierre(i, m_lexemas.size());
            for (const auto &[desde, hasta] : m_lexemas.argumentos(i, cerrado))
                destino.push_back(columna(m_lexemas.salto(desde)));
            i = m_lexemas.salto(cerrado + 1);
        } else {
            for (const ColumnaTipada &una : *m_salida.tabla)
                destino.push_back(&una);
        }
        if (es(i, u"VALUES"))
            valores(i, destino);
        else if (es(i, u"SELECT"))
            deConsulta(i, destino);
    }

    void valores(std::size_t i, const std::vector<const ColumnaTipada *> &destino)
    {
        for (; i < m_lexemas.size(); ++i) {
            if (!m_lexemas.abre(i))
                continue;
            const std::size_t cerrado = m_lexemas.cierre(i, m_lexemas.size());
            const std::vector<Rango> fila = m_lexemas.argumentos(i, cerrado);
            for (std::size_t c = 0; c < std::min(fila.size(), destino.size()); ++c)
                valor(fila[c], destino[c]);
            i = cerrado;
        }
    }

    /// The query goes in front, so that its columns have names.
    void deConsulta(std::size_t i, const std::vector<const ColumnaTipada *> &destino)
    {
        QStringList nombres, tipados;
        for (std::size_t c = 0; c < destino.size(); ++c) {
            nombres += u"c%1"_s.arg(c);
            const bool libre = !destino[c] || destino[c]->tipo.libre();
            tipados += libre ? nombres.back() : u"NV_TIPO("_s + nombres.back() + cierre(*destino[c]);
        }
        m_prefijo = u"WITH NV_FILAS (%1) AS (%2) "_s.arg(nombres.join(u','), m_sql.sliced(lugar(i)));
        m_sql = m_sql.first(lugar(i)) + u"SELECT "_s + tipados.join(u',') + u" FROM NV_FILAS"_s;
    }

    void cambiar(std::size_t i)
    {
        for (bool sigue = es(i, u"SET"); sigue;) {
            const std::size_t destino = m_lexemas.salto(i + 1);
            const std::size_t igual = hasta(destino, [](const Lexema &l) { return l.esSigno(u'='); });
            i = hasta(igual, [](const Lexema &l) { return l.esSigno(u',') || l.es(u"FROM") || l.es(u"WHERE"); });
            if (igual < i)
                valor({igual + 1, i}, columna(destino));
            sigue = i < m_lexemas.size() && m_lexemas[i].esSigno(u',');
        }
    }

    /// The first such token that stands in no bracket.
    template <class Condicion>
    std::size_t hasta(std::size_t i, Condicion condicion) const
    {
        while (i < m_lexemas.size() && !condicion(m_lexemas[i]))
            i = m_lexemas.abre(i) ? std::min(m_lexemas.cierre(i, m_lexemas.size()), m_lexemas.size() - 1) + 1 : i + 1;
        return i;
    }

    QString m_sql;
    const Lexemas m_lexemas;
    QString m_nombre;
    QString m_prefijo;
    std::vector<Cambio> m_cambios; // in the order of their places
    ConTipos m_salida;
};

ValorGuardado leido(sqlite3_value *valor)
{
    switch (sqlite3_value_type(valor)) {
    case SQLITE_INTEGER:
        return qint64{sqlite3_value_int64(valor)};
    case SQLITE_FLOAT:
        return sqlite3_value_double(valor);
    case SQLITE_NULL:
        return {};
    default:
        return std::string(reinterpret_cast<const char *>(sqlite3_value_text(valor)),
                           static_cast<std::size_t>(sqlite3_value_bytes(valor)));
    }
}

/// NV_TIPO(value, type, column).
void funcionTipo(sqlite3_context *contexto, int, sqlite3_value **argumentos)
{
    const auto texto = [&](int i) { return reinterpret_cast<const char *>(sqlite3_value_text(argumentos[i])); };
    auto *tipo = static_cast<TipoServidor *>(sqlite3_get_auxdata(contexto, 1));
    std::unique_ptr<TipoServidor> nuevo;
    if (!tipo) {
        nuevo = std::make_unique<TipoServidor>(QString::fromUtf8(texto(1)), QString::fromUtf8(texto(2)));
        tipo = nuevo.get();
    }
    try {
        const ValorGuardado valor = tipo->admitir(leido(argumentos[0]));
        if (const auto *entero = std::get_if<qint64>(&valor))
            sqlite3_result_int64(contexto, *entero);
        else if (const auto *real = std::get_if<double>(&valor))
            sqlite3_result_double(contexto, *real);
        else if (const auto *cadena = std::get_if<std::string>(&valor))
            sqlite3_result_text(contexto, cadena->data(), static_cast<int>(cadena->size()), SQLITE_TRANSIENT);
    } catch (const Error &error) {
        sqlite3_result_error(contexto, error.descripcion.toUtf8().constData(), -1);
        sqlite3_result_error_code(contexto, error.numero);
    }
    if (nuevo)
        sqlite3_set_auxdata(contexto, 1, nuevo.release(),
                            [](void *viejo) { std::unique_ptr<TipoServidor>(static_cast<TipoServidor *>(viejo)); });
}

} // namespace

ConTipos conTipos(sqlite3 *base, TablasTipadas &tablas, const QString &sql)
{
    const Lexema primero = primerLexema(sql);
    if (!primero.es(u"INSERT") && !primero.es(u"UPDATE"))
        return {sql, {}, nullptr};
    return Tipador(base, tablas, sql).tipada();
}

int registrarTipos(sqlite3 *base)
{
    return sqlite3_create_function_v2(base, "NV_TIPO", 3, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, funcionTipo,
                                      nullptr, nullptr, nullptr);
}

} // namespace nv::datos
