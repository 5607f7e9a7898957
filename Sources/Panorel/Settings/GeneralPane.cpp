#include "Panorel/Settings/GeneralPane.h"

#include "Panorel/Prefs.h"
#include "Panorel/Settings/SettingsModel.h"
#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/PlainButton.h"
#include "Panorel/UI/RowCard.h"
#include "Panorel/UI/SettingRow.h"
#include "Panorel/UI/StatusLine.h"
#include "Panorel/UI/Toggle.h"

#include <QEvent>
#include <QHBoxLayout>

namespace Panorel {

namespace {

/// How a thing of the system stands, and what the user can do about it.
QWidget *statusRow(StatusLine *status, PlainButton *button)
{
    auto *row = new QWidget;
    row->setMinimumHeight(Metrics::rowHeight + Metrics::small);
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, Metrics::small, 0, Metrics::small);
    layout->setSpacing(Metrics::large);
    layout->addWidget(status, 1);
    layout->addWidget(button);
    return row;
}

} // namespace

GeneralPane::GeneralPane(SettingsModel &model, Prefs &prefs, bool hasDock, QWidget *parent)
    : Page(tr("General"), parent), m_model(model), m_prefs(prefs)
{
    addRestoring();
    addScenes();
    addStart(hasDock);
    addSystem();
    connect(&m_model, &SettingsModel::changed, this, &GeneralPane::refresh);
    connect(&m_prefs, &Prefs::changed, this, &GeneralPane::refresh);
    refresh();
}

void GeneralPane::addRestoring()
{
    addSwitch(*addCard(), tr("Keep windows where I leave them"),
              tr("Off: nothing is learned, and no window moves by itself."), &Prefs::enabled,
              &Prefs::setEnabled);
    RowCard &card = *addCard(tr("Restoring"));
    addSwitch(card, tr("Restore when displays change"),
              tr("Off: use “Restore Now” in the panel when you want your windows back."),
              &Prefs::restoreAutomatically, &Prefs::setRestoreAutomatically);
    addSwitch(card, tr("Restore sizes too"),
              tr("Off: windows go back to their place and keep the size they have."),
              &Prefs::alsoRestoreSizes, &Prefs::setAlsoRestoreSizes);
    addSwitch(card, tr("Place newly opened apps"),
              tr("Windows of an app that you open go where they were on this desk."),
              &Prefs::placeNewApps, &Prefs::setPlaceNewApps);
}

void GeneralPane::addScenes()
{
    addSwitch(*addCard(tr("Scenes")), tr("Hide other apps when switching"),
              tr("Off: the scene's windows come forward and everything else stays where it is. "
                 "On: apps with no window in the scene get hidden — the Dock brings them back."),
              &Prefs::hideOthersOnSwitch, &Prefs::setHideOthersOnSwitch);
}

void GeneralPane::addStart(bool hasDock)
{
    RowCard &card = *addCard(tr("Start"));
    addSwitch(card, tr("Launch at login"), {}, &Prefs::launchAtLogin, &Prefs::setLaunchAtLogin);
    if (hasDock)
        addSwitch(card, tr("Show icon in the Dock"), {}, &Prefs::showDockIcon,
                  &Prefs::setShowDockIcon);
}

void GeneralPane::addSystem()
{
    RowCard &card = *addCard(tr("System"));
    m_permission = new StatusLine(TextLabel::Fit::Wrap);
    m_permission->setObjectName(QStringLiteral("permission"));
    m_grant = new PlainButton(tr("Grant permission…"));
    connect(m_grant, &PlainButton::clicked, this, [this] {
        m_model.grantPermission();
        refresh();
    });
    card.addRow(statusRow(m_permission, m_grant));

    m_spaces = new StatusLine(TextLabel::Fit::Wrap);
    m_spaces->setObjectName(QStringLiteral("spaces"));
    m_openSpaces = new PlainButton(tr("Open settings…"));
    connect(m_openSpaces, &PlainButton::clicked, this, [this] { m_model.openSpacesSettings(); });
    m_spacesRow = statusRow(m_spaces, m_openSpaces);
    card.addRow(m_spacesRow);
}

void GeneralPane::addSwitch(RowCard &card, const QString &name, const QString &explanation,
                            Getter value, Setter setValue)
{
    auto *toggle = new Toggle;
    connect(toggle, &Toggle::clicked, this,
            [&prefs = m_prefs, setValue](bool isOn) { (prefs.*setValue)(isOn); });
    m_entries.push_back({toggle, value});
    card.addRow(new SettingRow(name, explanation, toggle));
}

/// The permission and the system's settings change behind our back: they are asked for again when
/// the user comes back to the window.
void GeneralPane::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        refresh();
    Page::changeEvent(event);
}

void GeneralPane::refresh()
{
    for (const Entry &entry : m_entries)
        entry.toggle->setChecked((m_prefs.*entry.value)());

    const bool isGranted = m_model.hasPermission();
    const bool isByUser = m_model.isPermissionGrantedByUser();
    if (isGranted)
        m_permission->setStatus(Status::Good,
                                isByUser ? tr("Panorel has the permission to move windows.")
                                         : tr("Panorel can see and move your windows."));
    else
        m_permission->setStatus(
            Status::Attention,
            isByUser ? tr("Panorel needs Accessibility permission to move windows.")
                     : tr("No window can be moved, as no window manager is running."));
    m_grant->setVisible(!isGranted && isByUser);
    refreshSpaces();
}

void GeneralPane::refreshSpaces()
{
    const std::optional<bool> isSetUp = m_model.separateSpaces();
    m_spacesRow->setVisible(isSetUp.has_value());
    if (!isSetUp)
        return;
    m_spaces->setStatus(
        *isSetUp ? Status::Good : Status::Attention,
        *isSetUp ? tr("Mission Control is set up so layouts survive display changes.")
                 : tr("Turn on “Displays have separate Spaces”. Takes effect after you log out and "
                      "back in."));
    m_openSpaces->setVisible(!*isSetUp);
}

} // namespace Panorel
