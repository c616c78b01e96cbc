#include "search/frmBusqueda_Articulos_3.h"
#include "tst_textolibre_catalogo.h"

#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;
using namespace nv::pruebas;

namespace {

enum Columna { Marca, Codigo, Descripcion, Stock, Ean, Pvp, PvpIgic, PvpIva, Referencia };

using Dialogo = frmBusqueda_Articulos_3;

} // namespace

/// What the four free-text dialogs share, on the one of model 2.
class tst_TextoLibre : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m = std::make_unique<CatalogoTextoLibre>(); }
    void cleanup() { m.reset(); }

    void rows_show_stock_price_and_taxes();
    void tax_columns_follow_the_settings_data();
    void tax_columns_follow_the_settings();
    void texts_find_their_items_data();
    void texts_find_their_items();
    void user_parameter_opens_all_references();
    void opening_searches_the_remembered_text();
    void keys_of_the_box_and_the_grid();
    void space_is_typed_where_one_item_is_wanted();
    void marks_and_select_all();
    void clicks_mark_and_accept();
    void accept_returns_what_is_marked_data();
    void accept_returns_what_is_marked();
    void accept_on_the_heading_needs_marks_or_an_empty_list();
    void saved_search_holds_every_item_found();
    void failed_copy_leaves_everything_as_it_was();
    void failed_search_leaves_the_dialog_usable();
    void settings_that_failed_at_load_are_read_by_the_next_search();
    void strip_and_pointer_last_as_long_as_the_search();

private:
    void abrir(const std::function<void(Dialogo &)> &accion, const std::function<void(Dialogo &)> &antes = {})
    {
        Conductor conductor;
        Dialogo dialogo(nullptr);
        if (antes)
            antes(dialogo);
        m->abrir<Dialogo>(conductor, dialogo, accion);
        QVERIFY(conductor.terminado());
    }
    static QCheckBox *todas(Dialogo &d) { return d.findChild<QCheckBox *>(u"chkSelAll"_s); }
    static void varios(Dialogo &d) { d.MultiResultado = true; }

    std::unique_ptr<CatalogoTextoLibre> m;
};

void tst_TextoLibre::rows_show_stock_price_and_taxes()
{
    abrir([](Dialogo &d) {
        QCOMPARE(d.windowTitle(), u"Búsqueda de Artículos"_s);
        buscar(caja(d, "txtBusqueda"), u"rojo grande"_s);
        QCOMPARE(caja(d, "txtBusqueda")->text(), u"ROJO GRANDE"_s);
        QCOMPARE(d.Busqueda_Descripcion, u"ROJO GRANDE"_s);
        // 7 % of 1234.5678 is 86.42 and 21 % is 259.26: only the tax is rounded, to cents.
        QCOMPARE(fila(d, 1), QStringList({u"0"_s, u"10"_s, u"TORNILLO ROJO GRANDE"_s, u"12,5"_s, u""_s, u"1234,568"_s,
                                          u"1320,988"_s, u"1493,828"_s, u"TOR127"_s}));
        QCOMPARE(lista(d)->filaActual(), 1);
        QVERIFY(caja(d, "txtBusqueda")->hasFocus());
        buscar(caja(d, "txtBusqueda"), u"L'ORÉAL"_s);
        QCOMPARE(fila(d, 1), QStringList({u"0"_s, u"841"_s, u"CHAMPÚ L'ORÉAL"_s, u"0"_s, u""_s, u"0,000"_s, u"0,000"_s,
                                          u"0,000"_s, u""_s}));
    });
    // The given warehouse's stock, with the tariff of the default one all the same.
    abrir(
        [](Dialogo &d) {
            QCOMPARE(lista(d)->texto(1, Stock), u"3"_s);
            QCOMPARE(lista(d)->texto(1, Pvp), u"1234,568"_s);
        },
        [](Dialogo &d) {
            d.AlmacenStock = 2;
            d.Busqueda_Descripcion = u"ROJO GRANDE"_s;
        });
    m->base.ejecutar(u"DELETE FROM Tarifas"_s);
    abrir([](Dialogo &d) { QCOMPARE(lista(d)->texto(1, Pvp), u"1234,57"_s); },
          [](Dialogo &d) { d.Busqueda_Descripcion = u"ROJO GRANDE"_s; });
}

