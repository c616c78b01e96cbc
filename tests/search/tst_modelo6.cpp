#include "platform/widgets/nvCheckBox.h"
#include "search/frmBusqueda_Articulos_7.h"
#include "search/sql/Modelo6.h"
#include "tst_modelo1_catalogo.h"

#include <QLabel>
#include <QLineEdit>

using namespace Qt::StringLiterals;
using namespace nv::pruebas;
using Dialogo = frmBusqueda_Articulos_7;

class tst_Modelo6 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void statements();
    void assortment_keeps_active_items_not_blocked_data();
    void assortment_keeps_active_items_not_blocked();
    void details_show_the_assortment_state_data();
    void details_show_the_assortment_state();
    void item_without_a_stock_row_leaves_the_boxes();
    void empty_search_clears_the_assortment_state();
    void boxes_of_the_details_are_not_for_the_user();
};

void tst_Modelo6::statements()
{
    const QString principio =
        u"SELECT  TOP 150 a.Codigo, a.Descripcion, a.Familia_1, a.Familia_2, a.Familia_3,"
        u" ISNULL(b.Cod_Barras,'') AS Cod_Barras  FROM Articulos a LEFT JOIN Articulos_CBarras b"
        u" ON a.Cod_Empresa=b.Cod_Empresa AND b.Cod_Articulo=a.Codigo AND b.Principal=1 WHERE a.Cod_Empresa =3"_s;
    QCOMPARE(nv::sql::modelo6(3, 150, {}, false, {}).texto(), principio + u" ORDER BY a.Descripcion"_s);
    const nv::sql::CriteriosArticulo criterios{u"T"_s, u"1"_s, 7, u"R"_s, {1, 0, 0}};
    QCOMPARE(nv::sql::modelo6(3, 150, criterios, true, nv::sql::condicionSurtido(1, qint16{4})).texto(),
             principio + u" AND (a.Descripcion LIKE 'T%' OR a.Desc_Memo LIKE 'T%') AND a.Codigo LIKE '1%'"
                         u" AND a.Codigo IN (SELECT Cod_Articulo FROM Articulos_Ref aref WHERE "
                         u" aref.Cod_empresa=a.Cod_Empresa AND aref.Cod_Prov=7 AND aref.Ref LIKE 'R%')"
                         u" AND a.Familia_1=1 AND a.MotivoBaja = 0 AND a.Codigo IN (SELECT DISTINCT Cod_Articulo"
                         u" FROM Almacen_Articulos WHERE Cod_Empresa =1 AND Cod_Almacen =4 AND Bloqueo = 0)"
                         u" ORDER BY a.Descripcion"_s);
    QCOMPARE(nv::sql::condicionSurtido(1, {}).texto(),
             u" AND a.MotivoBaja = 0 AND a.Codigo IN (SELECT DISTINCT Cod_Articulo FROM Almacen_Articulos"
             u" WHERE Cod_Empresa =1 AND Bloqueo = 0)"_s);
    QCOMPARE(nv::sql::existenciasSurtido(1, 4, 24).texto(),
             u"SELECT aa.Stock_Actual, aa.Pend_Servir, aa.Pend_Recibir, ISNULL(c.Obligatorio, 2) AS Obligatorio,"
             u" ISNULL(b.Cod_Surtido, 0) AS Cod_Surtido, aa.Bloqueo, aa.BloqueoVenta FROM Almacen_Articulos aa"
             u" LEFT JOIN Surtidos_Almacen b ON aa.Cod_Empresa = b.Cod_Empresa AND aa.Cod_Almacen = b.Cod_Almacen"
             u" LEFT JOIN Surtidos_Articulo_Todos c ON aa.Cod_Empresa = c.Cod_Empresa AND"
             u" c.Cod_Surtido = b.Cod_Surtido AND c.Cod_Articulo = aa.Cod_Articulo"
             u" WHERE aa.Cod_Empresa=1 AND aa.Cod_Almacen =4 AND aa.Cod_Articulo =24"_s);
}

