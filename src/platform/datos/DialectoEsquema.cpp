#include "platform/datos/DialectoEsquema.h"

#include "platform/datos/Catalogo.h"
#include "platform/datos/Lexico.h"

using namespace Qt::StringLiterals;

namespace nv::datos {

namespace {

using Tipo = Lexema::Tipo;

/// The type of a column in the engine's words, and how many tokens it took of the server's.
struct TipoColumna
{
    QString texto;
    std::size_t consumidos;
};

TipoColumna tipoColumna(const std::vector<Lexema> &lista, std::size_t i)
{
    const QString nombre = lista[i].texto.toString();
    std::size_t fin = i + 1;
    QString tamano;
    if (fin < lista.size() && lista[fin].esSigno(u'(')) {
        while (fin < lista.size() && !lista[fin].esSigno(u')'))
            tamano += lista[fin++].texto;
        tamano += u')';
        ++fin;
    }
    if (tamano.compare(u"(max)", Qt::CaseInsensitive) == 0)
        tamano.clear();
    switch (claseDeTipo(nombre)) {
    case ClaseColumna::Tipo::Texto:
        return {nombre + tamano + u" COLLATE NV_TEXTO"_s, fin - i};
    case ClaseColumna::Tipo::Fecha:
        return {nombre + u" text COLLATE NV_FECHA"_s, fin - i};
    case ClaseColumna::Tipo::Importe:
        return {nombre + u" real"_s + tamano, fin - i};
    case ClaseColumna::Tipo::Otro:
        break;
    }
    // An IDENTITY column is the row's own number.
    for (std::size_t j = fin; j < lista.size() && j < fin + 2; ++j) {
        if (!lista[j].es(u"IDENTITY"))
            continue;
        fin = j + 1;
        while (fin < lista.size() && !lista[fin].esSigno(u')'))
            ++fin;
        return {u"INTEGER"_s, fin + 1 - i};
    }
    return {nombre + tamano, fin - i};
}

} // namespace

bool esDefinicionDeTabla(QStringView sentencia)
{
    int palabras = 0;
    for (const Lexema &lexema : Lexemas(sentencia)) {
        if (lexema.tipo == Tipo::Blanco)
            continue;
        if (!lexema.es(palabras == 0 ? u"CREATE" : u"TABLE"))
            return false;
        if (++palabras == 2)
            return true;
    }
    return false;
}

QString adaptarTabla(const QString &sentencia)
{
    const Lexemas lista(sentencia);
    QString salida;
    int nivel = 0;
    bool enNombre = false;
    bool enTipo = false;
    bool conNumero = false;
    bool claveCompuesta = false;
    for (std::size_t i = 0; i < lista.size(); ++i) {
        const Lexema &lexema = lista[i];
        nivel += lexema.esSigno(u'(') ? 1 : (lexema.esSigno(u')') ? -1 : 0);
        if (nivel == 1 && (lexema.esSigno(u'(') || lexema.esSigno(u','))) {
            enNombre = true;
        } else if (lexema.tipo == Tipo::Palabra && enNombre) {
            enNombre = false;
            const bool restriccion = lexema.es(u"PRIMARY") || lexema.es(u"UNIQUE") || lexema.es(u"CONSTRAINT") ||
                                     lexema.es(u"CHECK") || lexema.es(u"FOREIGN");
            claveCompuesta = claveCompuesta || lexema.es(u"PRIMARY");
            enTipo = !restriccion;
        } else if (lexema.tipo == Tipo::Palabra && enTipo) {
            enTipo = false;
            const TipoColumna tipo = tipoColumna(lista, i);
            conNumero = conNumero || tipo.texto == u"INTEGER";
            salida += tipo.texto;
            i += tipo.consumidos - 1;
            continue;
        }
        if (lexema.texto.startsWith(u'#'))
            salida += u"temp.["_s + lexema.texto.toString() + u']';
        else
            salida += lexema.texto;
    }
    salida = salida.trimmed();
    if (salida.endsWith(u';'))
        salida.chop(1);
    return claveCompuesta && !conNumero ? salida + u" WITHOUT ROWID"_s : salida;
}

} // namespace nv::datos
