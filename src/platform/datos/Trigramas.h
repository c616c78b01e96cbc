#pragma once

#include "platform/datos/Criba.h"

#include <QByteArray>
#include <QHash>

#include <bitset>

struct sqlite3;
struct sqlite3_stmt;

namespace nv::datos {

/// Codes of the items that may fit, all that fit among them.
class Candidatos
{
public:
    void anadir(qint64 codigo);
    bool contiene(qint64 codigo) const;

    /// By how many of them there are: seeking each pays for few only.
    Criba criba() const;
    /// As a JSON array.
    QByteArray lista() const;

private:
    static constexpr int BitsPagina = 9; // codes may be sparse: short pages
    using Pagina = std::bitset<1U << BitsPagina>;

    std::vector<qint64> m_codigos;
    QHash<qint64, Pagina> m_paginas;
};

/// The trigrams of what an item is searched by (description, references, barcodes, code and brand, as one text), kept
/// in the catalogue file. Triggers note the items that a change touched; a noted item counts as a candidate whatever
/// it holds, so the index may lag behind and answers right all the same.
namespace trigramas {

/// Makes the index and fills it. Throws Error.
void crear(sqlite3 *base);

/// Brings noted items up to date once there are enough of them, inside the caller's transaction or in one of its own;
/// never fails: what could not be done stays noted.
void ponerAlDia(sqlite3 *base);

/// Empty when no pattern has three letters in a row to look for. Throws Error.
std::optional<Candidatos> buscar(sqlite3 *base, const CondicionesCribables &condiciones,
                                 const Parametrizada &parametrizada);

/// Registers NV_CANDIDATO(candidates, code). Returns the engine's result code.
int registrarFuncion(sqlite3 *base);
/// Binds candidates, which the statement keeps until it is bound anew.
void vincular(sqlite3_stmt *sentencia, int lugar, Candidatos candidatos);

} // namespace trigramas

} // namespace nv::datos
