#include "platform/widgets/nvTextBox.h"
#include "search/frmBusqueda_Articulos_2.h"
#include "search/piezas/Ordenacion.h"
#include "tst_modelo1_catalogo.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QScrollBar>
#include <QTabWidget>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using namespace nv::pruebas;
using nv::sql::CriteriosModelo1;
using Dialogo = frmBusqueda_Articulos_2;

Q_DECLARE_METATYPE(CriteriosModelo1)

class tst_Modelo1 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void criteria_give_the_whole_statement_data();
    void criteria_give_the_whole_statement();
    void tariffs_stock_and_missing_tariff();
    void prices_have_all_the_decimals_of_their_tariff();
    void ticks_return_a_list_and_the_search_is_copied();
    void without_ticks_the_current_row_is_returned_data();
    void without_ticks_the_current_row_is_returned();
    void leaving_the_warehouses_searches_again();
    void headings_sort_numbers_as_numbers_and_reverse();
    void blocks_come_by_page_down_and_scrolling();
    void list_of_alternative_values();
    void free_alternative_text_and_line_of_criteria();
    void failed_search_keeps_the_list();
    void prints_to_a_file_or_says_that_it_failed();
};

namespace {

void titulo(nv::Rejilla *rejilla, int columna)
{
    const QHeaderView *titulos = rejilla->horizontalHeader();
    QTest::mouseClick(titulos->viewport(), Qt::LeftButton, {},
                      QPoint(titulos->sectionViewportPosition(columna) + 6, titulos->height() / 2));
}

void marcarAlmacen(QWidget &dialogo, int fila)
{
    campo<QListWidget>(dialogo, u"lstAlmacenes"_s)->item(fila)->setCheckState(Qt::Checked);
}

} // namespace

void tst_Modelo1::criteria_give_the_whole_statement_data()
{
    QTest::addColumn<CriteriosModelo1>("criterios");
    QTest::addColumn<std::vector<qint16>>("almacenes");
    QTest::addColumn<QString>("lista");
    QTest::addColumn<QString>("condiciones");
    const auto con = [](const std::function<void(CriteriosModelo1 &)> &cambio) {
        CriteriosModelo1 criterios;
        cambio(criterios);
        return criterios;
    };
    const std::vector<qint16> uno{1};
    QTest::newRow("nothing asked") << CriteriosModelo1{} << uno << u"1"_s << QString();
    QTest::newRow("warehouses") << CriteriosModelo1{} << std::vector<qint16>{1, 2, 10} << u"1,2,10"_s << QString();
    QTest::newRow("supplier") << con([](auto &c) { c.proveedor = 7; }) << uno << u"1"_s
                              << u" AND a.Codigo IN (SELECT Cod_Articulo FROM Articulos_Ref aref WHERE "
                                 u" aref.Cod_Empresa=a.Cod_Empresa AND aref.Cod_Prov=7)"_s;
    QTest::newRow("reference") << con([](auto &c) { c.referencia = u"R"_s; }) << uno << u"1"_s
                               << u" AND a.Codigo IN (SELECT Cod_Articulo FROM Articulos_Ref aref WHERE "
                                  u" aref.Cod_empresa=a.Cod_Empresa AND aref.Ref LIKE 'R%')"_s;
    QTest::newRow("alternative text") << con([](auto &c) { c.alternativo = u"A"_s; }) << uno << u"1"_s
                                      << u" AND Alternativo1='A'"_s;
    QTest::newRow("alternative list") << con([](auto &c) {
        c.alternativos = {3, 7};
    }) << uno << u"1"_s << u" AND (Alternativo1 LIKE '%,3,%' OR Alternativo1 LIKE '%,7,%')"_s;
    CriteriosModelo1 todo;
    static_cast<nv::sql::CriteriosArticulo &>(todo) = {u"*T"_s, u"1"_s, 7, u"R*"_s, {1, 2, 3}};
    todo.alternativos = {3};
    QTest::newRow("all") << todo << uno << u"1"_s
                         << u" AND a.Descripcion LIKE '%T%' AND a.Codigo LIKE '1%'"
                            u" AND a.Codigo IN (SELECT Cod_Articulo FROM Articulos_Ref aref WHERE "
                            u" aref.Cod_Empresa=a.Cod_Empresa AND aref.Cod_Prov=7 AND aref.Ref LIKE 'R%')"
                            u" AND a.Familia_1=1 AND a.Familia_2=2 AND a.Familia_3=3"
                            u" AND (Alternativo1 LIKE '%,3,%')"_s;
}

