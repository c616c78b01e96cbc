#include "Lineas.h"

#include "Formas.h"
#include "platform/widgets/Aviso.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QScrollBar>
#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace mostrador {

using namespace formas;

constexpr int ColumnaDescripcion = 1;
constexpr QColor FondoEnEspera(255, 224, 130);

Lineas::Lineas(QWidget *padre)
    : QWidget(padre)
    , m_rejilla(nombrado<Rejilla>(u"vsLineas"_s))
    , m_numero(nombrado<QLabel>(u"lblLineas"_s))
    , m_total(nombrado<QLabel>(u"lblTotal"_s))
    , m_leyenda(
          nombrado<QLabel>(u"lblEnEspera"_s, u"Sin artículo: Enter lo asigna, F3 lo busca, Supr quita la línea."_s))
    , m_irEnEspera(nombrado<QPushButton>(u"cmdEnEspera"_s, u"Si&n artículo"_s))
{
    m_rejilla->setAccessibleName(u"Líneas del documento"_s);
    // The amounts are seen whole, where letters are large too; the description takes what is left.
    m_rejilla->setColumnas({{u"Código"_s, 1000, Qt::AlignRight},
                            {u"Descripción"_s, 1800, Qt::AlignLeft},
                            {u"Unidades"_s, 1000, Qt::AlignRight},
                            {u"Precio"_s, 1100, Qt::AlignRight},
                            {u"Importe"_s, 1200, Qt::AlignRight}});
    int columna = 0;
    int ancho = 0;
    for (const QString &muestra :
         {u"99999999"_s, u"Sin artículo: /84"_s, u"Unidades"_s, u"9.999,99"_s, u"99.999,99"_s}) {
        m_rejilla->ensanchar(columna, muestra);
        ancho += m_rejilla->columnWidth(columna++);
    }
    m_rejilla->setElastica(ColumnaDescripcion);
    m_rejilla->setMinimumWidth(ancho + m_rejilla->verticalScrollBar()->sizeHint().width() + 4);
    m_rejilla->alPulsar = [this](QKeyEvent *evento) { return alPulsar(*evento); };
    QFont grande = m_total->font();
    grande.setPointSizeF(grande.pointSizeF() * 1.9);
    grande.setBold(true);
    m_total->setFont(grande);
    m_leyenda->setWordWrap(true);
    auto *quitar = nombrado<QPushButton>(u"cmdQuitar"_s, u"&Quitar línea"_s);
    auto *limpiar = nombrado<QPushButton>(u"cmdVaciar"_s, u"&Vaciar"_s);
    auto *finalizar = nombrado<QPushButton>(u"cmdFinalizar"_s, u"&Finalizar"_s);
    m_leyenda->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    auto *todo = new QVBoxLayout(this);
    todo->setContentsMargins(0, 0, 0, 0);
    todo->addWidget(m_rejilla, 1);
    todo->addLayout(enFila({m_irEnEspera, m_leyenda}));
    todo->addLayout(enFila({m_numero, nullptr, new QLabel(u"TOTAL"_s), m_total}));
    todo->addLayout(enFila({quitar, limpiar, nullptr, finalizar}));
    connect(quitar, &QPushButton::clicked, this, &Lineas::quitarActual);
    connect(limpiar, &QPushButton::clicked, this, &Lineas::VaciadoPedido);
    connect(finalizar, &QPushButton::clicked, this, &Lineas::FinPedido);
    connect(m_irEnEspera, &QPushButton::clicked, this, [this] { enfocar(siguienteEnEspera()); });
    connect(m_rejilla, &Rejilla::Intro, this, [this] { Q_EMIT ArticuloPedido(m_rejilla->filaActual(), false); });
    connect(m_rejilla, &Rejilla::DobleClic, this, [this](int fila) { Q_EMIT ArticuloPedido(fila, false); });
    mostrarTotal();
}

bool Lineas::alPulsar(const QKeyEvent &evento)
{
    if (evento.key() == Qt::Key_Delete)
        quitarActual();
    else if (evento.key() == Qt::Key_F3)
        Q_EMIT ArticuloPedido(m_rejilla->filaActual(), true);
    else
        return false;
    return true;
}

Lineas::Linea Lineas::linea(const LineaArticulo &datos)
{
    // Units × price, rounded to the cent.
    const Moneda importe = datos.pvp.porcentaje(Moneda::deDiezmilesimas(datos.unidades.diezmilesimas() * 100), 2);
    return {{datos.codigo, datos.descripcion, datos.unidades.textoCorto(), datos.pvp.texto(datos.decimalesPvp),
             importe.texto(2)},
            importe,
            {}};
}

