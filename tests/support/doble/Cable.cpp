#include "support/doble/Cable.h"

#include "common/Moneda.h"

#include <QDate>
#include <QtEndian>

#include <bit>
#include <cmath>
#include <sys/socket.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace nv::doble {

namespace {

constexpr qsizetype Cabecera = 8;
constexpr qsizetype Paquete = 4000;

template <class Entero>
QByteArray menor(Entero valor)
{
    QByteArray octetos(sizeof(Entero), Qt::Uninitialized);
    qToLittleEndian(valor, octetos.data());
    return octetos;
}

QByteArray mayor(quint16 valor)
{
    QByteArray octetos(sizeof valor, Qt::Uninitialized);
    qToBigEndian(valor, octetos.data());
    return octetos;
}

QByteArray octeto(int valor)
{
    return {1, static_cast<char>(valor)};
}

QByteArray utf16(const QString &texto)
{
    QByteArray octetos;
    for (const QChar c : texto)
        octetos += menor(c.unicode());
    return octetos;
}

QString desdeUtf16(const QByteArray &octetos)
{
    QString texto;
    for (qsizetype i = 0; i + 1 < octetos.size(); i += 2)
        texto += QChar(qFromLittleEndian<quint16>(octetos.constData() + i));
    return texto;
}

/// With its length in characters in front.
QByteArray corto(const QString &texto)
{
    return octeto(static_cast<int>(texto.size())) + utf16(texto);
}

/// The code page of a Spanish database; what it lacks becomes "?".
QByteArray enPagina1252(const QString &texto)
{
    static constexpr char16_t Altos[] = u"€\u0081‚ƒ„…†‡ˆ‰Š‹Œ\u008dŽ\u008f\u0090‘’“”•–—˜™š›œ\u009džŸ";
    QByteArray octetos;
    for (const QChar c : texto) {
        const char16_t codigo = c.unicode();
        const qsizetype alto = QStringView(Altos).indexOf(c);
        if (codigo < 0x80 || (codigo >= 0xA0 && codigo <= 0xFF))
            octetos += static_cast<char>(codigo);
        else
            octetos += alto < 0 ? '?' : static_cast<char>(0x80 + alto);
    }
    return octetos;
}

QByteArray tipoEnCable(const TipoSql &tipo)
{
    using Clase = TipoSql::Clase;
    const QByteArray orden = QByteArray::fromHex("0904d00034"); // a collation of code page 1252
    constexpr quint16 SinLimite = 0xFFFF;
    switch (tipo.clase) {
    case Clase::Entero:
        return octeto(0x26) + octeto(tipo.largo);
    case Clase::Bit:
        return octeto(0x68) + octeto(1);
    case Clase::Importe:
        return octeto(0x6E) + octeto(8);
    case Clase::Decimal:
        return octeto(0x6A) + octeto(9) + octeto(tipo.largo) + octeto(tipo.escala);
    case Clase::Real:
        return octeto(0x6D) + octeto(8);
    case Clase::Fecha:
        return octeto(0x6F) + octeto(8);
    case Clase::Fijo:
        return octeto(0xAF) + menor(static_cast<quint16>(tipo.largo)) + orden;
    case Clase::Texto:
        return octeto(0xA7) + menor(static_cast<quint16>(tipo.largo)) + orden;
    case Clase::Memo:
        return octeto(0xA7) + menor(SinLimite) + orden;
    }
    return {};
}

QByteArray nulo(const TipoSql &tipo)
{
    using Clase = TipoSql::Clase;
    if (tipo.clase == Clase::Memo)
        return menor(~quint64{0});
    return tipo.clase == Clase::Texto || tipo.clase == Clase::Fijo ? menor(quint16{0xFFFF}) : octeto(0);
}

QByteArray importeEnCable(const QVariant &valor)
{
    const qint64 importe = valor.typeId() == QMetaType::Double ? Moneda::deReal(valor.toDouble()).diezmilesimas()
                                                               : valor.toLongLong() * Moneda::Escala;
    // The upper half first.
    return menor(static_cast<qint32>(importe >> 32)) + menor(static_cast<quint32>(importe));
}

QByteArray decimalEnCable(const QVariant &valor, int escala)
{
    const qint64 entero = std::llround(valor.toDouble() * std::pow(10.0, escala));
    return octeto(entero >= 0) + menor(static_cast<quint64>(std::abs(entero)));
}

QByteArray valorEnCable(const TipoSql &tipo, const QVariant &valor)
{
    using Clase = TipoSql::Clase;
    if (valor.isNull())
        return nulo(tipo);
    switch (tipo.clase) {
    case Clase::Entero:
        return octeto(tipo.largo) + menor(valor.toLongLong()).first(tipo.largo);
    case Clase::Bit:
        return octeto(1) + octeto(valor.toLongLong() != 0);
    case Clase::Importe:
        return octeto(8) + importeEnCable(valor);
    case Clase::Decimal:
        return octeto(9) + decimalEnCable(valor, tipo.escala);
    case Clase::Real:
        return octeto(8) + menor(std::bit_cast<quint64>(valor.toDouble()));
    case Clase::Fecha: {
        const qint64 dias = QDate(1900, 1, 1).daysTo(fechaGuardada(valor.toString()));
        return octeto(8) + menor(static_cast<qint32>(dias)) + menor(quint32{0});
    }
    case Clase::Fijo:
    case Clase::Texto: {
        QByteArray texto = enPagina1252(valor.toString()).left(tipo.largo);
        if (tipo.clase == Clase::Fijo)
            texto = texto.leftJustified(tipo.largo);
        return menor(static_cast<quint16>(texto.size())) + texto;
    }
    case Clase::Memo: {
        const QByteArray texto = enPagina1252(valor.toString());
        const auto largo = static_cast<quint32>(texto.size());
        const QByteArray trozo = texto.isEmpty() ? QByteArray() : menor(largo) + texto;
        return menor(static_cast<quint64>(largo)) + trozo + menor(quint32{0});
    }
    }
    return {};
}

} // namespace

