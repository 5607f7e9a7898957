#include "Panorel/UI/EmptyState.h"

#include "Panorel/UI/Centred.h"
#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/PrimaryButton.h"
#include "Panorel/UI/SymbolView.h"
#include "Panorel/UI/TextLabel.h"

#include <QVBoxLayout>

namespace Panorel {

EmptyState::EmptyState(Symbol symbol, const QString &sentence, const QString &action,
                       QWidget *parent)
    : QWidget(parent)
{
    constexpr int symbolSize = 48;
    constexpr int lineWidth = 360;
    auto *picture = new SymbolView(symbol, SymbolView::Tint::Faint);
    picture->setFixedSize(symbolSize, symbolSize);
    auto *text = new TextLabel(TextStyle::Body, TextLabel::Fit::Wrap);
    text->setText(sentence);
    text->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    text->setMaximumWidth(lineWidth);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(Metrics::wide, Metrics::wide, Metrics::wide, Metrics::wide);
    layout->setSpacing(Metrics::medium);
    layout->addStretch();
    layout->addWidget(picture, 0, Qt::AlignHCenter);
    layout->addLayout(centred(text));
    if (!action.isEmpty()) {
        auto *button = new PrimaryButton(action);
        button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        connect(button, &PrimaryButton::clicked, this, &EmptyState::clicked);
        layout->addSpacing(Metrics::tight);
        layout->addWidget(button, 0, Qt::AlignHCenter);
    }
    layout->addStretch();
}

} // namespace Panorel
