#pragma once

#include "creation/frmArticulos_Creacion.h"
#include "nvArticulo/Error.h"
#include "nvArticulo/Motores.h"
#include "support/BaseDatos.h"
#include "support/Conductor.h"
#include "support/EmpresaPrueba.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace nv::pruebas {

/// Statements that fill a catalogue for the creation of items. Company 1, items of 2, suppliers of 3.
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
    u"INSERT INTO Cualidades_Des (Cod_Empresa, Cod_Cualidad, Codigo, Nombre) VALUES (2, 3, 21, 'U'), (2, 4, 31, "
    u"'ROJO')",
    u"INSERT INTO Formacion_Desc (Desc_Larga, Orden, Cod_Campo, Longitud) VALUES (0, 1, 1, 3), (0, 2, 0, 1), "
    u"(0, 3, 2, 10), (1, 1, 4, 4), (1, 2, 0, 1), (1, 3, 1, 20), (1, 4, 0, 1), (1, 5, 2, 20)",
    u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion, Mod_Ficha) VALUES (2, 100, 'CAMISA VIEJA', 1), "
    u"(1, 999, 'DE OTRA EMPRESA', 1)",
    u"INSERT INTO Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref, Principal) VALUES (2, 100, 7, 'YA', 1)",
    u"INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal) VALUES (2, 100, "
    u"'4006381333931', 1)",
};

inline void llenar(Conexion &conexion)
{
    for (const char16_t *sentencia : Catalogo)
        conexion.Ejecutar(Sentencia::deConsola(QString::fromUtf16(sentencia)));
}

/// What the tests do to the form, by the names of its fields.
struct Manos
{
    frmArticulos_Creacion &f;

    template <class Control = QLineEdit>
    Control *hijo(const char *nombre) const
    {
        auto *widget = f.findChild<QWidget *>(QLatin1StringView(nombre), Qt::FindDirectChildrenOnly);
        auto *control = dynamic_cast<Control *>(widget);
        return control ? control : widget->findChild<Control *>();
    }
    QString texto(const char *nombre) const { return hijo(nombre)->text(); }
    bool enfocado(const char *nombre) const
    {
        const QWidget *w = hijo<QWidget>(nombre);
        return f.focusWidget() && (w == f.focusWidget() || w->isAncestorOf(f.focusWidget()));
    }
    void pulsa(Qt::Key tecla) const { QTest::keyClick(f.focusWidget(), tecla); }
    void escribe(const char *nombre, const QString &texto) const
    {
        auto *caja = hijo(nombre);
        caja->setFocus();
        caja->selectAll();
        pulsa(Qt::Key_Delete);
        teclear(caja, texto);
    }
    void confirma(const QString &codigo) const
    {
        escribe("txtCodigo", codigo);
        pulsa(Qt::Key_Return);
    }
    bool abierto() const { return !hijo("txtCodigo")->isEnabled(); }
    /// The item's code confirmed and everything that an accept asks for typed.
    void rellena(const QString &codigo, const QString &referencia) const
    {
        confirma(codigo);
        escribe("txtProv", QStringLiteral("7"));
        escribe("txtRef", referencia);
        escribe("txtMarca", QStringLiteral("4"));
        escribe("txtTemporada", QStringLiteral("V26"));
        escribe("txtImpuesto", QStringLiteral("1"));
        for (const auto &[caja, valor] :
             {std::pair("txtFamilia_1", "1"), std::pair("txtFamilia_2", "5"), std::pair("txtFamilia_3", "6")}) {
            escribe(caja, QLatin1StringView(valor));
            pulsa(Qt::Key_Return);
        }
    }
};

/// A form over a catalogue, not yet shown.
struct Escenario
{
    explicit Escenario(const QString &ruta = QStringLiteral(":memory:"))
        : conexion(datos::abrirEmbebida(ruta))
    {
        llenar(*conexion);
        forma.cEmpresa = &empresa;
        forma.Conexion = conexion.get();
    }
    void sql(const QString &texto) { conexion->Ejecutar(Sentencia::deConsola(texto)); }
    QString filas(const QString &consulta) { return filasDe(*conexion, consulta).join(u' '); }
    QString articulo(int codigo)
    {
        return filas(QStringLiteral("SELECT Codigo, Mod_Ficha, Descripcion FROM Articulos WHERE Cod_Empresa = 2 AND "
                                    "Codigo = %1")
                         .arg(codigo));
    }
    /// Shows the form and runs the steps in it, one after the other where message boxes come between.
    Conductor &con(std::function<void(Manos)> pasos)
    {
        return conductor.con<frmArticulos_Creacion>([pasos](frmArticulos_Creacion &f) { pasos(Manos{f}); });
    }
    bool muestra()
    {
        forma.MostrarModal();
        return conductor.terminado();
    }
    const CajaVista &caja() const { return conductor.cajas().back(); }

    EmpresaPrueba empresa;
    std::unique_ptr<Conexion> conexion;
    frmArticulos_Creacion forma{nullptr};
    Conductor conductor;
};

} // namespace nv::pruebas
