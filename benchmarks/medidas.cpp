// The performance figures, each beside its raw limit, in one run: medidas [ITEMS]…

#include "Medida.h"
#include "catalogo/Catalogo.h"
#include "medidas_busqueda.h"
#include "medidas_contador.h"
#include "nvArticulo/Conexion.h"
#include "nvArticulo/EmpresaBD.h"
#include "nvArticulo/Error.h"
#include "nvArticulo/Motores.h"
#include "nvArticulo/nvArticulo.h"
#include "platform/datos/Apertura.h"
#include "platform/datos/Funciones.h"
#include "platform/widgets/Rejilla.h"
#include "search/frmBusqueda_Articulos_1.h"

#include <QApplication>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTimer>
#include <sqlite3.h>

using namespace Qt::StringLiterals;
using nv::medidas::Medida;
using nv::medidas::salida;

namespace {

constexpr int Lecturas = 5000;
using nv::medidas::Aperturas;

QStringList codigosDeBarras(nv::Conexion &conexion)
{
    QStringList todos;
    nv::Registros registros = conexion.Abrir(nv::Sentencia::deConsola(
        u"SELECT Cod_Barras FROM Articulos_CBarras WHERE Principal = 1 AND LEN(Cod_Barras) = 13"_s));
    while (registros.siguiente())
        todos << registros.texto(0);
    QStringList elegidos;
    for (int i = 0; i < Lecturas && !todos.isEmpty(); ++i)
        elegidos << todos[static_cast<qsizetype>((static_cast<quint64>(i) * 7919 + 13) %
                                                 static_cast<quint64>(todos.size()))];
    return elegidos;
}

/// The two statements of a barcode through the plain C interface, prepared once: the limit.
void desnudas(const QString &ruta, const QStringList &codigos, qint16 empresa)
{
    sqlite3 *base = nv::datos::abrirArchivo(ruta);
    nv::datos::registrarFunciones(base);
    sqlite3_exec(base, "PRAGMA mmap_size=2147483648; PRAGMA cache_size=-16384", nullptr, nullptr, nullptr);
    sqlite3_stmt *barras = nullptr;
    sqlite3_stmt *nombre = nullptr;
    sqlite3_prepare_v2(base, "SELECT Cod_Articulo FROM Articulos_CBarras WHERE Cod_Empresa=?1 AND Cod_Barras=?2", -1,
                       &barras, nullptr);
    sqlite3_prepare_v2(base, "SELECT Descripcion FROM Articulos WHERE Cod_Empresa=?1 AND Codigo=?2", -1, &nombre,
                       nullptr);
    Medida medida;
    for (const QString &codigo : codigos) {
        const QByteArray utf8 = codigo.toUtf8();
        medida.toma([&] {
            sqlite3_bind_int(barras, 1, empresa);
            sqlite3_bind_text(barras, 2, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_STATIC);
            sqlite3_step(barras);
            const int articulo = sqlite3_column_int(barras, 0);
            sqlite3_reset(barras);
            sqlite3_bind_int(nombre, 1, empresa);
            sqlite3_bind_int(nombre, 2, articulo);
            sqlite3_step(nombre);
            sqlite3_reset(nombre);
        });
    }
    sqlite3_finalize(barras);
    sqlite3_finalize(nombre);
    sqlite3_close(base);
    medida.escribe(u"two prepared statements, plain SQLite"_s);
}

void porConexion(nv::Conexion &conexion, const QStringList &codigos, qint16 empresa)
{
    Medida medida;
    for (const QString &codigo : codigos) {
        medida.toma([&] {
            nv::Sentencia barras(u"SELECT Cod_Articulo FROM Articulos_CBarras WHERE Cod_Empresa =");
            barras << empresa << u" AND Cod_Barras ='" << nv::ComoEscrito(codigo) << u"'";
            nv::Registros uno = conexion.Abrir(barras);
            const qint32 articulo = uno.siguiente() ? uno.entero32(u"Cod_Articulo") : 0;
            nv::Sentencia nombre(u"SELECT Descripcion FROM Articulos WHERE Cod_Empresa =");
            nombre << empresa << u" AND Codigo =" << articulo;
            nv::Registros dos = conexion.Abrir(nombre);
            if (dos.siguiente())
                (void)dos.texto(u"Descripcion");
        });
    }
    medida.escribe(u"the same two as text through the connection"_s);
}

void porComponente(nv::Conexion &conexion, nv::EmpresaBD &empresa, const QStringList &codigos)
{
    QWidget forma;
    nvArticulo articulo(&forma);
    articulo.resize(500, 24);
    articulo.setConexion(&conexion);
    articulo.setcEmpresa(&empresa);
    articulo.setKeyEnterChangeFocus(false);
    forma.show();
    QCoreApplication::processEvents();
    Medida medida;
    int hallados = 0;
    for (const QString &codigo : codigos) {
        articulo.setText(codigo);
        medida.toma([&] { (void)articulo.Emular_Enter(codigo); });
        hallados += articulo.Existe() ? 1 : 0;
    }
    medida.escribe(u"Enter to description in the box (%1 of %2 found)"_s.arg(hallados).arg(codigos.size()));
}

void busqueda(nv::EmpresaBD &empresa, const QString &nombre, const QString &criterio)
{
    Medida abrir;
    Medida buscar;
    int filas = 0;
    for (int i = 0; i < Aperturas; ++i) {
        frmBusqueda_Articulos_1 dialogo(nullptr);
        dialogo.cEmpresa = &empresa;
        QElapsedTimer reloj;
        QTimer::singleShot(0, &dialogo, [&] {
            QCoreApplication::processEvents();
            abrir.micros.push_back(static_cast<double>(reloj.nsecsElapsed()) / 1000.0);
            dialogo.findChild<QLineEdit *>(u"txtNombre"_s)->setText(criterio);
            buscar.toma([&] {
                dialogo.EjecutarBusqueda();
                QCoreApplication::processEvents();
            });
            filas = dialogo.findChild<nv::Rejilla *>(u"vsListado"_s)->filasDatos();
            dialogo.reject();
        });
        reloj.start();
        dialogo.MostrarModal();
    }
    if (criterio.isEmpty())
        abrir.escribe(u"search dialog: opening"_s);
    buscar.escribe(u"search dialog: %1, %2 rows painted"_s.arg(nombre).arg(filas));
}

/// What the engine alone needs for the rows of a search.
void consultaDesnuda(nv::Conexion &conexion, const QString &nombre, const QString &condicion)
{
    Medida medida;
    for (int i = 0; i < Aperturas; ++i) {
        medida.toma([&] {
            nv::Registros registros = conexion.Abrir(nv::Sentencia::deConsola(
                u"SELECT  TOP 150 a.Codigo, a.Descripcion, a.Familia_1, a.Familia_2, a.Familia_3, "
                u"ISNULL(b.Cod_Barras,'') AS Cod_Barras  FROM Articulos a  LEFT JOIN Articulos_CBarras b ON "
                u"a.Cod_Empresa=b.Cod_Empresa AND b.Cod_Articulo=a.Codigo AND b.Principal=1 WHERE a.Cod_Empresa =1"_s +
                condicion + u" ORDER BY a.Descripcion"_s));
            while (registros.siguiente())
                (void)registros.texto(1);
        });
    }
    medida.escribe(u"  its statement alone: "_s + nombre);
}

void medir(int articulos)
{
    QTemporaryDir carpeta;
    const QString ruta = carpeta.filePath(u"catalogo.db"_s);
    const auto conexion = nv::datos::abrirEmbebida(ruta);
    QElapsedTimer reloj;
    reloj.start();
    mostrador::generarCatalogo(*conexion, {articulos, QDate(2026, 11, 22), {}, {}});
    salida() << u"%1 items (made in %2 s)\n"_s.arg(articulos).arg(static_cast<double>(reloj.elapsed()) / 1000.0);
    nv::ranura::ofrecer(conexion.get());
    nv::EmpresaBD empresa(*conexion, mostrador::EmpresaDemostracion);
    const QStringList codigos = codigosDeBarras(*conexion);
    for (int vuelta = 0; vuelta < 2; ++vuelta) {
        salida() << (vuelta == 0 ? u" barcode, cold\n"_s : u" barcode, warm\n"_s);
        desnudas(ruta, codigos, empresa.CodigoArticulos());
        porConexion(*conexion, codigos, empresa.CodigoArticulos());
        porComponente(*conexion, empresa, codigos);
    }
    salida() << u" search by description, code, reference and family\n"_s;
    busqueda(empresa, u"no criteria"_s, {});
    consultaDesnuda(*conexion, u"no criteria"_s, {});
    busqueda(empresa, u"TORN*"_s, u"TORN"_s);
    consultaDesnuda(*conexion, u"TORN*"_s, u" AND a.Descripcion LIKE 'TORN%'"_s);
    busqueda(empresa, u"*TORN*"_s, u"*TORN"_s);
    consultaDesnuda(*conexion, u"*TORN*"_s, u" AND a.Descripcion LIKE '%TORN%'"_s);
    nv::medidas::modelos(*conexion, empresa);
    salida().flush();
}

} // namespace

int main(int argc, char **argv)
{
    QApplication aplicacion(argc, argv);
    if (QCoreApplication::arguments().value(1) == u"--emitir")
        return nv::medidas::emitir(QCoreApplication::arguments());
    QStringList tamanos = QCoreApplication::arguments().sliced(1);
    if (tamanos.isEmpty())
        tamanos = {u"10000"_s, u"100000"_s};
    try {
        for (const QString &tamano : std::as_const(tamanos))
            medir(tamano.toInt());
        nv::medidas::contador();
    } catch (const nv::Error &error) {
        salida() << error.descripcion << Qt::endl;
        return 1;
    }
    return 0;
}
