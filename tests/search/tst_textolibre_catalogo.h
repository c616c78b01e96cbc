#pragma once

#include "platform/widgets/Rejilla.h"
#include "platform/widgets/nvTextBox.h"
#include "search/BusquedaBase.h"
#include "support/BaseDatos.h"
#include "support/Conductor.h"
#include "support/EmpresaPrueba.h"

#include <QTest>

namespace nv::pruebas {

/// A small catalogue for the free-text dialogs: company 1, items of company 2, default warehouse 1 with tariff 1.
class CatalogoTextoLibre : public OyenteSentencias
{
public:
    CatalogoTextoLibre()
    {
        using namespace Qt::StringLiterals;
        ranura::ofrecer(&base.conexion());
        base.ejecutar(QStringList{
            u"INSERT INTO Almacenes (Cod_Empresa, Codigo, Nombre, Abrev, Tarifa) VALUES (1, 1, 'CENTRAL', 'CEN', 1), "
            "(1, 2, 'PUERTO', 'PTO', 4), (1, 10, 'MAYOR', 'MAY', 4), (2, 3, 'AJENO', 'AJE', 1)"_s,
            u"INSERT INTO Tarifas (Cod_Empresa, Cod_Tarifa, Decimales, BackColor) VALUES (2, 1, 3, 0), "
            "(2, 2, 2, 10092543), (2, 3, 2, 16766900)"_s,
            u"INSERT INTO Marcas (Codigo, Nombre) VALUES (1, 'ROCA'), (2, 'DUROCANTO'), (3, 'OTRA')"_s,
            u"INSERT INTO Familias_1 (Cod_Empresa, Codigo, Nombre) VALUES (2, 1, 'BAÑO'), (2, 2, 'FERRETERÍA')"_s});
        articulo(10, "TORNILLO ROJO GRANDE", 2, 2);
        articulo(11, "TORNILLO ROJO", 2, 3);
        articulo(12, "TUERCA GRANDE", 2, 3);
        articulo(13, "BAÑERA ROCA", 1, 1);
        articulo(841, "CHAMPÚ L'ORÉAL", 1, 0);
        base.ejecutar(QStringList{
            u"UPDATE Articulos SET TipoImpuesto = 1, TipoImpuesto2 = 1 WHERE Codigo = 10"_s,
            u"INSERT INTO Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref, Principal) VALUES "
            "(2, 12, 5, 'ROJO-7', 1), (2, 10, 5, 'TOR127', 1), (2, 10, 6, 'TOR927', 0)"_s,
            u"INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal) VALUES "
            "(2, 12, '8412345678905', 1), (2, 11, '8499', 0)"_s,
            u"INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo, Stock_Actual, Stock_MiniCompra, "
            "FUlt_Venta) VALUES (1, 1, 10, 12, 0.5, '21/11/2026'), (1, 2, 10, 3, 0, '21/11/2026'), "
            "(1, 1, 12, 4, 0, '22/10/2026'), (1, 1, 13, 2, 0, '24/10/2026'), (1, 1, 11, 0, 0, '20/11/2026')"_s,
            u"INSERT INTO Articulos_Tarifas (Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp) VALUES (2, 10, 1, 1234.5678), "
            "(2, 10, 4, 9), (2, 11, 1, 2), (2, 12, 1, 3), (2, 13, 1, 4)"_s});
        base.conexion().escuchar(this);
    }
    ~CatalogoTextoLibre() override { base.conexion().dejarDeEscuchar(this); }

    void articulo(int codigo, const char *descripcion, int familia, int marca)
    {
        base.ejecutar(QStringLiteral("INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion, Familia_1, Marca) "
                                     "VALUES (2, %1, '%2', %3, %4)")
                          .arg(codigo)
                          .arg(QString::fromUtf8(descripcion).replace(u'\'', QStringLiteral("''")))
                          .arg(familia)
                          .arg(marca));
    }

    void sentencia(const SucesoSentencia &suceso) override { sentencias << suceso.texto; }

    /// Shows the dialog and runs `accion` once it is up; what it leaves open is cancelled.
    template <class Dialogo>
    void abrir(Conductor &conductor, Dialogo &dialogo, std::function<void(Dialogo &)> accion)
    {
        dialogo.cEmpresa = &empresa;
        conductor.con<Dialogo>([accion](Dialogo &d) {
            accion(d);
            if (d.isVisible())
                d.reject();
        });
        dialogo.MostrarModal();
    }

    BaseDatos base;
    EmpresaPrueba empresa;
    QStringList sentencias;
};

inline Rejilla *lista(QWidget &dialogo)
{
    return dialogo.findChild<Rejilla *>(QStringLiteral("vsListado"));
}

inline nvTextBox *caja(QWidget &dialogo, const char *nombre)
{
    return dialogo.findChild<nvTextBox *>(QString::fromLatin1(nombre));
}

/// One column of the rows on screen.
inline QStringList columna(QWidget &dialogo, int numero)
{
    QStringList textos;
    for (int fila = 1; fila < lista(dialogo)->filas(); ++fila)
        textos << lista(dialogo)->texto(fila, numero);
    return textos;
}

inline QStringList fila(QWidget &dialogo, int numero)
{
    QStringList textos;
    for (int c = 0; c < lista(dialogo)->model()->columnCount(); ++c)
        textos << lista(dialogo)->texto(numero, c);
    return textos;
}

/// Types a text in the place of what the box holds and confirms it.
inline void buscar(nvTextBox *caja, const QString &texto)
{
    caja->setFocus();
    caja->clear();
    teclear(caja, texto);
    QTest::keyClick(caja, Qt::Key_Return);
}

} // namespace nv::pruebas
