#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace nv::guion {

/// One line of a script: the command and what follows it, trimmed.
struct Orden
{
    int linea = 0;
    QString nombre;
    QString resto;

    /// The rest in words; quotes keep blanks together, \n and \" inside them mean what they mean elsewhere.
    QStringList palabras() const;
};

/// Nothing for blank lines and comments ("#").
std::optional<Orden> leida(const QString &linea, int numero);

/// "OBJETO = TEXTO" cut at the first " = " (or a final " ="); the text loses the quotes around it.
struct Comparacion
{
    QString objeto;
    QString texto;
};
std::optional<Comparacion> comparacion(const QString &resto);

/// One line: line breaks as \n.
QString enUnaLinea(QString texto);

} // namespace nv::guion
