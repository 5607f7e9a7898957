#pragma once

#include <QWidget>

namespace Panorel {

class TextLabel;

/// One line of a card: what it is about at the left, its control at the right, and where the name
/// alone is not enough, an explanation below. The control is read out under the row's name unless
/// it has one of its own. A click anywhere on the row of a switch switches it.
class SettingRow : public QWidget {
    Q_OBJECT

public:
    /// The row owns the control. Null: it only shows.
    SettingRow(const QString &name, const QString &explanation, QWidget *control,
               QWidget *parent = nullptr);

    /// Any text of the user's or of a program; it wraps.
    void setName(const QString &name);
    /// Empty: none.
    void setExplanation(const QString &explanation);

protected:
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    TextLabel *m_name;
    TextLabel *m_explanation;
    QWidget *m_control;
};

} // namespace Panorel
