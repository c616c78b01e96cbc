#include "common/Conexion.h"
#include "common/Error.h"
#include "platform/widgets/Rejilla.h"
#include "search/piezas/CajaImagen.h"
#include "search/piezas/Eleccion.h"
#include "search/piezas/PanelDetalles.h"
#include "support/BaseDatos.h"
#include "support/EmpresaPrueba.h"

#include <QImage>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

/// The details panel over a real catalogue, and the lists that several marked rows give.
class tst_PanelDetalles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void price_order_data();
    void price_order();
    void tariffs_are_looked_up_once();
    void stock_and_notes_of_the_default_warehouse();
    void nothing_stays_of_the_item_before();
    void pictures_data();
    void pictures();
    void failure_keeps_what_was_filled();
    void marked_rows_give_a_list();

private:
    QString texto(const QString &nombre) const { return m_panel->findChild<QLabel *>(nombre)->text(); }
    QColor color(const QString &nombre) const
    {
        return m_panel->findChild<QLabel *>(nombre)->palette().color(QPalette::WindowText);
    }

    std::unique_ptr<nv::pruebas::BaseDatos> m_base;
    nv::pruebas::EmpresaPrueba m_empresa;
    std::unique_ptr<nv::PanelDetalles> m_panel;
};

void tst_PanelDetalles::init()
{
    m_empresa = {};
    m_base = std::make_unique<nv::pruebas::BaseDatos>();
    nv::ranura::ofrecer(&m_base->conexion());
    m_base->ejecutar(
        {u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion, Desc_Memo) VALUES (2, 7, 'A', 'Nota <b>x</b>')"_s,
         u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion) VALUES (2, 8, 'B')"_s,
         u"INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo, Stock_Actual, Pend_Servir,"
         u" Pend_Recibir) VALUES (1, 1, 7, 12.5, 2, 1000)"_s,
         u"INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo, Stock_Actual, Pend_Servir)"
         u" VALUES (1, 1, 8, 3, 3)"_s,
         u"INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo, Stock_Actual)"
         u" VALUES (1, 2, 7, 99)"_s});
    m_panel = std::make_unique<nv::PanelDetalles>(nullptr);
    m_panel->resize(360, 400);
}

void tst_PanelDetalles::cleanup()
{
    m_panel.reset();
    m_base.reset();
}

void tst_PanelDetalles::price_order_data()
{
    QTest::addColumn<int>("cliente");
    QTest::addColumn<QStringList>("preparacion");
    QTest::addColumn<QString>("precio");
    const QString almacen = u"INSERT INTO Almacenes (Cod_Empresa, Codigo, Tarifa, TarifaProm) VALUES (1, 1, 1, 2)"_s;
    const QString venta = u"INSERT INTO Articulos_Tarifas VALUES (2, 7, 1, 10)"_s;
    const QString promocion = u"INSERT INTO Articulos_Tarifas VALUES (2, 7, 2, 8)"_s;
    const QString promocionCero = u"INSERT INTO Articulos_Tarifas VALUES (2, 7, 2, 0)"_s;
    const QString cliente = u"INSERT INTO Clientes VALUES (4, 5, 'C', %1, %2)"_s;
    const QString tarifa3 = u"INSERT INTO Articulos_Tarifas VALUES (2, 7, 3, 6.5)"_s;
    const QString propio = u"INSERT INTO Clientes_Art_PVP VALUES (1, 5, 7, '%1', '%2', %3)"_s;

    QTest::newRow("no tariff at all") << 0 << QStringList{} << u"0,00"_s;
    QTest::newRow("sale tariff of the warehouse") << 0 << QStringList{almacen, venta} << u"10,00"_s;
    QTest::newRow("promotion first") << 0 << QStringList{almacen, venta, promocion} << u"8,00"_s;
    QTest::newRow("promotion at 0 is none") << 0 << QStringList{almacen, venta, promocionCero} << u"10,00"_s;
    QTest::newRow("no customer skips customers")
        << 0 << QStringList{almacen, venta, cliente.arg(3).arg(0), tarifa3} << u"10,00"_s;
    QTest::newRow("customer's tariff") << 5 << QStringList{almacen, venta, cliente.arg(3).arg(0), tarifa3} << u"6,50"_s;
    QTest::newRow("customer without a sale tariff: warehouse")
        << 5 << QStringList{almacen, venta, cliente.arg(0).arg(3), tarifa3} << u"10,00"_s;
    QTest::newRow("customer's own price today")
        << 5 << QStringList{almacen, promocion, propio.arg(u"22/11/2026"_s, u"22/11/2026"_s, u"4.25"_s)} << u"4,25"_s;
    QTest::newRow("own price over") << 5
                                    << QStringList{almacen, promocion,
                                                   propio.arg(u"01/12/2025"_s, u"21/11/2026"_s, u"4.25"_s)}
                                    << u"8,00"_s;
    QTest::newRow("own price of 0 is none")
        << 5 << QStringList{almacen, promocion, propio.arg(u"01/01/2026"_s, u"31/12/2026"_s, u"0"_s)} << u"8,00"_s;
}

