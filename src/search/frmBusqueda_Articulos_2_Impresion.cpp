#include "common/Conexion.h"
#include "common/Error.h"
#include "common/cEmpresa.h"
#include "platform/informe/Destino.h"
#include "platform/pickers/nvProveedor.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/nvTextBox.h"
#include "search/frmBusqueda_Articulos_2.h"
#include "search/frmBusqueda_Articulos_2_Listado.h"
#include "search/piezas/CascadaFamilias.h"
#include "search/piezas/PunteroEspera.h"

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;
using nv::ListadoPrecios;

namespace {

/// The field that a column of the grid is printed in the order of.
QString campoDeOrden(int columna)
{
    switch (columna) {
    case ListadoPrecios::Descripcion:
        return u"Descripcion"_s;
    case ListadoPrecios::CodigoBarras:
        return u"Cod_Barras"_s;
    case ListadoPrecios::Referencia:
        return u"Ref"_s;
    case ListadoPrecios::Pvp1:
        return u"Pvp1_Num"_s;
    case ListadoPrecios::Pvp2:
        return u"Pvp2_Num"_s;
    case ListadoPrecios::Pvp3:
        return u"Pvp3_Num"_s;
    case ListadoPrecios::Stock:
        return u"Stock_Actual_Num"_s;
    default:
        return u"Codigo"_s;
    }
}

nv::DatosInforme leidos(nv::Registros registros)
{
    nv::DatosInforme datos;
    for (int i = 0; i < registros.columnas(); ++i)
        datos.campos.append(registros.nombre(i));
    while (registros.siguiente()) {
        QStringList fila;
        for (int i = 0; i < registros.columnas(); ++i) {
            const QString &campo = datos.campos[i];
            if (registros.esNulo(i))
                fila.append(QString());
            else if (campo.endsWith(u"_Num"))
                fila.append(registros.moneda(i).textoSql());
            else
                fila.append(campo == u"Stock_Actual" ? registros.textoNumero(i) : registros.texto(i));
        }
        datos.filas.push_back(std::move(fila));
    }
    return datos;
}

void ordenar(nv::DatosInforme &datos, const QString &campo, Qt::SortOrder sentido)
{
    const qsizetype lugar = datos.campos.indexOf(campo);
    nv::MenorFila menor;
    if (campo == u"Codigo" || campo.endsWith(u"_Num")) {
        std::vector<nv::Moneda> importes;
        for (const QStringList &fila : datos.filas)
            importes.push_back(fila[lugar].isEmpty() ? nv::Moneda() : nv::Moneda::deTexto(fila[lugar]));
        menor = nv::menorPorImporte(std::move(importes), sentido);
    } else {
        std::vector<QString> textos;
        for (const QStringList &fila : datos.filas)
            textos.push_back(fila[lugar]);
        menor = nv::menorPorTexto(textos, sentido);
    }
    std::vector<int> orden(datos.filas.size());
    std::iota(orden.begin(), orden.end(), 0);
    std::stable_sort(orden.begin(), orden.end(), menor);
    std::vector<QStringList> filas;
    filas.reserve(orden.size());
    for (const int fila : orden)
        filas.push_back(std::move(datos.filas[static_cast<std::size_t>(fila)]));
    datos.filas = std::move(filas);
}

} // namespace

QString frmBusqueda_Articulos_2::DevCriterio() const
{
    QStringList piezas{u"Desc: "_s + m_nombre->text(), u"Código: "_s + m_codigo->text(),
                       u"Prov: "_s + m_proveedor->Texto(), u"Ref: "_s + m_referencia->text()};
    for (int nivel = 0; nivel < 3; ++nivel) {
        const QString nombre = cEmpresa->NombreFamilia(nivel);
        const qint32 codigo = m_familias->codigos()[static_cast<std::size_t>(nivel)];
        piezas.append(nombre.isEmpty() ? QString() : nombre + u": "_s + QString::number(codigo));
    }
    return piezas.join(u"  "_s);
}

void frmBusqueda_Articulos_2::Imprimir_Busqueda()
{
    if (m_ultima.vacia())
        return;
    try {
        imprimir();
    } catch (const nv::Error &) {
        nv::mensajes::mostrar(this, tituloBusqueda(), u"Error en Imprimir_Busqueda"_s, nv::mensajes::Icono::Critico);
    }
}

void frmBusqueda_Articulos_2::imprimir()
{
    nv::Informe informe(cEmpresa->DirectorioInformes(), u"\\Rpt\\Articulos Busqueda 2.rpt"_s);
    nv::DestinoInforme destino(this, u"Articulos Busqueda 2"_s);
    if (!destino.elegido())
        return;
    const nv::PunteroEspera espera;
    const ListadoPrecios::Tarifas &tarifas = m_listado->tarifas();
    informe.setParametro(1, DevCriterio());
    informe.setParametro(5, QString::number(AlmacenStock));
    for (std::size_t i = 0; i < tarifas.size(); ++i) {
        informe.setParametro(2 + static_cast<int>(i), QString::number(tarifas[i].codigo));
        informe.setParametro(6 + static_cast<int>(i), QString::number(tarifas[i].decimales));
    }
    informe.setDatos(datosInforme());
    destino.imprimir(informe, this);
}

nv::DatosInforme frmBusqueda_Articulos_2::datosInforme() const
{
    nv::DatosInforme datos = leidos(nv::ranura::exigida().Abrir(m_ultima));
    ordenar(datos, campoDeOrden(m_listado->orden().columna()), m_listado->orden().sentido());
    return datos;
}
