#include "platform/widgets/Mensajes.h"
#include "support/Ventana.h"

#include <QMenu>
#include <QPushButton>
#include <QScrollArea>

using namespace Qt::StringLiterals;
using namespace nv::mensajes;
using namespace nv::pruebas;

/// Message boxes, what answers them and what does not.
class tst_mensajes : public PruebaVentana
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY(abrir()); }

    void boxes_show_plain_texts_and_fit_the_screen()
    {
        const std::tuple<QString, Icono, QMessageBox::Icon, bool> casos[] = {
            {u"<b>L'ORÉAL & Cía</b>"_s, Icono::Critico, QMessageBox::Critical, false},
            {u"corto"_s, Icono::Exclamacion, QMessageBox::Warning, false},
            {QString(4000, u'X'), Icono::Informacion, QMessageBox::Information, true},
            {u"Una línea de error\n"_s.repeated(300), Icono::Pregunta, QMessageBox::Question, true},
        };
        for (const auto &[texto, icono, visto, larga] : casos) {
            QMenu menu;
            menu.popup({});
            Conductor conductor;
            conductor.con<QMessageBox>([&](QMessageBox &caja) {
                const QSize hueco = caja.screen()->availableSize();
                QVERIFY(caja.width() <= hueco.width() && caja.height() <= hueco.height() && !menu.isVisible());
                QVERIFY((caja.findChild<QScrollArea *>() != nullptr) == larga && caja.textFormat() == Qt::PlainText);
                QTest::keyClick(&caja, Qt::Key_Escape);
            });
            mostrar(m_ventana.get(), atencion(), texto, icono);
            const CajaVista caja = conductor.cajas().front();
            QVERIFY(caja.titulo == u"¡ Atención !" && caja.texto == texto && caja.icono == visto);
            QVERIFY(conductor.cajas().size() == 1 && caja.botones == QStringList{u"Aceptar"_s});
        }
    }

    void answers_come_from_a_hand()
    {
        // The default; a key, what a scanner (">") sends, what is held ("+"); the answer, or none.
        for (const QStringList &c : tabla(u"Sí→Return→Sí;No→Enter→No;Sí→Esc→No;No→s→Sí;Sí→N→No;Sí→Space→Sí;No→Space→No;"
                                          u"Sí→>SN 12 NS→;No→>S→;Sí→+Return→;No→+S→;No→ x→"_s)) {
            // Typed before the box was there: dropped.
            encolarLectura(m_ventana.get(), u"84"_s);
            encolarTecla(m_ventana.get(), Qt::Key_Escape);
            encolarTecla(m_ventana.get(), c[0] == u"No" ? Qt::Key_S : Qt::Key_N, c[0] == u"No" ? u"s"_s : u"n"_s);
            Conductor conductor;
            conductor.con<QMessageBox>([&](QMessageBox &caja) {
                QTest::qWait(50);
                encolarTecla(&caja, Qt::Key_Return); // the line feed of the scan that opened it
                QTest::qWait(80);
                QVERIFY(caja.isVisible());
                const QString nombre = c[1].mid(c[2].isEmpty() ? 1 : 0);
                const Qt::Key tecla = QKeySequence(nombre.left(9))[0].key();
                const QString texto = nombre.size() == 1 ? nombre : nombre == u"Space" ? u" "_s : QString();
                c[1][0] == u'>'   ? encolarLectura(&caja, nombre)
                : c[1][0] == u'+' ? repetir(caja.defaultButton(), tecla, texto)
                                  : encolarTecla(&caja, tecla, texto);
                if (c[2].isEmpty()) {
                    QTest::qWait(180);
                    QVERIFY(caja.isVisible());
                    QTest::keyClick(caja.defaultButton(), Qt::Key_Return);
                }
            });
            const Respuesta defecto = c[0] == u"No" ? Respuesta::No : Respuesta::Si;
            QCOMPARE(preguntar(nullptr, u"Confirmar"_s, u"¿Seguro?"_s, defecto) == Respuesta::Si,
                     c[c[2].isEmpty() ? 0 : 2] == u"Sí");
            QCOMPARE(conductor.cajas().front().botones, (QStringList{u"Sí"_s, u"No"_s}));
        }
    }

    void box_belongs_to_the_modal_window_and_shows_no_hourglass()
    {
        QDialog modal;
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        Conductor conductor;
        conductor.con<QDialog>([&](QDialog &dialogo) {
            mostrar(m_ventana.get(), {}, u"Sin conexión"_s, Icono::Critico);
            QVERIFY(dialogo.isActiveWindow() && QGuiApplication::overrideCursor()->shape() == Qt::WaitCursor);
            dialogo.reject();
        });
        conductor.con<QMessageBox>([&](QMessageBox &caja) {
            QVERIFY(caja.parentWidget() == &modal && QGuiApplication::overrideCursor()->shape() == Qt::ArrowCursor);
            caja.close();
        });
        modal.exec();
        QGuiApplication::restoreOverrideCursor();
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void failures_are_said_once_each_and_to_a_window_that_lives()
    {
        const auto falla = [](const QString &texto) { return [texto] { throw nv::Error{94, texto, u"otra"_s}; }; };
        Conductor conductor;
        Fallos fallos;
        QVERIFY(fallos.paso([] {}) && guardar(m_ventana.get(), {}, [] {}) && conductor.cajas().empty());
        for (const QString &texto : {u"uno"_s, u"dos"_s, u"uno"_s})
            QVERIFY(!fallos.paso(falla(texto)));
        conductor.responde(u"Aceptar"_s).responde(u"Aceptar"_s).responde(u"Aceptar"_s);
        QVERIFY(fallos.mostrar(m_ventana.get(), {}) && !guardar(m_ventana.get(), {}, falla(u"tres"_s)));
        conductor.con<QMessageBox>([&](QMessageBox &) { m_ventana.reset(); });
        QVERIFY(!fallos.mostrar(m_ventana.get(), {}));
        QCOMPARE(conductor.cajas().size(), std::size_t{4}); // one, two, three; one
    }
};

NV_PRUEBA(tst_mensajes)
#include "tst_mensajes.moc"
