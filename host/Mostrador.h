#pragma once

#include "Base.h"
#include "Opciones.h"

#include <QHash>
#include <QMainWindow>

class QLabel;

namespace mostrador {

class Documento;
class PanelAjustes;
class PanelEstado;

/// The program: the document, and beside it what the component says and what it is set to. Works without a catalogue
/// too, so that one can be chosen.
class Mostrador : public QMainWindow
{
    Q_OBJECT

public:
    /// The options are borrowed.
    explicit Mostrador(const Opciones &opciones);
    ~Mostrador() override;

    /// The catalogue that the options ask for, and what else they do to it: what was imported, in words. Throw Error.
    void abrir();
    QString aplicarOpciones();
    /// Until the window is closed, or the script at its end; the program's exit status. With a script there is nobody
    /// to ask: what fails before it is thrown.
    int ejecutar();
    /// Null closes.
    void poner(std::unique_ptr<Base> base);
    /// Empty document, a new item box, what a script has set put back; with a model, that search model.
    void reiniciar(std::optional<int> modelo = {});

    Base &base() const { return *m_base; }
    const Documento &documento() const { return *m_documento; }

protected:
    void closeEvent(QCloseEvent *evento) override;

private:
    QWidget *crearLateral();
    bool ponerTemporal();
    void empezar();
    void elegirBase();
    void elegirServidor();
    int conGuion();
    void ponerAjuste(const QString &clave, const QString &valor);

    const Opciones &m_opciones;
    std::unique_ptr<Base> m_base;
    Documento *m_documento;
    PanelEstado *m_estado;
    PanelAjustes *m_ajustes;
    QLabel *m_rotuloBase;
    QHash<QString, QString> m_ajustesDelGuion; ///< former values of what the script has changed
};

} // namespace mostrador
