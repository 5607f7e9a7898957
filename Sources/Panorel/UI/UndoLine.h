#pragma once

#include <QWidget>

#include <functional>

namespace Panorel {

class TextButton;
class TextLabel;

/// Says what was just removed and offers the way back. Hidden until something is.
class UndoLine : public QWidget {
    Q_OBJECT

public:
    explicit UndoLine(QWidget *parent = nullptr);

    /// In place of what it offered before.
    void offer(const QString &text, std::function<void()> undo);
    void withdraw();

private:
    TextLabel *m_text;
    TextButton *m_button;
    std::function<void()> m_undo;
};

} // namespace Panorel