Canal::~Canal()
{
    ::close(m_descriptor);
}

std::optional<QByteArray> Canal::leer(qsizetype octetos) const
{
    QByteArray datos;
    while (datos.size() < octetos) {
        char trozo[4096];
        const qsizetype faltan = std::min<qsizetype>(octetos - datos.size(), sizeof trozo);
        const ssize_t leidos = ::recv(m_descriptor, trozo, static_cast<std::size_t>(faltan), 0);
        if (leidos <= 0)
            return std::nullopt;
        datos.append(trozo, leidos);
    }
    return datos;
}

std::optional<Mensaje> Canal::leer() const
{
    QByteArray datos;
    while (true) {
        const std::optional<QByteArray> cabecera = leer(Cabecera);
        if (!cabecera)
            return std::nullopt;
        const qsizetype largo = qFromBigEndian<quint16>(cabecera->constData() + 2);
        const std::optional<QByteArray> trozo = leer(std::max<qsizetype>(largo - Cabecera, 0));
        if (!trozo)
            return std::nullopt;
        datos += *trozo;
        if ((cabecera->at(1) & 1) != 0)
            return Mensaje{static_cast<Clase>(cabecera->at(0)), datos};
    }
}

bool Canal::enviar(const QByteArray &respuesta) const
{
    QByteArray paquetes;
    for (qsizetype i = 0; i < respuesta.size(); i += Paquete) {
        const QByteArray trozo = respuesta.sliced(i, std::min(Paquete, respuesta.size() - i));
        const bool ultimo = i + Paquete >= respuesta.size();
        paquetes += octeto(4) + octeto(ultimo) + mayor(static_cast<quint16>(trozo.size() + Cabecera)) +
                    QByteArray::fromHex("00000100") + trozo;
    }
    for (qsizetype enviados = 0; enviados < paquetes.size();) {
        const ssize_t otros = ::send(m_descriptor, paquetes.constData() + enviados,
                                     static_cast<std::size_t>(paquetes.size() - enviados), MSG_NOSIGNAL);
        if (otros <= 0)
            return false;
        enviados += otros;
    }
    return true;
}

void Respuesta::presentacion()
{
    // Version, no encryption, instance, thread, no several results at once.
    const QByteArray opciones[] = {QByteArray::fromHex("0f0000000000"), octeto(2), octeto(0),
                                   QByteArray::fromHex("00000000"), octeto(0)};
    quint16 lugar = 5 * std::size(opciones) + 1;
    QByteArray valores;
    for (const QByteArray &opcion : opciones) {
        const auto largo = static_cast<quint16>(opcion.size());
        m_octetos += octeto(static_cast<int>(&opcion - opciones)) + mayor(lugar) + mayor(largo);
        lugar = static_cast<quint16>(lugar + largo);
        valores += opcion;
    }
    m_octetos += octeto(0xFF) + valores;
}

void Respuesta::entrada()
{
    const QByteArray cuerpo =
        QByteArray::fromHex("0174000004") + corto(u"Microsoft SQL Server"_s) + QByteArray::fromHex("0f000000");
    m_octetos += octeto(0xAD) + menor(static_cast<quint16>(cuerpo.size())) + cuerpo;
    fin();
}

void Respuesta::columnas(const std::vector<Columna> &columnas)
{
    constexpr quint16 AdmiteNulos = 9;
    m_octetos += octeto(0x81) + menor(static_cast<quint16>(columnas.size()));
    for (const Columna &columna : columnas)
        m_octetos += menor(quint32{0}) + menor(AdmiteNulos) + tipoEnCable(columna.tipo) + corto(columna.nombre);
}

void Respuesta::fila(const std::vector<Columna> &columnas, const Fila &fila)
{
    m_octetos += octeto(0xD1);
    for (std::size_t i = 0; i < columnas.size(); ++i)
        m_octetos += valorEnCable(columnas[i].tipo, fila.at(i));
}

void Respuesta::mensaje(quint8 ficha, int numero, quint8 gravedad, const QString &texto)
{
    const QByteArray cuerpo = menor(static_cast<qint32>(numero)) + octeto(1) + octeto(gravedad) +
                              menor(static_cast<quint16>(texto.size())) + utf16(texto) + corto(u"doble"_s) +
                              corto(QString()) + menor(quint32{1});
    m_octetos += octeto(ficha) + menor(static_cast<quint16>(cuerpo.size())) + cuerpo;
}

void Respuesta::fin(quint16 estado, qint64 filas)
{
    m_octetos += octeto(0xFD) + menor(estado) + menor(quint16{0}) + menor(filas);
}

QString baseDeEntrada(const QByteArray &datos)
{
    constexpr qsizetype Lugar = 68; // of the place and length of the name
    if (datos.size() < Lugar + 4)
        return {};
    const qsizetype lugar = qFromLittleEndian<quint16>(datos.constData() + Lugar);
    const qsizetype letras = qFromLittleEndian<quint16>(datos.constData() + Lugar + 2);
    return datos.size() < lugar + 2 * letras ? QString() : desdeUtf16(datos.sliced(lugar, 2 * letras));
}

QString textoDeLote(const QByteArray &datos)
{
    if (datos.size() < 4)
        return {};
    const auto cabeceras = static_cast<qsizetype>(qFromLittleEndian<quint32>(datos.constData()));
    return cabeceras > datos.size() ? QString() : desdeUtf16(datos.sliced(cabeceras));
}

} // namespace nv::doble
