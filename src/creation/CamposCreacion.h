#pragma once

#include "creation/AltaArticulo.h"
#include "platform/widgets/Mensajes.h"

class QComboBox;
class QFormLayout;
class QLabel;
class QWidget;
class nvCheckBox;
class nvMarca;
class nvProveedor;
class nvTemporada;
class nvTextBox;

namespace nv {

class CascadaFamilias;
class SelectorCodigo;

/// The fields of the creation form. All of them are the form's own children; made in this order, which is the tab order:
/// what the descriptions are composed from comes before them.
class CamposCreacion
{
public:
    explicit CamposCreacion(QWidget *formulario);

    nvTextBox *codigo;
    nvProveedor *proveedor;
    nvTextBox *referencia;
    nvMarca *marca;
    nvTemporada *temporada;
    nvTextBox *impuesto;
    QLabel *porcentaje; ///< of the tax
    CascadaFamilias *familias;
    std::array<QComboBox *, 2> cualidades; ///< X and Y; the first row stands for "not chosen"
    nvCheckBox *sinSerieEan;
    nvCheckBox *unidadesDecimales;
    nvTextBox *barras;
    nvTextBox *descripcion;
    nvTextBox *ticket;

    QFormLayout *disposicion() const { return m_disposicion; }
    QWidget *campo(CampoCreacion cual) const;
    FichaAlta ficha() const;
    CamposDescripcion paraDescripcion() const;

    /// All fields but the qualities, and the labels as the company calls them. A name that cannot be looked up is missing
    /// on screen and no more. Throws Error.
    void poner(const DatosCreacion &datos, ::cEmpresa &empresa, Conexion &conexion, mensajes::Fallos &fallos);
    /// Fills both lists from `Cualidades` and chooses; a code that is not there chooses nothing. Throws Error.
    void llenarCualidades(Conexion &conexion, const std::array<qint16, 2> &elegidas);
    /// Beside the tax box. Throws Error.
    void mostrarPorcentaje(const ::cEmpresa &empresa);
    /// The pickers, whose codes should exist.
    struct Existente
    {
        SelectorCodigo *selector;
        QString nombre;               ///< "La marca", in front of its code
        std::optional<qint64> maximo; ///< highest code that there can be; a text has none
    };
    std::vector<Existente> existentes(const ::cEmpresa &empresa) const;
    /// Empties them for the next item; brand and season stay. A list whose `Tag` has a "2" in fourth place keeps what is
    /// chosen.
    void Limpiar_Controles();

private:
    void crear(QWidget *formulario);
    void colocar(QWidget *formulario);
    void ponerFamilias(const DatosCreacion &datos, ::cEmpresa &empresa, Conexion &conexion, mensajes::Fallos &fallos);
    /// The tax box's number.
    QString textoImpuesto() const;

    std::array<QLabel *, 2> m_rotulosCualidad;
    QFormLayout *m_disposicion;
};

} // namespace nv
