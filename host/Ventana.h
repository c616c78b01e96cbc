#pragma once

#include "common/Moneda.h"

#include <QHash>
#include <QMainWindow>
#include <optional>

class QComboBox;
class QHBoxLayout;
class QLabel;
class QPushButton;
class nvArticulo;
class nvTextBox;

namespace nv {

class Base;
class PanelAjustes;
class PanelEstado;
class Rejilla;
class SelectorCliente;

/// The point of sale: a document with the item box in the middle, and beside it what the component says and what it is
/// set to. Works without a catalogue too, so that one can be chosen.
class Ventana : public QMainWindow
{
    Q_OBJECT

public:
    explicit Ventana(QWidget *padre = nullptr);
    ~Ventana() override;

    /// Borrowed; null closes. Between two catalogues it must be closed and the former one gone: the first connection
    /// handed to an item box serves all of them for as long as it lives.
    void setBase(Base *base);
    /// The item box; another one after `reiniciar` and after a change that it keeps for its life.
    nvArticulo &articulo() const { return *m_articulo; }
    /// Empty document, a new item box as at the start; with a model, that search model.
    void reiniciar(std::optional<int> modelo = {});
    /// A company setting changed from outside the window.
    void ponerAjuste(const QString &clave, const QString &valor);
    /// Gives the settings that `ponerAjuste` changed their former values.
    void deshacerAjustes();
    /// The panel shows again what box and company are set to.
    void releerAjustes();

    int lineas() const;
    Moneda total() const { return m_total; }

Q_SIGNALS:
    void AbrirPedido();    ///< the user wants another catalogue
    void TemporalPedida(); ///< … or a fresh temporary one

private:
    QWidget *crearDocumento();
    QWidget *crearCabecera();
    QWidget *crearEntrada();
    QWidget *crearPie();
    QWidget *crearLateral();
    void crearMenu();
    void crearArticulo();
    void renovarArticulo();
    static void retirar(nvArticulo *articulo);
    void cargarAlmacenes();
    void elegirAlmacen();

    void alTecla(qint16 codigo);
    void alResolver();
    void alBuscar();
    void anadirVarios();
    void anadir(const QString &codigo, const QString &descripcion, Moneda unidades);
    void anadirActual();
    void quitarLinea();
    void vaciar();
    void siguienteArticulo();
    std::optional<Moneda> precio(const QString &codigo);
    void mostrarPrecio();
    void actualizarTotal();
    void avisar(const QString &texto);

    Base *m_base = nullptr;
    SelectorCliente *m_cliente = nullptr;
    QComboBox *m_almacen = nullptr;
    QHBoxLayout *m_lugarArticulo = nullptr;
    QLabel *m_tituloArticulo = nullptr;
    nvArticulo *m_articulo = nullptr;
    nvTextBox *m_unidades = nullptr;
    QLabel *m_precio = nullptr;
    QPushButton *m_anadir = nullptr;
    Rejilla *m_lineas = nullptr;
    QLabel *m_totalRotulo = nullptr;
    QLabel *m_contador = nullptr;
    PanelEstado *m_estado = nullptr;
    PanelAjustes *m_ajustes = nullptr;
    QWidget *m_documento = nullptr;
    QHash<QString, QString> m_ajustesDelGuion; ///< former values
    Moneda m_total;
    qint16 m_tarifa = 0;
    QString m_tecleado; ///< what Enter was pressed on
};

} // namespace nv
