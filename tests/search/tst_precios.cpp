#include "Busquedas.h"
#include "search/frmBusqueda_Articulos_2.h"
#include "search/piezas/InformeBusqueda.h"
#include "search/piezas/OrdenRejilla.h"
#include "support/Programa.h"

#include <QCheckBox>
#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPrinterInfo>
#include <QProgressDialog>
#include <QTabWidget>
#include <QTemporaryDir>

using namespace nv::pruebas;
using nv::ContratoBusqueda;

/// The search with prices: tariffs, stock of a set of warehouses, marks, order and listing.
class tst_Precios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m.emplace(); }
    void cleanup() { m.reset(); }

    void prices_follow_the_tariffs_of_the_warehouse();
    void marks_by_mouse_by_key_and_all();
    void everything_marked_from_the_start();
    void leaving_the_warehouses_searches_again();
    void headings_sort_and_reverse();
    void rows_that_come_later_are_marked_and_stay_last();
    void values_of_the_alternative_field_are_chosen_from_a_list();
    void alternative_text_and_line_of_criteria();
    void rows_of_the_listing_data();
    void rows_of_the_listing();
    void listing_is_saved_or_stopped_or_fails();

private:
    static void titulo(const Vista &v, int columna)
    {
        const QHeaderView *titulos = v.lista()->horizontalHeader();
        QTest::mouseClick(titulos->viewport(), Qt::LeftButton, {},
                          QPoint(titulos->sectionViewportPosition(columna) + 6, titulos->height() / 2));
    }

    std::optional<CatalogoBusquedas> m;
};

void tst_Precios::prices_follow_the_tariffs_of_the_warehouse()
{
    m->abrir(
        1, [](ContratoBusqueda &d) { d.AlmacenStock = 2; },
        [](const Vista &v) {
            QCOMPARE(v.lista()->texto(0, 11), u"Stock Alm 2"_s);
            v.busca(u"TORN"_s);
            QCOMPARE(v.fila(0, 6), u"Cód. Barras|Ref. Princip.|Tarifa 4|Tarifa 6|Tarifa 0|Stock Alm 2"_s);
            QCOMPARE(v.fila(1, 6), u"8412345678905|R-1|10,50|7|0,00|3"_s);
            for (const int columna : {6, 11})
                QVERIFY(v.lista()->columnWidth(columna) >
                        v.lista()->fontMetrics().horizontalAdvance(v.lista()->texto(columna == 6 ? 1 : 0, columna)));
            QVERIFY(!v.campo("chkCheck")->isVisible());
        });
    m->ejecutar(u"UPDATE Tarifas SET Decimales = NULL WHERE Cod_Tarifa = 6"_s);
    m->ejecutar(u"UPDATE Tarifas SET Decimales = 3 WHERE Cod_Tarifa = 4"_s);
    m->ejecutar(u"UPDATE Articulos_Tarifas SET Pvp = 43.641 WHERE Cod_Articulo = 1"_s);
    m->abrir(1, [](const Vista &v) {
        v.busca(u"*ROJO"_s);
        QVERIFY(v.columna(8) == u"43,641|100,000" && v.columna(9) == u"43,64|0,00");
        QVERIFY2(v.columna(11) == u"12|0" && v.lista()->texto(0, 11) == u"Stock Alm 1", "the default warehouse");
    });
}

