#include "search/frmBusqueda_Articulos_4.h"
#include "search/sql/Modelo3.h"
#include "tst_modelo1_catalogo.h"

#include <QPushButton>
#include <QScrollBar>

using namespace Qt::StringLiterals;
using namespace nv::pruebas;
using nv::sql::CriteriosModelo3;
using Dialogo = frmBusqueda_Articulos_4;

Q_DECLARE_METATYPE(CriteriosModelo3)

class tst_Modelo3 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void criteria_give_the_whole_statement_data();
    void criteria_give_the_whole_statement();
    void search_lists_marks_and_returns_every_marked_row();
    void single_result_marks_without_effect_and_returns_the_current_row();
    void remembered_criteria_search_at_once_and_come_back_data();
    void remembered_criteria_search_at_once_and_come_back();
    void supplier_searches_and_the_last_family_moves_on();
    void failed_search_keeps_the_list();
    void accept_that_fails_names_the_button();
    void without_rows_accept_stays();
    void several_results_without_marks_are_no_choice();
    void fixed_family_holds_although_a_name_cannot_be_read();
};

void tst_Modelo3::criteria_give_the_whole_statement_data()
{
    QTest::addColumn<CriteriosModelo3>("criterios");
    QTest::addColumn<int>("limite");
    QTest::addColumn<QString>("condiciones");
    QTest::newRow("nothing asked") << CriteriosModelo3{} << 150 << QString();
    QTest::newRow("no limit, description")
        << CriteriosModelo3{u"*ROJO"_s, {}, {}, 0} << -1 << u" AND a.Descripcion LIKE '%ROJO%'"_s;
    QTest::newRow("second family without the first, brand 0")
        << CriteriosModelo3{{}, {}, {0, 2, 3}, 0} << 150 << QString();
    QTest::newRow("all") << CriteriosModelo3{u"ROJO"_s, 7, {1, 2, 3}, 5} << 0
                         << u" AND a.Descripcion LIKE 'ROJO%'"
                            u" AND a.Codigo IN (SELECT Cod_Articulo FROM Articulos_Ref aref WHERE "
                            u" aref.Cod_empresa=a.Cod_Empresa AND aref.Cod_Prov=7)"
                            u" AND a.Familia_1=1 AND a.Familia_2=2 AND a.Familia_3=3 AND a.Marca = 5"_s;
}

void tst_Modelo3::criteria_give_the_whole_statement()
{
    QFETCH(const CriteriosModelo3, criterios);
    QFETCH(const int, limite);
    QFETCH(const QString, condiciones);
    const std::optional<qint32> tope = limite < 0 ? std::nullopt : std::optional<qint32>(limite);
    QCOMPARE(nv::sql::modelo3(2, tope, criterios).texto(),
             u"SELECT "_s + (limite < 0 ? QString() : u" TOP %1"_s.arg(limite)) +
                 u" a.Codigo, a.Descripcion, a.Familia_1, a.Familia_2, a.Familia_3,"
                 u" ISNULL(b.Cod_Barras,'') AS Cod_Barras  FROM Articulos a  LEFT JOIN Articulos_CBarras b"
                 u" ON a.Cod_Empresa=b.Cod_Empresa AND b.Cod_Articulo=a.Codigo AND b.Principal=1"
                 u" WHERE a.Cod_Empresa =2"_s +
                 condiciones + u" ORDER BY a.Descripcion"_s);
}

