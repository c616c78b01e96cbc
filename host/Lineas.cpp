#include "Lineas.h"

#include "Formas.h"

#include <QKeyEvent>
#include <QPushButton>
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
    m_rejilla->setColumnas({{u"Código"_s, 1000, Qt::AlignRight},
                            {u"Descripción"_s, 5400, Qt::AlignLeft},
                            {u"Unidades"_s, 1000, Qt::AlignRight},
                            {u"Precio"_s, 1100, Qt::AlignRight},
                            {u"Importe"_s, 1200, Qt::AlignRight}});
    m_rejilla->alPulsar = [this](QKeyEvent *evento) { return alPulsar(*evento); };
    QFont grande = m_total->font();
    grande.setPointSizeF(grande.pointSizeF() * 1.9);
    grande.setBold(true);
    m_total->setFont(grande);
    m_leyenda->setWordWrap(true);
    auto *quitar = nombrado<QPushButton>(u"cmdQuitar"_s, u"&Quitar línea"_s);
    auto *limpiar = nombrado<QPushButton>(u"cmdVaciar"_s, u"&Vaciar"_s);
    auto *finalizar = nombrado<QPushButton>(u"cmdFinalizar"_s, u"&Finalizar"_s);
    auto *columna = new QVBoxLayout(this);
    columna->setContentsMargins(0, 0, 0, 0);
    columna->addWidget(m_rejilla, 1);
    columna->addLayout(enFila({m_irEnEspera, m_leyenda}));
    columna->addLayout(enFila({quitar, limpiar, finalizar, m_numero, nullptr, new QLabel(u"TOTAL"_s), m_total}));
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
    colorear(numero());
    m_rejilla->setFilaActual(numero());
    mostrarTotal();
}

void Lineas::anadir(const LineaArticulo &datos)
{
    anadir(linea(datos));
}

void Lineas::anadirEnEspera(const QString &leido, const QString &motivo)
{
    anadir(Linea{{{}, motivo + u": "_s + leido, u"1"_s, {}, {}}, {}, leido});
}

void Lineas::asentar(int fila, const LineaArticulo &datos)
{
    Linea &una = m_lineas[static_cast<std::size_t>(fila) - 1];
    una = linea(datos);
    for (int c = 0; c < static_cast<int>(una.celdas.size()); ++c)
        m_rejilla->setTexto(fila, c, una.celdas[static_cast<std::size_t>(c)]);
    colorear(fila);
    mostrarTotal();
}

void Lineas::colorear(int fila)
{
    m_rejilla->setColorFondo(fila, ColumnaDescripcion, leido(fila).isEmpty() ? QColor() : FondoEnEspera);
}

void Lineas::quitarActual()
{
    const int fila = m_rejilla->filaActual();
    if (fila < 1 || fila > numero())
        return;
    m_lineas.erase(m_lineas.begin() + fila - 1);
    m_rejilla->vaciar();
    for (int i = 1; i <= numero(); ++i) {
        m_rejilla->anadir(m_lineas[static_cast<std::size_t>(i) - 1].celdas);
        colorear(i);
    }
    if (numero() > 0)
        m_rejilla->setFilaActual(fila);
    mostrarTotal();
}

void Lineas::vaciar()
{
    m_lineas.clear();
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
