#include "platform/widgets/Rejilla.h"

#include "platform/widgets/DelegadoRejilla.h"
#include "platform/widgets/ModeloRejilla.h"
#include "platform/widgets/TitulosRejilla.h"
#include "platform/widgets/Twips.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

constexpr int AnchoPorDefecto = 960; // twips
constexpr int MinimoElastica = 2000;

QPalette conFranjas(QPalette paleta)
{
    const QColor base = paleta.color(QPalette::Base);
    const QColor tinte = paleta.color(QPalette::Highlight);
    const auto mezcla = [](int a, int b) { return (a * 23 + b) / 24; };
    paleta.setColor(QPalette::AlternateBase,
                    QColor(mezcla(base.red(), tinte.red()), mezcla(base.green(), tinte.green()),
                           mezcla(base.blue(), tinte.blue())));
    return paleta;
}

} // namespace

Rejilla::Rejilla(QWidget *padre)
    : QTableView(padre)
    , m_modelo(new ModeloRejilla(this))
{
    setModel(m_modelo);
    setItemDelegate(new DelegadoRejilla(this));
    setPalette(conFranjas(palette()));
    setAlternatingRowColors(true);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerItem);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(1);
    ajustarAlto();
    QHeaderView *titulos = new TitulosRejilla(this);
    setHorizontalHeader(titulos);
    titulos->setDefaultAlignment(Qt::AlignCenter);
    titulos->setHighlightSections(false);
    titulos->setSectionsClickable(true);
    titulos->setMinimumSectionSize(twips::aPixeles(240, this));
    titulos->setTextElideMode(Qt::ElideRight);
    connect(titulos, &QHeaderView::sectionClicked, this, &Rejilla::TituloPulsado);
    connect(titulos, &QHeaderView::sectionResized, this, [this](int columna, int, int ancho) {
        if (!m_ajustando && columna == m_estirada)
            m_minimos[columna] = ancho;
        ajustarElastica();
    });
}

void Rejilla::setColumnas(const std::vector<ColumnaRejilla> &columnas)
{
    const int actual = filaActual();
    m_modelo->setColumnas(columnas);
    m_estirada = -1;
    m_minimos.clear();
    {
        // The width left is shared out once all the columns are there.
        const QScopedValueRollback<bool> guarda(m_ajustando, true);
        for (int c = 0; c < m_modelo->columnCount(); ++c) {
            setColumnHidden(c, m_modelo->columna(c).oculta);
            setColumnWidth(c, anchoPrevisto(c));
        }
    }
    {
        const QScopedValueRollback<bool> guarda(m_sinAvisos, true);
        updateGeometries();
    }
    olvidarFilas(actual);
}

void Rejilla::setTitulo(int columna, const QString &titulo)
{
    m_modelo->setTitulo(columna, titulo);
}

void Rejilla::setColumnaOculta(int columna, bool oculta)
{
    {
        // The header tells of the resize before the column counts as hidden: the width left is shared out afterwards.
        const QScopedValueRollback<bool> guarda(m_ajustando, true);
        setColumnHidden(columna, oculta);
    }
    updateGeometries();
}

void Rejilla::ensanchar(int columna, const QString &texto)
{
    const int necesario = fontMetrics().horizontalAdvance(texto) + twips::aPixeles(180, this);
    if (necesario <= anchoPrevisto(columna))
        return;
    m_minimos[columna] = necesario;
    setColumnWidth(columna, necesario);
}

void Rejilla::setColumnaCasilla(int columna)
{
    m_modelo->setCasilla(columna);
}

void Rejilla::setElastica(int columna)
{
    m_elastica = columna;
    ajustarElastica();
}

int Rejilla::anchoPrevisto(int columna) const
{
    const int ancho = m_modelo->columna(columna).twips;
    const auto minimo = m_minimos.find(columna);
    return std::max(twips::conLetra(ancho > 0 ? ancho : AnchoPorDefecto, this),
                    minimo == m_minimos.end() ? 0 : minimo->second);
}

void Rejilla::ajustarElastica()
{
    if (m_ajustando)
        return;
    const QScopedValueRollback<bool> guarda(m_ajustando, true);
    int elastica = m_elastica;
    for (int c = 0; m_elastica < 0 && c < m_modelo->columnCount(); ++c)
        if (!isColumnHidden(c))
            elastica = c;
    if (m_estirada != elastica && m_estirada >= 0 && m_estirada < m_modelo->columnCount() &&
        !isColumnHidden(m_estirada))
        setColumnWidth(m_estirada, anchoPrevisto(m_estirada));
    m_estirada = elastica;
    if (elastica < 0 || elastica >= m_modelo->columnCount())
        return;
    const int ocupado = horizontalHeader()->length() - columnWidth(elastica);
    setColumnWidth(elastica, std::max(minimoElastica(), viewport()->width() - ocupado));
}

/// Where there is not room for all, a chosen column gives some of its own before another is out of sight.
int Rejilla::minimoElastica() const
{
    const int previsto = anchoPrevisto(m_estirada);
    if (m_elastica < 0 || m_minimos.contains(m_elastica))
        return previsto;
    return std::max(previsto * 3 / 5, std::min(previsto, twips::conLetra(MinimoElastica, this)));
}

