#include "support/BaseDatos.h"

#include "platform/datos/Catalogo.h"
#include "platform/datos/Motores.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace nv::pruebas {

BaseDatos::BaseDatos()
    : m_conexion(datos::abrirEmbebida(u":memory:"_s))
{}

void BaseDatos::ejecutar(const QStringList &sentencias)
{
    for (const QString &sentencia : sentencias)
        ejecutar(sentencia);
}

qint64 BaseDatos::ejecutar(const QString &sentencia)
{
    return m_conexion->Ejecutar(Sentencia::deConsola(sentencia));
}

QStringList BaseDatos::filas(const QString &sentencia)
{
    return filasDe(*m_conexion, sentencia);
}

QStringList filasDe(Registros &registros)
{
    QStringList filas;
    while (registros.siguiente()) {
        QStringList celdas;
        for (int i = 0; i < registros.columnas(); ++i)
            celdas.push_back(registros.textoO(i, u"NULL"_s));
        filas.push_back(celdas.join(u'|'));
    }
    return filas;
}

QStringList filasDe(Conexion &conexion, const QString &sentencia)
{
    Registros registros = conexion.Abrir(Sentencia::deConsola(sentencia));
    return filasDe(registros);
}

void borrarEsquema(Conexion &conexion)
{
    static const QRegularExpression tabla(u"CREATE TABLE (\\w+)"_s);
    QRegularExpressionMatchIterator tablas = tabla.globalMatch(datos::Catalogo::unico().esquema());
    while (tablas.hasNext())
        conexion.Ejecutar(Sentencia::deConsola(u"DROP TABLE "_s + tablas.next().captured(1)));
}

} // namespace nv::pruebas
