#include "search/frmBusqueda_Articulos_6.h"

#include "nvArticulo/Conexion.h"
#include "nvArticulo/Error.h"
#include "nvArticulo/cEmpresa.h"
#include "platform/widgets/Campos.h"
#include "platform/widgets/Twips.h"
#include "platform/widgets/nvTextBox.h"
#include "search/sql/Modelo5.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <algorithm>

using namespace Qt::StringLiterals;
using nv::Celda;
using nv::sql::AlmacenesModelo5;

namespace {

enum Columna { Marcada, CodigoArticulo, DescripcionArticulo, Referencia, Medida, Pvp, BajoPedido, PrimerStock };

constexpr int UltimaConTarifa = Pvp;
constexpr QRgb ColorBaja = qRgb(192, 0, 0);
constexpr QRgb ColorBajoPedido = qRgb(255, 128, 0);

constexpr nv::ColumnaRejilla Almacen{{}, 1000, Qt::AlignRight};
constexpr nv::ColumnaBusqueda Columnas[] = {
    {{}, {}, Celda::Seleccion},
    {{u"Código", 900, Qt::AlignCenter}, u"Codigo"},
    {{u"Descripción", 4400}, u"Descripcion"},
    {{u"Referencia", 1500, Qt::AlignRight}, u"Referencia"},
    {{u"Medida", 1500}, {}, Celda::Propia},
    {{u"Pvp", 0, Qt::AlignRight}, u"Pvp", Celda::Agrupado},
    {{u"BP", 300, Qt::AlignCenter}, {}, Celda::Propia},
    {Almacen, u"Stock1", Celda::Numero},
    {Almacen, u"Stock2", Celda::Numero},
    {Almacen, u"Stock3", Celda::Numero},
    {Almacen, u"Stock4", Celda::Numero},
    {Almacen, u"Stock5", Celda::Numero},
    {Almacen, u"Stock10", Celda::Numero},
    {Almacen, u"Stock11", Celda::Numero},
};
constexpr int Total = static_cast<int>(std::size(Columnas));

nv::ConfiguracionTextoLibre configuracion()
{
    nv::ConfiguracionTextoLibre c{u"frmBusqueda_Articulos_6"_s, u"txtBusqueda"_s, Columnas};
    c.parametroReferencia = u".BuscadorM6.SoloRefPrincipal";
    c.mayusculas = true;
    c.errorNumerado = false;
    c.enfocarRejilla = true;
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
    QLabel *descripcion = nv::nuevoRotulo(u"Descripción:"_s, caja(), this, u"lblDescripcion"_s);
    QLabel *medida = nv::nuevoRotulo(u"Medida"_s, m_medida, this, u"lblMedida"_s);
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
        tabularAntes(casilla);
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
    const nv::Moneda medida = nv::nombrado(u"Medida", [this] { return medidaEscrita(m_medida->text()); });
    BusquedaTextoLibre::recordarEscritos();
    Busqueda_Medida = medida;
}

nv::Sentencia frmBusqueda_Articulos_6::consulta(const QString &texto) const
{
    return nv::sql::modelo5(entorno(), {texto, Busqueda_Medida, m_oferta->isChecked(), m_noMovidos->isChecked()});
}

nv::CeldasPropias frmBusqueda_Articulos_6::celdasPropias(const nv::Registros &registros)
{
    const auto columna = [&registros](QStringView nombre) { return registros.columna(nombre); };
    const int largo = columna(u"Largo");
    const int ancho = columna(u"Ancho");
    const int altura = columna(u"Altura");
    const int bajoPedido = columna(u"BajoPedido");
    const int bloqueado = columna(u"Bloqueado");
    const int motivoBaja = columna(u"MotivoBaja");
    const int pvpOferta = columna(u"PvpP");
    const int pvpNoMovido = columna(u"PvpNM");
    const int color = columna(u"BackColor");
    const int colorNoMovido = columna(u"BackColorNM");
    std::array<int, AlmacenesModelo5.size()> stocks{};
    for (std::size_t i = 0; i < stocks.size(); ++i)
        stocks[i] = columna(Columnas[PrimerStock + i].campo);
    m_estados.clear();
    return [=, this](const nv::Registros &r, nv::FilaRejilla &fila) {
        const auto colorDe = [&r](int precio, int fondo) {
            return r.moneda(precio) > nv::Moneda() ? colorPlataforma(r.entero32(fondo)) : QColor();
        };
        Estado estado{r.booleanoO(bloqueado) || r.entero16O(motivoBaja) > 0, r.booleanoO(bajoPedido),
                      colorDe(pvpOferta, color), colorDe(pvpNoMovido, colorNoMovido), 0};
        fila[Medida] = textoMedida(r.monedaO(largo), r.monedaO(ancho), r.monedaO(altura));
        fila[BajoPedido] = estado.bajoPedido ? u"X"_s : QString();
        for (std::size_t i = 0; i < stocks.size(); ++i)
            estado.conStock |= static_cast<quint8>(r.moneda(stocks[i]) > nv::Moneda() ? 1u << i : 0u);
        m_estados.push_back(estado);
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
    QStringList nota;
    for (const auto &[vale, dice] :
         {std::pair(estado.baja, u"bloqueado o de baja"_s), std::pair(estado.bajoPedido, u"bajo pedido"_s),
          std::pair(estado.oferta.isValid(), u"en oferta"_s), std::pair(estado.noMovido.isValid(), u"no movido"_s)})
        if (vale)
            nota << dice;
    if (!nota.isEmpty())
        rejilla()->setNota(fila, nota.join(u", "_s));
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
