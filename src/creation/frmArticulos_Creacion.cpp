#include "creation/frmArticulos_Creacion.h"
#include "creation/CodigosElegidos.h"

#include "common/Valores.h"
#include "creation/ComprobacionBarras.h"
#include "nvArticulo/Conexion.h"
#include "nvArticulo/Error.h"
#include "nvArticulo/cEmpresa.h"
#include "platform/pickers/CascadaFamilias.h"
#include "platform/pickers/nvFamilia.h"
#include "platform/pickers/nvMarca.h"
#include "platform/pickers/nvProveedor.h"
#include "platform/pickers/nvTemporada.h"
#include "platform/widgets/Aviso.h"
#include "platform/widgets/Foco.h"
#include "platform/widgets/Twips.h"
#include "platform/widgets/nvCheckBox.h"
#include "platform/widgets/nvTextBox.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScreen>
#include <algorithm>

using namespace Qt::StringLiterals;
using nv::SelectorCodigo;
using nv::mensajes::Icono;
using nv::mensajes::Respuesta;

frmArticulos_Creacion::frmArticulos_Creacion(QWidget *padre)
    : FormularioModal(padre)
    , m_campos(this)
    , m_barras(new nv::ComprobacionBarras(m_campos.barras, m_campos.codigo))
{
    setWindowTitle(u"Creación de Artículos"_s);
    QHBoxLayout *botones = botonera(u"F9 - &Aceptar"_s, u"F12 - &Cancelar"_s);
    m_aceptar = findChild<QPushButton *>(u"cmdAceptar"_s);
    m_cancelar = findChild<QPushButton *>(u"cmdCancelar"_s);
    botones->addWidget(boton(u"&Salir"_s, u"cmdCerrar"_s, [this] { cerrar(); }));
    auto *todo = new QVBoxLayout(this);
    todo->addLayout(m_campos.disposicion());
    todo->addSpacing(nv::twips::aPixeles(90, this));
    todo->addLayout(botones);
    todo->setSizeConstraint(QLayout::SetFixedSize);

    connect(m_campos.codigo, &nvTextBox::Intro, this, [this](bool &tratada) {
        tratada = true;
        nv::mensajes::guardar(this, nv::mensajes::atencion(), [this] { confirmarCodigo(); });
    });
    for (QWidget *widget :
         std::initializer_list<QWidget *>{m_campos.codigo, m_campos.cualidades[0], m_campos.cualidades[1],
                                          m_campos.sinSerieEan, m_campos.unidadesDecimales})
        widget->installEventFilter(this);
    connect(m_campos.familias, &nv::CascadaFamilias::Fin, this, [this] { m_campos.cualidades[0]->setFocus(); });
    connect(m_campos.impuesto, &nvTextBox::Salida, this, [this] {
        if (!m_llenando)
            nv::mensajes::guardar(this, nv::mensajes::atencion(), [this] { m_campos.mostrarPorcentaje(*cEmpresa); });
    });
    conectarDescripciones();
    for (const auto &[tecla, pulsador] : {std::pair(Qt::Key_F9, m_aceptar), {Qt::Key_F12, m_cancelar}})
        atajo(tecla, [this, pulsador = pulsador] {
            if (pulsador->isEnabled())
                pulsador->click();
            else
                nv::Aviso::mostrar(m_campos.codigo, u"Confirme antes el código con Enter"_s);
        });
    permitirAceptar(false);
}

frmArticulos_Creacion::~frmArticulos_Creacion() = default;

void frmArticulos_Creacion::conectarDescripciones()
{
    const nv::CascadaFamilias *familias = m_campos.familias;
    for (SelectorCodigo *selector : std::initializer_list<SelectorCodigo *>{
             m_campos.marca, m_campos.temporada, familias->selector(0), familias->selector(1), familias->selector(2)}) {
        connect(selector, &SelectorCodigo::Cambio, this, &frmArticulos_Creacion::recomponer);
        connect(selector, &SelectorCodigo::Cargado, this, &frmArticulos_Creacion::recomponer);
    }
    connect(m_campos.referencia, &QLineEdit::textChanged, this, &frmArticulos_Creacion::recomponer);
}

