#include "Panorel/UI/Confirmation.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/PlainButton.h"
#include "Panorel/UI/PrimaryButton.h"
#include "Panorel/UI/Sheet.h"
#include "Panorel/UI/TextLabel.h"

#include <QVBoxLayout>

namespace Panorel {

void confirm(QWidget *parent, const Confirmation &confirmation, std::function<void()> confirmed)
{
    constexpr int width = 400;
    auto *dialog = new Sheet(width, parent);
    dialog->setObjectName(QStringLiteral("confirmation"));
    dialog->setWindowTitle(QStringLiteral("Panorel"));
    dialog->setAccessibleDescription(confirmation.loss);

    auto *question = new TextLabel(TextStyle::Heading, TextLabel::Fit::Wrap);
    question->setText(confirmation.question);
    auto *loss = new TextLabel(TextStyle::Body, TextLabel::Fit::Wrap);
    loss->setText(confirmation.loss);
    auto *cancel = new PlainButton(QDialog::tr("Cancel"));
    auto *agree = new PrimaryButton(confirmation.verb);
    agree->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    cancel->setFixedHeight(agree->sizeHint().height());

    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(Metrics::small);
    buttons->addStretch();
    buttons->addWidget(cancel);
    buttons->addWidget(agree);
    auto *layout = new QVBoxLayout(dialog);
    layout->setContentsMargins(Metrics::wide, Metrics::wide, Metrics::wide, Metrics::large);
    layout->setSpacing(Metrics::small);
    layout->addWidget(question);
    layout->addWidget(loss);
    layout->addSpacing(Metrics::small);
    layout->addLayout(buttons);

    QObject::connect(cancel, &PlainButton::clicked, dialog, &QDialog::reject);
    QObject::connect(agree, &PrimaryButton::clicked, dialog, &QDialog::accept);
    QObject::connect(dialog, &QDialog::accepted, dialog, std::move(confirmed));
    cancel->setFocus(Qt::TabFocusReason);
    dialog->open();
}

} // namespace Panorel
