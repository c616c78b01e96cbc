#include "Formulario.h"
#include "support/Contraste.h"
#include "support/Programa.h"

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QLabel>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace nv::pruebas;

/// At the counter: what mouse, clipboard and scanner bring into the item box, and the word in place of silence.
class tst_Avisos : public QObject
{
    Q_OBJECT

    static QString aviso(const Formulario &forma)
    {
        const auto *etiqueta = forma.findChild<QLabel *>(u"lblAviso"_s);
        return etiqueta && etiqueta->isVisible() ? etiqueta->text() : QString();
    }
    /// How dark the darkest pixel of the description is.
    static int tinta(const Formulario &forma)
    {
        const QImage imagen = forma.articulo->findChild<QLabel *>(u"lblNombre"_s)->grab().toImage();
        int claro = 255;
        for (int i = 0; i < imagen.width() * imagen.height(); ++i)
            claro = std::min(claro, qGray(imagen.pixel(i % imagen.width(), i / imagen.width())));
        return 255 - claro;
    }

private Q_SLOTS:
    void a_click_into_the_box_lets_the_next_scan_replace_the_old_code()
    {
        Formulario forma;
        forma.articulo->setCodigo(u"12"_s);
        forma.despues->setFocus();
        QTest::mouseClick(forma.caja(), Qt::LeftButton, {}, QPoint(20, 5));
        teclear(forma.caja(), u"8412345678905"_s);
        QCOMPARE(forma.caja()->text(), u"8412345678905"_s);
    }

    void pasted_and_emulated_codes_are_one_clean_line()
    {
        for (const QString &pegado : {u"12\n"_s, u"\t.ABC\r\n"_s, u" \u00a08412345678905\r\n"_s}) {
            Formulario forma;
            QGuiApplication::clipboard()->setText(pegado);
            QTest::keySequence(forma.caja(), QKeySequence::Paste);
            QTest::keyClick(forma.caja(), Qt::Key_Return);
            QVERIFY2(forma.conductor.terminado() && forma.articulo->Existe() && forma.articulo->Codigo() == u"12",
                     qPrintable(pegado));
            QCOMPARE(forma.articulo->Emular_Enter(pegado).toString(), u"12"_s);
        }
    }

    void what_the_box_cannot_hold_is_never_looked_up()
    {
        const QString gs1 = u"/0100232533000008320300137539220000328"_s;
        Formulario forma;
        QVERIFY(forma.confirma(gs1));
        QVERIFY2(forma.sentencias.isEmpty() && forma.caja()->hasFocus(), "nobody is asked whether to create it");
        QCOMPARE(forma.caja()->selectedText(), gs1.left(21));
        QCOMPARE(aviso(forma), u"No cabe: son más de 21 caracteres"_s);
        QCOMPARE(forma.articulo->Emular_Enter(gs1).metaType(), QMetaType::fromType<qint16>());
        QCOMPARE(aviso(forma), u"No cabe: son 38 caracteres y caben 21"_s);
        QVERIFY(forma.confirma(u"12"_s) && forma.articulo->Existe());
    }

    void a_description_that_is_not_confirmed_is_paler()
    {
        Formulario forma;
        QVERIFY(forma.confirma(u"12"_s));
        const int llena = tinta(forma);
        forma.articulo->setFocus();
        QTest::keyClick(forma.caja(), Qt::Key_7);
        QVERIFY2(forma.articulo->Nombre() == u"TORNILLO <M8> & TUERCA" && tinta(forma) < llena - 60, "still there");
        QVERIFY(forma.confirma(u"12"_s) && tinta(forma) == llena);
        forma.setStyleSheet(u"QLabel { color: black }"_s);
        const int conHoja = tinta(forma);
        forma.articulo->setCodigo(u"77"_s);
        forma.articulo->setText(u"77"_s);
        forma.articulo->Cargar();
        QTest::keyClick(forma.caja(), Qt::Key_7);
        QVERIFY2(tinta(forma) < conHoja - 60, "whatever a style sheet says");
    }

    void states_of_the_box_are_seen_whatever_a_style_sheet_says()
    {
        for (const QString &hoja : {QString(), u"QLineEdit { background: white; color: navy }"_s}) {
            Formulario forma;
            forma.setStyleSheet(hoja);
            const auto fondo = [&forma] {
                return forma.caja()->grab().toImage().pixelColor(forma.caja()->width() / 2, 4).name();
            };
            QCOMPARE(fondo(), u"#c0ffff"_s);
            forma.despues->setFocus();
            QCOMPARE(fondo(), u"#ffffff"_s);
            forma.articulo->setLocked(true);
            QCOMPARE(fondo(), forma.palette().color(QPalette::Window).name());
            forma.articulo->setFocus();
            QCOMPARE(fondo(), u"#c0ffff"_s);
            forma.articulo->setEnabled(false);
            QCOMPARE(fondo(), u"#e0e0e0"_s);
        }
    }

