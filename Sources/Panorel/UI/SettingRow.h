#pragma once

#include "Panorel/UI/TextLabel.h"

namespace Panorel {

/// One line of a card: what it is about at the left, its control at the right, and where the name
/// alone is not enough, an explanation below. The control is read out under the row's name unless
/// it has one of its own. A click anywhere on the row of a switch switches it.
class SettingRow : public QWidget {
    Q_OBJECT

public:
    /// The row owns the control. Null: it only shows. A name of the user's or of a program, of any
    /// length, is to be elided.
    SettingRow(const QString &name, const QString &explanation, QWidget *control,
               TextLabel::Fit nameFit = TextLabel::Fit::Wrap, QWidget *parent = nullptr);

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
