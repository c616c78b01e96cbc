#include "search/frmBusqueda_Articulos_9.h"
#include "tst_textolibre_catalogo.h"

#include <QHeaderView>
#include <QScrollBar>

using namespace Qt::StringLiterals;
using namespace nv::pruebas;

namespace {

enum Columna { Marca, Familia, Codigo, Descripcion, MarcaArticulo, Stock, Ean, Pvp, Referencia };

using Dialogo = frmBusqueda_Articulos_9;

} // namespace

class tst_Modelo8 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m = std::make_unique<CatalogoTextoLibre>(); }
    void cleanup() { m.reset(); }

    void only_saleable_items_in_family_order();
    void one_word_also_finds_the_brand();
    void accept_takes_code_and_description_from_their_columns();
    void resizing_shares_the_width();

private:
    void abrir(const std::function<void(Dialogo &)> &accion, const QString &texto, bool varios = false)
    {
        Conductor conductor;
        Dialogo dialogo(nullptr);
        dialogo.Busqueda_Descripcion = texto;
        dialogo.MultiResultado = varios;
        m->abrir<Dialogo>(conductor, dialogo, accion);
        QVERIFY(conductor.terminado());
    }

    std::unique_ptr<CatalogoTextoLibre> m;
};

void tst_Modelo8::only_saleable_items_in_family_order()
{
    const auto codigos = [](QStringList esperados) {
        return [esperados](Dialogo &d) { QCOMPARE(columna(d, Codigo), esperados); };
    };
    // 12 was sold last 31 days ago; 841 has neither stock nor price.
    abrir(
        [](Dialogo &d) {
            QCOMPARE(columna(d, Codigo), QStringList({u"13"_s, u"11"_s, u"10"_s}));
            QCOMPARE(fila(d, 0).mid(0, 2), QStringList({u""_s, u"Familia"_s}));
            QCOMPARE(fila(d, 3), QStringList({u"0"_s, u"FERRETERÍA"_s, u"10"_s, u"TORNILLO ROJO GRANDE"_s,
                                              u"DUROCANTO"_s, u"12,5"_s, u""_s, u"1.234,5678"_s, u"TOR127"_s}));
            for (const int oculta : {int(Marca), int(Codigo), int(Ean), int(Referencia)})
                QVERIFY(lista(d)->isColumnHidden(oculta));
            QVERIFY(lista(d)->hasFocus());
            buscar(caja(d, "txtDescripcion"), u"bañ"_s);
            QCOMPARE(d.Busqueda_Descripcion, u"bañ"_s);
            QVERIFY(caja(d, "txtDescripcion")->hasFocus());
        },
        u"*"_s);
    m->base.ejecutar(u"UPDATE Articulos SET MotivoBaja = 1 WHERE Codigo = 13"_s);
    abrir(codigos({u"11"_s, u"10"_s}), u"*"_s);
    m->base.ejecutar(u"UPDATE Almacen_Articulos SET Bloqueo = 1 WHERE Cod_Articulo = 11"_s);
    abrir(codigos({u"10"_s}), u"*"_s);
    m->base.ejecutar(u"UPDATE Articulos_Tarifas SET Pvp = 0 WHERE Cod_Articulo = 10 AND Cod_Tarifa = 1"_s);
    abrir(codigos({}), u"*"_s);
}

void tst_Modelo8::one_word_also_finds_the_brand()
{
    abrir(
        [](Dialogo &d) {
            QCOMPARE(columna(d, Codigo), QStringList({u"13"_s, u"10"_s}));
            for (const QString &palabras : {u"ROCA "_s, u"ROCA BAÑ"_s}) {
                buscar(caja(d, "txtDescripcion"), palabras);
                QCOMPARE(columna(d, Codigo), QStringList(u"13"_s));
            }
        },
        u"ROCA"_s);
}

void tst_Modelo8::accept_takes_code_and_description_from_their_columns()
{
    abrir(
        [](Dialogo &d) {
            for (const int fila : {1, 3}) {
                lista(d)->setFilaActual(fila);
                QTest::keyClick(lista(d), Qt::Key_Space);
            }
            QTest::keyClick(lista(d), Qt::Key_Return);
            QCOMPARE(d.Codigo, u"|13|10"_s);
            QCOMPARE(d.Descripcion, u"|BAÑERA ROCA|TORNILLO ROJO GRANDE"_s);
            QVERIFY(d.MultiResultado);
        },
        u"*"_s, true);
}

void tst_Modelo8::resizing_shares_the_width()
{
    abrir(
        [](Dialogo &d) {
            const auto ancho = [&d](int columna) { return lista(d)->columnWidth(columna); };
            const int familia = ancho(Familia);
            const int descripcion = ancho(Descripcion);
            const int marca = ancho(MarcaArticulo);
            const QSize antes = d.size();
            int visibles = 0;
            for (int columna = Marca; columna <= Referencia; ++columna)
                visibles += lista(d)->isColumnHidden(columna) ? 0 : ancho(columna);
            QCOMPARE(lista(d)->horizontalHeader()->length(), visibles);
            QCOMPARE(lista(d)->horizontalScrollBar()->maximum(), 0);
            for (const int mas : {3, 55, 100}) {
                d.resize(antes + QSize(mas, 0));
                QCoreApplication::processEvents();
            }
            QCOMPARE(ancho(Familia), familia);
            QCOMPARE(lista(d)->horizontalHeader()->length(), lista(d)->viewport()->width());
            QCOMPARE(ancho(Descripcion), descripcion + 70);
            QCOMPARE(ancho(MarcaArticulo), marca + 20);
            d.resize(antes);
            QCoreApplication::processEvents();
            QCOMPARE(ancho(Descripcion), descripcion);
            QCOMPARE(ancho(MarcaArticulo), marca);
        },
        u"*"_s);
}

QTEST_MAIN(tst_Modelo8)
#include "tst_modelo8.moc"
