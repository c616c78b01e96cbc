#include "catalogo/EscritorArticulos.h"

#include "catalogo/Catalogo.h"
#include "catalogo/Imagenes.h"
#include "catalogo/Maestros.h"
#include "catalogo/Muestrario.h"
#include "catalogo/Oficios.h"

#include <array>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

constexpr qint16 E = EmpresaDemostracion;
/// Tariffs: shop, offer, slow stock, wholesale, on line.
enum Tarifa { Tienda = 1, Oferta = 2, NoMovidos = 3, Mayorista = 4, EnLinea = 5 };
constexpr int ArticulosConImagen = 60;
constexpr int MesesDeVentas = 14;

Moneda porcentajeDe(Moneda pvp, int porcentaje, int decimales)
{
    return pvp.porcentaje(Moneda::deUnidades(porcentaje), decimales);
}

} // namespace

EscritorArticulos::EscritorArticulos(Conexion &conexion, QDate dia, const QString &dirImagenes)
    : m_dia(dia)
    , m_dirImagenes(dirImagenes)
    , m_articulos(conexion,
                  u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion, Desc_Ticket, Desc_Memo, Familia_1, "
                  u"Familia_2, Familia_3, Marca, TipoImpuesto, TipoImpuesto2, CualidadX, CualidadY, "
                  u"UnidadesDecimales, Temporada, Alternativo1, Largo, Ancho, Altura, BajoPedido, Bloqueado, "
                  u"MotivoBaja, FAlta) VALUES ")
    , m_barras(conexion, u"INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Unidades, Fecha, "
                         u"Principal) VALUES ")
    , m_referencias(conexion, u"INSERT INTO Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref, Principal, Fecha) "
                              u"VALUES ")
    , m_referenciasCliente(conexion, u"INSERT INTO Articulos_RefCli (Cod_Empresa, Cod_Articulo, Cod_Cli, Ref) VALUES ")
    , m_tarifas(conexion, u"INSERT INTO Articulos_Tarifas (Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp) VALUES ")
    , m_preciosCliente(conexion,
                       u"INSERT INTO Clientes_Art_PVP (Cod_Empresa, Cod_Cliente, Cod_Articulo, Fecha_Inicial, "
                       u"Fecha_Final, Pvp) VALUES ")
    , m_existencias(conexion,
                    u"INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo, Stock_Actual, "
                    u"Stock_MiniCompra, Pend_Servir, Pend_Recibir, Bloqueo, BloqueoVenta, Rotacion, FUlt_Venta) "
                    u"VALUES ")
    , m_ventas(conexion, u"INSERT INTO Almacen_Acumulados (Cod_Empresa, Cod_Almacen, Cod_Ejercicio, Mes, Cod_Articulo, "
                         u"Ventas_Unidades) VALUES ")
    , m_balanzas(conexion, u"INSERT INTO Balanzas_Articulos (Cod_Empresa, Cod_Articulo, Plu, Dpto) VALUES ")
    , m_surtidos(conexion, u"INSERT INTO Surtidos_Articulo_Todos (Cod_Empresa, Cod_Surtido, Cod_Articulo, Obligatorio) "
                           u"VALUES ")
{}

void EscritorArticulos::escribir(int codigo)
{
    Azar azar(static_cast<quint64>(codigo));
    const FichaArticulo ficha = fichaArticulo(codigo, azar);
    articulo(ficha, azar);
    barras(ficha, azar);
    referencias(ficha, azar);
    referenciasCliente(ficha, azar);
    tarifas(ficha, azar);
    existencias(ficha, azar);
    balanza(ficha, azar);
    surtidos(ficha, azar);
    if (codigo <= ArticulosConImagen && !m_dirImagenes.isEmpty())
        imagen(ficha);
}

void EscritorArticulos::cerrar()
{
    for (Lote *lote : {&m_articulos, &m_barras, &m_referencias, &m_referenciasCliente, &m_tarifas, &m_preciosCliente,
                       &m_existencias, &m_ventas, &m_balanzas, &m_surtidos})
        lote->cerrar();
}

