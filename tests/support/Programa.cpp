#include "support/Programa.h"

#include <QApplication>
#include <QFileInfo>
#include <QTest>
#include <cstdio>
#include <map>
#include <memory>

namespace nv::pruebas {

namespace {

using Fabrica = QObject *(*)();
using Proceso = int (*)(const QStringList &);

std::map<QString, Fabrica> &clases()
{
    static std::map<QString, Fabrica> todas;
    return todas;
}

std::map<QString, Proceso> &procesos()
{
    static std::map<QString, Proceso> todos;
    return todos;
}

} // namespace

Registrada::Registrada(const char *fichero, QObject *(*crear)())
{
    clases().emplace(QFileInfo(QString::fromUtf8(fichero)).completeBaseName(), crear);
}

ProcesoHijo::ProcesoHijo(const char *nombre, int (*correr)(const QStringList &))
{
    procesos().emplace(QStringLiteral("--") + QString::fromLatin1(nombre), correr);
}

} // namespace nv::pruebas

int main(int argc, char **argv)
{
    using namespace nv::pruebas;
    QApplication aplicacion(argc, argv);
    QStringList argumentos = QApplication::arguments();
    const QString primero = argumentos.value(1);
    if (const auto proceso = procesos().find(primero); proceso != procesos().end())
        return proceso->second(argumentos.mid(2));
    const bool una = clases().contains(primero);
    if (una)
        argumentos.removeAt(1);
    else if (!primero.isEmpty() && !primero.startsWith(u'-')) {
        for (const auto &[nombre, fabrica] : clases())
            std::puts(qPrintable(nombre));
        return 2;
    }
    int fallos = 0;
    for (const auto &[nombre, fabrica] : clases()) {
        if (una && nombre != primero)
            continue;
        const std::unique_ptr<QObject> prueba(fabrica());
        fallos += QTest::qExec(prueba.get(), argumentos);
    }
    return fallos == 0 ? 0 : 1;
}