void frmArticulos_Creacion::recomponer()
{
    if (m_llenando)
        return;
    const nv::CamposDescripcion campos = m_campos.paraDescripcion();
    for (const auto &[caja, formato] :
         {std::pair{m_campos.ticket, &m_formatoTicket}, {m_campos.descripcion, &m_formatoLargo}}) {
        // A program's text leaves the box unmodified. One that was emptied is nobody's.
        if (!caja->isModified() || caja->text().isEmpty())
            caja->setText(nv::componerDescripcion(*formato, campos));
    }
}

void frmArticulos_Creacion::MostrarModal()
{
    Aceptado = false;
    const QPointer<frmArticulos_Creacion> vivo(this);
    nv::mensajes::Fallos fallos;
    // Half loaded it would know no limits and no qualities: an item begun in it could not be completed.
    const bool cargado = nv::mensajes::guardar(this, nv::mensajes::atencion(), [&] { llenar(fallos); });
    if (!vivo || !cargado || !fallos.mostrar(this, nv::mensajes::atencion()))
        return;
    adjustSize();
    const QScreen *pantalla = parentWidget() ? parentWidget()->screen() : screen();
    move(pantalla->availableGeometry().center() - rect().center());
    m_campos.codigo->setFocus();
    ejecutar();
}

/// The item's rows in the company and the connection that the host has given.
nv::AltaArticulo &frmArticulos_Creacion::alta()
{
    if (!cEmpresa)
        throw nv::errores::sinEmpresa();
    if (!Conexion)
        throw nv::errores::sinConexion();
    if (!m_alta)
        m_alta = std::make_unique<nv::AltaArticulo>(*cEmpresa, *Conexion);
    return *m_alta;
}

void frmArticulos_Creacion::llenar(nv::mensajes::Fallos &fallos)
{
    nv::AltaArticulo &nueva = alta();
    {
        const QScopedValueRollback<bool> llenando(m_llenando, true);
        m_barras->conectar(*cEmpresa, *Conexion);
        m_campos.poner(*this, *cEmpresa, *Conexion, fallos);
        const nv::AltaArticulo::Ajustes &ajustes = nueva.leerAjustes();
        const bool porDefecto = CualidadX == 0 && CualidadY == 0;
        m_campos.llenarCualidades(*Conexion, porDefecto ? ajustes.cualidades : std::array{CualidadX, CualidadY});
        m_formatoTicket = nueva.leerFormato(false);
        m_formatoLargo = nueva.leerFormato(true);
        m_campos.sinSerieEan->setEnabled(ajustes.seriesAutomaticas);
    }
    Formar_Descripciones();
}

void frmArticulos_Creacion::Formar_Descripciones()
{
    const nv::CamposDescripcion campos = m_campos.paraDescripcion();
    m_campos.ticket->setText(nv::componerDescripcion(m_formatoTicket, campos));
    m_campos.descripcion->setText(nv::componerDescripcion(m_formatoLargo, campos));
}

void frmArticulos_Creacion::alPulsarF6()
{
    nv::mensajes::guardar(this, nv::mensajes::atencion(), [this] {
        const std::optional<qint64> siguiente = alta().siguienteCodigo();
        if (siguiente) {
            m_campos.codigo->setText(QString::number(*siguiente));
            confirmarCodigo();
        } else {
            nv::mensajes::mostrar(this, nv::mensajes::atencion(),
                                  u"No esta disponible esta opción en códigos alfanuméricos"_s, Icono::Exclamacion);
        }
    });
}

