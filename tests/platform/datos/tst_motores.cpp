#include "support/BaseDatos.h"

using namespace Qt::StringLiterals;
using namespace nv::pruebas;

/// What a connection does whatever is behind it: values, errors, open lists, transactions.
class PruebaMotores : public PruebaVias
{
    Q_OBJECT

private Q_SLOTS:
    void values_come_out_alike()
    {
        // Type, value as written and, where it differs, as read.
        QString escrita =
            u"smallint→-7;int→2147483647;bigint→900719925474099;bit→1;bit→0;money→10.5;money→12;money→1234.5678;"
            u"money→-0.0001;money→900719925474.0991;decimal(12,3)→40.500→40.5;char(6)→'AB'→AB;"
            u"varchar(20)→' AB  '→ AB  ;varchar(20)→''→;varchar(40)→'PEÑA «L''ORÉAL» 12 €'→PEÑA «L'ORÉAL» 12 €;"
            u"datetime→'02/11/2026'→02/11/2026;smallint→NULL;money→NULL;datetime→NULL;varchar(20)→NULL"_s;
        // The ODBC driver of SQLite takes dates in its own form and writes no more than fifteen digits.
        if (conSqlite())
            escrita.replace(u"'02/11/2026'"_s, u"'2026-11-02'"_s).replace(u"25474.0991"_s, u"2547.0991"_s);
        const QList<QStringList> valores = tabla(escrita);
        QStringList columnas[2];
        for (const QStringList &valor : valores) {
            columnas[0] << u"c%1 %2 NULL"_s.arg(columnas[0].size()).arg(valor[0]);
            columnas[1] << valor[1];
        }
        ejecutar(u"CREATE TABLE #Tipos (%1)"_s.arg(columnas[0].join(u", ")));
        ejecutar(u"INSERT INTO #Tipos VALUES (%1)"_s.arg(columnas[1].join(u", ")));
        nv::Registros registros = abrir(u"SELECT * FROM #Tipos"_s);
        QVERIFY(registros.siguiente());
        for (int i = 0; i < registros.columnas(); ++i) {
            const QString texto = valores[i].back();
            const bool nulo = texto == u"NULL";
            const bool fecha = valores[i][0] == u"datetime";
            QCOMPARE(registros.textoO(i, u"NULL"_s), texto);
            QCOMPARE(registros.esNulo(u"C%1"_s.arg(i)), nulo);
            QCOMPARE(numeroDeError([&] { registros.texto(i); }), nulo ? nv::errores::ValorNulo : -1);
            QCOMPARE(registros.fechaO(i), fecha && !nulo ? QDate(2026, 11, 2) : QDate());
            if (nulo || fecha || valores[i][0].contains(u"char"))
                continue;
            const nv::Moneda importe = nv::Moneda::deTexto(texto);
            QCOMPARE(registros.moneda(i).diezmilesimas(), importe.diezmilesimas());
            QCOMPARE(registros.textoNumero(i), QString(texto).replace(u'.', u','));
            QCOMPARE(registros.entero64(i), importe.redondeada(0).diezmilesimas() / nv::Moneda::Escala);
            QCOMPARE(registros.booleano(i), !importe.esCero());
        }
    }

    void long_texts_and_names()
    {
        const QString nota = u"Línea de notas: ñÑ, á, ü, 12 €.\r\n"_s.repeated(700);
        // Without a declared length; that driver knows such a column by another name.
        const QString sinLargo = conSqlite() ? u"varchar(0)"_s : u"varchar(max)"_s;
        ejecutar(u"CREATE TABLE #Notas (Codigo int, Nota %1, Memo varchar(8000), Otra %1)"_s.arg(sinLargo));
        ejecutar(u"INSERT INTO #Notas VALUES (1, '%1', '%2', ''), (2, NULL, '', '%1')"_s.arg(nota, nota.left(5000)));
        nv::Registros fila = abrir(u"SELECT Nota, Memo AS Última, Otra, Codigo AS CODIGO FROM #Notas ORDER BY 4"_s);
        QVERIFY(fila.siguiente() && fila.entero16(u"codigo") == 1); // not in the order of the columns
        QVERIFY(fila.texto(u"última") == nota.left(5000) && fila.texto(u"nota") == nota);
        QVERIFY(!fila.esNulo(u"Otra") && fila.texto(u"Otra").isEmpty());
        QCOMPARE(numeroDeError([&] { fila.texto(u"Memo"); }), nv::errores::ColumnaDesconocida);
        QVERIFY(fila.siguiente() && fila.esNulo(u"Nota"));
        QVERIFY(ejecutar(u"DELETE FROM #Notas"_s) == 2 && fila.texto(u"Otra") == nota);
    }

