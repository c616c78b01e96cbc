#include "support/doble/Tipos.h"

#include <QDate>
#include <QStringList>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace nv::doble {

namespace {

bool cabe(qint64 valor, int bytes)
{
    switch (bytes) {
    case 1:
        return valor >= 0 && valor <= std::numeric_limits<quint8>::max();
    case 2:
        return valor >= std::numeric_limits<qint16>::min() && valor <= std::numeric_limits<qint16>::max();
    case 4:
        return valor >= std::numeric_limits<qint32>::min() && valor <= std::numeric_limits<qint32>::max();
    default:
        return true;
    }
}

} // namespace

std::optional<TipoSql> TipoSql::declarado(QStringView nombre, const QStringList &medidas)
{
    const QString tipo = nombre.toString().toLower();
    const QString medida = medidas.value(0);
    const auto largo = [&](int sinMedida) { return medida.isEmpty() ? sinMedida : medida.toInt(); };
    if (tipo == u"bit")
        return TipoSql{Clase::Bit, 1, 0};
    if (tipo == u"tinyint")
        return entero(1);
    if (tipo == u"smallint")
        return entero(2);
    if (tipo == u"int")
        return entero(4);
    if (tipo == u"bigint")
        return entero(8);
    if (tipo == u"money")
        return importe();
    if (tipo == u"decimal" || tipo == u"numeric")
        return TipoSql{Clase::Decimal, largo(18), medidas.value(1).toInt()};
    if (tipo == u"float" || tipo == u"real")
        return TipoSql{Clase::Real, 8, 0};
    if (tipo == u"datetime")
        return TipoSql{Clase::Fecha, 8, 0};
    if (tipo == u"char")
        return TipoSql{Clase::Fijo, largo(1), 0};
    if (tipo == u"text" || (tipo == u"varchar" && medida.compare(u"max", Qt::CaseInsensitive) == 0))
        return TipoSql{Clase::Memo, 0, 0};
    if (tipo == u"varchar")
        return TipoSql{Clase::Texto, largo(30), 0};
    return std::nullopt;
}

bool TipoSql::admite(const QVariant &valor) const
{
    if (valor.isNull())
        return true;
    const bool conEntero = valor.typeId() == QMetaType::LongLong;
    const bool conNumero = conEntero || valor.typeId() == QMetaType::Double;
    switch (clase) {
    case Clase::Entero:
        return conEntero && cabe(valor.toLongLong(), largo);
    case Clase::Bit:
        return conEntero;
    case Clase::Importe:
    case Clase::Decimal:
    case Clase::Real:
        return conNumero;
    case Clase::Fecha:
        return fechaGuardada(valor.toString()).isValid();
    case Clase::Fijo:
    case Clase::Texto:
    case Clase::Memo:
        return !conNumero;
    }
    return false;
}

TipoSql tipoPorValores(const std::vector<Fila> &filas, std::size_t columna)
{
    const auto hay = [&](const auto &condicion) {
        return std::any_of(filas.begin(), filas.end(), [&](const Fila &fila) { return condicion(fila.at(columna)); });
    };
    if (hay([](const QVariant &valor) { return valor.typeId() == QMetaType::QString; }))
        return {};
    if (hay([](const QVariant &valor) { return valor.typeId() == QMetaType::Double; }))
        return TipoSql::importe();
    const bool grande = hay([](const QVariant &valor) { return !cabe(valor.toLongLong(), 4); });
    return TipoSql::entero(grande ? 8 : 4);
}

QDate fechaGuardada(const QString &texto)
{
    const QDate fecha = QDate::fromString(texto.trimmed(), u"d/M/yyyy"_s);
    return fecha.isValid() ? fecha : QDate::fromString(texto.trimmed(), Qt::ISODate);
}

} // namespace nv::doble
