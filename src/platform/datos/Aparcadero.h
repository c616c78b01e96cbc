#pragma once

#include "nvArticulo/Conexion.h"

#include <vector>

namespace nv::datos {

/// An engine's own open result, before its first row.
class Cursor
{
public:
    virtual ~Cursor() = default;
    virtual bool avanzar() = 0;
    virtual int columnas() const = 0;
    virtual QString nombre(int columna) const = 0;
    virtual QVariant valor(int columna) const = 0;
};

class ResultadoAparcable;

/// A connection whose engine allows one live result: before any other statement runs, the open results read their
/// remaining rows into memory and free the engine's cursor, unseen by whoever is reading them.
class ConexionAparcadora : public Conexion
{
public:
    ~ConexionAparcadora() override;

protected:
    virtual std::unique_ptr<Cursor> abrirCursor(const Sentencia &sentencia) = 0;
    virtual qint64 ejecutarSolo(const Sentencia &sentencia) = 0;
    virtual void comenzarSolo() = 0;
    virtual void confirmarSolo() = 0;
    virtual void deshacerSolo() = 0;

    /// Frees the cursors without reading on: their readers get Error 3709 at the next row. An engine calls it in its
    /// destructor, before what the cursors stand on goes away.
    void soltarResultados();

private:
    friend class ResultadoAparcable;

    std::unique_ptr<FuenteRegistros> abrir(const Sentencia &sentencia) final;
    qint64 ejecutar(const Sentencia &sentencia) final;
    void comenzar() final;
    void confirmar() final;
    void deshacer() final;
    void aparcar();

    std::vector<ResultadoAparcable *> m_vivos;
};

} // namespace nv::datos