void tst_Modelo1::criteria_give_the_whole_statement()
{
    QFETCH(const CriteriosModelo1, criterios);
    QFETCH(const std::vector<qint16>, almacenes);
    QFETCH(const QString, lista);
    QFETCH(const QString, condiciones);
    QCOMPARE(nv::sql::modelo1(1, 3, 150, {4, 6, 0}, almacenes, criterios).texto(),
             u"SELECT  TOP 150 a.Codigo, MIN(a.Descripcion) AS Descripcion, MIN(a.Familia_1) AS Familia_1,"
             u" MIN(a.Familia_2) AS Familia_2, MIN(a.Familia_3) AS Familia_3,"
             u" ISNULL(MIN(b.Cod_Barras),'') AS Cod_Barras,  ISNULL(MIN(c.Ref),'') AS Ref,"
             u" REPLACE(CONVERT(VARCHAR,ISNULL(MIN(d.Pvp),0)),'.',',') AS Pvp1,"
             u" REPLACE(CONVERT(VARCHAR,ISNULL(MIN(e.Pvp),0)),'.',',') AS Pvp2,"
             u" REPLACE(CONVERT(VARCHAR,ISNULL(MIN(f.Pvp),0)),'.',',') AS Pvp3, "
             u" ISNULL(MIN(d.Pvp),0) AS Pvp1_Num, ISNULL(MIN(e.Pvp),0) AS Pvp2_Num,"
             u" ISNULL(MIN(f.Pvp),0) AS Pvp3_Num,  ISNULL(SUM(aa.Stock_Actual),0) AS Stock_Actual,"
             u" ISNULL(SUM(aa.Stock_Actual),0) AS Stock_Actual_Num  FROM Articulos a "
             u" LEFT JOIN Articulos_CBarras b ON a.Cod_Empresa=b.Cod_Empresa "
             u" AND b.Cod_Articulo=a.Codigo AND b.Principal=1 "
             u" LEFT JOIN Articulos_Ref c ON a.Cod_Empresa=c.Cod_Empresa "
             u" AND c.Cod_Articulo=a.Codigo AND c.Principal=1 "
             u" LEFT JOIN Articulos_Tarifas d ON a.Cod_Empresa=d.Cod_Empresa "
             u" AND d.Cod_Articulo=a.Codigo AND d.Cod_Tarifa=4"
             u" LEFT JOIN Articulos_Tarifas e ON a.Cod_Empresa=e.Cod_Empresa "
             u" AND e.Cod_Articulo=a.Codigo AND e.Cod_Tarifa=6"
             u" LEFT JOIN Articulos_Tarifas f ON a.Cod_Empresa=f.Cod_Empresa "
             u" AND f.Cod_Articulo=a.Codigo AND f.Cod_Tarifa=0"
             u" LEFT JOIN Almacen_Articulos aa ON aa.Cod_Empresa=1 AND aa.Cod_Almacen IN ("_s +
                 lista + u") AND aa.Cod_Articulo=a.Codigo  WHERE a.Cod_Empresa =3"_s + condiciones +
                 u" GROUP BY a.Codigo  ORDER BY a.Codigo"_s);
}

