#include "Formulario.h"
#include "support/Programa.h"

#include "nvArticulo/BolsaPropiedades.h"
#include "nvArticulo/Error.h"
#include "platform/widgets/Twips.h"
#include "support/Conductor.h"

#include <QLabel>

using namespace Qt::StringLiterals;
using nv::pruebas::Formulario;

/// Surface: stored properties, layout, texts, focus and keys.
class tst_nvArticulo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bag_keeps_order_and_defaults();
    void code_reads_as_number_and_empties_the_label();
    void text_shows_brackets_for_its_own_width();
    void layout_follows_the_width();
    void disabled_box_is_grey_and_stays_so();
    void host_sees_the_old_state_in_change();
    void host_rewrites_characters();
    void up_goes_back_and_tells_the_host();
    void enter_moves_on_after_the_host_saw_the_key();
    void queued_scan_lands_in_the_next_box();
    void description_load_cleans_the_text_data();
    void description_load_cleans_the_text();
    void model_is_read_once_known();
    void slot_keeps_the_first_connection();
};

void tst_nvArticulo::bag_keeps_order_and_defaults()
{
    QWidget forma;
    nvArticulo articulo(&forma);
    nv::BolsaPropiedades fresca;
    articulo.WriteProperties(fresca);
    QCOMPARE(fresca.claves(), std::vector<QString>{u"KeyFichaArt"_s});
    QCOMPARE(fresca.leer(u"KeyFichaArt"_s, 0).toInt(), 115);

    articulo.ReadProperties(nv::BolsaPropiedades());
    QCOMPARE(articulo.KeyFichaArt(), 118);
    nv::BolsaPropiedades vacia;
    articulo.WriteProperties(vacia);
    QVERIFY(vacia.claves().empty());

    QSignalSpy cambios(&articulo, &nvArticulo::PropertyChanged);
    articulo.setVital(false);
    articulo.setLocked(true);
    articulo.setText(u"  12 "_s);
    articulo.setAppearance(0);
    articulo.setTipoFicha(nvArticulo::FichaArticulos_Mini_1);
    articulo.setModelo(3);
    articulo.DejarEnBlanco = true;
    QCOMPARE(cambios.count(), 6);
    nv::BolsaPropiedades llena;
    articulo.WriteProperties(llena);
    QCOMPARE(llena.claves(), (std::vector<QString>{u"Locked"_s, u"Text"_s, u"Vital"_s, u"DejarEnBlanco"_s,
                                                   u"TipoFicha"_s, u"Appearance"_s}));
    nvArticulo otra(&forma);
    otra.ReadProperties(llena);
    QCOMPARE(otra.Text(), u"12"_s);
    QVERIFY(!otra.Vital() && otra.Locked() && otra.DejarEnBlanco && otra.TipoFicha() == 2 && otra.Appearance() == 0);
    QCOMPARE(otra.MaxLength(), 21);
    QVERIFY_THROWS_EXCEPTION(nv::Error, otra.setAppearance(2));
}

void tst_nvArticulo::code_reads_as_number_and_empties_the_label()
{
    Formulario forma;
    forma.articulo->setCodigo(u"  00123 "_s);
    QCOMPARE(forma.articulo->Text(), u"00123"_s);
    QCOMPARE(forma.articulo->Codigo(), u"123"_s);
    forma.articulo->setCodigo(u"ABC"_s);
    QCOMPARE(forma.articulo->Value(), u"0"_s);
    forma.articulo->setCodigo(u"1E999"_s);
    QCOMPARE(forma.articulo->Codigo(), u"0"_s);

    forma.articulo->setCodigo(u"12"_s);
    QVERIFY(forma.articulo->Cargar());
    QVERIFY(forma.articulo->Existe() && !forma.articulo->Pendiente());
    QCOMPARE(forma.articulo->Nombre(), u"TORNILLO <M8> & TUERCA"_s);
    forma.articulo->setCodigo(u"12"_s);
    QVERIFY2(!forma.articulo->Existe() && forma.articulo->Pendiente(), "the same text again fires no change");
    QVERIFY(forma.articulo->Nombre().isEmpty());
    QCOMPARE(forma.articulo->Nombre_CualidadX(), u"0"_s);
}

void tst_nvArticulo::text_shows_brackets_for_its_own_width()
{
    QWidget forma;
    nvArticulo articulo(&forma);
    articulo.resize(nv::twips::aPixeles(6000, &articulo), 24);
    const int blanco = nv::twips::dePixeles(articulo.fontMetrics().horizontalAdvance(u' '), &articulo);
    const int ancho = nv::twips::dePixeles(articulo.width(), &articulo);
    articulo.setText(u"5"_s);
    QCOMPARE(articulo.Nombre(), u'[' + QString((ancho - 1785) / blanco - 2, u' ') + u']');
    articulo.setCodigo(u"5"_s);
    articulo.resize(articulo.width() + 40, 24);
    forma.show();
    const int mayor = nv::twips::dePixeles(articulo.width(), &articulo);
    QCOMPARE(articulo.Nombre(), u'[' + QString((mayor - 1380) / blanco - 2, u' ') + u']');
    const QString hueco = articulo.Nombre();
    articulo.resize(articulo.width() + 100, 24);
    QVERIFY2(articulo.Nombre() == hueco, "a label that shows something keeps it");
}

