#include "search/piezas/AspectoBusqueda.h"

#include "nvArticulo/Error.h"
#include "nvArticulo/cEmpresa.h"
#include "platform/widgets/Rejilla.h"

#include <QCoreApplication>
#include <QScreen>
#include <QSettings>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

QString usuario(const ::cEmpresa &empresa)
{
    try {
        return empresa.Valor(u"UsuarioActual"_s);
    } catch (const Error &) {
        return {};
    }
}

/// Widths are kept in digits of the list's letter, so that they hold for another one.
double digito(const Rejilla &rejilla)
{
    return std::max(1, rejilla.fontMetrics().horizontalAdvance(u'0'));
}

QString columna(std::size_t numero)
{
    return u"Columna%1"_s.arg(numero);
}

} // namespace

AspectoBusqueda::AspectoBusqueda(const ::cEmpresa &empresa, const QString &formulario)
{
    if (!QCoreApplication::organizationName().isEmpty())
        // No part of a user's name is a group of its own.
        m_grupo = u"nvArticulo/%1/%2/"_s.arg(QString(usuario(empresa)).replace(u'/', u'_'), formulario);
}

QVariant AspectoBusqueda::valor(const QString &nombre) const
{
    return m_grupo.isEmpty() ? QVariant() : QSettings().value(m_grupo + nombre);
}

void AspectoBusqueda::guardar(const QString &nombre, const QVariant &valor) const
{
    if (!m_grupo.isEmpty())
        QSettings().setValue(m_grupo + nombre, valor);
}

AspectoBusqueda::Medidas AspectoBusqueda::medidas(const QWidget &forma, const Rejilla &rejilla)
{
    Medidas tomadas{forma.size(), {}};
    for (int c = 0; c < rejilla.model()->columnCount(); ++c)
        tomadas.anchos.push_back(rejilla.columnWidth(c));
    return tomadas;
}

void AspectoBusqueda::poner(QWidget &forma, Rejilla &rejilla, const QString &variante)
{
    m_variante = variante;
    m_deFabrica = medidas(forma, rejilla);
    for (std::size_t c = 0; c < m_deFabrica.anchos.size(); ++c)
        if (const double digitos = valor(columna(c)).toDouble(); digitos > 0 && m_deFabrica.anchos[c] > 0)
            rejilla.setColumnWidth(static_cast<int>(c), qRound(digitos * digito(rejilla)));
    if (const QSize tamano = valor(u"Tamano"_s + variante).toSize(); tamano.isValid()) {
        const QPoint centro = forma.geometry().center();
        forma.resize(tamano.boundedTo(forma.screen()->availableGeometry().size()));
        forma.move(centro - forma.rect().center());
    }
    m_puestas = medidas(forma, rejilla);
}

void AspectoBusqueda::anotar(const QWidget &forma, const Rejilla &rejilla, const QString &variante) const
{
    const Medidas ahora = medidas(forma, rejilla);
    for (std::size_t c = 0; c < ahora.anchos.size(); ++c)
        if (ahora.anchos[c] > 0 && ahora.anchos[c] != m_puestas.anchos[c] && rejilla.elastica() != static_cast<int>(c))
            guardar(columna(c), ahora.anchos[c] / digito(rejilla));
    // With details shown or hidden since, the size is another's.
    if (variante == m_variante && ahora.tamano != m_puestas.tamano)
        guardar(u"Tamano"_s + variante, ahora.tamano);
}

void AspectoBusqueda::restaurar(QWidget &forma, Rejilla &rejilla)
{
    if (m_grupo.isEmpty())
        return;
    QSettings().remove(m_grupo.chopped(1));
    forma.resize(m_deFabrica.tamano);
    for (std::size_t c = 0; c < m_deFabrica.anchos.size(); ++c)
        if (m_deFabrica.anchos[c] > 0 && !rejilla.isColumnHidden(static_cast<int>(c)))
            rejilla.setColumnWidth(static_cast<int>(c), m_deFabrica.anchos[c]);
    m_puestas = medidas(forma, rejilla);
}

} // namespace nv
