#include "Busquedas.h"
#include "platform/widgets/Twips.h"
#include "platform/widgets/nvCheckBox.h"
#include "search/piezas/CajaImagen.h"
#include "search/piezas/ListaIncremental.h"
#include "search/piezas/PanelDetalles.h"
#include "support/Programa.h"

#include <QImage>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace nv::pruebas;
using nv::ContratoBusqueda;

/// The details beside the list, with the assortment; best sellers of a warehouse; a result that breaks.
class tst_Detalles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m.emplace(); }
    void cleanup() { m.reset(); }

    void price_order_data();
    void price_order();
    void stock_and_notes_of_the_default_warehouse();
    void pictures_data();
    void pictures();
    void F6_makes_room_and_the_notes_search();
    void customer_opens_the_details();
    void details_that_fail_name_themselves();
    void assortment_keeps_active_items_not_blocked_data();
    void assortment_keeps_active_items_not_blocked();
    void details_show_the_assortment_state_data();
    void details_show_the_assortment_state();
    void best_sellers_of_a_warehouse_data();
    void best_sellers_of_a_warehouse();
    void refused_ranking_leaves_the_one_on_screen();
    void a_result_that_breaks_keeps_its_rows();

private:
    std::optional<CatalogoBusquedas> m;
};

void tst_Detalles::price_order_data()
{
    QTest::addColumn<int>("cliente");
    QTest::addColumn<QString>(
        "tablas"); // rows of A(lmacenes tariffs), T(ariff prices), C(ustomer tariffs), P(rice of his)
    QTest::addColumn<QString>("precio");
    QTest::newRow("no tariff at all") << 0 << QString() << u"0,00"_s;
    QTest::newRow("sale tariff of the warehouse") << 0 << u"A 11,12;T 11,10"_s << u"10,00"_s;
    QTest::newRow("promotion first") << 0 << u"A 11,12;T 11,10;T 12,8"_s << u"8,00"_s;
    QTest::newRow("promotion at 0 is none") << 0 << u"A 11,12;T 11,10;T 12,0"_s << u"10,00"_s;
    QTest::newRow("no customer") << 0 << u"A 11,12;T 11,10;C 13,0;T 13,6.5"_s << u"10,00"_s;
    QTest::newRow("customer's tariff") << 5 << u"A 11,12;T 11,10;C 13,0;T 13,6.5"_s << u"6,50"_s;
    QTest::newRow("customer's promotion") << 5 << u"A 11,12;C 13,14;T 13,6.5;T 14,3"_s << u"3,00"_s;
    QTest::newRow("customer without a sale tariff") << 5 << u"A 11,12;T 11,10;C 0,13;T 13,6.5"_s << u"10,00"_s;
    QTest::newRow("own price today") << 5 << u"A 11,12;T 12,8;P '22/11/2026','22/11/2026',4.25"_s << u"4,25"_s;
    QTest::newRow("own price over") << 5 << u"A 11,12;T 12,8;P '01/12/2025','21/11/2026',4.25"_s << u"8,00"_s;
    QTest::newRow("own price of 0") << 5 << u"A 11,12;T 12,8;P '01/01/2026','31/12/2026',0"_s << u"8,00"_s;
}

void tst_Detalles::price_order()
{
    QFETCH(const int, cliente);
    QFETCH(const QString, tablas);
    m->ejecutar(u"UPDATE Almacenes SET Tarifa = 0"_s);
    for (const QString &fila : tablas.split(u';', Qt::SkipEmptyParts)) {
        const QString valores = fila.sliced(2);
        m->ejecutar(fila[0] == u'A' ? u"UPDATE Almacenes SET Tarifa = %1, TarifaProm = %2 WHERE Codigo = 1"_s.arg(
                                          valores.section(u',', 0, 0), valores.section(u',', 1))
                    : fila[0] == u'T' ? u"INSERT INTO Articulos_Tarifas VALUES (2, 1, %1)"_s.arg(valores)
                    : fila[0] == u'C' ? u"INSERT INTO Clientes VALUES (4, 5, 'C', %1)"_s.arg(valores)
                                      : u"INSERT INTO Clientes_Art_PVP VALUES (1, 5, 1, %1)"_s.arg(valores));
    }
    nv::PanelDetalles panel(nullptr);
    panel.preparar(m->empresa, cliente);
    const auto pvp = [&](const QString &codigo) {
        panel.DevPropiedades(codigo);
        return panel.findChild<QLabel *>(u"lblPvp"_s)->text();
    };
    QTEST(pvp(u"1"_s), "precio");
    m->ejecutar({u"UPDATE Almacenes SET Tarifa = 4"_s, u"UPDATE Clientes SET Tarifa_Pvp = 4"_s});
    QTEST(pvp(u"1"_s), "precio"); // the tariffs are looked up once
    QCOMPARE(pvp(u"24"_s), u"0,00"_s);
}

