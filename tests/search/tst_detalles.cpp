#include "Busquedas.h"
#include "platform/widgets/Twips.h"
#include "platform/widgets/nvCheckBox.h"
#include "search/piezas/CajaImagen.h"
#include "search/piezas/PanelDetalles.h"
#include "search/piezas/PanelSurtido.h"
#include "support/Contraste.h"
#include "support/Programa.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QScreen>
#include <QTemporaryDir>

using namespace nv::pruebas;

/// The details beside the list, with the assortment; best sellers of a warehouse.
class tst_Detalles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m.emplace(); }
    void cleanup() { m.reset(); }

    void price_order()
    {
        // Customer; sale and promotion tariffs of the warehouse and of the customer; the customer's own price.
        const auto casos =
            tabla(u"0→0, 0→→→0,00;0→11, 0→→→10,00;0→11, 12→→→8,00;0→11, 15→→→10,00;0→11, 15→13, 0→→10,00;"
                  u"5→11, 15→13, 0→→6,50;5→11, 12→13, 14→→3,00;5→11, 15→0, 13→→10,00;"
                  u"5→11, 12→→'22/11/2026', '22/11/2026', 4.25→4,25;0→11, 12→→'22/11/2026', '22/11/2026', 4.25→8,00;"
                  u"5→11, 12→→'01/12/2025', '21/11/2026', 4.25→8,00;5→11, 12→→'01/01/2026', '31/12/2026', 0→8,00"_s);
        for (const QStringList &caso : casos) {
            m.emplace();
            m->ejecutar({u"UPDATE Almacenes SET (Tarifa, TarifaProm) = (%1)"_s.arg(caso[1]),
                         u"INSERT INTO Articulos_Tarifas VALUES (2, 1, 11, 10), (2, 1, 12, 8), (2, 1, 13, 6.5),"
                         u" (2, 1, 14, 3), (2, 1, 15, 0)"_s});
            if (!caso[2].isEmpty())
                m->ejecutar(u"INSERT INTO Clientes VALUES (4, 5, 'C', %1)"_s.arg(caso[2]));
            if (!caso[3].isEmpty())
                m->ejecutar(u"INSERT INTO Clientes_Art_PVP VALUES (1, %1, 1, %2)"_s.arg(caso[0], caso[3]));
            nv::PanelDetalles panel(nullptr);
            panel.preparar(m->empresa, caso[0].toInt());
            const auto pvp = [&panel](const QString &articulo) {
                panel.DevPropiedades(articulo);
                return panel.findChild<QLabel *>(u"lblPvp"_s)->text();
            };
            QCOMPARE(pvp(u"1"_s), caso[4]);
            m->ejecutar({u"UPDATE Almacenes SET Tarifa = 4"_s, u"UPDATE Clientes SET Tarifa_Pvp = 4"_s});
            QVERIFY2(pvp(u"1"_s) == caso[4] && pvp(u"24"_s) == u"0,00", "the tariffs are looked up once");
        }
    }

    void stock_and_notes_of_the_default_warehouse()
    {
        m->ejecutar({u"UPDATE Almacen_Articulos SET Pend_Servir = 2, Pend_Recibir = 1000 WHERE Cod_Articulo = 1"_s,
                     u"UPDATE Almacen_Articulos SET Pend_Servir = 4 WHERE Cod_Articulo = 3"_s,
                     u"UPDATE Articulos SET Desc_Memo = 'Nota <b>x</b>' WHERE Codigo = 1"_s});
        nv::PanelDetalles panel(nullptr);
        panel.show();
        panel.preparar(m->empresa, 0);
        // The figures, the notes, and the ink of what can be sold.
        const auto visto = [&](const QString &codigo) {
            panel.DevPropiedades(codigo);
            QString textos;
            for (const QString &nombre : {u"lblStock"_s, u"lblPendServir"_s, u"lblDisponible"_s, u"lblPendRecibir"_s})
                textos += panel.findChild<QLabel *>(nombre)->text() + u' ';
            textos += panel.findChild<QPlainTextEdit *>(u"txtObserv"_s)->toPlainText();
            const QImage imagen = panel.findChild<QLabel *>(u"lblDisponible"_s)->grab().toImage();
            bool rojo = false, azul = false;
            for (int i = 0; i < imagen.width() * imagen.height(); ++i) {
                const QColor color = imagen.pixelColor(i % imagen.width(), i / imagen.width());
                rojo |= color.red() > 150 && color.blue() < 60;
                azul |= color.blue() > 150 && color.red() < 60;
            }
            return textos + (rojo ? u" rojo"_s : QString()) + (azul ? u" azul"_s : QString());
        };
        QCOMPARE(visto(u"1"_s), u"12,00 2,00 10,00 1000,00 Nota <b>x</b> azul"_s);
        QCOMPARE(visto(u"3"_s), u"4,00 4,00 0,00 0,00 Tornillería fina rojo"_s);
        QCOMPARE(visto(u"24"_s), u"0,00 0,00 0,00 0,00 "_s); // of the item before nothing stays
        // Red and blue are made to be read on white.
        const auto noche = enOscuro();
        nv::PanelSurtido oscuro(nullptr);
        oscuro.preparar(m->empresa, 0);
        for (const QString &codigo : {u"1"_s, u"3"_s}) {
            oscuro.DevPropiedades(codigo);
            QVERIFY(contrasteVisto(*oscuro.findChild<QLabel *>(u"lblDisponible"_s)) > 4);
        }
        QVERIFY(contrasteVisto(*oscuro.findChild<QLabel *>(u"lblSurtObligatorio"_s)) > 4);
    }

    void pictures()
    {
        const QTemporaryDir temporal;
        const QDir raiz(temporal.path());
        QVERIFY(raiz.mkpath(u"fotos/9.jpg"_s));
        const QImage imagen(40, 30, QImage::Format_RGB32);
        QVERIFY(imagen.save(raiz.filePath(u"fotos/7.jpg"_s)));
        QVERIFY(imagen.scaled(4000, 3000).save(raiz.filePath(u"fotos/70.jpg"_s)));
        QVERIFY(QFile::copy(QStringLiteral(NV_RAIZ "/README.md"), raiz.filePath(u"fotos/10.jpg"_s)));
        const QString anterior = QDir::currentPath();
        QVERIFY(QDir::setCurrent(raiz.filePath(u"fotos"_s)));
        m->ejecutar(u"INSERT INTO Empresas (Codigo) VALUES (1)"_s);
        const auto vistas = [this](const QString &directorio) {
            m->ejecutar(u"UPDATE Empresas SET DirImagenArt = '%1'"_s.arg(directorio));
            nv::PanelDetalles panel(nullptr);
            panel.preparar(m->empresa, 0);
            QStringList codigos;
            for (const QString &codigo : {u"7"_s, u"8"_s, u"70"_s, u"9"_s, u"10"_s}) {
                panel.DevPropiedades(codigo);
                const auto *aviso = panel.findChild<QLabel *>(u"lblFotoCargando"_s);
                const bool hay = !panel.findChild<nv::CajaImagen *>()->vacia();
                codigos << (hay != aviso->isHidden() ? u"?"_s : hay ? codigo : aviso->text());
            }
            return codigos.join(u'|');
        };
        // 8 has no file, 9 is a folder, 10 no picture, 70 one larger than its place.
        const QString ninguna = u"<<< Imagen no disponible >>>"_s;
        QCOMPARE(vistas(temporal.path() + u"\\fotos\\"_s), u"7|%1|70|%1|%1"_s.arg(ninguna));
        // No separator is put in, and with no directory set a picture in the working directory is none of ours.
        for (const QString &directorio : {temporal.path() + u"\\fotos"_s, QString()})
            QCOMPARE(vistas(directorio), QStringList(5, ninguna).join(u'|'));
        QDir::setCurrent(anterior);
    }

    void details_are_there_again_until_the_form_is_given_back()
    {
        const Organizacion organizacion;
        bool antes = false;
        for (const Qt::Key tecla : {Qt::Key_F6, Qt::Key_0, Qt::Key_F7}) {
            m->abrir(6, [&](const Vista &v) {
                QCOMPARE(v.campo("fraExtendido")->isVisible(), antes);
                QTest::keyClick(v.d.focusWidget(), tecla, tecla == Qt::Key_0 ? Qt::ControlModifier : Qt::NoModifier);
            });
            antes = tecla == Qt::Key_F6;
        }
    }

    void F6_makes_room_and_the_notes_search()
    {
        for (const int modelo : {0, 6}) {
            m->abrir(modelo, [this](const Vista &v) {
                v.busca(u"TORN"_s);
                const int ancho = v.d.width(), lista = v.lista()->width();
                QVERIFY(!v.campo("fraExtendido")->isVisible() && !v.lista()->isColumnHidden(5));
                v.pulsa(Qt::Key_F6);
                QVERIFY(v.campo("fraExtendido")->isVisible() && v.lista()->isColumnHidden(5));
                QCOMPARE(v.d.width(), std::min(ancho + nv::twips::conLetra(4515, &v.d),
                                               std::max(v.d.screen()->availableSize().width(), v.d.minimumWidth())));
                QVERIFY2(v.lista()->width() < lista && v.codigos() == u"2|1", "the list is the same");
                v.busca(u"TORN"_s);
                QVERIFY2(v.codigos() == u"2|1|3", "its notes begin so");
                v.pulsa(Qt::Key_F6);
                QVERIFY(v.d.width() == ancho && v.lista()->width() == lista && !v.campo("fraFiltro")->isVisible());
                v.lista()->setFilaActual(2);
                m->quitar(u"Articulos_Tarifas"_s);
                m->conductor.responde(u"Aceptar"_s);
                v.pulsa(Qt::Key_F6);
                QVERIFY2(v.campo<QLabel>("lblStock")->text() == u"12,00", "what could be read stays");
                m->devolver(u"Articulos_Tarifas"_s);
                v.pulsa(Qt::Key_Return);
            });
            QVERIFY(m->codigo == u"1" && m->conductor.cajas().back().titulo == u"::DevPropiedades");
        }
        m->pedido.Cliente = 5; // opens the details
        m->pedido.Busqueda_Descripcion = u"TORN"_s;
        m->sentencias.clear();
        m->abrir(0, [this](const Vista &v) {
            const auto miradas = [this] { return m->sentencias.filter(u"SELECT Desc_Memo"_s).size(); };
            QVERIFY(v.campo("fraExtendido")->isVisible() && v.d.AlmacenStock == 1 && miradas() == 1);
            v.pulsa(Qt::Key_Down);
            QVERIFY(miradas() == 2 && v.campo("lblFotoCargando")->isVisible());
            v.busca(u"NADA"_s);
            QVERIFY2(!v.campo("lblFotoCargando")->isVisible(), "no former item's details");
        });
    }

    void assortment_keeps_active_items_not_blocked()
    {
        m->ejecutar({u"UPDATE Almacen_Articulos SET Bloqueo = 1 WHERE Cod_Articulo = 2 AND Cod_Almacen = 1"_s,
                     u"INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo) VALUES (1, 1, 24)"_s});
        // Not asked; head office: some warehouse; branch: its own; an unreadable setting is no head office.
        for (const QStringList &caso : tabla(u"→10|841|24|2|1|3;1→2|1|3;0→1|3;quizá→1|3"_s)) {
            m->empresa.valores[u"OficinaCentral"_s] = caso[0];
            m->abrir(6, [&](const Vista &v) {
                QCOMPARE(v.rotulo("chkSurtido"), u"Sólo mostrar artículos en Surtido"_s);
                v.campo("chkSurtido")->setFocus();
                if (!caso[0].isEmpty())
                    v.pulsa(Qt::Key_Space);
                v.pulsa(Qt::Key_F9);
                QCOMPARE(v.codigos(), caso[1]);
            });
        }
    }

    void details_show_the_assortment_state()
    {
        // Mandatory in the assortment or not, -1 outside, -2 without one; blocked; its two boxes; notice.
        const auto casos = tabla(u"0→0→01→;0→1→11→;1→0→21→lblSurtObligatorio;1→1→21→lblSurtObligatorio;"
                                 u"-1→0→11→lblSurtBloqGeneral;-2→0→01→;-2→1→11→"_s);
        for (const QStringList &caso : casos) {
            m.emplace();
            const QString surtido =
                caso[0].toInt() < 0 ? u"2, 1"_s : u"1, "_s + caso[0]; // outside another item is in it
            m->ejecutar(
                {u"UPDATE Almacen_Articulos SET Bloqueo = %1, BloqueoVenta = 1 WHERE Cod_Articulo = 1"_s.arg(caso[1]),
                 u"INSERT INTO Surtidos_Articulo_Todos (Cod_Empresa, Cod_Surtido, Cod_Articulo, Obligatorio)"
                 u" VALUES (1, 30, %1)"_s.arg(surtido)});
            if (caso[0] != u"-2")
                m->ejecutar(
                    u"INSERT INTO Surtidos_Almacen (Cod_Empresa, Cod_Almacen, Cod_Surtido) VALUES (1, 1, 30)"_s);
            m->abrir(6, [&](const Vista &v) {
                const auto visto = [&] {
                    QString textos;
                    for (const char *caja : {"chkSurtBloqueado", "chkSurtBloqueadoVta"})
                        textos += QString::number(v.campo<nvCheckBox>(caja)->Value());
                    for (const char *nombre : {"lblSurtBloqGeneral", "lblSurtObligatorio"})
                        textos += v.campo(nombre)->isVisible() ? QLatin1StringView(nombre) : QLatin1StringView();
                    return textos;
                };
                v.busca(u"TORNILLO ROJO"_s);
                v.pulsa(Qt::Key_F6);
                const QString esperado = caso[2] + caso[3];
                QVERIFY(v.campo<QLabel>("lblStock")->text() == u"12,00" && visto() == esperado);
                QTest::mouseClick(v.campo("chkSurtBloqueado"), Qt::LeftButton);
                QVERIFY2(visto() == esperado, "it is not for the user");
                v.busca(u"CLAVO"_s);
                QVERIFY2(visto() == esperado, "without a stock row the boxes stay");
                v.busca(u"NADA"_s);
                QCOMPARE(visto(), u"00"_s);
                m->ejecutar(u"DELETE FROM Surtidos_Almacen"_s);
                v.busca(u"TORNILLO ROJO"_s);
                QCOMPARE(visto(), caso[1] + u'1');
            });
        }
    }

    void best_sellers_of_a_warehouse()
    {
        m->ejecutar(u"INSERT INTO Almacen_Acumulados (Cod_Empresa, Cod_Almacen, Cod_Ejercicio, Mes, Cod_Articulo,"
                    u" Ventas_Unidades) VALUES (1, 2, 2026, 3, 1, 3), (1, 2, 2026, 2, 1, 1), (1, 2, 2026, 2, 2, 5),"
                    u" (1, 2, 2026, 4, 1, 90), (1, 2, 2025, 3, 1, 90), (1, 1, 2026, 3, 1, 90), (2, 2, 2026, 3, 1, 90),"
                    u" (1, 2, 2026, 3, 10, 80), (1, 2, 2025, 12, 1, 7), (1, 2, 2026, 1, 2, 6)"_s);
        m->pedido.GuardarBusqueda = true;
        // January reaches back to December; in July none were sold; a ranking of 0 is none: by description.
        for (const QStringList &caso :
             tabla(u"2026-03-15→10→2|1;2026-03-15→1→2;2026-01-02→10→1|2;2026-07-01→10→;2026-03-15→0→2|1"_s)) {
            m->empresa.hoy = QDate::fromString(caso[0], Qt::ISODate);
            m->ejecutar(u"DELETE FROM Articulos_Buscar"_s);
            m->abrir(4, [&](const Vista &v) {
                v.escribe("txtRanking", u"99999999999"_s);
                v.pulsa(Qt::Key_F9);
                QVERIFY2(v.lista()->filasDatos() == 0 && v.enfocado("txtRanking"), "not for the part that fits");
                v.escribe("txtRanking", caso[1]);
                v.pulsa(Qt::Key_F9);
                QVERIFY2(v.lista()->filasDatos() == 6 && v.columna(4).startsWith(u"0,00"), "no warehouse, no ranking");
                v.escribe("txtAlmacen", u"4294967298"_s);
                v.pulsa(Qt::Key_F9);
                QVERIFY2(v.codigos().isEmpty() || caso[1] == u"0", "no warehouse can have that number");
                v.escribe("txtAlmacen", u"2"_s);
                for (int vez = 0; vez < 2; ++vez) {
                    v.pulsa(Qt::Key_F9);
                    QCOMPARE(v.codigos(), caso[2]);
                }
                QVERIFY(caso[2] != u"2|1" || v.columna(4) == u"2,00|3,46");
                m->conductor.responde(u"Aceptar"_s);
                v.busca(u"O'R"_s); // refused: the list and its copy are those on screen
                v.lista()->setFocus();
                v.pulsa(Qt::Key_Return);
            });
            QVERIFY(m->codigo == caso[2].section(u'|', 0, 0) && m->copia().size() == caso[2].size());
        }
    }

private:
    std::optional<CatalogoBusquedas> m;
};

NV_PRUEBA(tst_Detalles)
#include "tst_detalles.moc"
