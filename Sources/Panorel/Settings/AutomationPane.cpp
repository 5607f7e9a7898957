#include "Panorel/Settings/AutomationPane.h"

#include "Panorel/Settings/AddTriggerSheet.h"
#include "Panorel/Settings/CalendarNotice.h"
#include "Panorel/Settings/SettingsModel.h"
#include "Panorel/Settings/TriggerRow.h"
#include "Panorel/UI/EmptyState.h"
#include "Panorel/UI/PlainButton.h"
#include "Panorel/UI/RowCard.h"
#include "Panorel/UI/TabOrder.h"
#include "Panorel/UI/UndoLine.h"

#include <algorithm>

namespace Panorel {

AutomationPane::AutomationPane(SettingsModel &model, const std::optional<QString> &calendarHelp,
                               QWidget *parent)
    : Page(tr("Automation"), parent), m_model(model),
      m_calendarHelp(calendarHelp.value_or(calendarFoldersHelp())),
      m_add(new PlainButton(tr("Add trigger…"))),
      m_notice(new CalendarNotice(model, m_calendarHelp)), m_undo(new UndoLine),
      m_empty(new EmptyState(Symbol::Clock,
                             tr("A trigger applies a scene on its own, at a time of day or before "
                                "a meeting. Yours will appear here."),
                             tr("Add trigger…")))
{
    addToHeader(m_add);
    addWidget(m_notice);
    addWidget(m_undo);
    m_list = addCard();
    addFilling(m_empty);
    connect(m_add, &PlainButton::clicked, this, &AutomationPane::openSheet);
    connect(m_empty, &EmptyState::clicked, this, &AutomationPane::openSheet);
    connect(&m_model, &SettingsModel::changed, this, &AutomationPane::refresh);
    refresh();
}

void AutomationPane::refresh()
{
    std::vector<Row> rows;
    for (const TriggerRecord &trigger : m_model.triggers()) {
        const SceneRecord *scene = m_model.scene(trigger.sceneID);
        rows.push_back({trigger, scene ? std::optional(scene->name) : std::nullopt});
    }
    m_add->setVisible(!rows.empty());
    m_list->setVisible(!rows.empty());
    m_empty->setVisible(rows.empty());
    m_notice->setNeeded(std::ranges::any_of(m_model.triggers(), [](const TriggerRecord &trigger) {
        return trigger.kind.calendarVideo() != nullptr;
    }));
    if (rows == m_rows)
        return;
    m_rows = std::move(rows);
    arrange();
}

void AutomationPane::arrange()
{
    m_list->clear();
    for (const Row &shown : m_rows) {
        auto *row = new TriggerRow(shown.trigger, shown.sceneName);
        m_list->addRow(row);
        const QUuid id = shown.trigger.id;
        connect(row, &TriggerRow::switched, this,
                [this, id](bool isOn) { switchTrigger(id, isOn); });
        connect(row, &TriggerRow::removeRequested, this, [this, id] { remove(id); });
    }
    orderTabsByLayout(*widget());
}

void AutomationPane::switchTrigger(const QUuid &id, bool isOn)
{
    const auto found = std::ranges::find(m_model.triggers(), id, &TriggerRecord::id);
    if (found == m_model.triggers().end())
        return;
    TriggerRecord trigger = *found;
    trigger.enabled = isOn;
    // The switch shows it already; rows made anew would lose the keyboard's place.
    const auto shown = std::ranges::find(m_rows, id, [](const Row &row) { return row.trigger.id; });
    if (shown != m_rows.end())
        shown->trigger.enabled = isOn;
    m_model.updateTrigger(trigger);
}

void AutomationPane::remove(const QUuid &id)
{
    const auto found = std::ranges::find(m_model.triggers(), id, &TriggerRecord::id);
    if (found == m_model.triggers().end())
        return;
    const TriggerRecord trigger = *found;
    m_model.removeTrigger(id);
    m_undo->offer(tr("“%1” was removed.").arg(trigger.kind.description()),
                  [this, trigger] { m_model.addTrigger(trigger); });
    m_undo->setFocus(Qt::OtherFocusReason); // the keyboard's place went with the row
}

void AutomationPane::openSheet()
{
    (new AddTriggerSheet(m_model, m_calendarHelp, window()))->open();
}

} // namespace Panorel
