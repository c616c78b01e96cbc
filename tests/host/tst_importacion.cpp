#include "catalogo/Catalogo.h"
#include "importacion/Csv.h"
#include "importacion/Importacion.h"
#include "nvArticulo/Error.h"
#include "support/BaseDatos.h"
#include "support/Programa.h"

#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace mostrador;
using namespace nv;

/// Items brought in from a file.
class tst_Importacion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_base = std::make_unique<pruebas::BaseDatos>(); }

    void records_are_cut_as_the_format_says()
    {
        QStringList leidos;
        for (const QByteArray texto :
             {"a,\"b,\"\"c\"\"\n d\"\r\n,\r\nx,\"\"\n", "\xEF\xBB\xBF a, \xC3\xB1", "\n\r\na\n\nb,"})
            for (const RegistroCsv &registro : leerCsv(texto))
                leidos << u"%1:%2"_s.arg(registro.linea).arg(registro.campos.join(u'|'));
        QCOMPARE(leidos.join(u'/'), u"1:a|b,\"c\"\n d/3:|/4:x|/1: a| ñ/3:a/5:b|"_s);
    }

    void an_empty_catalogue_gets_its_company_and_numbers_are_converted()
    {
        QCOMPARE(importar(" Name,barcode,codigo,pvp,otra\nL'Or,8412345678905,00012,\"1.234,50\",x\n Piña ,,,2.5,\n"
                          "Otro,8412345678912,,,\n"),
                 u"Leídas 3, importadas 3, repetidas 0, con el dígito de control erróneo 0."_s);
        QCOMPARE(filas(u"a.Codigo, Descripcion, Desc_Ticket, Cod_Barras, b.Principal, b.Unidades, Pvp FROM Articulos a "
                       u"LEFT JOIN Articulos_CBarras b ON b.Cod_Articulo = a.Codigo LEFT JOIN Articulos_Tarifas t ON "
                       u"t.Cod_Articulo = a.Codigo AND Cod_Tarifa = 1 ORDER BY a.Codigo"_s),
                 u"1|Piña|Piña|NULL|NULL|NULL|2.5 2|Otro|Otro|8412345678912|1|1|NULL "
                 u"12|L'Or|L'Or|8412345678905|1|1|1234.5"_s);
    }

    void duplicates_are_left_out_and_what_is_odd_is_told()
    {
        generarCatalogo(m_base->conexion(), {30, Dia, {}, {}});
        QCOMPARE(importar("barcode,name,codigo\n8412345678905,ya existe,\n8400000000017,primero,\n8400000000017,x,\n"
                          "8400000000025,digito,\n,ocupado,12\n" +
                          QByteArray(30, '7') + "," + QByteArray(151, 'x') + ",40\n,otra vez,40\n"),
                 u"Leídas 7, importadas 3, repetidas 4, con el dígito de control erróneo 2."_s);
        QCOMPARE(m_avisos, u"Línea 2 Línea 4 Línea 5 Línea 6 Línea 7 Línea 7 Línea 8"_s);
        QCOMPARE(filas(u"Codigo, LEN(Descripcion), LEN(Desc_Ticket) FROM Articulos WHERE Codigo > 30 ORDER BY 1"_s),
                 u"31|7|7 32|6|6 40|150|24"_s);
    }

    void a_file_that_cannot_be_read_to_its_end_leaves_nothing()
    {
        QByteArray cien("barcode,name,codigo,pvp\n");
        for (int i = 0; i < 100; ++i) // more than one batch
            cien += "B" + QByteArray::number(i) + ",x,,\n";
        const QList<std::pair<QByteArray, QString>> casos{
            {cien + "8400000000024\n", u"Línea 102: hay 1 campos"_s},
            {cien + "\"8400000000024,x,,\n", u"Línea 102: hay unas comillas sin cerrar"_s},
            {cien + "84\"\",x,,\n", u"Línea 102: hay unas comillas fuera de sitio"_s},
            {cien + "8400000000024,x,12a,\n", u"«12a» no es un código"_s},
            {cien + ",x,0,\n", u"«0» no es un código"_s},
            {cien + ",x,,caro\n", u"«caro» no es un precio"_s},
            {cien + "8400000000024, ,,\n", u"nombre"_s},
            {cien + QByteArray(31, '7') + ",x,,\n", u"más de 30 caracteres"_s},
            {cien + "\xF1,x,,\n", u"UTF-8"_s},
            {"\n\n", u"vacío"_s},
            {"name,pvp\nx,1\n", u"«barcode» y «name»"_s}};
        for (const auto &[csv, motivo] : casos) {
            try {
                importar(csv);
                QFAIL(qPrintable(motivo));
            } catch (const Error &error) {
                QVERIFY2(error.descripcion.contains(motivo), qPrintable(error.descripcion));
            }
            QVERIFY(!tieneEmpresa(m_base->conexion()) && !m_base->conexion().enTransaccion());
            QCOMPARE(filas(u"COUNT(*) FROM Articulos"_s), u"0"_s);
        }
    }

private:
    QString importar(const QByteArray &csv)
    {
        const ResultadoImportacion resultado = importarCsv(m_base->conexion(), csv, Dia);
        m_avisos = QStringList(resultado.avisos).replaceInStrings(QRegularExpression(u":.*"_s), {}).join(u' ');
        return resultado.resumen();
    }
    QString filas(const QString &consulta) { return m_base->filas(u"SELECT "_s + consulta).join(u' '); }

    const QDate Dia{2026, 11, 22};
    std::unique_ptr<pruebas::BaseDatos> m_base;
    QString m_avisos;
};

NV_PRUEBA(tst_Importacion)
#include "tst_importacion.moc"
