#include "Panorel/Settings/ShortcutRow.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/SettingRow.h"
#include "Panorel/UI/StatusLine.h"
#include "Panorel/UI/SymbolButton.h"

#include <QAccessible>
#include <QHBoxLayout>

namespace Panorel {

namespace {

/// Names of any length in one sentence.
QString listed(const QStringList &names)
{
    constexpr int charactersWide = 40;
    const QFontMetrics metrics(fontOf(TextStyle::Body));
    QStringList shortened;
    for (const QString &name : names)
        shortened << metrics.elidedText(name.simplified(), Qt::ElideRight,
                                        charactersWide * metrics.averageCharWidth());
    return shortened.join(QStringLiteral(", "));
}

} // namespace

ShortcutRow::ShortcutRow(const SettingsEnvironment &environment, HotKeyRecorder::TextOf textOf,
                         QWidget *parent)
    : QWidget(parent), m_recorder(new HotKeyRecorder(environment, std::move(textOf))),
      m_clear(new SymbolButton(Symbol::Close, {})), m_remark(new StatusLine(TextLabel::Fit::Wrap))
{
    auto *control = new QWidget;
    auto *controls = new QHBoxLayout(control);
    controls->setContentsMargins({});
    controls->setSpacing(Metrics::tight);
    controls->addWidget(m_recorder);
    controls->addWidget(m_clear);
    // A key that is cleared leaves the others where they are.
    QSizePolicy policy = m_clear->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_clear->setSizePolicy(policy);
    m_row = new SettingRow({}, {}, control, TextLabel::Fit::Elide);
    m_remark->layout()->setContentsMargins(Metrics::large, 0, 0, Metrics::small);
    m_remark->setObjectName(QStringLiteral("remark"));
    m_remark->hide();

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(m_row);
    layout->addWidget(m_remark);

    connect(m_recorder, &HotKeyRecorder::recorded, this, &ShortcutRow::keyChosen);
    connect(m_recorder, &HotKeyRecorder::refused, this, &ShortcutRow::say);
    connect(m_recorder, &HotKeyRecorder::recordingChanged, this, [this] { say(m_collision); });
    connect(m_clear, &SymbolButton::clicked, this, [this] {
        m_recorder->setFocus(Qt::OtherFocusReason); // this button goes
        Q_EMIT keyChosen({});
    });
}

void ShortcutRow::showKey(const QString &name, const QString &explanation,
                          const std::optional<HotKeyCombo> &combo, const QStringList &collisions)
{
    m_row->setName(name);
    m_row->setExplanation(explanation);
    m_recorder->setTitle(tr("Shortcut for %1").arg(name));
    m_recorder->setCombo(combo);
    m_clear->setTitle(tr("Clear the shortcut for %1").arg(name));
    m_clear->setToolTip(tr("Clear"));
    m_clear->setVisible(combo.has_value());
    m_collision =
        collisions.isEmpty() ? QString() : tr("Already used by %1").arg(listed(collisions));
    if (!m_recorder->isRecording())
        say(m_collision);
}

void ShortcutRow::say(const QString &remark)
{
    if (remark == m_remark->text())
        return;
    m_remark->setStatus(Status::Attention, remark);
    m_remark->setVisible(!remark.isEmpty());
    if (!remark.isEmpty()) {
        QAccessibleEvent event(m_remark, QAccessible::Alert);
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace Panorel
