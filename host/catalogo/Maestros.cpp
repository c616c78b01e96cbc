#include "catalogo/Maestros.h"

#include "catalogo/Azar.h"
#include "catalogo/Catalogo.h"
#include "catalogo/Lote.h"
#include "catalogo/Oficios.h"
#include "common/Conexion.h"

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

constexpr qint16 E = EmpresaDemostracion;

void escribirEmpresa(Conexion &conexion, const QString &dirImagenes)
{
    Sentencia empresa(
        u"INSERT INTO Empresas (Codigo, Nombre, Cod_Empresa_Articulos, Cod_Empresa_Proveedores, "
        u"Cod_Empresa_Clientes, NoProcesarPermisosControles, FamiliaObligada, DirImagenArt, MaxCodigoArt, "
        u"CualidadX_PorDefecto, CualidadY_PorDefecto, Series_Automaticas, CodigoBarrasAuto, "
        u"Nombre_Familia_1, Nombre_Familia_2, Nombre_Familia_3, Nombre_CualidadX, Nombre_CualidadY, "
        u"Nombre_Alternativo1, OrdenCualidades, DecimalesPvp, DirInformes) VALUES (");
    empresa << E << u", 'COMERCIAL LA MAÑANA, S.L.', " << E << u", " << E << u", " << E << u", 0, 0, '"
            << Doblado(dirImagenes) << u"', 99999, " << CualidadTalla << u", " << CualidadColor
            << u", 1, 0, 'Familia', 'SubFamilia', 'Linea', 'Talla', 'Color', 'Estilo', 1, 2, '')";
    conexion.Ejecutar(empresa);

    constexpr std::array<std::pair<const char16_t *, const char16_t *>, 11> Valores{{
        {u"BusquedaArticulos", u"0"},
        {u"OficinaCentral", u"1"},
        {u"EsUlvaro", u"0"},
        {u"Check_Barras_7Digitos", u"0"},
        {u"Articulos_CheckRefProv", u"0"},
        {u"Articulos_BusquedaCantMax", u"150"},
        {u"Almacen_PD", u"1"},
        {u"UsuarioActual", u"DEMO"},
        {u"DeclaraIgic", u"0"},
        {u"Articulos_FichaVerPvpConIgic", u"1"},
        {u"Articulos_FichaVerPvpConIva", u"1"},
    }};
    Lote lote(conexion, u"INSERT INTO Parametros_Empresa (Cod_Empresa, Clave, Valor) VALUES ");
    for (const auto &[clave, valor] : Valores) {
        Sentencia fila;
        fila << E << u", '" << Doblado(QStringView(clave)) << u"', '" << Doblado(QStringView(valor)) << u"'";
        lote.fila(fila);
    }
    lote.cerrar();
    conexion.Ejecutar(Sentencia(u"INSERT INTO Parametros_App (Clave, Valor) VALUES "
                                u"('nvArticulo.BuscadorM2.MaxCargaFilas', '200')"));
    // A row denies: these are of another form, so that the ones of the item box are granted.
    conexion.Ejecutar(Sentencia(u"INSERT INTO SGD_Controles_Grupos (Cod_Formulario, Cod_Control, Cod_Grupo, Permiso) "
                                u"VALUES (2, 8, 1, 1), (2, 19, 1, 1), (1, 3, 1, 1)"));
    conexion.Ejecutar(Sentencia(u"INSERT INTO Tipos_Impuesto (Codigo, Nombre, Porcentaje, Porcentaje2) VALUES "
                                u"(1, 'GENERAL', 7, 21), (2, 'REDUCIDO', 3, 10), (3, 'SUPERREDUCIDO', 0, 4), "
                                u"(4, 'EXENTO', 0, 0)"));
    conexion.Ejecutar(Sentencia(u"INSERT INTO Formacion_Desc (Desc_Larga, Orden, Cod_Campo, Longitud) VALUES "
                                u"(0, 1, 1, 8), (0, 2, 0, 1), (0, 3, 2, 12), (1, 1, 5, 20), (1, 2, 0, 1), "
                                u"(1, 3, 1, 15), (1, 4, 0, 1), (1, 5, 2, 20), (1, 6, 0, 1), (1, 7, 3, 6)"));
    conexion.Ejecutar(Sentencia(u"INSERT INTO Alternativos_Valores (Tabla, Alternativo, id, Valor) VALUES "
                                u"(0, 0, 1, 'CLÁSICO'), (0, 0, 2, 'MODERNO'), (0, 0, 3, 'RÚSTICO'), "
                                u"(0, 0, 4, 'INDUSTRIAL'), (0, 0, 5, 'NÓRDICO'), (0, 0, 6, 'INFANTIL')"));
}

