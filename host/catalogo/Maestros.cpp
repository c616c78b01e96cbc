#include "catalogo/Maestros.h"

#include "catalogo/Azar.h"
#include "catalogo/Catalogo.h"
#include "catalogo/Escritor.h"
#include "catalogo/Tablas.h"
#include "nvArticulo/Conexion.h"

using namespace Qt::StringLiterals;

namespace mostrador {

namespace {

constexpr qint16 E = EmpresaDemostracion;
constexpr Tabla Familias2{u"Familias_2", u"Cod_Empresa, Familia_1, Codigo, Nombre"};
constexpr Tabla Familias3{u"Familias_3", u"Cod_Empresa, Familia_1, Familia_2, Codigo, Nombre"};
constexpr Tabla Marcas{u"Marcas", u"Codigo, Nombre"};
constexpr Tabla Proveedores{u"Proveedores", u"Cod_Empresa, Codigo, Nombre"};
constexpr Tabla Clientes{u"Clientes", u"Cod_Empresa, Codigo, Nombre, Tarifa_Pvp, Tarifa_Promoc"};
constexpr Tabla Temporadas{u"Temporadas", u"Codigo, Nombre"};

void escribirSeccionesYMarcas(Escritor &escritor)
{
    for (const tablas::Seccion &seccion : tablas::secciones()) {
        escritor.fila(Familias2, {E, seccion.familia1, seccion.familia2, seccion.nombre});
        for (qsizetype i = 0; i < seccion.lineas.size(); ++i)
            escritor.fila(Familias3, {E, seccion.familia1, seccion.familia2, i + 1, seccion.lineas[i]});
    }
    for (qsizetype i = 0; i < tablas::nombresMarcas().size(); ++i)
        escritor.fila(Marcas, {i + 1, tablas::nombresMarcas()[i]});
}

void escribirProveedoresYClientes(Escritor &escritor)
{
    const QStringList apellidos = u"NÚÑEZ|PEÑA|GARCÍA|IBÁÑEZ|LÓPEZ|MUÑOZ|ORDÓÑEZ|PÉREZ|QUIÑONES|RUIZ|D'OLIVEIRA|"
                                  u"SÁNCHEZ|TORRES|URRUTIA|VIDAL|ZÁRATE|ARMAS|BETANCOR"_s.split(u'|');
    const QStringList ramos = u"SUMINISTROS %1, S.L.|COMERCIAL %1, S.A.|ALMACENES %1|DISTRIBUCIONES %1|"
                              u"HIJOS DE %1, S.L.|INDUSTRIAS %1, S.A.|IMPORTADORA %1, S.L.|%1 & ASOCIADOS, S.L.|"
                              u"TALLERES %1"_s.split(u'|');
    for (int codigo = 1; codigo <= NumeroProveedores; ++codigo) {
        Azar azar(static_cast<quint64>(codigo) + 700000u);
        escritor.fila(Proveedores, {E, codigo, azar.uno(ramos).arg(apellidos[codigo % apellidos.size()])});
    }

    const QStringList nombres = u"ANA|BEGOÑA|CARLOS|IÑAKI|ELENA|JOSÉ|LUCÍA|MARÍA|ÓSCAR|ÚRSULA"_s.split(u'|');
    const QStringList negocios = u"BAR %1|REFORMAS %1, S.L.|HOTEL %1|CONSTRUCCIONES %1"_s.split(u'|');
    escritor.fila(Clientes, {E, 1, u"CLIENTE CONTADO"_s, 0, 0});
    for (int codigo = 2; codigo <= NumeroClientes; ++codigo) {
        Azar azar(static_cast<quint64>(codigo) + 800000u);
        const QString apellido = azar.uno(apellidos);
        const bool negocio = azar.deCada100(30);
        const QString nombre = negocio ? azar.uno(negocios).arg(apellido) : azar.uno(nombres) + u' ' + apellido;
        // Some have no tariff of their own and take the warehouse's.
        const int tarifa = negocio ? 4 : azar.deCada100(40) ? 1 : 0;
        escritor.fila(Clientes, {E, codigo, nombre, tarifa, tarifa == 1 ? 2 : 0});
    }
}

} // namespace

QString temporada(QDate dia, int indice)
{
    // V25, I25, V26, I26 for a day of 2026.
    return u"%1%2"_s.arg(QChar(indice % 2 == 0 ? u'V' : u'I'))
        .arg((dia.year() - 1 + indice / 2) % 100, 2, 10, QChar(u'0'));
}

void escribirMaestros(Conexion &conexion, QDate dia, const QString &dirImagenes)
{
    for (const QString &sentencia : tablas::guionMaestros())
        conexion.Ejecutar(Sentencia::deConsola(sentencia));
    Sentencia carpeta(u"UPDATE Empresas SET DirImagenArt = '");
    conexion.Ejecutar(carpeta << Doblado(dirImagenes) << u"' WHERE Codigo = " << E);
    Escritor escritor(conexion);
    escribirSeccionesYMarcas(escritor);
    escribirProveedoresYClientes(escritor);
    for (int i = 0; i < 4; ++i) {
        const QString codigo = temporada(dia, i);
        const QString epoca = codigo.startsWith(u'V') ? u"PRIMAVERA-VERANO 20"_s : u"OTOÑO-INVIERNO 20"_s;
        escritor.fila(Temporadas, {codigo, epoca + codigo.mid(1)});
    }
    escritor.cerrar();
}

} // namespace mostrador
