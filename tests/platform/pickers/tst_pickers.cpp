#include "nvArticulo/Conexion.h"
#include "nvArticulo/Error.h"
#include "nvArticulo/Motores.h"
#include "nvArticulo/cEmpresa.h"
#include "platform/pickers/ListaCodigos.h"
#include "platform/pickers/nvAlmacen.h"
#include "platform/pickers/nvFamilia.h"
#include "platform/pickers/nvMarca.h"
#include "platform/pickers/nvProveedor.h"
#include "platform/pickers/nvTemporada.h"
#include "platform/widgets/nvTextBox.h"
#include "support/Conductor.h"
#include "support/Programa.h"

#include <QLabel>
#include <QShortcut>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <memory>

using namespace Qt::StringLiterals;
using nv::pruebas::Conductor;

namespace {

/// Four codes that differ, so that no picker reads another's company.
class Empresa : public cEmpresa
{
public:
    qint16 Codigo() const override { return 1; }
    qint16 CodigoArticulos() const override { return 2; }
    qint16 CodigoProveedores() const override { return 3; }
    qint16 CodigoClientes() const override { return 4; }
    QString NombreFamilia(int nivel) const override { return nivel == 1 ? u"SubFamilia"_s : QString(); }
    QString NombreCualidad(int) const override { return {}; }
    QString NombreAlternativo1() const override { return {}; }
    bool OrdenCualidades() const override { return false; }
    int DecimalesPvp() const override { return 2; }
    QString DirectorioInformes() const override { return {}; }
    nv::Moneda PorcentajeImpuesto(qint16) const override { return {}; }
    nv::Moneda PorcentajeImpuesto2(qint16) const override { return {}; }
    QString Valor(const QString &) const override { return {}; }
};

} // namespace

