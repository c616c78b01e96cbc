#include "Escenario.h"
#include "support/Programa.h"

#include "platform/widgets/nvCheckBox.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QWindow>

using namespace Qt::StringLiterals;
using namespace nv::pruebas;

namespace {

void esc(const Manos &m)
{
    m.pulsa(Qt::Key_Escape);
}

/// A picture of what is on screen, where the tests run.
void retrata(QWidget *widget, const QString &nombre)
{
    QDir().mkpath(u"capturas"_s);
    widget->grab().save(u"capturas/"_s + nombre + u".png"_s);
}

} // namespace

class tst_Creacion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whole_item_is_read_back_row_by_row();
    void presets_and_settings_fill_the_form();
    void one_axis_given_puts_the_company_defaults_aside();
    void unknown_settings_and_unused_levels();
    void descriptions_follow_their_fields();
    void lower_families_go_with_the_upper_one();
    void code_confirmation_data();
    void code_confirmation();
    void next_code_is_taken_with_f6();
    void validation_stops_at_the_first_thing_missing();
    void barcode_of_seven_digits_data();
    void barcode_of_seven_digits();
    void barcode_warnings_do_not_swallow_the_click_on_accept();
    void esc_cancels_first_and_closes_next();
    void window_cross_deletes_the_unsaved_item();
    void message_over_a_filled_form();
};

void tst_Creacion::whole_item_is_read_back_row_by_row()
{
    Escenario e;
    e.empresa.valores[u"EsUlvaro"_s] = u"1"_s;
    e.con([&](Manos m) {
        retrata(&m.f, u"creacion_vacia"_s);
        m.rellena(u"00321"_s, u"L'ORÉAL-1"_s);
        m.escribe("txtImpuesto", u"1,5"_s);
        m.escribe("txtCodBarras", u"96385074"_s);
        m.hijo<nvCheckBox>("chkUnidadesDecimales")->setFocus();
        m.pulsa(Qt::Key_Space);
        QCOMPARE(m.texto("txtDescripcion"), u"ROPA ACME SPORT L'ORÉAL-1"_s);
        retrata(&m.f, u"creacion_llena"_s);
        m.pulsa(Qt::Key_F9);
    });
    QVERIFY(e.muestra());
    QVERIFY(e.forma.Aceptado && e.conductor.cajas().empty());
    QCOMPARE(e.filas(u"SELECT Codigo, Descripcion, Desc_Ticket, Familia_1, Familia_2, Familia_3, Marca, TipoImpuesto, "
                     u"CualidadX, CualidadY, NoGenerarSerieEAN, UnidadesDecimales, Temporada, FAlta, Mod_Ficha FROM "
                     u"Articulos WHERE Cod_Empresa = 2 AND Codigo = 321"_s),
             u"321|ROPA ACME SPORT L'ORÉAL-1|ACM L'ORÉAL-1|1|5|6|4|1.5|3|4|0|1|V26|22/11/2026|1"_s);
    QCOMPARE(e.filas(u"SELECT Cod_Empresa, Cod_Almacen FROM Almacen_Articulos WHERE Cod_Articulo = 321"_s),
             u"1|1 1|2"_s);
    QCOMPARE(
        e.filas(u"SELECT Cod_Empresa, Cod_Prov, Ref, Principal, Fecha FROM Articulos_Ref WHERE Cod_Articulo = 321"_s),
        u"2|7|L'ORÉAL-1|1|22/11/2026"_s);
    QCOMPARE(e.filas(u"SELECT Cod_Empresa, Cod_Barras, Principal, Automatico, Unidades FROM Articulos_CBarras WHERE "
                     u"Cod_Articulo = 321 ORDER BY Automatico DESC"_s),
             u"2|98100019|0|1|1 2|96385074|1|0|1"_s);
    const auto &f = e.forma;
    QCOMPARE(f.Codigo, 321);
    QCOMPARE(f.Proveedor, 7);
    QCOMPARE(f.Ref, u"L'ORÉAL-1"_s);
    QCOMPARE((QList<int>{f.Marca, f.TipoImpuesto, f.Familia_1, f.Familia_2, f.Familia_3, f.CualidadX, f.CualidadY,
                         f.NoGenerarSerieEAN, f.UnidadesDecimales}),
             (QList<int>{4, 2, 1, 5, 6, 3, 4, 0, -1}));
    QCOMPARE(f.Temporada, u"V26"_s);
}