void tst_Detalles::stock_and_notes_of_the_default_warehouse()
{
    m->ejecutar({u"UPDATE Almacen_Articulos SET Pend_Servir = 2, Pend_Recibir = 1000 WHERE Cod_Articulo = 1"_s,
                 u"UPDATE Almacen_Articulos SET Pend_Servir = 4 WHERE Cod_Articulo = 3"_s,
                 u"UPDATE Articulos SET Desc_Memo = 'Nota <b>x</b>' WHERE Codigo = 1"_s});
    nv::PanelDetalles panel(nullptr);
    panel.show();
    panel.preparar(m->empresa, 0);
    const auto visto = [&](const QString &codigo) {
        panel.DevPropiedades(codigo);
        QStringList textos;
        for (const QString &nombre : {u"lblStock"_s, u"lblPendServir"_s, u"lblDisponible"_s, u"lblPendRecibir"_s})
            textos << panel.findChild<QLabel *>(nombre)->text();
        return textos.join(u' ') + u' ' + panel.findChild<QPlainTextEdit *>(u"txtObserv"_s)->toPlainText();
    };
    /// Whether what can be sold is painted in red.
    const auto rojo = [&] {
        const QImage imagen = panel.findChild<QLabel *>(u"lblDisponible"_s)->grab().toImage();
        int rojos = 0;
        for (int i = 0; i < imagen.width() * imagen.height(); ++i) {
            const QColor color = imagen.pixelColor(i % imagen.width(), i / imagen.width());
            rojos += color.red() > 150 && color.blue() < 60 ? 1 : 0;
        }
        return rojos > 0;
    };
    QCOMPARE(visto(u"1"_s), u"12,00 2,00 10,00 1000,00 Nota <b>x</b>"_s);
    QVERIFY(!rojo());
    QCOMPARE(visto(u"3"_s), u"4,00 4,00 0,00 0,00 Tornillería fina"_s);
    QVERIFY(rojo());
    QCOMPARE(visto(u"24"_s), u"0,00 0,00 0,00 0,00 "_s); // of the item before nothing stays
    m->quitar(u"Almacenes"_s);
    nv::PanelDetalles otro(nullptr);
    otro.preparar(m->empresa, 0);
    QVERIFY(falla([&] { otro.DevPropiedades(u"1"_s); }));
    QCOMPARE(otro.findChild<QLabel *>(u"lblStock"_s)->text(), u"12,00"_s);
    m->devolver(u"Almacenes"_s);
}

void tst_Detalles::pictures_data()
{
    QTest::addColumn<QString>("directorio"); // below a temporary folder; "-" for none at all
    QTest::addColumn<QString>("codigo");
    QTest::addColumn<bool>("hay");
    QTest::newRow("there") << u"\\fotos\\"_s << u"7"_s << true;
    QTest::newRow("larger than its place") << u"\\fotos\\"_s << u"70"_s << true;
    QTest::newRow("no file") << u"\\fotos\\"_s << u"8"_s << false;
    QTest::newRow("no separator is put in") << u"\\fotos"_s << u"7"_s << false;
    QTest::newRow("no directory") << u"-"_s << u"7"_s << false;
    QTest::newRow("a folder of that name") << u"\\fotos\\"_s << u"9"_s << false;
    QTest::newRow("no picture inside") << u"\\fotos\\"_s << u"10"_s << false;
}

