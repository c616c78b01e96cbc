#include "common/Conexion.h"
#include "common/Error.h"
#include "platform/pickers/nvFamilia.h"
#include "platform/pickers/nvProveedor.h"
#include "platform/widgets/Rejilla.h"
#include "platform/widgets/Twips.h"
#include "platform/widgets/nvTextBox.h"
#include "search/Fabrica.h"
#include "search/frmBusqueda_Articulos_1.h"
#include "support/BaseDatos.h"
#include "support/Conductor.h"
#include "support/EmpresaPrueba.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;
using nv::pruebas::Conductor;

namespace {

/// What went out through the connection.
class Oyente : public nv::OyenteSentencias
{
public:
    explicit Oyente(nv::Conexion &conexion)
        : m_conexion(conexion)
    {
        m_conexion.escuchar(this);
    }
    ~Oyente() override { m_conexion.dejarDeEscuchar(this); }
    void sentencia(const nv::SucesoSentencia &suceso) override { textos.append(suceso.texto); }
    int veces(const QString &comienzo) const
    {
        return static_cast<int>(
            std::count_if(textos.begin(), textos.end(), [&](const QString &t) { return t.startsWith(comienzo); }));
    }
    QStringList textos;

private:
    nv::Conexion &m_conexion;
};

template <class Widget = QWidget>
Widget *campo(QWidget &dialogo, const QString &nombre)
{
    return dialogo.findChild<Widget *>(nombre);
}

nv::Rejilla *listado(QWidget &dialogo)
{
    return campo<nv::Rejilla>(dialogo, u"vsListado"_s);
}

void pulsa(QWidget &dialogo, Qt::Key tecla)
{
    QTest::keyClick(dialogo.focusWidget(), tecla);
}

QStringList columna(QWidget &dialogo, int numero)
{
    QStringList textos;
    for (int fila = 1; fila < listado(dialogo)->filas(); ++fila)
        textos.append(listado(dialogo)->texto(fila, numero));
    return textos;
}

int twips(const QWidget *widget, int pixeles)
{
    return nv::twips::dePixeles(pixeles, widget);
}

} // namespace

class tst_frmBusqueda_Articulos_1 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

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

    void accepting_gives_the_current_row_data();
    void accepting_gives_the_current_row();
    void accept_needs_an_item_row();
    void cancelling_empties_the_code_data();
    void cancelling_empties_the_code();
    void accepting_copies_every_match_for_this_terminal();
    void failing_copy_leaves_the_dialog_open();
    void failing_search_leaves_the_grid_as_it_was();
    void failing_first_search_leaves_a_usable_dialog();
    void failing_details_name_themselves();
    void window_may_go_while_an_error_is_up();
    void models_without_a_dialog_say_so_data();
    void models_without_a_dialog_say_so();

private:
    /// Opens the dialog with `preparar`, runs `accion` in it and closes it if it is still there.
    void abrir(const std::function<void(frmBusqueda_Articulos_1 &)> &preparar,
               const std::function<void(frmBusqueda_Articulos_1 &)> &accion);
    void articulo(int codigo, const QString &descripcion, const QString &resto = u"NULL, 0, 0, 0"_s);
    void mil_doscientos();

    std::unique_ptr<nv::pruebas::BaseDatos> m_base;
    nv::pruebas::EmpresaPrueba m_empresa;
    QString m_codigo;
    QString m_descripcion;
};

void tst_frmBusqueda_Articulos_1::articulo(int codigo, const QString &descripcion, const QString &resto)
{
    m_base->ejecutar(u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion, Desc_Memo, Familia_1, Familia_2,"
                     u" Familia_3) VALUES (2, %1, '%2', %3)"_s.arg(codigo)
                         .arg(descripcion, resto));
}

void tst_frmBusqueda_Articulos_1::mil_doscientos()
{
    m_empresa.valores[u"Articulos_BusquedaCantMax"_s] = u"5000"_s;
    nv::Transaccion transaccion(m_base->conexion());
    for (int i = 1; i <= 1200; ++i)
        articulo(10000 + i, u"ZZ %1"_s.arg(i, 4, 10, QChar(u'0')));
    transaccion.confirmar();
}