void tst_Creacion::presets_and_settings_fill_the_form()
{
    Escenario e;
    auto &f = e.forma;
    f.Proveedor = 7;
    f.Ref = u"B-1234"_s;
    f.Marca = 4;
    f.TipoImpuesto = 1;
    f.Familia_1 = 1;
    f.Familia_2 = 5;
    f.Familia_3 = 6;
    f.Temporada = u"V26"_s;
    f.NoGenerarSerieEAN = 1;
    f.UnidadesDecimales = -1;
    e.con([](Manos m) {
        QVERIFY(m.enfocado("txtCodigo"));
        QCOMPARE(m.texto("txtProv"), u"7"_s);
        QCOMPARE(m.hijo<QLabel>("lblPIgic")->text(), u"7 %"_s);
        QCOMPARE(m.texto("txtDesc_Ticket"), u"ACM B-1234"_s);
        QCOMPARE(m.texto("txtDescripcion"), u"ROPA ACME SPORT B-1234"_s);
        QCOMPARE(m.texto("txtFamilia_3"), u"6"_s);
        QCOMPARE(m.hijo<QComboBox>("cboCualX")->currentText(), u"Tallas"_s);
        QVERIFY(m.hijo<nvCheckBox>("chkNoGenerarSerieEAN")->isChecked());
        QVERIFY2(!m.hijo<nvCheckBox>("chkUnidadesDecimales")->isChecked(), "only 1 ticks the box");
        QVERIFY(!m.hijo<QPushButton>("cmdAceptar")->isEnabled() && !m.hijo<QPushButton>("cmdCancelar")->isEnabled());
        m.pulsa(Qt::Key_F9);
        m.pulsa(Qt::Key_F12);
        esc(m);
    });
    QVERIFY(e.muestra());
    QVERIFY(!f.Aceptado);
}

void tst_Creacion::one_axis_given_puts_the_company_defaults_aside()
{
    Escenario e;
    e.forma.CualidadY = 4;
    e.con([](Manos m) {
        QCOMPARE(m.hijo<QComboBox>("cboCualX")->currentIndex(), -1);
        QCOMPARE(m.hijo<QComboBox>("cboCualY")->currentText(), u"Colores"_s);
        m.rellena(u"1"_s, u"R"_s);
        m.pulsa(Qt::Key_F9);
    });
    e.conductor.responde(u"Aceptar"_s);
    e.con([](Manos m) {
        QVERIFY2(m.enfocado("cboCualX"), "nothing selected is not chosen");
        esc(m);
        esc(m);
    });
    QVERIFY(e.muestra());
}

void tst_Creacion::unknown_settings_and_unused_levels()
{
    Escenario e;
    e.sql(u"UPDATE Empresas SET FamiliaObligada = NULL, MaxCodigoArt = NULL, CualidadX_PorDefecto = NULL, "
          u"Series_Automaticas = NULL"_s);
    e.empresa.familias[2].clear();
    e.con([](Manos m) {
        QVERIFY(!m.hijo<nvCheckBox>("chkNoGenerarSerieEAN")->isEnabled());
        QVERIFY(!m.hijo<QWidget>("txtFamilia_3")->isVisible() && !m.hijo<QWidget>("lblTFamilia_3")->isVisible());
        m.confirma(u"2000000"_s);
        QVERIFY(m.abierto());
        m.escribe("txtFamilia_2", {});
        m.pulsa(Qt::Key_Return);
        QVERIFY2(m.enfocado("cboCualX"), "the hidden level is skipped");
        m.pulsa(Qt::Key_Return);
        QVERIFY(m.enfocado("cboCualY"));
        m.f.close();
    });
    QVERIFY(e.muestra());
}