void tst_Modelo6::assortment_keeps_active_items_not_blocked_data()
{
    QTest::addColumn<QString>("central");
    QTest::addColumn<bool>("surtido");
    QTest::addColumn<QStringList>("codigos");
    QTest::newRow("not asked") << u"1"_s << false << QStringList{u"10"_s, u"24"_s, u"1"_s, u"2"_s};
    QTest::newRow("head office: some warehouse") << u"1"_s << true << QStringList{u"1"_s, u"2"_s};
    QTest::newRow("branch: its own warehouse") << u"0"_s << true << QStringList{u"1"_s};
    QTest::newRow("unreadable setting is no head office") << u"quizá"_s << true << QStringList{u"1"_s};
}

void tst_Modelo6::assortment_keeps_active_items_not_blocked()
{
    QFETCH(const QString, central);
    QFETCH(const bool, surtido);
    QFETCH(const QStringList, codigos);
    CatalogoCriterios catalogo;
    // Discontinued, though not blocked.
    catalogo.base.ejecutar(
        u"INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo) VALUES (1, 1, 24)"_s);
    catalogo.empresa.valores[u"OficinaCentral"_s] = central;
    catalogo.abrir<Dialogo>([](Dialogo &) {},
                            [&](Dialogo &d) {
                                auto *casilla = campo<QCheckBox>(d, u"chkSurtido"_s);
                                QVERIFY(!casilla->isChecked() && casilla->isVisible());
                                QCOMPARE(casilla->text(), u"Sólo mostrar artículos en Surtido"_s);
                                casilla->setFocus();
                                if (surtido)
                                    pulsa(d, Qt::Key_Space);
                                retratar(d, u"modelo6_criterios"_s);
                                pulsa(d, Qt::Key_F9);
                                QCOMPARE(columnaDe(d, 0), codigos);
                            });
}

void tst_Modelo6::details_show_the_assortment_state_data()
{
    QTest::addColumn<int>("obligatorio"); // -1: the item is not in the assortment, -2: no assortment
    QTest::addColumn<int>("bloqueo");
    QTest::addColumn<int>("casilla");
    QTest::addColumn<QString>("aviso");
    QTest::newRow("optional") << 0 << 0 << 0 << QString();
    QTest::newRow("optional, blocked") << 0 << 1 << 1 << QString();
    QTest::newRow("mandatory") << 1 << 0 << 2 << u"lblSurtObligatorio"_s;
    QTest::newRow("mandatory, blocked") << 1 << 1 << 2 << u"lblSurtObligatorio"_s;
    QTest::newRow("outside") << -1 << 0 << 1 << u"lblSurtBloqGeneral"_s;
    QTest::newRow("no assortment") << -2 << 0 << 0 << QString();
    QTest::newRow("no assortment, blocked") << -2 << 1 << 1 << QString();
}

void tst_Modelo6::details_show_the_assortment_state()
{
    QFETCH(const int, obligatorio);
    QFETCH(const int, bloqueo);
    QFETCH(const int, casilla);
    QFETCH(const QString, aviso);
    CatalogoCriterios catalogo;
    if (obligatorio > -2)
        catalogo.base.ejecutar(
            u"INSERT INTO Surtidos_Almacen (Cod_Empresa, Cod_Almacen, Cod_Surtido) VALUES (1, 1, 30)"_s);
    if (obligatorio > -1)
        catalogo.base.ejecutar(u"INSERT INTO Surtidos_Articulo_Todos (Cod_Empresa, Cod_Surtido, Cod_Articulo,"
                               u" Obligatorio) VALUES (1, 30, 1, %1)"_s.arg(obligatorio));
    catalogo.base.ejecutar(
        u"UPDATE Almacen_Articulos SET Bloqueo = %1, BloqueoVenta = 1 WHERE Cod_Almacen = 1 AND Cod_Articulo = 1"_s.arg(
            bloqueo));
    catalogo.abrir<Dialogo>([](Dialogo &d) { d.Busqueda_Descripcion = u"TORNILLO"_s; },
                            [&](Dialogo &d) {
                                pulsa(d, Qt::Key_F6);
                                QCOMPARE(campo<QLabel>(d, u"lblStock"_s)->text(), u"2,50"_s);
                                QCOMPARE(campo<nvCheckBox>(d, u"chkSurtBloqueado"_s)->Value(), casilla);
                                QCOMPARE(campo<nvCheckBox>(d, u"chkSurtBloqueadoVta"_s)->Value(), 1);
                                for (const QString &nombre : {u"lblSurtBloqGeneral"_s, u"lblSurtObligatorio"_s})
                                    QCOMPARE(campo(d, nombre)->isVisible(), nombre == aviso);
                                retratar(d, u"modelo6_%1"_s.arg(obligatorio));
                                // Taken from the warehouse meanwhile.
                                catalogo.base.ejecutar(u"DELETE FROM Surtidos_Almacen"_s);
                                d.EjecutarBusqueda();
                                QCOMPARE(campo<nvCheckBox>(d, u"chkSurtBloqueado"_s)->Value(), bloqueo);
                                QVERIFY(campo(d, u"lblSurtBloqGeneral"_s)->isHidden());
                                QVERIFY(campo(d, u"lblSurtObligatorio"_s)->isHidden());
                            });
}

