#include "support/BaseDatos.h"

#include "common/Error.h"
#include "platform/datos/Apertura.h"
#include "platform/datos/Funciones.h"
#include "platform/datos/Motores.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QtTest>

#include <array>
#include <functional>
#include <set>
#include <sqlite3.h>
#include <thread>

using namespace Qt::StringLiterals;
using nv::pruebas::filasDe;

/// The embedded engine as a connection: values, open results, transactions, errors, files.
class PruebaEmbebida : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void more_forms_than_are_kept();
    void numbers_and_texts_compare_as_the_column_says();
    void distinct_rows_in_another_order();
    void only_one_statement_goes_out();
    void open_results_survive_other_statements();
    void open_result_outlives_its_connection();
    void transactions();
    void errors_in_statements();
    void files_that_cannot_be_opened_data();
    void files_that_cannot_be_opened();
    void locked_file();
    void file_held_by_another_program();
    void indices_of_another_order_are_rebuilt();
    void two_connections_issue_no_number_twice();

private:
    QString ruta(const QString &nombre) const { return m_carpeta->filePath(nombre); }

    std::unique_ptr<QTemporaryDir> m_carpeta;
};

namespace {

qint32 numeroDeError(const std::function<void()> &operacion)
{
    try {
        operacion();
    } catch (const nv::Error &error) {
        return error.descripcion.isEmpty() ? -2 : error.numero;
    }
    return -1;
}

void escribir(const QString &ruta, const QByteArray &contenido)
{
    QFile archivo(ruta);
    QVERIFY(archivo.open(QIODevice::WriteOnly));
    archivo.write(contenido);
}

/// A file changed behind the engine's back, with its functions unless it brings its own.
void aEspaldas(const QString &ruta, const char *sql, int (*registrar)(sqlite3 *) = nullptr)
{
    sqlite3 *base = nullptr;
    QCOMPARE(sqlite3_open(ruta.toUtf8().constData(), &base), SQLITE_OK);
    QCOMPARE(registrar ? registrar(base) : nv::datos::registrarFunciones(base), SQLITE_OK);
    char *mensaje = nullptr;
    QVERIFY2(sqlite3_exec(base, sql, nullptr, nullptr, &mensaje) == SQLITE_OK, mensaje);
    sqlite3_close(base);
}

} // namespace

void PruebaEmbebida::init()
{
    m_carpeta = std::make_unique<QTemporaryDir>();
    QVERIFY(m_carpeta->isValid());
}

void PruebaEmbebida::more_forms_than_are_kept()
{
    nv::pruebas::BaseDatos base;
    for (int vuelta = 0; vuelta < 2; ++vuelta) {
        for (int i = 0; i < 300; ++i)
            QCOMPARE(base.filas(u"SELECT %1 AS n%2"_s.arg(vuelta * 1000 + i).arg(i)),
                     QStringList{QString::number(vuelta * 1000 + i)});
    }
}

/// Both are more than a server takes.
void PruebaEmbebida::numbers_and_texts_compare_as_the_column_says()
{
    nv::pruebas::BaseDatos base;
    base.ejecutar(u"INSERT INTO Parametros_App (Clave, Valor) VALUES ('a', '1'), ('12', 'doce')"_s);
    QCOMPARE(base.filas(u"SELECT Clave FROM Parametros_App WHERE Clave =12"_s), QStringList{u"12"_s});
    QCOMPARE(base.filas(u"SELECT Clave FROM Parametros_App WHERE Clave ='12'"_s), QStringList{u"12"_s});
}

void PruebaEmbebida::distinct_rows_in_another_order()
{
    nv::pruebas::BaseDatos base;
    base.ejecutar(u"INSERT INTO Articulos_Tarifas (Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp) VALUES (1, 1, 1, 0.3), "
                  u"(1, 2, 1, 10), (1, 5, 1, 90)"_s);
    QCOMPARE(base.filas(u"SELECT DISTINCT Cod_Articulo FROM Articulos_Tarifas WHERE Pvp > 0.3 ORDER BY Pvp DESC"_s),
             (QStringList{u"5"_s, u"2"_s}));
}

void PruebaEmbebida::only_one_statement_goes_out()
{
    nv::pruebas::BaseDatos base;
    base.ejecutar(u"INSERT INTO Marcas (Codigo, Nombre) VALUES (1, 'Acme');"_s);
    for (const QString &sentencia :
         {u"SELECT 1; DELETE FROM Marcas"_s, u"DELETE FROM Marcas WHERE Nombre ='x'; DELETE FROM Marcas"_s,
          u"SELECT 'sin cerrar"_s, u"  "_s, u"SELECT Codigo FROM Marcas WHERE Codigo =1AND Nombre ='Acme'"_s,
          u"SELECT \u0001"_s})
        QVERIFY2(numeroDeError([&] { base.filas(sentencia); }) > 0, qPrintable(sentencia));
    QCOMPARE(base.filas(u"SELECT Nombre FROM Marcas WHERE Nombre <> '; DELETE FROM Marcas --'"_s),
             QStringList{u"Acme"_s});
    QCOMPARE(base.filas(u"SELECT Codigo /* ' */ FROM Marcas -- it's the end"_s), QStringList{u"1"_s});
}

