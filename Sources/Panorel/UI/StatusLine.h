#pragma once

#include "Panorel/UI/TextLabel.h"

namespace Panorel {

enum class Status {
    Good,      ///< all is as it should be: a full dot
    Attention, ///< something is for the user to do: a full dot
    Off,       ///< switched off, or nothing there yet: a ring
};

/// One line that says how things stand, with a small dot in the colour of the status.
class StatusLine : public QWidget {
    Q_OBJECT

public:
    explicit StatusLine(TextLabel::Fit fit = TextLabel::Fit::Elide, QWidget *parent = nullptr);

    void setStatus(Status status, const QString &text);
    QString text() const;
    Status status() const { return m_status; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Status m_status = Status::Off;
    TextLabel *m_label;
};

} // namespace Panorel
