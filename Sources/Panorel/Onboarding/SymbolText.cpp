#include "Panorel/Onboarding/SymbolText.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/SymbolView.h"
#include "Panorel/UI/TextLabel.h"

#include <QHBoxLayout>

namespace Panorel {

SymbolText::SymbolText(Symbol symbol, const QString &heading, const QString &text, QWidget *parent)
    : QWidget(parent)
{
    auto *title = new TextLabel(TextStyle::Heading, TextLabel::Fit::Wrap);
    title->setText(heading);
    auto *explanation = new TextLabel(TextStyle::Secondary, TextLabel::Fit::Wrap);
    explanation->setText(text);
    auto *texts = new QVBoxLayout;
    texts->setSpacing(Metrics::tight);
    texts->addWidget(title);
    texts->addWidget(explanation);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(Metrics::medium);
    layout->addWidget(new SymbolView(symbol), 0, Qt::AlignTop);
    layout->addLayout(texts, 1);
}

} // namespace Panorel
