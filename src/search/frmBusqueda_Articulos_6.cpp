#include "search/frmBusqueda_Articulos_6.h"

#include "common/Conexion.h"
#include "common/cEmpresa.h"
#include "platform/widgets/Twips.h"
#include "platform/widgets/nvTextBox.h"
#include "search/BusquedaTextoLibre_Lectura.h"
#include "search/sql/Modelo5.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <algorithm>

using namespace Qt::StringLiterals;
using nv::sql::AlmacenesModelo5;

namespace {

enum Columna { Marca, CodigoArticulo, DescripcionArticulo, Referencia, Medida, Pvp, BajoPedido, PrimerStock };

constexpr int UltimaConTarifa = Pvp;
constexpr int Total = PrimerStock + static_cast<int>(AlmacenesModelo5.size());
constexpr QRgb ColorBaja = qRgb(192, 0, 0);
constexpr QRgb ColorBajoPedido = qRgb(255, 128, 0);

nv::ConfiguracionTextoLibre configuracion()
{
    nv::ConfiguracionTextoLibre c;
    c.caja = u"txtBusqueda"_s;
    c.mayusculas = true;
    c.parametroReferencia = u".BuscadorM6.SoloRefPrincipal"_s;
    c.tituloAceptar = u"frmBusqueda_Articulos_6:cmdAceptar_Click"_s;
    c.errorNumerado = false;
    c.enfocarRejilla = true;
    c.eleccion = {CodigoArticulo, DescripcionArticulo};
    c.columnas = {{},
                  {u"Código"_s, 900, Qt::AlignCenter},
                  {u"Descripción"_s, 4400},
                  {u"Referencia"_s, 1500, Qt::AlignRight},
                  {u"Medida"_s, 1500},
                  {u"Pvp"_s, 0, Qt::AlignRight},
                  {u"BP"_s, 300, Qt::AlignCenter}};
    c.columnas.resize(Total, {{}, 1000, Qt::AlignRight});
    return c;
}

/// Low byte red, then green, then blue; 0 or less is no colour.
QColor colorPlataforma(qint32 color)
{
    if (color <= 0)
        return {};
    return QColor(color & 0xff, (color >> 8) & 0xff, (color >> 16) & 0xff);
}

QString textoMedida(nv::Moneda largo, nv::Moneda ancho, nv::Moneda altura)
{
    QString texto;
    if (largo > nv::Moneda())
        texto = largo.textoCorto();
    for (const nv::Moneda lado : {ancho, altura})
        if (lado > nv::Moneda())
            texto += u" x "_s + lado.textoCorto();
    return texto;
}

/// What the size box holds; 0 when it holds no digit.
nv::Moneda medidaEscrita(QString texto)
{
    if (std::none_of(texto.cbegin(), texto.cend(), [](QChar c) { return c.isDigit(); }))
        return {};
    return nv::Moneda::deTexto(texto.replace(u',', u'.'));
}

} // namespace

frmBusqueda_Articulos_6::frmBusqueda_Articulos_6(QWidget *padre)
    : BusquedaTextoLibre(padre, configuracion())
    , m_medida(nuevaCaja(u"txtMedida"_s, u"Medida"_s))
    , m_oferta(new QCheckBox(u"Oferta"_s, this))
    , m_noMovidos(new QCheckBox(u"No Movidos"_s, this))
{
    auto *descripcion = new QLabel(u"Descripción:"_s, this);
    descripcion->setObjectName(u"lblDescripcion"_s);
    descripcion->setBuddy(caja());
    auto *medida = new QLabel(u"Medida"_s, this);
    medida->setObjectName(u"lblMedida"_s);
    medida->setBuddy(m_medida);
    m_medida->setNumerico(true);
    m_medida->setConSigno(false);
    m_medida->setDecimales(4);
    m_medida->setFixedWidth(nv::twips::aPixeles(1200, this));
    m_oferta->setObjectName(u"chkOferta"_s);
    m_noMovidos->setObjectName(u"chkNoMovidos"_s);

    criterios()->insertWidget(0, descripcion);
    criterios()->addWidget(medida);
    criterios()->addWidget(m_medida);
    buscarConIntro(caja());
    buscarConIntro(m_medida);
    for (QCheckBox *casilla : {m_oferta, m_noMovidos}) {
        criterios()->addWidget(casilla);
        ordenar(casilla);
        connect(casilla, &QCheckBox::toggled, this, [this] {
            if (hayTexto())
                Recuperar_Registros(caja()->text());
        });
    }
}

