#pragma once

#include <QByteArray>
#include <QStringList>
#include <optional>

namespace nv {

/// Records of a comma-separated text (RFC 4180, UTF-8, with or without a byte order mark): fields between quotes hold
/// commas, line breaks and doubled quotes; blanks belong to the field.
class LectorCsv
{
public:
    /// Throws Error when the text is no UTF-8.
    explicit LectorCsv(const QByteArray &texto);

    /// The next record, empty lines skipped; nothing at the end. Throws Error for a quote left open or out of place.
    std::optional<QStringList> siguiente();
    /// Line on which the last record began, from 1.
    int linea() const { return m_lineaRegistro; }

private:
    QString campo(bool &ultimo);
    [[noreturn]] void fallar(const QString &motivo) const;

    QString m_texto;
    qsizetype m_lugar = 0;
    int m_linea = 1;
    int m_lineaRegistro = 1;
};

} // namespace nv
