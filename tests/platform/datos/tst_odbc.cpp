#include "tst_odbcMotores.h"

namespace {

struct Tipo
{
    const char *nombre;
    const char16_t *columna;
    const char16_t *valor;
    const char16_t *texto; ///< null: NULL
};

const Tipo Tipos[] = {
    {"smallint", u"smallint", u"-7", u"-7"},
    {"int", u"int", u"2147483647", u"2147483647"},
    {"bigint", u"bigint", u"900719925474099", u"900719925474099"},
    {"bit set", u"bit", u"1", u"1"},
    {"bit clear", u"bit", u"0", u"0"},
    {"money", u"money", u"10.5", u"10.5"},
    {"money, whole", u"money", u"12", u"12"},
    {"money, four decimals", u"money", u"1234.5678", u"1234.5678"},
    {"money, smallest", u"money", u"-0.0001", u"-0.0001"},
    {"money, beyond what a double adds up", u"money", u"900719925474.0991", u"900719925474.0991"},
    {"decimal", u"decimal(12,3)", u"40.500", u"40.5"},
    {"datetime", u"datetime", u"'22/11/2026'", u"22/11/2026"},
    {"char, filled up with blanks", u"char(6)", u"'AB'", u"AB"},
    {"varchar, its own blanks", u"varchar(20)", u"' AB  '", u" AB  "},
    {"varchar, empty", u"varchar(20)", u"''", u""},
    {"varchar, Spanish and a quote", u"varchar(40)", u"'PEÑA «L''ORÉAL» 12 €'", u"PEÑA «L'ORÉAL» 12 €"},
    {"null smallint", u"smallint", u"NULL", nullptr},
    {"null bit", u"bit", u"NULL", nullptr},
    {"null money", u"money", u"NULL", nullptr},
    {"null datetime", u"datetime", u"NULL", nullptr},
    {"null varchar", u"varchar(20)", u"NULL", nullptr},
};

} // namespace

/// Values, messages and connections, one set of cases for every way in: embedded, through an ODBC driver, over a
/// database that the host opened, and over a server where there is one.
class PruebaOdbc : public PruebaMotores
{
    Q_OBJECT

private Q_SLOTS:
    void values_come_out_alike_data();
    void values_come_out_alike();
    void long_texts_and_names_data() { motores(); }
    void long_texts_and_names();
    void rows_changed_data() { motores(); }
    void rows_changed();
    void errors_in_words_data() { motores(); }
    void errors_in_words();
    void released_connection_leaves_the_slot_data() { motores(); }
    void released_connection_leaves_the_slot();
    void connection_dropped_under_the_component();
    void connection_killed_by_the_server_data();
    void connection_killed_by_the_server();
    void last_value_of_the_text_is_taken_as_written();
    void connections_that_cannot_be_made();
    void schema_is_made_whole_or_not_at_all();
    void server_makes_the_schema_and_takes_a_catalogue_data();
    void server_makes_the_schema_and_takes_a_catalogue();
};

void PruebaOdbc::values_come_out_alike_data()
{
    QTest::addColumn<Motor>("motor");
    QTest::addColumn<int>("tipo");
    const std::pair<Motor, const char *> vias[] = {
        {Motor::Embebido, "embedded"}, {Motor::Texto, "ODBC"}, {Motor::Doble, "FreeTDS"}, {Motor::Servidor, "server"}};
    for (const auto &[motor, nombre] : vias) {
        for (int i = 0; i < static_cast<int>(std::size(Tipos)); ++i)
            QTest::addRow("%s: %s", nombre, Tipos[i].nombre) << motor << i;
    }
}

