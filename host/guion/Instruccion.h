#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

namespace mostrador::guion {

/// Thrown where a script cannot be followed at all.
struct GuionMalo
{
    QString motivo;
};

/// Thrown by a command that cannot be done, or does not hold, yet: it is tried again for a while.
struct AunNo
{
    QString motivo;
};

/// One line of a script: the command and what follows it, trimmed.
struct Instruccion
{
    int linea = 0;
    QString nombre;
    QString resto;

    /// What a line says: nothing for blank lines and comments ("#"), one for each key of "pulsa", and for "confirma" the
    /// text and the Enter behind it.
    static std::vector<Instruccion> leidas(const QString &linea, int numero);

    /// The rest in words; quotes keep blanks together, \n and \" inside them mean what they mean elsewhere.
    QStringList palabras() const;
    /// "OBJETO = TEXTO" cut at the first " = " (or a final " ="); the text loses the quotes around it.
    std::optional<std::pair<QString, QString>> comparacion() const;
    /// As a scanner sends it: an Enter behind it unless it ends in \t, \r or \n.
    QString leido() const;
    QString primera() const { return resto.section(u' ', 0, 0); }
    QString demas() const { return resto.section(u' ', 1).trimmed(); }
    /// As it was written, with single blanks around the name.
    QString texto() const { return resto.isEmpty() ? nombre : nombre + u' ' + resto; }
};

/// Without the quotes around it, which keep outer blanks.
QString sinComillas(const QString &texto);
/// One line: line breaks as \n.
QString enUnaLinea(QString texto);

} // namespace mostrador::guion
