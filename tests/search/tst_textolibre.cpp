#include "Busquedas.h"
#include "support/Programa.h"
#include "support/Recortes.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QScrollBar>

using namespace nv::pruebas;
using nv::ContratoBusqueda;

/// The searches by free text: what they share, on models 2, 5, 7 and 8, and what is each one's own.
class tst_TextoLibre : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m.emplace(); }
    void cleanup() { m.reset(); }

    void keys_of_the_box_and_the_list()
    {
        for (const int modelo : {2, 5, 7, 8})
            m->abrir(modelo, [this](const Vista &v) {
                v.busca(u"GRANDE"_s);
                v.campo(v.caja())->setFocus();
                v.pulsa(Qt::Key_Down);
                QVERIFY(v.lista()->hasFocus() && v.lista()->filaActual() == 0);
                teclear(v.lista(), u"ñ"_s);
                teclear(v.d.focusWidget(), u"u"_s);
                QCOMPARE(v.campo<QLineEdit>(v.caja())->text(), v.modelo < 7 ? u"ÑU"_s : u"Ñu"_s);
                QTest::keyClick(v.lista(), Qt::Key_Space);
                QVERIFY2(v.enfocado(v.caja()) && v.campo<QLineEdit>(v.caja())->text() == u" ", "a blank is typed");
                v.clic(1, 0);
                QVERIFY(v.lista()->isColumnHidden(0) && !v.columna(0).contains(u'1'));
                m->conductor.responde(u"Aceptar"_s);
                v.busca(u"a "_s.repeated(101));
            });
        for (const CajaVista &caja : m->conductor.cajas())
            QVERIFY(caja.texto.endsWith(u"Son 101 palabras; se puede buscar por 100 como mucho."));
        QCOMPARE(m->conductor.cajas().size(), 4U);
    }

    void marks_and_select_all()
    {
        m->abrir(2, varios, [](const Vista &v) {
            auto *todas = v.campo<QCheckBox>("chkSelAll");
            const auto tras = [&](std::initializer_list<int> filas) {
                v.marca(filas);
                return v.columna(0) + (todas->isChecked() ? u" all"_s : QString());
            };
            v.busca(u"ROJO"_s);
            QVERIFY(todas->isVisible() && !v.lista()->isColumnHidden(0));
            QCOMPARE(tras({1, 3}), u"1|0|1"_s);
            QCOMPARE(tras({2}), u"1|1|1 all"_s);
            QCOMPARE(tras({2}), u"1|0|1 all"_s); // in between it keeps what it shows
            todas->setFocus();
            v.pulsa(Qt::Key_Return);
            QCOMPARE(tras({}), u"0|0|0"_s);
            todas->click();
            QCOMPARE(tras({}), u"1|1|1 all"_s);
            QCOMPARE(tras({1, 2, 3, 0}), u"0|0|0"_s);
            v.clic(2, 0);
            v.clic(3, 1);
            QCOMPARE(tras({}), u"0|1|0"_s);
            todas->click();
            v.busca(u"GRANDE"_s);
            QCOMPARE(tras({}), u"0|0"_s);
            v.lista()->setFilaActual(0);
            v.aprieta("cmdAceptar");
            QVERIFY2(v.d.isVisible(), "nothing is marked");
            v.marca({2, 1, 0}); // from the heading too, in the order of the list
            v.aprieta("cmdAceptar");
        });
        QVERIFY(m->codigo == u"|2|3" && m->descripcion == u"|TORNILLO GRANDE|TUERCA GRANDE" && m->varios);
    }

    void user_parameter_opens_all_references()
    {
        for (const int modelo : {2, 5, 7, 8})
            for (const int soloPrincipal : {0, 1}) {
                m->parametros.deUsuario = {
                    {u"nvArticulo.BuscadorM%1.SoloRefPrincipal"_s.arg(modelo == 5 ? 6 : 3), soloPrincipal}};
                m->abrir(modelo, recordando(u"TORN GRA"_s),
                         [&](const Vista &v) { QCOMPARE(v.codigos(), soloPrincipal ? u"2"_s : u"2|2"_s); });
            }
    }

    void settings_are_read_once_and_a_failure_is_mended_by_the_next_search()
    {
        m->ejecutar(u"REPLACE INTO Almacenes VALUES (1, 1, 'UNO', '', 70000, 0)"_s); // an older catalogue's
        m->conductor.responde(u"Aceptar"_s);
        m->abrir(2, recordando(u"TORN"_s, 2), [this](const Vista &v) {
            QVERIFY(v.lista()->filasDatos() == 0 && v.enfocado("txtBusqueda"));
            for (const int tarifa : {4, 1}) {
                m->ejecutar(u"UPDATE Almacenes SET Tarifa = CASE Codigo WHEN 1 THEN %1 ELSE 6 END"_s.arg(tarifa));
                v.pulsa(Qt::Key_Return);
                // The stock of the given warehouse, the tariff of the default one all the same.
                QVERIFY(v.columna(3) == u"4|3" && v.columna(5) == u"9,00|10,50");
            }
        });
        // Of a failure that has passed meanwhile the automatic search knows nothing.
        struct Vuelve : nv::OyenteSentencias
        {
            void sentencia(const nv::SucesoSentencia &suceso) override
            {
                if (!suceso.error.isEmpty())
                    base.devolver(u"Almacenes"_s);
            }
            CatalogoBusquedas &base;
            explicit Vuelve(CatalogoBusquedas &b)
                : base(b)
            {}
        } vuelve(*m);
        m->quitar(u"Almacenes"_s);
        m->conexion().escuchar(&vuelve);
        m->abrir(2, recordando(u"TORN"_s, 2), [](const Vista &v) { QCOMPARE(v.codigos(), u"2|1"_s); });
        m->conexion().dejarDeEscuchar(&vuelve);
    }

    void prices_have_the_decimals_of_their_tariff_and_the_taxes_declared()
    {
        m->ejecutar(u"UPDATE Articulos SET TipoImpuesto = 1, TipoImpuesto2 = 1 WHERE Codigo = 1"_s);
        const auto tornillo = [this](int modelo) {
            QString fila;
            m->abrir(modelo, recordando(u"TORNILLO ROJO"_s), [&](const Vista &v) {
                fila = v.fila(1);
                for (int c = 0; modelo == 2 && c < 9; ++c)
                    fila += v.lista()->isColumnHidden(c) ? QString() : QString::number(c);
            });
            return fila;
        };
        // 7 % of 1234.5678 is 86.42 and 21 % is 259.26: only the tax is rounded, to cents.
        const QString fila = u"0|1|TORNILLO ROJO|12,5|8412345678905|1234,568|1320,988|1493,828|R-1"_s;
        // Declared elsewhere, with the first tax, with the second; the columns seen.
        const std::tuple<QString, QString, QString, QString> casos[] = {
            {u"0"_s, u"1"_s, u"1"_s, u"12345678"_s},
            {u"0"_s, u"1"_s, u"0"_s, u"1234568"_s},
            {u"0"_s, u"False"_s, u"True"_s, u"1234578"_s},
            {u"True"_s, u"1"_s, u"1"_s, u"123458"_s},
        };
        for (const auto &[fuera, primero, segundo, columnas] : casos) {
            m->empresa.valores[u"DeclaraIgic"_s] = fuera;
            m->empresa.valores[u"Articulos_FichaVerPvpConIgic"_s] = primero;
            m->empresa.valores[u"Articulos_FichaVerPvpConIva"_s] = segundo;
            QCOMPARE(tornillo(2), fila + columnas);
        }
        QCOMPARE(tornillo(7), u"0|1|TORNILLO ROJO|ROCA|0|12,5|8412345678905|1.234,5678|R-1"_s);
        QCOMPARE(tornillo(8), u"0|FERRETERÍA|1|TORNILLO ROJO|ROCA|12,5|8412345678905|1.234,5678|R-1"_s);
        m->ejecutar(u"DELETE FROM Tarifas"_s);
        QVERIFY(tornillo(2).contains(u"|1234,57|"_s));
    }

    void offers_sizes_and_seven_stocks()
    {
        m->ejecutar({u"INSERT INTO Articulos_Tarifas (Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp) VALUES"
                     u" (2, 1, 2, 1000), (2, 3, 3, 2.5), (2, 2, 2, 1), (2, 2, 3, 1), (2, 10, 2, 0)"_s,
                     u"UPDATE Articulos SET Largo = 120, Altura = 40 WHERE Codigo = 1"_s,
                     u"UPDATE Articulos SET Ancho = 2.5, MotivoBaja = 2 WHERE Codigo = 3"_s,
                     u"UPDATE Articulos SET BajoPedido = 1, Bloqueado = 1 WHERE Codigo = 2"_s,
                     u"INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo, Stock_Actual) VALUES"
                     u" (1, 11, 1, -2), (1, 10, 2, 1)"_s});
        const auto guardando = [](ContratoBusqueda &d) {
            d.Busqueda_Descripcion = u"T"_s;
            d.Busqueda_Medida = nv::Moneda::deTexto(u"2.5");
            d.GuardarBusqueda = true;
        };
        m->abrir(5, guardando, [this](const Vista &v) {
            QVERIFY(v.campo<QLineEdit>("txtMedida")->text() == u"2,5" && v.codigos() == u"3");
            QCOMPARE(v.fila(0, 7), u"TIE|NAV||||MAY|"_s);
            v.escribe("txtMedida", {});
            v.pulsa(Qt::Key_Return);
            QCOMPARE(v.codigos(), u"2|1|3"_s);
            QCOMPARE(v.fila(2), u"0|1|TORNILLO ROJO|R-1|120 x 40|1.234,5678||12,5|3|0|0|0|0|-2"_s);
            QVERIFY(v.columna(4) == u"|120 x 40| x 2,5" && v.columna(6) == u"X||");
            // 2: both tariffs, to order, blocked. 1: offer. 3: slow stock, discontinued.
            QCOMPARE(colores(v, 1), u"NNNNNNP.N...N. red"_s);
            QCOMPARE(colores(v, 2), u"OOOOOO.OO....."_s);
            QCOMPARE(colores(v, 3), u"NNNNNN.N...... red"_s);
            m->ejecutar(u"UPDATE Tarifas SET BackColor = CASE Cod_Tarifa WHEN 2 THEN -5 ELSE 0 END"_s);
            v.busca(u"T"_s);
            QCOMPARE(colores(v, 1) + colores(v, 2), u"......P....... red.............."_s);
            auto *oferta = v.campo<QCheckBox>("chkOferta");
            auto *noMovidos = v.campo<QCheckBox>("chkNoMovidos");
            const auto conMedida = [&](const QString &escrita) {
                v.escribe("txtMedida", escrita);
                v.pulsa(Qt::Key_Return);
                return v.d.Busqueda_Medida.textoCorto();
            };
            v.escribe("txtBusqueda", {});
            m->sentencias.clear();
            oferta->click();
            QVERIFY2(m->sentencias.isEmpty(), "nothing to search for");
            v.busca(u"R"_s);
            QCOMPARE(v.codigos(), u"2|1"_s);
            noMovidos->click();
            QCOMPARE(v.codigos(), u"2|1|3"_s);
            oferta->click();
            QCOMPARE(v.codigos(), u"2|3"_s);
            v.escribe("txtMedida", u"120"_s); // taken on Enter only
            noMovidos->click();
            QVERIFY(v.lista()->filasDatos() > 3 && v.d.Busqueda_Medida == nv::Moneda());
            QVERIFY(conMedida(u"120"_s) == u"120" && v.codigos() == u"1");
            for (const QString &ninguna : {u"0"_s, QString(), u","_s})
                QVERIFY(conMedida(ninguna) == u"0" && v.lista()->filasDatos() > 3);
            v.escribe("txtBusqueda", {});
            m->sentencias.clear();
            QVERIFY2(conMedida(u"a12.5"_s) == u"0" && m->sentencias.isEmpty(), "a size alone searches nothing");
            QCOMPARE(v.campo<QLineEdit>("txtMedida")->text(), u"12,5"_s);
            m->conductor.responde(u"Aceptar"_s);
            v.escribe("txtMedida", u"99999999999999999999"_s);
            v.busca(u"GRANDE"_s);
            QCOMPARE(v.d.Busqueda_Descripcion, u"R"_s);
            // The rows before one that fails stay and can be accepted.
            m->ejecutar(u"REPLACE INTO Tarifas VALUES (2, 3, '', 2, 99999999999)"_s);
            m->conductor.responde(u"Aceptar"_s);
            v.escribe("txtMedida", {});
            v.busca(u"O"_s);
            QCOMPARE(v.codigos(), u"10|841|24"_s);
            QTest::keyClick(v.lista(), Qt::Key_Home);
            QTest::keyClick(v.lista(), Qt::Key_Return);
        });
        QVERIFY(
            m->conductor.cajas().front().texto.contains(u"99999999999999999999 se sale de lo que cabe (Medida)"_s) &&
            m->conductor.cajas().back().texto.endsWith(u" (BackColorNM)."_s));
        QVERIFY(m->codigo == u"10" && m->copia() == u"1|2|3|10|24|841");
    }

    void brand_goes_with_the_text_and_the_head_office_says_what_is_blocked()
    {
        m->ejecutar({u"UPDATE Articulos SET MotivoBaja = 2 WHERE Codigo = 2"_s,
                     u"UPDATE Articulos SET Bloqueado = 1 WHERE Codigo = 1"_s,
                     u"UPDATE Almacen_Articulos SET Bloqueo = 1 WHERE Cod_Articulo = 3"_s});
        const auto recordada = [](ContratoBusqueda &d) { d.Busqueda_MarcaNombre = u"DURO"_s; };
        m->abrir(7, recordada, [this](const Vista &v) {
            const auto conMarca = [&](const QString &marca) {
                v.escribe("txtMarca", marca);
                m->sentencias.clear();
                v.pulsa(Qt::Key_Return);
                return m->sentencias.isEmpty() ? u"none"_s : v.codigos();
            };
            QCOMPARE(v.campo<QLineEdit>("txtMarca")->text(), u"DURO"_s);
            QVERIFY2(v.codigos().isEmpty(), "a brand alone starts no search");
            m->sentencias.clear();
            v.escribe("txtDescripcion", u"T"_s);
            v.pulsa(Qt::Key_Return);
            QVERIFY(v.enfocado("txtMarca") && m->sentencias.isEmpty());
            QVERIFY(conMarca({}) == u"2|1|3" && v.columna(4) == u"1|0|0" && v.enfocado("txtMarca"));
            m->empresa.valores[u"OficinaCentral"_s] = u"0"_s; // read again by every search
            QVERIFY(conMarca({}) == u"2|1|3" && v.columna(4) == u"0|1|1");
            QVERIFY(v.lista()->model()->index(0, 4).data(Qt::CheckStateRole).isValid());
            v.escribe("txtMarca", u"duro"_s);
            v.aprieta("cmdAceptar"); // searches for it first
            QVERIFY(v.d.isVisible() && v.codigos() == u"2" && v.d.Busqueda_MarcaNombre == u"duro");
            v.escribe("txtDescripcion", {});
            QVERIFY(conMarca(u"ro"_s) == u"841|2|1" && v.columna(3) == u"ROCA|DUROCANTO|ROCA");
            QVERIFY(conMarca(u" "_s) == u"none" && v.d.Busqueda_MarcaNombre == u"ro");
        });
    }

    void what_was_sold_thirty_days_ago_is_out_and_the_others_share_the_width()
    {
        m->ejecutar(u"UPDATE Almacen_Articulos SET FUlt_Venta = '23/10/2026' WHERE Cod_Articulo = 1"_s);
        const auto letra = conLetra(7);
        m->abrir(8, recordando(u"*"_s), [](const Vista &v) {
            QCOMPARE(v.codigos(), u"2|3"_s);
            const auto ancho = [&](int columna) { return v.lista()->columnWidth(columna); };
            QVERIFY(v.lista()->hasFocus() && v.lista()->horizontalScrollBar()->maximum() == 0);
            for (const int oculta : {0, 2, 6, 8})
                QVERIFY(v.lista()->isColumnHidden(oculta));
            const std::array antes{ancho(1), ancho(3), ancho(4)};
            const QSize tamano = v.d.size();
            for (const int mas : {3, 55, 100, 0}) {
                v.d.resize(tamano + QSize(mas, 0));
                QCoreApplication::processEvents();
                QVERIFY(ancho(1) == antes[0] && ancho(3) == antes[1] + mas - mas * 20 / 100 - mas * 10 / 100);
                QCOMPARE(ancho(4), antes[2] + mas * 20 / 100);
            }
        });
    }

