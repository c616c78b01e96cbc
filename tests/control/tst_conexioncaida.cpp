#include "Formulario.h"
#include "support/BaseDatos.h"
#include "support/Programa.h"

using namespace Qt::StringLiterals;
using namespace nv::pruebas;

/// The item box over a session that is ended from outside.
class tst_ConexionCaida : public PruebaVias
{
    Q_OBJECT

private Q_SLOTS:
    void box_keeps_its_state_until_the_link_is_back()
    {
        if (via() == Via::Embebida || via() == Via::Odbc)
            QSKIP("nobody can end such a session from outside");
        const auto borrar = qScopeGuard([this] { ejecutar(u"DROP TABLE Articulos"_s); });
        ejecutar(u"CREATE TABLE Articulos (Cod_Empresa int, Codigo int, Descripcion varchar(60))"_s);
        ejecutar(u"INSERT INTO Articulos VALUES (2, 12, 'TORNILLO'), (2, 77, 'TUERCA')"_s);
        Formulario forma;
        forma.conexion = lugar().conectar();
        QVERIFY2(nv::ranura::actual() == nullptr, "a connection leaves the slot with its host");
        forma.articulo->setConexion(forma.conexion.get());
        forma.confirma(u"12"_s);
        QCOMPARE(forma.articulo->Nombre(), u"TORNILLO"_s);

        QVERIFY(lugar().cortar(*forma.conexion));
        forma.conductor.responde(u"Aceptar"_s);
        QVERIFY(forma.confirma(u"77"_s));
        QCOMPARE(forma.conductor.cajas().back().icono, QMessageBox::Critical);
        QVERIFY2(forma.dicho().contains(u"Se ha perdido la conexión con la base de datos."_s),
                 qPrintable(forma.dicho()));
        QVERIFY2(!forma.dicho().contains(u'['), qPrintable(forma.dicho()));
        QCOMPARE(forma.retrato(), u"77|TORNILLO||txtCodigo|P77"_s);
        if (via() == Via::Anfitrion) { // what is open to others is not ours to open again
            forma.conductor.responde(u"Aceptar"_s);
            QTest::keyClick(forma.caja(), Qt::Key_Return);
            QVERIFY(forma.conductor.terminado() && forma.dicho().contains(u"el programa que la abrió"_s));
            forma.conexion = lugar().conectar();
            forma.articulo->setConexion(forma.conexion.get());
        }
        QTest::keyClick(forma.caja(), Qt::Key_Return); // what was typed is still there
        QCOMPARE(forma.retrato(), u"77|TUERCA|P13|despues|E"_s);
    }
};

NV_PRUEBA(tst_ConexionCaida)
#include "tst_conexioncaida.moc"
