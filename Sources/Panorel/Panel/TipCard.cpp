#include "Panorel/Panel/TipCard.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/SymbolButton.h"
#include "Panorel/UI/TextButton.h"
#include "Panorel/UI/TextLabel.h"

#include <QVBoxLayout>

namespace Panorel {

TipCard::TipCard(QWidget *parent) : Card(parent)
{
    auto *text = new TextLabel(TextStyle::Secondary, TextLabel::Fit::Wrap);
    text->setText(tr("Tip: give a scene a hotkey to switch layouts without opening this menu."));
    auto *setOne = new TextButton(tr("Set one"));
    auto *close = new SymbolButton(Symbol::Close, tr("Close tip"));

    // The buttons bring air of their own, the text does not.
    auto *column = new QVBoxLayout;
    column->setSpacing(Metrics::tight);
    column->addSpacing(Metrics::tight);
    auto *indented = new QHBoxLayout;
    indented->addSpacing(Metrics::small);
    indented->addWidget(text);
    column->addLayout(indented);
    column->addWidget(setOne, 0, Qt::AlignLeft);
    auto *line = new QHBoxLayout;
    line->setSpacing(Metrics::tight);
    line->addLayout(column, 1);
    line->addWidget(close, 0, Qt::AlignTop);
    body()->addLayout(line);
    body()->setContentsMargins(Metrics::tight, Metrics::tight, Metrics::tight, Metrics::tight);

    connect(setOne, &TextButton::clicked, this, &TipCard::setKeyRequested);
    connect(close, &SymbolButton::clicked, this, &TipCard::closed);
}

} // namespace Panorel
