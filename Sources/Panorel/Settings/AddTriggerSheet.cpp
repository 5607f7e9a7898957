#include "Panorel/Settings/AddTriggerSheet.h"

#include "Panorel/Settings/CalendarNotice.h"
#include "Panorel/Settings/DayPicker.h"
#include "Panorel/Settings/ScenePicker.h"
#include "Panorel/Settings/SettingsModel.h"
#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/PlainButton.h"
#include "Panorel/UI/PrimaryButton.h"
#include "Panorel/UI/RowCard.h"
#include "Panorel/UI/SegmentedControl.h"
#include "Panorel/UI/SettingRow.h"
#include "Panorel/UI/TabOrder.h"
#include "Panorel/UI/TextLabel.h"

#include <QSpinBox>
#include <QStackedWidget>
#include <QTimeEdit>
#include <QVBoxLayout>

namespace Panorel {

namespace {

enum Kind { Time, Meeting };

constexpr int sheetWidth = 480;

} // namespace

AddTriggerSheet::AddTriggerSheet(SettingsModel &model, const QString &calendarHelp, QWidget *parent)
    : Sheet(sheetWidth, parent), m_model(model),
      m_kind(new SegmentedControl({tr("At a time"), tr("Before a meeting")}, tr("Kind"))),
      m_pages(new QStackedWidget), m_time(new QTimeEdit(QTime(9, 0))),
      m_days(new DayPicker(locale())), m_lead(new QSpinBox),
      m_notice(new CalendarNotice(model, calendarHelp)), m_scene(new ScenePicker)
{
    setWindowTitle(tr("Add trigger"));
    for (QWidget *control : std::initializer_list<QWidget *>{m_time, m_lead, m_scene})
        control->setMinimumHeight(Metrics::hitArea);
    m_pages->addWidget(makeTimePage());
    m_pages->addWidget(makeMeetingPage());

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(Metrics::wide, Metrics::wide, Metrics::wide, Metrics::large);
    layout->setSpacing(Metrics::medium);
    layout->addWidget(m_kind);
    layout->addWidget(m_pages);
    layout->addWidget(m_notice);
    layout->addWidget(makeSceneRow());
    layout->addStretch();
    layout->addWidget(makeButtons());
    connect(m_kind, &SegmentedControl::chosen, this, &AddTriggerSheet::showKind);
    connect(&m_model, &SettingsModel::changed, this, &AddTriggerSheet::refresh);
    showKind(Time);
    refresh();
    orderTabsByLayout(*this);
}

QWidget *AddTriggerSheet::makeTimePage()
{
    m_time->setDisplayFormat(locale().timeFormat(QLocale::ShortFormat));
    auto *note = new TextLabel(TextStyle::Secondary, TextLabel::Fit::Wrap);
    note->setText(tr("No days selected means every day."));
    m_days->setAccessibleDescription(note->text());
    auto *days = new QWidget;
    auto *layout = new QVBoxLayout(days);
    layout->setContentsMargins(0, Metrics::medium, 0, Metrics::small);
    layout->setSpacing(Metrics::tight);
    layout->addWidget(m_days);
    layout->addWidget(note);
    auto *card = new RowCard;
    card->addRow(new SettingRow(tr("Time"), {}, m_time));
    card->addRow(days);
    return card;
}

QWidget *AddTriggerSheet::makeMeetingPage()
{
    constexpr int mostMinutes = 60; // the calendar is read an hour ahead
    constexpr int usualMinutes = 5;
    m_lead->setRange(0, mostMinutes);
    m_lead->setValue(usualMinutes);
    m_lead->setSuffix(u' ' + tr("min"));
    auto *card = new RowCard;
    card->addRow(new SettingRow(tr("Minutes before"),
                                tr("Counts for calendar events with a link to a video meeting."),
                                m_lead));
    card->body()->addStretch();
    return card;
}

QWidget *AddTriggerSheet::makeSceneRow()
{
    auto *card = new RowCard;
    m_sceneRow = new SettingRow(tr("Scene to apply"), {}, m_scene);
    auto *add = new PlainButton(tr("Add scene"));
    m_noScenes = new SettingRow(tr("There is no scene to apply yet."),
                                tr("Makes one of the windows as they are now."), add);
    m_noScenes->setObjectName(QStringLiteral("noScenes"));
    card->addRow(m_sceneRow);
    card->addRow(m_noScenes);
    connect(add, &PlainButton::clicked, this, [this] { m_model.addSceneFromCurrentWindows(); });
    return card;
}

QWidget *AddTriggerSheet::makeButtons()
{
    auto *cancel = new PlainButton(tr("Cancel"));
    m_add = new PrimaryButton(tr("Add trigger"));
    m_add->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    cancel->setFixedHeight(m_add->sizeHint().height());
    auto *buttons = new QWidget;
    auto *layout = new QHBoxLayout(buttons);
    layout->setContentsMargins(0, Metrics::small, 0, 0);
    layout->setSpacing(Metrics::small);
    layout->addStretch();
    layout->addWidget(cancel);
    layout->addWidget(m_add);
    connect(cancel, &PlainButton::clicked, this, &QDialog::reject);
    connect(m_add, &PrimaryButton::clicked, this, &AddTriggerSheet::accept);
    return buttons;
}

void AddTriggerSheet::refresh()
{
    m_scene->setGroups(sceneGroups(m_model));
    const bool hasScene = m_scene->scene().has_value();
    m_sceneRow->setVisible(hasScene);
    m_noScenes->setVisible(!hasScene);
    m_add->setEnabled(hasScene);
}

void AddTriggerSheet::showKind(int kind)
{
    m_pages->setCurrentIndex(kind);
    m_notice->setNeeded(kind == Meeting);
}

TriggerKind AddTriggerSheet::kind() const
{
    if (m_kind->current() == Meeting)
        return {CalendarVideoTrigger{m_lead->value()}};
    return {TimeTrigger{m_time->time().hour(), m_time->time().minute(), m_days->days()}};
}

void AddTriggerSheet::accept()
{
    const std::optional<QUuid> scene = m_scene->scene();
    if (!scene)
        return;
    m_model.addTrigger({QUuid::createUuid(), *scene, kind(), true});
    QDialog::accept();
}

} // namespace Panorel
