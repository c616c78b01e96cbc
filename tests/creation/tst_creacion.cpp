#include "Escenario.h"
#include "support/Programa.h"

#include <QApplication>
#include <QShortcut>
#include <QWheelEvent>
#include <QWindow>
#include <malloc.h>

using namespace Qt::StringLiterals;
using namespace nv::pruebas;

/// The creation form, from its first field to the item.
class tst_Creacion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whole_item_is_read_back_row_by_row()
    {
        Escenario e;
        e.empresa.valores[u"EsUlvaro"_s] = u"1"_s;
        QVERIFY(e.corre(uR"(
            todo 00321 L'ORÉAL-1; txtImpuesto = 1,5; txtCodBarras = 96385074; -> chkUnidadesDecimales; Espacio
            Enter; foco ? txtCodBarras; F9)"_s));
        QVERIFY(e.forma->Aceptado && e.dicho().isEmpty());
        for (const auto &[columnas, filas] : casos<2>(uR"(
            Descripcion, Desc_Ticket, FAlta FROM Articulos → ROPA ACME SPORT L'ORÉAL-1|ACM L'ORÉAL-1|22/11/2026
            Familia_1, Familia_2, Familia_3, Marca, TipoImpuesto, CualidadX, CualidadY FROM Articulos → 1|5|6|4|1.5|3|4
            NoGenerarSerieEAN, UnidadesDecimales, Temporada, Mod_Ficha FROM Articulos → 0|1|V26|1
            Cod_Empresa, Cod_Almacen FROM Almacen_Articulos → 1|1 1|2
            Cod_Empresa, Cod_Prov, Ref, Principal, Fecha FROM Articulos_Ref → 2|7|L'ORÉAL-1|1|22/11/2026
            Cod_Barras, Principal, Automatico, Unidades FROM Articulos_CBarras → 96385074|1|0|1 98100019|0|1|1)"_s)) {
            const QString clave = columnas.endsWith(u"M Articulos") ? u"Codigo"_s : u"Cod_Articulo"_s;
            QCOMPARE(e.filas(u"SELECT %1 WHERE %2 = 321 ORDER BY 1, 2"_s.arg(columnas, clave)), filas);
        }
        const auto &f = *e.forma;
        QCOMPARE((QList<int>{f.Codigo, f.Proveedor, f.Marca, f.TipoImpuesto, f.Familia_1, f.Familia_2, f.Familia_3,
                             f.CualidadX, f.CualidadY, f.NoGenerarSerieEAN, f.UnidadesDecimales}),
                 (QList<int>{321, 7, 4, 2, 1, 5, 6, 3, 4, 0, -1}));
        QVERIFY(f.Ref == u"L'ORÉAL-1" && f.Temporada == u"V26");
    }

    void presets_and_settings_fill_the_form()
    {
        Escenario e;
        static_cast<nv::DatosCreacion &>(*e.forma) = {{4, 1, 1, 5, 6, 0, 0, u"V26"_s, 1, -1}, 0, 7, u"B-1234"_s};
        QVERIFY(e.corre(uR"(
            foco ? txtCodigo; txtProv ? 7; lblPIgic ? 7 %; txtDesc_Ticket ? ACM B-1234
            txtDescripcion ? ROPA ACME SPORT B-1234; txtFamilia_3 ? 6; chkNoGenerarSerieEAN ? 1
            chkUnidadesDecimales ? 0; chkNoGenerarSerieEAN:activo ? 1; cmdAceptar:activo ? 0
            cmdCancelar:activo ? 0; F9; F12; Esc)"_s) &&
                !e.forma->Aceptado);
        for (const auto &[x, y, deX, deY] : casos<4>(u"0→4→→Colores\n3→0→Tallas→\n0→0→Tallas→Colores"_s)) {
            Escenario otro;
            otro.forma->CualidadX = x.toShort();
            otro.forma->CualidadY = y.toShort();
            otro.forma->UnidadesDecimales = 1;
            QVERIFY(otro.corre(
                u"cboCualX ? %1\ncboCualY ? %2\nchkUnidadesDecimales ? 1\nchkNoGenerarSerieEAN ? 0\ncierra"_s.arg(
                    deX, deY)));
        }
        Escenario sin;
        sin.sql(u"UPDATE Empresas SET FamiliaObligada = NULL, MaxCodigoArt = NULL, CualidadX_PorDefecto = NULL, "
                u"Series_Automaticas = NULL"_s);
        sin.empresa.familias[2].clear();
        QVERIFY(sin.corre(uR"(
            chkNoGenerarSerieEAN:activo ? 0; txtFamilia_3:activo ? 0; lblTFamilia_3:activo ? 0
            txtCodigo = 2000000; Enter; abierto ? 1; txtFamilia_2 =; Enter; foco ? cboCualX; Enter
            foco ? cboCualY; cierra)"_s));
    }

    void descriptions_follow_their_fields()
    {
        Escenario e;
        e.acciones[u"conserva"_s] = [&] { e.hijo(u"cboCualY"_s)->setProperty("Tag", u"   2"_s); };
        QVERIFY(e.corre(uR"(
            txtCodigo = 1; Enter; txtMarca = 4; txtRef = B-1; txtDesc_Ticket ? ACM B-1
            txtDescripcion ? ·ACME SPORT B-1; txtDesc_Ticket = A MANO; txtFamilia_1 = 2; Enter
            txtDesc_Ticket ? ACM B-1; txtDescripcion ? CALZ ACME SPORT B-1; txtDescripcion = A MANO
            txtImpuesto = -1; txtImpuesto ? 1; -> txtRef; lblPIgic ? 7 %; conserva; F12; txtDescripcion ?; txtRef ?
            lblPIgic ?; txtMarca ? 4; cboCualX ? (ninguna); cboCualY ? Colores; Esc)"_s));
    }

    void families_go_with_the_upper_one_and_a_picker_takes_its_name_along()
    {
        Escenario e;
        QVERIFY(e.corre(uR"(
            todo 200 R; foco ? cboCualX; -> txtFamilia_1; Enter; foco ? txtFamilia_2; txtFamilia_3 ? 6
            txtFamilia_1 = 2; Enter; txtFamilia_2 ?; txtFamilia_3 ?; txtFamilia_2 = 5; txtFamilia_3 = 6
            txtFamilia_1 ? 2; sql UPDATE Familias_1 SET Nombre = 'ZAPATO'; txtMarca =; F9; 200 ? 1|CALZ··R)"_s));
        Escenario otro;
        QVERIFY(otro.corre(u"todo 200 R\ntxtMarca =\n-> txtRef\ntxtMarca = 4\nF9"_s));
        QCOMPARE(otro.ve(u"200"_s), u"1|ROPA ACME SPORT R"_s);
    }

    void a_code_is_confirmed_or_refused()
    {
        for (const auto &[texto, queda, foco, dice] : casos<4>(uR"(
            ··          → ··          → txtCodigo →
            00012       → 00012       → txtProv   →
            12ab        → 12          → txtProv   →
            999         → 999         → txtProv   →
            5000        → 5000        → txtProv   →
            100         →             → txtCodigo → ¡Atención!: Este código ya está asignado a otro artículo.
            5001        →             → txtCodigo →
            0           →             → txtCodigo →
            ABC         →             → txtCodigo →
            99999999999 → 99999999999 → txtCodigo → ¡ Atención !: Desbordamiento)"_s)) {
            Escenario e;
            QVERIFY(
                e.corre(u"txtCodigo = %1; Enter; %2;txtCodigo ? %3; foco ? %4; abierto ? %5; cmdAceptar:activo ? %5; "
                        u"clic cmdCerrar"_s.arg(texto, dice.isEmpty() ? dice : u"responde Aceptar"_s, queda, foco)
                            .arg(foco == u"txtProv")));
            QVERIFY2(e.dijo(dice), qPrintable(e.dicho()));
            QVERIFY2(e.filas(u"SELECT Codigo FROM Articulos ORDER BY Codigo"_s) == u"100 999",
                     "a code that was taken stays");
            QVERIFY(e.filas(u"SELECT * FROM Almacen_Articulos"_s).isEmpty());
        }
    }

    void keys_held_down_wheel_and_esc_do_one_thing_at_a_time()
    {
        Escenario e;
        const auto retenida = [&](int tecla) {
            return [&e, tecla] {
                QKeyEvent suceso(QEvent::KeyPress, tecla, Qt::NoModifier, QString(), true);
                QCoreApplication::sendEvent(e.forma->focusWidget(), &suceso);
            };
        };
        new QShortcut(Qt::Key_F6, e.forma); // a host's, which must not take the key away
        e.acciones[u"F6..."_s] = retenida(Qt::Key_F6);
        e.acciones[u"Esc..."_s] = retenida(Qt::Key_Escape);
        e.acciones[u"rueda"_s] = [&] {
            const QWidget *lista = e.hijo(u"cboCualX"_s);
            const QPointF medio = lista->rect().center();
            QWheelEvent suceso(medio, lista->mapToGlobal(medio), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(e.hijo(u"cboCualX"_s), &suceso);
        };
        e.acciones[u"Esc en la lista"_s] = [&] {
            qobject_cast<QComboBox *>(e.hijo(u"cboCualX"_s))->showPopup();
            QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
        };
        QVERIFY(e.corre(uR"(
            F6...; abierto ? 0; F6; txtCodigo ? 101; abierto ? 1; 101 ? 0|; rueda; cboCualX ? Tallas
            -> cboCualX; rueda; cboCualX ? Colores; Esc en la lista; abierto ? 1; Esc; 101 ?; visible ? 1
            foco ? txtCodigo; Esc...; visible ? 1; sql DROP TABLE Articulos
            sql CREATE TABLE Articulos (Cod_Empresa int, Codigo varchar(9))
            sql INSERT INTO Articulos VALUES (2, 'A1'); F6; responde Aceptar; Esc; visible ? 0)"_s));
        QCOMPARE(e.dicho(), u"¡ Atención !: No esta disponible esta opción en códigos alfanuméricos"_s);
    }

    void validation_stops_at_the_first_thing_missing()
    {
        Escenario e;
        QString guion = u"txtCodigo = 200\nEnter\ncboCualX = 0\ncboCualY = 0\nF9\n"_s;
        QStringList dicen;
        for (const auto &[dice, respuesta, foco, remedio] : casos<4>(uR"(
            Especifique un proveedor para el artículo           → Aceptar → txtProv        → txtProv = 7
            Especifique una referencia para el artículo         → Aceptar → txtRef         → txtRef = YA
            Especifique el valor de Familia para el artículo    → Aceptar → txtFamilia_1   → txtFamilia_1 = 1
            Especifique el valor de SubFamilia para el artículo → Aceptar → txtFamilia_2   → txtFamilia_2 = 5
            Especifique el valor de Linea para el artículo      → Aceptar → txtFamilia_3   → txtFamilia_3 = 6
            Especifique el valor para Talla                     → Aceptar → cboCualX       → cboCualX = 1
            Especifique el valor para Color                     → Aceptar → cboCualY       → cboCualY = 2
            La referencia especificada ya existe.               → Aceptar → txtRef         → txtDescripcion =
            El artículo no tiene descripción. ¿Desea continuar? → No      → txtDescripcion → -> cboCualX
            El artículo no tiene descripción. ¿Desea continuar? → No      → txtDescripcion → txtProv = 8)"_s)) {
            guion += u"responde %1\nfoco ? %2\n%3\n%4\nF9\n"_s.arg(
                respuesta, foco, remedio, remedio.contains(u"txtDescripcion") ? u"-> cboCualX"_s : QString());
            dicen << (dice.endsWith(u'?') ? u"Confirmar operación..: "_s : u"Validando artículo...: "_s) + dice;
        }
        QVERIFY(e.corre(guion + u"responde Sí"_s));
        QVERIFY2(e.forma->Aceptado, "the same reference of another supplier is allowed");
        QCOMPARE(e.dicho(),
                 dicen.join(u'/') + u"/Confirmar operación..: El artículo no tiene descripción. ¿Desea continuar?"_s);
    }

    void a_barcode_is_checked_once_when_it_is_left()
    {
        for (const auto &[barras, conCheck, respuesta, queda, dice] : casos<5>(uR"(
            9638507  → 0 → responde Aceptar → 9638507  → Código de barras: El código de barras introducido
            9638507  → 1 → responde Sí      → 96385074 → ¡ Atención : El código de barras es de 7 dígitos, ¿desea
            96385074 → 1 →                  → 96385074 →
            4006381333931 → 0 → responde Aceptar → 4006381333931 → Advertencia!: El EAN 4006381333931 existe en el
            5901234123457 → 0 →                  → 5901234123457 →)"_s)) {
            Escenario e;
            e.sql(u"INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras) "
                  u"VALUES (2, 1, '5901234123457')"_s);
            e.empresa.valores[u"Check_Barras_7Digitos"_s] = conCheck;
            QVERIFY(
                e.corre(u"txtCodigo = 1; Enter; txtCodBarras = %1; Enter; %2;txtCodBarras ? %3; foco ? txtDescripcion; "
                        u"-> txtCodBarras; Enter; cierra"_s.arg(barras, respuesta, queda)));
            QVERIFY2(e.dijo(dice), qPrintable(e.dicho()));
        }
    }

    void barcode_warnings_do_not_swallow_the_click()
    {
        for (const QString &nombre : {u"cmdAceptar"_s, u"cmdCerrar"_s, u"cmdCancelar"_s}) {
            Escenario e;
            const bool acepta = nombre == u"cmdAceptar";
            e.acciones[u"ratón"_s] = [&] {
                // Through the window, so that the buttons of the mouse are known to be down.
                const QWidget *boton = e.hijo(nombre);
                QTest::mouseClick(e.forma->windowHandle(), Qt::LeftButton, {},
                                  boton->mapTo(e.forma, boton->rect().center()));
                QTest::qWait(30);
            };
            QVERIFY(e.corre(
                u"todo 200 R\ntxtCodBarras = 4006381333931\nratón\n"_s +
                (acepta ? u"responde Aceptar"_s : u"200 ?\nvisible ? %1\ncierra"_s.arg(nombre == u"cmdCancelar"))));
            QCOMPARE(e.forma->Aceptado, acepta);
            QCOMPARE(e.dicho(), acepta
                                    ? u"Advertencia!: El EAN 4006381333931 existe en el artículo 100 - CAMISA VIEJA."_s
                                    : QString());
        }
    }

    /// What is freed is filled, so that reading it again does not go unnoticed.
    void window_of_the_host_may_go_while_a_box_is_up()
    {
        mallopt(M_PERTURB, 0xA5);
        for (const auto &[guion, conCheck] : casos<2>(uR"(
            txtCodigo = 100; Enter                                    → 0
            txtCodigo = 99999999999; Enter                            → 0
            todo 200 R; txtProv =; F9                                 → 0
            todo 200 R; txtDescripcion =; F9                          → 0
            todo 200 YA; F9                                           → 0
            todo 200 R; sql DROP TABLE Articulos_Ref; F9              → 0
            todo 200 R; txtCodBarras = 9638507; ratón                 → 0
            todo 200 R; txtCodBarras = 9638507; ratón                 → 1
            todo 200 R; txtCodBarras = 9638507; -> txtCodBarras; Enter → 1
            todo 200 R; txtCodBarras = 4006381333931; ratón           → 0
            todo 200 R; sql DROP TABLE Almacen_Articulos; F12         → 0
            todo 200 R; sql DROP TABLE Almacen_Articulos; cierra      → 0)"_s)) {
            Escenario e;
            e.empresa.valores[u"Check_Barras_7Digitos"_s] = conCheck;
            e.acciones[u"espera"_s] = [&] { e.conductor.con<QMessageBox>([&](QMessageBox &) { e.ventana.reset(); }); };
            e.acciones[u"ratón"_s] = [&] {
                const QPoint lugar = e.hijo(u"txtRef"_s)->mapTo(e.forma, QPoint(5, 5));
                QTest::mouseClick(e.forma->windowHandle(), Qt::LeftButton, {}, lugar);
            };
            e.corre(u"espera; "_s + guion);
            QVERIFY2(!e.forma, qPrintable(guion));
        }
    }
};

NV_PRUEBA(tst_Creacion)
#include "tst_creacion.moc"
