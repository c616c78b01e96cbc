#include "dialogs/frmPLUs.h"
#include "dialogs/frmReferencia_Articulos.h"
#include "nvArticulo/Conexion.h"
#include "nvArticulo/Motores.h"
#include "support/Conductor.h"
#include "support/EmpresaPrueba.h"
#include "support/Programa.h"

#include <QTest>

using namespace Qt::StringLiterals;
using nv::pruebas::Conductor;

/// The lists that open when what was typed fits several items.
class tst_Listas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void supplier_references_show_their_supplier();
    void customer_references_hide_it();
    void accept_takes_the_line_and_cancel_gives_minus_one_data();
    void accept_takes_the_line_and_cancel_gives_minus_one();
    void empty_list_stays_open_on_accept();
    void error_names_the_list();
    void plu_lists_departments();

private:
    void ejecuta(const QString &texto) { m_conexion->Ejecutar(nv::Sentencia::deConsola(texto)); }
    /// Shows a reference list and gives its cells as the user sees them.
    QString mostrada(frmReferencia_Articulos &lista, const std::function<void(nv::Rejilla *)> &accion)
    {
        QString celdas;
        lista.EmpresaArticulos = 2;
        lista.EmpresaProveedores = 3;
        Conductor conductor;
        conductor.con<frmReferencia_Articulos>([&](frmReferencia_Articulos &f) {
            auto *rejilla = f.findChild<nv::Rejilla *>(u"vsLineas"_s);
            QVERIFY(rejilla->hasFocus());
            for (int fila = 1; fila < rejilla->filas(); ++fila) {
                for (int columna = 0; columna < 3; ++columna)
                    celdas += rejilla->isColumnHidden(columna) ? u"-"_s : rejilla->texto(fila, columna) + u'|';
                celdas += u'\n';
            }
            accion(rejilla);
        });
        lista.MostrarModal();
        if (!conductor.terminado())
            return u"not driven"_s;
        return celdas;
    }

    std::unique_ptr<nv::Conexion> m_conexion;
};

void tst_Listas::init()
{
    m_conexion = nv::datos::abrirEmbebida(u":memory:"_s);
    nv::ranura::ofrecer(m_conexion.get());
    for (const auto &[codigo, nombre] : {std::pair{1, "UNO"}, {2, "DOS"}})
        ejecuta(u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion) VALUES (2, %1, '%2')"_s.arg(codigo).arg(
            QLatin1StringView(nombre)));
    for (const auto &[codigo, nombre] : {std::pair{7, "HIERROS"}, {8, "ACEROS"}})
        ejecuta(u"INSERT INTO Proveedores (Cod_Empresa, Codigo, Nombre) VALUES (3, %1, '%2')"_s.arg(codigo).arg(
            QLatin1StringView(nombre)));
    ejecuta(u"INSERT INTO Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref) VALUES (2, 1, 7, 'R')"_s);
    ejecuta(u"INSERT INTO Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref) VALUES (2, 2, 8, 'R')"_s);
    ejecuta(u"INSERT INTO Articulos_RefCli (Cod_Empresa, Cod_Articulo, Cod_Cli, Ref) VALUES (2, 1, 70, 'C')"_s);
    ejecuta(u"INSERT INTO Articulos_RefCli (Cod_Empresa, Cod_Articulo, Cod_Cli, Ref) VALUES (2, 2, 80, 'C')"_s);
}

void tst_Listas::cleanup()
{
    m_conexion.reset();
}

void tst_Listas::supplier_references_show_their_supplier()
{
    frmReferencia_Articulos todas(nullptr);
    todas.Referencia = u"R"_s;
    const QString celdas = mostrada(todas, [](nv::Rejilla *r) { r->window()->close(); });
    QVERIFY2(celdas.contains(u"1|UNO|7-HIERROS|\n") && celdas.contains(u"2|DOS|8-ACEROS|\n"), qPrintable(celdas));

    frmReferencia_Articulos una(nullptr);
    una.Referencia = u"R"_s;
    una.Proveedor = 8;
    QCOMPARE(mostrada(una, [](nv::Rejilla *r) { r->window()->close(); }), u"2|DOS|8-ACEROS|\n"_s);
}

void tst_Listas::customer_references_hide_it()
{
    frmReferencia_Articulos lista(nullptr);
    lista.RefProveedor = false;
    lista.Referencia = u"C"_s;
    const QString celdas = mostrada(lista, [](nv::Rejilla *r) { r->window()->close(); });
    QVERIFY2(celdas.contains(u"1|UNO|-\n") && celdas.contains(u"2|DOS|-\n"), qPrintable(celdas));
}

