#include "Busquedas.h"
#include "platform/widgets/Twips.h"
#include "support/Programa.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QScrollBar>

using namespace nv::pruebas;
using nv::ContratoBusqueda;

namespace {

const QColor Oferta(255, 255, 153);
const QColor NoMovido(180, 215, 255);
const QColor Pedido(255, 128, 0);

/// Background of each cell of a row: O offer, N slow stock, P to order, "." none.
QString fondos(const Vista &v, int fila)
{
    QString letras;
    for (int c = 0; c < v.lista()->model()->columnCount(); ++c) {
        const QColor fondo = v.lista()->model()->index(fila - 1, c).data(Qt::BackgroundRole).value<QColor>();
        letras += !fondo.isValid()    ? u'.'
                  : fondo == Oferta   ? u'O'
                  : fondo == NoMovido ? u'N'
                  : fondo == Pedido   ? u'P'
                                      : u'?';
    }
    return letras;
}

} // namespace

/// The searches by free text: what they share, on models 2, 5, 7 and 8, and what is each one's own.
class tst_TextoLibre : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m.emplace(); }
    void cleanup() { m.reset(); }

    void texts_find_their_items_data();
    void texts_find_their_items();
    void keys_of_the_box_and_the_list();
    void marks_and_select_all();
    void a_list_without_items_is_accepted();
    void marked_rows_are_returned_from_the_heading_too();
    void user_parameter_opens_all_references();
    void settings_are_read_once_and_a_failure_is_mended_by_the_next_search();
    void taxes_are_shown_as_the_company_declares_them_data();
    void taxes_are_shown_as_the_company_declares_them();
    void prices_have_the_decimals_of_their_tariff();
    void sizes_colours_and_seven_stocks();
    void check_boxes_and_size_of_the_offers();
    void rows_before_a_failure_stay_and_can_be_accepted();
    void brand_goes_with_the_text();
    void blocked_mark_depends_on_the_head_office();
    void only_what_can_be_sold_in_family_order();
    void resizing_shares_the_width();

private:
    static CatalogoBusquedas::Preparar recordando(const QString &texto)
    {
        return [texto](ContratoBusqueda &d) { d.Busqueda_Descripcion = texto; };
    }
    /// As the user leaves it.
    QString encontrados(int modelo, const QString &texto)
    {
        QString codigos;
        m->abrir(modelo, [&](const Vista &v) {
            v.busca(texto);
            codigos = v.codigos();
        });
        return codigos;
    }

    std::optional<CatalogoBusquedas> m;
};

void tst_TextoLibre::texts_find_their_items_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("codigos"); // models 2, 5 and 7
    QTest::addColumn<QString>("vendibles");
    QTest::newRow("word in description or reference") << u"rojo"_s << u"10|1|3"_s << u"1|3"_s;
    QTest::newRow("words only in the description") << u"rojo "_s << u"10|1"_s << u"1"_s;
    QTest::newRow("all the words") << u"grande torn"_s << u"2"_s << u"2"_s;
    QTest::newRow("part of the main barcode") << u"23456"_s << u"1"_s << u"1"_s;
    QTest::newRow("code and main barcode") << u"841"_s << u"841|1"_s << u"1"_s;
    QTest::newRow("second barcodes are not searched") << u"8499"_s << QString() << QString();
    QTest::newRow("quote") << u"L'OR"_s << u"841"_s << QString();
    QTest::newRow("brand") << u"ROCA"_s << QString() << u"2|1"_s;
    QTest::newRow("brand and a blank") << u"ROCA "_s << QString() << QString();
}

void tst_TextoLibre::texts_find_their_items()
{
    QFETCH(const QString, texto);
    for (const int modelo : {2, 5, 7})
        QTEST(encontrados(modelo, texto), "codigos");
    QTEST(encontrados(8, texto), "vendibles");
    QCOMPARE(encontrados(2, u"tuer*e"_s) + encontrados(5, u"gr*tuer"_s), u"33"_s);
}

