#include "search/piezas/FilasMarcadas.h"

#include "platform/widgets/Rejilla.h"
#include "platform/widgets/Teclas.h"
#include "platform/widgets/Twips.h"

#include <QAbstractItemModel>
#include <QCheckBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace nv {

FilasMarcadas::FilasMarcadas(Rejilla *rejilla, int columna, Signo signo)
    : QObject(rejilla)
    , m_rejilla(rejilla)
    , m_columna(columna)
    , m_signo(signo)
{
    if (signo == Signo::Casilla)
        rejilla->setColumnaCasilla(columna);
}

QString FilasMarcadas::texto(bool marcada) const
{
    if (m_signo == Signo::Equis)
        return marcada ? u"X"_s : QString();
    return marcada ? u"1"_s : u"0"_s;
}

bool FilasMarcadas::marcada(int fila) const
{
    return m_rejilla->texto(fila, m_columna) == texto(true);
}

void FilasMarcadas::setVisible(bool visible)
{
    m_rejilla->setColumnaOculta(m_columna, !visible);
}

int FilasMarcadas::cuantas() const
{
    int suma = static_cast<int>(m_conservadas.size());
    for (int fila = 1; fila < m_rejilla->filas(); ++fila)
        suma += marcada(fila) ? 1 : 0;
    return suma;
}

void FilasMarcadas::alternar(int fila)
{
    if (fila < 1 || fila > m_rejilla->filasDatos())
        return;
    m_rejilla->setTexto(fila, m_columna, texto(!marcada(fila)));
    Q_EMIT Cambiadas();
}

void FilasMarcadas::marcarTodas(bool marcadas, bool tambienNuevas)
{
    m_marcarNuevas = tambienNuevas && marcadas;
    m_rejilla->setRedibujo(false);
    m_rejilla->setTextoColumna(m_columna, texto(marcadas));
    m_rejilla->setRedibujo(true);
    m_conservadas.clear();
    Q_EMIT Cambiadas();
}

void FilasMarcadas::conservar(ColumnasEleccion columnas)
{
    m_columnas = columnas;
    const QAbstractItemModel *modelo = m_rejilla->model();
    connect(modelo, &QAbstractItemModel::modelAboutToBeReset, this, &FilasMarcadas::guardar);
    connect(modelo, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex &, int primera) { reponer(primera + 1); });
}

void FilasMarcadas::guardar()
{
    if (m_marcarNuevas)
        return; // a box marked them, not a hand
    for (int fila = 1; fila < m_rejilla->filas(); ++fila)
        if (marcada(fila))
            m_conservadas.emplace_back(m_rejilla->texto(fila, m_columnas.codigo),
                                       m_rejilla->texto(fila, m_columnas.descripcion));
}

void FilasMarcadas::reponer(int desde)
{
    for (int fila = desde; fila < m_rejilla->filas() && !m_conservadas.empty(); ++fila) {
        const auto es = [codigo = m_rejilla->texto(fila, m_columnas.codigo)](const auto &una) {
            return una.first == codigo;
        };
        if (std::erase_if(m_conservadas, es) > 0)
            m_rejilla->setTexto(fila, m_columna, texto(true));
    }
}

Eleccion FilasMarcadas::eleccion(ColumnasEleccion columnas) const
{
    Eleccion lista;
    for (const auto &[codigo, descripcion] : m_conservadas) {
        lista.codigo += u'|' + codigo;
        lista.descripcion += u'|' + descripcion;
    }
    for (int fila = 1; fila < m_rejilla->filas(); ++fila) {
        if (!marcada(fila))
            continue;
        lista.codigo += u'|' + m_rejilla->texto(fila, columnas.codigo);
        lista.descripcion += u'|' + m_rejilla->texto(fila, columnas.descripcion);
    }
    return lista;
}

CasillaTodas::CasillaTodas(Rejilla *rejilla, FilasMarcadas *marcadas)
    : QObject(rejilla)
    , m_rejilla(rejilla)
    , m_marcadas(marcadas)
    , m_casilla(new QCheckBox(rejilla->horizontalHeader()->viewport()))
{
    m_casilla->setObjectName(u"chkSelAll"_s);
    m_casilla->setAccessibleName(u"Marcar todos los artículos"_s);
    // A click leaves the focus in the list.
    m_casilla->setFocusPolicy(Qt::TabFocus);
    m_casilla->installEventFilter(this);
    m_casilla->adjustSize();
    m_casilla->hide();
    connect(m_casilla, &QCheckBox::toggled, marcadas, [marcadas](bool todas) { marcadas->marcarTodas(todas); });
    connect(marcadas, &FilasMarcadas::Cambiadas, this, &CasillaTodas::alMarcar);
    const QHeaderView *titulos = rejilla->horizontalHeader();
    connect(titulos, &QHeaderView::sectionResized, this, &CasillaTodas::colocar);
    connect(titulos, &QHeaderView::geometriesChanged, this, &CasillaTodas::colocar);
    connect(rejilla->horizontalScrollBar(), &QScrollBar::valueChanged, this, &CasillaTodas::colocar);
}

/// In the heading the form does not get to see the key, and the list would take it.
bool CasillaTodas::eventFilter(QObject *objeto, QEvent *evento)
{
    if (evento->type() != QEvent::KeyPress || !teclas::esIntro(*static_cast<QKeyEvent *>(evento)))
        return QObject::eventFilter(objeto, evento);
    m_casilla->click();
    return true;
}

int CasillaTodas::anchoColumna() const
{
    // Twice the box and its offset, which is its own width: so it stands above the ticks of the rows.
    return twips::dePixeles(3 * m_casilla->sizeHint().width(), m_rejilla);
}

void CasillaTodas::setVisible(bool visible)
{
    m_casilla->setVisible(visible);
    colocar();
}

/// In between it keeps what it shows.
void CasillaTodas::alMarcar()
{
    const int cuantas = m_marcadas->cuantas();
    if (cuantas == 0 || cuantas == m_rejilla->filasDatos())
        poner(cuantas != 0);
}

void CasillaTodas::poner(bool marcada)
{
    const QSignalBlocker sinMarcar(m_casilla);
    m_casilla->setChecked(marcada);
}

void CasillaTodas::colocar()
{
    const QHeaderView *titulos = m_rejilla->horizontalHeader();
    const int columna = m_marcadas->columna();
    QRect lugar(QPoint(), m_casilla->sizeHint());
    lugar.moveCenter(QRect(titulos->sectionViewportPosition(columna), 0, titulos->sectionSize(columna),
                           titulos->viewport()->height())
                         .center());
    m_casilla->setGeometry(lugar);
}

} // namespace nv
