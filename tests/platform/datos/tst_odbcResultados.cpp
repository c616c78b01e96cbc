#include "tst_odbcMotores.h"

#include <QSqlQuery>

#include <array>
#include <set>
#include <thread>

/// Open lists, transactions and several workstations, one set of cases for every way in.
class PruebaOdbcResultados : public PruebaMotores
{
    Q_OBJECT

private Q_SLOTS:
    void many_lists_stay_open_data() { motores(); }
    void many_lists_stay_open();
    void transactions_with_a_list_open_data() { motores(); }
    void transactions_with_a_list_open();
    void ends_of_a_transaction_data() { motores(); }
    void ends_of_a_transaction();
    void table_made_again_under_an_open_list_data() { motores(); }
    void table_made_again_under_an_open_list();
    void server_rolls_back_by_itself_data();
    void server_rolls_back_by_itself();
    void driver_alone_takes_one_live_result();
    void two_workstations_and_one_counter_data() { motores(); }
    void two_workstations_and_one_counter();
};

void PruebaOdbcResultados::many_lists_stay_open()
{
    QFETCH(Motor, motor);
    EMPEZAR(motor)
    diezFilas();
    const QString lista = u"SELECT Codigo, Nombre FROM #Lista ORDER BY Codigo"_s;
    std::vector<nv::Registros> listas;
    for (int abierta = 0; abierta < 25; ++abierta) {
        listas.push_back(abrir(lista));
        for (int i = 0; i < abierta % 12; ++i)
            listas.back().siguiente();
        // The details of another row, beside the half-read list.
        QCOMPARE(filas(u"SELECT Nombre FROM #Lista WHERE Codigo = %1"_s.arg(abierta % 10 + 1)).size(), 1);
    }
    QCOMPARE(ejecutar(u"DELETE FROM #Lista"_s), 10);
    for (int abierta = 0; abierta < 25; ++abierta) {
        nv::Registros &registros = listas.at(static_cast<std::size_t>(abierta));
        const int leidas = std::min(abierta % 12, 10);
        if (leidas > 0 && abierta % 12 <= 10)
            QCOMPARE(registros.texto(u"Nombre"), u"Artículo %1"_s.arg(leidas));
        QCOMPARE(filasDe(registros).size(), 10 - leidas);
    }
}

void PruebaOdbcResultados::transactions_with_a_list_open()
{
    QFETCH(Motor, motor);
    EMPEZAR(motor)
    diezFilas();
    nv::Registros antes = abrir(u"SELECT Codigo FROM #Lista ORDER BY Codigo"_s);
    QVERIFY(antes.siguiente());
    {
        nv::Transaccion transaccion(conexion());
        ejecutar(u"UPDATE #Lista SET Nombre = 'cambiado' WHERE Codigo = 3"_s);
        nv::Registros dentro = abrir(u"SELECT Nombre FROM #Lista WHERE Codigo > 2 ORDER BY Codigo"_s);
        QVERIFY(dentro.siguiente());
        ejecutar(u"DELETE FROM #Lista WHERE Codigo > 5"_s);
        conexion().Deshacer();
        QCOMPARE(dentro.texto(0), u"cambiado"_s);
        QCOMPARE(filasDe(dentro).size(), 7);
    }
    QCOMPARE(antes.entero32(0), 1);
    QCOMPARE(filasDe(antes).size(), 9);
    QCOMPARE(filas(u"SELECT COUNT(*) FROM #Lista WHERE Nombre <> 'cambiado'"_s), QStringList{u"10"_s});
    conexion().Comenzar();
    ejecutar(u"DELETE FROM #Lista WHERE Codigo > 5"_s);
    nv::Registros hasta = abrir(u"SELECT Codigo FROM #Lista ORDER BY Codigo"_s);
    QVERIFY(hasta.siguiente());
    conexion().Confirmar();
    QCOMPARE(filasDe(hasta).size(), 4);
    QCOMPARE(filas(u"SELECT COUNT(*) FROM #Lista"_s), QStringList{u"5"_s});
}

