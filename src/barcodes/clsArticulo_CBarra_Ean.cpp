#include "barcodes/Ean.h"
#include "barcodes/clsArticulo_CBarra.h"
#include "common/Valores.h"
#include "nvArticulo/Conexion.h"
#include "nvArticulo/Error.h"
#include "nvArticulo/cEmpresa.h"

#include <vector>

using namespace Qt::StringLiterals;
using nv::etiquetado;
using nv::Registros;
using nv::Sentencia;

namespace {

constexpr qint64 PrimerNumero = 9810001;

} // namespace

qint16 clsArticulo_CBarra::Dev_Check(const QString &datos)
{
    return nv::ean::digitoControl(datos.isEmpty() ? QStringView(Cod_Barras).chopped(Cod_Barras.isEmpty() ? 0 : 1)
                                                  : QStringView(datos));
}

bool clsArticulo_CBarra::Validar() const
{
    return nv::ean::esValido(Cod_Barras);
}

void clsArticulo_CBarra::Calc_Check(qint32 primero, qint32 ultimo)
{
    etiquetado(u"clsCodigos_Barra::Calc_Check"_s, [&] {
        struct Fila
        {
            QString codigo;
            qint32 articulo;
            QString anterior;
        };
        const qint16 empresa = empresaArticulos();
        Sentencia lectura(u"SELECT LTRIM(RTRIM(Cod_Barras)) AS Cod_Barras, Cod_Articulo, Cod_Barras AS Anterior"
                          u" FROM Articulos_CBarras"
                          u" WHERE Cod_Empresa =");
        lectura << empresa << u" AND Cod_Articulo BETWEEN " << primero << u" AND " << ultimo
                << u" AND (LEN(Cod_Barras) = 12 OR LEN(Cod_Barras) = 7)";
        // A row that grows must not be met again while the result is read.
        std::vector<Fila> filas;
        Registros registros = m_conexion->Abrir(lectura);
        while (registros.siguiente())
            filas.push_back(
                {registros.texto(u"Cod_Barras"), registros.entero32(u"Cod_Articulo"), registros.texto(u"Anterior")});
        for (const Fila &fila : filas) {
            Sentencia sentencia(u"UPDATE Articulos_CBarras SET Cod_Barras ='");
            sentencia << nv::Doblado(fila.codigo) << nv::ean::digitoControl(fila.codigo) << u"' WHERE Cod_Empresa ="
                      << empresa << u" AND Cod_Articulo =" << fila.articulo << u" AND Cod_Barras ='"
                      << nv::Doblado(fila.anterior) << u"'";
            m_conexion->Ejecutar(sentencia);
        }
    });
}

QString clsArticulo_CBarra::CrearAuto()
{
    return etiquetado(u"clsCodigos_Barra::CrearAuto"_s, [&] {
        Sentencia propio(u"SELECT * FROM Articulos_CBarras WHERE Cod_Empresa=");
        propio << empresaArticulos() << u" AND Cod_Articulo=" << Cod_Articulo << u" AND Automatico=1";
        Registros registros = m_conexion->Abrir(propio);
        if (registros.siguiente())
            return registros.texto(u"Cod_Barras");
        registros.cerrar();
        bool sinContador = false;
        const auto emitir = [&] {
            nv::Transaccion unidad(*m_conexion);
            const QString numero = emitirNumero(sinContador);
            unidad.confirmar();
            return numero;
        };
        const bool ajena = m_conexion->enTransaccion();
        try {
            return emitir();
        } catch (const nv::Error &) {
            // Two workstations that met no counter: the second finds the first one's row, and starts again on it.
            if (ajena || !sinContador)
                throw;
            return emitir();
        }
    });
}

/// Next free number of the company's counter with its check digit. Runs inside a unit of work.
QString clsArticulo_CBarra::emitirNumero(bool &sinContador)
{
    const qint16 empresa = empresaArticulos();
    // Writing the row first takes its lock: whoever reads it after us reads what we leave.
    Sentencia bloqueo(u"UPDATE Contador_CBarras SET Cod_Barras = Cod_Barras WHERE Cod_Empresa=");
    bloqueo << empresa;
    const bool habia = m_conexion->Ejecutar(bloqueo) > 0;
    sinContador = !habia;
    qint64 numero = PrimerNumero;
    if (habia) {
        Sentencia lectura(u"SELECT * FROM Contador_CBarras WHERE Cod_Empresa=");
        lectura << empresa;
        Registros contador = m_conexion->Abrir(lectura);
        if (contador.siguiente())
            numero = static_cast<qint64>(nv::Val(contador.texto(u"Cod_Barras"))) + 1;
    }
    const auto completo = [&] {
        const QString datos = QString::number(numero);
        return datos + QString::number(nv::ean::digitoControl(datos));
    };
    qint32 articulo = 0;
    QString nombre;
    qint16 unidades = 0;
    bool principal = false;
    while (Existe(completo(), articulo, nombre, unidades, principal))
        ++numero;
    Sentencia escritura;
    if (habia)
        escritura << u"UPDATE Contador_CBarras SET Cod_Barras ='" << numero << u"' WHERE Cod_Empresa=" << empresa;
    else
        escritura << u"INSERT INTO Contador_CBarras (Cod_Empresa, Cod_Barras) VALUES (" << empresa << u", '" << numero
                  << u"')";
    m_conexion->Ejecutar(escritura);
    return completo();
}
