#include "barcodes/clsArticulo_CBarra.h"
#include "support/BaseDatos.h"
#include "support/Conductor.h"
#include "support/EmpresaPrueba.h"

#include <QProcess>

using namespace Qt::StringLiterals;
using namespace nv::pruebas;

/// As a workstation: issues numbers for that many items from a first one on and stores each.
static int emitir(const QStringList &argumentos)
{
    EmpresaPrueba empresa;
    try {
        const auto conexion = Lugar::conectarA(argumentos[0]);
        clsArticulo_CBarra barra;
        barra.setcEmpresa(&empresa);
        barra.setConexion(conexion.get());
        barra.Automatico = barra.Principal = true;
        barra.Unidades = 1;
        const int primero = argumentos[1].toInt();
        for (int i = 0; i < argumentos[2].toInt(); ++i) {
            barra.Cod_Articulo = primero + i;
            barra.Cod_Barras = barra.CrearAuto();
            barra.Insertar();
            puts(qPrintable(barra.Cod_Barras));
            fflush(stdout);
        }
        return 0;
    } catch (const nv::Error &error) {
        fputs(qPrintable(error.descripcion), stderr);
        return 1;
    }
}

/// Items 10 (barcodes A and B, the main one) and 20 (C), on every engine that speaks the suite's dialect.
class tst_clsArticulo_CBarra : public PruebaVias
{
    Q_OBJECT

private Q_SLOTS:
    void loads_main_first_and_steps()
    {
        auto barra = nueva();
        nv::Registros registros;
        QVERIFY(barra.Cargar(registros, 10));
        QVERIFY(barra.Cod_Barras == u"B" && barra.Principal && !barra.Automatico && barra.Unidades == 1);
        QCOMPARE(barra.Fecha, QDate(2026, 2, 1));
        QVERIFY2(registros.siguiente() && registros.texto(u"Cod_Barras") == u"A", "the caller walks on");
        QVERIFY(!barra.Cargar(registros, 99) && barra.Cod_Articulo == 10);

        inserta(15, u"S"_s, 0);
        auto paso = nueva();
        const auto en = [&](bool hallado) { return hallado ? paso.Cod_Articulo : 0; };
        for (const int articulo : {10, 15, 20, 0})
            QCOMPARE(en(paso.Cargar_Siguiente(registros)), articulo);
        QVERIFY2(paso.Cod_Articulo == 20 && paso.Cod_Barras == u"C", "a step that finds nothing leaves the record");
        QCOMPARE(en(paso.Cargar_Anterior(registros)), 15);
        QCOMPARE(en(paso.Cargar_Ultimo(registros)), 20);
        QCOMPARE(en(paso.Cargar_Primero(registros)), 10);
        QCOMPARE(en(paso.Cargar_Anterior(registros)), 0);
        QCOMPARE(paso.Dev_CodigoBarraPrincipal(20) + paso.Dev_CodigoBarraPrincipal(15), u"C"_s);
    }

    void main_mark_moves()
    {
        auto barra = nueva(10, u"D"_s);
        barra.Unidades = 6;
        barra.Fecha = QDate(2000, 1, 1);
        barra.Principal = true;
        barra.Insertar();
        QCOMPARE(deArticulo(10), u"A|0 B|0 D|1"_s);
        nv::Registros registros;
        QVERIFY(barra.Cargar(registros, 10));
        QVERIFY2(barra.Fecha == m_empresa.hoy, "a barcode is dated when it is recorded");
        QCOMPARE(barra.Unidades, qint16(6));
        barra.Cod_Barras = u"E"_s;
        barra.Principal = false;
        barra.Insertar();
        barra.Cambia_Principal(u"A"_s);
        QCOMPARE(deArticulo(10), u"A|1 B|0 D|0 E|0"_s);
        barra.Eliminar(u"D"_s, 10, false);
        barra.Eliminar(u"E"_s, 10, false);
        QCOMPARE(deArticulo(10), u"A|1 B|0"_s);
        barra.Eliminar(u"A"_s, 10, true);
        QCOMPARE(deArticulo(10), u"B|1"_s);
        barra.Eliminar(u"C"_s, 20, true);
        QCOMPARE(deArticulo(20), QString());
    }

    void modify_goes_by_key()
    {
        auto barra = nueva(20, u"Z"_s);
        barra.setKey(10);
        barra.Modificar(u"A"_s);
        QCOMPARE(deArticulo(10), u"B|1 Z|0"_s);
        barra.Principal = true;
        barra.Modificar(u"Z"_s);
        QCOMPARE(deArticulo(10) + deArticulo(20), u"B|1 Z|1C|1"_s);
    }

