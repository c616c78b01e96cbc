#include "catalogo/Catalogo.h"
#include "catalogo/Muestrario.h"

#include "barcodes/Ean.h"
#include "common/Error.h"
#include "support/BaseDatos.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace nv;
using namespace nv::pruebas;

namespace {

const QDate Dia(2026, 1, 31);

OpcionesCatalogo opciones(int articulos, QDate dia = Dia)
{
    return {articulos, dia, {}, {}};
}

const QStringList Tablas{
    u"Articulos"_s,          u"Articulos_CBarras"_s,      u"Articulos_Ref"_s,      u"Articulos_RefCli"_s,
    u"Articulos_Tarifas"_s,  u"Almacen_Articulos"_s,      u"Almacen_Acumulados"_s, u"Clientes_Art_PVP"_s,
    u"Balanzas_Articulos"_s, u"Surtidos_Articulo_Todos"_s};

/// Everything that hangs from the first `hasta` items.
QStringList volcado(BaseDatos &base, int hasta)
{
    QStringList filas;
    for (const QString &tabla : Tablas) {
        const QString columna = tabla == u"Articulos" ? u"Codigo"_s : u"Cod_Articulo"_s;
        QStringList suyas = base.filas(u"SELECT * FROM %1 WHERE %2 <= %3"_s.arg(tabla, columna).arg(hasta));
        suyas.sort();
        filas << tabla << suyas;
    }
    return filas;
}

} // namespace

