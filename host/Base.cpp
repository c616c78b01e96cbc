#include "Base.h"

#include "catalogo/Catalogo.h"
#include "common/Error.h"
#include "platform/datos/Motores.h"

#include <QDir>
#include <QFileInfo>
#include <QProgressDialog>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

/// Half-made files of a first start that was given up or failed.
void borrarArchivo(const QString &ruta)
{
    for (const QString &cola : {QString(), u"-wal"_s, u"-shm"_s})
        QFile::remove(ruta + cola);
}

/// `dirImagenes` empty: no pictures.
void generarConAviso(Conexion &conexion, const QString &dirImagenes, int articulos, QWidget *padre)
{
    QProgressDialog aviso(u"Preparando el catálogo de demostración…"_s, u"Cancelar"_s, 0, articulos, padre);
    aviso.setWindowTitle(u"Mostrador"_s);
    aviso.setWindowModality(Qt::ApplicationModal);
    aviso.setMinimumDuration(300);
    aviso.setMinimumWidth(380);
    OpcionesCatalogo opciones;
    opciones.articulos = articulos;
    opciones.dia = QDate::currentDate();
    opciones.dirImagenes = dirImagenes;
    opciones.progreso = [&aviso](int hechos, int) {
        aviso.setValue(hechos);
        return !aviso.wasCanceled();
    };
    if (!generarCatalogo(conexion, opciones))
        throw Error{0, u"No se ha preparado el catálogo de demostración."_s, u"Base"_s};
}

QString imagenesDe(const QString &ruta)
{
    const QFileInfo archivo(ruta);
    return archivo.absoluteDir().filePath(archivo.completeBaseName() + u"_imagenes"_s);
}

void exigirEmpresa(EmpresaBD &empresa)
{
    etiquetado(u"Base"_s, [&empresa] { return empresa.CodigoArticulos(); });
}

} // namespace

Base::~Base()
{
    // The connection closes its file before the folder goes.
    m_empresa.reset();
    m_conexion.reset();
}

Base &Base::operator=(Base &&otra) noexcept
{
    m_empresa = std::move(otra.m_empresa);
    m_conexion = std::move(otra.m_conexion);
    m_carpeta = std::move(otra.m_carpeta);
    m_ruta = std::move(otra.m_ruta);
    return *this;
}

QString Base::rutaHabitual()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)).filePath(u"demostracion.nv"_s);
}

Base Base::abrirExistente(const QString &ruta)
{
    if (!QFileInfo(ruta).isFile())
        throw Error{0, u"No existe el archivo «%1»."_s.arg(QDir::toNativeSeparators(ruta)), u"Base"_s};
    return abrir(ruta, 0, nullptr);
}

Base Base::abrir(const QString &ruta, int articulos, QWidget *padre)
{
    const bool nuevo = !QFileInfo::exists(ruta);
    if (nuevo && !QDir().mkpath(QFileInfo(ruta).absolutePath()))
        throw Error{0, u"No se puede crear la carpeta de «%1»."_s.arg(QDir::toNativeSeparators(ruta)), u"Base"_s};
    Base base;
    base.m_ruta = ruta;
    try {
        base.m_conexion = datos::abrirEmbebida(ruta);
        if (nuevo)
            generarConAviso(*base.m_conexion, imagenesDe(ruta), articulos, padre);
        base.m_empresa = std::make_unique<EmpresaBD>(*base.m_conexion, EmpresaDemostracion);
        if (tieneEmpresa(*base.m_conexion))
            exigirEmpresa(*base.m_empresa);
        else
            generarConAviso(*base.m_conexion, imagenesDe(ruta), articulos, padre);
    } catch (const Error &) {
        base.m_empresa.reset();
        base.m_conexion.reset();
        if (nuevo)
            borrarArchivo(ruta);
        throw;
    }
    return base;
}

Base Base::enServidor(const QString &textoConexion, bool crear, int articulos, QWidget *padre)
{
    Base base;
    base.m_ruta = u"ODBC"_s;
    base.m_conexion = datos::abrirOdbc(textoConexion);
    if (crear) {
        datos::crearEsquema(*base.m_conexion);
        generarConAviso(*base.m_conexion, {}, articulos, padre);
    }
    base.m_empresa = std::make_unique<EmpresaBD>(*base.m_conexion, EmpresaDemostracion);
    exigirEmpresa(*base.m_empresa);
    return base;
}

Base Base::enTemporal(int articulos, QWidget *padre)
{
    auto carpeta = std::make_unique<QTemporaryDir>();
    if (!carpeta->isValid())
        throw Error{0, u"No se puede crear una carpeta temporal: %1"_s.arg(carpeta->errorString()), u"Base"_s};
    Base base = abrir(carpeta->filePath(u"temporal.nv"_s), articulos, padre);
    base.m_carpeta = std::move(carpeta);
    return base;
}

} // namespace nv
