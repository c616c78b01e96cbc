#include "nvArticulo/Conexion.h"
#include "nvArticulo/Error.h"
#include "platform/pickers/CascadaFamilias.h"
#include "platform/pickers/ListaCodigos.h"
#include "platform/pickers/nvAlmacen.h"
#include "platform/pickers/nvAlmacenCons.h"
#include "platform/pickers/nvFamilia.h"
#include "platform/pickers/nvMarca.h"
#include "platform/pickers/nvProveedor.h"
#include "platform/pickers/nvTemporada.h"
#include "platform/widgets/Rejilla.h"
#include "platform/widgets/nvTextBox.h"
#include "support/BaseDatos.h"
#include "support/EmpresaPrueba.h"
#include "support/Ventana.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>

using namespace Qt::StringLiterals;
using namespace nv::pruebas;
using nv::ListaCodigos;
using nv::SelectorCodigo;

class tst_pickers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_base = std::make_unique<BaseDatos>();
        m_base->ejecutar({
            u"INSERT INTO Proveedores (Cod_Empresa, Codigo, Nombre) VALUES (3, 7, 'Hilaturas del Sur & <Cía>'),"
            u" (3, 12, 'Botones Ibéricos'), (3, 70001, 'Cinturón y Piel'), (1, 8, 'De otra empresa')"_s,
            u"INSERT INTO Almacenes (Cod_Empresa, Codigo, Nombre) VALUES (1, 5, 'Central'), (1, 2, 'Tienda'), (2, 9, 'No')"_s,
            u"INSERT INTO Marcas (Codigo, Nombre) VALUES (3, NULL)"_s,
            u"INSERT INTO Temporadas (Codigo, Nombre) VALUES ('V26', 'Verano 2026')"_s,
            u"INSERT INTO Familias_1 (Cod_Empresa, Codigo, Nombre) VALUES (2, 10, 'Mercería'), (2, 11, 'Hogar')"_s,
            u"INSERT INTO Familias_2 (Cod_Empresa, Familia_1, Codigo, Nombre) VALUES (2, 10, 1, 'Botones'), (2, 11, 1, 'Sábanas'), (2, 11, 2, 'Toallas')"_s,
            u"INSERT INTO Familias_3 (Cod_Empresa, Familia_1, Familia_2, Codigo, Nombre) VALUES (2, 11, 2, 4, 'De baño'), (2, 10, 2, 4, 'No')"_s,
        });
        m_proveedor = nuevo<nvProveedor>();
        m_siguiente = new nvTextBox;
        m_ventana = std::make_unique<Ventana>(QWidgetList{m_proveedor, m_siguiente});
        QVERIFY(m_ventana->abrir());
        m_proveedor->setFocus();
    }

    /// Its own table and company, names as they are shown.
    void codes_are_looked_up()
    {
        const auto almacen = propio<nvAlmacen>();
        const auto marca = propio<nvMarca>();
        const auto temporada = propio<nvTemporada>();
        const std::tuple<SelectorCodigo *, QString, int, bool, QString, qint64> casos[] = {
            {m_proveedor, u" 7 "_s, 7, true, u"Hilaturas del Sur & <Cía>"_s, 7},
            {m_proveedor, u"0012"_s, 12, true, u"Botones Ibéricos"_s, 12},
            {m_proveedor, u"8"_s, 8, false, u"No existe"_s, 8},
            {m_proveedor, u"70001"_s, 70001, true, u"Cinturón y Piel"_s, 70001},
            {m_proveedor, u"99999999999"_s, 0, false, u"No existe"_s, 2147483648},
            {m_proveedor, u"-7"_s, -7, false, u"No existe"_s, 2147483648},
            {m_proveedor, u"x7"_s, 0, false, u"No existe"_s, 2147483648},
            {m_proveedor, {}, 0, false, {}, 0},
            {m_proveedor, u"0"_s, 0, false, {}, 0},
            {almacen.get(), u"5"_s, 5, true, u"Central"_s, 5},
            {marca.get(), u"3"_s, 3, true, {}, 3},
            {temporada.get(), u"v26 "_s, 0, true, u"Verano 2026"_s, 2147483648},
            {temporada.get(), u"V'26--"_s, 0, false, u"No existe"_s, 2147483648},
        };
        for (const auto &[selector, texto, codigo, existe, visible, buscado] : casos) {
            selector->setTexto(texto);
            QVERIFY(selector->Codigo() == codigo && selector->CodigoBuscado() == buscado);
            QVERIFY(selector->Cargar() == existe && selector->Existe() == existe);
            QCOMPARE(selector->findChild<QLabel *>(u"nombre"_s)->text(), visible);
            QCOMPARE(selector->Nombre(), existe ? visible : QString());
        }
        m_proveedor->setCodigo(0);
        QCOMPARE(m_proveedor->Texto(), QString());
        QVERIFY2(m_proveedor->caja()->alignment().testFlag(Qt::AlignRight), "numbers");
        m_proveedor->setCodigo(7);
        QVERIFY(m_proveedor->Cargar());
        m_ventana->resize(150, 80);
        auto *nombre = m_proveedor->findChild<QLabel *>(u"nombre"_s);
        QCOMPARE(ayuda(nombre, {3, 3}), u"<p>Hilaturas del Sur &amp; &lt;Cía&gt;</p>"_s);
        nombre->resize(nombre->fontMetrics().horizontalAdvance(nombre->text()), 20);
        QCOMPARE(ayuda(nombre, {3, 3}), QString());
    }

    void families_know_only_the_children_of_the_levels_above()
    {
        QWidget panel;
        nv::CascadaFamilias familias(&panel);
        QString sucesos;
        connect(&familias, &nv::CascadaFamilias::Cambio, this, [&](int nivel) { sucesos += QString::number(nivel); });
        connect(&familias, &nv::CascadaFamilias::Fin, this, [&] { sucesos += u"fin"_s; });
        m_empresa.familias[1] = QString();
        familias.conectar(&m_empresa, &m_base->conexion());
        familias.nombrarNiveles(m_empresa);
        panel.show();
        const auto nombres = [&](std::array<int, 3> codigos) {
            familias.poner(codigos);
            familias.Cargar();
            QStringList lista;
            for (const std::size_t i : {0U, 1U, 2U})
                lista += familias.selector(i)->Nombre();
            return lista.join(u'|');
        };
        QCOMPARE(nombres({10, 1, 0}), u"Mercería|Botones|"_s);
        QCOMPARE(nombres({11, 1, 4}), u"Hogar|Sábanas|"_s);
        QCOMPARE(nombres({11, 2, 4}), u"Hogar|Toallas|De baño"_s);
        sucesos.clear();
        familias.selector(1)->setCodigo(1);
        QVERIFY(familias.codigos() == (std::array{11, 1, 0}) && sucesos == u"2");
        familias.selector(0)->setTexto(u"40000"_s);
        QVERIFY(familias.buscados() == (std::array<qint64, 3>{40000, 0, 0}) && sucesos == u"21");
        QVERIFY(familias.usado(0) && !familias.usado(1) && familias.selector(1)->isHidden());
        QVERIFY(familias.etiqueta(2)->isVisible() && familias.etiqueta(2)->text() == u"Linea:");
        for (const int nivel : {0, 2}) {
            familias.selector(std::size_t(nivel))->Limpiar();
            QTest::keyClick(familias.selector(std::size_t(nivel))->caja(), Qt::Key_Return);
        }
        QVERIFY(panel.focusWidget() == familias.selector(2)->caja() && sucesos == u"211fin");
        familias.fijar({11, -1, 0});
        QVERIFY(familias.fijas() && !familias.selector(0)->isEnabled() && familias.codigos() == (std::array{11, 0, 0}));
        nvFamilia familia;
        familia.setNivel(4);
        QCOMPARE(familia.Nivel(), 1);
        m_empresa = {};
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
        QCOMPARE(sucesos, u"cambio cambio Botones Ibéricos salida "_s);
        QCOMPARE(m_siguiente->text(), u"x"_s);
        m_proveedor->setFocus();
        m_proveedor->setCodigo(7);
        pulsar(m_ventana.get(), u"Return"_s);
        QVERIFY(m_proveedor->caja()->hasFocus() && m_proveedor->Existe());
        m_proveedor->setCodigo(12);
        pulsar(m_ventana.get(), u"Tab"_s);
        QVERIFY(m_siguiente->hasFocus() && m_proveedor->Existe());

        m_proveedor->setcEmpresa(nullptr); // one message, and the focus stays
        m_proveedor->setFocus();
        m_proveedor->setCodigo(70001);
        sucesos.clear();
        Conductor conductor;
        for (const QString &tecla : {u"Return"_s, u"F3"_s}) {
            conductor.responde(u"Aceptar"_s);
            pulsar(m_ventana.get(), tecla);
            QTRY_VERIFY(m_proveedor->caja()->hasFocus());
        }
        pulsar(m_ventana.get(), u"Tab"_s);
        QVERIFY(m_siguiente->hasFocus() && conductor.cajas().size() == 2 && sucesos == u"salida ");
        QCOMPARE(conductor.cajas().front().titulo, u"Proveedores"_s);
    }

    void list_narrows_and_takes()
    {
        QShortcut ajeno(QKeySequence(Qt::Key_F3), m_ventana.get());
        connect(&ajeno, &QShortcut::activated, this, [] { QFAIL("somebody else's F3"); });
        const auto abrir = [this](const QString &filtro,
                                  const std::function<void(ListaCodigos &, nv::Rejilla *)> &accion) {
            Conductor conductor;
            conductor.con<ListaCodigos>([&](ListaCodigos &lista) {
                auto *rejilla = lista.findChild<nv::Rejilla *>(u"vsLista"_s);
                QVERIFY(rejilla->filasDatos() == 3 && rejilla->texto(1, 1) == u"Botones Ibéricos" &&
                        rejilla->filaActual() == 3);
                teclear(lista.focusWidget(), filtro);
                accion(lista, rejilla);
            });
            m_proveedor->setTexto(u"7"_s);
            m_proveedor->setFocus();
            repetir(m_proveedor->caja(), Qt::Key_F3);
            QTest::keyClick(m_proveedor->caja(), Qt::Key_F3);
            return conductor.terminado() ? m_proveedor->Texto() + m_proveedor->Nombre() : u"not driven"_s;
        };
        QCOMPARE(abrir(u"ci"_s,
                       [](ListaCodigos &lista, nv::Rejilla *rejilla) {
                           QCOMPARE(rejilla->filasDatos(), 2);
                           pulsar(&lista, u"Up"_s);
                           rejilla->setFocus();
                           teclear(rejilla, u"nturon"_s);
                           QCOMPARE(rejilla->filasDatos(), 1);
                           pulsar(&lista, u"Return"_s);
                       }),
                 u"70001Cinturón y Piel"_s);
        QTRY_VERIFY(m_proveedor->caja()->hasFocus());
        for (const auto &[teclas, queda] : {std::pair{u"PgUp Return"_s, u"12Botones Ibéricos"_s},
                                            {u"PgUp Down Return"_s, u"70001Cinturón y Piel"_s},
                                            {u"Return"_s, u"7Hilaturas del Sur & <Cía>"_s},
                                            {u"Esc"_s, u"7Hilaturas del Sur & <Cía>"_s}})
            QCOMPARE(abrir({}, [&](ListaCodigos &lista, nv::Rejilla *) { pulsar(&lista, teclas); }), queda);
        QCOMPARE(abrir(u"nadie"_s,
                       [](ListaCodigos &lista, nv::Rejilla *) {
                           pulsar(&lista, u"Return"_s); // nothing to take
                           QVERIFY(lista.isVisible());
                           pulsar(&lista, u"Esc"_s);
                       }),
                 u"7Hilaturas del Sur & <Cía>"_s);
    }

    void warehouses_are_ticked()
    {
        nvAlmacenCons almacenes;
        QSignalSpy cambios(&almacenes, &nvAlmacenCons::Cambio);
        QVERIFY(falla([&] { almacenes.Cargar(); }));
        almacenes.setcEmpresa(&m_empresa);
        almacenes.setConexion(&m_base->conexion());
        almacenes.Cargar();
        QVERIFY(almacenes.Almacenes().empty() && cambios.isEmpty());
        auto *lista = almacenes.findChild<QListWidget *>();
        QCOMPARE(lista->item(0)->text() + lista->item(1)->text(), u"2 - Tienda5 - Central"_s);
        almacenes.findChild<QPushButton *>(u"cmdTodos"_s)->click();
        QCOMPARE(almacenes.Almacenes(), (std::vector<qint16>{2, 5}));
        almacenes.setAlmacenes({5, 8});
        QVERIFY(almacenes.Almacenes() == std::vector<qint16>{5} && cambios.size() == 3);
        almacenes.findChild<QPushButton *>(u"cmdNinguno"_s)->click();
        QTest::keyClick(lista, Qt::Key_Space);
        QCOMPARE(almacenes.Almacenes(), std::vector<qint16>{2});
    }

private:
    template <class Selector>
    Selector *nuevo()
    {
        auto *selector = new Selector;
        selector->setConexion(&m_base->conexion());
        selector->setcEmpresa(&m_empresa);
        return selector;
    }
    template <class Selector>
    std::unique_ptr<Selector> propio()
    {
        return std::unique_ptr<Selector>(nuevo<Selector>());
    }

    EmpresaPrueba m_empresa;
    std::unique_ptr<BaseDatos> m_base;
    std::unique_ptr<Ventana> m_ventana;
    nvProveedor *m_proveedor = nullptr;
    nvTextBox *m_siguiente = nullptr;
};

NV_PRUEBA(tst_pickers)
#include "tst_pickers.moc"
