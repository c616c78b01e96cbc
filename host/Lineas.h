#pragma once

#include "nvArticulo/Moneda.h"
#include "platform/widgets/Rejilla.h"

class QLabel;
class QPushButton;

namespace mostrador {

using namespace nv;

/// A line with its item.
struct LineaArticulo
{
    QString codigo;
    QString descripcion;
    Moneda unidades;
    Moneda pvp;
    int decimalesPvp = 2;
};

/// The lines of the document, with their total and what is done to them. A line may wait for its item: it shows the code
/// as it was read.
class Lineas : public QWidget
{
    Q_OBJECT

public:
    explicit Lineas(QWidget *padre = nullptr);

    void anadir(const LineaArticulo &linea);
    /// A line that waits; `motivo` says in a word why.
    void anadirEnEspera(const QString &leido, const QString &motivo);
    /// One that waited is that of an item.
    void asentar(int fila, const LineaArticulo &linea);
    void quitarActual();
    void vaciar();

    Rejilla &rejilla() const { return *m_rejilla; }
    int numero() const { return static_cast<int>(m_lineas.size()); }
    Moneda total() const;
    /// What was read for a line that waits; empty for the others.
    QString leido(int fila) const;
    int enEspera() const;
    /// The first line from `desde` on that waits, else the first of all; 0 when none does.
    int siguienteEnEspera(int desde = 1) const;
    /// The focus on a line.
    void enfocar(int fila);
    /// Where a word about the lines that wait covers neither them nor what can be done.
    QWidget *lugarDeAviso() const;

Q_SIGNALS:
    void VaciadoPedido();
    void FinPedido();
    /// Enter on a line, or F3 to look for what it waits for.
    void ArticuloPedido(int fila, bool buscando);

private:
    struct Linea
    {
        FilaRejilla celdas;
        Moneda importe;
        QString leido; ///< while it waits
    };
    static Linea linea(const LineaArticulo &datos);
    void anadir(Linea linea);
    void marcar(int fila);
    bool alPulsar(const QKeyEvent &evento);
    void mostrarTotal();

    Rejilla *m_rejilla;
    QLabel *m_numero;
    QLabel *m_total;
    QLabel *m_leyenda;
    QPushButton *m_irEnEspera;
    std::vector<Linea> m_lineas;
};

} // namespace mostrador
