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
struct LineaArticulo;
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
    /// Whether the lines may go: not while one waits for its item, and not without a question.
    bool puedeDejarse();
    /// A scan that came to another field, and one that begins where no text is typed.
    void leer(const QString &codigo);
    void empezar(const QString &caracteres);
    /// What the scanner sent to the box, which may be more than the box holds.
    void setRafaga(const QString &rafaga) { m_rafaga = rafaga; }

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

    void alTecla(qint16 &codigo);
    bool leidoSinPreguntar();
    void dejarEnEspera(const QString &leido, const QString &motivo, const QString &dicho);
    void alResolver();
    void pedirArticulo(int fila, bool buscando);
    void asentar(int fila, const QString &codigo, const QString &descripcion);
    void anadirVarios();
    bool alArticulo();
    bool anadirActual();
    std::optional<Moneda> unidadesEscritas();
    LineaArticulo linea(const QString &codigo, const QString &descripcion, Moneda unidades);
    QString descripcionActual() const;
    void pulsarEnCaja(Qt::Key tecla, const QString &texto);
    bool asentarActual();
    bool nadaEnEspera();
    void alVaciar();
    void finalizar();
    void vaciar();
    void siguienteArticulo();
    void decir(QWidget *campo, const QString &texto);
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
    QString m_rafaga;
    bool m_asignando = false; ///< the box works for a line that waits
};

} // namespace mostrador
