#include "common/Error.h"
#include "platform/widgets/nvTextBox.h"
#include "search/BusquedaAbierta.h"
#include "search/Fabrica.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollBar>

using namespace Qt::StringLiterals;
using namespace nv::pruebas;

/// What every search dialog does on Accept, Cancel and failure.
class tst_BusquedaBase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_.emplace(); }
    void cleanup() { m_.reset(); }

    void accepting_gives_the_current_row_data();
    void accepting_gives_the_current_row();
    void accept_needs_an_item_row();
    void cancelling_empties_the_code_data();
    void cancelling_empties_the_code();
    void accepting_copies_every_match_for_this_terminal();
    void failing_copy_leaves_the_dialog_open();
    void failing_search_leaves_the_grid_as_it_was();
    void failing_first_search_leaves_a_usable_dialog();
    void failing_details_name_themselves();
    void window_may_go_while_an_error_is_up();
    void models_without_a_dialog_say_so_data();
    void models_without_a_dialog_say_so();

private:
    std::optional<BusquedaAbierta> m_;
};

void tst_BusquedaBase::accepting_gives_the_current_row_data()
{
    using Accion = std::function<void(QWidget &)>;
    QTest::addColumn<Accion>("accion");
    QTest::newRow("Enter") << Accion([](QWidget &d) { QTest::keyClick(listado(d), Qt::Key_Return); });
    QTest::newRow("keypad Enter") << Accion([](QWidget &d) { QTest::keyClick(listado(d), Qt::Key_Enter); });
    QTest::newRow("double click") << Accion([](QWidget &d) {
        const QRect celda = listado(d)->visualRect(listado(d)->model()->index(1, 1));
        QTest::mouseDClick(listado(d)->viewport(), Qt::LeftButton, {}, celda.center());
    });
    QTest::newRow("button") << Accion([](QWidget &d) { QTest::mouseClick(campo(d, u"cmdAceptar"_s), Qt::LeftButton); });
    QTest::newRow("Enter on the button") << Accion([](QWidget &d) {
        campo(d, u"cmdAceptar"_s)->setFocus();
        pulsa(d, Qt::Key_Return);
    });
}

void tst_BusquedaBase::accepting_gives_the_current_row()
{
    QFETCH(const std::function<void(QWidget &)>, accion);
    m_->abrir([](frmBusqueda_Articulos_1 &d) { d.Busqueda_Descripcion = u"T"_s; },
              [&](QWidget &d) {
                  listado(d)->setFilaActual(2);
                  accion(d);
                  QVERIFY(!d.isVisible());
              });
    QCOMPARE(m_->codigoElegido, u"2"_s);
    QCOMPARE(m_->descripcionElegida, u"TUERCA"_s);
}

void tst_BusquedaBase::accept_needs_an_item_row()
{
    m_->abrir([](frmBusqueda_Articulos_1 &d) { d.GuardarBusqueda = true; },
              [](QWidget &d) {
                  campo<QPushButton>(d, u"cmdAceptar"_s)->click();
                  QVERIFY(d.isVisible());
                  pulsa(d, Qt::Key_F9);
                  listado(d)->setFilaActual(0);
                  campo<QPushButton>(d, u"cmdAceptar"_s)->click();
                  QVERIFY(d.isVisible());
              });
    QCOMPARE(m_->codigoElegido, QString());
    QCOMPARE(m_->base.filas(u"SELECT COUNT(*) FROM Articulos_Buscar"_s), QStringList{u"0"_s});
}

void tst_BusquedaBase::cancelling_empties_the_code_data()
{
    using Accion = std::function<void(QWidget &)>;
    QTest::addColumn<Accion>("accion");
    QTest::newRow("Esc in the grid") << Accion([](QWidget &d) { QTest::keyClick(listado(d), Qt::Key_Escape); });
    QTest::newRow("Esc in a field") << Accion(
        [](QWidget &d) { QTest::keyClick(campo(d, u"txtNombre"_s), Qt::Key_Escape); });
    QTest::newRow("cross") << Accion([](QWidget &d) { d.close(); });
    QTest::newRow("button") << Accion([](QWidget &d) { campo<QPushButton>(d, u"cmdCancelar"_s)->click(); });
}

void tst_BusquedaBase::cancelling_empties_the_code()
{
    QFETCH(const std::function<void(QWidget &)>, accion);
    m_->abrir(
        [](frmBusqueda_Articulos_1 &d) {
            d.Busqueda_Descripcion = u"T"_s;
            d.Codigo = u"7"_s;
        },
        [&](QWidget &d) {
            accion(d);
            QVERIFY(!d.isVisible());
        });
    QCOMPARE(m_->codigoElegido, QString());
}

