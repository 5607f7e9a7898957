#include "Panorel/Panel/PanelView.h"

#include "Panorel/Panel/DeskCard.h"
#include "Panorel/Panel/RestoreArea.h"
#include "Panorel/Panel/TipCard.h"
#include "Panorel/PanelModel.h"
#include "Panorel/Prefs.h"
#include "Panorel/UI/ListRow.h"
#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/Separator.h"
#include "Panorel/UI/StatusLine.h"
#include "Panorel/UI/SymbolView.h"
#include "Panorel/UI/TabOrder.h"
#include "Panorel/UI/TextLabel.h"

#include <QEvent>
#include <QKeySequence>
#include <QVBoxLayout>

namespace Panorel {

PanelView::PanelView(PanelModel &model, Prefs &prefs, const HotKeyText &textOf, QWidget *parent)
    : QWidget(parent), m_model(model), m_prefs(prefs), m_textOf(textOf),
      m_layout(new QVBoxLayout(this)), m_desk(new DeskCard), m_status(new StatusLine),
      m_restore(new RestoreArea(model)), m_tip(new TipCard),
      m_stash(new ListRow(Symbol::Stash, {})), m_scenes(new SceneList(model, textOf))
{
    m_status->setObjectName(QStringLiteral("status"));
    m_layout->setContentsMargins(Metrics::medium, Metrics::medium, Metrics::medium, Metrics::small);
    m_layout->setSpacing(Metrics::medium);
    m_layout->addWidget(makeHeader());
    m_layout->addWidget(m_desk);
    m_layout->addWidget(m_status);
    m_layout->addWidget(m_restore);
    m_layout->addWidget(m_tip);
    m_layout->addWidget(m_stash);
    m_layout->addWidget(m_scenes);
    addMenuRows();
    m_layout->addStretch();

    connect(m_tip, &TipCard::closed, this, [this] { m_prefs.setTipDismissed(true); });
    const auto openShortcuts = [this] {
        m_model.onOpenShortcuts();
        Q_EMIT finished();
    };
    connect(m_tip, &TipCard::setKeyRequested, this, openShortcuts);
    connect(m_scenes, &SceneList::setKeyRequested, this, openShortcuts);
    connect(m_stash, &ListRow::clicked, this, [this] { m_model.onStash(); });
    connect(&m_model, &PanelModel::changed, this, &PanelView::refresh);
    connect(&m_prefs, &Prefs::changed, this, &PanelView::refresh);
    refresh();
}

QWidget *PanelView::makeHeader()
{
    auto *header = new QWidget;
    auto *layout = new QHBoxLayout(header);
    layout->setContentsMargins({});
    layout->setSpacing(Metrics::small);
    auto *name = new TextLabel(TextStyle::Heading);
    name->setText(QStringLiteral("Panorel"));
    layout->addWidget(new SymbolView(Symbol::Layouts));
    layout->addWidget(name, 1);
    return header;
}

ListRow *PanelView::makeMenuRow(Symbol symbol, const QString &title, const QKeySequence &key,
                                const std::function<void()> &action)
{
    auto *row = new ListRow(symbol, title);
    row->setShortcut(key);
    row->setTrailingText(key.toString(QKeySequence::NativeText));
    connect(row, &ListRow::clicked, this, [this, action] {
        action();
        Q_EMIT finished();
    });
    return row;
}

void PanelView::addMenuRows()
{
    struct MenuRow {
        Symbol symbol;
        QString title;
        QKeySequence key;
        PanelModel::Action action;
    };
    const MenuRow rows[] = {
        {Symbol::Layouts, tr("Layouts…"), Qt::CTRL | Qt::Key_L, m_model.onOpenLayouts},
        {Symbol::Settings, tr("Settings…"), Qt::CTRL | Qt::Key_Comma, m_model.onOpenSettings},
        {Symbol::Update, tr("Check for Updates…"), {}, m_model.onCheckForUpdates},
        {Symbol::Quit, tr("Quit Panorel"), Qt::CTRL | Qt::Key_Q, m_model.onQuit},
    };
    auto *group = new QVBoxLayout;
    group->setSpacing(0);
    group->addWidget(new Separator);
    for (const MenuRow &row : rows) {
        if (row.action)
            group->addWidget(makeMenuRow(row.symbol, row.title, row.key, row.action));
    }
    m_layout->addLayout(group);
}

QSize PanelView::sizeHint() const
{
    constexpr int usualWidth = 320;
    constexpr int charactersWide = 40;
    const QFontMetrics metrics(fontOf(TextStyle::Body));
    const int width =
        std::max(usualWidth, charactersWide * metrics.horizontalAdvance(QLatin1Char('0')));
    return {width, m_layout->totalHeightForWidth(width)};
}

void PanelView::focusFirstControl()
{
    for (QWidget *next = nextInFocusChain(); next != this; next = next->nextInFocusChain()) {
        if (next->isVisibleTo(this) && next->focusPolicy() & Qt::TabFocus)
            return next->setFocus(Qt::TabFocusReason);
    }
}

bool PanelView::event(QEvent *event)
{
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::ApplicationFontChange)
        Q_EMIT sizeHintChanged();
    return QWidget::event(event);
}

void PanelView::refresh()
{
    m_desk->showDesk(m_model);
    refreshStatus();
    m_restore->setKeys(textOf(m_prefs.restoreHotKey()), textOf(m_prefs.undoHotKey()));
    m_restore->refresh();
    m_tip->setVisible(!m_prefs.tipDismissed() && m_model.onOpenShortcuts);
    refreshStash();
    m_scenes->setVisible(m_model.onApplyScene || m_model.onSaveScene);
    m_scenes->refresh();
    orderTabsByLayout(*this);
}

void PanelView::refreshStatus()
{
    if (!m_prefs.enabled())
        m_status->setStatus(Status::Off, tr("Panorel is off"));
    else if (m_model.windowCount() >= 1)
        m_status->setStatus(Status::Good,
                            tr("%n windows remembered", nullptr, int(m_model.windowCount())));
    else
        m_status->setStatus(Status::Off, tr("No layout saved yet"));
}

void PanelView::refreshStash()
{
    m_stash->setVisible(bool(m_model.onStash));
    m_stash->setTitle(m_model.isStashed() ? tr("Bring the desk back") : tr("Stash the desk"));
    m_stash->setSymbol(m_model.isStashed() ? Symbol::BringBack : Symbol::Stash);
    m_stash->setTrailingText(textOf(m_prefs.stashHotKey()));
}

QString PanelView::textOf(const std::optional<HotKeyCombo> &combo) const
{
    return combo ? m_textOf(*combo) : QString();
}

} // namespace Panorel
