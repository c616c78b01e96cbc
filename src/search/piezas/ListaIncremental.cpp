#include "search/piezas/ListaIncremental.h"

#include "nvArticulo/Error.h"

#include <QScopedValueRollback>

namespace nv {

namespace {

/// `maximo` 0: to the end.
void leer(Registros &registros, const LectorFila &lector, int maximo, std::vector<FilaRejilla> &filas)
{
    while ((maximo == 0 || static_cast<int>(filas.size()) < maximo) && registros.siguiente())
        filas.push_back(lector(registros));
}

} // namespace

ListaIncremental::ListaIncremental(Rejilla *rejilla, Bloques bloques)
    : QObject(rejilla)
    , m_rejilla(rejilla)
    , m_bloques(bloques)
{
    connect(rejilla, &Rejilla::Desplazada, this, [this](int antes, int ahora) {
        if (ahora > antes)
            anadir(1);
    });
}

void ListaIncremental::mostrar(Registros registros, LectorFila lector)
{
    std::vector<FilaRejilla> filas;
    leer(registros, lector, m_bloques.primero, filas);
    m_registros = std::move(registros);
    m_lector = std::move(lector);
    const QScopedValueRollback<bool> guarda(m_anadiendo, true);
    m_rejilla->setRedibujo(false);
    m_rejilla->vaciar();
    m_rejilla->anadir(std::move(filas));
    m_rejilla->setRedibujo(true);
}

void ListaIncremental::alPaginar()
{
    const int desdeElFinal = m_rejilla->filas() - m_rejilla->filaActual();
    if (desdeElFinal <= m_bloques.lejos && desdeElFinal >= m_bloques.cerca)
        anadir(m_bloques.pagina);
}

void ListaIncremental::anadir(int maximo)
{
    if (m_anadiendo || !m_registros.abierto())
        return;
    const QScopedValueRollback<bool> guarda(m_anadiendo, true);
    std::vector<FilaRejilla> filas;
    QString fallo;
    try {
        leer(m_registros, m_lector, maximo, filas);
    } catch (const Error &error) {
        m_registros.cerrar();
        fallo = error.descripcion;
    }
    m_rejilla->setRedibujo(false);
    m_rejilla->anadir(std::move(filas));
    m_rejilla->setRedibujo(true);
    if (!fallo.isEmpty())
        Q_EMIT Fallo(fallo);
}

} // namespace nv
