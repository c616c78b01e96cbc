#include "catalogo/FichaArticulo.h"

#include "barcodes/Ean.h"
#include "catalogo/Maestros.h"
#include "catalogo/Muestrario.h"
#include "catalogo/Oficios.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

QString conDigito(const QString &datos)
{
    return datos + QString::number(ean::digitoControl(datos));
}

const QString &una(const QStringList &lista, Azar &azar)
{
    return lista[azar.hasta(static_cast<int>(lista.size()))];
}

/// Prices as shops write them: 12,95, 3,49, 180,00.
Moneda precioRedondo(int centimos)
{
    if (centimos < 100)
        return Moneda::deDiezmilesimas(static_cast<qint64>(centimos) * 100);
    const int euros = centimos / 100;
    constexpr std::array<int, 5> Finales{95, 99, 50, 49, 0};
    const int resto = euros >= 100 ? 0 : Finales[static_cast<std::size_t>(centimos % 5)];
    return Moneda::deDiezmilesimas((static_cast<qint64>(euros) * 100 + resto) * 100);
}

const Seccion &seccionDe(qint16 familia1, qint16 familia2)
{
    const auto &todas = secciones();
    return *std::find_if(todas.begin(), todas.end(), [=](const Seccion &seccion) {
        return seccion.familia1 == familia1 && seccion.familia2 == familia2;
    });
}

void ponerMuestra(FichaArticulo &ficha, const Muestra &muestra)
{
    ficha.muestra = true;
    ficha.seccion = &seccionDe(muestra.familia1, muestra.familia2);
    ficha.descripcion = QString::fromUtf16(muestra.descripcion);
    ficha.marca = muestra.marca;
    ficha.pvp = Moneda::deDiezmilesimas(static_cast<qint64>(muestra.centimos) * 100);
    ficha.barras = muestra.barras ? conDigito(QString::fromUtf16(muestra.barras)) : QString();
    ficha.notas = muestra.notas ? QString::fromUtf16(muestra.notas) : QString();
}

void inventar(FichaArticulo &ficha, Azar &azar)
{
    const auto &todas = secciones();
    const Seccion &seccion = todas[static_cast<std::size_t>(azar.hasta(static_cast<int>(todas.size())))];
    ficha.seccion = &seccion;
    ficha.marca = seccion.marcas[static_cast<std::size_t>(azar.hasta(static_cast<int>(seccion.marcas.size())))];
    ficha.descripcion = una(seccion.productos, azar) + u' ' + una(seccion.calidades, azar);
    if (!seccion.porPeso && azar.deCada100(70))
        ficha.descripcion += u' ' + nombresMarcas()[ficha.marca - 1];
    ficha.descripcion += u' ' + una(seccion.medidas, azar);
    // Cheap things outnumber dear ones.
    const int tramo = seccion.precioMaximo - seccion.precioMinimo;
    ficha.pvp = precioRedondo(seccion.precioMinimo + static_cast<int>(static_cast<qint64>(tramo) * azar.hasta(1000) *
                                                                      azar.hasta(1000) / 1000000));
    if (azar.deCada100(8))
        ficha.notas = u"Pedir con el código del proveedor. Última revisión del precio: campaña de %1."_s.arg(
            azar.deCada100(50) ? u"verano"_s : u"otoño"_s);
    const bool corta = azar.deCada100(6) && ficha.codigo < 100000;
    const bool sinBarras = seccion.porPeso && azar.deCada100(60);
    if (!sinBarras)
        ficha.barras = corta ? conDigito(u"96%1"_s.arg(ficha.codigo, 5, 10, QChar(u'0'))) : barrasDe(ficha.codigo, 0);
}

} // namespace

FichaArticulo fichaArticulo(int codigo, Azar &azar)
{
    FichaArticulo ficha;
    ficha.codigo = codigo;
    if (codigo <= static_cast<int>(muestrario().size()))
        ponerMuestra(ficha, muestrario()[static_cast<std::size_t>(codigo - 1)]);
    else
        inventar(ficha, azar);
    ficha.familia3 = static_cast<qint16>(azar.entre(1, static_cast<int>(ficha.seccion->lineas.size())));
    ficha.proveedor = 1 + (ficha.marca * 7 + azar.hasta(3)) % NumeroProveedores;
    ficha.ticket = ficha.descripcion.left(24).trimmed();
    return ficha;
}

QString barrasDe(int codigo, int serie)
{
    return conDigito(
        u"843%1%2%3"_s.arg(serie).arg(codigo / 100000, 3, 10, QChar(u'0')).arg(codigo % 100000, 5, 10, QChar(u'0')));
}

} // namespace nv
