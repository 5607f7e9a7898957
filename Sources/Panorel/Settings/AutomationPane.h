#pragma once

#include "Panorel/UI/Page.h"
#include "PanorelCore/Triggers/TriggerRecord.h"

#include <optional>

namespace Panorel {

class CalendarNotice;
class EmptyState;
class PlainButton;
class SettingsModel;
class UndoLine;

/// The triggers, and what makes another.
class AutomationPane : public Page {
    Q_OBJECT

public:
    /// `calendarHelp` says where calendars are looked for; absent: in accounts of the desktop and
    /// in folders.
    explicit AutomationPane(SettingsModel &model, const std::optional<QString> &calendarHelp = {},
                            QWidget *parent = nullptr);

private:
    /// What a row shows.
    struct Row {
        TriggerRecord trigger;
        std::optional<QString> sceneName;

        bool operator==(const Row &) const = default;
    };

    void refresh();
    void arrange();
    void switchTrigger(const QUuid &id, bool isOn);
    void remove(const QUuid &id);
    void openSheet();

    SettingsModel &m_model;
    QString m_calendarHelp;
    std::vector<Row> m_rows;
    PlainButton *m_add;
    CalendarNotice *m_notice;
    UndoLine *m_undo;
    RowCard *m_list;
    EmptyState *m_empty;
};

} // namespace Panorel
