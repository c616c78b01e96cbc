#include "Busquedas.h"
#include "support/Programa.h"

#include <QFrame>
#include <QPushButton>

using namespace nv::pruebas;
using nv::ContratoBusqueda;

/// What every search dialog promises to the component that opens it, and to who stands before it.
class tst_Contrato : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void init() { m.emplace(); }
    void cleanup() { m.reset(); }

    void without_a_company_it_does_not_open();
    void remembered_text_searches_at_once();
    void nothing_remembered_is_no_search();
    void a_read_that_fails_at_load_costs_no_more_than_itself_data();
    void a_read_that_fails_at_load_costs_no_more_than_itself();
    void accepting_gives_the_current_row_data();
    void accepting_gives_the_current_row();
    void accepting_needs_a_row();
    void accepting_several_gives_a_list();
    void cancelling_empties_the_code_data();
    void cancelling_empties_the_code();
    void the_copy_holds_every_item_found();
    void a_copy_that_fails_leaves_the_dialog_open();
    void a_search_that_fails_is_said_and_can_be_repeated();
    void an_empty_search_leaves_the_focus_where_it_was();
    void window_may_go_while_an_error_is_up();
    void nested_searches_and_strip();
    void up_on_the_first_row_goes_back_to_the_box();
    void models_without_a_dialog_say_so();

private:
    static CatalogoBusquedas::Preparar recordando(const QString &texto)
    {
        return [texto](ContratoBusqueda &d) { d.Busqueda_Descripcion = texto; };
    }
    /// Of the two screws, in the order of the dialog.
    static QString tornillos(const Vista &v) { return v.modelo == 1 ? u"1|2"_s : u"2|1"_s; }

    std::optional<CatalogoBusquedas> m;
};

void tst_Contrato::initTestCase_data()
{
    QTest::addColumn<int>("modelo");
    for (int modelo = 0; modelo < 9; ++modelo)
        QTest::addRow("model %d", modelo) << modelo;
}

void tst_Contrato::without_a_company_it_does_not_open()
{
    QFETCH_GLOBAL(const int, modelo);
    const auto dialogo = nv::crearDialogoBusqueda(static_cast<qint16>(modelo), nullptr);
    QCOMPARE(numeroDeError([&] { dialogo->MostrarModal(); }), nv::errores::SinObjeto);
}

void tst_Contrato::remembered_text_searches_at_once()
{
    QFETCH_GLOBAL(const int, modelo);
    m->abrir(modelo, recordando(u"TORN"_s), [](const Vista &v) {
        if (v.modelo == 4) {
            QVERIFY2(v.lista()->filasDatos() == 0 && v.enfocado("txtNombre"), "it remembers nothing");
            QCOMPARE(v.campo<QLineEdit>("txtNombre")->text(), QString());
            return;
        }
        QCOMPARE(v.codigos(), tornillos(v));
        QCOMPARE(v.campo<QLineEdit>(v.caja())->text(), u"TORN"_s);
        QVERIFY2(v.campo(v.caja())->isVisible() && v.lista()->hasFocus(), "the criteria stay in view");
        QCOMPARE(v.lista()->filaActual(), 1);
        v.busca(u"GRANDE"_s);
        QCOMPARE(v.d.Busqueda_Descripcion, u"GRANDE"_s);
    });
    QCOMPARE(m->criterios.Busqueda_Descripcion, modelo == 4 ? u"TORN"_s : u"GRANDE"_s);
    QCOMPARE(m->codigo, QString());
}

void tst_Contrato::nothing_remembered_is_no_search()
{
    QFETCH_GLOBAL(const int, modelo);
    m->abrir(
        modelo,
        [](ContratoBusqueda &d) {
            // As the component leaves them when it starts anew, and of a description typed in it.
            d.Busqueda_Codigo = u"0"_s;
            d.Familia_1 = d.Busqueda_Familia_1 = -1;
        },
        [this](const Vista &v) {
            QVERIFY(v.enfocado(v.caja()));
            if (!v.porCriterios())
                v.busca(u"  "_s);
            QVERIFY(m->sentencias.filter(u"FROM Articulos a"_s).isEmpty());
            if (v.campo("txtCodigo"))
                QCOMPARE(v.campo<QLineEdit>("txtCodigo")->text(), QString());
            if (v.porCriterios())
                QVERIFY(v.campo("txtFamilia_1")->isEnabled());
        });
}

