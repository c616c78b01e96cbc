#include "Formulario.h"
#include "support/Programa.h"

#include "barcodes/frmCodBarra_Datos.h"
#include "dialogs/frmReferencias_Modificar.h"
#include "support/Conductor.h"

#include <QFile>

using namespace Qt::StringLiterals;
using nv::pruebas::Conductor;
using nv::pruebas::Formulario;

/// An unknown barcode or reference, Yes, the item chosen: the document goes on.
class tst_Asignaciones : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void barcode_is_attached_and_the_focus_moves_on();
    void second_barcode_is_not_main();
    void barcode_on_another_item_is_moved_only_if_agreed_data();
    void barcode_on_another_item_is_moved_only_if_agreed();
    void item_that_is_no_number_is_an_error_data();
    void item_that_is_no_number_is_an_error();
    void barcode_dialog_refuses_what_is_missing();
    void reference_is_attached_to_the_chosen_supplier();
    void reference_dialog_names_the_last_field_missing();
    void duplicate_rule_data();
    void duplicate_rule();
    void failure_after_the_delete_says_what_is_gone();

private:
    static nvArticulo *caja(QDialog &dialogo) { return dialogo.findChild<nvArticulo *>(u"txtArticulo"_s); }
    static void escribe(QWidget *widget, const QString &texto)
    {
        auto *linea = qobject_cast<QLineEdit *>(widget);
        linea->setFocus();
        linea->selectAll();
        QTest::keyClicks(linea, texto);
    }
    static QString filas(Formulario &forma, const QString &consulta)
    {
        nv::Registros r = forma.conexion->Abrir(nv::Sentencia::deConsola(consulta));
        QStringList todas;
        while (r.siguiente()) {
            QStringList fila;
            for (int i = 0; i < r.columnas(); ++i)
                fila << r.textoO(i);
            todas << fila.join(u':');
        }
        return todas.join(u' ');
    }
    static QString barras(Formulario &forma)
    {
        return filas(forma, u"SELECT Cod_Articulo, Cod_Barras, Principal, Unidades, Automatico FROM Articulos_CBarras "
                            u"ORDER BY Cod_Articulo, Cod_Barras"_s);
    }
};

void tst_Asignaciones::barcode_is_attached_and_the_focus_moves_on()
{
    Formulario forma;
    Conductor conductor;
    conductor.responde(u"Sí"_s).con<frmCodBarra_Datos>([](frmCodBarra_Datos &f) {
        QVERIFY2(caja(f)->Text().isEmpty(), "no item is proposed");
        QVERIFY(caja(f)->isAncestorOf(f.focusWidget()));
        QTest::keyClicks(f.focusWidget(), u".ABC"_s);
        QTest::keyClick(f.focusWidget(), Qt::Key_Return);
        QCOMPARE(caja(f)->Codigo(), u"12"_s);
        QTest::keyClick(f.focusWidget(), Qt::Key_F9);
    });
    forma.ejecuta(u"DELETE FROM Articulos_CBarras"_s);
    forma.confirma(u"/5901234123457"_s);
    QVERIFY(conductor.terminado());
    QCOMPARE(forma.articulo->Text(), u"12"_s);
    QVERIFY(forma.articulo->Existe() && forma.focusWidget() == forma.despues);
    QCOMPARE(barras(forma), u"12:5901234123457:1:1:0"_s);
}