void tst_Creacion::descriptions_follow_their_fields()
{
    Escenario e;
    e.con([](Manos m) {
        m.confirma(u"1"_s);
        m.escribe("txtMarca", u"4"_s);
        m.escribe("txtRef", u"B-1"_s);
        QCOMPARE(m.texto("txtDesc_Ticket"), u"ACM B-1"_s);
        QVERIFY2(m.texto("txtDescripcion").startsWith(u" "), "a family without a code gives nothing, not its blanks");
        m.escribe("txtDesc_Ticket", u"A MANO"_s);
        m.escribe("txtFamilia_1", u"2"_s);
        m.pulsa(Qt::Key_Return);
        QCOMPARE(m.texto("txtDesc_Ticket"), u"ACM B-1"_s);
        QCOMPARE(m.texto("txtDescripcion"), u"CALZ ACME SPORT B-1"_s);
        m.escribe("txtDescripcion", u"A MANO"_s);
        m.pulsa(Qt::Key_F12);
        QVERIFY(m.texto("txtDescripcion").isEmpty() && m.texto("txtRef").isEmpty());
        QCOMPARE(m.texto("txtMarca"), u"4"_s);
        QCOMPARE(m.hijo<QComboBox>("cboCualX")->currentIndex(), 0);
        esc(m);
    });
    QVERIFY(e.muestra());
}

void tst_Creacion::lower_families_go_with_the_upper_one()
{
    Escenario e;
    e.con([](Manos m) {
        m.rellena(u"1"_s, u"R"_s);
        QVERIFY(m.enfocado("cboCualX"));
        m.hijo("txtFamilia_1")->setFocus();
        m.pulsa(Qt::Key_Return);
        QVERIFY(m.enfocado("txtFamilia_2"));
        QCOMPARE(m.texto("txtFamilia_3"), u"6"_s);
        m.escribe("txtFamilia_1", u"2"_s);
        m.pulsa(Qt::Key_Return);
        QVERIFY(m.texto("txtFamilia_2").isEmpty() && m.texto("txtFamilia_3").isEmpty());
        m.escribe("txtFamilia_2", u"5"_s);
        m.pulsa(Qt::Key_Return);
        QCOMPARE(m.hijo<QWidget>("txtFamilia_2")->findChild<QLabel *>(u"nombre"_s)->text(), u"No existe"_s);
        esc(m);
        esc(m);
    });
    QVERIFY(e.muestra());
}

void tst_Creacion::code_confirmation_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("mensaje"); // empty: none
    QTest::addColumn<bool>("abierto");
    QTest::addColumn<QString>("queda");
    const QString ya = u"Este código ya está asignado a otro artículo."_s;
    QTest::newRow("blanks") << u"  "_s << QString() << false << u"  "_s;
    QTest::newRow("free") << u"00012"_s << QString() << true << u"00012"_s;
    QTest::newRow("number before letters") << u"12ab"_s << QString() << true << u"12"_s;
    QTest::newRow("of another company") << u"999"_s << QString() << true << u"999"_s;
    QTest::newRow("taken") << u"100"_s << ya << false << QString();
    QTest::newRow("the highest") << u"5000"_s << QString() << true << u"5000"_s;
    QTest::newRow("above the highest") << u"5001"_s << QString() << false << QString();
    QTest::newRow("zero") << u"0"_s << QString() << false << QString();
    QTest::newRow("negative") << u"-5"_s << QString() << false << QString();
    QTest::newRow("text") << u"ABC"_s << QString() << false << QString();
    QTest::newRow("too long") << u"99999999999"_s << u"Desbordamiento"_s << false << u"99999999999"_s;
}

void tst_Creacion::code_confirmation()
{
    QFETCH(QString, texto);
    QFETCH(QString, mensaje);
    QFETCH(bool, abierto);
    QFETCH(QString, queda);
    Escenario e;
    e.con([&](Manos m) { m.confirma(texto); });
    if (!mensaje.isEmpty())
        e.conductor.responde(u"Aceptar"_s);
    e.con([&](Manos m) {
        QCOMPARE(m.texto("txtCodigo"), queda);
        QCOMPARE(m.abierto(), abierto);
        QCOMPARE(m.hijo<QPushButton>("cmdAceptar")->isEnabled(), abierto);
        QVERIFY(m.enfocado(abierto ? "txtProv" : "txtCodigo"));
        m.hijo<QPushButton>("cmdCerrar")->click();
    });
    QVERIFY(e.muestra());
    QCOMPARE(e.conductor.cajas().empty(), mensaje.isEmpty());
    if (!mensaje.isEmpty())
        QVERIFY2(e.caja().texto.contains(mensaje), qPrintable(e.caja().texto));
    QVERIFY2(e.filas(u"SELECT Codigo FROM Articulos ORDER BY Codigo"_s) == u"100 999", "a code that was taken stays");
    QVERIFY(e.filas(u"SELECT * FROM Almacen_Articulos"_s).isEmpty());
}

