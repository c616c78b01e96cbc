#include "Escenario.h"
#include "support/Programa.h"

#include <QApplication>
#include <QComboBox>
#include <QProcess>
#include <QTemporaryDir>
#include <csignal>

using namespace Qt::StringLiterals;
using namespace nv::pruebas;

namespace {

/// A connection whose line can be cut: from the first statement that holds the given text nothing gets through.
class ConexionCortable : public nv::Conexion
{
public:
    explicit ConexionCortable(nv::Conexion &real)
        : m_real(real)
    {}
    QString cortarEn;
    bool cortada = false;

protected:
    std::unique_ptr<nv::FuenteRegistros> abrir(const nv::Sentencia &sentencia) override
    {
        pasar(sentencia.texto());
        struct Fuente : nv::FuenteRegistros
        {
            explicit Fuente(nv::Registros r)
                : registros(std::move(r))
            {}
            bool avanzar() override { return registros.siguiente(); }
            int columnas() const override { return registros.columnas(); }
            QString nombre(int columna) const override { return registros.nombre(columna); }
            QVariant valor(int columna) const override { return registros.valor(columna); }
            nv::Registros registros;
        };
        return std::make_unique<Fuente>(m_real.Abrir(sentencia));
    }
    qint64 ejecutar(const nv::Sentencia &sentencia) override
    {
        pasar(sentencia.texto());
        return m_real.Ejecutar(sentencia);
    }
    void comenzar() override
    {
        pasar(u"BEGIN"_s);
        m_real.Comenzar();
    }
    void confirmar() override
    {
        pasar(u"COMMIT"_s);
        m_real.Confirmar();
    }
    void deshacer() override
    {
        // The server rolls back what its client lost, whether it hears of it or not.
        m_real.Deshacer();
        pasar(u"ROLLBACK"_s);
    }

private:
    void pasar(const QString &texto)
    {
        cortada = cortada || (!cortarEn.isEmpty() && texto.contains(cortarEn));
        if (cortada)
            throw nv::Error{64, u"Se ha perdido la conexión con el servidor."_s, {}};
    }

    nv::Conexion &m_real;
};

/// Does something when a statement that holds the text has gone out.
class Al : public nv::OyenteSentencias
{
public:
    Al(nv::Conexion &conexion, QString texto, std::function<void()> accion)
        : m_conexion(conexion)
        , m_texto(std::move(texto))
        , m_accion(std::move(accion))
    {
        m_conexion.escuchar(this);
    }
    ~Al() override { m_conexion.dejarDeEscuchar(this); }
    void sentencia(const nv::SucesoSentencia &suceso) override
    {
        if (suceso.texto.contains(m_texto))
            if (const auto accion = std::exchange(m_accion, {}))
                accion();
    }

private:
    nv::Conexion &m_conexion;
    QString m_texto;
    std::function<void()> m_accion;
};

/// A child process: killed when the last row of an accept has been written and nothing is committed.
int morirAlAceptar(const QStringList &argumentos)
{
    Escenario e(argumentos.constFirst());
    const Al al(*e.conexion, u"'96385074'"_s, [] { (void)std::raise(SIGKILL); });
    e.con([](Manos m) {
        m.rellena(u"200"_s, u"R"_s);
        m.hijo("txtCodBarras")->setText(u"96385074"_s);
        m.pulsa(Qt::Key_F9);
    });
    e.muestra();
    return 0;
}

const ProcesoHijo morir("morir-al-aceptar", &morirAlAceptar);

} // namespace

class tst_CreacionFallos : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void line_cut_in_the_middle_of_accept_data();
    void line_cut_in_the_middle_of_accept();
    void barcode_of_qualities_with_several_values_is_refused();
    void transaction_of_the_host_is_joined();
    void failed_accept_leaves_nothing_in_the_transaction_of_the_host();
    void name_that_cannot_be_loaded_stops_nothing_else();
    void form_without_its_settings_does_not_open();
    void code_taken_between_two_steps();
    void failure_of_the_second_insert_undoes_the_first();
    void item_deleted_elsewhere_gets_no_reference();
    void own_reference_after_a_failed_accept_is_no_duplicate();
    void closing_without_connection_is_possible_the_second_time();
    void closing_deletes_only_what_the_form_has_made_data();
    void closing_deletes_only_what_the_form_has_made();
    void kill_in_the_middle_of_accept_leaves_no_trace_of_it();

