#include "Formulario.h"
#include "support/BaseDatos.h"
#include "support/Programa.h"

#include "barcodes/frmCodBarra_Datos.h"
#include "creation/frmArticulos_Creacion.h"
#include "dialogs/frmReferencias_Modificar.h"

using namespace Qt::StringLiterals;
using namespace nv::pruebas;

/// An unknown barcode or reference, Yes, the item named: the document goes on.
class tst_Asignaciones : public QObject
{
    Q_OBJECT

    /// "field=text" over what stands there ("-" empties, "_" is a blank), "field" only goes there; F9 or F12 ends.
    static void rellena(QDialog &f, const QString &guion)
    {
        for (const QString &orden : guion.split(u' ')) {
            const QString texto = orden.section(u'=', 1).replace(u'_', u' ');
            if (auto *campo = f.findChild<QWidget *>(orden.section(u'=', 0, 0)))
                campo->setFocus();
            else
                QTest::keyClick(f.focusWidget(), orden == u"F9" ? Qt::Key_F9 : Qt::Key_F12);
            if (texto.isEmpty())
                continue;
            qobject_cast<QLineEdit *>(f.focusWidget())->selectAll();
            QTest::keyClick(f.focusWidget(), Qt::Key_Delete);
            QTest::keyClicks(f.focusWidget(), texto == u"-" ? QString() : texto);
        }
    }

    /// What the host gives, what is typed → the box, where the focus is; no focus: accepted.
    template <class Dialogo>
    static void acepta(Formulario &forma, Dialogo &dialogo, const QString &guion, const QString &respuesta,
                       const QString &foco)
    {
        dialogo.cEmpresa = &forma.empresa;
        forma.conductor.con<QDialog>([&](QDialog &f) { rellena(f, guion); });
        if (!respuesta.isEmpty())
            forma.conductor.responde(respuesta);
        if (!foco.isEmpty())
            forma.conductor.con<QDialog>([&](QDialog &f) {
                const auto *campo = f.findChild<QWidget *>(foco);
                QVERIFY2(campo == f.focusWidget() || campo->isAncestorOf(f.focusWidget()), qPrintable(foco));
                rellena(f, u"F12"_s);
            });
        dialogo.MostrarModal();
        QVERIFY2(forma.conductor.terminado() && dialogo.Aceptado == foco.isEmpty(), qPrintable(guion));
    }

private Q_SLOTS:
    /// What is done in the dialog, the answer to the box behind it → rows ("=": as before), title of the last box.
    void what_was_not_found_goes_to_the_item_that_is_named()
    {
        for (const auto &[entrada, guion, respuesta, filas, dice] : casos<5>(uR"(
            /590   → txtArticulo=12 F9            →         → 12,590,0 12,841,1 → ¡ Atención !
            /590   → txtArticulo=77 txtCB=591 F9  →         → 12,841,1 77,591,1 → ¡ Atención !
            /590   → txtArticulo=77 txtCB=841 F9  → No      → =                 → Confirmar
            /590   → txtArticulo=77 txtCB=841 F9  → Sí      → 77,841,1          → Confirmar
            /590   → F9                           → Aceptar → =                 → ¡ Error inesperado !
            /590   → txtArticulo=AB F9            → Aceptar → =                 → ¡ Error inesperado !
            /590   → txtArticulo=+12 F9           → Aceptar → =                 → ¡ Error inesperado !
            /590   → txtArticulo=-12 F9           → Aceptar → =                 → ¡ Error inesperado !
            /590   → txtArticulo=12 F12           →         → =                 → ¡ Atención !
            .NUEVA → txtArticulo=77 txtProv=8 F9  →         → 12,ABC,1 12,COMUN,1 77,COMUN,1 77,NUEVA,0   → ¡ Atención !
            .NUEVA → txtArticulo=1234 txtProv=8 F9 →        → 12,ABC,1 12,COMUN,1 77,COMUN,1 1234,NUEVA,1 → ¡ Atención !
            .NUEVA → txtArticulo=77 txtProv=7 txtReferencia=ABC F9 → No → =                               → Confirmar
            .NUEVA → txtArticulo=77 txtProv=7 txtReferencia=ABC F9 → Sí → 12,COMUN,1 77,ABC,0 77,COMUN,1  → Confirmar
            .NUEVA → txtArticulo=77 txtProv=7 F12 →         → =                 → ¡ Atención !)"_s)) {
            const QString tabla = entrada.startsWith(u'/') ? u"Cod_Barras, Principal FROM Articulos_CBarras"_s
                                                           : u"Ref, Principal FROM Articulos_Ref"_s;
            Formulario forma;
            forma.ejecuta(u"UPDATE Articulos_CBarras SET Cod_Barras = '841'"_s);
            const auto visto = [&] {
                return filasDe(*forma.conexion, u"SELECT Cod_Articulo, %1 ORDER BY 1, 2"_s.arg(tabla))
                    .join(u' ')
                    .replace(u'|', u',');
            };
            const QString antes = visto();
            forma.conductor.responde(u"Sí"_s).con<QDialog>([&](QDialog &f) {
                QVERIFY2(f.focusWidget()->objectName() == u"txtCodigo", "no item is proposed");
                rellena(f, guion);
            });
            if (!respuesta.isEmpty())
                forma.conductor.responde(respuesta);
            QVERIFY(forma.confirma(entrada));
            QCOMPARE(visto(), filas == u"=" ? antes : filas);
            QVERIFY2(filas == u"=" ? forma.retrato() == u"||P0|txtCodigo|P"
                                   : forma.retrato().endsWith(u"|P13|despues|E"),
                     qPrintable(guion));
            QVERIFY2(forma.dicho().startsWith(dice) && guion.contains(forma.articulo->Text()),
                     qPrintable(forma.dicho()));
            QCOMPARE(forma.articulo->Proveedor(),
                     guion.endsWith(u"F12") ? 0 : guion.section(u"txtProv="_s, 1).left(1).toInt());
        }
    }

