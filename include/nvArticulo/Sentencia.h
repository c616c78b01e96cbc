#pragma once

#include "nvArticulo/Moneda.h"

#include <QDate>
#include <QString>
#include <concepts>

namespace nv {

/// A fragment of a statement that stands in the source as a literal: nothing else converts to it.
class Fragmento
{
public:
    template <std::size_t N>
    consteval Fragmento(const char16_t (&literal)[N])
        : m_texto(literal, N - 1)
    {}
    constexpr QStringView texto() const { return m_texto; }

private:
    QStringView m_texto;
};

/// The literal with which a statement's own ORDER BY begins, in the statements whose order may have to go: the
/// statement then knows where.
class Orden
{
public:
    template <std::size_t N>
    explicit consteval Orden(const char16_t (&literal)[N])
        : m_fragmento(literal)
    {}
    constexpr Fragmento fragmento() const { return m_fragmento; }

private:
    Fragmento m_fragmento;
};

/// Text that goes between quotes unchanged. A quote or a NUL inside makes the statement invalid: it is refused before
/// it is sent.
struct ComoEscrito
{
    explicit ComoEscrito(QStringView t)
        : texto(t)
    {}
    QStringView texto;
};

/// Text that goes between quotes with its embedded quotes doubled.
struct Doblado
{
    explicit Doblado(QStringView t)
        : texto(t)
    {}
    QStringView texto;
};

/// A typed number that goes out without quotes, as typed: refused unless it is an optional sign, ASCII digits and at
/// most one decimal point.
struct NumeroEscrito
{
    explicit NumeroEscrito(QStringView t)
        : texto(t)
    {}
    QStringView texto;
};

/// A statement in the server's own dialect. Made of literals of the source, integers and marked values; a bare QString
/// does not compile into it.
class Sentencia
{
public:
    Sentencia() = default;
    Sentencia(Fragmento fragmento) { *this << fragmento; }

    /// For a console where a person writes whole statements. Never for values that users type.
    static Sentencia deConsola(const QString &texto);

    Sentencia &operator<<(Fragmento fragmento);
    Sentencia &operator<<(Orden orden);
    Sentencia &operator<<(std::integral auto entero) requires(!std::same_as<decltype(entero), bool> &&
                                                              !std::same_as<decltype(entero), char> &&
                                                              !std::same_as<decltype(entero), char16_t>)
    {
        m_texto += QString::number(entero);
        return *this;
    }
    Sentencia &operator<<(ComoEscrito valor);
    Sentencia &operator<<(Doblado valor);
    Sentencia &operator<<(NumeroEscrito valor);
    Sentencia &operator<<(Moneda importe);
    /// dd/MM/yyyy, without quotes.
    Sentencia &operator<<(QDate fecha);
    Sentencia &operator<<(const Sentencia &otra);

    const QString &texto() const { return m_texto; }
    bool vacia() const { return m_texto.isEmpty(); }
    /// From the first "FROM" (case-sensitive) to the end; empty when there is none.
    Sentencia desdeFrom() const;
    /// Without its own order. A copy of rows means the same without it, and a server refuses one by what is not copied.
    Sentencia sinOrden() const;
    /// Marks that its order may be left out by an engine that refuses it.
    void hacerOrdenPrescindible() { m_ordenPrescindible = true; }
    bool ordenPrescindible() const { return m_ordenPrescindible && m_orden >= 0; }
    /// Why it cannot be sent; empty when it can.
    const QString &defecto() const { return m_defecto; }
    /// Throws Error where it cannot be sent.
    void exigirEnviable() const;

private:
    void rechazar(QStringView valor);

    QString m_texto;
    QString m_defecto;
    qsizetype m_orden = -1; ///< where its own ORDER BY begins
    bool m_ordenPrescindible = false;
};

} // namespace nv
