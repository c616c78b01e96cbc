#include "Aspecto.h"
#include "Mostrador.h"
#include "guion/Reproductor.h"
#include "nvArticulo/Error.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTextStream>
#include <QTranslator>

using namespace Qt::StringLiterals;

int main(int argc, char *argv[])
{
    QApplication programa(argc, argv);
    QCoreApplication::setApplicationName(u"mostrador"_s);
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
    QTranslator traductor;
    if (traductor.load(u"qtbase_es"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&traductor);
    try {
        const mostrador::Opciones opciones(QCoreApplication::arguments());
        // Without one the searches open as they were made, which scripts rely on.
        if (!opciones.hay(u"temporal"_s) && !opciones.hay(u"guion"_s))
            QCoreApplication::setOrganizationName(u"nvArticulo"_s);
        mostrador::ponerAspecto(opciones.letra(), opciones.hay(u"oscuro"_s));
        if (!opciones.hay(u"help"_s))
            return mostrador::Mostrador(opciones).ejecutar();
        QTextStream(stdout) << opciones.ayuda();
        return mostrador::guion::EstadoBien;
    } catch (const nv::Error &error) {
        QTextStream(stderr) << error.descripcion << Qt::endl;
        return mostrador::guion::EstadoGuionMalo;
    }
}