void tst_Modelo3::search_lists_marks_and_returns_every_marked_row()
{
    CatalogoCriterios catalogo;
    catalogo.abrir<Dialogo>(
        [](Dialogo &d) {
            d.MultiResultado = true;
            d.GuardarBusqueda = true;
        },
        [](Dialogo &d) {
            QCOMPARE(d.windowTitle(), u"Busqueda de Artículos"_s);
            auto *rejilla = campo<nv::Rejilla>(d, u"vsArt"_s);
            QCOMPARE(rejilla->filasDatos(), 0);
            QVERIFY(campo(d, u"txtNombre"_s)->hasFocus());
            pulsa(d, Qt::Key_F9);
            QCOMPARE(columnaDe(d, 1), (QStringList{u"10"_s, u"24"_s, u"1"_s, u"2"_s}));
            QCOMPARE(rejilla->texto(3, 3), u"8412345678905"_s);
            QVERIFY(rejilla->hasFocus());
            QVERIFY(rejilla->columnWidth(3) > rejilla->fontMetrics().horizontalAdvance(rejilla->texto(3, 3)));
            QCOMPARE(rejilla->horizontalScrollBar()->maximum(), 0);
            QVERIFY(!rejilla->isColumnHidden(0));
            QTest::mouseClick(campo(d, u"cmdMarcar"_s), Qt::LeftButton);
            QCOMPARE(columnaDe(d, 0).join(QString()), u"XXXX"_s);
            QTest::mouseClick(campo(d, u"cmdDesmarcar"_s), Qt::LeftButton);
            QCOMPARE(columnaDe(d, 0).join(QString()), QString());
            rejilla->setFocus();
            QTest::keyClick(rejilla, Qt::Key_Space);
            rejilla->setFilaActual(3);
            QTest::mouseDClick(rejilla->viewport(), Qt::LeftButton, {},
                               rejilla->visualRect(rejilla->currentIndex()).center());
            QCOMPARE(columnaDe(d, 0).join(u','), u"X,,X,"_s);
            retratar(d, u"modelo3"_s);
            QTest::keyClick(rejilla, Qt::Key_Return);
        });
    QCOMPARE(catalogo.codigo, u"|10|1"_s);
    QCOMPARE(catalogo.descripcion, u"|ARANDELA ROJO|TORNILLO ROJO"_s);
    QCOMPARE(catalogo.base.filas(u"SELECT Terminal, Cod_Empresa, Cod_Articulo FROM Articulos_Buscar"
                                 u" ORDER BY Cod_Articulo"_s),
             (QStringList{u"CAJA-1|2|1"_s, u"CAJA-1|2|2"_s, u"CAJA-1|2|10"_s, u"CAJA-1|2|24"_s}));

    catalogo.abrir<Dialogo>([](Dialogo &d) { d.MultiResultado = true; },
                            [](Dialogo &d) {
                                pulsa(d, Qt::Key_F9);
                                QTest::keyClick(d.focusWidget(), Qt::Key_Return);
                                QVERIFY2(!d.isVisible(), "accepting without marks chooses nothing");
                            });
    QCOMPARE(catalogo.codigo, QString());
}

void tst_Modelo3::single_result_marks_without_effect_and_returns_the_current_row()
{
    CatalogoCriterios catalogo;
    catalogo.abrir<Dialogo>([](Dialogo &) {},
                            [](Dialogo &d) {
                                pulsa(d, Qt::Key_F9);
                                auto *rejilla = campo<nv::Rejilla>(d, u"vsArt"_s);
                                QVERIFY(rejilla->isColumnHidden(0));
                                QVERIFY(campo(d, u"cmdMarcar"_s)->isVisible());
                                QTest::mouseDClick(rejilla->viewport(), Qt::LeftButton, {},
                                                   rejilla->visualRect(rejilla->currentIndex()).center());
                                QVERIFY2(d.isVisible(), "a double click marks, it does not accept");
                                QCOMPARE(rejilla->texto(1, 0), u"X"_s);
                                QTest::keyClick(rejilla, Qt::Key_Up);
                                QVERIFY(campo(d, u"txtNombre"_s)->hasFocus());
                                rejilla->setFocus();
                                QTest::keyClick(rejilla, Qt::Key_Down);
                                QTest::keyClick(rejilla, Qt::Key_Return);
                            });
    QCOMPARE(catalogo.codigo, u"24"_s);
    QCOMPARE(catalogo.descripcion, u"CLAVO"_s);
}

