#include "common/Valores.h"
#include "platform/widgets/nvTextBox.h"
#include "support/Programa.h"

#include <QAction>
#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QStyleHints>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

/// What arrives in a one-line box by mouse, clipboard and scanner.
class PruebaCajaTexto : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_ventana = std::make_unique<QWidget>();
        auto *columna = new QVBoxLayout(m_ventana.get());
        columna->addWidget(m_otra = new nvTextBox);
        columna->addWidget(m_caja = new nvTextBox);
        m_caja->setMaxLength(21);
        m_ventana->resize(400, 120);
        m_ventana->show();
        m_ventana->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_ventana.get()));
        m_otra->setFocus();
    }

    void click_that_brings_the_focus_selects_all_and_the_next_one_places_the_caret()
    {
        m_caja->setText(u"8412345"_s);
        QTest::mouseClick(m_caja, Qt::LeftButton, {}, QPoint(30, m_caja->height() / 2));
        QCOMPARE(m_caja->selectedText(), u"8412345"_s);
        QTest::keyClicks(m_caja, u"99"_s);
        QCOMPARE(m_caja->text(), u"99"_s);
        QTest::qWait(QGuiApplication::styleHints()->mouseDoubleClickInterval() + 50);
        QTest::mouseClick(m_caja, Qt::LeftButton, {}, QPoint(3, m_caja->height() / 2));
        QVERIFY(!m_caja->hasSelectedText() && m_caja->cursorPosition() == 0);
    }

    void click_that_brings_the_window_back_leaves_the_box_as_it_was()
    {
        m_caja->setText(u"77"_s);
        m_caja->setFocus();
        m_caja->selectAll();
        QWidget otra;
        otra.show();
        otra.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&otra));
        m_ventana->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_ventana.get()));
        QTest::mouseClick(m_caja, Qt::LeftButton, {}, QPoint(30, m_caja->height() / 2));
        QTest::keyClicks(m_caja, u"84"_s);
        QCOMPARE(m_caja->text(), u"84"_s);
    }

    void texts_from_elsewhere_become_one_clean_line()
    {
        const std::pair<QString, QString> casos[] = {
            {u"12\n"_s, u"12"_s},
            {u"8412345678905\r\n"_s, u"8412345678905"_s},
            {u"\r\n\t \u00a0.ABC \u2003\n.DEF\n"_s, u".ABC"_s},
            {u"A\u001dB\u0000C\u200b"_s, u"ABC"_s},
            {u"\u2028TUERCA M8\u2029"_s, u"TUERCA M8"_s},
            {u" \r\n "_s, {}},
        };
        for (const auto &[crudo, limpio] : casos) {
            QCOMPARE(nv::lineaLimpia(crudo), limpio);
            for (const auto &traer : {&PruebaCajaTexto::pegar, &PruebaCajaTexto::porMenu, &PruebaCajaTexto::soltar}) {
                m_caja->clear();
                (this->*traer)(crudo);
                QCOMPARE(m_caja->text(), limpio);
            }
            m_caja->setText(crudo);
            QCOMPARE(m_caja->text(), limpio);
        }
        // Over what is selected, with which it shares its beginning or its end.
        for (const auto &[antes, pegado, queda] : {std::tuple(u"12"_s, u"12\n34"_s, u"12"_s),
                                                   {u"12"_s, u"1\n55"_s, u"1"_s},
                                                   {u"12"_s, u"99\n2"_s, u"99"_s},
                                                   {u"5"_s, u"12\n5"_s, u"12"_s},
                                                   {u"77"_s, u"7\n12"_s, u"7"_s}}) {
            for (const auto &traer : {&PruebaCajaTexto::pegar, &PruebaCajaTexto::porMenu}) {
                m_caja->setText(antes);
                m_caja->selectAll();
                (this->*traer)(pegado);
                QCOMPARE(m_caja->text(), queda);
            }
        }
        for (const QString &raro : {u"\u00a012"_s, u"12\u200b"_s, u"\ufeff12"_s, u"12\u2029"_s}) {
            m_caja->setText(raro);
            QCOMPARE(m_caja->text(), u"12"_s);
        }
        m_caja->setText(u" ROCA "_s);
        QCOMPARE(m_caja->text(), u" ROCA "_s); // a program's blanks may mean something
    }

    void what_does_not_fit_is_refused_whole_and_said()
    {
        m_caja->setText(u"ANTES"_s);
        const QString gs1 = u"0100232533000008320300137539220000328"_s;
        for (const auto &traer : {&PruebaCajaTexto::pegar, &PruebaCajaTexto::porMenu, &PruebaCajaTexto::soltar}) {
            (this->*traer)(gs1);
            QCoreApplication::processEvents();
            QVERIFY(m_caja->text() == u"ANTES" && m_caja->selectedText() == u"ANTES");
            QCOMPARE(aviso(),
                     u"No cabe: son %1 caracteres y caben 21"_s.arg(traer == &PruebaCajaTexto::soltar ? 42 : 37));
        }
        QTest::keyClick(m_caja, Qt::Key_Home);
        QCOMPARE(aviso(), QString());
    }

    void scan_that_does_not_fit_is_not_obeyed()
    {
        bool obedecido = false;
        connect(m_caja, &nvTextBox::Intro, m_caja, [&](bool &) { obedecido = true; });
        m_caja->setFocus();
        QTest::keyClicks(m_caja, u"/0100232533000008320300137539220000328"_s);
        QVERIFY(!aviso().isEmpty());
        for (int vez = 0; vez < 2; ++vez) {
            QTest::keyClick(m_caja, Qt::Key_Return);
            QVERIFY(!obedecido && m_caja->hasFocus() && m_caja->selectedText().size() == 21);
            QCOMPARE(aviso(), u"No cabe: son más de 21 caracteres"_s);
        }
        QTest::keyClicks(m_caja, u"12"_s); // the next scan replaces it
        QCOMPARE(m_caja->text(), u"12"_s);
        QTest::keyClick(m_caja, Qt::Key_Return);
        QVERIFY(obedecido && aviso().isEmpty());
    }

    void word_goes_with_the_next_key_and_takes_no_click()
    {
        m_caja->setText(u"ANTES"_s);
        pegar(QString(40, u'9'));
        auto *etiqueta = m_ventana->findChild<QLabel *>(u"lblAviso"_s);
        QVERIFY(etiqueta->isVisible() && m_ventana->rect().contains(etiqueta->geometry()));
        QTest::keyClick(m_caja, Qt::Key_Shift);
        QVERIFY(etiqueta->isVisible());
        QTest::mouseClick(m_otra, Qt::LeftButton);
        QVERIFY(!etiqueta->isVisible() && m_otra->hasFocus());
    }