void tst_TextoLibre::keys_of_the_box_and_the_list()
{
    for (const int modelo : {2, 5, 7, 8}) {
        m->abrir(modelo, [](const Vista &v) {
            v.busca(u"GRANDE"_s);
            v.campo(v.caja())->setFocus();
            v.pulsa(Qt::Key_Down);
            QVERIFY(v.lista()->hasFocus() && v.lista()->filaActual() == 0);
            v.pulsa(Qt::Key_Return);
            QVERIFY2(v.d.isVisible(), "the heading is no choice");
            v.pulsa(Qt::Key_Up);
            QVERIFY(v.enfocado(v.caja()));
            v.lista()->setFocus();
            teclear(v.lista(), u"ñ"_s);
            teclear(v.d.focusWidget(), u"u"_s);
            QCOMPARE(v.campo<QLineEdit>(v.caja())->text(), v.modelo < 7 ? u"ÑU"_s : u"Ñu"_s);
            QTest::keyClick(v.lista(), Qt::Key_Space);
            QVERIFY2(v.enfocado(v.caja()) && v.campo<QLineEdit>(v.caja())->text() == u" ",
                     "one item: a blank is typed");
            QVERIFY(!v.columna(0).contains(u'1'));
        });
    }
}

void tst_TextoLibre::marks_and_select_all()
{
    m->abrir(
        2, [](ContratoBusqueda &d) { d.MultiResultado = true; },
        [](const Vista &v) {
            auto *todas = v.campo<QCheckBox>("chkSelAll");
            v.busca(u"ROJO"_s);
            QVERIFY(todas->isVisible() && !v.lista()->isColumnHidden(0));
            v.lista()->setFocus();
            v.marca({1, 3});
            QVERIFY(v.columna(0) == u"1|0|1" && !todas->isChecked());
            v.marca({2});
            QVERIFY(todas->isChecked());
            v.marca({2});
            QVERIFY2(v.columna(0) == u"1|0|1" && todas->isChecked(), "in between it keeps what it shows");
            todas->click();
            QCOMPARE(v.columna(0), u"0|0|0"_s);
            todas->click();
            QCOMPARE(v.columna(0), u"1|1|1"_s);
            v.marca({1, 2, 3});
            QVERIFY(!todas->isChecked());
            v.marca({0});
            v.clic(2, 0);
            v.clic(3, 1);
            QCOMPARE(v.columna(0), u"0|1|0"_s);
            todas->click();
            v.busca(u"GRANDE"_s);
            QVERIFY(v.columna(0) == u"0|0" && !todas->isChecked());
            v.dobleClic(2, 2);
        });
    QVERIFY(m->codigo == u"3" && !m->varios);
    m->abrir(2, [](const Vista &v) {
        v.busca(u"ROJO"_s);
        QVERIFY(v.lista()->isColumnHidden(0) && !v.campo("chkSelAll")->isVisible());
        v.clic(1, 0);
        QCOMPARE(v.columna(0), u"0|0|0"_s);
    });
}

void tst_TextoLibre::a_list_without_items_is_accepted()
{
    m->ejecutar(u"INSERT INTO Articulos_Buscar (Terminal, Cod_Articulo) VALUES ('CAJA-1', 77), ('CAJA-2', 78)"_s);
    m->abrir(
        2,
        [](ContratoBusqueda &d) {
            d.MultiResultado = d.GuardarBusqueda = true;
            d.Codigo = u"9"_s;
        },
        [](const Vista &v) {
            v.busca(u"ROJO"_s);
            v.marca({1});
            v.busca(u"nada de esto"_s);
            v.aprieta("cmdAceptar");
            QVERIFY(!v.d.isVisible());
        });
    QVERIFY(m->codigo.isEmpty() && !m->varios && m->copia() == u"78");
}

void tst_TextoLibre::marked_rows_are_returned_from_the_heading_too()
{
    m->abrir(
        8, [](ContratoBusqueda &d) { d.MultiResultado = true; },
        [](const Vista &v) {
            v.busca(u"*"_s);
            v.lista()->setFilaActual(0);
            v.aprieta("cmdAceptar");
            QVERIFY2(v.d.isVisible(), "nothing is marked");
            v.marca({3, 1});
            v.lista()->setFilaActual(0);
            v.aprieta("cmdAceptar");
        });
    QVERIFY(m->codigo == u"|2|3" && m->descripcion == u"|TORNILLO GRANDE|TUERCA GRANDE" && m->varios);
}