void tst_PanelDetalles::price_order()
{
    QFETCH(const int, cliente);
    QFETCH(const QStringList, preparacion);
    m_base->ejecutar(preparacion);
    m_panel->preparar(m_empresa, cliente);
    m_panel->DevPropiedades(u"7"_s);
    QTEST(texto(u"lblPvp"_s), "precio");
}

void tst_PanelDetalles::tariffs_are_looked_up_once()
{
    m_base->ejecutar({u"INSERT INTO Almacenes (Cod_Empresa, Codigo, Tarifa, TarifaProm) VALUES (1, 1, 1, 0)"_s,
                      u"INSERT INTO Articulos_Tarifas VALUES (2, 7, 1, 10)"_s,
                      u"INSERT INTO Articulos_Tarifas VALUES (2, 8, 1, 11)"_s,
                      u"INSERT INTO Articulos_Tarifas VALUES (2, 8, 2, 99)"_s});
    m_panel->preparar(m_empresa, 0);
    m_panel->DevPropiedades(u"7"_s);
    m_base->ejecutar(u"UPDATE Almacenes SET Tarifa = 2"_s);
    m_panel->DevPropiedades(u"8"_s);
    QCOMPARE(texto(u"lblPvp"_s), u"11,00"_s);
}

void tst_PanelDetalles::stock_and_notes_of_the_default_warehouse()
{
    m_panel->preparar(m_empresa, 0);
    m_panel->DevPropiedades(u"7"_s);
    QCOMPARE(texto(u"lblStock"_s), u"12,50"_s);
    QCOMPARE(texto(u"lblPendServir"_s), u"2,00"_s);
    QCOMPARE(texto(u"lblDisponible"_s), u"10,50"_s);
    QCOMPARE(texto(u"lblPendRecibir"_s), u"1000,00"_s);
    QCOMPARE(color(u"lblDisponible"_s), QColor(0, 0, 192));
    QCOMPARE(m_panel->findChild<QPlainTextEdit *>(u"txtObserv"_s)->toPlainText(), u"Nota <b>x</b>"_s);

    m_panel->DevPropiedades(u"8"_s);
    QCOMPARE(texto(u"lblDisponible"_s), u"0,00"_s);
    QCOMPARE(color(u"lblDisponible"_s), QColor(192, 0, 0));
}

void tst_PanelDetalles::nothing_stays_of_the_item_before()
{
    m_panel->preparar(m_empresa, 0);
    m_panel->DevPropiedades(u"7"_s);
    m_base->ejecutar(u"DELETE FROM Almacen_Articulos"_s);
    m_panel->DevPropiedades(u"8"_s);
    for (const QString &nombre : {u"lblStock"_s, u"lblPendServir"_s, u"lblDisponible"_s, u"lblPendRecibir"_s})
        QCOMPARE(texto(nombre), u"0,00"_s);
    QCOMPARE(m_panel->findChild<QPlainTextEdit *>(u"txtObserv"_s)->toPlainText(), QString());
}

