#pragma once

#include "platform/datos/ConTipos.h"
#include "platform/datos/Trigramas.h"

#include <QHash>
#include <QStringList>

#include <list>
#include <memory>

struct sqlite3;
struct sqlite3_stmt;

namespace nv::datos {

/// A prepared statement of one form. Lives as long as the cache or an open result needs it, never longer than the
/// connection.
class Preparada
{
public:
    /// Throws Error.
    Preparada(sqlite3 *base, TablasTipadas &tablas, const QString &forma, Criba criba);
    Preparada(const Preparada &) = delete;
    Preparada &operator=(const Preparada &) = delete;
    ~Preparada();

    sqlite3_stmt *sentencia() const { return m_sentencia; }
    /// Of a SELECT … INTO; empty otherwise. `adaptada` is then the text of its SELECT.
    const QString &tablaNueva() const { return m_tablaNueva; }
    const QString &adaptada() const { return m_adaptada; }

    /// Conditions for which a sieve can be set.
    const std::optional<CondicionesCribables> &cribables() const { return m_cribables; }

    void vincular(const Parametrizada &parametrizada) const;
    /// For a statement with a sieve.
    void vincular(const Parametrizada &parametrizada, Candidatos candidatos) const;
    /// The same values for another statement that has the same parameters; returns the last one's place.
    int vincular(const Parametrizada &parametrizada, sqlite3_stmt *otra) const;

    /// Names of the result's columns, read again after the engine prepared anew for a changed table.
    const QStringList &nombres();

private:
    QString m_adaptada;
    QString m_tablaNueva;
    std::vector<std::size_t> m_rangos;
    ConTipos m_tipada;
    std::optional<CondicionesCribables> m_cribables;
    Criba m_criba;
    sqlite3_stmt *m_sentencia = nullptr;
    QStringList m_nombres;
    int m_nombresDe = -1;
};

/// Bounded, the least recently used leaves first.
class CachePreparadas
{
public:
    std::shared_ptr<Preparada> obtener(sqlite3 *base, const Parametrizada &parametrizada, Criba criba = Criba::Ninguna);
    void vaciar();
    qsizetype tamano() const { return m_indice.size(); }

    static constexpr qsizetype Capacidad = 200;
    /// Longer statements (lists of hundreds of values) seldom come twice.
    static constexpr qsizetype FormaMaxima = 8000;

private:
    struct Entrada
    {
        QString forma;
        std::shared_ptr<Preparada> preparada;
    };

    std::list<Entrada> m_entradas; // most recently used first
    QHash<QString, std::list<Entrada>::iterator> m_indice;
    TablasTipadas m_tablas;
};

/// Throws Error for a text that holds more than one statement.
sqlite3_stmt *preparar(sqlite3 *base, const QString &sql, bool duradera);

} // namespace nv::datos