void tst_Contrato::a_read_that_fails_at_load_costs_no_more_than_itself_data()
{
    QTest::addColumn<bool>("fija");
    QTest::newRow("family fixed") << true;
    QTest::newRow("free") << false;
}

void tst_Contrato::a_read_that_fails_at_load_costs_no_more_than_itself()
{
    QFETCH_GLOBAL(const int, modelo);
    QFETCH(const bool, fija);
    const bool porCriterios = modelo != 2 && modelo != 5 && modelo < 7;
    QStringList tablas{porCriterios ? u"Proveedores"_s : u"Almacenes"_s};
    if (porCriterios)
        tablas << u"Familias_1"_s;
    if (modelo == 1)
        tablas << u"Almacen_Tarifas"_s << u"Alternativos_Valores"_s << u"Almacenes"_s;
    for (const QString &tabla : tablas) {
        const bool leida = modelo != 4 || (fija && tabla == u"Familias_1");
        if (!leida || (tabla == u"Familias_1" && !fija))
            continue;
        m->quitar(tabla);
        m->conductor.responde(u"Aceptar"_s);
        const auto preparar = [&](ContratoBusqueda &d) {
            d.Busqueda_Descripcion = u"TORN"_s;
            d.Busqueda_Proveedor = 7;
            if (fija && porCriterios)
                d.Familia_1 = d.Busqueda_Familia_1 = 1;
        };
        m->abrir(modelo, preparar, [&](const Vista &v) {
            if (!porCriterios) {
                QCOMPARE(v.codigos(), QString());
                m->devolver(tabla);
                v.busca(u"TORN"_s);
            } else if (modelo == 4) {
                v.busca(u"TORN"_s);
            }
            QCOMPARE(v.codigos(), tornillos(v));
            if (!porCriterios)
                return;
            QCOMPARE(v.campo("txtFamilia_1")->isEnabled(), !fija);
            QVERIFY(v.campo("txtFamilia_1")->isVisible());
            v.busca(QString());
            QVERIFY2(!fija || !v.codigos().contains(u"24"_s), "the family stays");
            m->devolver(tabla);
        });
        QCOMPARE(m->conductor.cajas().back().icono, QMessageBox::Critical);
    }
    QVERIFY(m->conductor.cajas().size() <= std::size_t(tablas.size()));
}

void tst_Contrato::accepting_gives_the_current_row_data()
{
    using Accion = std::function<void(const Vista &)>;
    QTest::addColumn<Accion>("accion");
    QTest::newRow("Enter") << Accion([](const Vista &v) { QTest::keyClick(v.lista(), Qt::Key_Return); });
    QTest::newRow("keypad Enter") << Accion([](const Vista &v) { QTest::keyClick(v.lista(), Qt::Key_Enter); });
    QTest::newRow("double click") << Accion([](const Vista &v) {
        v.dobleClic(2, v.columnaCodigo() + 1);
        if (v.modelo == 3 || v.modelo == 4) { // there it marks
            QVERIFY(v.d.isVisible());
            QCOMPARE(v.columna(0), u"|X"_s);
            QTest::keyClick(v.lista(), Qt::Key_Return);
        }
    });
    QTest::newRow("button") << Accion([](const Vista &v) { v.aprieta("cmdAceptar"); });
    QTest::newRow("Enter on the button") << Accion([](const Vista &v) {
        v.campo("cmdAceptar")->setFocus();
        v.pulsa(Qt::Key_Return);
    });
}

void tst_Contrato::accepting_gives_the_current_row()
{
    QFETCH_GLOBAL(const int, modelo);
    QFETCH(const std::function<void(const Vista &)>, accion);
    m->abrir(modelo, [&](const Vista &v) {
        v.busca(u"TORN"_s);
        v.lista()->setFilaActual(2);
        accion(v);
        QVERIFY(!v.d.isVisible());
    });
    QCOMPARE(m->codigo, modelo == 1 ? u"2"_s : u"1"_s);
    QCOMPARE(m->descripcion, modelo == 1 ? u"TORNILLO GRANDE"_s : u"TORNILLO ROJO"_s);
    QVERIFY2(m->copia().isEmpty(), "nobody asked for it");
}