void tst_Modelo1::tariffs_stock_and_missing_tariff()
{
    CatalogoCriterios catalogo;
    catalogo.abrir<Dialogo>(
        [](Dialogo &d) {
            d.Busqueda_Codigo = u"1"_s;
            d.AlmacenStock = 2;
        },
        [](Dialogo &d) {
            nv::Rejilla *rejilla = listado(d);
            QCOMPARE(columna(d, 1), (QStringList{u"1"_s, u"10"_s}));
            QStringList titulos;
            for (int c = 8; c <= 11; ++c)
                titulos << rejilla->texto(0, c);
            QCOMPARE(titulos.join(u'|'), u"Tarifa 4|Tarifa 6|Tarifa 0|Stock Alm 2"_s);
            QStringList fila;
            for (int c = 6; c <= 11; ++c)
                fila << rejilla->texto(1, c);
            QCOMPARE(fila.join(u'|'), u"8412345678905|R-1|10,50|7|0,00|10"_s);
            const QFontMetrics letras = rejilla->fontMetrics();
            QVERIFY(rejilla->columnWidth(6) > letras.horizontalAdvance(rejilla->texto(1, 6)));
            QVERIFY(rejilla->columnWidth(11) > letras.horizontalAdvance(rejilla->texto(0, 11)));
            QVERIFY(rejilla->isColumnHidden(0) && !campo(d, u"chkCheck"_s)->isVisible());
            QVERIFY(!campo(d, u"pctMsg"_s)->isVisible());
            retratar(d, u"modelo1"_s);
        });
}

void tst_Modelo1::prices_have_all_the_decimals_of_their_tariff()
{
    CatalogoCriterios catalogo;
    catalogo.base.ejecutar(QStringList{u"UPDATE Tarifas SET Decimales = 3 WHERE Cod_Tarifa = 4"_s,
                                       u"UPDATE Articulos_Tarifas SET Pvp = 43.641 WHERE Cod_Articulo = 1"_s});
    catalogo.abrir<Dialogo>([](Dialogo &d) { d.Busqueda_Codigo = u"1"_s; },
                            [](Dialogo &d) {
                                QCOMPARE(columna(d, 8).join(u' '), u"43,641 100,000"_s);
                                QCOMPARE(columna(d, 9).join(u' '), u"44 0"_s);
                            });
}

void tst_Modelo1::ticks_return_a_list_and_the_search_is_copied()
{
    CatalogoCriterios catalogo;
    catalogo.abrir<Dialogo>(
        [](Dialogo &d) {
            d.MultiResultado = true;
            d.GuardarBusqueda = true;
        },
        [](Dialogo &d) {
            pulsa(d, Qt::Key_F9);
            nv::Rejilla *rejilla = listado(d);
            const auto centro = [rejilla](int fila, int columna) {
                return rejilla->visualRect(rejilla->model()->index(fila - 1, columna)).center();
            };
            QTest::mouseClick(rejilla->viewport(), Qt::LeftButton, {}, centro(2, 0));
            QCOMPARE(columna(d, 0).join(QString()), u"0100"_s);
            QTest::mouseClick(rejilla->viewport(), Qt::LeftButton, {}, centro(3, 2));
            QTest::mouseDClick(rejilla->viewport(), Qt::LeftButton, {}, centro(3, 2));
            QCOMPARE(columna(d, 0).join(QString()), u"0110"_s);
            QTest::keyClick(rejilla, Qt::Key_Down);
            QTest::keyClick(rejilla, Qt::Key_Space);
            QCOMPARE(columna(d, 0).join(QString()), u"0111"_s);
            campo<QCheckBox>(d, u"chkCheck"_s)->click();
            QCOMPARE(columna(d, 0).join(QString()), u"1111"_s);
            campo<QCheckBox>(d, u"chkCheck"_s)->click();
            QTest::keyClick(rejilla, Qt::Key_Space);
            retratar(d, u"modelo1_multi"_s);
            QTest::keyClick(rejilla, Qt::Key_Return);
        });
    QCOMPARE(catalogo.codigo, u"|24"_s);
    QCOMPARE(catalogo.descripcion, u"|CLAVO"_s);
    QCOMPARE(catalogo.base.filas(u"SELECT Cod_Articulo, Descripcion FROM Articulos_Buscar ORDER BY Cod_Articulo"_s),
             (QStringList{u"1|TORNILLO ROJO"_s, u"2|TUERCA"_s, u"10|ARANDELA ROJO"_s, u"24|CLAVO"_s}));
}

