#include "platform/datos/Apertura.h"
#include "platform/datos/Cotejo.h"
#include "platform/datos/Dialecto.h"
#include "platform/datos/Funciones.h"
#include "platform/datos/Motores.h"
#include "platform/datos/Trigramas.h"
#include "support/BaseDatos.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

#include <sqlite3.h>

using namespace Qt::StringLiterals;
using nv::datos::Criba;
using nv::pruebas::filasDe;

namespace {

QString doblado(QString texto)
{
    return texto.replace(u'\'', u"''"_s);
}

/// What a search sends: a word in any of the texts of an item.
QString cualquiera(const QString &patron, const QString &deMarca = {})
{
    return u"SELECT DISTINCT a.Codigo FROM Articulos a LEFT JOIN Articulos_Ref ar ON ar.Cod_Empresa = a.Cod_Empresa"
           u" AND ar.Cod_Articulo=a.Codigo LEFT JOIN Articulos_CBarras acb ON acb.Cod_Empresa = a.Cod_Empresa"
           u" AND acb.Cod_Articulo=a.Codigo LEFT JOIN Marcas m ON m.Codigo = a.Marca WHERE a.Cod_Empresa =2 AND"
           u" ( (ISNULL(a.Descripcion,'') LIKE '%1') OR (ISNULL(ar.Ref,'') LIKE '%1')"
           u" OR (ISNULL(acb.Cod_Barras,'') LIKE '%1') OR (ISNULL(m.Nombre, '') LIKE '%2')"
           u" OR (ISNULL(a.Codigo,0) LIKE '%1')) ORDER BY a.Codigo"_s.arg(doblado(patron),
                                                                          doblado(deMarca.isNull() ? patron : deMarca));
}

/// The same, in a form for which no sieve is known.
QString sinCriba(QString consulta)
{
    return consulta.replace(u" AND ( ("_s, u" AND (1=0 OR ("_s);
}

} // namespace

class PruebaTrigramas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sieve_is_set_where_it_is_implied();
    void sieve_loses_nothing();
    void changes_are_seen_at_once();
    void many_candidates_keep_the_order();
    void catalogue_without_index_is_given_one();
};

void PruebaTrigramas::sieve_is_set_where_it_is_implied()
{
    const auto cribada = [](const QString &consulta) {
        return nv::datos::adaptar(nv::datos::plantilla(consulta).forma).cribables.has_value();
    };
    QVERIFY(cribada(cualquiera(u"%TUB%"_s)));
    QVERIFY(!cribada(sinCriba(cualquiera(u"%TUB%"_s))));
    const QString base = u"SELECT a.Codigo FROM Articulos a WHERE a.Cod_Empresa=1 AND "_s;
    QVERIFY(cribada(base + u"a.Descripcion LIKE '%TUB%' ORDER BY a.Descripcion"_s));
    QVERIFY(cribada(base + u"a.Familia_1 BETWEEN 1 AND 3 AND (a.Descripcion LIKE '%TUB%')"_s));
    for (const QString &condicion :
         {u"a.Descripcion LIKE 'TUB%'"_s, u"a.Descripcion LIKE '%TUB%' OR a.Codigo = 3"_s,
          u"(a.Descripcion LIKE '%TUB%' OR a.Desc_Memo LIKE '%TUB%')"_s, u"NOT a.Descripcion LIKE '%TUB%'"_s,
          u"a.Descripcion NOT LIKE '%TUB%'"_s, u"(a.Descripcion LIKE '%TUB%' AND a.Codigo = 3 OR a.Codigo = 4)"_s,
          u"a.Codigo IN (SELECT Codigo FROM Articulos b WHERE b.Descripcion LIKE '%TUB%')"_s})
        QVERIFY2(!cribada(base + condicion), qPrintable(condicion));
    const QString otra = u"SELECT a.Codigo FROM Articulos a LEFT JOIN Articulos_Ref ar ON %1 WHERE a.Cod_Empresa=1"
                         u" AND ar.Ref LIKE '%TUB%'"_s;
    QVERIFY(cribada(otra.arg(u"a.Codigo = ar.Cod_Articulo AND a.Cod_Empresa = ar.Cod_Empresa"_s)));
    QVERIFY(!cribada(otra.arg(u"ar.Cod_Articulo = a.Codigo AND ar.Cod_Empresa = 7"_s)));
    QVERIFY(!cribada(otra.arg(u"ar.Cod_Articulo = a.Marca AND ar.Cod_Empresa = a.Cod_Empresa"_s)));
    QVERIFY(!cribada(u"SELECT a.Codigo FROM Articulos a WHERE a.Descripcion LIKE '%TUB%'"_s));
}

