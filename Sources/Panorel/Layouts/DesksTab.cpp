#include "Panorel/Layouts/DesksTab.h"

#include "Panorel/Layouts/LearnedDeskCard.h"
#include "Panorel/Settings/SceneGroup.h"
#include "Panorel/Settings/SettingsModel.h"
#include "Panorel/UI/Confirmation.h"
#include "Panorel/UI/EmptyState.h"
#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/TabOrder.h"

#include <QPointer>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace Panorel {

DesksTab::DesksTab(SettingsModel &model, const Clock &clock, QWidget *parent)
    : Page(tr("Remembered desks"), parent), m_model(model), m_clock(clock), m_list(new QWidget),
      m_empty(new EmptyState(Symbol::Display,
                             tr("A desk is a set of connected displays. Each one appears here once "
                                "its windows were learned, which takes a minute or two.")))
{
    addWidget(m_list);
    addFilling(m_empty);
    auto *layout = new QVBoxLayout(m_list);
    layout->setContentsMargins({});
    layout->setSpacing(Metrics::small);
    connect(&m_model, &SettingsModel::changed, this, &DesksTab::refresh);
    refresh();
}

/// Cards of desks that are still there stay, with the focus and what is being written in them.
void DesksTab::refresh()
{
    std::vector<const Layout *> desks; // for this pass only
    for (const Layout &layout : m_model.layouts())
        desks.push_back(&layout);
    const auto isCurrent = [this](const Layout *desk) {
        return desk->configID == m_model.currentConfigID();
    };
    std::stable_partition(desks.begin(), desks.end(), isCurrent);

    const std::vector<LearnedDeskCard *> before = m_cards;
    std::vector<LearnedDeskCard *> old = std::exchange(m_cards, {});
    for (const Layout *desk : desks) {
        const auto found = std::ranges::find(old, desk->configID, &LearnedDeskCard::configID);
        LearnedDeskCard *card = found == old.end() ? makeCard(desk->configID) : *found;
        if (found != old.end())
            old.erase(found);
        card->setDesk(*desk, isCurrent(desk), m_clock.now());
        m_cards.push_back(card);
    }
    for (LearnedDeskCard *card : old) {
        m_list->layout()->removeWidget(card);
        card->hide();
        card->deleteLater(); // it may be what was pressed
    }
    m_list->setVisible(!m_cards.empty());
    m_empty->setVisible(m_cards.empty());
    if (m_cards == before)
        return;
    for (LearnedDeskCard *card : m_cards) {
        m_list->layout()->removeWidget(card);
        m_list->layout()->addWidget(card);
    }
    orderTabsByLayout(*widget());
}

LearnedDeskCard *DesksTab::makeCard(const QString &configID)
{
    auto *card = new LearnedDeskCard;
    connect(card, &LearnedDeskCard::renamed, this,
            [this, configID](const QString &name) { m_model.renameDesk(configID, name); });
    connect(card, &LearnedDeskCard::forgetRequested, this,
            [this, configID] { askToForget(configID); });
    return card;
}

void DesksTab::askToForget(const QString &configID)
{
    const auto desk = std::ranges::find(m_model.layouts(), configID, &Layout::configID);
    if (desk == m_model.layouts().end())
        return;
    QString loss = tr("The places of its %1 and its name are lost; its scenes stay.")
                       .arg(windowCountText(desk->windows.size()));
    if (configID == m_model.currentConfigID())
        loss += u' ' + tr("As it is connected, Panorel learns it anew.");
    confirm(window(), {tr("Forget “%1”?").arg(desk->name), loss, tr("Forget")},
            [self = QPointer(this), configID] {
                if (self)
                    self->m_model.forgetDesk(configID);
            });
}

} // namespace Panorel