void tst_Detalles::pictures()
{
    QFETCH(const QString, directorio);
    QFETCH(const QString, codigo);
    QFETCH(const bool, hay);
    const QTemporaryDir temporal;
    const QDir raiz(temporal.path());
    QVERIFY(raiz.mkpath(u"fotos/9.jpg"_s));
    QImage imagen(40, 30, QImage::Format_RGB32);
    imagen.fill(Qt::red);
    QVERIFY(imagen.save(raiz.filePath(u"fotos/7.jpg"_s)));
    QVERIFY(imagen.scaled(4000, 3000).save(raiz.filePath(u"fotos/70.jpg"_s)));
    QFile roto(raiz.filePath(u"fotos/10.jpg"_s));
    QVERIFY(roto.open(QIODevice::WriteOnly) && roto.write("nada") == 4);
    roto.close();
    // With no directory set, a picture in the working directory is none of ours.
    const QString anterior = QDir::currentPath();
    QVERIFY(QDir::setCurrent(raiz.filePath(u"fotos"_s)));
    m->ejecutar(u"INSERT INTO Empresas (Codigo, DirImagenArt) VALUES (1, '%1')"_s.arg(
        directorio == u"-" ? QString() : temporal.path() + directorio));
    nv::PanelDetalles panel(nullptr);
    panel.preparar(m->empresa, 0);
    panel.DevPropiedades(codigo);
    QDir::setCurrent(anterior);
    const auto *aviso = panel.findChild<QLabel *>(u"lblFotoCargando"_s);
    QVERIFY(panel.findChild<nv::CajaImagen *>(u"picFoto"_s)->vacia() != hay && aviso->isHidden() == hay);
    QVERIFY(hay || aviso->text() == u"<<< Imagen no disponible >>>");
}

void tst_Detalles::F6_makes_room_and_the_notes_search()
{
    for (const int modelo : {0, 6}) {
        m->abrir(modelo, [](const Vista &v) {
            v.busca(u"TORN"_s);
            const int ancho = v.d.width();
            const int lista = v.lista()->width();
            QVERIFY(!v.campo("fraExtendido")->isVisible() && !v.lista()->isColumnHidden(5));
            v.pulsa(Qt::Key_F6);
            QVERIFY(v.campo("fraExtendido")->isVisible() && v.lista()->isColumnHidden(5));
            QCOMPARE(nv::twips::dePixeles(v.d.width() - ancho, &v.d), 4515);
            QVERIFY2(v.lista()->width() < lista && v.codigos() == u"2|1", "the list is the same");
            v.busca(u"TORN"_s);
            QVERIFY2(v.codigos() == u"2|1|3", "its notes begin so");
            v.pulsa(Qt::Key_F6);
            QVERIFY(v.d.width() == ancho && v.lista()->width() == lista);
            QVERIFY2(!v.campo("fraFiltro")->isVisible(), "the view leaves the criteria as they are");
        });
    }
}

void tst_Detalles::customer_opens_the_details()
{
    m->abrir(
        0,
        [](ContratoBusqueda &d) {
            d.Cliente = 5;
            d.Busqueda_Descripcion = u"TORN"_s;
        },
        [this](const Vista &v) {
            const auto miradas = [this] { return m->sentencias.filter(u"SELECT Desc_Memo"_s).size(); };
            QVERIFY(v.campo("fraExtendido")->isVisible() && v.d.AlmacenStock == 1);
            QCOMPARE(miradas(), 1);
            v.pulsa(Qt::Key_Down);
            QCOMPARE(miradas(), 2);
            QVERIFY(v.campo("lblFotoCargando")->isVisible());
            v.busca(u"NADA"_s);
            QVERIFY2(!v.campo("lblFotoCargando")->isVisible(), "no former item's details");
        });
}

void tst_Detalles::details_that_fail_name_themselves()
{
    m->quitar(u"Almacen_Articulos"_s);
    m->abrir(0, [this](const Vista &v) {
        v.busca(u"TORN"_s);
        m->conductor.responde(u"Aceptar"_s);
        v.pulsa(Qt::Key_F6);
        v.pulsa(Qt::Key_F6);
        v.pulsa(Qt::Key_Return);
    });
    QCOMPARE(m->conductor.cajas().at(0).titulo, u"::DevPropiedades"_s);
    QCOMPARE(m->codigo, u"2"_s);
}

void tst_Detalles::assortment_keeps_active_items_not_blocked_data()
{
    QTest::addColumn<QString>("central");
    QTest::addColumn<QString>("codigos");
    QTest::newRow("not asked") << QString() << u"10|841|24|2|1|3"_s;
    QTest::newRow("head office: some warehouse") << u"1"_s << u"2|1|3"_s;
    QTest::newRow("branch: its own warehouse") << u"0"_s << u"1|3"_s;
    QTest::newRow("unreadable setting is no head office") << u"quizá"_s << u"1|3"_s;
}

