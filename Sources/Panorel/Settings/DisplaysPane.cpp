#include "Panorel/Settings/DisplaysPane.h"

#include "Panorel/Prefs.h"
#include "Panorel/Settings/SettingsModel.h"
#include "Panorel/UI/DisplaySchematic.h"
#include "Panorel/UI/EmptyState.h"
#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/RowCard.h"
#include "Panorel/UI/SettingRow.h"
#include "Panorel/UI/TextLabel.h"

#include <QDoubleSpinBox>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <cmath>

namespace Panorel {

namespace {

/// The wheel scrolls the page that it stands on, unless the user is in the box.
class DelayBox : public QDoubleSpinBox {
protected:
    void wheelEvent(QWheelEvent *event) override
    {
        if (hasFocus())
            QDoubleSpinBox::wheelEvent(event);
        else
            event->ignore();
    }
};

QString sizeText(const DisplayInfo &display)
{
    return QStringLiteral("%1 × %2")
        .arg(std::lround(display.frame.width))
        .arg(std::lround(display.frame.height));
}

} // namespace

DisplaysPane::DisplaysPane(SettingsModel &model, Prefs &prefs,
                           std::function<void()> takeSettleSeconds, QWidget *parent)
    : Page(tr("Displays"), parent), m_model(model), m_prefs(prefs),
      m_takeSettleSeconds(std::move(takeSettleSeconds))
{
    addDesk();
    addDelay();
    connect(&m_model, &SettingsModel::changed, this, &DisplaysPane::refreshDesk);
    connect(&m_prefs, &Prefs::changed, this, &DisplaysPane::refreshDelay);
    refreshDesk();
    refreshDelay();
}

void DisplaysPane::addDesk()
{
    constexpr int schematicHeight = 180;
    m_desk = new Card;
    m_deskName = new TextLabel(TextStyle::Heading);
    m_deskName->setObjectName(QStringLiteral("deskName"));
    m_schematic = new DisplaySchematic;
    m_schematic->setFixedHeight(schematicHeight);
    m_empty = new EmptyState(Symbol::Display, tr("No displays detected"));
    m_desk->body()->addWidget(m_deskName);
    m_desk->body()->addWidget(m_schematic);
    m_desk->body()->addWidget(m_empty);
    addWidget(m_desk);
    m_displays = addCard();
}

void DisplaysPane::addDelay()
{
    m_delay = new DelayBox;
    m_delay->setRange(0, Prefs::longestSettleSeconds);
    m_delay->setSingleStep(0.5);
    m_delay->setDecimals(1);
    m_delay->setSuffix(tr(" s"));
    m_delay->setAlignment(Qt::AlignRight);
    m_delay->setFocusPolicy(Qt::StrongFocus);
    m_delay->setKeyboardTracking(false); // a number half typed is no wish
    connect(m_delay, &QDoubleSpinBox::valueChanged, this, [this](double seconds) {
        m_prefs.setDisplaySettleSeconds(seconds);
        if (m_takeSettleSeconds)
            m_takeSettleSeconds();
    });
    addCard(tr("After a change"))
        ->addRow(new SettingRow(tr("Wait before moving windows"),
                                tr("Displays come up one by one. Windows move once "
                                   "nothing has changed for this long."),
                                m_delay));
}

void DisplaysPane::refreshDesk()
{
    const bool hasDisplays = !m_model.displays().empty();
    m_deskName->setVisible(hasDisplays);
    m_deskName->setText(m_model.deskName(m_model.currentConfigID()));
    m_schematic->setVisible(hasDisplays);
    m_schematic->setDisplays(m_model.displays());
    m_empty->setVisible(!hasDisplays);
    m_displays->setVisible(hasDisplays);
    m_displays->clear();
    for (const DisplayInfo &display : m_model.displays()) {
        auto *size = new TextLabel(TextStyle::Secondary);
        size->setText(sizeText(display));
        m_displays->addRow(new SettingRow(display.name,
                                          display.isBuiltin ? tr("Built-in display") : QString(),
                                          size, TextLabel::Fit::Elide));
    }
}

void DisplaysPane::refreshDelay()
{
    const QSignalBlocker quiet(m_delay);
    m_delay->setValue(m_prefs.usableSettleSeconds());
}

} // namespace Panorel
