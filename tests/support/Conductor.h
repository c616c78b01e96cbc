#pragma once

#include <QElapsedTimer>
#include <QMessageBox>
#include <QPointer>
#include <QStringList>
#include <QTimer>
#include <deque>
#include <functional>
#include <vector>

namespace nv::pruebas {

/// A message box as it was shown.
struct CajaVista
{
    QString titulo;
    QString texto;
    QMessageBox::Icon icono;
    QStringList botones; ///< captions without "&"
};

/// Drives modal windows in a test: queue the steps, run what opens the windows, look whether it is `terminado`. A step
/// runs from a fresh turn of the event loop once the window that it names is the active modal one, so it may open
/// further modal windows, which the next steps drive. When a modal window is up and no step can run for `plazo`
/// milliseconds, the test fails with what was on screen and every modal window is closed: nothing hangs.
class Conductor : public QObject
{
    Q_OBJECT

public:
    explicit Conductor(int plazo = 3000);
    /// Fails the test when steps are left.
    ~Conductor() override;

    /// When a modal window of this class is the active one.
    template <class Ventana>
    Conductor &con(std::function<void(Ventana &)> accion)
    {
        m_pasos.push_back({[](QWidget *w) { return dynamic_cast<Ventana *>(w) != nullptr; },
                           [accion = std::move(accion)](QWidget *w) { accion(dynamic_cast<Ventana &>(*w)); }});
        m_desdeAvance.restart();
        return *this;
    }
    /// When a message box is up: presses the button of this caption ("Sí", "No", "Aceptar").
    Conductor &responde(const QString &boton);

    bool terminado() const { return m_pasos.empty() && !m_fallido; }
    /// Every message box shown in this Conductor's life.
    const std::vector<CajaVista> &cajas() const { return m_cajas; }

protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override;

private:
    struct Paso
    {
        std::function<bool(QWidget *)> cuando;
        std::function<void(QWidget *)> accion;
    };
    void mirar();
    void fallar(const QString &motivo);

    int m_plazo;
    QTimer m_reloj;
    QElapsedTimer m_desdeAvance;
    QPointer<QWidget> m_ultimaModal;
    std::deque<Paso> m_pasos;
    std::vector<CajaVista> m_cajas;
    bool m_enMarcha = false; ///< a step is on its way
    bool m_fallido = false;
};

/// A key as the window system queues it, press and release: nothing is delivered before the event loop turns.
void encolarTecla(QWidget *ventana, Qt::Key tecla, const QString &texto = {});
/// The characters of a scanner and its Enter, queued in one go.
void encolarLectura(QWidget *ventana, const QString &codigo);
/// Types any characters into the widget at once (QTest::keyClicks takes only ASCII).
void teclear(QWidget *widget, const QString &texto);

} // namespace nv::pruebas