private:
    void pegar(const QString &texto)
    {
        m_caja->setFocus();
        QGuiApplication::clipboard()->setText(texto);
        QTest::keySequence(m_caja, QKeySequence::Paste);
    }
    void porMenu(const QString &texto)
    {
        m_caja->setFocus();
        m_caja->selectAll();
        QGuiApplication::clipboard()->setText(texto);
        const std::unique_ptr<QMenu> menu(m_caja->createStandardContextMenu());
        for (QAction *accion : menu->actions()) {
            if (accion->text().contains(u"Paste"_s))
                accion->trigger();
        }
    }
    /// At the end of what stands there.
    void soltar(const QString &texto)
    {
        QMimeData datos;
        datos.setText(texto);
        const QPoint lugar(m_caja->width() - 3, m_caja->height() / 2);
        QDragEnterEvent entra(lugar, Qt::CopyAction, &datos, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_caja, &entra);
        QDropEvent suelta(lugar, Qt::CopyAction, &datos, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_caja, &suelta);
    }
    QString aviso() const
    {
        const auto *etiqueta = m_ventana->findChild<QLabel *>(u"lblAviso"_s);
        return etiqueta && etiqueta->isVisible() ? etiqueta->text() : QString();
    }

    std::unique_ptr<QWidget> m_ventana;
    nvTextBox *m_caja = nullptr;
    nvTextBox *m_otra = nullptr;
};

NV_PRUEBA(PruebaCajaTexto)
#include "tst_cajatexto.moc"
