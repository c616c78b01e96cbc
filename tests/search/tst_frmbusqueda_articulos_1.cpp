#include "platform/pickers/nvFamilia.h"
#include "platform/pickers/nvProveedor.h"
#include "platform/widgets/nvTextBox.h"
#include "search/BusquedaAbierta.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollBar>

using namespace Qt::StringLiterals;
using namespace nv::pruebas;

/// Criteria, rows, layouts and details of search model 0.
class tst_frmBusqueda_Articulos_1 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_.emplace(); }
    void cleanup() { m_.reset(); }

    void criteria_find_their_items_data();
    void criteria_find_their_items();
    void search_hides_the_criteria_and_F9_brings_them_back();
    void search_without_rows_keeps_the_criteria();
    void remembered_criterion_searches_at_once_with_the_criteria_in_view();
    void nothing_remembered_is_no_search_data();
    void nothing_remembered_is_no_search();
    void criteria_are_remembered_as_typed();
    void five_hundred_rows_then_one_for_a_step_and_fifty_for_a_page();
    void end_then_page_down_brings_more();
    void several_results_lift_the_row_limit();
    void fixed_family_is_locked_and_reference_searches_on_enter();
    void enter_walks_the_family_levels_and_searches_on_the_last();
    void changing_a_level_empties_those_below();
    void extended_view_changes_places_and_the_notes_search();
    void customer_opens_the_extended_view();

private:
    std::optional<BusquedaAbierta> m_;
};

void tst_frmBusqueda_Articulos_1::criteria_find_their_items_data()
{
    QTest::addColumn<QStringList>("criterios"); // field, text, …
    QTest::addColumn<QStringList>("encontrados");
    QTest::newRow("nothing: all by description")
        << QStringList{} << QStringList{u"ARANDELA"_s, u"Clavo"_s, u"TORNILLO"_s, u"TUERCA"_s};
    QTest::newRow("beginning of the description")
        << QStringList{u"txtNombre"_s, u"t"_s} << QStringList{u"TORNILLO"_s, u"TUERCA"_s};
    QTest::newRow("wildcard in front") << QStringList{u"txtNombre"_s, u"*AND"_s} << QStringList{u"ARANDELA"_s};
    QTest::newRow("beginning of the code")
        << QStringList{u"txtCodigo"_s, u"2"_s} << QStringList{u"Clavo"_s, u"TUERCA"_s};
    QTest::newRow("any reference of a supplier")
        << QStringList{u"txtProveedor"_s, u"7"_s} << QStringList{u"TORNILLO"_s, u"TUERCA"_s};
    QTest::newRow("reference of any supplier")
        << QStringList{u"txtReferencia"_s, u"12*34"_s} << QStringList{u"ARANDELA"_s, u"TORNILLO"_s};
    QTest::newRow("both") << QStringList{u"txtReferencia"_s, u"12*34"_s, u"txtProveedor"_s, u"8"_s}
                          << QStringList{u"ARANDELA"_s};
    QTest::newRow("family levels") << QStringList{u"txtFamilia_1"_s, u"1"_s, u"txtFamilia_2"_s, u"2"_s}
                                   << QStringList{u"TORNILLO"_s, u"TUERCA"_s};
    QTest::newRow("level 2 alone is no filter")
        << QStringList{u"txtFamilia_2"_s, u"2"_s} << QStringList{u"ARANDELA"_s, u"Clavo"_s, u"TORNILLO"_s, u"TUERCA"_s};
}