void tst_Precios::marks_by_mouse_by_key_and_all()
{
    m->abrir(
        1, [](ContratoBusqueda &d) { d.MultiResultado = true; },
        [](const Vista &v) {
            auto *todas = v.campo<QCheckBox>("chkCheck");
            QVERIFY(todas->isVisible() && !todas->isChecked());
            v.busca(u"T"_s);
            v.clic(2, 0);
            QCOMPARE(v.columna(0), u"0|1|0"_s);
            v.dobleClic(2, 0); // its first click has done it
            QCOMPARE(v.columna(0), u"0|1|0"_s);
            v.clic(3, 2);
            v.dobleClic(3, 2);
            QCOMPARE(v.columna(0), u"0|1|1"_s);
            v.marca({1, 3});
            QCOMPARE(v.columna(0), u"1|1|0"_s);
            todas->click();
            QCOMPARE(v.columna(0), u"1|1|1"_s);
            todas->click();
            QCOMPARE(v.columna(0), u"0|0|0"_s);
            v.lista()->setFilaActual(0);
            v.marca({2});
            v.lista()->setFilaActual(0);
            v.aprieta("cmdAceptar");
            QVERIFY2(v.d.isVisible(), "the heading is no choice, marked rows or not");
            v.lista()->setFilaActual(1);
            v.aprieta("cmdAceptar");
        });
    QVERIFY(m->codigo == u"|2" && m->descripcion == u"|TORNILLO GRANDE");
    // Where one is wanted nothing is marked.
    m->abrir(1, [](const Vista &v) {
        v.busca(u"T"_s);
        v.marca({1});
        QCOMPARE(v.columna(0), u"0|0|0"_s);
        v.dobleClic(3, 2);
    });
    QCOMPARE(m->codigo, u"3"_s);
}

void tst_Precios::everything_marked_from_the_start()
{
    for (const bool varios : {true, false}) {
        m->abrir(
            1,
            [=](ContratoBusqueda &d) {
                d.MultiResultado = varios;
                d.SeleccionarTodo = true;
            },
            [](const Vista &v) {
                v.busca(u"T"_s);
                QTest::keyClick(v.lista(), Qt::Key_Return);
            });
        QCOMPARE(m->codigo, varios ? u"|1|2|3"_s : u"1"_s);
    }
}

void tst_Precios::leaving_the_warehouses_searches_again()
{
    m->abrir(1, [&](const Vista &v) {
        auto *pestanas = v.campo<QTabWidget>("SSTab");
        auto *almacenes = v.campo<QListWidget>("lstAlmacenes");
        QCOMPARE(almacenes->count(), 3);
        const auto elegir = [&](std::initializer_list<int> filas) {
            pestanas->setCurrentIndex(1);
            for (const int fila : filas)
                almacenes->item(fila)->setCheckState(Qt::Checked);
            m->sentencias.clear();
            pestanas->setCurrentIndex(0);
        };
        elegir({});
        v.busca(u"TORNILLO ROJO"_s);
        elegir({});
        QVERIFY2(m->sentencias.isEmpty(), "the same warehouses need no search");
        elegir({1});
        QVERIFY(v.columna(11) == u"3" && v.lista()->texto(0, 11) == u"Stock Alm 2" && v.lista()->hasFocus());
        elegir({0});
        QVERIFY(v.columna(11) == u"15" && v.lista()->texto(0, 11) == u"Stock");
        pestanas->setCurrentIndex(1);
        v.lista()->setFocus();
        v.pulsa(Qt::Key_Up);
        QVERIFY2(pestanas->currentIndex() == 0 && v.enfocado("txtNombre"), "the criteria again");
    });
}

void tst_Precios::headings_sort_and_reverse()
{
    m->abrir(1, [](const Vista &v) {
        v.busca(QString());
        v.lista()->setFilaActual(4); // 10
        const auto orden = [&](int columna) {
            titulo(v, columna);
            return v.codigos();
        };
        QCOMPARE(orden(8), u"3|24|841|2|1|10"_s);
        QCOMPARE(v.lista()->texto(v.lista()->filaActual(), 1), u"10"_s);
        QCOMPARE(orden(8), u"10|1|2|3|24|841"_s);
        QVERIFY2(orden(1) == u"1|10|2|24|3|841" && orden(8) == u"24|3|841|2|1|10", "each heading has its own sense");
        QCOMPARE(orden(2), u"10|841|24|2|1|3"_s);
        QVERIFY(v.lista()->horizontalHeader()->isSortIndicatorShown());
        v.busca(u"T"_s);
        QVERIFY(v.codigos() == u"1|2|3" && !v.lista()->horizontalHeader()->isSortIndicatorShown());
    });
    const nv::MenorFila menor =
        nv::menorPorTexto({u"ñu"_s, u"Nube"_s, u"oca"_s, u"árbol"_s, u"Bota"_s}, Qt::AscendingOrder);
    QVERIFY(menor(1, 0) && menor(0, 2) && menor(3, 4) && !menor(4, 3));
}

