#pragma once

#include "control/Casos.h"
#include "creation/frmArticulos_Creacion.h"
#include "nvArticulo/Motores.h"
#include "support/BaseDatos.h"
#include "support/Conductor.h"
#include "support/EmpresaPrueba.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace nv::pruebas {

using namespace Qt::StringLiterals;

/// A form over a catalogue (company 1, items of 2, suppliers of 3), driven by lines of text. Boxes that come between
/// are answered in turn:
///
///     txtRef = B-1        types it (of a list: chooses the row of that number)
///     F9                  a key, where the focus is
///     responde Aceptar    the box that is up
///     foco ? txtRef       what is seen: "foco", "abierto" (an item is open), "visible", a number (the row of that
///                         item), "rastro" (what an accept of item 200 wrote besides it, and the counter behind
///                         it), or a field's text, tick or, with ":activo", whether it can be used
///
/// and "-> field" (focus), "clic field", "cierra", "sql ..." and what a test adds to `acciones`. "·" is a blank.
struct Escenario
{
    Escenario()
    {
        for (const auto &[filas] : casos<1>(uR"(
            Empresas (Codigo, Series_Automaticas, CodigoBarrasAuto, FamiliaObligada, MaxCodigoArt, CualidadX_PorDefecto,
                ¬ CualidadY_PorDefecto) VALUES (1, 1, 1, 1, 5000, 3, 4)
            Almacenes (Cod_Empresa, Codigo) VALUES (1, 1), (1, 2), (2, 9)
            Proveedores (Cod_Empresa, Codigo, Nombre) VALUES (3, 7, 'TEJIDOS'), (3, 8, 'HILOS')
            Marcas (Codigo, Nombre) VALUES (4, 'ACME SPORT')
            Temporadas (Codigo, Nombre) VALUES ('V26', 'Verano')
            Familias_1 (Cod_Empresa, Codigo, Nombre) VALUES (2, 1, 'ROPA'), (2, 2, 'CALZADO')
            Familias_2 (Cod_Empresa, Familia_1, Codigo, Nombre) VALUES (2, 1, 5, 'CAMISAS')
            Familias_3 (Cod_Empresa, Familia_1, Familia_2, Codigo, Nombre) VALUES (2, 1, 5, 6, 'MANGA CORTA')
            Cualidades (Codigo, Nombre) VALUES (1, '(ninguna)'), (3, 'Tallas'), (4, 'Colores')
            Cualidades_Des (Cod_Empresa, Cod_Cualidad, Codigo, Nombre) VALUES (2, 3, 21, 'U'), (2, 4, 31, 'R')
            Formacion_Desc (Desc_Larga, Orden, Cod_Campo, Longitud) VALUES (0, 1, 1, 3), (0, 2, 0, 1), (0, 3, 2, 10),
                ¬ (1, 1, 4, 4), (1, 2, 0, 1), (1, 3, 1, 20), (1, 4, 0, 1), (1, 5, 2, 20)
            Articulos (Cod_Empresa, Codigo, Descripcion, Mod_Ficha) VALUES (2, 100, 'CAMISA VIEJA', 1), (1, 999, 'X', 1)
            Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal) VALUES (2, 100, '4006381333931', 1)
            Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref, Principal) VALUES (2, 100, 7, 'YA', 1))"_s))
            sql(u"INSERT INTO "_s + filas);
        forma->cEmpresa = &empresa;
        forma->Conexion = conexion.get();
        const std::pair<QString, Qt::Key> teclas[] = {{u"Enter"_s, Qt::Key_Return}, {u"Esc"_s, Qt::Key_Escape},
                                                      {u"F6"_s, Qt::Key_F6},        {u"F9"_s, Qt::Key_F9},
                                                      {u"F12"_s, Qt::Key_F12},      {u"Espacio"_s, Qt::Key_Space}};
        for (const auto &[nombre, tecla] : teclas)
            acciones[nombre] = [this, tecla] { QTest::keyClick(forma->focusWidget(), tecla); };
        acciones[u"cierra"_s] = [this] { forma->close(); };
    }

    /// Shows the form and does as the lines say; false when it did not come to their end. "todo 200 R" confirms a code
    /// and types everything that an accept asks for.
    bool corre(QString guion)
    {
        static const QRegularExpression todo(u"todo (\\S+) (\\S+)"_s);
        guion.prepend(u'\n')
            .replace(u';', u'\n')
            .replace(todo, u"txtCodigo = \\1\nEnter\ntxtProv = 7\ntxtRef = \\2\ntxtMarca = 4\ntxtTemporada = "
                           u"V26\ntxtImpuesto = 1\ntxtFamilia_1 = 1\ntxtFamilia_2 = 5\ntxtFamilia_3 = 6\nEnter"_s);
        for (const QString &tramo : guion.split(u"responde "_s)) {
            QStringList lineas = tramo.split(u'\n');
            if (const QString boton = lineas.takeFirst().trimmed(); !boton.isEmpty())
                conductor.responde(boton);
            if (!lineas.join(QString()).trimmed().isEmpty())
                conductor.con<frmArticulos_Creacion>([this, lineas](auto &) {
                    for (const QString &linea : lineas)
                        if (forma && !linea.trimmed().isEmpty())
                            haz(linea.trimmed());
                });
        }
        forma->MostrarModal();
        return conductor.terminado();
    }
    void sql(const QString &texto) { conexion->Ejecutar(Sentencia::deConsola(texto)); }
    QString filas(const QString &consulta) { return filasDe(*conexion, consulta).join(u' '); }
    /// Every message box so far, "title: text".
    QString dicho() const
    {
        QStringList textos;
        for (const CajaVista &caja : conductor.cajas())
            textos << caja.titulo + u": "_s + caja.texto;
        return textos.join(u'/');
    }
    /// Whether that is how the only box began; nothing: none came.
    bool dijo(const QString &principio) const
    {
        return conductor.cajas().size() == (principio.isEmpty() ? 0 : 1) && (dicho() + u'/').startsWith(principio);
    }
    QWidget *hijo(const QString &id) const { return forma->findChild<QWidget *>(id, Qt::FindDirectChildrenOnly); }
    QString ve(const QString &que)
    {
        if (que.toInt() != 0)
            return filas(u"SELECT Mod_Ficha, Descripcion FROM Articulos WHERE Cod_Empresa = 2 AND Codigo = "_s + que);
        if (que == u"rastro")
            return filas(
                u"SELECT Ref FROM Articulos_Ref WHERE Cod_Articulo = 200 UNION ALL SELECT Cod_Barras FROM "
                u"Articulos_CBarras WHERE Cod_Articulo = 200 UNION ALL SELECT Cod_Barras FROM Contador_CBarras"_s);
        if (que == u"abierto")
            return QString::number(!hijo(u"txtCodigo"_s)->isEnabled());
        if (que == u"visible")
            return QString::number(forma->isVisible());
        QWidget *w = que == u"foco" ? forma->focusWidget() : hijo(que.section(u':', 0, 0));
        while (que == u"foco" && w->parentWidget() != forma)
            w = w->parentWidget();
        if (que == u"foco" || !w)
            return w ? w->objectName() : u"no such field"_s;
        if (que.endsWith(u":activo"_s))
            return QString::number(w->isEnabled() && w->isVisible());
        if (const auto *lista = qobject_cast<QComboBox *>(w))
            return lista->currentText();
        if (const auto *boton = qobject_cast<QAbstractButton *>(w))
            return QString::number(boton->isChecked());
        if (const auto *rotulo = qobject_cast<QLabel *>(w))
            return rotulo->text();
        return linea(w)->text();
    }

    EmpresaPrueba empresa;
    std::unique_ptr<Conexion> conexion = catalogoVacio();
    std::unique_ptr<QWidget> ventana = std::make_unique<QWidget>(); ///< the host's
    QPointer<frmArticulos_Creacion> forma = new frmArticulos_Creacion(ventana.get());
    Conductor conductor;
    std::map<QString, std::function<void()>> acciones;

