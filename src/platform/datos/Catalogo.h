#pragma once

#include <QHash>
#include <QStringList>

#include <vector>

namespace nv::datos {

struct Lexema;

/// What the dialect knows of a column by its name alone.
struct ClaseColumna
{
    enum class Tipo { Otro, Texto, Fecha, Importe };
    Tipo tipo = Tipo::Otro; ///< Otro also when tables disagree
    bool indexada = false;
};

/// The schema script in the server's types, and what it says of each column name.
class Catalogo
{
public:
    static const Catalogo &unico();

    const QString &esquema() const { return m_esquema; }
    ClaseColumna columna(QStringView nombre) const;

private:
    Catalogo();
    void leerTabla(const std::vector<Lexema> &lista);
    void leerIndice(const std::vector<Lexema> &lista);
    void anotarTipo(QStringView nombre, ClaseColumna::Tipo tipo);

    QString m_esquema;
    QHash<QString, ClaseColumna> m_columnas; // by lower-case name
};

/// What a type name of the server means to the embedded engine.
ClaseColumna::Tipo claseDeTipo(QStringView tipo);

/// The statements of a script; each ends with a semicolon at the end of a line.
QStringList sentenciasDe(const QString &guion);

} // namespace nv::datos