void Lineas::anadir(Linea linea)
{
    m_lineas.push_back(std::move(linea));
    m_rejilla->anadir(m_lineas.back().celdas);
    marcar(numero());
    m_rejilla->setFilaActual(numero());
    mostrarTotal();
}

void Lineas::anadir(const LineaArticulo &datos)
{
    anadir(linea(datos));
}

void Lineas::anadirEnEspera(const QString &leido, const QString &motivo)
{
    anadir(Linea{{{}, motivo + u": "_s + leido, {}, {}, {}}, {}, leido});
}

void Lineas::asentar(int fila, const LineaArticulo &datos)
{
    Linea &una = m_lineas[static_cast<std::size_t>(fila) - 1];
    una = linea(datos);
    for (int c = 0; c < static_cast<int>(una.celdas.size()); ++c)
        m_rejilla->setTexto(fila, c, una.celdas[static_cast<std::size_t>(c)]);
    marcar(fila);
    mostrarTotal();
}

/// What waits is seen by more than its colour: its word and the whole code take the place of the amounts.
void Lineas::marcar(int fila)
{
    const bool espera = !leido(fila).isEmpty();
    const int columnas = espera ? m_rejilla->model()->columnCount() - ColumnaDescripcion : 1;
    if (columnas != m_rejilla->columnSpan(fila - 1, ColumnaDescripcion))
        m_rejilla->setSpan(fila - 1, ColumnaDescripcion, 1, columnas);
    m_rejilla->setColorFondo(fila, ColumnaDescripcion, espera ? FondoEnEspera : QColor());
    m_rejilla->setColorTexto(fila, ColumnaDescripcion, espera ? QColor(Qt::black) : QColor());
}

void Lineas::quitarActual()
{
    const int fila = m_rejilla->filaActual();
    if (fila < 1 || fila > numero())
        return nv::Aviso::mostrar(m_rejilla, u"No hay ninguna línea elegida."_s);
    m_lineas.erase(m_lineas.begin() + fila - 1);
    m_rejilla->clearSpans();
    m_rejilla->vaciar();
    for (int i = 1; i <= numero(); ++i) {
        m_rejilla->anadir(m_lineas[static_cast<std::size_t>(i) - 1].celdas);
        marcar(i);
    }
    if (numero() > 0)
        m_rejilla->setFilaActual(fila);
    mostrarTotal();
}

void Lineas::vaciar()
{
    m_lineas.clear();
    m_rejilla->clearSpans();
    m_rejilla->vaciar();
    mostrarTotal();
}

Moneda Lineas::total() const
{
    return std::accumulate(m_lineas.begin(), m_lineas.end(), Moneda(),
                           [](Moneda suma, const Linea &una) { return suma + una.importe; });
}

QString Lineas::leido(int fila) const
{
    return fila < 1 || fila > numero() ? QString() : m_lineas[static_cast<std::size_t>(fila) - 1].leido;
}

int Lineas::enEspera() const
{
    return static_cast<int>(
        std::count_if(m_lineas.begin(), m_lineas.end(), [](const Linea &una) { return !una.leido.isEmpty(); }));
}

int Lineas::siguienteEnEspera(int desde) const
{
    for (int i = 0; i < numero(); ++i) {
        const int fila = (desde - 1 + i) % numero() + 1;
        if (!leido(fila).isEmpty())
            return fila;
    }
    return 0;
}

void Lineas::enfocar(int fila)
{
    m_rejilla->setFilaActual(fila);
    m_rejilla->setFocus();
}

QWidget *Lineas::lugarDeAviso() const
{
    return enEspera() > 0 ? static_cast<QWidget *>(m_irEnEspera) : m_rejilla;
}

void Lineas::mostrarTotal()
{
    const int esperan = enEspera();
    m_total->setText(total().textoAgrupado() + u" €"_s);
    m_numero->setText((numero() == 1 ? u"1 línea"_s : u"%1 líneas"_s.arg(numero())) +
                      (esperan > 0 ? u", %1 sin artículo"_s.arg(esperan) : QString()));
    m_irEnEspera->setVisible(esperan > 0);
    m_leyenda->setVisible(esperan > 0);
}

} // namespace mostrador