class tst_pickers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_conexion = nv::datos::abrirEmbebida(u":memory:"_s);
        for (
            const QString &sentencia : {
                u"INSERT INTO Proveedores (Cod_Empresa, Codigo, Nombre) VALUES (3, 7, 'Hilaturas del Sur & <Cía>')"_s,
                u"INSERT INTO Proveedores (Cod_Empresa, Codigo, Nombre) VALUES (3, 12, 'Botones Ibéricos')"_s,
                u"INSERT INTO Proveedores (Cod_Empresa, Codigo, Nombre) VALUES (3, 70001, 'Cinturón y Piel')"_s,
                u"INSERT INTO Proveedores (Cod_Empresa, Codigo, Nombre) VALUES (1, 8, 'De otra empresa')"_s,
                u"INSERT INTO Almacenes (Cod_Empresa, Codigo, Nombre) VALUES (1, 5, 'Central')"_s,
                u"INSERT INTO Marcas (Codigo, Nombre) VALUES (3, NULL)"_s,
                u"INSERT INTO Temporadas (Codigo, Nombre) VALUES ('V26', 'Verano 2026')"_s,
                u"INSERT INTO Familias_1 (Cod_Empresa, Codigo, Nombre) VALUES (2, 10, 'Mercería')"_s,
                u"INSERT INTO Familias_2 (Cod_Empresa, Familia_1, Codigo, Nombre) VALUES (2, 10, 1, 'Botones')"_s,
                u"INSERT INTO Familias_2 (Cod_Empresa, Familia_1, Codigo, Nombre) VALUES (2, 11, 1, 'Sábanas')"_s,
                u"INSERT INTO Familias_2 (Cod_Empresa, Familia_1, Codigo, Nombre) VALUES (2, 11, 2, 'Toallas')"_s,
                u"INSERT INTO Familias_3 (Cod_Empresa, Familia_1, Familia_2, Codigo, Nombre) VALUES (2, 11, 2, 4, 'De baño')"_s,
                u"INSERT INTO Familias_3 (Cod_Empresa, Familia_1, Familia_2, Codigo, Nombre) VALUES (2, 10, 2, 4, 'No')"_s,
            })
            m_conexion->Ejecutar(nv::Sentencia::deConsola(sentencia));
    }

    void init()
    {
        m_ventana = std::make_unique<QWidget>();
        auto *columna = new QVBoxLayout(m_ventana.get());
        m_proveedor = nuevo<nvProveedor>(columna);
        m_siguiente = new nvTextBox;
        columna->addWidget(m_siguiente);
        m_ventana->show();
        m_ventana->activateWindow(); // without a window manager nobody else does
        QVERIFY(QTest::qWaitForWindowActive(m_ventana.get()));
        m_proveedor->setFocus();
    }

    void each_picker_reads_its_own_table_and_company()
    {
        nvAlmacen almacen;
        nvMarca marca;
        nvTemporada temporada;
        for (nv::SelectorCodigo *s : std::initializer_list<nv::SelectorCodigo *>{&almacen, &marca, &temporada}) {
            s->setConexion(m_conexion.get());
            s->setcEmpresa(&m_empresa);
        }
        almacen.setCodigo(5);
        QVERIFY(almacen.Cargar());
        QCOMPARE(almacen.Nombre(), u"Central"_s);
        marca.setCodigo(3);
        QVERIFY(marca.Cargar());
        QCOMPARE(marca.Nombre(), QString());
        temporada.setTexto(u"v26 "_s);
        QVERIFY(temporada.Cargar());
        QCOMPARE(temporada.Nombre(), u"Verano 2026"_s);
        temporada.setTexto(u"V'; DROP TABLE Temporadas--"_s);
        QVERIFY(!temporada.Cargar());
        temporada.setTexto(u"V26"_s);
        QVERIFY(temporada.Cargar());
        m_proveedor->setCodigo(8);
        QVERIFY(!m_proveedor->Cargar());
    }

    void codes_data()
    {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<int>("codigo");
        QTest::addColumn<bool>("existe");
        QTest::addColumn<QString>("visible");
        QTest::newRow("known") << u" 7 "_s << 7 << true << u"Hilaturas del Sur & <Cía>"_s;
        QTest::newRow("leading zeros") << u"0012"_s << 12 << true << u"Botones Ibéricos"_s;
        QTest::newRow("unknown") << u"99"_s << 99 << false << u"No existe"_s;
        QTest::newRow("over 16 bits") << u"70001"_s << 70001 << true << u"Cinturón y Piel"_s;
        QTest::newRow("over 32 bits") << u"99999999999"_s << 0 << false << u"No existe"_s;
        QTest::newRow("no number, put by a program") << u"x7"_s << 0 << false << u"No existe"_s;
        QTest::newRow("nothing") << u""_s << 0 << false << u""_s;
        QTest::newRow("zero is nothing") << u"0"_s << 0 << false << u""_s;
    }

    void codes()
    {
        QFETCH(const QString, texto);
        QFETCH(const bool, existe);
        m_proveedor->setTexto(texto);
        QTEST(m_proveedor->Codigo(), "codigo");
        QCOMPARE(m_proveedor->Cargar(), existe);
        QCOMPARE(m_proveedor->Existe(), existe);
        QTEST(m_proveedor->findChild<QLabel *>(u"nombre"_s)->text(), "visible");
        QCOMPARE(m_proveedor->Nombre().isEmpty(), !existe);
    }

    void families_know_only_the_children_of_the_levels_above()
    {
        nvFamilia familia;
        familia.setConexion(m_conexion.get());
        familia.setcEmpresa(&m_empresa);
        familia.setCodigo(10);
        QVERIFY(familia.Cargar());
        QCOMPARE(familia.Nombre(), u"Mercería"_s);
        familia.setNivel(2);
        familia.setCodigo(1);
        QVERIFY(!familia.Cargar());
        familia.setCodigoPadre1(10);
        QVERIFY(familia.Cargar());
        QCOMPARE(familia.Nombre(), u"Botones"_s);
        familia.setCodigoPadre1(11);
        QVERIFY(!familia.Existe());
        QVERIFY(familia.Cargar());
        QCOMPARE(familia.Nombre(), u"Sábanas"_s);
        familia.setNivel(3);
        familia.setCodigoPadre2(2);
        familia.setCodigo(4);
        QVERIFY(familia.Cargar());
        QCOMPARE(familia.Nombre(), u"De baño"_s);
    }

    void enter_loads_tells_and_moves_on()
    {
        QStringList sucesos;
        connect(m_proveedor, &nv::SelectorCodigo::Cambio, this, [&] { sucesos += u"cambio"_s; });
        connect(m_proveedor, &nv::SelectorCodigo::Intro, this, [&] { sucesos += m_proveedor->Nombre(); });
        connect(m_proveedor, &nv::SelectorCodigo::Salida, this, [&] { sucesos += u"salida"_s; });
        nv::pruebas::encolarLectura(m_ventana.get(), u"12"_s);
        nv::pruebas::encolarLectura(m_ventana.get(), u"x"_s);
        QCoreApplication::processEvents();
        QCOMPARE(sucesos, (QStringList{u"cambio"_s, u"cambio"_s, u"Botones Ibéricos"_s, u"salida"_s}));
        QCOMPARE(m_siguiente->text(), u"x"_s);

        m_proveedor->setFocus();
        QMetaObject::Connection tratada =
            connect(m_proveedor, &nv::SelectorCodigo::Intro, this, [](bool &t) { t = true; });
        QTest::keyClick(m_proveedor->caja(), Qt::Key_Return);
        QVERIFY(m_proveedor->caja()->hasFocus());
        disconnect(tratada);
        m_proveedor->setTexto(u"7"_s);
        QTest::keyClick(m_proveedor->caja(), Qt::Key_Tab);
        QVERIFY(m_siguiente->hasFocus());
        QVERIFY(m_proveedor->Existe());
    }

    void a_failure_is_one_message_and_the_focus_stays()
    {
        m_proveedor->setcEmpresa(nullptr);
        m_proveedor->setTexto(u"7"_s);
        QVERIFY_THROWS_EXCEPTION(nv::Error, m_proveedor->Cargar());
        m_proveedor->setTexto(u"12"_s);
        Conductor conductor;
        conductor.responde(u"Aceptar"_s);
        QTest::keyClick(m_proveedor->caja(), Qt::Key_Return);
        QVERIFY(conductor.terminado());
        QTRY_VERIFY(m_proveedor->caja()->hasFocus());
        QCOMPARE(conductor.cajas().front().titulo, u"Proveedores"_s);
        conductor.responde(u"Aceptar"_s);
        QTest::keyClick(m_proveedor->caja(), Qt::Key_F3);
        QCOMPARE(conductor.cajas().size(), std::size_t{2});
        QTRY_VERIFY(m_proveedor->caja()->hasFocus());
        QTest::keyClick(m_proveedor->caja(), Qt::Key_Tab);
        QVERIFY(m_siguiente->hasFocus());
        QCOMPARE(conductor.cajas().size(), std::size_t{2});
    }

    void list_narrows_and_takes_with_the_keyboard_alone()
    {
        QShortcut ajeno(QKeySequence(Qt::Key_F3), m_ventana.get());
        QSignalSpy robado(&ajeno, &QShortcut::activated);
        Conductor conductor;
        conductor.con<nv::ListaCodigos>([](nv::ListaCodigos &lista) {
            auto *rejilla = lista.findChild<nv::Rejilla *>(u"vsLista"_s);
            QCOMPARE(rejilla->filasDatos(), 3);
            QCOMPARE(rejilla->texto(1, 1), u"Botones Ibéricos"_s);
            QCOMPARE(rejilla->filaActual(), 3);
            nv::pruebas::teclear(lista.focusWidget(), u"ci"_s);
            QCOMPARE(rejilla->filasDatos(), 2);
            QTest::keyClick(lista.focusWidget(), Qt::Key_Up);
            rejilla->setFocus();
            nv::pruebas::teclear(rejilla, u"nturon"_s);
            QCOMPARE(rejilla->filasDatos(), 1);
            QTest::keyClick(lista.focusWidget(), Qt::Key_Return);
        });
        m_proveedor->setTexto(u"7"_s);
        QTest::keyClick(m_proveedor->caja(), Qt::Key_F3);
        QVERIFY(conductor.terminado());
        QCOMPARE(m_proveedor->Codigo(), 70001);
        QCOMPARE(m_proveedor->Nombre(), u"Cinturón y Piel"_s);
        QTRY_VERIFY(m_proveedor->caja()->hasFocus());
        QCOMPARE(robado.size(), 0);
    }

    void leaving_the_list_changes_nothing()
    {
        m_proveedor->setTexto(u"7"_s);
        QSignalSpy cambios(m_proveedor, &nv::SelectorCodigo::Cambio);
        Conductor conductor;
        conductor.con<nv::ListaCodigos>([](nv::ListaCodigos &lista) {
            nv::pruebas::teclear(lista.focusWidget(), u"nadie"_s);
            // Nothing to take: Enter leaves the list open.
            QTest::keyClick(lista.focusWidget(), Qt::Key_Return);
            QVERIFY(lista.isVisible());
            QTest::keyClick(lista.focusWidget(), Qt::Key_Escape);
        });
        QTest::keyClick(m_proveedor->caja(), Qt::Key_F3);
        QCOMPARE(m_proveedor->Texto(), u"7"_s);
        QCOMPARE(cambios.size(), 0);
    }

private:
    template <class Selector>
    Selector *nuevo(QVBoxLayout *columna)
    {
        auto *selector = new Selector;
        selector->setConexion(m_conexion.get());
        selector->setcEmpresa(&m_empresa);
        columna->addWidget(selector);
        return selector;
    }

    Empresa m_empresa;
    std::unique_ptr<nv::Conexion> m_conexion;
    std::unique_ptr<QWidget> m_ventana;
    nvProveedor *m_proveedor = nullptr;
    nvTextBox *m_siguiente = nullptr;
};

NV_PRUEBA(tst_pickers)
#include "tst_pickers.moc"
