#include "Formulario.h"
#include "support/BaseDatos.h"
#include "support/Programa.h"

#include "barcodes/frmCodBarra_Datos.h"
#include "creation/frmArticulos_Creacion.h"
#include "dialogs/frmReferencias_Modificar.h"

using namespace Qt::StringLiterals;
using nv::pruebas::casos;
using nv::pruebas::Conductor;
using nv::pruebas::Formulario;

/// An unknown barcode or reference, Yes, the item named: the document goes on.
class tst_Asignaciones : public QObject
{
    Q_OBJECT

    /// Over what stands in each field; nothing where there is no text, "-" empties it. Then the key, in the last one.
    static void rellena(QDialog &f, const QList<std::pair<QString, QString>> &campos, Qt::Key tecla = Qt::Key_F9)
    {
        for (const auto &[campo, texto] : campos) {
            f.findChild<QWidget *>(campo)->setFocus();
            if (texto.isEmpty())
                continue;
            qobject_cast<QLineEdit *>(f.focusWidget())->selectAll();
            QTest::keyClick(f.focusWidget(), Qt::Key_Delete);
            if (texto != u"-")
                QTest::keyClicks(f.focusWidget(), texto);
        }
        QTest::keyClick(f.focusWidget(), tecla);
    }
    static QString ultima(const Conductor &c)
    {
        return c.cajas().empty() ? QString() : c.cajas().back().titulo + u": "_s + c.cajas().back().texto;
    }

private Q_SLOTS:
    /// Item, supplier, text and key in the dialog, answer to the box behind it → rows, what is left, title of the last box.
    void what_was_not_found_goes_to_the_item_that_is_named()
    {
        for (const auto &[entrada, articulo, proveedor, texto, respuesta, filas, queda, dice] : casos<8>(uR"(
            /590   → 12   →   →     →         → 12,590,0 12,841,1 → 12|TORNILLO <M8> & TUERCA|P13|despues|E → ¡ Atención !
            /590   → 77   →   → 591 →         → 12,841,1 77,591,1 → 77|DE OTRO|P13|despues|E → ¡ Atención !
            /590   → 77   →   → 841 → No      → 12,841,1          → ||P0|txtCodigo|P         → Confirmar
            /590   → 77   →   → 841 → Sí      → 77,841,1          → 77|DE OTRO|P13|despues|E → Confirmar
            /590   →      →   →     → Aceptar → 12,841,1          → ||P0|txtCodigo|P         → ¡ Error inesperado !
            /590   → AB   →   →     → Aceptar → 12,841,1          → ||P0|txtCodigo|P         → ¡ Error inesperado !
            /590   → +12  →   →     → Aceptar → 12,841,1          → ||P0|txtCodigo|P         → ¡ Error inesperado !
            /590   → -12  →   →     → Aceptar → 12,841,1          → ||P0|txtCodigo|P         → ¡ Error inesperado !
            /590   → 12   →   →     → F12     → 12,841,1          → ||P0|txtCodigo|P         → ¡ Atención !
            .NUEVA → 77   → 8 →     →         → 12,ABC,1 12,COMUN,1 77,COMUN,1 77,NUEVA,0   → 77|DE OTRO|P13|despues|E → ¡ Atención !
            .NUEVA → 1234 → 8 →     →         → 12,ABC,1 12,COMUN,1 77,COMUN,1 1234,NUEVA,1 → 1234|CAMISA|P13|despues|E → ¡ Atención !
            .NUEVA → 77   → 7 → ABC → No      → 12,ABC,1 12,COMUN,1 77,COMUN,1              → ||P0|txtCodigo|P         → Confirmar
            .NUEVA → 77   → 7 → ABC → Sí      → 12,COMUN,1 77,ABC,0 77,COMUN,1              → 77|DE OTRO|P13|despues|E → Confirmar
            .NUEVA → 77   → 7 →     → F12     → 12,ABC,1 12,COMUN,1 77,COMUN,1              → ||P0|txtCodigo|P         → ¡ Atención !)"_s)) {
            const bool barra = entrada.startsWith(u'/');
            Formulario forma;
            forma.ejecuta(u"UPDATE Articulos_CBarras SET Cod_Barras = '841'"_s);
            Conductor conductor;
            conductor.responde(u"Sí"_s).con<QDialog>([&](QDialog &f) {
                QVERIFY2(f.focusWidget()->objectName() == u"txtCodigo" && forma.articulo->Text() == entrada,
                         "no item is proposed");
                rellena(f,
                        barra ? QList<std::pair<QString, QString>>{{u"txtArticulo"_s, articulo}, {u"txtCB"_s, texto}}
                              : QList<std::pair<QString, QString>>{{u"txtArticulo"_s, articulo},
                                                                   {u"txtProv"_s, proveedor},
                                                                   {u"txtReferencia"_s, texto}},
                        respuesta == u"F12" ? Qt::Key_F12 : Qt::Key_F9);
            });
            if (!respuesta.isEmpty() && respuesta != u"F12")
                conductor.responde(respuesta);
            forma.confirma(entrada);
            QVERIFY(conductor.terminado());
            const QString columnas =
                barra ? u"Cod_Barras, Principal FROM Articulos_CBarras"_s : u"Ref, Principal FROM Articulos_Ref"_s;
            QCOMPARE(nv::pruebas::filasDe(*forma.conexion, u"SELECT Cod_Articulo, %1 ORDER BY 1, 2"_s.arg(columnas))
                         .join(u' ')
                         .replace(u'|', u','),
                     filas);
            QCOMPARE(forma.retrato(), queda);
            QVERIFY2(ultima(conductor).startsWith(dice), qPrintable(ultima(conductor)));
            QCOMPARE(forma.articulo->Proveedor(), respuesta == u"F12" ? 0 : proveedor.toInt());
        }
    }