void tst_Asignaciones::second_barcode_is_not_main()
{
    Formulario forma;
    Conductor conductor;
    conductor.responde(u"Sí"_s).con<frmCodBarra_Datos>([](frmCodBarra_Datos &f) {
        QTest::keyClicks(f.focusWidget(), u"12"_s);
        QTest::keyClick(f.focusWidget(), Qt::Key_Return);
        escribe(f.findChild<QWidget *>(u"txtCB"_s), u"5901234123457"_s);
        escribe(f.findChild<QWidget *>(u"txtUnidades"_s), u"99999"_s);
        QTest::keyClick(f.focusWidget(), Qt::Key_F9);
    });
    conductor.responde(u"Aceptar"_s).con<frmCodBarra_Datos>([](frmCodBarra_Datos &f) {
        QVERIFY(!f.Aceptado);
        escribe(f.findChild<QWidget *>(u"txtUnidades"_s), u"6"_s);
        QTest::keyClick(f.focusWidget(), Qt::Key_F9);
        QCOMPARE(f.Unidades, qint16(6));
    });
    forma.confirma(u"-1"_s);
    QVERIFY(conductor.terminado());
    QCOMPARE(barras(forma), u"12:5901234123457:0:1:0 12:8412345678905:1:1:0"_s);
}

void tst_Asignaciones::barcode_on_another_item_is_moved_only_if_agreed_data()
{
    QTest::addColumn<QString>("respuesta");
    QTest::addColumn<QString>("quedan");
    QTest::newRow("no") << u"No"_s << u"12:8412345678905:1:1:0"_s;
    QTest::newRow("yes") << u"Sí"_s << u"77:8412345678905:1:1:0"_s;
}

void tst_Asignaciones::barcode_on_another_item_is_moved_only_if_agreed()
{
    QFETCH(QString, respuesta);
    Formulario forma;
    Conductor conductor;
    conductor.responde(u"Sí"_s)
        .con<frmCodBarra_Datos>([](frmCodBarra_Datos &f) {
            QTest::keyClicks(f.focusWidget(), u"77"_s);
            escribe(f.findChild<QWidget *>(u"txtCB"_s), u"8412345678905"_s);
            QTest::keyClick(f.focusWidget(), Qt::Key_F9);
        })
        .responde(respuesta);
    forma.confirma(u"/841"_s);
    QVERIFY(conductor.terminado());
    QCOMPARE(conductor.cajas().back().titulo, u"Confirmar"_s);
    QCOMPARE(conductor.cajas().back().texto,
             u"El código de barras especificado ya existe en el artículo: 12 ¿Desea traspasarlo?"_s);
    QTEST(barras(forma), "quedan");
    QCOMPARE(forma.articulo->Existe(), respuesta == u"Sí");
}

void tst_Asignaciones::item_that_is_no_number_is_an_error_data()
{
    QTest::addColumn<QString>("articulo");
    QTest::newRow("empty") << QString();
    QTest::newRow("letters") << u"AB"_s;
    QTest::newRow("a PLU left unconfirmed") << u"+12"_s;
    QTest::newRow("a barcode left unconfirmed") << u"-12"_s;
}

void tst_Asignaciones::item_that_is_no_number_is_an_error()
{
    QFETCH(QString, articulo);
    Formulario forma;
    const QString antes = barras(forma);
    Conductor conductor;
    conductor.responde(u"Sí"_s)
        .con<frmCodBarra_Datos>([&](frmCodBarra_Datos &f) {
            QTest::keyClicks(f.focusWidget(), articulo);
            QTest::keyClick(f.focusWidget(), Qt::Key_F9);
        })
        .responde(u"Aceptar"_s);
    forma.confirma(u"/777"_s);
    QVERIFY(conductor.terminado());
    QCOMPARE(conductor.cajas().back().titulo, u"¡ Error inesperado !"_s);
    QCOMPARE(barras(forma), antes);
    QVERIFY(forma.articulo->Text().isEmpty() && forma.focusWidget() == forma.caja());
}