void EscritorArticulos::articulo(const FichaArticulo &ficha, Azar &azar)
{
    const Seccion &seccion = *ficha.seccion;
    // Drawn for every item, so that a sample's later draws do not shift.
    const bool descatalogado = azar.deCada100(3);
    const bool bloqueado = azar.deCada100(2);
    const bool bajoPedido = azar.deCada100(4);
    const int estilo = azar.entre(1, 12);
    const bool medido = seccion.familia1 == 2 || azar.deCada100(5);
    const std::array<int, 3> medidas{azar.entre(4, 40) * 5, azar.entre(2, 24) * 5, azar.entre(1, 20) * 5};

    const bool conCualidades = seccion.conTallas;
    const qint16 cualidadX = !conCualidades ? qint16(0) : seccion.familia2 == 4 ? CualidadNumero : CualidadTalla;
    Sentencia fila;
    fila << E << u", " << ficha.codigo << u", '" << Doblado(ficha.descripcion) << u"', '" << Doblado(ficha.ticket)
         << u"', ";
    if (ficha.notas.isEmpty())
        fila << u"NULL";
    else
        fila << u"'" << Doblado(ficha.notas) << u"'";
    fila << u", " << seccion.familia1 << u", " << seccion.familia2 << u", " << ficha.familia3 << u", " << ficha.marca
         << u", " << seccion.impuesto << u", " << seccion.impuesto << u", " << cualidadX << u", "
         << (conCualidades ? CualidadColor : qint16(0)) << u", " << (seccion.porPeso ? 1 : 0) << u", '";
    if (conCualidades)
        fila << Doblado(temporada(m_dia, azar.hasta(4)));
    fila << u"', '";
    // Values of a list, each between commas.
    if (estilo <= 6)
        fila << u"," << estilo << u"," << (estilo % 6 + 1) << u",";
    fila << u"'";
    for (const int medida : medidas)
        fila << u", " << (medido ? medida : 0);
    const auto es = [&ficha](bool alAzar, int muestra) { return ficha.muestra ? ficha.codigo == muestra : alAzar; };
    fila << u", " << (es(bajoPedido, MuestraBajoPedido) ? 1 : 0) << u", " << (es(bloqueado, MuestraBloqueada) ? 1 : 0)
         << u", " << (es(descatalogado, MuestraDescatalogada) ? 2 : 0) << u", '" << m_dia.addDays(-azar.entre(20, 2500))
         << u"'";
    m_articulos.fila(fila);
}

void EscritorArticulos::barras(const FichaArticulo &ficha, Azar &azar)
{
    if (ficha.barras.isEmpty())
        return;
    const auto anotar = [&](const QString &codigo, int unidades, bool principal) {
        Sentencia fila;
        fila << E << u", " << ficha.codigo << u", '" << Doblado(codigo) << u"', " << unidades << u", '"
             << m_dia.addDays(-azar.entre(1, 900)) << u"', " << (principal ? 1 : 0);
        m_barras.fila(fila);
    };
    anotar(ficha.barras, 1, true);
    constexpr std::array<int, 4> Paquetes{6, 10, 12, 24};
    if (ficha.codigo == 1 || azar.deCada100(18))
        anotar(barrasDe(ficha.codigo, 1), Paquetes[static_cast<std::size_t>(azar.hasta(4))], false);
    if (azar.deCada100(4))
        anotar(barrasDe(ficha.codigo, 2), 1, false); // the barcode of a former packaging
}

void EscritorArticulos::referencia(int articulo, int proveedor, const QString &texto, bool principal)
{
    Sentencia fila;
    fila << E << u", " << articulo << u", " << proveedor << u", '" << Doblado(texto) << u"', " << (principal ? 1 : 0)
         << u", '" << m_dia.addDays(-(articulo % 700)) << u"'";
    m_referencias.fila(fila);
}