private:
    static QString rastro(Escenario &e)
    {
        return e.filas(u"SELECT Ref FROM Articulos_Ref WHERE Cod_Articulo = 200"_s) +
               e.filas(u"SELECT Cod_Barras FROM Articulos_CBarras WHERE Cod_Articulo = 200"_s) +
               e.filas(u"SELECT Cod_Barras FROM Contador_CBarras"_s);
    }
};

void tst_CreacionFallos::line_cut_in_the_middle_of_accept_data()
{
    QTest::addColumn<QString>("donde");
    QTest::newRow("at the update") << u"UPDATE Articulos SET"_s;
    QTest::newRow("at the reference") << u"INSERT INTO Articulos_Ref"_s;
    QTest::newRow("at the barcode") << u"INSERT INTO Articulos_CBarras"_s;
    QTest::newRow("at the commit") << u"COMMIT"_s;
}

void tst_CreacionFallos::line_cut_in_the_middle_of_accept()
{
    QFETCH(QString, donde);
    Escenario e;
    ConexionCortable linea(*e.conexion);
    e.forma.Conexion = &linea;
    e.con([&](Manos m) {
        m.rellena(u"200"_s, u"R"_s);
        linea.cortarEn = donde;
        m.pulsa(Qt::Key_F9);
    });
    e.conductor.responde(u"Aceptar"_s);
    e.con([&](Manos m) {
        QVERIFY(m.f.isVisible() && !m.f.Aceptado && m.abierto());
        QVERIFY(!e.conexion->enTransaccion());
        QCOMPARE(e.articulo(200), u"200|0|"_s);
        QVERIFY2(rastro(e).isEmpty(), qPrintable(rastro(e)));
        linea.cortarEn.clear();
        linea.cortada = false;
        m.pulsa(Qt::Key_F9);
    });
    QVERIFY(e.muestra());
    QCOMPARE(e.caja().titulo, u"Error"_s);
    QCOMPARE(e.caja().texto, u"Se ha perdido la conexión con el servidor."_s);
    QVERIFY2(e.forma.Aceptado, "once the line is back the same accept goes through");
    QCOMPARE(rastro(e), u"R981000199810001"_s);
}

void tst_CreacionFallos::barcode_of_qualities_with_several_values_is_refused()
{
    Escenario e;
    e.empresa.valores[u"EsUlvaro"_s] = u"1"_s;
    e.sql(u"INSERT INTO Cualidades_Des (Cod_Empresa, Cod_Cualidad, Codigo, Nombre) VALUES (2, 4, 32, 'AZUL')"_s);
    e.con([](Manos m) {
        m.rellena(u"200"_s, u"R"_s);
        m.escribe("txtCodBarras", u"96385074"_s);
        m.pulsa(Qt::Key_F9);
    });
    e.conductor.responde(u"Aceptar"_s);
    e.con([&](Manos m) {
        QCOMPARE(e.articulo(200), u"200|0|"_s);
        QVERIFY(rastro(e).isEmpty() && !e.conexion->enTransaccion());
        m.escribe("txtCodBarras", {});
        m.pulsa(Qt::Key_F9);
    });
    QVERIFY(e.muestra());
    QCOMPARE(e.caja().titulo, u"Error"_s);
    QCOMPARE(e.caja().texto, u" En este formulario no es posible establecer un código de barras de proveedor a un "
                             u"artículo con cualidades no únicas, debe ir a la ficha de artículo. "_s);
    QVERIFY(e.forma.Aceptado);
}

void tst_CreacionFallos::transaction_of_the_host_is_joined()
{
    Escenario e;
    e.sql(u"CREATE TRIGGER falla BEFORE INSERT ON Articulos_Ref BEGIN SELECT RAISE(ABORT, 'disco lleno'); END"_s);
    e.conexion->Comenzar();
    e.sql(u"INSERT INTO Clientes (Cod_Empresa, Codigo, Nombre) VALUES (4, 1, 'DEL ANFITRION')"_s);
    e.con([](Manos m) {
        m.rellena(u"200"_s, u"R"_s);
        m.pulsa(Qt::Key_F9);
    });
    e.conductor.responde(u"Aceptar"_s);
    e.con([&](Manos m) {
        QVERIFY2(e.conexion->enTransaccion(), "not ours to end");
        e.sql(u"DROP TRIGGER falla"_s);
        m.pulsa(Qt::Key_F9);
    });
    QVERIFY(e.muestra());
    QVERIFY(e.forma.Aceptado && e.conexion->enTransaccion());
    e.conexion->Confirmar();
    QCOMPARE(e.filas(u"SELECT Nombre FROM Clientes"_s), u"DEL ANFITRION"_s);
    QVERIFY(e.articulo(200).startsWith(u"200|1|"));
}