void tst_frmBusqueda_Articulos_1::criteria_find_their_items()
{
    QFETCH(const QStringList, criterios);
    QFETCH(const QStringList, encontrados);
    m_->abrir([](auto &) {},
              [&](QWidget &d) {
                  QVERIFY(campo<nvTextBox>(d, u"txtNombre"_s)->hasFocus());
                  for (qsizetype i = 0; i < criterios.size(); i += 2) {
                      auto *destino = campo<QWidget>(d, criterios[i]);
                      destino->setFocus();
                      teclear(d.focusWidget(), criterios[i + 1]);
                  }
                  pulsa(d, Qt::Key_F9);
                  QCOMPARE(columna(d, 1), encontrados);
                  const qsizetype tornillo = encontrados.indexOf(u"TORNILLO"_s);
                  const qsizetype tuerca = encontrados.indexOf(u"TUERCA"_s);
                  if (tornillo >= 0)
                      QCOMPARE(columna(d, 5)[tornillo], u"841"_s);
                  if (tuerca >= 0)
                      QCOMPARE(columna(d, 5)[tuerca], QString());
              });
}

void tst_frmBusqueda_Articulos_1::search_hides_the_criteria_and_F9_brings_them_back()
{
    m_->abrir([](auto &) {},
              [](QWidget &d) {
                  auto *filtro = campo(d, u"fraFiltro"_s);
                  auto *rejilla = listado(d);
                  pulsa(d, Qt::Key_F9);
                  QVERIFY(!filtro->isVisible() && rejilla->hasFocus());
                  QCOMPARE(rejilla->filaActual(), 1);
                  QCOMPARE(twips(rejilla, rejilla->y()), 90);
                  QCOMPARE(twips(rejilla, rejilla->height()), 5730);
                  pulsa(d, Qt::Key_F9);
                  QVERIFY(filtro->isVisible() && campo(d, u"txtNombre"_s)->hasFocus());
                  QCOMPARE(twips(rejilla, rejilla->y()), 2160);
                  QCOMPARE(twips(rejilla, rejilla->height()), 3660);

                  pulsa(d, Qt::Key_F9);
                  pulsa(d, Qt::Key_Down);
                  pulsa(d, Qt::Key_Up);
                  QVERIFY2(!filtro->isVisible(), "Up on row 2 is the grid's");
                  pulsa(d, Qt::Key_Up);
                  QVERIFY(filtro->isVisible() && campo(d, u"txtNombre"_s)->hasFocus());
              });
}

void tst_frmBusqueda_Articulos_1::search_without_rows_keeps_the_criteria()
{
    m_->abrir([](frmBusqueda_Articulos_1 &d) { d.Cliente = 5; },
              [](QWidget &d) {
                  pulsa(d, Qt::Key_F9);
                  QCOMPARE(campo<QLabel>(d, u"lblFotoCargando"_s)->text(), u"<<< Imagen no disponible >>>"_s);
                  pulsa(d, Qt::Key_F9);
                  teclear(d.focusWidget(), u"nada"_s);
                  pulsa(d, Qt::Key_F9);
                  QCOMPARE(listado(d)->filas(), 1);
                  QVERIFY(campo(d, u"fraFiltro"_s)->isVisible() && campo(d, u"txtNombre"_s)->hasFocus());
                  QVERIFY2(!campo(d, u"lblFotoCargando"_s)->isVisible(), "no former item's details");
              });
}

void tst_frmBusqueda_Articulos_1::remembered_criterion_searches_at_once_with_the_criteria_in_view()
{
    m_->abrir(
        [](frmBusqueda_Articulos_1 &d) {
            d.Busqueda_Proveedor = 7;
            d.Busqueda_Familia_1 = 1;
            d.Busqueda_Familia_2 = 2;
        },
        [](QWidget &d) {
            QCOMPARE(columna(d, 1), (QStringList{u"TORNILLO"_s, u"TUERCA"_s}));
            QVERIFY(campo(d, u"fraFiltro"_s)->isVisible() && listado(d)->hasFocus());
            QCOMPARE(listado(d)->filaActual(), 1);
            QCOMPARE(campo<nvProveedor>(d, u"txtProveedor"_s)->Nombre(), u"HIERROS"_s);
            QCOMPARE(campo<nvFamilia>(d, u"txtFamilia_2"_s)->Nombre(), u"ROSCAS"_s);
            QVERIFY(campo(d, u"txtFamilia_1"_s)->isEnabled());
        });
}