void PruebaOdbcResultados::ends_of_a_transaction()
{
    QFETCH(Motor, motor);
    EMPEZAR(motor)
    diezFilas();
    {
        nv::Transaccion transaccion(conexion());
        QVERIFY(falla([&] { conexion().Comenzar(); }));
        ejecutar(u"INSERT INTO #Lista (Codigo, Nombre) VALUES (11, 'once')"_s);
        QVERIFY(falla([&] { ejecutar(u"INSERT INTO #Lista (Codigo, Nombre) VALUES (1, 'otra')"_s); }));
        ejecutar(u"INSERT INTO #Lista (Codigo, Nombre) VALUES (12, 'doce')"_s);
        transaccion.confirmar(); // a duplicate leaves the transaction open
    }
    QCOMPARE(filas(u"SELECT COUNT(*) FROM #Lista"_s), QStringList{u"12"_s});
    conexion().Comenzar();
    ejecutar(u"DELETE FROM #Lista WHERE Codigo = 11"_s);
    ejecutar(u"ROLLBACK"_s); // as when the engine rolled back by itself
    QVERIFY(!falla([&] { conexion().Deshacer(); }));
    // What comes after is in no transaction that somebody would have to end.
    ejecutar(u"DELETE FROM #Lista WHERE Codigo = 12"_s);
    QVERIFY(!falla([&] {
        nv::Transaccion transaccion(conexion());
        ejecutar(u"DELETE FROM #Lista"_s);
    }));
    QCOMPARE(filas(u"SELECT COUNT(*) FROM #Lista"_s), QStringList{u"11"_s});
    conexion().Comenzar();
    ejecutar(u"ROLLBACK"_s);
    QVERIFY(falla([&] { conexion().Confirmar(); })); // nothing was kept: nobody may believe it was
    conexion().Deshacer();
}

void PruebaOdbcResultados::table_made_again_under_an_open_list()
{
    QFETCH(Motor, motor);
    EMPEZAR(motor)
    QVERIFY(falla([&] { ejecutar(u"DROP TABLE #TempBA"_s); })); // its caller ignores it
    const QString crear = u"CREATE TABLE #TempBA (Cod_Articulo int, Ventas_Unidades money)"_s;
    const QString llenar = u"INSERT INTO #TempBA (Cod_Articulo, Ventas_Unidades) VALUES (%1, 2), (%2, 1)"_s;
    const QString lista = u"SELECT Cod_Articulo FROM #TempBA ORDER BY Ventas_Unidades DESC"_s;
    ejecutar(crear);
    ejecutar(llenar.arg(1).arg(2));
    nv::Registros abierto = abrir(lista);
    QVERIFY(abierto.siguiente());
    ejecutar(u"DROP TABLE #TempBA"_s);
    ejecutar(crear);
    ejecutar(llenar.arg(8).arg(9));
    QCOMPARE(filas(lista), (QStringList{u"8"_s, u"9"_s}));
    QCOMPARE(abierto.entero32(0), 1);
    QCOMPARE(filasDe(abierto), QStringList{u"2"_s});
    // A failed drop leaves an open transaction as it is.
    nv::Transaccion transaccion(conexion());
    ejecutar(llenar.arg(10).arg(11));
    QVERIFY(falla([&] { ejecutar(u"DROP TABLE #NoEsta"_s); }));
    transaccion.confirmar();
    QCOMPARE(filas(u"SELECT COUNT(*) FROM #TempBA"_s), QStringList{u"4"_s});
}

void PruebaOdbcResultados::server_rolls_back_by_itself_data()
{
    QTest::addColumn<Motor>("motor");
    QTest::newRow("FreeTDS") << Motor::Doble;
    QTest::newRow("server") << Motor::Servidor;
}

