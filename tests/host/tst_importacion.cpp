#include "catalogo/Catalogo.h"
#include "common/Error.h"
#include "importacion/Csv.h"
#include "importacion/Importacion.h"
#include "support/BaseDatos.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace nv;
using namespace nv::pruebas;

namespace {
const QDate Dia(2026, 11, 22);
}

/// Items brought in from a file.
class tst_Importacion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void records_are_cut_as_the_format_says_data()
    {
        QTest::addColumn<QByteArray>("texto");
        QTest::addColumn<QStringList>("registros");
        QTest::newRow("quotes, commas and line breaks inside")
            << QByteArray("a,\"b,\"\"c\"\"\n d\"\r\n,\r\n") << QStringList{u"a|b,\"c\"\n d"_s, u"|"_s};
        QTest::newRow("no final line break, byte order mark, blanks kept") << QByteArray("\xEF\xBB\xBF"
                                                                                         "a, \xC3\xB1 ")
                                                                           << QStringList{u"a| ñ "_s};
        QTest::newRow("empty lines") << QByteArray("\n\na\n\nb\n") << QStringList{u"a"_s, u"b"_s};
    }

    void records_are_cut_as_the_format_says()
    {
        QFETCH(QByteArray, texto);
        QFETCH(QStringList, registros);
        LectorCsv lector(texto);
        QStringList leidos;
        while (const auto registro = lector.siguiente())
            leidos << registro->join(u'|');
        QCOMPARE(leidos, registros);
    }

    void an_empty_catalogue_gets_its_company_and_numbers_are_converted()
    {
        BaseDatos base;
        const ResultadoImportacion resultado = importarCsv(
            base.conexion(),
            QByteArrayLiteral("name,barcode,codigo,pvp\n"
                              "L'Or,8412345678905,00012,\"1.234,50\"\n Piña ,,,2.5\nOtro,8412345678912,,\n"),
            Dia);
        QCOMPARE(resultado.importadas, 3);
        QCOMPARE(base.filas(u"SELECT Codigo, Descripcion FROM Articulos WHERE Cod_Empresa = 1 ORDER BY Codigo"_s),
                 (QStringList{u"1|Piña"_s, u"2|Otro"_s, u"12|L'Or"_s}));
        QCOMPARE(base.filas(u"SELECT Cod_Articulo FROM Articulos_Tarifas WHERE Pvp = 1234.5"_s), QStringList{u"12"_s});
        QCOMPARE(base.filas(u"SELECT Cod_Articulo FROM Articulos_CBarras WHERE Cod_Barras = '8412345678905' AND "
                            u"Principal = 1"_s),
                 QStringList{u"12"_s});
        QVERIFY(tieneEmpresa(base.conexion()));
    }

    void duplicates_are_left_out_and_wrong_digits_reported()
    {
        BaseDatos base;
        generarCatalogo(base.conexion(), {30, Dia, {}, {}});
        const ResultadoImportacion resultado = importarCsv(base.conexion(),
                                                           "barcode,name,codigo\n"
                                                           "8412345678905,ya en el catalogo,\n"
                                                           "8400000000017,primero,\n"
                                                           "8400000000017,repetido,\n"
                                                           "8400000000025,digito,\n"
                                                           ",codigo ocupado,12\n",
                                                           Dia);
        QCOMPARE((QList<int>{resultado.leidas, resultado.importadas, resultado.duplicadas, resultado.digitosErroneos}),
                 (QList<int>{5, 2, 3, 1}));
        QCOMPARE(resultado.avisos.size(), 4);
        QVERIFY(resultado.avisos.at(1).startsWith(u"Línea 4:"));
        QCOMPARE(base.filas(u"SELECT Codigo, Descripcion FROM Articulos WHERE Codigo > 30 ORDER BY Codigo"_s),
                 (QStringList{u"31|primero"_s, u"32|digito"_s}));
    }

    void a_file_that_cannot_be_read_to_its_end_leaves_nothing_data()
    {
        QTest::addColumn<QByteArray>("cola");
        QTest::addColumn<QString>("motivo");
        QTest::newRow("too few fields") << QByteArray("8400000000024\n") << u"campos"_s;
        QTest::newRow("quote left open") << QByteArray("\"8400000000024,x,\n") << u"comillas"_s;
        QTest::newRow("code that is no number") << QByteArray("8400000000024,x,12a\n") << u"12a"_s;
        QTest::newRow("without a name") << QByteArray("8400000000024, ,\n") << u"nombre"_s;
        QTest::newRow("not UTF-8") << QByteArray("8400000000024,pi\xF1"
                                                 "a,\n")
                                   << u"UTF-8"_s;
    }

    void a_file_that_cannot_be_read_to_its_end_leaves_nothing()
    {
        QFETCH(QByteArray, cola);
        QFETCH(QString, motivo);
        BaseDatos base;
        QByteArray csv("barcode,name,codigo\n");
        for (int i = 0; i < 100; ++i) // more than one batch
            csv += "B" + QByteArray::number(i) + ",x,\n";
        try {
            importarCsv(base.conexion(), csv + cola, Dia);
            QFAIL("nothing was thrown");
        } catch (const Error &error) {
            QVERIFY2(error.descripcion.contains(motivo), qPrintable(error.descripcion));
        }
        QVERIFY(!tieneEmpresa(base.conexion()));
        QCOMPARE(base.filas(u"SELECT COUNT(*) FROM Articulos"_s), QStringList{u"0"_s});
        QVERIFY(!base.conexion().enTransaccion());
    }

    void real_products_come_in_with_their_four_wrong_digits_and_one_duplicate()
    {
        QFile archivo(QStringLiteral(NV_RAIZ "/../shared/data/productos_reales.csv"));
        if (!archivo.open(QIODevice::ReadOnly))
            QSKIP("the file of real products is not here");
        BaseDatos base;
        const ResultadoImportacion resultado = importarCsv(base.conexion(), archivo.readAll(), Dia);
        QCOMPARE((QList<int>{resultado.leidas, resultado.importadas, resultado.duplicadas, resultado.digitosErroneos}),
                 (QList<int>{5422, 5421, 1, 4}));
        QCOMPARE(base.filas(u"SELECT COUNT(*) FROM Articulos_CBarras"_s), QStringList{u"5421"_s});
    }
};

QTEST_MAIN(tst_Importacion)
#include "tst_importacion.moc"