    void fashion_edition_makes_a_new_item_and_remembers_its_values()
    {
        Formulario forma;
        forma.ejecuta(u"INSERT INTO Marcas (Codigo, Nombre) VALUES (5, 'M')"_s);
        forma.ajusta(u"EsUlvaro=1 Proveedor=8"_s);
        for (const bool acepta : {false, true, false}) {
            forma.conductor.responde(u"Sí"_s).con<frmArticulos_Creacion>([&](frmArticulos_Creacion &f) {
                QVERIFY(f.Ref == u"NUEVA" && f.Proveedor == forma.articulo->Proveedor() &&
                        f.Marca == (f.Proveedor == 8 ? 0 : 5));
                f.Codigo = 77;
                f.Proveedor = 7;
                f.Marca = 5;
                f.Aceptado = acepta;
                f.hide();
            });
            QVERIFY(forma.confirma(u".NUEVA"_s));
            QCOMPARE(forma.retrato(), acepta ? u"77|DE OTRO|P13|despues|E"_s : u"||P0|txtCodigo|P"_s);
        }
    }

    void failure_after_the_delete_says_what_is_gone()
    {
        Formulario forma;
        for (const auto &[entrada, tabla, guion, dice] : casos<4>(uR"(
            /1  → CBarras → txtArticulo=77 txtCB=8412345678905 F9
                ¬ → El código de barras 8412345678905 ya se ha quitado del artículo 12.
            .NO → Ref     → txtArticulo=77 txtProv=7 txtReferencia=ABC F9
                ¬ → La referencia ABC ya se ha quitado de los demás artículos del proveedor 7.)"_s)) {
            forma.ejecuta(
                u"CREATE TRIGGER falla%1 BEFORE INSERT ON Articulos_%1 BEGIN SELECT RAISE(ABORT, 'lleno'); END"_s.arg(
                    tabla));
            forma.conductor.responde(u"Sí"_s)
                .con<QDialog>([&](QDialog &f) { rellena(f, guion); })
                .responde(u"Sí"_s)
                .responde(u"Aceptar"_s);
            QVERIFY(forma.confirma(entrada));
            QVERIFY2(forma.dicho().contains(u"lleno\n"_s + dice), qPrintable(forma.dicho()));
        }
    }