void tst_Precios::rows_that_come_later_are_marked_and_stay_last()
{
    m->articulosZZ(250);
    m->parametros.deAplicacion[u"nvArticulo.BuscadorM2.MaxCargaFilas"_s] = u"100"_s;
    m->abrir(
        1, [](ContratoBusqueda &d) { d.MultiResultado = true; },
        [](const Vista &v) {
            v.busca(u"ZZ"_s);
            v.campo<QCheckBox>("chkCheck")->click();
            titulo(v, 1);
            titulo(v, 1);
            v.lista()->setFilaActual(v.lista()->filasDatos());
            v.pulsa(Qt::Key_PageDown);
            const int filas = v.lista()->filasDatos();
            QVERIFY(filas >= 200 && v.lista()->texto(1, 1).toInt() < v.lista()->texto(filas, 1).toInt());
            QCOMPARE(v.columna(0).count(u'1'), filas);
            // And back to none, for those still to come too.
            v.campo<QCheckBox>("chkCheck")->click();
            v.lista()->setFilaActual(filas);
            v.pulsa(Qt::Key_PageDown);
            QVERIFY(v.lista()->filasDatos() > filas && !v.columna(0).contains(u'1'));
        });
}

void tst_Precios::values_of_the_alternative_field_are_chosen_from_a_list()
{
    m->ejecutar(u"INSERT INTO Alternativos_Valores (Tabla, Alternativo, id, Valor) VALUES (0, 0, 3, 'ROJO'),"
                u" (0, 0, 7, 'AZUL'), (0, 0, 33, 'VERDE')"_s);
    m->abrir(1, [&](const Vista &v) {
        auto *caja = v.campo<QLineEdit>("txtAlternativo1");
        QCOMPARE(v.campo<QLabel>("lblAlternativo1")->text(), u"Estilo:"_s);
        v.escribe("txtAlternativo1", u"X"_s);
        QCOMPARE(caja->text(), QString());
        const auto elegir = [&](const char *boton) {
            m->conductor.paso([](QWidget *w) { return w->windowTitle() == u"Elección de Valores"_s; },
                              [boton](QWidget *w) {
                                  w->findChild<QListWidget *>()->item(1)->setSelected(true); // ROJO
                                  QTest::mouseClick(w->findChild<QWidget *>(QLatin1StringView(boton)), Qt::LeftButton);
                              });
            v.pulsa(Qt::Key_F3);
        };
        elegir("cmdCancelar");
        QCOMPARE(caja->text(), QString());
        elegir("cmdAceptar");
        QCOMPARE(caja->text(), u"ROJO"_s);
        v.pulsa(Qt::Key_F9);
        QCOMPARE(v.codigos(), u"1"_s);
        for (const Qt::Key tecla : {Qt::Key_Delete, Qt::Key_Backspace}) {
            caja->setFocus();
            v.pulsa(tecla);
            QCOMPARE(caja->text(), QString());
            elegir("cmdAceptar");
        }
        v.pulsa(Qt::Key_Delete);
        v.pulsa(Qt::Key_F9);
        QCOMPARE(v.lista()->filasDatos(), 6);
    });
}

void tst_Precios::alternative_text_and_line_of_criteria()
{
    m->empresa.familias[1].clear();
    m->ejecutar(u"UPDATE Articulos SET Alternativo1 = 'LISO' WHERE Codigo = 2"_s);
    m->abrir(
        1, [](ContratoBusqueda &d) { d.Familia_1 = d.Busqueda_Familia_1 = 1; },
        [](const Vista &v) {
            v.escribe("txtProveedor", u"7"_s);
            v.escribe("txtAlternativo1", u"LISO"_s);
            v.pulsa(Qt::Key_Return);
            QCOMPARE(v.codigos(), u"2"_s);
            QCOMPARE(dynamic_cast<frmBusqueda_Articulos_2 &>(v.d).DevCriterio(),
                     u"Desc:   Código:   Prov: 7  Ref:   Familia: 1    Linea: 0"_s);
        });
}