private:
    static QLineEdit *linea(QWidget *w)
    {
        auto *propia = qobject_cast<QLineEdit *>(w);
        return propia ? propia : w->findChild<QLineEdit *>();
    }
    void haz(const QString &orden)
    {
        const QString primera = orden.section(u' ', 0, 0);
        const QString resto = orden.section(u' ', 1);
        if (const auto accion = acciones.find(orden); accion != acciones.end()) {
            accion->second();
        } else if (primera == u"sql"_s) {
            sql(resto);
        } else if (primera == u"->"_s) {
            hijo(resto)->setFocus();
        } else if (primera == u"clic"_s) {
            // Through the window, so that the buttons of the mouse are known to be down.
            const QPoint lugar = hijo(resto)->mapTo(forma, hijo(resto)->rect().center());
            QTest::mouseClick(forma->windowHandle(), Qt::LeftButton, {}, lugar);
            QTest::qWait(30);
        } else if (orden.contains(u" ?"_s)) {
            const QString que = orden.section(u" ?"_s, 0, 0);
            const QString visto = que + u" ? "_s + ve(que);
            QCOMPARE(visto.trimmed(), QString(orden).replace(u'·', u' ').trimmed());
        } else if (auto *lista = qobject_cast<QComboBox *>(hijo(primera))) {
            lista->setCurrentIndex(resto.section(u' ', 1).toInt());
        } else {
            QLineEdit *caja = linea(hijo(primera));
            caja->setFocus();
            caja->selectAll();
            QTest::keyClick(caja, Qt::Key_Delete);
            teclear(caja, QString(resto.sliced(1).trimmed()).replace(u'·', u' '));
        }
    }
};

} // namespace nv::pruebas
