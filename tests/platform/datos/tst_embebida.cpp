#include "platform/datos/Cotejo.h"
#include "platform/datos/Dialecto.h"
#include "platform/datos/Funciones.h"
#include "platform/datos/PatronLike.h"
#include "platform/datos/Preparada.h"
#include "support/BaseDatos.h"

#include <QElapsedTimer>
#include <QRandomGenerator>

#include <future>
#include <sqlite3.h>

using namespace Qt::StringLiterals;
using namespace nv::pruebas;
using namespace nv::datos;

/// What only the embedded engine does: orders and LIKE of its own, words for its errors, files.
class PruebaEmbebida : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void more_forms_than_are_kept()
    {
        sqlite3 *base = aEspaldas(ruta(u"formas.db"_s), "CREATE TABLE t (a)");
        CachePreparadas cache;
        const auto pedir = [&](const QString &texto) { return cache.obtener(base, parametrizar(texto)).get(); };
        const auto *primera = pedir(u"SELECT 1 AS n0"_s);
        for (int i = 1; i < 300; ++i) {
            pedir(u"SELECT 1 AS n%1"_s.arg(i));
            QCOMPARE(pedir(u"SELECT %1 AS n0"_s.arg(i)), primera); // in use: it stays
        }
        QCOMPARE(cache.tamano(), CachePreparadas::Capacidad);
        pedir(u"SELECT 1 WHERE 1 IN (1"_s + u",1"_s.repeated(CachePreparadas::FormaMaxima / 2) + u')');
        pedir(u"DROP TABLE t"_s);
        QVERIFY(pedir(u"SELECT 7 AS n0"_s) == primera && cache.tamano() == CachePreparadas::Capacidad);
        cache.vaciar();
        QCOMPARE(sqlite3_close(base), SQLITE_OK); // nothing is left of them
    }

    void more_than_a_server_takes()
    {
        BaseDatos base;
        base.ejecutar(u"INSERT INTO Parametros_App (Clave, Valor) VALUES ('a', '1'), ('12', 'doce')"_s);
        QCOMPARE(base.filas(u"SELECT Clave FROM Parametros_App WHERE Clave =12"_s), QStringList{u"12"_s});
        base.ejecutar(u"INSERT INTO Articulos_Tarifas (Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp) VALUES"
                      u" (1, 1, 1, 0.3), (1, 2, 1, 10), (1, 5, 1, 90)"_s);
        QCOMPARE(base.filas(u"SELECT DISTINCT Cod_Articulo FROM Articulos_Tarifas WHERE Pvp > 0.3 ORDER BY Pvp DESC"_s),
                 (QStringList{u"5"_s, u"2"_s}));
        // Sums beyond an amount's range are an error, not another number.
        base.ejecutar(u"UPDATE Articulos_Tarifas SET Pvp = 900000000000000"_s);
        for (const QString &de : {u"Articulos_Tarifas"_s, u"(SELECT 9223372036854775807 AS Pvp UNION ALL SELECT 1)"_s,
                                  u"(SELECT 922337203685477 AS Pvp UNION ALL SELECT 0.9)"_s})
            QVERIFY(mensaje([&] {
                        base.filas(u"SELECT SUM(Pvp) FROM "_s + de);
                    }).endsWith(u"La suma se sale de lo que cabe."_s));
    }

    void types_that_only_a_host_uses()
    {
        BaseDatos base;
        base.ejecutar(u"CREATE TABLE Tipos (a tinyint, b bigint, c smallmoney, d smalldatetime, e date, f nvarchar(2),"
                      u" g char(2))"_s);
        for (const QStringList &c :
             tabla(u"a→255→256;a→0→-1;b→9223372036854775807→'9223372036854775808';c→-214748.3647→214748.3648;"
                   u"d→'01/01/1900'→'31/12/1899';e→'01/01/0001'→'01/01/0000';f→'ñé  '→'ñéx';f→'€'→'😀x';g→'ab'→'abc';"
                   u"a→'12'→'12a'"_s)) {
            const QString alta = u"INSERT INTO Tipos (%1) VALUES (%2)"_s;
            QVERIFY2(!falla([&] { base.ejecutar(alta.arg(c[0], c[1])); }), qPrintable(c.join(u' ')));
            QVERIFY2(falla([&] { base.ejecutar(alta.arg(c[0], c[2])); }), qPrintable(c.join(u' ')));
        }
    }

    void errors_in_words()
    {
        BaseDatos base;
        base.ejecutar(u"INSERT INTO Marcas (Codigo, Nombre) VALUES (1, 'Acme'); \r\n\t"_s);
        const QString casos[][2] = {
            {u"SELECT 1;DELETE FROM Marcas"_s, u"102 Sólo se admite una sentencia cada vez."_s},
            {u"  "_s, u"102 La sentencia está vacía."_s},
            {u"SELECT \u0001"_s, u"102 Carácter no válido"_s},
            {u"SELECT x FROM Nada"_s, u"1 La base de datos no ha podido hacerlo (no existe la tabla Nada)."_s},
            {u"INSERT INTO Marcas (Codigo) VALUES (1)"_s, u"1555 Ya existe una fila con la misma clave (Marcas.Cod"_s},
            {u"INSERT INTO Marcas (Nombre) VALUES (1)"_s, u"1299 Falta un valor obligatorio (Marcas.Codigo)."_s},
            {u"PRAGMA query_only = 1"_s, {}},
            {u"DELETE FROM Marcas"_s, u"8 La base de datos es de sólo lectura."_s},
        };
        for (const auto &[sentencia, visto] : casos)
            QVERIFY2(mensaje([&] { base.ejecutar(sentencia); }).startsWith(visto), qPrintable(sentencia));
        QCOMPARE(base.filas(u"SELECT Nombre FROM Marcas"_s), QStringList{u"Acme"_s});
    }

    void files_that_cannot_be_opened()
    {
        QFile texto(ruta(u"texto.db"_s));
        QVERIFY(texto.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        texto.write(QByteArray("esto no es una base de datos, ni lo parece. ").repeated(200));
        sqlite3_close(aEspaldas(ruta(u"ajena.db"_s), "CREATE TABLE t (a)"));
        for (const QString &catalogo : {u"posterior.db"_s, u"cortado.db"_s})
            abrirEmbebida(ruta(catalogo));
        sqlite3_close(aEspaldas(ruta(u"posterior.db"_s), "PRAGMA user_version = 16777216"));
        QVERIFY(QFile::resize(ruta(u"cortado.db"_s), 8192));
        const QString casos[][2] = {
            {ruta(u"no/hay/catalogo.db"_s), u"14 No existe la carpeta"_s},
            {ruta(u"."_s), u"» no es un archivo"_s},
            {u" "_s, u"14 « » no es un archivo"_s},
            {ruta(u"texto.db"_s), u"26 El archivo no es una base de datos. («"_s},
            {ruta(u"ajena.db"_s), u"26 El archivo es una base de datos, pero no un catálogo de artículos. («"_s},
            {ruta(u"posterior.db"_s), u"20 El catálogo es de una versión posterior"_s},
            {ruta(u"cortado.db"_s), u"11 La base de datos está dañada. («"_s}};
        for (const auto &[archivo, motivo] : casos) {
            const QString visto = mensaje([&] { abrirEmbebida(archivo); });
            QVERIFY2(visto.contains(motivo), qPrintable(visto));
        }
    }

    void many_make_the_file_at_once()
    {
        const auto abrir = [&] { filasDe(*abrirEmbebida(ruta(u"nuevo.db"_s)), u"SELECT Codigo FROM Empresas"_s); };
        std::array<std::future<QString>, 4> fallos;
        for (auto &fallo : fallos)
            fallo = std::async(std::launch::async, &mensaje, abrir);
        for (auto &fallo : fallos)
            QCOMPARE(fallo.get(), QString());
    }

    void writer_waits_for_the_other()
    {
        const auto una = abrirEmbebida(ruta(u"ocupado.db"_s));
        const auto otra = abrirEmbebida(ruta(u"ocupado.db"_s));
        una->Comenzar();
        una->Ejecutar(nv::Sentencia(u"INSERT INTO Marcas (Codigo, Nombre) VALUES (1, 'Acme')"));
        QCOMPARE(filasDe(*otra, u"SELECT COUNT(*) FROM Marcas"_s), QStringList{u"0"_s}); // reading goes on
        QElapsedTimer reloj;
        reloj.start();
        const QString visto = mensaje([&] { otra->Comenzar(); });
        QVERIFY2(reloj.elapsed() > 3000 && reloj.elapsed() < 20000, "patience of some seconds, then no more");
        QVERIFY(visto.startsWith(u"5 La base de datos está ocupada"_s) && !otra->enTransaccion());
        const auto hilo = std::async(std::launch::async, [&] {
            QTest::qSleep(300);
            una->Confirmar();
        });
        otra->Ejecutar(nv::Sentencia(u"INSERT INTO Marcas (Codigo, Nombre) VALUES (2, 'Roca')"));
        hilo.wait();
        QCOMPARE(filasDe(*una, u"SELECT COUNT(*) FROM Marcas"_s), QStringList{u"2"_s});
    }

    void file_held_by_another_program()
    {
        for (const char *retener : {"PRAGMA locking_mode = EXCLUSIVE; BEGIN IMMEDIATE; CREATE TABLE una (a); COMMIT",
                                    "PRAGMA journal_mode = DELETE; BEGIN IMMEDIATE"}) {
            abrirEmbebida(ruta(u"retenido.db"_s));
            sqlite3 *otro = aEspaldas(ruta(u"retenido.db"_s), retener);
            QElapsedTimer reloj;
            reloj.start();
            const QString visto = mensaje([&] { abrirEmbebida(ruta(u"retenido.db"_s)); });
            QVERIFY(visto.contains(u"ocupada"_s) && visto.contains(u"retenido.db"_s) && reloj.elapsed() < 15000);
            sqlite3_close(otro);
        }
    }

    void indices_of_another_order_are_rebuilt()
    {
        const QString archivo = ruta(u"viejo.db"_s);
        abrirEmbebida(archivo);
        const auto alReves = [](sqlite3 *base) {
            const auto orden = [](void *, int na, const void *a, int nb, const void *b) {
                return QByteArray(static_cast<const char *>(b), nb).compare({static_cast<const char *>(a), na});
            };
            return sqlite3_create_collation(base, "NV_TEXTO", SQLITE_UTF8, nullptr, orden);
        };
        const char *antes = "INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion) VALUES (1, 1, 'ALFA'),"
                            " (1, 2, 'beta'), (1, 3, 'GAMMA'), (1, 4, 'Ñu'); PRAGMA user_version = 131072;"
                            "INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras) VALUES"
                            " (1, 1, 'A'), (1, 2, 'b'), (1, 3, 'C')";
        sqlite3_close(aEspaldas(archivo, antes, alReves));
        for (int i = 0; i < 2; ++i) {
            const auto conexion = abrirEmbebida(archivo);
            QCOMPARE(filasDe(*conexion, u"PRAGMA integrity_check"_s), QStringList{u"ok"_s});
            const QString b = u"SELECT Cod_Articulo FROM Articulos_CBarras WHERE Cod_Empresa =1 AND Cod_Barras ='B'"_s;
            QCOMPARE(filasDe(*conexion, b), QStringList{u"2"_s});
        }
    }

    void orders_of_texts_and_dates()
    {
        comprobarOrden(u"=  < a<-A<×<÷<1<10<2<a=A=a  "
                       u"<Á=á<à<ab=AB<áb=ÁB<abc<az<æ=Æ<b<c<ç<ce<n<nz<ñ=Ñ<ñandú<o<Ö<oz<œ=Œ<p<s<š=Š<sz<ß<t"
                       u"<u<ü=Ü<y<ý=Ý<ÿ=Ÿ<yz<z<ž=Ž<zz<Ā<€<😀"_s,
                       &cotejarTexto);
        // What is no date comes first, as texts do.
        comprobarOrden(u"<0/1/2026<01/00/2026<01/13/2026<2026<22/11<22/11/2026 10:00 a<22/11/2026 "
                       u"a<22/11/20260<22/11/2026x<22/11/2026x10:00<22/11a2026<22a11/2026"
                       u"<32/1/2026<abc<01/01/1900<31/12/2025<1/2/2026=01/02/2026=2026-02-01=1.2.2026=1-2-2026"
                       u"< 22/11/2026=22/11/2026 =2026-11-22=2026-11-22 00:00:00.000=22/11/2026 00:00"
                       u"<22/11/2026 09:30=2026-11-22T09:30:00.5<22/11/2026 09:30:01<22/11/2026 10:00=22/11/2026 10"
                       u"<22/11/2026 23:59:59<23/11/2026<31/12/2026<01/01/2027"_s,
                       &cotejarFecha);
    }

    void like()
    {
        // Pattern, what fits, what does not.
        for (const QStringList &caso :
             tabla(u"torn→TORN|Torn  →TORNI|ATORN|TÓRN;BAÑ%→bañera|BAÑ→BANERA|ABAÑ;%ñe%→BAÑERA|ÑE→BANERA|Ñ|;"
                   u"%ER→TALLER|ERER|TALLER  →ERA;%A%A%→AA|BABA→A|BAB;%ABAC%D→ABABACD|ABACABACDD→ABABCD;%%→A|;"
                   u"_ñ_→AÑO|ñÑñ|€ñ€→AÑ|AÑOS;%_B→AB|ÁÉB→B;%[ab]→AB|CxB→AC;[a-c]1→A1|c1|Á1→D1|Ñ1|1;[n-o]→Ñ|n|O→M|P;"
                   u"[xa-c]1→X1|B1→-1|D1;[a-]→A|-→B;[^0-9]%→A1|ñ→1A|;10[%]→10%→100|10;%L'O\\%→ZAPATO l'o\\réal→LO;"
                   u"×÷→×÷→÷×|××;škoda%→Škoda|ŠKODA 1→SKODA;œžÿ→ŒŽŸ|œžÿ→OZY;%Ÿ→aÿ|Ÿ→y"_s)) {
            PatronLike compilado(caso[0].toStdString());
            for (const QString &valor : caso[1].split(u'|'))
                QVERIFY2(compilado.casa(valor.toStdString()), qPrintable(caso[0] + u" / "_s + valor));
            for (const QString &valor : caso.size() > 2 ? caso[2].split(u'|') : QStringList())
                QVERIFY2(!compilado.casa(valor.toStdString()), qPrintable(caso[0] + u" / "_s + valor));
        }
        PatronLike abierto("A[B");
        QVERIFY2(!abierto.casa("AB") && !abierto.casa("A[B"), "an open set fits nothing");
        for (std::string_view malo : {"\xC3(", "\xE2\x82(", "\xF0\x9F(("}) {
            const std::string_view resto = malo.substr(1);
            extraer(malo);
            QVERIFY2(malo == resto, "a malformed byte counts alone");
        }
    }

    void prefix_range_loses_no_match()
    {
        BaseDatos base;
        QRandomGenerator azar(11);
        // Short texts over a few letters, so that near misses abound.
        const auto texto = [&](int largo) {
            QString uno;
            for (int i = azar.bounded(largo + 1); i > 0; --i)
                uno += u"aÁnÑoÖçC €-'ÿšŒ"_s[azar.bounded(15)];
            return uno.replace(u"'"_s, u"''"_s);
        };
        const QString alta = u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion) VALUES (1, %1, '%2')"_s;
        for (int i = 0; i < 400; ++i)
            base.ejecutar(alta.arg(i).arg(texto(4)));
        const QString consulta = u"SELECT Codigo FROM Articulos WHERE Cod_Empresa =1 AND (%1 LIKE '%2%3') ORDER BY 1"_s;
        int conFilas = 0;
        for (int i = 0; i < 200; ++i) {
            const QString patron = texto(3);
            const QString resto = QStringList{u"_%"_s, u"%"_s, QString()}[i % 3];
            const QStringList conRango = base.filas(consulta.arg(u"Descripcion"_s, patron, resto));
            QCOMPARE(conRango, base.filas(consulta.arg(u"ISNULL(Descripcion,'')"_s, patron, resto)));
            conFilas += conRango.isEmpty() ? 0 : 1;
        }
        QVERIFY(conFilas > 50);
        // It is spelt out where an index can use it.
        const auto rangos = [&](const QString &columna, const QString &patron) {
            return adaptar(parametrizar(consulta.arg(columna, patron, u"%"_s)).forma).rangos.size();
        };
        QVERIFY(rangos(u"Descripcion"_s, u"n"_s) == 1 && rangos(u"a.Ref"_s, u"n"_s) == 1);
        QVERIFY(rangos(u"Descripcion"_s, u"%n"_s) + rangos(u"Desc_Memo"_s, u"n"_s) + rangos(u"Codigo"_s, u"1"_s) == 0);
    }

