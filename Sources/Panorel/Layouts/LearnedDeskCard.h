#pragma once

#include "Panorel/UI/Card.h"
#include "PanorelCore/Records/Models.h"

namespace Panorel {

class DisplaySchematic;
class NameField;
class SymbolButton;
class StatusLine;
class TextLabel;

/// One desk: its displays with its windows in their places, its name, and when it was learned.
class LearnedDeskCard : public Card {
    Q_OBJECT

public:
    explicit LearnedDeskCard(QWidget *parent = nullptr);

    void setDesk(const Layout &desk, bool isCurrent, Instant now);
    const QString &configID() const { return m_desk.configID; }

Q_SIGNALS:
    void renamed(const QString &name);
    void forgetRequested();

private:
    Layout m_desk;
    DisplaySchematic *m_schematic;
    NameField *m_name;
    StatusLine *m_current;
    TextLabel *m_displays;
    TextLabel *m_windows;
    SymbolButton *m_forget;
};

} // namespace Panorel
