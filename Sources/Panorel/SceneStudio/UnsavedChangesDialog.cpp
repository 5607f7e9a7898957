#include "Panorel/SceneStudio/UnsavedChangesDialog.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/PlainButton.h"
#include "Panorel/UI/PrimaryButton.h"
#include "Panorel/UI/TextLabel.h"

#include <QVBoxLayout>

namespace Panorel {

namespace {

constexpr int contentWidth = 400;

} // namespace

UnsavedChangesDialog::UnsavedChangesDialog(const QString &sceneName, QWidget *parent)
    : Sheet(contentWidth, parent)
{
    setWindowTitle(QStringLiteral("Panorel"));
    const QString loss = tr("If you discard them, the scene stays as it was.");
    setAccessibleDescription(loss);

    auto *question = new TextLabel(TextStyle::Heading, TextLabel::Fit::Wrap);
    const QString name = QFontMetrics(fontOf(TextStyle::Heading))
                             .elidedText(sceneName.simplified(), Qt::ElideRight, contentWidth);
    question->setText(tr("Save the changes to “%1”?").arg(name));
    auto *explanation = new TextLabel(TextStyle::Body, TextLabel::Fit::Wrap);
    explanation->setText(loss);

    auto *discard = new PlainButton(tr("Discard"));
    auto *cancel = new PlainButton(tr("Cancel"));
    auto *save = new PrimaryButton(tr("Save"));
    save->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    for (PlainButton *button : {discard, cancel})
        button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored); // as high as Save
    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(Metrics::small);
    buttons->addWidget(discard);
    buttons->addStretch();
    buttons->addWidget(cancel);
    buttons->addWidget(save);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(Metrics::wide, Metrics::wide, Metrics::wide, Metrics::large);
    layout->setSpacing(Metrics::small);
    layout->addWidget(question);
    layout->addWidget(explanation);
    layout->addSpacing(Metrics::small);
    layout->addLayout(buttons);

    connect(discard, &PlainButton::clicked, this, &UnsavedChangesDialog::discardChosen);
    connect(save, &PrimaryButton::clicked, this, &UnsavedChangesDialog::saveChosen);
    for (ActionControl *button : std::initializer_list<ActionControl *>{discard, cancel, save})
        connect(button, &ActionControl::clicked, this, &QDialog::close);
    save->setFocus(Qt::OtherFocusReason);
}

} // namespace Panorel