void PruebaTrigramas::sieve_loses_nothing()
{
    nv::pruebas::BaseDatos base;
    QRandomGenerator azar(20261123);
    const QStringList piezas{u"TUBO"_s,    u"tubería"_s, u"Ñandú"_s, u"L'ORÉAL"_s, u"1/2\""_s, u"50%"_s,
                             u"A_B"_s,     u"[XYT]"_s,   u"ÀÈÌ"_s,   u"ß÷×"_s,     u"жук"_s,   u"漢字仮"_s,
                             u"e\u0301"_s, u"  "_s,      u"84100"_s, u"\n"_s,      u"Ÿÿµ"_s,   u"-12,5-"_s};
    const auto texto = [&](int hasta) {
        QString uno;
        for (int i = azar.bounded(hasta + 1); i > 0; --i)
            uno += piezas[azar.bounded(piezas.size())] + (azar.bounded(2) ? u" "_s : QString());
        return uno;
    };
    const auto hacerFilas = [&](int desde, int hasta) {
        for (int i = desde; i < hasta; ++i) {
            const QString empresa = QString::number(1 + i % 3);
            const QString codigo = QString::number(i * 97);
            // All at once: the texts hold "%" and a digit themselves.
            base.ejecutar(
                u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion, Marca) VALUES (%1, %2, %3, %4)"_s.arg(
                    empresa, codigo, i % 17 ? u'\'' + doblado(texto(4)) + u'\'' : u"NULL"_s, QString::number(i % 5)));
            for (int j = azar.bounded(3); j > 0; --j)
                base.ejecutar(
                    u"INSERT INTO Articulos_Ref (Cod_Empresa, Ref, Cod_Prov, Cod_Articulo)"
                    u" VALUES (%1, '%2', %3, %4)"_s.arg(empresa, doblado(texto(2)), QString::number(j), codigo));
            if (i % 2)
                base.ejecutar(
                    u"INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Barras, Cod_Articulo)"
                    u" VALUES (%1, '84%2', %3)"_s.arg(empresa, QString::number(azar.bounded(1000000)), codigo));
        }
    };
    for (int i = 0; i < 4; ++i)
        base.ejecutar(
            u"INSERT INTO Marcas (Codigo, Nombre) VALUES (%1, '%2')"_s.arg(QString::number(i), doblado(texto(2))));
    {
        nv::Transaccion transaccion(base.conexion());
        hacerFilas(0, 400);
        transaccion.confirmar();
    }
    hacerFilas(400, 420);

    int conFilas = 0;
    for (int i = 0; i < 1500; ++i) {
        QString patron = texto(2);
        switch (azar.bounded(4)) {
        case 0:
            patron = patron.toLower();
            break;
        case 1:
            patron = patron.mid(azar.bounded(2), azar.bounded(1, 8));
            break;
        case 2:
            patron.insert(azar.bounded(static_cast<int>(patron.size()) + 1), u"%_[]"_s[azar.bounded(4)]);
            break;
        default:
            break;
        }
        const QString consulta = cualquiera(u'%' + patron + u'%', i % 3 ? QString() : u'%' + texto(1) + u'%');
        const QStringList filas = base.filas(consulta);
        conFilas += filas.isEmpty() ? 0 : 1;
        QVERIFY2(filas == base.filas(sinCriba(consulta)), qPrintable(patron));
    }
    QVERIFY2(conFilas > 300, qPrintable(QString::number(conFilas)));
}