    void letters_of_the_box_are_read_on_a_dark_screen_too()
    {
        const auto noche = enOscuro();
        Formulario forma;
        teclear(forma.caja(), u"8412"_s);
        QVERIFY(forma.caja()->hasFocus() && contrasteVisto(*forma.caja()) > 10);
        forma.despues->setFocus();
        forma.articulo->setEnabled(false);
        QVERIFY(contrasteVisto(*forma.caja()) > 10);
    }

    void screen_readers_hear_the_label_that_leads_to_the_box()
    {
        Formulario forma;
        const auto dice = [&forma](QAccessible::Text que) {
            forma.articulo->hide();
            forma.articulo->show();
            return QAccessible::queryAccessibleInterface(forma.caja())->text(que);
        };
        QCOMPARE(dice(QAccessible::Name), u"Código de artículo"_s);
        QLabel rotulo(u"<b>&Pieza</b>:"_s, &forma);
        rotulo.setBuddy(forma.articulo);
        QCOMPARE(dice(QAccessible::Name), u"Pieza"_s);
        rotulo.setText(u"&Pieza:"_s);
        rotulo.show();
        forma.despues->setFocus();
        QTest::keyClick(&forma, Qt::Key_P, Qt::AltModifier);
        QVERIFY(forma.caja()->hasFocus());
        forma.articulo->setAccessibleName(u"Recambio"_s);
        QCOMPARE(dice(QAccessible::Name), u"Recambio"_s);
        forma.articulo->setToolTipText(u"El <código>"_s);
        QCOMPARE(dice(QAccessible::Description), u"El <código>"_s);
    }

    void what_nothing_has_is_said_and_can_be_brought_back()
    {
        for (const auto &[entrada, ajustes, dice] : casos<3>(uR"(
            99            →                  → sí
            AB            →                  → sí
            8400000000009 →                  → sí
            +41           →                  → sí
            *NADA         →                  → sí
            /840          → OficinaCentral=0 → sí
            .NADA         → OficinaCentral=0 → sí
            99            → AvisarNoEncontrado=0 → callado
            99            → Vital=0          →
            ·             →                  →
            /             → OficinaCentral=1 → sí
            12            →                  →)"_s)) {
            Formulario forma;
            forma.ajusta(ajustes);
            QSignalSpy oidos(forma.articulo, &nvArticulo::NoEncontrado);
            QVERIFY(forma.confirma(entrada));
            QCOMPARE(aviso(forma), dice == u"sí" ? u"«%1» no existe (Ctrl+Z lo recupera)"_s.arg(entrada) : QString());
            QCOMPARE(oidos.value(0).value(0).toString(), dice.isEmpty() ? QString() : entrada);
            if (dice != u"sí")
                continue;
            const QWidget *queda = forma.focusWidget();
            QTest::keyClick(forma.focusWidget(), Qt::Key_Return); // of a scanner that sends two
            QVERIFY(!aviso(forma).isEmpty() && (queda != forma.caja() || forma.caja()->hasFocus()));
            QVERIFY(forma.caja()->text().isEmpty());
            forma.articulo->setFocus();
            QTest::keySequence(forma.caja(), QKeySequence::Undo);
            QVERIFY(forma.caja()->text() == entrada && aviso(forma).isEmpty());
            teclear(forma.caja(), u"345"_s);
            forma.caja()->selectAll();
            QTest::keyClick(forma.caja(), Qt::Key_Delete);
            QTest::keySequence(forma.caja(), QKeySequence::Undo);
            QVERIFY2(forma.caja()->text().endsWith(u"345"), "what was typed since");
        }
        Formulario forma; // who has answered a question knows
        forma.conductor.responde(u"No"_s);
        QVERIFY(forma.confirma(u"/840"_s) && aviso(forma).isEmpty());
    }

    void what_the_host_sets_in_an_event_stays()
    {
        Formulario forma;
        forma.articulo->setProveedor(7);
        connect(forma.articulo, &nvArticulo::Change, &forma, [&] {
            if (forma.articulo->Text() == u"12")
                forma.articulo->setProveedor(8);
        });
        connect(forma.articulo, &nvArticulo::KeyPress, &forma, [&](qint16 &tecla) {
            if (tecla == 13)
                forma.antes->setFocus();
        });
        QVERIFY(forma.confirma(u".ABC"_s) && forma.antes->hasFocus());
        QVERIFY(forma.articulo->Existe() && forma.articulo->Proveedor() == 8);
    }
};

NV_PRUEBA(tst_Avisos)
#include "tst_avisos.moc"
