#include "platform/datos/Tipos.h"

#include "nvArticulo/Moneda.h"
#include "platform/datos/Cotejo.h"
#include "platform/datos/Lexico.h"
#include "platform/datos/Sqlite.h"

#include <QDate>
#include <QLocale>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace nv::datos {

namespace {

constexpr int LargoMotivo = 40; // characters of a value in an error

/// As text, whole numbers without an exponent.
QString comoEscrito(const ValorGuardado &valor)
{
    if (const auto *entero = std::get_if<qint64>(&valor))
        return QString::number(*entero);
    if (const auto *real = std::get_if<double>(&valor))
        return QString::number(*real, 'f', QLocale::FloatingPointShortest);
    const auto *texto = std::get_if<std::string>(&valor);
    return texto ? QString::fromStdString(*texto) : QString();
}

QString legible(const ValorGuardado &valor)
{
    const QString entero = comoEscrito(valor);
    return entero.size() > LargoMotivo ? entero.first(LargoMotivo) + u'…' : entero;
}

template <class Entero>
constexpr std::pair<qint64, qint64> limites()
{
    return {std::numeric_limits<Entero>::min(), std::numeric_limits<Entero>::max()};
}

bool vacio(const ValorGuardado &valor)
{
    const auto *texto = std::get_if<std::string>(&valor);
    return texto && texto->find_first_not_of(' ') == std::string::npos;
}

} // namespace

TipoServidor::TipoServidor(const QString &tipo, const QString &columna)
    : m_columna(columna)
{
    const QString entero = tipo.toLower();
    const QString nombre = entero.section(u'(', 0, 0).section(u' ', 0, 0);
    const auto poner = [this](Clase clase, std::pair<qint64, qint64> extremos = {}) {
        m_clase = clase;
        std::tie(m_minimo, m_maximo) = extremos;
    };
    if (nombre.endsWith(u"char")) {
        // Without a length there is none: so the engine keeps varchar(max).
        if (const qint64 largo = entero.section(u'(', 1).section(u')', 0, 0).toLongLong(); largo > 0)
            poner(Clase::Texto, {0, largo});
    } else if (nombre == u"tinyint") {
        poner(Clase::Entero, limites<quint8>());
    } else if (nombre == u"smallint") {
        poner(Clase::Entero, limites<qint16>());
    } else if (nombre == u"int") {
        poner(Clase::Entero, limites<qint32>());
    } else if (nombre == u"bigint") {
        poner(Clase::Entero, limites<qint64>());
    } else if (nombre == u"bit") {
        poner(Clase::Bit);
    } else if (nombre == u"money") {
        // Some more could be stored, but not read back: the embedded engine's amounts are floating point.
        poner(Clase::Importe, {-9'199'999'999'999'999'999, 9'199'999'999'999'999'999});
    } else if (nombre == u"smallmoney") {
        poner(Clase::Importe, limites<qint32>());
    } else if (nombre == u"datetime") {
        poner(Clase::Fecha, {1753, 9999});
    } else if (nombre == u"smalldatetime") {
        poner(Clase::Fecha, {1900, 2078});
    } else if (nombre == u"date" || nombre == u"datetime2") {
        poner(Clase::Fecha, {1, 9999});
    }
}

bool TipoServidor::cabe(const Literal &literal) const
{
    switch (m_clase) {
    case Clase::Libre:
        return true;
    case Clase::Texto:
        return literal.esTexto && literal.escrito.size() <= m_maximo;
    case Clase::Entero: {
        bool entero = false;
        const qlonglong valor = literal.esTexto ? 0 : literal.escrito.toLongLong(&entero);
        return entero && valor >= m_minimo && valor <= m_maximo;
    }
    case Clase::Bit:
        return literal.escrito == u'0' || literal.escrito == u'1';
    case Clase::Importe: {
        constexpr qsizetype Cifras = 12;
        return !literal.esTexto && literal.escrito.size() <= Cifras &&
               !literal.escrito.contains(u'e', Qt::CaseInsensitive) && m_maximo > limites<qint32>().second;
    }
    case Clase::Fecha:
        break;
    }
    return false;
}

ValorGuardado TipoServidor::admitir(ValorGuardado valor) const
{
    if (std::holds_alternative<std::monostate>(valor))
        return valor;
    switch (m_clase) {
    case Clase::Libre:
        return valor;
    case Clase::Texto:
        if (!std::holds_alternative<std::string>(valor))
            valor = comoEscrito(valor).toStdString();
        return comoTexto(std::get<std::string>(std::move(valor)));
    case Clase::Entero:
        return comoEntero(valor);
    case Clase::Bit:
        return comoBit(valor);
    case Clase::Importe:
        return comoImporte(valor);
    case Clase::Fecha:
        return comoFecha(valor);
    }
    return valor;
}

void TipoServidor::rechazar(const QString &motivo) const
{
    throw Error{SQLITE_CONSTRAINT_DATATYPE, motivo + u" (%1)."_s.arg(m_columna), {}};
}

