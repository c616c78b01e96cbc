#include "Busquedas.h"
#include "platform/pickers/SelectorCodigo.h"
#include "support/Programa.h"

#include <QLabel>
#include <QScrollBar>

using namespace nv::pruebas;

/// What the dialogs with a panel of criteria share.
class tst_Criterios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data()
    {
        QTest::addColumn<int>("numero");
        for (const int numero : {0, 1, 3, 4, 6})
            QTest::addRow("model %d", numero) << numero;
    }
    void init()
    {
        QFETCH_GLOBAL(const int, numero);
        m.emplace();
        modelo = numero;
    }
    void cleanup() { m.reset(); }

    void criteria_find_their_items_and_are_remembered()
    {
        // Box=text, …; what they find; whether the next dialog starts with them.
        const auto casos =
            tabla(u"→10|841|24|2|1|3→no;txtNombre=t→2|1|3→sí;txtNombre=*ROJO→10|1→sí;txtNombre=T*G→2|3→sí;"
                  u"txtProveedor=7→2|1|3→sí;txtProveedor=0→10|841|24|2|1|3→no;txtProveedor=99999999999→→no;"
                  u"txtFamilia_1=1→2|1|3→sí;txtFamilia_1=1,txtFamilia_2=2→2|1→sí;"
                  u"txtFamilia_1=1,txtFamilia_2=2,txtFamilia_3=3→1→sí;txtFamilia_2=2→10|841|24|2|1|3→sí;"
                  u"txtFamilia_1=40000→→no;txtCodigo=1→10|1→sí;txtReferencia=R*1→10|1→sí;"
                  u"txtReferencia=R*1,txtProveedor=8→10→sí;txtMarca=1→841|1→sí;txtMarca=40000→→no;"
                  u"txtNombre=T,txtProveedor=7,txtFamilia_1=1→2|1|3→sí"_s);
        for (const QStringList &caso : casos) {
            const QString &escritos = caso[0];
            if (escritos.contains(conMarca() ? u"txtReferencia"_s : u"txtMarca"_s) ||
                (conMarca() && escritos.contains(u"txtCodigo"_s)))
                continue;
            static_cast<nv::CriteriosBusqueda &>(m->pedido) = {};
            m->abrir(modelo, [&](const Vista &v) {
                for (const QString &uno : escritos.split(u',', Qt::SkipEmptyParts))
                    v.escribe(uno.section(u'=', 0, 0).toLatin1().constData(), uno.section(u'=', 1));
                v.pulsa(Qt::Key_F9);
                QVERIFY2(v.codigos() == ordenados(caso[1]), qPrintable(escritos + u" found "_s + v.codigos()));
            });
            static_cast<nv::CriteriosBusqueda &>(m->pedido) = m->criterios;
            m->sentencias.clear();
            m->abrir(modelo, [&](const Vista &v) {
                const bool busca = caso[2] == u"sí" && modelo != 4;
                QVERIFY2(m->busquedas() == busca && v.codigos() == (busca ? ordenados(caso[1]) : QString()),
                         qPrintable(escritos));
            });
        }
    }

    void the_name_of_a_code_is_there_before_its_search()
    {
        m->abrir(modelo, [this](const Vista &v) {
            QString visto;
            m->alBuscar = [&] { visto = nombre(v, "txtProveedor"); };
            v.escribe("txtProveedor", u"7"_s);
            v.pulsa(Qt::Key_F9);
            m->alBuscar = {};
            QCOMPARE(visto, u"HIERROS"_s);
        });
    }

    void alt_and_the_letter_of_a_label_lead_to_its_field()
    {
        m->abrir(modelo, [](const Vista &v) {
            int llevan = 0;
            for (const auto *rotulo : v.d.findChildren<QLabel *>()) {
                if (!rotulo->buddy() || !rotulo->isVisible() || rotulo->buddy()->isAncestorOf(v.d.focusWidget()))
                    continue;
                const QKeySequence letra = QKeySequence::mnemonic(rotulo->text());
                QTest::keyClick(v.d.focusWidget(), letra[0].key(), Qt::AltModifier);
                QVERIFY2(v.enfocado(qPrintable(rotulo->buddy()->objectName())), qPrintable(rotulo->text()));
                ++llevan;
            }
            QVERIFY(llevan >= 5);
        });
    }

    void nothing_found_offers_more_and_an_apostrophe_is_not_handed_back()
    {
        m->pedido.Busqueda_Descripcion = u"O'R"_s;
        if (modelo != 4)
            m->conductor.responde(u"Aceptar"_s);
        m->abrir(modelo, [this](const Vista &v) {
            const auto *otra = v.campo("cmdContiene");
            v.busca(u"ROJO"_s);
            QVERIFY(v.codigos().isEmpty() && otra->isVisible());
            v.pulsa(Qt::Key_F8);
            QCOMPARE(v.codigos(), ordenados(u"10|1"_s));
            QVERIFY(!otra->isVisible());
            v.busca(u"*NADA"_s);
            QVERIFY2(!otra->isVisible(), "that has been sought everywhere");
            v.d.Busqueda_Descripcion = u"O'R"_s;
            m->conductor.responde(u"Aceptar"_s);
            v.busca(u"O'R"_s);
            QVERIFY(v.d.Busqueda_Descripcion.isEmpty() || modelo == 4);
        });
        QCOMPARE(m->conductor.cajas().back().texto, u"«O'R» lleva un apóstrofo; escriba * en su lugar."_s);
    }

    void fixed_family_is_locked_and_holds_and_remembered_codes_have_their_names()
    {
        m->pedido.Familia_1 = m->pedido.Busqueda_Familia_1 = 1;
        m->pedido.Familia_2 = m->pedido.Busqueda_Familia_2 = 2;
        m->pedido.Busqueda_Proveedor = 7;
        m->pedido.Busqueda_Marca = modelo == 3 ? 2 : 0;
        m->pedido.Busqueda_MarcaNombre = u"ajena"_s;
        m->pedido.Busqueda_Codigo = m->pedido.Busqueda_Referencia = conMarca() ? u"ajena"_s : QString();
        m->abrir(modelo, [this](const Vista &v) {
            QCOMPARE(v.codigos(), modelo == 4 ? QString() : modelo == 3 ? u"2"_s : ordenados(u"2|1"_s));
            for (const char *nivel : {"txtFamilia_1", "txtFamilia_2", "txtFamilia_3"})
                QVERIFY(!v.campo(nivel)->isEnabled());
            QVERIFY(nombre(v, "txtFamilia_2") == u"ROSCAS" && (modelo == 4 || nombre(v, "txtProveedor") == u"HIERROS"));
            QVERIFY(modelo != 3 || nombre(v, "txtMarca") == u"DUROCANTO");
            v.busca(QString());
            QCOMPARE(v.codigos(), modelo == 3 ? u"2"_s : ordenados(u"2|1"_s));
            QVERIFY(v.d.Busqueda_MarcaNombre == u"ajena" && v.d.Busqueda_Codigo == m->pedido.Busqueda_Codigo);
            // Its name is read again when the window comes back to the front, in silence.
            m->ejecutar(u"UPDATE Familias_1 SET Nombre = 'HIERRO'"_s);
            QEvent activada(QEvent::WindowActivate);
            QCoreApplication::sendEvent(&v.d, &activada);
            QCOMPARE(nombre(v, "txtFamilia_1"), u"HIERRO"_s);
            m->quitar(u"Familias_1"_s);
            QCoreApplication::sendEvent(&v.d, &activada);
            if (conMarca())
                return;
            if (oculta())
                v.pulsa(Qt::Key_F9);
            v.escribe("txtReferencia", u"X12Y"_s);
            v.pulsa(Qt::Key_Return);
            QCOMPARE(v.codigos(), u"2"_s);
        });
    }

    /// The last level searches; in the dialogs with a brand the supplier does, and the last level moves on.
    void enter_walks_the_levels_in_use()
    {
        m->empresa.familias[1].clear();
        m->empresa.familias[2] = u"Gama"_s;
        m->abrir(modelo, [this](const Vista &v) {
            QVERIFY(!v.campo("txtFamilia_2")->isVisible() && !v.campo("lblTFamilia_2")->isVisible());
            QVERIFY(v.campo("txtFamilia_3")->isVisible() && v.rotulo("lblTFamilia_3") == u"Gama:");
            v.escribe("txtFamilia_1", u"2"_s);
            v.pulsa(Qt::Key_Return);
            QVERIFY2(v.enfocado("txtFamilia_3") && v.lista()->filasDatos() == 0, "the level not used is skipped");
            v.pulsa(Qt::Key_Return);
            if (conMarca()) {
                QVERIFY(v.enfocado("txtMarca") && v.lista()->filasDatos() == 0);
                v.campo("txtProveedor")->setFocus();
                v.pulsa(Qt::Key_Return);
            }
            QVERIFY(v.codigos() == ordenados(u"10|841"_s) && v.lista()->hasFocus());
        });
        // The reference searches where no level follows: one, whichever, is enough for it to move on.
        for (int unico = -1; unico < 3 && !conMarca(); ++unico) {
            for (int nivel = 0; nivel < 3; ++nivel)
                m->empresa.familias[nivel] = nivel == unico ? u"Gama"_s : QString();
            m->abrir(modelo, [&](const Vista &v) {
                v.escribe("txtReferencia", u"R-1"_s);
                v.pulsa(Qt::Key_Return);
                QCOMPARE(v.codigos(), unico < 0 ? ordenados(u"10|1"_s) : QString());
                QVERIFY(unico != 0 || v.enfocado("txtFamilia_1"));
            });
        }
    }

    void tab_goes_along_the_criteria_and_a_level_empties_those_below()
    {
        m->ejecutar(u"INSERT INTO Alternativos_Valores (Tabla, Alternativo, id, Valor) VALUES (0, 0, 3, 'ROJO')"_s);
        QString orden =
            conMarca() ? u"txtNombre txtProveedor txtFamilia_1 txtFamilia_2 txtFamilia_3 txtMarca"_s
                       : u"txtNombre txtCodigo txtProveedor txtReferencia txtFamilia_1 txtFamilia_2 txtFamilia_3"_s;
        orden += QHash<int, QString>{
            {1, u" txtAlternativo1"_s}, {4, u" txtAlmacen txtRanking"_s}, {6, u" chkSurtido"_s}}[modelo];
        m->abrir(modelo, [&](const Vista &v) {
            const auto recorrer = [&] {
                for (const QString &caja : orden.split(u' ')) {
                    QVERIFY2(v.enfocado(caja.toLatin1().constData()), qPrintable(caja));
                    v.pulsa(Qt::Key_Tab);
                    QVERIFY2(!v.enfocado(caja.toLatin1().constData()), qPrintable(caja));
                }
            };
            recorrer();
            QVERIFY2(v.lista()->hasFocus() || modelo == 1, "there its tabs come next");
            for (const auto *rotulo : v.campo("fraFiltro")->findChildren<QLabel *>())
                QVERIFY2(!rotulo->buddy() || !rotulo->isVisible() ||
                             rotulo->geometry().intersects(rotulo->buddy()->geometry().adjusted(-2000, 8, 0, -8)),
                         "each label is on the line of its box");
            const int alto = v.lista()->height();
            v.busca(u"TORN"_s);
            QVERIFY(v.lista()->hasFocus() && v.campo("fraFiltro")->isVisible() != oculta());
            QCOMPARE(v.lista()->height() > alto, oculta());
            v.pulsa(oculta() ? Qt::Key_F9 : Qt::Key_Tab);
            QVERIFY(v.campo("fraFiltro")->isVisible() && v.lista()->height() == alto);
            recorrer(); // once there are rows the list comes first

            const auto texto = [&](const char *nivel) { return v.campo<nv::SelectorCodigo>(nivel)->Texto(); };
            v.escribe("txtFamilia_1", u"1"_s);
            v.escribe("txtFamilia_2", u"2"_s);
            v.escribe("txtFamilia_3", u"3"_s);
            v.pulsa(Qt::Key_Tab);
            QCOMPARE(nombre(v, "txtFamilia_3"), u"MACHO"_s);
            v.escribe("txtFamilia_2", u"5"_s);
            QVERIFY(texto("txtFamilia_1") == u"1" && texto("txtFamilia_3").isEmpty());
            v.escribe("txtFamilia_2", u"2"_s);
            v.escribe("txtFamilia_1", u"2"_s);
            QVERIFY(texto("txtFamilia_2").isEmpty());
            v.escribe("txtFamilia_2", u"2"_s);
            v.pulsa(Qt::Key_Tab);
            QVERIFY2(!v.campo<nv::SelectorCodigo>("txtFamilia_2")->Existe(), "another family's child");
        });
    }

    /// Model 1 asks its parameter for their size; 3 and 4 read all at once.
    void rows_come_in_blocks_until_all_are_there_or_one_breaks()
    {
        m->parametros.deAplicacion[u"nvArticulo.BuscadorM2.MaxCargaFilas"_s] = u"500"_s;
        m->articulosZZ(700);
        m->abrir(modelo, [this](const Vista &v) {
            v.busca(u"ZZ"_s);
            nv::Rejilla *lista = v.lista();
            QCOMPARE(lista->filasDatos(), conMarca() ? 700 : 500);
            QCOMPARE(lista->texto(500, v.columnaCodigo()), u"1500"_s);
            if (conMarca())
                return;
            lista->setFilaActual(498);
            lista->verticalScrollBar()->setValue(0);
            const int antes = lista->filasDatos(); // one more for the step that scrolls
            for (const int valor : {1, 0}) {       // downwards one more, upwards none
                lista->verticalScrollBar()->setValue(valor);
                QCOMPARE(lista->filasDatos(), antes + 1);
            }
            lista->setFilaActual(1);
            v.pulsa(Qt::Key_PageDown);
            QVERIFY2(lista->filasDatos() <= antes + 2, "far from the end it asks for no more");
            v.busca(u"ZZ"_s);
            v.pulsa(Qt::Key_End);
            QCOMPARE(lista->filasDatos(), 501);
            if (modelo != 1) {
                QCOMPARE(lista->filaActual(), 500);
                v.pulsa(Qt::Key_PageDown);
                QVERIFY2(lista->filasDatos() == 551 || lista->filasDatos() == 552, "fifty, and that of the scroll");
            }
            for (int i = 0; i < 100 && lista->filasDatos() < 700; ++i) {
                v.pulsa(Qt::Key_End);
                v.pulsa(Qt::Key_PageDown);
            }
            QCOMPARE(lista->texto(700, v.columnaCodigo()), u"1700"_s);
            v.pulsa(Qt::Key_PageDown);
            QCOMPARE(lista->filasDatos(), 700);
            if (modelo != 1)
                return;
            // No price that can be read, as older catalogues may hold one.
            m->ejecutar(u"REPLACE INTO Articulos_Tarifas VALUES (2, 1505, 4, 1e30)"_s);
            v.busca(u"ZZ"_s);
            m->conductor.responde(u"Aceptar"_s);
            v.pulsa(Qt::Key_PageDown);
            QTRY_VERIFY(m->conductor.terminado());
            QVERIFY(lista->filasDatos() == 504 && m->conductor.cajas()[0].texto.contains(u"1e+30 se sale"_s));
            lista->setFilaActual(7);
            m->conductor.responde(u"Aceptar"_s);
            v.busca(u"ZZ 050"_s);
            QVERIFY2(lista->filasDatos() == 504 && lista->filaActual() == 7, "the former list stays");
        });
    }

private:
    static QString nombre(const Vista &v, const char *selector)
    {
        return v.campo<nv::SelectorCodigo>(selector)->Nombre();
    }
    bool conMarca() const { return modelo == 3 || modelo == 4; }
    bool oculta() const { return modelo == 0 || modelo == 6; } ///< the list takes the place of the criteria
    /// The codes as the dialog orders them.
    QString ordenados(const QString &codigos) const
    {
        QStringList lista = codigos.split(u'|', Qt::SkipEmptyParts);
        if (modelo == 1)
            std::sort(lista.begin(), lista.end(), [](auto &a, auto &b) { return a.toInt() < b.toInt(); });
        return lista.join(u'|');
    }
    std::optional<CatalogoBusquedas> m;
    int modelo = 0;
};

NV_PRUEBA(tst_Criterios)
#include "tst_criterios.moc"