/// The demonstration catalogue.
class tst_Catalogo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void the_same_options_give_the_same_rows_and_items_do_not_depend_on_their_number()
    {
        BaseDatos una, otra, mayor;
        generarCatalogo(una.conexion(), opciones(300));
        generarCatalogo(otra.conexion(), opciones(300));
        generarCatalogo(mayor.conexion(), opciones(900));
        const QStringList filas = volcado(una, 300);
        QVERIFY(filas.size() > 3000);
        QCOMPARE(volcado(otra, 300), filas);
        QCOMPARE(volcado(mayor, 300), filas);
    }

    void every_table_that_items_need_has_rows()
    {
        BaseDatos base;
        QVERIFY(generarCatalogo(base.conexion(), opciones(2000)));
        QCOMPARE(base.filas(u"SELECT COUNT(Codigo) FROM Articulos WHERE Cod_Empresa = 1"_s), QStringList{u"2000"_s});
        QStringList todas = Tablas;
        todas << u"Proveedores"_s << u"Clientes"_s << u"Familias_1"_s << u"Familias_2"_s << u"Familias_3"_s
              << u"Marcas"_s << u"Temporadas"_s << u"Tarifas"_s << u"Almacen_Tarifas"_s << u"Surtidos_Almacen"_s
              << u"Cualidades_Des"_s << u"Formacion_Desc"_s << u"Alternativos_Valores"_s << u"Tipos_Impuesto"_s
              << u"SGD_Controles_Grupos"_s;
        for (const QString &tabla : todas)
            QVERIFY2(base.filas(u"SELECT COUNT(*) FROM "_s + tabla) != QStringList{u"0"_s}, qPrintable(tabla));
        QCOMPARE(base.filas(u"SELECT Codigo FROM Almacenes ORDER BY Codigo"_s),
                 (QStringList{u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"10"_s, u"11"_s}));
    }

    void items_point_only_at_families_brands_and_suppliers_that_exist()
    {
        BaseDatos base;
        generarCatalogo(base.conexion(), opciones(2000));
        QCOMPARE(
            base.filas(u"SELECT COUNT(*) FROM Articulos a INNER JOIN Familias_3 f ON f.Cod_Empresa = a.Cod_Empresa "
                       u"AND f.Familia_1 = a.Familia_1 AND f.Familia_2 = a.Familia_2 AND f.Codigo = a.Familia_3 "
                       u"INNER JOIN Marcas m ON m.Codigo = a.Marca"_s),
            QStringList{u"2000"_s});
        QCOMPARE(
            base.filas(u"SELECT Cod_Prov FROM Articulos_Ref WHERE Cod_Prov NOT IN (SELECT Codigo FROM Proveedores)"_s),
            QStringList());
    }

    void barcodes_are_valid_and_an_item_has_one_main_barcode_at_most()
    {
        BaseDatos base;
        generarCatalogo(base.conexion(), opciones(3000));
        const QStringList codigos = base.filas(u"SELECT Cod_Barras FROM Articulos_CBarras"_s);
        QSet<QString> distintos;
        int cortos = 0;
        for (const QString &codigo : codigos) {
            QVERIFY2(codigo.size() == 13 || codigo.size() == 8, qPrintable(codigo));
            QVERIFY2(ean::esValido(codigo), qPrintable(codigo));
            cortos += codigo.size() == 8;
            distintos.insert(codigo);
        }
        QVERIFY(cortos > 50);
        QCOMPARE(distintos.size(), codigos.size());
        QCOMPARE(base.filas(u"SELECT Cod_Articulo FROM Articulos_CBarras WHERE Principal = 1 GROUP BY Cod_Articulo "
                            u"HAVING COUNT(Cod_Barras) > 1"_s),
                 QStringList());
    }

    void samples_open_the_lists_they_are_there_for()
    {
        BaseDatos base;
        generarCatalogo(base.conexion(), opciones(static_cast<int>(muestrario().size())));
        QCOMPARE(base.filas(u"SELECT Cod_Articulo FROM Articulos_CBarras WHERE Cod_Barras = '8412345678905'"_s),
                 QStringList{u"1"_s});
        const auto cuenta = [&base](const QString &desde) {
            return base.filas(u"SELECT COUNT(Cod_Articulo) FROM "_s + desde).value(0).toInt();
        };
        QCOMPARE(cuenta(u"Articulos_Ref WHERE Ref = 'ABC'"_s), 2);
        QCOMPARE(cuenta(u"Articulos_RefCli WHERE Ref = 'CLI-1'"_s), 2);
        QCOMPARE(cuenta(u"Balanzas_Articulos WHERE Plu = 30"_s), 2);
        QCOMPARE(cuenta(u"Balanzas_Articulos WHERE Plu = 25"_s), 1);
        QCOMPARE(base.filas(u"SELECT Codigo FROM Articulos WHERE Descripcion LIKE '%L''ORÉAL%' ORDER BY Codigo"_s),
                 (QStringList{u"8"_s, u"9"_s}));
        QCOMPARE(
            base.filas(u"SELECT MotivoBaja, Bloqueado FROM Articulos WHERE Codigo BETWEEN 13 AND 14 ORDER BY Codigo"_s),
            (QStringList{u"2|0"_s, u"0|1"_s}));
        QCOMPARE(base.filas(u"SELECT cd1.Nombre, cd2.Nombre FROM Articulos a INNER JOIN Cualidades_Des cd1 ON "
                            u"cd1.Cod_Cualidad = a.CualidadX AND cd1.Codigo = 3 INNER JOIN Cualidades_Des cd2 ON "
                            u"cd2.Cod_Cualidad = a.CualidadY AND cd2.Codigo = 5 WHERE a.Codigo = 30"_s),
                 QStringList{u"M|ROJO"_s});
    }

    void sales_cover_the_fourteen_months_before_the_day()
    {
        BaseDatos base;
        // The last of January: months before it are shorter.
        generarCatalogo(base.conexion(), opciones(600, QDate(2026, 3, 31)));
        const QStringList meses =
            base.filas(u"SELECT DISTINCT Cod_Ejercicio, Mes FROM Almacen_Acumulados ORDER BY Cod_Ejercicio, Mes"_s);
        QCOMPARE(meses.size(), 14);
        QCOMPARE(meses.first(), u"2025|2"_s);
        QCOMPARE(meses.last(), u"2026|3"_s);
        QCOMPARE(base.filas(u"SELECT Cod_Articulo FROM Clientes_Art_PVP WHERE Cod_Cliente = 5 AND Cod_Articulo = 1 AND "
                            u"Fecha_Inicial <=' 31/03/2026' AND Fecha_Final >=' 31/03/2026'"_s),
                 QStringList{u"1"_s});
    }

    void a_second_catalogue_is_not_written_over_the_first()
    {
        BaseDatos base;
        generarCatalogo(base.conexion(), opciones(5));
        QVERIFY_EXCEPTION_THROWN(generarCatalogo(base.conexion(), opciones(5)), Error);
        QVERIFY(!base.conexion().enTransaccion());
    }

    void giving_up_leaves_nothing_behind()
    {
        BaseDatos base;
        OpcionesCatalogo abandonada = opciones(1000);
        int avisos = 0;
        abandonada.progreso = [&avisos](int hechos, int total) {
            ++avisos;
            return hechos < total / 2;
        };
        QVERIFY(!generarCatalogo(base.conexion(), abandonada));
        QCOMPARE(avisos, 2);
        QVERIFY(!tieneEmpresa(base.conexion()));
        QVERIFY(!base.conexion().enTransaccion());
    }

    void pictures_are_drawn_where_the_company_says()
    {
        const QTemporaryDir carpeta;
        BaseDatos base;
        OpcionesCatalogo conImagenes = opciones(20);
        conImagenes.dirImagenes = carpeta.filePath(u"imágenes"_s);
        generarCatalogo(base.conexion(), conImagenes);
        const QString dir = base.filas(u"SELECT DirImagenArt FROM Empresas WHERE Codigo = 1"_s).value(0);
        QVERIFY(!QImage(dir + u"1.jpg"_s).isNull());
        QVERIFY(!QFileInfo::exists(dir + u"7.jpg"_s));
    }
};

QTEST_MAIN(tst_Catalogo)
#include "tst_catalogo.moc"