void tst_Modelo6::item_without_a_stock_row_leaves_the_boxes()
{
    CatalogoCriterios catalogo;
    catalogo.base.ejecutar(u"UPDATE Almacen_Articulos SET Bloqueo = 1 WHERE Cod_Articulo = 1"_s);
    catalogo.abrir<Dialogo>([](Dialogo &d) { d.Busqueda_Codigo = u"1"_s; },
                            [](Dialogo &d) {
                                pulsa(d, Qt::Key_F6);
                                campo<nv::Rejilla>(d, u"vsListado"_s)->setFilaActual(2);
                                QCOMPARE(campo<nvCheckBox>(d, u"chkSurtBloqueado"_s)->Value(), 1);
                                campo<nv::Rejilla>(d, u"vsListado"_s)->setFilaActual(1);
                                QCOMPARE(columnaDe(d, 0).value(0), u"10"_s);
                                QCOMPARE(campo<QLabel>(d, u"lblStock"_s)->text(), u"0,00"_s);
                                QCOMPARE(campo<nvCheckBox>(d, u"chkSurtBloqueado"_s)->Value(), 1);
                            });
}

void tst_Modelo6::empty_search_clears_the_assortment_state()
{
    CatalogoCriterios catalogo;
    catalogo.base.ejecutar(
        {u"INSERT INTO Surtidos_Almacen (Cod_Empresa, Cod_Almacen, Cod_Surtido) VALUES (1, 1, 30)"_s,
         u"INSERT INTO Surtidos_Articulo_Todos (Cod_Empresa, Cod_Surtido, Cod_Articulo, Obligatorio)"
         u" VALUES (1, 30, 1, 1)"_s,
         u"UPDATE Almacen_Articulos SET BloqueoVenta = 1 WHERE Cod_Almacen = 1 AND Cod_Articulo = 1"_s});
    catalogo.abrir<Dialogo>([](Dialogo &d) { d.Busqueda_Descripcion = u"TORNILLO"_s; },
                            [](Dialogo &d) {
                                pulsa(d, Qt::Key_F6);
                                QVERIFY(campo(d, u"lblSurtObligatorio"_s)->isVisible());
                                campo<QLineEdit>(d, u"txtNombre"_s)->setText(u"NADA"_s);
                                d.EjecutarBusqueda();
                                QCOMPARE(campo<nv::Rejilla>(d, u"vsListado"_s)->filasDatos(), 0);
                                QCOMPARE(campo<nvCheckBox>(d, u"chkSurtBloqueado"_s)->Value(), 0);
                                QCOMPARE(campo<nvCheckBox>(d, u"chkSurtBloqueadoVta"_s)->Value(), 0);
                                QVERIFY(campo(d, u"lblSurtObligatorio"_s)->isHidden());
                            });
}

void tst_Modelo6::boxes_of_the_details_are_not_for_the_user()
{
    CatalogoCriterios catalogo;
    catalogo.abrir<Dialogo>([](Dialogo &d) { d.Busqueda_Descripcion = u"TORNILLO"_s; },
                            [](Dialogo &d) {
                                pulsa(d, Qt::Key_F6);
                                auto *casilla = campo<nvCheckBox>(d, u"chkSurtBloqueado"_s);
                                QTest::mouseClick(casilla, Qt::LeftButton);
                                QCOMPARE(casilla->Value(), 0);
                                // The assortment criterion keeps its place after the families, also after a search.
                                campo(d, u"txtFamilia_3"_s)->setFocus();
                                QTest::keyClick(d.focusWidget(), Qt::Key_Tab);
                                QVERIFY(campo(d, u"chkSurtido"_s)->hasFocus());
                            });
}

QTEST_MAIN(tst_Modelo6)
#include "tst_modelo6.moc"
