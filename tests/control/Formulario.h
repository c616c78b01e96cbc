#pragma once

#include "common/ContratoBusqueda.h"
#include "control/Casos.h"
#include "nvArticulo/Conexion.h"
#include "nvArticulo/Motores.h"
#include "nvArticulo/nvArticulo.h"
#include "support/BaseDatos.h"
#include "support/Conductor.h"
#include "support/EmpresaPrueba.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

namespace nv::pruebas {

/// A host form with a box before and a box after the item box, over a small catalogue in memory (company 1 with items
/// of 2, suppliers of 3, customers of 4). It notes what it hears and every statement that goes out.
class Formulario : public QWidget, public OyenteSentencias
{
public:
    Formulario()
    {
        auto *columna = new QVBoxLayout(this);
        for (QWidget *widget : std::initializer_list<QWidget *>{antes, articulo, despues})
            columna->addWidget(widget);
        antes->setObjectName(QStringLiteral("antes"));
        despues->setObjectName(QStringLiteral("despues"));
        articulo->setMinimumHeight(24);
        resize(600, 200);
        articulo->setcEmpresa(&empresa);
        articulo->setConexion(conexion.get());
        for (const auto &[filas] : casos<1>(QStringLiteral(R"(
            Empresas (Codigo, Nombre, NoProcesarPermisosControles) VALUES (1, 'Uno', 0)
            Articulos (Cod_Empresa, Codigo, Descripcion, CualidadX, CualidadY) VALUES (1, 99, 'DE OTRA', 0, 0),
                ¬ (2, 12, 'TORNILLO <M8> & TUERCA', 0, 0), (2, 23456, 'JAMÓN', 0, 0), (2, 1234, 'CAMISA', 1, 2),
                ¬ (2, 77, 'DE OTRO', 0, 0), (2, 13, NULL, 0, 0)
            Cualidades_Des (Cod_Empresa, Cod_Cualidad, Codigo, Nombre) VALUES (2, 1, 7, 'XL'), (2, 2, 5, 'ROJO')
            Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal) VALUES (2, 12, '8412345678905', 1)
            Proveedores (Cod_Empresa, Codigo, Nombre) VALUES (3, 7, 'HIERROS'), (3, 8, 'ACEROS')
            Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref, Principal) VALUES (2, 12, 7, 'ABC', 1),
                ¬ (2, 77, 7, 'COMUN', 1), (2, 12, 8, 'COMUN', 1)
            Articulos_RefCli (Cod_Empresa, Cod_Articulo, Cod_Cli, Ref) VALUES (2, 12, 5, 'SU-1'), (2, 77, 6, 'SU-1'),
                ¬ (2, 77, 6, 'SOLO')
            Balanzas_Articulos (Cod_Empresa, Cod_Articulo, Plu, Dpto) VALUES (2, 23456, 40, 1), (2, 12, 50, 1),
                ¬ (2, 77, 50, 2), (1, 77, 50, 1), (2, 77, 99999, 1), (2, 77, 100000, 1)
            Balanzas_Dptos (Cod_Empresa, Codigo, Nombre) VALUES (1, 1, 'FRUTERIA'))")))
            ejecuta(QStringLiteral("INSERT INTO ") + filas);
        conexion->escuchar(this);
        connect(articulo, &nvArticulo::KeyDown, this, [this](qint16 &c, qint16 &s) { oye("D%d,%d", c, s); });
        connect(articulo, &nvArticulo::KeyUp, this, [this](qint16 &c, qint16 &s) { oye("U%d,%d", c, s); });
        connect(articulo, &nvArticulo::KeyPress, this, [this](qint16 &ascii) { oye("P%d", ascii); });
        connect(articulo, &nvArticulo::Change, this, [this] { oye("C"); });
        show();
        activateWindow();
        (void)QTest::qWaitForWindowActive(this);
        articulo->setFocus();
    }

    void sentencia(const SucesoSentencia &suceso) override { sentencias << suceso.texto; }
    void ejecuta(const QString &texto) { conexion->Ejecutar(Sentencia::deConsola(texto)); }

    /// "Vital=0 EsUlvaro=1": properties of the component, and by any other name settings of the company.
    void ajusta(const QString &ajustes)
    {
        for (const QString &ajuste : ajustes.split(u' ', Qt::SkipEmptyParts)) {
            const QString nombre = ajuste.section(u'=', 0, 0);
            if (!articulo->setProperty(nombre.toLatin1(), ajuste.section(u'=', 1)))
                empresa.valores[nombre] = ajuste.section(u'=', 1);
        }
        empresa.ordenCualidades = empresa.ValorBooleano(QStringLiteral("OrdenCualidades"));
    }

    /// Types into the box and presses Enter; false when not every window came that was expected.
    bool confirma(const QString &texto, Qt::Key tecla = Qt::Key_Return)
    {
        articulo->setFocus();
        caja()->clear();
        teclear(caja(), texto);
        sentencias.clear();
        sucesos.clear();
        QTest::keyClick(caja(), tecla);
        return conductor.terminado();
    }
    /// What the next search dialog is asked and made to give, before it hides.
    void alBuscar(std::function<void(ContratoBusqueda &)> hacer)
    {
        conductor.con<ContratoBusqueda>([hacer](ContratoBusqueda &d) {
            hacer(d);
            dynamic_cast<QWidget &>(d).hide();
        });
    }
    /// The last message box.
    QString dicho() const
    {
        const auto &cajas = conductor.cajas();
        return cajas.empty() ? QString() : cajas.back().titulo + QStringLiteral(": ") + cajas.back().texto;
    }

    /// Box | label | the character of Enter | where the focus is | Existe, Pendiente and what is selected.
    QString retrato() const
    {
        const QStringList partes{caja()->text(), articulo->Nombre().simplified(),
                                 sucesos.filter(QStringLiteral("P")).join(u' '),
                                 focusWidget() ? focusWidget()->objectName() : QString(),
                                 QString(articulo->Existe(), u'E') + QString(articulo->Pendiente(), u'P')};
        return partes.join(u'|') + caja()->selectedText();
    }

    QLineEdit *caja() const { return articulo->findChild<QLineEdit *>(QStringLiteral("txtCodigo")); }

    EmpresaPrueba empresa;
    std::unique_ptr<Conexion> conexion = catalogoVacio();
    QLineEdit *antes = new QLineEdit(this);
    nvArticulo *articulo = new nvArticulo(this);
    QLineEdit *despues = new QLineEdit(this);
    Conductor conductor{10000};
    QStringList sentencias;
    QStringList sucesos; ///< "D65,0" KeyDown, "P97" KeyPress, "U65,0" KeyUp, "C" Change, "F65" a key that nobody took

protected:
    void keyPressEvent(QKeyEvent *evento) override { oye("F%d", evento->key()); }

private:
    void oye(const char *formato, int primero = 0, int segundo = 0)
    {
        sucesos << QString::asprintf(formato, primero, segundo);
    }
};

} // namespace nv::pruebas
