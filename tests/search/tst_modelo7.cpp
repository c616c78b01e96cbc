#include "search/frmBusqueda_Articulos_8.h"
#include "tst_textolibre_catalogo.h"

using namespace Qt::StringLiterals;
using namespace nv::pruebas;

namespace {

enum Columna { Marca, Codigo, Descripcion, MarcaArticulo, Bloqueado, Stock, Ean, Pvp, Referencia };

using Dialogo = frmBusqueda_Articulos_8;

} // namespace

class tst_Modelo7 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m = std::make_unique<CatalogoTextoLibre>(); }
    void cleanup() { m.reset(); }

    void enter_goes_from_the_text_to_the_brand_and_searches_there();
    void remembered_brand_alone_searches_nothing();
    void blocked_mark_depends_on_the_head_office();
    void grid_types_in_capitals_what_the_box_takes_as_typed();

private:
    void abrir(const std::function<void(Dialogo &)> &accion, const QString &texto = {}, const QString &marca = {})
    {
        Conductor conductor;
        Dialogo dialogo(nullptr);
        dialogo.Busqueda_Descripcion = texto;
        dialogo.Busqueda_MarcaNombre = marca;
        m->abrir<Dialogo>(conductor, dialogo, accion);
        QVERIFY(conductor.terminado());
    }

    std::unique_ptr<CatalogoTextoLibre> m;
};

void tst_Modelo7::enter_goes_from_the_text_to_the_brand_and_searches_there()
{
    abrir([this](Dialogo &d) {
        nvTextBox *texto = caja(d, "txtDescripcion");
        nvTextBox *marca = caja(d, "txtMarca");
        m->sentencias.clear();
        buscar(texto, u"Torn"_s);
        QVERIFY(marca->hasFocus());
        QTest::keyClick(texto, Qt::Key_Return);
        QVERIFY(m->sentencias.isEmpty());
        QTest::keyClick(marca, Qt::Key_Return);
        QCOMPARE(columna(d, Codigo), QStringList({u"11"_s, u"10"_s}));
        QCOMPARE(fila(d, 2), QStringList({u"0"_s, u"10"_s, u"TORNILLO ROJO GRANDE"_s, u"DUROCANTO"_s, u"0"_s, u"12,5"_s,
                                          u""_s, u"1.234,5678"_s, u"TOR127"_s}));
        QCOMPARE(d.Busqueda_Descripcion, u"Torn"_s);
        QCOMPARE(d.Busqueda_MarcaNombre, u""_s);
        QVERIFY(marca->hasFocus());

        buscar(marca, u"duro"_s);
        QCOMPARE(columna(d, Codigo), QStringList(u"10"_s));
        texto->clear();
        buscar(marca, u"roca"_s);
        QCOMPARE(columna(d, Codigo), QStringList({u"13"_s, u"10"_s}));
        QCOMPARE(d.Busqueda_MarcaNombre, u"roca"_s);
        buscar(marca, u"ro"_s);
        QCOMPARE(columna(d, MarcaArticulo), QStringList({u"ROCA"_s, u"DUROCANTO"_s}));

        marca->setFocus();
        QTest::keyClick(marca, Qt::Key_Down);
        QVERIFY(lista(d)->hasFocus());
        QCOMPARE(lista(d)->filaActual(), 0);

        marca->clear();
        m->sentencias.clear();
        QTest::keyClick(marca, Qt::Key_Return);
        QVERIFY(m->sentencias.isEmpty());
        QCOMPARE(d.Busqueda_MarcaNombre, u"ro"_s);
    });
}

void tst_Modelo7::remembered_brand_alone_searches_nothing()
{
    abrir(
        [](Dialogo &d) {
            QCOMPARE(caja(d, "txtMarca")->text(), u"ROCA"_s);
            QCOMPARE(lista(d)->filasDatos(), 0);
        },
        {}, u"ROCA"_s);
    abrir([](Dialogo &d) { QCOMPARE(columna(d, Codigo), QStringList(u"13"_s)); }, u"BAÑ"_s, u"ROCA"_s);
}

void tst_Modelo7::blocked_mark_depends_on_the_head_office()
{
    m->base.ejecutar({u"UPDATE Articulos SET MotivoBaja = 2 WHERE Codigo = 10"_s,
                      u"UPDATE Articulos SET Bloqueado = 1 WHERE Codigo = 11"_s,
                      u"UPDATE Almacen_Articulos SET Bloqueo = 1 WHERE Cod_Articulo = 12 AND Cod_Almacen = 1"_s});
    const auto bloqueados = [](Dialogo &d) {
        QStringList codigos;
        for (int fila = 1; fila < lista(d)->filas(); ++fila)
            if (lista(d)->texto(fila, Bloqueado) == u"1")
                codigos << lista(d)->texto(fila, Codigo);
        return codigos;
    };
    abrir(
        [&](Dialogo &d) {
            QCOMPARE(bloqueados(d), QStringList(u"10"_s));
            QVERIFY(lista(d)->model()->index(0, Bloqueado).data(Qt::CheckStateRole).isValid());
            // Read again by every search.
            m->empresa.valores[u"OficinaCentral"_s] = u"0"_s;
            caja(d, "txtMarca")->setFocus();
            QTest::keyClick(caja(d, "txtMarca"), Qt::Key_Return);
            QCOMPARE(bloqueados(d), QStringList({u"11"_s, u"12"_s}));
        },
        u"O"_s);
}

void tst_Modelo7::grid_types_in_capitals_what_the_box_takes_as_typed()
{
    abrir(
        [](Dialogo &d) {
            teclear(lista(d), u"ñ"_s);
            nvTextBox *texto = caja(d, "txtDescripcion");
            QVERIFY(texto->hasFocus());
            teclear(texto, u"u"_s);
            QCOMPARE(texto->text(), u"Ñu"_s);
        },
        u"O"_s);
}

QTEST_MAIN(tst_Modelo7)
#include "tst_modelo7.moc"
