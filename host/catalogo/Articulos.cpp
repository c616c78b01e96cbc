#include "catalogo/Articulos.h"

#include "barcodes/Ean.h"
#include "catalogo/Azar.h"
#include "catalogo/Catalogo.h"
#include "catalogo/Escritor.h"
#include "catalogo/Imagenes.h"
#include "catalogo/Maestros.h"
#include "catalogo/Tablas.h"

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace mostrador {

namespace {

constexpr qint16 E = EmpresaDemostracion;
/// Tariffs: shop, offer, slow stock, wholesale, on line.
enum Tarifa { Tienda = 1, Oferta = 2, NoMovidos = 3, Mayorista = 4, EnLinea = 5 };
constexpr int ArticulosConImagen = 60;
constexpr int MesesDeVentas = 14;

constexpr Tabla Articulos{
    u"Articulos", u"Cod_Empresa, Codigo, Descripcion, Desc_Ticket, Desc_Memo, Familia_1, Familia_2, Familia_3, Marca, "
                  u"TipoImpuesto, TipoImpuesto2, CualidadX, CualidadY, UnidadesDecimales, Temporada, Alternativo1, "
                  u"Largo, Ancho, Altura, BajoPedido, Bloqueado, MotivoBaja, FAlta, Mod_Ficha"};
constexpr Tabla CBarras{u"Articulos_CBarras", u"Cod_Empresa, Cod_Articulo, Cod_Barras, Unidades, Fecha, Principal"};
constexpr Tabla Referencias{u"Articulos_Ref", u"Cod_Empresa, Cod_Articulo, Cod_Prov, Ref, Principal, Fecha"};
constexpr Tabla ReferenciasCliente{u"Articulos_RefCli", u"Cod_Empresa, Cod_Articulo, Cod_Cli, Ref"};
constexpr Tabla Tarifas{u"Articulos_Tarifas", u"Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp"};
constexpr Tabla PreciosCliente{u"Clientes_Art_PVP",
                               u"Cod_Empresa, Cod_Cliente, Cod_Articulo, Fecha_Inicial, Fecha_Final, Pvp"};
constexpr Tabla Existencias{u"Almacen_Articulos",
                            u"Cod_Empresa, Cod_Almacen, Cod_Articulo, Stock_Actual, Stock_MiniCompra, Pend_Servir, "
                            u"Pend_Recibir, Bloqueo, BloqueoVenta, Rotacion, FUlt_Venta"};
constexpr Tabla Ventas{u"Almacen_Acumulados",
                       u"Cod_Empresa, Cod_Almacen, Cod_Ejercicio, Mes, Cod_Articulo, Ventas_Unidades"};
constexpr Tabla Balanzas{u"Balanzas_Articulos", u"Cod_Empresa, Cod_Articulo, Plu, Dpto"};
constexpr Tabla Surtidos{u"Surtidos_Articulo_Todos", u"Cod_Empresa, Cod_Surtido, Cod_Articulo, Obligatorio"};

QString conDigito(const QString &datos)
{
    return datos + QString::number(ean::digitoControl(datos));
}

/// With zeros in front.
QString cifras(int numero, int ancho)
{
    return u"%1"_s.arg(numero, ancho, 10, QChar(u'0'));
}

/// Prices as shops write them: 12,95, 3,49, 180,00.
int precioRedondo(int centimos)
{
    constexpr std::array<int, 5> Finales{95, 99, 50, 49, 0};
    const int euros = centimos / 100;
    if (euros == 0)
        return centimos;
    return euros * 100 + (euros >= 100 ? 0 : Finales[static_cast<std::size_t>(centimos % 5)]);
}

/// One item, as its code alone decides it. Each of its parts draws from the item's own stream, and their order is part
/// of what the catalogue is.
class Articulo
{
public:
    Articulo(int codigo, QDate dia, Escritor &escritor)
        : m_codigo(codigo)
        , m_dia(dia)
        , m_escritor(escritor)
        , m_azar(static_cast<quint64>(codigo))
    {
        const auto lugar = static_cast<std::size_t>(codigo - 1);
        if (lugar < tablas::muestras().size())
            copiar(tablas::muestras()[lugar]);
        else
            inventar();
    }

    void escribir()
    {
        escribirFicha();
        escribirBarras();
        if (m_muestra)
            escribirAnotaciones();
        else
            escribirReferencias();
        escribirTarifas();
        escribirExistencias();
        escribirBalanza();
        escribirSurtidos();
    }

    void dibujar(const QString &dir) const { dibujarImagen(dir, m_codigo, m_descripcion, m_seccion->familia1); }

private:
    void copiar(const tablas::Muestra &muestra)
    {
        m_muestra = &muestra;
        m_seccion = muestra.seccion;
        m_marca = muestra.marca;
        m_descripcion = muestra.descripcion;
        m_notas = muestra.notas.isEmpty() ? QString() : muestra.notas;
        m_barras = muestra.barras.isEmpty() ? QString() : conDigito(muestra.barras);
        m_pvp = Moneda::deDiezmilesimas(muestra.centimos * 100);
    }

    void inventar()
    {
        m_seccion = &m_azar.uno(tablas::secciones());
        m_marca = m_azar.uno(m_seccion->marcas);
        const QString &calidad = m_azar.uno(m_seccion->calidades);
        m_descripcion = m_azar.uno(m_seccion->productos) + u' ' + calidad;
        if (!m_seccion->porPeso && m_azar.deCada100(70))
            m_descripcion += u' ' + tablas::nombresMarcas()[m_marca - 1];
        m_descripcion += u' ' + m_azar.uno(m_seccion->medidas);
        // Cheap things outnumber dear ones.
        const qint64 tramo = m_seccion->precioMaximo - m_seccion->precioMinimo;
        const qint64 encima = tramo * m_azar.hasta(1000) * m_azar.hasta(1000) / 1000000;
        m_pvp = Moneda::deDiezmilesimas(precioRedondo(m_seccion->precioMinimo + static_cast<int>(encima)) * 100);
        if (m_azar.deCada100(8))
            m_notas = u"Pedir con el código del proveedor. Última revisión del precio: campaña de %1."_s.arg(
                m_azar.deCada100(50) ? u"verano"_s : u"otoño"_s);
        const bool corta = m_azar.deCada100(6) && m_codigo < 100000;
        const bool sinBarras = m_seccion->porPeso && m_azar.deCada100(60);
        if (!sinBarras)
            m_barras = corta ? conDigito(u"96"_s + cifras(m_codigo, 5)) : barras(0);
    }

    /// Of 13 digits, that no other item has.
    QString barras(int serie) const { return conDigito(u"843"_s + cifras(serie, 1) + cifras(m_codigo, 8)); }

    void escribirFicha()
    {
        const tablas::Seccion &s = *m_seccion;
        const qint64 linea = m_azar.entre(1, static_cast<int>(s.lineas.size()));
        m_proveedor = 1 + (m_marca * 7 + m_azar.hasta(3)) % NumeroProveedores;
        // Drawn for every item, so that a sample's later draws do not shift.
        const auto es = [&](int deCada100, const QString &estado) {
            const bool alAzar = m_azar.deCada100(deCada100);
            return m_muestra ? m_muestra->estado == estado : alAzar;
        };
        const int baja = es(3, u"descatalogada"_s) ? 2 : 0;
        const bool bloqueado = es(2, u"bloqueada"_s);
        const bool pedido = es(4, u"bajo pedido"_s);
        const int estilo = m_azar.entre(1, 12);
        // Values of a list, each between commas.
        const QString estilos = estilo <= 6 ? u",%1,%2,"_s.arg(estilo).arg(estilo % 6 + 1) : u""_s;
        const int medido = s.familia1 == 2 || m_azar.deCada100(5) ? 5 : 0;
        const int largo = m_azar.entre(4, 40) * medido;
        const int ancho = m_azar.entre(2, 24) * medido;
        const int alto = m_azar.entre(1, 20) * medido;
        const int talla = !s.conTallas ? 0 : s.familia2 == 4 ? CualidadNumero : CualidadTalla;
        const int color = s.conTallas ? CualidadColor : 0;
        const QString epoca = s.conTallas ? temporada(m_dia, m_azar.hasta(4)) : u""_s;
        const QDate alta = m_dia.addDays(-m_azar.entre(20, 2500));
        const QString ticket = m_descripcion.left(24).trimmed();
        m_escritor.fila(Articulos,
                        {E,       m_codigo,   m_descripcion, ticket, m_notas,   s.familia1, s.familia2, linea,
                         m_marca, s.impuesto, s.impuesto,    talla,  color,     s.porPeso,  epoca,      estilos,
                         largo,   ancho,      alto,          pedido, bloqueado, baja,       alta,       1});
    }

    void escribirBarras()
    {
        if (m_barras.isEmpty())
            return;
        const auto anotar = [&](const QString &codigo, int unidades, bool principal) {
            m_escritor.fila(CBarras, {E, m_codigo, codigo, unidades, m_dia.addDays(-m_azar.entre(1, 900)), principal});
        };
        anotar(m_barras, 1, true);
        constexpr std::array<int, 4> Paquetes{6, 10, 12, 24};
        if (m_codigo == 1 || m_azar.deCada100(18))
            anotar(barras(1), m_azar.uno(Paquetes), false);
        if (m_azar.deCada100(4))
            anotar(barras(2), 1, false); // the barcode of a former packaging
    }

    /// What stands in the table of samples.
    void escribirAnotaciones()
    {
        bool principal = true;
        for (const auto &[quien, texto] : m_muestra->proveedores)
            m_escritor.fila(Referencias,
                            {E, m_codigo, quien, texto, std::exchange(principal, false), m_dia.addDays(-m_codigo)});
        for (const auto &[quien, texto] : m_muestra->clientes)
            m_escritor.fila(ReferenciasCliente, {E, m_codigo, quien, texto});
        for (const auto &[quien, texto] : m_muestra->balanzas)
            m_escritor.fila(Balanzas, {E, m_codigo, texto.toInt(), quien});
    }

    void escribirReferencias()
    {
        const QDate fecha = m_dia.addDays(-(m_codigo % 700));
        if (!m_azar.deCada100(7)) {
            const QString marca = tablas::nombresMarcas()[m_marca - 1].left(3);
            const QString propia = m_azar.deCada100(6)    ? u"CAT-%1"_s.arg(m_codigo % 400) // other makers count alike
                                   : m_azar.deCada100(50) ? u"%1-%2"_s.arg(marca).arg(m_codigo * 7 % 100000)
                                                          : QString::number(100000 + m_codigo * 13);
            m_escritor.fila(Referencias, {E, m_codigo, m_proveedor, propia, true, fecha});
            if (m_azar.deCada100(12)) {
                const int otro = 1 + (m_proveedor + m_azar.entre(1, NumeroProveedores - 1) - 1) % NumeroProveedores;
                const QString suya = m_azar.deCada100(40) ? propia : u"D"_s + cifras(m_codigo, 6);
                m_escritor.fila(Referencias, {E, m_codigo, otro, suya, false, fecha});
            }
        }
        if (m_azar.deCada100(4)) {
            const int cliente = m_azar.entre(2, NumeroClientes);
            m_escritor.fila(ReferenciasCliente, {E, m_codigo, cliente,
                                                 m_azar.deCada100(20) ? u"PEDIDO-%1"_s.arg(m_codigo % 50)
                                                                      : u"C%1-%2"_s.arg(cliente).arg(m_codigo)});
        }
    }

    void escribirTarifas()
    {
        const auto rebajado = [this](int porcentaje, int decimales) {
            return m_pvp.porcentaje(Moneda::deUnidades(porcentaje), decimales);
        };
        const auto tarifa = [&](int codigo, Moneda pvp) { m_escritor.fila(Tarifas, {E, m_codigo, codigo, pvp}); };
        const bool enOferta = m_azar.deCada100(12);
        const bool parado = m_azar.deCada100(7);
        tarifa(Tienda, m_pvp);
        if (enOferta && !m_muestra)
            tarifa(Oferta, rebajado(m_azar.entre(70, 92), 2));
        if (parado && !m_muestra)
            tarifa(NoMovidos, rebajado(m_azar.entre(50, 68), 2));
        tarifa(Mayorista, rebajado(78, 3));
        if (m_azar.deCada100(55))
            tarifa(EnLinea, rebajado(97, 2));

        const bool conPrecio = m_azar.deCada100(1);
        const int alguno = m_azar.entre(2, NumeroClientes);
        if (const int cliente = m_muestra ? m_muestra->clienteConPrecio : conPrecio ? alguno : 0)
            m_escritor.fila(PreciosCliente,
                            {E, cliente, m_codigo, m_dia.addDays(-30), m_dia.addDays(60), rebajado(80, 2)});
    }

    void escribirExistencias()
    {
        const bool seVende = m_azar.deCada100(10);
        for (const int almacen : {1, 2, 3, 4, 5, 10, 11}) {
            if (almacen != 1 && !m_azar.deCada100(40))
                continue;
            const bool vacio = m_azar.deCada100(12);
            // Goods sold by weight have three decimals.
            const Moneda stock = vacio                ? Moneda::deUnidades(-m_azar.hasta(4))
                                 : m_seccion->porPeso ? Moneda::deDiezmilesimas(m_azar.entre(1, 90000) * 10)
                                                      : Moneda::deUnidades(m_azar.entre(1, 240));
            const auto aVeces = [this](int deCada100, int maximo) {
                return m_azar.deCada100(deCada100) ? m_azar.entre(1, maximo) : 0;
            };
            const bool bloqueo = !m_muestra && m_azar.deCada100(4);
            const auto ultimaVenta = [&] {
                if (seVende)
                    return m_dia.addDays(-m_azar.hasta(28));
                return m_azar.deCada100(70) ? m_dia.addDays(-m_azar.entre(10, 400)) : QDate();
            };
            m_escritor.fila(Existencias, {E, almacen, m_codigo, stock, m_azar.hasta(3), aVeces(10, 30), aVeces(12, 60),
                                          bloqueo, bloqueo && m_azar.deCada100(50),
                                          Moneda::deDiezmilesimas(m_azar.hasta(120000)), ultimaVenta()});
            if (seVende && almacen <= 2)
                escribirVentas(almacen);
        }
    }

    void escribirVentas(int almacen)
    {
        for (int mes = 0; mes < MesesDeVentas; ++mes) {
            const QDate fecha = m_dia.addMonths(-mes);
            if (!m_azar.deCada100(15))
                m_escritor.fila(Ventas, {E, almacen, fecha.year(), fecha.month(), m_codigo, m_azar.entre(1, 180)});
        }
    }

    void escribirBalanza()
    {
        if (m_muestra || !m_seccion->porPeso || m_codigo > 99999)
            return;
        m_escritor.fila(Balanzas, {E, m_codigo, m_codigo, m_seccion->familia2 == 2 ? 1 : 2});
        if (m_azar.deCada100(15))
            m_escritor.fila(Balanzas, {E, m_codigo, m_codigo, 3});
    }

    void escribirSurtidos()
    {
        for (const int surtido : {1, 2}) {
            const bool dentro = m_azar.deCada100(surtido == 1 ? 80 : 50);
            const bool obligatorio = m_azar.deCada100(10);
            if (dentro || m_muestra)
                m_escritor.fila(Surtidos, {E, surtido, m_codigo, obligatorio});
        }
    }

    int m_codigo;
    QDate m_dia;
    Escritor &m_escritor;
    Azar m_azar;
    const tablas::Muestra *m_muestra = nullptr; ///< null: invented
    const tablas::Seccion *m_seccion = nullptr;
    qint16 m_marca = 0;
    int m_proveedor = 0;
    QString m_descripcion, m_notas;
    QString m_barras; ///< main barcode; empty for some of the items sold by weight
    Moneda m_pvp;
};

} // namespace

bool escribirArticulos(Conexion &conexion, const OpcionesCatalogo &opciones)
{
    Escritor escritor(conexion);
    for (int codigo = 1; codigo <= opciones.articulos; ++codigo) {
        Articulo articulo(codigo, opciones.dia, escritor);
        articulo.escribir();
        // A picture less is no reason to do without a catalogue. Every seventh item has none on purpose.
        if (codigo <= ArticulosConImagen && codigo % 7 != 0 && !opciones.dirImagenes.isEmpty())
            articulo.dibujar(opciones.dirImagenes);
        if (codigo % 250 == 0 && opciones.progreso && !opciones.progreso(codigo, opciones.articulos))
            return false;
    }
    escritor.cerrar();
    return true;
}

} // namespace mostrador