void frmBusqueda_Articulos_6::leerAjustes()
{
    for (std::size_t i = 0; i < AlmacenesModelo5.size(); ++i)
        rejilla()->setTitulo(PrimerStock + static_cast<int>(i), {});
    nv::Registros registros = nv::ranura::exigida().Abrir(nv::sql::almacenes(cEmpresa->Codigo()));
    while (registros.siguiente()) {
        const qint16 codigo = registros.entero16(u"Codigo");
        const auto almacen = std::find(AlmacenesModelo5.begin(), AlmacenesModelo5.end(), codigo);
        if (almacen != AlmacenesModelo5.end())
            rejilla()->setTitulo(PrimerStock + static_cast<int>(almacen - AlmacenesModelo5.begin()),
                                 registros.textoO(u"Abrev"));
    }
}

void frmBusqueda_Articulos_6::mostrarRecordados()
{
    BusquedaTextoLibre::mostrarRecordados();
    m_medida->setText(Busqueda_Medida > nv::Moneda() ? Busqueda_Medida.textoCorto() : QString());
}

void frmBusqueda_Articulos_6::recordarEscritos()
{
    const nv::Moneda medida = medidaEscrita(m_medida->text());
    BusquedaTextoLibre::recordarEscritos();
    Busqueda_Medida = medida;
}

nv::Sentencia frmBusqueda_Articulos_6::consulta(const QString &texto) const
{
    return nv::sql::modelo5(entorno(), {texto, Busqueda_Medida, m_oferta->isChecked(), m_noMovidos->isChecked()});
}

nv::BusquedaTextoLibre::Lector frmBusqueda_Articulos_6::lector(const nv::Registros &registros)
{
    const auto columna = [&registros](QStringView nombre) { return registros.columna(nombre); };
    const int codigo = columna(u"Codigo");
    const int descripcion = columna(u"Descripcion");
    const int referencia = columna(u"Referencia");
    const int largo = columna(u"Largo");
    const int ancho = columna(u"Ancho");
    const int altura = columna(u"Altura");
    const int pvp = columna(u"Pvp");
    const int bajoPedido = columna(u"BajoPedido");
    const int bloqueado = columna(u"Bloqueado");
    const int motivoBaja = columna(u"MotivoBaja");
    const int pvpOferta = columna(u"PvpP");
    const int pvpNoMovido = columna(u"PvpNM");
    const int color = columna(u"BackColor");
    const int colorNoMovido = columna(u"BackColorNM");
    std::array<int, AlmacenesModelo5.size()> stocks{};
    std::transform(AlmacenesModelo5.begin(), AlmacenesModelo5.end(), stocks.begin(),
                   [&](qint16 almacen) { return columna(u"Stock%1"_s.arg(almacen)); });
    m_estados.clear();
    return [=, this](const nv::Registros &r) {
        namespace lectura = nv::lectura;
        const auto colorDe = [&r](int precio, int fondo) {
            return r.moneda(precio) > nv::Moneda() ? colorPlataforma(r.entero32(fondo)) : QColor();
        };
        Estado estado{lectura::si(r, bloqueado) || lectura::entero16(r, motivoBaja) > 0, lectura::si(r, bajoPedido),
                      colorDe(pvpOferta, color), colorDe(pvpNoMovido, colorNoMovido), 0};
        nv::FilaRejilla fila{
            u"0"_s,
            r.texto(codigo),
            r.textoO(descripcion),
            r.texto(referencia),
            textoMedida(lectura::importe(r, largo), lectura::importe(r, ancho), lectura::importe(r, altura)),
            r.moneda(pvp).textoAgrupado(),
            estado.bajoPedido ? u"X"_s : QString()};
        for (std::size_t i = 0; i < stocks.size(); ++i) {
            const nv::Moneda stock = r.moneda(stocks[i]);
            fila.push_back(stock.textoCorto());
            estado.conStock |= static_cast<quint8>(stock > nv::Moneda() ? 1u << i : 0u);
        }
        m_estados.push_back(estado);
        return fila;
    };
}

void frmBusqueda_Articulos_6::alLlenar()
{
    for (std::size_t i = 0; i < m_estados.size(); ++i)
        pintar(static_cast<int>(i) + 1, m_estados[i]);
    m_estados.clear();
}

void frmBusqueda_Articulos_6::pintar(int fila, const Estado &estado)
{
    if (estado.baja)
        for (int columna = 0; columna < Total; ++columna)
            rejilla()->setColorTexto(fila, columna, QColor(ColorBaja));
    if (estado.bajoPedido)
        rejilla()->setColorFondo(fila, BajoPedido, QColor(ColorBajoPedido));
    // Slow stock after the offer: its colour covers the other.
    for (const QColor &tarifa : {estado.oferta, estado.noMovido}) {
        if (!tarifa.isValid())
            continue;
        for (int columna = 0; columna <= UltimaConTarifa; ++columna)
            rejilla()->setColorFondo(fila, columna, tarifa);
        for (std::size_t i = 0; i < AlmacenesModelo5.size(); ++i)
            if (estado.conStock & (1u << i))
                rejilla()->setColorFondo(fila, PrimerStock + static_cast<int>(i), tarifa);
    }
}
