#pragma once

#include <QWidget>

#include <set>

class QLocale;

namespace Panorel {

class ChoiceButton;

/// Weekdays to choose from, in the order of the locale's week.
class DayPicker : public QWidget {
    Q_OBJECT

public:
    explicit DayPicker(const QLocale &locale, QWidget *parent = nullptr);

    /// 1 Sunday to 7 Saturday, as triggers count them.
    std::set<qint64> days() const;

private:
    std::vector<std::pair<qint64, ChoiceButton *>> m_days;
};

} // namespace Panorel
