#include "platform/datos/Catalogo.h"

#include "platform/datos/Lexico.h"

#include <QFile>

using namespace Qt::StringLiterals;

// A static library drops its resources unless someone asks for them, outside any namespace.
static void cargarRecursos()
{
    Q_INIT_RESOURCE(esquema);
}

namespace nv::datos {

namespace {

std::vector<Lexema> sinBlancos(QStringView sentencia)
{
    Lexemas lista(sentencia);
    std::erase_if(lista, [](const Lexema &lexema) { return lexema.tipo == Lexema::Tipo::Blanco; });
    return lista;
}

} // namespace

const Catalogo &Catalogo::unico()
{
    static const Catalogo catalogo;
    return catalogo;
}

Catalogo::Catalogo()
{
    cargarRecursos();
    QFile archivo(u":/datos/esquema.sql"_s);
    if (archivo.open(QIODevice::ReadOnly))
        m_esquema = QString::fromUtf8(archivo.readAll());
    const QStringList sentencias = sentenciasDe(m_esquema);
    for (const QString &sentencia : sentencias) {
        const std::vector<Lexema> lista = sinBlancos(sentencia);
        if (lista.size() > 2 && lista[1].es(u"TABLE"))
            leerTabla(lista);
        else
            leerIndice(lista);
    }
}

void Catalogo::anotarTipo(QStringView nombre, ClaseColumna::Tipo tipo)
{
    const QString clave = nombre.toString().toLower();
    const auto lugar = m_columnas.find(clave);
    if (lugar == m_columnas.end())
        m_columnas.insert(clave, {tipo, false});
    else if (lugar->tipo != tipo)
        lugar->tipo = ClaseColumna::Tipo::Otro;
}

void Catalogo::leerTabla(const std::vector<Lexema> &lista)
{
    int nivel = 0;
    bool enClave = false;
    for (std::size_t i = 0; i + 1 < lista.size(); ++i) {
        if (lista[i].esSigno(u')'))
            --nivel;
        if (lista[i].esSigno(u'('))
            ++nivel;
        if (nivel == 1 && (lista[i].esSigno(u'(') || lista[i].esSigno(u','))) {
            enClave = lista[i + 1].es(u"PRIMARY") || lista[i + 1].es(u"UNIQUE");
            if (!enClave && i + 2 < lista.size())
                anotarTipo(lista[i + 1].texto, claseDeTipo(lista[i + 2].texto));
        } else if (enClave && nivel == 2 && lista[i].tipo == Lexema::Tipo::Palabra) {
            m_columnas[lista[i].texto.toString().toLower()].indexada = true;
        }
    }
}

void Catalogo::leerIndice(const std::vector<Lexema> &lista)
{
    bool dentro = false;
    for (const Lexema &lexema : lista) {
        dentro = dentro || lexema.esSigno(u'(');
        if (dentro && lexema.tipo == Lexema::Tipo::Palabra)
            m_columnas[lexema.texto.toString().toLower()].indexada = true;
    }
}

ClaseColumna Catalogo::columna(QStringView nombre) const
{
    return m_columnas.value(nombre.toString().toLower());
}

ClaseColumna::Tipo claseDeTipo(QStringView tipo)
{
    using Tipo = ClaseColumna::Tipo;
    const QString nombre = tipo.toString().toLower();
    if (QStringList{u"varchar"_s, u"nvarchar"_s, u"char"_s, u"nchar"_s, u"text"_s, u"ntext"_s}.contains(nombre))
        return Tipo::Texto;
    if (QStringList{u"datetime"_s, u"smalldatetime"_s, u"date"_s, u"datetime2"_s}.contains(nombre))
        return Tipo::Fecha;
    if (QStringList{u"money"_s, u"smallmoney"_s, u"decimal"_s, u"numeric"_s}.contains(nombre))
        return Tipo::Importe;
    return Tipo::Otro;
}

QStringList sentenciasDe(const QString &guion)
{
    QStringList sentencias;
    const QStringList trozos = guion.split(u";\n"_s, Qt::SkipEmptyParts);
    for (const QString &trozo : trozos) {
        if (!trozo.trimmed().isEmpty())
            sentencias.push_back(trozo);
    }
    return sentencias;
}

} // namespace nv::datos
