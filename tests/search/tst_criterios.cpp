#include "Busquedas.h"
#include "platform/pickers/SelectorCodigo.h"
#include "support/Programa.h"

#include <QFrame>
#include <QLabel>
#include <QScrollBar>

using namespace nv::pruebas;
using nv::ContratoBusqueda;
using nv::SelectorCodigo;

/// What the dialogs with a panel of criteria share.
class tst_Criterios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void init() { m.emplace(); }
    void cleanup() { m.reset(); }

    void criteria_find_their_items_data();
    void criteria_find_their_items();
    void remembered_criteria_come_and_go();
    void fixed_family_is_locked_and_holds();
    void enter_walks_the_criteria();
    void enter_searches_where_there_are_no_levels();
    void changing_a_level_empties_those_below();
    void unused_levels_are_not_there();
    void several_results_lift_the_row_limit();
    void rows_come_in_blocks();
    void end_and_page_down_bring_every_row();
    void tab_goes_along_the_criteria();
    void list_that_takes_the_place_of_the_criteria();

private:
    static bool conMarca(int modelo) { return modelo == 3 || modelo == 4; }
    static bool oculta(int modelo) { return modelo == 0 || modelo == 6; }
    /// The codes as the dialog orders them.
    static QString ordenados(int modelo, QString codigos)
    {
        if (modelo != 1)
            return codigos;
        QStringList lista = codigos.split(u'|', Qt::SkipEmptyParts);
        std::sort(lista.begin(), lista.end(), [](const QString &a, const QString &b) { return a.toInt() < b.toInt(); });
        return lista.join(u'|');
    }

    std::optional<CatalogoBusquedas> m;
};

void tst_Criterios::initTestCase_data()
{
    QTest::addColumn<int>("modelo");
    for (const int modelo : {0, 1, 3, 4, 6})
        QTest::addRow("model %d", modelo) << modelo;
}

void tst_Criterios::criteria_find_their_items_data()
{
    QTest::addColumn<QString>("criterios"); // box=text, …
    QTest::addColumn<QString>("codigos");
    const QString todos = u"10|841|24|2|1|3"_s;
    QTest::newRow("nothing asked") << QString() << todos;
    QTest::newRow("beginning") << u"txtNombre=t"_s << u"2|1|3"_s;
    QTest::newRow("wildcard in front") << u"txtNombre=*ROJO"_s << u"10|1"_s;
    QTest::newRow("wildcard inside") << u"txtNombre=T*G"_s << u"2|3"_s;
    QTest::newRow("supplier, any reference") << u"txtProveedor=7"_s << u"2|1|3"_s;
    QTest::newRow("supplier 0 is none") << u"txtProveedor=0"_s << todos;
    QTest::newRow("supplier beyond any") << u"txtProveedor=99999999999"_s << QString();
    QTest::newRow("family") << u"txtFamilia_1=1"_s << u"2|1|3"_s;
    QTest::newRow("two levels") << u"txtFamilia_1=1,txtFamilia_2=2"_s << u"2|1"_s;
    QTest::newRow("three levels") << u"txtFamilia_1=1,txtFamilia_2=2,txtFamilia_3=3"_s << u"1"_s;
    QTest::newRow("level 2 alone is no criterion") << u"txtFamilia_2=2"_s << todos;
    QTest::newRow("family beyond any") << u"txtFamilia_1=40000"_s << QString();
    QTest::newRow("code") << u"txtCodigo=1"_s << u"10|1"_s;
    QTest::newRow("reference") << u"txtReferencia=R*1"_s << u"10|1"_s;
    QTest::newRow("reference of a supplier") << u"txtReferencia=R*1,txtProveedor=8"_s << u"10"_s;
    QTest::newRow("brand") << u"txtMarca=1"_s << u"841|1"_s;
    QTest::newRow("brand beyond any") << u"txtMarca=40000"_s << QString();
    QTest::newRow("all of them") << u"txtNombre=T,txtProveedor=7,txtFamilia_1=1"_s << u"2|1|3"_s;
}

void tst_Criterios::criteria_find_their_items()
{
    QFETCH_GLOBAL(const int, modelo);
    QFETCH(const QString, criterios);
    QFETCH(const QString, codigos);
    if (criterios.contains(conMarca(modelo) ? u"txtReferencia"_s : u"txtMarca"_s) ||
        (conMarca(modelo) && criterios.contains(u"txtCodigo"_s)))
        return;
    m->abrir(modelo, [&](const Vista &v) {
        for (const QString &uno : criterios.split(u',', Qt::SkipEmptyParts))
            v.escribe(uno.section(u'=', 0, 0).toLatin1().constData(), uno.section(u'=', 1));
        v.pulsa(Qt::Key_F9);
        QCOMPARE(v.codigos(), ordenados(modelo, codigos));
    });
}

