#include "platform/informe/Informe.h"

#include "nvArticulo/Error.h"

#include <QAbstractTextDocumentLayout>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextDocument>
#include <algorithm>
#include <cmath>
#include <memory>

// Outside of any namespace, as the macro asks for.
static void cargarPlantillas()
{
    Q_INIT_RESOURCE(informe);
}

using namespace Qt::StringLiterals;

namespace nv {

namespace {

QString leida(const QString &ruta)
{
    QFile fichero(ruta);
    if (!fichero.open(QIODevice::ReadOnly))
        throw Error{0, u"No se puede leer la plantilla del informe: %1"_s.arg(fichero.errorString()), {}};
    return QString::fromUtf8(fichero.readAll());
}

QString plantilla(const QString &directorio, const QString &fichero)
{
    QString ruta = directorio + fichero;
    ruta.replace(u'\\', QDir::separator());
    // Without a report directory the rest would be a path of its own.
    if (!directorio.isEmpty() && QFileInfo::exists(ruta)) {
        const QString suya = leida(ruta);
        // The place may hold the file of another report engine, which is no text.
        if (!suya.contains(QChar::Null))
            return suya;
    }
    cargarPlantillas();
    return leida(u":/nv/informe/"_s + QFileInfo(ruta).completeBaseName() + u".html"_s);
}

QSizeF lugar(const QPagedPaintDevice &dispositivo)
{
    return dispositivo.pageLayout().paintRectPixels(dispositivo.logicalDpiX()).size();
}

std::unique_ptr<QTextDocument> compuesto(const QString &html, QPagedPaintDevice &dispositivo)
{
    auto documento = std::make_unique<QTextDocument>();
    documento->setUndoRedoEnabled(false);
    documento->setDocumentMargin(0);
    documento->documentLayout()->setPaintDevice(&dispositivo);
    documento->setHtml(html);
    documento->setTextWidth(lugar(dispositivo).width());
    return documento;
}

qreal altura(const QString &html, QPagedPaintDevice &dispositivo)
{
    return compuesto(html, dispositivo)->size().height();
}

} // namespace

Informe::Informe(const QString &directorio, const QString &fichero)
    : m_plantilla(plantilla(directorio, fichero))
{}

std::vector<std::size_t> Informe::repartir(QPagedPaintDevice &dispositivo, const Avance &avance) const
{
    const std::size_t total = m_datos.filas.size();
    const qreal pie = altura(m_plantilla.pie(m_parametros, 9999, 9999), dispositivo);
    const qreal hueco = lugar(dispositivo).height() - pie;
    const qreal titulos = altura(m_plantilla.pagina(m_parametros, m_datos, 0, 0, false), dispositivo);
    const qreal minima = std::max(1.0, altura(m_plantilla.paginaMinima(m_parametros), dispositivo) - titulos);
    const auto maximas = static_cast<std::size_t>(std::max(1.0, (hueco - titulos) / minima));

    std::vector<std::size_t> paginas;
    for (std::size_t desde = 0; desde < total || paginas.empty();) {
        if (!avance(static_cast<int>(desde), static_cast<int>(2 * total)))
            return {};
        std::size_t filas = std::min(maximas, total - desde);
        const auto sobra = [&](std::size_t n) {
            return hueco - altura(m_plantilla.pagina(m_parametros, m_datos, desde, n, paginas.empty()), dispositivo);
        };
        qreal libre = sobra(filas);
        while (libre < 0 && filas > 1) {
            // Rows of several lines: as many fewer as lines are over, at most half.
            const auto menos = static_cast<std::size_t>(std::ceil(-libre / minima / 4));
            filas -= std::clamp<std::size_t>(menos, 1, std::max<std::size_t>(filas / 2, 1));
            libre = sobra(filas);
        }
        while (libre >= minima && desde + filas < total) {
            libre = sobra(filas + 1);
            if (libre >= 0)
                ++filas;
        }
        paginas.push_back(filas);
        desde += filas;
    }
    return paginas;
}

bool Informe::imprimir(QPagedPaintDevice &dispositivo, const Avance &avance) const
{
    const std::vector<std::size_t> paginas = repartir(dispositivo, avance);
    if (paginas.empty())
        return false;
    QPainter pintor;
    if (!pintor.begin(&dispositivo))
        throw Error{0, u"No se puede escribir en la impresora o en el fichero elegidos."_s, {}};
    const int total = static_cast<int>(m_datos.filas.size());
    std::size_t desde = 0;
    for (std::size_t i = 0; i < paginas.size(); ++i) {
        if (!avance(total + static_cast<int>(desde), 2 * total))
            return false;
        if (i > 0 && !dispositivo.newPage())
            throw Error{0, u"La impresora no admite más páginas."_s, {}};
        const int numero = static_cast<int>(i) + 1;
        compuesto(m_plantilla.pagina(m_parametros, m_datos, desde, paginas[i], i == 0), dispositivo)
            ->drawContents(&pintor);
        const auto pie =
            compuesto(m_plantilla.pie(m_parametros, numero, static_cast<int>(paginas.size())), dispositivo);
        pintor.save();
        pintor.translate(0, lugar(dispositivo).height() - pie->size().height());
        pie->drawContents(&pintor);
        pintor.restore();
        desde += paginas[i];
    }
    if (!pintor.end())
        throw Error{0, u"No se ha podido terminar el documento."_s, {}};
    return true;
}

} // namespace nv