    void barcode_dialog_refuses_what_is_missing()
    {
        for (const auto &[entrada, guion, dice, foco] : casos<4>(uR"(
              → txtCB=123 F9                   → ¡ Atención !: Debe especificar datos validos.         → txtCB
            1 → txtCB=- F9                     → ¡ Atención !: Debe especificar datos validos.         → txtCB
            1 → txtUnidades=99999 txtCB=123 F9 → ¡ Atención !: Las unidades no pueden pasar de 32767. → txtUnidades
            1 → txtUnidades=6 txtCB=123 F9     →                                                       →)"_s)) {
            Formulario forma;
            frmCodBarra_Datos dialogo(&forma);
            dialogo.CodBarras = entrada;
            acepta(forma, dialogo, guion, dice.isEmpty() ? dice : u"Aceptar"_s, foco);
            QCOMPARE(forma.dicho(), dice);
            QCOMPARE(dialogo.Unidades, qint16(dice.isEmpty() ? 6 : 1));
        }
    }

    void reference_dialog_refuses_what_is_missing_or_similar()
    {
        const QString similar =
            u"Se ha encontrado una referencia de proveedor similar en:\r\n\r\nArtículo: 12 - TORNILLO "
            u"<M8> & TUERCA\r\nProveedor: 7 - HIERROS\r\nReferencia: a-b.c /\r\n\r\n"_s;
        for (const auto &[regla, articulo, otros, respuesta, dice, foco] : casos<6>(uR"(
              →     →                           → Aceptar → Debe especificar el proveedor del artículo  → txtProv
              →     → txtProv=99                → Aceptar → Debe especificar el código del artículo     → txtArticulo
              → 12  → txtProv=99                → Aceptar → Debe especificar la referencia del artículo → txtReferencia
              → 12  → txtProv=99 txtReferencia=R → Aceptar → El proveedor especificado no existe. → txtProv
              → 999 → txtProv=8 txtReferencia=R → Aceptar → El artículo especificado no existe.         → txtArticulo
              → 77  → txtProv=8 txtReferencia=a-b.c_/ →         →                                       →
            0 → 77  → txtProv=8 txtReferencia=a-b.c_/ →         →                                       →
            1 → 77  → txtProv=8 txtReferencia=a-b.c_/ → No      → %1¿Desea continuar?      → txtReferencia
            3 → 77  → txtProv=8 txtReferencia=a-b.c_/ → Sí      → %1¿Desea continuar?      →
            2 → 77  → txtProv=8 txtReferencia=a-b.c_/ → Aceptar → %1NO SE PERMITE DUPLICAR   → txtReferencia
            4 → 77  → txtProv=8 txtReferencia=a-b.c_/ → Aceptar → %1NO SE PERMITE DUPLICAR   → txtReferencia)"_s)) {
            Formulario forma;
            forma.empresa.valores[u"Articulos_CheckRefProv"_s] = regla;
            frmReferencias_Modificar dialogo(&forma);
            dialogo.Articulo = u"0"_s;
            acepta(forma, dialogo, u"txtArticulo=%1 %2 F9"_s.arg(articulo, otros).simplified(), respuesta, foco);
            const QString titulo = respuesta == u"Aceptar" ? u"¡ Atención !: "_s : u"Confirmar operación...: "_s;
            QVERIFY2(respuesta.isEmpty() ? forma.dicho().isEmpty()
                                         : forma.dicho().startsWith(titulo + QString(dice).replace(u"%1"_s, similar)),
                     qPrintable(forma.dicho()));
        }
    }
};

NV_PRUEBA(tst_Asignaciones)
#include "tst_asignaciones.moc"
