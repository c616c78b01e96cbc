#include "Formulario.h"
#include "support/Programa.h"

#include "support/Conductor.h"

#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QTimer>

using namespace Qt::StringLiterals;
using nv::pruebas::Conductor;
using nv::pruebas::Formulario;

/// From what was typed to the item: every kind of code, what is left when nothing matches, and errors.
class tst_Resolucion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void every_kind_finds_its_item_data();
    void every_kind_finds_its_item();
    void nothing_found_data();
    void nothing_found();
    void range_bounds();
    void fashion_codes_carry_qualities();
    void choice_lists_return_and_cancel();
    void offer_to_create_asks_for_permission_data();
    void offer_to_create_asks_for_permission();
    void an_error_leaves_everything_as_it_was();
    void connection_pulled_away_and_given_back();
    void hostile_texts_change_nothing();
    void box_dies_while_its_list_is_up();
};

void tst_Resolucion::every_kind_finds_its_item_data()
{
    QTest::addColumn<QString>("entrada");
    QTest::addColumn<int>("proveedor");
    QTest::addColumn<int>("cliente");
    QTest::addColumn<QString>("caja");
    QTest::newRow("item code") << u"12"_s << 0 << 0 << u"12"_s;
    QTest::newRow("code with separators") << u"1.234"_s << 0 << 0 << u"1234"_s;
    QTest::newRow("supplier reference") << u".ABC"_s << 0 << 0 << u"12"_s;
    QTest::newRow("supplier reference, other case, blanks") << u". abc "_s << 0 << 0 << u"12"_s;
    QTest::newRow("shared reference scoped by supplier") << u".COMUN"_s << 7 << 0 << u"77"_s;
    QTest::newRow("customer reference") << u"*SU-1"_s << 0 << 6 << u"77"_s;
    QTest::newRow("PLU") << u"+40"_s << 0 << 0 << u"23456"_s;
    QTest::newRow("barcode with slash") << u"/8412345678905"_s << 0 << 0 << u"12"_s;
    QTest::newRow("barcode with dash") << u"-8412345678905"_s << 0 << 0 << u"12"_s;
    QTest::newRow("bare barcode") << u"8412345678905"_s << 0 << 0 << u"12"_s;
    QTest::newRow("in-store barcode") << u"21234567"_s << 0 << 0 << u"23456"_s;
}

void tst_Resolucion::every_kind_finds_its_item()
{
    QFETCH(QString, entrada);
    QFETCH(int, proveedor);
    QFETCH(int, cliente);
    QFETCH(QString, caja);
    Formulario forma;
    // The scales are asked under the item-master company.
    forma.articulo->setProveedor(proveedor);
    forma.articulo->Cliente = cliente;
    forma.confirma(entrada);
    QCOMPARE(forma.articulo->Text(), caja);
    QVERIFY(forma.articulo->Existe() && !forma.articulo->Pendiente());
    QVERIFY(!forma.articulo->Nombre().isEmpty());
    QVERIFY(forma.focusWidget() == forma.despues);
}

void tst_Resolucion::nothing_found_data()
{
    QTest::addColumn<QString>("entrada");
    QTest::addColumn<bool>("vital");
    QTest::addColumn<QString>("caja");
    QTest::addColumn<QString>("nombre");
    QTest::addColumn<int>("tecla");
    QTest::addColumn<bool>("avanza");
    QTest::addColumn<bool>("pendiente");
    const QString nada;
    const QString inexistente = u"ARTICULO INEXISTENTE"_s;
    const QString inicial = u"ARTICULO INICIAL"_s;
    const QString ceros = u"0000000"_s;
    QTest::newRow("unknown code") << u"99"_s << true << nada << nada << 13 << false << false;
    QTest::newRow("unknown code, not vital") << u"99"_s << false << u"99"_s << inexistente << 13 << true << false;
    QTest::newRow("long number that is no barcode")
        << u"84123456"_s << false << u"0"_s << inexistente << 13 << true << false;
    QTest::newRow("two letters") << u"AB"_s << true << nada << nada << 0 << false << false;
    QTest::newRow("empty") << nada << true << nada << nada << 0 << false << false;
    QTest::newRow("empty, not vital") << nada << false << ceros << inicial << 13 << true << false;
    QTest::newRow("lone full stop") << u"."_s << true << nada << nada << 0 << false << true;
    QTest::newRow("unknown reference, offer not allowed") << u".NADA"_s << true << nada << nada << 0 << false << true;
    QTest::newRow("unknown barcode, offer not allowed") << u"/123"_s << false << nada << nada << 0 << false << true;
    QTest::newRow("unknown customer reference") << u"*NADA"_s << true << nada << nada << 0 << false << false;
    QTest::newRow("unknown customer reference, not vital")
        << u"*NADA"_s << false << ceros << inicial << 0 << true << false;
    QTest::newRow("PLU above the highest") << u"+123456"_s << true << nada << nada << 0 << false << false;
    QTest::newRow("unknown PLU, not vital") << u"+41"_s << false << ceros << inicial << 0 << true << false;
}

