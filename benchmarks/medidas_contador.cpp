#include "medidas_contador.h"

#include "Medida.h"
#include "barcodes/clsArticulo_CBarra.h"
#include "catalogo/Catalogo.h"
#include "nvArticulo/Conexion.h"
#include "nvArticulo/EmpresaBD.h"
#include "nvArticulo/Error.h"
#include "nvArticulo/Motores.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <memory>

namespace nv::medidas {

namespace {

constexpr int PorProceso = 500;
constexpr int Muertes = 12;

std::unique_ptr<QProcess> estacion(const QString &ruta, int primero, int cuantos)
{
    auto proceso = std::make_unique<QProcess>();
    proceso->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    proceso->start(QCoreApplication::applicationFilePath(),
                   {u"--emitir"_s, ruta, QString::number(primero), QString::number(cuantos)});
    proceso->waitForStarted();
    return proceso;
}

/// The workstations' own lines, one each.
void juntas(const QString &ruta, int estaciones, int primero)
{
    salida() << u" automatic barcodes: %1 process(es), %2 numbers each, issued and stored\n"_s.arg(estaciones)
                    .arg(PorProceso);
    std::vector<std::unique_ptr<QProcess>> procesos;
    for (int i = 0; i < estaciones; ++i)
        procesos.push_back(estacion(ruta, primero + i * PorProceso, PorProceso));
    for (auto &proceso : procesos) {
        proceso->waitForFinished(-1);
        salida() << QString::fromUtf8(proceso->readAllStandardOutput());
    }
}

qint64 numero(Conexion &conexion, const QString &consulta)
{
    Registros registros = conexion.Abrir(Sentencia::deConsola(consulta));
    return registros.siguiente() ? registros.entero64(0) : 0;
}

void conMuertes(Conexion &conexion, const QString &ruta, int primero)
{
    const QString emitidos = u"SELECT Cod_Barras FROM Contador_CBarras"_s;
    const QString guardados = u"SELECT COUNT(DISTINCT Cod_Barras) AS N FROM Articulos_CBarras WHERE Automatico = 1"_s;
    const qint64 emitidosAntes = numero(conexion, emitidos);
    const qint64 guardadosAntes = numero(conexion, guardados);
    for (int i = 0; i < Muertes; ++i) {
        const auto victima = estacion(ruta, primero + i * 1000000, 1000000);
        QThread::msleep(static_cast<unsigned long>(60 + 7 * i));
        victima->kill();
        victima->waitForFinished(-1);
    }
    const qint64 dados = numero(conexion, emitidos) - emitidosAntes;
    const qint64 hechos = numero(conexion, guardados) - guardadosAntes;
    salida()
        << u" %1 processes killed: %2 numbers issued, %3 stored, %4 lost\n"_s.arg(Muertes).arg(dados).arg(hechos).arg(
               dados - hechos);
}

} // namespace

int emitir(const QStringList &argumentos)
{
    try {
        const auto conexion = datos::abrirEmbebida(argumentos[2]);
        EmpresaBD empresa(*conexion, mostrador::EmpresaDemostracion);
        clsArticulo_CBarra barra;
        barra.setcEmpresa(&empresa);
        barra.setConexion(conexion.get());
        barra.Automatico = true;
        barra.Principal = true;
        barra.Unidades = 1;
        Medida medida;
        for (int i = 0; i < argumentos[4].toInt(); ++i) {
            barra.Cod_Articulo = argumentos[3].toInt() + i;
            medida.toma([&] {
                barra.Cod_Barras = barra.CrearAuto();
                barra.Insertar();
            });
        }
        medida.escribe(u"one number, one barcode"_s);
        salida().flush();
        return 0;
    } catch (const Error &error) {
        QTextStream(stderr) << error.descripcion << Qt::endl;
        return 1;
    }
}

void contador()
{
    QTemporaryDir carpeta;
    const QString ruta = carpeta.filePath(u"contador.db"_s);
    const auto conexion = datos::abrirEmbebida(ruta);
    mostrador::generarCatalogo(*conexion, {10, QDate(2026, 11, 22), {}, {}});
    juntas(ruta, 1, 1000000);
    juntas(ruta, 4, 1100000);
    conMuertes(*conexion, ruta, 2000000);
}

} // namespace nv::medidas