void tst_TextoLibre::tax_columns_follow_the_settings_data()
{
    QTest::addColumn<QStringList>("ajustes");
    QTest::addColumn<bool>("igic");
    QTest::addColumn<bool>("iva");
    QTest::newRow("both") << QStringList{u"0"_s, u"1"_s, u"1"_s} << true << true;
    QTest::newRow("first") << QStringList{u"0"_s, u"1"_s, u"0"_s} << true << false;
    QTest::newRow("second") << QStringList{u"0"_s, u"False"_s, u"True"_s} << false << true;
    QTest::newRow("declared elsewhere") << QStringList{u"True"_s, u"1"_s, u"1"_s} << false << false;
}

void tst_TextoLibre::tax_columns_follow_the_settings()
{
    QFETCH(const QStringList, ajustes);
    m->empresa.valores[u"DeclaraIgic"_s] = ajustes[0];
    m->empresa.valores[u"Articulos_FichaVerPvpConIgic"_s] = ajustes[1];
    m->empresa.valores[u"Articulos_FichaVerPvpConIva"_s] = ajustes[2];
    abrir([](Dialogo &d) {
        QTEST(!lista(d)->isColumnHidden(PvpIgic), "igic");
        QTEST(!lista(d)->isColumnHidden(PvpIva), "iva");
        QVERIFY(lista(d)->isColumnHidden(Marca));
        QVERIFY(!todas(d)->isVisible());
    });
}

void tst_TextoLibre::texts_find_their_items_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QStringList>("codigos");
    QTest::newRow("word in description or reference") << u"rojo"_s << QStringList{u"11"_s, u"10"_s, u"12"_s};
    QTest::newRow("words only in the description") << u"rojo "_s << QStringList{u"11"_s, u"10"_s};
    QTest::newRow("all the words") << u"grande torn"_s << QStringList{u"10"_s};
    QTest::newRow("asterisk anchored") << u"tor*7"_s << QStringList{u"10"_s};
    QTest::newRow("part of the main barcode") << u"23456"_s << QStringList{u"12"_s};
    QTest::newRow("codes and main barcodes") << u"841"_s << QStringList{u"841"_s, u"12"_s};
    QTest::newRow("second barcodes are not searched") << u"8499"_s << QStringList{};
    QTest::newRow("number with asterisk is no code") << u"84*"_s << QStringList{};
}

void tst_TextoLibre::texts_find_their_items()
{
    QFETCH(const QString, texto);
    abrir([&](Dialogo &d) {
        buscar(caja(d, "txtBusqueda"), texto);
        QTEST(columna(d, Codigo), "codigos");
    });
}

void tst_TextoLibre::user_parameter_opens_all_references()
{
    m->empresa.valores[u"UsuarioActual"_s] = u"ANA"_s;
    m->base.ejecutar(u"INSERT INTO Parametros_Usuario (Usuario, Clave, Valor) VALUES ('ANA', "
                     u"'nvArticulo.BuscadorM3.SoloRefPrincipal', '0')"_s);
    abrir([](Dialogo &d) {
        buscar(caja(d, "txtBusqueda"), u"rojo grande"_s);
        QStringList referencias = columna(d, Referencia);
        referencias.sort();
        QCOMPARE(referencias, QStringList({u"TOR127"_s, u"TOR927"_s}));
    });
}