void tst_Resolucion::nothing_found()
{
    QFETCH(QString, entrada);
    QFETCH(bool, vital);
    QFETCH(int, tecla);
    QFETCH(bool, avanza);
    QFETCH(bool, pendiente);
    Formulario forma;
    forma.empresa.valores[u"OficinaCentral"_s] = u"0"_s;
    forma.articulo->setVital(vital);
    QList<int> teclas;
    connect(forma.articulo, &nvArticulo::KeyPress, &forma, [&](qint16 &ascii) { teclas << ascii; });
    forma.confirma(entrada);
    QTEST(forma.caja()->text(), "caja");
    QTEST(forma.articulo->Nombre(), "nombre");
    QCOMPARE(teclas.last(), tecla);
    QCOMPARE(forma.focusWidget() == forma.despues, avanza);
    QCOMPARE(forma.articulo->Pendiente(), pendiente);
    QVERIFY(!forma.articulo->Existe());
}

void tst_Resolucion::range_bounds()
{
    Formulario forma;
    forma.articulo->setVital(false);
    forma.articulo->setInicial(false);
    forma.confirma({});
    QCOMPARE(forma.articulo->Text(), u"9999999"_s);
    QCOMPARE(forma.articulo->Nombre(), u"ARTICULO FINAL"_s);
    forma.articulo->DejarEnBlanco = true;
    forma.articulo->setCodigo({});
    forma.confirma({});
    QVERIFY(forma.articulo->Text().isEmpty());
    QVERIFY(forma.focusWidget() == forma.despues);
    forma.articulo->setKeyEnterChangeFocus(false);
    forma.articulo->DejarEnBlanco = false;
    forma.confirma({});
    QVERIFY(forma.focusWidget() == forma.caja());
}

void tst_Resolucion::fashion_codes_carry_qualities()
{
    Formulario forma;
    forma.empresa.valores[u"EsUlvaro"_s] = u"1"_s;
    forma.confirma(u"000012340507"_s);
    QCOMPARE(forma.articulo->Text(), u"1234"_s);
    QVERIFY(forma.articulo->TieneCualidad());
    QCOMPARE(forma.articulo->Valor_CualidadX(), qint16(7));
    QCOMPARE(forma.articulo->Nombre_CualidadX(), u"XL"_s);
    QCOMPARE(forma.articulo->Nombre_CualidadY(), u"ROJO"_s);

    forma.empresa.ordenCualidades = true;
    forma.confirma(u"000012340507"_s);
    QVERIFY2(!forma.articulo->TieneCualidad(), "X 5 is not defined");
    QCOMPARE(forma.articulo->Nombre_CualidadX(), u"0"_s);
    QCOMPARE(forma.articulo->Valor_CualidadX(), qint16(0));
    forma.confirma(u"000012340705"_s);
    QCOMPARE(forma.articulo->Nombre_CualidadX(), u"XL"_s);

    forma.articulo->setVital(false);
    forma.confirma(u"21234567"_s);
    QVERIFY2(forma.articulo->Text() == u"21234567", "in-store barcodes are not read in the fashion edition");
}

