#include "platform/datos/Apertura.h"
#include "platform/datos/Cotejo.h"
#include "platform/datos/Dialecto.h"
#include "platform/datos/Funciones.h"
#include "platform/datos/Trigramas.h"
#include "support/BaseDatos.h"

#include <QRandomGenerator>

#include <sqlite3.h>

using namespace Qt::StringLiterals;
using namespace nv::pruebas;

const QString EnTodas = u" LEFT JOIN Articulos_Ref ar ON ar.Cod_Empresa = a.Cod_Empresa AND ar.Cod_Articulo=a.Codigo"
                        u" LEFT JOIN Articulos_CBarras b ON b.Cod_Empresa = a.Cod_Empresa AND b.Cod_Articulo=a.Codigo"
                        u" LEFT JOIN Marcas m ON m.Codigo = a.Marca"_s;
const QString EnCualquiera = u" AND ( (ISNULL(a.Descripcion,'') LIKE '@') OR (ISNULL(ar.Ref,'') LIKE '@') OR"
                             u" (ISNULL(b.Cod_Barras,'') LIKE '@') OR (ISNULL(m.Nombre, '') LIKE '@') OR"
                             u" (ISNULL(a.Codigo,0) LIKE '@'))"_s;

class PruebaTrigramas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sieve_loses_nothing()
    {
        BaseDatos base;
        QRandomGenerator azar(20261123);
        const QStringList piezas =
            QString(u"TUBO|tubería|Ñandú|L'ORÉAL|1/2\"|50%|A_B|[XYT]|ÀÈÌ|ß÷×|жук|漢字仮|e\u0301|  |841|\n|Ÿÿµ|-1,5-"_s)
                .split(u'|');
        const auto texto = [&](int hasta) {
            QString uno;
            for (int i = azar.bounded(hasta + 1); i > 0; --i)
                uno += piezas[azar.bounded(piezas.size())] + (azar.bounded(2) ? u" "_s : QString());
            return uno;
        };
        const auto fila = [&](const QString &tabla, const QStringList &valores) {
            base.ejecutar(u"INSERT INTO %1 VALUES (%2)"_s.arg(tabla, valores.join(u',')));
        };
        const auto literal = [&](int hasta) { return u'\'' + texto(hasta).replace(u"'"_s, u"''"_s) + u'\''; };
        const auto hacerFilas = [&](int desde, int hasta) {
            for (int i = desde; i < hasta; ++i) {
                const QString clave = u"%1, %2"_s.arg(1 + i % 3).arg(i * 97);
                fila(u"Articulos (Cod_Empresa, Codigo, Marca, Familia_1, Descripcion, Desc_Ticket)"_s,
                     {clave, QString::number(i % 5), u"3"_s, i % 17 ? literal(4) : u"NULL"_s, literal(1)});
                for (int j = azar.bounded(3); j > 0; --j)
                    fila(u"Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref)"_s,
                         {clave, QString::number(j), literal(2)});
                if (i % 2)
                    fila(u"Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras)"_s,
                         {clave, u"'84%1'"_s.arg(azar.bounded(1000000))});
            }
        };
        for (int i = 0; i < 4; ++i)
            fila(u"Marcas (Codigo, Nombre)"_s, {QString::number(i), literal(2)});
        nv::Transaccion transaccion(base.conexion());
        hacerFilas(0, 400);
        transaccion.confirmar();
        hacerFilas(400, 420);

        const QList<QStringList> listas = formas();
        int conFilas = 0;
        for (int i = 0; i < 1200; ++i) {
            const QStringList &forma = listas[i % listas.size()];
            QString patron = texto(2);
            const int retoque = azar.bounded(4);
            if (retoque == 0)
                patron = patron.toLower();
            else if (retoque == 1)
                patron = patron.mid(azar.bounded(2), azar.bounded(1, 8));
            else if (retoque == 2)
                patron.insert(azar.bounded(static_cast<int>(patron.size()) + 1), u"%_[]"_s[azar.bounded(4)]);
            const QString consulta = busqueda(u'%' + patron + u'%', forma[1], forma[2]);
            QStringList filas = base.filas(consulta);
            // A company that is no integer has no sieve.
            QStringList sinCriba = base.filas(QString(consulta).replace(u"Empresa =2"_s, u"Empresa =2.0"_s));
            filas.sort();
            sinCriba.sort();
            const bool cribada = nv::datos::adaptar(nv::datos::parametrizar(consulta).forma).cribables.has_value();
            QVERIFY2(filas == sinCriba && cribada == (forma[0] == u"+"), qPrintable(consulta));
            conFilas += filas.isEmpty() ? 0 : 1;
        }
        QVERIFY2(conFilas > 400, qPrintable(QString::number(conFilas)));
    }

    void changes_are_seen_at_once()
    {
        BaseDatos base;
        const auto hallados = [&](const QString &palabras) {
            QStringList filas;
            for (const QString &palabra : palabras.split(u','))
                filas += base.filas(busqueda(u'%' + palabra + u'%'));
            return filas.join(u' ');
        };
        const auto cuenta = [&](const QString &de) { return base.filas(u"SELECT COUNT(*) FROM "_s + de).value(0); };
        nv::Transaccion altas(base.conexion());
        for (int i = 1; i <= 40; ++i)
            base.ejecutar(u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion, Marca)"
                          u" VALUES (2, %1, 'GRIFO %1', %1)"_s.arg(i));
        QCOMPARE(hallados(u"GRIFO 17"_s), u"17"_s);
        altas.confirmar();
        base.ejecutar(
            {u"UPDATE Articulos SET Descripcion='LLAVE' WHERE Codigo=17"_s,
             u"INSERT INTO Articulos_Ref (Cod_Empresa, Ref, Cod_Prov, Cod_Articulo) VALUES (2, 'REF-9', 1, 18)"_s,
             u"INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Barras, Cod_Articulo) VALUES (2, '8412', 19)"_s,
             u"INSERT INTO Marcas (Codigo, Nombre) VALUES (20, 'ACME')"_s});
        QCOMPARE(hallados(u"GRIFO 17,LLAVE,ref-9,841,acm"_s), u"17 18 19 20"_s);
        base.conexion().Comenzar();
        // Enough of them for the index to be written.
        base.ejecutar(u"UPDATE Articulos SET Descripcion='CODO' WHERE Codigo < 40"_s);
        QCOMPARE(base.filas(busqueda(u"%CODO%"_s)).size(), 39);
        base.conexion().Deshacer();
        QCOMPARE(hallados(u"CODO"_s) + cuenta(u"nv_Pendientes"_s), u"4"_s);
        base.ejecutar(u"UPDATE Articulos SET Descripcion='TAPA' WHERE Codigo < 40"_s);
        QCOMPARE(cuenta(u"nv_Pendientes"_s) + cuenta(u"nv_Textos"_s), u"040"_s);
        nv::Transaccion cambios(base.conexion());
        base.ejecutar({u"UPDATE Articulos SET Codigo=Codigo + 1000 WHERE Codigo > 18"_s,
                       u"UPDATE Articulos_Ref SET Ref='OTRA' WHERE Ref='REF-9'"_s,
                       u"DELETE FROM Articulos WHERE Codigo=5"_s});
        cambios.confirmar();
        QCOMPARE(hallados(u"ref-9,otra,acm,841"_s), u"18 1020"_s);
        QCOMPARE(cuenta(u"nv_Pendientes"_s) + cuenta(u"nv_Textos"_s), u"039"_s);
        // A few of them wait for more.
        base.ejecutar(u"DELETE FROM Articulos WHERE Codigo < 11 OR Codigo > 1008"_s);
        QCOMPARE(cuenta(u"nv_Pendientes"_s), u"31"_s);
        base.ejecutar(u"DELETE FROM Articulos WHERE Codigo = 11"_s);
        QCOMPARE(cuenta(u"nv_Pendientes"_s), u"0"_s);
    }

    void many_candidates_keep_the_order()
    {
        BaseDatos base;
        nv::Transaccion transaccion(base.conexion());
        const QString alta = u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion) VALUES (1, %1, '%2 %3')"_s;
        for (int i = 1; i <= 900; ++i)
            base.ejecutar(alta.arg(i).arg(1000 - i).arg(i % 3 ? u"TUERCA"_s : u"PERNO"_s));
        base.ejecutar(u"UPDATE Articulos SET Descripcion=NULL WHERE Codigo < 4"_s);
        transaccion.confirmar();
        const QString consulta = u"SELECT %1 FROM Articulos a WHERE a.Cod_Empresa=1 AND %2"_s;
        // Above and below the number from which items are no longer sought one by one.
        for (const QStringList &caso :
             tabla(u"TOP 3 a.Codigo→a.Descripcion LIKE '%uerca%' ORDER BY a.Descripcion→899,898,896;"
                   u"TOP 3 a.Codigo→a.Descripcion LIKE '%erno%' ORDER BY a.Descripcion→900,897,894;"
                   u"a.Codigo→a.Descripcion LIKE '%ornillo%'→;COUNT(*)→a.Descripcion LIKE '%ERNO%'→299;"
                   u"COUNT(*)→ISNULL(a.Descripcion,'invierno') LIKE '%ERNO%'→302"_s))
            QCOMPARE(base.filas(consulta.arg(caso[0], caso[1])).join(u','), caso[2]);
        const QString copia = u"INSERT INTO Articulos_Buscar (Terminal, Cod_Articulo) "_s;
        QCOMPARE(base.ejecutar(copia + consulta.arg(u"'7', a.Codigo"_s, u"a.Descripcion LIKE '%PERNO%'"_s)), 299);
    }

    void catalogue_without_index_is_given_one()
    {
        const QTemporaryDir carpeta;
        const QString archivo = carpeta.filePath(u"anterior.db"_s);
        nv::datos::abrirEmbebida(archivo)->Ejecutar(
            nv::Sentencia(u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion) VALUES (1, 5, 'TUERCA')"));
        sqlite3 *base = nv::datos::abrirArchivo(archivo);
        nv::datos::registrarFunciones(base);
        QByteArray sin = "DROP TABLE nv_Pendientes; DROP TABLE nv_Textos; DROP TABLE nv_Trigramas;";
        sin += "PRAGMA user_version = " + QByteArray::number(1 << 16 | nv::datos::VersionCotejo) + ';';
        for (const char *tabla : {"Articulos", "Articulos_Ref", "Articulos_CBarras", "Marcas"})
            for (const char *suceso : {"alta", "baja", "cambio"})
                sin += QByteArray("DROP TRIGGER nv_") + tabla + '_' + suceso + ';';
        QCOMPARE(sqlite3_exec(base, sin.constData(), nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(base);
        const auto conexion = nv::datos::abrirEmbebida(archivo);
        QCOMPARE(filasDe(*conexion, u"SELECT Texto FROM nv_Textos"_s), QStringList{u"5\nTUERCA"_s});
    }

private:
    /// A search of items, "@" being its pattern.
    static QString busqueda(const QString &patron, const QString &resto = EnTodas,
                            const QString &condicion = EnCualquiera)
    {
        QString consulta =
            u"SELECT DISTINCT a.Codigo FROM Articulos a%1 WHERE a.Cod_Empresa =2%2"_s.arg(resto, condicion);
        return consulta.replace(u'@', QString(patron).replace(u"'"_s, u"''"_s));
    }
    /// Forms of search: whether a sieve is known for it, what stands behind "Articulos a", the condition.
    static QList<QStringList> formas()
    {
        QString filas =
            u"+→→ AND a.Descripcion LIKE '@' ORDER BY a.Descripcion;+→→ AND a.Marca BETWEEN 1 AND 3 AND"
            u" ((a.Descripcion LIKE '@'));+→→ AND ISNULL(a.Descripcion,'') LIKE '@' GROUP BY a.Codigo;+→→ AND"
            u" (a.Descripcion LIKE '84%' OR a.Codigo LIKE '@');+→#m.Codigo = a.Marca→ AND m.Nombre LIKE '@';"
            u"+→$ar.Cod_Articulo = a.Codigo AND ar.Cod_Empresa = a.Cod_Empresa→ AND ar.Ref LIKE '@';+→$a.Codigo ="
            u" ar.Cod_Articulo AND a.Cod_Empresa = ar.Cod_Empresa→ AND ar.Ref LIKE '@';"
            u"-→→ AND a.Descripcion LIKE 'TUB%';-→→ AND a.Descripcion LIKE '@' OR a.Codigo = 1;" // the first: a range
            u"-→→ AND NOT a.Descripcion LIKE '@';-→→ AND a.Descripcion NOT LIKE '@';-→→ AND a.Descripcion <> '@';-→→"
            u" AND LTRIM(a.Descripcion) LIKE '@';-→→ AND (a.Descripcion LIKE '@' OR a.Desc_Ticket LIKE '%TUBO%');-→→"
            u" AND (a.Descripcion LIKE '@' AND a.Codigo > 1000 OR a.Codigo = 1);-→→ AND a.Descripcion LIKE '@' UNION"
            u" SELECT 7;-→, Articulos b→ AND b.Descripcion LIKE '@';-→→ AND a.Marca IN (SELECT b.Marca FROM"
            u" Articulos b WHERE b.Descripcion LIKE '@');-→ INNER JOIN Articulos b ON b.Codigo = a.Codigo + 97→ AND"
            u" b.Descripcion LIKE '@';-→$ar.Cod_Articulo = a.Codigo AND ar.Cod_Empresa > 0→ AND ar.Ref LIKE '@';"
            u"-→$ar.Cod_Articulo = a.Marca AND ar.Cod_Empresa = a.Cod_Empresa→ AND ar.Ref LIKE '@';-→#m.Codigo ="
            u" a.Familia_1→ AND m.Nombre LIKE '@'"_s;
        filas.replace(u"#"_s, u" INNER JOIN Marcas m ON "_s).replace(u"$"_s, u" INNER JOIN Articulos_Ref ar ON "_s);
        return tabla(filas) << QStringList{u"+"_s, EnTodas, EnCualquiera}
                            << QStringList{u"-"_s, EnTodas, QString(EnCualquiera).replace(u"( ("_s, u"(1=0 OR ("_s)};
    }
};

NV_PRUEBA(PruebaTrigramas)
#include "tst_trigramas.moc"
