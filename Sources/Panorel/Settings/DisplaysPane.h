#pragma once

#include "Panorel/UI/Page.h"

#include <functional>

class QDoubleSpinBox;

namespace Panorel {

class Card;
class DisplaySchematic;
class EmptyState;
class Prefs;
class SettingsModel;
class TextLabel;

/// The desk as it is connected now, and how long to wait after a change of it.
class DisplaysPane : public Page {
    Q_OBJECT

public:
    /// Model and preferences must outlive it. `takeSettleSeconds`, where there is one, is called
    /// when the preference has another delay.
    DisplaysPane(SettingsModel &model, Prefs &prefs, std::function<void()> takeSettleSeconds,
                 QWidget *parent = nullptr);

private:
    void addDesk();
    void addDelay();
    void refreshDesk();
    void refreshDelay();

    SettingsModel &m_model;
    Prefs &m_prefs;
    std::function<void()> m_takeSettleSeconds;
    Card *m_desk = nullptr;
    TextLabel *m_deskName = nullptr;
    DisplaySchematic *m_schematic = nullptr;
    EmptyState *m_empty = nullptr;
    RowCard *m_displays = nullptr;
    QDoubleSpinBox *m_delay = nullptr;
};

} // namespace Panorel