void tst_frmBusqueda_Articulos_1::nothing_remembered_is_no_search_data()
{
    QTest::addColumn<QString>("codigo");
    QTest::addColumn<int>("familia");
    QTest::newRow("nothing") << QString() << 0;
    QTest::newRow("criteria reset by the component") << u"0"_s << 0;
    QTest::newRow("no family, from a typed description") << QString() << -1;
}

void tst_frmBusqueda_Articulos_1::nothing_remembered_is_no_search()
{
    QFETCH(const QString, codigo);
    QFETCH(const int, familia);
    const Oyente oyente(m_->base.conexion());
    m_->abrir(
        [&](frmBusqueda_Articulos_1 &d) {
            d.Busqueda_Codigo = codigo;
            d.Familia_1 = d.Busqueda_Familia_1 = static_cast<qint16>(familia);
        },
        [&](QWidget &d) {
            QCOMPARE(oyente.veces(u"SELECT  TOP"_s), 0);
            QCOMPARE(campo<nvTextBox>(d, u"txtCodigo"_s)->text(), QString());
            QVERIFY(campo<nvFamilia>(d, u"txtFamilia_1"_s)->isEnabled());
            QCOMPARE(campo<nvFamilia>(d, u"txtFamilia_1"_s)->Texto(), QString());
            QCOMPARE(campo<nvProveedor>(d, u"txtProveedor"_s)->Texto(), QString());
            QVERIFY(campo(d, u"txtNombre"_s)->hasFocus());
        });
}

void tst_frmBusqueda_Articulos_1::criteria_are_remembered_as_typed()
{
    nv::CriteriosBusqueda recordados;
    m_->abrir([](frmBusqueda_Articulos_1 &d) { d.Busqueda_Marca = 9; },
              [&](frmBusqueda_Articulos_1 &d) {
                  campo<nvTextBox>(d, u"txtNombre"_s)->setText(u"T*"_s);
                  campo<nvProveedor>(d, u"txtProveedor"_s)->setTexto(u"7"_s);
                  campo<nvFamilia>(d, u"txtFamilia_1"_s)->setTexto(u"1"_s);
                  campo<nvTextBox>(d, u"txtReferencia"_s)->setText(u"1"_s);
                  pulsa(d, Qt::Key_F9);
                  recordados = d;
              });
    QCOMPARE(recordados.Busqueda_Descripcion, u"T*"_s);
    QCOMPARE(recordados.Busqueda_Proveedor, 7);
    QCOMPARE(recordados.Busqueda_Referencia, u"1"_s);
    QCOMPARE(recordados.Busqueda_Familia_1, qint16{1});
    QCOMPARE(recordados.Busqueda_Marca, qint16{9});
}

void tst_frmBusqueda_Articulos_1::five_hundred_rows_then_one_for_a_step_and_fifty_for_a_page()
{
    m_->mil_doscientos();
    m_->abrir([](frmBusqueda_Articulos_1 &d) { d.Busqueda_Descripcion = u"ZZ"_s; },
              [](QWidget &d) {
                  auto *rejilla = listado(d);
                  QCOMPARE(rejilla->filasDatos(), 500);
                  rejilla->setFilaActual(499);
                  rejilla->verticalScrollBar()->setValue(0);
                  QCOMPARE(rejilla->filasDatos(), 501);
                  rejilla->setFilaActual(499);
                  QCOMPARE(rejilla->filasDatos(), 502);
                  rejilla->setFilaActual(498);
                  pulsa(d, Qt::Key_PageDown);
                  QCOMPARE(rejilla->filasDatos(), 503);
              });
}

