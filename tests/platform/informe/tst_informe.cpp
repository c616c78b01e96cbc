#include "platform/informe/Destino.h"
#include "support/Ventana.h"

#include <QBuffer>
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
    const QString Fichero = u"\\Articulos Busqueda 2.rpt"_s;

private Q_SLOTS:
    void template_writes_parameters_rows_and_page_numbers()
    {
        const nv::Plantilla hoja(
            u"<!--primera-->H{{1}}<!--/primera-->T{{2}}{{x}}<!--fila-->[{{Codigo}} {{Descripcion}} "
            u"{{Pvp1_Num:6}}{{9}}]<!--/fila-->.{{<!--pie-->{{pagina}}/{{paginas}}{{2}}<!--/pie-->"_s);
        const nv::Plantilla::Parametros con{{0, u"no"_s}, {1, u"A & B"_s}, {2, u"4"_s}, {6, u"3"_s}};
        nv::DatosInforme datos = filas(3, u"<{{1}}"_s);
        datos.filas[2] = {u"3"_s, u"x"_s}; // an empty amount stays so
        QCOMPARE(hoja.pagina(con, datos, 0, 1, true), u"HA &amp; BT4[7 &lt;{{1}} 10,500].{{"_s);
        QCOMPARE(hoja.pagina(con, datos, 1, 2, false) + hoja.pie(con, 2, 7), u"T4[7 &lt;{{1}} 10,500][3 x ].{{2/74"_s);
    }

    void report_directory_overrides_the_built_in_layout()
    {
        const QTemporaryDir carpeta;
        QVERIFY2(paginas(carpeta.path(), 300) > 3, "no such file: the layout of the program");
        for (const char *texto : {"nada", "<!--fila-->{{Codigo}}", "<!--fila-->{{Codigo}} <!--/fila-->"}) {
            QFile plantilla(carpeta.filePath(u"Articulos Busqueda 2.rpt"_s));
            QVERIFY(plantilla.open(QIODevice::WriteOnly) && plantilla.write(texto) > 0 && plantilla.flush());
            QCOMPARE(falla([&] { QCOMPARE(paginas(carpeta.path(), 300), 1); }), plantilla.size() < 30);
        }
        QFile ajena(carpeta.filePath(u"Articulos Busqueda 2.rpt"_s));
        QVERIFY(ajena.open(QIODevice::WriteOnly) && ajena.write(QByteArray("RPT\0\x8f\0", 6)) == 6 && ajena.flush());
        QVERIFY2(paginas(carpeta.path(), 300) > 3, "another engine's: again that of the program");
        QVERIFY(falla([] { nv::Informe({}, u"\\Otro.rpt"_s); }));
    }

    void every_row_finds_its_page()
    {
        // Rows, how long they are, when it is stopped (while it is laid out, or painted); fewest and most pages.
        const int casos[][5] = {{0, 1, -1, 1, 1},    {1, 1, -1, 1, 1},   {400, 1, -1, 9, 11}, {40, 60, -1, 7, 12},
                                {2, 1400, -1, 2, 2}, {1500, 0, 1, 0, 0}, {1500, 0, 3, 0, 0},  {1500, 0, 70, 0, 0}};
        for (const auto &[cuantas, veces, llamadas, minimo, maximo] : casos) {
            const int halladas = paginas({}, cuantas, u"TORNILLO "_s.repeated(veces), llamadas);
            QVERIFY2(halladas >= minimo && halladas <= maximo, qPrintable(QString::number(halladas)));
        }
    }

    void file_comes_into_being_once_the_whole_report_is_in_it()
    {
        const QTemporaryDir carpeta;
        Conductor conductor;
        for (const bool entero : {false, true}) {
            conductor.con<QFileDialog>([&](QFileDialog &d) {
                QVERIFY(d.selectedFiles()[0].endsWith(u"/Listado.pdf"));
                d.findChild<QLineEdit *>()->setText(carpeta.filePath(u"salida"_s));
                QTest::keyClick(d.findChild<QLineEdit *>(), Qt::Key_Return);
            });
            nv::DestinoInforme destino(nullptr, u"Listado"_s);
            nv::Informe informe({}, Fichero);
            informe.setDatos(filas(entero ? 60 : 3000, {}));
            if (!entero)
                conductor.con<QProgressDialog>([](QProgressDialog &d) { d.cancel(); });
            QVERIFY(destino.elegido() && destino.imprimir(informe, nullptr) == entero);
            QCOMPARE(QFile::exists(carpeta.filePath(u"salida.pdf"_s)), entero);
        }
        conductor.con<QFileDialog>([](QFileDialog &d) { d.reject(); });
        QVERIFY(!nv::DestinoInforme(nullptr, {}).elegido());
    }

private:
    static nv::DatosInforme filas(int cuantas, const QString &texto)
    {
        const QStringList fila{u"7"_s, texto, u"10.5"_s};
        return {{u"Codigo"_s, u"Descripcion"_s, u"Pvp1_Num"_s}, std::vector(std::size_t(cuantas), fila)};
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
        const bool acabado = informe.imprimir(papel, [&, ultimo = 0](int hecho, int total) mutable {
            return --llamadas != 0 && hecho >= std::exchange(ultimo, hecho) && hecho <= total && total == 2 * cuantas;
        });
        return acabado ? static_cast<int>(pdf.data().count("/Type /Page\n")) : llamadas;
    }
};

NV_PRUEBA(tst_Informe)
#include "tst_informe.moc"
