#include "nvArticulo/Registros.h"

#include "common/Valores.h"
#include "nvArticulo/Error.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

QVariant sinNulo(const QVariant &valor)
{
    if (valor.isNull())
        throw Error{errores::ValorNulo, u"Uso no válido de Null."_s, {}};
    return valor;
}

Moneda importe(const QVariant &valor)
{
    switch (valor.typeId()) {
    case QMetaType::Double:
    case QMetaType::Float:
        return Moneda::deReal(valor.toDouble());
    case QMetaType::QString:
        return Moneda::deTexto(valor.toString());
    default:
        return Moneda::deUnidades(valor.toLongLong());
    }
}

/// The column's name is asked for only where it is needed: rows are read by the thousand.
template <class Lectura>
auto leida(const Registros &registros, int columna, Lectura &&lectura)
{
    try {
        return lectura();
    } catch (const Error &) {
        return nombrado(registros.nombre(columna), lectura);
    }
}

} // namespace

bool Registros::siguiente()
{
    if (!m_fuente)
        return false;
    if (m_fuente->avanzar())
        return true;
    m_fuente.reset();
    return false;
}

int Registros::columnas() const
{
    return m_fuente ? m_fuente->columnas() : 0;
}

QString Registros::nombre(int columna) const
{
    return m_fuente->nombre(columna);
}

int Registros::columna(QStringView nombre) const
{
    for (int i = 0; i < columnas(); ++i) {
        if (m_fuente->nombre(i).compare(nombre, Qt::CaseInsensitive) == 0)
            return i;
    }
    throw Error{errores::ColumnaDesconocida, u"No se encuentra la columna «%1» en el resultado."_s.arg(nombre), {}};
}

QVariant Registros::valor(int columna) const
{
    if (!m_fuente)
        throw Error{errores::ConexionCerrada, u"El resultado está cerrado."_s, {}};
    return m_fuente->valor(columna);
}

bool Registros::esNulo(int columna) const
{
    return valor(columna).isNull();
}

QString Registros::texto(int columna) const
{
    const QVariant leido = sinNulo(valor(columna));
    switch (leido.typeId()) {
    case QMetaType::QDate:
    case QMetaType::QDateTime:
        return fechaCorta(leido.toDate());
    case QMetaType::Bool:
        return leido.toBool() ? u"1"_s : u"0"_s;
    case QMetaType::Double:
        return QString::number(leido.toDouble(), 'f', QLocale::FloatingPointShortest);
    default:
        return leido.toString();
    }
}

QString Registros::textoO(int columna, const QString &siNulo) const
{
    return esNulo(columna) ? siNulo : texto(columna);
}

qint16 Registros::entero16(int columna) const
{
    return leida(*this, columna, [&] { return estrecho<qint16>(entero64(columna)); });
}

qint32 Registros::entero32(int columna) const
{
    return leida(*this, columna, [&] { return estrecho<qint32>(entero64(columna)); });
}

qint64 Registros::entero64(int columna) const
{
    const QVariant leido = sinNulo(valor(columna));
    switch (leido.typeId()) {
    case QMetaType::Double:
    case QMetaType::Float:
    case QMetaType::QString:
        return importe(leido).redondeada(0).diezmilesimas() / Moneda::Escala;
    default:
        return leido.toLongLong();
    }
}

bool Registros::booleano(int columna) const
{
    const QVariant leido = sinNulo(valor(columna));
    return leido.typeId() == QMetaType::QString ? comoBooleano(leido.toString()) : leido.toDouble() != 0;
}

Moneda Registros::moneda(int columna) const
{
    return leida(*this, columna, [&] { return importe(sinNulo(valor(columna))); });
}

QDate Registros::fechaO(int columna) const
{
    const QVariant leido = valor(columna);
    if (leido.typeId() != QMetaType::QString)
        return leido.toDate();
    const QString texto = leido.toString().trimmed().section(u' ', 0, 0).left(10);
    const QDate espanola = QDate::fromString(texto, u"d/M/yyyy"_s);
    return espanola.isValid() ? espanola : QDate::fromString(texto, Qt::ISODate);
}

QString Registros::textoNumero(int columna) const
{
    return moneda(columna).textoCorto();
}

} // namespace nv
