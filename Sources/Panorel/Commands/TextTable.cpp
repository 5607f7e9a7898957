#include "Panorel/Commands/TextTable.h"

#include <algorithm>

namespace Panorel {

QString fitForTerminal(const QString &text)
{
    QString fit = text;
    for (QChar &character : fit) {
        const auto category = character.category();
        if (category == QChar::Other_Control || category == QChar::Other_Format
            || category == QChar::Separator_Line || category == QChar::Separator_Paragraph)
            character = QLatin1Char('?');
    }
    return fit;
}

QString TextTable::text() const
{
    std::vector<qsizetype> widths;
    for (const QStringList &row : m_rows) {
        widths.resize(std::max(widths.size(), std::size_t(row.size())));
        for (qsizetype i = 0; i < row.size(); ++i)
            widths[std::size_t(i)] = std::max(widths[std::size_t(i)], row[i].size());
    }
    QString text;
    for (const QStringList &row : m_rows) {
        QString line;
        for (qsizetype i = 0; i < row.size(); ++i)
            line += fitForTerminal(row[i]).leftJustified(widths[std::size_t(i)] + 2);
        while (line.endsWith(QLatin1Char(' ')))
            line.chop(1);
        text += line + QLatin1Char('\n');
    }
    return text;
}

} // namespace Panorel