void tst_Creacion::next_code_is_taken_with_f6()
{
    Escenario e;
    e.con([&](Manos m) {
        m.pulsa(Qt::Key_F6);
        QCOMPARE(m.texto("txtCodigo"), u"101"_s);
        QVERIFY(m.abierto());
        esc(m);
        e.sql(u"DELETE FROM Articulos"_s);
        m.pulsa(Qt::Key_F6);
        QCOMPARE(m.texto("txtCodigo"), u"1"_s);
        m.f.close();
    });
    QVERIFY(e.muestra());
    QVERIFY(e.articulo(1).isEmpty());
}

void tst_Creacion::validation_stops_at_the_first_thing_missing()
{
    Escenario e;
    struct Fallo
    {
        QString texto;
        const char *foco;
        std::function<void(Manos)> remedio;
    };
    const auto teclea = [](const char *caja, const QString &texto) { return [=](Manos m) { m.escribe(caja, texto); }; };
    const auto elige = [](const char *lista, int posicion) {
        return [=](Manos m) { m.hijo<QComboBox>(lista)->setCurrentIndex(posicion); };
    };
    const std::vector<Fallo> fallos{
        {u"Especifique un proveedor para el artículo"_s, "txtProv", teclea("txtProv", u"7"_s)},
        {u"Especifique una referencia para el artículo"_s, "txtRef", teclea("txtRef", u"YA"_s)},
        {u"Especifique el valor de Familia para el artículo"_s, "txtFamilia_1", teclea("txtFamilia_1", u"1"_s)},
        {u"Especifique el valor de SubFamilia para el artículo"_s, "txtFamilia_2", teclea("txtFamilia_2", u"5"_s)},
        {u"Especifique el valor de Linea para el artículo"_s, "txtFamilia_3", teclea("txtFamilia_3", u"6"_s)},
        {u"Especifique el valor para Talla"_s, "cboCualX", elige("cboCualX", 1)},
        {u"Especifique el valor para Color"_s, "cboCualY", elige("cboCualY", 2)},
        {u"La referencia especificada ya existe."_s, "txtRef", teclea("txtProv", u"8"_s)},
    };
    e.con([](Manos m) {
        m.confirma(u"200"_s);
        m.hijo<QComboBox>("cboCualX")->setCurrentIndex(0);
        m.hijo<QComboBox>("cboCualY")->setCurrentIndex(0);
        m.pulsa(Qt::Key_F9);
    });
    for (const Fallo &fallo : fallos) {
        e.conductor.responde(u"Aceptar"_s);
        e.con([fallo](Manos m) {
            QVERIFY2(m.enfocado(fallo.foco), fallo.foco);
            fallo.remedio(m);
            if (fallo.texto.endsWith(u"Color"))
                m.escribe("txtDescripcion", u"  "_s);
            m.pulsa(Qt::Key_F9);
        });
        if (fallo.texto.endsWith(u"Color")) {
            e.conductor.responde(u"No"_s);
            e.con([](Manos m) {
                QVERIFY(m.enfocado("txtDescripcion"));
                m.pulsa(Qt::Key_F9);
            });
            e.conductor.responde(u"Sí"_s);
        }
    }
    QVERIFY(e.muestra());
    QVERIFY2(e.forma.Aceptado, "the same reference of another supplier is allowed");
    std::size_t i = 0;
    for (const CajaVista &caja : e.conductor.cajas()) {
        if (caja.titulo == u"Confirmar operación..") {
            QCOMPARE(caja.texto, u"El artículo no tiene descripción. ¿Desea continuar?"_s);
            continue;
        }
        QCOMPARE(caja.titulo, u"Validando artículo..."_s);
        QCOMPARE(caja.texto, fallos[i++].texto);
    }
}

