#include "Escenario.h"
#include "support/Programa.h"

using namespace Qt::StringLiterals;
using namespace nv::pruebas;
using nv::AltaArticulo;
using nv::FichaAlta;

/// The rows of a new item and the texts that name it, without a window.
class tst_AltaArticulo : public QObject
{
    Q_OBJECT

    static FichaAlta ficha() { return {u"200"_s, 7, u"R"_s, 0, {}, u"1"_s, {}, {}, {3, 4}, false, true, {}, {}, {}}; }

private Q_SLOTS:
    void descriptions_are_composed_from_a_layout()
    {
        // The second level has a name on screen but no code any more.
        const nv::CamposDescripcion campos{
            u"ACME SPORT"_s, u"B-1234"_s, u"V26"_s, {{{1, u"ROPA"_s}, {0, u"CAMISAS"_s}, {6, u"MANGA"_s}}}};
        for (const auto &[formato, descripcion] : casos<2>(uR"(
            1:3 0:1 2:10       → ACM B-1234
            4:20 5:2 6:3       → ROPAMAN
            3:1 0:2 3:9        → V··V26
            7:5 -1:5 1:-2 0:-1 →
                               →)"_s)) {
            nv::FormatoDescripcion entradas;
            for (const QString &entrada : formato.split(u' ', Qt::SkipEmptyParts))
                entradas.push_back({entrada.section(u':', 0, 0).toShort(), entrada.section(u':', 1).toShort()});
            QCOMPARE(nv::componerDescripcion(entradas, campos), descripcion);
        }
    }

    void rows_are_made_and_only_they_are_undone()
    {
        Escenario e;
        const auto huella = [&] {
            return e.filas(u"SELECT Cod_Empresa, Codigo, FAlta, Mod_Ficha FROM Articulos WHERE Codigo <> 999"_s) +
                   u" / "_s + e.filas(u"SELECT Cod_Empresa, Cod_Almacen, Cod_Articulo FROM Almacen_Articulos"_s);
        };
        const QString enAlmacen = u"INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo) VALUES "_s;
        e.sql(enAlmacen + u"(1, 1, 100), (2, 9, 200)"_s);
        const QString antes = huella();
        AltaArticulo alta(e.empresa, *e.conexion);
        alta.deshacer();
        QVERIFY(falla([&] { alta.abrir(100); }) && !alta.abierta() && alta.Existe(100) && !alta.Existe(999));
        alta.deshacer();
        QCOMPARE(huella(), antes);
        alta.abrir(200);
        QVERIFY(alta.abierta() && alta.Existe(200));
        QCOMPARE(huella(), u"2|100|NULL|1 2|200|22/11/2026|0 / 1|1|100 1|1|200 1|2|200 2|9|200"_s);
        alta.deshacer();
        QVERIFY(!alta.abierta());
        QCOMPARE(huella(), antes);
        alta.abrir(200);
        alta.guardar(ficha());
        alta.deshacer();
        QVERIFY2(e.ve(u"200"_s).startsWith(u"1|"), "what is complete is not undone");
        e.sql(enAlmacen + u"(1, 2, 300)"_s);
        QVERIFY(falla([&] { alta.abrir(300); }) && !alta.abierta() && e.ve(u"300"_s).isEmpty());
        QCOMPARE(e.filas(u"SELECT Cod_Almacen FROM Almacen_Articulos WHERE Cod_Articulo = 300"_s), u"2"_s);
    }

    void codes_have_a_limit_and_a_next_one()
    {
        Escenario e;
        AltaArticulo alta(e.empresa, *e.conexion);
        QVERIFY2(alta.cabe(2000000) && !alta.cabe(0) && !alta.cabe(-5), "no limit before the settings are read");
        QCOMPARE(alta.leerAjustes().maxCodigo, 5000);
        QCOMPARE(alta.siguienteCodigo().value_or(-1), 101);
        e.sql(u"DELETE FROM Articulos"_s);
        QCOMPARE(alta.siguienteCodigo().value_or(-1), 1);
        e.sql(u"DROP TABLE Articulos"_s);
        QVERIFY2(falla([&] { alta.siguienteCodigo(); }), "only codes that are no numbers are not an error");
        e.sql(u"CREATE TABLE Articulos (Cod_Empresa int, Codigo varchar(9))"_s);
        e.sql(u"INSERT INTO Articulos VALUES (2, 'A1')"_s);
        QVERIFY(!alta.siguienteCodigo());
        e.sql(u"DELETE FROM Empresas"_s);
        const auto &ajustes = alta.leerAjustes();
        QVERIFY(!ajustes.familiaObligada && !ajustes.seriesAutomaticas && ajustes.maxCodigo == 0);
    }

    /// What the form cannot come to: it asks for the rest in tst_creacion.
    void families_are_missing_only_where_the_company_uses_and_asks_for_them()
    {
        Escenario e;
        AltaArticulo alta(e.empresa, *e.conexion);
        FichaAlta f = ficha();
        QVERIFY(!alta.falta(f));
        alta.leerAjustes();
        e.empresa.familias[1].clear();
        f.familiaEscrita = {true, false, true};
        QVERIFY(!alta.falta(f));
        f.codigo = u" "_s;
        QCOMPARE(alta.falta(f).value().texto, u"Especifique un código para el artículo"_s);
        f.codigo = u"100"_s;
        f.referencia = u"YA"_s;
        QVERIFY2(!alta.referenciaRepetida(f), "its own is no other");
    }

    /// Settings, barcode typed, second value of an axis → barcodes, or the error.
    void barcodes_that_come_with_the_item()
    {
        for (const auto &[moda, automaticas, barras, otroValor, quedan] : casos<5>(uR"(
            0 → 1 →          →   → 98100019|1|1
            0 → 0 →          →   →
            0 → 0 → ·        →   →
            0 → 1 → 96385074 →   → 96385074|0|1 98100019|1|0
            1 → 0 → 96385074 →   → 96385074|0|1
            1 → 0 →          → 3 →
            0 → 0 → 96385074 → 3 → 96385074|0|1
            1 → 0 → 96385074 → 3 → error
            1 → 0 → 96385074 → 4 → error)"_s)) {
            Escenario e;
            e.empresa.valores[u"EsUlvaro"_s] = moda;
            e.sql(u"UPDATE Empresas SET CodigoBarrasAuto = "_s + automaticas);
            if (!otroValor.isEmpty())
                e.sql(u"INSERT INTO Cualidades_Des (Cod_Empresa, Cod_Cualidad, Codigo) VALUES (2, %1, 99)"_s.arg(
                    otroValor));
            AltaArticulo alta(e.empresa, *e.conexion);
            alta.abrir(200);
            FichaAlta f = ficha();
            f.barras = barras;
            const bool mal =
                numeroDeError([&] { QCOMPARE(alta.guardar(f).UnidadesDecimales, qint16(-1)); }) == -2147221503;
            const QString filas = e.filas(u"SELECT Cod_Barras, Automatico, Principal FROM Articulos_CBarras "
                                          u"WHERE Cod_Articulo = 200 ORDER BY 1"_s);
            QCOMPARE(mal ? u"error"_s : filas, quedan);
            QCOMPARE(alta.abierta(), mal);
        }
    }
};

NV_PRUEBA(tst_AltaArticulo)
#include "tst_altaarticulo.moc"