void PruebaEmbebida::open_results_survive_other_statements()
{
    nv::pruebas::BaseDatos base;
    nv::Conexion &conexion = base.conexion();
    for (int i = 1; i <= 20; ++i)
        base.ejecutar(u"INSERT INTO Marcas (Codigo, Nombre) VALUES (%1, 'M%1')"_s.arg(i));
    const nv::Sentencia todas(u"SELECT Codigo, Nombre FROM Marcas WHERE Codigo > 0 ORDER BY Codigo");
    nv::Registros sinEmpezar = conexion.Abrir(todas);
    nv::Registros empezado = conexion.Abrir(todas);
    QVERIFY(empezado.siguiente());
    QVERIFY(empezado.siguiente());
    nv::Registros ultimo = conexion.Abrir(todas);
    for (int i = 0; i < 20; ++i)
        QVERIFY(ultimo.siguiente());
    nv::Registros vacio = conexion.Abrir(nv::Sentencia(u"SELECT Codigo FROM Marcas WHERE Codigo =99"));
    {
        nv::Transaccion transaccion(conexion);
        conexion.Ejecutar(nv::Sentencia(u"DELETE FROM Marcas WHERE Codigo > 5"));
        QCOMPARE(empezado.texto(u"Nombre"), u"M2"_s);
        QVERIFY(empezado.siguiente());
    }
    QCOMPARE(empezado.entero32(0), 3);
    QCOMPARE(filasDe(empezado).size(), 17);
    QCOMPARE(filasDe(sinEmpezar).size(), 20);
    QCOMPARE(ultimo.texto(1), u"M20"_s);
    QVERIFY(!ultimo.siguiente());
    QCOMPARE(vacio.nombre(0), u"Codigo"_s);
    QVERIFY(!vacio.siguiente());
    QCOMPARE(base.filas(u"SELECT COUNT(*) FROM Marcas"_s), QStringList{u"20"_s});
}

void PruebaEmbebida::open_result_outlives_its_connection()
{
    std::unique_ptr<nv::Conexion> conexion = nv::datos::abrirEmbebida(u":memory:"_s);
    conexion->Ejecutar(nv::Sentencia(u"INSERT INTO Marcas (Codigo, Nombre) VALUES (1, 'Acme'), (2, 'Roca')"));
    nv::Registros registros = conexion->Abrir(nv::Sentencia(u"SELECT Nombre FROM Marcas ORDER BY Codigo"));
    nv::Registros otro = conexion->Abrir(nv::Sentencia(u"SELECT Nombre FROM Marcas ORDER BY Codigo"));
    QVERIFY(otro.siguiente());
    conexion.reset();
    QCOMPARE(otro.texto(0), u"Acme"_s);
    QCOMPARE(numeroDeError([&] { otro.siguiente(); }), nv::errores::ConexionCerrada);
    QCOMPARE(filasDe(registros).size(), 2); // was in memory when its connection went
}

void PruebaEmbebida::transactions()
{
    nv::pruebas::BaseDatos base;
    nv::Conexion &conexion = base.conexion();
    {
        nv::Transaccion transaccion(conexion);
        base.ejecutar(u"INSERT INTO Marcas (Codigo, Nombre) VALUES (1, 'Acme')"_s);
        QVERIFY(numeroDeError([&] { base.ejecutar(u"INSERT INTO Marcas (Codigo, Nombre) VALUES (1, 'Otra')"_s); }) > 0);
        base.ejecutar(u"INSERT INTO Marcas (Codigo, Nombre) VALUES (2, 'Roca')"_s);
        transaccion.confirmar(); // a duplicate leaves the transaction open
    }
    {
        nv::Transaccion transaccion(conexion);
        base.ejecutar(u"DELETE FROM Marcas"_s);
        base.ejecutar(u"ROLLBACK"_s); // as when the engine rolled back by itself
    }
    QCOMPARE(base.filas(u"SELECT COUNT(*) FROM Marcas"_s), QStringList{u"2"_s});
    QVERIFY(!conexion.enTransaccion());
}

