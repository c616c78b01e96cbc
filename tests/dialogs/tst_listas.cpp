#include "dialogs/frmAlternativos_Eleccion.h"
#include "dialogs/frmPLUs.h"
#include "dialogs/frmReferencia_Articulos.h"
#include "support/Ventana.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

using namespace Qt::StringLiterals;
using namespace nv::pruebas;

/// The lists that open when what was typed fits several items, and that of the values of an attribute.
class tst_Listas : public PruebaVentana
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        llenar(u"Articulos (Cod_Empresa, Codigo, Descripcion) VALUES (2, 1, 'UNO'), (2, 2, 'DOS'), (1, 1, 'AJENO');"
               u"Proveedores (Cod_Empresa, Codigo, Nombre) VALUES (3, 7, 'HIERROS'), (3, 0, 'ACEROS');"
               u"Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref) VALUES (2, 1, 7, 'R'), (2, 2, 0, 'R');"
               u"Articulos_RefCli (Cod_Empresa, Cod_Articulo, Cod_Cli, Ref) VALUES (2, 1, 7, 'C'), (2, 2, 8, 'C');"
               u"Balanzas_Articulos (Cod_Empresa, Cod_Articulo, Plu, Dpto) VALUES (1, 1, 4, 1), (1, 2, 4, 2), (1, 2, "
               u"4, 3);"
               u"Balanzas_Dptos (Cod_Empresa, Codigo, Nombre) VALUES (1, 1, 'CARNES'), (1, 2, 'QUESOS');"
               u"Alternativos_Valores (Tabla, Alternativo, id, Valor) VALUES (0, 0, 3, 'ROJO'), (0, 0, 7, 'AZUL');"
               u"Alternativos_Valores (Tabla, Alternativo, id, Valor) VALUES (0, 0, 12, 'CIELO, CLARO'), (0, 0, 123, "
               u"'VERDE');"
               u"Alternativos_Valores (Tabla, Alternativo, id, Valor) VALUES (1, 0, 1, 'AJENO'), (0, 1, 1, 'AJENO')"_s);
    }

    void references_show_the_supplier_and_plus_the_department()
    {
        // Reference, its supplier or "cliente" for customers; what is listed.
        for (const QStringList &c :
             tabla(u"R→→1|UNO|7-HIERROS 2|DOS|-ACEROS;R→7→1|UNO|7-HIERROS;C→cliente→1|UNO|* 2|DOS|*;C→→"_s)) {
            const auto lista = referencias(c[0]);
            lista->RefProveedor = c[1] != u"cliente";
            lista->Proveedor = c[1].toInt();
            QCOMPARE(mostrada(*lista), c[2]);
        }
        frmPLUs plus(nullptr);
        plus.cEmpresa = &m_empresa;
        plus.Plu = 4;
        QVERIFY2(mostrada(plus) == u"CARNES|1|UNO QUESOS|2|DOS", "a department without a name lists nothing");
        QCOMPARE(plus.findChild<QLineEdit *>(u"txtRef"_s)->text(), u"4"_s);
    }

    void a_line_is_taken_or_none()
    {
        // Which button has the focus (or the grid), the keys, whether the line is taken.
        for (const QStringList &c :
             tabla(u"-→Return→s;-→Num+Enter→s;-→F9→s;cmdAceptar→F9→s;cmdAceptar→Return→s;cmdCancelar→Return→n;"
                   u"-→Esc→n;-→F12→n;cmdAceptar→Space→s;-→doble→s;-→close→n"_s)) {
            const auto lista = referencias(u"R"_s);
            int actual = 0;
            mostrada(*lista, [&](nv::Rejilla *r) {
                QCOMPARE(r->filaActual(), 1);
                if (c[1] != u"Num+Enter") // which takes the first one
                    QTest::keyClick(r, Qt::Key_Down);
                actual = r->texto(r->filaActual(), 0).toInt();
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
                QTest::keyClick(std::make_unique<QWidget>().get(), Qt::Key_F9);
                QVERIFY(r->isVisible());
                const QPoint celda = r->visualRect(r->model()->index(1, 1)).center();
                if (c[1] == u"close")
                    cerrar(r);
                else if (c[1] == u"doble")
                    QTest::mouseDClick(r->viewport(), Qt::LeftButton, {}, celda);
                else
                    pulsar(r, c[1]);
                QVERIFY(!r->isVisible());
            });
            QCOMPARE(lista->Codigo, c[2] == u"s" ? actual : -1);
        }
        const auto nada = referencias(u"NADA"_s);
        mostrada(*nada, [](nv::Rejilla *r) {
            pulsar(r, u"F9"_s);
            QVERIFY2(r->isVisible(), "nothing to take");
            cerrar(r);
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
    }

    void values_that_cannot_be_read_are_not_offered()
    {
        m_base->ejecutar(u"DROP TABLE Alternativos_Valores"_s);
        frmAlternativos_Eleccion dialogo(nullptr);
        dialogo.Ids = u",3,"_s;
        Conductor conductor;
        conductor.responde(u"Aceptar"_s);
        dialogo.MostrarModal();
        QVERIFY(conductor.terminado() && !dialogo.Aceptado && dialogo.Ids == u",3,");
    }

    void values_are_chosen_by_identifier()
    {
        // The identifiers that come in, what they choose; the keys; whether accepted, identifiers and texts then.
        for (const QStringList &c :
             tabla(u"→→F9→s→,→;,12,→CIELO, CLARO→F9→s→,12,→CIELO, CLARO;12→→F12→n→12→;,123,→VERDE→Return→s→,123,→VERDE;"
                   u",3,→ROJO→Space Down Space Return→s→,7,12,3,→AZUL,CIELO, CLARO,ROJO;,3,→ROJO→Space Esc→n→,3,→;"
                   u",3,→ROJO→R Num+Enter→s→,3,→ROJO;,3,→ROJO→V Space F9→s→,3,123,→ROJO,VERDE;"
                   u",3,→ROJO→Space Tab Tab Return→n→,3,→;,3,→ROJO→close→n→,3,→"_s)) {
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
    using Accion = std::function<void(nv::Rejilla *)>;
    static void cerrar(nv::Rejilla *rejilla) { rejilla->window()->close(); }
    /// Shows the list and gives its cells as the user sees them, "*" for a hidden one.
    QString mostrada(nv::ListaEleccion &lista, const Accion &accion = cerrar)
    {
        QStringList lineas;
        Conductor conductor;
        conductor.con<nv::ListaEleccion>([&](nv::ListaEleccion &f) {
            auto *r = f.findChild<nv::Rejilla *>(u"vsLineas"_s);
            QVERIFY(r->hasFocus());
            const auto celda = [r](int fila, int c) { return r->isColumnHidden(c) ? u"*"_s : r->texto(fila, c); };
            for (int fila = 1; fila < r->filas(); ++fila)
                lineas += celda(fila, 0) + u'|' + celda(fila, 1) + u'|' + celda(fila, 2);
            accion(r);
        });
        lista.MostrarModal();
        lineas.sort();
        return conductor.terminado() ? lineas.join(u' ') : u"not driven"_s;
    }
};

NV_PRUEBA(tst_Listas)
#include "tst_listas.moc"
