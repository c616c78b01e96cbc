#include "search/frmBusqueda_Articulos_2_Listado.h"

#include "common/Error.h"
#include "platform/widgets/Twips.h"
#include "search/piezas/PunteroEspera.h"

#include <QHeaderView>
#include <QScopedValueRollback>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

/// Wide enough for that text also where letters are large.
void ensanchar(Rejilla &rejilla, int columna, const QString &texto)
{
    const int necesario = rejilla.fontMetrics().horizontalAdvance(texto) + twips::aPixeles(180, &rejilla);
    rejilla.setColumnWidth(columna, std::max(rejilla.columnWidth(columna), necesario));
}

} // namespace

ListadoPrecios::ListadoPrecios(Rejilla *rejilla)
    : QObject(rejilla)
    , m_rejilla(rejilla)
{
    const ColumnaRejilla oculta{{}, 0, Qt::AlignLeft, true};
    const ColumnaRejilla pvp{u"Tarifa"_s, 1000, Qt::AlignRight};
    m_rejilla->setColumnas({{{}, 300, Qt::AlignCenter},
                            {u"Código"_s, 800},
                            {u"Descripción"_s, 2000},
                            oculta,
                            oculta,
                            oculta,
                            {u"Cód. Barras"_s, 1400},
                            {u"Ref. Princip."_s, 1500},
                            pvp,
                            pvp,
                            pvp,
                            {u"Stock"_s, 800, Qt::AlignRight}});
    m_rejilla->setColumnaCasilla(Marca);
    m_rejilla->setEstirarUltima(false);
    ensanchar(*m_rejilla, CodigoBarras, QString(13, u'8'));
    ensanchar(*m_rejilla, Stock, u"Stock Alm 88"_s);
    // A wider window is for the descriptions.
    m_rejilla->horizontalHeader()->setSectionResizeMode(Descripcion, QHeaderView::Stretch);
    connect(m_rejilla, &Rejilla::TituloPulsado, this, &ListadoPrecios::ordenarPor);
    connect(m_rejilla, &Rejilla::Desplazada, this, [this](int antes, int ahora) {
        if (ahora > antes)
            CargarFilas(1);
    });
}

void ListadoPrecios::setTarifas(const Tarifas &tarifas)
{
    m_tarifas = tarifas;
    for (std::size_t i = 0; i < m_tarifas.size(); ++i)
        m_rejilla->setTitulo(Pvp1 + static_cast<int>(i), u"Tarifa "_s + QString::number(m_tarifas[i].codigo));
}

ListadoPrecios::Lugares ListadoPrecios::lugares(const Registros &registros)
{
    const auto lugar = [&registros](QStringView nombre) { return registros.columna(nombre); };
    return {{-1, lugar(u"Codigo"), lugar(u"Descripcion"), lugar(u"Familia_1"), lugar(u"Familia_2"), lugar(u"Familia_3"),
             lugar(u"Cod_Barras"), lugar(u"Ref")},
            {lugar(u"Pvp1_Num"), lugar(u"Pvp2_Num"), lugar(u"Pvp3_Num")},
            lugar(u"Stock_Actual"),
            lugar(u"Stock_Actual_Num")};
}

ListadoPrecios::Fila ListadoPrecios::leida(const Registros &registros, const Lugares &lugares) const
{
    Fila fila;
    fila.celdas.reserve(Stock + 1);
    fila.celdas.push_back(m_marcarNuevas ? u"1"_s : u"0"_s);
    for (std::size_t columna = Codigo; columna < lugares.textos.size(); ++columna)
        fila.celdas.push_back(registros.textoO(lugares.textos[columna]));
    for (std::size_t i = 0; i < m_tarifas.size(); ++i) {
        // Not from the text beside it: as a text an amount has two decimals, a tariff may have more.
        fila.importes[i] = registros.moneda(lugares.pvp[i]);
        fila.celdas.push_back(fila.importes[i].texto(m_tarifas[i].decimales));
    }
    fila.celdas.push_back(registros.textoNumero(lugares.stock));
    fila.importes.back() = registros.moneda(lugares.stockNumero);
    return fila;
}

std::vector<ListadoPrecios::Fila> ListadoPrecios::leer(Registros &registros, const Lugares &lugares, int maximo) const
{
    std::vector<Fila> filas;
    while ((maximo == 0 || static_cast<int>(filas.size()) < maximo) && registros.siguiente())
        filas.push_back(leida(registros, lugares));
    return filas;
}

void ListadoPrecios::mostrar(Registros registros)
{
    const Lugares donde = lugares(registros);
    std::vector<Fila> filas = leer(registros, donde, m_maximo);
    m_registros = std::move(registros);
    m_lugares = donde;
    m_orden.olvidarColumna();
    m_rejilla->horizontalHeader()->setSortIndicatorShown(false);
    const QScopedValueRollback<bool> guarda(m_anadiendo, true);
    m_importes.clear();
    m_rejilla->vaciar();
    anadir(std::move(filas));
}

void ListadoPrecios::anadir(std::vector<Fila> filas)
{
    std::vector<FilaRejilla> celdas;
    celdas.reserve(filas.size());
    for (Fila &fila : filas) {
        m_importes.insert(fila.celdas[Codigo], fila.importes);
        celdas.push_back(std::move(fila.celdas));
    }
    m_rejilla->setRedibujo(false);
    m_rejilla->anadir(std::move(celdas));
    m_rejilla->setRedibujo(true);
}

void ListadoPrecios::CargarFilas(int maximo)
{
    if (m_anadiendo || !m_registros.abierto())
        return;
    const QScopedValueRollback<bool> guarda(m_anadiendo, true);
    try {
        anadir(leer(m_registros, m_lugares, maximo));
    } catch (const Error &error) {
        m_registros.cerrar();
        Q_EMIT Fallo(error.descripcion);
    }
}

void ListadoPrecios::alPaginar()
{
    if (m_rejilla->filaActual() >= m_rejilla->filas() - m_maximo)
        CargarFilas(m_maximo);
}

void ListadoPrecios::alternarMarca(int fila)
{
    if (fila < 1)
        return;
    m_rejilla->setTexto(fila, Marca, m_rejilla->texto(fila, Marca) == Marcada ? u"0"_s : u"1"_s);
}

void ListadoPrecios::marcarTodas(bool marcadas)
{
    m_marcarNuevas = marcadas;
    m_rejilla->setRedibujo(false);
    m_rejilla->setTextoColumna(Marca, marcadas ? u"1"_s : u"0"_s);
    m_rejilla->setRedibujo(true);
}

void ListadoPrecios::ordenarPor(int columna)
{
    const PunteroEspera espera;
    const Qt::SortOrder sentido = m_orden.pulsar(columna);
    const int filas = m_rejilla->filasDatos();
    MenorFila menor;
    if (columna >= Pvp1) {
        std::vector<Moneda> importes;
        for (int fila = 1; fila <= filas; ++fila)
            importes.push_back(
                m_importes.value(m_rejilla->texto(fila, Codigo))[static_cast<std::size_t>(columna - Pvp1)]);
        menor = menorPorImporte(std::move(importes), sentido);
    } else {
        std::vector<QString> textos;
        for (int fila = 1; fila <= filas; ++fila)
            textos.push_back(m_rejilla->texto(fila, columna));
        menor = menorPorTexto(textos, sentido);
    }
    m_rejilla->ordenar([&menor](int a, int b) { return menor(a - 1, b - 1); });
    m_rejilla->horizontalHeader()->setSortIndicator(columna, sentido);
    m_rejilla->horizontalHeader()->setSortIndicatorShown(true);
}

} // namespace nv
