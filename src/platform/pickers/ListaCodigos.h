#pragma once

#include "platform/widgets/FormularioModal.h"
#include "platform/widgets/Rejilla.h"

#include <vector>

class nvTextBox;

namespace nv {

class Registros;

/// The list that a picker offers: codes and names, narrowed by what is typed on top. Enter or a double click takes the
/// current row, Esc none.
class ListaCodigos : public FormularioModal
{
    Q_OBJECT

public:
    ListaCodigos(const QString &titulo, bool numericos, QWidget *padre);

    /// Reads columns `Codigo` and `Nombre` to the end; the row of `actual` becomes current. Throws Error.
    void llenar(Registros &registros, const QString &actual);
    /// Returns once it has hidden itself.
    void MostrarModal() { ejecutar(); }
    /// The code taken; empty for none.
    QString elegido() const { return m_elegido; }

protected:
    void aceptar() override;
    bool eventFilter(QObject *objeto, QEvent *evento) override;

private:
    enum Columna { Codigo, Nombre };
    struct Entrada
    {
        FilaRejilla celdas;
        QString buscable;
    };
    void filtrar();
    void mover(QKeyEvent *evento);

    nvTextBox *m_filtro;
    Rejilla *m_lista;
    std::vector<Entrada> m_entradas;
    QString m_actual;
    QString m_elegido;
};

} // namespace nv
