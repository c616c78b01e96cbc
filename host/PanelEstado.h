#pragma once

#include "nvArticulo/Conexion.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>

class QLabel;
class QPlainTextEdit;
class nvArticulo;

namespace mostrador {

using namespace nv;

/// What the item box says of itself, and the statements as they go out with their times. Shown once the event in hand
/// is over, so that watching costs the component nothing.
class PanelEstado : public QWidget, public OyenteSentencias
{
    Q_OBJECT

public:
    explicit PanelEstado(QWidget *padre = nullptr);
    ~PanelEstado() override;

    /// Both borrowed; null to look at none.
    void setConexion(Conexion *conexion);
    void setArticulo(nvArticulo *articulo);
    /// Soon, once for many calls.
    void actualizar() { m_pronto.start(0); }
    void limpiarSentencias();

    void sentencia(const SucesoSentencia &suceso) override;

private:
    QWidget *grupoComponente();
    void mostrar();

    QPointer<nvArticulo> m_articulo;
    Conexion *m_conexion = nullptr;
    QList<QLabel *> m_valores; ///< each under the accessible name of its property
    QPlainTextEdit *m_sentencias;
    QLabel *m_resumen;
    QStringList m_pendientes;
    qint64 m_numero = 0;
    QTimer m_pronto;
};

} // namespace mostrador