void tst_TextoLibre::user_parameter_opens_all_references()
{
    for (const int modelo : {2, 5, 7, 8}) {
        m->parametros.deUsuario = {
            {modelo == 5 ? u"nvArticulo.BuscadorM6.SoloRefPrincipal"_s : u"nvArticulo.BuscadorM3.SoloRefPrincipal"_s,
             0}};
        QCOMPARE(encontrados(modelo, u"TORN GRA"_s), u"2|2"_s);
        m->parametros.deUsuario.clear();
        QCOMPARE(encontrados(modelo, u"TORN GRA"_s), u"2"_s);
    }
}

void tst_TextoLibre::settings_are_read_once_and_a_failure_is_mended_by_the_next_search()
{
    m->ejecutar(u"UPDATE Almacenes SET Tarifa = 70000 WHERE Codigo = 1"_s);
    m->conductor.responde(u"Aceptar"_s);
    m->abrir(2, recordando(u"TORN"_s), [this](const Vista &v) {
        QVERIFY(v.lista()->filasDatos() == 0 && v.enfocado("txtBusqueda"));
        m->ejecutar(u"UPDATE Almacenes SET Tarifa = 4"_s);
        v.pulsa(Qt::Key_Return);
        QCOMPARE(v.columna(5), u"9,00|10,50"_s);
        m->ejecutar(u"UPDATE Almacenes SET Tarifa = 1"_s);
        v.pulsa(Qt::Key_Return);
        QCOMPARE(v.columna(5), u"9,00|10,50"_s);
    });
    // The stock of the given warehouse, the tariff of the default one all the same.
    m->abrir(
        2, [](ContratoBusqueda &d) { d.AlmacenStock = 2; },
        [](const Vista &v) {
            v.busca(u"TORN"_s);
            QVERIFY(v.columna(3) == u"4|3" && v.lista()->texto(2, 5) == u"1234,568");
        });
}

void tst_TextoLibre::taxes_are_shown_as_the_company_declares_them_data()
{
    QTest::addColumn<QString>("ajustes"); // elsewhere, first, second
    QTest::addColumn<QString>("columnas");
    QTest::newRow("both") << u"0 1 1"_s << u"107,000 121,000"_s;
    QTest::newRow("first") << u"0 1 0"_s << u"107,000 "_s;
    QTest::newRow("second") << u"0 False True"_s << u" 121,000"_s;
    QTest::newRow("declared elsewhere") << u"True 1 1"_s << u" "_s;
}

void tst_TextoLibre::taxes_are_shown_as_the_company_declares_them()
{
    QFETCH(const QString, ajustes);
    m->ejecutar(u"UPDATE Articulos SET TipoImpuesto2 = 1 WHERE Codigo = 3"_s);
    const QStringList valores = ajustes.split(u' ');
    m->empresa.valores[u"DeclaraIgic"_s] = valores[0];
    m->empresa.valores[u"Articulos_FichaVerPvpConIgic"_s] = valores[1];
    m->empresa.valores[u"Articulos_FichaVerPvpConIva"_s] = valores[2];
    m->abrir(2, [](const Vista &v) {
        v.busca(u"TUERCA"_s);
        QStringList vistas;
        for (const int columna : {6, 7})
            vistas << (v.lista()->isColumnHidden(columna) ? QString() : v.lista()->texto(1, columna));
        QTEST(vistas.join(u' '), "columnas");
    });
}

void tst_TextoLibre::prices_have_the_decimals_of_their_tariff()
{
    m->ejecutar(u"UPDATE Articulos SET TipoImpuesto = 1, TipoImpuesto2 = 1 WHERE Codigo = 1"_s);
    const auto tornillo = [this](int modelo) {
        QString fila;
        m->abrir(modelo, recordando(u"TORNILLO ROJO"_s), [&](const Vista &v) { fila = v.fila(1); });
        return fila;
    };
    // 7 % of 1234.5678 is 86.42 and 21 % is 259.26: only the tax is rounded, to cents.
    QCOMPARE(tornillo(2), u"0|1|TORNILLO ROJO|12,5|8412345678905|1234,568|1320,988|1493,828|R-1"_s);
    QCOMPARE(tornillo(7), u"0|1|TORNILLO ROJO|ROCA|0|12,5|8412345678905|1.234,5678|R-1"_s);
    QCOMPARE(tornillo(8), u"0|FERRETERÍA|1|TORNILLO ROJO|ROCA|12,5|8412345678905|1.234,5678|R-1"_s);
    m->ejecutar(u"DELETE FROM Tarifas"_s);
    QVERIFY(tornillo(2).contains(u"|1234,57|"_s));
}