    void main_barcode_is_taken_from_another_item_only_if_agreed()
    {
        inserta(20, u"C2"_s, 0);
        auto barra = nueva(20, u"B"_s);
        Conductor conductor;
        // Agreed once, it is the item's own: nothing to ask.
        for (const QStringList &caso : tabla(u"No→A|0 B|1→C|1 C2|0;Sí→A|1→B|1 C2|0;→A|1→B|1 C2|0"_s)) {
            if (!caso[0].isEmpty())
                conductor.responde(caso[0]);
            barra.ModificarPrincipal();
            QVERIFY(conductor.terminado() && deArticulo(10) == caso[1] && deArticulo(20) == caso[2]);
            QCOMPARE(conductor.cajas().back().titulo, u"Confirme la operación..."_s);
            QCOMPARE(conductor.cajas().back().texto,
                     u"El EAN B existe en el artículo 10 - DIEZ. ¿Desea Traspasarlo?"_s);
        }
        barra = nueva(30, u"NUEVO"_s);
        barra.ModificarPrincipal();
        QVERIFY2(deArticulo(30) == u"NUEVO|1", "an item without a main barcode gets it inserted as such");
        barra = nueva(20, u"C2"_s);
        barra.ModificarPrincipal();
        QVERIFY2(deArticulo(20) == u"B|0 C2|1", "one that it has already takes the mark");
        if (via() == Via::Embebida) {
            barra = nueva(40, u"C2"_s);
            conductor.responde(u"Sí"_s);
            rompe(u"INSERT"_s, [&] { barra.ModificarPrincipal(); });
            QVERIFY(!barra.Principal);
            barra = nueva(20, u"Q"_s);
            barra.Principal = true;
            rompe(u"INSERT"_s, [&] { barra.Insertar(); });
            rompe(u"DELETE"_s, [&] { barra.Eliminar(u"C2"_s, 20, true); });
        }
        barra.Eliminar(u"B"_s, 20, true); // it is not the main one, whatever its caller thinks
        QCOMPARE(deArticulo(20), u"C2|1"_s);
    }

    void owner_of_a_barcode()
    {
        auto barra = nueva();
        qint32 articulo = 0;
        QString nombre = u"x"_s;
        qint16 unidades = 0;
        bool principal = true;
        QVERIFY(barra.Existe(u"a"_s, articulo, nombre, unidades, principal));
        QVERIFY(articulo == 10 && nombre == u"DIEZ" && unidades == 1 && !principal);
        QVERIFY(barra.Existe(u"C"_s, articulo, nombre, unidades, principal));
        QVERIFY2(articulo == 20 && nombre.isEmpty() && principal, "an item whose row is missing has no name");
        QVERIFY(!barra.Existe(u"NADA"_s, articulo, nombre, unidades, principal));
        ejecutar(u"UPDATE Articulos_CBarras SET Unidades = NULL, Principal = NULL WHERE Cod_Articulo = 20"_s);
        QVERIFY(barra.Existe(u"C"_s, articulo, nombre, unidades, principal) && unidades == 1 && !principal);
        nv::Registros registros;
        QVERIFY(barra.Cargar(registros, 20) && barra.Unidades == 1 && !barra.Principal);
    }

    void errors_carry_the_outermost_label()
    {
        auto barra = nueva();
        nv::Registros registros;
        QVERIFY(barra.Cargar(registros, 20));
        barra.Cod_Barras = u"O'R"_s;
        QCOMPARE(errorDe([&] { barra.ModificarPrincipal(); }).origen, u"clsCodigos_Barra::Modificar"_s);
        QCOMPARE(errorDe([&] { barra.Cambia_Principal(u"O'R"_s); }).origen, u"clsCodigos_Barra::Modificar"_s);
        QCOMPARE(errorDe([&] { barra.Insertar(); }).origen, u"clsCodigos_Barra::Insertar"_s);
        QCOMPARE(errorDe([&] { barra.Eliminar(u"O'R"_s, 1, false); }).origen, u"clsCodigos_Barra::Existe"_s);
        QVERIFY2(deArticulo(20) == u"C|1", "the main mark is not lost to what cannot be sent");
        clsArticulo_CBarra suelta;
        QCOMPARE(errorDe([&] { suelta.Cargar(registros, 10); }).origen, u"clsCodigos_Barra::Cargar"_s);
        QCOMPARE(errorDe([&] { suelta.CrearAuto(); }).origen, u"clsCodigos_Barra::CrearAuto"_s);
        suelta.setcEmpresa(&m_empresa);
        QCOMPARE(errorDe([&] { suelta.Dev_CodigoBarraPrincipal(1); }).origen, u"clsCodigos_Barra::Existe"_s);
    }

