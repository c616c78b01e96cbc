#include "platform/datos/Dialecto.h"

#include "platform/datos/Catalogo.h"
#include "platform/datos/DialectoEsquema.h"
#include "platform/datos/Lexico.h"

#include <algorithm>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace nv::datos {

namespace {

using Tipo = Lexema::Tipo;

/// Rewrites a statement token by token. Ranges are [desde, hasta) over the token list.
class Adaptador
{
public:
    Adaptador(const QString &forma, Criba criba)
        : m_lexemas(forma)
        , m_criba(criba)
    {
        for (std::size_t i = 0; i < m_lexemas.size(); ++i) {
            m_numero.push_back(m_huecos);
            m_huecos += m_lexemas[i].tipo == Tipo::Hueco ? 1 : 0;
        }
    }

    Adaptada adaptar()
    {
        std::size_t fin = m_lexemas.size();
        while (fin > 0 && (m_lexemas[fin - 1].tipo == Tipo::Blanco || m_lexemas[fin - 1].esSigno(u';')))
            --fin;
        const std::size_t primera = m_lexemas.salto(0);
        m_esConsulta = primera < fin && m_lexemas[primera].es(u"SELECT");
        buscarEmpresaFija(fin);
        if (primera < fin && (m_esConsulta || m_lexemas[primera].es(u"INSERT")))
            m_salida.cribables = buscarCribables(m_lexemas, m_numero);
        m_salida.sql = bloque(0, fin, 0);
        m_salida.sql.replace(ParametroCriba, u'?' + QString::number(m_huecos + 2 * m_salida.rangos.size() + 1));
        return std::move(m_salida);
    }

private:
    /// Stands for the number of the parameter behind all others, not known before the end.
    static constexpr QChar ParametroCriba{u'\x04'};

    struct Columna
    {
        qsizetype inicio = -1; // in the output
        QStringView nombre;
    };

    /// Class of the first known column named in a range.
    ClaseColumna::Tipo clase(std::size_t desde, std::size_t hasta) const
    {
        for (std::size_t i = desde; i < hasta; ++i) {
            if (m_lexemas[i].tipo != Tipo::Palabra || m_lexemas.abre(m_lexemas.salto(i + 1)))
                continue;
            const ClaseColumna::Tipo tipo = Catalogo::unico().columna(m_lexemas[i].texto).tipo;
            if (tipo != ClaseColumna::Tipo::Otro)
                return tipo;
        }
        return ClaseColumna::Tipo::Otro;
    }

    /// A function of a column would lose the column's order in comparisons.
    QString cotejo(std::size_t desde, std::size_t hasta) const
    {
        switch (clase(desde, hasta)) {
        case ClaseColumna::Tipo::Texto:
            return u" COLLATE NV_TEXTO"_s;
        case ClaseColumna::Tipo::Fecha:
            return u" COLLATE NV_FECHA"_s;
        case ClaseColumna::Tipo::Importe:
        case ClaseColumna::Tipo::Otro:
            break;
        }
        return {};
    }

    QString parametro(std::size_t i) const { return u'?' + QString::number(m_numero[i] + 1); }

    QString identificador(QStringView nombre) const
    {
        return nombre.startsWith(u'#') ? u'[' + nombre.toString() + u']' : nombre.toString();
    }

    /// "x.Cod_Empresa = number" as a condition of the whole statement. Inside a subquery that names it again the number
    /// takes its place: the subquery then stands for itself and is run once, not once per row.
    void buscarEmpresaFija(std::size_t fin)
    {
        int nivel = 0;
        int apariciones = 0;
        bool enCondicion = false;
        for (std::size_t i = 0; i < fin; ++i) {
            const Lexema &lexema = m_lexemas[i];
            nivel += lexema.esSigno(u'(') ? 1 : (lexema.esSigno(u')') ? -1 : 0);
            if (nivel != 0)
                continue;
            if (lexema.es(u"OR") || lexema.es(u"NOT") || lexema.es(u"UNION")) {
                m_empresaFija.reset();
                return;
            }
            enCondicion = enCondicion || lexema.es(u"WHERE");
            if (!enCondicion || m_empresaFija || !esEmpresa(i))
                continue;
            const std::size_t igual = m_lexemas.salto(i + 3);
            const std::size_t valor = igual < fin && m_lexemas[igual].esSigno(u'=') ? m_lexemas.salto(igual + 1) : fin;
            const std::size_t despues = valor < fin ? m_lexemas.salto(valor + 1) : fin;
            const bool entero = despues >= fin || m_lexemas[despues].tipo == Tipo::Palabra;
            if (valor < fin && m_lexemas[valor].texto == QChar(hueco::Numero) && entero)
                m_empresaFija = EmpresaFija{lexema.texto, parametro(valor)};
        }
        // A subquery that gives the name to a table of its own means that one.
        for (std::size_t i = 0; i + 1 < fin && m_empresaFija; ++i) {
            if (m_lexemas[i].es(m_empresaFija->alias) && !m_lexemas[i + 1].esSigno(u'.'))
                m_empresaFija = ++apariciones > 1 ? std::nullopt : m_empresaFija;
        }
    }