void tst_TextoLibre::opening_searches_the_remembered_text()
{
    abrir(
        [](Dialogo &d) {
            QCOMPARE(caja(d, "txtBusqueda")->text(), u"grande"_s);
            QCOMPARE(columna(d, Codigo), QStringList({u"10"_s, u"12"_s}));
            QCOMPARE(d.AlmacenStock, qint16{1});
            QVERIFY(lista(d)->hasFocus());
            QTest::keyClick(lista(d), Qt::Key_Down);
            QTest::keyClick(lista(d), Qt::Key_Return);
            QVERIFY(!d.isVisible());
            QCOMPARE(d.Codigo, u"12"_s);
            QCOMPARE(d.Descripcion, u"TUERCA GRANDE"_s);
        },
        [](Dialogo &d) { d.Busqueda_Descripcion = u"grande"_s; });
    m->sentencias.clear();
    abrir([this](Dialogo &d) {
        QVERIFY(caja(d, "txtBusqueda")->hasFocus());
        QVERIFY(m->sentencias.filter(u"FROM Articulos"_s).isEmpty());
        for (const QString &nada : {u""_s, u"   "_s}) {
            buscar(caja(d, "txtBusqueda"), nada);
            QVERIFY(m->sentencias.filter(u"FROM Articulos"_s).isEmpty());
        }
        d.Codigo = u"9"_s;
        QTest::keyClick(caja(d, "txtBusqueda"), Qt::Key_Escape);
        QVERIFY(!d.isVisible());
        QCOMPARE(d.Codigo, u""_s);
    });
}

void tst_TextoLibre::keys_of_the_box_and_the_grid()
{
    abrir(
        [](Dialogo &d) {
            nvTextBox *texto = caja(d, "txtBusqueda");
            texto->setFocus();
            QTest::keyClick(texto, Qt::Key_Down);
            QVERIFY(lista(d)->hasFocus());
            QCOMPARE(lista(d)->filaActual(), 0);
            QTest::keyClick(lista(d), Qt::Key_Return);
            QVERIFY(d.isVisible());
            QTest::keyClick(lista(d), Qt::Key_Down);
            QTest::keyClick(lista(d), Qt::Key_Down);
            QCOMPARE(lista(d)->filaActual(), 2);
            QTest::keyClick(lista(d), Qt::Key_Up);
            QVERIFY(lista(d)->hasFocus());
            QTest::keyClick(lista(d), Qt::Key_Up);
            QVERIFY(texto->hasFocus());
            QCOMPARE(texto->selectedText(), u"GRANDE"_s);

            lista(d)->setFocus();
            teclear(lista(d), u"ñ"_s);
            QVERIFY(texto->hasFocus());
            QCOMPARE(texto->text(), u"Ñ"_s);
            QVERIFY(!texto->hasSelectedText());
            teclear(texto, u"u"_s);
            QCOMPARE(texto->text(), u"ÑU"_s);
        },
        [](Dialogo &d) { d.Busqueda_Descripcion = u"GRANDE"_s; });
}

void tst_TextoLibre::space_is_typed_where_one_item_is_wanted()
{
    abrir(
        [](Dialogo &d) {
            QTest::keyClick(lista(d), Qt::Key_Space);
            QVERIFY(caja(d, "txtBusqueda")->hasFocus());
            QCOMPARE(caja(d, "txtBusqueda")->text(), u" "_s);
            QCOMPARE(columna(d, Marca), QStringList({u"0"_s, u"0"_s}));
        },
        [](Dialogo &d) { d.Busqueda_Descripcion = u"GRANDE"_s; });
}

