#include "Panorel/UI/SectionHeading.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/TextLabel.h"

#include <QHBoxLayout>

namespace Panorel {

SectionHeading::SectionHeading(const QString &heading, const QString &note, QWidget *parent)
    : QWidget(parent)
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(Metrics::small, 0, Metrics::small, 0);
    layout->setSpacing(Metrics::small);
    auto *title = new TextLabel(TextStyle::Heading);
    title->setText(heading);
    auto *remark = new TextLabel(TextStyle::Secondary);
    remark->setText(note);
    remark->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    layout->addWidget(title, 1); // a long name is elided and leaves the note its room
    layout->addWidget(remark);
}

} // namespace Panorel
