#include "catalogo/Catalogo.h"

#include "barcodes/Ean.h"
#include "nvArticulo/Error.h"
#include "support/BaseDatos.h"
#include "support/Programa.h"

#include <QCryptographicHash>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace nv;
using namespace nv::pruebas;
using namespace mostrador;

const QDate Dia(2026, 3, 31);

/// The demonstration catalogue.
class tst_Catalogo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(generarCatalogo(m_base.conexion(), {2000, Dia, {}, {}})); }

    /// Scripts and manuals name items by their codes, whatever machine and size. Who changes the catalogue on purpose
    /// looks at what else has to follow, and puts the new sum here.
    void masters_and_the_first_items_are_the_same_everywhere()
    {
        BaseDatos menor;
        generarCatalogo(menor.conexion(), {500, Dia, {}, {}});
        QString todo;
        for (const QString &tabla : menor.filas(u"SELECT name FROM sqlite_master WHERE type = 'table' AND "
                                                u"name NOT LIKE 'nv[_]%' ORDER BY name"_s)) {
            const QStringList columnas = menor.filas(u"SELECT name FROM pragma_table_info('%1')"_s.arg(tabla));
            const QString cual = columnas.contains(u"Cod_Articulo"_s) ? u"Cod_Articulo"_s
                                 : tabla == u"Articulos"              ? u"Codigo"_s
                                                                      : u"0"_s;
            QStringList filas = menor.filas(u"SELECT * FROM "_s + tabla);
            QStringList otras = m_base.filas(u"SELECT * FROM %1 WHERE %2 <= 500"_s.arg(tabla, cual));
            filas.sort();
            otras.sort();
            QCOMPARE(otras, filas);
            todo += tabla + filas.join(u'\n');
        }
        QCOMPARE(QCryptographicHash::hash(todo.toUtf8(), QCryptographicHash::Sha1).toHex(),
                 "a59db575df2efecab4d399b2db620199b9f7e652"_ba);
    }

    void samples_open_what_they_are_there_for()
    {
        const QList<std::pair<QString, QString>> consultas{
            {u"Cod_Articulo, Cod_Prov FROM Articulos_Ref WHERE Ref = 'ABC'"_s, u"3|7 4|9"_s},
            {u"Cod_Prov, Principal FROM Articulos_Ref WHERE Cod_Articulo = 5 ORDER BY 1"_s, u"7|1 9|0"_s},
            {u"Cod_Articulo FROM Articulos_RefCli WHERE Ref = 'CLI-1'"_s, u"5 6"_s},
            {u"Cod_Articulo, Dpto FROM Balanzas_Articulos WHERE Plu = 30"_s, u"21|1 22|2"_s},
            {u"Codigo FROM Articulos WHERE MotivoBaja + Bloqueado + BajoPedido > 0 AND Codigo < 31"_s, u"13 14 15"_s},
            {u"CualidadX, CualidadY FROM Articulos WHERE Codigo IN (1, 30)"_s, u"0|0 1|2"_s},
            {u"COUNT(DISTINCT Cod_Ejercicio * 12 + Mes) FROM Almacen_Acumulados"_s, u"14"_s},
            {u"COUNT(*) FROM Articulos a INNER JOIN Familias_3 f ON f.Familia_1 = a.Familia_1 AND f.Familia_2 = "
             u"a.Familia_2 AND f.Codigo = a.Familia_3 INNER JOIN Marcas m ON m.Codigo = a.Marca"_s,
             u"2000"_s}};
        for (const auto &[consulta, esperado] : consultas)
            QCOMPARE(m_base.filas(u"SELECT "_s + consulta).join(u' '), esperado);
        for (const QString &codigo : m_base.filas(u"SELECT Cod_Barras FROM Articulos_CBarras"_s))
            QVERIFY2((codigo.size() == 13 || codigo.size() == 8) && ean::esValido(codigo), qPrintable(codigo));
    }

    void it_is_made_once_or_not_at_all()
    {
        QVERIFY_EXCEPTION_THROWN(generarCatalogo(m_base.conexion(), {5, Dia, {}, {}}), Error);
        BaseDatos otra;
        int avisos = 0;
        const auto dejar = [&avisos](int hechos, int total) { return ++avisos && hechos < total / 2; };
        QVERIFY(!generarCatalogo(otra.conexion(), {1000, Dia, {}, dejar}));
        QVERIFY(avisos == 2 && !tieneEmpresa(otra.conexion()) && !otra.conexion().enTransaccion());
    }

    void pictures_are_drawn_where_the_company_says()
    {
        const QTemporaryDir carpeta;
        BaseDatos base;
        generarCatalogo(base.conexion(), {70, Dia, carpeta.filePath(u"imágenes"_s), {}});
        const QString dir = base.filas(u"SELECT DirImagenArt FROM Empresas"_s).constFirst();
        for (const int codigo : {1, 7, 14, 30, 60, 61})
            QCOMPARE(!QImage(dir + u"%1.jpg"_s.arg(codigo)).isNull(), codigo % 7 != 0 && codigo <= 60);
    }

private:
    BaseDatos m_base;
};

NV_PRUEBA(tst_Catalogo)
#include "tst_catalogo.moc"
