#pragma once

#include "Panorel/Settings/HotKeyRecorder.h"

#include <QWidget>

namespace Panorel {

class SettingRow;
class StatusLine;
class SymbolButton;

/// An action with its key: recording, clearing, and below it what is to be said about the key.
class ShortcutRow : public QWidget {
    Q_OBJECT

public:
    ShortcutRow(const SettingsEnvironment &environment, HotKeyRecorder::TextOf textOf,
                QWidget *parent = nullptr);

    /// The names of others that have the same key are told; an empty explanation is not shown.
    void showKey(const QString &name, const QString &explanation,
                 const std::optional<HotKeyCombo> &combo, const QStringList &collisions);

Q_SIGNALS:
    /// By the user; absent: cleared.
    void keyChosen(const std::optional<HotKeyCombo> &combo);

private:
    void say(const QString &remark);

    HotKeyRecorder *m_recorder;
    SymbolButton *m_clear;
    SettingRow *m_row;
    StatusLine *m_remark;
    QString m_collision; ///< empty: none
};

} // namespace Panorel
