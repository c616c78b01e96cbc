#include "barcodes/frmCodBarra_Datos.h"
#include "dialogs/frmReferencias_Modificar.h"
#include "support/Ventana.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;
using namespace nv::pruebas;

/// The forms that attach a supplier reference or a barcode to an item.
class tst_Editores : public PruebaVentana
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        llenar(u"Articulos (Cod_Empresa, Codigo, Descripcion) VALUES (2, 1, 'UNO'), (2, 2, 'DOS');"
               u"Proveedores (Cod_Empresa, Codigo, Nombre) VALUES (3, 7, 'HIERROS'), (3, 8, 'ACEROS');"
               u"Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref) VALUES (2, 2, 8, 'AB-1_[2]%');"
               u"Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref) VALUES (1, 2, 8, 'SUYA')"_s);
        QVERIFY(abrir());
    }

    /// The last field missing is named; the company's rule comes first, when there is a reference to ask it about.
    void reference_is_accepted_or_what_is_missing_is_said()
    {
        // Item, supplier, reference, the rule's number, the answer to it; what is said, where the focus goes.
        for (const QStringList &c :
             tabla(u"1→7→R-1→4→→→;1→7→→4→Aceptar→la referencia→txtReferencia;1→7→  →4→Aceptar→la "
                   u"referencia→txtReferencia;"
                   u"→7→→4→Aceptar→el código→txtArticulo;→0→AB1_[2]%→4→Aceptar→el proveedor→txtProv;1→9→R→4→Aceptar→El "
                   u"proveedor especificado no existe.→txtProv;"
                   u"99→7→R→4→Aceptar→el código→txtArticulo;1→7→ab1_[2]%→2→Aceptar→NO SE PERMITE→txtReferencia;"
                   u"1→7→A.B/1 _[2]%→4→Aceptar→NO SE PERMITE→txtReferencia;1→7→AB1_[2]%→1→No→¿Desea "
                   u"continuar?→txtReferencia;"
                   u"1→7→AB1_[2]%→3→Sí→¿Desea continuar?→;2→7→AB-1_[2]%→4→→→;1→7→AB-1_[2]%→0→→→;1→7→ABx1%→4→→→;"
                   u"1→7→AB1x[2]%→4→→→;1→7→AB1%→4→→→;1→7→AB1_2%→4→→→;1→7→SUYA→4→→→;1→7→-/. →4→→→"_s)) {
            frmReferencias_Modificar dialogo(m_ventana.get());
            dialogo.cEmpresa = &m_empresa;
            m_empresa.valores[u"Articulos_CheckRefProv"_s] = c[3];
            dialogo.Articulo = c[0];
            dialogo.Proveedor = c[1].toInt();
            dialogo.Referencia = c[2];
            const bool vale = c[6].isEmpty();
            Conductor conductor;
            conductor.con<frmReferencias_Modificar>([&](frmReferencias_Modificar &f) {
                QVERIFY(f.findChild<QWidget *>(u"txtArticulo"_s)->isAncestorOf(f.focusWidget()));
                pulsar(&f, u"F9"_s);
                QCOMPARE(f.isVisible(), !vale);
                if (vale)
                    return;
                auto *campo = f.findChild<QWidget *>(c[6]);
                QVERIFY(f.focusWidget() == campo || campo->isAncestorOf(f.focusWidget()));
                pulsar(&f, u"F12"_s);
            });
            if (!c[4].isEmpty())
                conductor.responde(c[4]);
            dialogo.MostrarModal();
            QVERIFY2(conductor.terminado() && dialogo.Aceptado == vale, qPrintable(c.join(u'|')));
            QVERIFY(conductor.cajas().empty() ? c[5].isEmpty() : conductor.cajas().back().texto.contains(c[5]));
            if (c[5].contains(u'?'))
                QVERIFY(conductor.cajas().back().texto.contains(
                    u"Artículo: 2 - DOS\r\nProveedor: 8 - ACEROS\r\nReferencia: "_s + c[2]));
        }
    }

    void reference_editor_gives_what_was_typed()
    {
        frmReferencias_Modificar dialogo(m_ventana.get());
        dialogo.cEmpresa = &m_empresa;
        Conductor conductor;
        conductor.con<frmReferencias_Modificar>([](frmReferencias_Modificar &f) {
            encolarLectura(&f, u"1"_s);
            encolarLectura(&f, u"7"_s);
            encolarLectura(&f, u"nueva"_s);
            QCoreApplication::processEvents();
            teclear(f.findChild<QLineEdit *>(u"txtCodigo"_s), u"9"_s);
            pulsar(&f, u"F9"_s); // an item that there is not
            f.findChild<QLineEdit *>(u"txtCodigo"_s)->setText(u"1"_s);
            pulsar(&f, u"F9"_s);
        });
        conductor.responde(u"Aceptar"_s);
        dialogo.MostrarModal();
        QCOMPARE(conductor.cajas().front().texto, u"El artículo especificado no existe."_s);
        QVERIFY(dialogo.Aceptado && dialogo.Articulo == u"1" && dialogo.Proveedor == 7 &&
                dialogo.Referencia == u"nueva");
    }

    void window_may_go_while_an_error_is_up()
    {
        m_base->ejecutar(u"DROP TABLE Proveedores"_s);
        auto *dialogo = new frmReferencias_Modificar(m_ventana.get());
        dialogo->cEmpresa = &m_empresa;
        dialogo->Proveedor = 7;
        Conductor conductor;
        conductor.con<QMessageBox>([&](QMessageBox &) { m_ventana.reset(); });
        dialogo->MostrarModal();
        QVERIFY(conductor.terminado());
    }

    void barcode_is_confirmed()
    {
        // Item and barcode that come in; barcode and units typed; what is said; what goes out.
        for (const QStringList &c :
             tabla(u"1→84→84→→→1|84|1;1→84→85→6→→1|85|6;1→84→84→0→→1|84|1;1→84→84→32767→→1|84|32767;1→84→84→1→→1|84|1;"
                   u"1→84→84→32768→Las unidades no pueden pasar de 32767.→1|84|1;"
                   u"1→84→→2→Debe especificar datos validos.→1|84|1;"
                   u"1→→84→2→Debe especificar datos validos.→1||1;→84→84→-3→-→|84|1;8→84→84→2→-→8|84|1"_s)) {
            frmCodBarra_Datos dialogo(m_ventana.get());
            dialogo.cEmpresa = &m_empresa;
            dialogo.Articulo = c[0];
            dialogo.CodBarras = c[1];
            const bool vale = c[4].isEmpty();
            const bool sinArticulo = c[4] == u"-"; // said at its box
            Conductor conductor;
            conductor.con<frmCodBarra_Datos>([&](frmCodBarra_Datos &f) {
                QVERIFY(f.findChild<QWidget *>(u"txtArticulo"_s)->isAncestorOf(f.focusWidget()));
                auto *barras = f.findChild<QLineEdit *>(u"txtCB"_s);
                QCOMPARE(barras->text(), c[1]);
                const QString nombre = f.findChild<QWidget *>(u"txtArticulo"_s)->property("Nombre").toString();
                QCOMPARE(nombre.contains(u"UNO"), c[0] == u"1");
                barras->setText(c[2]);
                if (sinArticulo) { // too long, and left by Tab: nothing is accepted
                    barras->setFocus();
                    teclear(barras, QString(31, u'9'));
                    QTest::keyClick(barras, Qt::Key_Tab);
                    pulsar(&f, u"F9"_s);
                    QVERIFY(f.isVisible() && barras->hasFocus() && barras->text().size() == 30);
                    barras->setText(c[2]);
                }
                auto *unidades = f.findChild<QLineEdit *>(u"txtUnidades"_s);
                QVERIFY(unidades->alignment().testFlag(Qt::AlignRight));
                teclear(unidades, c[3]);
                pulsar(&f, u"F9"_s);
                QCOMPARE(f.isVisible(), !vale);
                if (f.isVisible()) {
                    QVERIFY(unidades->hasFocus() == c[4].contains(u"unidades"));
                    const auto *aviso = f.findChild<QLabel *>(u"lblAviso"_s);
                    QCOMPARE(aviso && aviso->isVisible(), sinArticulo);
                    pulsar(&f, u"F12"_s);
                }
            });
            if (!vale && !sinArticulo)
                conductor.responde(u"Aceptar"_s);
            dialogo.MostrarModal();
            QVERIFY(conductor.terminado() && dialogo.Aceptado == vale);
            QCOMPARE(conductor.cajas().empty() ? QString() : conductor.cajas().back().texto,
                     sinArticulo ? QString() : c[4]);
            QCOMPARE(u"%1|%2|%3"_s.arg(dialogo.Articulo, dialogo.CodBarras).arg(dialogo.Unidades), c[5]);
        }
    }

    void what_cannot_be_attached_stays_as_it_was_typed()
    {
        const auto probar = [this](auto dialogo, const QString &campo) {
            using Dialogo = std::remove_pointer_t<decltype(dialogo.get())>;
            int veces = 0;
            dialogo->cEmpresa = &m_empresa;
            dialogo->Articulo = u"1"_s;
            dialogo->AlAceptar = [&veces](Dialogo &) { return ++veces > 1; };
            Conductor conductor;
            conductor.con<Dialogo>([&](Dialogo &f) {
                auto *escrito = f.template findChild<QLineEdit *>(campo);
                auto *articulo = f.template findChild<QWidget *>(u"txtArticulo"_s);
                teclear(articulo->focusProxy(), u"12"_s); // whose name has gone with the first letter
                QVERIFY(articulo->property("Nombre").toString().isEmpty());
                pulsar(&f, u"Backspace"_s);
                escrito->setText(u"84"_s);
                pulsar(&f, u"F9"_s);
                QVERIFY(veces == 1 && f.isVisible() && escrito->text() == u"84" && escrito->hasFocus());
                pulsar(&f, u"F9"_s);
                QVERIFY(veces == 2 && !f.isVisible());
            });
            dialogo->MostrarModal();
            QVERIFY(conductor.terminado() && dialogo->Aceptado);
        };
        auto referencia = std::make_unique<frmReferencias_Modificar>(m_ventana.get());
        referencia->Proveedor = 7;
        probar(std::move(referencia), u"txtReferencia"_s);
        auto barras = std::make_unique<frmCodBarra_Datos>(m_ventana.get());
        barras->CodBarras = u"85"_s;
        probar(std::move(barras), u"txtCB"_s);
    }
};

NV_PRUEBA(tst_Editores)
#include "tst_editores.moc"