void tst_Criterios::remembered_criteria_come_and_go()
{
    QFETCH_GLOBAL(const int, modelo);
    nv::CriteriosBusqueda antes;
    antes.Busqueda_Proveedor = 7;
    antes.Busqueda_Familia_1 = 1;
    antes.Busqueda_Familia_2 = 2;
    antes.Busqueda_Codigo = antes.Busqueda_Referencia = conMarca(modelo) ? u"de otra"_s : QString();
    antes.Busqueda_Marca = modelo == 3 ? qint16{1} : qint16{0};
    antes.Busqueda_MarcaNombre = u"ajena"_s;
    const auto preparar = [&](ContratoBusqueda &d) { static_cast<nv::CriteriosBusqueda &>(d) = antes; };
    m->abrir(modelo, preparar, [&](const Vista &v) {
        if (modelo == 4)
            return;
        QCOMPARE(v.codigos(), modelo == 3 ? u"1"_s : ordenados(modelo, u"2|1"_s));
        QCOMPARE(v.campo<SelectorCodigo>("txtProveedor")->Nombre(), u"HIERROS"_s);
        QCOMPARE(v.campo<SelectorCodigo>("txtFamilia_2")->Nombre(), u"ROSCAS"_s);
        QVERIFY(v.campo("txtFamilia_1")->isEnabled());
    });
    QCOMPARE(m->criterios.Busqueda_Proveedor, 7);
    QCOMPARE(m->criterios.Busqueda_MarcaNombre, u"ajena"_s);
    // Each one alone starts the search; codes that the component cannot hold are none.
    for (const auto &[caja, texto] : {std::pair("txtNombre", "T*"),
                                      {"txtProveedor", "8"},
                                      {"txtFamilia_1", "40000"},
                                      {"txtCodigo", "1"},
                                      {"txtReferencia", "R"},
                                      {"txtMarca", "3"}}) {
        const QString escrito = QLatin1StringView(texto);
        bool hay = true;
        QString encontrados;
        m->abrir(modelo, [&](const Vista &v) {
            hay = v.campo(caja) != nullptr;
            if (!hay)
                return;
            v.escribe(caja, escrito);
            v.pulsa(Qt::Key_F9);
            encontrados = v.codigos();
        });
        const nv::CriteriosBusqueda escritos = m->criterios;
        m->sentencias.clear();
        m->abrir(
            modelo, [&](ContratoBusqueda &d) { static_cast<nv::CriteriosBusqueda &>(d) = escritos; },
            [&](const Vista &v) {
                const bool busca = hay && modelo != 4 && escrito != u"40000";
                QCOMPARE(m->sentencias.filter(u"FROM Articulos a"_s).isEmpty(), !busca);
                if (busca)
                    QVERIFY2(v.codigos() == encontrados && !encontrados.isEmpty(), caja);
            });
    }
}

void tst_Criterios::fixed_family_is_locked_and_holds()
{
    QFETCH_GLOBAL(const int, modelo);
    m->abrir(
        modelo,
        [](ContratoBusqueda &d) {
            d.Familia_1 = d.Busqueda_Familia_1 = 1;
            d.Familia_2 = d.Busqueda_Familia_2 = 2;
        },
        [&](const Vista &v) {
            QCOMPARE(v.lista()->filasDatos(), modelo == 4 ? 0 : 2);
            for (const char *nivel : {"txtFamilia_1", "txtFamilia_2", "txtFamilia_3"})
                QVERIFY(!v.campo(nivel)->isEnabled());
            QCOMPARE(v.campo<SelectorCodigo>("txtFamilia_2")->Nombre(), u"ROSCAS"_s);
            v.busca(QString());
            QCOMPARE(v.codigos(), ordenados(modelo, u"2|1"_s));
            // Its name is read again when the window comes back to the front, in silence.
            m->ejecutar(u"UPDATE Familias_1 SET Nombre = 'HIERRO'"_s);
            QEvent activada(QEvent::WindowActivate);
            QCoreApplication::sendEvent(&v.d, &activada);
            QCOMPARE(v.campo<SelectorCodigo>("txtFamilia_1")->Nombre(), u"HIERRO"_s);
            m->quitar(u"Familias_1"_s);
            QCoreApplication::sendEvent(&v.d, &activada);
            if (conMarca(modelo))
                return;
            v.busca(QString());
            if (oculta(modelo))
                v.pulsa(Qt::Key_F9);
            v.escribe("txtReferencia", u"R-2"_s);
            v.pulsa(Qt::Key_Return);
            QCOMPARE(v.codigos(), u"2"_s);
        });
}