    void rows_changed_and_errors()
    {
        QCOMPARE(ejecutar(u"INSERT INTO #Lista (Codigo, Nombre) VALUES (20, 'a'), (21, 'b')"_s), 2);
        QCOMPARE(ejecutar(u"UPDATE #Lista SET Nombre = 'x' WHERE Codigo > 9"_s), 3);
        QCOMPARE(ejecutar(u"DELETE FROM #Lista WHERE Nombre = 'x' AND Codigo > 10"_s), 2);
        QCOMPARE(ejecutar(u"DELETE FROM #Lista WHERE Codigo > 10"_s) + ejecutar(u"SELECT Codigo FROM #Lista"_s), 0);
        nv::Registros abierto = lista();
        for (const QStringList &mala : tabla(
                 u"SELECT x FROM NoEstaEstaTabla;SELECT NoEsta FROM #Lista;SELEC 1;INSERT INTO #Lista (Codigo, Nombre)"
                 u" VALUES (1, 'otra');SELECT Codigo FROM #Lista WHERE Nombre = 'sin cerrar"_s)) {
            QVERIFY2(numeroDeError([&] { abrir(mala[0]); }) > 0, qPrintable(mala[0]));
            QVERIFY2(numeroDeError([&] { ejecutar(mala[0]); }) > 0, qPrintable(mala[0]));
        }
        QCOMPARE(filasDe(abierto).size(), 10);
    }

    void many_lists_stay_open()
    {
        std::vector<nv::Registros> listas;
        for (int abierta = 0; abierta < 13; ++abierta) {
            listas.push_back(lista());
            for (int i = 0; i < abierta; ++i)
                listas.back().siguiente();
            // The details of another row, beside the half-read list.
            QCOMPARE(filas(u"SELECT Nombre FROM #Lista WHERE Codigo = %1"_s.arg(abierta % 10 + 1)).size(), 1);
        }
        nv::Registros vacia = abrir(u"SELECT Nombre FROM #Lista WHERE Codigo = 99"_s);
        QCOMPARE(ejecutar(u"DELETE FROM #Lista"_s), 10);
        for (int leidas = 0; nv::Registros & registros : listas) {
            QVERIFY(leidas == 0 || leidas > 10 || registros.texto(1) == u"Artículo %1"_s.arg(leidas));
            QCOMPARE(filasDe(registros).size(), std::max(10 - leidas, 0));
            QCOMPARE(numeroDeError([&] { registros.texto(0); }), nv::errores::ConexionCerrada);
            ++leidas;
        }
        QVERIFY(vacia.nombre(0) == u"Nombre" && !vacia.siguiente());
    }

    void transactions_beside_open_lists()
    {
        nv::Registros antes = lista();
        QVERIFY(antes.siguiente());
        conexion().Comenzar();
        ejecutar(u"UPDATE #Lista SET Nombre = 'cambiado' WHERE Codigo = 3"_s);
        nv::Registros dentro = abrir(u"SELECT Nombre FROM #Lista WHERE Codigo > 2 ORDER BY Codigo"_s);
        QVERIFY(dentro.siguiente());
        ejecutar(u"DELETE FROM #Lista WHERE Codigo > 5"_s);
        conexion().Deshacer();
        QVERIFY(dentro.texto(0) == u"cambiado" && filasDe(dentro).size() == 7);
        QVERIFY(antes.entero32(0) == 1 && filasDe(antes).size() == 9);
        conexion().Comenzar();
        ejecutar(u"DELETE FROM #Lista WHERE Codigo > 5"_s);
        nv::Registros hasta = lista();
        QVERIFY(hasta.siguiente());
        conexion().Confirmar();
        QCOMPARE(filasDe(hasta).join(u','), u"2|Artículo 2,3|Artículo 3,4|Artículo 4,5|Artículo 5"_s);
        QCOMPARE(cuantas(), u"5"_s);
    }