void tst_TextoLibre::marks_and_select_all()
{
    abrir(
        [](Dialogo &d) {
            QVERIFY(todas(d)->isVisible());
            QVERIFY(!lista(d)->isColumnHidden(Marca));
            const auto marcas = [&d] { return columna(d, Marca).join(QString()); };
            const auto alternar = [&d](int fila) {
                lista(d)->setFilaActual(fila);
                QTest::keyClick(lista(d), Qt::Key_Space);
            };
            lista(d)->setFocus();
            alternar(1);
            alternar(3);
            QCOMPARE(marcas(), u"101"_s);
            QVERIFY(!todas(d)->isChecked());
            alternar(2);
            QVERIFY(todas(d)->isChecked());
            alternar(2);
            QCOMPARE(marcas(), u"101"_s);
            QVERIFY(todas(d)->isChecked());
            todas(d)->click();
            QCOMPARE(marcas(), u"000"_s);
            todas(d)->click();
            QCOMPARE(marcas(), u"111"_s);
            for (int fila = 1; fila <= 3; ++fila)
                alternar(fila);
            QVERIFY(!todas(d)->isChecked());
            alternar(0);
            QCOMPARE(marcas(), u"000"_s);

            todas(d)->click();
            buscar(caja(d, "txtBusqueda"), u"grande"_s);
            QVERIFY(!todas(d)->isChecked());
            QCOMPARE(marcas(), u"00"_s);
            lista(d)->setFocus();
            QTest::keyClick(lista(d), Qt::Key_Return);
            QCOMPARE(d.Codigo, u"10"_s);
            QVERIFY(!d.MultiResultado);
        },
        [](Dialogo &d) {
            varios(d);
            d.Busqueda_Descripcion = u"ROJO"_s;
        });
}

void tst_TextoLibre::clicks_mark_and_accept()
{
    abrir(
        [](Dialogo &d) {
            const auto punto = [&d](int fila, int columna) {
                return lista(d)->visualRect(lista(d)->model()->index(fila - 1, columna)).center();
            };
            const auto clic = [&](int fila, int columna) {
                QTest::mouseClick(lista(d)->viewport(), Qt::LeftButton, {}, punto(fila, columna));
            };
            clic(2, Marca);
            clic(3, Codigo);
            QCOMPARE(columna(d, Marca), QStringList({u"0"_s, u"1"_s, u"0"_s}));
            clic(2, Marca);
            QTest::mouseDClick(lista(d)->viewport(), Qt::LeftButton, {}, punto(2, Descripcion));
            QVERIFY(!d.isVisible());
            QCOMPARE(d.Codigo, u"10"_s);
        },
        [](Dialogo &d) {
            varios(d);
            d.Busqueda_Descripcion = u"ROJO"_s;
        });
}

void tst_TextoLibre::accept_returns_what_is_marked_data()
{
    QTest::addColumn<QList<int>>("marcadas");
    QTest::addColumn<QString>("codigo");
    QTest::addColumn<QString>("descripcion");
    QTest::addColumn<bool>("varios");
    QTest::newRow("none: the current row") << QList<int>{} << u"11"_s << u"TORNILLO ROJO"_s << false;
    QTest::newRow("one") << QList<int>{3} << u"12"_s << u"TUERCA GRANDE"_s << false;
    QTest::newRow("two, in row order") << QList<int>{3, 1} << u"|11|12"_s << u"|TORNILLO ROJO|TUERCA GRANDE"_s << true;
}

void tst_TextoLibre::accept_returns_what_is_marked()
{
    QFETCH(const QList<int>, marcadas);
    abrir(
        [&](Dialogo &d) {
            lista(d)->setFocus();
            for (const int fila : marcadas) {
                lista(d)->setFilaActual(fila);
                QTest::keyClick(lista(d), Qt::Key_Space);
            }
            lista(d)->setFilaActual(1);
            d.findChild<QPushButton *>(u"cmdAceptar"_s)->click();
            QVERIFY(!d.isVisible());
            QTEST(d.Codigo, "codigo");
            QTEST(d.Descripcion, "descripcion");
            QTEST(d.MultiResultado, "varios");
        },
        [](Dialogo &d) {
            varios(d);
            d.Busqueda_Descripcion = u"ROJO"_s;
        });
}

