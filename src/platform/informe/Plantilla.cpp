#include "platform/informe/Plantilla.h"

#include "common/Valores.h"
#include "nvArticulo/Error.h"
#include "nvArticulo/Moneda.h"

#include <functional>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

/// Takes the part of that name out of the text; what stood before and after it stays in `antes` and `despues`.
struct Corte
{
    QString antes;
    QString parte;
    QString despues;
    bool hallada = false;
};

Corte cortar(const QString &texto, const QString &nombre)
{
    const QString abre = u"<!--"_s + nombre + u"-->"_s;
    const QString cierra = u"<!--/"_s + nombre + u"-->"_s;
    const qsizetype inicio = texto.indexOf(abre);
    const qsizetype final = inicio < 0 ? -1 : texto.indexOf(cierra, inicio);
    if (final < 0)
        return {texto, {}, {}, false};
    const qsizetype contenido = inicio + abre.size();
    return {texto.left(inicio), texto.mid(contenido, final - contenido), texto.mid(final + cierra.size()), true};
}

using Valor = std::function<QString(QStringView)>;

QString sustituido(QStringView texto, const Valor &valor)
{
    QString resultado;
    for (;;) {
        const qsizetype inicio = texto.indexOf(u"{{");
        const qsizetype final = inicio < 0 ? -1 : texto.indexOf(u"}}", inicio);
        if (final < 0)
            return resultado.append(texto);
        resultado += texto.left(inicio);
        resultado += valor(texto.mid(inicio + 2, final - inicio - 2)).toHtmlEscaped();
        texto = texto.mid(final + 2);
    }
}

QString parametro(const Plantilla::Parametros &parametros, QStringView numero)
{
    bool esNumero = false;
    const auto hallado = parametros.find(numero.toInt(&esNumero));
    return esNumero && hallado != parametros.end() ? hallado->second : QString();
}

QString conParametros(const QString &texto, const Plantilla::Parametros &parametros)
{
    return sustituido(texto, [&](QStringView clave) { return parametro(parametros, clave); });
}

QString celda(const Plantilla::Parametros &parametros, const QStringList &campos, const QStringList &fila,
              QStringView clave)
{
    const qsizetype dosPuntos = clave.indexOf(u':');
    const QStringView nombre = dosPuntos < 0 ? clave : clave.left(dosPuntos);
    const qsizetype campo = campos.indexOf(nombre);
    if (campo < 0)
        return parametro(parametros, clave);
    const QString valor = fila.value(campo);
    if (dosPuntos < 0 || valor.isEmpty())
        return valor;
    return Moneda::deTexto(valor).texto(ValEntero16(parametro(parametros, clave.mid(dosPuntos + 1))));
}

} // namespace

Plantilla::Plantilla(const QString &html)
{
    const Corte pie = cortar(html, u"pie"_s);
    m_pie = pie.parte;
    const Corte filas = cortar(pie.antes + pie.despues, u"fila"_s);
    if (!filas.hallada)
        throw Error{0, u"La plantilla del informe no tiene sitio para las filas."_s, {}};
    m_fila = filas.parte;
    m_despues = filas.despues;
    const Corte primera = cortar(filas.antes, u"primera"_s);
    m_antes = primera.antes;
    m_soloPrimera = primera.parte;
    m_titulos = primera.despues;
}

QString Plantilla::pagina(const Parametros &parametros, const DatosInforme &datos, std::size_t desde,
                          std::size_t cuantas, bool primera) const
{
    QString html = conParametros(primera ? m_antes + m_soloPrimera + m_titulos : m_antes + m_titulos, parametros);
    for (std::size_t i = desde; i < desde + cuantas; ++i)
        html += sustituido(m_fila,
                           [&](QStringView clave) { return celda(parametros, datos.campos, datos.filas[i], clave); });
    return html + conParametros(m_despues, parametros);
}

QString Plantilla::paginaMinima(const Parametros &parametros) const
{
    return conParametros(m_antes + m_titulos, parametros) + sustituido(m_fila, [](QStringView) { return QString(); }) +
           conParametros(m_despues, parametros);
}

QString Plantilla::pie(const Parametros &parametros, int pagina, int paginas) const
{
    return sustituido(m_pie, [&](QStringView clave) {
        if (clave == u"pagina")
            return QString::number(pagina);
        return clave == u"paginas" ? QString::number(paginas) : parametro(parametros, clave);
    });
}

} // namespace nv
