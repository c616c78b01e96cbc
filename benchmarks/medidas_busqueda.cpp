#include "medidas_busqueda.h"

#include "Medida.h"
#include "nvArticulo/Conexion.h"
#include "nvArticulo/cEmpresa.h"
#include "platform/pickers/nvAlmacen.h"
#include "platform/widgets/Rejilla.h"
#include "search/frmBusqueda_Articulos_2.h"
#include "search/frmBusqueda_Articulos_3.h"
#include "search/frmBusqueda_Articulos_4.h"
#include "search/frmBusqueda_Articulos_5.h"
#include "search/frmBusqueda_Articulos_6.h"
#include "search/frmBusqueda_Articulos_7.h"
#include "search/frmBusqueda_Articulos_8.h"
#include "search/frmBusqueda_Articulos_9.h"

#include <QCoreApplication>
#include <QLineEdit>
#include <QTimer>
#include <functional>
#include <type_traits>

namespace nv::medidas {

namespace {

constexpr QStringView Palabra = u"GRIFO";
constexpr QStringView SinArticulos = u"QQWZK";
constexpr qint32 Almacen = 1;
constexpr QStringView MejorVendidos = u"150";

/// What a search sends, for sending it again without the dialog.
class Sentencias : public OyenteSentencias
{
public:
    explicit Sentencias(Conexion &conexion)
        : m_conexion(conexion)
    {
        m_conexion.escuchar(this);
    }
    Sentencias(const Sentencias &) = delete;
    Sentencias &operator=(const Sentencias &) = delete;
    ~Sentencias() override { m_conexion.dejarDeEscuchar(this); }

    void sentencia(const SucesoSentencia &suceso) override
    {
        if (suceso.error.isEmpty())
            m_enviadas.push_back({Sentencia::deConsola(suceso.texto), suceso.filas < 0});
    }
    void olvidar() { m_enviadas.clear(); }

    void callar() { m_conexion.dejarDeEscuchar(this); }

    /// Reads every cell of every row; to be silent by then.
    void repetir() const
    {
        for (const Enviada &enviada : m_enviadas) {
            if (!enviada.consulta) {
                m_conexion.Ejecutar(enviada.sentencia);
                continue;
            }
            Registros registros = m_conexion.Abrir(enviada.sentencia);
            while (registros.siguiente())
                for (int i = 0; i < registros.columnas(); ++i)
                    (void)registros.textoO(i);
        }
    }

private:
    struct Enviada
    {
        Sentencia sentencia;
        bool consulta;
    };
    Conexion &m_conexion;
    std::vector<Enviada> m_enviadas;
};

template <class Dialogo>
void abrir(::cEmpresa &empresa, const std::function<void(Dialogo &)> &accion)
{
    Dialogo dialogo(nullptr);
    dialogo.cEmpresa = &empresa;
    QTimer::singleShot(0, &dialogo, [&] {
        QCoreApplication::processEvents();
        accion(dialogo);
        dialogo.reject();
    });
    dialogo.MostrarModal();
}

template <class Dialogo>
void modelo(Conexion &conexion, ::cEmpresa &empresa, const QString &nombre,
            const std::type_identity_t<std::function<void(Dialogo &)>> &preparar,
            const std::type_identity_t<std::function<void(Dialogo &)>> &buscar)
{
    Sentencias sentencias(conexion);
    // Twice: what only the first search of a connection sends is not part of it.
    for (int i = 0; i < 2; ++i)
        abrir<Dialogo>(empresa, [&](Dialogo &d) {
            preparar(d);
            sentencias.olvidar();
            buscar(d);
        });
    sentencias.callar();
    Medida pantalla;
    int filas = 0;
    for (int i = 0; i < Aperturas; ++i)
        abrir<Dialogo>(empresa, [&](Dialogo &d) {
            preparar(d);
            pantalla.toma([&] {
                buscar(d);
                QCoreApplication::processEvents();
            });
            filas = d.template findChild<Rejilla *>()->filasDatos();
        });
    Medida desnuda;
    for (int i = 0; i < Aperturas; ++i)
        desnuda.toma([&] { sentencias.repetir(); });
    pantalla.escribe(u"%1, %2 rows painted"_s.arg(nombre).arg(filas));
    desnuda.escribe(u"  its statements alone"_s);
}

template <class Dialogo>
std::function<void(Dialogo &)> descripcion(const QString &criterio)
{
    return [criterio](Dialogo &d) { d.template findChild<QLineEdit *>(u"txtNombre"_s)->setText(criterio); };
}

/// Without a criterion, by the beginning of the description and by any word of it.
template <class Dialogo>
void porCriterios(Conexion &conexion, ::cEmpresa &empresa, const QString &nombre,
                  const std::type_identity_t<std::function<void(Dialogo &)>> &buscar)
{
    for (const QString &criterio : {QString(), Palabra.toString(), u'*' + Palabra.toString()})
        modelo<Dialogo>(conexion, empresa, nombre + u": "_s + (criterio.isEmpty() ? u"no criteria"_s : criterio + u'*'),
                        descripcion<Dialogo>(criterio), buscar);
}

QString unCodigoDeBarras(Conexion &conexion)
{
    Registros registros = conexion.Abrir(Sentencia::deConsola(
        u"SELECT Cod_Barras FROM Articulos_CBarras WHERE Principal = 1 AND LEN(Cod_Barras) = 13"_s));
    return registros.siguiente() ? registros.texto(0) : QString();
}

/// A word of many items, one of none, and a barcode.
template <class Dialogo>
void porTexto(Conexion &conexion, ::cEmpresa &empresa, const QString &nombre)
{
    for (const QString &texto : {Palabra.toString(), SinArticulos.toString(), unCodigoDeBarras(conexion)})
        modelo<Dialogo>(
            conexion, empresa, nombre + u": "_s + texto, [](Dialogo &) {},
            [texto](Dialogo &d) { d.Recuperar_Registros(texto); });
}

void ranking(frmBusqueda_Articulos_5 &dialogo)
{
    dialogo.findChild<nvAlmacen *>(u"txtAlmacen"_s)->setCodigo(Almacen);
    dialogo.findChild<QLineEdit *>(u"txtRanking"_s)->setText(MejorVendidos.toString());
}

} // namespace

void modelos(Conexion &conexion, ::cEmpresa &empresa)
{
    salida() << u" the other search models\n"_s;
    porCriterios<frmBusqueda_Articulos_2>(conexion, empresa, u"model 1"_s, [](auto &d) { d.EjecutarBusqueda(); });
    porTexto<frmBusqueda_Articulos_3>(conexion, empresa, u"model 2"_s);
    porCriterios<frmBusqueda_Articulos_4>(conexion, empresa, u"model 3"_s, [](auto &d) { d.Cargar(); });
    porCriterios<frmBusqueda_Articulos_5>(conexion, empresa, u"model 4"_s, [](auto &d) { d.Cargar(); });
    modelo<frmBusqueda_Articulos_5>(conexion, empresa, u"model 4: best sellers of a warehouse"_s, ranking,
                                    [](auto &d) { d.Cargar(); });
    porTexto<frmBusqueda_Articulos_6>(conexion, empresa, u"model 5"_s);
    porCriterios<frmBusqueda_Articulos_7>(conexion, empresa, u"model 6"_s, [](auto &d) { d.EjecutarBusqueda(); });
    porTexto<frmBusqueda_Articulos_8>(conexion, empresa, u"model 7"_s);
    porTexto<frmBusqueda_Articulos_9>(conexion, empresa, u"model 8"_s);
}

} // namespace nv::medidas
