#include "platform/widgets/nvTextBox.h"
#include "search/frmBusqueda_Articulos_5.h"
#include "tst_modelo1_catalogo.h"

using namespace Qt::StringLiterals;
using namespace nv::pruebas;
using nv::sql::CriteriosModelo4;
using Dialogo = frmBusqueda_Articulos_5;

class tst_Modelo4 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ranking_statement_spans_two_months_data();
    void ranking_statement_spans_two_months();
    void list_statement_data();
    void list_statement();
    void warehouse_lists_its_items_with_their_rotation();
    void ranking_orders_by_units_of_two_months_data();
    void ranking_orders_by_units_of_two_months();
    void criteria_pass_through_and_nothing_searches_at_load();
    void failures_name_this_dialog();
    void refused_ranking_leaves_the_one_on_screen();
};

namespace {

const QString condicionAlmacen = u" AND a.Codigo IN (SELECT Cod_Articulo FROM Almacen_Articulos WHERE "
                                 u" Cod_Empresa=1 AND Cod_Almacen=2 AND Bloqueo=0)"_s;

void escribir(QWidget &dialogo, const QString &nombre, const QString &texto)
{
    QWidget *destino = campo(dialogo, nombre);
    destino->setFocus();
    auto *caja = qobject_cast<nvTextBox *>(dialogo.focusWidget());
    caja->clear();
    teclear(caja, texto);
}

} // namespace

void tst_Modelo4::ranking_statement_spans_two_months_data()
{
    QTest::addColumn<QDate>("hoy");
    QTest::addColumn<QString>("periodo");
    QTest::newRow("January")
        << QDate(2027, 1, 31)
        << u" AND ((b.Cod_Ejercicio =2027 AND b.Mes = 1) OR (b.Cod_Ejercicio =2026 AND b.Mes = 12))"_s;
    QTest::newRow("February") << QDate(2026, 2, 1) << u" AND b.Cod_Ejercicio =2026 AND b.Mes BETWEEN 1 AND 2"_s;
    QTest::newRow("December") << QDate(2026, 12, 31) << u" AND b.Cod_Ejercicio =2026 AND b.Mes BETWEEN 11 AND 12"_s;
}

void tst_Modelo4::ranking_statement_spans_two_months()
{
    QFETCH(const QDate, hoy);
    QFETCH(const QString, periodo);
    const CriteriosModelo4 criterios{{u"T"_s, 7, {1, 0, 0}, 5}, 2, 10};
    QCOMPARE(nv::sql::crearRanking(1, 3, criterios, hoy).texto(),
             u"SELECT TOP 10 b.Cod_Articulo, SUM(b.Ventas_Unidades) AS  Ventas_Unidades"
             u" INTO #TempBA FROM Almacen_Acumulados b INNER JOIN Articulos a ON a.Cod_Empresa =3"
             u" AND a.Codigo = b.Cod_Articulo WHERE b.Cod_Empresa =1 AND b.Cod_Almacen =2"_s +
                 periodo +
                 u" AND a.Descripcion LIKE 'T%' AND a.Codigo IN (SELECT Cod_Articulo FROM Articulos_Ref aref WHERE "
                 u" aref.Cod_empresa=a.Cod_Empresa AND aref.Cod_Prov=7) AND a.Familia_1=1 AND a.Marca = 5"_s +
                 condicionAlmacen + u" GROUP BY b.Cod_Articulo ORDER BY SUM(b.Ventas_Unidades) DESC"_s);
}

void tst_Modelo4::list_statement_data()
{
    QTest::addColumn<int>("almacen");
    QTest::addColumn<int>("ranking");
    QTest::addColumn<QString>("union_");
    QTest::addColumn<QString>("final");
    QTest::newRow("no warehouse") << 0 << 0 << QString() << u" ORDER BY a.Descripcion"_s;
    QTest::newRow("ranking without a warehouse") << 0 << 10 << QString() << u" ORDER BY a.Descripcion"_s;
    QTest::newRow("warehouse") << 2 << 0 << QString() << condicionAlmacen + u" ORDER BY a.Descripcion"_s;
    QTest::newRow("ranking") << 2 << 10 << u" INNER JOIN #TempBA ON a.Codigo = #TempBA.Cod_Articulo"_s
                             << condicionAlmacen + u" ORDER BY #TempBA.Ventas_Unidades DESC"_s;
}

