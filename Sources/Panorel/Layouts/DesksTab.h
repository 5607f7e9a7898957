#pragma once

#include "Panorel/UI/Page.h"
#include "PanorelCore/Records/Models.h"

namespace Panorel {

class EmptyState;
class LearnedDeskCard;
class SettingsModel;

/// Every desk there is a layout of, the current one first.
class DesksTab : public Page {
    Q_OBJECT

public:
    /// Both must outlive it.
    DesksTab(SettingsModel &model, const Clock &clock, QWidget *parent = nullptr);

private:
    void refresh();
    LearnedDeskCard *makeCard(const QString &configID);
    void askToForget(const QString &configID);

    SettingsModel &m_model;
    const Clock &m_clock;
    std::vector<LearnedDeskCard *> m_cards;
    QWidget *m_list;
    EmptyState *m_empty;
};

} // namespace Panorel
