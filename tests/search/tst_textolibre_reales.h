#pragma once

#include "common/Conexion.h"
#include "search/sql/Modelo2.h"
#include "search/sql/Modelo5.h"
#include "search/sql/Modelo7.h"
#include "search/sql/Modelo8.h"
#include "support/BaseDatos.h"

#include <QFile>
#include <QSet>
#include <array>

/// Catalogues of real products, and the four free-text searches over them.
namespace nv::pruebas {

struct Producto
{
    QString barras;
    QString nombre;
};

/// Empty where the file is not there. Its fields: code, name, kind, verdict; quotes inside a quoted one are doubled,
/// none spans lines.
inline std::vector<Producto> productosReales()
{
    using namespace Qt::StringLiterals;
    QFile fichero(QStringLiteral(NV_RAIZ) + u"/../shared/data/productos_reales.csv"_s);
    if (!fichero.open(QIODevice::ReadOnly))
        return {};
    std::vector<Producto> productos;
    QSet<QString> vistos;
    fichero.readLine();
    while (!fichero.atEnd()) {
        const QString linea = QString::fromUtf8(fichero.readLine());
        QStringList campos(QString{});
        bool entreComillas = false;
        for (const QChar c : linea) {
            if (c == u'"')
                entreComillas = !entreComillas;
            if (c == u',' && !entreComillas)
                campos << QString();
            else
                campos.back() += c;
        }
        QString nombre = campos.value(1);
        if (nombre.startsWith(u'"'))
            nombre = nombre.sliced(1, nombre.size() - 2).replace(u"\"\""_s, u"\""_s);
        if (vistos.contains(campos[0]))
            continue;
        vistos.insert(campos[0]);
        productos.push_back({campos[0], nombre});
    }
    return productos;
}

/// With the row limit out of the way.
inline const sql::EntornoTextoLibre Entorno{1, 1, 1, 1, true, 100000};
inline const QDate LimiteVentas(2026, 10, 23);

/// One of the free-text searches, without criteria besides the text.
struct Buscador
{
    const char *nombre;
    sql::Asterisco asterisco;
    Sentencia (*consulta)(const QString &texto);
};

inline const std::array<Buscador, 4> Buscadores{{
    {"model 2", sql::Asterisco::Comodin, [](const QString &texto) { return sql::modelo2(Entorno, texto); }},
    {"model 5", sql::Asterisco::Blanco,
     [](const QString &texto) {
         return sql::modelo5(Entorno, {texto, {}, false, false});
     }},
    {"model 7", sql::Asterisco::Comodin, [](const QString &texto) { return sql::modelo7(Entorno, texto, {}); }},
    {"model 8", sql::Asterisco::Comodin,
     [](const QString &texto) { return sql::modelo8(Entorno, texto, LimiteVentas); }},
}};

inline constexpr int PasoMuestra = 7;

/// Whether an item was sold lately: those of the sample were.
inline bool vendido(int codigo)
{
    return codigo % PasoMuestra == 1;
}

/// A new catalogue with the products from `primero` up to before `ultimo`; their codes count from 1 in the file.
inline std::unique_ptr<BaseDatos> catalogo(const std::vector<Producto> &productos, std::size_t primero,
                                           std::size_t ultimo)
{
    auto base = std::make_unique<BaseDatos>();
    Transaccion transaccion(base->conexion());
    for (std::size_t i = primero; i < ultimo; ++i) {
        const int codigo = static_cast<int>(i) + 1;
        Sentencia articulo(u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion) VALUES (1, ");
        articulo << codigo << u", '" << Doblado(productos[i].nombre) << u"')";
        Sentencia barras(
            u"INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal) VALUES (1, ");
        barras << codigo << u", '" << Doblado(productos[i].barras) << u"', 1)";
        Sentencia existencias(u"INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo, FUlt_Venta) "
                              u"VALUES (1, 1, ");
        existencias << codigo << u", '" << LimiteVentas.addDays(vendido(codigo) ? 1 : 0) << u"')";
        Sentencia precio(u"INSERT INTO Articulos_Tarifas (Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp) VALUES (1, ");
        precio << codigo << u", 1, 1)";
        for (const Sentencia &alta : {articulo, barras, existencias, precio})
            base->conexion().Ejecutar(alta);
    }
    transaccion.confirmar();
    return base;
}

inline QSet<int> encontrados(BaseDatos &base, const Sentencia &sentencia)
{
    Registros registros = base.conexion().Abrir(sentencia);
    const int columna = registros.columna(u"Codigo");
    QSet<int> codigos;
    while (registros.siguiente())
        codigos.insert(registros.entero32(columna));
    return codigos;
}

} // namespace nv::pruebas
