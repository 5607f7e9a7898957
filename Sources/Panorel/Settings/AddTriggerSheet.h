#pragma once

#include "Panorel/UI/Sheet.h"
#include "PanorelCore/Triggers/TriggerRecord.h"

class QSpinBox;
class QStackedWidget;
class QTimeEdit;

namespace Panorel {

class CalendarNotice;
class DayPicker;
class PrimaryButton;
class ScenePicker;
class SegmentedControl;
class SettingsModel;

/// Asks for a new trigger: when, and which scene. Accepted, it is in force.
class AddTriggerSheet : public Sheet {
    Q_OBJECT

public:
    /// `calendarHelp` as CalendarNotice takes it.
    AddTriggerSheet(SettingsModel &model, const QString &calendarHelp, QWidget *parent = nullptr);

    void accept() override;

private:
    QWidget *makeTimePage();
    QWidget *makeMeetingPage();
    QWidget *makeSceneRow();
    QWidget *makeButtons();
    void refresh();
    void showKind(int kind);
    TriggerKind kind() const;

    SettingsModel &m_model;
    SegmentedControl *m_kind;
    QStackedWidget *m_pages;
    QTimeEdit *m_time;
    DayPicker *m_days;
    QSpinBox *m_lead;
    CalendarNotice *m_notice;
    ScenePicker *m_scene;
    QWidget *m_sceneRow = nullptr;
    QWidget *m_noScenes = nullptr;
    PrimaryButton *m_add = nullptr;
};

} // namespace Panorel