void PruebaTrigramas::changes_are_seen_at_once()
{
    nv::pruebas::BaseDatos base;
    const auto hallados = [&](const QString &palabra) {
        return base.filas(cualquiera(u'%' + palabra + u'%')).join(u' ');
    };
    {
        nv::Transaccion transaccion(base.conexion());
        for (int i = 1; i <= 40; ++i)
            base.ejecutar(u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion, Marca)"
                          u" VALUES (2, %1, 'GRIFO %1', %1)"_s.arg(i));
        QCOMPARE(hallados(u"GRIFO 17"_s), u"17"_s);
        transaccion.confirmar();
    }
    base.ejecutar({u"UPDATE Articulos SET Descripcion='LLAVE' WHERE Cod_Empresa=2 AND Codigo=17"_s,
                   u"INSERT INTO Articulos_Ref (Cod_Empresa, Ref, Cod_Prov, Cod_Articulo) VALUES (2, 'REF-9', 1, 18)"_s,
                   u"INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Barras, Cod_Articulo) VALUES (2, '8412', 19)"_s,
                   u"INSERT INTO Marcas (Codigo, Nombre) VALUES (20, 'ACME')"_s});
    QCOMPARE(hallados(u"GRIFO 17"_s), QString());
    QCOMPARE(hallados(u"LLAVE"_s), u"17"_s);
    QCOMPARE(hallados(u"ref-9"_s), u"18"_s);
    QCOMPARE(hallados(u"841"_s), u"19"_s);
    QCOMPARE(hallados(u"acm"_s), u"20"_s);
    {
        // Enough of them for the index to be written, and undone with the rest.
        nv::Transaccion transaccion(base.conexion());
        base.ejecutar(u"UPDATE Articulos SET Descripcion='CODO' WHERE Cod_Empresa=2 AND Codigo < 40"_s);
        QCOMPARE(base.filas(cualquiera(u"%CODO%"_s)).size(), 39);
    }
    QCOMPARE(hallados(u"CODO"_s), QString());
    QVERIFY(base.filas(u"SELECT COUNT(*) FROM nv_Pendientes"_s) != QStringList{u"0"_s});
    base.ejecutar(u"UPDATE Articulos SET Descripcion='TAPA' WHERE Cod_Empresa=2 AND Codigo < 40"_s);
    QCOMPARE(base.filas(u"SELECT COUNT(*) FROM nv_Pendientes"_s), QStringList{u"0"_s});
    QCOMPARE(base.filas(cualquiera(u"%TAPA%"_s)).size(), 39);
    {
        nv::Transaccion transaccion(base.conexion());
        base.ejecutar({u"UPDATE Articulos SET Codigo=Codigo + 1000 WHERE Cod_Empresa=2 AND Codigo > 18"_s,
                       u"UPDATE Articulos_Ref SET Ref='OTRA' WHERE Cod_Empresa=2 AND Ref='REF-9'"_s,
                       u"DELETE FROM Articulos WHERE Cod_Empresa=2 AND Codigo=5"_s});
        transaccion.confirmar();
    }
    QCOMPARE(hallados(u"ref-9"_s), QString());
    QCOMPARE(hallados(u"otra"_s), u"18"_s);
    QCOMPARE(hallados(u"acm"_s), u"1020"_s);
    QCOMPARE(hallados(u"841"_s), QString());
    QCOMPARE(base.filas(u"SELECT COUNT(*) FROM nv_Pendientes"_s), QStringList{u"0"_s});
    QCOMPARE(base.filas(u"SELECT COUNT(*) FROM nv_Textos"_s), QStringList{u"39"_s});
}

