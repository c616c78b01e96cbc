#include "nvArticulo/Error.h"
#include "platform/informe/Informe.h"
#include "support/Programa.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using nv::DatosInforme;
using nv::Informe;
using nv::Plantilla;

class tst_Informe : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void template_writes_parameters_rows_and_page_numbers();
    void template_without_rows_is_refused();
    void report_directory_overrides_the_built_in_layout();
    void every_row_finds_its_page_data();
    void every_row_finds_its_page();
    void stopping_leaves_off_at_once();

private:
    static DatosInforme filas(int cuantas, const QString &descripcion)
    {
        DatosInforme datos{{u"Codigo"_s, u"Descripcion"_s, u"Pvp1_Num"_s}, {}};
        for (int i = 1; i <= cuantas; ++i)
            datos.filas.push_back({QString::number(i), descripcion, u"10.5"_s});
        return datos;
    }
    static qsizetype paginas(const QByteArray &pdf) { return pdf.count("/Type /Page\n"); }
};

void tst_Informe::template_writes_parameters_rows_and_page_numbers()
{
    const Plantilla plantilla(u"<!--primera--><h1>{{1}}</h1><!--/primera-->T{{2}}"
                              u"<!--fila-->[{{Codigo}} {{Descripcion}} {{Pvp1_Num:6}}]<!--/fila-->."
                              u"<!--pie-->{{pagina}}/{{paginas}}<!--/pie-->"_s);
    const Plantilla::Parametros parametros{{1, u"A & B"_s}, {2, u"4"_s}, {6, u"3"_s}};
    const DatosInforme datos = filas(3, u"<b>{{1}}"_s);
    QCOMPARE(plantilla.pagina(parametros, datos, 0, 1, true), u"<h1>A &amp; B</h1>T4[1 &lt;b&gt;{{1}} 10,500]."_s);
    QCOMPARE(plantilla.pagina(parametros, datos, 1, 2, false),
             u"T4[2 &lt;b&gt;{{1}} 10,500][3 &lt;b&gt;{{1}} 10,500]."_s);
    QCOMPARE(plantilla.pie(parametros, 2, 7), u"2/7"_s);
}

void tst_Informe::template_without_rows_is_refused()
{
    QVERIFY_EXCEPTION_THROWN(Plantilla(u"<html>nada</html>"_s), nv::Error);
}

void tst_Informe::report_directory_overrides_the_built_in_layout()
{
    const QString nombre = u"\\Rpt\\Articulos Busqueda 2.rpt"_s;
    const auto bytes = [&](const QString &directorio) {
        Informe informe(directorio, nombre);
        informe.setDatos(filas(300, u"TORNILLO"_s));
        QBuffer pdf;
        pdf.open(QIODevice::WriteOnly);
        QPdfWriter papel(&pdf);
        informe.imprimir(papel, [](int, int) { return true; });
        return paginas(pdf.data());
    };
    const QTemporaryDir carpeta;
    const qsizetype propias = bytes(carpeta.path());
    QVERIFY2(propias > 3, "no such file: the layout of the program");
    QDir(carpeta.path()).mkdir(u"Rpt"_s);
    QFile plantilla(carpeta.filePath(u"Rpt/Articulos Busqueda 2.rpt"_s));
    QVERIFY(plantilla.open(QIODevice::WriteOnly));
    plantilla.write("<!--fila-->{{Codigo}} <!--/fila-->");
    plantilla.close();
    QCOMPARE(bytes(carpeta.path()), 1);
    QVERIFY(plantilla.open(QIODevice::WriteOnly));
    plantilla.write("sin filas");
    plantilla.close();
    QVERIFY_EXCEPTION_THROWN(Informe(carpeta.path(), nombre), nv::Error);
    QVERIFY_EXCEPTION_THROWN(Informe(QString(), u"\\Rpt\\Otro.rpt"_s), nv::Error);
}

void tst_Informe::every_row_finds_its_page_data()
{
    QTest::addColumn<int>("cuantas");
    QTest::addColumn<QString>("descripcion");
    QTest::addColumn<int>("minimo");
    QTest::addColumn<int>("maximo");
    QTest::newRow("no rows: one page that says so") << 0 << QString() << 1 << 1;
    QTest::newRow("one") << 1 << u"TORNILLO"_s << 1 << 1;
    QTest::newRow("many") << 400 << u"TORNILLO"_s << 5 << 14;
    QTest::newRow("rows of many lines") << 40 << u"TORNILLO LARGO "_s.repeated(40) << 6 << 20;
    QTest::newRow("a row higher than a page") << 2 << u"TORNILLO LARGO "_s.repeated(900) << 2 << 2;
}

void tst_Informe::every_row_finds_its_page()
{
    QFETCH(const int, cuantas);
    QFETCH(const QString, descripcion);
    QFETCH(const int, minimo);
    QFETCH(const int, maximo);
    Informe informe({}, u"\\Rpt\\Articulos Busqueda 2.rpt"_s);
    informe.setDatos(filas(cuantas, descripcion));
    QBuffer pdf;
    pdf.open(QIODevice::WriteOnly);
    QPdfWriter papel(&pdf);
    papel.setPageOrientation(QPageLayout::Landscape);
    int ultimo = -1;
    QVERIFY(informe.imprimir(papel, [&](int hecho, int total) {
        const bool avanza = hecho >= ultimo && hecho <= total && total == 2 * cuantas;
        ultimo = hecho;
        return avanza;
    }));
    const int halladas = static_cast<int>(paginas(pdf.data()));
    QVERIFY2(halladas >= minimo && halladas <= maximo, qPrintable(QString::number(halladas)));
}

void tst_Informe::stopping_leaves_off_at_once()
{
    Informe informe({}, u"\\Rpt\\Articulos Busqueda 2.rpt"_s);
    informe.setDatos(filas(1000, u"TORNILLO"_s));
    QBuffer pdf;
    pdf.open(QIODevice::WriteOnly);
    QPdfWriter papel(&pdf);
    int veces = 0;
    QVERIFY(!informe.imprimir(papel, [&](int, int) { return ++veces < 3; }));
    QCOMPARE(veces, 3);
}

NV_PRUEBA(tst_Informe)
#include "tst_informe.moc"
