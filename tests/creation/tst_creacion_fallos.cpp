#include "Escenario.h"
#include "support/Programa.h"

#include <QProcess>
#include <csignal>

using namespace Qt::StringLiterals;
using namespace nv::pruebas;

namespace {

/// A connection in front of the real one: the line is cut, and something done once, at a statement that holds a text.
class Linea : public nv::Conexion
{
public:
    explicit Linea(Escenario &e)
        : m_real(*e.conexion)
    {
        e.forma->Conexion = this;
    }
    QString cortarEn; ///< that statement does not get through, nor any behind it
    bool cortada = false;
    QString accionTras;
    std::function<void()> accion;

private:
    template <class Paso>
    auto pasar(const QString &texto, Paso paso)
    {
        cortada = cortada || (!cortarEn.isEmpty() && texto.contains(cortarEn));
        if (cortada)
            throw nv::Error{64, u"Se ha perdido la conexión con el servidor."_s, {}};
        auto hecho = paso();
        if (accion && texto.contains(accionTras))
            std::exchange(accion, {})();
        return hecho;
    }

protected:
    /// Opens what only the real one may call.
    struct Puerta : nv::Conexion
    {
        using Conexion::abrir;
    };
    std::unique_ptr<nv::FuenteRegistros> abrir(const nv::Sentencia &s) override
    {
        return pasar(s.texto(), [&] { return (m_real.*(&Puerta::abrir))(s); });
    }
    qint64 ejecutar(const nv::Sentencia &s) override
    {
        return pasar(s.texto(), [&] { return m_real.Ejecutar(s); });
    }
    void comenzar() override { m_real.Comenzar(); }
    void confirmar() override
    {
        pasar(u"COMMIT"_s, [&] { return m_real.Confirmar(), true; });
    }
    // The server rolls back what its client lost, whether it hears of it or not.
    void deshacer() override { m_real.Deshacer(); }

private:
    nv::Conexion &m_real;
};

/// A child process: killed when the last row of an accept has been written and nothing is committed.
int morirAlAceptar(const QStringList &argumentos)
{
    Escenario e(argumentos.constFirst());
    Linea linea(e);
    linea.accionTras = u"'96385074'"_s;
    linea.accion = [] { (void)std::raise(SIGKILL); };
    e.corre(u"todo 200 R; txtCodBarras = 96385074; F9"_s);
    return 0;
}

const ProcesoHijo morir("morir-al-aceptar", &morirAlAceptar);

} // namespace

