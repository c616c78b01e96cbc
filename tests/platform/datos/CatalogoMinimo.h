#pragma once

#include <QStringList>

/// Six items of company 1, whose stock and tariffs are company 2's, suppliers company 3's and customers company 4's.
inline QStringList catalogoMinimo()
{
    using namespace Qt::StringLiterals;
    return {
        u"INSERT INTO Empresas (Codigo, DirImagenArt, CodigoBarrasAuto) VALUES (2, 'C:\\Fotos\\', 1)"_s,
        u"INSERT INTO Marcas (Codigo, Nombre) VALUES (1, 'Acme'), (2, 'Roca')"_s,
        u"INSERT INTO Familias_1 (Cod_Empresa, Codigo, Nombre) VALUES (1, 1, 'Ferretería'), (1, 2, 'Baño')"_s,
        u"INSERT INTO Proveedores (Cod_Empresa, Codigo, Nombre) VALUES (3, 7, 'Suministros Peña'), (3, 8, 'Otro')"_s,
        u"INSERT INTO Clientes (Cod_Empresa, Codigo, Nombre, Tarifa_Pvp, Tarifa_Promoc) VALUES (4, 50, 'Ana', 1, 2)"_s,
        u"INSERT INTO Almacenes (Cod_Empresa, Codigo, Nombre, Abrev, Tarifa, TarifaProm) VALUES"
        u" (2, 1, 'Central', 'CEN', 1, 2), (2, 2, 'Tienda', 'TDA', 1, 0)"_s,
        u"INSERT INTO Tarifas (Cod_Empresa, Cod_Tarifa, Decimales, BackColor) VALUES"
        u" (1, 1, 2, 0), (1, 2, 3, 255), (2, 1, 2, 0), (2, 2, 3, 0)"_s,
        u"INSERT INTO Almacen_Tarifas (Cod_Empresa, Cod_Almacen, Cod_Tarifa) VALUES (2, 1, 2), (2, 1, 1)"_s,
        u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion, Desc_Memo, Familia_1, Familia_2, Marca) VALUES"
        u" (1, 1, 'TORNILLO PLANO', NULL, 1, 1, 1), (1, 2, 'Tornillo grande rojo', '', 1, 2, 1),"
        u" (1, 3, 'ÑORA MOLIDA', '', 0, 0, 0), (1, 5, 'NUEZ', 'TORNEADA A MANO', 0, 0, 0),"
        u" (1, 841, 'ZAPATO L''ORÉAL', '', 0, 0, 0)"_s,
        u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion, Familia_1, Marca, Largo, Altura, BajoPedido,"
        u" CualidadX, CualidadY, Alternativo1) VALUES (1, 4, 'BAÑERA BLANCA', 2, 2, 120, 40.5, 1, 10, 11, ',3,7,')"_s,
        u"INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal, Fecha) VALUES"
        u" (1, 1, '8412345678905', 1, '22/11/2026'), (1, 1, 'ABC', 0, '22/11/2026'), (1, 4, '98100019', 1, '1/2/2026'),"
        u" (1, 2, '123456789012', 0, '1/2/2026')"_s,
        u"INSERT INTO Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref, Principal) VALUES"
        u" (1, 1, 7, 'R-1', 1), (1, 2, 8, 'r-1', 1), (1, 2, 7, '12X34Y', 0), (1, 4, 7, 'BÑ', 1)"_s,
        u"INSERT INTO Articulos_RefCli (Cod_Empresa, Cod_Articulo, Cod_Cli, Ref) VALUES (1, 1, 50, 'C1'), (1, 2, 51, 'C1')"_s,
        u"INSERT INTO Articulos_Tarifas (Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp) VALUES"
        u" (1, 1, 1, 10.5), (1, 1, 2, 9), (1, 2, 1, 1234.5678), (1, 4, 1, 100), (1, 4, 2, 0)"_s,
        u"INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo, Stock_Actual, Stock_MiniCompra,"
        u" Pend_Servir, Bloqueo, Rotacion, FUlt_Venta) VALUES (2, 1, 1, 0.1, 0.2, 3, 0, 1.5, '24/10/2026'),"
        u" (2, 2, 1, 0.2, 0, 0, 0, 2, '01/10/2026'), (2, 3, 1, 0.3, 0, 0, 1, 0, NULL),"
        u" (2, 1, 2, 5, 0, 0, 1, 0, '22/11/2026'), (2, 1, 4, 12.5, 0, 0, 0, 0, '23/10/2026')"_s,
        u"INSERT INTO Almacen_Acumulados (Cod_Empresa, Cod_Almacen, Cod_Ejercicio, Mes, Cod_Articulo, Ventas_Unidades)"
        u" VALUES (2, 1, 2026, 11, 1, 0.1), (2, 1, 2026, 10, 1, 0.2), (2, 1, 2026, 11, 4, 0.5), (2, 1, 2026, 9, 4, 90),"
        u" (2, 1, 2026, 11, 2, 40)"_s,
        u"INSERT INTO Balanzas_Dptos (Cod_Empresa, Codigo, Nombre) VALUES (2, 1, 'Carne'), (2, 2, 'Fruta')"_s,
        u"INSERT INTO Balanzas_Articulos (Cod_Empresa, Cod_Articulo, Plu, Dpto) VALUES (2, 3, 5, 1), (2, 5, 5, 2), (1, 3, 5, 1)"_s,
        u"INSERT INTO Cualidades (Codigo, Nombre) VALUES (10, 'Talla'), (11, 'Color')"_s,
        u"INSERT INTO Cualidades_Des (Cod_Empresa, Cod_Cualidad, Codigo, Nombre) VALUES"
        u" (1, 10, 1, 'M'), (1, 10, 2, 'L'), (1, 11, 3, 'ROJO')"_s,
        u"INSERT INTO Formacion_Desc (Desc_Larga, Orden, Cod_Campo, Longitud) VALUES (1, 2, 0, 1), (1, 1, 1, 3)"_s,
        u"INSERT INTO Clientes_Art_PVP (Cod_Empresa, Cod_Cliente, Cod_Articulo, Fecha_Inicial, Fecha_Final, Pvp) VALUES"
        u" (2, 50, 1, '01/02/2026', '22/11/2026', 8.25), (2, 50, 2, '23/11/2026', '31/12/2026', 1)"_s,
        u"INSERT INTO Surtidos_Almacen (Cod_Empresa, Cod_Almacen, Cod_Surtido) VALUES (2, 1, 3)"_s,
        u"INSERT INTO Surtidos_Articulo_Todos (Cod_Empresa, Cod_Surtido, Cod_Articulo, Obligatorio) VALUES (2, 3, 1, 1)"_s,
        u"INSERT INTO Alternativos_Valores (Tabla, Alternativo, id, Valor) VALUES (0, 0, 3, 'ROJO'), (0, 0, 7, 'AZUL')"_s,
        u"INSERT INTO SGD_Controles_Grupos (Cod_Formulario, Cod_Control, Permiso) VALUES (1, 8, 1)"_s,
    };
}
