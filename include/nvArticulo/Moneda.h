#pragma once

#include <QString>
#include <compare>

namespace nv {

/// Fixed-point currency amount: 64 bits, four decimals. Never a double on its way in or out.
class Moneda
{
public:
    static constexpr qint64 Escala = 10000;

    constexpr Moneda() = default;
    static constexpr Moneda deUnidades(qint64 unidades) { return Moneda(unidades * Escala); }
    static constexpr Moneda deDiezmilesimas(qint64 diezmilesimas) { return Moneda(diezmilesimas); }
    /// Decimal text with "." as the decimal point, as a database writes it; further decimals are rounded half away
    /// from zero. Throws Error (13) for a text that is no number and (6) for one out of range.
    static Moneda deTexto(QStringView texto);
    /// For engines that hold amounts as floating point; rounds to the nearest ten-thousandth.
    static Moneda deReal(double valor);

    constexpr qint64 diezmilesimas() const { return m_valor; }
    constexpr bool esCero() const { return m_valor == 0; }

    /// Rounded half away from zero to 0 to 4 decimals.
    Moneda redondeada(int decimales) const;
    /// `this` × porcentaje ÷ 100 rounded half away from zero to `decimales`, computed exactly.
    Moneda porcentaje(Moneda porcentaje, int decimales) const;
    /// With exactly `decimales` decimals and a decimal comma: "0,00", "1234,50".
    QString texto(int decimales) const;
    /// The pattern ###,###,##0.00## in Spanish signs: thousands points, a comma, two to four decimals.
    QString textoAgrupado() const;
    /// Shortest text with a decimal comma: "12,5", "3".
    QString textoCorto() const;
    /// Shortest text with a decimal point, as a statement takes it.
    QString textoSql() const;

    constexpr Moneda operator+(Moneda otra) const { return Moneda(m_valor + otra.m_valor); }
    constexpr Moneda operator-(Moneda otra) const { return Moneda(m_valor - otra.m_valor); }
    constexpr auto operator<=>(const Moneda &) const = default;

private:
    constexpr explicit Moneda(qint64 valor)
        : m_valor(valor)
    {}

    qint64 m_valor = 0;
};

} // namespace nv