    void fashion_edition_makes_a_new_item_and_remembers_its_values()
    {
        Formulario forma;
        forma.ejecuta(u"INSERT INTO Marcas (Codigo, Nombre) VALUES (5, 'M')"_s);
        forma.ajusta(u"EsUlvaro=1 Proveedor=8"_s);
        for (const bool acepta : {false, true, false}) {
            Conductor conductor;
            conductor.responde(u"Sí"_s).con<frmArticulos_Creacion>([&](frmArticulos_Creacion &f) {
                QCOMPARE(u"%1 %2 %3"_s.arg(f.Ref).arg(f.Proveedor).arg(f.Marca),
                         forma.articulo->Proveedor() == 8 ? u"NUEVA 8 0"_s : u"NUEVA 7 5"_s);
                f.Codigo = 77;
                f.Proveedor = 7;
                f.Marca = 5;
                f.Aceptado = acepta;
                f.hide();
            });
            forma.confirma(u".NUEVA"_s);
            QVERIFY(conductor.terminado());
            QCOMPARE(forma.retrato(), acepta ? u"77|DE OTRO|P13|despues|E"_s : u"||P0|txtCodigo|P"_s);
        }
    }

    void failure_after_the_delete_says_what_is_gone()
    {
        Formulario forma;
        for (const auto &[entrada, tabla, campo, texto, dice] : casos<5>(uR"(
            /841   → Articulos_CBarras → txtCB → 8412345678905 → El código de barras 8412345678905 ya se ha quitado del artículo 12.
            .NUEVA → Articulos_Ref → txtReferencia → ABC → La referencia ABC ya se ha quitado de los demás artículos del proveedor 7.)"_s)) {
            forma.ejecuta(
                u"CREATE TRIGGER falla%1 BEFORE INSERT ON %1 BEGIN SELECT RAISE(ABORT, 'lleno'); END"_s.arg(tabla));
            Conductor conductor;
            conductor.responde(u"Sí"_s).con<QDialog>([&](QDialog &f) {
                if (campo != u"txtCB")
                    f.findChild<QWidget *>(u"txtProv"_s)->setProperty("Texto", 7);
                rellena(f, {{u"txtArticulo"_s, u"77"_s}, {campo, texto}});
            });
            conductor.responde(u"Sí"_s).responde(u"Aceptar"_s);
            forma.confirma(entrada);
            QVERIFY(conductor.terminado());
            QVERIFY2(ultima(conductor).contains(u"lleno\n"_s + dice), qPrintable(ultima(conductor)));
        }
    }