void tst_nvArticulo::layout_follows_the_width()
{
    QWidget forma;
    nvArticulo articulo(&forma);
    auto *caja = articulo.findChild<QWidget *>(u"txtCodigo"_s);
    auto *nombre = articulo.findChild<QWidget *>(u"lblNombre"_s);
    forma.show();
    articulo.resize(300, 40);
    QCOMPARE(caja->geometry(), QRect(0, 0, 92, 40));
    QCOMPARE(nombre->geometry(), QRect(92, 13, 208, 34));
    articulo.resize(80, 40);
    QCOMPARE(articulo.width(), 62);
    QCOMPARE(caja->geometry(), QRect(0, 0, 92, 40));
    articulo.resize(300, 10);
    QCOMPARE(caja->geometry(), QRect(0, 0, 92, 40));
}

void tst_nvArticulo::disabled_box_is_grey_and_stays_so()
{
    Formulario forma;
    const QColor normal = forma.antes->palette().color(QPalette::Base);
    QCOMPARE(forma.caja()->palette().color(QPalette::Base), QColor(192, 255, 255));
    forma.articulo->setEnabled(false);
    QVERIFY(!forma.articulo->Enabled());
    QCOMPARE(forma.caja()->palette().color(QPalette::Base), QColor(224, 224, 224));
    forma.articulo->setEnabled(true);
    QCOMPARE(forma.caja()->palette().color(QPalette::Base), normal);
    forma.articulo->setFocus();
    forma.caja()->setText(u"123"_s);
    forma.despues->setFocus();
    QCOMPARE(forma.caja()->palette().color(QPalette::Base), normal);
    QVERIFY2(forma.sentencias.isEmpty() && forma.articulo->Text() == u"123", "leaving the box resolves nothing");
    forma.articulo->setFocus();
    QCOMPARE(forma.caja()->selectedText(), u"123"_s);
    forma.setEnabled(false);
    QVERIFY2(forma.articulo->Enabled(), "the form's state is not the component's own");
}

void tst_nvArticulo::host_sees_the_old_state_in_change()
{
    Formulario forma;
    forma.confirma(u"12"_s);
    QVERIFY(forma.articulo->Existe());
    QList<bool> vistos;
    connect(forma.articulo, &nvArticulo::Change, &forma, [&] { vistos << forma.articulo->Existe(); });
    forma.articulo->setFocus();
    QTest::keyClicks(forma.caja(), u"7"_s);
    QCOMPARE(vistos, QList<bool>{true});
    QVERIFY(!forma.articulo->Existe());
    QVERIFY2(!forma.articulo->Nombre().isEmpty(), "typing never clears the label");
}

void tst_nvArticulo::host_rewrites_characters()
{
    Formulario forma;
    QList<int> vistos;
    connect(forma.articulo, &nvArticulo::KeyPress, &forma, [&](qint16 &ascii) {
        vistos << ascii;
        if (ascii == u'a')
            ascii = u'A';
        else if (ascii == u'x')
            ascii = 0;
    });
    QTest::keyClicks(forma.caja(), u"ax"_s);
    QTest::sendKeyEvent(QTest::Click, forma.caja(), Qt::Key_Ntilde, u"ñ"_s, Qt::NoModifier);
    // No key of its own on the host's table, and still a character.
    QTest::sendKeyEvent(QTest::Click, forma.caja(), Qt::Key_At, u"@"_s, Qt::NoModifier);
    QTest::keyClick(forma.caja(), Qt::Key_Backspace);
    QTest::keyClick(forma.caja(), Qt::Key_Backspace);
    QTest::keyClick(forma.caja(), Qt::Key_Escape);
    QCOMPARE(forma.caja()->text(), u"A"_s);
    QCOMPARE(vistos, (QList<int>{'a', 'x', 241, '@', 8, 8, 27}));
    connect(forma.articulo, &nvArticulo::KeyDown, &forma, [](qint16 &codigo, qint16 &) { codigo = 0; });
    QTest::keyClicks(forma.caja(), u"b"_s);
    QCOMPARE(forma.caja()->text(), u"A"_s);
}

void tst_nvArticulo::up_goes_back_and_tells_the_host()
{
    Formulario forma;
    QList<int> teclas;
    connect(forma.articulo, &nvArticulo::KeyDown, &forma, [&](qint16 &codigo, qint16 &) { teclas << codigo; });
    QTest::keyClick(forma.caja(), Qt::Key_Up);
    QVERIFY(forma.antes->hasFocus());
    forma.articulo->setFocus();
    forma.articulo->setKeyUpChangeFocus(false);
    QTest::keyClick(forma.caja(), Qt::Key_Up);
    QVERIFY(forma.caja()->hasFocus());
    QCOMPARE(teclas, (QList<int>{38, 38}));
}

