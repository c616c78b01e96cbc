#pragma once

#include <QHash>
#include <QStringList>
#include <map>
#include <vector>

namespace nv {

/// The rows that a report lists.
struct DatosInforme
{
    QStringList campos;
    std::vector<QStringList> filas; ///< one text per field; amounts with a decimal point
};

/// A report laid out in HTML. `{{2}}` is a parameter, `{{Campo}}` a field of the row, `{{Campo:6}}` that amount with the
/// decimals that parameter 6 says, `{{pagina}}` and `{{paginas}}` the page numbers. What stands between `<!--fila-->` and
/// `<!--/fila-->` is written for each row, `primera` on the first page only, `pie` at the foot of each page.
class Plantilla
{
public:
    using Parametros = std::map<int, QString>;

    /// Throws Error for a text that has no place for the rows.
    explicit Plantilla(const QString &html);

    /// A page with the rows from `desde` on.
    QString pagina(const Parametros &parametros, const DatosInforme &datos, std::size_t desde, std::size_t cuantas,
                   bool primera) const;
    /// As a page with one row whose fields are empty: no row is lower.
    QString paginaMinima(const Parametros &parametros) const;
    QString pie(const Parametros &parametros, int pagina, int paginas) const;

private:
    QString m_antes;
    QString m_soloPrimera;
    QString m_titulos;
    QString m_fila;
    QString m_despues;
    QString m_pie;
};

} // namespace nv