void tst_Modelo1::without_ticks_the_current_row_is_returned_data()
{
    QTest::addColumn<bool>("multi");
    QTest::addColumn<bool>("todo");
    QTest::addColumn<QString>("codigo");
    QTest::newRow("several, none ticked") << true << false << u"1"_s;
    QTest::newRow("several, all from the start") << true << true << u"|1|2|10|24"_s;
    QTest::newRow("one, all from the start") << false << true << u"1"_s;
}

void tst_Modelo1::without_ticks_the_current_row_is_returned()
{
    QFETCH(const bool, multi);
    QFETCH(const bool, todo);
    QFETCH(const QString, codigo);
    CatalogoCriterios catalogo;
    catalogo.abrir<Dialogo>(
        [=](Dialogo &d) {
            d.MultiResultado = multi;
            d.SeleccionarTodo = todo;
        },
        [](Dialogo &d) {
            pulsa(d, Qt::Key_F9);
            listado(d)->setFilaActual(0);
            QTest::mouseClick(campo(d, u"cmdAceptar"_s), Qt::LeftButton);
            QVERIFY2(d.isVisible(), "the heading is no choice, ticked rows or not");
            listado(d)->setFilaActual(1);
            QTest::mouseClick(campo(d, u"cmdAceptar"_s), Qt::LeftButton);
        });
    QCOMPARE(catalogo.codigo, codigo);
}

void tst_Modelo1::leaving_the_warehouses_searches_again()
{
    CatalogoCriterios catalogo;
    catalogo.abrir<Dialogo>([](Dialogo &d) { d.Busqueda_Descripcion = u"TORNILLO"_s; },
                            [&](Dialogo &d) {
                                auto *pestanas = campo<QTabWidget>(d, u"SSTab"_s);
                                const Oyente oyente(catalogo.base.conexion());
                                QCOMPARE(columna(d, 11), QStringList{u"2,5"_s});
                                pestanas->setCurrentIndex(1);
                                QCOMPARE(campo<QListWidget>(d, u"lstAlmacenes"_s)->count(), 2);
                                pestanas->setCurrentIndex(0);
                                QVERIFY2(oyente.textos.isEmpty(), "the same warehouses need no search");
                                pestanas->setCurrentIndex(1);
                                marcarAlmacen(d, 1);
                                retratar(d, u"modelo1_almacenes"_s);
                                pestanas->setCurrentIndex(0);
                                QCOMPARE(columna(d, 11), QStringList{u"10"_s});
                                QCOMPARE(listado(d)->texto(0, 11), u"Stock Alm 2"_s);
                                pestanas->setCurrentIndex(1);
                                marcarAlmacen(d, 0);
                                pestanas->setCurrentIndex(0);
                                QCOMPARE(columna(d, 11), QStringList{u"12,5"_s});
                                QCOMPARE(listado(d)->texto(0, 11), u"Stock"_s);
                                QVERIFY(listado(d)->hasFocus());
                            });
}

void tst_Modelo1::headings_sort_numbers_as_numbers_and_reverse()
{
    CatalogoCriterios catalogo;
    catalogo.abrir<Dialogo>([](Dialogo &) {},
                            [](Dialogo &d) {
                                pulsa(d, Qt::Key_F9);
                                nv::Rejilla *rejilla = listado(d);
                                rejilla->setFilaActual(3);
                                titulo(rejilla, 8);
                                QCOMPARE(columna(d, 8).join(u' '), u"0,00 9,00 10,50 100,00"_s);
                                QCOMPARE(rejilla->texto(rejilla->filaActual(), 1), u"10"_s);
                                titulo(rejilla, 8);
                                QCOMPARE(columna(d, 8).join(u' '), u"100,00 10,50 9,00 0,00"_s);
                                titulo(rejilla, 1);
                                QCOMPARE(columna(d, 1).join(u' '), u"1 10 2 24"_s);
                                titulo(rejilla, 2);
                                titulo(rejilla, 2);
                                QCOMPARE(columna(d, 2).first(), u"TUERCA"_s);
                            });
    const nv::MenorFila menor =
        nv::menorPorTexto({u"ñu"_s, u"Nube"_s, u"oca"_s, u"árbol"_s, u"Bota"_s}, Qt::AscendingOrder);
    QVERIFY(menor(1, 0) && menor(0, 2) && menor(3, 4) && !menor(4, 3));
}

