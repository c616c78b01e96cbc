#include "Formulario.h"
#include "support/BaseDatos.h"
#include "support/Programa.h"

#include "creation/frmArticulos_Creacion.h"

using namespace Qt::StringLiterals;
using namespace nv::pruebas;

/// An unknown barcode or reference, Yes, the item named: the document goes on.
class tst_Asignaciones : public QObject
{
    Q_OBJECT

    /// "field=text" over what stands there; F9 or F12 ends.
    static void rellena(QDialog &f, const QString &guion)
    {
        for (const QString &orden : guion.split(u' ')) {
            const QString texto = orden.section(u'=', 1);
            if (auto *campo = f.findChild<QWidget *>(orden.section(u'=', 0, 0)))
                campo->setFocus();
            else
                QTest::keyClick(f.focusWidget(), orden == u"F9" ? Qt::Key_F9 : Qt::Key_F12);
            if (texto.isEmpty())
                continue;
            qobject_cast<QLineEdit *>(f.focusWidget())->selectAll();
            QTest::keyClick(f.focusWidget(), Qt::Key_Delete);
            QTest::keyClicks(f.focusWidget(), texto);
        }
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
            /590   → txtArticulo=12 txtCB=841 F9  →         → 12,841,1          → ¡ Atención !
            /590   → F9 F12                       →         → =                 → ¡ Atención !
            /590   → txtArticulo=AB F9 F12        →         → =                 → ¡ Atención !
            /590   → txtArticulo=+12 F9 F12       →         → =                 → ¡ Atención !
            /590   → txtArticulo=.55 F9 F12       → No      → =                 → ¡ Atención !
            /590   → txtArticulo=-12 F9 F12       → No      → =                 → ¡ Atención !
            /590   → txtArticulo=12 txtCB=5'0 F9 F12 → Aceptar → =              → ¡ Error inesperado !
            /590   → txtCB=12 txtArticulo=/841 F9 →         → 12,12,0 12,841,1  → ¡ Atención !
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
            /1  → CBarras → txtArticulo=77 txtCB=8412345678905 F9 F12
                ¬ → El código de barras 8412345678905 ya se ha quitado del artículo 12.
            .NO → Ref     → txtArticulo=77 txtProv=7 txtReferencia=ABC F9 F12
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
};

NV_PRUEBA(tst_Asignaciones)
#include "tst_asignaciones.moc"
