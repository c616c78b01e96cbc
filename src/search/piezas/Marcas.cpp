#include "search/piezas/Marcas.h"

#include "platform/widgets/Rejilla.h"
#include "platform/widgets/Twips.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace nv {

Marcas::Marcas(Rejilla *rejilla, int columna)
    : QObject(rejilla)
    , m_rejilla(rejilla)
    , m_columna(columna)
    , m_todas(new QCheckBox(rejilla->horizontalHeader()->viewport()))
{
    m_todas->setObjectName(u"chkSelAll"_s);
    m_todas->setAccessibleName(u"Marcar todos los artículos"_s);
    // A click leaves the focus in the list.
    m_todas->setFocusPolicy(Qt::TabFocus);
    m_todas->adjustSize();
    m_todas->hide();
    connect(m_todas, &QCheckBox::toggled, this, &Marcas::marcarTodas);
    connect(rejilla->horizontalHeader(), &QHeaderView::sectionResized, this, &Marcas::colocar);
    connect(rejilla->horizontalHeader(), &QHeaderView::geometriesChanged, this, &Marcas::colocar);
    connect(rejilla->horizontalScrollBar(), &QScrollBar::valueChanged, this, &Marcas::colocar);
}

int Marcas::anchoColumna() const
{
    // Twice the box and its offset, which is its own width: so it stands above the ticks of the rows.
    return twips::dePixeles(3 * m_todas->sizeHint().width(), m_rejilla);
}

void Marcas::setVisibles(bool visibles)
{
    m_rejilla->setColumnaCasilla(m_columna);
    m_rejilla->setColumnaOculta(m_columna, !visibles);
    m_todas->setVisible(visibles);
    colocar();
}

void Marcas::colocar()
{
    const QHeaderView *titulos = m_rejilla->horizontalHeader();
    QRect lugar(QPoint(), m_todas->sizeHint());
    const QRect seccion(titulos->sectionViewportPosition(m_columna), 0, titulos->sectionSize(m_columna),
                        titulos->viewport()->height());
    lugar.moveCenter(seccion.center());
    m_todas->setGeometry(lugar);
}

void Marcas::alternar(int fila)
{
    if (fila < 1 || fila > m_rejilla->filasDatos())
        return;
    const bool marcada = m_rejilla->texto(fila, m_columna) == u"1";
    m_rejilla->setTexto(fila, m_columna, marcada ? u"0"_s : u"1"_s);
    m_cuantas += marcada ? -1 : 1;
    if (m_cuantas == 0)
        ponerTodas(false);
    else if (m_cuantas == m_rejilla->filasDatos())
        ponerTodas(true);
}

void Marcas::reiniciar()
{
    m_cuantas = 0;
    ponerTodas(false);
}

void Marcas::marcarTodas(bool marcadas)
{
    if (m_poniendo)
        return;
    m_rejilla->setTextoColumna(m_columna, marcadas ? u"1"_s : u"0"_s);
    m_cuantas = marcadas ? m_rejilla->filasDatos() : 0;
}

void Marcas::ponerTodas(bool marcadas)
{
    const QScopedValueRollback<bool> guarda(m_poniendo, true);
    m_todas->setChecked(marcadas);
}

} // namespace nv
