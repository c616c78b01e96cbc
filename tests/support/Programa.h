#pragma once

#include <QObject>
#include <QStringList>
#include <QTest>

/// One program holds all the tests of a folder. Each file registers its class under its own name; the program runs the
/// one that its first argument names, or all of them one after the other.
namespace nv::pruebas {

using Fabrica = QObject *(*)();
struct Registrada
{
    Registrada(const char *fichero, Fabrica crear);
};

/// What the program does instead when its first argument is `--nombre`: the child processes of a test.
using Proceso = int (*)(const QStringList &argumentos);
struct ProcesoHijo
{
    ProcesoHijo(const char *nombre, Proceso correr);
};

} // namespace nv::pruebas

#define NV_PRUEBA(Clase)                                                                                               \
    static const nv::pruebas::Registrada registrada_##Clase(__FILE__, []() -> QObject * { return new Clase; });