void tst_frmBusqueda_Articulos_1::init()
{
    m_empresa = {};
    m_codigo = u"untouched"_s;
    m_base = std::make_unique<nv::pruebas::BaseDatos>();
    nv::ranura::ofrecer(&m_base->conexion());
    articulo(1, u"TORNILLO"_s, u"NULL, 1, 2, 3"_s);
    articulo(2, u"TUERCA"_s, u"'Tornillería fina', 1, 2, 4"_s);
    articulo(3, u"ARANDELA"_s, u"'De los tornillos', 1, 5, 0"_s);
    articulo(24, u"Clavo"_s, u"NULL, 6, 0, 0"_s);
    m_base->ejecutar(
        {u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion) VALUES (1, 9, 'TORNILLO AJENO')"_s,
         u"INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal) VALUES (2, 1, '841', 1)"_s,
         u"INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal) VALUES (2, 2, '842', 0)"_s,
         u"INSERT INTO Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref) VALUES (2, 1, 7, '12X34')"_s,
         u"INSERT INTO Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref) VALUES (2, 2, 7, '99')"_s,
         u"INSERT INTO Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref) VALUES (2, 3, 8, '12-345')"_s,
         u"INSERT INTO Proveedores (Cod_Empresa, Codigo, Nombre) VALUES (3, 7, 'HIERROS')"_s,
         u"INSERT INTO Familias_1 (Cod_Empresa, Codigo, Nombre) VALUES (2, 1, 'FERRETERIA')"_s,
         u"INSERT INTO Familias_2 (Cod_Empresa, Familia_1, Codigo, Nombre) VALUES (2, 1, 2, 'ROSCAS')"_s,
         u"INSERT INTO Familias_3 (Cod_Empresa, Familia_1, Familia_2, Codigo, Nombre) VALUES (2, 1, 2, 3, 'MACHO')"_s});
}

void tst_frmBusqueda_Articulos_1::cleanup()
{
    m_base.reset();
}

