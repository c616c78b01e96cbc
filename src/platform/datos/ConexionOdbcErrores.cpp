#include "platform/datos/ConexionOdbcErrores.h"

#include <QLibrary>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlResult>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace nv::datos {

namespace {

using LeerDiagnostico = short (*)(short, void *, short, unsigned char *, int *, unsigned char *, short, short *);

/// Qt keeps the number of the last message, which may be a mere remark behind the error ("The statement has been
/// terminated", 3621). 0 when there is none to be had.
qint32 primerNumero(const QSqlQuery &consulta)
{
    const QVariant manejador = consulta.result()->handle();
    static const auto leer = reinterpret_cast<LeerDiagnostico>(funcionOdbc("SQLGetDiagRec"));
    if (!leer || !manejador.canConvert<void *>() || !manejador.value<void *>())
        return 0;
    constexpr short Sentencia = 3; // SQL_HANDLE_STMT
    constexpr short Mensajes = 8;
    for (short i = 1; i <= Mensajes; ++i) {
        unsigned char estado[6] = {};
        unsigned char texto[256] = {};
        int numero = 0;
        short largo = 0;
        const short codigo =
            leer(Sentencia, manejador.value<void *>(), i, estado, &numero, texto, sizeof texto, &largo);
        if (codigo != 0 && codigo != 1) // SQL_SUCCESS, SQL_SUCCESS_WITH_INFO
            return 0;
        if (numero != 0)
            return numero;
    }
    return 0;
}

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

QFunctionPointer funcionOdbc(const char *nombre)
{
#ifdef Q_OS_WIN
    return QLibrary::resolve(u"odbc32"_s, nombre);
#else
    return QLibrary::resolve(u"odbc"_s, 2, nombre);
#endif
}

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

Error errorOdbc(const QSqlQuery &consulta)
{
    Error error = errorOdbc(consulta.lastError());
    if (const qint32 numero = primerNumero(consulta))
        error.numero = numero;
    return error;
}

bool sinTransaccion(const Error &error)
{
    constexpr qint32 RollbackSinBegin = 3903;
    return error.numero == RollbackSinBegin ||
           error.descripcion.contains(u"no transaction is active"_s, Qt::CaseInsensitive);
}

} // namespace nv::datos