void tst_Detalles::assortment_keeps_active_items_not_blocked()
{
    QFETCH(const QString, central);
    m->empresa.valores[u"OficinaCentral"_s] = central;
    m->ejecutar({u"UPDATE Almacen_Articulos SET Bloqueo = 1 WHERE Cod_Articulo = 2 AND Cod_Almacen = 1"_s,
                 u"INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo) VALUES (1, 1, 24)"_s});
    m->abrir(6, [&](const Vista &v) {
        QCOMPARE(v.campo<QCheckBox>("chkSurtido")->text(), u"Sólo mostrar artículos en Surtido"_s);
        v.campo("chkSurtido")->setFocus();
        if (!central.isEmpty())
            v.pulsa(Qt::Key_Space);
        v.pulsa(Qt::Key_F9);
        QTEST(v.codigos(), "codigos");
    });
}

void tst_Detalles::details_show_the_assortment_state_data()
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

void tst_Detalles::details_show_the_assortment_state()
{
    QFETCH(const int, obligatorio);
    QFETCH(const int, bloqueo);
    QFETCH(const int, casilla);
    QFETCH(const QString, aviso);
    if (obligatorio > -2)
        m->ejecutar(u"INSERT INTO Surtidos_Almacen (Cod_Empresa, Cod_Almacen, Cod_Surtido) VALUES (1, 1, 30)"_s);
    if (obligatorio > -1)
        m->ejecutar(u"INSERT INTO Surtidos_Articulo_Todos (Cod_Empresa, Cod_Surtido, Cod_Articulo, Obligatorio)"
                    u" VALUES (1, 30, 1, %1)"_s.arg(obligatorio));
    m->ejecutar(
        u"UPDATE Almacen_Articulos SET Bloqueo = %1, BloqueoVenta = 1 WHERE Cod_Almacen = 1 AND Cod_Articulo = 1"_s.arg(
            bloqueo));
    m->abrir(6, [&](const Vista &v) {
        const auto marcada = [&](const char *cual) { return v.campo<nvCheckBox>(cual)->Value(); };
        const auto avisos = [&](const QString &cual) {
            for (const char *nombre : {"lblSurtBloqGeneral", "lblSurtObligatorio"})
                QCOMPARE(v.campo(nombre)->isVisible(), cual == QLatin1StringView(nombre));
        };
        v.busca(u"TORNILLO ROJO"_s);
        v.pulsa(Qt::Key_F6);
        QVERIFY(v.campo<QLabel>("lblStock")->text() == u"12,00" && marcada("chkSurtBloqueadoVta") == 1);
        QCOMPARE(marcada("chkSurtBloqueado"), casilla);
        avisos(aviso);
        QTest::mouseClick(v.campo("chkSurtBloqueado"), Qt::LeftButton);
        QVERIFY2(marcada("chkSurtBloqueado") == casilla, "it is not for the user");
        v.busca(u"CLAVO"_s); // without a stock row the boxes stay
        QCOMPARE(marcada("chkSurtBloqueado"), casilla);
        v.busca(u"NADA"_s);
        QVERIFY(marcada("chkSurtBloqueado") == 0 && marcada("chkSurtBloqueadoVta") == 0);
        avisos({});
        m->ejecutar(u"DELETE FROM Surtidos_Almacen"_s);
        v.busca(u"TORNILLO ROJO"_s);
        QCOMPARE(marcada("chkSurtBloqueado"), bloqueo);
        avisos({});
    });
}

void tst_Detalles::best_sellers_of_a_warehouse_data()
{
    QTest::addColumn<QDate>("hoy");
    QTest::addColumn<QString>("ranking");
    QTest::addColumn<QString>("codigos");
    QTest::newRow("March") << QDate(2026, 3, 15) << u"10"_s << u"2|1"_s;
    QTest::newRow("only the best") << QDate(2026, 3, 15) << u"1"_s << u"2"_s;
    QTest::newRow("January reaches back to December") << QDate(2026, 1, 2) << u"10"_s << u"1|2"_s;
    QTest::newRow("none sold") << QDate(2026, 7, 1) << u"10"_s << QString();
    QTest::newRow("no ranking: by description") << QDate(2026, 3, 15) << u"0"_s << u"2|1"_s;
}

