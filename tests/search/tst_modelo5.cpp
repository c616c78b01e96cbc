#include "search/frmBusqueda_Articulos_6.h"
#include "tst_textolibre_catalogo.h"

#include <QCheckBox>

using namespace Qt::StringLiterals;
using namespace nv::pruebas;

namespace {

enum Columna { Marca, Codigo, Descripcion, Referencia, Medida, Pvp, BajoPedido, PrimerStock };

using Dialogo = frmBusqueda_Articulos_6;

const QColor Oferta(255, 255, 153);
const QColor NoMovido(180, 215, 255);
const QColor Pedido(255, 128, 0);

QColor color(Dialogo &d, int fila, int columna, Qt::ItemDataRole papel)
{
    return lista(d)->model()->index(fila - 1, columna).data(papel).value<QColor>();
}

/// Background of each cell of a row: O offer, N slow stock, P to order, "." none.
QString fondos(Dialogo &d, int fila)
{
    QString letras;
    for (int c = 0; c < lista(d)->model()->columnCount(); ++c) {
        const QColor fondo = color(d, fila, c, Qt::BackgroundRole);
        letras += !fondo.isValid()    ? u'.'
                  : fondo == Oferta   ? u'O'
                  : fondo == NoMovido ? u'N'
                  : fondo == Pedido   ? u'P'
                                      : u'?';
    }
    return letras;
}

} // namespace

class tst_Modelo5 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m.reset(); }
    void rows_show_size_prices_and_seven_stocks();
    void colours_follow_the_four_rules_in_order();
    void check_boxes_search_again_with_the_size_in_force();
    void size_is_taken_on_enter_only();
    void size_that_is_no_amount_is_an_error();
    void rows_before_a_failure_stay_and_can_be_accepted();

private:
    void abrir(const std::function<void(Dialogo &)> &accion, const QString &texto = {})
    {
        Conductor conductor;
        Dialogo dialogo(nullptr);
        dialogo.Busqueda_Descripcion = texto;
        m->abrir<Dialogo>(conductor, dialogo, accion);
        QVERIFY(conductor.terminado());
    }

    std::unique_ptr<CatalogoTextoLibre> m;
};

void tst_Modelo5::init()
{
    m = std::make_unique<CatalogoTextoLibre>();
    m->base.ejecutar({u"INSERT INTO Articulos_Tarifas (Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp) VALUES "
                      u"(2, 10, 2, 1000), (2, 12, 3, 2.5), (2, 11, 2, 1), (2, 11, 3, 1), (2, 13, 2, 0)"_s,
                      u"UPDATE Articulos SET Largo = 120, Altura = 40 WHERE Codigo = 10"_s,
                      u"UPDATE Articulos SET Ancho = 2.5 WHERE Codigo = 12"_s,
                      u"UPDATE Articulos SET BajoPedido = 1, Bloqueado = 1 WHERE Codigo = 11"_s,
                      u"UPDATE Articulos SET MotivoBaja = 2 WHERE Codigo = 12"_s,
                      u"INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo, Stock_Actual) VALUES "
                      u"(1, 11, 10, -2), (1, 10, 11, 1)"_s});
}

void tst_Modelo5::rows_show_size_prices_and_seven_stocks()
{
    abrir(
        [](Dialogo &d) {
            QVERIFY(lista(d)->hasFocus());
            QCOMPARE(fila(d, 0).mid(PrimerStock),
                     QStringList({u"CEN"_s, u"PTO"_s, u""_s, u""_s, u""_s, u"MAY"_s, u""_s}));
            QCOMPARE(fila(d, 1),
                     QStringList({u"0"_s, u"10"_s, u"TORNILLO ROJO GRANDE"_s, u"TOR127"_s, u"120 x 40"_s,
                                  u"1.234,5678"_s, u""_s, u"12,5"_s, u"3"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s, u"-2"_s}));
            QCOMPARE(lista(d)->texto(2, Medida), u" x 2,5"_s);
            buscar(caja(d, "txtBusqueda"), u"tornillo*rojo"_s);
            QCOMPARE(columna(d, Codigo), QStringList({u"11"_s, u"10"_s}));
            QCOMPARE(columna(d, BajoPedido), QStringList({u"X"_s, u""_s}));
            QVERIFY(lista(d)->hasFocus());
        },
        u"GRANDE"_s);
}

void tst_Modelo5::colours_follow_the_four_rules_in_order()
{
    abrir(
        [](Dialogo &d) {
            // 11: both tariffs, to order, blocked. 10: offer. 12: slow stock, discontinued.
            QCOMPARE(columna(d, Codigo), QStringList({u"11"_s, u"10"_s, u"12"_s}));
            QCOMPARE(fondos(d, 1), u"NNNNNNP.....N."_s);
            QCOMPARE(fondos(d, 2), u"OOOOOO.OO....."_s);
            QCOMPARE(fondos(d, 3), u"NNNNNN.N......"_s);
            for (int c = 0; c < lista(d)->model()->columnCount(); ++c) {
                QCOMPARE(color(d, 1, c, Qt::ForegroundRole), QColor(192, 0, 0));
                QVERIFY(!color(d, 2, c, Qt::ForegroundRole).isValid());
                QCOMPARE(color(d, 3, c, Qt::ForegroundRole), QColor(192, 0, 0));
            }
        },
        u"ROJO"_s);
    m->base.ejecutar(u"UPDATE Tarifas SET BackColor = CASE Cod_Tarifa WHEN 2 THEN -5 ELSE 0 END"_s);
    abrir(
        [](Dialogo &d) {
            QCOMPARE(fondos(d, 1), u"......P......."_s);
            QCOMPARE(fondos(d, 2), u".............."_s);
        },
        u"ROJO"_s);
}

