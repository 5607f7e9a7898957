#pragma once

#include "Panorel/UI/Card.h"

namespace Panorel {

class SettingsModel;
class TextLabel;

/// Says that triggers before meetings wait for access to the calendar, and asks for it. Shows only
/// while access is missing.
class CalendarNotice : public Card {
    Q_OBJECT

public:
    /// `help` says where calendars are looked for on this platform; it may be empty.
    CalendarNotice(SettingsModel &model, const QString &help, QWidget *parent = nullptr);

    /// Whether there is something that needs the calendar.
    void setNeeded(bool isNeeded);

private:
    void refresh();
    void ask();

    SettingsModel &m_model;
    QString m_help;
    bool m_isNeeded = false;
    bool m_wasRefused = false;
    TextLabel *m_explanation;
};

/// For CalendarNotice, where calendars are files or accounts of the desktop.
QString calendarFoldersHelp();

} // namespace Panorel
