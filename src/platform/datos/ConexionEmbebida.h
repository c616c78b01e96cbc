#pragma once

#include "platform/datos/Aparcadero.h"
#include "platform/datos/Preparada.h"

#include <random>

struct sqlite3;

namespace nv::datos {

/// The embedded engine over one catalogue file. Uses the engine's own interface: its prepared statements are kept and
/// filled without a layer between.
class ConexionEmbebida final : public ConexionAparcadora
{
public:
    /// Throws Error; see abrirEmbebida.
    explicit ConexionEmbebida(const QString &ruta);
    ~ConexionEmbebida() override;

private:
    std::unique_ptr<FuenteRegistros> abrirCursor(const Sentencia &sentencia) override;
    qint64 ejecutarSolo(const Sentencia &sentencia) override;
    void comenzarSolo() override;
    void confirmarSolo() override;
    void deshacerSolo() override;

    /// Prepared and filled, with a sieve where the trigram index can give one.
    std::shared_ptr<Preparada> vinculada(const Parametrizada &parametrizada);
    qint64 ejecutar(Preparada &preparada, const Parametrizada &parametrizada);
    /// SELECT … INTO: the table takes the types and orders of the columns that it is made from.
    qint64 crearDesde(Preparada &preparada, const Parametrizada &parametrizada);
    static int esperar(void *conexion, int veces);

    struct Cierre
    {
        void operator()(sqlite3 *base) const;
    };

    std::unique_ptr<sqlite3, Cierre> m_base;
    CachePreparadas m_cache;
    std::minstd_rand m_azar;
    qint64 m_esperado = 0;          // microseconds in the current wait for a lock
    qint64 m_paciencia = 2'000'000; // microseconds; less while opening, when nothing is on screen yet
};

} // namespace nv::datos