void tst_Resolucion::choice_lists_return_and_cancel()
{
    Formulario forma;
    Conductor conductor;
    conductor.con<QDialog>([](QDialog &lista) {
        QCOMPARE(lista.windowTitle(), u"Artículos"_s);
        QTest::keyClick(lista.findChild<QWidget *>(u"vsLineas"_s), Qt::Key_Return);
    });
    forma.confirma(u".COMUN"_s);
    QVERIFY(conductor.terminado());
    QVERIFY(forma.articulo->Existe());
    QVERIFY2(forma.focusWidget() == forma.despues, "the focus moves from the box, not from where the dialog left it");

    for (const QString &entrada : {u".COMUN"_s, u"*SU-1"_s}) {
        conductor.con<QDialog>([](QDialog &lista) { lista.close(); });
        forma.confirma(entrada);
        QVERIFY(conductor.terminado());
        QVERIFY(forma.articulo->Text().isEmpty() && forma.articulo->Nombre().isEmpty());
        QVERIFY(forma.articulo->Pendiente());
        QVERIFY(forma.focusWidget() == forma.caja());
    }
}

void tst_Resolucion::offer_to_create_asks_for_permission_data()
{
    QTest::addColumn<QString>("prepara");
    QTest::addColumn<QString>("oficina");
    QTest::addColumn<bool>("pregunta");
    QTest::newRow("no row allows") << QString() << u"1"_s << true;
    QTest::newRow("a row denies")
        << u"INSERT INTO SGD_Controles_Grupos (Cod_Formulario, Cod_Control, Permiso) VALUES (1, 8, 1)"_s << u"1"_s
        << false;
    QTest::newRow("a row of the other control does not")
        << u"INSERT INTO SGD_Controles_Grupos (Cod_Formulario, Cod_Control, Permiso) VALUES (1, 19, 1)"_s << u"1"_s
        << true;
    QTest::newRow("the company flag overrides")
        << u"UPDATE Empresas SET NoProcesarPermisosControles = 1"_s << u"1"_s << true;
    QTest::newRow("not the head office") << QString() << u"0"_s << false;
}

void tst_Resolucion::offer_to_create_asks_for_permission()
{
    QFETCH(QString, prepara);
    QFETCH(QString, oficina);
    QFETCH(bool, pregunta);
    Formulario forma;
    if (!prepara.isEmpty())
        forma.ejecuta(prepara);
    forma.empresa.valores[u"OficinaCentral"_s] = oficina;
    Conductor conductor;
    if (pregunta)
        conductor.responde(u"No"_s);
    forma.confirma(u"/123"_s);
    QVERIFY(conductor.terminado());
    if (pregunta) {
        QCOMPARE(conductor.cajas().back().titulo, u"¡ Atención !"_s);
        QCOMPARE(conductor.cajas().back().texto, u"El código de barras especificado no existe. ¿Desea crearlo?"_s);
    }
    QVERIFY(forma.articulo->Text().isEmpty() && forma.articulo->Pendiente() && forma.focusWidget() == forma.caja());

    // Once per instance: a change in the permissions is not seen any more.
    if (pregunta)
        conductor.responde(u"No"_s);
    forma.confirma(u"/123"_s);
    QVERIFY(forma.sentencias.filter(u"SGD_Controles_Grupos"_s).isEmpty());
}

void tst_Resolucion::an_error_leaves_everything_as_it_was()
{
    Formulario forma;
    forma.confirma(u"12"_s);
    forma.articulo->setFocus();
    QTest::keyClicks(forma.caja(), u".O'R"_s);
    forma.caja()->setText(u".O'R"_s);
    QList<int> teclas;
    connect(forma.articulo, &nvArticulo::KeyPress, &forma, [&](qint16 &ascii) { teclas << ascii; });
    Conductor conductor;
    conductor.responde(u"Aceptar"_s);
    QTest::keyClick(forma.caja(), Qt::Key_Return);
    QVERIFY(conductor.terminado());
    QCOMPARE(int(conductor.cajas().size()), 1);
    QCOMPARE(conductor.cajas().back().titulo, u"¡ Atención !"_s);
    QCOMPARE(forma.articulo->Text(), u".O'R"_s);
    QVERIFY2(forma.caja()->selectedText() == u".O'R", "the next scan replaces what failed");
    QVERIFY(forma.articulo->Pendiente() && teclas.isEmpty() && forma.focusWidget() == forma.caja());

    forma.ejecuta(u"UPDATE Articulos SET Descripcion = NULL WHERE Codigo = 77"_s);
    conductor.responde(u"Aceptar"_s);
    forma.confirma(u"77"_s);
    QVERIFY(conductor.terminado());
    QCOMPARE(conductor.cajas().back().titulo, u"nvArticulos::Cargar"_s);
    QCOMPARE(int(conductor.cajas().size()), 2);
    QVERIFY(!forma.articulo->Existe() && forma.articulo->Pendiente() && forma.articulo->Text() == u"77");
}