void tst_BusquedaBase::accepting_copies_every_match_for_this_terminal()
{
    m_->mil_doscientos();
    m_->base.ejecutar({u"INSERT INTO Articulos_Buscar VALUES ('CAJA-1', 2, 1, 'ANTIGUO')"_s,
                       u"INSERT INTO Articulos_Buscar VALUES ('CAJA-2', 2, 1, 'AJENO')"_s});
    m_->empresa.valores[u"Articulos_BusquedaCantMax"_s] = u"10"_s;
    const Oyente oyente(m_->base.conexion());
    m_->abrir(
        [](frmBusqueda_Articulos_1 &d) {
            d.GuardarBusqueda = true;
            d.Busqueda_Descripcion = u"ZZ"_s;
        },
        [](QWidget &d) {
            QCOMPARE(listado(d)->filasDatos(), 10);
            pulsa(d, Qt::Key_Return);
        });
    QCOMPARE(m_->codigoElegido, u"10001"_s);
    QCOMPARE(oyente.textos.sliced(oyente.textos.size() - 2),
             (QStringList{u"DELETE FROM Articulos_Buscar WHERE Terminal = 'CAJA-1'"_s,
                          u"INSERT INTO Articulos_Buscar(Terminal, Cod_Empresa, Cod_Articulo, Descripcion) "
                          u"SELECT DISTINCT 'CAJA-1', 2, a.Codigo, a.Descripcion FROM Articulos a "
                          u" LEFT JOIN Articulos_CBarras b"
                          u" ON a.Cod_Empresa=b.Cod_Empresa AND b.Cod_Articulo=a.Codigo AND b.Principal=1"
                          u" WHERE a.Cod_Empresa =2 AND a.Descripcion LIKE 'ZZ%' ORDER BY a.Descripcion"_s}));
    QCOMPARE(m_->base.filas(u"SELECT Terminal, COUNT(*) FROM Articulos_Buscar GROUP BY Terminal ORDER BY Terminal"_s),
             (QStringList{u"CAJA-1|1200"_s, u"CAJA-2|1"_s}));
}

void tst_BusquedaBase::failing_copy_leaves_the_dialog_open()
{
    m_->base.ejecutar(u"DROP TABLE Articulos_Buscar"_s);
    frmBusqueda_Articulos_1 dialogo(nullptr);
    dialogo.cEmpresa = &m_->empresa;
    dialogo.GuardarBusqueda = true;
    dialogo.Busqueda_Descripcion = u"T"_s;
    Conductor conductor;
    conductor.con<frmBusqueda_Articulos_1>([](QWidget &d) { pulsa(d, Qt::Key_Return); })
        .responde(u"Aceptar"_s)
        .con<frmBusqueda_Articulos_1>([](QWidget &d) { pulsa(d, Qt::Key_Escape); });
    dialogo.MostrarModal();
    QVERIFY(conductor.terminado());
    QCOMPARE(conductor.cajas().size(), std::size_t{1});
    QCOMPARE(conductor.cajas()[0].titulo, u"Error"_s);
    QCOMPARE(conductor.cajas()[0].icono, QMessageBox::Critical);
    QVERIFY(conductor.cajas()[0].texto.contains(u"Articulos_Buscar"));
    QCOMPARE(dialogo.Codigo, QString());
}

void tst_BusquedaBase::failing_search_leaves_the_grid_as_it_was()
{
    frmBusqueda_Articulos_1 dialogo(nullptr);
    dialogo.cEmpresa = &m_->empresa;
    dialogo.Busqueda_Descripcion = u"T"_s;
    Conductor conductor;
    conductor
        .con<frmBusqueda_Articulos_1>([](QWidget &d) {
            listado(d)->setFilaActual(2);
            campo<nvTextBox>(d, u"txtNombre"_s)->setText(u"L'OREAL"_s);
            pulsa(d, Qt::Key_F9);
        })
        .con<QMessageBox>([](QMessageBox &caja) {
            QVERIFY(!QGuiApplication::overrideCursor() ||
                    QGuiApplication::overrideCursor()->shape() == Qt::ArrowCursor);
            caja.close();
        })
        .con<frmBusqueda_Articulos_1>([](frmBusqueda_Articulos_1 &d) {
            QCOMPARE(columna(d, 1), (QStringList{u"TORNILLO"_s, u"TUERCA"_s}));
            QCOMPARE(listado(d)->filaActual(), 2);
            QCOMPARE(d.Busqueda_Descripcion, u"T"_s);
            campo<nvTextBox>(d, u"txtNombre"_s)->setText(u"*AND"_s);
            pulsa(d, Qt::Key_F9);
            QCOMPARE(columna(d, 1), QStringList{u"ARANDELA"_s});
            d.close();
        });
    dialogo.MostrarModal();
    QVERIFY(conductor.terminado());
    QCOMPARE(conductor.cajas().size(), std::size_t{1});
    QCOMPARE(conductor.cajas()[0].titulo, u"Búsqueda de Artículos"_s);
    QCOMPARE(conductor.cajas()[0].icono, QMessageBox::Critical);
    QVERIFY(!QGuiApplication::overrideCursor());
}

