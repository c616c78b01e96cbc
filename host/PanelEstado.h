#pragma once

#include "common/Conexion.h"

#include <QPointer>
#include <QWidget>
#include <vector>

class QLabel;
class QPlainTextEdit;
class nvArticulo;

namespace nv {

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
    void actualizar();
    void limpiarSentencias();

    void sentencia(const SucesoSentencia &suceso) override;

private:
    void mostrar();

    QPointer<nvArticulo> m_articulo;
    Conexion *m_conexion = nullptr;
    std::vector<QLabel *> m_valores;
    QPlainTextEdit *m_sentencias;
    QLabel *m_resumen;
    QStringList m_pendientes;
    qint64 m_numero = 0;
    bool m_previsto = false;
};

} // namespace nv
