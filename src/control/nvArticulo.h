#pragma once

#include "common/ContratoBusqueda.h"

#include <QFont>
#include <QVariant>
#include <QWidget>
#include <array>
#include <memory>
#include <optional>

class QLabel;
class cEmpresa;

namespace nv {
class BolsaPropiedades;
class CajaCodigo;
class Conexion;
class Consultas;
class Dialogos;
enum class ClaseEntrada;
struct ValoresCreacion;
} // namespace nv

/// Item box: a code box (`txtCodigo`) with the item's description beside it (`lblNombre`), placed wherever a user must
/// name an item. The user types an item code, ".reference", "*customer reference", "+PLU", "/barcode" or "-barcode", a
/// barcode, or words; Enter resolves it, F3 searches.
///
/// The host owns it as it owns any widget, hands in the company context and the connection (both borrowed; the first
/// connection handed to any instance serves all), places it at least 1380 twips wide, and reads `Codigo` once `Existe`.
/// Everything runs on the user-interface thread; errors are shown, never thrown out of an event.
class nvArticulo : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(int Appearance READ Appearance WRITE setAppearance)
    Q_PROPERTY(eFormsFichas TipoFicha READ TipoFicha WRITE setTipoFicha)
    Q_PROPERTY(int KeyFichaArt READ KeyFichaArt WRITE setKeyFichaArt)
    Q_PROPERTY(bool Vital READ Vital WRITE setVital)
    Q_PROPERTY(bool Inicial READ Inicial WRITE setInicial)
    Q_PROPERTY(QString Nombre READ Nombre STORED false)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)
    Q_PROPERTY(QFont Font READ Font WRITE setFont)
    Q_PROPERTY(int MaxLength READ MaxLength STORED false)
    Q_PROPERTY(bool CausesValidation READ CausesValidation WRITE setCausesValidation)
    Q_PROPERTY(bool KeyUpChangeFocus READ KeyUpChangeFocus WRITE setKeyUpChangeFocus)
    Q_PROPERTY(bool KeyEnterChangeFocus READ KeyEnterChangeFocus WRITE setKeyEnterChangeFocus)
    Q_PROPERTY(bool Locked READ Locked WRITE setLocked)
    Q_PROPERTY(QString Text READ Text WRITE setText)
    Q_PROPERTY(QString ToolTipText READ ToolTipText WRITE setToolTipText)
    Q_PROPERTY(int Proveedor READ Proveedor WRITE setProveedor DESIGNABLE false STORED false)
    Q_PROPERTY(QString Value READ Codigo WRITE setCodigo DESIGNABLE false STORED false)
    Q_PROPERTY(QString Codigo READ Codigo WRITE setCodigo DESIGNABLE false STORED false USER true)
    Q_PROPERTY(bool Existe READ Existe STORED false)
    Q_PROPERTY(bool TieneCualidad READ TieneCualidad STORED false)
    Q_PROPERTY(int Valor_CualidadX READ Valor_CualidadX STORED false)
    Q_PROPERTY(int Valor_CualidadY READ Valor_CualidadY STORED false)
    Q_PROPERTY(QString Nombre_CualidadX READ Nombre_CualidadX STORED false)
    Q_PROPERTY(QString Nombre_CualidadY READ Nombre_CualidadY STORED false)
    Q_PROPERTY(QString MultiCodigo READ MultiCodigo STORED false)
    Q_PROPERTY(QString MultiDescripcion READ MultiDescripcion STORED false)
    Q_PROPERTY(bool DejarEnBlanco MEMBER DejarEnBlanco)
    Q_PROPERTY(int Cliente MEMBER Cliente DESIGNABLE false STORED false)
    Q_PROPERTY(short Familia_1 MEMBER Familia_1 DESIGNABLE false STORED false)
    Q_PROPERTY(short Familia_2 MEMBER Familia_2 DESIGNABLE false STORED false)
    Q_PROPERTY(short Familia_3 MEMBER Familia_3 DESIGNABLE false STORED false)
    Q_PROPERTY(bool MultiResultado MEMBER MultiResultado DESIGNABLE false STORED false)
    Q_PROPERTY(short AlmacenStock MEMBER AlmacenStock DESIGNABLE false STORED false)
    Q_PROPERTY(bool SeleccionarTodo MEMBER SeleccionarTodo DESIGNABLE false STORED false)
    Q_PROPERTY(bool GuardarBusqueda MEMBER GuardarBusqueda DESIGNABLE false STORED false)

