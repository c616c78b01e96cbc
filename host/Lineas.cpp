#include "Lineas.h"

#include "Formas.h"

#include <QKeyEvent>
#include <QPushButton>
#include <numeric>

using namespace Qt::StringLiterals;

namespace mostrador {

using namespace formas;

Lineas::Lineas(QWidget *padre)
    : QWidget(padre)
    , m_rejilla(nombrado<Rejilla>(u"vsLineas"_s))
    , m_numero(nombrado<QLabel>(u"lblLineas"_s))
    , m_total(nombrado<QLabel>(u"lblTotal"_s))
{
    m_rejilla->setAccessibleName(u"Líneas del documento"_s);
    m_rejilla->setColumnas({{u"Código"_s, 1000, Qt::AlignRight},
                            {u"Descripción"_s, 5400, Qt::AlignLeft},
                            {u"Unidades"_s, 1000, Qt::AlignRight},
                            {u"Precio"_s, 1100, Qt::AlignRight},
                            {u"Importe"_s, 1200, Qt::AlignRight}});
    m_rejilla->alPulsar = [this](QKeyEvent *evento) {
        if (evento->key() != Qt::Key_Delete)
            return false;
        quitarActual();
        return true;
    };
    QFont grande = m_total->font();
    grande.setPointSizeF(grande.pointSizeF() * 1.9);
    grande.setBold(true);
    m_total->setFont(grande);
    auto *quitar = nombrado<QPushButton>(u"cmdQuitar"_s, u"&Quitar línea"_s);
    auto *limpiar = nombrado<QPushButton>(u"cmdVaciar"_s, u"&Vaciar"_s);
    auto *columna = new QVBoxLayout(this);
    columna->setContentsMargins(0, 0, 0, 0);
    columna->addWidget(m_rejilla, 1);
    columna->addLayout(enFila({quitar, limpiar, m_numero, nullptr, new QLabel(u"TOTAL"_s), m_total}));
    connect(quitar, &QPushButton::clicked, this, &Lineas::quitarActual);
    connect(limpiar, &QPushButton::clicked, this, &Lineas::VaciadoPedido);
    mostrarTotal();
}

void Lineas::anadir(const QString &codigo, const QString &descripcion, Moneda unidades, Moneda pvp, int decimalesPvp)
{
    // Units × price, rounded to the cent.
    const Moneda importe = pvp.porcentaje(Moneda::deDiezmilesimas(unidades.diezmilesimas() * 100), 2);
    m_importes.push_back(importe);
    m_filas.push_back({codigo, descripcion, unidades.textoCorto(), pvp.texto(decimalesPvp), importe.texto(2)});
    m_rejilla->anadir(m_filas.back());
    m_rejilla->setFilaActual(numero());
    mostrarTotal();
}

void Lineas::quitarActual()
{
    const int fila = m_rejilla->filaActual();
    if (fila < 1 || fila > numero())
        return;
    m_filas.erase(m_filas.begin() + fila - 1);
    m_importes.erase(m_importes.begin() + fila - 1);
    m_rejilla->vaciar();
    m_rejilla->anadir(m_filas);
    if (numero() > 0)
        m_rejilla->setFilaActual(fila);
    mostrarTotal();
}

void Lineas::vaciar()
{
    m_filas.clear();
    m_importes.clear();
    m_rejilla->vaciar();
    mostrarTotal();
}

Moneda Lineas::total() const
{
    return std::accumulate(m_importes.begin(), m_importes.end(), Moneda());
}

void Lineas::mostrarTotal()
{
    m_total->setText(total().textoAgrupado() + u" €"_s);
    m_numero->setText(numero() == 1 ? u"1 línea"_s : u"%1 líneas"_s.arg(numero()));
}

} // namespace mostrador