void tst_Listas::accept_takes_the_line_and_cancel_gives_minus_one_data()
{
    using Accion = std::function<void(nv::Rejilla *)>;
    QTest::addColumn<Accion>("accion");
    QTest::addColumn<bool>("elegido");
    const auto boton = [](const QString &nombre) {
        return
            [nombre](nv::Rejilla *r) { QTest::mouseClick(r->window()->findChild<QWidget *>(nombre), Qt::LeftButton); };
    };
    QTest::newRow("Enter") << Accion([](nv::Rejilla *r) { QTest::keyClick(r, Qt::Key_Return); }) << true;
    QTest::newRow("keypad Enter") << Accion([](nv::Rejilla *r) { QTest::keyClick(r, Qt::Key_Enter); }) << true;
    QTest::newRow("button") << Accion(boton(u"cmdAceptar"_s)) << true;
    QTest::newRow("Esc") << Accion([](nv::Rejilla *r) { QTest::keyClick(r, Qt::Key_Escape); }) << false;
    QTest::newRow("cross") << Accion([](nv::Rejilla *r) { r->window()->close(); }) << false;
    QTest::newRow("cancel button") << Accion(boton(u"cmdCancelar"_s)) << false;
}

void tst_Listas::accept_takes_the_line_and_cancel_gives_minus_one()
{
    QFETCH(std::function<void(nv::Rejilla *)>, accion);
    QFETCH(bool, elegido);
    frmReferencia_Articulos lista(nullptr);
    lista.Referencia = u"R"_s;
    int segunda = 0;
    mostrada(lista, [&](nv::Rejilla *r) {
        QCOMPARE(r->filaActual(), 1);
        QTest::keyClick(r, Qt::Key_Down);
        segunda = r->texto(2, 0).toInt();
        accion(r);
    });
    QCOMPARE(lista.Codigo, elegido ? segunda : -1);
}

void tst_Listas::empty_list_stays_open_on_accept()
{
    frmReferencia_Articulos lista(nullptr);
    lista.Referencia = u"NADA"_s;
    mostrada(lista, [](nv::Rejilla *r) {
        QTest::mouseClick(r->window()->findChild<QWidget *>(u"cmdAceptar"_s), Qt::LeftButton);
        QVERIFY(r->window()->isVisible());
        r->window()->close();
    });
    QCOMPARE(lista.Codigo, -1);
}

void tst_Listas::error_names_the_list()
{
    ejecuta(u"DROP TABLE Proveedores"_s);
    Conductor conductor;
    conductor.responde(u"Aceptar"_s);
    conductor.con<frmReferencia_Articulos>([](frmReferencia_Articulos &f) { f.close(); });
    frmReferencia_Articulos lista(nullptr);
    lista.Referencia = u"R"_s;
    lista.EmpresaArticulos = 2;
    lista.MostrarModal();
    QVERIFY(conductor.terminado());
    const QString titulo = conductor.cajas().front().titulo;
    QVERIFY2(titulo.startsWith(u'[') && titulo.endsWith(u"] frmReferencia_Articulos:Cargar_Articulos"),
             qPrintable(titulo));
    QCOMPARE(conductor.cajas().front().icono, QMessageBox::Critical);
}

void tst_Listas::plu_lists_departments()
{
    nv::pruebas::EmpresaPrueba empresa;
    for (const int departamento : {1, 2, 3})
        ejecuta(u"INSERT INTO Balanzas_Articulos (Cod_Empresa, Cod_Articulo, Plu, Dpto) VALUES (1, %1, 40, %2)"_s
                    .arg(departamento == 3 ? 2 : 1)
                    .arg(departamento));
    ejecuta(u"INSERT INTO Balanzas_Dptos (Cod_Empresa, Codigo, Nombre) VALUES (1, 1, 'CARNES')"_s);
    ejecuta(u"INSERT INTO Balanzas_Dptos (Cod_Empresa, Codigo, Nombre) VALUES (1, 2, 'QUESOS')"_s);
    QStringList departamentos;
    Conductor conductor;
    conductor.con<frmPLUs>([&](frmPLUs &f) {
        auto *rejilla = f.findChild<nv::Rejilla *>(u"vsLineas"_s);
        for (int fila = 1; fila < rejilla->filas(); ++fila)
            departamentos << rejilla->texto(fila, 0) + rejilla->texto(fila, 1);
        QTest::keyClick(rejilla, Qt::Key_Return);
    });
    frmPLUs lista(nullptr);
    lista.cEmpresa = &empresa;
    lista.Plu = 40;
    lista.MostrarModal();
    QVERIFY(conductor.terminado());
    departamentos.sort();
    QVERIFY2(departamentos == (QStringList{u"CARNES1"_s, u"QUESOS1"_s}), "a department without a row lists nothing");
    QCOMPARE(lista.Codigo, 1);
}

NV_PRUEBA(tst_Listas)
#include "tst_listas.moc"