void tst_Resolucion::connection_pulled_away_and_given_back()
{
    Formulario forma;
    forma.conexion->dejarDeEscuchar(&forma);
    auto otra = nv::datos::abrirEmbebida(u":memory:"_s);
    std::swap(forma.conexion, otra);
    otra.reset();
    Conductor conductor;
    conductor.responde(u"Aceptar"_s);
    forma.confirma(u"/8412345678905"_s);
    QVERIFY(conductor.terminado());
    QCOMPARE(forma.articulo->Text(), u"/8412345678905"_s);
    forma.articulo->setConexion(forma.conexion.get());
    forma.confirma(u"12"_s);
    QVERIFY2(forma.articulo->Text().isEmpty(), "the new database is asked: it has no items");
}

void tst_Resolucion::hostile_texts_change_nothing()
{
    QFile fichero(QStringLiteral(NV_RAIZ "/../shared/data/textos_hostiles.csv"));
    if (!fichero.open(QIODevice::ReadOnly))
        QSKIP("shared/data/textos_hostiles.csv is not here");
    Formulario forma;
    const auto huella = [&] {
        QString todo;
        for (const QString &tabla : {u"Articulos"_s, u"Articulos_CBarras"_s, u"Articulos_Ref"_s, u"Empresas"_s}) {
            nv::Registros r = forma.conexion->Abrir(nv::Sentencia::deConsola(u"SELECT COUNT(*) AS N FROM "_s + tabla));
            while (r.siguiente())
                todo += r.texto(u"N") + u' ';
        }
        return todo;
    };
    const QString antes = huella();
    forma.empresa.valores[u"OficinaCentral"_s] = u"0"_s;
    // Errors are shown and searches open: all are put away.
    QTimer cierre;
    connect(&cierre, &QTimer::timeout, &forma, [] {
        if (auto *modal = qobject_cast<QDialog *>(QApplication::activeModalWidget()))
            modal->reject();
    });
    cierre.start(0);
    int confirmados = 0;
    fichero.readLine();
    while (!fichero.atEnd()) {
        const QByteArray linea = fichero.readLine().trimmed();
        const QString texto = QString::fromUtf8(QByteArray::fromBase64(linea.sliced(linea.lastIndexOf(',') + 1)));
        for (const QString &prefijo : {QString(), u"."_s, u"/"_s}) {
            forma.articulo->setFocus();
            forma.caja()->setText(prefijo + texto);
            forma.sentencias.clear();
            QTest::keyClick(forma.caja(), Qt::Key_Return);
            for (const QString &sentencia : std::as_const(forma.sentencias))
                QVERIFY2(sentencia.startsWith(u"SELECT"), qPrintable(sentencia));
            ++confirmados;
        }
    }
    QVERIFY(confirmados > 2000);
    QCOMPARE(huella(), antes);
}

void tst_Resolucion::box_dies_while_its_list_is_up()
{
    auto *forma = new Formulario;
    Conductor conductor;
    conductor.con<QDialog>([&](QDialog &) { delete std::exchange(forma, nullptr); });
    forma->articulo->setFocus();
    QTest::keyClicks(forma->caja(), u".COMUN"_s);
    QTest::keyClick(forma->caja(), Qt::Key_Return);
    QVERIFY(conductor.terminado());
    QVERIFY(forma == nullptr);
}

NV_PRUEBA(tst_Resolucion)
#include "tst_resolucion.moc"