void tst_frmBusqueda_Articulos_1::end_then_page_down_brings_more()
{
    m_->mil_doscientos();
    m_->abrir([](frmBusqueda_Articulos_1 &d) { d.Busqueda_Descripcion = u"ZZ"_s; },
              [](QWidget &d) {
                  auto *rejilla = listado(d);
                  pulsa(d, Qt::Key_End);
                  QCOMPARE(rejilla->filasDatos(), 501);
                  QCOMPARE(rejilla->filaActual(), 500);
                  pulsa(d, Qt::Key_PageDown);
                  QVERIFY2(rejilla->filasDatos() == 551 || rejilla->filasDatos() == 552,
                           "fifty, and one for the step that the key scrolls");
                  for (int i = 0; i < 200 && rejilla->filasDatos() < 1200; ++i) {
                      pulsa(d, Qt::Key_End);
                      pulsa(d, Qt::Key_PageDown);
                  }
                  QCOMPARE(rejilla->filasDatos(), 1200);
                  QCOMPARE(rejilla->texto(1200, 1), u"ZZ 1200"_s);
              });
}

void tst_frmBusqueda_Articulos_1::several_results_lift_the_row_limit()
{
    m_->empresa.valores[u"Articulos_BusquedaCantMax"_s] = u"2"_s;
    for (const bool varios : {false, true}) {
        m_->abrir([&](frmBusqueda_Articulos_1 &d) { d.MultiResultado = varios; },
                  [&](QWidget &d) {
                      pulsa(d, Qt::Key_F9);
                      QCOMPARE(listado(d)->filasDatos(), varios ? 4 : 2);
                  });
    }
}

void tst_frmBusqueda_Articulos_1::fixed_family_is_locked_and_reference_searches_on_enter()
{
    m_->abrir(
        [](frmBusqueda_Articulos_1 &d) {
            d.Familia_1 = d.Busqueda_Familia_1 = 1;
            d.Familia_2 = d.Busqueda_Familia_2 = 2;
        },
        [](QWidget &d) {
            QCOMPARE(columna(d, 1), (QStringList{u"TORNILLO"_s, u"TUERCA"_s}));
            QVERIFY(!campo(d, u"txtFamilia_1"_s)->isEnabled() && !campo(d, u"txtFamilia_3"_s)->isEnabled());
            QCOMPARE(campo<nvFamilia>(d, u"txtFamilia_1"_s)->Nombre(), u"FERRETERIA"_s);
            QCOMPARE(campo<nvFamilia>(d, u"txtFamilia_2"_s)->Nombre(), u"ROSCAS"_s);
            campo(d, u"txtReferencia"_s)->setFocus();
            teclear(d.focusWidget(), u"99"_s);
            pulsa(d, Qt::Key_Return);
            QCOMPARE(columna(d, 1), QStringList{u"TUERCA"_s});
        });
}

void tst_frmBusqueda_Articulos_1::enter_walks_the_family_levels_and_searches_on_the_last()
{
    m_->empresa.familias[1].clear();
    m_->empresa.familias[2] = u"Gama"_s;
    m_->abrir([](auto &) {},
              [](QWidget &d) {
                  QVERIFY(!campo(d, u"txtFamilia_2"_s)->isVisible() && !campo(d, u"lblTFamilia_2"_s)->isVisible());
                  QCOMPARE(campo<QLabel>(d, u"lblTFamilia_3"_s)->text(), u"Gama:"_s);
                  campo(d, u"txtReferencia"_s)->setFocus();
                  pulsa(d, Qt::Key_Return);
                  QVERIFY(campo<nvFamilia>(d, u"txtFamilia_1"_s)->caja()->hasFocus());
                  QVERIFY2(listado(d)->filas() == 1, "the reference field does not search while families are free");
                  teclear(d.focusWidget(), u"6"_s);
                  pulsa(d, Qt::Key_Return);
                  QVERIFY2(campo<nvFamilia>(d, u"txtFamilia_3"_s)->caja()->hasFocus(), "the unused level is skipped");
                  QCOMPARE(listado(d)->filas(), 1);
                  pulsa(d, Qt::Key_Return);
                  QCOMPARE(columna(d, 1), QStringList{u"Clavo"_s});
              });
}