void tst_Precios::rows_of_the_listing_data()
{
    QTest::addColumn<QString>("campo");
    QTest::addColumn<bool>("sube");
    QTest::addColumn<QString>("codigos");
    QTest::newRow("codes as numbers") << u"Codigo"_s << true << u"2 9 10"_s;
    QTest::newRow("amounts") << u"Pvp_Num"_s << false << u"2 9 10"_s;
    QTest::newRow("equal ones keep their order") << u"Pvp_Num"_s << true << u"10 9 2"_s;
    QTest::newRow("texts in Spanish") << u"Nombre"_s << true << u"9 2 10"_s;
}

void tst_Precios::rows_of_the_listing()
{
    QFETCH(const QString, campo);
    QFETCH(const bool, sube);
    m->ejecutar(u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion, Largo) VALUES (7, 10, 'ñandú', NULL),"
                u" (7, 9, 'Árbol', 2.5), (7, 2, 'nube', 10.125)"_s);
    const nv::DatosInforme datos = nv::datosDeInforme(
        m->conexion().Abrir(nv::Sentencia::deConsola(
            u"SELECT Codigo, Descripcion AS Nombre, Largo AS Pvp_Num, Largo AS Stock_Actual FROM Articulos"
            u" WHERE Cod_Empresa = 7 ORDER BY Codigo DESC"_s)),
        campo, sube ? Qt::AscendingOrder : Qt::DescendingOrder);
    QStringList codigos;
    for (const QStringList &fila : datos.filas)
        codigos << fila[0];
    QTEST(codigos.join(u' '), "codigos");
    const auto nube = std::find_if(datos.filas.begin(), datos.filas.end(), [](auto &f) { return f[0] == u"2"; });
    QCOMPARE(nube->join(u'|'), u"2|nube|10.125|10,125"_s);
}

/// What the report makes of them is seen in its own tests.
void tst_Precios::listing_is_saved_or_stopped_or_fails()
{
    if (!QPrinterInfo::availablePrinterNames().isEmpty())
        QSKIP("there is a printer: the listing would go to it");
    m->articulosZZ(4000);
    const QTemporaryDir carpeta;
    const auto guardarEn = [&](const QString &fichero) {
        m->conductor.con<QFileDialog>([ruta = carpeta.filePath(fichero)](QFileDialog &f) {
            f.findChild<QLineEdit *>()->setText(ruta);
            QTest::keyClick(f.findChild<QLineEdit *>(), Qt::Key_Return);
        });
    };
    m->abrir(1, [&](const Vista &v) {
        v.pulsa(Qt::Key_F11); // nothing to print yet
        v.busca(u"T"_s);
        guardarEn(u"lista.pdf"_s);
        v.pulsa(Qt::Key_F11);
        QFile pdf(carpeta.filePath(u"lista.pdf"_s));
        QVERIFY(pdf.open(QIODevice::ReadOnly) && pdf.read(5) == "%PDF-");
        v.busca(u"ZZ"_s);
        for (const Qt::Key tecla : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Space}) {
            guardarEn(u"parada.pdf"_s);
            m->conductor.con<QProgressDialog>([tecla](QProgressDialog &p) {
                QVERIFY(p.isActiveWindow() && p.value() < p.maximum() / 2);
                QTest::keyClick(p.windowHandle(), tecla);
            });
            v.pulsa(Qt::Key_F11);
            QVERIFY2(m->conductor.cajas().empty(), "to stop is no failure");
        }
        m->quitar(u"Articulos_CBarras"_s);
        guardarEn(u"otra.pdf"_s);
        m->conductor.responde(u"Aceptar"_s);
        v.pulsa(Qt::Key_F11);
        QVERIFY(v.d.isVisible() && !QGuiApplication::overrideCursor());
    });
    QCOMPARE(m->conductor.cajas().back().texto, u"Error en Imprimir_Busqueda"_s);
    QCOMPARE(QDir(carpeta.path()).entryList(QDir::Files), QStringList{u"lista.pdf"_s});
}

NV_PRUEBA(tst_Precios)
#include "tst_precios.moc"