public:
    enum eFormsFichas { FichaArticulos = 0, FichaArticulos_Mini = 1, FichaArticulos_Mini_1 = 2 };
    Q_ENUM(eFormsFichas)

    explicit nvArticulo(QWidget *padre = nullptr);
    ~nvArticulo() override;

    void setcEmpresa(::cEmpresa *empresa) { m_empresa = empresa; }
    /// Fills the process-wide slot if it is empty; ignored while it is held.
    void setConexion(nv::Conexion *conexion);

    int Appearance() const { return m_appearance; }
    /// 0 flat, 1 3D; throws nv::Error (380) for anything else.
    void setAppearance(int valor);
    eFormsFichas TipoFicha() const { return m_tipoFicha; }
    void setTipoFicha(eFormsFichas valor);
    qint32 KeyFichaArt() const { return m_keyFichaArt; }
    void setKeyFichaArt(qint32 valor);
    bool Vital() const { return m_vital; }
    void setVital(bool valor);
    bool Inicial() const { return m_inicial; }
    void setInicial(bool valor);
    QString Nombre() const;
    bool Enabled() const;
    void setEnabled(bool valor);
    QFont Font() const;
    void setFont(const QFont &fuente);
    qint32 MaxLength() const;
    bool CausesValidation() const { return m_causesValidation; }
    void setCausesValidation(bool valor);
    bool KeyUpChangeFocus() const { return m_keyUpChangeFocus; }
    void setKeyUpChangeFocus(bool valor);
    bool KeyEnterChangeFocus() const { return m_keyEnterChangeFocus; }
    void setKeyEnterChangeFocus(bool valor);
    bool Locked() const;
    void setLocked(bool valor);
    QString Text() const;
    void setText(const QString &texto);
    QString ToolTipText() const { return m_toolTipText; }
    void setToolTipText(const QString &texto);
    qint32 Proveedor() const { return m_proveedor; }
    void setProveedor(qint32 valor) { m_proveedor = valor; }
    /// Numeric value of the box in shortest decimal text; "0" for text without a leading number.
    QString Codigo() const;
    /// The description is not loaded: call `Cargar` for that.
    void setCodigo(const QString &codigo);
    QString Value() const { return Codigo(); }
    void setValue(const QString &valor) { setCodigo(valor); }
    bool Existe() const { return m_existe; }
    /// The text changed since it was last resolved.
    bool Pendiente() const { return m_pendiente; }
    /// Read from the company setting "BusquedaArticulos" while it is 0. Throws nv::Error.
    qint16 Modelo();
    void setModelo(qint16 valor);
    bool TieneCualidad() const { return m_tieneCualidad; }
    qint16 Valor_CualidadX() const { return m_tieneCualidad ? m_valorX : qint16(0); }
    qint16 Valor_CualidadY() const { return m_tieneCualidad ? m_valorY : qint16(0); }
    QString Nombre_CualidadX() const;
    QString Nombre_CualidadY() const;
    QString MultiCodigo() const { return m_multiCodigo; }
    QString MultiDescripcion() const { return m_multiDescripcion; }

    bool DejarEnBlanco = false;
    qint32 Cliente = 0;
    qint16 Familia_1 = 0;
    qint16 Familia_2 = 0;
    qint16 Familia_3 = 0;
    bool MultiResultado = false;
    qint16 AlmacenStock = 0;
    bool SeleccionarTodo = false;
    bool GuardarBusqueda = false;

    /// Load the description of the code in the box (`Articulos`); True when the item exists. Errors are shown.
    bool Cargar() { return Refrescar_Datos(); }
    bool Refrescar_Datos();
    void SelectText();
    void Refresh();
    /// As F3 in an emptied box; the numeric value of the box afterwards, 0 when nothing was chosen or a dialog of this
    /// box is already open.
    qint32 Buscar();
    /// As Enter after typing `strCodigo`: the box's `Codigo` when the item exists, else a 16-bit 0.
    QVariant Emular_Enter(const QString &strCodigo);

    /// Fresh instance on a form, without stored properties.
    void InitProperties();
    void ReadProperties(const nv::BolsaPropiedades &bolsa);
    void WriteProperties(nv::BolsaPropiedades &bolsa) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void Click();
    void DblClick();
    void KeyDown(qint16 &KeyCode, qint16 &Shift);
    void KeyPress(qint16 &KeyAscii);
    void KeyUp(qint16 &KeyCode, qint16 &Shift);
    void MouseDown(qint16 &Button, qint16 &Shift, float &X, float &Y);
    void MouseMove(qint16 &Button, qint16 &Shift, float &X, float &Y);
    void MouseUp(qint16 &Button, qint16 &Shift, float &X, float &Y);
    void Change();
    /// The container's form should store the property again.
    void PropertyChanged(const QString &propiedad);

