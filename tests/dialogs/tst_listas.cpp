#include "dialogs/frmAlternativos_Eleccion.h"
#include "dialogs/frmPLUs.h"
#include "dialogs/frmReferencia_Articulos.h"
#include "support/BaseDatos.h"
#include "support/EmpresaPrueba.h"
#include "support/Ventana.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

using namespace Qt::StringLiterals;
using namespace nv::pruebas;

/// The lists that open when what was typed fits several items, and that of the values of an attribute.
class tst_Listas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_base = std::make_unique<BaseDatos>();
        nv::ranura::ofrecer(&m_base->conexion());
        m_base->ejecutar({
            u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion) VALUES (2, 1, 'UNO'), (2, 2, 'DOS'), (1, 1, 'AJENO')"_s,
            u"INSERT INTO Proveedores (Cod_Empresa, Codigo, Nombre) VALUES (3, 7, 'HIERROS'), (3, 0, 'ACEROS')"_s,
            u"INSERT INTO Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref) VALUES (2, 1, 7, 'R'), (2, 2, 0, 'R')"_s,
            u"INSERT INTO Articulos_RefCli (Cod_Empresa, Cod_Articulo, Cod_Cli, Ref) VALUES (2, 1, 70, 'C'), (2, 2, 80, 'C')"_s,
            u"INSERT INTO Balanzas_Articulos (Cod_Empresa, Cod_Articulo, Plu, Dpto) VALUES (1, 1, 40, 1), (1, 2, 40, 2), (1, 2, 40, 3)"_s,
            u"INSERT INTO Balanzas_Dptos (Cod_Empresa, Codigo, Nombre) VALUES (1, 1, 'CARNES'), (1, 2, 'QUESOS')"_s,
            u"INSERT INTO Alternativos_Valores (Tabla, Alternativo, id, Valor) VALUES (0, 0, 3, 'ROJO'), (0, 0, 7, "
            u"'AZUL'),"
            u" (0, 0, 12, 'CIELO, CLARO'), (0, 0, 123, 'VERDE'), (1, 0, 1, 'AJENO'), (0, 1, 1, 'AJENO')"_s,
        });
    }

    void references_show_the_supplier_and_plus_the_department()
    {
        const std::tuple<QString, bool, int, QString> casos[] = {{u"R"_s, true, 0, u"1|UNO|7-HIERROS 2|DOS|-ACEROS"_s},
                                                                 {u"R"_s, true, 7, u"1|UNO|7-HIERROS"_s},
                                                                 {u"C"_s, false, 0, u"1|UNO|* 2|DOS|*"_s},
                                                                 {u"C"_s, true, 0, {}}};
        for (const auto &[referencia, deProveedor, proveedor, esperado] : casos) {
            const auto lista = referencias(referencia);
            lista->RefProveedor = deProveedor;
            lista->Proveedor = proveedor;
            QCOMPARE(mostrada(*lista), esperado);
        }
        frmPLUs plus(nullptr);
        plus.cEmpresa = &m_empresa;
        plus.Plu = 40;
        QVERIFY2(mostrada(plus) == u"CARNES|1|UNO QUESOS|2|DOS", "a department without a name lists nothing");
        QCOMPARE(plus.findChild<QLineEdit *>(u"txtRef"_s)->text(), u"40"_s);
    }

    void a_line_is_taken_or_none()
    {
        // Where the keys go ("-": the grid, "x": the mouse there), the keys, whether the second line is taken.
        for (const QStringList &c :
             tabla(u"-→Return→s;-→Num+Enter→s;-→F9→s;cmdAceptar→F9→s;cmdAceptar→Return→s;cmdCancelar→Return→n;"
                   u"-→Esc→n;-→F12→n;cmdAceptar→Space→s;-→doble→s;-→close→n"_s)) {
            const auto lista = referencias(u"R"_s);
            int segunda = 0;
            mostrada(*lista, [&](nv::Rejilla *r) {
                QCOMPARE(r->filaActual(), 1);
                QTest::keyClick(r, Qt::Key_Down);
                segunda = r->texto(2, 0).toInt();
                auto *boton = r->window()->findChild<QPushButton *>(c[0]);
                (boton ? static_cast<QWidget *>(boton) : r)->setFocus();
                for (const Qt::Key repetida : {Qt::Key_F9, Qt::Key_F12, Qt::Key_Return})
                    repetir(r->window()->focusWidget(), repetida);
                // A scanner's burst chooses nothing, nor does what is meant for another window.
                if (!boton) {
                    teclear(r, u"84"_s);
                    QTest::keyClick(r, Qt::Key_Return);
                    QTest::qWait(110);
                }
                QWidget otra;
                QTest::keyClick(&otra, Qt::Key_F9);
                QVERIFY(r->isVisible());
                const QPoint celda = r->visualRect(r->model()->index(1, 1)).center();
                if (c[1] == u"close")
                    r->window()->close();
                else if (c[1] == u"doble")
                    QTest::mouseDClick(r->viewport(), Qt::LeftButton, {}, celda);
                else
                    pulsar(r, c[1]);
                QVERIFY(!r->isVisible());
            });
            QCOMPARE(lista->Codigo, c[2] == u"s" ? segunda : -1);
        }
        const auto nada = referencias(u"NADA"_s);
        mostrada(*nada, [](nv::Rejilla *r) {
            pulsar(r, u"F9"_s);
            QVERIFY2(r->window()->isVisible(), "nothing to take");
            r->window()->close();
        });
        QCOMPARE(nada->Codigo, -1);
    }

    void an_error_names_the_list_and_its_number()
    {
        m_base->ejecutar(u"DROP TABLE Proveedores"_s);
        Conductor conductor;
        conductor.responde(u"Aceptar"_s);
        const auto lista = referencias(u"R"_s);
        QCOMPARE(mostrada(*lista), QString());
        const QRegularExpression titulo(u"^\\[\\d+\\] frmReferencia_Articulos:Cargar_Articulos$"_s);
        QVERIFY(titulo.match(conductor.cajas().front().titulo).hasMatch());
        QCOMPARE(conductor.cajas().front().icono, QMessageBox::Critical);
        frmPLUs sinNumero(nullptr);
        m_base.reset();
        conductor.responde(u"Aceptar"_s);
        sinNumero.cEmpresa = &m_empresa;
        QCOMPARE(mostrada(sinNumero), QString());
        QVERIFY(conductor.cajas().back().titulo.endsWith(u"frmPLUs:Cargar_Articulos"));
    }

    void values_are_chosen_by_identifier()
    {
        // The identifiers that come in, what is chosen then; the keys; whether accepted, identifiers and texts that go out.
        for (const QStringList &c :
             tabla(u"→→F9→s→,→;,12,→CIELO, CLARO→F9→s→,12,→CIELO, CLARO;12→→F12→n→12→;,123,→VERDE→Return→s→,123,→VERDE;"
                   u",3,→ROJO→Space Down Space Return→s→,7,12,3,→AZUL,CIELO, CLARO,ROJO;,3,→ROJO→Space Esc→n→,3,→;"
                   u",3,→ROJO→R Num+Enter→s→,3,→ROJO;,3,→ROJO→V Space F9→s→,3,123,→ROJO,VERDE;,3,→ROJO→Space Tab Tab "
                   u"Return→n→,3,→;"
                   u",3,→ROJO→close→n→,3,→"_s)) {
            frmAlternativos_Eleccion dialogo(nullptr);
            dialogo.Conexion = c[0].isEmpty() ? nullptr : &m_base->conexion();
            dialogo.Ids = c[0];
            Conductor conductor;
            conductor.con<frmAlternativos_Eleccion>([&](frmAlternativos_Eleccion &d) {
                auto *lista = d.findChild<QListWidget *>();
                QStringList textos, elegidos;
                for (int i = 0; i < lista->count(); ++i) {
                    textos += lista->item(i)->text();
                    if (lista->item(i)->isSelected())
                        elegidos += textos.back();
                }
                QCOMPARE(textos.join(u'|'), u"AZUL|CIELO, CLARO|ROJO|VERDE"_s);
                QCOMPARE(elegidos.join(u'|'), c[1]);
                const QSize antes = lista->size();
                d.resize(d.size() + QSize(50, 70));
                QTRY_COMPARE(lista->size(), antes + QSize(50, 70));
                c[2] == u"close" ? void(d.close()) : pulsar(&d, c[2]);
                QVERIFY(!d.isVisible());
            });
            dialogo.MostrarModal();
            QCOMPARE((dialogo.Aceptado ? u"s→"_s : u"n→"_s) + dialogo.Ids + u'→' + dialogo.Valores,
                     c.mid(3).join(u'→'));
            QTest::qWait(QApplication::keyboardInputInterval() / 4);
        }
    }