void Rejilla::ajustarAlto()
{
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + twips::aPixeles(90, this));
}

void Rejilla::changeEvent(QEvent *evento)
{
    QTableView::changeEvent(evento);
    if (evento->type() == QEvent::FontChange && m_modelo) {
        ajustarAlto();
        const QScopedValueRollback<bool> guarda(m_ajustando, true);
        for (int c = 0; c < m_modelo->columnCount(); ++c)
            if (!isColumnHidden(c))
                setColumnWidth(c, anchoPrevisto(c));
    }
}

int Rejilla::filas() const
{
    return m_modelo->rowCount() + 1;
}

int Rejilla::filaActual() const
{
    return currentIndex().row() + 1;
}

void Rejilla::setFilaActual(int fila)
{
    fila = std::clamp(fila, 0, filasDatos());
    if (fila == 0) {
        selectionModel()->clear();
        return;
    }
    const QModelIndex indice = m_modelo->index(fila - 1, primeraVisible());
    // Whoever hears of the new row may show a box, and the window may go meanwhile.
    const QPointer<Rejilla> viva(this);
    selectionModel()->setCurrentIndex(indice, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    if (viva)
        scrollTo(indice);
}

int Rejilla::primeraVisible() const
{
    int columna = 0;
    while (columna + 1 < m_modelo->columnCount() && isColumnHidden(columna))
        ++columna;
    return columna;
}

int Rejilla::filaSuperior() const
{
    return filasDatos() == 0 ? 0 : std::min(verticalScrollBar()->value() + 1, filasDatos());
}

QString Rejilla::texto(int fila, int columna) const
{
    if (fila == 0)
        return m_modelo->headerData(columna, Qt::Horizontal, Qt::DisplayRole).toString();
    return m_modelo->texto(fila - 1, columna);
}

void Rejilla::setTexto(int fila, int columna, const QString &texto)
{
    if (fila == 0)
        m_modelo->setTitulo(columna, texto);
    else
        m_modelo->setTexto(fila - 1, columna, texto);
}

void Rejilla::setTextoColumna(int columna, const QString &texto)
{
    m_modelo->setTextoColumna(columna, texto);
}

void Rejilla::setColorTexto(int fila, int columna, const QColor &color)
{
    m_modelo->setColor(fila - 1, columna, ModeloRejilla::Capa::Texto, color);
}

void Rejilla::setColorFondo(int fila, int columna, const QColor &color)
{
    m_modelo->setColor(fila - 1, columna, ModeloRejilla::Capa::Fondo, color);
}

void Rejilla::setNota(int fila, const QString &nota)
{
    m_modelo->setNota(fila - 1, nota);
}

void Rejilla::vaciar()
{
    const int actual = filaActual();
    const QScopedValueRollback<bool> guarda(m_sinAvisos, true);
    m_modelo->vaciar();
    olvidarFilas(actual);
}

void Rejilla::olvidarFilas(int actual)
{
    m_superior = 0;
    if (actual != 0)
        Q_EMIT FilaCambiada(0);
}

void Rejilla::anadir(FilaRejilla fila)
{
    std::vector<FilaRejilla> filas;
    filas.push_back(std::move(fila));
    anadir(std::move(filas));
}

void Rejilla::anadir(std::vector<FilaRejilla> filas)
{
    const QScopedValueRollback<bool> guarda(m_sinAvisos, true);
    m_modelo->anadir(std::move(filas));
    m_superior = filaSuperior();
}

void Rejilla::setRedibujo(bool activo)
{
    m_sinRedibujo = std::max(0, m_sinRedibujo + (activo ? -1 : 1));
    viewport()->setUpdatesEnabled(m_sinRedibujo == 0);
}

void Rejilla::ordenar(const std::function<bool(int, int)> &menor)
{
    const QScopedValueRollback<bool> guarda(m_sinAvisos, true);
    m_modelo->ordenar([&menor](int a, int b) { return menor(a + 1, b + 1); });
    if (currentIndex().isValid())
        scrollTo(currentIndex());
    m_superior = filaSuperior();
}

void Rejilla::updateGeometries()
{
    // Before the bars are reckoned: a column stretched to the former width would bring up a needless one.
    ajustarElastica();
    QTableView::updateGeometries();
}

void Rejilla::currentChanged(const QModelIndex &actual, const QModelIndex &anterior)
{
    QTableView::currentChanged(actual, anterior);
    horizontalHeader()->viewport()->update();
    if (actual.row() != anterior.row())
        Q_EMIT FilaCambiada(actual.row() + 1);
}

void Rejilla::scrollContentsBy(int dx, int dy)
{
    QTableView::scrollContentsBy(dx, dy);
    if (dy == 0 || m_sinAvisos)
        return;
    const int antes = m_superior;
    m_superior = filaSuperior();
    if (m_superior == antes)
        return;
    // The dialog appends rows from here: what that scrolls is not told again.
    const QScopedValueRollback<bool> guarda(m_sinAvisos, true);
    Q_EMIT Desplazada(antes, m_superior);
    m_superior = filaSuperior();
}

} // namespace nv