void tst_TextoLibre::sizes_colours_and_seven_stocks()
{
    m->ejecutar({u"INSERT INTO Articulos_Tarifas (Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp) VALUES (2, 1, 2, 1000),"
                 u" (2, 3, 3, 2.5), (2, 2, 2, 1), (2, 2, 3, 1), (2, 10, 2, 0)"_s,
                 u"UPDATE Articulos SET Largo = 120, Altura = 40 WHERE Codigo = 1"_s,
                 u"UPDATE Articulos SET Ancho = 2.5, MotivoBaja = 2 WHERE Codigo = 3"_s,
                 u"UPDATE Articulos SET BajoPedido = 1, Bloqueado = 1 WHERE Codigo = 2"_s,
                 u"INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo, Stock_Actual) VALUES"
                 u" (1, 11, 1, -2), (1, 10, 2, 1)"_s});
    m->abrir(5, recordando(u"T"_s), [](const Vista &v) {
        QCOMPARE(v.fila(0, 7), u"TIE|NAV||||MAY|"_s);
        QCOMPARE(v.codigos(), u"2|1|3"_s);
        QCOMPARE(v.fila(2), u"0|1|TORNILLO ROJO|R-1|120 x 40|1.234,5678||12,5|3|0|0|0|0|-2"_s);
        QVERIFY(v.columna(4) == u"|120 x 40| x 2,5" && v.columna(6) == u"X||");
        // 2: both tariffs, to order, blocked. 1: offer. 3: slow stock, discontinued.
        QCOMPARE(fondos(v, 1), u"NNNNNNP.N...N."_s);
        QCOMPARE(fondos(v, 2), u"OOOOOO.OO....."_s);
        QCOMPARE(fondos(v, 3), u"NNNNNN.N......"_s);
        for (int c = 0; c < 14; ++c) {
            const auto letra = [&](int fila) {
                return v.lista()->model()->index(fila - 1, c).data(Qt::ForegroundRole).value<QColor>();
            };
            QVERIFY(letra(1) == QColor(192, 0, 0) && !letra(2).isValid() && letra(3) == QColor(192, 0, 0));
        }
    });
    m->ejecutar(u"UPDATE Tarifas SET BackColor = CASE Cod_Tarifa WHEN 2 THEN -5 ELSE 0 END"_s);
    m->abrir(5, recordando(u"T"_s),
             [](const Vista &v) { QCOMPARE(fondos(v, 1) + fondos(v, 2), u"......P....................."_s); });
}