private:
    /// `orden`: ascending, separated by "<"; "=" joins what is equal.
    static void comprobarOrden(const QString &orden, int (*cotejar)(std::string_view, std::string_view))
    {
        const auto signo = [](qsizetype valor) { return valor < 0 ? -1 : (valor > 0 ? 1 : 0); };
        const QStringList grupos = orden.split(u'<');
        for (qsizetype i = 0; i < grupos.size() * grupos.size(); ++i) {
            const int esperado = signo(i / grupos.size() - i % grupos.size());
            for (const QString &uno : grupos[i / grupos.size()].split(u'='))
                for (const QString &otro : grupos[i % grupos.size()].split(u'='))
                    QVERIFY2(signo(cotejar(uno.toStdString(), otro.toStdString())) == esperado,
                             qPrintable(uno + u" / "_s + otro));
        }
    }
    static QString mensaje(const std::function<void()> &operacion)
    {
        const nv::Error error = errorDe(operacion);
        return error.numero == -1 ? QString() : u"%1 %2"_s.arg(error.numero).arg(error.descripcion);
    }
    /// The file behind the engine's back, with its functions unless other ones are brought.
    static sqlite3 *aEspaldas(const QString &ruta, const char *sql, int (*registrar)(sqlite3 *) = &registrarFunciones)
    {
        sqlite3 *base = nullptr;
        sqlite3_open(ruta.toUtf8().constData(), &base);
        registrar(base);
        if (sqlite3_exec(base, sql, nullptr, nullptr, nullptr) != SQLITE_OK)
            qFatal("%s", sqlite3_errmsg(base));
        return base;
    }
    QString ruta(const QString &nombre) const { return m_carpeta.filePath(nombre); }

    const QTemporaryDir m_carpeta;
};

NV_PRUEBA(PruebaEmbebida)
#include "tst_embebida.moc"
