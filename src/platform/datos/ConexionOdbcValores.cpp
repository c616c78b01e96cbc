#include "platform/datos/ConexionOdbcValores.h"

#include "nvArticulo/Moneda.h"

#include <QSqlField>

#include <cmath>

using namespace Qt::StringLiterals;

namespace nv::datos {

namespace {

/// Amounts have four decimals on every engine, whatever the server computed with ("10.5000", "0.333333").
QVariant decimal(const QVariant &crudo)
{
    bool bien = false;
    const double real = crudo.toDouble(&bien);
    if (!bien)
        return crudo;
    constexpr double Limite = 1e11;
    if (std::abs(real) < Limite) {
        const Moneda importe =
            crudo.typeId() == QMetaType::QString ? Moneda::deTexto(crudo.toString()) : Moneda::deReal(real);
        return static_cast<double>(importe.diezmilesimas()) / static_cast<double>(Moneda::Escala);
    }
    return crudo;
}

QString sinRelleno(QString texto)
{
    while (texto.endsWith(u' '))
        texto.chop(1);
    return texto;
}

} // namespace

ClaseOdbc claseOdbc(const QSqlField &campo)
{
    constexpr int SqlChar = 1;
    constexpr int SqlWChar = -8;
    switch (campo.metaType().id()) {
    case QMetaType::Bool:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return ClaseOdbc::Entero;
    case QMetaType::Float:
    case QMetaType::Double:
        return ClaseOdbc::Decimal;
    case QMetaType::QString:
        if (campo.typeID() == SqlChar || campo.typeID() == SqlWChar)
            return ClaseOdbc::TextoFijo;
        return ClaseOdbc::Texto;
    default:
        return ClaseOdbc::Otro;
    }
}

QVariant valorOdbc(const QVariant &crudo, ClaseOdbc clase)
{
    if (crudo.isNull())
        return {};
    switch (clase) {
    case ClaseOdbc::Entero:
        return QVariant(crudo.toLongLong());
    case ClaseOdbc::Decimal:
        return decimal(crudo);
    case ClaseOdbc::TextoFijo:
        return QVariant(sinRelleno(crudo.toString()));
    case ClaseOdbc::Texto:
    case ClaseOdbc::Otro:
        break;
    }
    return crudo;
}

} // namespace nv::datos
