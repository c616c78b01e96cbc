#include "Busquedas.h"
#include "dialogs/frmAlternativos_Eleccion.h"
#include "search/frmBusqueda_Articulos_2.h"
#include "search/piezas/InformeBusqueda.h"
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

using namespace nv::pruebas;
using nv::ContratoBusqueda;

/// The search with prices: tariffs, stock of a set of warehouses, marks, order and listing.
class tst_Precios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m.emplace(); }
    void cleanup() { m.reset(); }

    void prices_and_stock_follow_the_warehouses()
    {
        m->empresa.familias[1].clear();
        m->ejecutar({u"UPDATE Tarifas SET Decimales = CASE Cod_Tarifa WHEN 4 THEN 3 END"_s,
                     u"UPDATE Articulos_Tarifas SET Pvp = 43.641 WHERE Cod_Articulo = 1"_s});
        const auto enOtro = [](ContratoBusqueda &d) {
            d.AlmacenStock = 2;
            d.Familia_1 = d.Busqueda_Familia_1 = 1;
        };
        const Organizacion organizacion; // the last warehouses are there again
        m->abrir(1, enOtro, [this](const Vista &v) {
            QCOMPARE(v.lista()->texto(0, 11), u"Stock Alm 2"_s);
            v.busca(u"TORN"_s);
            QCOMPARE(v.fila(0, 6), u"Cód. Barras|Ref. Princip.|Tarifa 4|Tarifa 6|Tarifa 0|Stock Alm 2"_s);
            QCOMPARE(v.fila(1, 6), u"8412345678905|R-1|43,641|43,64|0,00|3"_s);
            for (const auto &[fila, columna] : {std::pair(1, 6), {0, 11}})
                QVERIFY(v.lista()->columnWidth(columna) >
                        v.lista()->fontMetrics().horizontalAdvance(v.lista()->texto(fila, columna)));
            v.escribe("txtProveedor", u"7"_s);
            v.escribe("txtAlternativo1", u",7,"_s); // the whole value, of a company without a list of them
            v.pulsa(Qt::Key_Return);
            QCOMPARE(v.codigos(), u"2"_s);
            QCOMPARE(dynamic_cast<frmBusqueda_Articulos_2 &>(v.d).DevCriterio(),
                     u"Desc: TORN  Código:   Prov: 7  Ref:   Familia: 1    Linea: 0"_s);
            auto *pestanas = v.campo<QTabWidget>("SSTab");
            const auto elegir = [&](int fila, Qt::CheckState estado) {
                pestanas->setCurrentIndex(1);
                v.campo<QListWidget>("lstAlmacenes")->item(fila)->setCheckState(estado);
                m->sentencias.clear();
                pestanas->setCurrentIndex(0);
                return v.lista()->texto(0, 11) + u": "_s + v.columna(11);
            };
            v.escribe("txtAlternativo1", {});
            v.busca(u"TORNILLO ROJO"_s);
            QVERIFY(elegir(1, Qt::Checked) == u"Stock Alm 2: 3" && m->sentencias.isEmpty());
            QVERIFY(elegir(0, Qt::Checked) == u"Stock: 15" && v.lista()->hasFocus());
            QCOMPARE(elegir(1, Qt::Unchecked), u"Stock Alm 1: 12"_s);
            pestanas->setCurrentIndex(1);
            v.lista()->setFocus();
            v.pulsa(Qt::Key_Up);
            QVERIFY2(pestanas->currentIndex() == 0 && v.enfocado("txtNombre"), "the criteria again");
        });
        m->abrir(1, enOtro, [](const Vista &v) {
            v.busca(u"TORNILLO ROJO"_s);
            QCOMPARE(v.lista()->texto(0, 11) + v.columna(11), u"Stock Alm 112"_s);
        });
    }

    void marks_by_mouse_by_key_and_all()
    {
        m->abrir(1, todasYa, [](const Vista &v) {
            auto *todas = v.campo<QCheckBox>("chkCheck");
            v.busca(u"T"_s);
            QVERIFY(todas->isVisible() && v.columna(0) == u"1|1|1");
            todas->click();
            v.clic(2, 0);
            QCOMPARE(v.columna(0), u"0|1|0"_s);
            v.dobleClic(2, 0); // its first click has done it
            v.clic(3, 2);
            v.dobleClic(3, 2);
            QCOMPARE(v.columna(0), u"0|1|1"_s);
            v.marca({1, 3, 0});
            QCOMPARE(v.columna(0), u"1|1|0"_s);
            v.aprieta("cmdAceptar");
            QVERIFY2(v.d.isVisible(), "the heading is no choice, marked rows or not");
            v.busca(u"CLAVO"_s); // what a hand has marked outlives its list
            v.marca({1});
            v.busca(u"*GRANDE"_s);
            QVERIFY(v.columna(0) == u"1|0" && v.campo<QLabel>("lblResultado")->text().endsWith(u"3 marcados"));
            v.lista()->setFilaActual(2);
            v.aprieta("cmdAceptar");
        });
        QVERIFY(m->codigo == u"|1|24|2" && m->descripcion == u"|TORNILLO ROJO|CLAVO|TORNILLO GRANDE");
    }

    void headings_sort_and_reverse()
    {
        const auto todasDeUna = [](ContratoBusqueda &d) { d.SeleccionarTodo = true; };
        m->abrir(1, todasDeUna, [](const Vista &v) {
            v.busca({});
            v.lista()->setFilaActual(4); // 10
            // Headings pressed in turn: each has its own sense.
            const std::pair<int, QString> casos[] = {
                {8, u"3|24|841|2|1|10"_s}, {8, u"10|1|2|3|24|841"_s}, {1, u"1|10|2|24|3|841"_s},
                {8, u"24|3|841|2|1|10"_s}, {2, u"10|841|24|2|1|3"_s},
            };
            for (const auto &[columna, codigos] : casos) {
                titulo(v, columna);
                QCOMPARE(v.codigos(), codigos);
                QCOMPARE(v.lista()->texto(v.lista()->filaActual(), 1), u"10"_s);
            }
            QVERIFY(v.lista()->horizontalHeader()->isSortIndicatorShown());
            v.busca(u"T"_s);
            QVERIFY(v.codigos() == u"1|2|3" && !v.lista()->horizontalHeader()->isSortIndicatorShown());
            QVERIFY(!v.campo("chkCheck")->isVisible());
            v.dobleClic(3, 2);
        });
        QCOMPARE(m->codigo, u"3"_s); // where one is wanted the others do not count
    }

    void what_the_limit_has_cut_is_sorted_no_further()
    {
        m->empresa.valores[u"Articulos_BusquedaCantMax"_s] = u"2"_s;
        m->abrir(1, [](const Vista &v) {
            v.busca(u"T"_s);
            titulo(v, 2);
            QCOMPARE(v.campo<QLabel>("lblResultado")->text(),
                     u"2 de 2 mostrados, hay más sin ordenar"_s); // the current row is the item that it was
        });
    }

    void rows_that_come_later_are_marked_and_stay_last()
    {
        m->articulosZZ(250);
        m->parametros.deAplicacion[u"nvArticulo.BuscadorM2.MaxCargaFilas"_s] = u"100"_s;
        m->abrir(1, todasYa, [](const Vista &v) {
            v.busca(u"ZZ"_s);
            titulo(v, 1);
            titulo(v, 1);
            v.lista()->setFilaActual(v.lista()->filasDatos());
            v.pulsa(Qt::Key_PageDown);
            const int filas = v.lista()->filasDatos();
            QVERIFY(v.campo<QLabel>("lblResultado")->text().contains(u"siguen más abajo sin ordenar"));
            QVERIFY(filas >= 200 && v.lista()->texto(1, 1).toInt() < v.lista()->texto(filas, 1).toInt());
            QCOMPARE(v.columna(0).count(u'1'), filas);
            // And back to none, for those still to come too.
            v.campo<QCheckBox>("chkCheck")->click();
            v.lista()->setFilaActual(filas);
            v.pulsa(Qt::Key_PageDown);
            QVERIFY(v.lista()->filasDatos() > filas && !v.columna(0).contains(u'1'));
        });
    }

    void values_of_the_alternative_field_are_chosen_from_a_list()
    {
        m->ejecutar(u"INSERT INTO Alternativos_Valores (Tabla, Alternativo, id, Valor) VALUES (0, 0, 3, 'ROJO'),"
                    u" (0, 0, 7, 'AZUL'), (0, 0, 33, 'VERDE')"_s);
        m->abrir(1, [&](const Vista &v) {
            auto *caja = v.campo<QLineEdit>("txtAlternativo1");
            QCOMPARE(v.rotulo("lblAlternativo1"), u"Estilo:"_s);
            v.escribe("txtAlternativo1", u"X"_s);
            const auto elegir = [&](const char *boton) {
                m->conductor.con<frmAlternativos_Eleccion>([boton](frmAlternativos_Eleccion &f) {
                    f.findChild<QListWidget *>()->item(1)->setSelected(true); // ROJO
                    QTest::mouseClick(f.findChild<QWidget *>(QLatin1StringView(boton)), Qt::LeftButton);
                });
                caja->setFocus();
                v.pulsa(Qt::Key_F3);
                return caja->text();
            };
            QCOMPARE(elegir("cmdCancelar"), QString());
            for (const Qt::Key tecla : {Qt::Key_Delete, Qt::Key_Backspace}) {
                QCOMPARE(elegir("cmdAceptar"), u"ROJO"_s);
                v.pulsa(Qt::Key_F9);
                QCOMPARE(v.codigos(), u"1"_s);
                caja->setFocus();
                v.pulsa(tecla);
                v.pulsa(Qt::Key_F9);
                QVERIFY(caja->text().isEmpty() && v.lista()->filasDatos() == 6);
            }
        });
    }

    void rows_of_the_listing()
    {
        m->ejecutar(u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion, Largo) VALUES (7, 10, 'ñandú', NULL),"
                    u" (7, 9, 'Árbol', 2.5), (7, 2, 'nube', 10.125)"_s);
        const nv::Sentencia busqueda = nv::Sentencia::deConsola(
            u"SELECT Codigo, Descripcion AS Nombre, Largo AS Pvp_Num, Largo AS Stock_Actual FROM Articulos"
            u" WHERE Cod_Empresa = 7 ORDER BY Codigo DESC"_s);
        // Codes and amounts as numbers, texts in Spanish.
        const std::tuple<QString, Qt::SortOrder, QString> casos[] = {{u"Codigo"_s, Qt::AscendingOrder, u"2 9 10 "_s},
                                                                     {u"Pvp_Num"_s, Qt::DescendingOrder, u"2 9 10 "_s},
                                                                     {u"Nombre"_s, Qt::AscendingOrder, u"9 2 10 "_s}};
        for (const auto &[campo, sentido, esperados] : casos) {
            const nv::DatosInforme datos = nv::datosDeInforme(m->conexion().Abrir(busqueda), campo, sentido);
            QString codigos;
            for (const QStringList &fila : datos.filas)
                codigos += fila[0] + u' ';
            QCOMPARE(codigos, esperados);
            QVERIFY(std::ranges::count(datos.filas, u"2|nube|10.125|10,125"_s.split(u'|')) == 1);
        }
    }

    /// What the report makes of them is seen in its own tests.
    void listing_is_saved_or_stopped_or_fails()
    {
        if (!QPrinterInfo::availablePrinterNames().isEmpty())
            QSKIP("there is a printer: the listing would go to it");
        m->articulosZZ(4000);
        const QTemporaryDir carpeta;
        m->abrir(1, [&](const Vista &v) {
            const auto guardarEn = [&](const QString &fichero) {
                m->conductor.con<QFileDialog>([ruta = carpeta.filePath(fichero)](QFileDialog &f) {
                    f.findChild<QLineEdit *>()->setText(ruta);
                    QTest::keyClick(f.findChild<QLineEdit *>(), Qt::Key_Return);
                });
            };
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
        QCOMPARE(
            m->conductor.cajas().back().texto,
            u"Error en Imprimir_Busqueda: La base de datos no ha podido hacerlo (no existe la tabla Articulos_CBarras)."_s);
        QCOMPARE(QDir(carpeta.path()).entryList(QDir::Files), QStringList{u"lista.pdf"_s});
    }

private:
    static void todasYa(ContratoBusqueda &d) { d.MultiResultado = d.SeleccionarTodo = true; }
    static void titulo(const Vista &v, int columna)
    {
        const QHeaderView *titulos = v.lista()->horizontalHeader();
        QTest::mouseClick(titulos->viewport(), Qt::LeftButton, {},
                          QPoint(titulos->sectionViewportPosition(columna) + 6, titulos->height() / 2));
    }

    std::optional<CatalogoBusquedas> m;
};

NV_PRUEBA(tst_Precios)
#include "tst_precios.moc"
