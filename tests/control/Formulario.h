#pragma once

#include "nvArticulo/Conexion.h"
#include "nvArticulo/Motores.h"
#include "nvArticulo/nvArticulo.h"
#include "support/EmpresaPrueba.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

namespace nv::pruebas {

/// A host form with a box before and a box after the item box, over a small catalogue in memory.
class Formulario : public QWidget, public OyenteSentencias
{
public:
    Formulario()
        : conexion(datos::abrirEmbebida(QStringLiteral(":memory:")))
    {
        auto *columna = new QVBoxLayout(this);
        for (QWidget *widget :
             {static_cast<QWidget *>(antes), static_cast<QWidget *>(articulo), static_cast<QWidget *>(despues)})
            columna->addWidget(widget);
        articulo->setMinimumHeight(24);
        resize(600, 200);
        articulo->setcEmpresa(&empresa);
        articulo->setConexion(conexion.get());
        llenar();
        conexion->escuchar(this);
        show();
        activateWindow();
        (void)QTest::qWaitForWindowActive(this);
        articulo->setFocus();
    }
    ~Formulario() override { conexion->dejarDeEscuchar(this); }

    void sentencia(const SucesoSentencia &suceso) override { sentencias << suceso.texto; }

    void ejecuta(const QString &texto) { conexion->Ejecutar(Sentencia::deConsola(texto)); }

    /// Types into the box and confirms.
    void confirma(const QString &texto)
    {
        articulo->setFocus();
        caja()->selectAll();
        if (texto.isEmpty())
            QTest::keyClick(caja(), Qt::Key_Delete);
        else
            QTest::keyClicks(caja(), texto);
        sentencias.clear();
        QTest::keyClick(caja(), Qt::Key_Return);
    }

    QLineEdit *caja() const { return articulo->findChild<QLineEdit *>(QStringLiteral("txtCodigo")); }

    EmpresaPrueba empresa;
    std::unique_ptr<Conexion> conexion;
    QLineEdit *antes = new QLineEdit(this);
    nvArticulo *articulo = new nvArticulo(this);
    QLineEdit *despues = new QLineEdit(this);
    QStringList sentencias;

private:
    void llenar()
    {
        ejecuta(
            QStringLiteral("INSERT INTO Empresas (Codigo, Nombre, NoProcesarPermisosControles) VALUES (1, 'Uno', 0)"));
        const auto inserta = [this](int codigo, const QString &nombre) {
            ejecuta(QStringLiteral("INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion, FAlta, Mod_Ficha) "
                                   "VALUES (2, %1, '%2', '01/01/2026', 1)")
                        .arg(codigo)
                        .arg(nombre));
        };
        inserta(12, QStringLiteral("TORNILLO <M8> & TUERCA"));
        inserta(23456, QStringLiteral("JAMÓN AL CORTE"));
        inserta(1234, QStringLiteral("CAMISA"));
        inserta(77, QStringLiteral("DE OTRO"));
        ejecuta(QStringLiteral("UPDATE Articulos SET CualidadX = 1, CualidadY = 2 WHERE Codigo = 1234"));
        ejecuta(QStringLiteral(
            "INSERT INTO Cualidades_Des (Cod_Empresa, Cod_Cualidad, Codigo, Nombre) VALUES (2, 1, 7, 'XL')"));
        ejecuta(QStringLiteral(
            "INSERT INTO Cualidades_Des (Cod_Empresa, Cod_Cualidad, Codigo, Nombre) VALUES (2, 2, 5, 'ROJO')"));
        ejecuta(
            QStringLiteral("INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal, Fecha) "
                           "VALUES (2, 12, '8412345678905', 1, '01/01/2026')"));
        ejecuta(QStringLiteral("INSERT INTO Proveedores (Cod_Empresa, Codigo, Nombre) VALUES (3, 7, 'HIERROS')"));
        ejecuta(QStringLiteral("INSERT INTO Proveedores (Cod_Empresa, Codigo, Nombre) VALUES (3, 8, 'ACEROS')"));
        const auto referencia = [this](int codigo, int proveedor, const QString &texto) {
            ejecuta(QStringLiteral("INSERT INTO Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref, Principal) "
                                   "VALUES (2, %1, %2, '%3', 1)")
                        .arg(codigo)
                        .arg(proveedor)
                        .arg(texto));
        };
        referencia(12, 7, QStringLiteral("ABC"));
        referencia(77, 7, QStringLiteral("COMUN"));
        referencia(12, 8, QStringLiteral("COMUN"));
        ejecuta(QStringLiteral(
            "INSERT INTO Articulos_RefCli (Cod_Empresa, Cod_Articulo, Cod_Cli, Ref) VALUES (2, 12, 5, 'SU-1')"));
        ejecuta(QStringLiteral(
            "INSERT INTO Articulos_RefCli (Cod_Empresa, Cod_Articulo, Cod_Cli, Ref) VALUES (2, 77, 6, 'SU-1')"));
        ejecuta(QStringLiteral(
            "INSERT INTO Balanzas_Articulos (Cod_Empresa, Cod_Articulo, Plu, Dpto) VALUES (2, 23456, 40, 1)"));
    }
};

} // namespace nv::pruebas