void tst_frmBusqueda_Articulos_1::changing_a_level_empties_those_below()
{
    m_->abrir(
        [](frmBusqueda_Articulos_1 &d) {
            d.Busqueda_Familia_1 = 1;
            d.Busqueda_Familia_2 = 2;
            d.Busqueda_Familia_3 = 3;
        },
        [](QWidget &d) {
            auto *familia2 = campo<nvFamilia>(d, u"txtFamilia_2"_s);
            auto *familia3 = campo<nvFamilia>(d, u"txtFamilia_3"_s);
            QCOMPARE(familia3->Nombre(), u"MACHO"_s);
            familia2->setFocus();
            pulsa(d, Qt::Key_Backspace);
            QCOMPARE(familia3->Texto(), QString());
            familia2->setTexto(u"2"_s);
            familia3->setTexto(u"3"_s);
            QVERIFY(familia3->Cargar());
            campo(d, u"txtFamilia_1"_s)->setFocus();
            teclear(d.focusWidget(), u"6"_s);
            QCOMPARE(familia2->Texto() + familia3->Texto(), QString());
            familia2->setTexto(u"2"_s);
            QVERIFY2(!familia2->Cargar(), "another family's child");
        });
}

void tst_frmBusqueda_Articulos_1::extended_view_changes_places_and_the_notes_search()
{
    m_->abrir([](frmBusqueda_Articulos_1 &d) { d.Busqueda_Descripcion = u"TORN"_s; },
              [](QWidget &d) {
                  QCOMPARE(columna(d, 1), QStringList{u"TORNILLO"_s});
                  QCOMPARE(twips(&d, d.width()), 7140);
                  pulsa(d, Qt::Key_F6);
                  QCOMPARE(twips(&d, d.width()), 11655);
                  QCOMPARE(twips(&d, listado(d)->width()), 5670);
                  QVERIFY(campo(d, u"fraExtendido"_s)->isVisible() && campo(d, u"fraDivisor"_s)->isVisible());
                  QVERIFY(listado(d)->isColumnHidden(5));
                  QCOMPARE(twips(&d, campo(d, u"cmdAceptar"_s)->x()), 3375);
                  QCOMPARE(columna(d, 1), QStringList{u"TORNILLO"_s});
                  pulsa(d, Qt::Key_F9);
                  QCOMPARE(columna(d, 1), (QStringList{u"TORNILLO"_s, u"TUERCA"_s}));
                  pulsa(d, Qt::Key_F6);
                  QCOMPARE(twips(&d, campo(d, u"cmdCancelar"_s)->x()), 5775);
                  QVERIFY(!campo(d, u"fraExtendido"_s)->isVisible() && !listado(d)->isColumnHidden(5));
                  QVERIFY2(!campo(d, u"fraFiltro"_s)->isVisible(), "the view leaves the criteria as they are");
              });
}

void tst_frmBusqueda_Articulos_1::customer_opens_the_extended_view()
{
    const Oyente oyente(m_->base.conexion());
    m_->abrir(
        [](frmBusqueda_Articulos_1 &d) {
            d.Cliente = 5;
            d.Busqueda_Descripcion = u"T"_s;
        },
        [&](frmBusqueda_Articulos_1 &d) {
            QVERIFY(campo(d, u"fraExtendido"_s)->isVisible() && listado(d)->isColumnHidden(5));
            QCOMPARE(d.AlmacenStock, qint16{1});
            QVERIFY2(oyente.veces(u"SELECT Desc_Memo"_s) == 1, "one look at the first item");
            pulsa(d, Qt::Key_Down);
            QCOMPARE(oyente.veces(u"SELECT Desc_Memo"_s), 2);
        });
}

QTEST_MAIN(tst_frmBusqueda_Articulos_1)
#include "tst_frmbusqueda_articulos_1.moc"