void tst_PanelDetalles::pictures_data()
{
    QTest::addColumn<QString>("directorio"); // below a temporary folder; "-" for none at all
    QTest::addColumn<QString>("codigo");
    QTest::addColumn<bool>("hay");
    QTest::newRow("there") << u"\\fotos\\"_s << u"7"_s << true;
    QTest::newRow("larger than its place") << u"\\fotos\\"_s << u"70"_s << true;
    QTest::newRow("no file") << u"\\fotos\\"_s << u"8"_s << false;
    QTest::newRow("no separator is put in") << u"\\fotos"_s << u"7"_s << false;
    QTest::newRow("no directory") << u"-"_s << u"7"_s << false;
    QTest::newRow("a folder of that name") << u"\\fotos\\"_s << u"9"_s << false;
    QTest::newRow("no picture inside") << u"\\fotos\\"_s << u"10"_s << false;
}

void tst_PanelDetalles::pictures()
{
    QFETCH(const QString, directorio);
    QFETCH(const QString, codigo);
    QFETCH(const bool, hay);
    const QTemporaryDir temporal;
    const QDir raiz(temporal.path());
    QVERIFY(raiz.mkpath(u"fotos/9.jpg"_s));
    QImage imagen(40, 30, QImage::Format_RGB32);
    imagen.fill(Qt::red);
    QVERIFY(imagen.save(raiz.filePath(u"fotos/7.jpg"_s)));
    QVERIFY(imagen.scaled(4000, 3000).save(raiz.filePath(u"fotos/70.jpg"_s)));
    QFile roto(raiz.filePath(u"fotos/10.jpg"_s));
    QVERIFY(roto.open(QIODevice::WriteOnly) && roto.write("nada") == 4);
    roto.close();
    // With no directory set, a picture in the working directory is none of ours.
    const QString anterior = QDir::currentPath();
    QVERIFY(QDir::setCurrent(raiz.filePath(u"fotos"_s)));
    m_base->ejecutar(u"INSERT INTO Empresas (Codigo, DirImagenArt) VALUES (1, '%1')"_s.arg(
        directorio == u"-" ? QString() : temporal.path() + directorio));
    m_panel->preparar(m_empresa, 0);
    m_panel->DevPropiedades(codigo);
    QDir::setCurrent(anterior);
    QCOMPARE(!m_panel->findChild<nv::CajaImagen *>(u"picFoto"_s)->vacia(), hay);
    QCOMPARE(m_panel->findChild<QLabel *>(u"lblFotoCargando"_s)->isHidden(), hay);
    if (!hay)
        QCOMPARE(texto(u"lblFotoCargando"_s), u"<<< Imagen no disponible >>>"_s);
}

void tst_PanelDetalles::failure_keeps_what_was_filled()
{
    m_panel->preparar(m_empresa, 0);
    m_base->ejecutar(u"DROP TABLE Almacenes"_s);
    QVERIFY_EXCEPTION_THROWN(m_panel->DevPropiedades(u"7"_s), nv::Error);
    QCOMPARE(texto(u"lblStock"_s), u"12,50"_s);
}

void tst_PanelDetalles::marked_rows_give_a_list()
{
    nv::Rejilla rejilla;
    rejilla.setColumnas({{u""_s}, {u"Código"_s}, {u"Descripción"_s}});
    rejilla.anadir({{u"1"_s, u"5"_s, u"CINCO"_s}, {u"0"_s, u"6"_s, u"SEIS"_s}, {u"1"_s, u"7"_s, u"SIETE"_s}});
    const nv::Eleccion lista = nv::eleccionMarcada(rejilla, {1, 2}, 0, u"1");
    QCOMPARE(lista.codigo, u"|5|7"_s);
    QCOMPARE(lista.descripcion, u"|CINCO|SIETE"_s);
    QVERIFY(nv::eleccionMarcada(rejilla, {1, 2}, 0, u"X").codigo.isEmpty());
}

QTEST_MAIN(tst_PanelDetalles)
#include "tst_paneldetalles.moc"
