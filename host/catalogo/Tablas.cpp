#include "catalogo/Tablas.h"

#include "importacion/Csv.h"

#include <QFile>
#include <algorithm>

using namespace Qt::StringLiterals;

// A static library drops its resources unless someone asks for them, outside any namespace.
static void cargarRecursos()
{
    Q_INIT_RESOURCE(catalogo);
}

namespace mostrador::tablas {

namespace {

QByteArray recurso(const QString &nombre)
{
    cargarRecursos();
    QFile archivo(u":/catalogo/"_s + nombre);
    return archivo.open(QIODevice::ReadOnly) ? archivo.readAll() : QByteArray();
}

/// The heading names the columns for who reads the file: their order is the one of the members.
template <class Fila>
std::vector<Fila> leidas(const QString &nombre, Fila (*leer)(const QStringList &))
{
    std::vector<Fila> filas;
    for (const RegistroCsv &registro : leerCsv(recurso(nombre))) {
        if (registro.linea > 1)
            filas.push_back(leer(registro.campos));
    }
    return filas;
}

Seccion seccion(const QStringList &campos)
{
    const auto lista = [&campos](qsizetype columna) { return campos[columna].split(u'|'); };
    const auto numero = [&campos](qsizetype columna) { return campos[columna].toShort(); };
    std::vector<qint16> marcas;
    for (const QString &marca : lista(7))
        marcas.push_back(marca.toShort());
    return {numero(0), numero(1),         campos[2],         lista(3),   lista(4),        lista(5),       lista(6),
            marcas,    campos[8].toInt(), campos[9].toInt(), numero(10), numero(11) != 0, numero(12) != 0};
}

/// "7:ABC|9:ABC"
std::vector<Anotacion> anotaciones(const QString &campo)
{
    std::vector<Anotacion> leidas;
    for (const QString &una : campo.split(u'|', Qt::SkipEmptyParts))
        leidas.push_back({una.section(u':', 0, 0).toInt(), una.section(u':', 1)});
    return leidas;
}

Muestra muestra(const QStringList &campos)
{
    const auto suya = std::find_if(secciones().begin(), secciones().end(), [&campos](const Seccion &candidata) {
        return candidata.familia1 == campos[1].toInt() && candidata.familia2 == campos[2].toInt();
    });
    return {&*suya,
            campos[0],
            campos[3].toShort(),
            campos[4].toInt(),
            campos[5],
            campos[6],
            anotaciones(campos[7]),
            anotaciones(campos[8]),
            anotaciones(campos[9]),
            campos[10],
            campos[11].toInt()};
}

} // namespace

const std::vector<Seccion> &secciones()
{
    static const std::vector<Seccion> todas = leidas<Seccion>(u"secciones.csv"_s, seccion);
    return todas;
}

const std::vector<Muestra> &muestras()
{
    static const std::vector<Muestra> todas = leidas<Muestra>(u"muestras.csv"_s, muestra);
    return todas;
}

const QStringList &nombresMarcas()
{
    static const QStringList nombres =
        u"FIXAL|HERCAN|TORNIBAL|FORJAS PEÑA|LUMBRÍA|VOLTAJE SUR|CERRALBA|AGUARIA|NÁCAR BAÑO|D'AIGUA|"
        u"MENAJE MONTAÑÉS|SARTEX|LA LOZA AÑIL|ALBAFILO|HUERTA DEL REY|O'DONNELL & HIJOS|CAMPIÑA|LA QUESERÍA|"
        u"ALMAZARA MODA|COSTURA 9|GARAÑÓN|PEQUEÑÍN|ZAPATERÍA SOL|L'ORÉAL|NATURÍS|BELLA D'OR|TRAZO|PLIEGO & CÍA.|"
        u"VERDECÉSPED"_s.split(u'|');
    return nombres;
}

QStringList guionMaestros()
{
    QStringList lineas = QString::fromUtf8(recurso(u"maestros.sql"_s)).split(u'\n');
    lineas.removeIf([](const QString &linea) { return linea.startsWith(u"--"); });
    return lineas.join(u'\n').split(u";\n"_s, Qt::SkipEmptyParts);
}

} // namespace mostrador::tablas
