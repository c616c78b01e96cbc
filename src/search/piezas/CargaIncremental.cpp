#include "search/piezas/CargaIncremental.h"

#include "common/Error.h"

#include <QScopedValueRollback>

namespace nv {

CargaIncremental::CargaIncremental(Rejilla *rejilla, Preparador preparador)
    : QObject(rejilla)
    , m_rejilla(rejilla)
    , m_preparador(std::move(preparador))
{
    connect(rejilla, &Rejilla::Desplazada, this, [this](int antes, int ahora) {
        if (ahora > antes)
            anadir(1);
    });
}

void CargaIncremental::mostrar(Registros registros)
{
    Lector lector = m_preparador(registros);
    std::vector<FilaRejilla> filas = leer(registros, lector, PrimerBloque);
    m_registros = std::move(registros);
    m_lector = std::move(lector);
    const QScopedValueRollback<bool> guarda(m_anadiendo, true);
    m_rejilla->setRedibujo(false);
    m_rejilla->vaciar();
    m_rejilla->anadir(std::move(filas));
    m_rejilla->setRedibujo(true);
}

void CargaIncremental::alPaginar()
{
    if (m_rejilla->filaActual() == m_rejilla->filas() - 2)
        anadir(BloquePagina);
}

std::vector<FilaRejilla> CargaIncremental::leer(Registros &registros, const Lector &lector, int maximo)
{
    std::vector<FilaRejilla> filas;
    while (static_cast<int>(filas.size()) < maximo && registros.siguiente())
        filas.push_back(lector(registros));
    return filas;
}

void CargaIncremental::anadir(int maximo)
{
    if (m_anadiendo || !m_registros.abierto())
        return;
    const QScopedValueRollback<bool> guarda(m_anadiendo, true);
    std::vector<FilaRejilla> filas;
    QString fallo;
    try {
        while (static_cast<int>(filas.size()) < maximo && m_registros.siguiente())
            filas.push_back(m_lector(m_registros));
    } catch (const Error &error) {
        m_registros.cerrar();
        fallo = error.descripcion;
    }
    if (!filas.empty()) {
        m_rejilla->setRedibujo(false);
        m_rejilla->anadir(std::move(filas));
        m_rejilla->setRedibujo(true);
    }
    if (!fallo.isEmpty())
        Q_EMIT Fallo(fallo);
}

} // namespace nv