private:
    static void varios(ContratoBusqueda &d) { d.MultiResultado = true; }
    static CatalogoBusquedas::Preparar recordando(const QString &texto, qint16 almacen = 0)
    {
        return [=](ContratoBusqueda &d) {
            d.Busqueda_Descripcion = texto;
            d.AlmacenStock = almacen;
        };
    }
    /// Background of each cell of a row: O offer, N slow stock, P to order, "." none; and whether it is written in red.
    static QString colores(const Vista &v, int fila)
    {
        const QHash<QString, QString> fondos{
            {u"#000000"_s, u"."_s}, {u"#ffff99"_s, u"O"_s}, {u"#b4d7ff"_s, u"N"_s}, {u"#ff8000"_s, u"P"_s}};
        const QAbstractItemModel *modelo = v.lista()->model();
        QString letras;
        int rojas = 0;
        for (int c = 0; c < modelo->columnCount(); ++c) {
            const QModelIndex celda = modelo->index(fila - 1, c);
            letras += fondos.value(celda.data(Qt::BackgroundRole).value<QColor>().name());
            rojas += celda.data(Qt::ForegroundRole).value<QColor>() == QColor(192, 0, 0) ? 1 : 0;
        }
        return letras + (rojas == modelo->columnCount() ? u" red"_s : QString());
    }

    std::optional<CatalogoBusquedas> m;
};

NV_PRUEBA(tst_TextoLibre)
#include "tst_textolibre.moc"
