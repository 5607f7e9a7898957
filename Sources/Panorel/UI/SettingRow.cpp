#include "Panorel/UI/SettingRow.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/Toggle.h"

#include <QHBoxLayout>
#include <QMouseEvent>

namespace Panorel {

SettingRow::SettingRow(const QString &name, const QString &explanation, QWidget *control,
                       TextLabel::Fit nameFit, QWidget *parent)
    : QWidget(parent), m_name(new TextLabel(TextStyle::Body, nameFit)),
      m_explanation(new TextLabel(TextStyle::Secondary, TextLabel::Fit::Wrap)), m_control(control)
{
    auto *texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addWidget(m_name);
    texts->addWidget(m_explanation);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, Metrics::small, 0, Metrics::small);
    layout->setSpacing(Metrics::large);
    layout->addLayout(texts, 1);
    if (m_control) {
        const bool isNamed = !m_control->accessibleName().isEmpty();
        layout->addWidget(m_control, 0, Qt::AlignVCenter);
        if (!isNamed)
            m_name->setBuddy(m_control);
    }
    setMinimumHeight(Metrics::rowHeight + Metrics::small);
    setName(name);
    setExplanation(explanation);
}

void SettingRow::setName(const QString &name)
{
    m_name->setText(name);
    if (auto *toggle = qobject_cast<Toggle *>(m_control); toggle && m_name->buddy() == toggle)
        toggle->setTitle(name);
    else if (m_name->buddy())
        m_name->buddy()->setAccessibleName(name);
}

void SettingRow::setExplanation(const QString &explanation)
{
    m_explanation->setText(explanation);
    m_explanation->setVisible(!explanation.isEmpty());
    // Together they are in the middle of a row that is higher than they are.
    m_name->setAlignment(Qt::AlignLeading
                         | (explanation.isEmpty() ? Qt::AlignVCenter : Qt::AlignBottom));
    m_explanation->setAlignment(Qt::AlignLeading | Qt::AlignTop);
    if (m_control)
        m_control->setAccessibleDescription(explanation);
}

void SettingRow::mouseReleaseEvent(QMouseEvent *event)
{
    auto *toggle = qobject_cast<Toggle *>(m_control);
    const bool isClick = event->button() == Qt::LeftButton && rect().contains(event->pos());
    if (toggle && toggle->isEnabled() && isClick)
        toggle->click();
}

} // namespace Panorel
