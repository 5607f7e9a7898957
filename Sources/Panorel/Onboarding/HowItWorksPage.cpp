#include "Panorel/Onboarding/HowItWorksPage.h"

#include "Panorel/Onboarding/StepPicture.h"
#include "Panorel/Onboarding/SymbolText.h"
#include "Panorel/UI/Card.h"
#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/TextLabel.h"

#include <QVBoxLayout>

namespace Panorel {

namespace {

QWidget *makeStep(StepPicture::Step step, const QString &text)
{
    auto *caption = new TextLabel(TextStyle::Body, TextLabel::Fit::Wrap);
    caption->setText(text);
    caption->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    auto *card = new Card;
    card->body()->setSpacing(Metrics::medium);
    card->body()->addWidget(new StepPicture(step), 0, Qt::AlignHCenter);
    card->body()->addWidget(caption, 1);
    return card;
}

} // namespace

HowItWorksPage::HowItWorksPage(QWidget *parent) : QWidget(parent)
{
    auto *title = new TextLabel(TextStyle::Title, TextLabel::Fit::Wrap);
    title->setText(tr("How it works"));
    title->setAlignment(Qt::AlignHCenter);
    auto *lead = new TextLabel(TextStyle::Body, TextLabel::Fit::Wrap);
    lead->setText(tr("There is nothing to set up. Arrange your windows as you like them."));
    lead->setAlignment(Qt::AlignHCenter);

    using Step = StepPicture::Step;
    auto *steps = new QHBoxLayout;
    steps->setSpacing(Metrics::medium);
    steps->addWidget(makeStep(Step::InPlace, tr("Your windows, as you left them.")), 1);
    steps->addWidget(makeStep(Step::PushedAside, tr("A display goes: they pile up.")), 1);
    steps->addWidget(makeStep(Step::InPlace, tr("It comes back: all in place.")), 1);

    auto *notes = new Card;
    notes->body()->setSpacing(Metrics::large);
    notes->body()->addWidget(new SymbolText(
        Symbol::Display, tr("Only when the displays have settled"),
        tr("While they change, nothing is learned, so a mess is never taken for your "
           "arrangement.")));
    notes->body()->addWidget(
        new SymbolText(Symbol::Undo, tr("You can undo it"),
                       tr("Undo puts the windows back to where they were before.")));

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(Metrics::small);
    layout->addWidget(title);
    layout->addWidget(lead);
    layout->addSpacing(Metrics::small);
    layout->addLayout(steps);
    layout->addSpacing(Metrics::tight);
    layout->addWidget(notes);
    layout->addStretch();
}

} // namespace Panorel