void frmArticulos_Creacion::confirmarCodigo()
{
    const QString texto = nv::recortado(m_campos.codigo->text());
    if (texto.isEmpty())
        return;
    const QString mayor = u"El código %1 pasa del mayor que se admite: %2"_s.arg(texto).arg(alta().mayorCodigo());
    try {
        Codigo = nv::ValEntero32(texto);
    } catch (const nv::Error &) {
        rechazarCodigo(mayor);
        return;
    }
    if (Existe()) {
        const QPointer<frmArticulos_Creacion> vivo(this);
        nv::mensajes::mostrar(this, u"¡Atención!"_s, u"Este código ya está asignado a otro artículo."_s,
                              Icono::Informacion);
        if (vivo)
            rechazarCodigo(u"El código %1 ya está asignado"_s.arg(texto));
        return;
    }
    if (!alta().cabe(Codigo)) {
        rechazarCodigo(Codigo > 0 ? mayor : u"«%1» no es un código de artículo"_s.arg(texto));
        return;
    }
    alta().abrir(Codigo);
    // Of "12abc" the item is 12: the box must not go on naming another one.
    if (!std::all_of(texto.begin(), texto.end(), nv::esDigito) || texto != m_campos.codigo->text())
        m_campos.codigo->setText(QString::number(Codigo));
    permitirAceptar(true);
    nv::foco::adelante(m_campos.codigo);
    m_campos.codigo->setEnabled(false);
}

void frmArticulos_Creacion::rechazarCodigo(const QString &motivo)
{
    m_campos.codigo->clear();
    m_campos.codigo->setFocus();
    nv::Aviso::mostrar(m_campos.codigo, motivo);
}

void frmArticulos_Creacion::permitirAceptar(bool valor)
{
    m_aceptar->setEnabled(valor);
    m_cancelar->setEnabled(valor);
}

bool frmArticulos_Creacion::Existe()
{
    return nv::etiquetado(u"frmArticulos_Creacion::Existe"_s, [this] { return alta().Existe(Codigo); });
}

bool frmArticulos_Creacion::EliminarF6()
{
    return nv::etiquetado(u"frmArticulos_Creacion::EliminarF6"_s, [this] {
        if (m_alta)
            m_alta->deshacer();
        return true;
    });
}

bool frmArticulos_Creacion::Validar_Articulo()
{
    const QPointer<frmArticulos_Creacion> vivo(this);
    const auto falta = [this, &vivo](const QString &texto, nv::CampoCreacion campo) {
        nv::mensajes::mostrar(this, u"Validando artículo..."_s, texto, Icono::Exclamacion);
        if (vivo)
            m_campos.campo(campo)->setFocus();
        return false;
    };
    nv::AltaArticulo &nueva = alta();
    if (!nv::cabeLoElegido(*this, m_campos.existentes(*cEmpresa)))
        return false;
    const nv::FichaAlta ficha = m_campos.ficha();
    if (const std::optional<nv::FaltaCreacion> primera = nueva.falta(ficha))
        return falta(primera->texto, primera->campo);
    if (!nv::existeLoElegido(*this, m_campos.existentes(*cEmpresa)))
        return false;
    if (nv::recortado(ficha.descripcion).isEmpty()) {
        const bool sigue = nv::mensajes::preguntar(this, u"Confirmar operación.."_s,
                                                   u"El artículo no tiene descripción. ¿Desea continuar?"_s,
                                                   Respuesta::No) == Respuesta::Si;
        if (vivo && !sigue)
            m_campos.descripcion->setFocus();
        if (!vivo || !sigue)
            return false;
    }
    return !nueva.referenciaRepetida(ficha) ||
           falta(u"La referencia especificada ya existe."_s, nv::CampoCreacion::Referencia);
}

void frmArticulos_Creacion::aceptar()
{
    const QPointer<frmArticulos_Creacion> vivo(this);
    m_barras->comprobarPendiente();
    if (!vivo)
        return;
    const bool hecho = nv::mensajes::guardar(this, u"Error"_s, [&] {
        alta();
        // A code just typed, or chosen from its list, has no name yet: the user sees it, and whether there is one.
        for (const nv::CamposCreacion::Existente &campo : m_campos.existentes(*cEmpresa)) {
            if (!campo.selector->Asentar() || !vivo)
                return;
        }
        if (!Validar_Articulo())
            return;
        static_cast<DatosCreacion &>(*this) = alta().guardar(m_campos.ficha());
        // The item is complete, whatever goes wrong from here on.
        Aceptado = true;
    });
    if (!vivo || !hecho || !Aceptado)
        return;
    nv::mensajes::guardar(this, u"Error"_s, [this] { volverAEmpezar(); });
    if (vivo)
        hide();
}