void tst_Modelo5::check_boxes_search_again_with_the_size_in_force()
{
    abrir([this](Dialogo &d) {
        auto *oferta = d.findChild<QCheckBox *>(u"chkOferta"_s);
        auto *noMovidos = d.findChild<QCheckBox *>(u"chkNoMovidos"_s);
        m->sentencias.clear();
        oferta->click();
        QVERIFY(m->sentencias.isEmpty());
        buscar(caja(d, "txtBusqueda"), u"o"_s);
        QCOMPARE(columna(d, Codigo), QStringList({u"11"_s, u"10"_s}));
        noMovidos->click();
        QCOMPARE(columna(d, Codigo), QStringList({u"11"_s, u"10"_s, u"12"_s}));
        // The offer itself is 0 for 13: no price there.
        oferta->click();
        QCOMPARE(columna(d, Codigo), QStringList({u"11"_s, u"12"_s}));
        caja(d, "txtMedida")->setText(u"2,5"_s);
        noMovidos->click();
        QCOMPARE(lista(d)->filasDatos(), 5);
        QCOMPARE(d.Busqueda_Medida, nv::Moneda());
    });
}

void tst_Modelo5::size_is_taken_on_enter_only()
{
    {
        Conductor conductor;
        Dialogo dialogo(nullptr);
        dialogo.Busqueda_Descripcion = u"GRANDE"_s;
        dialogo.Busqueda_Medida = nv::Moneda::deTexto(u"2.5");
        m->abrir<Dialogo>(conductor, dialogo, [this](Dialogo &d) {
            QCOMPARE(caja(d, "txtMedida")->text(), u"2,5"_s);
            QCOMPARE(columna(d, Codigo), QStringList(u"12"_s));
            nvTextBox *medida = caja(d, "txtMedida");
            medida->setFocus();
            medida->clear();
            teclear(medida, u"a12.0"_s);
            QCOMPARE(medida->text(), u"12,0"_s);
            teclear(medida, u"5"_s);
            medida->setText(u"120"_s);
            QTest::keyClick(medida, Qt::Key_Return);
            QCOMPARE(d.Busqueda_Medida, nv::Moneda::deUnidades(120));
            QCOMPARE(columna(d, Codigo), QStringList(u"10"_s));
            for (const QString &ninguna : {u"0"_s, u""_s, u","_s}) {
                medida->setFocus();
                medida->setText(ninguna);
                QTest::keyClick(medida, Qt::Key_Return);
                QCOMPARE(d.Busqueda_Medida, nv::Moneda());
                QCOMPARE(lista(d)->filasDatos(), 2);
            }
            medida->setFocus();
            QTest::keyClick(medida, Qt::Key_Down);
            QVERIFY(lista(d)->hasFocus());
            QCOMPARE(lista(d)->filaActual(), 0);
            // A size alone is nothing to search for.
            caja(d, "txtBusqueda")->clear();
            medida->setText(u"2,5"_s);
            m->sentencias.clear();
            QTest::keyClick(medida, Qt::Key_Return);
            QVERIFY(m->sentencias.isEmpty());
            QCOMPARE(d.Busqueda_Medida, nv::Moneda());
        });
        QVERIFY(conductor.terminado());
    }
}

void tst_Modelo5::size_that_is_no_amount_is_an_error()
{
    Conductor conductor;
    Dialogo dialogo(nullptr);
    dialogo.cEmpresa = &m->empresa;
    conductor.con<Dialogo>([](Dialogo &d) {
        caja(d, "txtMedida")->setText(u"99999999999999999999"_s);
        buscar(caja(d, "txtBusqueda"), u"GRANDE"_s);
    });
    conductor.responde(u"Aceptar"_s);
    conductor.con<Dialogo>([](Dialogo &d) {
        QCOMPARE(d.Busqueda_Descripcion, u""_s);
        d.reject();
    });
    dialogo.MostrarModal();
    QVERIFY(conductor.terminado());
    QCOMPARE(conductor.cajas()[0].texto, u"Desbordamiento."_s);
}

void tst_Modelo5::rows_before_a_failure_stay_and_can_be_accepted()
{
    m->base.ejecutar(u"UPDATE Tarifas SET BackColor = 99999999999 WHERE Cod_Tarifa = 3"_s);
    Conductor conductor;
    Dialogo dialogo(nullptr);
    dialogo.cEmpresa = &m->empresa;
    dialogo.Busqueda_Descripcion = u"GRANDE"_s;
    dialogo.GuardarBusqueda = true;
    conductor.responde(u"Aceptar"_s);
    conductor.con<Dialogo>([](Dialogo &d) {
        QCOMPARE(columna(d, Codigo), QStringList(u"10"_s));
        QCOMPARE(fondos(d, 1), u"OOOOOO.OO....."_s);
        lista(d)->setFilaActual(1);
        QTest::keyClick(lista(d), Qt::Key_Return);
        QVERIFY(!d.isVisible());
    });
    dialogo.MostrarModal();
    QVERIFY(conductor.terminado());
    QCOMPARE(conductor.cajas()[0].titulo, u"Recuperar_Registros"_s);
    QCOMPARE(conductor.cajas()[0].texto, u"Desbordamiento."_s);
    QCOMPARE(conductor.cajas()[0].icono, QMessageBox::Critical);
    QCOMPARE(dialogo.Codigo, u"10"_s);
    QCOMPARE(m->base.filas(u"SELECT Cod_Articulo FROM Articulos_Buscar ORDER BY Cod_Articulo"_s),
             QStringList({u"10"_s, u"12"_s}));
}

QTEST_MAIN(tst_Modelo5)
#include "tst_modelo5.moc"