    void check_digits_are_appended_in_bulk()
    {
        const QList<QStringList> casos = tabla(u"40→400638133393→4006381333931|1;41→9810001→98100019|1;"
                                               u"42→12345678→12345678|1;45→O''R4567→O'R45674|0;"
                                               u"46→400638133393→400638133393|1"_s);
        for (const QStringList &caso : casos)
            inserta(caso[0].toInt(), caso[1], caso[2].endsWith(u"|1"));
        inserta(40, u"9810001"_s, 0); // its own stands there with the digit already
        inserta(40, u"98100019"_s, 0);
        const nv::Error choque = errorDe([&] { nueva().Calc_Check(40, 45); });
        QVERIFY2(choque.descripcion.contains(u"98100019 del artículo 40"_s), qPrintable(choque.descripcion));
        ejecutar(u"DELETE FROM Articulos_CBarras WHERE Cod_Articulo = 40 AND Cod_Barras LIKE '9810001%'"_s);
        for (const QStringList &caso : casos)
            QCOMPARE(deArticulo(caso[0].toInt()), caso[2]);
        auto barra = nueva(0, u"98100019"_s);
        QVERIFY(barra.Dev_Check() == 9 && barra.Dev_Check(u"400638133393"_s) == 1 && nueva().Dev_Check() == 0);
        QVERIFY(barra.Validar() && !nueva(0, u"98100010"_s).Validar());
    }

    void automatic_numbers_skip_what_is_taken()
    {
        auto barra = nueva(60);
        QCOMPARE(barra.CrearAuto(), u"98100019"_s);
        inserta(70, u"98100026"_s, 1);
        const QString siguiente = barra.CrearAuto();
        QVERIFY2(siguiente.startsWith(u"9810003"), "what was issued is not issued again, what is taken is skipped");
        barra.Cod_Barras = siguiente;
        barra.Automatico = true;
        barra.Insertar();
        QCOMPARE(barra.CrearAuto(), siguiente);
        QVERIFY2(nueva(61).CrearAuto().startsWith(u"9810004"), "reading an issued barcode leaves the counter");

        ejecutar(u"UPDATE Contador_CBarras SET Cod_Barras = '9999999'"_s);
        const nv::Transaccion unidad(conexion());
        QCOMPARE(nueva(62).CrearAuto(), u"100000007"_s);
        QVERIFY2(conexion().enTransaccion(), "inside an open transaction it joins that one");
        for (const QStringList &caso : tabla(u"9007199254740993→90071992547409946;0099→1007;99999999999999999999→"
                                             u"1000000000000000000009;x1→;-7→;1e3→;→"_s)) {
            ejecutar(u"UPDATE Contador_CBarras SET Cod_Barras = '%1'"_s.arg(caso[0]));
            QString numero;
            const nv::Error error = errorDe([&] { numero = nueva(63).CrearAuto(); });
            QVERIFY2(numero.chopped(!numero.isEmpty()) == caso[1].chopped(!caso[1].isEmpty()), qPrintable(numero));
            QCOMPARE(error.descripcion.contains(u"«%1»"_s.arg(caso[0])), caso[1].isEmpty());
        }
    }

    /// No lock holds a row that is not there yet: another workstation may make it between our look and our write.
    void rival_that_makes_the_counter_first_is_followed()
    {
        struct Rival : nv::OyenteSentencias
        {
            nv::Conexion *conexion = nullptr;
            int veces = 1;
            void sentencia(const nv::SucesoSentencia &suceso) override
            {
                if (suceso.texto.startsWith(u"UPDATE Contador_CBarras SET Cod_Barras = Cod_Barras") && veces-- > 0)
                    conexion->Ejecutar(
                        nv::Sentencia(u"INSERT INTO Contador_CBarras (Cod_Empresa, Cod_Barras) VALUES (2, '9810001')"));
            }
        } rival;
        // The embedded engine lets nobody else write meanwhile: there the rival's row goes with our rollback.
        const bool compartido = via() == Via::Servidor;
        const auto otra = lugar().conectar();
        rival.conexion = compartido ? otra.get() : &conexion();
        conexion().escuchar(&rival);
        const auto sordo = qScopeGuard([&] { conexion().dejarDeEscuchar(&rival); });
        conexion().Comenzar();
        QVERIFY2(falla([&] { nueva(60).CrearAuto(); }), "the transaction is not its to begin again");
        conexion().Deshacer();
        ejecutar(u"DELETE FROM Contador_CBarras"_s);
        rival.veces = 1;
        const QString numero = nueva(60).CrearAuto();
        QVERIFY2(numero.startsWith(compartido ? u"9810002"_s : u"9810001"_s), qPrintable(numero));
        QVERIFY(rival.veces < 0 && !conexion().enTransaccion());
        QCOMPARE(filas(u"SELECT COUNT(*) FROM Contador_CBarras"_s), QStringList{u"1"_s});
    }