void PruebaOdbc::values_come_out_alike()
{
    QFETCH(Motor, motor);
    QFETCH(int, tipo);
    EMPEZAR(motor)
    const Tipo &caso = Tipos[tipo];
    if (motor == Motor::Texto && QLatin1StringView(caso.nombre) == "money, beyond what a double adds up"_L1)
        QSKIP("this driver writes no more than fifteen digits");
    const QString columna = QString::fromUtf16(caso.columna);
    const bool conFecha = columna == u"datetime";
    QString valor = QString::fromUtf16(caso.valor);
    // This driver takes dates in its own form only.
    if (conFecha && motor == Motor::Texto)
        valor.replace(u"22/11/2026"_s, u"2026-11-22"_s);
    ejecutar(u"CREATE TABLE #Tipos (Clave int, Valor %1 NULL)"_s.arg(columna));
    ejecutar(u"INSERT INTO #Tipos (Clave, Valor) VALUES (1, %1)"_s.arg(valor));
    nv::Registros registros = abrir(u"SELECT Valor FROM #Tipos WHERE Clave = 1"_s);
    QVERIFY(registros.siguiente());
    QCOMPARE(registros.esNulo(u"VALOR"), caso.texto == nullptr);
    if (!caso.texto) {
        QCOMPARE(numeroDeError([&] { registros.texto(u"Valor"); }), nv::errores::ValorNulo);
        QVERIFY(!registros.fechaO(u"Valor").isValid());
        return;
    }
    const QString texto = QString::fromUtf16(caso.texto);
    if (columna.contains(u"char"_s)) {
        QCOMPARE(registros.texto(u"Valor"), texto);
    } else if (conFecha) {
        QCOMPARE(registros.texto(u"Valor"), texto);
        QCOMPARE(registros.fechaO(u"Valor"), QDate(2026, 11, 22));
    } else {
        const nv::Moneda importe = nv::Moneda::deTexto(texto);
        QCOMPARE(registros.moneda(u"Valor").diezmilesimas(), importe.diezmilesimas());
        QCOMPARE(registros.textoNumero(u"Valor"), QString(texto).replace(u'.', u','));
        QCOMPARE(registros.entero64(u"Valor"), importe.redondeada(0).diezmilesimas() / nv::Moneda::Escala);
        QCOMPARE(registros.booleano(u"Valor"), !importe.esCero());
    }
}

void PruebaOdbc::long_texts_and_names()
{
    QFETCH(Motor, motor);
    EMPEZAR(motor)
    const QString memo = u"Línea de notas con eñes: ñÑ, á, ü.\r\n"_s.repeated(150);
    ejecutar(u"CREATE TABLE #Notas (Codigo int, Nota varchar(8000), Otra varchar(20))"_s);
    ejecutar(u"INSERT INTO #Notas (Codigo, Nota, Otra) VALUES (1, '%1', 'fin')"_s.arg(memo));
    nv::Registros registros = abrir(u"SELECT Otra AS Última, Nota, Codigo AS CODIGO FROM #Notas"_s);
    QVERIFY(registros.siguiente());
    QCOMPARE(registros.entero16(u"codigo"), 1); // not in the order of the columns
    QCOMPARE(registros.texto(u"última"), u"fin"_s);
    QCOMPARE(registros.texto(u"nota"), memo);
    QCOMPARE(numeroDeError([&] { registros.texto(u"Otra"); }), nv::errores::ColumnaDesconocida);
}

void PruebaOdbc::rows_changed()
{
    QFETCH(Motor, motor);
    EMPEZAR(motor)
    diezFilas();
    QCOMPARE(ejecutar(u"UPDATE #Lista SET Nombre = 'x' WHERE Codigo > 6"_s), 4);
    QCOMPARE(ejecutar(u"UPDATE #Lista SET Nombre = 'y' WHERE Codigo > 60"_s), 0);
    QCOMPARE(ejecutar(u"DELETE FROM #Lista WHERE Nombre = 'x'"_s), 4);
    QCOMPARE(ejecutar(u"DELETE FROM #Lista WHERE Nombre = 'x'"_s), 0);
    QCOMPARE(ejecutar(u"INSERT INTO #Lista (Codigo, Nombre) VALUES (20, 'a'), (21, 'b')"_s), 2);
    QCOMPARE(filas(u"SELECT COUNT(*) FROM #Lista"_s), QStringList{u"8"_s});
}

void PruebaOdbc::errors_in_words()
{
    QFETCH(Motor, motor);
    EMPEZAR(motor)
    diezFilas();
    nv::Registros abierto = abrir(u"SELECT Codigo FROM #Lista ORDER BY Codigo"_s);
    const QString malas[] = {u"SELECT x FROM NoEstaEstaTabla"_s, u"SELECT NoEsta FROM #Lista"_s,
                             u"INSERT INTO #Lista (Codigo, Nombre) VALUES (1, 'otra')"_s, u"SELEC 1"_s,
                             u"SELECT Codigo FROM #Lista WHERE Nombre = 'sin cerrar"_s};
    for (const QString &mala : malas) {
        for (const bool abriendo : {true, false}) {
            try {
                if (abriendo)
                    abrir(mala);
                else
                    ejecutar(mala);
                QFAIL(qPrintable(u"it went through: "_s + mala));
            } catch (const nv::Error &error) {
                QVERIFY2(error.numero != 0, qPrintable(mala));
                QVERIFY(!error.descripcion.isEmpty());
                QVERIFY2(!error.descripcion.startsWith(u'['), qPrintable(error.descripcion));
            }
        }
    }
    // The error's own number, not that of the remark behind it.
    if (motor == Motor::Servidor || motor == Motor::Doble || motor == Motor::DobleAnfitrion)
        QCOMPARE(numeroDeError([&] { ejecutar(u"INSERT INTO #Lista (Codigo, Nombre) VALUES (1, 'otra')"_s); }), 2627);
    QCOMPARE(filasDe(abierto).size(), 10);
}