void tst_Detalles::best_sellers_of_a_warehouse()
{
    QFETCH(const QDate, hoy);
    QFETCH(const QString, ranking);
    QFETCH(const QString, codigos);
    m->empresa.hoy = hoy;
    m->ejecutar(
        u"INSERT INTO Almacen_Acumulados (Cod_Empresa, Cod_Almacen, Cod_Ejercicio, Mes, Cod_Articulo, Ventas_Unidades)"
        u" VALUES (1, 2, 2026, 3, 1, 3), (1, 2, 2026, 2, 1, 1), (1, 2, 2026, 2, 2, 5), (1, 2, 2026, 4, 1, 90),"
        u" (1, 2, 2025, 3, 1, 90), (1, 1, 2026, 3, 1, 90), (2, 2, 2026, 3, 1, 90), (1, 2, 2026, 3, 10, 80),"
        u" (1, 2, 2025, 12, 1, 7), (1, 2, 2026, 1, 2, 6)"_s);
    m->abrir(
        4, [](ContratoBusqueda &d) { d.GuardarBusqueda = true; },
        [&](const Vista &v) {
            v.escribe("txtRanking", ranking);
            v.pulsa(Qt::Key_F9);
            QVERIFY2(v.lista()->filasDatos() == 6 && v.columna(4).startsWith(u"0,00"),
                     "without a warehouse no ranking");
            v.escribe("txtAlmacen", u"2"_s);
            for (int vez = 0; vez < 2; ++vez) {
                v.pulsa(Qt::Key_F9);
                QCOMPARE(v.codigos(), codigos);
            }
            if (codigos == u"2|1")
                QCOMPARE(v.columna(4), u"2,00|3,46"_s);
            if (!codigos.isEmpty())
                v.pulsa(Qt::Key_Return);
        });
    QCOMPARE(m->codigo, codigos.section(u'|', 0, 0));
    QCOMPARE(m->copia().size(), codigos.size());
}

void tst_Detalles::refused_ranking_leaves_the_one_on_screen()
{
    m->ejecutar(u"INSERT INTO Almacen_Acumulados (Cod_Empresa, Cod_Almacen, Cod_Ejercicio, Mes, Cod_Articulo,"
                u" Ventas_Unidades) VALUES (1, 2, 2026, 11, 2, 5)"_s);
    m->abrir(
        4, [](ContratoBusqueda &d) { d.GuardarBusqueda = true; },
        [this](const Vista &v) {
            v.escribe("txtAlmacen", u"2"_s);
            v.escribe("txtRanking", u"3"_s);
            v.pulsa(Qt::Key_F9);
            m->conductor.responde(u"Aceptar"_s);
            v.busca(u"O'R"_s);
            v.lista()->setFocus();
            v.pulsa(Qt::Key_Return);
        });
    QVERIFY(m->codigo == u"2" && m->copia() == u"2");
}

/// As when the server goes away: no embedded catalogue does that on request.
void tst_Detalles::a_result_that_breaks_keeps_its_rows()
{
    struct Rota : nv::FuenteRegistros
    {
        explicit Rota(int n)
            : sanas(n)
        {}
        bool avanzar() override
        {
            if (++fila > sanas)
                throw nv::Error{11, u"Se ha perdido la conexión."_s, {}};
            return true;
        }
        int columnas() const override { return 1; }
        QString nombre(int) const override { return u"Codigo"_s; }
        QVariant valor(int) const override { return fila; }
        int sanas;
        int fila = 0;
    };
    const auto rota = [](int sanas) { return nv::Registros(std::make_unique<Rota>(sanas)); };
    const auto celdas = [](const nv::Registros &registros) { return nv::FilaRejilla{registros.texto(0)}; };
    nv::Rejilla rejilla;
    rejilla.setColumnas({{u"Código"}});
    nv::ListaIncremental lista(&rejilla, {500, 50, 2, 2});
    QSignalSpy fallos(&lista, &nv::ListaIncremental::Fallo);
    lista.mostrar(rota(504), celdas);
    rejilla.setFilaActual(7);
    QVERIFY(falla([&] { lista.mostrar(rota(499), celdas); }));
    QVERIFY2(rejilla.filasDatos() == 500 && rejilla.filaActual() == 7, "one that breaks at once leaves the former");
    rejilla.setFilaActual(499);
    lista.alPaginar();
    QVERIFY2(rejilla.filasDatos() > 500 && fallos.isEmpty(), "which still gives rows");
    rejilla.resize(200, 200);
    rejilla.show();
    for (int paso = 1; paso <= 12; ++paso)
        rejilla.verticalScrollBar()->setValue(paso % 2);
    QCOMPARE(rejilla.filasDatos(), 504);
    QCOMPARE(fallos.size(), 1);
    QCOMPARE(fallos[0][0].toString(), u"Se ha perdido la conexión."_s);
}

NV_PRUEBA(tst_Detalles)
#include "tst_detalles.moc"
