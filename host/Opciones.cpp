#include "Opciones.h"

#include "nvArticulo/Error.h"

using namespace Qt::StringLiterals;
using namespace nv;

namespace mostrador {

Opciones::Opciones(const QStringList &argumentos)
{
    m_lector.setApplicationDescription(u"Demostración de la caja de artículo."_s);
    m_lector.addOptions({
        {{u"h"_s, u"help"_s}, u"Esta ayuda."_s},
        {u"base"_s, u"Catálogo con el que trabajar."_s, u"FICHERO"_s},
        {u"temporal"_s, u"Catálogo nuevo en una carpeta temporal que se borra al salir."_s},
        {u"articulos"_s, u"Artículos de un catálogo nuevo (20000)."_s, u"N"_s},
        {u"modelo"_s, u"Modelo de búsqueda, 0 a 8."_s, u"N"_s},
        {u"ulvaro"_s, u"Edición de moda."_s},
        {u"guion"_s, u"Ejecuta un guion («-»: la entrada estándar) y termina."_s, u"FICHERO"_s},
        {u"capturas"_s, u"Carpeta de las imágenes del guion."_s, u"CARPETA"_s},
        {u"letra"_s, u"Tamaño de la letra, en puntos."_s, u"N"_s},
        {u"oscuro"_s, u"Colores claros sobre fondo oscuro."_s},
        {u"importar"_s, u"Incorpora artículos de un archivo CSV."_s, u"CSV"_s},
        {u"odbc"_s, u"Base de datos del servidor, por su texto de conexión ODBC."_s, u"TEXTO"_s},
        {u"crear"_s, u"Con --odbc: crea las tablas y un catálogo de demostración en una base vacía."_s},
    });
    if (!m_lector.parse(argumentos))
        throw Error{0, m_lector.errorText()};
    if (!m_lector.positionalArguments().isEmpty())
        throw Error{0, u"No se entiende «%1»."_s.arg(m_lector.positionalArguments().constFirst())};
    if (hay(u"temporal"_s) && hay(u"base"_s))
        throw Error{0, u"--base y --temporal no van juntos."_s};
    if (hay(u"odbc"_s) && (hay(u"temporal"_s) || hay(u"base"_s)))
        throw Error{0, u"--odbc no va con --base ni con --temporal."_s};
    if (hay(u"crear"_s) && !hay(u"odbc"_s))
        throw Error{0, u"--crear va con --odbc."_s};
    const auto entre = [this](const QString &opcion, int minimo, int maximo) -> std::optional<int> {
        bool numero = false;
        const int valor = texto(opcion).toInt(&numero);
        if (hay(opcion) && (!numero || valor < minimo || valor > maximo))
            throw Error{0, u"--%1 espera un número de %2 a %3."_s.arg(opcion).arg(minimo).arg(maximo)};
        return hay(opcion) ? std::optional(valor) : std::nullopt;
    };
    m_articulos = entre(u"articulos"_s, 1, 5000000).value_or(20000);
    m_modelo = entre(u"modelo"_s, 0, 8);
    m_letra = entre(u"letra"_s, 6, 48);
}

} // namespace mostrador