void PruebaOdbc::released_connection_leaves_the_slot()
{
    QFETCH(Motor, motor);
    EMPEZAR(motor)
    diezFilas();
    nv::ranura::ofrecer(&conexion());
    QCOMPARE(nv::ranura::actual(), &conexion());
    nv::Registros abierto = abrir(u"SELECT Nombre FROM #Lista ORDER BY Codigo"_s);
    QVERIFY(abierto.siguiente());
    soltar();
    QCOMPARE(abierto.texto(0), u"Artículo 1"_s);
    QCOMPARE(numeroDeError([&] { abierto.siguiente(); }), nv::errores::ConexionCerrada);
    QCOMPARE(numeroDeError([] { nv::ranura::exigida(); }), nv::errores::SinObjeto);
    QVERIFY(empezar(motor));
    nv::ranura::ofrecer(&conexion());
    QCOMPARE(filasDe(nv::ranura::exigida(), u"SELECT 1"_s), QStringList{u"1"_s});
}

void PruebaOdbc::connection_dropped_under_the_component()
{
    EMPEZAR(Motor::Anfitrion)
    diezFilas();
    nv::ranura::ofrecer(&conexion());
    nv::Registros abierto = abrir(u"SELECT Nombre FROM #Lista ORDER BY Codigo"_s);
    QVERIFY(abierto.siguiente());
    QSqlDatabase::database(QSqlDatabase::connectionNames().constFirst(), false).close();
    QVERIFY(falla([&] { filas(u"SELECT Nombre FROM #Lista"_s); }));
    QVERIFY(falla([&] { ejecutar(u"DELETE FROM #Lista"_s); }));
    QVERIFY(falla([&] { nv::Transaccion transaccion(conexion()); }));
    QVERIFY(!conexion().enTransaccion());
    QVERIFY(falla([&] {
        while (abierto.siguiente()) {}
    }));                                         // half a list is not taken for the whole
    QCOMPARE(nv::ranura::actual(), &conexion()); // the host's, dead or not, until it lets go
    soltar();
    QCOMPARE(nv::ranura::actual(), nullptr);
    QVERIFY(empezar(Motor::Anfitrion));
    QCOMPARE(filas(u"SELECT COUNT(*) FROM #Lista"_s), QStringList{u"10"_s});
}

void PruebaOdbc::connection_killed_by_the_server_data()
{
    QTest::addColumn<Motor>("motor");
    QTest::newRow("FreeTDS") << Motor::Doble;
    QTest::newRow("server") << Motor::Servidor;
}

void PruebaOdbc::connection_killed_by_the_server()
{
    QFETCH(Motor, motor);
    EMPEZAR(motor)
    const QString sesion = filas(u"SELECT @@SPID"_s).value(0);
    const std::unique_ptr<nv::Conexion> otra = conectar(motor);
    if (falla([&] { otra->Ejecutar(Sentencia::deConsola(u"KILL "_s + sesion)); }))
        QSKIP("the login of the tests may not end a session");
    QVERIFY(falla([&] { filas(u"SELECT 1"_s); }));
    QVERIFY(falla([&] { ejecutar(u"SELECT 1"_s); }));
    soltar();
    QVERIFY(empezar(motor));
    QCOMPARE(filas(u"SELECT 1"_s), QStringList{u"1"_s});
}

