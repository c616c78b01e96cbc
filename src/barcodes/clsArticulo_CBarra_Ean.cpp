#include "barcodes/Ean.h"
#include "barcodes/clsArticulo_CBarra.h"
#include "common/Valores.h"
#include "nvArticulo/Conexion.h"
#include "nvArticulo/Error.h"
#include "nvArticulo/cEmpresa.h"

#include <QStringList>
#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;
using nv::etiquetado;
using nv::Registros;
using nv::Sentencia;

namespace {

/// One more, in decimal digits however many there are.
QString sumadoUno(QString cifras)
{
    qsizetype i = cifras.size();
    while (i > 0 && cifras[i - 1] == u'9')
        cifras[--i] = u'0';
    if (i == 0)
        return u'1' + cifras;
    cifras[i - 1] = QChar(cifras[i - 1].unicode() + 1);
    while (cifras.size() > 1 && cifras.startsWith(u'0'))
        cifras.remove(0, 1);
    return cifras;
}

QString siguienteAlContador(const QString &contador)
{
    const QString cifras = nv::recortado(contador);
    if (cifras.isEmpty() || !std::all_of(cifras.begin(), cifras.end(), nv::esDigito))
        throw nv::Error{nv::errores::NoCoinciden,
                        u"El contador de códigos de barras, «%1», no es un número (Contador_CBarras)."_s.arg(contador)};
    return sumadoUno(cifras);
}

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
        QStringList repetidos;
        for (const Fila &fila : filas) {
            const QString completo = fila.codigo + QString::number(nv::ean::digitoControl(fila.codigo));
            Sentencia ya(u"SELECT Cod_Barras FROM Articulos_CBarras WHERE Cod_Empresa =");
            ya << empresa << u" AND Cod_Articulo =" << fila.articulo << u" AND Cod_Barras ='" << nv::Doblado(completo)
               << u"'";
            if (m_conexion->Abrir(ya).siguiente()) {
                repetidos << u"%1 del artículo %2"_s.arg(completo).arg(fila.articulo);
                continue;
            }
            Sentencia sentencia(u"UPDATE Articulos_CBarras SET Cod_Barras ='");
            sentencia << nv::Doblado(completo) << u"' WHERE Cod_Empresa =" << empresa << u" AND Cod_Articulo ="
                      << fila.articulo << u" AND Cod_Barras ='" << nv::Doblado(fila.anterior) << u"'";
            m_conexion->Ejecutar(sentencia);
        }
        if (!repetidos.isEmpty())
            throw nv::Error{0, u"Ya existen con su dígito de control: %1. Los demás se han completado."_s.arg(
                                   repetidos.join(u", "_s))};
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
    QString numero = u"9810001"_s;
    if (habia) {
        Sentencia lectura(u"SELECT * FROM Contador_CBarras WHERE Cod_Empresa=");
        lectura << empresa;
        Registros contador = m_conexion->Abrir(lectura);
        if (contador.siguiente())
            numero = siguienteAlContador(contador.texto(u"Cod_Barras"));
    }
    const auto completo = [&] { return numero + QString::number(nv::ean::digitoControl(numero)); };
    qint32 articulo = 0;
    QString nombre;
    qint16 unidades = 0;
    bool principal = false;
    while (Existe(completo(), articulo, nombre, unidades, principal))
        numero = sumadoUno(numero);
    Sentencia escritura;
    if (habia)
        escritura << u"UPDATE Contador_CBarras SET Cod_Barras ='" << nv::ComoEscrito(numero) << u"' WHERE Cod_Empresa="
                  << empresa;
    else
        escritura << u"INSERT INTO Contador_CBarras (Cod_Empresa, Cod_Barras) VALUES (" << empresa << u", '"
                  << nv::ComoEscrito(numero) << u"')";
    m_conexion->Ejecutar(escritura);
    return completo();
}
