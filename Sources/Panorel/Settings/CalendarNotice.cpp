#include "Panorel/Settings/CalendarNotice.h"

#include "Panorel/Settings/SettingsModel.h"
#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/PlainButton.h"
#include "Panorel/UI/StatusLine.h"

#include <QPointer>
#include <QVBoxLayout>

namespace Panorel {

CalendarNotice::CalendarNotice(SettingsModel &model, const QString &help, QWidget *parent)
    : Card(parent), m_model(model), m_help(help),
      m_explanation(new TextLabel(TextStyle::Secondary, TextLabel::Fit::Wrap))
{
    setObjectName(QStringLiteral("calendarNotice"));
    auto *status = new StatusLine(TextLabel::Fit::Wrap);
    status->setStatus(Status::Attention, tr("Calendar access needed"));
    auto *grant = new PlainButton(tr("Grant calendar access…"));
    body()->addWidget(status);
    body()->addWidget(m_explanation);
    body()->addWidget(grant, 0, Qt::AlignLeft);
    connect(grant, &PlainButton::clicked, this, &CalendarNotice::ask);
    connect(&m_model, &SettingsModel::changed, this, &CalendarNotice::refresh);
    refresh();
}

void CalendarNotice::setNeeded(bool isNeeded)
{
    m_isNeeded = isNeeded;
    refresh();
}

void CalendarNotice::refresh()
{
    QString text =
        m_wasRefused ? tr("No access was given, or there is no calendar yet.") : QString();
    if (!m_help.isEmpty())
        text += (text.isEmpty() ? QString() : QStringLiteral(" ")) + m_help;
    m_explanation->setText(text);
    m_explanation->setVisible(!text.isEmpty());
    setVisible(m_isNeeded && m_model.calendarAuthorization() != CalendarAuthorization::FullAccess);
}

void CalendarNotice::ask()
{
    m_model.requestCalendarAccess([self = QPointer(this)](bool granted) {
        if (!self)
            return;
        self->m_wasRefused = !granted;
        self->m_model.refresh();
    });
}

QString calendarFoldersHelp()
{
    return CalendarNotice::tr("Meetings are read from the calendar accounts of your desktop and "
                              "from the .ics files in ~/.calendars.");
}

} // namespace Panorel