    bool esEmpresa(std::size_t i) const
    {
        return i + 2 < m_lexemas.size() && m_lexemas[i].tipo == Tipo::Palabra && m_lexemas[i + 1].esSigno(u'.') &&
               m_lexemas[i + 2].es(u"Cod_Empresa");
    }

    /// One bracket's inside, or the whole statement; a TOP inside becomes a LIMIT at its end.
    QString bloque(std::size_t desde, std::size_t hasta, int nivel)
    {
        const QString limiteExterior = std::exchange(m_limite, QString());
        QString salida;
        Columna columna;
        for (std::size_t i = desde; i < hasta;)
            i = paso(i, hasta, nivel, salida, columna);
        if (!m_limite.isEmpty())
            salida += u" LIMIT "_s + m_limite;
        m_limite = limiteExterior;
        return salida;
    }

    /// Writes what stands at `i`; returns where to go on.
    std::size_t paso(std::size_t i, std::size_t hasta, int nivel, QString &salida, Columna &columna)
    {
        if (nivel == 0 && m_criba != Criba::Ninguna && m_salida.cribables && m_salida.cribables->lugar == i)
            salida += condicionCriba();
        // Without figures about its tables the engine takes a company for few items and would walk them all.
        if (nivel == 0 && m_criba == Criba::Lista && m_salida.cribables && m_salida.cribables->lugarEmpresa == i)
            salida += u'+';
        const Lexema &lexema = m_lexemas[i];
        if (lexema.tipo == Tipo::Blanco) {
            salida += lexema.texto;
            return i + 1;
        }
        if (lexema.tipo == Tipo::Hueco) {
            salida += parametro(i);
            columna = {};
            return i + 1;
        }
        if (lexema.esSigno(u'(')) {
            const std::size_t fin = m_lexemas.cierre(i, hasta);
            salida += u'(' + bloque(i + 1, fin, nivel + 1);
            if (fin < hasta)
                salida += u')';
            columna = {};
            return std::min(fin + 1, hasta);
        }
        if (lexema.tipo == Tipo::Palabra)
            return palabra(i, hasta, nivel, salida, columna);
        // The point of "a.Descripcion" belongs to the operand that is being read.
        if (!lexema.esSigno(u'.'))
            columna = {};
        salida += lexema.texto;
        return i + 1;
    }

    QString condicionCriba() const
    {
        const CondicionesCribables &cribables = *m_salida.cribables;
        if (m_criba == Criba::Mapa)
            return u"NV_CANDIDATO(%1, %2Codigo) AND "_s.arg(ParametroCriba).arg(cribables.articulos);
        return u"%1rowid IN (SELECT i.Id FROM json_each(%2) j CROSS JOIN Articulos i"
               u" WHERE i.Cod_Empresa = ?%3 AND i.Codigo = j.value) AND "_s.arg(cribables.articulos)
                   .arg(ParametroCriba)
                   .arg(cribables.empresa + 1);
    }

    std::size_t palabra(std::size_t i, std::size_t hasta, int nivel, QString &salida, Columna &columna)
    {
        const Lexema &lexema = m_lexemas[i];
        if (m_lexemas.abre(m_lexemas.salto(i + 1))) {
            const std::size_t despues = funcion(i, hasta, nivel, salida);
            if (despues != i) {
                columna = {};
                return despues;
            }
        }
        if (lexema.es(u"SELECT"))
            return seleccion(i, hasta, salida);
        if (lexema.es(u"INTO") && m_esConsulta && nivel == 0) {
            const std::size_t nombre = m_lexemas.salto(i + 1);
            m_salida.tablaNueva = nombre < hasta ? m_lexemas[nombre].texto.toString() : QString();
            return std::min(nombre + 1, hasta);
        }
        if (lexema.es(u"LIKE") && columna.inicio >= 0)
            return like(i, salida, columna);
        if (lexema.es(u"N") && i + 1 < hasta &&
            (m_lexemas[i + 1].tipo == Tipo::Hueco || m_lexemas[i + 1].tipo == Tipo::Texto))
            return i + 1;
        if (nivel > 0 && m_empresaFija && esEmpresa(i) && lexema.es(m_empresaFija->alias)) {
            salida += m_empresaFija->parametro;
            columna = {};
            return i + 3;
        }
        const bool calificada = !salida.isEmpty() && salida.back() == u'.';
        columna = {calificada ? columna.inicio : salida.size(), lexema.texto};
        salida += identificador(lexema.texto);
        return i + 1;
    }