void escribirFamilias(Conexion &conexion)
{
    Lote nivel1(conexion, u"INSERT INTO Familias_1 (Cod_Empresa, Codigo, Nombre) VALUES ");
    for (qsizetype i = 0; i < nombresFamilias1().size(); ++i) {
        Sentencia fila;
        fila << E << u", " << i + 1 << u", '" << Doblado(nombresFamilias1()[i]) << u"'";
        nivel1.fila(fila);
    }
    nivel1.cerrar();
    Lote nivel2(conexion, u"INSERT INTO Familias_2 (Cod_Empresa, Familia_1, Codigo, Nombre) VALUES ");
    Lote nivel3(conexion, u"INSERT INTO Familias_3 (Cod_Empresa, Familia_1, Familia_2, Codigo, Nombre) VALUES ");
    for (const Seccion &seccion : secciones()) {
        Sentencia fila;
        fila << E << u", " << seccion.familia1 << u", " << seccion.familia2 << u", '" << Doblado(seccion.nombre)
             << u"'";
        nivel2.fila(fila);
        for (qsizetype i = 0; i < seccion.lineas.size(); ++i) {
            Sentencia linea;
            linea << E << u", " << seccion.familia1 << u", " << seccion.familia2 << u", " << i + 1 << u", '"
                  << Doblado(seccion.lineas[i]) << u"'";
            nivel3.fila(linea);
        }
    }
    nivel2.cerrar();
    nivel3.cerrar();
    Lote marcas(conexion, u"INSERT INTO Marcas (Codigo, Nombre) VALUES ");
    for (qsizetype i = 0; i < nombresMarcas().size(); ++i) {
        Sentencia fila;
        fila << i + 1 << u", '" << Doblado(nombresMarcas()[i]) << u"'";
        marcas.fila(fila);
    }
    marcas.cerrar();
}

const QStringList &apellidos()
{
    static const QStringList lista{u"NÚÑEZ"_s,      u"PEÑA"_s,    u"GARCÍA"_s,  u"IBÁÑEZ"_s,   u"LÓPEZ"_s,
                                   u"MUÑOZ"_s,      u"ORDÓÑEZ"_s, u"PÉREZ"_s,   u"QUIÑONES"_s, u"RUIZ"_s,
                                   u"D'OLIVEIRA"_s, u"SÁNCHEZ"_s, u"TORRES"_s,  u"URRUTIA"_s,  u"VIDAL"_s,
                                   u"ZÁRATE"_s,     u"ARMAS"_s,   u"BETANCOR"_s};
    return lista;
}

void escribirProveedores(Conexion &conexion)
{
    const QStringList ramos{u"SUMINISTROS %1, S.L."_s, u"COMERCIAL %1, S.A."_s,   u"ALMACENES %1"_s,
                            u"DISTRIBUCIONES %1"_s,    u"HIJOS DE %1, S.L."_s,    u"INDUSTRIAS %1, S.A."_s,
                            u"IMPORTADORA %1, S.L."_s, u"%1 & ASOCIADOS, S.L."_s, u"TALLERES %1"_s};
    Lote lote(conexion, u"INSERT INTO Proveedores (Cod_Empresa, Codigo, Nombre) VALUES ");
    for (int codigo = 1; codigo <= NumeroProveedores; ++codigo) {
        Azar azar(static_cast<quint64>(codigo) + 700000u);
        Sentencia fila;
        const QString nombre =
            ramos[azar.hasta(static_cast<int>(ramos.size()))].arg(apellidos()[codigo % apellidos().size()]);
        fila << E << u", " << codigo << u", '" << Doblado(nombre) << u"'";
        lote.fila(fila);
    }
    lote.cerrar();
}

