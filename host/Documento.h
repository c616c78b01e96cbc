#pragma once

#include "nvArticulo/Moneda.h"

#include <QWidget>
#include <optional>

class QCheckBox;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QPushButton;
class nvArticulo;
class nvTextBox;

namespace mostrador {

using namespace nv;

class Base;
class Lineas;
class SelectorCliente;

/// The document: customer and warehouse, the item box with its units and price, and the lines.
class Documento : public QWidget
{
    Q_OBJECT

public:
    explicit Documento(QWidget *padre = nullptr);
    ~Documento() override;

    /// Borrowed; null for none. Until `reiniciar` there is no item box.
    void setBase(Base *base);
    nvArticulo *articulo() const { return m_articulo; }
    const Lineas &lineas() const { return *m_lineas; }
    /// Empty, with an item box as at the start.
    void reiniciar();
    /// Another item box, set as the former one.
    void renovarArticulo();

Q_SIGNALS:
    void ArticuloNuevo(nvArticulo *articulo);
    /// The item box has something new to say.
    void Cambio();
    void Aviso(const QString &texto);

private:
    QLayout *cabecera();
    QWidget *entrada();
    void crearArticulo();
    static void retirar(nvArticulo *articulo);
    void cargarAlmacenes();
    void ponerContexto();

    void alTecla(qint16 codigo);
    void alResolver();
    void anadirVarios();
    void anadirActual();
    void anadir(const QString &codigo, const QString &descripcion, Moneda unidades);
    void vaciar();
    void siguienteArticulo();
    std::optional<Moneda> precio(const QString &codigo);

    Base *m_base = nullptr;
    SelectorCliente *m_cliente = nullptr;
    QComboBox *m_almacen = nullptr;
    QHBoxLayout *m_lugarArticulo = nullptr;
    QLabel *m_rotuloArticulo = nullptr;
    nvArticulo *m_articulo = nullptr;
    nvTextBox *m_unidades = nullptr;
    QLabel *m_precio = nullptr;
    QCheckBox *m_escaner = nullptr;
    QPushButton *m_anadir = nullptr;
    Lineas *m_lineas = nullptr;
    QString m_tecleado; ///< what Enter was pressed on
};

} // namespace mostrador