void tst_Modelo4::list_statement()
{
    QFETCH(const int, almacen);
    QFETCH(const int, ranking);
    QFETCH(const QString, union_);
    QFETCH(const QString, final);
    CriteriosModelo4 criterios;
    criterios.ranking = ranking;
    if (almacen > 0)
        criterios.almacen = almacen;
    QCOMPARE(nv::sql::modelo4(1, 3, 150, criterios).texto(),
             u"SELECT  TOP 150 a.Codigo, a.Descripcion, a.Familia_1, a.Familia_2, a.Familia_3,"
             u" ISNULL(b.Cod_Barras,'') AS Cod_Barras, ISNULL(c.Rotacion, 0) AS Rotacion FROM Articulos a "_s +
                 union_ +
                 u" LEFT JOIN Articulos_CBarras b ON a.Cod_Empresa=b.Cod_Empresa AND b.Cod_Articulo=a.Codigo"
                 u" AND b.Principal=1 LEFT JOIN Almacen_Articulos c ON c.Cod_Empresa =1 AND c.Cod_Almacen =%1"
                 u" AND a.Codigo = c.Cod_Articulo WHERE a.Cod_Empresa =3"_s.arg(almacen) +
                 final);
}

void tst_Modelo4::warehouse_lists_its_items_with_their_rotation()
{
    CatalogoCriterios catalogo;
    catalogo.abrir<Dialogo>([](Dialogo &) {},
                            [](Dialogo &d) {
                                pulsa(d, Qt::Key_F9);
                                QCOMPARE(columnaDe(d, 1), (QStringList{u"10"_s, u"24"_s, u"1"_s, u"2"_s}));
                                QCOMPARE(columnaDe(d, 4).join(u' '), u"0,00 0,00 0,00 0,00"_s);
                                escribir(d, u"txtAlmacen"_s, u"2"_s);
                                pulsa(d, Qt::Key_F9);
                                QCOMPARE(columnaDe(d, 1), (QStringList{u"1"_s, u"2"_s}));
                                QCOMPARE(columnaDe(d, 4).join(u' '), u"3,46 2,00"_s);
                            });
}

void tst_Modelo4::ranking_orders_by_units_of_two_months_data()
{
    QTest::addColumn<QDate>("hoy");
    QTest::addColumn<QString>("ranking");
    QTest::addColumn<QStringList>("codigos");
    QTest::newRow("March") << QDate(2026, 3, 15) << u"10"_s << QStringList{u"2"_s, u"1"_s};
    QTest::newRow("only the best") << QDate(2026, 3, 15) << u"1"_s << QStringList{u"2"_s};
    QTest::newRow("January reaches back to December") << QDate(2026, 1, 2) << u"10"_s << QStringList{u"1"_s, u"2"_s};
    QTest::newRow("none sold") << QDate(2026, 7, 1) << u"10"_s << QStringList{};
}

void tst_Modelo4::ranking_orders_by_units_of_two_months()
{
    QFETCH(const QDate, hoy);
    QFETCH(const QString, ranking);
    QFETCH(const QStringList, codigos);
    CatalogoCriterios catalogo;
    catalogo.empresa.hoy = hoy;
    catalogo.base.ejecutar(
        u"INSERT INTO Almacen_Acumulados (Cod_Empresa, Cod_Almacen, Cod_Ejercicio, Mes, Cod_Articulo, Ventas_Unidades)"
        u" VALUES (1, 2, 2026, 3, 1, 3), (1, 2, 2026, 2, 1, 1), (1, 2, 2026, 2, 2, 5), (1, 2, 2026, 4, 1, 90),"
        u" (1, 2, 2025, 3, 1, 90), (1, 1, 2026, 3, 1, 90), (2, 2, 2026, 3, 1, 90), (1, 2, 2026, 3, 10, 80),"
        u" (1, 2, 2025, 12, 1, 7), (1, 2, 2026, 1, 2, 6)"_s);
    catalogo.abrir<Dialogo>([](Dialogo &d) { d.GuardarBusqueda = true; },
                            [&](Dialogo &d) {
                                escribir(d, u"txtAlmacen"_s, u"2"_s);
                                escribir(d, u"txtRanking"_s, ranking);
                                for (int vez = 0; vez < 2; ++vez) {
                                    pulsa(d, Qt::Key_F9);
                                    QCOMPARE(columnaDe(d, 1), codigos);
                                }
                                retratar(d, u"modelo4"_s);
                                if (!codigos.isEmpty())
                                    pulsa(d, Qt::Key_Return);
                            });
    QCOMPARE(catalogo.codigo, codigos.value(0));
    QCOMPARE(catalogo.base.filas(u"SELECT Cod_Articulo FROM Articulos_Buscar"_s).size(), codigos.size());
}