void escribirClientes(Conexion &conexion)
{
    const QStringList nombres{u"ANA"_s,  u"BEGOÑA"_s, u"CARLOS"_s, u"IÑAKI"_s, u"ELENA"_s,
                              u"JOSÉ"_s, u"LUCÍA"_s,  u"MARÍA"_s,  u"ÓSCAR"_s, u"ÚRSULA"_s};
    const QStringList negocios{u"BAR %1"_s, u"REFORMAS %1, S.L."_s, u"HOTEL %1"_s, u"CONSTRUCCIONES %1"_s};
    Lote lote(conexion, u"INSERT INTO Clientes (Cod_Empresa, Codigo, Nombre, Tarifa_Pvp, Tarifa_Promoc) VALUES ");
    for (int codigo = 1; codigo <= NumeroClientes; ++codigo) {
        Azar azar(static_cast<quint64>(codigo) + 800000u);
        const QString apellido = apellidos()[azar.hasta(static_cast<int>(apellidos().size()))];
        const bool negocio = azar.deCada100(30);
        const QString nombre = negocio ? negocios[azar.hasta(static_cast<int>(negocios.size()))].arg(apellido)
                                       : nombres[azar.hasta(static_cast<int>(nombres.size()))] + u' ' + apellido;
        // 1 is the passing customer; some have no tariff of their own and take the warehouse's.
        const int tarifa = codigo == 1 ? 0 : negocio ? 4 : azar.deCada100(40) ? 1 : 0;
        Sentencia fila;
        fila << E << u", " << codigo << u", '" << Doblado(codigo == 1 ? u"CLIENTE CONTADO"_s : nombre) << u"', "
             << tarifa << u", " << (tarifa == 1 ? 2 : 0);
        lote.fila(fila);
    }
    lote.cerrar();
}

void escribirAlmacenesYTarifas(Conexion &conexion)
{
    struct Almacen
    {
        int codigo;
        const char16_t *nombre;
        const char16_t *abreviatura;
        int tarifa;
    };
    constexpr std::array<Almacen, 7> Lista{{{1, u"TIENDA CENTRAL", u"CEN", 1},
                                            {2, u"TIENDA PUERTO", u"PTO", 1},
                                            {3, u"TIENDA LA VEGA", u"VEG", 1},
                                            {4, u"TIENDA MONTAÑA", u"MÑA", 1},
                                            {5, u"TIENDA EL RÍO", u"RÍO", 1},
                                            {10, u"ALMACÉN MAYORISTA", u"MAY", 4},
                                            {11, u"TIENDA EN LÍNEA", u"WEB", 5}}};
    Lote lote(conexion, u"INSERT INTO Almacenes (Cod_Empresa, Codigo, Nombre, Abrev, Tarifa, TarifaProm) VALUES ");
    Lote tarifas(conexion, u"INSERT INTO Almacen_Tarifas (Cod_Empresa, Cod_Almacen, Cod_Tarifa) VALUES ");
    Lote surtidos(conexion, u"INSERT INTO Surtidos_Almacen (Cod_Empresa, Cod_Almacen, Cod_Surtido) VALUES ");
    for (const Almacen &almacen : Lista) {
        Sentencia fila;
        fila << E << u", " << almacen.codigo << u", '" << Doblado(QStringView(almacen.nombre)) << u"', '"
             << Doblado(QStringView(almacen.abreviatura)) << u"', " << almacen.tarifa << u", "
             << (almacen.tarifa == 1 ? 2 : 0);
        lote.fila(fila);
        for (const int tarifa : {1, 2, 4}) {
            Sentencia par;
            par << E << u", " << almacen.codigo << u", " << tarifa;
            tarifas.fila(par);
        }
        // The wholesale warehouse and the one on line take everything: no assortment.
        if (almacen.codigo < 10) {
            Sentencia surtido;
            surtido << E << u", " << almacen.codigo << u", " << (almacen.codigo == 1 ? 1 : 2);
            surtidos.fila(surtido);
        }
    }
    lote.cerrar();
    tarifas.cerrar();
    surtidos.cerrar();
    // Colours as red + 256 green + 65536 blue: light yellow for offers, light blue for slow stock.
    Sentencia lineas(u"INSERT INTO Tarifas (Cod_Empresa, Cod_Tarifa, Nombre, Decimales, BackColor) VALUES ");
    lineas << u"(1, 1, 'P.V.P. TIENDA', 2, 0), (1, 2, 'OFERTA', 2, " << 255 + 256 * 242 + 65536 * 153
           << u"), (1, 3, 'NO MOVIDOS', 2, " << 180 + 256 * 215 + 65536 * 255
           << u"), (1, 4, 'MAYORISTA', 3, 0), (1, 5, 'EN LÍNEA', 2, 0)";
    conexion.Ejecutar(lineas);
    conexion.Ejecutar(Sentencia(u"INSERT INTO Balanzas_Dptos (Cod_Empresa, Codigo, Nombre) VALUES "
                                u"(1, 1, 'FRUTERÍA'), (1, 2, 'CHARCUTERÍA'), (1, 3, 'PESCADERÍA')"));
}