void EscritorArticulos::referencias(const FichaArticulo &ficha, Azar &azar)
{
    if (ficha.muestra) {
        for (const ReferenciaMuestra &muestra : referenciasMuestra()) {
            if (muestra.articulo == ficha.codigo)
                referencia(ficha.codigo, muestra.tercero, QString::fromUtf16(muestra.referencia), muestra.principal);
        }
        return;
    }
    if (azar.deCada100(7))
        return;
    const QString marca = nombresMarcas()[ficha.marca - 1];
    const QString propia = azar.deCada100(6)    ? u"CAT-%1"_s.arg(ficha.codigo % 400) // other makers count alike
                           : azar.deCada100(50) ? u"%1-%2"_s.arg(marca.left(3)).arg(ficha.codigo * 7 % 100000)
                                                : QString::number(100000 + ficha.codigo * 13);
    referencia(ficha.codigo, ficha.proveedor, propia, true);
    if (!azar.deCada100(12))
        return;
    const int otro = 1 + (ficha.proveedor + azar.entre(1, NumeroProveedores - 1) - 1) % NumeroProveedores;
    referencia(ficha.codigo, otro, azar.deCada100(40) ? propia : u"D%1"_s.arg(ficha.codigo, 6, 10, QChar(u'0')), false);
}

void EscritorArticulos::referenciasCliente(const FichaArticulo &ficha, Azar &azar)
{
    const auto anotar = [this, &ficha](int cliente, const QString &texto) {
        Sentencia fila;
        fila << E << u", " << ficha.codigo << u", " << cliente << u", '" << Doblado(texto) << u"'";
        m_referenciasCliente.fila(fila);
    };
    if (ficha.muestra) {
        for (const ReferenciaMuestra &muestra : referenciasClienteMuestra()) {
            if (muestra.articulo == ficha.codigo)
                anotar(muestra.tercero, QString::fromUtf16(muestra.referencia));
        }
        return;
    }
    if (!azar.deCada100(4))
        return;
    const int cliente = azar.entre(2, NumeroClientes);
    anotar(cliente,
           azar.deCada100(20) ? u"PEDIDO-%1"_s.arg(ficha.codigo % 50) : u"C%1-%2"_s.arg(cliente).arg(ficha.codigo));
}

void EscritorArticulos::tarifa(int articulo, int codigo, Moneda pvp)
{
    Sentencia fila;
    fila << E << u", " << articulo << u", " << codigo << u", " << pvp;
    m_tarifas.fila(fila);
}

void EscritorArticulos::tarifas(const FichaArticulo &ficha, Azar &azar)
{
    const bool enOferta = azar.deCada100(12);
    const bool parado = azar.deCada100(7);
    tarifa(ficha.codigo, Tienda, ficha.pvp);
    if (enOferta && !ficha.muestra)
        tarifa(ficha.codigo, Oferta, porcentajeDe(ficha.pvp, azar.entre(70, 92), 2));
    if (parado && !ficha.muestra)
        tarifa(ficha.codigo, NoMovidos, porcentajeDe(ficha.pvp, azar.entre(50, 68), 2));
    tarifa(ficha.codigo, Mayorista, porcentajeDe(ficha.pvp, 78, 3));
    if (azar.deCada100(55))
        tarifa(ficha.codigo, EnLinea, porcentajeDe(ficha.pvp, 97, 2));

    const bool conPrecio = azar.deCada100(1);
    const int cliente = azar.entre(2, NumeroClientes);
    if (ficha.muestra ? ficha.codigo != MuestraPrecioCliente : !conPrecio)
        return;
    Sentencia fila;
    fila << E << u", " << (ficha.muestra ? ClienteConPrecio : cliente) << u", " << ficha.codigo << u", '"
         << m_dia.addDays(-30) << u"', '" << m_dia.addDays(60) << u"', " << porcentajeDe(ficha.pvp, 80, 2);
    m_preciosCliente.fila(fila);
}

