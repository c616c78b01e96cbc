#pragma once

#include "nvArticulo/Moneda.h"
#include "platform/widgets/Rejilla.h"

class QLabel;

namespace mostrador {

using namespace nv;

/// The lines of the document, with their total and what is done to them.
class Lineas : public QWidget
{
    Q_OBJECT

public:
    explicit Lineas(QWidget *padre = nullptr);

    void anadir(const QString &codigo, const QString &descripcion, Moneda unidades, Moneda pvp, int decimalesPvp);
    void quitarActual();
    void vaciar();

    Rejilla &rejilla() const { return *m_rejilla; }
    int numero() const { return static_cast<int>(m_filas.size()); }
    Moneda total() const;

Q_SIGNALS:
    void VaciadoPedido();

private:
    void mostrarTotal();

    Rejilla *m_rejilla;
    QLabel *m_numero;
    QLabel *m_total;
    std::vector<FilaRejilla> m_filas;
    std::vector<Moneda> m_importes; ///< of the same rows
};

} // namespace mostrador