void tst_CreacionFallos::failed_accept_leaves_nothing_in_the_transaction_of_the_host()
{
    Escenario e;
    e.sql(u"CREATE TRIGGER falla BEFORE INSERT ON Articulos_CBarras WHEN NEW.Cod_Barras = '96385074' BEGIN SELECT "
          u"RAISE(ABORT, 'disco lleno'); END"_s);
    e.conexion->Comenzar();
    e.con([](Manos m) {
        m.rellena(u"200"_s, u"R"_s);
        m.escribe("txtCodBarras", u"96385074"_s);
        m.pulsa(Qt::Key_F9);
    });
    e.conductor.responde(u"Aceptar"_s);
    e.con([&](Manos m) {
        QVERIFY(m.abierto() && e.conexion->enTransaccion());
        m.hijo<QWidget>("cmdCerrar")->setFocus();
        m.pulsa(Qt::Key_Return);
        QVERIFY2(!m.f.isVisible(), "Enter works on a button");
    });
    QVERIFY(e.muestra());
    e.conexion->Confirmar();
    QVERIFY(!e.forma.Aceptado && e.articulo(200).isEmpty());
    QCOMPARE(e.filas(u"SELECT Ref FROM Articulos_Ref WHERE Cod_Articulo = 200"_s), QString());
    QCOMPARE(e.filas(u"SELECT Cod_Barras FROM Articulos_CBarras WHERE Cod_Articulo = 200"_s), QString());
}

void tst_CreacionFallos::name_that_cannot_be_loaded_stops_nothing_else()
{
    Escenario e;
    e.sql(u"DROP TABLE Marcas"_s);
    e.forma.Marca = 4;
    e.forma.Familia_1 = 1;
    e.forma.CualidadX = 3;
    e.forma.CualidadY = 4;
    e.conductor.responde(u"Aceptar"_s);
    e.con([](Manos m) {
        QCOMPARE(m.hijo<QComboBox>("cboCualX")->currentData().toInt(), 3);
        QCOMPARE(m.hijo<QComboBox>("cboCualY")->currentData().toInt(), 4);
        QVERIFY2(m.texto("txtDescripcion").startsWith(u"ROPA"), "the layouts are there");
        m.f.close();
    });
    QVERIFY(e.muestra());
    QCOMPARE(e.conductor.cajas().size(), std::size_t(1));
    QCOMPARE(e.caja().titulo, u"¡ Atención !"_s);
}

void tst_CreacionFallos::form_without_its_settings_does_not_open()
{
    Escenario e;
    ConexionCortable linea(*e.conexion);
    linea.cortada = true;
    e.forma.Conexion = &linea;
    e.forma.Proveedor = 7;
    e.forma.Marca = 4;
    e.forma.Aceptado = true;
    e.conductor.responde(u"Aceptar"_s);
    QVERIFY2(e.muestra(), "one box, however many things failed");
    QVERIFY(!e.forma.Aceptado && !e.forma.isVisible());
    QCOMPARE(e.conductor.cajas().size(), std::size_t(1));
}