void PruebaEmbebida::errors_in_statements()
{
    nv::pruebas::BaseDatos base;
    base.ejecutar(u"INSERT INTO Marcas (Codigo, Nombre) VALUES (1, 'Acme')"_s);
    const auto mensaje = [&](const QString &sentencia) {
        try {
            base.filas(sentencia);
        } catch (const nv::Error &error) {
            return u"%1 %2"_s.arg(error.numero).arg(error.descripcion);
        }
        return QString();
    };
    QCOMPARE(mensaje(u"SELECT x FROM Nada"_s), u"1 no such table: Nada"_s);
    QCOMPARE(mensaje(u"INSERT INTO Marcas (Codigo) VALUES (1)"_s),
             u"1555 Ya existe una fila con la misma clave (Marcas.Codigo)."_s);
    QCOMPARE(mensaje(u"INSERT INTO Proveedores (Codigo) VALUES (1)"_s),
             u"1299 Falta un valor obligatorio (Proveedores.Cod_Empresa)."_s);
    base.ejecutar(u"PRAGMA query_only = 1"_s);
    QCOMPARE(mensaje(u"DELETE FROM Marcas"_s), u"8 La base de datos es de sólo lectura."_s);
    QCOMPARE(base.filas(u"SELECT Codigo FROM Marcas"_s), QStringList{u"1"_s});
}

void PruebaEmbebida::files_that_cannot_be_opened_data()
{
    QTest::addColumn<QString>("nombre");
    QTest::addColumn<int>("numero");
    QTest::addColumn<QString>("descripcion");
    QTest::newRow("missing folder") << u"no/hay/catalogo.db"_s << SQLITE_CANTOPEN << u"No existe la carpeta"_s;
    QTest::newRow("a folder") << u"."_s << SQLITE_CANTOPEN << u"no es un archivo"_s;
    QTest::newRow("no name") << QString() << SQLITE_CANTOPEN << u"no es un archivo"_s;
    QTest::newRow("a text") << u"texto.db"_s << SQLITE_NOTADB << u"no es una base de datos"_s;
    QTest::newRow("another database") << u"ajena.db"_s << SQLITE_NOTADB << u"no un catálogo"_s;
    QTest::newRow("a newer catalogue") << u"nuevo.db"_s << SQLITE_MISMATCH << u"versión posterior"_s;
    QTest::newRow("cut short") << u"cortado.db"_s << SQLITE_CORRUPT << u"dañada"_s;
}

void PruebaEmbebida::files_that_cannot_be_opened()
{
    QFETCH(QString, nombre);
    QFETCH(int, numero);
    QFETCH(QString, descripcion);
    escribir(ruta(u"texto.db"_s), QByteArray("esto no es una base de datos, ni lo parece. ").repeated(200));
    aEspaldas(ruta(u"ajena.db"_s), "CREATE TABLE t (a)");
    nv::datos::abrirEmbebida(ruta(u"nuevo.db"_s));
    aEspaldas(ruta(u"nuevo.db"_s), "PRAGMA user_version = 16777216");
    nv::datos::abrirEmbebida(ruta(u"cortado.db"_s));
    QVERIFY(QFile::resize(ruta(u"cortado.db"_s), 8192));
    try {
        nv::datos::abrirEmbebida(nombre.isEmpty() ? nombre : ruta(nombre));
        QFAIL("it opened");
    } catch (const nv::Error &error) {
        QVERIFY2(error.descripcion.contains(descripcion), qPrintable(error.descripcion));
        QCOMPARE(error.numero & 0xFF, numero);
    }
}

void PruebaEmbebida::locked_file()
{
    const QString archivo = ruta(u"ocupado.db"_s);
    std::unique_ptr<nv::Conexion> una = nv::datos::abrirEmbebida(archivo);
    std::unique_ptr<nv::Conexion> otra = nv::datos::abrirEmbebida(archivo);
    nv::Transaccion transaccion(*una);
    una->Ejecutar(nv::Sentencia(u"INSERT INTO Marcas (Codigo, Nombre) VALUES (1, 'Acme')"));
    QCOMPARE(filasDe(*otra, u"SELECT COUNT(*) FROM Marcas"_s), QStringList{u"0"_s}); // reading goes on
    try {
        otra->Comenzar();
        QFAIL("two writers at once");
    } catch (const nv::Error &error) {
        QCOMPARE(error.numero & 0xFF, SQLITE_BUSY);
        QVERIFY2(error.descripcion.contains(u"ocupada"_s), qPrintable(error.descripcion));
    }
    transaccion.confirmar();
    otra->Ejecutar(nv::Sentencia(u"INSERT INTO Marcas (Codigo, Nombre) VALUES (2, 'Roca')"));
}