void TipoServidor::noCabe(const ValorGuardado &valor) const
{
    rechazar(u"El número %1 se sale de lo que cabe"_s.arg(legible(valor)));
}

void TipoServidor::noEs(const ValorGuardado &valor, QStringView que) const
{
    rechazar(u"«%1» no es %2"_s.arg(legible(valor), que));
}

/// Blanks at the end that are too many are not worth an error.
ValorGuardado TipoServidor::comoTexto(std::string texto) const
{
    const auto maximo = static_cast<std::size_t>(m_maximo);
    if (texto.size() <= maximo)
        return texto;
    std::string_view resto = texto;
    // As the server counts: a character beyond the basic plane takes two places.
    for (qint64 quedan = m_maximo; !resto.empty();) {
        std::string_view siguiente = resto;
        quedan -= extraer(siguiente) > 0xFFFF ? 2 : 1;
        if (quedan < 0)
            break;
        resto = siguiente;
    }
    if (resto.find_first_not_of(' ') != std::string_view::npos)
        rechazar(u"El texto es demasiado largo: caben %1 caracteres"_s.arg(m_maximo));
    texto.resize(texto.size() - resto.size());
    return texto;
}

/// A number loses its decimals, a text must be a whole number.
ValorGuardado TipoServidor::comoEntero(const ValorGuardado &valor) const
{
    qint64 entero = 0;
    if (const auto *exacto = std::get_if<qint64>(&valor)) {
        entero = *exacto;
    } else if (const auto *real = std::get_if<double>(&valor)) {
        constexpr double Limite = 9.2e18;
        if (!(std::abs(*real) < Limite))
            noCabe(valor);
        entero = static_cast<qint64>(*real);
    } else if (!vacio(valor)) {
        const QString texto = QString::fromStdString(std::get<std::string>(valor)).trimmed();
        const QStringView cifras = QStringView(texto).sliced(texto.startsWith(u'-') || texto.startsWith(u'+') ? 1 : 0);
        if (cifras.isEmpty() ||
            !std::all_of(cifras.begin(), cifras.end(), [](QChar c) { return c >= u'0' && c <= u'9'; }))
            noEs(valor, u"un número entero");
        bool cabe = false;
        entero = texto.toLongLong(&cabe);
        if (!cabe)
            noCabe(valor);
    }
    if (entero < m_minimo || entero > m_maximo)
        noCabe(valor);
    return entero;
}

/// Any number but 0 is 1.
ValorGuardado TipoServidor::comoBit(const ValorGuardado &valor) const
{
    if (const auto *entero = std::get_if<qint64>(&valor))
        return qint64{*entero != 0};
    if (const auto *real = std::get_if<double>(&valor))
        return qint64{*real != 0};
    const QString texto = QString::fromStdString(std::get<std::string>(valor)).trimmed().toLower();
    bool numero = false;
    const qlonglong entero = texto.toLongLong(&numero);
    if (!numero && !texto.isEmpty() && texto != u"true" && texto != u"false")
        noEs(valor, u"un sí o un no");
    return qint64{texto == u"true" || entero != 0};
}

ValorGuardado TipoServidor::comoImporte(const ValorGuardado &valor) const
{
    if (vacio(valor))
        return qint64{0};
    double importe = 0;
    if (const auto *entero = std::get_if<qint64>(&valor)) {
        importe = static_cast<double>(*entero);
    } else if (const auto *real = std::get_if<double>(&valor)) {
        importe = *real;
    } else {
        bool numero = false;
        importe = QString::fromStdString(std::get<std::string>(valor)).trimmed().toDouble(&numero);
        if (!numero)
            noEs(valor, u"un importe");
    }
    constexpr double Escala = static_cast<double>(Moneda::Escala);
    if (!(std::round(std::abs(importe) * Escala) <= static_cast<double>(m_maximo)))
        noCabe(valor);
    return std::holds_alternative<qint64>(valor) ? valor : ValorGuardado(importe);
}

ValorGuardado TipoServidor::comoFecha(const ValorGuardado &valor) const
{
    if (const auto *texto = std::get_if<std::string>(&valor); texto && !vacio(valor)) {
        const QDate fecha = fechaDe(*texto);
        if (!fecha.isValid() || fecha.year() < m_minimo || fecha.year() > m_maximo)
            noEs(valor, u"una fecha");
        return valor;
    }
    // A number counts the days.
    const qint64 dias = vacio(valor) ? 0 : std::get<qint64>(TipoServidor(u"int"_s, m_columna).admitir(valor));
    const QDate fecha = QDate(1900, 1, 1).addDays(dias);
    if (fecha.year() < m_minimo || fecha.year() > m_maximo)
        noEs(valor, u"una fecha");
    return fecha.toString(u"dd/MM/yyyy").toStdString();
}

} // namespace nv::datos