void tst_CreacionFallos::code_taken_between_two_steps()
{
    QTemporaryDir carpeta;
    Escenario e(carpeta.filePath(u"c.db"_s));
    const auto otroPuesto = nv::datos::abrirEmbebida(carpeta.filePath(u"c.db"_s));
    const Al al(*e.conexion, u"SELECT * FROM Articulos WHERE Cod_Empresa =2 AND Codigo =200"_s, [&] {
        otroPuesto->Ejecutar(nv::Sentencia(
            u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion, Mod_Ficha) VALUES (2, 200, 'DEL OTRO', 1)"));
    });
    e.con([](Manos m) { m.confirma(u"200"_s); });
    e.conductor.responde(u"Aceptar"_s);
    e.con([](Manos m) {
        QVERIFY(!m.abierto());
        m.pulsa(Qt::Key_Escape);
    });
    QVERIFY(e.muestra());
    QCOMPARE(e.caja().titulo, u"¡ Atención !"_s);
    QCOMPARE(e.articulo(200), u"200|1|DEL OTRO"_s);
}

void tst_CreacionFallos::failure_of_the_second_insert_undoes_the_first()
{
    Escenario e;
    e.sql(
        u"INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo, Stock_Actual) VALUES (1, 2, 200, 5)"_s);
    e.con([](Manos m) { m.confirma(u"200"_s); });
    e.conductor.responde(u"Aceptar"_s);
    e.con([](Manos m) {
        QVERIFY(!m.abierto() && m.texto("txtCodigo") == u"200");
        m.pulsa(Qt::Key_Escape);
    });
    QVERIFY(e.muestra());
    QVERIFY(e.articulo(200).isEmpty());
    QVERIFY2(e.filas(u"SELECT Cod_Almacen FROM Almacen_Articulos"_s) == u"2", "what stood there before is not ours");
}

void tst_CreacionFallos::item_deleted_elsewhere_gets_no_reference()
{
    Escenario e;
    e.con([&](Manos m) {
        m.rellena(u"200"_s, u"R"_s);
        e.sql(u"DELETE FROM Articulos WHERE Codigo = 200"_s);
        m.pulsa(Qt::Key_F9);
    });
    e.conductor.responde(u"Aceptar"_s);
    e.con([](Manos m) { m.f.close(); });
    QVERIFY(e.muestra());
    QVERIFY(!e.forma.Aceptado && rastro(e).isEmpty());
}

void tst_CreacionFallos::own_reference_after_a_failed_accept_is_no_duplicate()
{
    Escenario e;
    e.sql(u"INSERT INTO Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref) VALUES (2, 200, 7, 'L''ORÉAL')"_s);
    e.con([](Manos m) {
        m.rellena(u"200"_s, u"L'ORÉAL"_s);
        m.pulsa(Qt::Key_F9);
    });
    e.conductor.responde(u"Aceptar"_s);
    e.con([](Manos m) { m.f.close(); });
    QVERIFY(e.muestra());
    QCOMPARE(e.caja().titulo, u"Error"_s);
}

void tst_CreacionFallos::closing_without_connection_is_possible_the_second_time()
{
    Escenario e;
    ConexionCortable linea(*e.conexion);
    e.forma.Conexion = &linea;
    e.con([&](Manos m) {
        m.confirma(u"200"_s);
        linea.cortada = true;
        m.pulsa(Qt::Key_F12);
    });
    e.conductor.responde(u"Aceptar"_s);
    e.con([](Manos m) {
        QVERIFY2(m.abierto(), "a cancel that failed can be tried again");
        m.f.close();
    });
    e.conductor.responde(u"Aceptar"_s);
    e.con([](Manos m) {
        QVERIFY(m.f.isVisible());
        m.f.close();
    });
    e.conductor.responde(u"Aceptar"_s);
    QVERIFY(e.muestra());
    QVERIFY(!e.forma.Aceptado);
    QCOMPARE(e.caja().titulo, u"¡ Atención !"_s);
}

void tst_CreacionFallos::closing_deletes_only_what_the_form_has_made_data()
{
    QTest::addColumn<QString>("propio");
    QTest::newRow("a taken code was refused") << QString();
    QTest::newRow("an item of its own is open") << u"200"_s;
}

void tst_CreacionFallos::closing_deletes_only_what_the_form_has_made()
{
    QFETCH(QString, propio);
    Escenario e;
    e.sql(u"INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo) VALUES (1, 1, 100)"_s);
    e.con([](Manos m) { m.confirma(u"100"_s); });
    e.conductor.responde(u"Aceptar"_s);
    e.con([&](Manos m) {
        if (!propio.isEmpty())
            m.confirma(propio);
        m.f.Codigo = 100; // public: a host may write there what it likes
        m.f.setEnabled(false);
        m.f.close();
    });
    QVERIFY(e.muestra());
    QCOMPARE(e.articulo(100), u"100|1|CAMISA VIEJA"_s);
    QCOMPARE(e.filas(u"SELECT Cod_Articulo FROM Almacen_Articulos WHERE Cod_Empresa = 1"_s), u"100"_s);
    QVERIFY2(e.articulo(200).isEmpty(), qPrintable(e.articulo(200)));
}

void tst_CreacionFallos::kill_in_the_middle_of_accept_leaves_no_trace_of_it()
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
    QVERIFY(filas(u"SELECT * FROM Articulos_Ref WHERE Cod_Articulo = 200"_s).isEmpty());
    QVERIFY(filas(u"SELECT * FROM Articulos_CBarras WHERE Cod_Articulo = 200"_s).isEmpty());
    QVERIFY(filas(u"SELECT * FROM Contador_CBarras"_s).isEmpty());
}

NV_PRUEBA(tst_CreacionFallos)
#include "tst_creacion_fallos.moc"