void tst_Modelo1::blocks_come_by_page_down_and_scrolling()
{
    CatalogoCriterios catalogo;
    catalogo.empresa.valores[u"Articulos_BusquedaCantMax"_s] = u"5000"_s;
    catalogo.base.ejecutar(
        u"INSERT INTO Parametros_App (Clave, Valor) VALUES ('nvArticulo.BuscadorM2.MaxCargaFilas', '100')"_s);
    {
        nv::Transaccion transaccion(catalogo.base.conexion());
        for (int i = 1; i <= 250; ++i)
            catalogo.base.ejecutar(
                u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion) VALUES (2, %1, 'ZZ')"_s.arg(1000 + i));
        transaccion.confirmar();
    }
    catalogo.abrir<Dialogo>(
        [](Dialogo &d) {
            d.MultiResultado = true;
            d.Busqueda_Descripcion = u"ZZ"_s;
        },
        [](Dialogo &d) {
            nv::Rejilla *rejilla = listado(d);
            QCOMPARE(rejilla->filasDatos(), 100);
            rejilla->verticalScrollBar()->setValue(rejilla->verticalScrollBar()->value() + 3);
            QCOMPARE(rejilla->filasDatos(), 101);
            campo<QCheckBox>(d, u"chkCheck"_s)->click();
            titulo(rejilla, 1);
            titulo(rejilla, 1);
            rejilla->setFilaActual(1);
            QTest::keyClick(rejilla, Qt::Key_PageDown);
            QVERIFY2(rejilla->filasDatos() <= 102, "not yet one of the last 100 rows");
            const int antes = rejilla->filasDatos();
            rejilla->setFilaActual(antes + 1 - 100);
            const int conSalto = rejilla->filasDatos();
            QTest::keyClick(rejilla, Qt::Key_PageDown);
            QVERIFY(rejilla->filasDatos() >= conSalto + 100);
            QCOMPARE(rejilla->texto(1, 1), u"1101"_s);
            QVERIFY2(rejilla->texto(rejilla->filasDatos(), 1).toInt() > 1200, "later rows stay at the end");
            QCOMPARE(rejilla->texto(rejilla->filasDatos(), 0), u"1"_s);
        });
}

void tst_Modelo1::list_of_alternative_values()
{
    CatalogoCriterios catalogo;
    catalogo.base.ejecutar(u"INSERT INTO Alternativos_Valores (Tabla, Alternativo, id, Valor) VALUES"
                           u" (0, 0, 3, 'ROJO'), (0, 0, 7, 'AZUL'), (0, 0, 33, 'VERDE')"_s);
    Conductor listas;
    catalogo.abrir<Dialogo>([](Dialogo &) {},
                            [&](Dialogo &d) {
                                auto *caja = campo<nvTextBox>(d, u"txtAlternativo1"_s);
                                QCOMPARE(campo<QLabel>(d, u"lblAlternativo1"_s)->text(), u"Estilo:"_s);
                                caja->setFocus();
                                QTest::keyClicks(caja, u"X"_s);
                                QCOMPARE(caja->text(), QString());
                                listas.paso([](QWidget *w) { return w->windowTitle() == u"Elección de Valores"_s; },
                                            [](QWidget *w) {
                                                w->findChild<QListWidget *>()->item(1)->setSelected(true); // ROJO
                                                QTest::mouseClick(w->findChild<QWidget *>(u"cmdAceptar"_s),
                                                                  Qt::LeftButton);
                                            });
                                QTest::keyClick(caja, Qt::Key_F3);
                                QCOMPARE(caja->text(), u"ROJO"_s);
                                pulsa(d, Qt::Key_F9);
                                QCOMPARE(columna(d, 1), QStringList{u"1"_s});
                                caja->setFocus();
                                QTest::keyClick(caja, Qt::Key_Delete);
                                QCOMPARE(caja->text(), QString());
                                pulsa(d, Qt::Key_F9);
                                QCOMPARE(columna(d, 1).size(), 4);
                            });
}