void tst_nvArticulo::enter_moves_on_after_the_host_saw_the_key()
{
    Formulario forma;
    QList<int> ascii;
    bool aunDentro = false;
    connect(forma.articulo, &nvArticulo::KeyPress, &forma, [&](qint16 &tecla) {
        ascii << tecla;
        aunDentro = forma.caja()->hasFocus() && forma.articulo->Existe();
    });
    forma.articulo->setFocus();
    forma.caja()->setText(u"00012"_s);
    QTest::keyClick(forma.caja(), Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(ascii, QList<int>{13});
    QVERIFY(aunDentro);
    QVERIFY(forma.despues->hasFocus());
    QCOMPARE(forma.caja()->text(), u"00012"_s);

    forma.articulo->setKeyEnterChangeFocus(false);
    forma.confirma(u"12"_s);
    QVERIFY(forma.caja()->hasFocus());
    QCOMPARE(forma.articulo->Emular_Enter(u"12"_s).toString(), u"12"_s);
    QCOMPARE(forma.articulo->Emular_Enter(u"99"_s).metaType(), QMetaType::fromType<qint16>());
}

/// Keys that the window system has queued are delivered before anything that the component could post.
void tst_nvArticulo::queued_scan_lands_in_the_next_box()
{
    Formulario forma;
    nv::pruebas::encolarLectura(&forma, u"12"_s);
    nv::pruebas::encolarTecla(&forma, Qt::Key_9, u"9"_s);
    nv::pruebas::encolarTecla(&forma, Qt::Key_9, u"9"_s);
    QCoreApplication::processEvents();
    QCOMPARE(forma.articulo->Text(), u"12"_s);
    QVERIFY(forma.articulo->Existe());
    QCOMPARE(forma.despues->text(), u"99"_s);
}

void tst_nvArticulo::description_load_cleans_the_text_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<bool>("vital");
    QTest::addColumn<bool>("hallado");
    QTest::addColumn<QString>("queda");
    QTest::addColumn<QString>("consultado");
    QTest::newRow("points and comma go") << u"1.234,5"_s << false << false << u"12345"_s << u"12345"_s;
    QTest::newRow("zeros stay in the box") << u"00012"_s << true << true << u"00012"_s << u"12"_s;
    QTest::newRow("letters look up item 0") << u"ABC"_s << false << false << u"ABC"_s << u"0"_s;
    QTest::newRow("twenty-one digits are just not found")
        << u"123456789012345678901"_s << false << false << u"123456789012345678901"_s << u"123456789012345678901"_s;
    QTest::newRow("unknown and vital empties") << u"99"_s << true << false << QString() << u"99"_s;
}

void tst_nvArticulo::description_load_cleans_the_text()
{
    QFETCH(QString, texto);
    QFETCH(bool, vital);
    QFETCH(bool, hallado);
    QFETCH(QString, queda);
    QFETCH(QString, consultado);
    Formulario forma;
    forma.articulo->setVital(vital);
    forma.articulo->setCodigo(texto);
    forma.sentencias.clear();
    QCOMPARE(forma.articulo->Cargar(), hallado);
    QCOMPARE(forma.articulo->Text(), queda);
    QCOMPARE(forma.sentencias,
             QStringList{u"SELECT Descripcion FROM Articulos WHERE Cod_Empresa =2 AND Codigo ="_s + consultado});
    QVERIFY(!forma.articulo->Pendiente());
}

void tst_nvArticulo::model_is_read_once_known()
{
    QWidget padre;
    nvArticulo articulo(&padre);
    QCOMPARE(articulo.Modelo(), qint16(0));
    nv::pruebas::EmpresaPrueba empresa;
    empresa.valores[u"BusquedaArticulos"_s] = u"5"_s;
    articulo.setcEmpresa(&empresa);
    QCOMPARE(articulo.Modelo(), qint16(5));
    empresa.valores[u"BusquedaArticulos"_s] = u"7"_s;
    QCOMPARE(articulo.Modelo(), qint16(5));
}

void tst_nvArticulo::slot_keeps_the_first_connection()
{
    auto primera = nv::datos::abrirEmbebida(u":memory:"_s);
    auto segunda = nv::datos::abrirEmbebida(u":memory:"_s);
    {
        QWidget padre;
        nvArticulo una(&padre);
        nvArticulo otra(&padre);
        una.setConexion(primera.get());
        otra.setConexion(segunda.get());
        QCOMPARE(nv::ranura::actual(), primera.get());
    }
    QVERIFY2(nv::ranura::actual() == primera.get(), "a box that dies takes no connection along");
    primera.reset();
    QVERIFY(nv::ranura::actual() == nullptr);
}

NV_PRUEBA(tst_nvArticulo)
#include "tst_nvarticulo.moc"