void tst_Creacion::barcode_of_seven_digits_data()
{
    QTest::addColumn<bool>("conCheck");
    QTest::addColumn<QString>("respuesta");
    QTest::addColumn<QString>("queda");
    QTest::newRow("setting off: not a valid one") << false << u"Aceptar"_s << u"9638507"_s;
    QTest::newRow("digit appended") << true << u"Sí"_s << u"96385074"_s;
}

void tst_Creacion::barcode_of_seven_digits()
{
    QFETCH(bool, conCheck);
    QFETCH(QString, respuesta);
    QFETCH(QString, queda);
    Escenario e;
    e.empresa.valores[u"Check_Barras_7Digitos"_s] = conCheck ? u"1"_s : u"0"_s;
    e.con([](Manos m) {
        m.confirma(u"1"_s);
        m.escribe("txtCodBarras", u"9638507"_s);
        m.pulsa(Qt::Key_Return);
    });
    e.conductor.responde(respuesta);
    e.con([&](Manos m) {
        QCOMPARE(m.texto("txtCodBarras"), queda);
        QVERIFY(m.enfocado("txtDescripcion"));
        m.hijo("txtCodBarras")->setFocus();
        m.pulsa(Qt::Key_Return);
        m.f.close();
    });
    QVERIFY(e.muestra());
    QCOMPARE(e.conductor.cajas().size(), std::size_t(1));
    QCOMPARE(e.caja().titulo, conCheck ? u"¡ Atención "_s : u"Código de barras"_s);
}

void tst_Creacion::barcode_warnings_do_not_swallow_the_click_on_accept()
{
    Escenario e;
    e.con([](Manos m) {
        m.rellena(u"1"_s, u"R"_s);
        m.escribe("txtCodBarras", u"4006381333931"_s);
        const auto *boton = m.hijo<QPushButton>("cmdAceptar");
        // Through the window, so that the buttons of the mouse are known to be down.
        QTest::mouseClick(m.f.windowHandle(), Qt::LeftButton, {}, boton->mapTo(&m.f, boton->rect().center()));
    });
    e.conductor.responde(u"Aceptar"_s);
    QVERIFY(e.muestra());
    QVERIFY(e.forma.Aceptado);
    QCOMPARE(e.conductor.cajas().size(), std::size_t(1));
    QCOMPARE(e.caja().titulo, u"Advertencia!"_s);
    QCOMPARE(e.caja().texto, u"El EAN 4006381333931 existe en el artículo 100 - CAMISA VIEJA."_s);
    QCOMPARE(e.filas(u"SELECT Cod_Articulo FROM Articulos_CBarras WHERE Cod_Barras = '4006381333931'"_s), u"1 100"_s);
}

void tst_Creacion::esc_cancels_first_and_closes_next()
{
    Escenario e;
    e.con([&](Manos m) {
        m.confirma(u"200"_s);
        QVERIFY(!e.articulo(200).isEmpty());
        m.hijo<QComboBox>("cboCualX")->showPopup();
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
        QVERIFY2(m.abierto(), "that Esc was the list's");
        esc(m);
        QVERIFY(e.articulo(200).isEmpty() && m.f.isVisible() && m.enfocado("txtCodigo"));
        esc(m);
        QVERIFY(!m.f.isVisible());
    });
    QVERIFY(e.muestra());
    QVERIFY(!e.forma.Aceptado);
}

void tst_Creacion::window_cross_deletes_the_unsaved_item()
{
    Escenario e;
    e.con([](Manos m) {
        m.confirma(u"200"_s);
        m.f.close();
    });
    QVERIFY(e.muestra());
    QVERIFY(e.articulo(200).isEmpty() && e.filas(u"SELECT * FROM Almacen_Articulos"_s).isEmpty());
}

void tst_Creacion::message_over_a_filled_form()
{
    Escenario e;
    e.con([](Manos m) {
        m.rellena(u"200"_s, u"YA"_s);
        m.pulsa(Qt::Key_F9);
    });
    e.conductor.con<QMessageBox>([](QMessageBox &caja) { retrata(&caja, u"creacion_mensaje"_s); });
    e.conductor.responde(u"Aceptar"_s);
    e.con([](Manos m) { m.f.close(); });
    QVERIFY(e.muestra());
}

NV_PRUEBA(tst_Creacion)
#include "tst_creacion.moc"