/// The last level searches; in the dialogs with a brand the supplier does, and the last level moves on.
void tst_Criterios::enter_walks_the_criteria()
{
    QFETCH_GLOBAL(const int, modelo);
    m->empresa.familias[1].clear();
    m->abrir(modelo, [&](const Vista &v) {
        if (!conMarca(modelo)) {
            v.campo("txtReferencia")->setFocus();
            v.pulsa(Qt::Key_Return);
            QVERIFY2(v.enfocado(modelo == 1 ? "txtAlternativo1" : "txtFamilia_1") || v.enfocado("txtFamilia_1"),
                     "the reference searches only where no level follows");
        }
        v.escribe("txtFamilia_1", u"2"_s);
        v.pulsa(Qt::Key_Return);
        QVERIFY2(v.enfocado("txtFamilia_3"), "the level that is not used is skipped");
        QCOMPARE(v.lista()->filasDatos(), 0);
        v.pulsa(Qt::Key_Return);
        if (conMarca(modelo)) {
            QVERIFY(v.enfocado("txtMarca") && v.lista()->filasDatos() == 0);
            v.campo("txtProveedor")->setFocus();
            v.pulsa(Qt::Key_Return);
        }
        QCOMPARE(v.codigos(), ordenados(modelo, u"10|841"_s));
    });
}

void tst_Criterios::enter_searches_where_there_are_no_levels()
{
    QFETCH_GLOBAL(const int, modelo);
    if (conMarca(modelo))
        return;
    for (QString &nombre : m->empresa.familias)
        nombre.clear();
    m->abrir(modelo, [&](const Vista &v) {
        v.escribe("txtReferencia", u"R-1"_s);
        v.pulsa(Qt::Key_Return);
        QCOMPARE(v.codigos(), ordenados(modelo, u"10|1"_s));
    });
    // One level, whichever, is enough for it to move on.
    for (QString &nombre : m->empresa.familias) {
        nombre = u"Gama"_s;
        m->abrir(modelo, [&](const Vista &v) {
            v.campo("txtReferencia")->setFocus();
            v.pulsa(Qt::Key_Return);
            QCOMPARE(v.lista()->filasDatos(), 0);
        });
        nombre.clear();
    }
}

void tst_Criterios::changing_a_level_empties_those_below()
{
    QFETCH_GLOBAL(const int, modelo);
    m->abrir(modelo, [&](const Vista &v) {
        const auto texto = [&](const char *nivel) { return v.campo<SelectorCodigo>(nivel)->Texto(); };
        v.escribe("txtFamilia_1", u"1"_s);
        v.escribe("txtFamilia_2", u"2"_s);
        v.escribe("txtFamilia_3", u"3"_s);
        v.pulsa(Qt::Key_Tab);
        QCOMPARE(v.campo<SelectorCodigo>("txtFamilia_3")->Nombre(), u"MACHO"_s);
        v.escribe("txtFamilia_2", u"5"_s);
        QVERIFY(texto("txtFamilia_3").isEmpty() && texto("txtFamilia_1") == u"1");
        v.escribe("txtFamilia_2", u"2"_s);
        v.escribe("txtFamilia_3", u"3"_s);
        v.escribe("txtFamilia_1", u"2"_s);
        QVERIFY(texto("txtFamilia_2").isEmpty() && texto("txtFamilia_3").isEmpty());
        v.escribe("txtFamilia_2", u"2"_s);
        v.pulsa(Qt::Key_Tab);
        QVERIFY2(!v.campo<SelectorCodigo>("txtFamilia_2")->Existe(), "another family's child");
    });
}

void tst_Criterios::unused_levels_are_not_there()
{
    QFETCH_GLOBAL(const int, modelo);
    m->empresa.familias[1].clear();
    m->empresa.familias[2] = u"Gama"_s;
    m->abrir(modelo, [&](const Vista &v) {
        QVERIFY(!v.campo("txtFamilia_2")->isVisible() && !v.campo("lblTFamilia_2")->isVisible());
        QCOMPARE(v.campo<QLabel>("lblTFamilia_3")->text(), u"Gama:"_s);
        QVERIFY(v.campo("txtFamilia_3")->isVisible());
    });
}

void tst_Criterios::several_results_lift_the_row_limit()
{
    QFETCH_GLOBAL(const int, modelo);
    m->empresa.valores[u"Articulos_BusquedaCantMax"_s] = u"2"_s;
    for (const bool varios : {false, true}) {
        m->abrir(
            modelo, [=](ContratoBusqueda &d) { d.MultiResultado = varios; },
            [&](const Vista &v) {
                v.busca(QString());
                QCOMPARE(v.lista()->filasDatos(), varios ? 6 : 2);
                if (!oculta(modelo))
                    QCOMPARE(v.lista()->isColumnHidden(0), !varios);
            });
    }
}