void tst_BusquedaBase::failing_first_search_leaves_a_usable_dialog()
{
    frmBusqueda_Articulos_1 dialogo(nullptr);
    dialogo.cEmpresa = &m_->empresa;
    dialogo.Busqueda_Descripcion = u"d'un cop"_s;
    Conductor conductor;
    conductor.responde(u"Aceptar"_s).con<frmBusqueda_Articulos_1>([](QWidget &d) {
        QVERIFY(campo(d, u"txtNombre"_s)->hasFocus());
        campo<nvTextBox>(d, u"txtNombre"_s)->clear();
        pulsa(d, Qt::Key_F9);
        QCOMPARE(listado(d)->filasDatos(), 4);
        d.close();
    });
    dialogo.MostrarModal();
    QVERIFY(conductor.terminado());
}

void tst_BusquedaBase::failing_details_name_themselves()
{
    m_->base.ejecutar(u"DROP TABLE Almacen_Articulos"_s);
    frmBusqueda_Articulos_1 dialogo(nullptr);
    dialogo.cEmpresa = &m_->empresa;
    Conductor conductor;
    conductor
        .con<frmBusqueda_Articulos_1>([](QWidget &d) {
            pulsa(d, Qt::Key_F9);
            pulsa(d, Qt::Key_F6);
        })
        .responde(u"Aceptar"_s)
        .con<frmBusqueda_Articulos_1>([](QWidget &d) {
            pulsa(d, Qt::Key_F6);
            pulsa(d, Qt::Key_Return);
        });
    dialogo.MostrarModal();
    QVERIFY(conductor.terminado());
    QCOMPARE(conductor.cajas().size(), std::size_t{1});
    QCOMPARE(conductor.cajas()[0].titulo, u"::DevPropiedades"_s);
    QCOMPARE(dialogo.Codigo, u"3"_s);
}

void tst_BusquedaBase::window_may_go_while_an_error_is_up()
{
    for (const bool alAbrir : {true, false}) {
        auto *ventana = new QWidget;
        ventana->show();
        const nv::DialogoPropio<nv::ContratoBusqueda> dialogo = nv::crearDialogoBusqueda(0, ventana);
        dialogo->cEmpresa = &m_->empresa;
        dialogo->Busqueda_Descripcion = alAbrir ? u"d'un cop"_s : QString();
        Conductor conductor;
        if (!alAbrir) {
            conductor.con<frmBusqueda_Articulos_1>([](QWidget &d) {
                teclear(d.focusWidget(), u"d'un cop"_s);
                pulsa(d, Qt::Key_F9);
            });
        }
        conductor.con<QMessageBox>([ventana](QMessageBox &) { delete ventana; });
        dialogo->MostrarModal();
        QVERIFY(conductor.terminado());
        QVERIFY(!dialogo.vivo());
    }
}

void tst_BusquedaBase::models_without_a_dialog_say_so_data()
{
    QTest::addColumn<int>("modelo");
    QTest::addColumn<QString>("texto");
    QTest::newRow("below") << -1
                           << u"El modelo de búsqueda -1 no existe. Revise el parámetro BusquedaArticulos de la "
                              u"empresa."_s;
    QTest::newRow("above") << 9
                           << u"El modelo de búsqueda 9 no existe. Revise el parámetro BusquedaArticulos de la "
                              u"empresa."_s;
}

void tst_BusquedaBase::models_without_a_dialog_say_so()
{
    QFETCH(const int, modelo);
    QFETCH(const QString, texto);
    try {
        nv::crearDialogoBusqueda(static_cast<qint16>(modelo), nullptr);
        QFAIL("a dialog came");
    } catch (const nv::Error &error) {
        QCOMPARE(error.descripcion, texto);
    }
}

QTEST_MAIN(tst_BusquedaBase)
#include "tst_busquedabase.moc"