    /// Three workstations work on while others are killed; a kill loses at most the number in its hands.
    void processes_share_no_number_even_when_killed()
    {
        constexpr int Muertes = 8;
        const int porProceso = via() == Via::Servidor ? 30 : 300;
        inserta(1, u"98100064"_s, 1); // taken by hand before its turn: number 9810006
        const auto arrancar = [&](QProcess &proceso, int primero, int cuantos) {
            proceso.start(QCoreApplication::applicationFilePath(),
                          {u"--emitir"_s, lugar().texto(), QString::number(primero), QString::number(cuantos)});
        };
        QProcess constantes[3];
        for (int i = 0; i < 3; ++i)
            arrancar(constantes[i], 1000 * (i + 1), porProceso);
        for (int i = 0; i < Muertes; ++i) {
            QProcess victima;
            arrancar(victima, 100000 * (i + 1), 100000);
            for (int leidos = 0; leidos <= i;) {
                QVERIFY(victima.canReadLine() || victima.waitForReadyRead(60000));
                leidos += victima.readLine().isEmpty() ? 0 : 1;
            }
            victima.kill();
            QVERIFY(victima.waitForFinished(60000));
        }
        for (QProcess &proceso : constantes) {
            QVERIFY(proceso.state() == QProcess::NotRunning || proceso.waitForFinished(120000));
            QVERIFY2(proceso.exitCode() == 0, proceso.readAllStandardError().constData());
        }
        const QString repetidos = u"SELECT Cod_Barras FROM Articulos_CBarras GROUP BY Cod_Barras HAVING COUNT(*) > 1"_s;
        QCOMPARE(filas(repetidos), QStringList());
        const auto numero = [&](const QString &consulta) { return filas(consulta).value(0).toInt(); };
        const int guardados = numero(u"SELECT COUNT(*) FROM Articulos_CBarras WHERE Automatico = 1"_s);
        const int emitidos = numero(u"SELECT Cod_Barras FROM Contador_CBarras"_s) - 9810001; // one was taken by hand
        QVERIFY(guardados >= 3 * porProceso + Muertes * (Muertes + 1) / 2);
        QVERIFY(emitidos >= guardados && emitidos <= guardados + Muertes);
        QCOMPARE(deArticulo(1), u"98100064|1"_s);
    }

private:
    bool conEsquema() const override { return true; }
    void llenar() override
    {
        for (const QStringList &barra : tabla(u"10→A→0;10→B→1;20→C→1"_s))
            inserta(barra[0].toInt(), barra[1], barra[2].toInt());
        ejecutar(u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion) VALUES (2, 10, 'DIEZ'), (1, 20, 'OTRO')"_s);
    }
    void inserta(int articulo, const QString &codigo, int principal)
    {
        const QString alta = u"INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal, Fecha)"
                             u" VALUES (2, %1, '%2', %3, '01/02/2026')"_s;
        ejecutar(alta.arg(articulo).arg(codigo).arg(principal));
    }
    /// What the embedded engine is told to refuse fails, and leaves the rows of 20 as they were.
    void rompe(const QString &que, const std::function<void()> &operacion)
    {
        ejecutar(u"CREATE TRIGGER rompe BEFORE %1 ON Articulos_CBarras BEGIN SELECT RAISE(ABORT, 'x'); END"_s.arg(que));
        const QString antes = deArticulo(20);
        QVERIFY(falla(operacion) && !conexion().enTransaccion());
        QCOMPARE(deArticulo(20), antes);
        ejecutar(u"DROP TRIGGER rompe"_s);
    }
    /// "barcode|main" of an item's rows.
    QString deArticulo(int articulo)
    {
        const QString suyas = u"Articulos_CBarras WHERE Cod_Empresa =2 AND Cod_Articulo =%1 ORDER BY 1"_s.arg(articulo);
        return filas(u"SELECT Cod_Barras, Principal FROM "_s + suyas).join(u' ');
    }
    clsArticulo_CBarra nueva(qint32 articulo = 0, const QString &codigo = {})
    {
        clsArticulo_CBarra barra;
        barra.setcEmpresa(&m_empresa);
        barra.setConexion(&conexion());
        barra.Cod_Articulo = articulo;
        barra.Cod_Barras = codigo;
        return barra;
    }

    EmpresaPrueba m_empresa;
};

static const ProcesoHijo hijo("emitir", &emitir);

NV_PRUEBA(tst_clsArticulo_CBarra)
#include "tst_clsarticulo_cbarra.moc"