    void barcode_dialog_refuses_what_is_missing()
    {
        for (const auto &[entrada, codigo, unidades, texto] : casos<4>(uR"(
              → 123 → 1     → Debe especificar datos validos.
            1 → -   → 1     → Debe especificar datos validos.
            1 → 123 → 99999 → Las unidades no pueden pasar de 32767.
            1 → 123 → 6     →)"_s)) {
            Formulario forma;
            frmCodBarra_Datos dialogo(&forma);
            dialogo.cEmpresa = &forma.empresa;
            dialogo.CodBarras = entrada;
            Conductor conductor;
            conductor.con<QDialog>([&](QDialog &f) {
                rellena(f, {{u"txtUnidades"_s, unidades}, {u"txtCB"_s, codigo}});
            });
            if (!texto.isEmpty())
                conductor.responde(u"Aceptar"_s).con<QDialog>([](QDialog &f) { rellena(f, {}, Qt::Key_F12); });
            dialogo.MostrarModal();
            QVERIFY(conductor.terminado());
            QCOMPARE(ultima(conductor).section(u": "_s, 1), texto);
            QCOMPARE(dialogo.Aceptado ? dialogo.Unidades : qint16(0), texto.isEmpty() ? qint16(6) : qint16(0));
        }
    }

    /// Rule of the company, fields, answer → last box, where the focus is; no focus: accepted.
    void reference_dialog_refuses_what_is_missing_or_similar()
    {
        const QString similar =
            u"Se ha encontrado una referencia de proveedor similar en:\r\n\r\nArtículo: 12 - TORNILLO <M8> & TUERCA\r\nProveedor: 7 - HIERROS\r\nReferencia: a-b.c /\r\n\r\n"_s;
        for (const auto &[regla, articulo, proveedor, referencia, respuesta, dice, foco] : casos<7>(uR"(
              →     →    →          → Aceptar → ¡ Atención !: Debe especificar el proveedor del artículo   → txtProv
              →     → 99 →          → Aceptar → ¡ Atención !: Debe especificar el código del artículo      → txtArticulo
              → 12  → 99 →          → Aceptar → ¡ Atención !: Debe especificar la referencia del artículo  → txtReferencia
              → 12  → 99 → R        → Aceptar → ¡ Atención !: El proveedor especificado no existe.         → txtProv
              → 999 → 8  → R        → Aceptar → ¡ Atención !: El artículo especificado no existe.          → txtArticulo
              → 77  → 8  → a-b.c_/  →         →                                                            →
            0 → 77  → 8  → a-b.c_/  →         →                                                            →
            1 → 77  → 8  → a-b.c_/  → No      → Confirmar operación...: %1¿Desea continuar?                → txtReferencia
            3 → 77  → 8  → a-b.c_/  → Sí      → Confirmar operación...: %1¿Desea continuar?                →
            2 → 77  → 8  → a-b.c_/  → Aceptar → ¡ Atención !: %1NO SE PERMITE DUPLICAR UNA REFERENCIA DE PROVEEDOR. → txtReferencia
            4 → 77  → 8  → a-b.c_/  → Aceptar → ¡ Atención !: %1NO SE PERMITE DUPLICAR UNA REFERENCIA DE PROVEEDOR. → txtReferencia)"_s)) {
            Formulario forma;
            forma.empresa.valores[u"Articulos_CheckRefProv"_s] = regla;
            frmReferencias_Modificar dialogo(&forma);
            dialogo.cEmpresa = &forma.empresa;
            dialogo.Articulo = u"0"_s;
            Conductor conductor;
            conductor.con<QDialog>([&](QDialog &f) {
                rellena(f, {{u"txtArticulo"_s, articulo},
                            {u"txtProv"_s, proveedor},
                            {u"txtReferencia"_s, QString(referencia).replace(u'_', u' ')}});
            });
            if (!respuesta.isEmpty())
                conductor.responde(respuesta);
            if (!foco.isEmpty())
                conductor.con<QDialog>([&](QDialog &f) {
                    const auto *campo = f.findChild<QWidget *>(foco);
                    QVERIFY2(campo == f.focusWidget() || campo->isAncestorOf(f.focusWidget()), qPrintable(foco));
                    f.close();
                });
            dialogo.MostrarModal();
            QVERIFY(conductor.terminado() && dialogo.Aceptado == foco.isEmpty());
            QCOMPARE(ultima(conductor), QString(dice).replace(u"%1"_s, similar));
        }
    }
};

NV_PRUEBA(tst_Asignaciones)
#include "tst_asignaciones.moc"