void tst_TextoLibre::accept_on_the_heading_needs_marks_or_an_empty_list()
{
    const auto rojos = [](Dialogo &d) {
        varios(d);
        d.Busqueda_Descripcion = u"ROJO"_s;
    };
    abrir(
        [](Dialogo &d) {
            lista(d)->setFilaActual(0);
            d.Aceptar();
            QVERIFY(d.isVisible());
            QVERIFY(d.MultiResultado);
            QTest::mouseClick(todas(d), Qt::LeftButton);
            d.findChild<QPushButton *>(u"cmdAceptar"_s)->click();
            QVERIFY(!d.isVisible());
            QCOMPARE(d.Codigo, u"|11|10|12"_s);
            QVERIFY(d.MultiResultado);
        },
        rojos);
    abrir(
        [](Dialogo &d) {
            QTest::keyClick(lista(d), Qt::Key_Space);
            buscar(caja(d, "txtBusqueda"), u"nada de esto"_s);
            QCOMPARE(lista(d)->filasDatos(), 0);
            d.Codigo = u"9"_s;
            d.Aceptar();
            QVERIFY(!d.isVisible());
            QCOMPARE(d.Codigo, u""_s);
            QVERIFY(!d.MultiResultado);
        },
        rojos);
}

void tst_TextoLibre::saved_search_holds_every_item_found()
{
    m->empresa.valores[u"Articulos_BusquedaCantMax"_s] = u"1"_s;
    m->base.ejecutar(u"INSERT INTO Articulos_Buscar (Terminal, Cod_Articulo) VALUES ('CAJA-1', 77), ('CAJA-2', 78)"_s);
    const auto guardar = [](Dialogo &d) {
        d.GuardarBusqueda = true;
        d.Busqueda_Descripcion = u"ROJO"_s;
    };
    abrir(
        [](Dialogo &d) {
            QCOMPARE(lista(d)->filasDatos(), 1);
            QTest::keyClick(lista(d), Qt::Key_Return);
        },
        guardar);
    const QString guardado = u"SELECT Cod_Empresa, Cod_Articulo, Descripcion FROM Articulos_Buscar WHERE Terminal = "
                             u"'CAJA-1' ORDER BY Cod_Articulo"_s;
    QCOMPARE(m->base.filas(guardado),
             QStringList({u"2|10|TORNILLO ROJO GRANDE"_s, u"2|11|TORNILLO ROJO"_s, u"2|12|TUERCA GRANDE"_s}));
    abrir(
        [](Dialogo &d) {
            buscar(caja(d, "txtBusqueda"), u"nada de esto"_s);
            d.findChild<QPushButton *>(u"cmdAceptar"_s)->click();
            QVERIFY(!d.isVisible());
        },
        guardar);
    QCOMPARE(m->base.filas(guardado), QStringList());
    QCOMPARE(m->base.filas(u"SELECT Cod_Articulo FROM Articulos_Buscar"_s), QStringList(u"78"_s));
}

void tst_TextoLibre::failed_copy_leaves_everything_as_it_was()
{
    m->base.ejecutar(u"DROP TABLE Articulos_Buscar"_s);
    Conductor conductor;
    Dialogo dialogo(nullptr);
    dialogo.GuardarBusqueda = true;
    dialogo.MultiResultado = true;
    dialogo.Busqueda_Descripcion = u"ROJO"_s;
    conductor.con<Dialogo>([](Dialogo &d) { QTest::keyClick(lista(d), Qt::Key_Return); });
    conductor.responde(u"Aceptar"_s);
    dialogo.cEmpresa = &m->empresa;
    conductor.con<Dialogo>([](Dialogo &d) {
        QVERIFY(d.MultiResultado);
        d.GuardarBusqueda = false;
        QTest::keyClick(lista(d), Qt::Key_Return);
        QVERIFY(!d.isVisible());
        QCOMPARE(d.Codigo, u"11"_s);
    });
    dialogo.MostrarModal();
    QCOMPARE(conductor.cajas().size(), std::size_t{1});
    QCOMPARE(conductor.cajas()[0].titulo, u"frmBusqueda_Articulos_3:cmdAceptar_Click"_s);
    QCOMPARE(conductor.cajas()[0].icono, QMessageBox::Critical);
}