bool frmArticulos_Creacion::cancelada()
{
    m_barras->olvidar();
    return nv::mensajes::guardar(this, nv::mensajes::atencion(), [this] {
        EliminarF6();
        volverAEmpezar();
        m_cierreFallido = false;
    });
}

void frmArticulos_Creacion::cerrar()
{
    m_barras->olvidar();
    const QPointer<frmArticulos_Creacion> vivo(this);
    const bool borrado = nv::mensajes::guardar(this, nv::mensajes::atencion(), [this] { EliminarF6(); });
    if (vivo && borrado)
        hide();
    else if (vivo)
        marcharseSiInsiste();
}

/// With the connection gone for good, or the disk full, nobody must be locked in: the second time the form closes all the
/// same, and says what stays behind.
void frmArticulos_Creacion::marcharseSiInsiste()
{
    if (!std::exchange(m_cierreFallido, true))
        return;
    const QPointer<frmArticulos_Creacion> vivo(this);
    nv::mensajes::mostrar(this, nv::mensajes::atencion(),
                          u"El artículo %1 queda a medio crear en la base de datos."_s.arg(Codigo), Icono::Exclamacion);
    if (vivo)
        hide();
}

/// Fields for the next item, its code first.
void frmArticulos_Creacion::volverAEmpezar()
{
    const QScopedValueRollback<bool> llenando(m_llenando, true);
    m_barras->suspender(true);
    m_campos.Limpiar_Controles();
    m_campos.codigo->setEnabled(true);
    m_campos.codigo->setFocus();
    permitirAceptar(false);
    m_barras->suspender(false);
}

bool frmArticulos_Creacion::eventFilter(QObject *objeto, QEvent *evento)
{
    if (evento->type() == QEvent::Wheel && qobject_cast<QComboBox *>(objeto) &&
        !static_cast<QWidget *>(objeto)->hasFocus()) {
        // Scrolling past a list must not choose from it.
        evento->ignore();
        return true;
    }
    const bool pulsada = evento->type() == QEvent::KeyPress;
    if (!pulsada && evento->type() != QEvent::ShortcutOverride)
        return FormularioModal::eventFilter(objeto, evento);
    const auto *tecla = static_cast<QKeyEvent *>(evento);
    if (objeto == m_campos.codigo) {
        if (tecla->key() != Qt::Key_F6)
            return false;
        evento->accept();
        if (pulsada && !tecla->isAutoRepeat())
            alPulsarF6();
        return true;
    }
    if (!pulsada || (tecla->key() != Qt::Key_Return && tecla->key() != Qt::Key_Enter))
        return false;
    nv::foco::adelante(static_cast<QWidget *>(objeto));
    return true;
}

void frmArticulos_Creacion::keyPressEvent(QKeyEvent *evento)
{
    // A key held down must not cancel first and close next.
    if (evento->key() == Qt::Key_Escape && evento->isAutoRepeat())
        evento->accept();
    else
        FormularioModal::keyPressEvent(evento);
}

void frmArticulos_Creacion::reject()
{
    const QPointer<frmArticulos_Creacion> vivo(this);
    if (!m_cancelar->isEnabled())
        cerrar();
    else if (!cancelada() && vivo)
        marcharseSiInsiste();
}

void frmArticulos_Creacion::closeEvent(QCloseEvent *evento)
{
    const QPointer<frmArticulos_Creacion> vivo(this); // a box may be up in it, and the host's window go
    cerrar();
    evento->setAccepted(!vivo || !isVisible());
}
