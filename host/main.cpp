#include "Base.h"
#include "Ventana.h"
#include "common/Error.h"
#include "control/nvArticulo.h"
#include "guion/Reproductor.h"
#include "importacion/Importacion.h"
#include "platform/widgets/Mensajes.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFile>
#include <QFileDialog>
#include <QLibraryInfo>
#include <QLocale>
#include <QTextStream>
#include <QTimer>
#include <QTranslator>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int EstadoErrorDeUso = 2;

struct Opciones
{
    QString base;
    bool temporal = false;
    int articulos = 20000;
    std::optional<int> modelo;
    bool ulvaro = false;
    QString guion;
    QString capturas;
    QString importar;
    QString odbc;
    bool crear = false;
};

/// Nothing, with the reason on standard error, when they cannot be followed.
std::optional<Opciones> opciones(const QCoreApplication &programa)
{
    QCommandLineParser lector;
    lector.setApplicationDescription(u"Demostración de la caja de artículo."_s);
    lector.addHelpOption();
    lector.addOptions({
        {u"base"_s, u"Catálogo con el que trabajar."_s, u"FICHERO"_s},
        {u"temporal"_s, u"Catálogo nuevo en una carpeta temporal que se borra al salir."_s},
        {u"articulos"_s, u"Artículos de un catálogo nuevo (20000)."_s, u"N"_s, u"20000"_s},
        {u"modelo"_s, u"Modelo de búsqueda, 0 a 8."_s, u"N"_s},
        {u"ulvaro"_s, u"Edición de moda."_s},
        {u"guion"_s, u"Ejecuta un guion («-»: la entrada estándar) y termina."_s, u"FICHERO"_s},
        {u"capturas"_s, u"Carpeta de las imágenes del guion."_s, u"CARPETA"_s},
        {u"importar"_s, u"Incorpora artículos de un archivo CSV."_s, u"CSV"_s},
        {u"odbc"_s, u"Base de datos del servidor, por su texto de conexión ODBC."_s, u"TEXTO"_s},
        {u"crear"_s, u"Con --odbc: crea las tablas y un catálogo de demostración en una base vacía."_s},
    });
    lector.process(programa);
    QTextStream error(stderr);
    Opciones leidas;
    leidas.base = lector.value(u"base"_s);
    leidas.temporal = lector.isSet(u"temporal"_s);
    leidas.ulvaro = lector.isSet(u"ulvaro"_s);
    leidas.guion = lector.value(u"guion"_s);
    leidas.capturas = lector.value(u"capturas"_s);
    leidas.importar = lector.value(u"importar"_s);
    leidas.odbc = lector.value(u"odbc"_s);
    leidas.crear = lector.isSet(u"crear"_s);
    bool numero = false;
    leidas.articulos = lector.value(u"articulos"_s).toInt(&numero);
    QString motivo;
    if (!lector.positionalArguments().isEmpty())
        motivo = u"No se entiende «%1»."_s.arg(lector.positionalArguments().constFirst());
    else if (leidas.temporal && lector.isSet(u"base"_s))
        motivo = u"--base y --temporal no van juntos."_s;
    else if (!leidas.odbc.isEmpty() && (leidas.temporal || lector.isSet(u"base"_s)))
        motivo = u"--odbc no va con --base ni con --temporal."_s;
    else if (leidas.crear && leidas.odbc.isEmpty())
        motivo = u"--crear va con --odbc."_s;
    else if (!numero || leidas.articulos < 1 || leidas.articulos > 5000000)
        motivo = u"--articulos espera un número entre 1 y 5000000."_s;
    if (lector.isSet(u"modelo"_s)) {
        leidas.modelo = lector.value(u"modelo"_s).toInt(&numero);
        if (!numero || *leidas.modelo < 0 || *leidas.modelo > 8)
            motivo = u"--modelo espera un número de 0 a 8."_s;
    }
    if (motivo.isEmpty())
        return leidas;
    error << motivo << Qt::endl;
    return std::nullopt;
}

/// The program: its window and the catalogue on show.
class Mostrador
{
public:
    explicit Mostrador(const Opciones &opciones)
        : m_opciones(opciones)
    {
        QObject::connect(&m_ventana, &nv::Ventana::AbrirPedido, &m_ventana, [this] { elegirBase(); });
        QObject::connect(&m_ventana, &nv::Ventana::TemporalPedida, &m_ventana,
                         [this] { nv::mensajes::guardar(&m_ventana, u"Mostrador"_s, [this] { abrirTemporal(); }); });
    }
    ~Mostrador() { m_ventana.setBase(nullptr); }