void tst_TextoLibre::check_boxes_and_size_of_the_offers()
{
    m->ejecutar({u"INSERT INTO Articulos_Tarifas (Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp) VALUES (2, 1, 2, 1000),"
                 u" (2, 3, 3, 2.5), (2, 10, 2, 0)"_s,
                 u"UPDATE Articulos SET Largo = 120 WHERE Codigo = 1"_s,
                 u"UPDATE Articulos SET Ancho = 2.5 WHERE Codigo = 3"_s});
    m->abrir(5, [this](const Vista &v) {
        m->sentencias.clear();
        v.campo<QCheckBox>("chkOferta")->click();
        QVERIFY2(m->sentencias.isEmpty(), "nothing to search for yet");
        v.busca(u"R"_s);
        QCOMPARE(v.codigos(), u"1"_s);
        v.campo<QCheckBox>("chkNoMovidos")->click();
        QCOMPARE(v.codigos(), u"1|3"_s);
        v.campo<QCheckBox>("chkOferta")->click();
        QCOMPARE(v.codigos(), u"3"_s);
        v.escribe("txtMedida", u"120"_s); // taken on Enter only
        v.campo<QCheckBox>("chkNoMovidos")->click();
        QVERIFY(v.lista()->filasDatos() > 2 && v.d.Busqueda_Medida == nv::Moneda());
        v.campo("txtMedida")->setFocus();
        v.pulsa(Qt::Key_Return);
        QVERIFY(v.codigos() == u"1" && v.d.Busqueda_Medida == nv::Moneda::deUnidades(120));
        v.campo("txtMedida")->setFocus();
        v.pulsa(Qt::Key_Down);
        QVERIFY(v.lista()->hasFocus() && v.lista()->filaActual() == 0);
        v.escribe("txtMedida", u"a12.5"_s);
        QCOMPARE(v.campo<QLineEdit>("txtMedida")->text(), u"12,5"_s);
        for (const QString &ninguna : {u"0"_s, QString(), u","_s}) {
            v.escribe("txtMedida", ninguna);
            v.pulsa(Qt::Key_Return);
            QVERIFY(v.lista()->filasDatos() > 2 && v.d.Busqueda_Medida == nv::Moneda());
        }
        v.escribe("txtBusqueda", {});
        v.escribe("txtMedida", u"2,5"_s);
        m->sentencias.clear();
        v.pulsa(Qt::Key_Return);
        QVERIFY2(m->sentencias.isEmpty() && v.d.Busqueda_Medida == nv::Moneda(), "a size alone searches nothing");
        m->conductor.responde(u"Aceptar"_s);
        v.escribe("txtMedida", u"99999999999999999999"_s);
        v.busca(u"GRANDE"_s);
        QCOMPARE(v.d.Busqueda_Descripcion, u"R"_s);
    });
    QCOMPARE(m->conductor.cajas().at(0).texto, u"Desbordamiento."_s);
    m->abrir(
        5,
        [](ContratoBusqueda &d) {
            d.Busqueda_Descripcion = u"GRANDE"_s;
            d.Busqueda_Medida = nv::Moneda::deTexto(u"2.5");
        },
        [](const Vista &v) { QVERIFY(v.campo<QLineEdit>("txtMedida")->text() == u"2,5" && v.codigos() == u"3"); });
}

void tst_TextoLibre::rows_before_a_failure_stay_and_can_be_accepted()
{
    m->ejecutar(
        {u"UPDATE Tarifas SET BackColor = 99999999999 WHERE Cod_Tarifa = 3"_s,
         u"INSERT INTO Articulos_Tarifas (Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp) VALUES (2, 3, 3, 2.5)"_s});
    m->conductor.responde(u"Aceptar"_s);
    m->abrir(
        5,
        [](ContratoBusqueda &d) {
            d.Busqueda_Descripcion = u"GRANDE"_s;
            d.GuardarBusqueda = true;
        },
        [](const Vista &v) {
            QCOMPARE(v.codigos(), u"2"_s);
            v.lista()->setFilaActual(1);
            QTest::keyClick(v.lista(), Qt::Key_Return);
        });
    QCOMPARE(m->conductor.cajas().at(0).texto, u"Desbordamiento."_s);
    QVERIFY(m->codigo == u"2" && m->copia() == u"2|3");
}

void tst_TextoLibre::brand_goes_with_the_text()
{
    m->abrir(7, [this](const Vista &v) {
        m->sentencias.clear();
        v.escribe("txtDescripcion", u"Torn"_s);
        v.pulsa(Qt::Key_Return);
        QVERIFY(v.enfocado("txtMarca") && m->sentencias.isEmpty());
        v.pulsa(Qt::Key_Return);
        QVERIFY(v.codigos() == u"2|1" && v.enfocado("txtMarca"));
        v.escribe("txtMarca", u"duro"_s);
        v.pulsa(Qt::Key_Return);
        QVERIFY(v.codigos() == u"2" && v.d.Busqueda_MarcaNombre == u"duro");
        v.escribe("txtDescripcion", {});
        v.escribe("txtMarca", u"ro"_s);
        v.pulsa(Qt::Key_Return);
        QCOMPARE(v.columna(3), u"ROCA|DUROCANTO|ROCA"_s);
        v.escribe("txtMarca", {});
        m->sentencias.clear();
        v.pulsa(Qt::Key_Return);
        QVERIFY(m->sentencias.isEmpty() && v.d.Busqueda_MarcaNombre == u"ro");
        v.pulsa(Qt::Key_Down);
        QVERIFY(v.lista()->hasFocus() && v.lista()->filaActual() == 0);
    });
    for (const QString &texto : {QString(), u"TORN"_s}) {
        m->abrir(
            7,
            [&](ContratoBusqueda &d) {
                d.Busqueda_Descripcion = texto;
                d.Busqueda_MarcaNombre = u"DURO"_s;
            },
            [&](const Vista &v) {
                QCOMPARE(v.campo<QLineEdit>("txtMarca")->text(), u"DURO"_s);
                QVERIFY2(v.codigos() == (texto.isEmpty() ? QString() : u"2"_s), "a brand alone starts no search");
            });
    }
}

