#pragma once

#include "Panorel/UI/Card.h"

namespace Panorel {

class DisplaySchematic;
class PanelModel;
class TextLabel;

/// Which desk this is: its name, its displays, and a picture of them.
class DeskCard : public Card {
    Q_OBJECT

public:
    explicit DeskCard(QWidget *parent = nullptr);

    void showDesk(const PanelModel &model);

private:
    DisplaySchematic *m_schematic;
    TextLabel *m_name;
    TextLabel *m_displays;
};

} // namespace Panorel
