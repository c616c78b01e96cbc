#pragma once

#include "BusquedaAbierta.h"
#include "common/ContratoBusqueda.h"

namespace nv::pruebas {

/// A small catalogue for the dialogs with criteria: company 1, items of company 2, suppliers of company 3.
class CatalogoCriterios
{
public:
    CatalogoCriterios()
    {
        ranura::ofrecer(&base.conexion());
        base.ejecutar(QStringList{
            u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion, Familia_1, Familia_2, Familia_3, Marca,"
            u" Alternativo1, MotivoBaja) VALUES (2, 1, 'TORNILLO ROJO', 1, 2, 3, 5, ',3,7,', 0),"
            u" (2, 2, 'TUERCA', 1, 2, 0, 5, ',7,', 0), (2, 10, 'ARANDELA ROJO', 4, 0, 0, 0, ',33,', 0),"
            u" (2, 24, 'CLAVO', 0, 0, 0, 6, '', 1), (1, 9, 'TORNILLO AJENO', 1, 0, 0, 5, '', 0)"_s,
            u"INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal) VALUES"
            u" (2, 1, '8412345678905', 1), (2, 2, '842', 0)"_s,
            u"INSERT INTO Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref, Principal) VALUES"
            u" (2, 1, 7, 'R-1', 1), (2, 2, 7, 'X-2', 0), (2, 10, 8, 'R-10', 1)"_s,
            u"INSERT INTO Proveedores (Cod_Empresa, Codigo, Nombre) VALUES (3, 7, 'HIERROS'), (3, 8, 'ACEROS')"_s,
            u"INSERT INTO Marcas (Codigo, Nombre) VALUES (5, 'ROCA')"_s,
            u"INSERT INTO Almacenes (Cod_Empresa, Codigo, Nombre) VALUES (1, 1, 'TIENDA'), (1, 2, 'NAVE'),"
            u" (2, 3, 'AJENO')"_s,
            u"INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo, Stock_Actual, Rotacion, Bloqueo)"
            u" VALUES (1, 1, 1, 2.5, 1, 0), (1, 2, 1, 10, 3.456, 0), (1, 2, 2, 4, 2, 0), (1, 1, 2, 0, 0, 1),"
            u" (1, 2, 10, 1, 0, 1), (2, 2, 24, 99, 9, 0)"_s,
            u"INSERT INTO Tarifas (Cod_Empresa, Cod_Tarifa, Decimales) VALUES (1, 4, 2), (1, 6, 0), (2, 4, 3)"_s,
            u"INSERT INTO Almacen_Tarifas (Cod_Empresa, Cod_Almacen, Cod_Tarifa) VALUES (1, 1, 6), (1, 1, 4),"
            u" (1, 2, 9)"_s,
            u"INSERT INTO Articulos_Tarifas (Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp) VALUES (2, 1, 4, 10.5),"
            u" (2, 2, 4, 9), (2, 10, 4, 100), (2, 1, 6, 7), (1, 1, 4, 777)"_s});
    }

    /// Opens the dialog with `preparar`, runs `accion` in it and cancels it if it is still there.
    template <class Dialogo>
    void abrir(const std::function<void(Dialogo &)> &preparar, const std::function<void(Dialogo &)> &accion)
    {
        Dialogo dialogo(nullptr);
        dialogo.cEmpresa = &empresa;
        preparar(dialogo);
        Conductor conductor;
        conductor.con<Dialogo>([&](Dialogo &d) {
            accion(d);
            if (d.isVisible())
                d.reject();
        });
        dialogo.MostrarModal();
        codigo = dialogo.Codigo;
        descripcion = dialogo.Descripcion;
        criterios = dialogo;
    }

    BaseDatos base;
    EmpresaPrueba empresa;
    QString codigo;
    QString descripcion;
    CriteriosBusqueda criterios; ///< as the dialog left them
};

/// One column of the rows on screen.
inline QStringList columnaDe(QWidget &dialogo, int numero)
{
    const auto *rejilla = dialogo.findChild<Rejilla *>();
    QStringList textos;
    for (int fila = 1; fila < rejilla->filas(); ++fila)
        textos.append(rejilla->texto(fila, numero));
    return textos;
}

/// Where a script or a person would look at the dialog.
inline void retratar(QWidget &dialogo, const QString &nombre)
{
    if (const QString carpeta = qEnvironmentVariable("NV_CAPTURAS"); !carpeta.isEmpty())
        dialogo.grab().save(carpeta + u'/' + nombre + u".png"_s);
}

} // namespace nv::pruebas
