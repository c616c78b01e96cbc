#include "Formulario.h"

#include "common/Error.h"
#include "support/BaseDatos.h"
#include "support/Conductor.h"
#include "support/Doble.h"

using namespace Qt::StringLiterals;
using nv::pruebas::BaseOdbc;
using nv::pruebas::Conductor;
using nv::pruebas::Formulario;

/// The item box over a server that ends its session.
class tst_ConexionCaida : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void box_keeps_its_state_until_a_new_connection_comes_data();
    void box_keeps_its_state_until_a_new_connection_comes();

private:
    nv::pruebas::Doble m_doble;
};

namespace {

/// The form's connection, as a host lets go of one and hands in another.
void cambiar(Formulario &forma, std::unique_ptr<nv::Conexion> nueva)
{
    forma.conexion->dejarDeEscuchar(&forma);
    forma.conexion = std::move(nueva);
}

} // namespace

void tst_ConexionCaida::box_keeps_its_state_until_a_new_connection_comes_data()
{
    QTest::addColumn<bool>("enServidor");
    QTest::newRow("FreeTDS") << false;
    QTest::newRow("server") << true;
}

void tst_ConexionCaida::box_keeps_its_state_until_a_new_connection_comes()
{
    QFETCH(bool, enServidor);
    const BaseOdbc base(m_doble, enServidor);
    if (!base.hay())
        QSKIP("there is no such driver or server here");
    Formulario forma;
    cambiar(forma, base.conectar());
    QVERIFY(nv::ranura::actual() == nullptr);
    forma.articulo->setConexion(forma.conexion.get());
    forma.ejecuta(u"INSERT INTO Empresas (Codigo, Nombre) VALUES (1, 'Uno')"_s);
    forma.ejecuta(u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion, FAlta) VALUES (2, 12, 'TORNILLO', "
                  u"'22/11/2026'), (2, 77, 'TUERCA', '22/11/2026')"_s);
    forma.ejecuta(u"INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal, Fecha) VALUES "
                  u"(2, 77, '8412345678905', 1, '22/11/2026')"_s);
    forma.confirma(u"12"_s);
    QVERIFY(forma.articulo->Existe());
    QCOMPARE(forma.articulo->Nombre(), u"TORNILLO"_s);

    const QString sesion = nv::pruebas::filasDe(*forma.conexion, u"SELECT @@SPID"_s).value(0);
    try {
        base.conectar()->Ejecutar(nv::Sentencia::deConsola(u"KILL "_s + sesion));
    } catch (const nv::Error &) {
        QSKIP("the login of the tests may not end a session");
    }
    Conductor conductor;
    conductor.responde(u"Aceptar"_s);
    forma.confirma(u"/8412345678905"_s);
    QVERIFY(conductor.terminado());
    QCOMPARE(conductor.cajas().back().icono, QMessageBox::Critical);
    QVERIFY2(!conductor.cajas().back().texto.contains(u'['), qPrintable(conductor.cajas().back().texto));
    QCOMPARE(forma.articulo->Text(), u"/8412345678905"_s);
    QVERIFY(forma.articulo->Pendiente() && !forma.articulo->Existe());
    QVERIFY(forma.focusWidget() == forma.caja());

    cambiar(forma, base.conectar());
    QVERIFY2(nv::ranura::actual() == nullptr, "the dead connection has left the slot with its host");
    forma.articulo->setConexion(forma.conexion.get());
    QCOMPARE(nv::ranura::actual(), forma.conexion.get());
    QTest::keyClick(forma.caja(), Qt::Key_Return); // what was typed is still there
    QVERIFY(forma.articulo->Existe() && !forma.articulo->Pendiente());
    QCOMPARE(forma.articulo->Text(), u"77"_s);
    QCOMPARE(forma.articulo->Nombre(), u"TUERCA"_s);
    QVERIFY(forma.focusWidget() == forma.despues);
}

QTEST_MAIN(tst_ConexionCaida)
#include "tst_conexioncaida.moc"
