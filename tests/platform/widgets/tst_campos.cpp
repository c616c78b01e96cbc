#include "nvArticulo/BolsaPropiedades.h"
#include "platform/widgets/Anclaje.h"
#include "platform/widgets/Foco.h"
#include "platform/widgets/Teclas.h"
#include "platform/widgets/Twips.h"
#include "platform/widgets/nvCheckBox.h"
#include "platform/widgets/nvTextBox.h"
#include "support/Conductor.h"
#include "support/Programa.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <memory>

using namespace Qt::StringLiterals;

/// Text and check boxes, and how the focus goes from one to the next.
class tst_campos : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_ventana = std::make_unique<QWidget>();
        auto *columna = new QVBoxLayout(m_ventana.get());
        for (nvTextBox *&caja : m_cajas) {
            caja = new nvTextBox;
            columna->addWidget(caja);
        }
        // An order that is not the one of creation.
        QWidget::setTabOrder(m_cajas[0], m_cajas[2]);
        QWidget::setTabOrder(m_cajas[2], m_cajas[1]);
        m_ventana->show();
        m_ventana->activateWindow(); // without a window manager nobody else does
        QVERIFY(QTest::qWaitForWindowActive(m_ventana.get()));
        m_cajas[0]->setFocus();
    }

    void enter_and_up_follow_the_tab_order_unless_dealt_with()
    {
        QTest::keyClick(m_cajas[0], Qt::Key_Return);
        QVERIFY(m_cajas[2]->hasFocus());
        m_cajas[1]->setEnabled(false);
        QTest::keyClick(m_cajas[2], Qt::Key_Enter, Qt::KeypadModifier);
        QVERIFY(m_cajas[0]->hasFocus());
        QTest::keyClick(m_cajas[0], Qt::Key_Up);
        QVERIFY(m_cajas[2]->hasFocus());
        connect(m_cajas[2], &nvTextBox::Intro, this, [](bool &tratada) { tratada = true; });
        QTest::keyClick(m_cajas[2], Qt::Key_Return);
        QVERIFY(m_cajas[2]->hasFocus());
    }

    void keys_queued_behind_enter_land_where_the_focus_goes()
    {
        nv::pruebas::encolarLectura(m_ventana.get(), u"123"_s);
        nv::pruebas::encolarLectura(m_ventana.get(), u"456"_s);
        nv::pruebas::encolarLectura(m_ventana.get(), u"789"_s);
        QVERIFY(m_cajas[0]->text().isEmpty());
        QCoreApplication::processEvents();
        QCOMPARE(m_cajas[0]->text(), u"123"_s);
        QCOMPARE(m_cajas[2]->text(), u"456"_s);
        QCOMPARE(m_cajas[1]->text(), u"789"_s);
    }

    void focus_moves_from_the_given_widget_whatever_has_it()
    {
        m_cajas[1]->setFocus();
        nv::foco::adelante(m_cajas[0]);
        QVERIFY(m_cajas[2]->hasFocus());
        nv::foco::atras(m_cajas[0]);
        QVERIFY(m_cajas[1]->hasFocus());
        m_cajas[0]->hide();
        nv::foco::atras(m_cajas[2]);
        QVERIFY(m_cajas[1]->hasFocus());
    }

    void focus_leaves_a_compound_in_both_directions()
    {
        QWidget ventana;
        auto *columna = new QVBoxLayout(&ventana);
        auto *antes = new nvTextBox;
        auto *compuesto = new QWidget;
        auto *interior = new nvTextBox(compuesto);
        auto *despues = new nvTextBox;
        compuesto->setFocusProxy(interior);
        compuesto->setFocusPolicy(Qt::StrongFocus);
        compuesto->setMinimumSize(100, 30);
        columna->addWidget(antes);
        columna->addWidget(compuesto);
        columna->addWidget(despues);
        // Neither shown nor active: the window's own focus widget counts.
        ventana.show();
        compuesto->setFocus();
        QCOMPARE(ventana.focusWidget(), interior);
        nv::foco::adelante(compuesto);
        QCOMPARE(ventana.focusWidget(), despues);
        nv::foco::atras(despues);
        QCOMPARE(ventana.focusWidget(), interior);
        nv::foco::atras(interior);
        QCOMPARE(ventana.focusWidget(), antes);
        nv::foco::adelante(compuesto);
        QCOMPARE(ventana.focusWidget(), despues);
        nv::foco::atras(compuesto);
        QCOMPARE(ventana.focusWidget(), antes);
    }

    void capitals_come_from_the_user_only()
    {
        nvTextBox *caja = m_cajas[0];
        caja->setMayusculas(true);
        caja->setText(u"puesto "_s);
        QSignalSpy cambios(caja, &QLineEdit::textChanged);
        caja->end(false);
        nv::pruebas::teclear(caja, u"ñß"_s);
        QCOMPARE(caja->text(), u"puesto Ñß"_s);
        QCOMPARE(cambios.size(), 2);
        QGuiApplication::clipboard()->setText(u"straße "_s);
        caja->setCursorPosition(0);
        QTest::keyClick(caja, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(caja->text(), u"STRAßE puesto Ñß"_s);
        QCOMPARE(caja->cursorPosition(), 7);
        QCOMPARE(cambios.size(), 3);
        caja->end(false);
        nv::pruebas::teclear(caja, u"z"_s);
        QTest::keyClick(caja, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(caja->text(), u"STRAßE puesto Ñß"_s);
    }

    void numbers_data()
    {
        QTest::addColumn<int>("decimales");
        QTest::addColumn<QString>("puesto");
        QTest::addColumn<QString>("tecleado");
        QTest::addColumn<QString>("pegado");
        QTest::addColumn<QString>("queda");
        QTest::newRow("digits only") << 0 << u""_s << u"1a2.,b3"_s << u""_s << u"123"_s;
        QTest::newRow("sign in front only") << 0 << u""_s << u"-1-2+"_s << u""_s << u"-12"_s;
        QTest::newRow("a point is the comma") << 2 << u""_s << u"1.2,345"_s << u""_s << u"1,23"_s;
        QTest::newRow("pasted amount with groups") << 2 << u""_s << u""_s << u" 1.234,50\n"_s << u"1234,50"_s;
        QTest::newRow("pasted decimal point") << 2 << u""_s << u""_s << u"12.5"_s << u"12,5"_s;
        QTest::newRow("pasted words are refused") << 2 << u"7"_s << u""_s << u"doce"_s << u"7"_s;
        QTest::newRow("digits of another script") << 0 << u""_s << u"1٣2"_s << u""_s << u"12"_s;
        QTest::newRow("a text that the program put can be mended") << 0 << u"AB"_s << u"\b\b12"_s << u""_s << u"12"_s;
    }

    void numbers()
    {
        QFETCH(const int, decimales);
        QFETCH(const QString, puesto);
        QFETCH(const QString, tecleado);
        QFETCH(const QString, pegado);
        nvTextBox *caja = m_cajas[0];
        caja->setNumerico(true);
        caja->setDecimales(decimales);
        caja->setText(puesto);
        caja->end(false);
        for (const QChar c : tecleado) {
            if (c == u'\b')
                QTest::keyClick(caja, Qt::Key_Backspace);
            else
                nv::pruebas::teclear(caja, QString(c));
        }
        if (!pegado.isEmpty()) {
            QGuiApplication::clipboard()->setText(pegado);
            QTest::keyClick(caja, Qt::Key_V, Qt::ControlModifier);
        }
        QTEST(caja->text(), "queda");
    }

    void entering_and_leaving_are_told_between_fields_only()
    {
        nvTextBox *caja = m_cajas[1];
        QSignalSpy entra(caja, &nvTextBox::Entrada);
        QSignalSpy sale(caja, &nvTextBox::Salida);
        caja->setText(u"texto"_s);
        caja->setFocus();
        QCOMPARE(caja->selectedText(), u"texto"_s);
        QCOMPARE(entra.size(), 1);

        QMenu menu;
        menu.addAction(u"Pegar"_s);
        menu.popup(caja->mapToGlobal(QPoint(5, 5)));
        menu.close();
        QWidget otra;
        otra.show();
        otra.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&otra));
        otra.hide();
        m_ventana->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_ventana.get()));
        QCOMPARE(entra.size(), 1);
        QCOMPARE(sale.size(), 0);

        m_cajas[0]->setFocus();
        QCOMPARE(sale.size(), 1);
        caja->setSeleccionarAlEntrar(false);
        caja->setCursorPosition(2);
        m_cajas[2]->setFocus();
        QTest::keyClick(m_cajas[2], Qt::Key_Tab);
        QVERIFY(caja->hasFocus());
        QVERIFY(!caja->hasSelectedText());
        QCOMPARE(caja->cursorPosition(), 2);
        caja->hide();
        QVERIFY(!caja->hasFocus());
        QCOMPARE(sale.size(), 1);
    }

    void check_box_is_greyed_by_the_program_only()
    {
        nvCheckBox casilla;
        casilla.setValue(2);
        QCOMPARE(casilla.Value(), 2);
        casilla.click();
        QCOMPARE(casilla.Value(), 0);
        casilla.click();
        QCOMPARE(casilla.Value(), 1);
        casilla.setValue(-1);
        QCOMPARE(casilla.Value(), 1);
        casilla.setSoloLectura(true);
        casilla.show();
        QTest::keyClick(&casilla, Qt::Key_Space);
        QTest::mouseClick(&casilla, Qt::LeftButton, {}, QPoint(8, casilla.height() / 2));
        casilla.click();
        QCOMPARE(casilla.Value(), 1);
        casilla.setValue(0);
        QCOMPARE(casilla.Value(), 0);
    }

    void key_codes_data()
    {
        QTest::addColumn<int>("tecla");
        QTest::addColumn<Qt::KeyboardModifiers>("con");
        QTest::addColumn<int>("codigo");
        const auto fila = [](const char *nombre, int tecla, int codigo, Qt::KeyboardModifiers con = {}) {
            QTest::newRow(nombre) << tecla << con << codigo;
        };
        fila("keypad enter", Qt::Key_Enter, 13, Qt::KeypadModifier);
        fila("keypad digit", Qt::Key_7, 103, Qt::KeypadModifier);
        fila("keypad plus", Qt::Key_Plus, 107, Qt::KeypadModifier);
        fila("keypad arrow", Qt::Key_Up, 38, Qt::KeypadModifier);
        fila("slash over the 7", Qt::Key_Slash, '7', Qt::ShiftModifier);
        fila("plus", Qt::Key_Plus, 187);
        fila("F3", Qt::Key_F3, 114);
        fila("backtab", Qt::Key_Backtab, 9, Qt::ShiftModifier);
        fila("dead accent", Qt::Key_Dead_Acute, 0);
    }

    void key_codes()
    {
        QFETCH(const int, tecla);
        QFETCH(const Qt::KeyboardModifiers, con);
        QTEST(int{nv::teclas::codigo(QKeyEvent(QEvent::KeyPress, tecla, con))}, "codigo");
    }

    void twips_come_back()
    {
        for (const int twips : {1380, 930, 1785, -1380, 0})
            QCOMPARE(nv::twips::dePixeles(nv::twips::aPixeles(twips, m_ventana.get()), m_ventana.get()), twips);
    }

    void bag_keeps_the_order_and_leaves_defaults_out()
    {
        nv::BolsaPropiedades bolsa;
        bolsa.escribir(u"Vital"_s, false, true);
        bolsa.escribir(u"Proveedor"_s, 0, 0);
        bolsa.poner(u"KeyFichaArt"_s, 118);
        bolsa.escribir(u"Vital"_s, false, true);
        QCOMPARE(bolsa.claves(), (std::vector<QString>{u"Vital"_s, u"KeyFichaArt"_s}));
        QCOMPARE(bolsa.leer(u"Proveedor"_s, 9), QVariant(9));
        bolsa.escribir(u"Vital"_s, true, true);
        QVERIFY(!bolsa.contiene(u"Vital"_s));
    }

    void anchored_widgets_keep_their_edges()
    {
        QWidget formulario;
        formulario.resize(400, 300);
        QWidget rejilla(&formulario);
        rejilla.setGeometry(10, 40, 380, 200);
        QWidget boton(&formulario);
        boton.setGeometry(300, 250, 90, 40);
        auto *breve = new QWidget(&formulario);
        Anclaje anclaje(&formulario);
        anclaje.registrar(&rejilla, Qt::LeftEdge | Qt::RightEdge | Qt::TopEdge | Qt::BottomEdge);
        anclaje.registrar(breve, Qt::RightEdge);
        anclaje.registrar(&boton, Qt::RightEdge | Qt::BottomEdge);
        delete breve;
        formulario.show();
        formulario.resize(500, 280);
        QCOMPARE(rejilla.geometry(), QRect(10, 40, 480, 180));
        QCOMPARE(boton.geometry(), QRect(400, 230, 90, 40));
        formulario.resize(400, 300);
        QCOMPARE(rejilla.geometry(), QRect(10, 40, 380, 200));
    }

private:
    std::unique_ptr<QWidget> m_ventana;
    nvTextBox *m_cajas[3] = {};
};

NV_PRUEBA(tst_campos)
#include "tst_campos.moc"
