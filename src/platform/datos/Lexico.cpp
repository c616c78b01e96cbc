#include "platform/datos/Lexico.h"

#include "common/Valores.h"
#include "nvArticulo/Error.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace nv::datos {

namespace {

bool esBlanco(char16_t c)
{
    return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n';
}

bool dePalabra(char16_t c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') || c == u'_' || c == u'#' ||
           c == u'@' || c == u'$' || c >= 0x80;
}

bool cifra(char16_t c)
{
    return c >= u'0' && c <= u'9';
}

/// One past the closing quote, where a doubled one does not close.
qsizetype finEntrecomillado(QStringView texto, qsizetype inicio, char16_t cierre)
{
    for (qsizetype i = inicio + 1; i < texto.size(); ++i) {
        if (texto[i] != cierre)
            continue;
        if (i + 1 < texto.size() && texto[i + 1] == cierre)
            ++i;
        else
            return i + 1;
    }
    return texto.size();
}

qsizetype finNumero(QStringView texto, qsizetype inicio)
{
    qsizetype i = inicio;
    while (i < texto.size() && (cifra(texto[i].unicode()) || texto[i] == u'.'))
        ++i;
    if (i < texto.size() && (texto[i] == u'e' || texto[i] == u'E')) {
        qsizetype j = i + 1;
        if (j < texto.size() && (texto[j] == u'-' || texto[j] == u'+'))
            ++j;
        if (j < texto.size() && cifra(texto[j].unicode())) {
            for (i = j; i < texto.size() && cifra(texto[i].unicode());)
                ++i;
        }
    }
    // A letter right behind belongs to it, so that "1AND" stays the mistake that it is on every engine.
    while (i < texto.size() && dePalabra(texto[i].unicode()))
        ++i;
    return i;
}

qsizetype finBlanco(QStringView texto, qsizetype inicio)
{
    if (esBlanco(texto[inicio].unicode())) {
        qsizetype i = inicio;
        while (i < texto.size() && esBlanco(texto[i].unicode()))
            ++i;
        return i;
    }
    if (texto[inicio] == u'-') {
        const qsizetype fin = texto.indexOf(u'\n', inicio);
        return fin < 0 ? texto.size() : fin;
    }
    const qsizetype fin = texto.indexOf(u"*/", inicio + 2);
    return fin < 0 ? texto.size() : fin + 2;
}

Lexema siguiente(QStringView texto, qsizetype i)
{
    using Tipo = Lexema::Tipo;
    const char16_t c = texto[i].unicode();
    const char16_t despues = i + 1 < texto.size() ? texto[i + 1].unicode() : u'\0';
    const auto hasta = [&](Tipo tipo, qsizetype fin) { return Lexema{tipo, texto.sliced(i, fin - i)}; };
    if (esBlanco(c) || (c == u'-' && despues == u'-') || (c == u'/' && despues == u'*'))
        return hasta(Tipo::Blanco, finBlanco(texto, i));
    if (c == u'\'')
        return hasta(Tipo::Texto, finEntrecomillado(texto, i, u'\''));
    if (c == u'"')
        return hasta(Tipo::Palabra, finEntrecomillado(texto, i, u'"'));
    if (c == u'[')
        return hasta(Tipo::Palabra, finEntrecomillado(texto, i, u']'));
    if (cifra(c) || (c == u'.' && cifra(despues)))
        return hasta(Tipo::Numero, finNumero(texto, i));
    if (dePalabra(c)) {
        qsizetype fin = i;
        while (fin < texto.size() && dePalabra(texto[fin].unicode()))
            ++fin;
        return hasta(Tipo::Palabra, fin);
    }
    if (c >= hueco::Numero && c <= hueco::PatronConPrefijo)
        return hasta(Tipo::Hueco, i + 1);
    return hasta(Tipo::Signo, i + 1);
}

bool esAlguna(QStringView palabra, std::initializer_list<QStringView> lista)
{
    for (const QStringView otra : lista) {
        if (palabra.size() == otra.size() && palabra.compare(otra, Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

/// Where the numbers of a statement are no values: the ordinals of ORDER BY and GROUP BY, and the sizes of a type.
class ContextoNumeros
{
public:
    void palabra(QStringView texto)
    {
        if (esAlguna(texto, {u"ORDER", u"GROUP"}))
            m_orden = m_nivel;
        else if (esAlguna(texto, {u"SELECT", u"HAVING", u"UNION", u"WHERE"}))
            m_orden = -1;
        m_tipoAntes = esAlguna(texto, {u"VARCHAR", u"NVARCHAR", u"CHAR", u"NCHAR", u"DECIMAL", u"NUMERIC"});
    }
    void signo(QStringView texto)
    {
        if (texto == u'(') {
            ++m_nivel;
            if (m_tipoAntes && m_tamano < 0)
                m_tamano = m_nivel;
        } else if (texto == u')') {
            if (m_tamano == m_nivel)
                m_tamano = -1;
            --m_nivel;
            if (m_nivel < m_orden)
                m_orden = -1;
        }
        m_tipoAntes = false;
    }
    bool sonValores() const { return m_tamano < 0 && m_orden != m_nivel; }

private:
    int m_nivel = 0;
    int m_orden = -1;
    int m_tamano = -1;
    bool m_tipoAntes = false;
};

bool comodin(QChar c)
{
    return c == u'%' || c == u'_' || c == u'[';
}

bool limpio(QStringView numero)
{
    for (const QChar c : numero) {
        if (!cifra(c.unicode()) && c != u'.' && c != u'e' && c != u'E' && c != u'+' && c != u'-')
            return false;
    }
    return numero.count(u'.') <= 1;
}

std::optional<Literal> levantado(const Lexema &lexema, bool sonValores)
{
    if (lexema.tipo == Lexema::Tipo::Numero && sonValores && limpio(lexema.texto))
        return Literal{false, false, lexema.texto};
    if (lexema.tipo == Lexema::Tipo::Texto && lexema.texto.size() >= 2 && lexema.texto.endsWith(u'\'')) {
        const QStringView dentro = lexema.texto.sliced(1, lexema.texto.size() - 2);
        const bool dobladas = dentro.contains(u'\'');
        if (!dobladas || dentro.count(u'\'') % 2 == 0)
            return Literal{true, dobladas, dentro};
    }
    return std::nullopt;
}

} // namespace

QString Literal::texto() const
{
    return comillasDobladas ? escrito.toString().replace(u"''"_s, u"'"_s) : escrito.toString();
}

Parametrizada parametrizar(QStringView sentencia)
{
    Parametrizada resultado;
    resultado.forma.reserve(sentencia.size());
    ContextoNumeros contexto;
    bool primera = true;
    bool levantable = false;
    bool trasLike = false;
    for (qsizetype i = 0; i < sentencia.size();) {
        const Lexema lexema = siguiente(sentencia, i);
        i += lexema.texto.size();
        switch (lexema.tipo) {
        case Lexema::Tipo::Blanco:
            resultado.forma += lexema.texto;
            continue;
        case Lexema::Tipo::Palabra:
            if (primera)
                levantable = esAlguna(lexema.texto, {u"SELECT", u"INSERT", u"UPDATE", u"DELETE"});
            contexto.palabra(lexema.texto);
            break;
        case Lexema::Tipo::Signo:
        case Lexema::Tipo::Hueco:
            if (lexema.texto[0] < u' ')
                throw Error{SentenciaMalEscrita, u"Carácter no válido en la sentencia."_s, {}};
            contexto.signo(lexema.texto);
            break;
        case Lexema::Tipo::Numero:
        case Lexema::Tipo::Texto:
            break;
        }
        primera = false;
        const std::optional<Literal> literal =
            levantable ? levantado(lexema, contexto.sonValores()) : std::optional<Literal>();
        if (!literal) {
            resultado.forma += lexema.texto;
        } else if (!literal->esTexto) {
            resultado.forma += QChar(hueco::Numero);
        } else {
            const bool conPrefijo = trasLike && !literal->escrito.isEmpty() && !comodin(literal->escrito[0]);
            resultado.forma += QChar(conPrefijo ? hueco::PatronConPrefijo : hueco::Texto);
        }
        if (literal)
            resultado.literales.push_back(*literal);
        trasLike = lexema.es(u"LIKE");
    }
    return resultado;
}

Lexema primerLexema(QStringView sentencia)
{
    Lexema lexema{Lexema::Tipo::Blanco, {}};
    for (qsizetype i = 0; i < sentencia.size() && lexema.tipo == Lexema::Tipo::Blanco; i += lexema.texto.size())
        lexema = siguiente(sentencia, i);
    return lexema;
}

Lexemas::Lexemas(QStringView forma)
{
    reserve(static_cast<std::size_t>(forma.size() / 2)); // most are a character and a blank
    for (qsizetype i = 0; i < forma.size();) {
        push_back(siguiente(forma, i));
        i += back().texto.size();
    }
}

std::size_t Lexemas::salto(std::size_t i) const
{
    while (i < size() && (*this)[i].tipo == Lexema::Tipo::Blanco)
        ++i;
    return i;
}

std::size_t Lexemas::cierre(std::size_t i, std::size_t hasta) const
{
    int nivel = 0;
    for (; i < hasta; ++i) {
        if ((*this)[i].esSigno(u'('))
            ++nivel;
        else if ((*this)[i].esSigno(u')') && --nivel == 0)
            return i;
    }
    return hasta;
}

std::vector<std::pair<std::size_t, std::size_t>> Lexemas::argumentos(std::size_t abierto, std::size_t cerrado) const
{
    std::vector<std::pair<std::size_t, std::size_t>> lista;
    std::size_t inicio = abierto + 1;
    for (std::size_t i = inicio; i < cerrado; ++i) {
        if (abre(i))
            i = cierre(i, cerrado);
        else if ((*this)[i].esSigno(u','))
            lista.emplace_back(std::exchange(inicio, i + 1), i);
    }
    lista.emplace_back(inicio, cerrado);
    return lista;
}

} // namespace nv::datos