    void ends_of_a_transaction()
    {
        {
            nv::Transaccion transaccion(conexion());
            QVERIFY(falla([&] { conexion().Comenzar(); }));
            ejecutar(u"INSERT INTO #Lista (Codigo, Nombre) VALUES (11, 'once')"_s);
            QVERIFY(falla([&] { ejecutar(u"INSERT INTO #Lista (Codigo, Nombre) VALUES (1, 'otra')"_s); }));
            nv::Transaccion dentro(conexion());
            ejecutar(u"INSERT INTO #Lista (Codigo, Nombre) VALUES (12, 'doce')"_s);
            dentro.confirmar(); // of somebody else's: nothing yet
            QVERIFY(transaccion.propia() && !dentro.propia() && conexion().enTransaccion());
            transaccion.confirmar(); // a duplicate leaves the transaction open
        }
        QCOMPARE(cuantas(), u"12"_s);
        conexion().Comenzar();
        ejecutar(u"DELETE FROM #Lista WHERE Codigo = 11"_s);
        ejecutar(u"ROLLBACK"_s); // as when the engine rolled back by itself
        conexion().Deshacer();
        // What comes after is in no transaction that somebody would have to end.
        ejecutar(u"DELETE FROM #Lista WHERE Codigo = 12"_s);
        conexion().Comenzar();
        ejecutar(u"DELETE FROM #Lista"_s);
        conexion().Deshacer();
        QCOMPARE(cuantas(), u"11"_s);
        conexion().Comenzar();
        ejecutar(u"ROLLBACK"_s);
        QVERIFY2(falla([&] { conexion().Confirmar(); }), "nothing was kept: nobody may believe it was");
        conexion().Deshacer();
        QVERIFY(!conexion().enTransaccion());
    }

    void table_made_again_under_an_open_list()
    {
        nv::Registros abierta = abrir(u"SELECT * FROM #Lista WHERE Codigo > 0"_s);
        QVERIFY(abierta.siguiente());
        ejecutar(u"DROP TABLE #Lista"_s);
        ejecutar(u"CREATE TABLE #Lista (Nombre varchar(60), Codigo int)"_s);
        ejecutar(u"INSERT INTO #Lista (Codigo, Nombre) VALUES (8, 'ocho')"_s);
        nv::Registros otra = abrir(u"SELECT * FROM #Lista WHERE Codigo > 0"_s);
        QVERIFY(otra.siguiente());
        QVERIFY(otra.texto(u"nombre") + otra.texto(u"CODIGO") == u"ocho8" && filasDe(abierta).size() == 9);
        // A drop that fails leaves an open transaction as it is.
        nv::Transaccion transaccion(conexion());
        ejecutar(u"INSERT INTO #Lista (Codigo, Nombre) VALUES (9, 'nueve')"_s);
        QVERIFY(falla([&] { ejecutar(u"DROP TABLE #NoEsta"_s); }));
        transaccion.confirmar();
        QCOMPARE(cuantas(), u"2"_s);
    }

    void released_connection_leaves_the_slot()
    {
        nv::ranura::ofrecer(&conexion());
        const auto otra = lugar().conectar();
        nv::ranura::ofrecer(otra.get());
        QCOMPARE(nv::ranura::actual(), &conexion()); // the first one's
        nv::Registros abierto = lista();
        nv::Registros ultimo = lista();
        QVERIFY(ultimo.siguiente());
        soltar();
        QCOMPARE(filasDe(abierto).size(), 10); // was in memory when its connection went
        QCOMPARE(ultimo.texto(1), u"Artículo 1"_s);
        QCOMPARE(numeroDeError([&] { ultimo.siguiente(); }), nv::errores::ConexionCerrada);
        QCOMPARE(numeroDeError([] { nv::ranura::exigida(); }), nv::errores::SinObjeto);
        reconectar();
        nv::ranura::ofrecer(&conexion());
        QCOMPARE(filasDe(nv::ranura::exigida(), u"SELECT 1"_s), QStringList{u"1"_s});
    }

private:
    void llenar() override
    {
        ejecutar(u"CREATE TABLE #Lista (Codigo int NOT NULL PRIMARY KEY, Nombre varchar(60))"_s);
        for (int i = 1; i <= 10; ++i)
            ejecutar(u"INSERT INTO #Lista (Codigo, Nombre) VALUES (%1, 'Artículo %1')"_s.arg(i));
    }
    nv::Registros lista() { return abrir(u"SELECT Codigo, Nombre FROM #Lista ORDER BY Codigo"_s); }
    QString cuantas() { return filas(u"SELECT COUNT(*) FROM #Lista"_s).join(u','); }
};

NV_PRUEBA(PruebaMotores)
#include "tst_motores.moc"
