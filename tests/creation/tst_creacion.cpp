#include "Escenario.h"
#include "platform/pickers/SelectorCodigo.h"
#include "support/Programa.h"

#include <QApplication>
#include <QShortcut>
#include <QWheelEvent>
#include <malloc.h>

using namespace Qt::StringLiterals;
using namespace nv::pruebas;

/// The creation form, from its first field to the item, and the item's rows without a form.
class tst_Creacion : public QObject
{
    Q_OBJECT

    static nv::FichaAlta ficha()
    {
        return {u"200"_s, 7, u"R"_s, 0, {}, u"1"_s, {}, {}, {3, 4}, false, true, {}, {}, {}};
    }

private Q_SLOTS:
    void whole_item_is_read_back_row_by_row()
    {
        Escenario e;
        e.empresa.valores[u"EsUlvaro"_s] = u"1"_s;
        QVERIFY(e.corre(uR"(
            todo 00321 L'ORÉAL-1; txtImpuesto = ,2; txtCodBarras = 96385074; -> chkUnidadesDecimales; Espacio
            Enter; foco ? txtCodBarras; F9)"_s));
        QVERIFY(e.forma->Aceptado && e.dicho().isEmpty());
        for (const auto &[columnas, filas] : casos<2>(uR"(
            Descripcion, Desc_Ticket, FAlta FROM Articulos → ROPA ACME SPORT L'ORÉAL-1|ACM L'ORÉAL-1|22/11/2026
            Familia_1, Familia_2, Familia_3, Marca, TipoImpuesto, CualidadX, CualidadY FROM Articulos → 1|5|6|4|2|3|4
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
            chkUnidadesDecimales ? 0; chkNoGenerarSerieEAN:activo ? 1; cboCualX ? Tallas; cboCualY ? Colores
            cmdAceptar:activo ? 0; cmdCancelar:activo ? 0; F9; F12; Esc)"_s) &&
                !e.forma->Aceptado);
        Escenario soloX, soloY;
        soloX.forma->CualidadX = 3;
        soloX.forma->UnidadesDecimales = 1;
        soloY.forma->CualidadY = 4;
        QVERIFY(soloX.corre(u"cboCualX ? Tallas; cboCualY ?; chkUnidadesDecimales ? 1; cierra"_s));
        QVERIFY(soloY.corre(u"cboCualX ?; cboCualY ? Colores; chkNoGenerarSerieEAN ? 0; cierra"_s));
        Escenario sin;
        sin.sql(u"UPDATE Empresas SET FamiliaObligada = NULL, MaxCodigoArt = NULL, CualidadX_PorDefecto = NULL, "
                u"Series_Automaticas = NULL"_s);
        sin.empresa.familias[2].clear();
        QVERIFY(sin.corre(uR"(
            chkNoGenerarSerieEAN:activo ? 0; txtFamilia_3:activo ? 0; lblTFamilia_3:activo ? 0
            txtCodigo = 2000000; Enter; abierto ? 1; txtFamilia_2 =; Enter; foco ? cboCualX; Enter
            foco ? cboCualY; cierra)"_s));
    }

    void descriptions_follow_their_fields_and_families_the_upper_one()
    {
        Escenario e;
        e.acciones[u"conserva"_s] = [&] { e.hijo(u"cboCualY"_s)->setProperty("Tag", u"   2"_s); };
        QVERIFY(e.corre(uR"(
            txtCodigo = 1; Enter; txtMarca = 4; txtRef = B-1; txtDesc_Ticket ? ACM B-1
            txtDescripcion ? ·ACME SPORT B-1; txtDesc_Ticket = A MANO; txtFamilia_1 = 2; Enter
            txtDesc_Ticket ? A MANO; txtDescripcion ? CALZ ACME SPORT B-1; txtDesc_Ticket =; txtRef = B-2
            txtDesc_Ticket ? ACM B-2; txtDescripcion = A MANO; txtDescripcion ? A MANO
            txtImpuesto = -1; txtImpuesto ? 1; -> txtRef; lblPIgic ? 7 %; conserva; F12; txtDescripcion ?; txtRef ?
            lblPIgic ?; txtMarca ? 4; cboCualX ? (ninguna); cboCualY ? Colores; cboCualX = 1
            todo 200 R; foco ? cboCualX; -> txtFamilia_1; Enter; foco ? txtFamilia_2; txtFamilia_3 ? 6
            txtFamilia_1 = 2; Enter; txtFamilia_2 ?; txtFamilia_3 ?; txtFamilia_2 = 5; txtFamilia_3 = 6
            txtFamilia_1 ? 2; sql UPDATE Familias_1 SET Nombre = 'ZAPATO'; txtMarca =; F9; responde Sí; responde Sí)"_s));
        QCOMPARE(e.ve(u"200"_s), u"1|CALZ  R"_s);
        // What a picker has not yet looked up is in the description all the same, unless that was written by hand.
        for (const auto &[mano, queda] : casos<2>(u"→ ROPA ACME SPORT R\ntxtDescripcion = MIA; → MIA"_s)) {
            Escenario otro;
            QVERIFY(
                otro.corre(u"todo 200 R; txtMarca =; -> txtRef; %1 txtMarca = 4; F9; 200 ? 1|%2"_s.arg(mano, queda)));
        }
    }

    /// The last digits before F9, what is asked, the answer, where the focus is then.
    void what_does_not_exist_is_asked_about_before_it_is_saved()
    {
        for (const auto &[campo, pregunta, respuesta, queda] : casos<4>(uR"(
            txtProv = 99      → El proveedor 99 no existe. ¿Desea continuar?       → No      → txtProv
            txtProv = 99      → El proveedor 99 no existe. ¿Desea continuar?       → Sí      → guardado
            txtMarca = 9      → La marca 9 no existe. ¿Desea continuar?            → No      → txtMarca
            txtFamilia_1 = 9  → Familia 9 no existe. ¿Desea continuar?             → No      → txtFamilia_1
            txtFamilia_3 = 5  → Linea 5 no existe. ¿Desea continuar?               → Sí      → guardado
            txtTemporada = X  → La temporada X no existe. ¿Desea continuar?        → No      → txtTemporada
            txtMarca = 40000  → La marca 40000 no existe: los códigos llegan a 32767. → Aceptar → txtMarca
            txtProv = 9999999999 → El proveedor 9999999999 no existe: los códigos llegan a 2147483647. → Aceptar → txtProv
            txtImpuesto = 40000  → El número 40000 se sale de lo que cabe (Igic).  → Aceptar → txtImpuesto)"_s)) {
            Escenario e;
            e.sql(u"UPDATE Empresas SET FamiliaObligada = 0"_s);
            const bool guarda = queda == u"guardado";
            QVERIFY(e.corre(u"todo 200 R; %1; F9; responde %2; %3"_s.arg(
                campo, respuesta, guarda ? QString() : u"foco ? %1; cierra"_s.arg(queda))));
            QVERIFY2(e.forma->Aceptado == guarda && e.dicho().endsWith(u": "_s + pregunta), qPrintable(e.dicho()));
            const auto *selector = dynamic_cast<nv::SelectorCodigo *>(e.hijo(queda));
            QVERIFY(!selector || selector->findChild<QLabel *>(u"nombre"_s)->text() == u"No existe");
        }
    }

    void a_code_is_confirmed_or_refused()
    {
        for (const auto &[texto, queda, foco, dice] : casos<4>(uR"(
            ··         → ··    → txtCodigo →
            00012      → 00012 → txtProv   →
            12ab       → 12    → txtProv   →
            999        → 999   → txtProv   →
            5000       → 5000  → txtProv   →
            0          →       → txtCodigo → «0» no es un código de artículo
            ABC        →       → txtCodigo → «ABC» no es un código de artículo
            5001       →       → txtCodigo → El código 5001 pasa del mayor que se admite: 5000
            9999999999 →       → txtCodigo → El código 9999999999 pasa del mayor que se admite: 5000)"_s)) {
            Escenario e;
            QVERIFY(e.corre(u"txtCodigo = %1; Enter; txtCodigo ? %2; foco ? %3; lblAviso ? %4; abierto ? %5; "
                            u"cmdAceptar:activo ? %5; "
                            u"clic cmdCerrar"_s.arg(texto, queda, foco, dice.isEmpty() ? u"no such field"_s : dice)
                                .arg(foco == u"txtProv")));
            QVERIFY2(e.dicho().isEmpty(), qPrintable(e.dicho()));
            QCOMPARE(e.filas(u"SELECT Codigo FROM Articulos UNION ALL SELECT Cod_Articulo FROM Almacen_Articulos "
                             u"ORDER BY 1"_s),
                     u"100 999"_s);
        }
        Escenario e;
        QVERIFY(e.corre(uR"(txtCodigo = 100; Enter; responde Aceptar; txtCodigo ?
            lblAviso ? El código 100 ya está asignado; cierra)"_s));
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
        QString guion = u"txtCodigo = 200; Enter; cboCualX = 0; cboCualY = 0"_s;
        QStringList dicen;
        for (const auto &[dice, respuesta, foco, remedio] : casos<4>(uR"(
            Especifique un proveedor para el artículo           → Aceptar → txtProv        → txtProv = 7
            Especifique una referencia para el artículo         → Aceptar → txtRef         → txtRef = YA
            Especifique el valor de Familia para el artículo    → Aceptar → txtFamilia_1   → txtFamilia_1 = 1
            Especifique el valor de SubFamilia para el artículo → Aceptar → txtFamilia_2   → txtFamilia_2 = 5
            Especifique el valor de Linea para el artículo      → Aceptar → txtFamilia_3   → txtFamilia_3 = 6
            Especifique el valor para Talla                     → Aceptar → cboCualX       → cboCualX = 1
            Especifique el valor para Color                     → Aceptar → cboCualY       → cboCualY = 2
            La referencia especificada ya existe.               → Aceptar → txtRef → txtDescripcion =; -> cboCualX
            El artículo no tiene descripción. ¿Desea continuar? → No      → txtDescripcion → txtProv = 8)"_s)) {
            guion += u"; F9; responde %1; foco ? %2; %3"_s.arg(respuesta, foco, remedio);
            dicen << (dice.endsWith(u'?') ? u"Confirmar operación..: "_s : u"Validando artículo...: "_s) + dice;
        }
        QVERIFY(e.corre(guion + u"; F9; responde Sí"_s));
        QVERIFY2(e.forma->Aceptado, "the same reference of another supplier is allowed");
        QCOMPARE(e.dicho(), (dicen << dicen.back()).join(u'/'));
    }

    void a_barcode_is_checked_once_when_it_is_left()
    {
        for (const auto &[barras, conCheck, respuesta, queda, dice] : casos<5>(uR"(
            9638507  → 0 → responde Aceptar → 9638507  → Código de barras: El código de barras introducido
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
            QVERIFY(e.corre(
                u"todo 200 R; txtCodBarras = 4006381333931; clic %1; "_s.arg(nombre) +
                (acepta ? u"responde Aceptar"_s : u"200 ?; visible ? %1; cierra"_s.arg(nombre == u"cmdCancelar"))));
            QCOMPARE(e.forma->Aceptado, acepta);
            QVERIFY(e.dijo(acepta ? u"Advertencia!: El EAN 4006381333931 existe en el artículo 100 - CAMISA VIEJA."_s
                                  : QString()));
        }
    }

    /// What is freed is filled, so that reading it again does not go unnoticed.
    void window_of_the_host_may_go_while_a_box_is_up()
    {
        mallopt(M_PERTURB, 0xA5);
        for (const auto &[guion, conCheck] : casos<2>(uR"(
            txtCodigo = 100; Enter                                    → 0
            todo 200 R; txtMarca = 9; F9                              → 0
            todo 200 R; txtProv =; F9                                 → 0
            todo 200 R; txtDescripcion =; F9                          → 0
            todo 200 YA; F9                                           → 0
            todo 200 R; sql DROP TABLE Articulos_Ref; F9              → 0
            todo 200 R; txtCodBarras = 9638507; clic txtRef           → 0
            todo 200 R; txtCodBarras = 9638507; clic txtRef           → 1
            todo 200 R; txtCodBarras = 9638507; -> txtCodBarras; Enter → 1
            todo 200 R; txtCodBarras = 4006381333931; clic txtRef     → 0
            todo 200 R; sql DROP TABLE Almacen_Articulos; F12         → 0
            todo 200 R; sql DROP TABLE Almacen_Articulos; cierra      → 0)"_s)) {
            Escenario e;
            e.empresa.valores[u"Check_Barras_7Digitos"_s] = conCheck;
            e.acciones[u"espera"_s] = [&] { e.conductor.con<QMessageBox>([&](QMessageBox &) { e.ventana.reset(); }); };
            e.corre(u"espera; "_s + guion);
            QVERIFY2(!e.forma, qPrintable(guion));
        }
    }

    void descriptions_are_composed_from_a_layout()
    {
        // The second level has a name on screen but no code any more.
        const nv::CamposDescripcion campos{
            u"ACME SPORT"_s, u"B-1234"_s, u"V26"_s, {{{1, u"ROPA"_s}, {0, u"CAMISAS"_s}, {6, u"MANGA"_s}}}};
        for (const auto &[formato, descripcion] : casos<2>(uR"(
            1:3 0:1 2:10       → ACM B-1234
            4:20 5:2 6:3       → ROPAMAN
            3:1 0:2 3:9        → V··V26
            7:5 -1:5 1:-2 0:-1 →)"_s)) {
            nv::FormatoDescripcion entradas;
            for (const QString &entrada : formato.split(u' ', Qt::SkipEmptyParts))
                entradas.push_back({entrada.section(u':', 0, 0).toShort(), entrada.section(u':', 1).toShort()});
            QCOMPARE(nv::componerDescripcion(entradas, campos), descripcion);
        }
    }

    void rows_are_made_and_only_they_are_undone()
    {
        Escenario e;
        const auto huella = [&] {
            return e.filas(u"SELECT Cod_Empresa, Codigo, FAlta, Mod_Ficha FROM Articulos WHERE Codigo <> 999"_s) +
                   u" / "_s + e.filas(u"SELECT Cod_Empresa, Cod_Almacen, Cod_Articulo FROM Almacen_Articulos"_s);
        };
        const QString enAlmacen = u"INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo) VALUES "_s;
        e.sql(enAlmacen + u"(1, 1, 100), (2, 9, 200)"_s);
        const QString antes = huella();
        nv::AltaArticulo alta(e.empresa, *e.conexion);
        alta.deshacer();
        QVERIFY(falla([&] { alta.abrir(100); }) && !alta.abierta() && alta.Existe(100) && !alta.Existe(999));
        alta.deshacer();
        QCOMPARE(huella(), antes);
        alta.abrir(200);
        QVERIFY(alta.abierta() && alta.Existe(200));
        QCOMPARE(huella(), u"2|100|NULL|1 2|200|22/11/2026|0 / 1|1|100 1|1|200 1|2|200 2|9|200"_s);
        alta.deshacer();
        QVERIFY(!alta.abierta());
        QCOMPARE(huella(), antes);
        alta.abrir(200);
        alta.guardar(ficha());
        alta.deshacer();
        QVERIFY2(e.ve(u"200"_s).startsWith(u"1|"), "what is complete is not undone");
        e.sql(enAlmacen + u"(1, 2, 300)"_s);
        QVERIFY(falla([&] { alta.abrir(300); }) && !alta.abierta() && e.ve(u"300"_s).isEmpty());
        QCOMPARE(e.filas(u"SELECT Cod_Almacen FROM Almacen_Articulos WHERE Cod_Articulo = 300"_s), u"2"_s);
    }

    void limits_and_what_is_missing_follow_the_settings_of_the_company()
    {
        Escenario e;
        nv::AltaArticulo alta(e.empresa, *e.conexion);
        nv::FichaAlta f = ficha();
        QVERIFY2(alta.cabe(2000000) && !alta.cabe(0) && !alta.cabe(-5), "no limit before the settings are read");
        QVERIFY(!alta.falta(f));
        QCOMPARE(alta.leerAjustes().maxCodigo, 5000);
        e.empresa.familias[1].clear();
        f.familiaEscrita = {true, false, true};
        QVERIFY(!alta.falta(f));
        f.codigo = u" "_s;
        QCOMPARE(alta.falta(f).value().texto, u"Especifique un código para el artículo"_s);
        f.codigo = u"100"_s;
        f.referencia = u"YA"_s;
        QVERIFY2(!alta.referenciaRepetida(f), "its own is no other");
        QCOMPARE(alta.siguienteCodigo().value_or(-1), 101);
        e.sql(u"DELETE FROM Articulos"_s);
        QCOMPARE(alta.siguienteCodigo().value_or(-1), 1);
        e.sql(u"DROP TABLE Articulos"_s);
        QVERIFY2(falla([&] { alta.siguienteCodigo(); }), "only codes that are no numbers are not an error");
        e.sql(u"DELETE FROM Empresas"_s);
        const auto &ajustes = alta.leerAjustes();
        QVERIFY(!ajustes.familiaObligada && !ajustes.seriesAutomaticas && ajustes.maxCodigo == 0);
    }

    /// Settings, barcode typed, an axis with a second value → barcodes, or the error.
    void barcodes_that_come_with_the_item()
    {
        for (const auto &[moda, automaticas, barras, eje, quedan] : casos<5>(uR"(
            0 → 1 →          → 9 → 98100019|1|1
            0 → 0 → ·        → 9 →
            1 → 0 →          → 3 →
            0 → 0 → 96385074 → 3 → 96385074|0|1
            1 → 0 → 96385074 → 3 → error
            1 → 0 → 96385074 → 4 → error)"_s)) {
            Escenario e;
            e.empresa.valores[u"EsUlvaro"_s] = moda;
            e.sql(u"UPDATE Empresas SET CodigoBarrasAuto = "_s + automaticas);
            e.sql(u"INSERT INTO Cualidades_Des (Cod_Empresa, Cod_Cualidad, Codigo) VALUES (2, %1, 99)"_s.arg(eje));
            nv::AltaArticulo alta(e.empresa, *e.conexion);
            alta.abrir(200);
            nv::FichaAlta f = ficha();
            f.barras = barras;
            const bool mal = numeroDeError([&] { alta.guardar(f); }) == -2147221503;
            const QString filas = e.filas(u"SELECT Cod_Barras, Automatico, Principal FROM Articulos_CBarras "
                                          u"WHERE Cod_Articulo = 200 ORDER BY 1"_s);
            QCOMPARE(mal ? u"error"_s : filas, quedan);
            QCOMPARE(alta.abierta(), mal);
        }
    }
};

NV_PRUEBA(tst_Creacion)
#include "tst_creacion.moc"