void tst_Asignaciones::barcode_dialog_refuses_what_is_missing()
{
    Formulario forma;
    for (const bool vacioDeEntrada : {true, false}) {
        frmCodBarra_Datos dialogo(&forma);
        dialogo.cEmpresa = &forma.empresa;
        dialogo.CodBarras = vacioDeEntrada ? QString() : u"1"_s;
        Conductor conductor;
        conductor
            .con<frmCodBarra_Datos>([&](frmCodBarra_Datos &f) {
                if (vacioDeEntrada)
                    escribe(f.findChild<QWidget *>(u"txtCB"_s), u"123"_s);
                else
                    f.findChild<QLineEdit *>(u"txtCB"_s)->clear();
                QTest::keyClick(f.focusWidget(), Qt::Key_F9);
            })
            .responde(u"Aceptar"_s)
            .con<frmCodBarra_Datos>([](frmCodBarra_Datos &f) { QTest::keyClick(f.focusWidget(), Qt::Key_F12); });
        dialogo.MostrarModal();
        QVERIFY(conductor.terminado() && !dialogo.Aceptado);
        QCOMPARE(conductor.cajas().back().texto, u"Debe especificar datos validos."_s);
    }
}

void tst_Asignaciones::reference_is_attached_to_the_chosen_supplier()
{
    Formulario forma;
    Conductor conductor;
    conductor.responde(u"Sí"_s).con<frmReferencias_Modificar>([](frmReferencias_Modificar &f) {
        QTest::keyClicks(f.focusWidget(), u"77"_s);
        QTest::keyClick(f.focusWidget(), Qt::Key_Return);
        QTest::keyClicks(f.focusWidget(), u"8"_s);
        QTest::keyClick(f.focusWidget(), Qt::Key_Return);
        QCOMPARE(qobject_cast<QLineEdit *>(f.focusWidget())->text(), u"NUEVA"_s);
        QTest::keyClick(f.focusWidget(), Qt::Key_F9);
    });
    forma.confirma(u".NUEVA"_s);
    QVERIFY(conductor.terminado());
    QCOMPARE(forma.articulo->Text(), u"77"_s);
    QCOMPARE(forma.articulo->Proveedor(), 8);
    QVERIFY(forma.articulo->Existe());
    QCOMPARE(filas(forma, u"SELECT Cod_Articulo, Cod_Prov, Principal FROM Articulos_Ref WHERE Ref = 'NUEVA'"_s),
             u"77:8:0"_s);
}

void tst_Asignaciones::reference_dialog_names_the_last_field_missing()
{
    Formulario forma;
    frmReferencias_Modificar dialogo(&forma);
    dialogo.cEmpresa = &forma.empresa;
    dialogo.Articulo = u"0"_s;
    Conductor conductor;
    const auto f9 = [](frmReferencias_Modificar &f) { QTest::keyClick(f.focusWidget(), Qt::Key_F9); };
    conductor.con<frmReferencias_Modificar>(f9).responde(u"Aceptar"_s);
    conductor.con<frmReferencias_Modificar>([&](frmReferencias_Modificar &f) {
        QVERIFY(f.findChild<QWidget *>(u"txtProv"_s)->isAncestorOf(f.focusWidget()));
        QTest::keyClicks(f.focusWidget(), u"99"_s);
        escribe(f.findChild<QWidget *>(u"txtReferencia"_s), u"R"_s);
        f9(f);
    });
    conductor.responde(u"Aceptar"_s);
    conductor.con<frmReferencias_Modificar>([&](frmReferencias_Modificar &f) {
        caja(f)->setText(u"999"_s);
        f9(f);
    });
    conductor.responde(u"Aceptar"_s);
    conductor.con<frmReferencias_Modificar>([](frmReferencias_Modificar &f) { f.close(); });
    dialogo.MostrarModal();
    QVERIFY(conductor.terminado() && !dialogo.Aceptado);
    QStringList textos;
    for (const auto &vista : conductor.cajas())
        textos << vista.texto;
    QCOMPARE(textos,
             (QStringList{u"Debe especificar el proveedor del artículo"_s, u"Debe especificar el código del artículo"_s,
                          u"El proveedor especificado no existe."_s}));
}

