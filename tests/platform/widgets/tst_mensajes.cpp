#include "platform/widgets/Mensajes.h"
#include "support/Conductor.h"
#include "support/Programa.h"

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QPushButton>
#include <QTest>
#include <memory>

using namespace Qt::StringLiterals;
using namespace nv::mensajes;
using nv::pruebas::Conductor;

namespace {

Respuesta pregunta(Respuesta porDefecto = Respuesta::Si)
{
    return preguntar(nullptr, u"Confirmar"_s, u"¿Seguro?"_s, porDefecto);
}

} // namespace

class tst_mensajes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_ventana = std::make_unique<QWidget>();
        m_ventana->show();
        m_ventana->activateWindow(); // without a window manager nobody else does
        QVERIFY(QTest::qWaitForWindowActive(m_ventana.get()));
    }

    void texts_are_plain_and_buttons_spanish()
    {
        Conductor conductor;
        conductor.con<QMessageBox>([](QMessageBox &caja) {
            QCOMPARE(caja.objectName(), u"mensaje"_s);
            QCOMPARE(caja.textFormat(), Qt::PlainText);
            QTest::keyClick(&caja, Qt::Key_Escape);
        });
        mostrar(m_ventana.get(), u"¡ Atención !"_s, u"<b>L'ORÉAL & Cía</b>"_s, Icono::Critico);
        conductor.responde(u"Sí"_s);
        QCOMPARE(pregunta(Respuesta::No), Respuesta::Si);
        QVERIFY(conductor.terminado());
        QCOMPARE(conductor.cajas().size(), std::size_t{2});
        QCOMPARE(conductor.cajas()[0].titulo, u"¡ Atención !"_s);
        QCOMPARE(conductor.cajas()[0].texto, u"<b>L'ORÉAL & Cía</b>"_s);
        QCOMPARE(conductor.cajas()[0].icono, QMessageBox::Critical);
        QCOMPARE(conductor.cajas()[0].botones, QStringList{u"Aceptar"_s});
        QCOMPARE(conductor.cajas()[1].icono, QMessageBox::Question);
    }

    void answers_data()
    {
        QTest::addColumn<Respuesta>("porDefecto");
        QTest::addColumn<Qt::Key>("tecla");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<Respuesta>("respuesta");
        QTest::newRow("Enter is the default, yes") << Respuesta::Si << Qt::Key_Return << u"\r"_s << Respuesta::Si;
        QTest::newRow("Enter is the default, no") << Respuesta::No << Qt::Key_Enter << u"\r"_s << Respuesta::No;
        QTest::newRow("Esc is no") << Respuesta::Si << Qt::Key_Escape << u"\x1b"_s << Respuesta::No;
        QTest::newRow("S on its own is yes") << Respuesta::No << Qt::Key_S << u"s"_s << Respuesta::Si;
        QTest::newRow("N on its own is no") << Respuesta::Si << Qt::Key_N << u"N"_s << Respuesta::No;
        QTest::newRow("Space is the button with the focus")
            << Respuesta::Si << Qt::Key_Space << u" "_s << Respuesta::Si;
    }

    void answers()
    {
        QFETCH(const Respuesta, porDefecto);
        QFETCH(const Qt::Key, tecla);
        QFETCH(const QString, texto);
        Conductor conductor;
        conductor.con<QMessageBox>([&](QMessageBox &caja) {
            // As the window system sends it, once what was queued before has been dropped.
            QTest::qWait(60);
            nv::pruebas::encolarTecla(&caja, tecla, texto);
        });
        QTEST(pregunta(porDefecto), "respuesta");
    }

    void closing_the_box_is_no()
    {
        Conductor conductor;
        conductor.con<QMessageBox>([](QMessageBox &caja) { caja.close(); });
        QCOMPARE(pregunta(), Respuesta::No);
    }

    void keys_queued_before_the_box_do_not_answer_it()
    {
        nv::pruebas::encolarLectura(m_ventana.get(), u"8412345678905"_s);
        nv::pruebas::encolarTecla(m_ventana.get(), Qt::Key_Escape, u"\x1b"_s);
        nv::pruebas::encolarTecla(m_ventana.get(), Qt::Key_S, u"s"_s);
        Conductor conductor;
        conductor.con<QMessageBox>([](QMessageBox &caja) {
            QTest::qWait(250);
            QVERIFY(caja.isVisible());
            QTest::keyClick(&caja, Qt::Key_Return);
        });
        QCOMPARE(pregunta(), Respuesta::Si);
        QVERIFY(conductor.terminado());
    }

    void a_scanner_cannot_answer()
    {
        Conductor conductor;
        conductor.con<QMessageBox>([](QMessageBox &caja) {
            QTest::qWait(60);
            nv::pruebas::encolarLectura(&caja, u"SN 12 NS"_s);
            nv::pruebas::encolarLectura(&caja, u"7"_s);
            QTest::qWait(300);
            QVERIFY(caja.isVisible());
            nv::pruebas::encolarTecla(&caja, Qt::Key_Return, u"\r"_s);
        });
        QCOMPARE(pregunta(Respuesta::No), Respuesta::No);
        QVERIFY(conductor.terminado());
    }

    void a_held_enter_does_not_answer()
    {
        Conductor conductor;
        conductor.con<QMessageBox>([](QMessageBox &caja) {
            QKeyEvent repetida(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s, true);
            QCoreApplication::sendEvent(caja.defaultButton(), &repetida);
            QVERIFY(caja.isVisible());
            caja.close();
        });
        QCOMPARE(pregunta(), Respuesta::No);
    }

    void box_belongs_to_the_modal_window_and_shows_no_hourglass()
    {
        QDialog modal;
        Conductor conductor;
        conductor.con<QDialog>([&](QDialog &dialogo) {
            QGuiApplication::setOverrideCursor(Qt::WaitCursor);
            mostrar(m_ventana.get(), u"Error"_s, u"Sin conexión"_s, Icono::Critico);
            QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
            QGuiApplication::restoreOverrideCursor();
            dialogo.reject();
        });
        conductor.con<QMessageBox>([&](QMessageBox &caja) {
            QCOMPARE(caja.parentWidget(), &modal);
            QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::ArrowCursor);
            caja.close();
        });
        modal.exec();
        QVERIFY(conductor.terminado());
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void guard_shows_an_error_once_and_says_so()
    {
        Conductor conductor;
        QVERIFY(guardar(m_ventana.get(), u"Error"_s, [] {}));
        conductor.responde(u"Aceptar"_s);
        QVERIFY(!guardar(m_ventana.get(), u"nvArticulos::Cargar"_s, [] {
            throw nv::Error{94, u"Uso no válido de Null"_s, u"otra"_s};
        }));
        QCOMPARE(conductor.cajas().size(), std::size_t{1});
        QCOMPARE(conductor.cajas()[0].texto, u"Uso no válido de Null"_s);
    }

    void window_that_dies_under_the_box_means_no()
    {
        auto ventana = std::make_unique<QWidget>();
        ventana->show();
        Conductor conductor;
        conductor.con<QMessageBox>([&](QMessageBox &) { ventana.reset(); });
        QCOMPARE(preguntar(ventana.get(), u"Confirmar"_s, u"¿Seguro?"_s), Respuesta::No);
    }

    void long_texts_stay_on_the_screen()
    {
        const QString palabra(4000, u'X');
        const QString lineas = u"Una línea de error del servidor\n"_s.repeated(300);
        for (const QString &texto : {palabra, lineas}) {
            Conductor conductor;
            conductor.con<QMessageBox>([&](QMessageBox &caja) {
                const QSize hueco = caja.screen()->availableSize();
                QVERIFY2(caja.width() <= hueco.width() && caja.height() <= hueco.height(),
                         qPrintable(u"%1 x %2"_s.arg(caja.width()).arg(caja.height())));
                QCOMPARE(caja.text(), texto);
                caja.close();
            });
            mostrar(m_ventana.get(), u"Error"_s, texto, Icono::Critico);
            QVERIFY(conductor.terminado());
        }
    }

private:
    std::unique_ptr<QWidget> m_ventana;
};

NV_PRUEBA(tst_mensajes)
#include "tst_mensajes.moc"
