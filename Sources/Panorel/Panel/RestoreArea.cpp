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
    : QWidget(parent), m_model(model), m_missing(new StatusLine(TextLabel::Fit::Wrap)),
      m_grant(new PrimaryButton(tr("Grant permission…"))),
      m_restore(new PrimaryButton(tr("Restore Now"))),
      m_lastAction(new TextLabel(TextStyle::Secondary)), m_undo(new TextButton(tr("Undo")))
{
    m_permission = makePermission();
    m_result = makeResult();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(Metrics::tight);
    layout->addWidget(m_permission);
    layout->addWidget(m_restore);
    layout->addWidget(m_result);

    connect(m_grant, &PrimaryButton::clicked, this, [this] { m_model.onGrantPermission(); });
    connect(m_restore, &PrimaryButton::clicked, this, [this] { m_model.onRestoreNow(); });
    connect(m_undo, &TextButton::clicked, this, [this] { m_model.onUndo(); });
}

QWidget *RestoreArea::makePermission()
{
    m_missing->setObjectName(QStringLiteral("permission"));
    auto *permission = new QWidget;
    auto *layout = new QVBoxLayout(permission);
    layout->setContentsMargins({});
    layout->setSpacing(Metrics::medium);
    layout->addWidget(m_missing);
    layout->addWidget(m_grant);
    return permission;
}

QWidget *RestoreArea::makeResult()
{
    m_lastAction->setObjectName(QStringLiteral("lastAction"));
    auto *result = new QWidget;
    auto *layout = new QHBoxLayout(result);
    layout->setContentsMargins(Metrics::small, 0, 0, 0);
    layout->setSpacing(Metrics::small);
    layout->addWidget(m_lastAction, 1);
    layout->addWidget(m_undo);
    return result;
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
    const bool isByUser = m_model.isPermissionGrantedByUser();
    m_permission->setVisible(!granted);
    m_missing->setStatus(Status::Attention,
                         isByUser ? tr("Panorel needs Accessibility permission to move windows.")
                                  : tr("No window can be moved, as no window manager is running."));
    m_grant->setVisible(isByUser && m_model.onGrantPermission);
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
