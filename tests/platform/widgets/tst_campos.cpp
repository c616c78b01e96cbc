#include "platform/widgets/Campos.h"
#include "platform/widgets/Foco.h"
#include "platform/widgets/Teclas.h"
#include "platform/widgets/Twips.h"
#include "platform/widgets/nvCheckBox.h"
#include "platform/widgets/nvTextBox.h"
#include "support/Ventana.h"

#include <QMenu>

using namespace Qt::StringLiterals;
using namespace nv::pruebas;

/// Text and check boxes, and how the focus goes from one to the next.
class tst_campos : public PruebaVentana
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        for (nvTextBox *&caja : m_cajas)
            caja = new nvTextBox;
        QVERIFY(abrir({m_cajas[0], m_cajas[1], m_cajas[2]}));
        nv::tabular({m_cajas[0], m_cajas[2], m_cajas[1]}); // not the order of creation
        m_cajas[0]->setFocus();
    }

    void enter_and_up_follow_the_tab_order_unless_dealt_with()
    {
        m_cajas[1]->setEnabled(false);
        QString visitadas;
        for (const char *tecla : {"Return", "Num+Enter", "Num+Up", "Shift+Up", "Up", "Down"}) {
            pulsar(m_ventana.get(), QLatin1StringView(tecla));
            visitadas += QString::number(std::find(m_cajas, m_cajas + 3, m_ventana->focusWidget()) - m_cajas);
        }
        QCOMPARE(visitadas, u"202200"_s);
        connect(m_cajas[0], &nvTextBox::Intro, this, [](bool &tratada) { tratada = true; });
        pulsar(m_ventana.get(), u"Return"_s);
        QVERIFY(m_cajas[0]->hasFocus());
    }

    /// From the given widget, whatever has the focus: past what Tab does not reach, in and out of a compound.
    void focus_moves_like_tab()
    {
        auto *compuesto = new QWidget;
        auto *interior = new nvTextBox(compuesto);
        compuesto->setFocusProxy(interior);
        compuesto->setFocusPolicy(Qt::StrongFocus);
        const QWidgetList campos{new nvTextBox, compuesto, new nvTextBox, new nvTextBox, new nvTextBox, new nvTextBox};
        Ventana ventana(campos);
        campos[2]->hide();
        campos[3]->setEnabled(false);
        campos[4]->setFocusPolicy(Qt::ClickFocus);
        QWidget *antes = campos[0], *despues = campos[5];
        QWidget *const casos[][3] = {{despues, antes, interior},
                                     {antes, interior, despues},
                                     {antes, compuesto, despues},
                                     {interior, despues, antes}};
        // Not shown at first: the window's own focus widget counts.
        for (const bool abierta : {false, true}) {
            QVERIFY(!abierta || ventana.abrir());
            for (QWidget *con : {antes, static_cast<QWidget *>(interior), despues})
                for (const auto [anterior, desde, siguiente] : casos)
                    for (const bool adelante : {true, false}) {
                        con->setFocus();
                        (adelante ? nv::foco::adelante : nv::foco::atras)(desde);
                        QCOMPARE(ventana.focusWidget(), adelante ? siguiente : anterior);
                    }
        }
    }

    void what_the_user_types_and_pastes_is_put_right()
    {
        const QKeySequence mandos[] = {Qt::Key_Left, Qt::Key_Home, Qt::Key_Backspace, QKeySequence::Undo,
                                       QKeySequence::Paste};
        // M capitals, a digit decimals, U no sign; the text; keys; what "=" pastes; the text then, "|" its caret.
        for (const QStringList &c :
             tabla(u"M→puesto→ñß→→puestoÑß|;M→puesto→^=→straße→STRAßE|puesto;M→A→bc~→→A|;P→A→z.,→→Az.,|;"
                   u"0→→1a2.,b3→→123|;0→→-1-2+→→-12|;U→→-+1.2→→12|;2→→+1.2,345→→+1,23|;"
                   u"2→→=→ 1.234,50\t→1234,50|;2→7→=→1.234.5→7|;2→7→=→doce→7|;2→9999→<<.→→99,|99;"
                   u"2→1,50→<<<5→→15|,50;0→→1٣2→→12|;0→AB→##12→→12|"_s)) {
            nvTextBox caja;
            caja.setMayusculas(c[0] == u"M");
            caja.setNumerico(c[0] != u"P" && c[0] != u"M");
            caja.setConSigno(c[0] != u"U");
            caja.setDecimales(c[0] == u"U" ? -1 : c[0].toInt());
            caja.setText(c[1]);
            QGuiApplication::clipboard()->setText(c[3]);
            for (const QChar tecla : c[2]) {
                const qsizetype mando = QStringView(u"<^#~=").indexOf(tecla);
                mando < 0 ? teclear(&caja, QString(tecla)) : QTest::keySequence(&caja, mandos[mando]);
            }
            QCOMPARE(caja.text().insert(caja.cursorPosition(), u'|'), c[4]);
        }
    }

    void entering_and_leaving_are_told_between_fields_only()
    {
        nvTextBox *caja = m_cajas[1];
        QSignalSpy entra(caja, &nvTextBox::Entrada);
        QSignalSpy sale(caja, &nvTextBox::Salida);
        caja->setText(u"texto"_s);
        caja->setFocus();
        QCOMPARE(caja->selectedText(), u"texto"_s);
        QMenu menu;
        menu.popup({});
        menu.close();
        QVERIFY(Ventana().abrir() && m_ventana->abrir() && entra.size() == 1 && sale.isEmpty());
        QTest::mouseClick(m_cajas[2], Qt::LeftButton);
        QCOMPARE(sale.size(), 1);
        caja->setSeleccionarAlEntrar(false);
        caja->setCursorPosition(2);
        QTest::keyClick(m_cajas[2], Qt::Key_Tab);
        QVERIFY(caja->hasFocus() && !caja->hasSelectedText() && caja->cursorPosition() == 2 && entra.size() == 2);
        caja->setEnabled(false);
        caja->setEnabled(true);
        caja->setFocus();
        caja->hide();
        QVERIFY2(!caja->hasFocus() && sale.size() == 1, "nobody leaves a box that goes away");
    }

    void check_box_is_greyed_by_the_program_only()
    {
        nvCheckBox casilla;
        casilla.show();
        // Read-only, value put, a click, a blank, value then.
        const int casos[][5] = {{0, 2, 0, 0, 2},  {0, 2, 1, 0, 0}, {0, 2, 1, 1, 1},
                                {0, -1, 0, 1, 0}, {1, 2, 1, 1, 2}, {1, 1, 1, 1, 1}};
        for (const auto &[fija, puesto, clic, blanco, queda] : casos) {
            casilla.setSoloLectura(fija == 1);
            casilla.setValue(puesto);
            if (clic == 1)
                QTest::mouseClick(&casilla, Qt::LeftButton, {}, QPoint(8, casilla.height() / 2));
            if (blanco == 1)
                QTest::keyClick(&casilla, Qt::Key_Space);
            QCOMPARE(casilla.Value(), queda);
        }
    }

    void keys_buttons_and_lengths_have_the_hosts_numbers()
    {
        for (const QStringList &c :
             tabla(u"Num+Enter→13;Num+0→96;Num+9→105;Num+*→106;Num+Up→38;Shift+/→55;Shift+Backtab→9;*→187;0→48;"
                   u"9→57;A→65;Z→90;F1→112;F24→135;Volume Up→0"_s)) {
            const QKeyCombination t = QKeySequence(c[0])[0];
            QCOMPARE(nv::teclas::codigo({QEvent::KeyPress, t.key(), t.keyboardModifiers()}), c[1].toShort());
        }
        using namespace nv::teclas;
        QVERIFY(estado(Qt::ShiftModifier | Qt::AltModifier) == 5 && estado(Qt::ControlModifier) == 2);
        QVERIFY(boton(Qt::LeftButton | Qt::MiddleButton) == 5 && boton(Qt::RightButton) == 2);
        for (const auto &[twips, pixeles] : {std::pair{7, 0}, {8, 1}, {-7, 0}, {-8, -1}, {1380, 92}, {-930, -62}})
            QCOMPARE(nv::twips::aPixeles(twips, twips < 0 ? nullptr : m_cajas[0]), pixeles);
        QCOMPARE(nv::twips::dePixeles(-92, m_cajas[0]), -1380);
    }

private:
    nvTextBox *m_cajas[3] = {};
};

NV_PRUEBA(tst_campos)
#include "tst_campos.moc"