    /// SELECT, its DISTINCT, and a TOP taken away.
    std::size_t seleccion(std::size_t i, std::size_t hasta, QString &salida)
    {
        salida += m_lexemas[i].texto;
        std::size_t j = m_lexemas.salto(i + 1);
        if (j < hasta && (m_lexemas[j].es(u"DISTINCT") || m_lexemas[j].es(u"ALL"))) {
            salida += u' ' + m_lexemas[j].texto.toString();
            j = m_lexemas.salto(j + 1);
        }
        if (j >= hasta || !m_lexemas[j].es(u"TOP")) {
            salida += u' ';
            return std::min(j, hasta);
        }
        std::size_t numero = m_lexemas.salto(j + 1);
        const bool conParentesis = m_lexemas.abre(numero);
        if (conParentesis)
            numero = m_lexemas.salto(numero + 1);
        if (numero >= hasta)
            return j;
        m_limite = m_lexemas[numero].tipo == Tipo::Hueco ? parametro(numero) : m_lexemas[numero].texto.toString();
        const std::size_t ultimo = conParentesis ? m_lexemas.salto(numero + 1) : numero;
        return std::min(ultimo + 1, hasta);
    }

    /// `column LIKE 'ABC%'` loses the engine's own index range because LIKE is ours: the range is spelt out beside it.
    std::size_t like(std::size_t i, QString &salida, const Columna &columna)
    {
        const std::size_t patron = m_lexemas.salto(i + 1);
        const ClaseColumna clase = Catalogo::unico().columna(columna.nombre);
        if (patron >= m_lexemas.size() || m_lexemas[patron].texto != QChar(hueco::PatronConPrefijo) ||
            clase.tipo != ClaseColumna::Tipo::Texto || !clase.indexada) {
            salida += m_lexemas[i].texto;
            return i + 1;
        }
        const QString operando = salida.sliced(columna.inicio).trimmed();
        salida.truncate(columna.inicio);
        const std::size_t desde = m_huecos + 2 * m_salida.rangos.size() + 1;
        salida +=
            u"(%1 LIKE %2 AND %1 >= ?%3 AND %1 < ?%4)"_s.arg(operando, parametro(patron)).arg(desde).arg(desde + 1);
        m_salida.rangos.push_back(m_numero[patron]);
        return patron + 1;
    }

    /// A function that the engine lacks or that would lose its column's order; `i` when it is none of these.
    std::size_t funcion(std::size_t i, std::size_t hasta, int nivel, QString &salida)
    {
        const std::size_t abierto = m_lexemas.salto(i + 1);
        const std::size_t cerrado = m_lexemas.cierre(abierto, hasta);
        if (cerrado >= hasta)
            return i;
        const auto partes = m_lexemas.argumentos(abierto, cerrado);
        const auto parte = [&](std::size_t n) { return bloque(partes[n].first, partes[n].second, nivel + 1); };
        const Lexema &nombre = m_lexemas[i];
        if (nombre.es(u"ISNULL") && partes.size() == 2) {
            salida += u"ifnull("_s + parte(0) + u',' + parte(1) + u')' + cotejo(partes[0].first, partes[0].second);
        } else if (nombre.es(u"CONVERT") && partes.size() >= 2) {
            if (!conversion(partes, nivel, salida))
                return i;
        } else if (nombre.es(u"LTRIM") || nombre.es(u"RTRIM") || nombre.es(u"REPLACE") || nombre.es(u"UPPER") ||
                   nombre.es(u"LOWER") || nombre.es(u"SUBSTRING")) {
            salida += nombre.texto.toString() + u'(' + bloque(abierto + 1, cerrado, nivel + 1) + u')' +
                      cotejo(partes[0].first, partes[0].second);
        } else {
            return i;
        }
        return cerrado + 1;
    }

    bool conversion(const std::vector<std::pair<std::size_t, std::size_t>> &partes, int nivel, QString &salida)
    {
        const Lexema &tipo = m_lexemas[m_lexemas.salto(partes[0].first)];
        const QString valor = bloque(partes[1].first, partes[1].second, nivel + 1);
        if (claseDeTipo(tipo.texto) == ClaseColumna::Tipo::Texto) {
            const bool importe = clase(partes[1].first, partes[1].second) == ClaseColumna::Tipo::Importe;
            salida += (importe ? u"NV_IMPORTE_TEXTO("_s : u"NV_VALOR_TEXTO("_s) + valor + u')' +
                      cotejo(partes[1].first, partes[1].second);
            return true;
        }
        if (tipo.es(u"INT") || tipo.es(u"SMALLINT") || tipo.es(u"BIGINT")) {
            salida += u"CAST("_s + valor + u" AS INTEGER)"_s;
            return true;
        }
        return false;
    }

    struct EmpresaFija
    {
        QStringView alias;
        QString parametro;
    };

    const Lexemas m_lexemas;
    Criba m_criba;
    std::vector<std::size_t> m_numero; // literals before each token
    std::size_t m_huecos = 0;
    bool m_esConsulta = false;
    std::optional<EmpresaFija> m_empresaFija;
    QString m_limite;
    Adaptada m_salida;
};

} // namespace

Adaptada adaptar(const QString &forma, Criba criba)
{
    if (esDefinicionDeTabla(forma))
        return {adaptarTabla(forma), {}, {}, {}};
    return Adaptador(forma, criba).adaptar();
}

} // namespace nv::datos