void PruebaEmbebida::file_held_by_another_program()
{
    const QString archivo = ruta(u"retenido.db"_s);
    nv::datos::abrirEmbebida(archivo);
    sqlite3 *otro = nullptr;
    QCOMPARE(sqlite3_open(archivo.toUtf8().constData(), &otro), SQLITE_OK);
    sqlite3_exec(otro, "PRAGMA locking_mode = EXCLUSIVE; BEGIN IMMEDIATE; CREATE TABLE una (a); COMMIT", nullptr,
                 nullptr, nullptr);
    QElapsedTimer reloj;
    reloj.start();
    try {
        nv::datos::abrirEmbebida(archivo);
        QFAIL("it opened");
    } catch (const nv::Error &error) {
        QVERIFY2(error.descripcion.contains(u"ocupada"_s), qPrintable(error.descripcion));
        QVERIFY(error.descripcion.contains(u"retenido.db"_s));
    }
    QVERIFY(reloj.elapsed() < 8000);
    sqlite3_close(otro);
    nv::datos::abrirEmbebida(archivo);
}

void PruebaEmbebida::indices_of_another_order_are_rebuilt()
{
    const QString archivo = ruta(u"viejo.db"_s);
    nv::datos::abrirEmbebida(archivo);
    const auto alReves = [](sqlite3 *base) {
        const auto orden = [](void *, int na, const void *a, int nb, const void *b) {
            const std::string_view uno(static_cast<const char *>(a), static_cast<std::size_t>(na));
            const std::string_view otro(static_cast<const char *>(b), static_cast<std::size_t>(nb));
            return otro.compare(uno);
        };
        sqlite3_create_collation(base, "NV_FECHA", SQLITE_UTF8, nullptr, orden);
        return sqlite3_create_collation(base, "NV_TEXTO", SQLITE_UTF8, nullptr, orden);
    };
    aEspaldas(archivo,
              "INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion) VALUES (1, 1, 'ALFA'), (1, 2, 'beta'), (1, 3, "
              "'GAMMA'), (1, 4, 'Ñu');"
              "INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras) VALUES (1, 1, 'A'), (1, 2, 'b'), "
              "(1, 3, 'C');"
              "PRAGMA user_version = 131072",
              alReves);
    const std::unique_ptr<nv::Conexion> conexion = nv::datos::abrirEmbebida(archivo);
    QCOMPARE(filasDe(*conexion, u"PRAGMA integrity_check"_s), QStringList{u"ok"_s});
    QCOMPARE(
        filasDe(*conexion, u"SELECT Cod_Articulo FROM Articulos_CBarras WHERE Cod_Empresa =1 AND Cod_Barras ='B'"_s),
        QStringList{u"2"_s});
    QCOMPARE(filasDe(*conexion, u"SELECT Codigo FROM Articulos WHERE Cod_Empresa =1 AND Descripcion LIKE 'ñ%'"_s),
             QStringList{u"4"_s});
}

void PruebaEmbebida::two_connections_issue_no_number_twice()
{
    const QString archivo = ruta(u"contador.db"_s);
    constexpr int PorHilo = 100;
    std::array<std::vector<qint64>, 2> emitidos;
    std::array<QString, 2> fallos;
    const auto emitir = [&](std::size_t hilo) {
        try {
            const std::unique_ptr<nv::Conexion> conexion = nv::datos::abrirEmbebida(archivo);
            for (int i = 0; i < PorHilo; ++i) {
                nv::Transaccion transaccion(*conexion);
                if (conexion->Ejecutar(nv::Sentencia(
                        u"UPDATE Contador_CBarras SET Cod_Barras = Cod_Barras + 1 WHERE Cod_Empresa =1")) == 0)
                    conexion->Ejecutar(
                        nv::Sentencia(u"INSERT INTO Contador_CBarras (Cod_Empresa, Cod_Barras) VALUES (1, '9810001')"));
                nv::Registros registros =
                    conexion->Abrir(nv::Sentencia(u"SELECT * FROM Contador_CBarras WHERE Cod_Empresa=1"));
                registros.siguiente();
                emitidos.at(hilo).push_back(registros.entero64(u"Cod_Barras"));
                transaccion.confirmar();
            }
        } catch (const nv::Error &error) {
            fallos.at(hilo) = error.descripcion;
        }
    };
    std::thread uno(emitir, 0U); // both make the file, too
    std::thread dos(emitir, 1U);
    uno.join();
    dos.join();
    QCOMPARE(fallos[0] + fallos[1], QString());
    std::set<qint64> distintos(emitidos[0].begin(), emitidos[0].end());
    distintos.insert(emitidos[1].begin(), emitidos[1].end());
    QCOMPARE(distintos.size(), std::size_t{2 * PorHilo});
    QCOMPARE(*distintos.rbegin(), 9810001 + 2 * PorHilo - 1);
}

QTEST_GUILESS_MAIN(PruebaEmbebida)
#include "tst_embebida.moc"