/// Model 1 asks its parameter for their size; 3 and 4 read all at once.
void tst_Criterios::rows_come_in_blocks()
{
    QFETCH_GLOBAL(const int, modelo);
    m->parametros.deAplicacion[u"nvArticulo.BuscadorM2.MaxCargaFilas"_s] = u"500"_s;
    m->articulosZZ(700);
    m->abrir(modelo, [&](const Vista &v) {
        v.busca(u"ZZ"_s);
        nv::Rejilla *lista = v.lista();
        const int todas = 700;
        QCOMPARE(lista->filasDatos(), conMarca(modelo) ? todas : 500);
        QCOMPARE(lista->texto(500, v.columnaCodigo()), u"1500"_s);
        if (conMarca(modelo))
            return;
        lista->setFilaActual(498);
        lista->verticalScrollBar()->setValue(0);
        const int antes = lista->filasDatos();
        QVERIFY2(antes <= 501, "one for the step that scrolls");
        lista->verticalScrollBar()->setValue(1);
        QCOMPARE(lista->filasDatos(), antes + 1);
        lista->verticalScrollBar()->setValue(0);
        QCOMPARE(lista->filasDatos(), antes + 1);
        if (modelo == 1) { // any of the last 500 rows asks for more
            lista->setFilaActual(antes + 2 - 501);
            const int ahora = lista->filasDatos();
            v.pulsa(Qt::Key_PageDown);
            QVERIFY2(lista->filasDatos() <= ahora + 1, "not yet");
            v.pulsa(Qt::Key_PageDown);
            QCOMPARE(lista->filasDatos(), todas);
        }
    });
}

void tst_Criterios::end_and_page_down_bring_every_row()
{
    QFETCH_GLOBAL(const int, modelo);
    if (conMarca(modelo))
        return;
    m->parametros.deAplicacion[u"nvArticulo.BuscadorM2.MaxCargaFilas"_s] = u"500"_s;
    m->articulosZZ(620);
    m->abrir(modelo, [&](const Vista &v) {
        v.busca(u"ZZ"_s);
        nv::Rejilla *lista = v.lista();
        v.pulsa(Qt::Key_End);
        QCOMPARE(lista->filasDatos(), 501);
        if (modelo != 1) {
            QCOMPARE(lista->filaActual(), 500);
            v.pulsa(Qt::Key_PageDown);
            QVERIFY2(lista->filasDatos() == 551 || lista->filasDatos() == 552,
                     "fifty, and the step that the key scrolls");
        }
        for (int i = 0; i < 100 && lista->filasDatos() < 620; ++i) {
            v.pulsa(Qt::Key_End);
            v.pulsa(Qt::Key_PageDown);
        }
        QCOMPARE(lista->texto(620, v.columnaCodigo()), u"1620"_s);
        v.pulsa(Qt::Key_PageDown);
        QCOMPARE(lista->filasDatos(), 620);
    });
}

void tst_Criterios::tab_goes_along_the_criteria()
{
    QFETCH_GLOBAL(const int, modelo);
    QByteArrayList orden{"txtNombre"};
    if (conMarca(modelo))
        orden << "txtProveedor"
              << "txtFamilia_1"
              << "txtFamilia_2"
              << "txtFamilia_3"
              << "txtMarca";
    else
        orden << "txtCodigo"
              << "txtProveedor"
              << "txtReferencia"
              << "txtFamilia_1"
              << "txtFamilia_2"
              << "txtFamilia_3";
    if (modelo == 4)
        orden << "txtAlmacen"
              << "txtRanking";
    if (modelo == 1)
        orden << "txtAlternativo1";
    if (modelo == 6)
        orden << "chkSurtido";
    m->abrir(modelo, [&](const Vista &v) {
        const auto recorrer = [&] {
            for (const QByteArray &nombre : std::as_const(orden)) {
                QVERIFY2(v.enfocado(nombre.constData()), nombre.constData());
                v.pulsa(Qt::Key_Tab);
            }
        };
        recorrer();
        v.busca(u"TORN"_s);
        QVERIFY(v.lista()->hasFocus());
        if (oculta(modelo))
            v.pulsa(Qt::Key_F9);
        else
            v.pulsa(Qt::Key_Tab);
        recorrer(); // once there are rows the list comes first
    });
}

void tst_Criterios::list_that_takes_the_place_of_the_criteria()
{
    QFETCH_GLOBAL(const int, modelo);
    m->abrir(modelo, [&](const Vista &v) {
        auto *panel = v.campo("fraFiltro");
        const int antes = v.lista()->height();
        v.busca(u"TORN"_s);
        QCOMPARE(panel->isVisible(), !oculta(modelo));
        QCOMPARE(v.lista()->height() > antes, oculta(modelo));
        if (!oculta(modelo))
            return;
        v.pulsa(Qt::Key_F9);
        QVERIFY(panel->isVisible() && v.enfocado("txtNombre") && v.lista()->height() == antes);
    });
}

NV_PRUEBA(tst_Criterios)
#include "tst_criterios.moc"