protected:
    void resizeEvent(QResizeEvent *evento) override;
    void changeEvent(QEvent *evento) override;

private:
    /// What an error during a resolution gives back.
    struct Estado
    {
        QString texto;
        QString nombre;
        bool existe;
        bool pendiente;
        bool tieneCualidad;
        qint16 valorX, valorY;
        QString nombreX, nombreY;
        qint32 proveedor;
        QString multiCodigo, multiDescripcion;
        nv::CriteriosBusqueda criterios;
    };
    /// How a resolution went on.
    enum class Paso { Detenida, Final, Muerta };
    struct Resultado
    {
        bool fallida = false;
        bool avanza = false; ///< the focus moves on once the host has had its `KeyPress`
    };
    class Ocupada;

    void alTeclaAbajo(qint16 &codigo, qint16 &estado);
    void alIntro();
    void alCambiar();
    void alEnfocar();
    void alDesenfocar();
    void reenviarRaton(void (nvArticulo::*senal)(qint16 &, qint16 &, float &, float &), qint16 boton, qint16 estado,
                       QPointF lugar);
    void pintarSegunEstado();
    void disponer();
    QString corchetes(int twipsDescontados) const;
    void ponerCaja(const QString &texto);
    void ponerNombre(const QString &nombre);
    void marcarCambiada(const QString &propiedad);

    ::cEmpresa &empresaExigida() const;
    nv::Dialogos &dialogos();
    bool cargarDescripcion();

    void lanzarBusqueda();
    void recibirBusqueda(const nv::ContratoBusqueda &dialogo);

    Resultado resolver(qint16 &ascii, bool confirmada);
    Paso repartir(const QString &entrada, qint16 &ascii);
    Paso porReferenciaProveedor(nv::Consultas &consultas, const QString &referencia, qint16 &ascii);
    Paso porLista(qint32 encontrado, qint16 &ascii);
    Paso porCodigoBarras(nv::Consultas &consultas, const QString &codigoBarras, qint16 &ascii);
    Paso porNumeroLargo(nv::Consultas &consultas, const QString &entrada);
    Paso porDescripcion(const QString &entrada);
    bool pasoFinal(qint16 &ascii, bool confirmada);
    Paso rechazada(qint16 &ascii, bool conFoco);
    bool ofrecerCrear(nv::Consultas &consultas, int control, const QString &pregunta);
    Estado estado() const;
    void reponer(const Estado &estado);

    nv::CajaCodigo *m_caja;
    QLabel *m_nombre;
    ::cEmpresa *m_empresa = nullptr;
    std::unique_ptr<nv::Dialogos> m_dialogos;

    int m_appearance = 1;
    eFormsFichas m_tipoFicha = FichaArticulos;
    qint32 m_keyFichaArt;
    qint16 m_modelo = 0;
    qint32 m_proveedor = 0;
    bool m_vital = true;
    bool m_inicial = true;
    bool m_keyUpChangeFocus = true;
    bool m_keyEnterChangeFocus = true;
    bool m_causesValidation = true;
    bool m_existe = false;
    bool m_pendiente = true;
    bool m_tieneCualidad = false;
    bool m_ocupada = false;
    qint16 m_valorX = 0;
    qint16 m_valorY = 0;
    QString m_nombreX;
    QString m_nombreY;
    QString m_toolTipText;
    QString m_multiCodigo;
    QString m_multiDescripcion;
    nv::CriteriosBusqueda m_criterios;
    std::unique_ptr<nv::ValoresCreacion> m_creacion; ///< of the last item created from here
    std::array<std::optional<bool>, 2> m_permisos;   ///< supplier references, barcodes
};