void tst_Modelo1::free_alternative_text_and_line_of_criteria()
{
    CatalogoCriterios catalogo;
    catalogo.empresa.familias[1].clear();
    catalogo.base.ejecutar(u"UPDATE Articulos SET Alternativo1 = 'LISO' WHERE Codigo = 2"_s);
    catalogo.abrir<Dialogo>(
        [](Dialogo &d) {
            d.Familia_1 = d.Busqueda_Familia_1 = 1;
            d.Busqueda_Proveedor = 7;
        },
        [](Dialogo &d) {
            QCOMPARE(columna(d, 1), (QStringList{u"1"_s, u"2"_s}));
            auto *caja = campo<nvTextBox>(d, u"txtAlternativo1"_s);
            caja->setFocus();
            QTest::keyClicks(caja, u"LISO"_s);
            QTest::keyClick(caja, Qt::Key_Return);
            QCOMPARE(columna(d, 1), QStringList{u"2"_s});
            QCOMPARE(d.DevCriterio(), u"Desc:   Código:   Prov: 7  Ref:   Familia: 1    Linea: 0"_s);
        });
    QCOMPARE(catalogo.criterios.Busqueda_Proveedor, 7);
}

void tst_Modelo1::failed_search_keeps_the_list()
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
                                QCOMPARE(columna(d, 1).size(), 4);
                                QVERIFY(!campo(d, u"pctMsg"_s)->isVisible());
                                QVERIFY(listado(d)->viewport()->updatesEnabled());
                                QVERIFY(!QGuiApplication::overrideCursor());
                            });
    QCOMPARE(cajas.cajas().size(), std::size_t{1});
}

void tst_Modelo1::prints_to_a_file_or_says_that_it_failed()
{
    CatalogoCriterios catalogo;
    const QTemporaryDir carpeta;
    const QString fichero = carpeta.filePath(u"lista.pdf"_s);
    Conductor otros;
    catalogo.abrir<Dialogo>([](Dialogo &) {},
                            [&](Dialogo &d) {
                                QTest::keyClick(&d, Qt::Key_F11); // nothing to print yet
                                pulsa(d, Qt::Key_F9);
                                titulo(listado(d), 8);
                                const auto guardar = [&](const QString &ruta) {
                                    otros.con<QFileDialog>([ruta](QFileDialog &f) {
                                        f.findChild<QLineEdit *>()->setText(ruta);
                                        QTest::keyClick(f.findChild<QLineEdit *>(), Qt::Key_Return);
                                    });
                                };
                                guardar(fichero);
                                QTest::keyClick(&d, Qt::Key_F11);
                                QFile pdf(fichero);
                                QVERIFY(pdf.open(QIODevice::ReadOnly));
                                QVERIFY(pdf.read(5) == "%PDF-");
                                catalogo.base.ejecutar(u"ALTER TABLE Articulos_CBarras RENAME TO Otra"_s);
                                guardar(carpeta.filePath(u"otra.pdf"_s));
                                otros.responde(u"Aceptar"_s);
                                QTest::keyClick(&d, Qt::Key_F11);
                                QVERIFY(!QFile::exists(carpeta.filePath(u"otra.pdf"_s)));
                                QVERIFY(!QGuiApplication::overrideCursor());
                            });
    QCOMPARE(otros.cajas().back().texto, u"Error en Imprimir_Busqueda"_s);
    QCOMPARE(otros.cajas().back().icono, QMessageBox::Critical);
}

QTEST_MAIN(tst_Modelo1)
#include "tst_modelo1.moc"
