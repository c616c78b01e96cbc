#pragma once

#include "nvArticulo/Conexion.h"

#include <vector>

namespace nv::datos {

/// An engine's own open result, its first row read ahead.
class Cursor : public FuenteRegistros
{
public:
    bool avanzar() final;

protected:
    /// For the constructor: what fails at the first row fails when the statement is opened.
    void adelantar() { m_pendiente = avanzar(); }
    /// To the next row; not called again once there was none, or it failed.
    virtual bool paso() = 0;

private:
    bool m_pendiente = false;
    bool m_terminado = false;
};

class ResultadoAparcable;

/// A connection whose engine allows one live result: before any other statement runs, the open results read their
/// remaining rows into memory and free the engine's cursor, unseen by whoever is reading them.
class ConexionAparcadora : public Conexion
{
public:
    ~ConexionAparcadora() override;

protected:
    virtual std::unique_ptr<FuenteRegistros> abrirCursor(const Sentencia &sentencia) = 0;
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
