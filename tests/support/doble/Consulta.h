#pragma once

#include "support/doble/Tipos.h"

#include "platform/datos/Lexico.h"

#include <QHash>

#include <functional>

namespace nv::doble {

/// The tokens of a statement that count, each with the brackets open around it.
struct Pieza
{
    datos::Lexema lexema;
    int nivel;

    bool es(QStringView palabra) const { return lexema.es(palabra); }
    bool esSigno(char16_t signo) const { return lexema.esSigno(signo); }
    bool esPalabra() const { return lexema.tipo == datos::Lexema::Tipo::Palabra; }
};

using Piezas = std::vector<Pieza>;

/// The result views `sentencia`.
Piezas piezasDe(QStringView sentencia);
/// A name without brackets, in lower case.
QString nombreDe(const Pieza &pieza);
/// The pieces between the commas of `nivel`.
std::vector<Piezas> porComas(const Piezas &piezas, int nivel);

/// The first SELECT outside brackets, taken apart. Its pieces view the statement.
struct Consulta
{
    struct Elemento
    {
        Piezas expresion;
        QString nombre; ///< alias or column; empty when the server gives it none
    };

    explicit Consulta(const Piezas &piezas);

    bool hay = false;
    bool distinta = false;
    QString destino; ///< of a SELECT … INTO
    std::vector<Elemento> lista;
    std::vector<std::pair<QString, QString>> origenes; ///< name in the statement and table, in lower case
    std::vector<Piezas> orden;                         ///< without ASC and DESC
};

/// The declared columns of a table; empty when it is not known.
using Declaradas = std::function<std::vector<Columna>(const QString &tabla)>;

/// The columns of the result: declared types where an expression has one and all values fit, else by the values. Empty
/// when there is no telling how many columns a "*" stands for.
std::vector<Columna> columnasDe(const Consulta &consulta, const std::vector<Fila> &filas, const Declaradas &declaradas);

/// Name and columns of a CREATE TABLE.
std::pair<QString, std::vector<Columna>> tablaDeclarada(const Piezas &piezas);

} // namespace nv::doble