void tst_Modelo3::remembered_criteria_search_at_once_and_come_back_data()
{
    QTest::addColumn<std::function<void(Dialogo &)>>("preparar");
    QTest::addColumn<QStringList>("codigos");
    using Preparar = std::function<void(Dialogo &)>;
    QTest::newRow("description") << Preparar([](Dialogo &d) { d.Busqueda_Descripcion = u"*ROJO"_s; })
                                 << QStringList{u"10"_s, u"1"_s};
    QTest::newRow("supplier") << Preparar([](Dialogo &d) { d.Busqueda_Proveedor = 7; }) << QStringList{u"1"_s, u"2"_s};
    QTest::newRow("brand") << Preparar([](Dialogo &d) { d.Busqueda_Marca = 5; }) << QStringList{u"1"_s, u"2"_s};
    QTest::newRow("fixed family") << Preparar([](Dialogo &d) { d.Familia_1 = d.Busqueda_Familia_1 = 4; })
                                  << QStringList{u"10"_s};
    QTest::newRow("criteria of other dialogs") << Preparar([](Dialogo &d) {
        d.Busqueda_Codigo = u"1"_s;
        d.Busqueda_Referencia = u"R"_s;
    }) << QStringList{};
}

void tst_Modelo3::remembered_criteria_search_at_once_and_come_back()
{
    QFETCH(const std::function<void(Dialogo &)>, preparar);
    QFETCH(const QStringList, codigos);
    CatalogoCriterios catalogo;
    Dialogo antes(nullptr);
    preparar(antes);
    catalogo.abrir<Dialogo>(preparar, [&](Dialogo &d) {
        QCOMPARE(columnaDe(d, 1), codigos);
        QCOMPARE(campo(d, u"txtFamilia_1"_s)->isEnabled(), antes.Familia_1 == 0);
    });
    QCOMPARE(catalogo.criterios.Busqueda_Descripcion, antes.Busqueda_Descripcion);
    QCOMPARE(catalogo.criterios.Busqueda_Codigo, antes.Busqueda_Codigo);
    QCOMPARE(catalogo.criterios.Busqueda_Referencia, antes.Busqueda_Referencia);
    QCOMPARE(catalogo.criterios.Busqueda_Proveedor, antes.Busqueda_Proveedor);
    QCOMPARE(catalogo.criterios.Busqueda_Familia_1, antes.Busqueda_Familia_1);
    QCOMPARE(catalogo.criterios.Busqueda_Marca, antes.Busqueda_Marca);
}

void tst_Modelo3::supplier_searches_and_the_last_family_moves_on()
{
    CatalogoCriterios catalogo;
    catalogo.abrir<Dialogo>([](Dialogo &) {},
                            [](Dialogo &d) {
                                auto *rejilla = campo<nv::Rejilla>(d, u"vsArt"_s);
                                campo(d, u"txtFamilia_3"_s)->setFocus();
                                pulsa(d, Qt::Key_Return);
                                QVERIFY(campo(d, u"txtMarca"_s)->isAncestorOf(d.focusWidget()));
                                QCOMPARE(rejilla->filasDatos(), 0);
                                campo(d, u"txtProveedor"_s)->setFocus();
                                QTest::keyClicks(d.focusWidget(), u"8"_s);
                                pulsa(d, Qt::Key_Return);
                                QCOMPARE(columnaDe(d, 1), QStringList{u"10"_s});
                                QVERIFY(rejilla->hasFocus());
                            });
    QCOMPARE(catalogo.criterios.Busqueda_Proveedor, 8);
}