void tst_Modelo4::criteria_pass_through_and_nothing_searches_at_load()
{
    CatalogoCriterios catalogo;
    catalogo.abrir<Dialogo>(
        [](Dialogo &d) {
            d.Busqueda_Descripcion = u"ROJO"_s;
            d.Busqueda_Marca = 5;
            d.Familia_1 = d.Busqueda_Familia_1 = 1;
            d.Familia_2 = d.Busqueda_Familia_2 = 2;
        },
        [](Dialogo &d) {
            QCOMPARE(columnaDe(d, 1), QStringList{});
            QCOMPARE(campo<nvTextBox>(d, u"txtNombre"_s)->text(), QString());
            QVERIFY(!campo(d, u"txtFamilia_1"_s)->isEnabled());
            pulsa(d, Qt::Key_F9);
            QCOMPARE(columnaDe(d, 1), (QStringList{u"1"_s, u"2"_s}));
            escribir(d, u"txtNombre"_s, u"TUE"_s);
            pulsa(d, Qt::Key_F9);
            pulsa(d, Qt::Key_Return);
        });
    QCOMPARE(catalogo.codigo, u"2"_s);
    QCOMPARE(catalogo.criterios.Busqueda_Descripcion, u"ROJO"_s);
    QCOMPARE(catalogo.criterios.Busqueda_Marca, qint16{5});
}

void tst_Modelo4::failures_name_this_dialog()
{
    CatalogoCriterios catalogo;
    Conductor cajas;
    catalogo.abrir<Dialogo>(
        [](Dialogo &d) { d.GuardarBusqueda = true; },
        [&](Dialogo &d) {
            pulsa(d, Qt::Key_F9);
            catalogo.base.ejecutar({u"DROP TABLE Articulos_Buscar"_s, u"DROP TABLE Almacen_Acumulados"_s});
            cajas.responde(u"Aceptar"_s).responde(u"Aceptar"_s);
            pulsa(d, Qt::Key_Return);
            escribir(d, u"txtAlmacen"_s, u"2"_s);
            escribir(d, u"txtRanking"_s, u"3"_s);
            pulsa(d, Qt::Key_F9);
            QCOMPARE(columnaDe(d, 1).size(), 4);
        });
    QCOMPARE(cajas.cajas().size(), std::size_t{2});
    QCOMPARE(cajas.cajas()[0].titulo, u"frmBusqueda_Articulos_5:cmdAceptar_Click"_s);
    QCOMPARE(cajas.cajas()[1].titulo, u"frmBusqueda_Articulos_5:Cargar"_s);
}

void tst_Modelo4::refused_ranking_leaves_the_one_on_screen()
{
    CatalogoCriterios catalogo;
    catalogo.base.ejecutar(u"INSERT INTO Almacen_Acumulados (Cod_Empresa, Cod_Almacen, Cod_Ejercicio, Mes,"
                           u" Cod_Articulo, Ventas_Unidades) VALUES (1, 2, 2026, 3, 2, 5)"_s);
    catalogo.empresa.hoy = QDate(2026, 3, 15);
    Conductor cajas;
    catalogo.abrir<Dialogo>([](Dialogo &d) { d.GuardarBusqueda = true; },
                            [&](Dialogo &d) {
                                escribir(d, u"txtAlmacen"_s, u"2"_s);
                                escribir(d, u"txtRanking"_s, u"3"_s);
                                pulsa(d, Qt::Key_F9);
                                escribir(d, u"txtNombre"_s, u"O'R"_s);
                                cajas.responde(u"Aceptar"_s);
                                pulsa(d, Qt::Key_F9);
                                campo<nv::Rejilla>(d, u"vsArt"_s)->setFocus();
                                pulsa(d, Qt::Key_Return);
                            });
    QCOMPARE(cajas.cajas().size(), std::size_t{1});
    QCOMPARE(catalogo.codigo, u"2"_s);
    QCOMPARE(catalogo.base.filas(u"SELECT Cod_Articulo FROM Articulos_Buscar"_s), QStringList{u"2"_s});
}

QTEST_MAIN(tst_Modelo4)
#include "tst_modelo4.moc"
