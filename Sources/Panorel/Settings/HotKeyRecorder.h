#pragma once

#include "Panorel/Settings/SettingsEnvironment.h"
#include "Panorel/UI/ActionControl.h"

namespace Panorel {

/// Shows a key combination and records another one: pressed, it takes the next keys for itself.
/// Escape leaves it as it was, Backspace or Delete clears it, and going elsewhere cancels. It only
/// tells what was typed; what it shows is for setCombo(), which may come later or not at all.
class HotKeyRecorder : public ActionControl {
    Q_OBJECT

public:
    using TextOf = std::function<QString(const HotKeyCombo &combo)>;

    /// `textOf` as HotKeyPort::text(). Without a `keyCodeOf` in the environment it records nothing.
    HotKeyRecorder(const SettingsEnvironment &environment, TextOf textOf,
                   QWidget *parent = nullptr);
    ~HotKeyRecorder() override;

    /// Absent: none.
    void setCombo(const std::optional<HotKeyCombo> &combo);
    bool isRecording() const { return m_isRecording; }
    /// As it shows: the combination, or while recording the modifiers that are held.
    QString text() const;

    QSize sizeHint() const override;

Q_SIGNALS:
    /// Recording began or came to its end, in whatever way.
    void recordingChanged();
    /// What the user typed; absent: cleared.
    void recorded(const std::optional<HotKeyCombo> &combo);
    /// Why what was typed can't be used; recording goes on.
    void refused(const QString &reason);

protected:
    bool event(QEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void start();
    void stop();
    void finish(const std::optional<HotKeyCombo> &combo);
    void onKey(const QKeyEvent &event);
    void onCombination(const QKeyEvent &event);
    QString refusal(const HotKeyCombo &combo) const;
    QString heldText() const;
    void describe();

    SettingsEnvironment m_environment;
    TextOf m_textOf;
    std::optional<HotKeyCombo> m_combo;
    bool m_isRecording = false;
    quint32 m_held = 0; ///< modifiers, while recording
};

} // namespace Panorel
