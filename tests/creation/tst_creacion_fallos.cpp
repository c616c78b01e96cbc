#include "Escenario.h"
#include "support/Programa.h"

using namespace Qt::StringLiterals;
using namespace nv::pruebas;

namespace {

/// A connection in front of the real one, for what happens to it between two statements.
class Linea : public nv::Conexion
{
public:
    explicit Linea(Escenario &e)
        : m_real(*e.conexion)
    {
        e.forma->Conexion = this;
    }
    QString corte; ///< the statement that holds it does not get through, nor any behind it; null: the line is whole
    std::function<void(const QString &)> antes; ///< of each statement

protected:
    void pasa(const QString &texto)
    {
        if (antes)
            antes(texto);
        if (corte.isNull() || !texto.contains(corte))
            return;
        corte = u""_s;
        throw nv::Error{64, u"Se ha perdido la conexión con el servidor."_s, {}};
    }
    /// Opens what only the real one may call.
    struct Puerta : nv::Conexion
    {
        using Conexion::abrir;
    };
    std::unique_ptr<nv::FuenteRegistros> abrir(const nv::Sentencia &s) override
    {
        pasa(s.texto());
        return (m_real.*(&Puerta::abrir))(s);
    }
    qint64 ejecutar(const nv::Sentencia &s) override
    {
        pasa(s.texto());
        return m_real.Ejecutar(s);
    }
    void comenzar() override { m_real.Comenzar(); }
    void confirmar() override
    {
        pasa(u"COMMIT"_s);
        m_real.Confirmar();
    }
    // The server rolls back what its client lost, whether it hears of it or not.
    void deshacer() override { m_real.Deshacer(); }

    nv::Conexion &m_real;
};

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
            e.acciones[u"corta"_s] = [&] { linea.corte = QString::fromUtf16(donde); };
            e.acciones[u"vuelve"_s] = [&] {
                QVERIFY(!e.conexion->enTransaccion());
                linea.corte.clear();
            };
            QVERIFY(e.corre(u"todo 200 R; corta; F9; responde Aceptar; abierto ? 1; 200 ? 0|; rastro ?; vuelve; F9"_s));
            QCOMPARE(e.dicho(), u"Error: Se ha perdido la conexión con el servidor."_s);
            QVERIFY2(e.forma->Aceptado, "once the line is back the same accept goes through");
            QCOMPARE(e.ve(u"rastro"_s), u"R 98100019 9810001"_s);
        }
    }

    void a_second_escape_leaves_whatever_fails_and_says_what_stays()
    {
        for (const QString &tecla : {u"Esc"_s, u"cierra"_s}) {
            Escenario e;
            QVERIFY(e.corre(
                u"txtCodigo = 200; Enter; sql PRAGMA query_only = 1; %1; responde Aceptar; visible ? 1; %1; responde"
                u" Aceptar; responde Aceptar"_s.arg(tecla)));
            QVERIFY(e.dicho().endsWith(u"El artículo 200 queda a medio crear en la base de datos."));
            QVERIFY(!e.forma->isVisible() && e.ve(u"200"_s).startsWith(u"0|"));
        }
    }

    /// In a transaction of the form's own or of the host: what is wrong, what follows, what is left, what is said.
    void failed_accept_leaves_nothing_of_it()
    {
        const QString falla = u"CREATE TRIGGER falla BEFORE INSERT ON Articulos_"_s;
        const QString lleno = u" BEGIN SELECT RAISE(ABORT, 'lleno'); END"_s;
        for (const auto &[de, mal, despues, queda, dice] : casos<5>(uR"(
            propia → INSERT INTO Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref) VALUES (2, 200, 7, 'R')
                ¬ → cierra → /R →
            propia → DELETE FROM Articulos WHERE Codigo = 200 → cierra → / → El artículo 200 ya no existe
            ajena → falla Ref lleno → sql DROP TRIGGER falla; F9
                ¬ → 1|ROPA ACME SPORT R/R 98100019 96385074 9810001 → lleno
            ajena → falla CBarras WHEN NEW.Cod_Barras = '96385074' lleno → -> cmdCerrar; Enter; visible ? 0
                ¬ → /9810001 → lleno)"_s)) {
            Escenario e;
            const bool ajena = de == u"ajena";
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
            QCOMPARE(e.ve(u"200"_s) + u'/' + e.ve(u"rastro"_s), queda);
            QVERIFY(e.dicho().startsWith(u"Error: "_s + dice));
            QCOMPARE(e.filas(u"SELECT Nombre FROM Clientes"_s), u"DEL ANFITRION"_s);
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
        linea.corte = u""_s;
        cortado.forma->Proveedor = 7;
        cortado.forma->Aceptado = true;
        QVERIFY2(cortado.corre(u"responde Aceptar"_s), "one box, however many things failed, and no form");
        QVERIFY(!cortado.forma->Aceptado && !cortado.forma->isVisible());
        Escenario sinEmpresa, sinConexion;
        sinEmpresa.forma->cEmpresa = nullptr;
        sinConexion.forma->Conexion = nullptr;
        QVERIFY(sinEmpresa.corre(u"responde Aceptar"_s) && sinConexion.corre(u"responde Aceptar"_s));
    }

    void code_taken_between_two_steps()
    {
        Escenario e;
        Linea linea(e);
        linea.antes = [&](const QString &texto) {
            if (texto.startsWith(u"INSERT INTO Articulos "))
                e.sql(u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion) VALUES (2, 200, 'DEL OTRO')"_s);
        };
        QVERIFY(e.corre(u"txtCodigo = 200; Enter; responde Aceptar; abierto ? 0; txtCodigo ? 200; Esc"_s));
        QVERIFY(e.dicho().startsWith(u"¡ Atención !: "));
        QCOMPARE(e.ve(u"200"_s), u"0|DEL OTRO"_s);
    }

    void closing_without_connection_is_possible_the_second_time()
    {
        Escenario e;
        Linea linea(e);
        e.acciones[u"corta"_s] = [&] { linea.corte = u""_s; };
        e.acciones[u"vuelve"_s] = [&] { linea.corte.clear(); };
        QVERIFY(e.corre(uR"(txtCodigo = 200; Enter; corta; F12; responde Aceptar; abierto ? 1; cierra; responde Aceptar
            visible ? 1; vuelve; F12; abierto ? 0; 200 ?; txtCodigo = 200; Enter; corta; cierra; responde Aceptar
            visible ? 1; cierra; responde Aceptar; responde Aceptar)"_s));
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
};

NV_PRUEBA(tst_CreacionFallos)
#include "tst_creacion_fallos.moc"
