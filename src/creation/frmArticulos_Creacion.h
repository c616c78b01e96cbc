#pragma once

#include "common/sql/Sentencia.h"
#include "creation/ComposicionDescripcion.h"

#include <QDialog>
#include <QStringList>
#include <QTimer>

class QComboBox;
class QLabel;
class QPushButton;
class cEmpresa;
class nvCheckBox;
class nvFamilia;
class nvMarca;
class nvProveedor;
class nvTemporada;
class nvTextBox;

namespace nv {
class Conexion;
class SelectorCodigo;
} // namespace nv

/// Creates an item without leaving the document: code, supplier, reference, brand, families, qualities, barcode and the
/// descriptions composed from them.
///
/// The item's row exists from the moment its code is confirmed: an accept completes it in one transaction, cancelling
/// or closing deletes it. Whether there is an unsaved row is told by the code box: disabled while there is one.
///
/// For one use: members set, shown modally, members read while hidden. Company and connection are borrowed. A
/// transaction that the host has open is joined, and then neither committed nor rolled back here.
class frmArticulos_Creacion : public QDialog
{
    Q_OBJECT

public:
    explicit frmArticulos_Creacion(QWidget *padre);

    /// Loads the form, shows it, returns once it has hidden itself.
    void MostrarModal();

    ::cEmpresa *cEmpresa = nullptr;
    nv::Conexion *Conexion = nullptr;
    bool Aceptado = false; ///< result: the item is complete
    qint32 Codigo = 0;     ///< result; before it, the last code confirmed, also one that was taken
    qint32 Proveedor = 0;
    QString Ref;
    qint16 Marca = 0;
    qint16 TipoImpuesto = 0; ///< rounded; the column keeps the decimals typed
    qint16 Familia_1 = 0;
    qint16 Familia_2 = 0;
    qint16 Familia_3 = 0;
    qint16 CualidadX = 0; ///< the company's defaults when both are 0
    qint16 CualidadY = 0;
    QString Temporada;
    qint16 NoGenerarSerieEAN = 0; ///< in: ticked only by 1; out: True is -1
    qint16 UnidadesDecimales = 0; ///< likewise

    /// Composes both descriptions anew, over whatever their boxes hold.
    void Formar_Descripciones();
    /// Shows the first thing that is missing and moves the focus to it. Throws nv::Error.
    bool Validar_Articulo();
    /// Whether the item-master company has an item `Codigo`. Throws nv::Error.
    bool Existe();
    /// Deletes the item `Codigo` and its per-warehouse rows; always true. Throws nv::Error.
    bool EliminarF6();

public Q_SLOTS:
    /// Esc: cancels the item that is open, else closes.
    void reject() override;

protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override;
    void keyPressEvent(QKeyEvent *evento) override;
    void closeEvent(QCloseEvent *evento) override;

private:
    // What the handlers of the fields do is left out while the form itself fills or empties them.
    class Suspension;

    void crearCampos();
    void colocarCampos();
    void conectarCampos();

    void Cargar(QStringList &fallos);
    void cargarSelectores(QStringList &fallos);
    void cargarNombres();
    void cargarFamilias(QStringList &fallos);
    void cargarEmpresa();
    void cargarCualidades(qint16 x, qint16 y);
    void cargarFormatos();
    nv::FormatoDescripcion leerFormato(bool larga);
    void centrar();

    void alPulsarF6();
    void confirmarCodigo();
    void rechazarCodigo();
    void crearFilas();

    void alEntrarFamilia(int nivel);
    void alCambiarFamilia(int nivel);
    void alSalirFamilia(int nivel);
    void trasFamilia(int nivel);
    void ponerPadres(int nivel);
    void mostrarPorcentaje();
    QString textoImpuesto() const;
    void asentarSelector();

    bool faltaFamilia();
    bool faltaCualidad(QComboBox *lista, int eje);
    bool referenciaRepetida();
    bool falta(const QString &texto, QWidget *campo);
    void alSalirBarras();
    void comprobarBarras();
    bool Validar_CodBarras();

    void aceptar();
    void quitarLoEscrito();
    void escribir();
    void tomarPropiedades();
    void Guardar_Articulo();
    nv::Sentencia sentenciaArticulo() const;
    bool barrasAutomaticas();
    qint16 Valor_Unico_Cualidad(qint16 eje);

    void Limpiar_Controles();
    void entradaDeCodigo();
    void cancelar();
    void cerrar();

    nvTextBox *m_codigo;
    QLabel *m_ayudaCodigo;
    nvProveedor *m_proveedor;
    nvTextBox *m_referencia;
    nvMarca *m_marca;
    nvTemporada *m_temporada;
    nvTextBox *m_impuesto;
    QLabel *m_porcentaje;
    std::array<QLabel *, 3> m_rotulosFamilia;
    std::array<nvFamilia *, 3> m_familias;
    std::array<QLabel *, 2> m_rotulosCualidad;
    QComboBox *m_cualidadX;
    QComboBox *m_cualidadY;
    nvCheckBox *m_sinSerieEan;
    nvCheckBox *m_unidadesDecimales;
    nvTextBox *m_barras;
    nvTextBox *m_descripcion;
    nvTextBox *m_ticket;
    QPushButton *m_aceptar;
    QPushButton *m_cancelar;
    QPushButton *m_cerrar;

    bool m_familiaObligada = false;
    qint32 m_maxCodigoArt = 0;    ///< 0 or less: no limit
    qint32 m_familiaGuardada = 0; ///< level-1 code when a family picker was entered
    nv::FormatoDescripcion m_formatoTicket;
    nv::FormatoDescripcion m_formatoLargo;
    bool m_barrasComprobadas = false;
    bool m_barrasPendientes = false; ///< left by a click that is not over yet
    QTimer m_esperaRaton;
    qint16 m_valorUnicoX = 0;
    qint16 m_valorUnicoY = 0;
    int m_suspendido = 0;
    bool m_cierreFallido = false;
};

class frmArticulos_Creacion::Suspension
{
public:
    explicit Suspension(frmArticulos_Creacion &formulario)
        : m_formulario(formulario)
    {
        ++m_formulario.m_suspendido;
    }
    Suspension(const Suspension &) = delete;
    Suspension &operator=(const Suspension &) = delete;
    ~Suspension() { --m_formulario.m_suspendido; }

private:
    frmArticulos_Creacion &m_formulario;
};