/// A free-text list without items is accepted too, and gives no code.
void tst_Contrato::accepting_needs_a_row()
{
    QFETCH_GLOBAL(const int, modelo);
    for (const bool vacia : {true, false}) {
        m->abrir(
            modelo, [](ContratoBusqueda &d) { d.GuardarBusqueda = true; },
            [vacia](const Vista &v) {
                v.busca(vacia ? u"NADA"_s : u"TORN"_s);
                QCOMPARE(v.lista()->filasDatos(), vacia ? 0 : 2);
                v.lista()->setFilaActual(0);
                v.aprieta("cmdAceptar");
                QCOMPARE(v.d.isVisible(), !vacia || v.porCriterios());
            });
        QCOMPARE(m->codigo, QString());
    }
    QCOMPARE(m->copia(), QString());
}

void tst_Contrato::accepting_several_gives_a_list()
{
    QFETCH_GLOBAL(const int, modelo);
    const bool marcan = modelo != 0 && modelo != 6;
    const bool deTexto = modelo == 2 || modelo == 5 || modelo > 6;
    const auto preparar = [](ContratoBusqueda &d) { d.MultiResultado = true; };
    const auto aceptar = [&](std::initializer_list<int> filas) {
        m->abrir(modelo, preparar, [&](const Vista &v) {
            v.busca(u"GRANDE*"_s);
            v.busca(v.porCriterios() ? u"*GRANDE"_s : u"GRANDE"_s);
            QCOMPARE(v.codigos(), u"2|3"_s);
            v.lista()->setFocus();
            v.marca(filas);
            v.lista()->setFilaActual(1);
            QTest::keyClick(v.lista(), Qt::Key_Return);
            QVERIFY(!v.d.isVisible());
        });
    };
    aceptar({2, 1});
    QCOMPARE(m->codigo, marcan ? u"|2|3"_s : u"2"_s);
    QCOMPARE(m->descripcion, marcan ? u"|TORNILLO GRANDE|TUERCA GRANDE"_s : u"TORNILLO GRANDE"_s);
    QVERIFY(m->varios);
    aceptar({2});
    QCOMPARE(m->codigo, deTexto ? u"3"_s : marcan ? u"|3"_s : u"2"_s);
    QCOMPARE(m->varios, !deTexto);
    aceptar({2, 2}); // and unmarked again
    QCOMPARE(m->codigo, modelo == 3 || modelo == 4 ? QString() : u"2"_s);
}

void tst_Contrato::cancelling_empties_the_code_data()
{
    using Accion = std::function<void(const Vista &)>;
    QTest::addColumn<Accion>("accion");
    QTest::newRow("Esc in the list") << Accion([](const Vista &v) { QTest::keyClick(v.lista(), Qt::Key_Escape); });
    QTest::newRow("Esc in the box") << Accion(
        [](const Vista &v) { QTest::keyClick(v.campo(v.caja()), Qt::Key_Escape); });
    QTest::newRow("cross") << Accion([](const Vista &v) { v.d.close(); });
    QTest::newRow("button") << Accion([](const Vista &v) { v.aprieta("cmdCancelar"); });
    QTest::newRow("Enter on the button") << Accion([](const Vista &v) {
        v.campo("cmdCancelar")->setFocus();
        v.pulsa(Qt::Key_Return);
    });
}

void tst_Contrato::cancelling_empties_the_code()
{
    QFETCH_GLOBAL(const int, modelo);
    QFETCH(const std::function<void(const Vista &)>, accion);
    m->abrir(
        modelo,
        [](ContratoBusqueda &d) {
            d.Codigo = u"7"_s;
            d.GuardarBusqueda = true;
        },
        [&](const Vista &v) {
            v.busca(u"TORN"_s);
            accion(v);
            QVERIFY(!v.d.isVisible());
        });
    QVERIFY2(m->viva && m->codigo.isEmpty(), "hidden, not gone");
    QCOMPARE(m->copia(), QString());
}

