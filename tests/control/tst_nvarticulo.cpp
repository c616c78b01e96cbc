#include "Formulario.h"
#include "support/Programa.h"
#include "support/Recortes.h"
#include "support/Ventana.h"

#include "nvArticulo/BolsaPropiedades.h"
#include "nvArticulo/Error.h"
#include "platform/widgets/Twips.h"

#include <QDialog>
#include <QLabel>
#include <QShortcut>
#include <QSignalSpy>
#include <malloc.h>

using namespace Qt::StringLiterals;
using namespace nv::pruebas;

/// Surface: stored properties, layout, texts, focus, keys and mouse, and a host that deletes the box in the middle.
class tst_nvArticulo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bag_keeps_order_and_defaults()
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
        std::vector<QString> claves;
        for (const QString &valor :
             u"CausesValidation=0 Locked=1 Text=12 ToolTipText=<a> Vital=0 Inicial=0 KeyUpChangeFocus=0 "
             u"KeyEnterChangeFocus=0 DejarEnBlanco=1 KeyFichaArt=5 TipoFicha=FichaArticulos_Mini_1 "
             u"Appearance=0"_s.split(u' ')) {
            claves.push_back(valor.section(u'=', 0, 0));
            QVERIFY(articulo.setProperty(claves.back().toLatin1(), valor.section(u'=', 1)));
        }
        QCOMPARE(cambios.count(), 11); // one of them is a plain member
        nv::BolsaPropiedades llena;
        articulo.WriteProperties(llena);
        QCOMPARE(llena.claves(), claves);
        nvArticulo otra(&forma), intacta(&forma);
        otra.ReadProperties(llena);
        for (const QString &clave : claves) {
            QCOMPARE(otra.property(clave.toLatin1()), articulo.property(clave.toLatin1()));
            QVERIFY2(otra.property(clave.toLatin1()) != intacta.property(clave.toLatin1()), qPrintable(clave));
        }
        auto *caja = otra.findChild<QLineEdit *>();
        llena.escribir(u"Enabled"_s, false, true);
        otra.ReadProperties(llena);
        QVERIFY2(!caja->isEnabled() && otra.Enabled(), "the box alone is stored disabled");
        otra.setEnabled(true);
        QVERIFY(caja->isEnabled() && !caja->hasFrame() && otra.MaxLength() == 21);
        QCOMPARE(caja->toolTip(), u"<span>&lt;a&gt;</span>"_s);
        for (const int appearance : {-1, 2})
            QVERIFY_THROWS_EXCEPTION(nv::Error, otra.setAppearance(appearance));
    }

    void a_code_set_by_the_host_is_looked_up_when_it_says_so()
    {
        Formulario forma;
        nvArticulo &a = *forma.articulo;
        for (const auto &[texto, ajustes, caja, codigo, queda] : casos<5>(uR"(
            00012   → Vital=1 → 00012   → 12    → 00012|TORNILLO <M8> & TUERCA||txtCodigo|E
            1.234,5 → Vital=0 → 1.234,5 → 1.234 → 12345|||txtCodigo|
            ·ABC·   → Vital=0 → ABC     → 0     → ABC|||txtCodigo|
            1E999   → Vital=0 → 1E999   → 0     → 1E999|||txtCodigo|P
            99      → Vital=1 → 99      → 99    → |||txtCodigo|)"_s)) {
            forma.ajusta(ajustes);
            a.setCodigo(texto);
            QVERIFY(a.Text() == caja && a.Nombre().isEmpty() && !a.Existe() && a.Pendiente());
            QVERIFY2(a.Codigo() == codigo && a.Value() == codigo, qPrintable(a.Codigo()));
            if (queda.endsWith(u'P'))
                forma.conductor.responde(u"Aceptar"_s);
            QCOMPARE(a.Cargar(), queda.endsWith(u'E'));
            QCOMPARE(forma.retrato(), queda);
        }
    }

    void the_label_follows_the_width()
    {
        for (int ancho = 85; ancho < 140; ++ancho) {
            QWidget padre;
            nvArticulo articulo(&padre);
            const auto *caja = articulo.findChild<QLineEdit *>();
            articulo.resize(ancho, 40);
            padre.show();
            const int blanco = nv::twips::dePixeles(articulo.fontMetrics().horizontalAdvance(u' '), &articulo);
            const auto hueco = [&](int fijo) {
                const int libres = (nv::twips::dePixeles(articulo.width(), &articulo) - fijo) / blanco - 2;
                return libres < 1 ? QString() : u'[' + QString(libres, u' ') + u']';
            };
            QCOMPARE(articulo.width(), ancho < 92 ? 62 : ancho);
            QCOMPARE(articulo.Nombre(), hueco(1380));
            articulo.setText(u"5"_s);
            const QString visto = hueco(1785).isEmpty() ? hueco(1380) : hueco(1785);
            QCOMPARE(articulo.Nombre(), visto);
            articulo.resize(300, 40);
            QVERIFY2(visto.isEmpty() || articulo.Nombre() == visto, "a label that shows something keeps it");
            QCOMPARE(articulo.findChild<QLabel *>()->geometry(), QRect(92, 13, 208, 34));
            for (const int alto : {13, 12}) {
                articulo.resize(301, alto);
                QCOMPARE(caja->height(), 13);
            }
        }
        for (const int puntos : {9, 14, 18}) {
            const auto letra = conLetra(puntos);
            Formulario grande;
            const QLineEdit *caja = grande.caja();
            QVERIFY(caja->width() >= caja->fontMetrics().horizontalAdvance(u"999999999"_s) + 8);
            QCOMPARE(grande.articulo->findChild<QLabel *>(u"lblNombre"_s)->x(), caja->width());
        }
        Formulario forma;
        const QString nombre = u"TORNILLO <M8> & TUERCA"_s;
        for (const auto &[holgura, aviso] :
             {std::pair(50, QString()), std::pair(-20, u"<p>%1</p>"_s.arg(nombre.toHtmlEscaped()))}) {
            forma.articulo->resize(92 + QFontMetrics(forma.articulo->Font()).horizontalAdvance(nombre) + holgura, 24);
            forma.articulo->setCodigo(u"12"_s);
            QVERIFY(forma.articulo->Cargar());
            QCOMPARE(ayuda(forma.articulo->findChild<QLabel *>(), {3, 3}), aviso);
        }
    }

    void colour_and_selection_follow_the_focus()
    {
        Formulario forma;
        const auto fondo = [&] { return forma.caja()->palette().color(QPalette::Base); };
        const QColor normal = forma.antes->palette().color(QPalette::Base);
        forma.articulo->setCodigo(u"123"_s);
        forma.sentencias.clear();
        const std::tuple<QWidget *, Qt::FocusReason, QColor, QStringView> casos[] = {
            {forma.despues, Qt::OtherFocusReason, normal, u""},
            {forma.articulo, Qt::TabFocusReason, QColor(192, 255, 255), u"123"},
            {forma.despues, Qt::PopupFocusReason, QColor(192, 255, 255), u""},
            {forma.articulo, Qt::MenuBarFocusReason, QColor(192, 255, 255), u""},
            {forma.despues, Qt::TabFocusReason, normal, u""},
            {forma.articulo, Qt::PopupFocusReason, normal, u""},
            {forma.despues, Qt::TabFocusReason, normal, u""},
            {forma.articulo, Qt::ActiveWindowFocusReason, QColor(192, 255, 255), u""},
        };
        for (const auto &[widget, motivo, color, seleccion] : casos) {
            forma.caja()->deselect();
            widget->setFocus(motivo);
            QCOMPARE(fondo(), color);
            QCOMPARE(forma.caja()->selectedText(), seleccion);
        }
        QVERIFY2(forma.sentencias.isEmpty() && forma.articulo->Text() == u"123", "leaving the box resolves nothing");
        forma.despues->setFocus();
        static_cast<QWidget *>(forma.articulo)->setEnabled(false); // as any widget
        QVERIFY(!forma.articulo->Enabled() && fondo() == QColor(224, 224, 224));
        forma.articulo->setEnabled(true);
        QCOMPARE(fondo(), normal);
        forma.setEnabled(false);
        QVERIFY2(forma.articulo->Enabled(), "the form's state is not the component's own");
    }

    /// It makes "A" of "a", and takes "x" and the key "Y" away.
    void host_hears_and_rewrites_keys()
    {
        Formulario forma;
        connect(forma.articulo, &nvArticulo::KeyPress, &forma, [](qint16 &ascii) {
            ascii = ascii == u'a' ? u'A' : ascii == u'x' ? 0 : ascii;
        });
        connect(forma.articulo, &nvArticulo::KeyDown, &forma, [](qint16 &c, qint16 &) { c = c == u'Y' ? 0 : c; });
        for (const auto tecla : {Qt::Key_Up, Qt::Key_F3, Qt::Key_F5})
            connect(new QShortcut(tecla, &forma), &QShortcut::activated, &forma, [&] { forma.sucesos << u"atajo"_s; });
        forma.ajusta(u"KeyUpChangeFocus=0 BusquedaArticulos=44"_s);
        const std::tuple<Qt::Key, const char *, const char *, const char *> teclas[] = {
            {Qt::Key_A, "a", "1A2", "D65,0 P97 C U65,0"},   {Qt::Key_X, "x", "12", "D88,0 P120 U88,0"},
            {Qt::Key_Y, "y", "12", "D89,0 U89,0"},          {Qt::Key_Ntilde, "ñ", "1ñ2", "D192,0 P241 C U192,0"},
            {Qt::Key_At, "@", "1@2", "D0,0 P64 C U0,0"},    {Qt::Key_Backspace, "\b", "2", "D8,0 P8 C U8,0"},
            {Qt::Key_Delete, "\x7f", "1", "D46,0 C U46,0"}, {Qt::Key_Escape, "\x1b", "12", "D27,0 P27 F16777216 U27,0"},
            {Qt::Key_unknown, "zz", "1zz2", "D0,0 C U0,0"}, {Qt::Key_Up, "", "12", "D38,0 U38,0"},
            {Qt::Key_F5, "", "12", "atajo U116,0"},
        };
        for (const auto &[tecla, texto, queda, oido] : teclas) {
            forma.caja()->setText(u"12"_s);
            forma.caja()->setCursorPosition(1);
            forma.sucesos.clear();
            QTest::sendKeyEvent(QTest::Click, forma.caja(), tecla, QString::fromUtf8(texto), Qt::NoModifier);
            QCOMPARE(forma.caja()->text() + u' ' + forma.sucesos.join(u' '),
                     QString::fromUtf8(queda) + u' ' + QLatin1StringView(oido));
        }
        forma.caja()->setText(u"12"_s);
        QInputMethodEvent dictado;
        dictado.setCommitString(u"axé"_s);
        QCoreApplication::sendEvent(forma.caja(), &dictado);
        QCOMPARE(forma.caja()->text(), u"12Aé"_s);
        forma.articulo->setLocked(true);
        QTest::keyClicks(forma.caja(), u"ab"_s);
        QCOMPARE(forma.caja()->text(), u"12Aé"_s);

        forma.conductor.responde(u"Aceptar"_s);
        forma.sucesos.clear();
        QTest::keyPress(forma.caja(), Qt::Key_F3);
        QVERIFY2(forma.conductor.terminado() && forma.sucesos.isEmpty(), "no search, no key");
    }

    void host_hears_the_mouse()
    {
        Formulario forma;
        QStringList oidos;
        using A = nvArticulo;
        for (const auto &[nombre, senal] :
             {std::pair(u"D"_s, &A::MouseDown), {u"M"_s, &A::MouseMove}, {u"U"_s, &A::MouseUp}})
            connect(forma.articulo, senal, &forma, [&, de = nombre](qint16 &boton, qint16 &teclas, float &x, float &y) {
                oidos << u"%1%2,%3@%4,%5"_s.arg(de).arg(boton).arg(teclas).arg(x).arg(y);
            });
        connect(forma.articulo, &nvArticulo::Click, &forma, [&] { oidos << u"clic"_s; });
        connect(forma.articulo, &nvArticulo::DblClick, &forma, [&] { oidos << u"doble"_s; });
        const QPoint dentro(10, 4);
        QTest::mouseClick(forma.caja(), Qt::LeftButton, Qt::ShiftModifier, dentro);
        QTest::mouseClick(forma.caja(), Qt::MiddleButton, {}, dentro);
        QTest::mousePress(forma.caja(), Qt::LeftButton, {}, dentro);
        QTest::mouseRelease(forma.caja(), Qt::LeftButton, {}, {-5, 4});
        QTest::mouseDClick(forma.caja(), Qt::LeftButton, {}, dentro);
        QTest::mouseRelease(forma.caja(), Qt::LeftButton, {}, dentro);
        QTest::mouseClick(forma.caja(), Qt::LeftButton, {}, dentro);
        QMouseEvent paso(QEvent::MouseMove, QPointF(20, 4), QPointF(20, 4), Qt::NoButton, Qt::RightButton, {});
        QCoreApplication::sendEvent(forma.caja(), &paso);
        QCOMPARE(oidos.join(u' '), u"D1,1@150,60 U1,1@150,60 clic D4,0@150,60 U4,0@150,60 D1,0@150,60 U1,0@-75,60 "
                                   u"D1,0@150,60 doble U1,0@150,60 D1,0@150,60 U1,0@150,60 clic M2,0@300,60"_s);
    }

    void host_sees_the_old_state_in_change_the_new_one_in_enter_and_calls_give_the_code()
    {
        Formulario forma;
        QStringList vistos;
        const auto mira = [&] { vistos << forma.retrato().section(u'|', 3); };
        connect(forma.articulo, &nvArticulo::Change, &forma, mira);
        connect(forma.articulo, &nvArticulo::KeyPress, &forma, mira);
        QTest::keyClicks(forma.caja(), u"12"_s);
        QTest::keyClick(forma.caja(), Qt::Key_Enter, Qt::KeypadModifier);
        forma.articulo->setFocus();
        QTest::keyClicks(forma.caja(), u"7"_s);
        QCOMPARE(vistos.join(u' '),
                 u"txtCodigo|P txtCodigo|P txtCodigo|P txtCodigo|P txtCodigo|E txtCodigo|E12 txtCodigo|E"_s);
        QVERIFY2(!forma.articulo->Existe() && !forma.articulo->Nombre().isEmpty(), "typing never clears the label");
        QCOMPARE(forma.articulo->Emular_Enter(u"0012"_s).toString(), u"12"_s);
        QCOMPARE(forma.articulo->Emular_Enter(u"99"_s).metaType(), QMetaType::fromType<qint16>());
        for (const auto &[codigo, resultado] : casos<2>(u"77→77\n→0\n99999999999→0"_s)) {
            forma.alBuscar([&](nv::ContratoBusqueda &d) { d.Codigo = codigo; });
            forma.articulo->setCodigo(u"12"_s);
            QCOMPARE(forma.articulo->Buscar(), resultado.toInt());
        }
    }

    /// What is freed is filled, so that reading it again does not go unnoticed.
    void host_may_delete_the_box_in_any_event()
    {
        mallopt(M_PERTURB, 0xA5);
        const auto en = [](auto senal) {
            return [senal](Formulario &f) {
                connect(f.articulo, senal, &f, [&f] { delete std::exchange(f.articulo, nullptr); });
            };
        };
        QKeyEvent letra(QEvent::KeyPress, Qt::Key_A, {}, u"a"_s), arriba(QEvent::KeyPress, Qt::Key_Up, {});
        QKeyEvent intro(QEvent::KeyPress, Qt::Key_Return, {}), suelta(QEvent::KeyRelease, Qt::Key_A, {});
        QInputMethodEvent dictado;
        dictado.setCommitString(u"ab"_s);
        const auto raton = [](QEvent::Type tipo) {
            return QMouseEvent(tipo, {3, 3}, {3, 3}, Qt::LeftButton, Qt::LeftButton, {});
        };
        QMouseEvent pulsa = raton(QEvent::MouseButtonPress), sube = raton(QEvent::MouseButtonRelease);
        QMouseEvent mueve = raton(QEvent::MouseMove), doble = raton(QEvent::MouseButtonDblClick);
        using A = nvArticulo;
        const std::pair<std::function<void(Formulario &)>, QEvent *> sucesos[] = {
            {en(&A::KeyDown), &letra},   {en(&A::KeyDown), &arriba},  {en(&A::KeyDown), &intro},
            {en(&A::KeyPress), &letra},  {en(&A::KeyPress), &intro},  {en(&A::KeyPress), &dictado},
            {en(&A::KeyUp), &suelta},    {en(&A::MouseDown), &pulsa}, {en(&A::MouseDown), &doble},
            {en(&A::MouseMove), &mueve}, {en(&A::MouseUp), &sube},    {en(&A::Click), &sube},
            {en(&A::DblClick), &doble}};
        for (const auto &[prepara, suceso] : sucesos) {
            Formulario forma;
            forma.caja()->setText(u".abc"_s);
            prepara(forma);
            QCoreApplication::sendEvent(forma.caja(), suceso);
            QVERIFY2(!forma.articulo, std::to_string(suceso->type()).c_str());
        }
        auto *forma = new Formulario;
        Conductor conductor;
        conductor.con<QDialog>([&](QDialog &) { delete std::exchange(forma, nullptr); });
        forma->caja()->setText(u".COMUN"_s);
        QTest::keyClick(forma->caja(), Qt::Key_Return);
        QVERIFY(conductor.terminado() && !forma);
    }

    void model_and_connection_are_the_first_ones_known()
    {
        Formulario forma;
        for (const QString &modelo : {u"5"_s, u"7"_s}) {
            forma.ajusta(u"BusquedaArticulos="_s + modelo);
            QCOMPARE(forma.articulo->Modelo(), qint16(5));
        }
        {
            auto segunda = nv::datos::abrirEmbebida(u":memory:"_s);
            nvArticulo otra;
            QCOMPARE(otra.Modelo(), qint16(0));
            otra.setConexion(segunda.get());
        }
        QVERIFY2(nv::ranura::actual() == forma.conexion.get(), "a box that dies takes no connection along");
        forma.conexion.reset();
        QVERIFY(nv::ranura::actual() == nullptr);
    }
};

NV_PRUEBA(tst_nvArticulo)
#include "tst_nvarticulo.moc"
