#pragma once

#include "support/BaseDatos.h"

using namespace Qt::StringLiterals;
using namespace nv::pruebas;

/// Six items of company 2, whose stock and warehouses are company 1's, suppliers company 3's and customers company 4's.
class PruebaConCatalogo : public PruebaVias
{
protected:
    /// Rows joined by ",".
    QString responde(const QString &consulta) { return filas(consulta).join(u','); }
    /// A table of what stands at "%1" and "%2", and what is answered.
    void responden(const QString &consulta, const QString &casos)
    {
        for (const QStringList &caso : tabla(casos)) {
            QString sentencia = consulta;
            for (int i = 1; i < caso.size(); ++i)
                sentencia.replace(u'%' + QString::number(i), caso[i - 1]);
            QCOMPARE(sentencia + u" = "_s + responde(sentencia), sentencia + u" = "_s + caso.back());
        }
    }

private:
    bool conEsquema() const override { return true; }
    void llenar() override
    {
        const auto pon = [&](const QString &tabla, const QString &filas) {
            ejecutar(u"INSERT INTO "_s + tabla + u" VALUES "_s + filas);
        };
        pon(u"Empresas (Codigo, DirImagenArt)"_s, u"(1, 'C:\\Fotos\\')"_s);
        pon(u"Marcas (Codigo, Nombre)"_s, u"(1, 'Acme'), (2, 'Roca')"_s);
        pon(u"Familias_1 (Cod_Empresa, Codigo, Nombre)"_s, u"(2, 1, 'Ferretería'), (2, 2, 'Baño')"_s);
        pon(u"Clientes (Cod_Empresa, Codigo, Tarifa_Pvp, Tarifa_Promoc)"_s, u"(4, 50, 1, 2)"_s);
        pon(u"Almacenes (Cod_Empresa, Codigo, Tarifa, TarifaProm)"_s, u"(1, 1, 1, 2), (1, 2, 1, 0)"_s);
        pon(u"Tarifas (Cod_Empresa, Cod_Tarifa, Decimales, BackColor)"_s,
            u"(2, 1, 2, 0), (2, 2, 3, 255), (1, 1, 2, 0), (1, 2, 3, 0)"_s);
        pon(u"Almacen_Tarifas (Cod_Empresa, Cod_Almacen, Cod_Tarifa)"_s, u"(1, 1, 2), (1, 1, 1)"_s);
        pon(u"Articulos (Cod_Empresa, Codigo, Descripcion, Desc_Memo, Familia_1, Familia_2, Marca)"_s,
            u"(2, 1, 'TORNILLO PLANO', NULL, 1, 1, 1), (2, 2, 'Tornillo grande rojo', '', 1, 2, 1),"
            u" (2, 3, 'ÑORA MOLIDA', '', 0, 0, 0), (2, 5, 'NUEZ', 'TORNEADA A MANO', 0, 0, 0),"
            u" (2, 841, 'ZAPATO L''ORÉAL', '', 0, 0, 0), (2, 4, 'BAÑERA BLANCA', NULL, 2, 0, 2)"_s);
        ejecutar(u"UPDATE Articulos SET Largo = 120, Altura = 40.5, BajoPedido = 1, CualidadX = 10, CualidadY = 11,"
                 u" Alternativo1 = ',3,7,' WHERE Codigo = 4"_s);
        pon(u"Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal, Fecha)"_s,
            u"(2, 1, '8412345678905', 1, '22/11/2026'), (2, 1, 'ABC', 0, '22/11/2026'),"
            u" (2, 4, '98100019', 1, '1/2/2026'), (2, 2, '123456789012', 0, '1/2/2026')"_s);
        pon(u"Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref, Principal)"_s,
            u"(2, 1, 7, 'R-1', 1), (2, 2, 8, 'r-1', 1), (2, 2, 7, '12X34Y', 0), (2, 4, 7, 'BÑ', 1)"_s);
        pon(u"Articulos_RefCli (Cod_Empresa, Cod_Articulo, Cod_Cli, Ref)"_s, u"(2, 1, 50, 'C1'), (2, 2, 51, 'C1')"_s);
        pon(u"Articulos_Tarifas (Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp)"_s,
            u"(2, 1, 1, 10.5), (2, 1, 2, 9), (2, 2, 1, 1234.5678), (2, 4, 1, 100), (2, 4, 2, 0)"_s);
        pon(u"Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo, Stock_Actual, Stock_MiniCompra, Pend_Servir,"
            u" Bloqueo, Rotacion, FUlt_Venta)"_s,
            u"(1, 1, 1, 0.1, 0.2, 3, 0, 1.5, '24/10/2026'), (1, 2, 1, 0.2, 0, 0, 0, 2, '01/10/2026'),"
            u" (1, 3, 1, 0.3, 0, 0, 1, 0, NULL), (1, 1, 2, 5, 0, 0, 1, 0, '22/11/2026'),"
            u" (1, 1, 4, 12.5, 0, 0, 0, 0, '23/10/2026')"_s);
        pon(u"Almacen_Acumulados (Cod_Empresa, Cod_Almacen, Cod_Ejercicio, Mes, Cod_Articulo, Ventas_Unidades)"_s,
            u"(1, 1, 2026, 11, 1, 0.1), (1, 1, 2026, 10, 1, 0.2), (1, 1, 2026, 11, 4, 0.5), (1, 1, 2026, 9, 4, 90),"
            u" (1, 1, 2026, 11, 2, 40)"_s);
        pon(u"Balanzas_Articulos (Cod_Empresa, Cod_Articulo, Plu, Dpto)"_s, u"(1, 5, 5, 2), (2, 3, 5, 1)"_s);
        pon(u"Cualidades_Des (Cod_Empresa, Cod_Cualidad, Codigo, Nombre)"_s,
            u"(2, 10, 1, 'M'), (2, 10, 2, 'L'), (2, 11, 3, 'ROJO')"_s);
        pon(u"Clientes_Art_PVP (Cod_Empresa, Cod_Cliente, Cod_Articulo, Fecha_Inicial, Fecha_Final, Pvp)"_s,
            u"(1, 50, 1, '01/02/2026', '22/11/2026', 8.25), (1, 50, 2, '23/11/2026', '31/12/2026', 1)"_s);
        pon(u"Surtidos_Almacen (Cod_Empresa, Cod_Almacen, Cod_Surtido)"_s, u"(1, 1, 3)"_s);
        pon(u"Surtidos_Articulo_Todos (Cod_Empresa, Cod_Surtido, Cod_Articulo, Obligatorio)"_s, u"(1, 3, 1, 1)"_s);
        pon(u"Alternativos_Valores (Tabla, Alternativo, id, Valor)"_s, u"(0, 0, 3, 'ROJO'), (0, 0, 7, 'AZUL')"_s);
        pon(u"SGD_Controles_Grupos (Cod_Formulario, Cod_Control, Permiso)"_s, u"(1, 8, 1)"_s);
    }
};
