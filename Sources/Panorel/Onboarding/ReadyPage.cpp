#include "Panorel/Onboarding/ReadyPage.h"

#include "Panorel/Onboarding/SymbolText.h"
#include "Panorel/UI/Card.h"
#include "Panorel/UI/ListRow.h"
#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/StatusLine.h"
#include "PanorelEngine/Windows/PermissionCenter.h"
#include "PanorelPorts/Scheduler.h"

#include <QVBoxLayout>

namespace Panorel {

ReadyPage::ReadyPage(PermissionCenter &permission, Scheduler &scheduler, OnboardingActions actions,
                     QWidget *parent)
    : QWidget(parent), m_permission(permission), m_scheduler(scheduler),
      m_actions(std::move(actions)), m_title(new TextLabel(TextStyle::Title, TextLabel::Fit::Wrap)),
      m_status(new StatusLine(TextLabel::Fit::Wrap)),
      m_grant(new ListRow(Symbol::Settings, tr("Grant permission…"))),
      m_openPanel(new ListRow(Symbol::Window, tr("Open the panel"))),
      m_save(new ListRow(Symbol::Plus, tr("Save this arrangement as a scene"))),
      m_saved(new StatusLine), m_shortcuts(new ListRow(Symbol::Keyboard, tr("Set its key")))
{
    m_title->setObjectName(QStringLiteral("readyTitle"));
    m_title->setAlignment(Qt::AlignHCenter);
    m_status->setObjectName(QStringLiteral("permissionStatus"));
    m_saved->setObjectName(QStringLiteral("savedScene"));
    m_save->setObjectName(QStringLiteral("saveScene"));
    m_saved->hide();
    m_shortcuts->hide(); // there is nothing to give a key to yet
    m_sceneCard = makeSceneCard();

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(Metrics::medium);
    layout->addWidget(m_title);
    layout->addSpacing(Metrics::tight);
    layout->addWidget(makePermissionCard());
    layout->addWidget(makeTrayCard());
    layout->addWidget(m_sceneCard);
    layout->addStretch();

    connect(m_grant, &ListRow::clicked, this, [this] { m_permission.promptAccessibility(); });
    connect(m_openPanel, &ListRow::clicked, this, [this] { m_actions.openPanel(); });
    connect(m_save, &ListRow::clicked, this, &ReadyPage::saveScene);
    connect(m_shortcuts, &ListRow::clicked, this, [this] { m_actions.openShortcuts(); });
    refresh();
}

ReadyPage::~ReadyPage() = default;

void ReadyPage::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    m_watching = m_scheduler.repeat(std::chrono::seconds(1), [this] { refresh(); });
    refresh();
}

/// A closed window lives on for a moment and may outlive the scheduler.
void ReadyPage::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    m_watching.reset();
}

Card *ReadyPage::makePermissionCard()
{
    auto *card = new Card;
    card->body()->addWidget(m_status);
    card->body()->addWidget(m_grant);
    return card;
}

Card *ReadyPage::makeTrayCard()
{
    auto *card = new Card;
    card->body()->addWidget(
        m_actions.isInMenuBar
            ? new SymbolText(Symbol::Layouts, tr("Panorel sits in the menu bar"),
                             tr("Click its icon to open the panel."))
            : new SymbolText(
                Symbol::Layouts, tr("Panorel sits in the tray"),
                tr("Click its icon to open the panel. Without a tray, start Panorel once more.")));
    QBoxLayout *rows = makeRows();
    rows->addWidget(m_openPanel);
    card->body()->addLayout(rows);
    m_openPanel->setVisible(bool(m_actions.openPanel));
    return card;
}

/// Their symbols stand below a card's text.
QBoxLayout *ReadyPage::makeRows()
{
    constexpr int indent = Metrics::symbolSize + Metrics::medium - Metrics::small;
    auto *rows = new QVBoxLayout;
    rows->setSpacing(0);
    rows->setContentsMargins(indent, 0, 0, 0);
    return rows;
}

Card *ReadyPage::makeSceneCard()
{
    auto *card = new Card;
    card->body()->addWidget(new SymbolText(
        Symbol::Scene, tr("Come back to this arrangement with a key"),
        tr("A scene keeps the windows as they are now. Save one, then set its key.")));
    QBoxLayout *rows = makeRows();
    rows->addWidget(m_save);
    auto *saved = new QHBoxLayout;
    constexpr int inset = 6; // its dot stands in the middle below the rows' symbols
    saved->addSpacing(Metrics::small + inset);
    m_saved->layout()->setContentsMargins(Metrics::small + Metrics::symbolSize - inset, 0, 0, 0);
    saved->addWidget(m_saved, 1);
    saved->addWidget(m_shortcuts, 1); // beside it: the window keeps its height
    rows->addLayout(saved);
    card->body()->addLayout(rows);
    return card;
}

void ReadyPage::refresh()
{
    const bool isGranted = m_permission.hasAccessibility();
    const bool isAsked = m_permission.isGrantedByUser();
    if (isGranted) {
        m_title->setText(tr("All set"));
        m_status->setStatus(Status::Good, tr("Panorel can see and move your windows."));
    } else if (isAsked) {
        m_title->setText(tr("One permission is missing"));
        m_status->setStatus(Status::Attention,
                            tr("Panorel needs Accessibility permission to move windows."));
    } else {
        m_title->setText(tr("A window manager is missing"));
        m_status->setStatus(Status::Attention,
                            tr("No window manager answers, and without one no window can be moved. "
                               "Panorel starts working as soon as one runs."));
    }
    m_grant->setVisible(!isGranted && isAsked);
    m_sceneCard->setVisible(isGranted && m_actions.saveScene);
}

void ReadyPage::saveScene()
{
    m_saved->setStatus(Status::Good, tr("Saved as %1").arg(m_actions.saveScene()));
    m_saved->setMinimumHeight(m_save->height()); // it takes the row's place, nothing moves
    m_saved->show();
    m_shortcuts->setVisible(bool(m_actions.openShortcuts));
    m_shortcuts->setFocus(Qt::OtherFocusReason);
    m_save->hide(); // a second one would be the same
}

} // namespace Panorel