void PruebaOdbcResultados::server_rolls_back_by_itself()
{
    QFETCH(Motor, motor);
    EMPEZAR(motor)
    diezFilas();
    ejecutar(u"SET XACT_ABORT ON"_s);
    {
        nv::Transaccion transaccion(conexion());
        ejecutar(u"DELETE FROM #Lista WHERE Codigo > 5"_s);
        QVERIFY(falla([&] { ejecutar(u"INSERT INTO #Lista (Codigo, Nombre) VALUES (1, 'otra')"_s); }));
    }
    QVERIFY(!conexion().enTransaccion());
    QCOMPARE(filas(u"SELECT COUNT(*) FROM #Lista"_s), QStringList{u"10"_s});
    nv::Transaccion otra(conexion());
    ejecutar(u"DELETE FROM #Lista WHERE Codigo > 5"_s);
    otra.confirmar();
    QCOMPARE(filas(u"SELECT COUNT(*) FROM #Lista"_s), QStringList{u"5"_s});
}

/// What the connection's open lists are put away for. Without it the cases above would prove nothing.
void PruebaOdbcResultados::driver_alone_takes_one_live_result()
{
    EMPEZAR(Motor::DobleAnfitrion)
    diezFilas();
    const QSqlDatabase base = QSqlDatabase::database(QSqlDatabase::connectionNames().constFirst(), false);
    const QString lista = u"SELECT Codigo FROM #Lista ORDER BY Codigo"_s;
    QSqlQuery una(base);
    una.setForwardOnly(true);
    QVERIFY(una.exec(lista) && una.next());
    QSqlQuery otra(base);
    otra.setForwardOnly(true);
    QVERIFY(!otra.exec(lista));
    QVERIFY2(otra.lastError().databaseText().contains(u"Invalid cursor state"_s),
             qPrintable(otra.lastError().databaseText()));
    una.finish();
    QVERIFY(otra.exec(lista));
}

void PruebaOdbcResultados::two_workstations_and_one_counter()
{
    QFETCH(Motor, motor);
    EMPEZAR(motor)
    constexpr int PorPuesto = 25;
    falla([&] { ejecutar(u"DROP TABLE nv_Contador"_s); }); // left over by a run that was broken off
    ejecutar(u"CREATE TABLE nv_Contador (Cod_Empresa smallint NOT NULL PRIMARY KEY, Cod_Barras varchar(30))"_s);
    ejecutar(u"INSERT INTO nv_Contador (Cod_Empresa, Cod_Barras) VALUES (1, '9810001')"_s);
    std::array<std::vector<qint64>, 2> emitidos;
    std::array<QString, 2> fallos;
    const auto emitir = [&](std::size_t puesto) {
        try {
            const std::unique_ptr<nv::Conexion> propia = conectar(motor);
            for (int i = 0; i < PorPuesto; ++i) {
                nv::Transaccion transaccion(*propia);
                propia->Ejecutar(Sentencia(u"UPDATE nv_Contador SET Cod_Barras = Cod_Barras WHERE Cod_Empresa=1"));
                nv::Registros registros = propia->Abrir(Sentencia(u"SELECT * FROM nv_Contador WHERE Cod_Empresa=1"));
                registros.siguiente();
                const qint64 numero = registros.entero64(u"Cod_Barras") + 1;
                Sentencia escritura(u"UPDATE nv_Contador SET Cod_Barras ='");
                escritura << numero << u"' WHERE Cod_Empresa=1";
                propia->Ejecutar(escritura);
                transaccion.confirmar();
                emitidos.at(puesto).push_back(numero);
            }
        } catch (const nv::Error &error) {
            fallos.at(puesto) = error.descripcion;
        }
    };
    std::thread uno(emitir, 0U);
    std::thread dos(emitir, 1U);
    uno.join();
    dos.join();
    const QStringList ultimo = filas(u"SELECT Cod_Barras FROM nv_Contador"_s);
    ejecutar(u"DROP TABLE nv_Contador"_s);
    QCOMPARE(fallos[0] + fallos[1], QString());
    std::set<qint64> distintos(emitidos[0].begin(), emitidos[0].end());
    distintos.insert(emitidos[1].begin(), emitidos[1].end());
    QCOMPARE(distintos.size(), std::size_t{2 * PorPuesto});
    QCOMPARE(ultimo, QStringList{QString::number(9810001 + 2 * PorPuesto)});
}

QTEST_GUILESS_MAIN(PruebaOdbcResultados)
#include "moc_tst_odbcMotores.cpp"
#include "tst_odbcResultados.moc"
