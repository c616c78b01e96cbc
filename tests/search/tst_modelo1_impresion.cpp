#include "LectorPdf.h"
#include "search/frmBusqueda_Articulos_2.h"
#include "tst_modelo1_catalogo.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QPrinterInfo>
#include <QProgressDialog>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using namespace nv::pruebas;
using Dialogo = frmBusqueda_Articulos_2;

/// What the listing of model 1 says on paper, read back from the PDF.
class tst_Modelo1_Impresion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void listing_says_what_the_list_says_in_its_order();
    void every_row_of_the_search_is_printed_once();
    void long_listing_can_be_stopped_from_the_keyboard_data();
    void long_listing_can_be_stopped_from_the_keyboard();

private:
    static void guardarEn(Conductor &conductor, const QString &fichero);
    static LectorPdf imprimir(Dialogo &dialogo);
    static QStringList llaves(CatalogoCriterios &catalogo, int cuantas);
};

void tst_Modelo1_Impresion::initTestCase()
{
    if (!QPrinterInfo::availablePrinterNames().isEmpty())
        QSKIP("there is a printer: the listing would go to it");
}

void tst_Modelo1_Impresion::guardarEn(Conductor &conductor, const QString &fichero)
{
    conductor.con<QFileDialog>([fichero](QFileDialog &f) {
        f.findChild<QLineEdit *>()->setText(fichero);
        QTest::keyClick(f.findChild<QLineEdit *>(), Qt::Key_Return);
    });
}

/// Adds items; their numbers.
QStringList tst_Modelo1_Impresion::llaves(CatalogoCriterios &catalogo, int cuantas)
{
    QStringList codigos;
    nv::Transaccion transaccion(catalogo.base.conexion());
    for (int codigo = 1001; codigo <= 1000 + cuantas; ++codigo) {
        codigos << QString::number(codigo);
        catalogo.base.ejecutar(u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion) VALUES (2, %1,"
                               u" 'LLAVE Ñ %1')"_s.arg(codigo));
    }
    transaccion.confirmar();
    catalogo.empresa.valores[u"Articulos_BusquedaCantMax"_s] = u"50000"_s;
    return codigos;
}

LectorPdf tst_Modelo1_Impresion::imprimir(Dialogo &dialogo)
{
    const QTemporaryDir carpeta;
    const QString fichero = carpeta.filePath(u"lista.pdf"_s);
    Conductor conductor;
    guardarEn(conductor, fichero);
    QTest::keyClick(&dialogo, Qt::Key_F11);
    QFile pdf(fichero);
    return LectorPdf(pdf.open(QIODevice::ReadOnly) ? pdf.readAll() : QByteArray());
}

void tst_Modelo1_Impresion::listing_says_what_the_list_says_in_its_order()
{
    CatalogoCriterios catalogo;
    catalogo.empresa.familias[1] = QString();
    catalogo.abrir<Dialogo>([](Dialogo &d) { d.Busqueda_Proveedor = 7; },
                            [](Dialogo &d) {
                                const QHeaderView *titulos = listado(d)->horizontalHeader();
                                const QPoint pvp(titulos->sectionViewportPosition(8) + 6, titulos->height() / 2);
                                for (int i = 0; i < 2; ++i)
                                    QTest::mouseClick(titulos->viewport(), Qt::LeftButton, {}, pvp);
                                QCOMPARE(columna(d, 1), (QStringList{u"1"_s, u"2"_s}));
                                const LectorPdf pdf = imprimir(d);
                                QCOMPARE(pdf.paginas(), 1);
                                QCOMPARE(
                                    pdf.textos().join(u'|'),
                                    u"Búsqueda de Artículos|"
                                    u"Desc: Código: Prov: 7 Ref: Familia: 0 Linea: 0|"
                                    u"Código|Descripción|Cód. Barras|Ref. Princip.|Tarifa 4|Tarifa 6|Tarifa 0|Stock|"
                                    u"1|TORNILLO ROJO|8412345678905|R-1|10,50|7|0,00|2,5|"
                                    u"2|TUERCA|9,00|0|0,00|0|"
                                    u"Página 1 de 1"_s);
                            });
}

void tst_Modelo1_Impresion::every_row_of_the_search_is_printed_once()
{
    CatalogoCriterios catalogo;
    const QStringList esperados = llaves(catalogo, 300);
    catalogo.abrir<Dialogo>([](Dialogo &d) { d.Busqueda_Descripcion = u"LLAVE"_s; },
                            [&](Dialogo &d) {
                                const LectorPdf pdf = imprimir(d);
                                const QStringList textos = pdf.textos();
                                QStringList impresos;
                                for (const QString &texto : textos)
                                    if (texto.startsWith(u"LLAVE Ñ "))
                                        impresos << texto.sliced(8);
                                QCOMPARE(impresos, esperados);
                                QVERIFY(pdf.paginas() > 3);
                                QCOMPARE(textos.filter(u"Tarifa 4"_s).size(), pdf.paginas());
                                QCOMPARE(textos.last(), u"Página %1 de %1"_s.arg(pdf.paginas()));
                            });
}

void tst_Modelo1_Impresion::long_listing_can_be_stopped_from_the_keyboard_data()
{
    QTest::addColumn<Qt::Key>("tecla");
    QTest::newRow("Esc") << Qt::Key_Escape;
    QTest::newRow("Enter on the button") << Qt::Key_Return;
    QTest::newRow("Space on the button") << Qt::Key_Space;
}

void tst_Modelo1_Impresion::long_listing_can_be_stopped_from_the_keyboard()
{
    QFETCH(const Qt::Key, tecla);
    CatalogoCriterios catalogo;
    llaves(catalogo, 6000);
    const QTemporaryDir carpeta;
    catalogo.abrir<Dialogo>([](Dialogo &d) { d.Busqueda_Descripcion = u"LLAVE"_s; },
                            [&](Dialogo &d) {
                                Conductor conductor;
                                guardarEn(conductor, carpeta.filePath(u"lista.pdf"_s));
                                conductor.con<QProgressDialog>([&](QProgressDialog &p) {
                                    QVERIFY(p.isActiveWindow());
                                    QVERIFY(p.value() < p.maximum() / 2);
                                    QTest::keyClick(p.windowHandle(), tecla);
                                });
                                QTest::keyClick(&d, Qt::Key_F11);
                                QVERIFY(conductor.terminado());
                                QVERIFY2(conductor.cajas().empty(), "to stop is no failure");
                                QVERIFY2(QDir(carpeta.path()).isEmpty(), "not a part of the listing either");
                                QVERIFY(d.isVisible() && !QGuiApplication::overrideCursor());
                                QCOMPARE(listado(d)->filasDatos(), 6000);
                            });
}

QTEST_MAIN(tst_Modelo1_Impresion)
#include "tst_modelo1_impresion.moc"