/// As for a password at the end of the text: the driver must not see more of it than there is.
void PruebaOdbc::last_value_of_the_text_is_taken_as_written()
{
    EMPEZAR(Motor::Doble)
    ejecutar(u"CREATE TABLE nv_Contador (Cod_Empresa smallint NOT NULL PRIMARY KEY)"_s);
    QStringList partes = textoDoble().split(u';', Qt::SkipEmptyParts);
    const QStringList base = partes.filter(u"DATABASE="_s);
    partes.removeOne(base.value(0));
    const std::unique_ptr<nv::Conexion> otra = nv::datos::abrirOdbc((partes + base).join(u';'));
    QCOMPARE(filasDe(*otra, u"SELECT COUNT(*) FROM nv_Contador"_s), QStringList{u"0"_s});
    ejecutar(u"DROP TABLE nv_Contador"_s);
}

void PruebaOdbc::connections_that_cannot_be_made()
{
    const auto mensaje = [](const QString &texto) {
        try {
            nv::datos::abrirOdbc(texto);
        } catch (const nv::Error &error) {
            return error.descripcion;
        }
        return QString();
    };
    QVERIFY(mensaje(u" "_s).startsWith(u"Falta el texto"_s));
    for (const QString &texto :
         {u"DRIVER=NoHayTalControlador;SERVER=x;PWD=secreto"_s, u"no es un texto de conexión"_s}) {
        const QString visto = mensaje(texto);
        QVERIFY2(visto.startsWith(u"No se puede conectar con la base de datos: "_s), qPrintable(visto));
        QVERIFY2(visto.size() > 50 && !visto.contains(u'[') && !visto.contains(u"secreto"_s), qPrintable(visto));
    }
    QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
    QSqlDatabase otra = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"otra"_s);
    QVERIFY(otra.isValid());
    otra.setDatabaseName(u":memory:"_s);
    QVERIFY(otra.open());
    QVERIFY(falla([&] { nv::datos::sobreOdbc(otra); })); // no ODBC
    QVERIFY(falla([] { nv::datos::sobreOdbc(QSqlDatabase()); }));
}

void PruebaOdbc::schema_is_made_whole_or_not_at_all()
{
    EMPEZAR(Motor::Texto) // knows neither varchar(max) nor half the schema
    QVERIFY(falla([&] { nv::datos::crearEsquema(conexion()); }));
    QVERIFY(!conexion().enTransaccion());
    QCOMPARE(filas(u"SELECT name FROM sqlite_master"_s), QStringList());
}

void PruebaOdbc::server_makes_the_schema_and_takes_a_catalogue_data()
{
    QTest::addColumn<Motor>("motor");
    QTest::newRow("FreeTDS") << Motor::Doble;
    QTest::newRow("server") << Motor::Servidor;
}

void PruebaOdbc::server_makes_the_schema_and_takes_a_catalogue()
{
    QFETCH(Motor, motor);
    EMPEZAR(motor)
    if (!falla([&] { filas(u"SELECT COUNT(*) FROM Empresas"_s); }))
        QSKIP("the database of the tests holds a catalogue already; it has to be an empty one");
    nv::datos::crearEsquema(conexion());
    const auto borrar = qScopeGuard([&] { nv::pruebas::borrarEsquema(conexion()); });
    for (const QString &sentencia : catalogoMinimo())
        ejecutar(sentencia);
    QVERIFY(falla([&] { nv::datos::crearEsquema(conexion()); }));
    QCOMPARE(
        filas(
            u"SELECT Codigo FROM Articulos WHERE Descripcion LIKE 'ñora%' OR Descripcion = 'nuez ' ORDER BY Codigo"_s),
        (QStringList{u"3"_s, u"5"_s}));
    const QString copia =
        u"INSERT INTO Articulos_Buscar(Terminal, Cod_Empresa, Cod_Articulo, Descripcion) SELECT DISTINCT 'CAJA1', 1, "
        u"a.Codigo, a.Descripcion FROM Articulos a WHERE a.Cod_Empresa =1 ORDER BY a.Familia_1, a.Descripcion"_s;
    QCOMPARE(ejecutar(copia), 6);
    QCOMPARE(filas(u"SELECT Pvp FROM Clientes_Art_PVP WHERE Cod_Cliente =50 AND Fecha_Inicial <=' 22/11/2026' AND "
                   u"Fecha_Final >=' 22/11/2026'"_s),
             QStringList{u"8.25"_s});
    QCOMPARE(filas(u"SELECT Fecha FROM Articulos_CBarras WHERE Cod_Barras ='98100019'"_s),
             QStringList{u"01/02/2026"_s});
}

QTEST_GUILESS_MAIN(PruebaOdbc)
#include "moc_tst_odbcMotores.cpp"
#include "tst_odbc.moc"