void escribirCualidades(Conexion &conexion, QDate dia)
{
    // The first row counts as not chosen where an item is created.
    conexion.Ejecutar(
        Sentencia(u"INSERT INTO Cualidades (Codigo, Nombre) VALUES (0, '(ninguna)'), (1, 'TALLA'), (2, 'COLOR'), "
                  u"(3, 'NÚMERO')"));
    const QStringList tallas{u"XS"_s, u"S"_s, u"M"_s, u"L"_s, u"XL"_s, u"XXL"_s};
    const QStringList colores{u"BLANCO"_s, u"NEGRO"_s, u"GRIS"_s,   u"AZUL MARINO"_s,
                              u"ROJO"_s,   u"VERDE"_s, u"MARRÓN"_s, u"AÑIL"_s};
    Lote lote(conexion, u"INSERT INTO Cualidades_Des (Cod_Empresa, Cod_Cualidad, Codigo, Nombre) VALUES ");
    const auto anotar = [&lote](qint16 cualidad, qsizetype codigo, const QString &nombre) {
        Sentencia fila;
        fila << E << u", " << cualidad << u", " << codigo << u", '" << Doblado(nombre) << u"'";
        lote.fila(fila);
    };
    for (qsizetype i = 0; i < tallas.size(); ++i)
        anotar(CualidadTalla, i + 1, tallas[i]);
    for (qsizetype i = 0; i < colores.size(); ++i)
        anotar(CualidadColor, i + 1, colores[i]);
    for (int numero = 22; numero <= 46; ++numero)
        anotar(CualidadNumero, numero, QString::number(numero));
    lote.cerrar();
    Lote temporadas(conexion, u"INSERT INTO Temporadas (Codigo, Nombre) VALUES ");
    for (int i = 0; i < 4; ++i) {
        const QString codigo = temporada(dia, i);
        const QString nombre =
            (codigo.startsWith(u'V') ? u"PRIMAVERA-VERANO 20"_s : u"OTOÑO-INVIERNO 20"_s) + codigo.mid(1);
        Sentencia fila;
        fila << u"'" << Doblado(codigo) << u"', '" << Doblado(nombre) << u"'";
        temporadas.fila(fila);
    }
    temporadas.cerrar();
}

} // namespace

QString temporada(QDate dia, int indice)
{
    // V25, I25, V26, I26 for a day of 2026.
    return u"%1%2"_s.arg(indice % 2 == 0 ? u'V' : u'I').arg((dia.year() - 1 + indice / 2) % 100, 2, 10, QChar(u'0'));
}

void escribirMaestros(Conexion &conexion, QDate dia, const QString &dirImagenes)
{
    escribirEmpresa(conexion, dirImagenes);
    escribirFamilias(conexion);
    escribirProveedores(conexion);
    escribirClientes(conexion);
    escribirAlmacenesYTarifas(conexion);
    escribirCualidades(conexion, dia);
}

} // namespace nv
