#include "Panorel/UI/SegmentedControl.h"

#include "Panorel/UI/ChoiceButton.h"
#include "Panorel/UI/Metrics.h"

#include <QButtonGroup>
#include <QHBoxLayout>

namespace Panorel {

SegmentedControl::SegmentedControl(const QStringList &titles, const QString &purpose,
                                   QWidget *parent)
    : QWidget(parent), m_segments(new QButtonGroup(this))
{
    setAccessibleName(purpose);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(Metrics::tight);
    for (const QString &title : titles) {
        auto *segment = new ChoiceButton(title);
        m_segments->addButton(segment, int(m_segments->buttons().size()));
        layout->addWidget(segment);
    }
    setCurrent(0);
    connect(m_segments, &QButtonGroup::idClicked, this, &SegmentedControl::chosen);
}

int SegmentedControl::current() const
{
    return m_segments->checkedId();
}

void SegmentedControl::setCurrent(int index)
{
    if (QAbstractButton *segment = m_segments->button(index))
        segment->setChecked(true);
}

} // namespace Panorel
