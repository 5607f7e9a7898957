#include "Panorel/Panel/RestoreArea.h"

#include "Panorel/PanelModel.h"
#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/Motion.h"
#include "Panorel/UI/PrimaryButton.h"
#include "Panorel/UI/StatusLine.h"
#include "Panorel/UI/TextButton.h"
#include "Panorel/UI/TextLabel.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace Panorel {

RestoreArea::RestoreArea(const PanelModel &model, QWidget *parent)
    : QWidget(parent), m_model(model), m_permissionText(new StatusLine(TextLabel::Fit::Wrap)),
      m_grant(new PrimaryButton(QStringLiteral("Grant permission…"))),
      m_restore(new PrimaryButton(QStringLiteral("Restore Now"))), m_result(new QWidget),
      m_lastAction(new TextLabel(TextStyle::Secondary)),
      m_undo(new TextButton(QStringLiteral("Undo")))
{
    m_permissionText->setObjectName(QStringLiteral("permission"));
    m_permissionText->setStatus(
        Status::Attention,
        QStringLiteral("Panorel needs Accessibility permission to move windows."));
    m_lastAction->setObjectName(QStringLiteral("lastAction"));

    auto *result = new QHBoxLayout(m_result);
    result->setContentsMargins(Metrics::small, 0, 0, 0);
    result->setSpacing(Metrics::small);
    result->addWidget(m_lastAction, 1);
    result->addWidget(m_undo);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(Metrics::tight);
    for (QWidget *part : std::initializer_list<QWidget *>{m_permissionText, m_grant, m_restore})
        layout->addWidget(part);
    layout->addWidget(m_result);

    connect(m_grant, &PrimaryButton::clicked, this, [this] { m_model.onGrantPermission(); });
    connect(m_restore, &PrimaryButton::clicked, this, [this] { m_model.onRestoreNow(); });
    connect(m_undo, &TextButton::clicked, this, [this] { m_model.onUndo(); });
}

void RestoreArea::setKeys(const QString &restoreKey, const QString &undoKey)
{
    m_restore->setToolTip(restoreKey);
    m_restore->setAccessibleDescription(restoreKey);
    m_undo->setToolTip(undoKey);
    m_undo->setAccessibleDescription(undoKey);
}

void RestoreArea::refresh()
{
    const bool granted = m_model.hasPermission();
    m_permissionText->setVisible(!granted);
    m_grant->setVisible(!granted && m_model.onGrantPermission);
    m_restore->setVisible(granted && m_model.onRestoreNow);
    showLastAction();
}

void RestoreArea::showLastAction()
{
    const bool canUndo = m_model.canUndo() && m_model.onUndo;
    const QString &text = m_model.lastAction();
    const bool isNews = text != m_lastAction->text();
    m_lastAction->setText(text);
    m_undo->setVisible(canUndo);
    m_result->setVisible(!text.isEmpty() || canUndo);
    if (!isNews || !isVisible())
        return;
    fadeIn(*m_lastAction);
    QAccessibleEvent news(m_lastAction, QAccessible::Alert);
    QAccessible::updateAccessibility(&news);
}

} // namespace Panorel