void tst_TextoLibre::failed_search_leaves_the_dialog_usable()
{
    m->base.ejecutar(u"UPDATE Tarifas SET Decimales = 70000"_s);
    Conductor conductor;
    Dialogo dialogo(nullptr);
    dialogo.cEmpresa = &m->empresa;
    dialogo.MultiResultado = true;
    conductor.con<Dialogo>([](Dialogo &d) { buscar(caja(d, "txtBusqueda"), u"rojo"_s); });
    conductor.paso([](QWidget *w) { return qobject_cast<QMessageBox *>(w); },
                   [&dialogo](QWidget *w) {
                       QVERIFY(!QGuiApplication::overrideCursor());
                       QVERIFY(!dialogo.findChild<QFrame *>(u"pctMsg"_s)->isVisible());
                       QVERIFY(lista(dialogo)->viewport()->updatesEnabled());
                       w->close();
                   });
    conductor.con<Dialogo>([this](Dialogo &d) {
        m->base.ejecutar(u"UPDATE Tarifas SET Decimales = 2"_s);
        buscar(caja(d, "txtBusqueda"), u"rojo"_s);
        QCOMPARE(lista(d)->filasDatos(), 3);
        d.reject();
    });
    dialogo.MostrarModal();
    QVERIFY(conductor.terminado());
    QCOMPARE(conductor.cajas()[0].titulo, u"Recuperar_Registros"_s);
    QCOMPARE(conductor.cajas()[0].texto, u"0 - Desbordamiento."_s);
}

void tst_TextoLibre::settings_that_failed_at_load_are_read_by_the_next_search()
{
    m->base.ejecutar(u"UPDATE Almacenes SET Tarifa = 70000"_s);
    Conductor conductor;
    Dialogo dialogo(nullptr);
    dialogo.cEmpresa = &m->empresa;
    dialogo.Busqueda_Descripcion = u"ROJO GRANDE"_s;
    conductor.responde(u"Aceptar"_s);
    conductor.con<Dialogo>([this](Dialogo &d) {
        QCOMPARE(lista(d)->filasDatos(), 0);
        m->base.ejecutar(u"UPDATE Almacenes SET Tarifa = 4"_s);
        QTest::keyClick(caja(d, "txtBusqueda"), Qt::Key_Return);
        QCOMPARE(columna(d, Pvp), QStringList(u"9,00"_s));
        d.reject();
    });
    dialogo.MostrarModal();
    QVERIFY(conductor.terminado());
}

void tst_TextoLibre::strip_and_pointer_last_as_long_as_the_search()
{
    /// Looks at the dialog while the engine answers.
    struct Mirada : nv::OyenteSentencias
    {
        void sentencia(const nv::SucesoSentencia &suceso) override
        {
            if (!suceso.texto.contains(u"FROM Articulos a"_s))
                return;
            const auto *franja = dialogo->findChild<QFrame *>(u"pctMsg"_s);
            visible = franja->isVisible() &&
                      franja->findChild<QLabel *>()->text() == u"Buscando  Artículos, espere por favor..."_s;
            puntero = QGuiApplication::overrideCursor() != nullptr;
            vacia = lista(*dialogo)->filasDatos() == 0;
        }
        Dialogo *dialogo = nullptr;
        bool visible = false;
        bool puntero = false;
        bool vacia = false;
    } mirada;
    abrir([&](Dialogo &d) {
        buscar(caja(d, "txtBusqueda"), u"rojo"_s);
        mirada.dialogo = &d;
        m->base.conexion().escuchar(&mirada);
        buscar(caja(d, "txtBusqueda"), u"grande"_s);
        m->base.conexion().dejarDeEscuchar(&mirada);
        QVERIFY(mirada.visible && mirada.puntero && mirada.vacia);
        QVERIFY(!d.findChild<QFrame *>(u"pctMsg"_s)->isVisible());
        QVERIFY(!QGuiApplication::overrideCursor());
        QVERIFY(lista(d)->viewport()->updatesEnabled());
    });
}

QTEST_MAIN(tst_TextoLibre)
#include "tst_textolibre.moc"
