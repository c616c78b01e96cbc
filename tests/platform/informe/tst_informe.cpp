#include "nvArticulo/Error.h"
#include "platform/informe/Destino.h"
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

class tst_Informe : public QObject
{
    Q_OBJECT

    const QString Fichero = u"\\Rpt\\Articulos Busqueda 2.rpt"_s;

private Q_SLOTS:
    void template_writes_parameters_rows_and_page_numbers()
    {
        const nv::Plantilla plantilla(u"<!--primera--><h1>{{1}}</h1><!--/primera-->T{{2}}{{x}}"
                                      u"<!--fila-->[{{Codigo}} {{Descripcion}} {{Pvp1_Num:6}}{{9}}]<!--/fila-->.{{"
                                      u"<!--pie-->{{pagina}}/{{paginas}}{{2}}<!--/pie-->"_s);
        const nv::Plantilla::Parametros parametros{{0, u"no"_s}, {1, u"A & B"_s}, {2, u"4"_s}, {6, u"3"_s}};
        nv::DatosInforme datos = filas(3, u"<{{1}}"_s);
        datos.filas[2].removeLast(); // an empty amount stays so
        QCOMPARE(plantilla.pagina(parametros, datos, 0, 1, true), u"<h1>A &amp; B</h1>T4[1 &lt;{{1}} 10,500].{{"_s);
        QCOMPARE(plantilla.pagina(parametros, datos, 1, 2, false), u"T4[2 &lt;{{1}} 10,500][3 &lt;{{1}} ].{{"_s);
        QCOMPARE(plantilla.paginaMinima(parametros), u"T4[  ].{{"_s);
        QCOMPARE(plantilla.pie(parametros, 2, 7), u"2/74"_s);
    }

    void report_directory_overrides_the_built_in_layout()
    {
        const QTemporaryDir carpeta;
        QVERIFY2(paginas(carpeta.path(), 300) > 3, "no such file: the layout of the program");
        QDir(carpeta.path()).mkdir(u"Rpt"_s);
        for (const char *texto : {"nada", "<!--fila-->{{Codigo}}", "<!--fila-->{{Codigo}} <!--/fila-->"}) {
            QFile plantilla(carpeta.filePath(u"Rpt/Articulos Busqueda 2.rpt"_s));
            QVERIFY(plantilla.open(QIODevice::WriteOnly) && plantilla.write(texto) > 0);
            plantilla.close();
            QCOMPARE(falla([&] { QCOMPARE(paginas(carpeta.path(), 300), 1); }),
                     !QByteArray(texto).endsWith("/fila-->"));
        }
        QVERIFY(falla([] { nv::Informe({}, u"\\Rpt\\Otro.rpt"_s); }));
    }

    void every_row_finds_its_page()
    {
        // Rows, how long they are, fewest and most pages.
        const int casos[][4] = {{0, 1, 1, 1}, {1, 1, 1, 1}, {400, 1, 9, 11}, {40, 60, 7, 12}, {2, 1400, 2, 2}};
        for (const auto &[cuantas, veces, minimo, maximo] : casos) {
            const int halladas = paginas({}, cuantas, u"TORNILLO "_s.repeated(veces));
            QVERIFY2(halladas >= minimo && halladas <= maximo, qPrintable(QString::number(halladas)));
        }
        for (const int llamadas : {1, 3, 70}) // stopped while it is laid out, or painted
            QCOMPARE(paginas({}, 1500, {}, llamadas), 0);
    }

    void file_comes_into_being_once_the_whole_report_is_in_it()
    {
        const QTemporaryDir carpeta;
        for (const Qt::Key tecla : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter}) {
            const bool detener = tecla == Qt::Key_Return;
            Ventana ventana;
            Conductor conductor;
            conductor.con<QFileDialog>([&](QFileDialog &d) {
                auto *caja = d.findChild<QLineEdit *>();
                QCOMPARE(caja->text(), u"Listado.pdf"_s);
                caja->setText(carpeta.filePath(u"salida"_s));
                QTest::keyClick(caja, tecla);
            });
            nv::DestinoInforme destino(&ventana, u"Listado"_s);
            QCOMPARE(destino.elegido(), tecla != Qt::Key_Escape);
            nv::Informe informe({}, Fichero);
            informe.setDatos(filas(detener ? 3000 : 60, {}));
            if (detener)
                conductor.con<QProgressDialog>([](QProgressDialog &d) { d.cancel(); });
            QVERIFY(!destino.elegido() || destino.imprimir(informe, &ventana) != detener);
            QCOMPARE(QFile::exists(carpeta.filePath(u"salida.pdf"_s)), tecla == Qt::Key_Enter);
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
    /// Of a PDF; 0 when it was stopped, as by a progress that is not told as it should.
    int paginas(const QString &directorio, int cuantas, const QString &descripcion = {}, int llamadas = -1) const
    {
        nv::Informe informe(directorio, Fichero);
        informe.setDatos(filas(cuantas, descripcion));
        QBuffer pdf;
        pdf.open(QIODevice::WriteOnly);
        QPdfWriter papel(&pdf);
        papel.setPageOrientation(QPageLayout::Landscape);
        int ultimo = 0;
        const bool acabado = informe.imprimir(papel, [&](int hecho, int total) {
            return --llamadas != 0 && hecho >= std::exchange(ultimo, hecho) && hecho <= total && total == 2 * cuantas;
        });
        return acabado && llamadas < 0 ? static_cast<int>(pdf.data().count("/Type /Page\n")) : llamadas;
    }
};

NV_PRUEBA(tst_Informe)
#include "tst_informe.moc"
