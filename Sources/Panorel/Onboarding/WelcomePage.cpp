#include "Panorel/Onboarding/WelcomePage.h"

#include "Panorel/AppIcon.h"
#include "Panorel/Onboarding/SymbolText.h"
#include "Panorel/UI/Card.h"
#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/TextLabel.h"

#include <QVBoxLayout>

namespace Panorel {

WelcomePage::WelcomePage(QWidget *parent) : QWidget(parent)
{
    constexpr int iconSize = 64;
    auto *icon = new QLabel;
    icon->setPixmap(appIcon().pixmap(QSize(iconSize, iconSize), devicePixelRatioF()));
    auto *title = new TextLabel(TextStyle::Title, TextLabel::Fit::Wrap);
    title->setText(tr("Welcome to Panorel"));
    title->setAlignment(Qt::AlignHCenter);
    auto *lead = new TextLabel(TextStyle::Body, TextLabel::Fit::Wrap);
    lead->setText(tr("It keeps every window where you left it."));
    lead->setAlignment(Qt::AlignHCenter);

    auto *card = new Card;
    card->body()->setSpacing(Metrics::large);
    card->body()->addWidget(
        new SymbolText(Symbol::Display, tr("Every desk has its own arrangement"),
                       tr("Panorel learns by itself where your windows sit, for each set of "
                          "displays that you connect.")));
    card->body()->addWidget(
        new SymbolText(Symbol::BringBack, tr("Back in place when a display comes back"),
                       tr("After docking, undocking or sleep each window returns to its place, "
                          "to the pixel.")));
    card->body()->addWidget(
        new SymbolText(Symbol::Scene, tr("Scenes for what you do"),
                       tr("Save an arrangement under a name and switch to it with a key.")));
    auto *privacy = new TextLabel(TextStyle::Secondary, TextLabel::Fit::Wrap);
    privacy->setText(tr("No network, no account: what it remembers stays on this computer."));
    privacy->setAlignment(Qt::AlignHCenter);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(Metrics::small);
    layout->addWidget(icon, 0, Qt::AlignHCenter);
    layout->addWidget(title);
    layout->addWidget(lead);
    layout->addSpacing(Metrics::small);
    layout->addWidget(card);
    layout->addSpacing(Metrics::small);
    layout->addWidget(privacy);
    layout->addStretch();
}

} // namespace Panorel
