#include "platform/pickers/CascadaFamilias.h"
#include "platform/pickers/ListaCodigos.h"
#include "platform/pickers/nvAlmacen.h"
#include "platform/pickers/nvAlmacenCons.h"
#include "platform/pickers/nvFamilia.h"
#include "platform/pickers/nvMarca.h"
#include "platform/pickers/nvProveedor.h"
#include "platform/pickers/nvTemporada.h"
#include "platform/widgets/nvTextBox.h"
#include "support/Contraste.h"
#include "support/Ventana.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>

using namespace Qt::StringLiterals;
using namespace nv::pruebas;
using nv::SelectorCodigo;

class tst_pickers : public PruebaVentana
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        llenar(
            u"Proveedores (Cod_Empresa, Codigo, Nombre) VALUES (3, 7, 'Hilos <Cía>'), (3, 12, 'Botones'), (1, 8, 'No');"
            u"Proveedores (Cod_Empresa, Codigo, Nombre) VALUES (3, 70001, 'Cinturón y Piel');Marcas (Codigo) VALUES "
            u"(3);"
            u"Almacenes (Cod_Empresa, Codigo, Nombre) VALUES (1, 5, 'Central'), (1, 2, 'Tienda'), (2, 9, 'No');"
            u"Temporadas (Codigo, Nombre) VALUES ('V26', 'Verano');Familias_1 VALUES (2, 10, 'Mercería'), "
            u"(2, 11, 'Hogar');"
            u"Familias_2 VALUES (2, 10, 1, 'Botones'), (2, 11, 1, 'Sábanas'), (2, 11, 2, 'Toallas');"
            u"Familias_3 VALUES (2, 11, 2, 4, 'De baño'), (2, 10, 2, 4, 'No')"_s);
        m_todos = {m_proveedor = new nvProveedor, new nvAlmacen, new nvMarca, new nvTemporada};
        for (SelectorCodigo *selector : m_todos)
            selector->setcEmpresa(&m_empresa);
        QVERIFY(abrir({m_proveedor, m_siguiente = new nvTextBox, m_todos[1], m_todos[2], m_todos[3]}));
        m_proveedor->setFocus();
    }

    void codes_are_looked_up_in_their_own_table_and_company()
    {
        // Which (supplier, warehouse, brand, season), text, code, criterion of a search, whether it exists, its name.
        for (
            const QStringList &c : tabla(
                u"0→0012→12→12→s→Botones;0→8→8→8→n→No existe;0→→0→0→n→;0→0→0→0→n→;"
                u"0→70001→70001→70001→s→Cinturón y Piel;0→99999999999→0→2147483648→n→No existe;"
                u"1→99999999999→0→2147483648→n→No existe;2→99999999999→0→2147483648→n→No existe;"
                u"0→-7→-7→2147483648→n→No existe;0→x7→0→2147483648→n→No existe;1→5→5→5→s→Central;1→9→9→9→n→No existe;"
                u"2→3→3→3→s→;3→v26 →0→2147483648→s→Verano;3→V'26--→0→2147483648→n→No existe;0→ 7 →7→7→s→Hilos <Cía>"_s)) {
            SelectorCodigo &s = *m_todos[c[0].toInt()];
            c[1].isEmpty() ? s.setCodigo(0) : s.setTexto(c[1]);
            QVERIFY(s.Codigo() == c[2].toInt() && s.CodigoBuscado() == c[3].toLongLong());
            QVERIFY(s.Cargar() == (c[4] == u"s") && s.Existe() == (c[4] == u"s"));
            const auto *nombre = s.findChild<QLabel *>(u"nombre"_s);
            QCOMPARE(s.Texto() + nombre->text() + s.Nombre(), c[1].trimmed() + c[5] + (s.Existe() ? c[5] : QString()));
            QVERIFY(c[5].isEmpty() || (nombre->palette().color(QPalette::WindowText).red() > 99) != s.Existe());
        }
        auto *nombre = m_proveedor->findChild<QLabel *>(u"nombre"_s);
        const int justo = nombre->fontMetrics().horizontalAdvance(nombre->text());
        for (const int falta : {0, 9}) {
            nombre->resize(justo - falta, 20);
            QCOMPARE(ayuda(nombre, {3, 3}), falta == 0 ? QString() : u"<p>Hilos &lt;Cía&gt;</p>"_s);
        }
        const auto noche = enOscuro();
        nvProveedor oscuro;
        oscuro.setcEmpresa(&m_empresa);
        oscuro.setCodigo(9);
        oscuro.resize(300, 24);
        QVERIFY(!oscuro.Cargar() && contrasteVisto(*oscuro.findChild<QLabel *>(u"nombre"_s)) > 4);
    }

    void families_know_only_the_children_of_the_levels_above()
    {
        QWidget panel;
        nv::CascadaFamilias familias(&panel);
        const auto [uno, dos, tres] = std::tuple{familias.selector(0), familias.selector(1), familias.selector(2)};
        QString sucesos;
        connect(&familias, &nv::CascadaFamilias::Fin, this, [&] { sucesos += u"fin"_s; });
        familias.conectar(&m_empresa, &m_base->conexion());
        panel.show();
        const auto nombres = [&](std::array<int, 3> codigos) {
            familias.poner(codigos);
            familias.Cargar();
            return uno->Nombre() + u'|' + dos->Nombre() + u'|' + tres->Nombre();
        };
        QCOMPARE(nombres({10, 1, 0}), u"Mercería|Botones|"_s);
        QCOMPARE(nombres({11, 1, 4}), u"Hogar|Sábanas|"_s);
        QCOMPARE(nombres({11, 2, 4}), u"Hogar|Toallas|De baño"_s);
        dos->setCodigoPadre1(10);
        tres->setCodigoPadre2(1);
        QVERIFY(!dos->Existe() && !tres->Existe());
        dos->setCodigo(1);
        QCOMPARE(familias.codigos(), (std::array{11, 1, 0}));
        for (const QString &grande : {u"40000"_s, u"99999999999"_s}) {
            uno->setTexto(grande);
            dos->setTexto(grande);
            const qint64 buscado = std::min(grande.toLongLong(), qint64{2147483648});
            QVERIFY(familias.buscados() == (std::array<qint64, 3>{buscado, buscado, 0}) && !dos->Cargar());
        }
        uno->Limpiar();
        for (const bool todos : {true, false}) {
            m_empresa.familias[1] = todos ? u"Sub"_s : QString();
            familias.nombrarNiveles(m_empresa);
            QTest::keyClick(uno->caja(), Qt::Key_Return);
            QVERIFY(panel.focusWidget() == (todos ? dos : tres)->caja() && dos->isVisible() == todos);
        }
        QTest::keyClick(tres->caja(), Qt::Key_Return);
        QVERIFY(sucesos == u"fin" && !familias.usado(1) && familias.etiqueta(2)->text() == u"Linea:");
        familias.fijar({11, -1, 0});
        QVERIFY(familias.fijas() && !uno->isEnabled() && familias.codigos() == (std::array{11, 0, 0}));
    }

    void enter_and_leaving_load_tell_and_move_on()
    {
        QString sucesos;
        connect(m_proveedor, &SelectorCodigo::Cambio, this, [&] { sucesos += u"cambio "_s; });
        connect(m_proveedor, &SelectorCodigo::Intro, this, [&](bool &tratada) {
            sucesos += m_proveedor->Nombre() + u' ';
            tratada = m_proveedor->Codigo() == 7;
        });
        connect(m_proveedor, &SelectorCodigo::Salida, this, [&] { sucesos += u"salida "_s; });
        encolarLectura(m_ventana.get(), u"12"_s);
        encolarLectura(m_ventana.get(), u"x"_s);
        QCoreApplication::processEvents();
        QVERIFY(sucesos == u"cambio cambio Botones salida " && m_siguiente->text() == u"x");
        for (const auto &[codigo, tecla] : {std::pair{7, u"Return"_s}, {12, u"Tab"_s}}) {
            m_proveedor->setFocus();
            m_proveedor->setCodigo(codigo);
            pulsar(m_ventana.get(), tecla);
            QVERIFY(m_proveedor->caja()->hasFocus() == (codigo == 7) && m_proveedor->Existe());
        }
        // What F9 asks before it takes the code: its name, once.
        QSignalSpy cargado(m_proveedor, &SelectorCodigo::Cargado);
        m_proveedor->setCodigo(7);
        QVERIFY(cargado.isEmpty() && m_proveedor->Asentar() && m_proveedor->Nombre() == u"Hilos <Cía>");
        QVERIFY(m_proveedor->Asentar() && cargado.size() == 1);
        m_proveedor->setcEmpresa(nullptr); // one message, and the focus stays
        m_proveedor->setFocus();
        m_proveedor->setCodigo(70001);
        Conductor conductor;
        for (const QString &tecla : {u"Return"_s, u"F3"_s}) {
            conductor.responde(u"Aceptar"_s);
            pulsar(m_ventana.get(), tecla);
            QTRY_VERIFY(m_proveedor->caja()->hasFocus());
        }
        pulsar(m_ventana.get(), u"Tab"_s);
        QVERIFY(m_siguiente->hasFocus() && conductor.cajas()[1].titulo == u"Proveedores" &&
                sucesos.endsWith(u" cambio salida "));
    }

    void list_narrows_and_takes()
    {
        QShortcut ajeno(QKeySequence(Qt::Key_F3), m_ventana.get(), [] { QFAIL("somebody else's F3"); });
        // Typed into the box, and then into the grid; keys; what is in the box then.
        for (const QStringList &c :
             tabla(u"→→Up Up Return→12Botones;→→PgUp Down Return→70001Cinturón y Piel;→→Return→7Hilos <Cía>;"
                   u"→→Esc→7Hilos <Cía>;→→Up F12→7Hilos <Cía>;→→Up F9→70001Cinturón y Piel;nadie→→Return Ctrl+A Del "
                   u"PgUp Return→12Botones;"
                   u"PIEL→→Return→70001Cinturón y Piel;CI→n→Return→70001Cinturón y Piel"_s)) {
            Conductor conductor;
            conductor.con<nv::ListaCodigos>([&](nv::ListaCodigos &lista) {
                auto *rejilla = lista.findChild<nv::Rejilla *>(u"vsLista"_s);
                QVERIFY(rejilla->filasDatos() == 3 && rejilla->texto(1, 1) == u"Botones" && rejilla->filaActual() == 3);
                teclear(lista.focusWidget(), c[0]);
                pulsar(&lista, u"Home"_s);
                teclear(c[1].isEmpty() ? lista.focusWidget() : rejilla, c[1]);
                pulsar(&lista, c[2]);
            });
            m_proveedor->setCodigo(7);
            repetir(m_proveedor->caja(), Qt::Key_F3);
            QTest::keyClick(m_proveedor->caja(), Qt::Key_F3);
            QCOMPARE(m_proveedor->Texto() + m_proveedor->Nombre(), c[3]);
            QTRY_VERIFY(m_proveedor->caja()->hasFocus());
        }
    }

    void warehouses_are_ticked()
    {
        nvAlmacenCons almacenes;
        QSignalSpy cambios(&almacenes, &nvAlmacenCons::Cambio);
        QVERIFY(falla([&] { almacenes.Cargar(); }));
        almacenes.setcEmpresa(&m_empresa);
        almacenes.Cargar();
        auto *lista = almacenes.findChild<QListWidget *>();
        QVERIFY(lista->item(0)->text() == u"2 - Tienda" && almacenes.Almacenes().empty() && cambios.isEmpty());
        almacenes.findChild<QPushButton *>(u"cmdTodos"_s)->click();
        QCOMPARE(almacenes.Almacenes(), (std::vector<qint16>{2, 5}));
        almacenes.setAlmacenes({5, 8});
        QTest::keyClick(lista, Qt::Key_Space);
        almacenes.findChild<QPushButton *>(u"cmdNinguno"_s)->click();
        QVERIFY(almacenes.Almacenes().empty() && cambios.size() == 6);
    }

private:
    QList<SelectorCodigo *> m_todos;
    nvProveedor *m_proveedor = nullptr;
    nvTextBox *m_siguiente = nullptr;
};

NV_PRUEBA(tst_pickers)
#include "tst_pickers.moc"
