#include "Panorel/UI/UndoLine.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/TextButton.h"
#include "Panorel/UI/TextLabel.h"

#include <QHBoxLayout>

#include <utility>

namespace Panorel {

UndoLine::UndoLine(QWidget *parent)
    : QWidget(parent), m_text(new TextLabel(TextStyle::Secondary)),
      m_button(new TextButton(tr("Undo")))
{
    setObjectName(QStringLiteral("undoLine"));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(Metrics::tight, 0, 0, 0);
    layout->setSpacing(Metrics::small);
    layout->addWidget(m_text);
    layout->addWidget(m_button);
    layout->addStretch();
    setFocusProxy(m_button);
    hide();
    connect(m_button, &TextButton::clicked, this, [this] {
        const auto undo = std::exchange(m_undo, {});
        withdraw();
        if (undo)
            undo();
    });
}

void UndoLine::offer(const QString &text, std::function<void()> undo)
{
    m_text->setText(text);
    m_button->setAccessibleDescription(text);
    m_undo = std::move(undo);
    show();
}

void UndoLine::withdraw()
{
    m_undo = {};
    hide();
}

} // namespace Panorel