void EscritorArticulos::existencias(const FichaArticulo &ficha, Azar &azar)
{
    const bool seVende = azar.deCada100(10);
    for (const int almacen : {1, 2, 3, 4, 5, 10, 11}) {
        if (almacen != 1 && !azar.deCada100(40))
            continue;
        const bool vacio = azar.deCada100(12);
        // Goods sold by weight have three decimals.
        const Moneda stock = vacio                    ? Moneda::deUnidades(-azar.hasta(4))
                             : ficha.seccion->porPeso ? Moneda::deDiezmilesimas(azar.entre(1, 90000) * 10)
                                                      : Moneda::deUnidades(azar.entre(1, 240));
        const bool bloqueo = !ficha.muestra && azar.deCada100(4);
        Sentencia fila;
        fila << E << u", " << almacen << u", " << ficha.codigo << u", " << stock << u", " << azar.hasta(3) << u", "
             << (azar.deCada100(10) ? azar.entre(1, 30) : 0) << u", " << (azar.deCada100(12) ? azar.entre(1, 60) : 0)
             << u", " << (bloqueo ? 1 : 0) << u", " << (bloqueo && azar.deCada100(50) ? 1 : 0) << u", "
             << Moneda::deDiezmilesimas(azar.hasta(120000)) << u", ";
        if (seVende || azar.deCada100(70))
            fila << u"'" << m_dia.addDays(-(seVende ? azar.hasta(28) : azar.entre(10, 400))) << u"'";
        else
            fila << u"NULL";
        m_existencias.fila(fila);
        if (seVende && almacen <= 2)
            ventas(ficha.codigo, almacen, azar);
    }
}

void EscritorArticulos::ventas(int articulo, int almacen, Azar &azar)
{
    for (int mes = 0; mes < MesesDeVentas; ++mes) {
        if (azar.deCada100(15))
            continue;
        const QDate fecha = m_dia.addMonths(-mes);
        Sentencia fila;
        fila << E << u", " << almacen << u", " << fecha.year() << u", " << fecha.month() << u", " << articulo << u", "
             << azar.entre(1, 180);
        m_ventas.fila(fila);
    }
}

void EscritorArticulos::balanza(const FichaArticulo &ficha, Azar &azar)
{
    const auto anotar = [this, &ficha](int plu, int departamento) {
        Sentencia fila;
        fila << E << u", " << ficha.codigo << u", " << plu << u", " << departamento;
        m_balanzas.fila(fila);
    };
    if (ficha.muestra) {
        for (const PluMuestra &muestra : plusMuestra()) {
            if (muestra.articulo == ficha.codigo)
                anotar(muestra.plu, muestra.departamento);
        }
        return;
    }
    if (!ficha.seccion->porPeso || ficha.codigo > 99999)
        return;
    const int departamento = ficha.seccion->familia2 == 2 ? 1 : 2;
    anotar(ficha.codigo, departamento);
    if (azar.deCada100(15))
        anotar(ficha.codigo, 3);
}

void EscritorArticulos::surtidos(const FichaArticulo &ficha, Azar &azar)
{
    for (const int surtido : {1, 2}) {
        const bool dentro = azar.deCada100(surtido == 1 ? 80 : 50);
        const bool obligatorio = azar.deCada100(10);
        if (!dentro && !ficha.muestra)
            continue;
        Sentencia fila;
        fila << E << u", " << surtido << u", " << ficha.codigo << u", " << (obligatorio ? 1 : 0);
        m_surtidos.fila(fila);
    }
}

void EscritorArticulos::imagen(const FichaArticulo &ficha) const
{
    // A picture less is no reason to do without a catalogue. Every seventh item has none on purpose.
    if (ficha.codigo % 7 != 0)
        dibujarImagen(m_dirImagenes, ficha.codigo, ficha.descripcion, ficha.seccion->familia1);
}

} // namespace nv