private:
    std::unique_ptr<frmReferencia_Articulos> referencias(const QString &referencia)
    {
        auto lista = std::make_unique<frmReferencia_Articulos>(nullptr);
        lista->Referencia = referencia;
        lista->EmpresaArticulos = 2;
        lista->EmpresaProveedores = 3;
        return lista;
    }
    /// Shows the list and gives its cells as the user sees them, "*" for a hidden one.
    QString mostrada(
        nv::ListaEleccion &lista,
        const std::function<void(nv::Rejilla *)> &accion = [](nv::Rejilla *r) { r->window()->close(); })
    {
        QStringList lineas;
        Conductor conductor;
        conductor.paso([&](QWidget *w) { return w == &lista; },
                       [&](QWidget *w) {
                           auto *rejilla = w->findChild<nv::Rejilla *>(u"vsLineas"_s);
                           QVERIFY(rejilla->hasFocus());
                           for (int fila = 1; fila < rejilla->filas(); ++fila) {
                               QStringList celdas;
                               for (const int columna : {0, 1, 2})
                                   celdas += rejilla->isColumnHidden(columna) ? u"*"_s : rejilla->texto(fila, columna);
                               lineas += celdas.join(u'|');
                           }
                           accion(rejilla);
                       });
        lista.MostrarModal();
        lineas.sort();
        return conductor.terminado() ? lineas.join(u' ') : u"not driven"_s;
    }

    std::unique_ptr<BaseDatos> m_base;
    EmpresaPrueba m_empresa;
};

NV_PRUEBA(tst_Listas)
#include "tst_listas.moc"
