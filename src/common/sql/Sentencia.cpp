#include "nvArticulo/Sentencia.h"

#include "nvArticulo/Error.h"

#include "common/Valores.h"

using namespace Qt::StringLiterals;

namespace nv {

Sentencia Sentencia::deConsola(const QString &texto)
{
    Sentencia sentencia;
    sentencia.m_texto = texto;
    return sentencia;
}

Sentencia &Sentencia::operator<<(Fragmento fragmento)
{
    m_texto += fragmento.texto();
    return *this;
}

Sentencia &Sentencia::operator<<(Orden orden)
{
    m_orden = m_texto.size();
    return *this << orden.fragmento();
}

Sentencia &Sentencia::operator<<(ComoEscrito valor)
{
    if (valor.texto.contains(u'\'') || valor.texto.contains(QChar::Null))
        rechazar(valor.texto);
    m_texto += valor.texto;
    return *this;
}

Sentencia &Sentencia::operator<<(Doblado valor)
{
    if (valor.texto.contains(QChar::Null))
        rechazar(valor.texto);
    for (const QChar c : valor.texto) {
        m_texto += c;
        if (c == u'\'')
            m_texto += c;
    }
    return *this;
}

Sentencia &Sentencia::operator<<(NumeroEscrito valor)
{
    QStringView cifras = valor.texto;
    if (cifras.startsWith(u'-') || cifras.startsWith(u'+'))
        cifras = cifras.sliced(1);
    bool punto = false;
    bool cifra = false;
    bool bien = true;
    for (const QChar c : cifras) {
        if (esDigito(c))
            cifra = true;
        else if (c == u'.' && !punto)
            punto = true;
        else
            bien = false;
    }
    if (!bien || !cifra)
        m_defecto = u"«%1» no es un número."_s.arg(valor.texto.left(60));
    m_texto += valor.texto;
    return *this;
}

Sentencia &Sentencia::operator<<(Moneda importe)
{
    m_texto += importe.textoSql();
    return *this;
}

Sentencia &Sentencia::operator<<(QDate fecha)
{
    m_texto += fechaCorta(fecha);
    return *this;
}

Sentencia &Sentencia::operator<<(const Sentencia &otra)
{
    if (otra.m_orden >= 0)
        m_orden = m_texto.size() + otra.m_orden;
    m_texto += otra.m_texto;
    if (m_defecto.isEmpty())
        m_defecto = otra.m_defecto;
    return *this;
}

Sentencia Sentencia::desdeFrom() const
{
    Sentencia resto;
    const qsizetype inicio = m_texto.indexOf(u"FROM"_s, 0, Qt::CaseSensitive);
    if (inicio >= 0) {
        resto.m_texto = m_texto.sliced(inicio);
        resto.m_orden = std::max<qsizetype>(m_orden - inicio, -1);
    }
    resto.m_defecto = m_defecto;
    return resto;
}

Sentencia Sentencia::sinOrden() const
{
    Sentencia resto = *this;
    if (m_orden >= 0)
        resto.m_texto.truncate(m_orden);
    resto.m_orden = -1;
    return resto;
}

void Sentencia::rechazar(QStringView valor)
{
    const bool patron = m_texto.endsWith(u"LIKE '");
    if (patron && valor.endsWith(u'%'))
        valor.chop(1);
    const QString que = !valor.contains(u'\'') ? u"«%1» lleva un carácter nulo, que no se admite."_s
                        : patron               ? u"«%1» lleva un apóstrofo; escriba * en su lugar."_s
                                               : u"«%1» lleva un apóstrofo, que aquí no se admite."_s;
    m_defecto = que.arg(valor.left(60));
}

void Sentencia::exigirEnviable() const
{
    if (!m_defecto.isEmpty())
        throw Error{errores::ComillaSinCerrar, m_defecto, {}};
}

} // namespace nv
