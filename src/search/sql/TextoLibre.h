#pragma once

#include "search/sql/Condiciones.h"

#include <QStringList>

/// What the four free-text searches share: reading the typed text, and the parts of their statements that are alike.
namespace nv::sql {

/// What "*" means in the typed text.
enum class Asterisco {
    Comodin, ///< one pattern, anchored at both ends
    Blanco,  ///< it separates words
};

/// Each word is a condition more, and no engine takes any number of them.
inline constexpr qsizetype PalabrasMaximas = 100;

/// A typed text as it is searched for: one term, or words that must all occur in the description.
struct TextoLibre
{
    bool unTermino = true;
    QString patron;        ///< of one term
    bool numerico = false; ///< the one term reads as a number: main barcodes and item codes are searched too
    QStringList palabras;  ///< none: no condition
};

/// Only U+0020 separates words, and one at an end counts: "ROCA " is a search by words. "*" comes before the words. Throws Error where
/// there are too many of them.
TextoLibre leerTextoLibre(const QString &texto, Asterisco asterisco);

/// By description or supplier reference, or by words of the description.
Sentencia condicionTexto(const TextoLibre &texto);
/// " OR …" of a term that reads as a number, else empty.
Sentencia alternativasNumericas(const TextoLibre &texto);

/// What every free-text statement is asked with, besides its criteria.
struct EntornoTextoLibre
{
    qint16 empresa = 0;
    qint16 empresaArticulos = 0;
    qint16 almacen = 0;
    qint16 tarifa = 0;
    bool soloRefPrincipal = true; ///< one row per item, not one per supplier reference
    std::optional<qint32> limite;
};

// " ON …" of the joins that every statement has.
Sentencia unionReferencias(const EntornoTextoLibre &entorno);
Sentencia unionExistencias(const EntornoTextoLibre &entorno);
Sentencia unionPrecios(const EntornoTextoLibre &entorno);
Sentencia unionBarras();

/// `Tarifa` of a warehouse.
Sentencia tarifaAlmacen(qint16 empresa, qint16 almacen);

} // namespace nv::sql