    /// With a script there is nobody to ask: what fails ends the program with its reason.
    int ejecutar()
    {
        if (!m_opciones.guion.isEmpty())
            return conGuion();
        m_ventana.show();
        // Once the window is on screen: what there is to ask is asked on top of it.
        QTimer::singleShot(0, &m_ventana, [this] { empezar(); });
        return QApplication::exec();
    }

private:
    void poner(nv::Base nueva)
    {
        m_ventana.setBase(nullptr);
        m_base = std::move(nueva);
        m_ventana.setBase(&m_base);
    }
    void abrirTemporal() { poner(nv::Base::enTemporal(m_opciones.articulos, &m_ventana)); }
    void abrirInicial()
    {
        if (!m_opciones.odbc.isEmpty())
            poner(nv::Base::enServidor(m_opciones.odbc, m_opciones.crear, m_opciones.articulos, &m_ventana));
        else if (m_opciones.temporal)
            abrirTemporal();
        else if (!m_opciones.base.isEmpty())
            poner(nv::Base::abrirExistente(m_opciones.base));
        else
            poner(nv::Base::abrir(nv::Base::rutaHabitual(), m_opciones.articulos, &m_ventana));
    }
    /// The settings of the command line are the company's from then on.
    QString aplicarOpciones()
    {
        QString resumen;
        if (!m_opciones.importar.isEmpty()) {
            QFile archivo(m_opciones.importar);
            if (!archivo.open(QIODevice::ReadOnly))
                throw nv::Error{0, u"No se puede leer «%1»: %2"_s.arg(archivo.fileName(), archivo.errorString()), {}};
            const nv::ResultadoImportacion resultado =
                nv::importarCsv(m_base.conexion(), archivo.readAll(), QDate::currentDate());
            resumen = resultado.resumen();
            QTextStream salida(stderr);
            for (const QString &aviso : resultado.avisos)
                salida << aviso << '\n';
            salida << resumen << Qt::endl;
            m_base.empresa().Recargar();
        }
        if (m_opciones.modelo)
            m_base.empresa().PonerValor(u"BusquedaArticulos"_s, QString::number(*m_opciones.modelo));
        if (m_opciones.ulvaro)
            m_base.empresa().PonerValor(u"EsUlvaro"_s, u"1"_s);
        if (!m_opciones.importar.isEmpty() || m_opciones.modelo || m_opciones.ulvaro)
            m_ventana.reiniciar();
        return resumen;
    }
    void empezar()
    {
        if (!nv::mensajes::guardar(&m_ventana, u"Mostrador"_s, [this] { abrirInicial(); })) {
            const auto respuesta = nv::mensajes::preguntar(
                &m_ventana, u"Mostrador"_s, u"¿Desea trabajar con un catálogo temporal nuevo? Se borra al salir."_s);
            if (respuesta == nv::mensajes::Respuesta::No)
                return;
            if (!nv::mensajes::guardar(&m_ventana, u"Mostrador"_s, [this] { abrirTemporal(); }))
                return;
        }
        QString resumen;
        nv::mensajes::guardar(&m_ventana, u"Mostrador"_s, [&] { resumen = aplicarOpciones(); });
        if (!resumen.isEmpty())
            nv::mensajes::mostrar(&m_ventana, u"Importar"_s, resumen, nv::mensajes::Icono::Informacion);
    }
    void elegirBase()
    {
        const QString ruta = QFileDialog::getOpenFileName(&m_ventana, u"Abrir catálogo"_s, m_base.ruta(),
                                                          u"Catálogos (*.nv);;Todos los archivos (*)"_s);
        if (!ruta.isEmpty())
            nv::mensajes::guardar(&m_ventana, u"Mostrador"_s, [&] { poner(nv::Base::abrirExistente(ruta)); });
    }
    int conGuion();

    Opciones m_opciones;
    nv::Base m_base;
    nv::Ventana m_ventana;
};

int Mostrador::conGuion()
{
    QTextStream salida(stdout);
    try {
        abrirInicial();
        aplicarOpciones();
    } catch (const nv::Error &error) {
        QTextStream(stderr) << error.descripcion << Qt::endl;
        return EstadoErrorDeUso;
    }
    m_ventana.show();
    m_ventana.activateWindow();
    nv::Entorno entorno;
    entorno.ventana = &m_ventana;
    entorno.articulo = &m_ventana.articulo();
    entorno.conexion = &m_base.conexion();
    entorno.ponEmpresa = [this](const QString &clave, const QString &valor) { m_ventana.ponerAjuste(clave, valor); };
    entorno.reinicia = [this](std::optional<int> modelo) {
        m_ventana.deshacerAjustes();
        m_ventana.reiniciar(modelo);
    };
    entorno.capturas = m_opciones.capturas;
    nv::Reproductor reproductor(entorno, salida);
    return reproductor.ejecutar(m_opciones.guion);
}

void traducir(QApplication &programa)
{
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
    auto *traductor = new QTranslator(&programa);
    if (traductor->load(u"qtbase_es"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(traductor);
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication programa(argc, argv);
    QCoreApplication::setApplicationName(u"mostrador"_s);
    QCoreApplication::setOrganizationName(u"nvArticulo"_s);
    traducir(programa);
    const std::optional<Opciones> leidas = opciones(programa);
    if (!leidas)
        return EstadoErrorDeUso;
    return Mostrador(*leidas).ejecutar();
}
