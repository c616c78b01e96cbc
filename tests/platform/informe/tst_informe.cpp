#include "nvArticulo/Error.h"
#include "platform/informe/Destino.h"
#include "support/BaseDatos.h"
#include "support/Ventana.h"

#include <QBuffer>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QPdfWriter>
#include <QProgressDialog>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using namespace nv::pruebas;
using nv::Plantilla;

class tst_Informe : public QObject
{
    Q_OBJECT

    const QString Fichero = u"\\Rpt\\Articulos Busqueda 2.rpt"_s;

private Q_SLOTS:
    void template_writes_parameters_rows_and_page_numbers()
    {
        const Plantilla plantilla(u"<!--primera--><h1>{{1}}</h1><!--/primera-->T{{2}}{{x}}"
                                  u"<!--fila-->[{{Codigo}} {{Descripcion}} {{Pvp1_Num:6}}{{9}}]<!--/fila-->.{{"
                                  u"<!--pie-->{{pagina}}/{{paginas}}{{2}}<!--/pie-->"_s);
        const Plantilla::Parametros parametros{{0, u"no"_s}, {1, u"A & B"_s}, {2, u"4"_s}, {6, u"3"_s}};
        nv::DatosInforme datos = filas(3, u"<b>{{1}}"_s);
        datos.filas[2].removeLast(); // an empty amount stays so
        QCOMPARE(plantilla.pagina(parametros, datos, 0, 1, true),
                 u"<h1>A &amp; B</h1>T4[1 &lt;b&gt;{{1}} 10,500].{{"_s);
        QCOMPARE(plantilla.pagina(parametros, datos, 1, 2, false),
                 u"T4[2 &lt;b&gt;{{1}} 10,500][3 &lt;b&gt;{{1}} ].{{"_s);
        QCOMPARE(plantilla.paginaMinima(parametros), u"T4[  ].{{"_s);
        QCOMPARE(plantilla.pie(parametros, 2, 7), u"2/74"_s);
    }

    void report_directory_overrides_the_built_in_layout()
    {
        const QTemporaryDir carpeta;
        QVERIFY2(paginas(carpeta.path(), 300) > 3, "no such file: the layout of the program");
        QDir(carpeta.path()).mkdir(u"Rpt"_s);
        const auto escribir = [&](const char *texto) {
            QFile plantilla(carpeta.filePath(u"Rpt/Articulos Busqueda 2.rpt"_s));
            return plantilla.open(QIODevice::WriteOnly) && plantilla.write(texto) > 0;
        };
        QVERIFY(escribir("<!--fila-->{{Codigo}} <!--/fila-->"));
        QCOMPARE(paginas(carpeta.path(), 300), 1);
        for (const char *sinFilas : {"nada", "<!--fila-->{{Codigo}}"}) {
            QVERIFY(escribir(sinFilas));
            QVERIFY(falla([&] { nv::Informe(carpeta.path(), Fichero); }));
        }
        QVERIFY(falla([] { nv::Informe({}, u"\\Rpt\\Otro.rpt"_s); }));
    }

    void every_row_finds_its_page()
    {
        const QString larga = u"TORNILLO LARGO "_s;
        const std::tuple<int, QString, int, int> casos[] = {// rows, their text, fewest and most pages
                                                            {0, {}, 1, 1},
                                                            {1, larga, 1, 1},
                                                            {400, u"TORNILLO"_s, 9, 11},
                                                            {40, larga.repeated(40), 7, 9},
                                                            {2, larga.repeated(900), 2, 2}};
        for (const auto &[cuantas, descripcion, minimo, maximo] : casos) {
            const qsizetype halladas = paginas({}, cuantas, descripcion);
            QVERIFY2(halladas >= minimo && halladas <= maximo, qPrintable(QString::number(halladas)));
        }
        for (const int veces : {1, 3, 70}) { // stopped while it is laid out, or painted
            int hechas = 0;
            QCOMPARE(paginas({}, 1500, u"T"_s, [&] { return ++hechas < veces; }), -1);
            QCOMPARE(hechas, veces);
        }
    }

    void file_comes_into_being_once_the_whole_report_is_in_it()
    {
        const QTemporaryDir carpeta;
        for (const auto &[detener, tecla] :
             {std::pair{true, Qt::Key_Return}, {false, Qt::Key_Return}, {false, Qt::Key_Escape}}) {
            Ventana ventana;
            Conductor conductor;
            conductor.con<QFileDialog>([&](QFileDialog &d) {
                auto *caja = d.findChild<QLineEdit *>();
                QCOMPARE(caja->text(), u"Listado.pdf"_s);
                caja->setText(carpeta.filePath(u"salida"_s));
                QTest::keyClick(caja, tecla);
            });
            nv::DestinoInforme destino(&ventana, u"Listado"_s);
            QCOMPARE(destino.elegido(), tecla == Qt::Key_Return);
            if (!destino.elegido())
                continue;
            nv::Informe informe({}, Fichero);
            informe.setDatos(filas(detener ? 3000 : 60, u"TORNILLO"_s));
            if (detener)
                conductor.con<QProgressDialog>([](QProgressDialog &d) { d.cancel(); });
            QCOMPARE(destino.imprimir(informe, &ventana), !detener);
            QCOMPARE(QFile::exists(carpeta.filePath(u"salida.pdf"_s)), !detener);
        }
    }

private:
    nv::DatosInforme filas(int cuantas, const QString &descripcion) const
    {
        nv::DatosInforme datos{{u"Codigo"_s, u"Descripcion"_s, u"Pvp1_Num"_s}, {}};
        for (int i = 1; i <= cuantas; ++i)
            datos.filas.push_back({QString::number(i), descripcion, u"10.5"_s});
        return datos;
    }
    /// Of a PDF; -1 when it was stopped, -2 when the progress is not told as it should.
    qsizetype paginas(
        const QString &directorio, int cuantas, const QString &descripcion = u"TORNILLO"_s,
        const std::function<bool()> &sigue = [] { return true; }) const
    {
        nv::Informe informe(directorio, Fichero);
        informe.setDatos(filas(cuantas, descripcion));
        QBuffer pdf;
        pdf.open(QIODevice::WriteOnly);
        QPdfWriter papel(&pdf);
        papel.setPageOrientation(QPageLayout::Landscape);
        int ultimo = 0;
        bool avanza = true;
        const bool acabado = informe.imprimir(papel, [&](int hecho, int total) {
            avanza = avanza && hecho >= std::exchange(ultimo, hecho) && hecho <= total && total == 2 * cuantas;
            return sigue();
        });
        return !acabado ? -1 : !avanza ? -2 : pdf.data().count("/Type /Page\n");
    }
};

NV_PRUEBA(tst_Informe)
#include "tst_informe.moc"
