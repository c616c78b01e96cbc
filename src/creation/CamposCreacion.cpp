#include "creation/CamposCreacion.h"

#include "common/Largos.h"
#include "common/Valores.h"
#include "nvArticulo/Conexion.h"
#include "nvArticulo/cEmpresa.h"
#include "platform/pickers/CascadaFamilias.h"
#include "platform/pickers/nvFamilia.h"
#include "platform/pickers/nvMarca.h"
#include "platform/pickers/nvProveedor.h"
#include "platform/pickers/nvTemporada.h"
#include "platform/widgets/Campos.h"
#include "platform/widgets/Twips.h"
#include "platform/widgets/nvCheckBox.h"
#include "platform/widgets/nvTextBox.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <limits>

using namespace Qt::StringLiterals;
using nv::twips::aPixeles;
using nv::twips::conLetra;

namespace nv {

namespace {

// In twips.
constexpr int AnchoCodigo = 1700;
constexpr int AnchoImpuesto = 900; // as the box of a picker
constexpr int AnchoReferencia = 3000;
constexpr int AnchoLista = 2600;
constexpr int AnchoDescripcion = 7600;

template <class Control>
Control *nuevo(QWidget *padre, const QString &nombre)
{
    auto *control = new Control(padre);
    control->setObjectName(nombre);
    return control;
}

nvCheckBox *casilla(QWidget *padre, const QString &nombre, const QString &texto)
{
    auto *control = nuevo<nvCheckBox>(padre, nombre);
    control->setText(texto);
    control->setInitValue(0);
    return control;
}

QHBoxLayout *enFila(std::initializer_list<QWidget *> widgets)
{
    auto *fila = new QHBoxLayout;
    for (QWidget *widget : widgets)
        fila->addWidget(widget);
    fila->addStretch();
    return fila;
}

} // namespace

CamposCreacion::CamposCreacion(QWidget *formulario)
{
    crear(formulario);
    colocar(formulario);
}

void CamposCreacion::crear(QWidget *formulario)
{
    codigo = nuevo<nvTextBox>(formulario, u"txtCodigo"_s);
    proveedor = nuevo<nvProveedor>(formulario, u"txtProv"_s);
    referencia = nuevo<nvTextBox>(formulario, u"txtRef"_s);
    marca = nuevo<nvMarca>(formulario, u"txtMarca"_s);
    temporada = nuevo<nvTemporada>(formulario, u"txtTemporada"_s);
    impuesto = nuevo<nvTextBox>(formulario, u"txtImpuesto"_s);
    impuesto->setNumerico(true);
    impuesto->setConSigno(false);
    porcentaje = nuevo<QLabel>(formulario, u"lblPIgic"_s);
    familias = new CascadaFamilias(formulario);
    cualidades = {nuevo<QComboBox>(formulario, u"cboCualX"_s), nuevo<QComboBox>(formulario, u"cboCualY"_s)};
    m_rotulosCualidad = {nuevoRotulo(u"Talla:"_s, cualidades[0], formulario, u"lblCualidades_1"_s),
                         nuevoRotulo(u"Color:"_s, cualidades[1], formulario, u"lblCualidades_2"_s)};
    sinSerieEan = casilla(formulario, u"chkNoGenerarSerieEAN"_s, u"No generar serie EAN"_s);
    unidadesDecimales = casilla(formulario, u"chkUnidadesDecimales"_s, u"Unidades decimales"_s);
    barras = nuevo<nvTextBox>(formulario, u"txtCodBarras"_s);
    descripcion = nuevo<nvTextBox>(formulario, u"txtDescripcion"_s);
    ticket = nuevo<nvTextBox>(formulario, u"txtDesc_Ticket"_s);
    for (const auto &[caja, largo] : {std::pair{codigo, largos::Entero32},
                                      {referencia, largos::Referencia},
                                      {impuesto, largos::Entero16},
                                      {barras, largos::CodigoBarras},
                                      {descripcion, largos::Descripcion},
                                      {ticket, largos::DescripcionTicket}})
        caja->setMaxLength(largo);
    temporada->caja()->setMaxLength(largos::Temporada);
}

void CamposCreacion::colocar(QWidget *formulario)
{
    codigo->setFixedWidth(conLetra(AnchoCodigo, formulario));
    impuesto->setFixedWidth(conLetra(AnchoImpuesto, formulario));
    porcentaje->setMinimumWidth(conLetra(AnchoImpuesto, formulario));
    referencia->setFixedWidth(conLetra(AnchoReferencia, formulario));
    barras->setFixedWidth(conLetra(AnchoReferencia, formulario));
    descripcion->setMinimumWidth(aPixeles(AnchoDescripcion, formulario));
    for (QComboBox *lista : cualidades) {
        lista->setFixedWidth(conLetra(AnchoLista, formulario));
        lista->setFocusPolicy(Qt::StrongFocus);
    }
    auto *ayuda = new QLabel(u"F6 - Asigna código automático"_s, formulario);
    ayuda->setObjectName(u"lblAyudaCodigo"_s);
    ayuda->setForegroundRole(QPalette::PlaceholderText);

    m_disposicion = new QFormLayout;
    m_disposicion->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    const auto fila = [&](const QString &texto, QWidget *campo, auto *conjunto) {
        m_disposicion->addRow(nuevoRotulo(texto, campo, formulario), conjunto);
    };
    fila(u"Código:"_s, codigo, enFila({codigo, ayuda}));
    fila(u"Proveedor:"_s, proveedor, proveedor);
    fila(u"Referencia:"_s, referencia, referencia);
    fila(u"Marca:"_s, marca, marca);
    fila(u"Temporada:"_s, temporada, temporada);
    fila(u"Igic:"_s, impuesto, enFila({impuesto, porcentaje}));
    for (std::size_t i = 0; i < 3; ++i)
        m_disposicion->addRow(familias->etiqueta(i), familias->selector(i));
    auto *ejes = enFila({cualidades[0], m_rotulosCualidad[1], cualidades[1]});
    ejes->insertSpacing(1, aPixeles(180, formulario));
    m_disposicion->addRow(m_rotulosCualidad[0], ejes);
    auto *casillas = enFila({sinSerieEan, unidadesDecimales});
    casillas->insertSpacing(1, aPixeles(240, formulario));
    m_disposicion->addRow(nullptr, casillas);
    fila(u"C. Barras:"_s, barras, barras);
    nombrar(barras, u"Código de barras"_s);
    fila(u"Descripción:"_s, descripcion, descripcion);
    fila(u"D. Ticket:"_s, ticket, ticket);
    nombrar(ticket, u"Descripción para el ticket"_s);
}

QWidget *CamposCreacion::campo(CampoCreacion cual) const
{
    switch (cual) {
    case CampoCreacion::Codigo:
        return codigo;
    case CampoCreacion::Proveedor:
        return proveedor;
    case CampoCreacion::Referencia:
        return referencia;
    case CampoCreacion::Familia1:
        return familias->selector(0);
    case CampoCreacion::Familia2:
        return familias->selector(1);
    case CampoCreacion::Familia3:
        return familias->selector(2);
    case CampoCreacion::CualidadX:
        return cualidades[0];
    case CampoCreacion::CualidadY:
        return cualidades[1];
    }
    return nullptr;
}

FichaAlta CamposCreacion::ficha() const
{
    FichaAlta ficha;
    ficha.codigo = codigo->text();
    ficha.proveedor = proveedor->Codigo();
    ficha.referencia = referencia->text();
    ficha.marca = marca->Codigo();
    ficha.temporada = temporada->Texto();
    ficha.impuesto = textoImpuesto();
    ficha.familias = familias->codigos();
    for (std::size_t i = 0; i < 3; ++i)
        ficha.familiaEscrita[i] = !familias->selector(i)->Texto().isEmpty();
    for (std::size_t i = 0; i < cualidades.size(); ++i) {
        if (cualidades[i]->currentIndex() > 0)
            ficha.cualidades[i] = estrecho<qint16>(cualidades[i]->currentData().toInt());
    }
    ficha.sinSerieEan = sinSerieEan->Value() == 1;
    ficha.unidadesDecimales = unidadesDecimales->Value() == 1;
    ficha.descripcion = descripcion->text();
    ficha.ticket = ticket->text();
    ficha.barras = barras->text();
    return ficha;
}

CamposDescripcion CamposCreacion::paraDescripcion() const
{
    CamposDescripcion campos{marca->Nombre(), referencia->text(), temporada->Texto(), {}};
    for (std::size_t i = 0; i < 3; ++i)
        campos.familias[i] = {familias->selector(i)->Codigo(), familias->selector(i)->Nombre()};
    return campos;
}

QString CamposCreacion::textoImpuesto() const
{
    return ValTexto(impuesto->text());
}

void CamposCreacion::poner(const DatosCreacion &datos, ::cEmpresa &empresa, Conexion &conexion,
                           mensajes::Fallos &fallos)
{
    for (SelectorCodigo *selector : std::initializer_list<SelectorCodigo *>{proveedor, marca, temporada}) {
        selector->setcEmpresa(&empresa);
        selector->setConexion(&conexion);
    }
    proveedor->setCodigo(datos.Proveedor);
    marca->setCodigo(datos.Marca);
    temporada->setTexto(datos.Temporada);
    referencia->setText(datos.Ref);
    for (SelectorCodigo *selector : std::initializer_list<SelectorCodigo *>{proveedor, marca, temporada})
        fallos.paso([selector] { selector->Cargar(); });
    if (datos.TipoImpuesto != 0) {
        impuesto->setText(QString::number(datos.TipoImpuesto));
        fallos.paso([&] { mostrarPorcentaje(empresa); });
    }
    ponerFamilias(datos, empresa, conexion, fallos);
    for (std::size_t i = 0; i < cualidades.size(); ++i) {
        const QString nombre = empresa.NombreCualidad(static_cast<int>(i));
        if (nombre.isEmpty())
            continue;
        m_rotulosCualidad[i]->setText(nombre + u':');
        nombrar(cualidades[i], nombre);
    }
    sinSerieEan->setValue(datos.NoGenerarSerieEAN == 1 ? 1 : 0);
    unidadesDecimales->setValue(datos.UnidadesDecimales == 1 ? 1 : 0);
}

void CamposCreacion::ponerFamilias(const DatosCreacion &datos, ::cEmpresa &empresa, Conexion &conexion,
                                   mensajes::Fallos &fallos)
{
    familias->conectar(&empresa, &conexion);
    familias->nombrarNiveles(empresa);
    CascadaFamilias::Codigos codigos{datos.Familia_1, datos.Familia_2, datos.Familia_3};
    for (std::size_t i = 0; i < codigos.size(); ++i)
        codigos[i] = familias->usado(i) ? codigos[i] : 0;
    familias->poner(codigos);
    fallos.paso([this] { familias->Cargar(); });
}

void CamposCreacion::mostrarPorcentaje(const ::cEmpresa &empresa)
{
    porcentaje->setText(empresa.PorcentajeImpuesto(tipoImpuesto(textoImpuesto())).textoCorto() + u" %"_s);
}

std::vector<CamposCreacion::Existente> CamposCreacion::existentes(const ::cEmpresa &empresa) const
{
    constexpr qint64 Corto = std::numeric_limits<qint16>::max();
    constexpr qint64 Largo = std::numeric_limits<qint32>::max();
    std::vector<Existente> todos{{proveedor, u"El proveedor"_s, Largo},
                                 {marca, u"La marca"_s, Corto},
                                 {temporada, u"La temporada"_s, std::nullopt}};
    for (std::size_t i = 0; i < 3; ++i)
        todos.push_back({familias->selector(i), empresa.NombreFamilia(static_cast<int>(i)), Corto});
    return todos;
}

void CamposCreacion::llenarCualidades(Conexion &conexion, const std::array<qint16, 2> &elegidas)
{
    for (QComboBox *lista : cualidades)
        lista->clear();
    Registros registros = conexion.Abrir(Sentencia(u"SELECT * FROM Cualidades"));
    while (registros.siguiente()) {
        const QString nombre = registros.textoO(u"Nombre");
        const int cualidad = registros.entero16(u"Codigo");
        for (QComboBox *lista : cualidades)
            lista->addItem(nombre, cualidad);
    }
    for (std::size_t i = 0; i < cualidades.size(); ++i)
        cualidades[i]->setCurrentIndex(cualidades[i]->findData(int(elegidas[i])));
}

void CamposCreacion::Limpiar_Controles()
{
    for (nvCheckBox *casilla : {sinSerieEan, unidadesDecimales}) {
        if (casilla->InitValue().isValid())
            casilla->setValue(casilla->InitValue().toInt());
    }
    for (QComboBox *lista : cualidades) {
        if (lista->property("Tag").toString().mid(3, 1) != u"2")
            lista->setCurrentIndex(0);
    }
    for (nvTextBox *caja : {codigo, referencia, impuesto, barras})
        caja->clear();
    porcentaje->clear();
    proveedor->Limpiar();
    familias->Limpiar();
    for (nvTextBox *caja : {descripcion, ticket})
        caja->clear();
}

} // namespace nv