void tst_Modelo3::failed_search_keeps_the_list()
{
    CatalogoCriterios catalogo;
    Conductor cajas;
    catalogo.abrir<Dialogo>([](Dialogo &) {},
                            [&](Dialogo &d) {
                                pulsa(d, Qt::Key_F9);
                                campo(d, u"txtNombre"_s)->setFocus();
                                QTest::keyClicks(d.focusWidget(), u"O'R"_s);
                                cajas.responde(u"Aceptar"_s);
                                pulsa(d, Qt::Key_F9);
                                QVERIFY(d.isVisible());
                                QCOMPARE(columnaDe(d, 1).size(), 4);
                            });
    QCOMPARE(cajas.cajas().front().titulo, u"frmBusqueda_Articulos_4:Cargar"_s);
    QCOMPARE(cajas.cajas().front().icono, QMessageBox::Critical);
    QCOMPARE(catalogo.criterios.Busqueda_Descripcion, QString());
}

void tst_Modelo3::accept_that_fails_names_the_button()
{
    CatalogoCriterios catalogo;
    Conductor cajas;
    catalogo.abrir<Dialogo>([](Dialogo &d) { d.GuardarBusqueda = true; },
                            [&](Dialogo &d) {
                                pulsa(d, Qt::Key_F9);
                                catalogo.base.ejecutar(u"DROP TABLE Articulos_Buscar"_s);
                                cajas.responde(u"Aceptar"_s);
                                pulsa(d, Qt::Key_Return);
                                QVERIFY(d.isVisible());
                            });
    QCOMPARE(cajas.cajas().front().titulo, u"frmBusqueda_Articulos_4:cmdAceptar_Click"_s);
    QCOMPARE(catalogo.codigo, QString());
}

void tst_Modelo3::without_rows_accept_stays()
{
    CatalogoCriterios catalogo;
    catalogo.abrir<Dialogo>([](Dialogo &) {},
                            [](Dialogo &d) {
                                QTest::mouseClick(campo(d, u"cmdAceptar"_s), Qt::LeftButton);
                                QVERIFY(d.isVisible());
                                pulsa(d, Qt::Key_F9);
                                campo<nv::Rejilla>(d, u"vsArt"_s)->setFilaActual(0);
                                QTest::mouseClick(campo(d, u"cmdAceptar"_s), Qt::LeftButton);
                                QVERIFY2(d.isVisible(), "the heading is no choice");
                            });
}

void tst_Modelo3::several_results_without_marks_are_no_choice()
{
    CatalogoCriterios catalogo;
    for (const bool buscada : {false, true})
        catalogo.abrir<Dialogo>([](Dialogo &d) { d.MultiResultado = true; },
                                [buscada](Dialogo &d) {
                                    if (buscada)
                                        pulsa(d, Qt::Key_F9);
                                    QTest::mouseClick(campo(d, u"cmdAceptar"_s), Qt::LeftButton);
                                    QVERIFY(!d.isVisible());
                                    QCOMPARE(d.Codigo, QString());
                                });
}

void tst_Modelo3::fixed_family_holds_although_a_name_cannot_be_read()
{
    CatalogoCriterios catalogo;
    catalogo.base.ejecutar(u"DROP TABLE Marcas"_s);
    Conductor cajas;
    cajas.responde(u"Aceptar"_s);
    catalogo.abrir<Dialogo>(
        [](Dialogo &d) {
            d.Familia_1 = d.Busqueda_Familia_1 = 1;
            d.Busqueda_Marca = 5;
        },
        [](Dialogo &d) {
            QVERIFY(!campo(d, u"txtFamilia_1"_s)->isEnabled());
            QCOMPARE(columnaDe(d, 1), QStringList{});
            pulsa(d, Qt::Key_F9);
            QCOMPARE(columnaDe(d, 1), (QStringList{u"1"_s, u"2"_s}));
        });
    QCOMPARE(cajas.cajas().front().titulo, u"frmBusqueda_Articulos_4:Cargar"_s);
}

QTEST_MAIN(tst_Modelo3)
#include "tst_modelo3.moc"
