#include "Base.h"

#include "catalogo/Catalogo.h"
#include "nvArticulo/Error.h"
#include "nvArticulo/Motores.h"

#include <QDir>
#include <QFileInfo>
#include <QProgressDialog>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace mostrador {

namespace {

/// `dirImagenes` empty: no pictures.
void generarConAviso(Conexion &conexion, const QString &dirImagenes, int articulos, QWidget *padre)
{
    QProgressDialog aviso(u"Preparando el catálogo de demostración…"_s, u"Cancelar"_s, 0, articulos, padre);
    aviso.setWindowTitle(u"Mostrador"_s);
    aviso.setWindowModality(Qt::ApplicationModal);
    aviso.setMinimumDuration(300);
    aviso.setMinimumWidth(380);
    const auto progreso = [&aviso](int hechos, int) {
        aviso.setValue(hechos);
        return !aviso.wasCanceled();
    };
    if (!generarCatalogo(conexion, {articulos, QDate::currentDate(), dirImagenes, progreso}))
        throw Error{0, u"No se ha preparado el catálogo de demostración."_s, u"Base"_s};
}

void exigirEmpresa(EmpresaBD &empresa)
{
    etiquetado(u"Base"_s, [&empresa] { return empresa.CodigoArticulos(); });
}

/// Whether a statement that any database takes goes through.
bool responde(Conexion &conexion, const QString &sentencia)
{
    try {
        conexion.Abrir(Sentencia::deConsola(sentencia));
        return true;
    } catch (const Error &) {
        return false;
    }
}

void exigirTablas(Conexion &conexion)
{
    if (!responde(conexion, u"SELECT Codigo FROM Empresas"_s) && responde(conexion, u"SELECT 1"_s))
        throw Error{0, u"En la base de datos faltan las tablas; --crear las hace en una base vacía."_s, u"Base"_s};
}

} // namespace

Base::Base(std::unique_ptr<Conexion> conexion, const QString &ruta)
    : m_conexion(std::move(conexion))
    , m_empresa(*m_conexion, EmpresaDemostracion)
    , m_parametros(*m_conexion)
    , m_ruta(ruta)
{}

QString Base::rutaHabitual()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)).filePath(u"demostracion.nv"_s);
}

std::unique_ptr<Base> Base::abrirExistente(const QString &ruta)
{
    if (!QFileInfo(ruta).isFile())
        throw Error{0, u"No existe el archivo «%1»."_s.arg(QDir::toNativeSeparators(ruta)), u"Base"_s};
    return abrir(ruta, 0, nullptr);
}

std::unique_ptr<Base> Base::abrir(const QString &ruta, int articulos, QWidget *padre)
{
    const QFileInfo archivo(ruta);
    const bool nuevo = !archivo.exists();
    if (nuevo && !QDir().mkpath(archivo.absolutePath()))
        throw Error{0, u"No se puede crear la carpeta de «%1»."_s.arg(QDir::toNativeSeparators(ruta)), u"Base"_s};
    try {
        std::unique_ptr<Base> base(new Base(datos::abrirEmbebida(ruta), ruta));
        if (nuevo || !tieneEmpresa(base->conexion()))
            generarConAviso(base->conexion(),
                            archivo.absoluteDir().filePath(archivo.completeBaseName() + u"_imagenes"_s), articulos,
                            padre);
        exigirEmpresa(base->empresa());
        return base;
    } catch (const Error &) {
        // Half-made files of a first start that was given up or failed.
        for (const QString &cola : {QString(), u"-wal"_s, u"-shm"_s}) {
            if (nuevo)
                QFile::remove(ruta + cola);
        }
        throw;
    }
}

std::unique_ptr<Base> Base::enServidor(const QString &textoConexion, bool crear, int articulos, QWidget *padre)
{
    std::unique_ptr<Base> base(new Base(datos::abrirOdbc(textoConexion), u"ODBC"_s));
    if (crear) {
        datos::crearEsquema(base->conexion());
        generarConAviso(base->conexion(), {}, articulos, padre);
    } else {
        exigirTablas(base->conexion());
    }
    exigirEmpresa(base->empresa());
    return base;
}

std::unique_ptr<Base> Base::enTemporal(int articulos, QWidget *padre)
{
    auto carpeta = std::make_unique<QTemporaryDir>();
    if (!carpeta->isValid())
        throw Error{0, u"No se puede crear una carpeta temporal: %1"_s.arg(carpeta->errorString()), u"Base"_s};
    std::unique_ptr<Base> base = abrir(carpeta->filePath(u"temporal.nv"_s), articulos, padre);
    base->m_carpeta = std::move(carpeta);
    return base;
}

} // namespace mostrador
