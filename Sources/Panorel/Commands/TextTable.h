#pragma once

#include <QStringList>

#include <vector>

namespace Panorel {

/// Rows whose columns stand below each other, two blanks apart, without blanks at the end. A row
/// may have fewer columns than others. What a terminal would act on is shown as "?".
class TextTable {
public:
    void add(const QStringList &row) { m_rows.push_back(row); }
    bool isEmpty() const { return m_rows.empty(); }
    QString text() const;

private:
    std::vector<QStringList> m_rows;
};

/// Without control characters and marks that turn the writing direction.
QString fitForTerminal(const QString &text);

} // namespace Panorel