void tst_frmBusqueda_Articulos_1::abrir(const std::function<void(frmBusqueda_Articulos_1 &)> &preparar,
                                        const std::function<void(frmBusqueda_Articulos_1 &)> &accion)
{
    frmBusqueda_Articulos_1 dialogo(nullptr);
    dialogo.cEmpresa = &m_empresa;
    preparar(dialogo);
    Conductor conductor;
    conductor.con<frmBusqueda_Articulos_1>([&](frmBusqueda_Articulos_1 &d) {
        accion(d);
        if (d.isVisible())
            d.close();
    });
    dialogo.MostrarModal();
    QVERIFY(conductor.terminado());
    m_codigo = dialogo.Codigo;
    m_descripcion = dialogo.Descripcion;
}

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
    abrir([](auto &) {},
          [&](QWidget &d) {
              QVERIFY(campo<nvTextBox>(d, u"txtNombre"_s)->hasFocus());
              for (qsizetype i = 0; i < criterios.size(); i += 2) {
                  auto *destino = campo<QWidget>(d, criterios[i]);
                  destino->setFocus();
                  nv::pruebas::teclear(d.focusWidget(), criterios[i + 1]);
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
    abrir([](auto &) {},
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
    abrir([](frmBusqueda_Articulos_1 &d) { d.Cliente = 5; },
          [](QWidget &d) {
              pulsa(d, Qt::Key_F9);
              QCOMPARE(campo<QLabel>(d, u"lblFotoCargando"_s)->text(), u"<<< Imagen no disponible >>>"_s);
              pulsa(d, Qt::Key_F9);
              nv::pruebas::teclear(d.focusWidget(), u"nada"_s);
              pulsa(d, Qt::Key_F9);
              QCOMPARE(listado(d)->filas(), 1);
              QVERIFY(campo(d, u"fraFiltro"_s)->isVisible() && campo(d, u"txtNombre"_s)->hasFocus());
              QVERIFY2(!campo(d, u"lblFotoCargando"_s)->isVisible(), "no former item's details");
          });
}

void tst_frmBusqueda_Articulos_1::remembered_criterion_searches_at_once_with_the_criteria_in_view()
{
    abrir(
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
    const Oyente oyente(m_base->conexion());
    abrir(
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
    abrir([](frmBusqueda_Articulos_1 &d) { d.Busqueda_Marca = 9; },
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
    mil_doscientos();
    abrir([](frmBusqueda_Articulos_1 &d) { d.Busqueda_Descripcion = u"ZZ"_s; },
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
    mil_doscientos();
    abrir([](frmBusqueda_Articulos_1 &d) { d.Busqueda_Descripcion = u"ZZ"_s; },
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
    m_empresa.valores[u"Articulos_BusquedaCantMax"_s] = u"2"_s;
    for (const bool varios : {false, true}) {
        abrir([&](frmBusqueda_Articulos_1 &d) { d.MultiResultado = varios; },
              [&](QWidget &d) {
                  pulsa(d, Qt::Key_F9);
                  QCOMPARE(listado(d)->filasDatos(), varios ? 4 : 2);
              });
    }
}

void tst_frmBusqueda_Articulos_1::fixed_family_is_locked_and_reference_searches_on_enter()
{
    abrir(
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
            nv::pruebas::teclear(d.focusWidget(), u"99"_s);
            pulsa(d, Qt::Key_Return);
            QCOMPARE(columna(d, 1), QStringList{u"TUERCA"_s});
        });
}

void tst_frmBusqueda_Articulos_1::enter_walks_the_family_levels_and_searches_on_the_last()
{
    m_empresa.familias[1].clear();
    m_empresa.familias[2] = u"Gama"_s;
    abrir([](auto &) {},
          [](QWidget &d) {
              QVERIFY(!campo(d, u"txtFamilia_2"_s)->isVisible() && !campo(d, u"lblTFamilia_2"_s)->isVisible());
              QCOMPARE(campo<QLabel>(d, u"lblTFamilia_3"_s)->text(), u"Gama:"_s);
              campo(d, u"txtReferencia"_s)->setFocus();
              pulsa(d, Qt::Key_Return);
              QVERIFY(campo<nvFamilia>(d, u"txtFamilia_1"_s)->caja()->hasFocus());
              QVERIFY2(listado(d)->filas() == 1, "the reference field does not search while families are free");
              nv::pruebas::teclear(d.focusWidget(), u"6"_s);
              pulsa(d, Qt::Key_Return);
              QVERIFY2(campo<nvFamilia>(d, u"txtFamilia_3"_s)->caja()->hasFocus(), "the unused level is skipped");
              QCOMPARE(listado(d)->filas(), 1);
              pulsa(d, Qt::Key_Return);
              QCOMPARE(columna(d, 1), QStringList{u"Clavo"_s});
          });
}

void tst_frmBusqueda_Articulos_1::changing_a_level_empties_those_below()
{
    abrir(
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
            nv::pruebas::teclear(d.focusWidget(), u"6"_s);
            QCOMPARE(familia2->Texto() + familia3->Texto(), QString());
            familia2->setTexto(u"2"_s);
            QVERIFY2(!familia2->Cargar(), "another family's child");
        });
}

void tst_frmBusqueda_Articulos_1::extended_view_changes_places_and_the_notes_search()
{
    abrir([](frmBusqueda_Articulos_1 &d) { d.Busqueda_Descripcion = u"TORN"_s; },
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
    const Oyente oyente(m_base->conexion());
    abrir(
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

void tst_frmBusqueda_Articulos_1::accepting_gives_the_current_row_data()
{
    using Accion = std::function<void(QWidget &)>;
    QTest::addColumn<Accion>("accion");
    QTest::newRow("Enter") << Accion([](QWidget &d) { QTest::keyClick(listado(d), Qt::Key_Return); });
    QTest::newRow("keypad Enter") << Accion([](QWidget &d) { QTest::keyClick(listado(d), Qt::Key_Enter); });
    QTest::newRow("double click") << Accion([](QWidget &d) {
        const QRect celda = listado(d)->visualRect(listado(d)->model()->index(1, 1));
        QTest::mouseDClick(listado(d)->viewport(), Qt::LeftButton, {}, celda.center());
    });
    QTest::newRow("button") << Accion([](QWidget &d) { QTest::mouseClick(campo(d, u"cmdAceptar"_s), Qt::LeftButton); });
    QTest::newRow("Enter on the button") << Accion([](QWidget &d) {
        campo(d, u"cmdAceptar"_s)->setFocus();
        pulsa(d, Qt::Key_Return);
    });
}

void tst_frmBusqueda_Articulos_1::accepting_gives_the_current_row()
{
    QFETCH(const std::function<void(QWidget &)>, accion);
    abrir([](frmBusqueda_Articulos_1 &d) { d.Busqueda_Descripcion = u"T"_s; },
          [&](QWidget &d) {
              listado(d)->setFilaActual(2);
              accion(d);
              QVERIFY(!d.isVisible());
          });
    QCOMPARE(m_codigo, u"2"_s);
    QCOMPARE(m_descripcion, u"TUERCA"_s);
}

void tst_frmBusqueda_Articulos_1::accept_needs_an_item_row()
{
    abrir([](frmBusqueda_Articulos_1 &d) { d.GuardarBusqueda = true; },
          [](QWidget &d) {
              campo<QPushButton>(d, u"cmdAceptar"_s)->click();
              QVERIFY(d.isVisible());
              pulsa(d, Qt::Key_F9);
              listado(d)->setFilaActual(0);
              campo<QPushButton>(d, u"cmdAceptar"_s)->click();
              QVERIFY(d.isVisible());
          });
    QCOMPARE(m_codigo, QString());
    QCOMPARE(m_base->filas(u"SELECT COUNT(*) FROM Articulos_Buscar"_s), QStringList{u"0"_s});
}

void tst_frmBusqueda_Articulos_1::cancelling_empties_the_code_data()
{
    using Accion = std::function<void(QWidget &)>;
    QTest::addColumn<Accion>("accion");
    QTest::newRow("Esc in the grid") << Accion([](QWidget &d) { QTest::keyClick(listado(d), Qt::Key_Escape); });
    QTest::newRow("Esc in a field") << Accion(
        [](QWidget &d) { QTest::keyClick(campo(d, u"txtNombre"_s), Qt::Key_Escape); });
    QTest::newRow("cross") << Accion([](QWidget &d) { d.close(); });
    QTest::newRow("button") << Accion([](QWidget &d) { campo<QPushButton>(d, u"cmdCancelar"_s)->click(); });
}

void tst_frmBusqueda_Articulos_1::cancelling_empties_the_code()
{
    QFETCH(const std::function<void(QWidget &)>, accion);
    abrir(
        [](frmBusqueda_Articulos_1 &d) {
            d.Busqueda_Descripcion = u"T"_s;
            d.Codigo = u"7"_s;
        },
        [&](QWidget &d) {
            accion(d);
            QVERIFY(!d.isVisible());
        });
    QCOMPARE(m_codigo, QString());
}

void tst_frmBusqueda_Articulos_1::accepting_copies_every_match_for_this_terminal()
{
    mil_doscientos();
    m_base->ejecutar({u"INSERT INTO Articulos_Buscar VALUES ('CAJA-1', 2, 1, 'ANTIGUO')"_s,
                      u"INSERT INTO Articulos_Buscar VALUES ('CAJA-2', 2, 1, 'AJENO')"_s});
    m_empresa.valores[u"Articulos_BusquedaCantMax"_s] = u"10"_s;
    const Oyente oyente(m_base->conexion());
    abrir(
        [](frmBusqueda_Articulos_1 &d) {
            d.GuardarBusqueda = true;
            d.Busqueda_Descripcion = u"ZZ"_s;
        },
        [](QWidget &d) {
            QCOMPARE(listado(d)->filasDatos(), 10);
            pulsa(d, Qt::Key_Return);
        });
    QCOMPARE(m_codigo, u"10001"_s);
    QCOMPARE(oyente.textos.sliced(oyente.textos.size() - 2),
             (QStringList{u"DELETE FROM Articulos_Buscar WHERE Terminal = 'CAJA-1'"_s,
                          u"INSERT INTO Articulos_Buscar(Terminal, Cod_Empresa, Cod_Articulo, Descripcion) "
                          u"SELECT DISTINCT 'CAJA-1', 2, a.Codigo, a.Descripcion FROM Articulos a "
                          u" LEFT JOIN Articulos_CBarras b"
                          u" ON a.Cod_Empresa=b.Cod_Empresa AND b.Cod_Articulo=a.Codigo AND b.Principal=1"
                          u" WHERE a.Cod_Empresa =2 AND a.Descripcion LIKE 'ZZ%' ORDER BY a.Descripcion"_s}));
    QCOMPARE(m_base->filas(u"SELECT Terminal, COUNT(*) FROM Articulos_Buscar GROUP BY Terminal ORDER BY Terminal"_s),
             (QStringList{u"CAJA-1|1200"_s, u"CAJA-2|1"_s}));
}

void tst_frmBusqueda_Articulos_1::failing_copy_leaves_the_dialog_open()
{
    m_base->ejecutar(u"DROP TABLE Articulos_Buscar"_s);
    frmBusqueda_Articulos_1 dialogo(nullptr);
    dialogo.cEmpresa = &m_empresa;
    dialogo.GuardarBusqueda = true;
    dialogo.Busqueda_Descripcion = u"T"_s;
    Conductor conductor;
    conductor.con<frmBusqueda_Articulos_1>([](QWidget &d) { pulsa(d, Qt::Key_Return); })
        .responde(u"Aceptar"_s)
        .con<frmBusqueda_Articulos_1>([](QWidget &d) { pulsa(d, Qt::Key_Escape); });
    dialogo.MostrarModal();
    QVERIFY(conductor.terminado());
    QCOMPARE(conductor.cajas().size(), std::size_t{1});
    QCOMPARE(conductor.cajas()[0].titulo, u"Error"_s);
    QCOMPARE(conductor.cajas()[0].icono, QMessageBox::Critical);
    QVERIFY(conductor.cajas()[0].texto.contains(u"Articulos_Buscar"));
    QCOMPARE(dialogo.Codigo, QString());
}

void tst_frmBusqueda_Articulos_1::failing_search_leaves_the_grid_as_it_was()
{
    frmBusqueda_Articulos_1 dialogo(nullptr);
    dialogo.cEmpresa = &m_empresa;
    dialogo.Busqueda_Descripcion = u"T"_s;
    Conductor conductor;
    conductor
        .con<frmBusqueda_Articulos_1>([](QWidget &d) {
            listado(d)->setFilaActual(2);
            campo<nvTextBox>(d, u"txtNombre"_s)->setText(u"L'OREAL"_s);
            pulsa(d, Qt::Key_F9);
        })
        .con<QMessageBox>([](QMessageBox &caja) {
            QVERIFY(!QGuiApplication::overrideCursor() ||
                    QGuiApplication::overrideCursor()->shape() == Qt::ArrowCursor);
            caja.close();
        })
        .con<frmBusqueda_Articulos_1>([](frmBusqueda_Articulos_1 &d) {
            QCOMPARE(columna(d, 1), (QStringList{u"TORNILLO"_s, u"TUERCA"_s}));
            QCOMPARE(listado(d)->filaActual(), 2);
            QCOMPARE(d.Busqueda_Descripcion, u"T"_s);
            campo<nvTextBox>(d, u"txtNombre"_s)->setText(u"*AND"_s);
            pulsa(d, Qt::Key_F9);
            QCOMPARE(columna(d, 1), QStringList{u"ARANDELA"_s});
            d.close();
        });
    dialogo.MostrarModal();
    QVERIFY(conductor.terminado());
    QCOMPARE(conductor.cajas().size(), std::size_t{1});
    QCOMPARE(conductor.cajas()[0].titulo, u"Búsqueda de Artículos"_s);
    QCOMPARE(conductor.cajas()[0].icono, QMessageBox::Critical);
    QVERIFY(!QGuiApplication::overrideCursor());
}

void tst_frmBusqueda_Articulos_1::failing_first_search_leaves_a_usable_dialog()
{
    frmBusqueda_Articulos_1 dialogo(nullptr);
    dialogo.cEmpresa = &m_empresa;
    dialogo.Busqueda_Descripcion = u"d'un cop"_s;
    Conductor conductor;
    conductor.responde(u"Aceptar"_s).con<frmBusqueda_Articulos_1>([](QWidget &d) {
        QVERIFY(campo(d, u"txtNombre"_s)->hasFocus());
        campo<nvTextBox>(d, u"txtNombre"_s)->clear();
        pulsa(d, Qt::Key_F9);
        QCOMPARE(listado(d)->filasDatos(), 4);
        d.close();
    });
    dialogo.MostrarModal();
    QVERIFY(conductor.terminado());
}

void tst_frmBusqueda_Articulos_1::failing_details_name_themselves()
{
    m_base->ejecutar(u"DROP TABLE Almacen_Articulos"_s);
    frmBusqueda_Articulos_1 dialogo(nullptr);
    dialogo.cEmpresa = &m_empresa;
    Conductor conductor;
    conductor
        .con<frmBusqueda_Articulos_1>([](QWidget &d) {
            pulsa(d, Qt::Key_F9);
            pulsa(d, Qt::Key_F6);
        })
        .responde(u"Aceptar"_s)
        .con<frmBusqueda_Articulos_1>([](QWidget &d) {
            pulsa(d, Qt::Key_F6);
            pulsa(d, Qt::Key_Return);
        });
    dialogo.MostrarModal();
    QVERIFY(conductor.terminado());
    QCOMPARE(conductor.cajas().size(), std::size_t{1});
    QCOMPARE(conductor.cajas()[0].titulo, u"::DevPropiedades"_s);
    QCOMPARE(dialogo.Codigo, u"3"_s);
}

void tst_frmBusqueda_Articulos_1::window_may_go_while_an_error_is_up()
{
    for (const bool alAbrir : {true, false}) {
        auto *ventana = new QWidget;
        ventana->show();
        const nv::DialogoPropio<nv::ContratoBusqueda> dialogo = nv::crearDialogoBusqueda(0, ventana);
        dialogo->cEmpresa = &m_empresa;
        dialogo->Busqueda_Descripcion = alAbrir ? u"d'un cop"_s : QString();
        Conductor conductor;
        if (!alAbrir) {
            conductor.con<frmBusqueda_Articulos_1>([](QWidget &d) {
                nv::pruebas::teclear(d.focusWidget(), u"d'un cop"_s);
                pulsa(d, Qt::Key_F9);
            });
        }
        conductor.con<QMessageBox>([ventana](QMessageBox &) { delete ventana; });
        dialogo->MostrarModal();
        QVERIFY(conductor.terminado());
        QVERIFY(!dialogo.vivo());
    }
}

void tst_frmBusqueda_Articulos_1::models_without_a_dialog_say_so_data()
{
    QTest::addColumn<int>("modelo");
    QTest::addColumn<QString>("texto");
    QTest::newRow("below") << -1
                           << u"El modelo de búsqueda -1 no existe. Revise el parámetro BusquedaArticulos de la "
                              u"empresa."_s;
    QTest::newRow("above") << 9
                           << u"El modelo de búsqueda 9 no existe. Revise el parámetro BusquedaArticulos de la "
                              u"empresa."_s;
}

void tst_frmBusqueda_Articulos_1::models_without_a_dialog_say_so()
{
    QFETCH(const int, modelo);
    QFETCH(const QString, texto);
    try {
        nv::crearDialogoBusqueda(static_cast<qint16>(modelo), nullptr);
        QFAIL("a dialog came");
    } catch (const nv::Error &error) {
        QCOMPARE(error.descripcion, texto);
    }
}

QTEST_MAIN(tst_frmBusqueda_Articulos_1)
#include "tst_frmbusqueda_articulos_1.moc"
