#include "Panorel/Settings/TriggerRow.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/SymbolButton.h"
#include "Panorel/UI/SymbolView.h"
#include "Panorel/UI/TextLabel.h"
#include "Panorel/UI/Toggle.h"

#include <QHBoxLayout>

namespace Panorel {

TriggerRow::TriggerRow(const TriggerRecord &trigger, const std::optional<QString> &sceneName,
                       QWidget *parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("triggerRow"));
    auto *when = new TextLabel(TextStyle::Body);
    when->setText(trigger.kind.description());
    auto *scene = new TextLabel(TextStyle::Secondary);
    scene->setText(sceneName.value_or(tr("deleted scene")));
    auto *isOn = new Toggle(when->text());
    isOn->setChecked(trigger.enabled);
    isOn->setAccessibleDescription(scene->text());
    auto *remove = new SymbolButton(Symbol::Trash, tr("Remove"));
    remove->setAccessibleDescription(when->text() + QStringLiteral(", ") + scene->text());

    auto *texts = new QVBoxLayout;
    texts->setSpacing(0);
    texts->addWidget(when);
    texts->addWidget(scene);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, Metrics::small, 0, Metrics::small);
    layout->setSpacing(Metrics::medium);
    layout->addWidget(new SymbolView(trigger.kind.time() ? Symbol::Clock : Symbol::Calendar));
    layout->addLayout(texts, 1);
    layout->addWidget(isOn);
    layout->addWidget(remove);
    connect(isOn, &Toggle::clicked, this, &TriggerRow::switched);
    connect(remove, &SymbolButton::clicked, this, &TriggerRow::removeRequested);
}

} // namespace Panorel