/// What is left, in the database and on screen, when something fails.
class tst_CreacionFallos : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void line_cut_in_the_middle_of_accept()
    {
        for (const char16_t *donde :
             {u"UPDATE Articulos SET", u"INTO Articulos_Ref", u"INTO Articulos_CBarras", u"COMMIT"}) {
            Escenario e;
            Linea linea(e);
            e.acciones[u"corta"_s] = [&] { linea.cortarEn = QString::fromUtf16(donde); };
            e.acciones[u"nada escrito"_s] = [&] {
                QCOMPARE(e.rastro(), QString());
                QVERIFY(!e.conexion->enTransaccion());
                linea.cortada = false;
                linea.cortarEn.clear();
            };
            QVERIFY(e.corre(u"todo 200 R; corta; F9; responde Aceptar; abierto ? 1; 200 ? 0|; nada escrito; F9"_s));
            QCOMPARE(e.dicho(), u"Error: Se ha perdido la conexión con el servidor."_s);
            QVERIFY2(e.forma->Aceptado, "once the line is back the same accept goes through");
            QCOMPARE(e.rastro(), u"R981000199810001"_s);
        }
    }

    /// What is wrong, the accept that fails of it, and what comes of it.
    void failed_accept_leaves_nothing_of_it()
    {
        const QString falla = u"CREATE TRIGGER falla BEFORE INSERT ON Articulos_"_s;
        const QString lleno = u" BEGIN SELECT RAISE(ABORT, 'lleno'); END"_s;
        for (const auto &[antes, mal, despues, queda, dice] : casos<5>(uR"(
            EsUlvaro → INSERT INTO Cualidades_Des (Cod_Empresa, Cod_Cualidad, Codigo) VALUES (2, 4, 32)
                ¬ → txtCodBarras =; F9 → 1|ROPA ACME SPORT R/R → Error: ·En este formulario no es posible
            propia → INSERT INTO Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref) VALUES (2, 200, 7, 'R')
                ¬ → cierra → /R → Error:
            propia → DELETE FROM Articulos WHERE Codigo = 200 → cierra → / → Error: El artículo 200 ya no existe
            propia → falla Ref lleno → cierra → / → Error: lleno
            ajena → falla Ref lleno → sql DROP TRIGGER falla; F9 → 1|ROPA ACME SPORT R/R → Error: lleno
            ajena → falla CBarras WHEN NEW.Cod_Barras = '96385074' lleno → -> cmdCerrar; Enter; visible ? 0 → /
                ¬ → Error: lleno)"_s)) {
            Escenario e;
            const bool ajena = antes == u"ajena";
            e.empresa.valores[u"EsUlvaro"_s] = QString::number(antes == u"EsUlvaro");
            if (ajena)
                e.conexion->Comenzar();
            e.sql(u"INSERT INTO Clientes (Cod_Empresa, Codigo, Nombre) VALUES (4, 1, 'DEL ANFITRION')"_s);
            e.acciones[u"mal"_s] = [&, orden = QString(mal).replace(u"falla "_s, falla).replace(u" lleno"_s, lleno)] {
                e.sql(orden);
            };
            e.acciones[u"transacción"_s] = [&] { QCOMPARE(e.conexion->enTransaccion(), ajena); };
            QVERIFY(e.corre(
                u"todo 200 R; txtCodBarras = 96385074; mal; F9; responde Aceptar; abierto ? 1; transacción; "_s +
                despues));
            if (ajena)
                e.conexion->Confirmar();
            QCOMPARE(e.ve(u"200"_s) + u'/' + e.filas(u"SELECT Ref FROM Articulos_Ref WHERE Cod_Articulo = 200"_s),
                     queda);
            QVERIFY(e.dicho().startsWith(dice) && e.filas(u"SELECT Nombre FROM Clientes"_s) == u"DEL ANFITRION");
            QVERIFY(e.forma->Aceptado ||
                    e.filas(u"SELECT * FROM Articulos_CBarras WHERE Cod_Articulo = 200"_s).isEmpty());
        }
    }

    void a_load_that_fails_costs_no_more_than_itself()
    {
        Escenario e;
        e.sql(u"DROP TABLE Marcas"_s);
        static_cast<nv::DatosCreacion &>(*e.forma) = {{4, 0, 1, 0, 0, 3, 4, {}, 0, 0}, 0, 0, {}};
        QVERIFY(e.corre(u"responde Aceptar; cboCualX ? Tallas; cboCualY ? Colores; txtDescripcion ? ROPA··; cierra"_s));
        QVERIFY(e.dicho().startsWith(u"¡ Atención !: ") && !e.dicho().contains(u'/'));

        Escenario cortado;
        Linea linea(cortado);
        linea.cortada = true;
        cortado.forma->Proveedor = 7;
        cortado.forma->Aceptado = true;
        QVERIFY2(cortado.corre(u"responde Aceptar"_s), "one box, however many things failed, and no form");
        QVERIFY(!cortado.forma->Aceptado && !cortado.forma->isVisible());
        for (const bool sinEmpresa : {true, false}) {
            Escenario sin;
            if (sinEmpresa)
                sin.forma->cEmpresa = nullptr;
            else
                sin.forma->Conexion = nullptr;
            QVERIFY(sin.corre(u"responde Aceptar"_s));
        }
    }

    void code_taken_between_two_steps()
    {
        QTemporaryDir carpeta;
        Escenario e(carpeta.filePath(u"c.db"_s));
        const auto otroPuesto = nv::datos::abrirEmbebida(carpeta.filePath(u"c.db"_s));
        Linea linea(e);
        linea.accionTras = u"SELECT * FROM Articulos WHERE Cod_Empresa =2 AND Codigo =200"_s;
        linea.accion = [&] {
            otroPuesto->Ejecutar(nv::Sentencia(
                u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion, Mod_Ficha) VALUES (2, 200, 'DEL OTRO', 1)"));
        };
        QVERIFY(e.corre(u"txtCodigo = 200; Enter; responde Aceptar; abierto ? 0; txtCodigo ? 200; Esc"_s));
        QVERIFY(e.dicho().startsWith(u"¡ Atención !: "));
        QCOMPARE(e.ve(u"200"_s), u"1|DEL OTRO"_s);
    }

    void closing_without_connection_is_possible_the_second_time()
    {
        Escenario e;
        Linea linea(e);
        e.acciones[u"corta"_s] = [&] { linea.cortada = true; };
        e.acciones[u"vuelve"_s] = [&] { linea.cortada = false; };
        QVERIFY(e.corre(uR"(txtCodigo = 200; Enter; corta; F12; responde Aceptar; abierto ? 1; cierra; responde Aceptar
            visible ? 1; vuelve; F12; abierto ? 0; 200 ?; txtCodigo = 200; Enter; corta; cierra; responde Aceptar
            visible ? 1; cierra; responde Aceptar)"_s));
        QVERIFY(!e.forma->Aceptado && !e.forma->isVisible());
    }

    void closing_deletes_only_what_the_form_has_made()
    {
        for (const QString &propio : {QString(), u"txtCodigo = 200; Enter; "_s}) {
            Escenario e;
            e.sql(u"INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo) VALUES (1, 1, 100)"_s);
            // Public: a host may write there what it likes. Nor may a window that is disabled keep the form from it.
            e.acciones[u"anfitrión"_s] = [&] {
                e.forma->Codigo = 100;
                e.ventana->setEnabled(false);
                e.forma->setEnabled(false);
            };
            QVERIFY(e.corre(u"txtCodigo = 100; Enter; responde Aceptar; "_s + propio + u"anfitrión; cierra"_s));
            QCOMPARE(e.ve(u"100"_s) + e.ve(u"200"_s), u"1|CAMISA VIEJA"_s);
            QCOMPARE(e.filas(u"SELECT Cod_Articulo FROM Almacen_Articulos WHERE Cod_Empresa = 1"_s), u"100"_s);
        }
    }

    void kill_in_the_middle_of_accept_leaves_no_trace_of_it()
    {
        QTemporaryDir carpeta;
        const QString ruta = carpeta.filePath(u"c.db"_s);
        QProcess hijo;
        hijo.start(QCoreApplication::applicationFilePath(), {u"--morir-al-aceptar"_s, ruta});
        QVERIFY(hijo.waitForFinished(60000));
        QCOMPARE(hijo.exitStatus(), QProcess::CrashExit);
        const auto despues = nv::datos::abrirEmbebida(ruta);
        const auto filas = [&](const QString &consulta) { return filasDe(*despues, consulta).join(u' '); };
        QCOMPARE(filas(u"SELECT Mod_Ficha, Descripcion, Marca FROM Articulos WHERE Codigo = 200"_s), u"0||0"_s);
        for (const QString &tabla : {u"Articulos_Ref"_s, u"Articulos_CBarras"_s})
            QVERIFY(filas(u"SELECT * FROM %1 WHERE Cod_Articulo = 200"_s.arg(tabla)).isEmpty());
        QVERIFY(filas(u"SELECT * FROM Contador_CBarras"_s).isEmpty());
    }
};

NV_PRUEBA(tst_CreacionFallos)
#include "tst_creacion_fallos.moc"
