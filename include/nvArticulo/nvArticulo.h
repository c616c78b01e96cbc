#pragma once

#include <QFont>
#include <QString>
#include <QVariant>
#include <QWidget>
#include <memory>
#include <optional>

class cEmpresa;

namespace NVUTConfig {
class clsConfig;
}

namespace nv {
class BolsaPropiedades;
class CajaCodigo;
class ComprobadorReferencias;
class Conexion;
class Dialogos;
class EtiquetaElidida;
struct AjustesCaja;
struct EstadoCaja;
struct PeticionBusqueda;
struct Resolucion;
struct Servicios;
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
    Q_PROPERTY(bool AvisarNoEncontrado MEMBER AvisarNoEncontrado STORED false)
    Q_PROPERTY(bool RecordarAspecto MEMBER RecordarAspecto STORED false)

public:
    enum eFormsFichas { FichaArticulos = 0, FichaArticulos_Mini = 1, FichaArticulos_Mini_1 = 2 };
    Q_ENUM(eFormsFichas)

    explicit nvArticulo(QWidget *padre = nullptr);
    ~nvArticulo() override;

    void setcEmpresa(::cEmpresa *empresa);
    /// The parameters service and the rule of similar references; borrowed, none by default.
    void setParametros(NVUTConfig::clsConfig *parametros);
    void setComprobador(nv::ComprobadorReferencias *comprobador);
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
    qint32 Proveedor() const;
    void setProveedor(qint32 valor);
    /// Numeric value of the box in shortest decimal text; "0" for text without a leading number.
    QString Codigo() const;
    /// The description is not loaded: call `Cargar` for that.
    void setCodigo(const QString &codigo);
    QString Value() const { return Codigo(); }
    void setValue(const QString &valor) { setCodigo(valor); }
    bool Existe() const;
    /// The text changed since it was last resolved.
    bool Pendiente() const;
    /// Read from the company setting "BusquedaArticulos" while it is 0. Throws nv::Error.
    qint16 Modelo();
    void setModelo(qint16 valor);
    bool TieneCualidad() const;
    qint16 Valor_CualidadX() const;
    qint16 Valor_CualidadY() const;
    QString Nombre_CualidadX() const;
    QString Nombre_CualidadY() const;
    QString MultiCodigo() const;
    QString MultiDescripcion() const;

    bool DejarEnBlanco = false;
    qint32 Cliente = 0;
    qint16 Familia_1 = 0;
    qint16 Familia_2 = 0;
    qint16 Familia_3 = 0;
    bool MultiResultado = false;
    qint16 AlmacenStock = 0;
    bool SeleccionarTodo = false;
    bool GuardarBusqueda = false;
    bool AvisarNoEncontrado = true; ///< whether the box itself says that nothing has the code
    /// Whether the searches open as the user left them: sizes, columns, details, warehouses. Kept in the program's
    /// `QSettings` by user and dialog; not without an organisation's name.
    bool RecordarAspecto = true;

    /// Load the description of the code in the box (`Articulos`); True when the item exists. Errors are shown.
    bool Cargar() { return Refrescar_Datos(); }
    bool Refrescar_Datos();
    /// What came of `Confirmar`.
    enum class eConfirmacion { Existe, NoExiste, Fallo };
    /// For a form that is accepted while the box still has the focus: resolves what stands in it exactly as Enter does,
    /// unless it is resolved already. No event, no move of the focus; what names no item stays as typed, selected. An
    /// error is shown and gives `Fallo`.
    eConfirmacion Confirmar();
    /// Empties the label.
    void OlvidarNombre();
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
    /// The box may be ended in every event but this one, in which the toolkit still needs it: `deleteLater` there.
    void Change();
    /// Enter found nothing under this text, nobody was asked about it, and the box is empty again.
    void NoEncontrado(const QString &Texto);
    /// The container's form should store the property again.
    void PropertyChanged(const QString &propiedad);

protected:
    void resizeEvent(QResizeEvent *evento) override;
    void changeEvent(QEvent *evento) override;
    void showEvent(QShowEvent *evento) override;

private:
    class Ocupada;

    void conectarCaja();
    void alTeclaAbajo(qint16 &codigo, qint16 &estado);
    void alIntro();
    void alCambiar();
    void pintarSegunEstado();
    void ponerTexto(const QString &texto, const QString &nombre);
    void ponerNombre(const QString &nombre);
    void describirCaja();
    void ponerFuente(const QFont &fuente);
    template <class Valor>
    void cambiar(Valor &miembro, const Valor &valor, const QString &propiedad);

    std::optional<nv::Resolucion> resuelta(const nv::EstadoCaja &partida, const Ocupada &ocupada);
    void lanzarBusqueda();
    nv::PeticionBusqueda peticion() const;
    nv::AjustesCaja ajustes() const;
    nv::EstadoCaja estado() const;
    void aplicar(const nv::EstadoCaja &partida, const nv::EstadoCaja &nuevo);

    nv::CajaCodigo *m_caja;
    nv::EtiquetaElidida *m_nombre;
    std::unique_ptr<nv::Servicios> m_servicios;
    std::shared_ptr<nv::Dialogos> m_dialogos;
    std::unique_ptr<nv::EstadoCaja> m_estado; ///< but text and name, which the widgets hold

    int m_appearance = 1;
    eFormsFichas m_tipoFicha = FichaArticulos;
    qint32 m_keyFichaArt;
    bool m_vital = true;
    bool m_inicial = true;
    bool m_keyUpChangeFocus = true;
    bool m_keyEnterChangeFocus = true;
    bool m_causesValidation = true;
    bool m_ocupada = false; ///< a resolution or a search of this box is on its way
    QString m_toolTipText;
};
