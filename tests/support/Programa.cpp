#include "support/Programa.h"

#include <QApplication>
#include <QFileInfo>
#include <cstdio>
#include <map>
#include <memory>

namespace nv::pruebas {

/// Whoever registers first makes it.
template <class Funcion>
static std::map<QString, Funcion> &registro()
{
    static std::map<QString, Funcion> todas;
    return todas;
}

Registrada::Registrada(const char *fichero, Fabrica crear)
{
    registro<Fabrica>().emplace(QFileInfo(QString::fromUtf8(fichero)).completeBaseName(), crear);
}

ProcesoHijo::ProcesoHijo(const char *nombre, Proceso correr)
{
    registro<Proceso>().emplace(QStringLiteral("--") + QString::fromLatin1(nombre), correr);
}

} // namespace nv::pruebas

int main(int argc, char **argv)
{
    using namespace nv::pruebas;
    QApplication aplicacion(argc, argv);
    QStringList argumentos = QApplication::arguments();
    const QString primero = argumentos.value(1);
    if (const auto &hijos = registro<Proceso>(); hijos.contains(primero))
        return hijos.at(primero)(argumentos.mid(2));
    const auto &clases = registro<Fabrica>();
    const bool una = clases.contains(primero);
    if (una)
        argumentos.removeAt(1);
    else if (!primero.isEmpty() && !primero.startsWith(u'-')) {
        for (const auto &[nombre, fabrica] : clases)
            std::puts(qPrintable(nombre));
        return 2;
    }
    int fallos = 0;
    for (const auto &[nombre, fabrica] : clases) {
        if (!una || nombre == primero)
            fallos += QTest::qExec(std::unique_ptr<QObject>(fabrica()).get(), argumentos);
    }
    return fallos == 0 ? 0 : 1;
}
