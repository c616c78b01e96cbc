#pragma once

#include "control/Casos.h"
#include "creation/frmArticulos_Creacion.h"
#include "nvArticulo/Error.h"
#include "nvArticulo/Motores.h"
#include "support/BaseDatos.h"
#include "support/Conductor.h"
#include "support/EmpresaPrueba.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>

namespace nv::pruebas {

using namespace Qt::StringLiterals;

/// A catalogue for the creation of items. Company 1, items of 2, suppliers of 3.
inline const char16_t *const Catalogo[] = {
    u"INSERT INTO Empresas (Codigo, Series_Automaticas, CodigoBarrasAuto, FamiliaObligada, MaxCodigoArt, "
    u"CualidadX_PorDefecto, CualidadY_PorDefecto) VALUES (1, 1, 1, 1, 5000, 3, 4)",
    u"INSERT INTO Almacenes (Cod_Empresa, Codigo) VALUES (1, 1), (1, 2), (2, 9)",
    u"INSERT INTO Proveedores (Cod_Empresa, Codigo, Nombre) VALUES (3, 7, 'TEJIDOS'), (3, 8, 'HILOS')",
    u"INSERT INTO Marcas (Codigo, Nombre) VALUES (4, 'ACME SPORT')",
    u"INSERT INTO Temporadas (Codigo, Nombre) VALUES ('V26', 'Verano')",
    u"INSERT INTO Familias_1 (Cod_Empresa, Codigo, Nombre) VALUES (2, 1, 'ROPA'), (2, 2, 'CALZADO')",
    u"INSERT INTO Familias_2 (Cod_Empresa, Familia_1, Codigo, Nombre) VALUES (2, 1, 5, 'CAMISAS')",
    u"INSERT INTO Familias_3 (Cod_Empresa, Familia_1, Familia_2, Codigo, Nombre) VALUES (2, 1, 5, 6, 'MANGA CORTA')",
    u"INSERT INTO Cualidades (Codigo, Nombre) VALUES (1, '(ninguna)'), (3, 'Tallas'), (4, 'Colores')",
    u"INSERT INTO Cualidades_Des (Cod_Empresa, Cod_Cualidad, Codigo, Nombre) VALUES (2, 3, 21, 'U'), (2, 4, 31, 'R')",
    u"INSERT INTO Formacion_Desc (Desc_Larga, Orden, Cod_Campo, Longitud) VALUES (0, 1, 1, 3), (0, 2, 0, 1), "
    u"(0, 3, 2, 10), (1, 1, 4, 4), (1, 2, 0, 1), (1, 3, 1, 20), (1, 4, 0, 1), (1, 5, 2, 20)",
    u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion, Mod_Ficha) VALUES (2, 100, 'CAMISA VIEJA', 1), "
    u"(1, 999, 'DE OTRA EMPRESA', 1)",
    u"INSERT INTO Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref, Principal) VALUES (2, 100, 7, 'YA', 1)",
    u"INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal) VALUES (2, 100, "
    u"'4006381333931', 1)",
};

/// A form over a catalogue, driven by lines of text. Boxes that come between are answered in turn:
///
///     txtRef = B-1        types it (of a list: chooses the row of that number)
///     F9                  a key, where the focus is
///     responde Aceptar    the box that is up
///     foco ? txtRef       what is seen: "foco", "abierto" (an item is open), "visible", a number (the row of that
///                         item), or a field's text, tick or, with ":activo", whether it can be used
///
/// and "-> field" (focus), "clic field", "cierra", "sql ..." and what a test adds to `acciones`. "·" is a blank.
struct Escenario
{
    explicit Escenario(const QString &ruta = u":memory:"_s)
        : conexion(datos::abrirEmbebida(ruta))
    {
        for (const char16_t *sentencia : Catalogo)
            sql(QString::fromUtf16(sentencia));
        forma->cEmpresa = &empresa;
        forma->Conexion = conexion.get();
    }

    /// Shows the form and does as the lines say; false when it did not come to their end. "todo 200 R" confirms a code
    /// and types everything that an accept asks for.
    bool corre(QString guion)
    {
        static const QRegularExpression todo(u"todo (\\S+) (\\S+)"_s);
        guion.replace(u';', u'\n')
            .replace(todo, u"txtCodigo = \\1\nEnter\ntxtProv = 7\ntxtRef = \\2\ntxtMarca = 4\ntxtTemporada = "
                           u"V26\ntxtImpuesto = 1\ntxtFamilia_1 = 1\ntxtFamilia_2 = 5\ntxtFamilia_3 = 6\nEnter"_s);
        const QStringList tramos = guion.split(u"responde "_s);
        for (const QString &tramo : tramos) {
            QStringList lineas = tramo.split(u'\n');
            if (&tramo != &tramos.front())
                conductor.responde(lineas.takeFirst().trimmed());
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
    /// What an accept of item 200 has written besides the item, and the counter behind it.
    QString rastro()
    {
        return filas(u"SELECT Ref FROM Articulos_Ref WHERE Cod_Articulo = 200"_s) +
               filas(u"SELECT Cod_Barras FROM Articulos_CBarras WHERE Cod_Articulo = 200"_s) +
               filas(u"SELECT Cod_Barras FROM Contador_CBarras"_s);
    }
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
        return conductor.cajas().size() == (principio.isEmpty() ? 0 : 1) &&
               (principio.isEmpty() || dicho().startsWith(principio));
    }
    QWidget *hijo(const QString &nombre) const
    {
        return forma->findChild<QWidget *>(nombre, Qt::FindDirectChildrenOnly);
    }
    QString ve(const QString &que)
    {
        if (que.toInt() != 0)
            return filas(u"SELECT Mod_Ficha, Descripcion FROM Articulos WHERE Cod_Empresa = 2 AND Codigo = "_s + que);
        if (que == u"abierto")
            return QString::number(!hijo(u"txtCodigo"_s)->isEnabled());
        QWidget *w = que == u"foco" ? forma->focusWidget() : hijo(que.section(u':', 0, 0));
        while (que == u"foco" && w->parentWidget() != forma)
            w = w->parentWidget();
        if (que == u"foco")
            return w->objectName();
        if (!w)
            return que == u"visible" ? QString::number(forma->isVisible()) : u"no such field"_s;
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
    std::unique_ptr<Conexion> conexion;
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
        static const std::map<QString, Qt::Key> teclas{{u"Enter"_s, Qt::Key_Return}, {u"Esc"_s, Qt::Key_Escape},
                                                       {u"F6"_s, Qt::Key_F6},        {u"F9"_s, Qt::Key_F9},
                                                       {u"F12"_s, Qt::Key_F12},      {u"Espacio"_s, Qt::Key_Space}};
        const QString primera = orden.section(u' ', 0, 0);
        const QString resto = orden.section(u' ', 1);
        if (const auto accion = acciones.find(orden); accion != acciones.end()) {
            accion->second();
        } else if (const auto tecla = teclas.find(orden); tecla != teclas.end()) {
            QTest::keyClick(forma->focusWidget(), tecla->second);
        } else if (primera == u"sql"_s) {
            sql(resto);
        } else if (orden == u"cierra"_s) {
            forma->close();
        } else if (primera == u"->"_s) {
            hijo(resto)->setFocus();
        } else if (primera == u"clic"_s) {
            qobject_cast<QAbstractButton *>(hijo(resto))->click();
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
