#include "support/doble/Servidor.h"

#include "common/Error.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>

#include <cstdio>

using namespace Qt::StringLiterals;

/// Stands in for a server behind FreeTDS: speaks as much of the wire protocol as the driver needs and runs the
/// statements on the embedded engine.
///
///     doble                            prints its port and serves until its standard input closes
///     doble --lanzar PROGRAM ARGS…     serves a program, whose arguments say {odbc} for the connection text, and ends
///                                      with its status

namespace {

int lanzar(QStringList argumentos, int puerto)
{
    const QString texto =
        u"DRIVER=FreeTDS;SERVER=127.0.0.1;PORT=%1;UID=u;PWD=p;TDS_Version=7.4;ClientCharset=UTF-8"_s.arg(puerto);
    argumentos.replaceInStrings(u"{odbc}"_s, texto);
    QProcess programa;
    programa.setProcessChannelMode(QProcess::ForwardedChannels);
    programa.setInputChannelMode(QProcess::ForwardedInputChannel);
    programa.start(argumentos.takeFirst(), argumentos);
    constexpr int NoEmpezo = 127;
    if (!programa.waitForStarted() || !programa.waitForFinished(-1))
        return NoEmpezo;
    return programa.exitStatus() == QProcess::NormalExit ? programa.exitCode() : NoEmpezo;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication programa(argc, argv);
    QStringList argumentos = QCoreApplication::arguments().sliced(1);
    const QTemporaryDir carpeta;
    try {
        const nv::doble::Servidor servidor(carpeta.path());
        if (argumentos.value(0) == u"--lanzar" && argumentos.size() > 1)
            return lanzar(argumentos.sliced(1), servidor.puerto());
        QTextStream(stdout) << servidor.puerto() << Qt::endl;
        while (std::getchar() != EOF) {}
    } catch (const nv::Error &error) {
        QTextStream(stderr) << error.descripcion << Qt::endl;
        return 1;
    }
    return 0;
}
