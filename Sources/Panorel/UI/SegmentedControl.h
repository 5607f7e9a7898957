#pragma once

#include <QStringList>
#include <QWidget>

class QButtonGroup;

namespace Panorel {

/// A few views or kinds of which exactly one is chosen. Tab reaches the chosen one, the arrow keys
/// choose another.
class SegmentedControl : public QWidget {
    Q_OBJECT

public:
    SegmentedControl(const QStringList &titles, const QString &purpose, QWidget *parent = nullptr);

    int current() const;
    /// Emits nothing.
    void setCurrent(int index);

Q_SIGNALS:
    /// By the user.
    void chosen(int index);

private:
    QButtonGroup *m_segments;
};

} // namespace Panorel
