#pragma once

#include "nvArticulo/Moneda.h"

#include <QDate>
#include <QVariant>
#include <memory>

namespace nv {

/// What an engine puts behind a result: forward only, one row at a time.
class FuenteRegistros
{
public:
    virtual ~FuenteRegistros() = default;
    /// To the next row; false at the end. Throws Error.
    virtual bool avanzar() = 0;
    virtual int columnas() const = 0;
    virtual QString nombre(int columna) const = 0;
    /// Value of the current row: an invalid or null QVariant for NULL, qlonglong for integers, double or QString for
    /// decimals, QString for texts and for dates (as stored), QDate/QDateTime where the driver knows the type.
    virtual QVariant valor(int columna) const = 0;
};

/// Forward-only, read-only result, read by column name; closes itself. Move only.
/// Starts before the first row: `while (registros.siguiente()) …`.
/// An unknown column throws Error 3265; reading NULL with a getter without "O" throws Error 94.
class Registros
{
public:
    Registros() = default;
    explicit Registros(std::unique_ptr<FuenteRegistros> fuente)
        : m_fuente(std::move(fuente))
    {}

    bool abierto() const { return m_fuente != nullptr; }
    /// Once past the end the result is closed.
    bool siguiente();
    void cerrar() { m_fuente.reset(); }

    int columnas() const;
    QString nombre(int columna) const;
    /// Position of a column, to be looked up once per result.
    int columna(QStringView nombre) const;

    QVariant valor(int columna) const;
    bool esNulo(int columna) const;
    QString texto(int columna) const;
    QString textoO(int columna, const QString &siNulo = {}) const;
    /// Of the getters with "O" a null is 0, False or no amount: rows that other programs wrote.
    qint16 entero16(int columna) const;
    qint16 entero16O(int columna, qint16 siNulo = 0) const { return esNulo(columna) ? siNulo : entero16(columna); }
    qint32 entero32(int columna) const;
    qint32 entero32O(int columna) const { return esNulo(columna) ? 0 : entero32(columna); }
    qint64 entero64(int columna) const;
    bool booleano(int columna) const;
    bool booleanoO(int columna) const { return !esNulo(columna) && booleano(columna); }
    Moneda moneda(int columna) const;
    Moneda monedaO(int columna) const { return esNulo(columna) ? Moneda() : moneda(columna); }
    /// An invalid date for NULL and for a text that is no date.
    QDate fechaO(int columna) const;
    /// A number as users read it: shortest text with a decimal comma whatever the engine returns ("12,5").
    QString textoNumero(int columna) const;

    QVariant valor(QStringView nombre) const { return valor(columna(nombre)); }
    bool esNulo(QStringView nombre) const { return esNulo(columna(nombre)); }
    QString texto(QStringView nombre) const { return texto(columna(nombre)); }
    QString textoO(QStringView nombre, const QString &siNulo = {}) const { return textoO(columna(nombre), siNulo); }
    qint16 entero16(QStringView nombre) const { return entero16(columna(nombre)); }
    qint16 entero16O(QStringView nombre, qint16 siNulo = 0) const { return entero16O(columna(nombre), siNulo); }
    qint32 entero32(QStringView nombre) const { return entero32(columna(nombre)); }
    qint32 entero32O(QStringView nombre) const { return entero32O(columna(nombre)); }
    qint64 entero64(QStringView nombre) const { return entero64(columna(nombre)); }
    bool booleano(QStringView nombre) const { return booleano(columna(nombre)); }
    bool booleanoO(QStringView nombre) const { return booleanoO(columna(nombre)); }
    Moneda moneda(QStringView nombre) const { return moneda(columna(nombre)); }
    Moneda monedaO(QStringView nombre) const { return monedaO(columna(nombre)); }
    QDate fechaO(QStringView nombre) const { return fechaO(columna(nombre)); }
    QString textoNumero(QStringView nombre) const { return textoNumero(columna(nombre)); }

private:
    std::unique_ptr<FuenteRegistros> m_fuente;
};

} // namespace nv
