#include "Busquedas.h"
#include "support/Programa.h"
#include "support/Recortes.h"

#include <QSizeGrip>

using namespace nv::pruebas;

/// What every search dialog promises to the component that opens it, and to who stands before it.
class tst_Contrato : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data()
    {
        QTest::addColumn<int>("numero");
        for (int numero = 0; numero < 9; ++numero)
            QTest::addRow("model %d", numero) << numero;
    }
    void init()
    {
        QFETCH_GLOBAL(const int, numero);
        m.emplace();
        modelo = numero;
        porCriterios = modelo != 2 && modelo != 5 && modelo < 7;
    }
    void cleanup() { m.reset(); }

    void without_a_company_or_a_dialog_it_does_not_open()
    {
        const auto dialogo = nv::crearDialogoBusqueda(static_cast<qint16>(modelo), nullptr);
        QCOMPARE(numeroDeError([&] { dialogo->MostrarModal(); }), nv::errores::SinObjeto);
        const QString queja = u"El modelo de búsqueda %1 no existe. Revise "_s;
        for (const qint16 otro : {qint16{-1}, qint16{9}})
            QVERIFY(errorDe([=] { nv::crearDialogoBusqueda(otro, {}); }).descripcion.startsWith(queja.arg(otro)));
    }

    void a_session_starts_empty_finds_loses_and_finds()
    {
        bool espera = false, aviso = false;
        // As the component leaves them when it starts anew, and of a description typed in it.
        m->pedido.Busqueda_Codigo = u"0"_s;
        m->pedido.Familia_1 = m->pedido.Busqueda_Familia_1 = -1;
        m->pedido.GuardarBusqueda = true;
        m->abrir(modelo, [&](const Vista &v) {
            QVERIFY(v.enfocado(v.caja()));
            const auto *tirador = v.d.findChild<QSizeGrip *>();
            QVERIFY(tirador && tirador->isVisible() && v.d.windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
            for (const auto *caja : v.d.findChildren<QLineEdit *>(Qt::FindDirectChildrenOnly))
                QVERIFY2(!caja->placeholderText().isEmpty() || v.llevaRotulo(caja), qPrintable(caja->objectName()));
            if (!porCriterios)
                v.busca(u"  "_s);
            QCOMPARE(m->busquedas(), 0);
            QVERIFY(!v.campo("txtCodigo") || v.campo<QLineEdit>("txtCodigo")->text().isEmpty());
            QVERIFY(!porCriterios || v.campo("txtFamilia_1")->isEnabled());
            const QWidget *franja = v.campo("pctMsg");
            m->alBuscar = [&, franja] {
                espera = QGuiApplication::overrideCursor() != nullptr;
                aviso = franja && franja->isVisible();
            };
            v.busca(u"TORN"_s);
            QVERIFY2(espera && aviso == (!porCriterios || modelo == 1), "while the engine works it says so");
            QVERIFY(!QGuiApplication::overrideCursor() && (!franja || !franja->isVisible()));
            v.lista()->setFocus();
            v.lista()->setFilaActual(2);
            v.pulsa(Qt::Key_Up);
            QVERIFY(v.lista()->hasFocus() && v.lista()->filaActual() == 1);
            v.pulsa(Qt::Key_Up);
            QVERIFY(v.enfocado(v.caja()) && v.campo(v.caja())->isVisible());
            QCOMPARE(v.campo<QLineEdit>(v.caja())->selectedText(), u"TORN"_s);
            v.lista()->setFilaActual(0);
            v.aprieta("cmdAceptar");
            QVERIFY2(v.d.isVisible(), "the heading is no choice");
            for (const QString &texto : {u"NADA"_s, u"TORN"_s, u"NADA"_s}) {
                v.busca(texto);
                const bool hay = texto == u"TORN";
                QVERIFY(v.lista()->filasDatos() == (hay ? 2 : 0) && (hay || v.lista()->filaActual() == 0));
                QCOMPARE(v.lista()->hasFocus(), hay && (porCriterios || modelo == 5));
                QCOMPARE(v.campo<QLabel>("lblResultado")->text(),
                         hay ? u"1 de 2 artículos"_s : u"No hay artículos así"_s);
                QVERIFY(hay || (v.campo(v.caja())->isVisible() && v.enfocado(modelo == 7 ? "txtMarca" : v.caja())));
            }
            v.aprieta("cmdAceptar");
            QVERIFY2(v.d.isVisible() == porCriterios, "a free-text list without items is accepted");
        });
        QVERIFY(m->codigo.isEmpty() && m->copia().isEmpty());
    }

    void remembered_text_searches_at_once_and_a_search_that_fails_can_be_repeated()
    {
        m->pedido.Busqueda_Descripcion = u"TORN"_s;
        m->abrir(modelo, [this](const Vista &v) {
            if (modelo == 4) {
                QVERIFY2(v.lista()->filasDatos() == 0 && v.enfocado("txtNombre"), "it remembers nothing");
                v.busca(u"TORN"_s);
            }
            QCOMPARE(v.codigos(), tornillos());
            QCOMPARE(v.campo<QLineEdit>(v.caja())->text(), u"TORN"_s);
            QVERIFY(v.lista()->hasFocus() && v.lista()->filaActual() == 1);
            QVERIFY2(v.campo(v.caja())->isVisible() || modelo == 4, "the criteria stay in view");
            v.lista()->setFilaActual(2);
            m->quitar(u"Articulos"_s);
            m->conductor.con<QMessageBox>([&](QMessageBox &caja) {
                const QCursor *puntero = QGuiApplication::overrideCursor();
                QVERIFY2(!puntero || puntero->shape() == Qt::ArrowCursor, "the wait is over before the box comes");
                QVERIFY(v.celdas()->updatesEnabled() && (!v.campo("pctMsg") || !v.campo("pctMsg")->isVisible()));
                caja.close();
            });
            v.busca(u"TUERCA"_s);
            QVERIFY(v.d.isVisible() && !QGuiApplication::overrideCursor());
            QVERIFY2(v.codigos() == tornillos() && v.lista()->filaActual() == 2, "the former list stays");
            m->devolver(u"Articulos"_s);
            v.busca(u"TUERCA"_s);
            QCOMPARE(v.codigos(), u"3"_s);
            QCOMPARE(v.d.Busqueda_Descripcion, modelo == 4 ? u"TORN"_s : u"TUERCA"_s);
        });
        const CajaVista &caja = m->conductor.cajas().at(0);
        QVERIFY(caja.icono == QMessageBox::Critical && m->conductor.cajas().size() == 1);
        QCOMPARE(caja.titulo, !porCriterios                ? u"Recuperar_Registros"_s
                              : modelo == 3 || modelo == 4 ? u"frmBusqueda_Articulos_%1:Cargar"_s.arg(modelo + 1)
                                                           : u"Búsqueda de Artículos"_s);
        QCOMPARE(caja.texto.startsWith(u"0 - "), modelo == 2 || modelo > 6);
    }

    void a_read_that_fails_at_load_costs_no_more_than_itself()
    {
        QStringList tablas =
            porCriterios ? QStringList{u"Proveedores"_s, u"Familias_1"_s} : QStringList{u"Almacenes"_s};
        if (modelo == 1)
            tablas << u"Almacen_Tarifas"_s << u"Alternativos_Valores"_s << u"Almacenes"_s;
        m->pedido.Busqueda_Descripcion = u"TORN"_s;
        m->pedido.Busqueda_Proveedor = 7;
        for (const bool fija : {true, false}) {
            m->pedido.Familia_1 = m->pedido.Busqueda_Familia_1 = fija && porCriterios;
            for (const QString &tabla : tablas) {
                if (tabla == u"Familias_1" ? !fija : modelo == 4)
                    continue; // not read
                m->quitar(tabla);
                m->conductor.responde(u"Aceptar"_s);
                m->abrir(modelo, [&](const Vista &v) {
                    QCOMPARE(v.codigos(), porCriterios && modelo != 4 ? tornillos() : QString());
                    if (porCriterios) {
                        QVERIFY(v.campo("txtFamilia_1")->isEnabled() != fija && v.campo("txtFamilia_1")->isVisible());
                        v.busca(QString());
                        QVERIFY2(!fija || !v.codigos().contains(u"24"_s), "the family stays");
                    }
                    m->devolver(tabla);
                    v.busca(u"TORN"_s);
                    QCOMPARE(v.codigos(), tornillos());
                });
                QCOMPARE(m->conductor.cajas().back().icono, QMessageBox::Critical);
            }
        }
    }

    void accepting_gives_the_current_row_and_cancelling_nothing()
    {
        // Where, which key (none is the mouse: twice on the list, once on a button), and whether it accepts.
        const auto casos =
            tabla(u"lista→Return→sí;lista→Enter→sí;lista→→sí;cmdAceptar→Return→sí;cmdAceptar→→sí;cruz→→no;"
                  u"lista→Esc→no;caja→Esc→no;cmdCancelar→Return→no;cmdCancelar→→no"_s);
        m->pedido.Codigo = u"7"_s;
        for (const QStringList &caso : casos) {
            const bool acepta = caso[2] == u"sí";
            m->pedido.GuardarBusqueda = !acepta; // what is cancelled keeps no copy, nor what nobody asked to copy
            m->abrir(modelo, [&](const Vista &v) {
                v.busca(u"TORN"_s);
                v.lista()->setFilaActual(2);
                auto *donde = v.campo(caso[0] == u"caja" ? v.caja() : qPrintable(caso[0]));
                if (caso[0] == u"cruz") {
                    v.d.close();
                } else if (!caso[1].isEmpty()) {
                    (donde ? donde : v.lista())->setFocus();
                    v.pulsa(QKeySequence(caso[1])[0].key());
                } else if (donde) {
                    QTest::mouseClick(donde, Qt::LeftButton);
                } else {
                    v.dobleClic(2, v.columnaCodigo() + 1);
                    QVERIFY2(!v.d.isVisible() || v.columna(0) == u"|X", "there it marks");
                    if (modelo == 3 || modelo == 4)
                        v.pulsa(Qt::Key_Return);
                }
                QVERIFY2(!v.d.isVisible(), qPrintable(caso.join(u' ')));
            });
            QVERIFY2(m->copia().isEmpty(), qPrintable(caso.join(u' ')));
            QCOMPARE(m->codigo, acepta ? tornillos().last(1) : QString());
            QVERIFY(!acepta || m->descripcion == (modelo == 1 ? u"TORNILLO GRANDE"_s : u"TORNILLO ROJO"_s));
        }
    }

    /// Several lift the limit of the list; the copy holds every item found all the same.
    void accepting_several_gives_a_list_and_a_copy_that_fails_leaves_it_open()
    {
        const bool marcan = modelo != 0 && modelo != 6, equis = modelo == 3 || modelo == 4;
        m->empresa.valores[u"Articulos_BusquedaCantMax"_s] = u"1"_s;
        m->pedido.GuardarBusqueda = true;
        const auto aceptar = [&](bool varios, std::initializer_list<int> filas) {
            m->pedido.MultiResultado = varios;
            m->ejecutar({u"DELETE FROM Articulos_Buscar"_s, u"INSERT INTO Articulos_Buscar (Terminal, Cod_Articulo)"
                                                            u" VALUES ('CAJA-1', 77), ('CAJA-2', 78)"_s});
            m->abrir(modelo, [&](const Vista &v) {
                v.busca(porCriterios ? u"*GRANDE"_s : u"GRANDE"_s);
                QCOMPARE(v.codigos(), varios ? u"2|3"_s : u"2"_s);
                QVERIFY(!marcan || v.lista()->isColumnHidden(0) != varios);
                QCOMPARE(v.lista()->model()->index(0, 0).data(Qt::CheckStateRole).isValid(), marcan && !equis);
                if (equis) {
                    v.aprieta("cmdMarcar");
                    QVERIFY(v.columna(0) == (varios ? u"X|X"_s : u"X"_s) && v.celdas()->updatesEnabled());
                    v.aprieta("cmdDesmarcar");
                }
                v.marca(filas);
                QTest::keyClick(v.lista(), Qt::Key_Home);
                m->quitar(u"Articulos_Buscar"_s);
                m->conductor.responde(u"Aceptar"_s);
                QTest::keyClick(v.lista(), Qt::Key_Return);
                QVERIFY(v.d.isVisible() && v.d.MultiResultado == varios);
                m->devolver(u"Articulos_Buscar"_s);
                QTest::keyClick(v.lista(), Qt::Key_Return);
                QVERIFY(!v.d.isVisible());
            });
            QCOMPARE(m->filas(u"SELECT Terminal, Cod_Empresa, Cod_Articulo, Descripcion FROM Articulos_Buscar"
                              u" ORDER BY 3"_s)
                         .join(u' '),
                     u"CAJA-1|2|2|TORNILLO GRANDE CAJA-1|2|3|TUERCA GRANDE CAJA-2|NULL|78|NULL"_s);
        };
        aceptar(true, {2, 1});
        QCOMPARE(m->codigo, marcan ? u"|2|3"_s : u"2"_s);
        QVERIFY(m->varios && m->descripcion == (marcan ? u"|TORNILLO GRANDE|TUERCA GRANDE"_s : u"TORNILLO GRANDE"_s));
        aceptar(true, {2});
        QVERIFY(m->codigo == (!porCriterios ? u"3"_s : marcan ? u"|3"_s : u"2"_s) && m->varios == porCriterios);
        aceptar(true, {2, 2}); // and unmarked again
        QCOMPARE(m->codigo, equis ? QString() : u"2"_s);
        aceptar(false, {});
        QCOMPARE(m->codigo, u"2"_s);
        const CajaVista &caja = m->conductor.cajas().at(0);
        QCOMPARE(caja.titulo,
                 marcan && modelo != 1 ? u"frmBusqueda_Articulos_%1:cmdAceptar_Click"_s.arg(modelo + 1) : u"Error"_s);
        QVERIFY(caja.icono == QMessageBox::Critical && caja.texto.contains(u"Articulos_Buscar"));
    }

    void an_Enter_that_follows_at_once_takes_nothing()
    {
        m->pedido.Busqueda_Descripcion = u"TORN"_s;
        m->abrir(modelo, [this](const Vista &v) {
            const bool enCaja = modelo == 4;
            if (enCaja) {
                v.escribe(v.caja(), u"TORN"_s); // it remembers nothing
                v.campo("txtMarca")->setFocus();
                v.pulsa(Qt::Key_Return);
                v.campo("txtProveedor")->setFocus();
                v.pulsa(Qt::Key_Return);
            }
            v.pulsa(Qt::Key_Return);
            QVERIFY(v.d.isVisible() && v.lista()->hasFocus());
            v.pulsa(Qt::Key_Return);
            QVERIFY2(!v.d.isVisible(), "but a key pressed again does");
        });
    }

    void what_the_user_has_drawn_is_there_again_until_it_is_given_back()
    {
        const Organizacion organizacion;
        QSize tamano, natural;
        int ancho = 0, previsto = 0;
        const int columna = modelo == 8 ? 4 : modelo == 0 || modelo == 6 ? 0 : 1; // one that is not the description
        const auto abierta = [&](const QString &usuario, bool recuerda, const CatalogoBusquedas::Accion &accion) {
            m->empresa.valores[u"UsuarioActual"_s] = usuario;
            m->pedido.RecordarAspecto = recuerda;
            m->abrir(modelo, [&](const Vista &v) {
                tamano = v.d.size();
                ancho = v.lista()->columnWidth(columna);
                if (accion)
                    accion(v);
            });
        };
        abierta(u"ANA"_s, true, [&](const Vista &v) {
            natural = tamano;
            previsto = ancho;
            auto *titulos = v.lista()->horizontalHeader();
            v.d.resize(natural - QSize(30, 60));
            QCoreApplication::processEvents();
            previsto = v.lista()->columnWidth(columna);
            const int borde = titulos->sectionViewportPosition(columna) + previsto - 1;
            QTest::mousePress(titulos->viewport(), Qt::LeftButton, {}, {borde, 5});
            QTest::mouseMove(titulos->viewport(), {borde - 20, 5});
            QTest::mouseRelease(titulos->viewport(), Qt::LeftButton, {}, {borde - 20, 5});
        });
        abierta(u"EVA"_s, true, {});
        QVERIFY2(tamano == natural && ancho != previsto - 20, "another user's is as it was made");
        abierta(u"ANA"_s, false, {});
        QVERIFY2(tamano == natural && ancho != previsto - 20, "and so is the host's that wants none of it");
        abierta(u"ANA"_s, true, [&](const Vista &v) {
            QVERIFY(tamano == natural - QSize(30, 60) && qAbs(ancho - (previsto - 20)) < 2);
            QTest::keyClick(&v.d, Qt::Key_0, Qt::ControlModifier);
        });
        abierta(u"ANA"_s, true, {});
        QCOMPARE(tamano, natural);
    }

    void window_may_go_while_an_error_is_up()
    {
        for (const bool alAbrir : {true, false}) {
            auto *ventana = new QWidget;
            ventana->show();
            const auto dialogo = nv::crearDialogoBusqueda(static_cast<qint16>(modelo), ventana);
            dialogo->cEmpresa = &m->empresa;
            dialogo->Familia_1 = 1;
            const QString tabla = !alAbrir ? u"Articulos"_s : porCriterios ? u"Familias_1"_s : u"Almacenes"_s;
            m->quitar(tabla);
            if (!alAbrir)
                m->conductor.con<nv::BusquedaBase>([&](nv::BusquedaBase &d) { Vista{d, modelo}.busca(u"TORN"_s); });
            m->conductor.con<QMessageBox>([ventana](QMessageBox &) { delete ventana; });
            dialogo->MostrarModal();
            QVERIFY(m->conductor.terminado() && !dialogo.vivo() && !QGuiApplication::overrideCursor());
            m->devolver(tabla);
        }
    }

    void a_list_that_the_limit_has_cut_says_so_and_a_letter_in_it_begins_another_search()
    {
        m->empresa.valores[u"Articulos_BusquedaCantMax"_s] = u"2"_s;
        m->abrir(modelo, [](const Vista &v) {
            v.busca(u"T"_s);
            QCOMPARE(v.campo<QLabel>("lblResultado")->text(), u"1 de 2 mostrados, hay más"_s);
            v.lista()->setFocus();
            QTest::keyClicks(v.d.focusWidget(), u"c"_s);
            QTest::keyClicks(v.d.focusWidget(), u"l"_s);
            QVERIFY(v.enfocado(v.caja()) && v.campo(v.caja())->isVisible());
            QCOMPARE(v.campo<QLineEdit>(v.caja())->text().toLower(), u"cl"_s);
            if (v.porCriterios())
                return;
            v.escribe(v.caja(), u"TUERCA"_s);
            v.aprieta("cmdAceptar");
            QVERIFY2(v.d.isVisible() && v.codigos() == u"3", "what was typed is searched for before it is accepted");
            v.aprieta("cmdAceptar");
            QVERIFY(!v.d.isVisible());
        });
        m->empresa.valores[u"Articulos_BusquedaCantMax"_s] = u"0"_s;
        m->abrir(modelo, [](const Vista &v) {
            v.busca(u"T"_s);
            QVERIFY(v.campo<QLabel>("lblResultado")->text().endsWith(u"(«0») no deja mostrar nada"));
        });
    }

    void letters_of_any_size_are_whole_and_a_wider_window_is_for_the_descriptions()
    {
        for (const int puntos : {9, 14, 18}) {
            const auto letra = conLetra(puntos);
            m->abrir(modelo, [this](const Vista &v) {
                v.busca(u"TORN"_s);
                QCOMPARE(recortes(&v.d).join(u'\n'), QString());
                QCOMPARE(v.lista()->fontMetrics().height(), v.d.fontMetrics().height());
                v.d.resize(3900, 700); // wider than all columns of any
                QCoreApplication::processEvents();
                const int descripcion = v.columnaCodigo() + 1, antes = v.lista()->columnWidth(descripcion);
                v.d.resize(4000, 700);
                QCoreApplication::processEvents();
                QCOMPARE(v.lista()->columnWidth(descripcion) - antes, modelo == 8 ? 70 : 100);
                v.pulsa(Qt::Key_F6);
                QCOMPARE(recortes(&v.d).join(u'\n'), QString());
            });
        }
    }

private:
    /// The two screws, in the order of the dialog.
    QString tornillos() const { return modelo == 1 ? u"1|2"_s : u"2|1"_s; }
    std::optional<CatalogoBusquedas> m;
    int modelo = 0;
    bool porCriterios = false;
};

NV_PRUEBA(tst_Contrato)
#include "tst_contrato.moc"