void tst_Contrato::the_copy_holds_every_item_found()
{
    QFETCH_GLOBAL(const int, modelo);
    m->empresa.valores[u"Articulos_BusquedaCantMax"_s] = u"1"_s;
    m->ejecutar(u"INSERT INTO Articulos_Buscar (Terminal, Cod_Articulo) VALUES ('CAJA-1', 77), ('CAJA-2', 78)"_s);
    m->abrir(
        modelo, [](ContratoBusqueda &d) { d.GuardarBusqueda = true; },
        [](const Vista &v) {
            v.busca(u"TORN"_s);
            QCOMPARE(v.lista()->filasDatos(), 1);
            QTest::keyClick(v.lista(), Qt::Key_Return);
        });
    QCOMPARE(m->filas(u"SELECT Terminal, Cod_Empresa, Cod_Articulo, Descripcion FROM Articulos_Buscar ORDER BY 3"_s)
                 .join(u' '),
             u"CAJA-1|2|1|TORNILLO ROJO CAJA-1|2|2|TORNILLO GRANDE CAJA-2|NULL|78|NULL"_s);
    QVERIFY(m->codigo == u"2" || modelo == 1);
}

void tst_Contrato::a_copy_that_fails_leaves_the_dialog_open()
{
    QFETCH_GLOBAL(const int, modelo);
    m->quitar(u"Articulos_Buscar"_s);
    m->abrir(
        modelo,
        [](ContratoBusqueda &d) {
            d.GuardarBusqueda = true;
            d.MultiResultado = true;
        },
        [this](const Vista &v) {
            v.busca(u"TORN"_s);
            v.marca({1});
            m->conductor.responde(u"Aceptar"_s);
            QTest::keyClick(v.lista(), Qt::Key_Return);
            QVERIFY(v.d.isVisible() && v.d.MultiResultado);
            m->devolver(u"Articulos_Buscar"_s);
            QTest::keyClick(v.lista(), Qt::Key_Return);
            QVERIFY(!v.d.isVisible());
        });
    QCOMPARE(m->copia(), u"1|2"_s);
    const CajaVista &caja = m->conductor.cajas().at(0);
    const bool sinNombre = modelo < 2 || modelo == 6;
    QCOMPARE(caja.titulo, sinNombre ? u"Error"_s : u"frmBusqueda_Articulos_%1:cmdAceptar_Click"_s.arg(modelo + 1));
    QVERIFY(caja.icono == QMessageBox::Critical && caja.texto.contains(u"Articulos_Buscar"));
}

void tst_Contrato::a_search_that_fails_is_said_and_can_be_repeated()
{
    QFETCH_GLOBAL(const int, modelo);
    m->abrir(modelo, recordando(u"ROJO"_s), [&](const Vista &v) {
        v.busca(u"TORN"_s);
        v.lista()->setFilaActual(2);
        m->quitar(u"Articulos"_s);
        m->conductor.con<QMessageBox>([&](QMessageBox &caja) {
            QVERIFY2(!QGuiApplication::overrideCursor() ||
                         QGuiApplication::overrideCursor()->shape() == Qt::ArrowCursor,
                     "the wait pointer is gone before the box comes");
            QVERIFY(v.lista()->viewport()->updatesEnabled());
            if (v.campo("pctMsg"))
                QVERIFY(!v.campo("pctMsg")->isVisible());
            caja.close();
        });
        v.busca(u"TUERCA"_s);
        QVERIFY(v.d.isVisible() && !QGuiApplication::overrideCursor());
        QCOMPARE(v.codigos(), v.porCriterios() ? tornillos(v) : QString());
        if (v.porCriterios())
            QCOMPARE(v.lista()->filaActual(), 2);
        m->devolver(u"Articulos"_s);
        v.busca(u"TUERCA"_s);
        QCOMPARE(v.codigos(), u"3"_s);
    });
    QCOMPARE(m->conductor.cajas().size(), std::size_t{1});
    const CajaVista &caja = m->conductor.cajas().at(0);
    QCOMPARE(caja.icono, QMessageBox::Critical);
    QCOMPARE(caja.titulo, modelo == 2 || modelo == 5 || modelo > 6 ? u"Recuperar_Registros"_s
                          : modelo == 3 || modelo == 4 ? u"frmBusqueda_Articulos_%1:Cargar"_s.arg(modelo + 1)
                                                       : u"Búsqueda de Artículos"_s);
    QCOMPARE(caja.texto.startsWith(u"0 - "), modelo == 2 || modelo > 6);
}