void tst_TextoLibre::blocked_mark_depends_on_the_head_office()
{
    m->ejecutar({u"UPDATE Articulos SET MotivoBaja = 2 WHERE Codigo = 2"_s,
                 u"UPDATE Articulos SET Bloqueado = 1 WHERE Codigo = 1"_s,
                 u"UPDATE Almacen_Articulos SET Bloqueo = 1 WHERE Cod_Articulo = 3"_s});
    m->abrir(7, [this](const Vista &v) {
        v.busca(u"T"_s);
        QVERIFY(v.codigos() == u"2|1|3" && v.columna(4) == u"1|0|0");
        m->empresa.valores[u"OficinaCentral"_s] = u"0"_s; // read again by every search
        v.pulsa(Qt::Key_Return);
        QCOMPARE(v.columna(4), u"0|1|1"_s);
        QVERIFY(v.lista()->model()->index(0, 4).data(Qt::CheckStateRole).isValid());
    });
}

void tst_TextoLibre::only_what_can_be_sold_in_family_order()
{
    // 10 has no stock in the warehouse, 841 no price, and what was sold 31 days ago is not sold any more.
    QCOMPARE(encontrados(8, u"*"_s), u"2|1|3"_s);
    m->ejecutar(u"UPDATE Almacen_Articulos SET FUlt_Venta = '23/10/2026' WHERE Cod_Articulo = 2"_s);
    QCOMPARE(encontrados(8, u"*"_s), u"1|3"_s);
    m->ejecutar(u"UPDATE Articulos_Tarifas SET Pvp = 0 WHERE Cod_Articulo = 1 AND Cod_Tarifa = 1"_s);
    QCOMPARE(encontrados(8, u"*"_s), u"3"_s);
    m->ejecutar(u"UPDATE Almacen_Articulos SET Bloqueo = 1 WHERE Cod_Articulo = 3"_s);
    QCOMPARE(encontrados(8, u"*"_s), QString());
    m->ejecutar({u"UPDATE Almacen_Articulos SET Bloqueo = 0"_s, u"UPDATE Articulos SET MotivoBaja = 1"_s});
    QCOMPARE(encontrados(8, u"*"_s), QString());
}

void tst_TextoLibre::resizing_shares_the_width()
{
    m->abrir(8, recordando(u"*"_s), [](const Vista &v) {
        const auto ancho = [&](int columna) { return v.lista()->columnWidth(columna); };
        QVERIFY(v.lista()->hasFocus() && v.lista()->horizontalScrollBar()->maximum() == 0);
        for (const int oculta : {0, 2, 6, 8})
            QVERIFY(v.lista()->isColumnHidden(oculta));
        const std::array antes{ancho(1), ancho(3), ancho(4)};
        const QSize tamano = v.d.size();
        for (const int mas : {3, 55, 100}) {
            v.d.resize(tamano + QSize(mas, 0));
            QCoreApplication::processEvents();
        }
        QVERIFY(ancho(1) == antes[0] && ancho(3) == antes[1] + 70 && ancho(4) == antes[2] + 20);
        QCOMPARE(v.lista()->horizontalHeader()->length(), v.lista()->viewport()->width());
        v.d.resize(tamano);
        QCoreApplication::processEvents();
        QVERIFY(ancho(3) == antes[1] && ancho(4) == antes[2]);
    });
}

NV_PRUEBA(tst_TextoLibre)
#include "tst_textolibre.moc"