void PruebaTrigramas::many_candidates_keep_the_order()
{
    nv::pruebas::BaseDatos base;
    nv::Transaccion transaccion(base.conexion());
    for (int i = 1; i <= 900; ++i)
        base.ejecutar(u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion) VALUES (1, %1, '%2 %3')"_s.arg(i)
                          .arg(1000 - i)
                          .arg(i % 3 ? u"TUERCA"_s : u"PERNO"_s));
    transaccion.confirmar();
    const auto primeros = [&](const QString &palabra) {
        return base.filas(u"SELECT TOP 3 a.Codigo FROM Articulos a WHERE a.Cod_Empresa=1 AND a.Descripcion LIKE '%"_s +
                          palabra + u"%' ORDER BY a.Descripcion"_s);
    };
    // Above and below the number from which items are no longer sought one by one.
    QCOMPARE(primeros(u"tuerca"_s), (QStringList{u"899"_s, u"898"_s, u"896"_s}));
    QCOMPARE(primeros(u"perno"_s), (QStringList{u"900"_s, u"897"_s, u"894"_s}));
    QCOMPARE(primeros(u"tornillo"_s), QStringList());
    const QString todas = u"SELECT COUNT(*) FROM Articulos a WHERE a.Cod_Empresa=%1 AND %2 LIKE '%ERNO%'"_s;
    const auto cuantas = [&](const QString &empresa, const QString &columna) {
        return base.filas(todas.arg(empresa, columna)).join(u' ');
    };
    QCOMPARE(cuantas(u"1.0"_s, u"a.Descripcion"_s), u"300"_s);
    base.ejecutar(u"UPDATE Articulos SET Descripcion=NULL WHERE Codigo < 4"_s);
    QCOMPARE(cuantas(u"1"_s, u"ISNULL(a.Descripcion,'')"_s), u"299"_s);
    QCOMPARE(cuantas(u"1"_s, u"ISNULL(a.Descripcion,'invierno')"_s), u"302"_s);
    QCOMPARE(
        base.ejecutar(u"INSERT INTO Articulos_Buscar (Terminal, Cod_Articulo) SELECT '7', a.Codigo FROM Articulos a"
                      u" WHERE a.Cod_Empresa=1 AND a.Descripcion LIKE '%PERNO%'"_s),
        299);
}

void PruebaTrigramas::catalogue_without_index_is_given_one()
{
    const QTemporaryDir carpeta;
    const QString archivo = carpeta.filePath(u"anterior.db"_s);
    {
        auto conexion = nv::datos::abrirEmbebida(archivo);
        conexion->Ejecutar(nv::Sentencia::deConsola(
            u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion) VALUES (1, 5, 'TUERCA')"_s));
    }
    sqlite3 *base = nv::datos::abrirArchivo(archivo);
    nv::datos::registrarFunciones(base);
    QByteArray sin = "DROP TABLE nv_Pendientes; DROP TABLE nv_Textos; DROP TABLE nv_Trigramas; PRAGMA user_version = " +
                     QByteArray::number(1 << 16 | nv::datos::VersionCotejo) + ';';
    for (const char *tabla : {"Articulos", "Articulos_Ref", "Articulos_CBarras", "Marcas"}) {
        for (const char *suceso : {"alta", "baja", "cambio"})
            sin += QByteArray("DROP TRIGGER nv_") + tabla + '_' + suceso + ';';
    }
    QCOMPARE(sqlite3_exec(base, sin.constData(), nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(base);
    const QString consulta = u"SELECT a.Codigo FROM Articulos a WHERE a.Cod_Empresa=1 AND a.Descripcion LIKE '%ERC%'"_s;
    for (int i = 0; i < 2; ++i) {
        const auto conexion = nv::datos::abrirEmbebida(archivo);
        QCOMPARE(filasDe(*conexion, consulta), QStringList{u"5"_s});
        QCOMPARE(filasDe(*conexion, u"SELECT COUNT(*) FROM nv_Textos"_s), QStringList{u"1"_s});
    }
}

QTEST_GUILESS_MAIN(PruebaTrigramas)
#include "tst_trigramas.moc"