void tst_Asignaciones::duplicate_rule_data()
{
    QTest::addColumn<QString>("regla");
    QTest::addColumn<QString>("respuesta"); // empty: nothing is shown
    QTest::addColumn<bool>("aceptado");
    QTest::newRow("empty") << QString() << QString() << true;
    QTest::newRow("0") << u"0"_s << QString() << true;
    QTest::newRow("1, no") << u"1"_s << u"No"_s << false;
    QTest::newRow("3, yes") << u"3"_s << u"Sí"_s << true;
    QTest::newRow("2") << u"2"_s << u"Aceptar"_s << false;
    QTest::newRow("4") << u"4"_s << u"Aceptar"_s << false;
}

void tst_Asignaciones::duplicate_rule()
{
    QFETCH(QString, regla);
    QFETCH(QString, respuesta);
    QFETCH(bool, aceptado);
    Formulario forma;
    forma.empresa.valores[u"Articulos_CheckRefProv"_s] = regla;
    frmReferencias_Modificar dialogo(&forma);
    dialogo.cEmpresa = &forma.empresa;
    dialogo.Articulo = u"77"_s;
    dialogo.Proveedor = 8;
    dialogo.Referencia = u"a-b.c /"_s;
    Conductor conductor;
    conductor.con<frmReferencias_Modificar>(
        [](frmReferencias_Modificar &f) { QTest::keyClick(f.focusWidget(), Qt::Key_F9); });
    if (!respuesta.isEmpty())
        conductor.responde(respuesta);
    if (!aceptado)
        conductor.con<frmReferencias_Modificar>([](frmReferencias_Modificar &f) {
            QCOMPARE(f.focusWidget()->objectName(), u"txtReferencia"_s);
            f.close();
        });
    dialogo.MostrarModal();
    QVERIFY(conductor.terminado());
    QCOMPARE(dialogo.Aceptado, aceptado);
    if (respuesta.isEmpty())
        return;
    const bool pregunta = respuesta != u"Aceptar";
    QCOMPARE(conductor.cajas().back().titulo, pregunta ? u"Confirmar operación..."_s : u"¡ Atención !"_s);
    QCOMPARE(
        conductor.cajas().back().texto,
        u"Se ha encontrado una referencia de proveedor similar en:\r\n\r\nArtículo: 12 - TORNILLO <M8> & TUERCA\r\n"
        u"Proveedor: 7 - HIERROS\r\nReferencia: a-b.c /\r\n\r\n"_s +
            (pregunta ? u"¿Desea continuar?"_s : u"NO SE PERMITE DUPLICAR UNA REFERENCIA DE PROVEEDOR."_s));
}

void tst_Asignaciones::failure_after_the_delete_says_what_is_gone()
{
    Formulario forma;
    forma.ejecuta(
        u"CREATE TRIGGER falla BEFORE INSERT ON Articulos_CBarras BEGIN SELECT RAISE(ABORT, 'disco lleno'); END"_s);
    Conductor conductor;
    conductor.responde(u"Sí"_s)
        .con<frmCodBarra_Datos>([](frmCodBarra_Datos &f) {
            QTest::keyClicks(f.focusWidget(), u"77"_s);
            escribe(f.findChild<QWidget *>(u"txtCB"_s), u"8412345678905"_s);
            QTest::keyClick(f.focusWidget(), Qt::Key_F9);
        })
        .responde(u"Sí"_s)
        .responde(u"Aceptar"_s);
    forma.confirma(u"/841"_s);
    QVERIFY(conductor.terminado());
    const QStringList lineas = conductor.cajas().back().texto.split(u'\n');
    QCOMPARE(lineas.size(), 2);
    QVERIFY(lineas[0].contains(u"disco lleno"));
    QVERIFY(lineas[1].contains(u"8412345678905") && lineas[1].contains(u"12"));
}

NV_PRUEBA(tst_Asignaciones)
#include "tst_asignaciones.moc"