void tst_Contrato::an_empty_search_leaves_the_focus_where_it_was()
{
    QFETCH_GLOBAL(const int, modelo);
    m->abrir(modelo, [](const Vista &v) {
        v.busca(u"TORN"_s);
        v.busca(u"NADA"_s);
        QVERIFY(v.lista()->filasDatos() == 0 && v.lista()->filaActual() == 0);
        QVERIFY(v.campo(v.caja())->isVisible());
        QVERIFY(v.enfocado(v.modelo == 7 ? "txtMarca" : v.caja()));
        v.busca(u"TORN"_s);
        QCOMPARE(v.lista()->hasFocus(), v.porCriterios() || v.modelo == 5);
    });
}

void tst_Contrato::window_may_go_while_an_error_is_up()
{
    QFETCH_GLOBAL(const int, modelo);
    const bool porCriterios = modelo != 2 && modelo != 5 && modelo < 7;
    for (const bool alAbrir : {true, false}) {
        auto *ventana = new QWidget;
        ventana->show();
        const auto dialogo = nv::crearDialogoBusqueda(static_cast<qint16>(modelo), ventana);
        dialogo->cEmpresa = &m->empresa;
        dialogo->Familia_1 = 1;
        Conductor conductor;
        const QString tabla = !alAbrir ? u"Articulos"_s : porCriterios ? u"Familias_1"_s : u"Almacenes"_s;
        m->quitar(tabla);
        if (!alAbrir)
            conductor.con<nv::BusquedaBase>([modelo](nv::BusquedaBase &d) { Vista{d, modelo}.busca(u"TORN"_s); });
        conductor.con<QMessageBox>([ventana](QMessageBox &) { delete ventana; });
        dialogo->MostrarModal();
        QVERIFY(conductor.terminado() && !dialogo.vivo());
        QVERIFY(!QGuiApplication::overrideCursor());
        m->devolver(tabla);
    }
}

/// Where there is a strip: it says so as long as the engine works.
void tst_Contrato::nested_searches_and_strip()
{
    QFETCH_GLOBAL(const int, modelo);
    struct Mirada : nv::OyenteSentencias
    {
        void sentencia(const nv::SucesoSentencia &suceso) override
        {
            if (!suceso.texto.contains(u"FROM Articulos a"_s))
                return;
            espera = QGuiApplication::overrideCursor() != nullptr;
            aviso = franja && franja->isVisible();
        }
        QWidget *franja = nullptr;
        bool espera = false;
        bool aviso = false;
    } mirada;
    m->abrir(modelo, [&](const Vista &v) {
        mirada.franja = v.campo("pctMsg");
        QCOMPARE(mirada.franja != nullptr, !v.porCriterios() || v.modelo == 1);
        m->conexion().escuchar(&mirada);
        v.busca(u"TORN"_s);
        m->conexion().dejarDeEscuchar(&mirada);
        QCOMPARE(mirada.aviso, mirada.franja != nullptr);
        QVERIFY(mirada.espera && !QGuiApplication::overrideCursor());
        QVERIFY(!mirada.franja || !mirada.franja->isVisible());
    });
}

void tst_Contrato::up_on_the_first_row_goes_back_to_the_box()
{
    QFETCH_GLOBAL(const int, modelo);
    m->abrir(modelo, [](const Vista &v) {
        v.busca(u"TORN"_s);
        v.lista()->setFocus();
        v.lista()->setFilaActual(2);
        v.pulsa(Qt::Key_Up);
        QVERIFY(v.lista()->hasFocus() && v.lista()->filaActual() == 1);
        v.pulsa(Qt::Key_Up);
        QVERIFY(v.enfocado(v.caja()) && v.campo(v.caja())->isVisible());
        QCOMPARE(v.campo<QLineEdit>(v.caja())->selectedText(), u"TORN"_s);
    });
}

void tst_Contrato::models_without_a_dialog_say_so()
{
    for (const qint16 modelo : {qint16{-1}, qint16{9}}) {
        QCOMPARE(
            errorDe([=] { nv::crearDialogoBusqueda(modelo, nullptr); }).descripcion,
            u"El modelo de búsqueda %1 no existe. Revise el parámetro BusquedaArticulos de la empresa."_s.arg(modelo));
    }
}

NV_PRUEBA(tst_Contrato)
#include "tst_contrato.moc"
