#include "platform/datos/ConexionOdbcErrores.h"

#include <QSqlError>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace nv::datos {

namespace {

/// A statement's error comes with others around it ("The statement has been terminated"): the first number counts.
qint32 numeroNativo(const QString &codigos)
{
    const QStringList lista = codigos.split(u';', Qt::SkipEmptyParts);
    for (const QString &codigo : lista) {
        if (const int numero = codigo.trimmed().toInt())
            return numero;
    }
    return 0;
}

} // namespace

QString sinPrefijos(const QString &mensaje)
{
    const QString texto = mensaje.trimmed();
    qsizetype fin = 0;
    while (fin < texto.size() && texto[fin] == u'[') {
        const qsizetype cierre = texto.indexOf(u']', fin);
        if (cierre < 0)
            break;
        fin = cierre + 1;
    }
    if (fin == 0)
        return texto;
    QStringList partes;
    QString unidas;
    const QStringList mensajes = texto.sliced(fin).split(texto.first(fin));
    for (const QString &parte : mensajes) {
        const QString limpia = parte.trimmed();
        if (limpia.isEmpty() || partes.contains(limpia))
            continue;
        partes.push_back(limpia);
        if (!unidas.isEmpty())
            unidas += unidas.back().isPunct() ? u" "_s : u". "_s;
        unidas += limpia;
    }
    return unidas;
}

Error errorOdbc(const QSqlError &error)
{
    QString descripcion = sinPrefijos(error.databaseText());
    if (descripcion.isEmpty())
        descripcion = error.driverText().trimmed();
    if (descripcion.isEmpty())
        descripcion = u"La base de datos no responde."_s;
    return {numeroNativo(error.nativeErrorCode()), descripcion, {}};
}

bool sinTransaccion(const Error &error)
{
    constexpr qint32 RollbackSinBegin = 3903;
    return error.numero == RollbackSinBegin ||
           error.descripcion.contains(u"no transaction is active"_s, Qt::CaseInsensitive);
}

} // namespace nv::datos
