#include "search/piezas/MarcasX.h"

#include "platform/widgets/Rejilla.h"

namespace nv {

MarcasX::MarcasX(Rejilla *rejilla, int columna)
    : QObject(rejilla)
    , m_rejilla(rejilla)
    , m_columna(columna)
{
    connect(rejilla, &Rejilla::Espacio, this, &MarcasX::alternar);
    connect(rejilla, &Rejilla::DobleClic, this, [this](int fila, int) {
        if (fila > 0)
            alternar();
    });
}

void MarcasX::marcarTodos()
{
    ponerTodos(Marca);
}

void MarcasX::desmarcarTodos()
{
    ponerTodos({});
}

void MarcasX::ponerTodos(QStringView texto)
{
    m_rejilla->setRedibujo(false);
    m_rejilla->setTextoColumna(m_columna, texto.toString());
    m_rejilla->setRedibujo(true);
}

void MarcasX::alternar()
{
    const int fila = m_rejilla->filaActual();
    if (fila < 1)
        return;
    const bool vacia = m_rejilla->texto(fila, m_columna).isEmpty();
    m_rejilla->setTexto(fila, m_columna, vacia ? Marca.toString() : QString());
}

} // namespace nv
